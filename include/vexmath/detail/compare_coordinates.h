// SPDX-License-Identifier: MIT
// Comparisons of coordinates within a tolerance.

#ifndef VEXMATH_DETAIL_COMPARE_COORDINATES_H
#define VEXMATH_DETAIL_COMPARE_COORDINATES_H

#include <vexmath/tolerances.h>

#include <cmath>

namespace vexmath::detail {

/// Is d strictly below the length tolerance in absolute value? No for NaN.
inline bool isTiny(double d) { return std::fabs(d) < kLengthTolerance; }

/// Does each of three coordinates differ by strictly less than tol? x is tested first.
inline int sameWithin(double const *a, double const *b, double tol) {
    return std::fabs(a[0] - b[0]) < tol && std::fabs(a[1] - b[1]) < tol
           && std::fabs(a[2] - b[2]) < tol;
}

/// Does some coordinate differ by strictly more than the length tolerance?
inline int apart(double const *a, double const *b) {
    return std::fabs(a[0] - b[0]) > kLengthTolerance || std::fabs(a[1] - b[1]) > kLengthTolerance
           || std::fabs(a[2] - b[2]) > kLengthTolerance;
}

} // namespace vexmath::detail

#endif
