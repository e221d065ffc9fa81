// SPDX-License-Identifier: MIT
// The command line.

#ifndef ASSEMBLY_OPTIONS_H
#define ASSEMBLY_OPTIONS_H

#include "pick.h"

#include <filesystem>
#include <optional>
#include <string>

#include <vexmath/plane.h>

namespace example::assembly {

struct Options {
    std::string assemblyFile;
    std::filesystem::path outFolder = ".";
    std::optional<ScreenPoint> pick;
    std::optional<mgPlane_c> section;
    bool help = false;
    bool version = false;
};

/// Throws Failure on an unknown option, a missing or unusable value, or not exactly one assembly
/// file. After
/// `--help` or `--version` nothing else is asked for.
Options readOptions(int argc, char const *const *argv);

std::string helpText();
std::string versionText();

} // namespace example::assembly

#endif
