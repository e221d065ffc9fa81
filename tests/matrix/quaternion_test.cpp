// SPDX-License-Identifier: MIT
// Quaternions.

#include "support/numbers.h"

#include <vexmath/mg_matrix.h>
#include <vexmath/mg_vector.h>
#include <vexmath/quaternion.h>

#include <gtest/gtest.h>

namespace {

static_assert(sizeof(mgQuaternion_c) == 4 * sizeof(double));

void ExpectQuaternion(mgQuaternion_c const &q, double x, double y, double z, double w,
                      double bound) {
    double const expected[4] = {x, y, z, w};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(expected[i], q[i], bound) << "component " << i;
}

mgQuaternion_c quaternionOf(mgMatrix_c const &m) {
    mgQuaternion_c q;
    q.matrixToQuat(m);
    return q;
}

mgQuaternion_c slerp(mgQuaternion_c const &a, mgQuaternion_c const &b, double t) {
    mgQuaternion_c q;
    q.quatSlerp(a, b, t);
    return q;
}

TEST(Quaternion, EqualityIsStrictlyWithinItsBound) {
    mgQuaternion_c const q(0, 0, 0, 1);
    for (int i = 0; i < 4; ++i) {
        mgQuaternion_c other = q;
        double const bound = i == 3 ? -(1 - (1 - 1e-05)) : 1e-05; // the difference as it rounds
        other[i] += bound;
        EXPECT_EQ(std::fabs(other[i] - q[i]) < 1e-05, q == other);
        other[i] = q[i] + std::nextafter(bound, 0.0);
        EXPECT_EQ(std::fabs(other[i] - q[i]) < 1e-05, other == q);
    }
    EXPECT_EQ(0, q == mgQuaternion_c(1e-05, 0, 0, 1));
    EXPECT_EQ(1, q == mgQuaternion_c(0, std::nextafter(-1e-05, 0.0), 0, 1));
    EXPECT_EQ(0, q == mgQuaternion_c(0, 0, 0, -1));
}

// Column sense: a rotation of row vectors comes out with the opposite angle.
TEST(Quaternion, OfARotationHasTheOppositeAngle) {
    ExpectQuaternion(quaternionOf({}), 0, 0, 0, 1, 0.0);
    double const s = std::sqrt(0.5);
    ExpectQuaternion(quaternionOf(mg_RotationMatrix(vexmath::kHalfPi, {0, 0, 1}, 1e-6)), 0, 0, -s,
                     s, 1e-15);
    double const k = vexmath::kPi; // by half a turn from each of the three largest components
    ExpectQuaternion(quaternionOf(mg_RotationMatrix(k, {1, 0, 0}, 1e-6)), 1, 0, 0, 0, 0.0);
    ExpectQuaternion(quaternionOf(mg_RotationMatrix(k, {0, 1, 0}, 1e-6)), 0, 1, 0, 0, 0.0);
    ExpectQuaternion(quaternionOf(mg_RotationMatrix(k, {0, 0, 1}, 1e-6)), 0, 0, 1, 0, 0.0);
}

TEST(Quaternion, ThereAndBackIsTheSameRotation) {
    support::Random random;
    for (int i = 0; i < 3000; ++i) {
        mgVector_c const axis = random.triple<mgVector_c>(-1, 1);
        double const angle = i % 2 == 0 ? random.uniform(-3.1, 3.1) : random.uniform(3.0, 3.3);
        mgMatrix_c const m = mg_RotationMatrix(angle, axis, 0);
        mgQuaternion_c const q = quaternionOf(m);
        double const half = -angle / 2, sign = std::cos(half) * q[3] < 0 ? -1 : 1;
        mgVector_c const v = sign * std::sin(half) * mg_Normalise(axis);
        if (std::fabs(q[3]) > 1e-3)
            ExpectQuaternion(q, v.x(), v.y(), v.z(), sign * std::cos(half), 1e-14);
        mgMatrix_c back;
        q.quatToMatrix(back);
        for (int k = 0; k < 9; ++k) ASSERT_NEAR(m[k], back[k], 1e-14);
        ASSERT_EQ(0, back.isIdentity());
    }
}

TEST(Quaternion, SlerpTurnsEvenlyAlongTheShorterWay) {
    auto const about = [](double angle) {
        return mgQuaternion_c(0, std::sin(angle / 2), 0, std::cos(angle / 2));
    };
    for (double t : {-0.5, 0.0, 0.3, 0.5, 1.0, 1.5}) {
        double const angle = 0.2 + t * 1.6;
        ExpectQuaternion(slerp(about(0.2), about(1.8), t), 0, std::sin(angle / 2), 0,
                         std::cos(angle / 2), 1e-15);
        mgQuaternion_c const far(0, -about(1.8)[1], 0, -about(1.8)[3]); // the same rotation
        ExpectQuaternion(slerp(about(0.2), far, t), 0, std::sin(angle / 2), 0, std::cos(angle / 2),
                         1e-15);
    }
    mgQuaternion_c q = about(0.2); // its own argument
    q.quatSlerp(q, about(1.8), 0.5);
    ExpectQuaternion(q, 0, std::sin(0.5), 0, std::cos(0.5), 1e-15);
}

TEST(Quaternion, OppositeQuaternionsAreNotBlended) {
    mgQuaternion_c const a(0.6, 0, 0, 0.8), opposite(-0.6, 0, 0, -0.8);
    ExpectQuaternion(slerp(a, a, 0.4), 0.6, 0, 0, 0.8, 0.0);
    ExpectQuaternion(slerp(a, opposite, std::nextafter(0.5, 0.0)), 0.6, 0, 0, 0.8, 0.0);
    ExpectQuaternion(slerp(a, opposite, 0.5), -0.6, 0, 0, -0.8, 0.0);
}

} // namespace
