// SPDX-License-Identifier: MIT
// Offsets from a point to the nearest and the farthest part of a box, axis by axis.

#ifndef VEXMATH_SRC_BOUNDS_BOX_OFFSETS_H
#define VEXMATH_SRC_BOUNDS_BOX_OFFSETS_H

#include <vexmath/point.h>

namespace vexmath::detail {

/// Offset to an interval: 0 inside it, to the nearer end outside, to the middle when it is
/// inverted.
inline double nearestOffset(double from, double low, double high) {
    if (!(low <= high)) return (high + low) * 0.5 - from;
    if (from < low) return low - from;
    return from <= high ? 0.0 : high - from;
}

/// Offset to the farther end of an interval; to the high end on a tie.
inline double farthestOffset(double from, double low, double high) {
    double const toHigh = high - from;
    double const toLow = low - from;
    return std::fabs(toHigh) >= std::fabs(toLow) ? toHigh : toLow;
}

inline mgVector_c nearestOffset(mgPoint_c const &from, mgPoint_c const &low,
                                mgPoint_c const &high) {
    return {nearestOffset(from.x(), low.x(), high.x()), nearestOffset(from.y(), low.y(), high.y()),
            nearestOffset(from.z(), low.z(), high.z())};
}

inline mgVector_c farthestOffset(mgPoint_c const &from, mgPoint_c const &low,
                                 mgPoint_c const &high) {
    return {farthestOffset(from.x(), low.x(), high.x()),
            farthestOffset(from.y(), low.y(), high.y()),
            farthestOffset(from.z(), low.z(), high.z())};
}

} // namespace vexmath::detail

#endif
