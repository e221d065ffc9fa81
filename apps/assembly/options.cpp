// SPDX-License-Identifier: MIT
// The command line.

#include "options.h"

#include "terminal.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <CLI/CLI.hpp>
#include <fmt/core.h>

namespace assembly {

namespace {

constexpr int kFailed = 2;

char const *const kDescription =
    "Reads the parts of an assembly, each a mesh file (.obj, .stl, .ply) with a placement, and\n"
    "checks which of their bounding volumes clash, touch and contain each other. Puts the parts\n"
    "whose names begin with \"bolt\" in order for a drill. Prints a table and writes two files:\n"
    "  assembly.svg  front, top and side view, clashes marked\n"
    "  assembly.vxa  the bounds and placements, read back and compared";

char const *const kFooter =
    "Exit status: 0 when the assembly was checked, with clashes or without; 2 when something\n"
    "could not be read or written, with one line on standard error.";

PanelPoint pickFrom(std::array<double, 2> const &at) {
    bool const isInside = std::all_of(at.begin(), at.end(),
                                      [](double share) { return share >= 0.0 && share <= 1.0; });
    if (!isInside) throw CLI::ValidationError("--pick", "needs two numbers from 0 to 1");
    return {at[0], at[1]};
}

mgPlane_c sectionFrom(std::array<double, 6> const &numbers) {
    bool const isFinite = std::all_of(numbers.begin(), numbers.end(),
                                      [](double number) { return std::isfinite(number); });
    if (!isFinite) throw CLI::ValidationError("--section", "needs six finite numbers");
    mgUnitVector_c const normal(&numbers[3]);
    if (normal.isNull()) throw CLI::ValidationError("--section", "the normal has no direction");
    return {mgPoint_c(numbers.data()), normal};
}

CLI::Option const *addPick(CLI::App &app, std::array<double, 2> &at) {
    return app
        .add_option("--pick", at,
                    "Also draw a perspective view, and list the parts whose boxes lie under this "
                    "point of it, 0 to 1 from its lower left corner")
        ->type_name("X Y");
}

CLI::Option const *addSection(CLI::App &app, std::array<double, 6> &numbers) {
    return app
        .add_option("--section", numbers,
                    "Also cut boxes and parts with the plane through P across the normal N")
        ->type_name("PX PY PZ NX NY NZ");
}

void addFiles(CLI::App &app, Options &options) {
    app.add_option("ASSEMBLY", options.assemblyFile, "The assembly file, in JSON")->required();
    app.add_option("--out", options.outFolder, "Folder for the two files, made when missing");
    app.add_option("--export", options.exportFile,
                   "Also write the placements and the perspective view for other programs");
    app.add_option("--import", options.importFile,
                   "Also read such a file, and list what its forms did not keep");
    app.add_option("--since", options.earlierDocument,
                   "Also list the parts that changed since an earlier assembly.vxa");
}

} // namespace

std::optional<Options> readOptions(int argc, char const *const *argv, int &status) {
    CLI::App app(kDescription, "vexmath_assembly");
    app.footer(kFooter);
    app.set_version_flag("--version", "vexmath_assembly " VEXMATH_ASSEMBLY_VERSION);
    app.failure_message([](CLI::App const *, CLI::Error const &error) {
        return fmt::format("vexmath_assembly: {} (see --help)\n", printable(error.what()));
    });
    Options options;
    std::array<double, 2> pick{};
    std::array<double, 6> section{};
    addFiles(app, options);
    CLI::Option const *const pickOption = addPick(app, pick);
    CLI::Option const *const sectionOption = addSection(app, section);
    try {
        app.parse(argc, argv);
        if (pickOption->count() > 0) options.pick = pickFrom(pick);
        if (sectionOption->count() > 0) options.section = sectionFrom(section);
        return options;
    } catch (CLI::Error const &error) { // --help and --version, too
        status = app.exit(error) == 0 ? 0 : kFailed;
        return std::nullopt;
    }
}

} // namespace assembly
