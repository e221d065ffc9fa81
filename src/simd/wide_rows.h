// SPDX-License-Identifier: MIT
// The steps of rows.h in AVX2 registers, with the same bits.

#ifndef VEXMATH_SRC_SIMD_WIDE_ROWS_H
#define VEXMATH_SRC_SIMD_WIDE_ROWS_H

#include "matrix/rows.h"
#include "simd/wide_vector.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

VEXMATH_AVX2_STEP Wide cross(Wide a, Wide b) { return turned(a * turned(b) - turned(a) * b); }

/// The dot products a.b (lane 0) and c.d (lane 1), each summed from x to z.
VEXMATH_AVX2_STEP __m128d twoDots(Wide a, Wide b, Wide c, Wide d) {
    Wide const first = a * b, second = c * d;
    Wide const xz = _mm256_unpacklo_pd(first, second);
    __m128d const y = _mm_unpackhi_pd(lowHalf(first), lowHalf(second));
    return lowHalf(xz) + y + highHalf(xz);
}

/// The second half of `Rows::orthonormalised(false)`: the correction by 1 + e0/2, 1 + e1/2 and d01.
VEXMATH_AVX2_STEP WideRows corrected(WideRows const &rows, Wide f0, Wide f1, Wide d01) {
    Wide const s0 = rows.r0 * f0;
    Wide const s1 = rows.r1 * f1 - d01 * s0;
    Wide const s2 = cross(s0, s1);
    return {s0, s1, sum(s2 * rows.r2) < 0.0 ? opposite(s2) : s2};
}

/// The pass for rows of a product: nearly every second one needs the correction, which cannot be
/// foretold. So it is always computed, and then selected.
VEXMATH_AVX2_STEP WideRows orthonormalisedProduct(WideRows const &rows) {
    Wide const r0 = rows.r0, r1 = rows.r1, r2 = rows.r2;
    __m128d const d12And02 = twoDots(r1, r2, r0, r2);
    __m128d const d01AndQ2 = twoDots(r0, r1, r2, r2);
    __m128d const e0And1 = _mm_set1_pd(1.0) - twoDots(r0, r0, r1, r1);
    __m128d const d01AndE2 = _mm_set_pd(1.0, 0.0) - d01AndQ2; // d01 with the other sign
    double const error = std::fabs(lane0(d12And02)) + std::fabs(lane1(d12And02))
                         + std::fabs(lane0(d01AndE2)) + std::fabs(lane1(d01AndE2))
                         + std::fabs(lane0(e0And1)) + std::fabs(lane1(e0And1));
    Wide const isEnough =
        lane0ToAll(_mm_cmplt_sd(_mm_set_sd(error), _mm_set_sd(kOrthonormalEnough)));

    Wide const factors = _mm256_castpd128_pd256(_mm_set1_pd(1.0) + e0And1 * _mm_set1_pd(0.5));
    WideRows const s = corrected(rows, all<0>(factors), all<1>(factors), lane0ToAll(d01AndQ2));
    return {_mm256_blendv_pd(s.r0, r0, isEnough), _mm256_blendv_pd(s.r1, r1, isEnough),
            _mm256_blendv_pd(s.r2, r2, isEnough)};
}

/// The pass for rows that seldom need the correction, as those of an inverse. REQUIRES the columns
/// of the same matrix as well: their sums do not go across a register.
VEXMATH_AVX2_STEP WideRows orthonormalised(WideRows const &rows, WideRows const &columns) {
    WideRows const next = {turned(columns.r0), turned(columns.r1), turned(columns.r2)};
    Wide const e = all(1.0) - dots(columns, columns); // 0, 1, 2
    Wide const d = dots(columns, next);               // 01, 12, 20
    Wide const length = absolute(e), angle = absolute(d);
    double const error =
        lane1(angle) + lane2(angle) + lane0(angle) + lane2(length) + lane0(length) + lane1(length);
    if (error < kOrthonormalEnough) return rows;

    Wide const factor = all(1.0) + e * all(0.5);
    return corrected(rows, all<0>(factor), all<1>(factor), all<0>(d));
}

} // namespace vexmath::detail

#endif

#endif
