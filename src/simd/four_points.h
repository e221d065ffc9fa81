// SPDX-License-Identifier: MIT
// Four points at a time in AVX2 registers. Callers must test `hasSimd` first.

#ifndef VEXMATH_SRC_SIMD_FOUR_POINTS_H
#define VEXMATH_SRC_SIMD_FOUR_POINTS_H

#include <vexmath/detail/prefetch.h>
#include <vexmath/point.h>

#include "simd/dispatch.h"

namespace vexmath::detail {

#if defined(VEXMATH_AVX2)

static_assert(sizeof(mgPoint_c) == 3 * sizeof(double));

/// The coordinates of four points that are adjacent in memory. The shuffles stay within the halves
/// of a register, where they are cheap; the loads put each half in its place.
struct FourPoints {
    __m256d x, y, z;
};

VEXMATH_AVX2 inline FourPoints loadFour(mgPoint_c const *points) {
    prefetchAhead(points, 0); // four points are a cache line and a half
    prefetchAhead(points, 64);
    auto const *const p = reinterpret_cast<double const *>(points);
    __m256d const xy = _mm256_loadu2_m128d(p + 6, p);      // x0 y0 x2 y2
    __m256d const zx = _mm256_loadu2_m128d(p + 8, p + 2);  // z0 x1 z2 x3
    __m256d const yz = _mm256_loadu2_m128d(p + 10, p + 4); // y1 z1 y3 z3
    return {_mm256_blend_pd(xy, zx, 0b1010), _mm256_shuffle_pd(xy, yz, 0b0101),
            _mm256_blend_pd(zx, yz, 0b1010)};
}

VEXMATH_AVX2 inline void storeFour(FourPoints const &four, mgPoint_c *points) {
    auto *const p = reinterpret_cast<double *>(points);
    _mm256_storeu2_m128d(p + 6, p, _mm256_unpacklo_pd(four.x, four.y));
    _mm256_storeu2_m128d(p + 8, p + 2, _mm256_blend_pd(four.z, four.x, 0b1010));
    _mm256_storeu2_m128d(p + 10, p + 4, _mm256_unpackhi_pd(four.y, four.z));
}

#endif

} // namespace vexmath::detail

#endif
