// SPDX-License-Identifier: MIT
// Interference of boxes with planes, boxes in the same frame, points and segments.

#include <vexmath/bbox.h>
#include <vexmath/plane.h>

#include "box_offsets.h"
#include "corners.h"
#include "inlining.h"
#include "wide_clash.h"

#include <algorithm>

int mgBBox_c::clash(mgPlane_c const &plane, double tol) const {
    /// Smallest tolerance that is used. A corner nearer than the tolerance touches; strict.
    constexpr double kLeastReach = 1e-08;
    if (!isSet()) return 0;
    double const reach = tol >= kLeastReach ? tol : kLeastReach;
    double firstHeight = 0.0; // of the first corner; a corner of height 0 returns below
    for (mgPoint_c const &corner : vexmath::detail::cornersOf(low_, high_)) {
        double const height = (corner - plane.rootPoint()) % plane.normal();
        if (std::fabs(height) < reach) return 1;
        if (firstHeight == 0.0) firstHeight = height;
        if (height * firstHeight < 0.0) return 1;
    }
    return 0;
}

namespace {

/// Is p, a point of the box, one of its corners? Yes, if the middle plus the absolute offsets of p
/// from the middle equals the high corner.
bool isCorner(mgPoint_c const &p, mgPoint_c const &middle, mgPoint_c const &high) {
    mgVector_c const d = p - middle;
    return middle + mgVector_c(std::fabs(d.x()), std::fabs(d.y()), std::fabs(d.z())) == high;
}

VEXMATH_ALWAYS_INLINE bool sphereMisses(mgPoint_c const &centre, double radius,
                                        mgPoint_c const &low, mgPoint_c const &high, double tol) {
    double const gapSq = vexmath::detail::nearestOffset(centre, low, high).sqlen();
    // QUIRK: bbox.h, mgBBox_c::clash: the tolerance widens the squared radius as a factor.
    // Expected: added to the radius. Kept: callers and stored data depend on it.
    // (test: SphereToleranceIsAFactorOnTheSquaredRadius)
    return gapSq > radius * radius * (1.0 + tol);
}

#if defined(VEXMATH_AVX2)

VEXMATH_AVX2 int clashBySimd(mgBBox_c const &a, mgBBox_c const &b, double tol) {
    using vexmath::detail::WideBounds;
    return vexmath::detail::clashes(WideBounds::of(a), WideBounds::of(b), tol);
}

#else // never called

int clashBySimd(mgBBox_c const &, mgBBox_c const &, double) { return 0; }

#endif

} // namespace

int mgBBox_c::clash(mgBBox_c const *b, double tol) const {
    if (vexmath::detail::hasSimd()) return clashBySimd(*this, *b, tol);
    if (!isSet() || !b->isSet()) return 0;
    if (sphRadius_ + b->sphRadius_ < (sphCentre_ - b->sphCentre_).len() - tol) return 0;

    mgPoint_c low;
    mgPoint_c high;
    for (int i = 0; i < 3; ++i) {
        low[i] = std::max(low_[i], b->low_[i]);
        high[i] = std::min(high_[i], b->high_[i]);
        if (low[i] > high[i] + tol) return 0;
    }
    // QUIRK: bbox.h, mgBBox_c::clash, mgBBox_c::clashLine: boxes that share a single corner do not
    // clash, though boxes that share an edge or a face do. Expected: one result for every contact.
    // Kept: callers and stored data depend on it. (test: FacesAndEdgesTouchSingleCornersDoNot)
    if (low == high) {
        mgPoint_c const contact = (low + high) * 0.5;
        if (isCorner(contact, center(), high_) && isCorner(contact, b->center(), b->high_)) {
            return 0;
        }
    }
    return !sphereMisses(sphCentre_, sphRadius_, low, high, tol)
           && !sphereMisses(b->sphCentre_, b->sphRadius_, low, high, tol);
}

int mgBBox_c::containsBBox(mgBBox_c const *b, double tol) const {
    if (b == nullptr || !isSet() || !b->isSet()) return 0;
    if ((sphCentre_ - b->sphCentre_).len() - tol > sphRadius_ + b->sphRadius_) return 0;
    // QUIRK: bbox.h, mgBBox_c::containsBBox: the tolerance shrinks the inner box by a factor.
    // Expected: a length. Kept: callers and stored data depend on it.
    // (test: ContainmentToleranceIsRelative)
    mgBBox_c inner = *b;
    inner *= 1.0 - tol;
    for (int i = 0; i < 3; ++i) {
        if (!(low_[i] < inner.low_[i] && inner.high_[i] < high_[i])) return 0;
    }
    return 1;
}

namespace {

constexpr int kNoAxis = -1;

// QUIRK: bbox.h, mgBBox_c::containsPoint: the set state is not tested, so that a wide tolerance
// finds points in an unset box. Expected: 0 for an unset box, as from its siblings. Kept: callers
// and stored data depend on it. (test: PointsOnTheBoundAreContainedWhetherSetOrNot)
int contains(mgPoint_c const &low, mgPoint_c const &high, mgPoint_c const &p, double tol,
             int ignoredAxis) {
    for (int i = 0; i < 3; ++i) {
        if (i != ignoredAxis && (low[i] - p[i] > tol || p[i] - high[i] > tol)) return 0;
    }
    return 1;
}

} // namespace

int mgBBox_c::containsPoint(mgPoint_c const &p, double tol) const {
    return contains(low_, high_, p, tol, kNoAxis);
}

int mgBBox_c::containsPoint(mgPoint_c const &p, double tol, int ignoredAxis) const {
    return contains(low_, high_, p, tol, ignoredAxis);
}

namespace {

int meetsSegment(mgBBox_c const &box, mgPoint_c const &a, mgPoint_c const &b, double tol,
                 double sphereTol) {
    mgBBox_c const around(a, b);
    // QUIRK: bbox.h, mgBBox_c::clashLine: the line is tested against the sphere and not against the
    // faces, so that near misses clash too. Expected: the faces. Kept: callers and stored data
    // depend on it. (test: ASegmentIsTestedAgainstTheSphereAlone)
    return box.clash(&around, tol) && box.sphereHitByRay2(a, mg_Normalise(b - a), sphereTol);
}

} // namespace

int mgBBox_c::clashLine(mgPoint_c const *a, mgPoint_c const *b) const {
    /// Gap that the boxes may have. The sphere has no tolerance of its own.
    constexpr double kGap = 1e-08;
    return meetsSegment(*this, *a, *b, kGap, 0.0);
}

int mgBBox_c::clashLine(mgPoint_c const *a, mgPoint_c const *b, double tol) const {
    return meetsSegment(*this, *a, *b, tol, tol);
}
