// SPDX-License-Identifier: MIT
// Rays against planes, discs, spheres, cylinders and cones.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>

#include "line_line.h"

#include <cmath>

using vexmath::detail::kQueryTolerance;
using vexmath::detail::LineLine;
using vexmath::detail::meetLines;

// QUIRK: mg_queries.h, mg_RayIntPlane, mg_RayIntDiskSeg, mg_RayIntSphere, mg_RayIntCylSeg,
// mg_RayIntConeSeg: a hit behind the start counts. Expected: a ray begins at its start. Kept:
// callers and stored data depend on it. (test: HitsBehindTheStartCount)
// QUIRK: mg_queries.h, mg_RayIntPlane, mg_RayIntDiskSeg: the normal is the third column of the
// frame's rotation. Expected: the third row, which is the image of the z axis. Kept: callers and
// stored data depend on it. (test: HitsBehindTheStartCount)
mgIntersectionType_e mg_RayIntPlane(mgXform_c const *frame, mgPoint_c const *start,
                                    mgUnitVector_c const *direction, mgPoint_c *out) {
    /// Cosine between ray and normal below which they are perpendicular; strict.
    constexpr double kParallelCos = 1e-08;
    mgUnitVector_c normal;
    frame->getZAxis(&normal);
    double const rate = normal % *direction;
    if (std::fabs(rate) < kParallelCos) return mgIntersect_Parallel;
    double const t = -(normal % (*start - mgPoint_c(frame->translation()))) / rate;
    *out = *start + t * *direction;
    return mgIntersect_Point;
}

// QUIRK: mg_queries.h, mg_RayIntDiskSeg: the two angles are ignored. Expected: a hit outside of
// them gives None. Kept: callers and stored data depend on it. (test: RoundShapesAreTestedAsCubes)
mgIntersectionType_e mg_RayIntDiskSeg(mgXform_c const *frame, mgPoint_c const *start,
                                      mgUnitVector_c const *direction, double radius,
                                      double /*startAngle*/, double /*endAngle*/, mgPoint_c *out) {
    mgPoint_c const centre = frame->translation();
    if (mg_RayIntPlane(frame, start, direction, out) != mgIntersect_Point) return mgIntersect_None;
    return out->isSame(centre, radius + kQueryTolerance) ? mgIntersect_Point : mgIntersect_None;
}

// QUIRK: mg_queries.h, mg_RayIntDiskSeg, mg_RayIntSphere, mg_RayIntCylSeg: a radius bounds each
// coordinate difference, so that the cubes around discs, spheres and cylinders are hit. Expected:
// it bounds a distance. Kept: callers and stored data depend on it.
// (test: RoundShapesAreTestedAsCubes)
mgIntersectionType_e mg_RayIntSphere(mgPoint_c const *start, mgUnitVector_c const *direction,
                                     mgPoint_c const *centre, double radius) {
    mgPoint_c const foot = *start + *direction * ((*centre - *start) % *direction);
    return centre->isSame(foot, radius + kQueryTolerance) ? mgIntersect_TwoPoints
                                                          : mgIntersect_None;
}

mgIntersectionType_e mg_RayIntCylSeg(mgLine_c const &ray, mgPoint_c const &base,
                                     mgUnitVector_c const &axis, double height, double radius,
                                     mgPoint_c *out) {
    LineLine const nearest = meetLines(ray.rootPoint(), ray.direction(), base, axis,
                                       kQueryTolerance, radius + kQueryTolerance);
    mgVector_c const w = nearest.point - base;
    mgIntersectionType_e const type = nearest.write(out);
    // QUIRK: mg_queries.h, mg_RayIntCylSeg: a ray that is parallel to the axis and inside the
    // radius is Coincident with its root as the output. Expected: the points where it enters and
    // leaves. Kept: callers and stored data depend on it.
    // (test: ACylinderIsHitWhereTheRayPassesItsAxis)
    if (type != mgIntersect_Point) return type;
    // QUIRK: mg_queries.h, mg_RayIntCylSeg: the height bounds the distance from the base point.
    // Expected: it bounds the distance along the axis. Kept: callers and stored data depend on it.
    // (test: ACylinderIsHitWhereTheRayPassesItsAxis)
    bool const inside = w % axis >= -kQueryTolerance && w.len() <= height + kQueryTolerance;
    return inside ? mgIntersect_TwoPoints : mgIntersect_None;
}

