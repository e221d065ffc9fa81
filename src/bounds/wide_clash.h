// SPDX-License-Identifier: MIT
// The clash of two boxes in AVX2 registers, with the answers of the plain steps. Callers must test
// `hasSimd` first.

#ifndef VEXMATH_SRC_BOUNDS_WIDE_CLASH_H
#define VEXMATH_SRC_BOUNDS_WIDE_CLASH_H

#include <vexmath/bbox.h>

#include "simd/wide_vector.h"

#if defined(VEXMATH_AVX2)

namespace vexmath::detail {

/// The members of a box. It may be unset.
struct WideBounds {
    VEXMATH_AVX2_STEP static WideBounds of(mgBBox_c const &box) {
        static_assert(sizeof(mgBBox_c) == 10 * sizeof(double)); // as declared, without gaps
        auto const *const members = reinterpret_cast<double const *>(&box);
        return {_mm256_loadu_pd(members + 6), _mm256_loadu_pd(members + 3),
                _mm256_loadu_pd(members), members[9]};
    }

    VEXMATH_AVX2_STEP Wide middle() const { return (low + high) * all(0.5); }

    Wide low, high, centre;
    double radius;
};

/// The common part of two boxes, inverted on an axis where they are apart.
struct WideCommon {
    Wide low, high;
};

/// Is the common part, which is a point, a corner of the box?
VEXMATH_AVX2_STEP bool isCorner(WideCommon const &common, WideBounds const &box) {
    Wide const middle = box.middle();
    Wide const offset = (common.low + common.high) * all(0.5) - middle;
    return areBelow(absolute(middle + absolute(offset) - box.high), all(kLengthTolerance));
}

/// The square of `nearestOffset`.
VEXMATH_AVX2_STEP double nearestSq(Wide from, WideCommon const &common) {
    Wide const toLow = common.low - from, toHigh = common.high - from;
    Wide const toMiddle = (common.high + common.low) * all(0.5) - from;
    Wide const isAtMostHigh = _mm256_cmp_pd(from, common.high, _CMP_LE_OQ);
    Wide const isBelowLow = _mm256_cmp_pd(from, common.low, _CMP_LT_OQ);
    Wide const isInverted = _mm256_cmp_pd(common.low, common.high, _CMP_NLE_UQ);
    Wide offset = _mm256_andnot_pd(isAtMostHigh, toHigh);
    offset = _mm256_blendv_pd(offset, toLow, isBelowLow);
    offset = _mm256_blendv_pd(offset, toMiddle, isInverted);
    return sum(offset * offset);
}

/// `a.clash(&b, tol)`: the same comparisons of the same sums. Nearly all branches are replaced by
/// selections, as boxes that meet are unpredictable.
VEXMATH_AVX2_STEP bool clashes(WideBounds const &a, WideBounds const &b, double tol) {
    Wide const between = a.centre - b.centre;
    __m128d const distanceSq = _mm_set_sd(sum(between * between));
    double const distance = _mm_cvtsd_f64(_mm_sqrt_sd(distanceSq, distanceSq));
    Wide const areOrdered = _mm256_and_pd(_mm256_cmp_pd(a.low, a.high, _CMP_LE_OQ),
                                          _mm256_cmp_pd(b.low, b.high, _CMP_LE_OQ));
    // In this order: of equal numbers larger and smaller return the second.
    WideCommon const common = {larger(b.low, a.low), smaller(b.high, a.high)};
    int const isUnset = static_cast<int>(!(0.0 <= a.radius)) | static_cast<int>(!(0.0 <= b.radius))
                        | (~_mm256_movemask_pd(areOrdered) & 0b111);
    int const areApart = static_cast<int>(a.radius + b.radius < distance - tol)
                         | whichAreBelow(common.high + all(tol), common.low);
    if ((isUnset | areApart) != 0) return false;

    bool const isPoint = areBelow(absolute(common.low - common.high), all(kLengthTolerance));
    if (isPoint && isCorner(common, a) && isCorner(common, b)) return false;
    double const factor = 1.0 + tol;
    int const isMissed =
        static_cast<int>(nearestSq(a.centre, common) > a.radius * a.radius * factor)
        | static_cast<int>(nearestSq(b.centre, common) > b.radius * b.radius * factor);
    return isMissed == 0;
}

} // namespace vexmath::detail

#endif

#endif
