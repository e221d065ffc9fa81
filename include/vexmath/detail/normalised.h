// SPDX-License-Identifier: MIT
// The normalisation of vectors.

#include <vexmath/vector.h> // before the guard: it includes this file after the class

#ifndef VEXMATH_DETAIL_NORMALISED_H
#define VEXMATH_DETAIL_NORMALISED_H

namespace vexmath::detail {

/// Squared length strictly below which there is no direction: about 3.2e-09 in length.
inline constexpr double kDirectionFloorSq = 1e-17;

/// The normalisation of every unit vector: the squares are summed from z to x, then one reciprocal
/// and three multiplications follow. Three divisions would change last bits. A vector below the
/// floor, or with NaN, gives exactly (0, 0, 0).
inline mgVector_c normalised(double x, double y, double z) {
    double const sq = z * z + y * y + x * x;
    if (!(sq >= kDirectionFloorSq)) return {};
    double const reciprocal = 1.0 / std::sqrt(sq);
    return {x * reciprocal, y * reciprocal, z * reciprocal};
}

} // namespace vexmath::detail

#endif