namespace {

/// A cone between two distances from its apex.
struct ConePart {
    mgPoint_c apex;
    mgUnitVector_c axis;
    double slope; ///< radius over axial distance
    double nearDistance;
    double farDistance;
};

/// The frame at the far end. Its third column, which ray queries use as the normal, is the axis:
/// its columns are the basis (b1, b2, axis), so that the rows passed here are those of the
/// transpose.
mgXform_c capFrame(ConePart const &cone) {
    mgUnitVector_c b1;
    mgUnitVector_c b2;
    mg_getBasis(cone.axis, b1, b2);
    mgUnitVector_c const &a = cone.axis;
    return mg_CoordinateXform(cone.apex + a * cone.farDistance,
                              mgUnitVector_c(b1.x(), b2.x(), a.x()),
                              mgUnitVector_c(b1.y(), b2.y(), a.y()));
}

bool hitsCap(mgLine_c const &ray, ConePart const &cone, mgPoint_c *hit) {
    mgXform_c const frame = capFrame(cone);
    return mg_RayIntDiskSeg(&frame, &ray.rootPoint(), &ray.direction(),
                            cone.farDistance * cone.slope, 0.0, vexmath::kTwoPi, hit)
           == mgIntersect_Point;
}

/// True if the ray hits one straight line of the cone's side, which passes through the apex.
bool hitsGenerator(mgLine_c const &ray, ConePart const &cone, mgVector_c const &generator,
                   mgPoint_c *hit) {
    if (mg_LineIntLine(ray.rootPoint(), ray.direction(), cone.apex, mg_Normalise(generator), hit,
                       kQueryTolerance)
        != mgIntersect_Point) {
        return false;
    }
    mgVector_c const w = *hit - cone.apex;
    double const slant = w.len();
    return !(w % cone.axis < -kQueryTolerance || slant < cone.nearDistance - kQueryTolerance
             || cone.farDistance + kQueryTolerance < slant);
}

/// True if the ray hits the side. The plane of axis and ray direction cuts the side in two
/// generators, one on each side of the axis. Of two hits, takes the first along the ray.
// QUIRK: mg_queries.h, mg_RayIntConeSeg: a ray that passes the axis at a distance does not hit the
// side. Expected: it hits a cone at any distance within the radius. Kept: callers and stored data
// depend on it. (test: AConeReportsAxisCapAndSideApart)
bool hitsSide(mgLine_c const &ray, ConePart const &cone, mgPoint_c *hit) {
    mgUnitVector_c const &a = cone.axis;
    mgVector_c const sideways =
        cone.slope * mg_Normalise(ray.direction() - (ray.direction() % a) * a);
    mgPoint_c hits[2];
    bool const hits0 = hitsGenerator(ray, cone, a - sideways, &hits[0]);
    bool const hits1 = hitsGenerator(ray, cone, a + sideways, &hits[1]);
    if (!hits0 && !hits1) return false;
    bool const firstIs1 = !hits0 || (hits1 && (hits[1] - hits[0]) % ray.direction() < 0.0);
    *hit = hits[firstIs1 ? 1 : 0];
    return true;
}

} // namespace

mgIntersectionType_e mg_RayIntConeSeg(mgLine_c const &ray, mgPoint_c const &apex,
                                      mgUnitVector_c const &axis, double halfAngle,
                                      double nearDistance, double farDistance, mgPoint_c *out) {
    ConePart const cone = {apex, axis, std::tan(halfAngle), nearDistance, farDistance};
    LineLine const alongAxis =
        meetLines(ray.rootPoint(), ray.direction(), apex, axis, kQueryTolerance, kQueryTolerance);
    // QUIRK: mg_queries.h, mg_RayIntConeSeg: a ray that is parallel to the axis and not on it is
    // Parallel, also when it passes through the cap. Expected: Point on the cap. Kept: callers and
    // stored data depend on it. (test: AConeReportsAxisCapAndSideApart)
    if (alongAxis.type == mgIntersect_Coincident || alongAxis.type == mgIntersect_Parallel) {
        return alongAxis.write(out);
    }
    mgPoint_c hit;
    if (hitsCap(ray, cone, &hit)) {
        *out = hit;
        return mgIntersect_Point;
    }
    if (hitsSide(ray, cone, &hit)) {
        *out = hit;
        return mgIntersect_TwoPoints;
    }
    return mgIntersect_None;
}
