// SPDX-License-Identifier: MIT
// Checks an assembly: from mesh files to bounds, clash report, picture and document.
//
// Read on in the order of the work: assembly_file, mesh_file, placement, parts, check, document,
// drawing, report. The geometry is done by the library; what it takes is in placement.cpp,
// mesh_file.cpp (the last lines), drilling.cpp, check.cpp and document.cpp, and for the options in
// perspective.cpp, pick.cpp, section.cpp and exchange.cpp.

#include "assembly_file.h"
#include "changes.h"
#include "check.h"
#include "command_line.h"
#include "document.h"
#include "drawing.h"
#include "exchange.h"
#include "failure.h"
#include "options.h"
#include "output.h"
#include "parts.h"
#include "pick.h"
#include "report.h"
#include "section.h"

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace example::assembly {

namespace {

char const *const kDocumentName = "assembly.vxa";
char const *const kPictureName = "assembly.svg";

/// Stores the document and proves it: what a reader gets back is the same, bit for bit.
void storeDocument(OutputFiles &output, std::filesystem::path const &file,
                   Document const &document) {
    std::string const bytes = toBytes(document);
    std::filesystem::path const stored = output.stage(file, bytes);
    if (toBytes(readDocument(stored.string())) != bytes)
        throw Failure(stored.string(), "reads back differently");
}

/// A mistyped export must not cost anybody the file that the assembly is made from.
void refuseOverwriting(std::filesystem::path const &exportFile, AssemblyFile const &file) {
    auto const isExport = [&exportFile](std::filesystem::path const &input) {
        std::error_code ignored; // what does not exist is no input
        return std::filesystem::equivalent(exportFile, input, ignored);
    };
    bool isInput = isExport(file.path);
    for (PartEntry const &part : file.parts) isInput = isInput || isExport(part.mesh);
    if (isInput) throw Failure(exportFile.string(), "would be overwritten: it is read as input");
}

Extras extrasFor(Options const &options, std::vector<Part> const &parts, mgBBox_c const &total) {
    Extras extras;
    extras.drilling = drillingPathOf(parts);
    if (options.pick) extras.pick = pickParts(parts, total, *options.pick);
    if (options.section) extras.section = cutParts(parts, *options.section);
    return extras;
}

/// What files of other runs say, where options name any.
struct Comparisons {
    std::optional<std::vector<std::string>> changes;
    std::optional<std::vector<Loss>> losses;
};

Comparisons compare(Options const &options, Document const &document,
                    std::vector<NamedTransform> const &transforms) {
    Comparisons found;
    if (!options.earlierDocument.empty()) {
        found.changes = changesBetween(readDocument(options.earlierDocument), document);
    }
    if (!options.importFile.empty()) found.losses = readExchange(options.importFile, transforms);
    return found;
}

void run(Options const &options) {
    AssemblyFile const file = readAssemblyFile(options.assemblyFile);
    refuseOverwriting(options.exportFile, file);
    std::vector<Part> const parts = loadParts(file);
    CheckResult const result = check(parts, file.clashTolerance);
    Extras const extras = extrasFor(options, parts, result.total);
    Document const document = documentOf(file, parts);
    std::vector<NamedTransform> const transforms = transformsOf(parts, result.total);
    Comparisons const comparisons = compare(options, document, transforms);

    makeFolder(options.outFolder);
    OutputFiles output;
    storeDocument(output, options.outFolder / kDocumentName, document);
    output.stage(options.outFolder / kPictureName, drawAssembly(file.name, parts, result, extras));
    if (!options.exportFile.empty()) output.stage(options.exportFile, toExchange(transforms));
    std::vector<std::filesystem::path> const written = output.commit();

    printReport(std::cout, parts, result);
    printDrillingPath(std::cout, parts, extras.drilling);
    if (extras.pick) printPick(std::cout, parts, *extras.pick);
    if (extras.section) printSection(std::cout, parts, *extras.section);
    if (comparisons.changes) printChanges(std::cout, options.earlierDocument, *comparisons.changes);
    if (comparisons.losses) printLosses(std::cout, options.importFile, *comparisons.losses);
    std::cout << '\n';
    for (std::filesystem::path const &path : written) {
        std::cout << "written: " << path.string() << '\n';
    }
    std::cout << kDocumentName << " was read back: bounds and placements agree bit for bit\n";
}

} // namespace

} // namespace example::assembly

int main(int argc, char **argv) {
    using namespace example::assembly;
    return example::runProgram(aboutProgram(), argc, argv, readOptions, run);
}
