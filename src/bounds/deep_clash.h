// SPDX-License-Identifier: MIT
// Boxes that clash for certain, because their common part is deep.

#ifndef VEXMATH_SRC_BOUNDS_DEEP_CLASH_H
#define VEXMATH_SRC_BOUNDS_DEEP_CLASH_H

#include <vexmath/bbox.h>

#include "box_offsets.h"
#include "box_tree.h"

namespace vexmath::detail {

/// Is a set box plain: does its sphere hold its corners, but for 1e-09 of the radius, and is the
/// radius no longer than the box's diagonal?
///
/// Let the common part of two plain boxes be wider than d on every axis, and p its middle. On an
/// axis p is at least d / 2 from both ends of a box, so at most f - d / 2 from the sphere's centre
/// when f is the distance of the farther end. Then (f - d / 2)^2 <= f^2 - f d / 2, as f >= d / 2,
/// and the sum of three shows that p is nearer to the centre than the farthest corner by d / 4 or
/// more. That is inside the sphere when d / 4 is above 1e-09 of the radius. So both spheres reach
/// the common part and each other. If it is no point, not even within the tolerance, and no
/// tolerance is negative, then the boxes clash.
inline bool isPlain(mgBBox_c const &box) {
    constexpr double kSlack = 1.0 + 2e-09; // of the squared radius
    constexpr double kMost = 1e30;         // of lengths, so that no square overflows; strict
    double const r = box.sphRadius();
    if (!(r < kMost)) return false;
    mgPoint_c const low = box.low(), high = box.high();
    double const farthestSq = farthestOffset(box.sphCenter(), low, high).sqlen();
    return farthestSq <= r * r * kSlack && r * r <= (high - low).sqlen();
}

/// The depth in floats of a common part that is certainly deep enough.
///
/// Rounding to floats and their subtraction err by less than 2.4e-07 of the largest coordinate of a
/// plain box in floats, and the radius is at most 4 times that. 1e-06 of it covers both.
class FloatDepth {
public:
    void add(Enclosure const &plain) {
        for (int i = 0; i < 3; ++i)
            reach_ = std::max({reach_, std::fabs(plain.low[i]), std::fabs(plain.high[i])});
    }

    double reach() const { return reach_; } ///< the largest coordinate

    /// Such that a strictly wider part in floats is wider than `depth` in doubles.
    float of(double depth) const {
        constexpr double kOfReach = 1e-06;
        auto const nearest = static_cast<float>(depth + kOfReach * reach());
        return std::nextafter(nearest, std::numeric_limits<float>::infinity());
    }

private:
    float reach_ = 0.0f;
};

} // namespace vexmath::detail

#endif
