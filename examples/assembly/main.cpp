// SPDX-License-Identifier: MIT
// Checks an assembly: from mesh files to bounds, clash report, picture and document.
//
// Read on in the order of the work: assembly_file, mesh_file, placement, parts, check, document,
// drawing, report. The geometry is done by the library; what it takes is in placement.cpp,
// mesh_file.cpp (the last lines), drilling.cpp, check.cpp and document.cpp, and for the options in
// perspective.cpp, pick.cpp and section.cpp.

#include "assembly_file.h"
#include "check.h"
#include "document.h"
#include "drawing.h"
#include "failure.h"
#include "options.h"
#include "output.h"
#include "parts.h"
#include "pick.h"
#include "report.h"
#include "section.h"

#include <filesystem>
#include <iostream>

namespace example::assembly {

namespace {

char const *const kDocumentName = "assembly.vxa";
char const *const kPictureName = "assembly.svg";

/// Stores the document and proves it: what a reader gets back is the same, bit for bit.
void storeDocument(OutputFiles &output, Document const &document) {
    std::string const bytes = toBytes(document);
    std::filesystem::path const stored = output.stage(kDocumentName, bytes);
    Document const readBack = fromBytes(readFile(stored), stored.string());
    if (toBytes(readBack) != bytes) throw Failure(stored.string(), "reads back differently");
}

void run(Options const &options) {
    AssemblyFile const file = readAssemblyFile(options.assemblyFile);
    std::vector<Part> const parts = loadParts(file);
    CheckResult const result = check(parts, file.clashTolerance);
    Extras extras;
    extras.drilling = drillingPathOf(parts);
    if (options.pick) extras.pick = pickParts(parts, result.total, *options.pick);
    if (options.section) extras.section = cutParts(parts, *options.section);

    OutputFiles output(options.outFolder);
    storeDocument(output, documentOf(file, parts));
    output.stage(kPictureName, drawAssembly(file.name, parts, result, extras));
    std::vector<std::filesystem::path> const written = output.commit();

    printReport(std::cout, parts, result);
    printDrillingPath(std::cout, parts, extras.drilling);
    if (extras.pick) printPick(std::cout, parts, *extras.pick);
    if (extras.section) printSection(std::cout, parts, *extras.section);
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
    return example::runProgram([&] {
        Options const options = readOptions(argc, argv);
        if (options.help) {
            std::cout << helpText();
        } else if (options.version) {
            std::cout << versionText();
        } else {
            run(options);
        }
    });
}
