// SPDX-License-Identifier: MIT
// What the program prints.

#ifndef ASSEMBLY_REPORT_H
#define ASSEMBLY_REPORT_H

#include "check.h"
#include "drilling.h"
#include "exchange.h"
#include "parts.h"
#include "pick.h"
#include "section.h"

#include <ostream>
#include <string>
#include <vector>

namespace example::assembly {

/// A table of the parts, then the pairs that clash, touch and contain, then the total bounds.
void printReport(std::ostream &out, std::vector<Part> const &parts, CheckResult const &result);
/// The bolts in the order of drilling; nothing without bolts.
void printDrillingPath(std::ostream &out, std::vector<Part> const &parts, DrillingPath const &path);
/// The line of sight and the parts hit, nearest first.
void printPick(std::ostream &out, std::vector<Part> const &parts, Pick const &pick);
/// The parts cut.
void printSection(std::ostream &out, std::vector<Part> const &parts, Section const &section);
/// What the forms of an exchange file did not keep.
void printLosses(std::ostream &out, std::string const &file, std::vector<Loss> const &losses);
/// The parts that changed since a document was written.
void printChanges(std::ostream &out, std::string const &document,
                  std::vector<std::string> const &changes);

} // namespace example::assembly

#endif
