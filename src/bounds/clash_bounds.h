// SPDX-License-Identifier: MIT
// What must hold of two boxes that clash, as intervals that meet: bounds for a search.

#ifndef VEXMATH_SRC_BOUNDS_CLASH_BOUNDS_H
#define VEXMATH_SRC_BOUNDS_CLASH_BOUNDS_H

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

#include "box_tree.h"

namespace vexmath::detail {

/// The corners of a set box, the high ones moved by tol. False when it clashes with nothing.
///
/// `a.clash(&b, tol)` gives 1 only if, on each axis, no max(low) is above fl(min(high) + tol). Sums
/// do not decrease when a term grows, so fl(min(h, k) + tol) is min(fl(h + tol), fl(k + tol)), and
/// the condition is: each low is at most each fl(high + tol), its own too. Where that is NaN the
/// condition holds; infinity stands for it. The spheres only exclude more pairs, and those with NaN
/// exclude none: they must not be used here.
inline bool enclose(mgBBox_c const &box, double tol, FloatFrame const &frame, Enclosure &bounds) {
    if (!box.isSet()) return false;
    mgPoint_c const low = box.low(), high = box.high();
    bool isEmpty = false;
    for (int i = 0; i < 3; ++i) {
        double const sum = high[i] + tol;
        double const end = std::isnan(sum) ? std::numeric_limits<double>::infinity() : sum;
        isEmpty |= low[i] > end;
        bounds.low[i] = frame.toFloat(low[i], i);
        bounds.high[i] = frame.toFloat(end, i);
    }
    return !isEmpty;
}

/// Bounds of a placed box in the common frame.
///
/// Two placed boxes clash only if, in the frame of the first, the placed spheres overlap, the
/// enclosures of both boxes have a common part, and both spheres reach it; and the same in the
/// frame of the second. So the cubes around the placed spheres always meet. The enclosures in the
/// common frame need not meet when both boxes are rotated freely: the test does not use these axes.
/// If the axes of one frame are those of the common frame, then its intervals of both enclosures
/// and both spheres share a point on each axis, so that the enclosures clipped to the spheres meet.
///
/// Whatever the other placement is, the sphere must reach a part of the box. So a box whose
/// enclosure is apart from the sphere's cube clashes with nothing.
///
/// That is exact but for rotations that are off by 1e-09, scales within 1e-08 of 1 that count as 1,
/// translations below 1e-08 that are dropped, in each of three frames, and gaps of 1e-08. Together
/// they are less than 5e-08 of the lengths and, per axis, at most 2e-08 units of the common frame
/// and 4e-08 of the frame of each box. The margin is more than twice that.
struct PlacedBounds {
    /// Bounds of a set box. Infinite ones of a placement for which the above does not hold.
    PlacedBounds(mgBBox_c const &box, mgXform_c const &x);

    /// Does the box clash with nothing?
    bool isEmpty() const { return low[0] > high[0] || low[1] > high[1] || low[2] > high[2]; }

    /// Do the axes of the frame lie along those of the common frame?
    bool isAligned = false;
    double low[3], high[3];             ///< of the enclosure, clipped to the sphere
    double centre[3] = {0.0, 0.0, 0.0}; ///< of the sphere
    double radius;                      ///< with the margin
    double margin = 0.0;
};

} // namespace vexmath::detail

#endif
