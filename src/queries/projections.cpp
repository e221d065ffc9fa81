// SPDX-License-Identifier: MIT
// Projects a screen point along its line of sight to a line.

#include <vexmath/mg_queries.h>

#include "line_line.h"
#include "primitives/line_of_sight.h"

mgPoint_c mgPoint_c::xformByPerspInverseLine(mgXform_c const &view, mgLine_c const &line) {
    mgLine_c const ray = vexmath::detail::lineOfSight(view, this, 1);
    mg_LineIntLine(ray.rootPoint(), ray.direction(), line.rootPoint(), line.direction(), this,
                   vexmath::detail::kQueryTolerance);
    return *this;
}
