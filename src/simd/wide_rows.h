// SPDX-License-Identifier: MIT
// The steps of rows.h in AVX2 registers, with the same bits.

#ifndef VEXMATH_SRC_SIMD_WIDE_ROWS_H
#define VEXMATH_SRC_SIMD_WIDE_ROWS_H

#include "matrix/rows.h"
#include "simd/wide_vector.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// The dot products a.b (lane 0) and c.d (lane 1), each summed from x to z.
VEXMATH_AVX2_STEP __m128d twoDots(Wide a, Wide b, Wide c, Wide d) {
    Wide const first = a * b, second = c * d;
    Wide const xz = _mm256_unpacklo_pd(first, second);
    __m128d const y = _mm_unpackhi_pd(lowHalf(first), lowHalf(second));
    return lowHalf(xz) + y + highHalf(xz);
}

/// Sum of length and angle errors below which `orthonormalised` gives a result; strict.
///
/// Then squared lengths q are between 1/2 and 2, so that 1 - q is exact, and 1 + (1 - q) / 2 has
/// the bits of 1.5 - q / 2. And the determinant of the rows is at least 0.9 in absolute value. The
/// dot product that decides about a reflection is the determinant times two factors close to 1,
/// within a few roundings. So both have the same sign.
inline constexpr double kNearlyOrthonormal = 1e-3;

/// The pass of `Rows::orthonormalised(false)`, in place. False, with the rows in any state, when
/// they are not nearly orthonormal.
///
/// Every second product needs the correction, which cannot be foretold. So it is always computed,
/// and then selected.
VEXMATH_AVX2_STEP bool orthonormalise(WideRows &rows) {
    __m128d const one = _mm_set1_pd(1.0), noSign = _mm_set1_pd(-0.0);
    Wide const r0 = rows.r0, r1 = rows.r1, r2 = rows.r2;
    __m128d const q0And1 = twoDots(r0, r0, r1, r1);
    __m128d const d01AndQ2 = twoDots(r0, r1, r2, r2);
    __m128d const d12And02 = twoDots(r1, r2, r0, r2);
    __m128d const first = _mm_andnot_pd(noSign, d12And02);
    __m128d const middle = _mm_andnot_pd(noSign, _mm_set_pd(1.0, 0.0) - d01AndQ2);
    __m128d const last = _mm_andnot_pd(noSign, one - q0And1);
    __m128d error = _mm_add_sd(first, _mm_unpackhi_pd(first, first));
    error = _mm_add_sd(_mm_add_sd(error, middle), _mm_unpackhi_pd(middle, middle));
    error = _mm_add_sd(_mm_add_sd(error, last), _mm_unpackhi_pd(last, last));
    Wide const isEnough = lane0ToAll(_mm_cmplt_sd(error, _mm_set_sd(kOrthonormalEnough)));

    Wide const next0 = turned(r0), next1 = turned(r1);
    Wide const volumes = turned(r0 * next1 - next0 * r1) * r2;
    __m128d const volume =
        lowHalf(volumes) + _mm_unpackhi_pd(lowHalf(volumes), lowHalf(volumes)) + highHalf(volumes);
    Wide const sign = lane0ToAll(_mm_and_pd(volume, noSign));

    __m128d const factors = _mm_set1_pd(1.5) - q0And1 * _mm_set1_pd(0.5);
    Wide const f0 = lane0ToAll(factors), f1 = lane0ToAll(_mm_unpackhi_pd(factors, factors));
    Wide const d01 = lane0ToAll(d01AndQ2);
    Wide const s0 = r0 * f0, t0 = next0 * f0;
    Wide const s1 = r1 * f1 - d01 * s0, t1 = next1 * f1 - d01 * t0;
    Wide const s2 = _mm256_xor_pd(turned(s0 * t1 - t0 * s1), sign);
    rows = {_mm256_blendv_pd(s0, r0, isEnough), _mm256_blendv_pd(s1, r1, isEnough),
            _mm256_blendv_pd(s2, r2, isEnough)};
    return _mm_cvtsd_f64(error) < kNearlyOrthonormal;
}

} // namespace vexmath::detail

#endif

#endif
