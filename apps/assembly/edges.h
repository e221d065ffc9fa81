// SPDX-License-Identifier: MIT
// Edges: those of a box, and those that a view shows of a part.

#ifndef ASSEMBLY_EDGES_H
#define ASSEMBLY_EDGES_H

#include "assembly.h"

#include <array>
#include <optional>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/line.h>
#include <vexmath/point.h>
#include <vexmath/xform.h>

namespace assembly {

struct Edge {
    mgPoint_c from;
    mgPoint_c to;
};

Edge moved(Edge const &edge, mgXform_c const &x);

std::array<mgPoint_c, 8> cornersOf(mgBBox_c const &box);
std::array<Edge, 12> edgesOf(mgBBox_c const &box);
/// The piece of the line inside the box; nothing when the line misses the box.
std::optional<Edge> insideOf(mgBBox_c const &box, mgLine_c const &line);

// A part as a view shows it, in pixels of the page, which `toPage` leads to. Parts in front hide
// nothing.

/// The edges where the part curves away from the viewer, and the open edges of its mesh. A cloud of
/// points without triangles has none.
std::vector<Edge> silhouetteOf(Part const &part, mgXform_c const &toPage);
/// The convex hull of the vertices, counter-clockwise for the viewer.
std::vector<mgPoint_c> hullOf(Part const &part, mgXform_c const &toPage);
/// The triangles that face one way, as three corners each. Those of a closed mesh cover the same
/// area as all of its triangles.
std::vector<std::vector<mgPoint_c>> facesOf(Part const &part, mgXform_c const &toPage);

} // namespace assembly

#endif
