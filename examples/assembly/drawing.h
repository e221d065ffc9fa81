// SPDX-License-Identifier: MIT
// The picture of a checked assembly.

#ifndef ASSEMBLY_DRAWING_H
#define ASSEMBLY_DRAWING_H

#include "check.h"
#include "parts.h"

#include <string>
#include <vector>

namespace assembly {

/// An SVG file: front, top and side view on one scale, with each part's silhouette, box and
/// bounding circle, the overlaps of clashing parts hatched, and a legend.
std::string drawAssembly(std::string const &title, std::vector<Part> const &parts,
                         CheckResult const &result);

} // namespace assembly

#endif
