// SPDX-License-Identifier: MIT
// What changed between two documents of an assembly.

#ifndef ASSEMBLY_CHANGES_H
#define ASSEMBLY_CHANGES_H

#include "document.h"

#include <string>
#include <vector>

namespace example::assembly {

/// One line for each part that is new, gone, placed differently or of another shape, as far as the
/// library's own tolerances and the bounds tell: a document may come from another machine.
std::vector<std::string> changesBetween(Document const &earlier, Document const &now);

} // namespace example::assembly

#endif
