// SPDX-License-Identifier: MIT
// Boxes and rays: the first hit of a ray, and the range of a box along a line.

#include <vexmath/bbox.h>
#include <vexmath/plane.h>

#include "corners.h"

#include <algorithm>

namespace {

/// The six faces, normals outwards: across x, y, z, the high one first.
std::array<mgPlane_c, 6> facesOf(mgPoint_c const &low, mgPoint_c const &high) {
    return {{{mgPoint_c(high.x(), 0.0, 0.0), mgUnitVector_c(1.0, 0.0, 0.0)},
             {mgPoint_c(low.x(), 0.0, 0.0), mgUnitVector_c(-1.0, 0.0, 0.0)},
             {mgPoint_c(0.0, high.y(), 0.0), mgUnitVector_c(0.0, 1.0, 0.0)},
             {mgPoint_c(0.0, low.y(), 0.0), mgUnitVector_c(0.0, -1.0, 0.0)},
             {mgPoint_c(0.0, 0.0, high.z()), mgUnitVector_c(0.0, 0.0, 1.0)},
             {mgPoint_c(0.0, 0.0, low.z()), mgUnitVector_c(0.0, 0.0, -1.0)}}};
}

} // namespace

int mgBBox_c::getFirstRayHit(mgPoint_c const &p, mgUnitVector_c const &dir, mgPoint_c *hit) const {
    /// How far outside of the box a crossing may lie along each axis; bound included.
    constexpr double kOnBox = 1e-08;
    /// Hits at this distance or beyond are ignored.
    constexpr double kFarthest = 1e+32;
    mgLine_c const ray(p, dir);
    mgPoint_c nearest;
    double best = kFarthest;
    for (mgPlane_c const &face : facesOf(low_, high_)) {
        mgPoint_c crossing;
        if (mg_LineIntPlane(ray, face, &crossing, nullptr) != mgLinePlane_Point) continue;
        if (!containsPoint(crossing, kOnBox)) continue;
        mgVector_c const offset = crossing - p;
        double const distance = offset.len();
        if (!offset.isSameDirection(dir) || !(distance < best)) continue;
        nearest = crossing;
        best = distance;
    }
    if (!(best < kFarthest)) return 0;
    *hit = nearest;
    return 1;
}

void mgBBox_c::limitRay(mgPoint_c const &p, mgUnitVector_c const &dir, double *tmin,
                        double *tmax) const {
    double least = (low_ - p) % dir;
    double most = least;
    for (mgPoint_c const &corner : vexmath::detail::cornersOf(low_, high_)) {
        double const t = (corner - p) % dir;
        least = std::min(least, t);
        most = std::max(most, t);
    }
    *tmin = least;
    *tmax = most;
}
