// SPDX-License-Identifier: MIT
// The document: bounds and placements of a checked assembly, stored through the archive.

#ifndef ASSEMBLY_DOCUMENT_H
#define ASSEMBLY_DOCUMENT_H

#include "parts.h"

#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

namespace example::assembly {

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

Document documentOf(AssemblyFile const &file, std::vector<Part> const &parts);

/// The bytes of the document file. They hold each number bit for bit: two documents are the same
/// exactly when their bytes are.
std::string toBytes(Document document);

/// Reads a document file, written by this version of the program or an earlier one. Throws Failure
/// naming the file when it is something else, cut short or followed by more.
Document readDocument(std::string const &file);

} // namespace example::assembly

#endif
