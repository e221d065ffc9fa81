// SPDX-License-Identifier: MIT
// The silhouette of a part in a view.

#ifndef ASSEMBLY_SILHOUETTE_H
#define ASSEMBLY_SILHOUETTE_H

#include "parts.h"

#include <vector>

#include <vexmath/point.h>
#include <vexmath/xform.h>

namespace assembly {

/// A piece of the silhouette between two of its points, on the page.
struct SilhouetteEdge {
    mgPoint_c from;
    mgPoint_c to;
};

/// The edges where the placed part turns away from the viewer, and the open edges of its mesh.
/// Nothing is hidden by what lies in front. A cloud of points without triangles has none.
std::vector<SilhouetteEdge> silhouetteOf(Part const &part, mgXform_c const &toPage);

} // namespace assembly

#endif
