// SPDX-License-Identifier: MIT
// Parallelograms and boxes in any orientation.

#include <vexmath/bbox.h>
#include <vexmath/general_box.h>
#include <vexmath/mg_transform.h>
#include <vexmath/plane.h>

bool mgParallelogram_c::isPointInside(mgPoint_c const &p) const {
    /// Distance from the plane from which a point is off it; bound included.
    constexpr double kOffPlane = 1e-08;
    mgVector_c const w = p - corner_;
    if (w.isNull()) return true;
    // QUIRK: general_box.h, mgParallelogram_c::isPointInside: a null direction bounds nothing, so
    // that points off the other edge are inside. Expected: they are outside, as between parallel
    // directions. Kept: callers and stored data depend on it.
    // (test: ANullEdgeDirectionBoundsNothing)
    mgVector_c const n = d1_ * d2_;
    bool const isParallel = n.isNull() && !d1_.isNull() && !d2_.isNull();
    if (isParallel || std::fabs(w % n) >= kOffPlane) return false;

    // w = t1 d1 + t2 d2, by the normal equations. NaN fails the comparisons.
    double const a = w % d1_;
    double const b = w % d2_;
    double const c12 = d1_ % d2_;
    double const t2 = (b - c12 * a) / (1.0 - c12 * c12);
    double const t1 = a - t2 * c12;
    return 0.0 <= t2 && t2 <= len2_ && 0.0 <= t1 && t1 <= len1_;
}

bool mgParallelogram_c::getExtremPts(mgUnitVector_c const &dir, mgPoint_c &low,
                                     mgPoint_c &high) const {
    if (!isValid()) return false;
    mgVector_c const edge1 = len1_ * d1_;
    mgVector_c const edge2 = len2_ * d2_;
    double const s1 = edge1 % dir;
    double const s2 = edge2 % dir;
    double const s12 = (edge1 + edge2) % dir;

    mgPoint_c lowest = corner_;
    mgPoint_c highest = corner_;
    double min = 0.0;
    double max = 0.0;
    if (s1 < 0.0) {
        lowest = corner_ + edge1;
        min = s1;
    } else if (s1 > 0.0) {
        highest = corner_ + edge1;
        max = s1;
    }
    if (s2 < min) {
        lowest = corner_ + edge2;
        min = s2;
    } else if (s2 > max) {
        highest = corner_ + edge2;
    }
    // QUIRK: general_box.h, mgParallelogram_c::getExtremPts: the far corner can be the low point
    // but never the high one. Expected: one rule for both. Kept: callers and stored data depend on
    // it. (test: TheFarCornerIsNeverTheHighPoint)
    if (s12 < min) lowest = corner_ + edge1 + edge2;

    low = lowest;
    high = highest;
    return true;
}

bool mgGeneralBox_c::getBBoxAndXform(mgBBox_c &box, mgXform_c &x) const {
    if (!isValid()) return false;
    box = mgBBox_c(mgPoint_c(), mgPoint_c(len1_, len2_, len3_));
    x = mg_CoordinateXform(corner_, d1_, d2_);
    return true;
}

bool mgGeneralBox_c::projectToPlane(mgPlane_c const &plane, mgParallelogram_c &result) const {
    /// Length below which an edge of the result has no direction; strict.
    constexpr double kShortestEdge = 1e-08;
    if (!isValid()) return false;
    mgUnitVector_c const along = getBoxDir_v3();
    mgPoint_c const from[3] = {corner_, corner_ + len1_ * d1_, corner_ + len2_ * d2_};
    mgPoint_c to[3];
    for (int i = 0; i < 3; ++i) {
        mgLine_c const edge(from[i], along);
        if (mg_LineIntPlane(edge, plane, &to[i], nullptr) != mgLinePlane_Point) return false;
    }
    mgVector_c const edge1 = to[1] - to[0];
    mgVector_c const edge2 = to[2] - to[0];
    double const len1 = edge1.len();
    double const len2 = edge2.len();
    if (!(len1 >= kShortestEdge && len2 >= kShortestEdge)) return false;
    result = mgParallelogram_c(to[0], mg_Normalise(edge1), mg_Normalise(edge2), len1, len2);
    return true;
}
