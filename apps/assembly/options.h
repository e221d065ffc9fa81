// SPDX-License-Identifier: MIT
// The command line.

#ifndef ASSEMBLY_OPTIONS_H
#define ASSEMBLY_OPTIONS_H

#include "panel.h"

#include <filesystem>
#include <optional>
#include <string>

#include <vexmath/plane.h>

namespace assembly {

struct Options {
    std::string assemblyFile;
    std::filesystem::path outFolder = ".";
    std::optional<PanelPoint> pick;
    std::optional<mgPlane_c> section;
    std::filesystem::path exportFile; ///< empty for none, as the next two
    std::string importFile;
    std::string earlierDocument;
};

/// Reads the command line. Returns nothing when the run ends here, with the status to return: after
/// the text of --help or --version was printed, or a line about an error.
std::optional<Options> readOptions(int argc, char const *const *argv, int &status);

} // namespace assembly

#endif
