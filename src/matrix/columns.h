// SPDX-License-Identifier: MIT
// Columns of a matrix, and the index of the extreme one of three values.

#ifndef VEXMATH_SRC_MATRIX_COLUMNS_H
#define VEXMATH_SRC_MATRIX_COLUMNS_H

#include <vexmath/matrix.h>

namespace vexmath::detail {

inline mgVector_c column(mgMatrix_c const &m, int j) { return {m(0, j), m(1, j), m(2, j)}; }

/// Coordinate axis k.
inline mgVector_c axisOfIndex(int k) {
    return {k == 0 ? 1.0 : 0.0, k == 1 ? 1.0 : 0.0, k == 2 ? 1.0 : 0.0};
}

/// Index of the smallest of three values; the earlier one on a tie.
inline int smallestOf(double s0, double s1, double s2) {
    int const best = s1 < s0 ? 1 : 0;
    return s2 < s0 && s2 < s1 ? 2 : best;
}

/// Index of the largest of three values; the earlier one on a tie.
inline int largestOf(double s0, double s1, double s2) {
    int const best = s0 < s1 ? 1 : 0;
    return s2 > s0 && s2 > s1 ? 2 : best;
}

} // namespace vexmath::detail

#endif
