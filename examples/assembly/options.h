// SPDX-License-Identifier: MIT
// The command line.

#ifndef ASSEMBLY_OPTIONS_H
#define ASSEMBLY_OPTIONS_H

#include "command_line.h"
#include "pick.h"

#include <filesystem>
#include <optional>
#include <string>

#include <vexmath/plane.h>

namespace example::assembly {

struct Options : CommonOptions {
    std::string assemblyFile;
    std::optional<ScreenPoint> pick;
    std::optional<mgPlane_c> section;
    std::filesystem::path exportFile; ///< empty for none, as for the next two
    std::string importFile;
    std::string earlierDocument;
};

/// Throws Failure on an unknown option, a missing or unusable value, or not exactly one assembly
/// file. After `--help` or `--version` nothing else is asked for.
Options readOptions(CommandLine &line);

Program aboutProgram();

} // namespace example::assembly

#endif
