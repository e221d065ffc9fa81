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

    /// A NaN of a corner stays in one of the sides.
    static PlanarBox ofCorners(mgPoint_c const &p, mgPoint_c const &q) {
        return {std::min(p.x(), q.x()), std::min(p.y(), q.y()), std::max(q.x(), p.x()),
                std::max(q.y(), p.y())};
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
    /// Never NaN.
    double clampedX(double x) const { return std::min(xHigh, std::max(xLow, x)); }
    double clampedY(double y) const { return std::min(yHigh, std::max(yLow, y)); }
};

/// From a to b.
struct PlanarSegment {
    double ax, ay, bx, by;

    PlanarSegment scaled(double k) const { return {k * ax, k * ay, k * bx, k * by}; }
};

/// Outside: misses the box grown by tol. Deep: meets the inside of the box shrunk by tol.
/// Touching: all others. Unsure: not plain, see below.
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

/// The depth by both boxes, for finite numbers that are the result of `planarScale`, or where
/// products neither overflow nor vanish.
inline Depth exactDepthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    double const left = std::min(s.ax, s.bx);
    double const right = std::max(s.ax, s.bx);
    double const bottom = std::min(s.ay, s.by);
    double const top = std::max(s.ay, s.by);
    PlanarBox const outer = box.grown(tol);
    if (right < outer.xLow || left > outer.xHigh || top < outer.yLow || bottom > outer.yHigh)
        return Depth::Outside;
    SideRange const ofOuter(s, outer);
    if (ofOuter.least > 0.0 || ofOuter.greatest < 0.0) return Depth::Outside;

    PlanarBox const inner = box.grown(-tol);
    if (inner.hasInside(s.ax, s.ay) || inner.hasInside(s.bx, s.by)) return Depth::Deep;
    bool const innerIsEmpty = !(inner.xLow < inner.xHigh && inner.yLow < inner.yHigh);
    if (innerIsEmpty || right <= inner.xLow || left >= inner.xHigh || top <= inner.yLow
        || bottom >= inner.yHigh)
        return Depth::Touching;
    SideRange const ofInner(s, inner);
    return ofInner.least < 0.0 && ofInner.greatest > 0.0 ? Depth::Deep : Depth::Touching;
}

/// The depth where it is plain: Outside also where a number is not finite. The axes that separate a
/// segment and a box are those of the box and the normal of the segment. Growing the box by tol
/// moves the sides of its range by tol (|dx| + |dy|); twice that leaves room for rounding. Method:
/// S. Gottschalk, M. C. Lin, D. Manocha, "OBBTree", 1996 (separating axes).
VEXMATH_ALWAYS_INLINE Depth plainDepthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    double const left = std::min(s.ax, s.bx);
    double const right = std::max(s.ax, s.bx);
    double const bottom = std::min(s.ay, s.by);
    double const top = std::max(s.ay, s.by);
    PlanarBox const outer = box.grown(tol);
    if ((right < outer.xLow) | (left > outer.xHigh) | (top < outer.yLow) | (bottom > outer.yHigh))
        return Depth::Outside;
    if (!areFinite(s.ax, s.ay, s.bx, s.by, box.xLow, box.yLow, box.xHigh, box.yHigh))
        return Depth::Outside;

    double const margin = 2.0 * tol;
    PlanarBox const core = box.grown(-margin);
    bool const hasA = core.hasInside(s.ax, s.ay);
    bool const hasB = core.hasInside(s.bx, s.by);
    if (hasA | hasB) return Depth::Deep;

    SideRange const range(s, box);
    if (!range.isReliable()) return Depth::Unsure;
    double const sideMargin = margin * ((right - left) + (top - bottom));
    if ((range.least > sideMargin) | (range.greatest < -sideMargin)) return Depth::Outside;
    bool const crosses = (range.least < -sideMargin) & (range.greatest > sideMargin);
    bool const overlaps = (core.xLow < core.xHigh) & (core.yLow < core.yHigh) & (right > core.xLow)
                          & (left < core.xHigh) & (top > core.yLow) & (bottom < core.yHigh);
    return (crosses & overlaps) ? Depth::Deep : Depth::Unsure;
}

/// A segment and a box for `exactDepthOf`.
struct ScaledSegment {
    double scale;
    PlanarSegment segment;
    PlanarBox box;

    ScaledSegment(PlanarSegment const &s, PlanarBox const &b)
        : scale(planarScale(largestOf(s.ax, s.ay, s.bx, s.by, b.xLow, b.yLow, b.xHigh, b.yHigh))),
          segment(s.scaled(scale)), box(b.scaled(scale)) {}
};

/// For numbers of any size: Outside when one is not finite.
inline Depth depthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    Depth const plain = plainDepthOf(s, box, tol);
    if (plain != Depth::Unsure) return plain;
    ScaledSegment const scaled(s, box);
    return exactDepthOf(scaled.segment, scaled.box, scaled.scale * tol);
}

} // namespace vexmath::detail

#endif
