// SPDX-License-Identifier: MIT
// Shared by the tests of planar queries.

#ifndef VEXMATH_TESTS_QUERIES_PLANAR_H
#define VEXMATH_TESTS_QUERIES_PLANAR_H

#include "common/arrays.h"

namespace common {

inline constexpr double kTurn = vexmath::kTwoPiExact;

/// Powers of two scale without rounding. Products of such numbers overflow and vanish.
inline constexpr double kScales[] = {1.0, 0x1p1018, 0x1p-1000};

/// In the plane of this height.
inline P planar(Random &random, double low, double high, double z = 0.0) {
    return {random.uniform(low, high), random.uniform(low, high), z};
}

/// How deep a point is in a box, negative outside; by the nearest side.
inline double depthIn(P const &low, P const &high, P const &p) {
    return std::min({p.x() - low.x(), high.x() - p.x(), p.y() - low.y(), high.y() - p.y()});
}

/// At this angle and distance from the centre, in its plane.
inline P onCircle(P const &centre, double radius, double angle) {
    return {centre.x() + radius * std::cos(angle), centre.y() + radius * std::sin(angle),
            centre.z()};
}

} // namespace common

#endif
