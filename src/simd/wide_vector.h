// SPDX-License-Identifier: MIT
// Vectors and matrix rows in the first three lanes of AVX2 registers. Callers must test
// `hasSimd` first. The value of the fourth lane is unspecified.

#ifndef VEXMATH_SRC_SIMD_WIDE_VECTOR_H
#define VEXMATH_SRC_SIMD_WIDE_VECTOR_H

#include <vexmath/matrix.h>

#include "simd/dispatch.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// The operators +, - and * of this type act on each lane.
using Wide = __m256d;

VEXMATH_AVX2_STEP Wide all(double v) { return _mm256_set1_pd(v); }

/// A lane of v, copied to all lanes.
template <int kLane>
VEXMATH_AVX2_STEP Wide all(Wide v) {
    return _mm256_permute4x64_pd(v, kLane * 0b01010101);
}

/// Three numbers from memory. Memory behind them is not read.
VEXMATH_AVX2_STEP Wide load(double const *p) {
    return _mm256_maskload_pd(p, _mm256_set_epi64x(0, -1, -1, -1));
}

VEXMATH_AVX2_STEP __m128d lowHalf(Wide v) { return _mm256_castpd256_pd128(v); }
VEXMATH_AVX2_STEP __m128d highHalf(Wide v) { return _mm256_extractf128_pd(v, 1); }
VEXMATH_AVX2_STEP Wide lane0ToAll(__m128d v) { return _mm256_broadcastsd_pd(v); }

VEXMATH_AVX2_STEP double lane0(__m128d v) { return _mm_cvtsd_f64(v); }
VEXMATH_AVX2_STEP double lane1(__m128d v) { return _mm_cvtsd_f64(_mm_unpackhi_pd(v, v)); }
VEXMATH_AVX2_STEP double lane0(Wide v) { return lane0(lowHalf(v)); }
VEXMATH_AVX2_STEP double lane1(Wide v) { return lane1(lowHalf(v)); }
VEXMATH_AVX2_STEP double lane2(Wide v) { return lane0(highHalf(v)); }
VEXMATH_AVX2_STEP double sum(Wide v) { return lane0(v) + lane1(v) + lane2(v); }

VEXMATH_AVX2_STEP Wide absolute(Wide v) { return _mm256_andnot_pd(all(-0.0), v); }
VEXMATH_AVX2_STEP Wide opposite(Wide v) { return _mm256_xor_pd(v, all(-0.0)); }
VEXMATH_AVX2_STEP Wide larger(Wide a, Wide b) { return _mm256_max_pd(a, b); }
VEXMATH_AVX2_STEP Wide smaller(Wide a, Wide b) { return _mm256_min_pd(a, b); }
/// (y, z, x)
VEXMATH_AVX2_STEP Wide turned(Wide v) { return _mm256_permute4x64_pd(v, 0b11001001); }

/// Bit i is set when component i is strictly below its bound.
VEXMATH_AVX2_STEP int whichAreBelow(Wide v, Wide bound) {
    return _mm256_movemask_pd(_mm256_cmp_pd(v, bound, _CMP_LT_OQ)) & 0b111;
}
VEXMATH_AVX2_STEP bool areBelow(Wide v, Wide bound) { return whichAreBelow(v, bound) == 0b111; }
VEXMATH_AVX2_STEP bool isAnyBelow(Wide v, Wide bound) { return whichAreBelow(v, bound) != 0; }

/// Three rows, or columns.
struct WideRows {
    Wide r0, r1, r2;
};

VEXMATH_AVX2_STEP WideRows loadRows(mgMatrix_c const &m) {
    return {load(&m[0]), load(&m[3]), load(&m[6])};
}

VEXMATH_AVX2_STEP WideRows transposed(WideRows const &m) {
    Wide const x = _mm256_unpacklo_pd(m.r0, m.r1); // x0 x1 z0 z1
    Wide const y = _mm256_unpackhi_pd(m.r0, m.r1); // y0 y1
    Wide const y2 = _mm256_permute_pd(m.r2, 0b0101);
    return {_mm256_permute2f128_pd(x, m.r2, 0x20), _mm256_permute2f128_pd(y, y2, 0x20),
            _mm256_permute2f128_pd(x, m.r2, 0x31)};
}

/// a.r0 * b.r0 + a.r1 * b.r1 + a.r2 * b.r2, lane by lane: dot products of columns.
VEXMATH_AVX2_STEP Wide dots(WideRows const &a, WideRows const &b) {
    return a.r0 * b.r0 + a.r1 * b.r1 + a.r2 * b.r2;
}

/// A row vector times m, each component summed from x to z.
VEXMATH_AVX2_STEP Wide times(double const *v, WideRows const &m) {
    return dots({all(v[0]), all(v[1]), all(v[2])}, m);
}
VEXMATH_AVX2_STEP Wide times(Wide v, WideRows const &m) {
    return dots({all<0>(v), all<1>(v), all<2>(v)}, m);
}

} // namespace vexmath::detail

#endif

#endif
