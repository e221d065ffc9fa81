// SPDX-License-Identifier: MIT
// What the program prints.

#ifndef ASSEMBLY_REPORT_H
#define ASSEMBLY_REPORT_H

#include "check.h"
#include "parts.h"

#include <ostream>
#include <vector>

namespace assembly {

/// A table of the parts, then the pairs that clash, touch and contain, then the total bounds.
void printReport(std::ostream &out, std::vector<Part> const &parts, CheckResult const &result);

} // namespace assembly

#endif
