// SPDX-License-Identifier: MIT
// The line of sight of a point, for the projections along it.

#ifndef VEXMATH_SRC_PRIMITIVES_LINE_OF_SIGHT_H
#define VEXMATH_SRC_PRIMITIVES_LINE_OF_SIGHT_H

#include <vexmath/line.h>
#include <vexmath/mg_transform.h>

namespace vexmath::detail {

/// The line of sight of a point. Moves the point to where the line begins.
inline mgLine_c lineOfSight(mgXform_c const &view, mgPoint_c *p, int isScreen) {
    mgUnitVector_c dir;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, *p, isScreen, *p, dir, isCamera, nullptr);
    return {*p, dir};
}

} // namespace vexmath::detail

#endif
