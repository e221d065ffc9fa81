// SPDX-License-Identifier: MIT
// The document: bounds and placements of a checked assembly, stored through the archive.

#ifndef ASSEMBLY_DOCUMENT_H
#define ASSEMBLY_DOCUMENT_H

#include "assembly.h"

#include <string>
#include <vector>

namespace assembly {

struct DocumentPart {
    std::string name;
    mgXform_c placement;
    mgBBox_c bounds; ///< in the part's own coordinates
    mgBBox_c placed; ///< in the assembly's
};

struct Document {
    std::string name;
    double clashTolerance = 0.0;
    std::vector<DocumentPart> parts;
};

Document documentOf(Assembly const &assembly);

/// The bytes of the document file. They hold each number bit for bit: two documents are the same
/// exactly when their bytes are.
std::string toBytes(Document document);

/// Reads a document file, written by this version of the program or an earlier one. Throws Failure
/// naming the file when it is something else, cut short or followed by more.
Document readDocument(std::string const &file);

/// One line for each part that is new, gone, placed differently or of another shape. Numbers are
/// compared within the library's tolerances, as a document may come from another machine.
std::vector<std::string> changesBetween(Document const &earlier, Document const &now);

} // namespace assembly

#endif
