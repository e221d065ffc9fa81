// SPDX-License-Identifier: MIT
// Interference of boxes: which contacts clash, with what tolerance, where placed, and containment.

#include "bounds/boxes.h"

namespace {

using support::above;
using support::below;
using support::boxOf;
using support::cube;
using P = mgPoint_c;
using V = mgVector_c;

mgBBox_c const unit = cube(0.0, 1.0);

void checkClash(int expected, mgBBox_c const &a, mgBBox_c const &b, double tol = 0.0) {
    EXPECT_EQ(expected, a.clash(&b, tol)) << tol;
    EXPECT_EQ(expected, b.clash(&a, tol)) << tol;
}

TEST(Clash, FacesAndEdgesTouchSingleCornersDoNot) {
    mgBBox_c const point = cube(1.0, 1.0);
    checkClash(1, unit, unit);
    checkClash(1, unit, cube(0.25, 0.5));
    checkClash(1, unit, mgBBox_c(P(1.0, 0.0, 0.0), P(2.0, 1.0, 1.0)));
    checkClash(1, unit, mgBBox_c(P(1.0, 1.0, 0.0), P(2.0, 2.0, 1.0)));
    checkClash(0, unit, cube(1.0, 2.0));
    checkClash(0, unit, mgBBox_c(P(1.0, 1.0, -1.0), P(2.0, 2.0, 0.0)));
    checkClash(0, unit, cube(1.0 - 5e-09, 2.0)); // the same corner within the tolerance of points
    checkClash(1, unit, cube(1.0 - 2e-08, 2.0));
    checkClash(0, unit, point);
    checkClash(0, point, point);
    checkClash(1, unit, mgBBox_c(P(1.0, 0.5, 0.5), 0.0)); // a corner of its own, not of the unit
    checkClash(0, unit, mgBBox_c());
    checkClash(0, mgBBox_c(), mgBBox_c());
}

TEST(Clash, TheToleranceBridgesGapsBetweenCorners) {
    for (int i = 0; i < 3; ++i) {
        P low, high(2.0, 2.0, 2.0);
        low[i] = 0.125;
        mgBBox_c const right(low, high);
        low[i] = -2.0;
        high[i] = 0.0;
        mgBBox_c const left(low, high);
        checkClash(1, left, right, 0.125);
        checkClash(0, left, right, below(0.125));
        checkClash(0, left, right);
        checkClash(0, left, left, -2.5); // taken as it is: the overlap must be that wide
    }
    // Spheres apart by more than the tolerance keep overlapping corners from clashing.
    mgBBox_c const a = boxOf(P(), 1.0, P(), P(2.0, 1.0, 1.0));
    auto const at = [](double x) { return boxOf(P(x, 0.0, 0.0), 2.0, P(), P(4.0, 1.0, 1.0)); };
    checkClash(1, a, at(3.0));
    checkClash(0, a, at(above(3.0)));
    checkClash(1, a, at(3.5), 0.5);
    checkClash(0, a, at(above(3.5)), 0.5);
}

TEST(Clash, SphereToleranceIsAFactorOnTheSquaredRadius) {
    // The overlap begins at x = d, on the sphere of radius 1 about the origin. With tolerance 3 the
    // squared radius is 4: the reach is 2, where a distance would give 4.
    auto const check = [](int expected, double d, double tol) {
        mgBBox_c const a = boxOf(P(), 1.0, P(-1.0, -1.0, -1.0), P(3.0, 1.0, 1.0));
        checkClash(expected, a, boxOf(P(d, 0.0, 0.0), 1.0, P(d, -1.0, -1.0), P(3.0, 1.0, 1.0)),
                   tol);
    };
    check(1, 1.0, 0.0);
    check(0, above(1.0), 0.0);
    check(1, 2.0, 3.0);
    check(0, above(2.0), 3.0);
    // Across a gap the offset goes to the middle of the gap: here 2 of 2.
    auto const across = [](double radius) {
        mgBBox_c const a = boxOf(P(), radius, P(-1.0, 0.0, 0.0), P(1.0, 1.0, 1.0));
        return boxOf(P(3.0, 0.0, 0.0), 2.0, P(3.0, 0.0, 0.0), P(4.0, 1.0, 1.0)).clash(&a, 3.0);
    };
    EXPECT_EQ(1, across(1.0));
    EXPECT_EQ(0, across(below(1.0)));
}

int placedClash(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b, mgXform_c const &xb) {
    int const clash = mgBBox_c::clash(a, xa, b, xb);
    EXPECT_EQ(clash, mgBBox_c::clash(b, xb, a, xa));
    return clash;
}

TEST(Clash, PlacedBoxesMustMeetInBothFrames) {
    // A beam on the diagonal beside a block: in the block's frame its enclosure meets the block.
    mgBBox_c const block = cube(-1.0, 1.0), beam(P(-2.0, -0.1, -0.1), P(2.0, 0.1, 0.1));
    mgXform_c const diagonal = mg_RotateXform(0.78539816339745, V(0.0, 0.0, 1.0), 0.0);
    for (double const away : {1.8, 1.0}) {
        mgXform_c const x = diagonal * mg_TranslateXform(V(away, -away, 0.0));
        checkClash(1, block, mgBBox_c(beam) *= x, 1e-08);
        EXPECT_EQ(away == 1.0, placedClash(block, mgXform_c(), beam, x));
    }
}

TEST(Clash, PlacedBoxesThatShareAPointOfTheirInsideClash) {
    support::Random random;
    for (int k = 0; k < 1000; ++k) {
        mgBBox_c const a(P(), random.triple<P>(0.5, 5.0)), b(P(), random.triple<P>(0.5, 5.0));
        auto const inside = [&](mgBBox_c const &box) {
            return interpolate(random.uniform(0.1, 0.9), box.low(), box.high());
        };
        mgXform_c xa = support::placement(random), xb = support::placement(random);
        xa = mg_ScaleXform(xa, 1.0);
        xb = mg_ScaleXform(xb, 1.0);
        xb *= mg_TranslateXform(inside(a) * xa - inside(b) * xb);
        ASSERT_EQ(1, placedClash(a, xa, b, xb)) << k;
    }
}

TEST(Clash, PlacedSpheresAreComparedUnscaled) {
    mgBBox_c const ball(P(), 1.0), twice(P(), 2.0);
    auto const aside = [](double x) { return mg_TranslateXform(V(x, 0.0, 0.0)); };
    // Scaled by 2, the second sphere reaches well into the first, but its radius counts as 1.
    EXPECT_EQ(0, mgBBox_c::clash(ball, mgXform_c(), ball, mg_ScaleXform(aside(2.5), 2.0)));
    EXPECT_EQ(1, mgBBox_c::clash(ball, mgXform_c(), twice, aside(2.5)));
    // Placed spheres must overlap by the tolerance; unplaced, touching is enough.
    EXPECT_EQ(1, placedClash(ball, mgXform_c(), ball, aside(2.0 - 1e-08 - 1e-15)));
    EXPECT_EQ(0, placedClash(ball, mgXform_c(), ball, aside(2.0 - 1e-08 + 1e-15)));
    checkClash(1, ball, mgBBox_c(P(2.0, 0.0, 0.0), 1.0));
    EXPECT_EQ(0, placedClash(ball, mgXform_c(), mgBBox_c(), mgXform_c()));
}

TEST(Clash, ContainmentToleranceIsRelative) {
    for (double const size : {0.01, 1.0, 1000.0}) {
        mgBBox_c const outer = cube(-size, size), tight = cube(-1.0625 * size, 1.0625 * size);
        EXPECT_EQ(0, outer.containsBBox(&outer, 0.0)); // strictly inside
        EXPECT_EQ(1, outer.containsBBox(&outer, 0.01));
        EXPECT_EQ(1, outer.containsBBox(&tight, 0.0625));
        EXPECT_EQ(0, outer.containsBBox(&tight, 0.05));
    }
    mgBBox_c const inner = cube(-1.0, 1.0), outer = cube(-2.0, 2.0), unset;
    EXPECT_EQ(1, outer.containsBBox(&inner, 0.0));
    for (int k = 3; k < 9; ++k) { // no side may touch
        double const side = k < 6 ? 1.0 : -1.0;
        EXPECT_EQ(0, support::withDouble(outer, k, side).containsBBox(&inner, 0.0));
        EXPECT_EQ(1, support::withDouble(outer, k, side * above(1.0)).containsBBox(&inner, 0.0));
    }
    // Spheres apart by more than the tolerance keep it from looking.
    auto const strayed = [](double x) { return boxOf(P(x, 0.0, 0.0), 2.0, P(), P()); };
    mgBBox_c const ball = boxOf(P(), 2.5, P(-1.0, -1.0, -1.0), P(1.0, 1.0, 1.0));
    mgBBox_c const at = strayed(5.0), beyond = strayed(above(5.0));
    EXPECT_EQ(1, ball.containsBBox(&at, 0.5));
    EXPECT_EQ(0, ball.containsBBox(&beyond, 0.5));
    EXPECT_EQ(0, ball.containsBBox(nullptr, 0.0) + ball.containsBBox(&unset, 0.0));
    EXPECT_EQ(0, unset.containsBBox(&inner, 0.0));
}

TEST(Clash, PointsOnTheBoundAreContained) {
    mgBBox_c const box = cube(-1.0, 1.0);
    for (int i = 0; i < 3; ++i) {
        for (double const side : {1.0, -1.0}) {
            auto const check = [&](int expected, double at, double tol, int ignored = -1) {
                P p;
                p[i] = side * at;
                EXPECT_EQ(expected, ignored < 0 ? box.containsPoint(p, tol)
                                                : box.containsPoint(p, tol, ignored));
            };
            check(1, 1.0, 0.0);
            check(0, above(1.0), 0.0);
            check(1, 1.25, 0.25);
            check(0, 1.25, below(0.25));
            check(0, 1.0, -0.5);
            check(1, 9.0, 0.0, i);
            check(0, 9.0, 0.0, (i + 1) % 3);
        }
    }
    EXPECT_EQ(1, mgBBox_c().containsPoint(P(), 1.0)); // the set state is not looked at
    EXPECT_EQ(0, mgBBox_c().containsPoint(P(), below(1.0)));
}

} // namespace
