// SPDX-License-Identifier: MIT
// Which of eight boxes of floats may be met by a line.

#ifndef VEXMATH_SRC_BOUNDS_NEAR_LINE_H
#define VEXMATH_SRC_BOUNDS_NEAR_LINE_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include "box_tree.h"

namespace vexmath::detail {

/// A line, or a part of it, in a frame of floats.
///
/// A test in doubles, `isRayHit` or `getFirstRayHit`, finds a point p + t dir of the line that is
/// in the box, or at most 1e-08 outside. Its rounding errors are below 1e-15 of the coordinates.
/// The line here is the same one but for a few 1e-16 of the coordinates and of the origin, and the
/// numbers of the test here err by less than ten roundings of floats, 6e-07 of the coordinates in
/// the frame. The slack is several times that, so that nothing is missed.
struct NearLine {
    /// REQUIRES isOrdinary(p, dir).
    NearLine(mgPoint_c const &p, mgUnitVector_c const &dir, FloatFrame const &frame);

    /// Are all numbers finite, and far from overflow and from a null direction?
    static bool isOrdinary(mgPoint_c const &p, mgUnitVector_c const &dir);

    /// Keeps what is in front of p and, along the line, no farther from it than `distance`.
    void limit(double distance);

    float at[3];        ///< the point of the line nearest to the origin
    float direction[3]; ///< unit
    float begin, end;   ///< distances from `at` along the direction; infinite for the whole line
    float slack;        ///< a length

private:
    double from_; ///< distance of p from `at`
};

/// Bit k is set when the line may meet the box in lane k. Not set where the lane holds NaN.
unsigned whichMayMeet(EightBoxes const &boxes, NearLine const &line);

} // namespace vexmath::detail

#endif
