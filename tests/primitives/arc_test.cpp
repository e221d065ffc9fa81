// SPDX-License-Identifier: MIT
// Arcs and circles.

#include <vexmath/arc.h>
#include <vexmath/circle.h>

#include "support/geometry.h"

#include <gtest/gtest.h>

namespace {

using vexmath::kInvPi;
using vexmath::kTwoPi;

mgUnitVector_c const up(0.0, 0.0, 1.0);

/// About the origin, of radius 1.
mgArc_c ofAngles(double start, double end) { return {up, {}, 1.0, start, end}; }

mgVector_c endOf(mgArc_c const &arc) {
    mgPoint_c end;
    arc.getEndPoint(end);
    return end;
}

void CheckOgl(double startDeg, double sweepDeg, mgArc_c const &arc) {
    EXPECT_NEAR(startDeg, arc.getOglStartAngle(), 1e-11);
    EXPECT_NEAR(sweepDeg, arc.getOglSweepAngle(), 1e-11);
}

TEST(Arc, FromPointsSweepsCounterClockwiseAboutTheNormal) {
    mgPoint_c const o, x(2.0, 0.0, 0.0), y(0.0, 5.0, 0.0);
    mgArc_c const quarter(up, o, x, y), full(up, o, x, {7.0, 0.0, 0.0});
    EXPECT_EQ(2.0, quarter.getRadius());
    EXPECT_NEAR(std::acos(0.0), quarter.getEndAngleInRadians(), 1e-15);
    EXPECT_EQ(6.283185307179586, full.getEndAngleInRadians());
    CheckOgl(0.0, 90.0, quarter); // from +y clockwise to +x
    CheckOgl(180.0, 270.0, mgArc_c(-up, o, x, y));
    CheckOgl(0.0, 360.0, full);
    CheckOgl(0.0, 360.0, ofAngles(1.0, 1.0));
}

TEST(Arc, WithoutRadiusOrSweepItIsNotValid) {
    auto const ofRadius = [](double r) { return mgArc_c(up, {}, {r, 0.0, 0.0}, {0.0, 1.0, 0.0}); };
    mgArc_c const point = ofRadius(support::below(1e-8));
    EXPECT_EQ(0, point.isValid());
    EXPECT_EQ(0.0, point.getEndAngleInRadians());
    EXPECT_EQ(1, ofRadius(1e-8).isValid());
    EXPECT_EQ(0.0, ofRadius(1.0).iGetAngle({0.0, -9e-9, 0.0}));
    EXPECT_EQ(1, ofAngles(1e-11, 0.0).isValid());
    EXPECT_EQ(0, ofAngles(support::below(1e-11), 0.0).isValid());
}

TEST(Arc, AngleJustBeyondAFullTurnIsKept) {
    double const beyond = kTwoPi + 9e-12, more = beyond - kTwoPi;
    EXPECT_EQ(beyond, ofAngles(0.0, beyond).getEndAngleInRadians());
    EXPECT_BITS_EQ(mgVector_c(1.0, more, 0.0), endOf(ofAngles(0.0, beyond)));
    EXPECT_BITS_EQ(more * kInvPi * 180.0, ofAngles(beyond, 0.0).getStartAngleInDegrees());
    EXPECT_BITS_EQ(kTwoPi * kInvPi * 180.0, ofAngles(0.0, kTwoPi).getEndAngleInDegrees());

    // Half a turn is not mirrored up to the bound, which shows in the digits that kTwoPi lacks.
    double const bound = 3.1415926535998002, after = support::above(bound);
    EXPECT_BITS_EQ(std::sin(bound), endOf(ofAngles(0.0, bound)).y());
    EXPECT_BITS_EQ(-std::sin(kTwoPi - after), endOf(ofAngles(0.0, after)).y());
}

TEST(Arc, TheAngleOfUpIsAFullTurn) {
    EXPECT_EQ(kTwoPi, mgArc_c::convertToOglAngle(1.5707963267949));
    EXPECT_NEAR(0.0, mgArc_c::convertToOglAngle(std::acos(0.0)), 1e-13);
}

TEST(Arc, AnyAngleEndsWithinATurn) {
    for (double angle = -20.0; angle < 1e4; angle += 0.37) {
        // Each of the turns taken off lacks 1.4e-14.
        mgVector_c const expected(std::cos(angle), std::sin(angle), 0.0);
        ASSERT_LT((endOf(ofAngles(0.0, angle)) - expected).len(), 1e-10);
    }
    for (double const angle : support::hostileValues) {
        double const ogl = mgArc_c::convertToOglAngle(angle);
        EXPECT_EQ(std::isfinite(angle), ogl >= 0.0 && ogl <= kTwoPi) << angle;
        EXPECT_EQ(std::isfinite(angle), endOf(ofAngles(0.0, angle)).len() < 1.1) << angle;
        EXPECT_EQ(std::isfinite(angle), ofAngles(angle, 0.0).getStartAngleInDegrees() < 361.0);
    }
}

TEST(Circle, IsMovedAsAWholeAndComparedInSense) {
    mgXform_c const x = mg_ScaleXform(mg_RotateXform(2.0, {1.0, 0.0, 0.0}, 0.0), 3.0);
    mgCircle_c circle({1.0, 2.0, 0.0}, 2.0, up);
    circle *= x;
    mgPoint_c const centre = mgPoint_c(1.0, 2.0, 0.0) * x;
    mgUnitVector_c const normal = up * x;
    mgVector_c const off(1.1e-8, 0.0, 0.0);
    EXPECT_EQ(1, circle.isEquivalent(mgCircle_c(centre, 6.0 + 0.9e-8, normal)));
    EXPECT_EQ(0, circle.isEquivalent(mgCircle_c(centre, 6.0 + 1.1e-8, normal)));
    EXPECT_EQ(0, circle.isEquivalent(mgCircle_c(centre + off, 6.0, normal)));
    EXPECT_EQ(0, circle.isEquivalent(mgCircle_c(centre, 6.0, -normal)));
}

} // namespace
