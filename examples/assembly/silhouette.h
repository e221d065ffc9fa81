// SPDX-License-Identifier: MIT
// The silhouette of a part in a view.

#ifndef ASSEMBLY_SILHOUETTE_H
#define ASSEMBLY_SILHOUETTE_H

#include "box_edges.h"
#include "parts.h"

#include <vector>

#include <vexmath/point.h>
#include <vexmath/xform.h>

namespace example::assembly {

/// The edges, on the page, where the placed part turns away from the viewer, and the open edges of
/// its mesh. Nothing is hidden by what lies in front. A cloud of points without triangles has none.
std::vector<Edge> silhouetteOf(Part const &part, mgXform_c const &toPage);

/// The convex hull of the silhouette, or of a cloud of points, counter-clockwise for the viewer.
std::vector<mgPoint_c> hullOf(Part const &part, mgXform_c const &toPage);

/// The corners, on the page, of the triangles that face one way. Those of a closed mesh together
/// cover the same area as all of its triangles.
std::vector<std::vector<mgPoint_c>> facesOf(Part const &part, mgXform_c const &toPage);

} // namespace example::assembly

#endif
