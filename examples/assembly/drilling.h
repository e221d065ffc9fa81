// SPDX-License-Identifier: MIT
// The way of a drill from bolt to bolt.

#ifndef ASSEMBLY_DRILLING_H
#define ASSEMBLY_DRILLING_H

#include "panel.h"
#include "parts.h"
#include "svg.h"

#include <cstddef>
#include <vector>

#include <vexmath/point.h>

namespace example::assembly {

struct DrillingPath {
    std::vector<std::size_t> bolts; ///< indices of parts, in the order of drilling
    std::vector<mgPoint_c> centres; ///< theirs
    double length = 0.0;
};

/// A short path through the centres of all bolts: of the parts whose names begin with "bolt".
DrillingPath drillingPathOf(std::vector<Part> const &parts);

/// The path with an arrow at its end, and a mark at each hole. Nothing without bolts.
void drawDrillingPath(SvgPage &page, Panel const &panel, DrillingPath const &path);

} // namespace example::assembly

#endif
