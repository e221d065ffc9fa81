// SPDX-License-Identifier: MIT
// Rays that meet boxes, planes, discs, spheres, cylinders and cones: a hit is on the ray and on
// what it meets, and nothing is written without one.

#include "fuzz.h"

namespace {

void checkBox(Input &in, mgBBox_c const &box, P const &p, U const &dir) {
    P const low = box.low(), high = box.high();
    P hit = unwritten;
    int const isHit = box.getFirstRayHit(p, dir, &hit);
    CHECK(isHit ? box.containsPoint(hit, 1e-8) != 0 : same(hit, unwritten));
    CHECK(!box.isRayHit(p, dir) || box.sphereHitByRay(p, dir));
    box.clashLine(&p, &low, in.number());
    if (!in.isTame() || !box.isValid() || dir.isNull()) return;
    // The part of the ray between each two faces, unless rounding or a tolerance decides.
    double from = -kInfinity, to = kInfinity;
    int entered = 0, left = 0; // faces, of an edge two
    for (int k = 0; k < 3; ++k) {
        double const a = (low[k] - p[k]) / dir[k], b = (high[k] - p[k]) / dir[k];
        double const steep = std::fabs(dir[k]);
        if (1e-6 < steep && steep < 2e-3) return; // wider faces are met much earlier
        if (steep > 1e-6) {
            from = std::max(from, std::min(a, b)), to = std::min(to, std::max(a, b));
        } else {
            if (std::min(std::fabs(low[k] - p[k]), std::fabs(p[k] - high[k])) < 1e-5) return;
            if (low[k] > p[k] || p[k] > high[k]) to = -kInfinity;
        }
    }
    if (std::fabs(to - from) < 1e-5 || std::fabs(to) < 1e-5) return;
    for (int k = 0; k < 3; ++k) {
        for (double const at : {(low[k] - p[k]) / dir[k], (high[k] - p[k]) / dir[k]})
            entered += std::fabs(at - from) < 1e-5, left += std::fabs(at - to) < 1e-5;
    }
    if (entered > 1 && left > 1) return; // through edges alone
    bool const isMet = from < to && box.sphereHitByRay(p, dir) != 0;
    CHECK(box.isRayHit(p, dir) == isMet && box.isRayHit(p, -dir) == isMet);
    from = std::max(from, 0.0);
    CHECK(from < to ? isHit && (hit - p).len() <= to + 1e-4 : !isHit);
    CHECK(!isHit || from < 1e-5 || std::fabs((hit - p).len() - from) < 1e-5 * (1.0 + from));
}

} // namespace

void fuzz(Input &in) {
    mgXform_c const frame = in.placement();
    P const p = in.triple<P>(), centre = in.triple<P>(), root(frame.translation());
    U const dir = in.direction(), axis = in.direction();
    double const radius = in.number(), angle = in.number(), height = in.number();
    checkBox(in, in.box(), p, dir);

    mgLine_c const ray(p, dir);
    P plane = unwritten, disc = unwritten, cylinder = unwritten, cone = unwritten;
    auto const onPlane = mg_RayIntPlane(&frame, &p, &dir, &plane);
    auto const onDisc = mg_RayIntDiskSeg(&frame, &p, &dir, radius, angle, height, &disc);
    auto const onSphere = mg_RayIntSphere(&p, &dir, &centre, radius);
    auto const onCylinder = mg_RayIntCylSeg(ray, centre, axis, height, radius, &cylinder);
    auto const onCone = mg_RayIntConeSeg(ray, centre, axis, angle, radius, height, &cone);
    for (int const each : {onPlane, onDisc, onSphere, onCylinder, onCone})
        CHECK(0 <= each && each <= mgIntersect_None);
    CHECK((onPlane == mgIntersect_Parallel) == same(plane, unwritten) && same(plane, disc));
    CHECK(onDisc == mgIntersect_None || (onDisc == mgIntersect_Point && onPlane == onDisc));
    CHECK(onCylinder != mgIntersect_Parallel || same(cylinder, unwritten));
    CHECK(onCone == mgIntersect_Parallel || onCone == mgIntersect_None || !same(cone, unwritten));
    if (!in.isTame() || dir.isNull() || axis.isNull()) return;

    U normal;
    frame.getZAxis(&normal);
    double const cosine = std::fabs(dir % normal), size = 1.0 + dist(p, root) + dist(p, centre);
    double const tol = 1e-9 * size / cosine, off = ((centre - p) * dir).len();
    double const cube = 1.7321 * (std::max(radius, 0.0) + 2e-8) + 1e-9 * size; // instead of a disc
    if (onPlane == mgIntersect_Point && cosine > 1e-4)
        CHECK(std::fabs((plane - root) % normal) < tol && ((plane - p) * dir).len() < tol);
    CHECK(onDisc != mgIntersect_Point || dist(disc, root) <= cube);
    CHECK(onSphere == mgIntersect_TwoPoints ? off < cube : off > radius - 1e-9 * size);
    if (onCylinder == mgIntersect_TwoPoints || onCylinder == mgIntersect_Coincident)
        CHECK(((cylinder - centre) * axis).len() <= cube + 1e-7 * size);
    // In a plane with the axis, towards a point of the cone.
    double const up = in.number(), out = in.number();
    V const across = axis.anyUnitNormal(0), at = up * axis + out * across,
            to = radius * (std::cos(angle) * axis + std::sin(angle) * across);
    mgLine_c const aimed(centre + at, mg_Normalise(to - at));
    if (!(0.0 < angle && angle < 1.5)) return;
    if (mg_RayIntConeSeg(aimed, centre, axis, angle, 0.0, height, &cone) == mgIntersect_TwoPoints) {
        V const side = cone - centre;
        CHECK(std::fabs(side % axis - side.len() * std::cos(angle)) < 1e-6 * (size + at.len()));
    }
}
