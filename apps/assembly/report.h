// SPDX-License-Identifier: MIT
// What the program prints about an assembly.

#ifndef ASSEMBLY_REPORT_H
#define ASSEMBLY_REPORT_H

#include "check_result.h"
#include "exchange.h"

#include <string>
#include <vector>

namespace assembly {

/// A table of the parts, then the pairs that clash, touch and contain, then the bounds of all.
void printReport(Assembly const &assembly, Contacts const &contacts);
/// The bolts in the order of drilling; nothing without bolts.
void printDrillingPath(std::vector<Part> const &parts, DrillingPath const &path);
/// The line of sight and the parts hit, nearest first.
void printPick(std::vector<Part> const &parts, Pick const &pick);
/// The parts cut.
void printSection(std::vector<Part> const &parts, Section const &section);
/// The parts that changed since a document was written.
void printChanges(std::string const &document, std::vector<std::string> const &changes);
/// What the forms of an exchange file did not keep.
void printLosses(std::string const &file, std::vector<Loss> const &losses);

} // namespace assembly

#endif
