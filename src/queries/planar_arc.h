// SPDX-License-Identifier: MIT
// The angles of an arc in the plane, as its callers may give them.

#ifndef VEXMATH_QUERIES_PLANAR_ARC_H
#define VEXMATH_QUERIES_PLANAR_ARC_H

#include <vexmath/tolerances.h>

#include <cmath>

namespace vexmath::detail {

/// A start in [0, 2 pi] and a sweep of at most 2 pi, where 2 pi is the double nearest to it.
struct PlanarSweep {
    double start, sweep;
    bool isFull;
};

/// True for angles that the functions on arcs accept: finite, in order and within the bound.
inline bool areArcAngles(double start, double end) {
    /// Largest absolute value of an angle; inclusive. Beyond it the last digits of an angle are
    /// coarser than the tolerances.
    constexpr double kLargest = 1e6;
    return std::fabs(start) <= kLargest && std::fabs(end) <= kLargest && start <= end;
}

inline PlanarSweep planarSweep(double start, double end) {
    /// How much a sweep of a full turn may lack; inclusive.
    constexpr double kFullTurnSlack = 1e-11;
    double const reduced = std::fmod(start, kTwoPiExact);
    double const positive = reduced < 0.0 ? reduced + kTwoPiExact : reduced;
    bool const isFull = end - start >= kTwoPiExact - kFullTurnSlack;
    return {positive, isFull ? kTwoPiExact : end - start, isFull};
}

} // namespace vexmath::detail

#endif
