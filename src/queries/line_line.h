// SPDX-License-Identifier: MIT
// The intersection of two lines in space, for the other queries.

#ifndef VEXMATH_QUERIES_LINE_LINE_H
#define VEXMATH_QUERIES_LINE_LINE_H

#include <vexmath/intersection_types.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include "inlining.h"
#include "primitives/closest_points.h"

#include <cmath>

namespace vexmath::detail {

/// The cosine tolerance and length tolerance of queries without a tolerance argument.
inline constexpr double kQueryTolerance = 1e-08;

struct LineLine {
    mgIntersectionType_e type;
    mgPoint_c point; ///< meaningful unless the lines are parallel and apart

    /// Writes the point if it is meaningful.
    mgIntersectionType_e write(mgPoint_c *out) const {
        if (type != mgIntersect_Parallel) *out = point;
        return type;
    }
};

/// Two lines of unit directions. They are parallel when 1 - |cos| < cosTol: Coincident, with p1,
/// when p1 and its foot on line 2 are the same within reach, else Parallel. Otherwise the point is
/// the one of line 1 nearest to line 2: Point when both nearest points are the same within reach,
/// else None. A negative reach means 1e-08.
VEXMATH_ALWAYS_INLINE LineLine meetLines(mgPoint_c const &p1, mgUnitVector_c const &u1,
                                         mgPoint_c const &p2, mgUnitVector_c const &u2,
                                         double cosTol, double reach) {
    double const cosine = u1 % u2;
    if (1.0 - std::fabs(cosine) < cosTol) {
        mgPoint_c const foot = p2 + u2 * (u2 % (p1 - p2));
        return {p1.isSame(foot, reach) ? mgIntersect_Coincident : mgIntersect_Parallel, p1};
    }
    ClosestParameters const t = closestParameters(u1, u2, cosine, p2 - p1);
    mgPoint_c const nearest1 = p1 + u1 * t.first;
    mgPoint_c const nearest2 = p2 + u2 * t.second;
    return {nearest1.isSame(nearest2, reach) ? mgIntersect_Point : mgIntersect_None, nearest1};
}

} // namespace vexmath::detail

#endif
