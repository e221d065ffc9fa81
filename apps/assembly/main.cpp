// SPDX-License-Identifier: MIT
// Checks an assembly: from mesh files to bounds, clash report, picture and document.
//
// Read on in the order of the work: assembly, mesh, contacts, document, picture, report.

#include "assembly.h"
#include "check_result.h"
#include "document.h"
#include "drawing.h"
#include "exchange.h"
#include "files.h"
#include "options.h"
#include "report.h"
#include "terminal.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <fmt/core.h>

namespace assembly {

namespace {

namespace fs = std::filesystem;

char const *const kDocumentName = "assembly.vxa";
char const *const kPictureName = "assembly.svg";

/// A mistyped export must not overwrite a file that the assembly is made from.
void refuseOverwriting(fs::path const &exportFile, Assembly const &assembly) {
    auto const isExport = [&exportFile](fs::path const &input) {
        std::error_code ignored; // a file that does not exist is no input
        return fs::equivalent(exportFile, input, ignored);
    };
    bool const isInput = isExport(assembly.file)
                         || std::any_of(assembly.parts.begin(), assembly.parts.end(),
                                        [&](Part const &part) { return isExport(part.meshFile); });
    if (isInput) throw Failure(exportFile.string(), "would be overwritten: it is read as input");
}

CheckResult check(Assembly const &assembly, Options const &options) {
    CheckResult result;
    result.contacts = findContacts(assembly.parts, assembly.clashTolerance);
    result.drilling = findDrillingPath(assembly.parts);
    if (options.pick) result.pick = findPick(assembly, *options.pick);
    if (options.section) result.section = findSection(assembly.parts, *options.section);
    return result;
}

/// The placements, part by part, and then the perspective view.
std::vector<NamedTransform> transformsOf(Assembly const &assembly) {
    std::vector<NamedTransform> transforms;
    for (Part const &part : assembly.parts) transforms.push_back({part.name, part.placement});
    transforms.push_back({"perspective view", layOutPerspective(assembly).toPage});
    return transforms;
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

/// Stages the document and proves it: what a reader gets back is the same, bit for bit.
void stageDocument(OutputFiles &output, fs::path const &file, Document const &document) {
    std::string const bytes = toBytes(document);
    std::string const stored = output.stage(file, bytes).string();
    if (toBytes(readDocument(stored)) != bytes) throw Failure(stored, "reads back differently");
}

void print(Assembly const &assembly, CheckResult const &result) {
    printReport(assembly, result.contacts);
    printDrillingPath(assembly.parts, result.drilling);
    if (result.pick) printPick(assembly.parts, *result.pick);
    if (result.section) printSection(assembly.parts, *result.section);
}

void run(Options const &options) {
    Assembly const assembly = readAssembly(options.assemblyFile);
    refuseOverwriting(options.exportFile, assembly);
    CheckResult const result = check(assembly, options);
    Document const document = documentOf(assembly);
    std::vector<NamedTransform> const transforms = transformsOf(assembly);
    Comparisons const comparisons = compare(options, document, transforms);

    makeFolder(options.outFolder);
    OutputFiles output;
    stageDocument(output, options.outFolder / kDocumentName, document);
    output.stage(options.outFolder / kPictureName, drawPicture(assembly, result));
    if (!options.exportFile.empty()) output.stage(options.exportFile, toExchange(transforms));
    std::vector<fs::path> const written = output.commit();

    print(assembly, result);
    if (comparisons.changes) printChanges(options.earlierDocument, *comparisons.changes);
    if (comparisons.losses) printLosses(options.importFile, *comparisons.losses);
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
        return 2;
    }
}
