// SPDX-License-Identifier: MIT
// Boxes and segments in the plane, and how deep a segment enters a box.

#ifndef VEXMATH_QUERIES_PLANAR_BOX_H
#define VEXMATH_QUERIES_PLANAR_BOX_H

#include <vexmath/point.h>
#include <vexmath/tolerances.h>

#include "inlining.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexmath::detail {

inline double planarTolerance(double tol) { return tol >= 0.0 ? tol : kLengthTolerance; }

/// True if all numbers are finite: only then each difference from itself is 0.
template <class... Numbers>
VEXMATH_ALWAYS_INLINE bool areFinite(Numbers... numbers) {
    return (... + (numbers - numbers)) == 0.0;
}

/// The largest absolute value.
template <class... Numbers>
double largestOf(Numbers... numbers) {
    return std::max({std::fabs(numbers)...});
}

/// The power of two that numbers are multiplied by so that products of two differences neither
/// overflow nor vanish. `largest` is the largest of the numbers in absolute value. A product of a
/// number and a power of two is exact, except for numbers so small that they do not matter.
inline double planarScale(double largest) {
    constexpr double kHuge = 0x1p500;
    constexpr double kTiny = 0x1p-400;
    if (largest > kHuge) return 0x1p-520;
    return largest < kTiny ? 0x1p600 : 1.0;
}

/// Closed, with low <= high unless it was shrunk too far.
struct PlanarBox {
    double xLow, yLow, xHigh, yHigh;

    static PlanarBox ofCorners(mgPoint_c const &p, mgPoint_c const &q) {
        return {std::min(p.x(), q.x()), std::min(p.y(), q.y()), std::max(p.x(), q.x()),
                std::max(p.y(), q.y())};
    }
    PlanarBox grown(double by) const { return {xLow - by, yLow - by, xHigh + by, yHigh + by}; }
    PlanarBox scaled(double by) const { return {by * xLow, by * yLow, by * xHigh, by * yHigh}; }
    // Without branches, which random segments make the processor guess wrong.
    VEXMATH_ALWAYS_INLINE bool contains(double x, double y) const {
        return (xLow <= x) & (x <= xHigh) & (yLow <= y) & (y <= yHigh);
    }
    VEXMATH_ALWAYS_INLINE bool hasInside(double x, double y) const {
        return (xLow < x) & (x < xHigh) & (yLow < y) & (y < yHigh);
    }
    double clampedX(double x) const { return std::min(std::max(x, xLow), xHigh); }
    double clampedY(double y) const { return std::min(std::max(y, yLow), yHigh); }
};

/// From a to b.
struct PlanarSegment {
    double ax, ay, bx, by;

    PlanarSegment scaled(double k) const { return {k * ax, k * ay, k * bx, k * by}; }
};

/// Outside: misses the box grown by tol. Deep: meets the inside of the box shrunk by tol.
/// Touching: all others. Unsure: products overflow or vanish, and the caller has to scale.
enum class Depth { Outside, Touching, Deep, Unsure };

/// The range of d x (q - a) over the points q of a box, where d = b - a: the box is on the left of
/// the line where the range is positive, and on the right where it is negative.
struct SideRange {
    double least, greatest;

    VEXMATH_ALWAYS_INLINE SideRange(PlanarSegment const &s, PlanarBox const &box) {
        double const dx = s.bx - s.ax;
        double const dy = s.by - s.ay;
        double const low = dx * (box.yLow - s.ay);
        double const high = dx * (box.yHigh - s.ay);
        double const left = dy * (box.xLow - s.ax);
        double const right = dy * (box.xHigh - s.ax);
        least = std::min(low, high) - std::max(left, right);
        greatest = std::max(low, high) - std::min(left, right);
    }
    bool isReliable() const {
        /// Products of this size have lost none of their digits; strict.
        constexpr double kVanishing = 1e-280;
        double const range = greatest - least;
        return range > kVanishing && range < std::numeric_limits<double>::infinity();
    }
};

/// For finite numbers. The axes that separate a segment and a box are those of the box and the
/// normal of the segment.
/// Method: S. Gottschalk, M. C. Lin, D. Manocha, "OBBTree", 1996 (separating axes).
/// `IsScaled` numbers are the result of `planarScale`: they are never Unsure.
template <bool IsScaled>
VEXMATH_ALWAYS_INLINE Depth depthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    PlanarBox const outer = box.grown(tol);
    double const left = std::min(s.ax, s.bx);
    double const right = std::max(s.ax, s.bx);
    double const bottom = std::min(s.ay, s.by);
    double const top = std::max(s.ay, s.by);
    bool const isBeyond =
        (right < outer.xLow) | (left > outer.xHigh) | (top < outer.yLow) | (bottom > outer.yHigh);
    SideRange const ofOuter(s, outer);
    bool const isReliable = IsScaled || ofOuter.isReliable();
    bool const isBeside = (ofOuter.least > 0.0) | (ofOuter.greatest < 0.0);
    if (isBeyond | (isReliable & isBeside)) return Depth::Outside;
    if (!isReliable) return Depth::Unsure;

    PlanarBox const inner = box.grown(-tol);
    bool const hasEnd = inner.hasInside(s.ax, s.ay) | inner.hasInside(s.bx, s.by);
    bool const overlaps = (inner.xLow < inner.xHigh) & (inner.yLow < inner.yHigh)
                          & (right > inner.xLow) & (left < inner.xHigh) & (top > inner.yLow)
                          & (bottom < inner.yHigh);
    SideRange const ofInner(s, inner);
    bool const isCut = (ofInner.least < 0.0) & (ofInner.greatest > 0.0);
    return hasEnd | (overlaps & isCut) ? Depth::Deep : Depth::Touching;
}

/// The same for numbers of any size.
inline Depth depthOfAny(PlanarSegment const &s, PlanarBox const &box, double tol) {
    Depth const depth = depthOf<false>(s, box, tol);
    if (depth != Depth::Unsure) return depth;
    double const k =
        planarScale(largestOf(s.ax, s.ay, s.bx, s.by, box.xLow, box.yLow, box.xHigh, box.yHigh));
    return depthOf<true>(s.scaled(k), box.scaled(k), k * tol);
}

} // namespace vexmath::detail

#endif
