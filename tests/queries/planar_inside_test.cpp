// SPDX-License-Identifier: MIT
// Figures against boxes and points on segments. Against samples: fuzz/fuzz_planar.cpp.

#include "planar.h"

namespace {

constexpr auto Outside = mgInsideBox_Outside, Touching = mgInsideBox_Touching,
               Partly = mgInsideBox_Partly, Inside = mgInsideBox_Inside;

TEST(InsideBox, APointIsTestedByCoordinates) {
    P const low(0.1, 0.2, kNaN), high(3.1, 5.7, 0);
    auto const check = [&](mgInsideBox_e expected, double x, double y, double tol, Caller = {}) {
        EXPECT_EQ(expected, mg_Point2DInsideBox({x, y, kNaN}, high, low, tol));
        EXPECT_EQ(expected, mg_Point2DInsideBox({y, x, 0}, {0.2, 3.1, 0}, {5.7, 0.1, 0}, tol));
        P const p(x, y, 0);
        EXPECT_EQ(expected, mg_Polyline2DInsideBox(1, &p, low, high, tol));
        EXPECT_EQ(expected, mg_Line2DInsideBox(p, p, low, high, tol));
        EXPECT_EQ(expected, mg_Circle2DInsideBox(p, 0.0, low, high, tol));
    };
    double const tol = 0.3;
    check(Touching, 3.1 + tol, 5.7 + tol, tol); // the outer box has corners
    check(Outside, above(3.1 + tol), 5.7, tol), check(Outside, 3.1, above(5.7 + tol), tol);
    check(Touching, 0.1 - tol, 1, tol), check(Outside, below(0.1 - tol), 1, tol);
    check(Touching, 3.1 - tol, 1, tol), check(Touching, above(0.1 + tol), 0.2 + tol, tol);
    check(Inside, below(3.1 - tol), above(0.2 + tol), tol);
    check(Touching, 3.1 + 9.9e-9, 1, -1), check(Outside, 3.1 + 1.01e-8, 1, kNaN);
    check(Touching, 1, 1, 1.6); // no inner box
    for (double bad : {kNaN, kInfinity, -kInfinity}) {
        check(Outside, bad, 1, tol);
        EXPECT_EQ(Outside, mg_Point2DInsideBox({1, 1, 0}, {bad, 0, 0}, high, tol));
        EXPECT_EQ(Outside, mg_Polyline2DInsideBox(1, &high, high, {0, bad, 0}, tol));
        EXPECT_EQ(Outside, mg_Circle2DInsideBox({1, 1, 0}, 1, {0, bad, 0}, high, tol));
    }
}

TEST(InsideBox, ACircleTouchesOnEitherSideWithinTheTolerance) {
    P const low(-4, -4, 0), high(4, 4, 0);
    auto const check = [&](mgInsideBox_e expected, double x, double y, double radius, double tol,
                           Caller = {}) {
        for (double k : kScales)
            for (double sign : {1.0, -1.0}) {
                P const centre(k * sign * y, k * x, 0);
                EXPECT_EQ(expected,
                          mg_Circle2DInsideBox(centre, k * radius, k * low, k * high, k * tol));
            }
    };
    check(Inside, 0, 0, 4, 0), check(Partly, 0, 0, above(4), 0);
    check(Inside, 0, 0, 4.5, 0.5), check(Partly, 0, 0, above(4.5), 0.5);
    check(Touching, 9, 0, 4.5, 0.5); // from outside
    check(Outside, 9, 0, below(4.5), 0.5), check(Touching, 9, 0, 5.5, 0.5);
    check(Partly, 9, 0, above(5.5), 0.5);
    check(Touching, 7, 8, 5, 0); // at the corner
    check(Outside, 7, 8, below(5), 0), check(Partly, 7, 8, above(5), 0);
    check(Touching, -1, 8, 13, 0); // around the box, through its far corner
    check(Outside, -1, 8, above(13), 0), check(Outside, 0, 0, -1, 0), check(Outside, 0, 0, kNaN, 0);
    EXPECT_EQ(Outside, mg_Arc2DInsideBox({}, 1, 1, 0.5, low, high, 0));
    EXPECT_EQ(Outside, mg_Arc2DInsideBox({}, 1, 0, above(1e6), low, high, 0));
    EXPECT_EQ(Outside, mg_Arc2DInsideBox({}, 1, below(-1e6), 0, low, high, 0));
    EXPECT_EQ(Inside, mg_Arc2DInsideBox({}, 1, 1, 1, low, high, 0)); // a point
    EXPECT_EQ(Touching, mg_Arc2DInsideBox({}, 4, 0, 0, low, high, 0));
}

TEST(InsideBox, APolylineHasNoClosingSegmentAndNoBadPoint) {
    P const low(0, 0, 0), high(4, 4, 0),
        pts[] = {{-1, 2, 0}, {-1, 9, 0}, {5, 9, 0}, {4, 4, 0}, {1, kNaN, 0}};
    for (int const n : {0, 3, 4, 5})
        EXPECT_EQ(n == 4 ? Touching : Outside, mg_Polyline2DInsideBox(n, pts, low, high, 0));
}

TEST(PointOnLine, EndsComeBeforeTheMiddleAndAllBoundsAreInclusive) {
    constexpr auto Off = mgPointOnLine_Off, Between = mgPointOnLine_Between,
                   AtA = mgPointOnLine_AtA, AtB = mgPointOnLine_AtB;
    auto const check = [](mgPointOnLine_e expected, double x, double y, double tol,
                          double length = 8, Caller = {}) {
        auto const swapped = expected == AtA ? AtB : expected == AtB ? AtA : expected;
        for (double k : kScales) {
            P const a(k, k, 5), b(k, k + k * length, 6), p(k - k * y, k + k * x, kNaN);
            EXPECT_EQ(expected, mg_PointOnLine2D(p, a, b, k * tol));
            EXPECT_EQ(swapped, mg_PointOnLine2D(p, b, a, k * tol));
        }
    };
    double const more = 0.5 + 0x1p-50;
    check(AtA, -0.5, 0, 0.5), check(Off, -more, 0, 0.5);
    check(AtA, 0.5, 0, 0.5), check(Between, more, 0, 0.5);
    check(Between, 5, 0.5, 0.5), check(Off, 5, more, 0.5);
    check(Between, 5, -0.5, 0.5), check(Off, 5, -more, 0.5);
    check(AtB, 8.25, 0.25, 0.5), check(Off, 8.375, 0.375, 0.5); // by distance, not by coordinate
    check(AtA, 0.25, 0, 2, 1), check(AtB, 0.75, 0, 2, 1); // between the ends of a short segment
    check(AtA, 0, 0, 0), check(Between, 5, 0, 0), check(Off, kNaN, 0, 0.5);
    EXPECT_EQ(AtA, mg_PointOnLine2D({1, 0, 0}, {}, {2, 0, 0}, 1)); // a tie
    EXPECT_EQ(Between, mg_PointOnLine2D({5, 9e-9, 0}, {}, {8, 0, 0}, -1));
    EXPECT_EQ(Off, mg_PointOnLine2D({5, 1.1e-8, 0}, {}, {8, 0, 0}, kNaN));
    EXPECT_EQ(Off, mg_PointOnLine2D({1, 0, 0}, {}, {1e-200, 0, 0}, 0));
    EXPECT_EQ(Between, mg_PointOnLine2D({5e-146, 1, 0}, {0, 1, 0}, {1.01e-145, 1, 0}, 0));
}

} // namespace
