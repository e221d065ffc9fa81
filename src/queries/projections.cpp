// SPDX-License-Identifier: MIT
// Projects points along a line of sight to a plane or a line.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>

#include "line_line.h"

namespace {

/// The line of sight of a point. Moves the point to where the line begins.
mgLine_c lineOfSight(mgXform_c const &view, mgPoint_c *p, int isScreen) {
    mgUnitVector_c dir;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, *p, isScreen, *p, dir, isCamera, nullptr);
    return {*p, dir};
}

} // namespace

mgLinePlaneIntersectionType_e mgPlane_c::projectToPlane(mgXform_c const &x, mgPoint_c *p,
                                                        int flag) const {
    mgUnitVector_c const dir = mgUnitVector_c::zAxis() * x;
    if (flag) *p *= x;
    return mg_LineIntPlane(mgLine_c(*p, dir), *this, p, nullptr);
}

mgLinePlaneIntersectionType_e mgPlane_c::projectToPlaneOnViewLine(mgXform_c const &view,
                                                                  mgPoint_c *p, int flag) const {
    return mg_LineIntPlane(lineOfSight(view, p, flag), *this, p, nullptr);
}

mgPoint_c mgPoint_c::xformByPerspInversePlane(mgXform_c const &view, mgPlane_c const &plane) {
    plane.projectToPlaneOnViewLine(view, this, 1);
    return *this;
}

mgPoint_c mgPoint_c::xformByPerspInverseLine(mgXform_c const &view, mgLine_c const &line) {
    mgLine_c const ray = lineOfSight(view, this, 1);
    mg_LineIntLine(ray.rootPoint(), ray.direction(), line.rootPoint(), line.direction(), this,
                   vexmath::detail::kQueryTolerance);
    return *this;
}
