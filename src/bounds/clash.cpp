// SPDX-License-Identifier: MIT
// Interference of boxes with planes, boxes in the same frame, points and segments.

#include <vexmath/bbox.h>
#include <vexmath/plane.h>

#include "box_offsets.h"
#include "corners.h"

#include <algorithm>

int mgBBox_c::clash(mgPlane_c const &plane, double tol) const {
    /// Least distance below which a corner touches the plane; strict.
    constexpr double kLeastReach = 1e-08;
    if (!isSet()) return 0;
    double const reach = tol >= kLeastReach ? tol : kLeastReach;
    double firstHeight = 0.0; // of the first corner, which is not 0 when the second one is asked
    for (mgPoint_c const &corner : vexmath::detail::cornersOf(low_, high_)) {
        double const height = (corner - plane.rootPoint()) % plane.normal();
        if (std::fabs(height) < reach) return 1;
        if (firstHeight == 0.0) firstHeight = height;
        if (height * firstHeight < 0.0) return 1;
    }
    return 0;
}

namespace {

/// Is p, a point on the surface of the box, at one of its corners? It is when the distances from
/// the middle, laid off towards the high corner, end there.
bool isCorner(mgPoint_c const &p, mgPoint_c const &middle, mgPoint_c const &high) {
    mgVector_c const d = p - middle;
    return middle + mgVector_c(std::fabs(d.x()), std::fabs(d.y()), std::fabs(d.z())) == high;
}

bool sphereMisses(mgPoint_c const &centre, double radius, mgPoint_c const &low,
                  mgPoint_c const &high, double tol) {
    double const gapSq = vexmath::detail::nearestOffset(centre, low, high).sqlen();
    // QUIRK: the tolerance widens the squared radius as a factor, where a reader would expect it to
    // be added to the radius. Interference checks are tuned to it.
    // (test: SphereToleranceIsAFactorOnTheSquaredRadius)
    return gapSq > radius * radius * (1.0 + tol);
}

} // namespace

int mgBBox_c::clash(mgBBox_c const *b, double tol) const {
    if (!isSet() || !b->isSet()) return 0;
    if (sphRadius_ + b->sphRadius_ < (sphCentre_ - b->sphCentre_).len() - tol) return 0;

    mgPoint_c low;
    mgPoint_c high;
    for (int i = 0; i < 3; ++i) {
        low[i] = std::max(low_[i], b->low_[i]);
        high[i] = std::min(high_[i], b->high_[i]);
        if (low[i] > high[i] + tol) return 0;
    }
    // QUIRK: boxes that share one corner alone do not clash, though boxes that share an edge or a
    // face do; a reader would expect one answer for every contact. Grids of parts touch at corners
    // everywhere, and those pairs would flood a report.
    // (test: FacesAndEdgesTouchSingleCornersDoNot)
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
    // QUIRK: the tolerance shrinks the inner box by a factor; it is not a distance. Containment in
    // drawings of any size relies on it. (test: ContainmentToleranceIsRelative)
    mgBBox_c inner = *b;
    inner *= 1.0 - tol;
    for (int i = 0; i < 3; ++i) {
        if (!(low_[i] < inner.low_[i] && inner.high_[i] < high_[i])) return 0;
    }
    return 1;
}

namespace {

constexpr int kNoAxis = -1;

// QUIRK: whether the box is set is not asked, where every other test of points and boxes asks; the
// corners decide, so that a wide tolerance finds points in an unset box. Callers test before, once
// for many points. (test: PointsOnTheBoundAreContainedWhetherSetOrNot)
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
    // QUIRK: the line is tested against the sphere alone, where a reader would expect the faces.
    // Selection by lines wants near misses too. (test: ASegmentIsTestedAgainstTheSphereAlone)
    return box.clash(&around, tol) && box.sphereHitByRay2(a, mg_Normalise(b - a), sphereTol);
}

} // namespace

int mgBBox_c::clashLine(mgPoint_c const *a, mgPoint_c const *b) const {
    /// How far the boxes may be apart. The sphere gets no tolerance of its own.
    constexpr double kGap = 1e-08;
    return meetsSegment(*this, *a, *b, kGap, 0.0);
}

int mgBBox_c::clashLine(mgPoint_c const *a, mgPoint_c const *b, double tol) const {
    return meetsSegment(*this, *a, *b, tol, tol);
}
