// SPDX-License-Identifier: MIT
// The command line.

#ifndef CURVES_OPTIONS_H
#define CURVES_OPTIONS_H

#include <filesystem>
#include <string>
#include <vector>

namespace example::curves {

struct Options {
    std::vector<double> tolerances; ///< coarse to fine
    std::filesystem::path outFolder = ".";
    bool help = false;
    bool version = false;
};

/// Throws Failure on an unknown option, a missing value, or a tolerance that is not a number
/// greater than 0. After `--help` or `--version` nothing else is asked for.
Options readOptions(int argc, char const *const *argv);

std::string helpText();
std::string versionText();

} // namespace example::curves

#endif
