// SPDX-License-Identifier: MIT
// Rays against planes, discs, spheres, cylinders and cones.

#include "common/geometry.h"

namespace {

U const x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);

TEST(Rays, HitsBehindTheStartCount) {
    // The normal is the third column of the rows y, z, x, which is y.
    mgXform_c const frame = mg_RestoreXform({y, z, x}, V(0, 3, 0), 1.0);
    P p(1, 8, 2);
    EXPECT_EQ(mgIntersect_Parallel, mg_RayIntPlane(&frame, &p, &x, &p));
    EXPECT_EQ(mgIntersect_None, mg_RayIntDiskSeg(&frame, &p, &x, 9.0, 0.0, 1.0, &p));
    EXPECT_EQ(8.0, p.y());
    EXPECT_EQ(mgIntersect_Point, mg_RayIntPlane(&frame, &p, &y, &p)); // the output is the input
    EXPECT_BITS_EQ(P(1, 3, 2), p);
    for (double const rate : {1e-8, below(1e-8)}) {
        U u;
        u.set(V(1, rate, 0));
        EXPECT_EQ(rate < 1e-8 ? mgIntersect_Parallel : mgIntersect_Point,
                  mg_RayIntPlane(&frame, &p, &u, &p));
    }
    P const above(1, 8, 2);
    U const slanted(1, 2, 2);
    EXPECT_EQ(mgIntersect_Point, mg_RayIntPlane(&frame, &above, &slanted, &p));
    EXPECT_LT(gap(P(-1.5, 3, -3), p), 4e-15);
    p = {1, 3, 2};
    P const behind(9, 0, 2), centre(0, 0, 2);
    EXPECT_EQ(mgIntersect_Point, mg_RayIntDiskSeg(&frame, &p, &y, 2.0, 0.0, 1.0, &p));
    EXPECT_EQ(mgIntersect_TwoPoints, mg_RayIntSphere(&behind, &x, &centre, 1.0));
    EXPECT_EQ(mgIntersect_TwoPoints, mg_RayIntCylSeg({behind, x}, P(), z, 4, 1, &p));
    EXPECT_EQ(mgIntersect_TwoPoints, mg_RayIntConeSeg({behind, x}, P(), z, 0.5, 0, 4, &p));
}

TEST(Rays, RoundShapesAreTestedAsCubes) {
    auto const check = [](bool hits, double px, double py, Caller = {}) {
        mgXform_c const frame;
        P const start(px, py, -5), centre;
        P out;
        EXPECT_EQ(hits ? mgIntersect_TwoPoints : mgIntersect_None,
                  mg_RayIntSphere(&start, &z, &centre, 1.0));
        EXPECT_EQ(hits ? mgIntersect_Point : mgIntersect_None,
                  mg_RayIntDiskSeg(&frame, &start, &z, 1.0, 1.0, 2.0, &out));
        EXPECT_BITS_EQ(P(px, py, 0), out);
        EXPECT_EQ(hits ? mgIntersect_Coincident : mgIntersect_Parallel,
                  mg_RayIntCylSeg({start, z}, centre, -z, 1.0, 1.0, &out));
    };
    check(true, std::nextafter(1.0 + 1e-8, 0), 0.9), check(false, 1.0 + 1e-8, 0);
}

void CheckCylinder(mgIntersectionType_e type, P const &point, mgLine_c const &ray,
                   P const &base = {}, Caller = {}) {
    P out = untouched;
    EXPECT_EQ(type, mg_RayIntCylSeg(ray, base, z, 4.0, 1.0, &out));
    EXPECT_BITS_EQ(point, out);
}

TEST(Rays, ACylinderIsHitWhereTheRayPassesItsAxis) {
    CheckCylinder(mgIntersect_TwoPoints, {0, 0.9, 2}, {{-9, 0.9, 2}, x});
    CheckCylinder(mgIntersect_TwoPoints, {7, -3, 7}, {{1, -3, 7}, x}, {7, -3, 5});
    CheckCylinder(mgIntersect_None, {7, -3, 10}, {{1, -3, 10}, x}, {7, -3, 5});
    CheckCylinder(mgIntersect_None, {0, 0.9, 4}, {{-9, 0.9, 4}, x}); // a distance from the base
    CheckCylinder(mgIntersect_TwoPoints, {0, 0, 4 + 1e-8}, {{-9, 0, 4 + 1e-8}, x});
    CheckCylinder(mgIntersect_TwoPoints, {0, 0, -1e-8}, {{-9, 0, -1e-8}, x});
    CheckCylinder(mgIntersect_None, {0, 0, -2e-8}, {{-9, 0, -2e-8}, x});
    CheckCylinder(mgIntersect_Coincident, {0.5, 0.5, 9}, {{0.5, 0.5, 9}, z});
}

/// The cone along z of slope 1, from 1 to 4 from its apex, to which all points are relative.
void CheckCone(mgIntersectionType_e type, P const &point, mgLine_c const &ray,
               double halfAngle = std::atan(1.0), Caller = {}) {
    P out = untouched;
    V const apex(5, -7, 2);
    EXPECT_EQ(type, mg_RayIntConeSeg({ray.rootPoint() + apex, ray.direction()}, P(apex), z,
                                     halfAngle, 1.0, 4.0, &out));
    EXPECT_LT(gap(sameBits(point, untouched) ? point : point + apex, out), 1e-14);
}

TEST(Rays, AConeReportsAxisCapAndSideApart) {
    CheckCone(mgIntersect_Coincident, {0, 0, -3}, {{0, 0, -3}, z});
    CheckCone(mgIntersect_Parallel, untouched, {{1, 0, -3}, z}); // through the cap
    CheckCone(mgIntersect_Point, {0, 3.9, 4}, {{9, 3.9, 10}, U(-9, 0, -6)});
    CheckCone(mgIntersect_Point, {-3.9, 3.9, 4}, {{9, 3.9, 10}, U(-12.9, 0, -6)});
    CheckCone(mgIntersect_TwoPoints, {-2, 0, 2}, {{-9, 0, 2}, x}); // the first along the ray
    CheckCone(mgIntersect_TwoPoints, {-2, 0, 2}, {{-9, 0, 2}, x}, -std::atan(1.0));
    // The first hit along the ray is too far from the apex.
    CheckCone(mgIntersect_TwoPoints, {1, 0, 1}, {{-3, 0, 3}, U(4, 0, -2)});
    CheckCone(mgIntersect_None, untouched, {{-9, 0, 0.5}, x});       // too near
    CheckCone(mgIntersect_None, untouched, {{-9, 0, 3.9}, x});       // a slant of 5.5
    CheckCone(mgIntersect_None, untouched, {{-9, 0.5, 2}, x});       // past the axial plane
    CheckCone(mgIntersect_None, untouched, {{2, 0, 1}, U(1, 0, 1)}); // parallel to it
}

} // namespace
