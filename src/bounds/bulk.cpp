// SPDX-License-Identifier: MIT
// The box of an array of points. Most points lie in the sphere and only widen the corners: runs of
// such points are taken together, all others by the single operation.

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>

#include "simd/four_points.h"

#include <algorithm>

namespace {

/// A valid box while it takes a run of points that lie strictly inside its sphere. They leave the
/// sphere unchanged and the box valid: each corner coordinate stays within the radius, the nearest
/// point of the box can only come nearer to the centre, and the farthest can only go farther. A
/// point that holds NaN is not inside.
struct Run {
    explicit Run(mgBBox_c const &box)
        : low(box.low()), high(box.high()), centre(box.sphCenter()),
          radiusSq(box.sphRadius() * box.sphRadius()) {}

    bool holds(mgPoint_c const &p) const { return (p - centre).sqlen() < radiusSq; }

    void widen(mgPoint_c const &p) {
        for (int i = 0; i < 3; ++i) {
            low[i] = p[i] < low[i] ? p[i] : low[i];
            high[i] = p[i] > high[i] ? p[i] : high[i];
        }
    }

    mgPoint_c low, high, centre;
    double radiusSq;
};

#if defined(VEXMATH_AVX2)

/// Extremes of one coordinate of four points at a time; each of the four lanes has its own.
struct Lanes {
    __m256d low, high;
};

VEXMATH_AVX2 inline void widen(Lanes &lanes, __m256d coordinate) {
    lanes.low = _mm256_min_pd(coordinate, lanes.low); // when equal, the second
    lanes.high = _mm256_max_pd(coordinate, lanes.high);
}

VEXMATH_AVX2 inline Lanes lanesOf(Run const &run, int k) {
    return {_mm256_set1_pd(run.low[k]), _mm256_set1_pd(run.high[k])};
}

/// The extreme with its sign settled: zeros of both signs are equal, and the loop keeps the first
/// one of the list.
double settled(double extreme, mgPoint_c const *points, int k) {
    if (extreme != 0.0) return extreme;
    while ((*points)[k] != 0.0) ++points;
    return (*points)[k];
}

/// Merges the extremes of the lanes into coordinate k of the corners.
VEXMATH_AVX2 void collect(Lanes const &lanes, mgPoint_c const *points, int k, Run &run) {
    double low[4];
    double high[4];
    _mm256_storeu_pd(low, lanes.low);
    _mm256_storeu_pd(high, lanes.high);
    double const least = *std::min_element(low, low + 4);
    double const greatest = *std::max_element(high, high + 4);
    if (least < run.low[k]) run.low[k] = settled(least, points, k);
    if (greatest > run.high[k]) run.high[k] = settled(greatest, points, k);
}

/// Takes points in groups of four while all four belong to the run. Returns the number taken.
VEXMATH_AVX2 int takeByFour(mgPoint_c const *points, int count, Run &run) {
    Lanes x = lanesOf(run, 0), y = lanesOf(run, 1), z = lanesOf(run, 2);
    __m256d const cx = _mm256_set1_pd(run.centre.x()), cy = _mm256_set1_pd(run.centre.y());
    __m256d const cz = _mm256_set1_pd(run.centre.z()), radiusSq = _mm256_set1_pd(run.radiusSq);
    int taken = 0;
    for (; count - taken >= 4; taken += 4) {
        auto const p = vexmath::detail::loadFour(points + taken);
        __m256d const dx = _mm256_sub_pd(p.x, cx), dy = _mm256_sub_pd(p.y, cy);
        __m256d const dz = _mm256_sub_pd(p.z, cz);
        __m256d const xy = _mm256_add_pd(_mm256_mul_pd(dx, dx), _mm256_mul_pd(dy, dy));
        __m256d const sq = _mm256_add_pd(xy, _mm256_mul_pd(dz, dz));
        if (_mm256_movemask_pd(_mm256_cmp_pd(sq, radiusSq, _CMP_LT_OQ)) != 0b1111) break;
        widen(x, p.x);
        widen(y, p.y);
        widen(z, p.z);
    }
    if (taken > 0) {
        collect(x, points, 0, run);
        collect(y, points, 1, run);
        collect(z, points, 2, run);
    }
    return taken;
}

#else

int takeByFour(mgPoint_c const *, int, Run &) { return 0; }

#endif

/// Takes points up to the first that does not belong to the run. Returns the number taken.
int takeRun(mgPoint_c const *points, int count, mgBBox_c &box) {
    Run run(box);
    int taken = vexmath::detail::hasSimd() ? takeByFour(points, count, run) : 0;
    for (; taken < count && run.holds(points[taken]); ++taken) run.widen(points[taken]);
    box.setCornersOnly(run.low, run.high);
    return taken;
}

} // namespace

void mg_BoundPoints(mgPoint_c const *points, int count, mgBBox_c &box) {
    /// A run shorter than this costs more to begin than it saves.
    constexpr int kWorthwhile = 8;
    /// The most points that the single operation takes between two runs. Their number doubles after
    /// each short run, so that a list whose sphere keeps growing costs no more than the loop.
    constexpr int kMostSingles = 32;
    int singles = 1;
    for (int i = 0; i < count;) {
        int const taken = box.isValid() != 0 ? takeRun(points + i, count - i, box) : 0;
        singles = taken < kWorthwhile ? std::min(2 * singles, kMostSingles) : 1;
        i += taken;
        for (int n = std::min(singles, count - i); n > 0; --n) box |= points[i++];
    }
}
