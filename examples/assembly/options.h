// SPDX-License-Identifier: MIT
// The command line.

#ifndef ASSEMBLY_OPTIONS_H
#define ASSEMBLY_OPTIONS_H

#include <filesystem>
#include <string>

namespace assembly {

struct Options {
    std::string assemblyFile;
    std::filesystem::path outFolder = ".";
    bool help = false;
    bool version = false;
};

/// Throws Failure on an unknown option, a missing value, or not exactly one assembly file. After
/// `--help` or `--version` nothing else is asked for.
Options readOptions(int argc, char const *const *argv);

std::string helpText();
std::string versionText();

} // namespace assembly

#endif
