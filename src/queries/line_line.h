// SPDX-License-Identifier: MIT
// The intersection of two lines in space, as the other queries use it.

#ifndef VEXMATH_QUERIES_LINE_LINE_H
#define VEXMATH_QUERIES_LINE_LINE_H

#include <vexmath/intersection_types.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

namespace vexmath::detail {

/// Cosine tolerance and length tolerance that queries without a tolerance argument work with.
inline constexpr double kQueryTolerance = 1e-08;

struct LineLine {
    mgIntersectionType_e type;
    mgPoint_c point; ///< meaningful unless the lines are parallel and apart

    /// Hands the point out where there is one.
    mgIntersectionType_e write(mgPoint_c *out) const {
        if (type != mgIntersect_Parallel) *out = point;
        return type;
    }
};

/// Two lines of unit directions, parallel when 1 - |cos| < cosTol: Coincident, with p1, when p1 and
/// its foot on line 2 are the same within reach, else Parallel. Otherwise the point is the one of
/// line 1 nearest to line 2, and the type Point when both nearest points are the same within reach,
/// else None. A negative reach means 1e-08.
LineLine meetLines(mgPoint_c const &p1, mgUnitVector_c const &u1, mgPoint_c const &p2,
                   mgUnitVector_c const &u2, double cosTol, double reach);

} // namespace vexmath::detail

#endif
