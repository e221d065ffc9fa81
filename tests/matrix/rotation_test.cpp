// SPDX-License-Identifier: MIT
// Rotations: sense, snapping to quarter turns, and axis and angle read back from a matrix.

#include <vexmath/mg_matrix.h>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;

mgUnitVector_c const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);

TEST(Rotation, TurnsCounterClockwiseAboutItsAxis) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        double const angle = random.uniform(-10.0, 10.0), c = std::cos(angle), s = std::sin(angle);
        auto const axis = random.triple<mgVector_c>(-1.0, 1.0);
        mgUnitVector_c const a = mg_Normalise(axis);
        // The lower triangle from the upper one, the sine term taken off twice.
        double const t = 1.0 - c, xs = a.x() * s, ys = a.y() * s, zs = a.z() * s;
        double const m01 = a.x() * a.y() * t + zs, m02 = a.x() * a.z() * t - ys;
        double const m12 = a.y() * a.z() * t + xs;
        mgMatrix_c const expected({a.x() * a.x() * t + c, m01, m02},
                                  {m01 - zs - zs, a.y() * a.y() * t + c, m12},
                                  {m02 + ys + ys, m12 - xs - xs, a.z() * a.z() * t + c});
        mgMatrix_c const m = mg_RotationMatrix(angle, axis, 0.0);
        ASSERT_BITS_EQ(expected, m);
        auto const v = random.triple<mgVector_c>(-1.0, 1.0);
        mgVector_c const turned = c * v + s * (a * v) + (t * (a % v)) * a; // Rodrigues
        ASSERT_LT(support::gap(turned, v * m), 2e-15);
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
    auto const isIdentity = [](double angle, double tol) {
        return mg_RotationMatrix(angle, x, tol).isIdentity();
    };
    EXPECT_EQ(1, isIdentity(1e-3, above(1e-3)));
    EXPECT_EQ(0, isIdentity(1e-3, 1e-3));
    EXPECT_EQ(1, isIdentity(6.2831853071796 - 1e-3, 1.001e-3));
    EXPECT_EQ(1, isIdentity(1e-7 - 3.0 * 6.2831853071796, 1e-6)); // fmod keeps the sign
    EXPECT_EQ(0, isIdentity(-1.0, 1e-6));
    EXPECT_BITS_EQ(mgMatrix_c(), mg_RotationMatrix(-below(1e-12), x, 0.0));
    EXPECT_EQ(0, isIdentity(1e-12, 0.0));
    EXPECT_EQ(0, isIdentity(support::kNaN, 1e-6));
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
        ASSERT_BITS_EQ(m.getRotationAngle(&axis), m.getRotationAngle(nullptr));
        if (std::min({n.x(), n.y(), n.z()}) < -0.99) continue;
        ASSERT_NEAR(-t, m.getRotationAngle(&n), 1e-14); // the sense of column vectors
    }
    EXPECT_BITS_EQ(x, mgMatrix_c().getRotationAxis());
    for (auto const &n : {x, y, z}) { // so small a turn that only the still column tells
        EXPECT_BITS_EQ(n, mg_RotationMatrix(1e-9, n, 0.0).getRotationAxis());
    }
}

TEST(Rotation, AngleAboutANegativeAxisIsZero) {
    mgUnitVector_c const down = -z;
    EXPECT_EQ(0.0, mg_RotationMatrix(1.0, z, 0.0).getRotationAngle(&down));
    EXPECT_NEAR(-1.0, mg_RotationMatrix(1.0, z, 0.0).getRotationAngle(&z), 1e-15);
}

} // namespace
