// SPDX-License-Identifier: MIT
// Checks an assembly: the command line, and the order of the work.
//
// Read on in that order: assembly, mesh, checks, document, picture, report.

#include "assembly.h"
#include "checks.h"
#include "contacts.h"
#include "document.h"
#include "exchange.h"
#include "files.h"
#include "picture.h"
#include "report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/core.h>

namespace assembly {

namespace {

namespace fs = std::filesystem;

constexpr int kFailed = 2;
char const *const kDocumentName = "assembly.vxa";
char const *const kPictureName = "assembly.svg";

char const *const kDescription =
    "Reads the parts of an assembly, each a mesh file (.obj, .stl, .ply) with a placement, and\n"
    "checks which of their bounding volumes clash, touch and contain each other. Puts the parts\n"
    "whose names begin with \"bolt\" in order for a drill, and finds the least blank of each "
    "part.\n"
    "Prints a table and writes two files:\n"
    "  assembly.svg  front, top and side view, clashes marked\n"
    "  assembly.vxa  bounds, placements, stock and drilling, read back and compared";

char const *const kFooter =
    "Exit status: 0 when the assembly was checked, with clashes or without; 2 when something\n"
    "could not be read or written, with one line on standard error.";

struct Options {
    std::string assemblyFile;
    fs::path outFolder = ".";
    std::optional<PanelPoint> pick;
    std::optional<mgPlane_c> section;
    fs::path exportFile; ///< empty for none, as the next two
    std::string importFile;
    std::string earlierDocument;
};

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

void addFiles(CLI::App &app, Options &options) {
    app.add_option("ASSEMBLY", options.assemblyFile, "The assembly file, in JSON")->required();
    app.add_option("--out", options.outFolder, "Folder for the two files, made when missing");
    app.add_option("--export", options.exportFile,
                   "Also write the placements and the perspective view for other programs");
    app.add_option("--import", options.importFile,
                   "Also read such a file, and list what its forms did not keep");
    app.add_option("--since", options.earlierDocument,
                   "Test what changed since an earlier assembly.vxa, and list only that");
}

/// Returns nothing when the run ends here, with the status to return: after the text of --help or
/// --version was printed, or a line about an error.
std::optional<Options> readOptions(int argc, char const *const *argv, int &status) {
    CLI::App app(kDescription, "vexmath_assembly");
    app.footer(kFooter);
    app.allow_windows_style_options(false); // a path may begin with a slash there, too
    app.set_version_flag("--version", "vexmath_assembly " VEXMATH_ASSEMBLY_VERSION);
    app.failure_message([](CLI::App const *, CLI::Error const &error) {
        return fmt::format("vexmath_assembly: {} (see --help)\n", printable(error.what()));
    });
    Options options;
    addFiles(app, options);
    std::optional<std::array<double, 2>> pick;
    app.add_option("--pick", pick,
                   "Also draw a perspective view, and list the parts whose boxes lie under this "
                   "point of it, 0 to 1 from its lower left corner")
        ->type_name("X Y");
    std::optional<std::array<double, 6>> section;
    app.add_option("--section", section,
                   "Also cut and hatch the parts with the plane through P across the normal N")
        ->type_name("PX PY PZ NX NY NZ");
    try {
        app.parse(argc, argv);
        if (pick) options.pick = pickFrom(*pick);
        if (section) options.section = sectionFrom(*section);
        return options;
    } catch (CLI::Error const &error) { // --help and --version, too
        status = app.exit(error) == 0 ? 0 : kFailed;
        return std::nullopt;
    }
}

/// A mistyped export must not overwrite a file that the assembly is made from.
void refuseOverwriting(fs::path const &exportFile, Assembly const &assembly) {
    auto const isExport = [&exportFile](fs::path const &input) {
        std::error_code ignored; // a file that does not exist is no input
        return fs::equivalent(exportFile, input, ignored);
    };
    std::set<fs::path> inputs{assembly.file};
    for (Part const &part : assembly.parts) inputs.insert(part.mesh->file);
    bool const isInput = std::any_of(inputs.begin(), inputs.end(), isExport);
    if (isInput) throw Failure(exportFile.string(), "would be overwritten: it is read as input");
}

/// The placements, part by part, and then the perspective view.
std::vector<NamedTransform> transformsOf(Assembly const &assembly) {
    std::vector<NamedTransform> transforms;
    for (Part const &part : assembly.parts) transforms.push_back({part.name, part.placement});
    transforms.push_back({"perspective view", layOutPerspective(assembly).toPage});
    return transforms;
}

/// Stages the document and proves it: what a reader gets back is the same, bit for bit.
void stageDocument(OutputFiles &output, fs::path const &file, Document const &document) {
    Progress progress("storing", 2);
    progress.step("the document");
    std::string const bytes = toBytes(document);
    std::string const stored = output.stage(file, bytes).string();
    progress.step("and reading it back");
    if (toBytes(readDocument(stored)) != bytes) throw Failure(stored, "reads back differently");
}

void run(Options const &options) {
    bool const compares = !options.earlierDocument.empty();
    bool const imports = !options.importFile.empty();
    bool const exports = !options.exportFile.empty();

    Assembly const assembly = readAssembly(options.assemblyFile);
    refuseOverwriting(options.exportFile, assembly);
    ContactUpdate update;
    std::vector<std::string> changes;
    if (compares) {
        Document const earlier = readDocument(options.earlierDocument);
        update = updateContacts(earlier, assembly);
        changes = changesBetween(earlier, assembly);
    } else {
        update.now = findContacts(assembly);
    }
    CheckResult const result =
        check(assembly, std::move(update.now), options.pick, options.section);

    // Everything is read before the first file is written.
    std::vector<NamedTransform> transforms;
    if (imports || exports) transforms = transformsOf(assembly);
    std::vector<Loss> losses;
    if (imports) losses = readExchange(options.importFile, transforms);

    makeFolder(options.outFolder);
    OutputFiles output;
    stageDocument(output, options.outFolder / kDocumentName, documentOf(assembly, result));
    output.stage(options.outFolder / kPictureName, drawPicture(assembly, result));
    if (exports) output.stage(options.exportFile, toExchange(transforms));
    std::vector<fs::path> const written = output.commit();

    if (compares) {
        printChanges(options.earlierDocument, changes, update);
    } else {
        printReport(assembly, result);
    }
    printViews(assembly, result);
    if (imports) printLosses(options.importFile, losses);
    fmt::print("\n");
    for (fs::path const &path : written) fmt::print("written: {}\n", path.string());
    fmt::print("{} was read back: bounds and placements agree bit for bit\n", kDocumentName);
    if (std::fflush(stdout) != 0) throw Failure("standard output", "cannot be written");
}

} // namespace

} // namespace assembly

int main(int argc, char **argv) {
    try {
        int status = 0;
        std::optional<assembly::Options> const options = assembly::readOptions(argc, argv, status);
        if (options) assembly::run(*options);
        return status;
    } catch (std::exception const &error) {
        fmt::print(stderr, "{}\n", assembly::printable(error.what()));
        return assembly::kFailed;
    }
}
