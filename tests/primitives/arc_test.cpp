// SPDX-License-Identifier: MIT
// Arcs and circles.

#include <vexmath/arc.h>
#include <vexmath/circle.h>
#include <vexmath/mg_transform.h>

#include "support/numbers.h"

#include <gtest/gtest.h>

namespace {

using support::Random;
using vexmath::kInvPi;
using vexmath::kPi;
using vexmath::kTwoPi;

mgUnitVector_c const up(0.0, 0.0, 1.0);

mgArc_c ofAngles(double start, double end) { return {up, {1.0, 2.0, 3.0}, 1.0, start, end}; }

/// The end point, as seen from the centre.
mgVector_c endOf(mgArc_c const &arc) {
    mgPoint_c centre, end;
    arc.getCenter(centre);
    arc.getEndPoint(end);
    return end - centre;
}

void CheckOgl(double startDeg, double sweepDeg, mgArc_c const &arc) {
    EXPECT_NEAR(startDeg, arc.getOglStartAngle(), 1e-11);
    EXPECT_NEAR(sweepDeg, arc.getOglSweepAngle(), 1e-11);
}

TEST(Arc, FromPointsSweepsCounterClockwiseAboutTheNormal) {
    mgPoint_c const o, x(2.0, 0.0, 0.0), y(0.0, 5.0, 0.0);
    mgArc_c const quarter(up, o, x, y);
    EXPECT_EQ(2.0, quarter.getRadius());
    EXPECT_EQ(0.0, quarter.getStartAngleInRadians());
    EXPECT_NEAR(kPi / 2.0, quarter.getEndAngleInRadians(), 1e-13);
    CheckOgl(0.0, 90.0, quarter); // from +y clockwise to +x
    CheckOgl(180.0, 270.0, mgArc_c(-up, o, x, y));

    mgArc_c const full(up, o, x, mgPoint_c(7.0, 0.0, 0.0));
    EXPECT_EQ(6.283185307179586, full.getEndAngleInRadians());
    CheckOgl(0.0, 360.0, full);
    EXPECT_EQ(1, full.isValid());
}

TEST(Arc, WithoutRadiusOrSweepItIsNotValid) {
    mgPoint_c const o;
    auto const ofRadius = [&](double r) { return mgArc_c(up, o, {r, 0.0, 0.0}, {0.0, 1.0, 0.0}); };
    EXPECT_EQ(0, mgArc_c().isValid());
    EXPECT_EQ(1, ofRadius(1e-8).isValid());
    EXPECT_EQ(0, ofRadius(std::nextafter(1e-8, 0.0)).isValid());
    EXPECT_EQ(0.0, ofRadius(std::nextafter(1e-8, 0.0)).getEndAngleInRadians());
    EXPECT_EQ(0.0, ofRadius(1.0).iGetAngle({0.0, -9e-9, 0.0}));
    EXPECT_EQ(1, ofAngles(1e-11, 0.0).isValid());
    EXPECT_EQ(0, ofAngles(std::nextafter(1e-11, 0.0), 0.0).isValid());
    CheckOgl(0.0, 360.0, ofAngles(1.0, 1.0));
}

TEST(Arc, AngleJustBeyondAFullTurnIsKept) {
    double const beyond = kTwoPi + 9e-12;
    EXPECT_EQ(beyond, ofAngles(0.0, beyond).getEndAngleInRadians());
    EXPECT_BITS_EQ(mgVector_c(1.0, beyond - kTwoPi, 0.0), endOf(mgArc_c(up, {}, 1.0, 0.0, beyond)));
    EXPECT_BITS_EQ((beyond - kTwoPi) * kInvPi * 180.0,
                   ofAngles(beyond, 0).getStartAngleInDegrees());
    EXPECT_BITS_EQ(kTwoPi * kInvPi * 180.0, ofAngles(0, kTwoPi).getEndAngleInDegrees());

    // Half a turn is not mirrored up to the bound, which shows in the digits that kTwoPi lacks.
    double const bound = 3.1415926535998002, after = std::nextafter(bound, 4.0);
    EXPECT_BITS_EQ(std::sin(bound), endOf(mgArc_c(up, {}, 1.0, 0.0, bound)).y());
    EXPECT_BITS_EQ(-std::sin(kTwoPi - after), endOf(mgArc_c(up, {}, 1.0, 0.0, after)).y());
}

TEST(Arc, TheAngleOfUpIsAFullTurn) {
    EXPECT_EQ(kTwoPi, mgArc_c::convertToOglAngle(1.5707963267949));
    EXPECT_NEAR(0.0, mgArc_c::convertToOglAngle(std::acos(0.0)), 1e-13);
    EXPECT_BITS_EQ((7.0 - kTwoPi) * kInvPi * 180.0, ofAngles(7.0, 0).getStartAngleInDegrees());
}

TEST(Arc, EndPointsLieOnTheCircleAtTheirAngles) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        double const angle = random.uniform(-30.0, 1e4);
        // Each of the turns taken off lacks 1.4e-14.
        ASSERT_LT(
            (endOf(ofAngles(0, angle)) - mgVector_c(std::cos(angle), std::sin(angle), 0)).len(),
            1e-10);
    }
}

TEST(Arc, HugeAnglesEndAndInfiniteOnesGiveNaN) {
    for (double const angle : support::hostileValues) {
        mgArc_c const arc = ofAngles(0.0, angle);
        double const ogl = mgArc_c::convertToOglAngle(angle);
        EXPECT_EQ(std::isfinite(angle), ogl >= 0.0 && ogl <= kTwoPi) << angle;
        EXPECT_EQ(std::isfinite(angle), endOf(arc).len() < 1.1) << angle;
        EXPECT_EQ(std::isfinite(angle), arc.getEndAngleInDegrees() < 360.1) << angle;
    }
}

TEST(Circle, IsMovedAsAWhole) {
    mgXform_c const x = mg_RotateXform(kPi / 2.0, {1.0, 0.0, 0.0}, 1e-9) * mg_ScaleXform(3.0);
    mgCircle_c circle({1.0, 2.0, 0.0}, 2.0, up);
    circle *= x;
    EXPECT_BITS_EQ(mgPoint_c(1.0, 2.0, 0.0) * x, circle.center());
    EXPECT_EQ(6.0, circle.radius());
    EXPECT_BITS_EQ(up * x, circle.normal());
}

void CheckEquivalent(int expected, double x, double radius, mgUnitVector_c const &normal) {
    mgCircle_c const circle({}, 1.0, up);
    EXPECT_EQ(expected, circle.isEquivalent(mgCircle_c({x, 0.0, 0.0}, radius, normal)));
}

TEST(Circle, EquivalenceLooksAtCentreRadiusAndSense) {
    CheckEquivalent(1, 0.9e-8, 1.0 + 0.9e-8, mgUnitVector_c(0.9e-12, 0.0, 1.0));
    CheckEquivalent(0, 1.1e-8, 1.0, up);
    CheckEquivalent(0, 0.0, 1.0 + 1.1e-8, up);
    CheckEquivalent(0, 0.0, 1.0, mgUnitVector_c(1.1e-12, 0.0, 1.0));
    CheckEquivalent(0, 0.0, 1.0, -up);
}

} // namespace
