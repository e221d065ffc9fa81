// SPDX-License-Identifier: MIT
// Rotations: sense, snapping to quarter turns, and axis and angle read back from a matrix.

#include <vexmath/mg_matrix.h>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;

mgVector_c const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);

TEST(Rotation, TurnsCounterClockwiseAboutItsAxis) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        double const t = random.uniform(-10.0, 10.0), c = std::cos(t), s = std::sin(t);
        mgUnitVector_c const n = support::direction(random);
        mgMatrix_c const m = mg_RotationMatrix(t, random.uniform(0.1, 9.0) * n, 0.0);
        auto const v = random.triple<mgVector_c>(-1.0, 1.0);
        mgVector_c const expected = c * v + s * (n * v) + ((1.0 - c) * (n % v)) * n; // Rodrigues
        ASSERT_LT(support::gap(expected, v * m), 2e-15);
    }
}

/// The rows as stated: the lower triangle from the upper one, the sine term taken off twice.
TEST(Rotation, RowsAreBuiltInTheirOrder) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        double const angle = random.uniform(-4.0, 4.0), c = std::cos(angle), s = std::sin(angle);
        auto const axis = random.triple<mgVector_c>(-1.0, 1.0);
        mgUnitVector_c const a = mg_Normalise(axis);
        double const t = 1.0 - c, xs = a.x() * s, ys = a.y() * s, zs = a.z() * s;
        double const m01 = a.x() * a.y() * t + zs, m02 = a.x() * a.z() * t - ys;
        double const m12 = a.y() * a.z() * t + xs;
        mgMatrix_c const expected({a.x() * a.x() * t + c, m01, m02},
                                  {m01 - zs - zs, a.y() * a.y() * t + c, m12},
                                  {m02 + ys + ys, m12 - xs - xs, a.z() * a.z() * t + c});
        ASSERT_BITS_EQ(expected, mg_RotationMatrix(angle, axis, 0.0));
    }
}

TEST(Rotation, QuarterTurnsSnapStrictlyWithinTheTolerance) {
    auto const check = [](double turn, double cosine, double sine) {
        for (double const angle : {turn - 1e-3, turn + 1e-3}) {
            double const distance = std::fabs(angle - turn);
            mgMatrix_c const snapped = mg_RotationMatrix(angle, z, above(distance));
            EXPECT_BITS_EQ(mgVector_c(cosine, sine, 0.0), mgVector_c(&snapped[0])) << angle;
            EXPECT_BITS_EQ(mg_RotationMatrix(angle, z, 0.0), mg_RotationMatrix(angle, z, distance));
        }
    };
    check(1.5707963267949, 0.0, 1.0);
    check(3.1415926535898, -1.0, 0.0);
    check(4.7123889803847, 0.0, -1.0);
    EXPECT_EQ(1, mg_RotationMatrix(1e-3, z, above(1e-3)).isIdentity());
    EXPECT_EQ(0, mg_RotationMatrix(1e-3, z, 1e-3).isIdentity());
    EXPECT_EQ(1, mg_RotationMatrix(6.2831853071796 - 1e-3, z, 1.001e-3).isIdentity());
    EXPECT_EQ(1, mg_RotationMatrix(-1e-7, x, 1e-6).isIdentity());
    EXPECT_EQ(1, mg_RotationMatrix(1e-7 - 3.0 * 6.2831853071796, x, 1e-6).isIdentity());
    double const quarter[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1}, back[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    EXPECT_BITS_EQ(mgMatrix_c(quarter, 0), mg_RotationMatrix(1.5707963267949 + 1e-9, z, 1e-6));
    EXPECT_BITS_EQ(mgMatrix_c(back, 0), mg_RotationMatrix(-1.5707963267949, z, 1e-6));
}

TEST(Rotation, AnglesBelow1em12AreNone) {
    EXPECT_BITS_EQ(mgMatrix_c(), mg_RotationMatrix(below(1e-12), z, 0.0));
    EXPECT_EQ(1, mg_RotationMatrix(-below(1e-12), z, 0.0).isIdentity());
    EXPECT_EQ(1e-12, mg_RotationMatrix(1e-12, z, 0.0)(0, 1));
    EXPECT_EQ(0, mg_RotationMatrix(1e-12, z, 0.0).isIdentity());
    EXPECT_EQ(0, mg_RotationMatrix(support::kNaN, z, 1e-6).isIdentity());
}

TEST(Rotation, AxisAndAngleComeBack) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        double const t = random.uniform(0.01, 3.13);
        mgUnitVector_c const n = support::direction(random);
        mgMatrix_c const m = mg_RotationMatrix(t, n, 0.0);
        mgUnitVector_c const axis = m.getRotationAxis();
        double const sense = axis % n < 0.0 ? -1.0 : 1.0;
        ASSERT_LT(support::gap(sense * axis, n), 1e-10); // 1e-16 over the square of t
        if (std::min({n.x(), n.y(), n.z()}) < -0.99) continue;
        ASSERT_NEAR(-t, m.getRotationAngle(&n), 1e-14); // the sense of column vectors
    }
    EXPECT_BITS_EQ(x, mgMatrix_c().getRotationAxis());
    EXPECT_BITS_EQ(z, mg_RotationMatrix(1e-9, z, 0.0).getRotationAxis()); // column that moves least
    EXPECT_EQ(1.0, mg_RotationMatrix(1e-9, y, 0.0).getRotationAxis().y());
    mgMatrix_c const turn = mg_RotationMatrix(0.5, x + y, 0.0);
    mgUnitVector_c const own = turn.getRotationAxis();
    EXPECT_BITS_EQ(turn.getRotationAngle(&own), turn.getRotationAngle(nullptr));
}

TEST(Rotation, AngleAboutANegativeAxisIsZero) {
    mgUnitVector_c const down(0.0, 0.0, -1.0), up(0.0, 0.0, 1.0);
    EXPECT_EQ(0.0, mg_RotationMatrix(1.0, z, 0.0).getRotationAngle(&down));
    EXPECT_NEAR(-1.0, mg_RotationMatrix(1.0, z, 0.0).getRotationAngle(&up), 1e-15);
}

} // namespace
