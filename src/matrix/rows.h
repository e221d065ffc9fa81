// SPDX-License-Identifier: MIT
// The rows of a matrix as values, and their orthonormalisation.

#ifndef VEXMATH_SRC_MATRIX_ROWS_H
#define VEXMATH_SRC_MATRIX_ROWS_H

#include <vexmath/matrix.h>

#include "inlining.h"

namespace vexmath::detail {

/// Elements and rows that count as equal when a flag is computed or matrices compared; strict.
inline constexpr double kElementTolerance = 1e-12;

/// Sum of length and angle errors below which rows are left alone; strict.
inline constexpr double kOrthonormalEnough = 1e-15;

/// Three rows as values, which a chain of steps keeps in registers. A friend of the matrix. All
/// steps are inlined: a call writes the rows to memory and reads them back in other pieces, which
/// takes longer than the step.
struct Rows {
    struct Errors;

    mgVector_c r0, r1, r2;

    static Rows of(double const *elements) { return {elements, elements + 3, elements + 6}; }
    static Rows ofTransposed(double const *m) {
        return {{m[0], m[3], m[6]}, {m[1], m[4], m[7]}, {m[2], m[5], m[8]}};
    }
    static Rows ofProduct(mgMatrix_c const &a, mgMatrix_c const &b); ///< a first, then b
    Rows orthonormalised(bool lengthsFirst) const;
    double error() const; ///< 0 of an orthonormal matrix
    /// The row vector v times the matrix of these rows.
    mgVector_c times(mgVector_c const &v) const;
    mgMatrix_c matrix() const; ///< as they are, the flag computed
};

VEXMATH_ALWAYS_INLINE Rows Rows::ofProduct(mgMatrix_c const &a, mgMatrix_c const &b) {
    Elements const right = b;
    return {rowTimes(a(0, 0), a(0, 1), a(0, 2), right), rowTimes(a(1, 0), a(1, 1), a(1, 2), right),
            rowTimes(a(2, 0), a(2, 1), a(2, 2), right)};
}

/// The deviation from orthonormality: 1 minus the squared length of each row, and the dot products.
struct Rows::Errors {
    VEXMATH_ALWAYS_INLINE explicit Errors(Rows const &rows)
        : e0(1.0 - rows.r0 % rows.r0), e1(1.0 - rows.r1 % rows.r1), e2(1.0 - rows.r2 % rows.r2),
          d01(rows.r0 % rows.r1), d02(rows.r0 % rows.r2), d12(rows.r1 % rows.r2) {}

    /// The two orders differ only by rounding, which may decide whether the rows are left alone.
    double sum(bool lengthsFirst) const;

    double e0, e1, e2, d01, d02, d12;
};

VEXMATH_ALWAYS_INLINE double Rows::Errors::sum(bool lengthsFirst) const {
    using std::fabs;
    return lengthsFirst ? fabs(e2) + fabs(e0) + fabs(e1) + fabs(d12) + fabs(d01) + fabs(d02)
                        : fabs(d12) + fabs(d02) + fabs(d01) + fabs(e2) + fabs(e0) + fabs(e1);
}

inline double Rows::error() const { return Errors(*this).sum(false); }

// A single first-order pass of the Gram-Schmidt process: 1 + e/2 approximates 1/sqrt(1 - e).
// QUIRK: matrix.h, mgMatrix_c::normalize, mgMatrix_c::inverse, mgMatrix_c::restore, operator*: a
// row of length r gets the length r (3 - r^2) / 2, reversed beyond the root of 3. Expected: length
// 1, by iteration or an exact root. Kept: callers and stored data depend on it. (test:
// OrthonormalisationIsASinglePassInItsOrder)
VEXMATH_ALWAYS_INLINE Rows Rows::orthonormalised(bool lengthsFirst) const {
    Errors const errors(*this);
    if (errors.sum(lengthsFirst) < kOrthonormalEnough) return *this;

    mgVector_c const s0 = r0 * (1.0 + errors.e0 / 2.0);
    mgVector_c const s1 = r1 * (1.0 + errors.e1 / 2.0) - errors.d01 * s0;
    mgVector_c s2 = s0 * s1;
    if (s2 % r2 < 0.0) s2.flip(); // a reflection stays a reflection
    return {s0, s1, s2};
}

VEXMATH_ALWAYS_INLINE mgVector_c Rows::times(mgVector_c const &v) const {
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

VEXMATH_ALWAYS_INLINE mgMatrix_c::mgMatrix_c(vexmath::detail::Rows const &rows)
    : m_{rows.r0.x(), rows.r0.y(), rows.r0.z(), rows.r1.x(), rows.r1.y(),
         rows.r1.z(), rows.r2.x(), rows.r2.y(), rows.r2.z()},
      identity_(rowsAreAxes(vexmath::detail::kElementTolerance)) {}

VEXMATH_ALWAYS_INLINE mgMatrix_c vexmath::detail::Rows::matrix() const { return mgMatrix_c(*this); }

#endif
