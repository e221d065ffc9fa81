// SPDX-License-Identifier: MIT
// The fast path of the union of a box and a point.

#ifndef VEXMATH_DETAIL_POINT_UNION_H
#define VEXMATH_DETAIL_POINT_UNION_H

#include <vexmath/detail/packed.h>
#include <vexmath/point.h>

namespace vexmath::detail {

/// By what a sphere's squared radius may exceed the squared distance of the farthest corner: a
/// factor, then an absolute slack, which the test of the nearest point shares.
inline constexpr double kFarthestFactor = 0.99999999;
inline constexpr double kSquaredSlack = 1e-08;

/// True only if the box of these corners and this sphere is valid and already encloses p, so that
/// the union would change nothing, not a bit. False means "not proven". Comparisons and two sums of
/// squares:
/// - A point between the corners and in the sphere proves that low <= high and that the sphere
///   touches the box. These comparisons also refuse NaN.
/// - The tests of `mgBBox_c::isValid` that no corner coordinate is farther than the radius, and
///   that the farthest corner needs the radius, are done without their tolerance. One of the two
///   remains: a farthest corner on the sphere or outside needs the radius; one inside has no
///   coordinate farther than the radius, whose sign the square hides.
/// - If the square of a distance is strictly smaller than the square of the radius, the distance is
///   not larger than the radius. This holds also where squares underflow, and where the square of
///   the radius overflows.
inline bool plainlyEncloses(mgPoint_c const &low, mgPoint_c const &high, mgPoint_c const &centre,
                            double radius, mgPoint_c const &p) {
    Packed const lowest(low), point(p), highest(high), middle(centre);
    if (!between(lowest, point, highest)) return false;
    double const radiusSq = radius * radius;
    if (!((point - middle).sqlen() < radiusSq)) return false;
    Packed const farther = larger(highest - middle, middle - lowest);
    double const farthestSq = farther.sqlen();
    if (radiusSq <= farthestSq)
        return larger(larger(farther.x(), farther.y()), farther.z()) <= radius;
    return 0.0 <= radius && radiusSq * kFarthestFactor - kSquaredSlack <= farthestSq;
}

} // namespace vexmath::detail

#endif
