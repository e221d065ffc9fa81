// SPDX-License-Identifier: MIT
// The corners and edges of a box, and the piece of a line inside of it.

#ifndef ASSEMBLY_BOX_EDGES_H
#define ASSEMBLY_BOX_EDGES_H

#include <array>
#include <optional>

#include <vexmath/bbox.h>
#include <vexmath/line.h>
#include <vexmath/point.h>

namespace example::assembly {

struct Edge {
    mgPoint_c from;
    mgPoint_c to;
};

std::array<mgPoint_c, 8> cornersOf(mgBBox_c const &box);
std::array<Edge, 12> edgesOf(mgBBox_c const &box);
/// Nothing when the line misses the box.
std::optional<Edge> insideOf(mgBBox_c const &box, mgLine_c const &line);

} // namespace example::assembly

#endif
