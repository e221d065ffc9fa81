// SPDX-License-Identifier: MIT
// Boxes and segments in the plane, and how deep a segment enters a box.

#ifndef VEXMATH_QUERIES_PLANAR_BOX_H
#define VEXMATH_QUERIES_PLANAR_BOX_H

#include <vexmath/point.h>
#include <vexmath/tolerances.h>

#include "inlining.h"

#include <algorithm>
#include <cmath>

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
/// number and a power of two is exact, except for a number that underflows beside one above 2^500:
/// it shows only where the tolerance is 0.
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
    double width() const { return xHigh - xLow; }
    double height() const { return yHigh - yLow; }
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

/// How far the line of a segment is from a box, times the length of d = b - a: positive when it
/// misses the box, 0 when it touches a corner or when d is 0, and negative when it meets the
/// inside. The corners farthest to both sides have the least and the greatest d x (q - a). They are
/// not computed from the centre of the box: one near the segment is exact in a large box, too.
VEXMATH_ALWAYS_INLINE double lineBeyond(PlanarSegment const &s, PlanarBox const &box) {
    double const dx = s.bx - s.ax;
    double const dy = s.by - s.ay;
    double const low = dx * (box.yLow - s.ay);
    double const high = dx * (box.yHigh - s.ay);
    double const left = dy * (box.xLow - s.ax);
    double const right = dy * (box.xHigh - s.ax);
    double const least = std::min(low, high) - std::max(left, right);
    double const greatest = std::max(low, high) - std::min(left, right);
    return std::max(least, -greatest);
}

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
    if (lineBeyond(s, outer) > 0.0) return Depth::Outside;

    PlanarBox const inner = box.grown(-tol);
    if (inner.hasInside(s.ax, s.ay) || inner.hasInside(s.bx, s.by)) return Depth::Deep;
    bool const innerIsEmpty = !(inner.xLow < inner.xHigh && inner.yLow < inner.yHigh);
    if (innerIsEmpty || right <= inner.xLow || left >= inner.xHigh || top <= inner.yLow
        || bottom >= inner.yHigh)
        return Depth::Touching;
    return lineBeyond(s, inner) < 0.0 ? Depth::Deep : Depth::Touching;
}

/// The depth where it is plain: by twice the tolerance, which leaves room for rounding. Where it is
/// not, or where a number is not finite, Unsure, unless the segment is beyond a side. The axes that
/// separate a segment and a box are those of the box and the normal of the segment. Method: S.
/// Gottschalk, M. C. Lin, D. Manocha, "OBBTree", 1996 (separating axes).
VEXMATH_ALWAYS_INLINE Depth plainDepthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    /// Above it, products of two lengths may overflow; strict.
    constexpr double kLargest = 1e150;
    /// A product of this size has lost no digits to underflow.
    constexpr double kVanishing = 1e-280;
    double const margin = 2.0 * tol;
    double const overlapX =
        std::min(std::max(s.ax, s.bx) - box.xLow, box.xHigh - std::min(s.ax, s.bx));
    double const overlapY =
        std::min(std::max(s.ay, s.by) - box.yLow, box.yHigh - std::min(s.ay, s.by));
    double const overlap = std::min(overlapX, overlapY);
    if (overlap < -margin) return Depth::Outside;

    double const extent = std::fabs(s.bx - s.ax) + std::fabs(s.by - s.ay);
    bool const isOrdinary = extent + (box.width() + box.height()) + tol < kLargest; // no NaN either
    if (!isOrdinary) return Depth::Unsure;

    double const beyond = lineBeyond(s, box);
    double const lineMargin = margin * extent + kVanishing;
    if (beyond > lineMargin) return Depth::Outside;
    bool const isDeep = (beyond < -lineMargin) & (overlap > margin)
                        & (std::min(box.width(), box.height()) > 2.0 * margin);
    return isDeep ? Depth::Deep : Depth::Unsure;
}

inline bool areFinite(PlanarSegment const &s, PlanarBox const &box) {
    return areFinite(s.ax, s.ay, s.bx, s.by, box.xLow, box.yLow, box.xHigh, box.yHigh);
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

/// For finite numbers of any size.
inline Depth depthOf(PlanarSegment const &s, PlanarBox const &box, double tol) {
    Depth const plain = plainDepthOf(s, box, tol);
    if (plain != Depth::Unsure) return plain;
    ScaledSegment const scaled(s, box);
    return exactDepthOf(scaled.segment, scaled.box, scaled.scale * tol);
}

} // namespace vexmath::detail

#endif
