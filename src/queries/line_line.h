// SPDX-License-Identifier: MIT
// The intersection of two lines in space, for the other queries.

#ifndef VEXMATH_QUERIES_LINE_LINE_H
#define VEXMATH_QUERIES_LINE_LINE_H

#include <vexmath/intersection_types.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

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
LineLine meetLines(mgPoint_c const &p1, mgUnitVector_c const &u1, mgPoint_c const &p2,
                   mgUnitVector_c const &u2, double cosTol, double reach);

} // namespace vexmath::detail

#endif
