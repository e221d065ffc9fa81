// SPDX-License-Identifier: MIT
// Rotations: sense, snapping to quarter turns, and the axis and angle of a matrix.

#include "common/geometry.h"

namespace {

U const x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);

TEST(Rotation, RotatesCounterClockwiseAboutItsAxis) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        double const angle = random.uniform(-10, 10), c = std::cos(angle), s = std::sin(angle);
        U const a = direction(random);
        mgMatrix_c const m = mg_RotationMatrix(angle, 3.0 * a, 0.0);
        mgMatrix_c const n = mg_RotationMatrix(random.uniform(-3, 3), direction(random), 0.0);
        auto const v = random.triple<V>(-1, 1);
        ASSERT_LT(gap(v * m * n, v * (m * n)), 2e-15);
        ASSERT_LT(gap(c * v + s * (a * v) + ((1 - c) * (a % v)) * a, v * m), 2e-15);

        U const axis = m.getRotationAxis();
        if (std::fabs(s) < 0.01) continue;
        ASSERT_LT(gap(axis % a < 0.0 ? -axis : axis, a), 1e-10); // 1e-16 / s^2
        ASSERT_BITS_EQ(m.getRotationAngle(&axis), m.getRotationAngle(nullptr));
        if (std::min({a.x(), a.y(), a.z()}) < -0.99) continue;
        // The sense of column vectors.
        ASSERT_NEAR(std::remainder(-angle, 4.0 * std::acos(0.0)), m.getRotationAngle(&a), 1e-14);
    }
    EXPECT_BITS_EQ(x, mgMatrix_c().getRotationAxis());
    for (auto const &n : {x, y, z}) // too small for a cross product: the column that moves least
        EXPECT_BITS_EQ(n, mg_RotationMatrix(1e-9, n, 0.0).getRotationAxis());
    for (U const &n : {U(1, 1e-6, 2e-6), U(2e-6, -1, 1e-6), U(1e-6, 2e-6, 1)}) {
        U const axis = mg_RotationMatrix(1.0, n, 0.0).getRotationAxis();
        EXPECT_LT(gap(axis % n < 0.0 ? -axis : axis, n), 1e-14); // by the widest cross product
    }
}

TEST(Rotation, QuarterTurnsSnapStrictlyWithinTheTolerance) {
    auto const check = [](double turn, double cosine, double sine, Caller = {}) {
        for (double const angle : {turn - 1e-3, turn + 1e-3}) {
            double const distance = std::fabs(angle - turn);
            mgMatrix_c const snapped = mg_RotationMatrix(angle, z, above(distance));
            EXPECT_BITS_EQ(V(cosine, sine, 0), V(&snapped[0])) << angle;
            EXPECT_BITS_EQ(mg_RotationMatrix(angle, z, 0), mg_RotationMatrix(angle, z, distance));
            EXPECT_BITS_EQ(snapped, mg_RotationMatrix(angle - 6.2831853071796, z, 2e-3));
        }
    };
    check(1.5707963267949, 0, 1), check(3.1415926535898, -1, 0), check(4.7123889803847, 0, -1);
    double const rows[][3] = {{1, 1e-3, above(1e-3)}, // the identity, angle, tolerance
                              {0, 1e-3, 1e-3},
                              {0, 5e-8, 1e-9},
                              {1, 1e-7 - 3.0 * 6.2831853071796, 1e-6}, // fmod keeps the sign
                              {1, -below(1e-12), 0},
                              {0, 1e-12, 0}};
    for (auto const &[identity, angle, tol] : rows)
        EXPECT_EQ(identity, mg_RotationMatrix(angle, x, tol).isIdentity()) << angle << ' ' << tol;
}

TEST(Rotation, WithoutAnAxisKeepsTheSignOfTheCosine) {
    auto const check = [](double diagonal, double angle, V const &axis, Caller = {}) {
        mgMatrix_c const m = mg_RotationMatrix(angle, axis, 1e-6);
        for (int k = 0; k < 9; ++k) EXPECT_EQ(k % 4 == 0 ? diagonal : 0.0, m[k]) << angle;
    };
    check(1, 1, {}), check(-1, 2, {3e-9, 0, 0});
    check(0, 1.5707963267949, {}), check(-1, 2, {kNaN, 1, 0}), check(0, kNaN, x);
}

TEST(Rotation, AngleAboutANegativeAxisIsZero) {
    for (U const &down : {-x, -y, -z})
        EXPECT_EQ(0.0, mg_RotationMatrix(1, -down, 0).getRotationAngle(&down)) << shown(down);
}

} // namespace
