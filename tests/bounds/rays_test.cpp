// SPDX-License-Identifier: MIT
// Boxes against lines and rays, their range along a line, and the planar extent.

#include "bounds/boxes.h"

namespace {

mgBBox_c const box(P(), P(1, 2, 3));
U const xAxis(1, 0, 0), none, axes[] = {xAxis, {0, 1, 0}, {0, 0, 1}};

mgBBox_c const unset = boxOf(P(), -1, P(), P(1, 2, 3)); // by its radius alone

TEST(SphereHit, SphereToleranceIsAddedToTheSquaredRadius) {
    mgBBox_c const ball(P(), 3);
    P const p(-100, 5, 0); // the line passes at 5
    EXPECT_EQ(1, ball.sphereHitByRay2(p, xAxis, 16 - 1.9e-08));
    EXPECT_EQ(0, ball.sphereHitByRay2(p, xAxis, 16 - 2.1e-08));
    EXPECT_EQ(1, ball.sphereHitByRay(P(100, 3, 0), xAxis));       // also behind p
    EXPECT_EQ(1, unset.sphereHitByRay(P(5, 1.414e-4, 0), xAxis)); // unset counts as (0, 0, 0)
    EXPECT_EQ(0, unset.sphereHitByRay(P(5, 1.415e-4, 0), xAxis));
    EXPECT_EQ(1, unset.sphereHitByRay(P(5, 1, 0), none)); // a zero direction always succeeds
}

TEST(RayHit, OnlyTheInsideOfFacesIsHit) {
    for (int k = 0; k < 6; ++k) { // along a face
        P p = box.center();
        p[k % 3] = k < 3 ? 0 : box.high()[k % 3];
        EXPECT_EQ(0, box.isRayHit(p, axes[(k + 1) % 3]) + box.isRayHit(p, axes[(k + 2) % 3])) << k;
    }
    EXPECT_EQ(0, box.isRayHit(P(-1, 1, 1), U(1, -1, 0))); // through an edge, from outside
    EXPECT_EQ(1, box.isRayHit(P(-0.5, 1, 1), U(1, -1, 0)));
    EXPECT_EQ(0, box.isRayHit(P(0.5, 1, 1), none));
    EXPECT_EQ(0, unset.isRayHit(P(0.5, 1, 1), xAxis));
    // Only the faces across z of a wide slab can be hit: at those across x the line is outside.
    mgBBox_c const slab(P(-1e9, -1, -1), P(1e9, 1, 1));
    for (double const z : {1e-08, -1e-08, below(1e-08)}) {
        U almost;
        almost.set(1, 0, z);
        EXPECT_EQ(slab.isRayHit(P(), almost), std::fabs(z) == 1e-08);
    }
}

/// Expects a hit at the point expected, or no hit when that is (9, 9, 9).
void CheckFirstHit(mgBBox_c const &b, P const &p, U const &dir, P const &expected = P(9, 9, 9),
                   Caller = {}) {
    P hit(9, 9, 9), same = p; // a second call writes to its input
    int const found = expected.x() != 9;
    EXPECT_EQ(b.getFirstRayHit(p, dir, &hit), found);
    EXPECT_BITS_EQ(expected, hit);
    EXPECT_EQ(b.getFirstRayHit(same, dir, &same), found);
    EXPECT_BITS_EQ(found ? expected : p, same);
}

TEST(FirstRayHit, TheRayBeginsAtItsPointAndFacesAreAToleranceWider) {
    CheckFirstHit(box, {0, 1, 1}, xAxis, {1, 1, 1}); // on a face, towards the inside
    CheckFirstHit(box, {1, 1, 1}, xAxis);            // towards the outside
    CheckFirstHit(box, {0.5, 1, 1}, none);
    CheckFirstHit(box, {-5, 2, 1}, xAxis, {0, 2, 1}); // along a face
    CheckFirstHit(box, {-5, -1e-08, 1}, xAxis, {0, -1e-08, 1});
    CheckFirstHit(box, {-5, below(-1e-08), 1}, xAxis);
    CheckFirstHit({P(0.9e32, -1, -1), P(2e32, 1, 1)}, P(), xAxis, {0.9e32, 0, 0});
    CheckFirstHit({P(1e32, -1, -1), P(2e32, 1, 1)}, P(), xAxis); // too far
    CheckFirstHit(unset, {-5, 1, 1}, xAxis, {0, 1, 1});
    CheckFirstHit(mgBBox_c(), {-5, 0, 0}, xAxis); // its corners contain no point
}

TEST(RayHit, ALineHitsBehindItsPointToo) {
    for (U const &dir : {xAxis, -xAxis}) EXPECT_EQ(1, box.isRayHit(P(9, 1, 1), dir));
}

TEST(LimitRay, TheRangeSpansTheCornersOfUnsetBoxesToo) {
    double tmin = 0, tmax = 0;
    unset.limitRay(P(7, -10, 5), U(0, 0.6, -0.8), &tmin, &tmax);
    EXPECT_DOUBLE_EQ(tmin, 6 + 1.6);
    EXPECT_DOUBLE_EQ(tmax, 7.2 + 4);
}

TEST(FindBBox, ThePlanarExtentIsTransformedAndGrown) {
    mgXform_c const turn = mg_RotateXform(1.5707963267949, V(0, 0, 1), 1e-9);
    mgXform_c const placed = turn * mg_TranslateXform(V(10, 0, 0));
    double const rows[][5] = {{0.5, 4.5, 1.5, 9.5, 4.5}, // growth and extent
                              {-1.5, 6.5, 3, 7.5, 3},    // too narrow in y: closed in the middle
                              {-100, 1, 1, -1, -1}};
    for (auto const &row : rows) {
        double extent[4];
        mg_FindBBox(P(4, 1, 9), P(2, 5, -9), placed, extent, row[0]);
        EXPECT_TRUE(std::equal(extent, extent + 4, row + 1)) << row[0];
    }
}

} // namespace
