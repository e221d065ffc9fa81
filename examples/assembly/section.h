// SPDX-License-Identifier: MIT
// Sections: what a plane cuts of the parts.

#ifndef ASSEMBLY_SECTION_H
#define ASSEMBLY_SECTION_H

#include "box_edges.h"
#include "parts.h"

#include <cstddef>
#include <vector>

#include <vexmath/plane.h>
#include <vexmath/point.h>

namespace example::assembly {

/// A part whose box is cut. The box is taken in the part's own frame, in which it fits it best.
struct PartCut {
    std::size_t part = 0;
    std::vector<mgPoint_c> boxOutline; ///< a convex polygon of three to six corners, in order
    std::vector<Edge> meshOutline;     ///< the outline of the part itself, piece by piece
};

struct Section {
    mgPlane_c plane;
    std::vector<PartCut> cuts;
};

Section cutParts(std::vector<Part> const &parts, mgPlane_c const &plane);

} // namespace example::assembly

#endif
