// SPDX-License-Identifier: MIT
// The rows of a matrix as values, and their orthonormalisation.

#ifndef VEXMATH_SRC_MATRIX_ROWS_H
#define VEXMATH_SRC_MATRIX_ROWS_H

#include <vexmath/matrix.h>

#include "always_inline.h"

namespace vexmath::detail {

/// Elements and rows that count as equal when a flag is computed or matrices compared; strict.
inline constexpr double kElementTolerance = 1e-12;

/// Three rows as values, which a chain of steps keeps in registers.
struct Rows {
    mgVector_c r0, r1, r2;

    static Rows of(double const *elements) { return {elements, elements + 3, elements + 6}; }
    static Rows ofTransposed(double const *m) {
        return {{m[0], m[3], m[6]}, {m[1], m[4], m[7]}, {m[2], m[5], m[8]}};
    }
    static Rows ofProduct(mgMatrix_c const &a, mgMatrix_c const &b); ///< a first, then b
    Rows orthonormalised(bool lengthsFirst) const;
    /// The row vector v times the matrix of these rows.
    mgVector_c times(mgVector_c const &v) const;
};

VEXMATH_ALWAYS_INLINE Rows Rows::ofProduct(mgMatrix_c const &a, mgMatrix_c const &b) {
    Elements const right = b;
    return {rowTimes(a(0, 0), a(0, 1), a(0, 2), right), rowTimes(a(1, 0), a(1, 1), a(1, 2), right),
            rowTimes(a(2, 0), a(2, 1), a(2, 2), right)};
}

// A single first-order pass of the Gram-Schmidt process: 1 + e/2 stands for 1/sqrt(1 - e).
// QUIRK: not iterated, and not exact: a row of length r comes out with r (3 - r^2) / 2, turned
// round beyond the root of 3. Matrices are nearly orthonormal where it is used, and stored ones are
// compared to the bit. (test: OrthonormalisationIsASinglePassInItsOrder)
VEXMATH_ALWAYS_INLINE Rows Rows::orthonormalised(bool lengthsFirst) const {
    /// Sum of length and angle errors below which the rows are left alone; strict.
    constexpr double kOrthonormalEnough = 1e-15;
    auto const dot = [](mgVector_c const &a, mgVector_c const &b) { return a % b; };
    double const e0 = 1.0 - dot(r0, r0);
    double const e1 = 1.0 - dot(r1, r1);
    double const e2 = 1.0 - dot(r2, r2);
    double const d01 = dot(r0, r1);
    double const d02 = dot(r0, r2);
    double const d12 = dot(r1, r2);

    // The two orders differ by rounding alone, and callers compare matrices built either way.
    double const a01 = std::fabs(d01);
    double const a02 = std::fabs(d02);
    double const a12 = std::fabs(d12);
    double const b0 = std::fabs(e0);
    double const b1 = std::fabs(e1);
    double const b2 = std::fabs(e2);
    double const error =
        lengthsFirst ? b2 + b0 + b1 + a12 + a01 + a02 : a12 + a02 + a01 + b2 + b0 + b1;
    if (error < kOrthonormalEnough) return *this;

    mgVector_c const s0 = r0 * (1.0 + e0 / 2.0);
    mgVector_c const s1 = r1 * (1.0 + e1 / 2.0) - d01 * s0; // d01 of the rows as they were
    mgVector_c s2 = s0 * s1;
    if (s2 % r2 < 0.0) s2.flip(); // a reflection stays a reflection
    return {s0, s1, s2};
}

inline mgVector_c Rows::times(mgVector_c const &v) const {
    return {v.x() * r0.x() + v.y() * r1.x() + v.z() * r2.x(),
            v.x() * r0.y() + v.y() * r1.y() + v.z() * r2.y(),
            v.x() * r0.z() + v.y() * r1.z() + v.z() * r2.z()};
}

} // namespace vexmath::detail

inline bool mgMatrix_c::rowsAreAxes(double tol) const {
    mgMatrix_c const axes;
    return vexmath::detail::sameWithin(m_, axes.m_, tol)
           && vexmath::detail::sameWithin(m_ + 3, axes.m_ + 3, tol)
           && vexmath::detail::sameWithin(m_ + 6, axes.m_ + 6, tol);
}

inline mgMatrix_c::mgMatrix_c(vexmath::detail::Rows const &rows)
    : m_{rows.r0.x(), rows.r0.y(), rows.r0.z(), rows.r1.x(), rows.r1.y(),
         rows.r1.z(), rows.r2.x(), rows.r2.y(), rows.r2.z()},
      identity_(rowsAreAxes(vexmath::detail::kElementTolerance)) {}

#endif
