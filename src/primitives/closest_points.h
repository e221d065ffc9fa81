// SPDX-License-Identifier: MIT
// The points of two lines that are nearest to each other.

#ifndef VEXMATH_PRIMITIVES_CLOSEST_POINTS_H
#define VEXMATH_PRIMITIVES_CLOSEST_POINTS_H

#include <vexmath/vector.h>

namespace vexmath::detail {

struct ClosestParameters {
    double first;
    double second;
};

/// Distances along two lines, from their roots, to the points nearest to each other. The segment
/// between these points is perpendicular to both lines: for unit directions u1, u2 with cosine c,
/// and w = root 2 - root 1,  t1 - c t2 = w.u1,  c t1 - t2 = w.u2.
/// REQUIRES unit directions that are not parallel: nothing guards the division by 1 - c^2.
inline ClosestParameters closestParameters(mgVector_c const &u1, mgVector_c const &u2,
                                           double cosine, mgVector_c const &w) {
    double const along1 = w % u1;
    double const along2 = w % u2;
    double const sineSq = 1.0 - cosine * cosine;
    return {(along1 - cosine * along2) / sineSq, (cosine * along1 - along2) / sineSq};
}

} // namespace vexmath::detail

#endif
