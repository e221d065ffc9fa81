// SPDX-License-Identifier: MIT
// Arcs and circles.

#include "common/geometry.h"

namespace {

using vexmath::kTwoPi;

P const o;
U const right(1, 0, 0), up(0, 0, 1);

/// About the origin, of radius 1.
mgArc_c ofAngles(double start, double end) { return {up, o, 1.0, start, end}; }

V endOf(mgArc_c const &arc) {
    P end;
    arc.getEndPoint(end);
    return end;
}

TEST(Arc, FromPointsSweepsCounterClockwiseAboutTheNormal) {
    P const c(3, -2, 1), at = c + V(2, 0, 0);
    mgArc_c const full(up, c, at, c + V(7, 0, 0));
    EXPECT_EQ(2.0, full.getRadius());
    EXPECT_EQ(0.0, full.getStartAngleInRadians());
    EXPECT_EQ(6.283185307179586, full.getEndAngleInRadians());
    auto const check = [](double startDeg, double sweepDeg, mgArc_c const &arc, Caller = {}) {
        EXPECT_NEAR(startDeg, arc.getOglStartAngle(), 1e-11);
        EXPECT_NEAR(sweepDeg, arc.getOglSweepAngle(), 1e-11);
    };
    check(0, 90, {up, c, at, c + V(0, 5, 0)}); // from +y clockwise to +x
    check(180, 270, {-up, c, at, c + V(0, 5, 0)}), check(0, 360, full);
    check(45, 90, ofAngles(-kTwoPi / 8, kTwoPi / 8));
    check(0, 360, {up, c, at, c + V(9e-9, 0, 0)}); // an end at the centre
    check(0, 90, {{}, c, at, c - V(0, 5, 0)});     // without a normal, the smaller angle
    EXPECT_EQ(360.0, ofAngles(0, 1e-11).getOglSweepAngle());
    check(0, 360, ofAngles(1, 1 + 9e-12));
}

TEST(Arc, EndsAreComputedInThePlaneOfTheCentresZ) {
    U normal;
    normal.set(2, 0, 0);
    mgArc_c arc(normal, {1, 2, 3}, {1, 4, 3}, {1, 2, 5});
    P centre, start, end, computed;
    arc.getCenter(centre), arc.getStart(start), arc.getEnd(end);
    arc.getStartPoint(computed), arc.getNormal(normal);
    EXPECT_BITS_EQ(P(1, 2, 3), centre);
    EXPECT_BITS_EQ(P(1, 4, 3), start);
    EXPECT_BITS_EQ(P(1, 2, 5), end);
    EXPECT_BITS_EQ(P(3, 2, 3), computed);
    EXPECT_BITS_EQ(right, normal);
    arc.set2D(true);
    arc.setMatrix(mgMatrix_c() + mgMatrix_c());
    EXPECT_TRUE(arc.is2D());
    EXPECT_EQ(2.0, arc.matrix()(0, 0));
}

TEST(Arc, WithoutRadiusOrSweepItIsNotValid) {
    auto const ofRadius = [](double r) { return mgArc_c(up, o, {r, 0, 0}, {0, 1, 0}); };
    EXPECT_EQ(0, ofRadius(below(1e-8)).isValid());
    EXPECT_EQ(0.0, ofRadius(below(1e-8)).getEndAngleInRadians());
    EXPECT_EQ(1, ofRadius(1e-8).isValid());
    EXPECT_EQ(0.0, ofRadius(1.0).iGetAngle({0, -9e-9, 0}));
    EXPECT_EQ(0, ofAngles(below(1e-11), 0).isValid());
}

TEST(Arc, AngleJustBeyondAFullTurnIsKept) {
    double const beyond = kTwoPi + 9e-12, more = beyond - kTwoPi;
    EXPECT_BITS_EQ(V(1, more, 0), endOf(ofAngles(0, beyond)));
    EXPECT_BITS_EQ(more * vexmath::kInvPi * 180, ofAngles(beyond, 0).getStartAngleInDegrees());
    EXPECT_NEAR(360, ofAngles(0, kTwoPi).getEndAngleInDegrees(), 1e-11);
    EXPECT_NEAR(90, ofAngles(0, kTwoPi + 0.25 * kTwoPi).getEndAngleInDegrees(), 1e-11);
    // Angles up to the half-turn bound are not mirrored; the digits that kTwoPi lacks show it.
    // Volatile, since the compiler's sine is not always that of the C library.
    double const volatile bound = 3.1415926535998002, after = above(bound);
    EXPECT_BITS_EQ(std::sin(bound), endOf(ofAngles(0, bound)).y());
    EXPECT_BITS_EQ(-std::sin(kTwoPi - after), endOf(ofAngles(0, after)).y());
}

TEST(Arc, TheAngleOfUpIsAFullTurn) {
    EXPECT_EQ(kTwoPi, mgArc_c::convertToOglAngle(1.5707963267949));
    for (double const angle : hostileValues) {
        double const ogl = mgArc_c::convertToOglAngle(angle);
        EXPECT_EQ(std::isfinite(angle), ogl >= 0 && ogl <= kTwoPi) << angle;
        EXPECT_EQ(std::isfinite(angle), endOf(ofAngles(0, angle)).len() < 1.1) << angle;
    }
}

TEST(Circle, IsTransformedAsAWholeAndItsNormalsSenseCounts) {
    mgCircle_c circle({1, 2, 0}, 2.0, up);
    circle *= moved;
    EXPECT_BITS_EQ(P(2, 3, 7), circle.center());
    EXPECT_BITS_EQ(6.0 * right, circle.radius() * circle.normal());
    auto const check = [&](int same, double z, double radius, U const &normal, Caller = {}) {
        EXPECT_EQ(same, circle.isEquivalent({P(2, 3, z), radius, normal})) << radius;
    };
    check(1, 7 + 0.95e-8, 6 + 0.95e-8, right);
    check(0, 7, 6 + 1.05e-8, right), check(0, 7 + 1.05e-8, 6, right);
    check(1, 7, 6, U(1, 0, 0.95e-12)), check(0, 7, 6, U(1, 1.05e-12, 0)), check(0, 7, 6, -right);
}

} // namespace
