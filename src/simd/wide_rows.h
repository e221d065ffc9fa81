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

/// The pass of `Rows::orthonormalised(false)`, in parts.
struct WideErrors {
    VEXMATH_AVX2_STEP static WideErrors of(WideRows const &r) {
        __m128d const d12And02 = twoDots(r.r1, r.r2, r.r0, r.r2);
        __m128d const d01AndQ2 = twoDots(r.r0, r.r1, r.r2, r.r2);
        __m128d const e0And1 = _mm_set1_pd(1.0) - twoDots(r.r0, r.r0, r.r1, r.r1);
        __m128d const d01AndE2 = _mm_set_pd(1.0, 0.0) - d01AndQ2; // d01 with the other sign
        double const sum = std::fabs(lane0(d12And02)) + std::fabs(lane1(d12And02))
                           + std::fabs(lane0(d01AndE2)) + std::fabs(lane1(d01AndE2))
                           + std::fabs(lane0(e0And1)) + std::fabs(lane1(e0And1));
        return {lane0ToAll(d01AndQ2), e0And1, _mm_set_sd(sum)};
    }
    VEXMATH_AVX2_STEP __m128d areSmall() const { // a mask in lane 0
        return _mm_cmplt_sd(sum, _mm_set_sd(kOrthonormalEnough));
    }
    VEXMATH_AVX2_STEP WideRows corrected(WideRows const &r) const {
        Wide const factors = _mm256_castpd128_pd256(_mm_set1_pd(1.0) + e0And1 * _mm_set1_pd(0.5));
        Wide const s0 = r.r0 * all<0>(factors);
        Wide const s1 = r.r1 * all<1>(factors) - d01 * s0;
        Wide const s2 = cross(s0, s1);
        return {s0, s1, vexmath::detail::sum(s2 * r.r2) < 0.0 ? opposite(s2) : s2};
    }

    Wide d01;
    __m128d e0And1;
    __m128d sum; ///< lane 0
};

/// For rows that seldom need the correction, as those of an inverse.
VEXMATH_AVX2_STEP WideRows orthonormalised(WideRows const &rows) {
    WideErrors const errors = WideErrors::of(rows);
    return lane0(errors.sum) < kOrthonormalEnough ? rows : errors.corrected(rows);
}

/// For rows of a product: nearly every second one needs the correction, which cannot be foretold.
/// So it is always computed, and then selected.
VEXMATH_AVX2_STEP WideRows orthonormalisedProduct(WideRows const &rows) {
    WideErrors const errors = WideErrors::of(rows);
    WideRows const corrected = errors.corrected(rows);
    Wide const isEnough = lane0ToAll(errors.areSmall());
    return {_mm256_blendv_pd(corrected.r0, rows.r0, isEnough),
            _mm256_blendv_pd(corrected.r1, rows.r1, isEnough),
            _mm256_blendv_pd(corrected.r2, rows.r2, isEnough)};
}

} // namespace vexmath::detail

#endif

#endif
