// SPDX-License-Identifier: MIT
// Rays that meet boxes, planes, discs, spheres, cylinders and cones: a hit is on the ray and on
// what it meets, and nothing is written without one.

#include "fuzz.h"

namespace {

void checkBox(Input &in, mgBBox_c const &box, P const &p, U const &dir) {
    double least = kInfinity, most = -kInfinity, tmin = 0.0, tmax = 0.0;
    for (int corner = 0; corner < 8; ++corner) {
        P const low = box.low(), high = box.high();
        P const c(corner & 1 ? low.x() : high.x(), corner & 2 ? low.y() : high.y(),
                  corner & 4 ? low.z() : high.z());
        least = std::min(least, (c - p) % dir), most = std::max(most, (c - p) % dir);
    }
    box.limitRay(p, dir, &tmin, &tmax);
    CHECK(!box.isSet() || std::isnan(tmin) || (tmin == least && tmax == most));
    P hit(77, 77, 77), end = in.triple<P>();
    int const isHit = box.getFirstRayHit(p, dir, &hit);
    CHECK(isHit ? box.containsPoint(hit, 1e-8) != 0 : same(hit, P(77, 77, 77)));
    CHECK(!box.isRayHit(p, dir) || box.sphereHitByRay(p, dir));
    CHECK(!box.sphereHitByRay(p, dir) || box.sphereHitByRay2(p, dir, 1.0));
    CHECK(!box.clashLine(&p, &end)
          || box.clash(
              [](mgBBox_c b) -> mgBBox_c const * {
                  static mgBBox_c kept;
                  return kept = b, &kept;
              }(mgBBox_c(p, end)),
              1e-8));
    if (!in.isTame() || !box.isValid()) return;
    // The part of the ray between each two faces.
    double from = 0.0, to = kInfinity;
    for (int k = 0; k < 3; ++k) {
        double const a = (box.low()[k] - p[k]) / dir[k], b = (box.high()[k] - p[k]) / dir[k];
        if (std::fabs(dir[k]) > 1e-6)
            from = std::max(from, std::min(a, b)), to = std::min(to, std::max(a, b));
        else if (std::min(std::fabs(box.low()[k] - p[k]), std::fabs(p[k] - box.high()[k])) < 1e-5)
            return;
        else if (box.low()[k] > p[k] || p[k] > box.high()[k])
            to = -kInfinity;
    }
    if (dir.isNull() || std::fabs(to - from) < 1e-5 || std::fabs(from) + std::fabs(to) < 1e-5)
        return;
    CHECK(from < to ? isHit && (hit - p).len() <= to + 1e-4 : !isHit || to > -1e-5);
    CHECK(!isHit || from < 1e-5 || std::fabs((hit - p).len() - from) < 1e-5 * (1.0 + from));
}

} // namespace

void fuzzOne(Input &in) {
    mgXform_c const frame = in.placement();
    P const p = in.triple<P>(), centre = in.triple<P>(), unwritten(77, 77, 77);
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
    CHECK(onPlane == mgIntersect_Parallel ? same(plane, unwritten) && onDisc == mgIntersect_None
                                          : onPlane == mgIntersect_Point);
    CHECK(same(plane, disc) && (onDisc == mgIntersect_Point || onDisc == mgIntersect_None));
    CHECK(onSphere == mgIntersect_TwoPoints || onSphere == mgIntersect_None);
    CHECK(onCylinder == mgIntersect_None
          || (onCylinder == mgIntersect_Parallel) == same(cylinder, unwritten));
    CHECK(onCone <= mgIntersect_None);
    if (!in.isTame() || dir.isNull() || axis.isNull()) return;

    U normal;
    frame.getZAxis(&normal);
    P const root(frame.translation());
    double const cosine = std::fabs(dir % normal), size = 1.0 + dist(p, root) + dist(p, centre);
    auto const isOnRay = [&](P const &hit) {
        P foot;
        ray.pointPerp(hit, &foot);
        return isNear(hit, foot, 1e-9 * (size + dist(hit, p)));
    };
    if (onPlane == mgIntersect_Point && cosine > 1e-4)
        CHECK(isOnRay(plane) && std::fabs((plane - root) % normal) < 1e-9 * size / cosine);
    if (onDisc == mgIntersect_Point)
        CHECK(dist(disc, root) <= 1.7321 * (std::max(radius, 0.0) + 2e-8));
    double const off = ((centre - p) * dir).len();
    CHECK(onSphere == mgIntersect_TwoPoints ? off < 1.7321 * (std::max(radius, 0.0) + 2e-8)
                                            : off > std::max(radius, 0.0) - 1e-9 * size);
    if (onCylinder == mgIntersect_TwoPoints || onCylinder == mgIntersect_Coincident)
        CHECK(((cylinder - centre) * axis).len()
              <= 1.7321 * (std::max(radius, 0.0) + 2e-8) + 1e-7 * size);
    if (onCone == mgIntersect_TwoPoints && (dir * axis).len() > 1e-3)
        CHECK(isOnRay(cone) || std::fabs(std::cos(angle)) < 1e-3);
}
