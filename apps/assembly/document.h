// SPDX-License-Identifier: MIT
// The document: a checked assembly, stored through the archive.

#ifndef ASSEMBLY_DOCUMENT_H
#define ASSEMBLY_DOCUMENT_H

#include "checks.h"

#include <optional>
#include <string>
#include <vector>

namespace assembly {

/// The size of a part's blank, at the part's size in the assembly.
struct DocumentStock {
    double length = 0.0;
    double width = 0.0;
    double height = 0.0;
    double angleDegrees = 0.0; ///< from the part's x axis to the length
};

struct DocumentPart {
    std::string name;
    mgXform_c placement;
    mgBBox_c bounds;                    ///< in the part's own coordinates
    mgBBox_c placed;                    ///< in the assembly's
    std::optional<DocumentStock> stock; ///< nothing in a document of layout 1
};

struct DocumentOrder {
    std::vector<int> bolts; ///< numbers of parts, counted from 0
    double length = 0.0;
};

struct Document {
    std::string name;
    double clashTolerance = 0.0;
    std::vector<DocumentPart> parts;
    // From layout 2 on.
    std::optional<Contacts> contacts;
    DocumentOrder drillingPath;
    DocumentOrder drillingTour;
};

Document documentOf(Assembly const &assembly, CheckResult const &result);

/// The bytes of the document file, in the newest layout. They hold each number bit for bit: two
/// documents are the same exactly when their bytes are.
std::string toBytes(Document document);

/// Reads a document file, written by this version of the program or an earlier one. Throws Failure
/// naming the file when it is something else, cut short or followed by more.
Document readDocument(std::string const &file);

/// One line for another clash tolerance, and for each part that is new, gone, placed differently or
/// of another shape. Placements and bounds are compared within the library's tolerances, as a
/// document may come from another machine.
std::vector<std::string> changesBetween(Document const &earlier, Assembly const &now);

} // namespace assembly

#endif
