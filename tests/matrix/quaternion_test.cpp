// SPDX-License-Identifier: MIT
// Quaternions.

#include "common/geometry.h"

namespace {

template <class... From>
constexpr bool noneConverts = !(std::is_constructible_v<mgQuaternion_c, From> || ...);
static_assert(noneConverts<V, U, P, mgVector4_c, double const *, int>);

mgQuaternion_c about(U const &axis, double angle) {
    V const v = std::sin(angle / 2) * axis;
    return {v.x(), v.y(), v.z(), std::cos(angle / 2)};
}

mgQuaternion_c negated(mgQuaternion_c const &q) { return {-q[0], -q[1], -q[2], -q[3]}; }

void CheckNear(mgQuaternion_c const &expected, mgQuaternion_c const &q, double bound, Caller = {}) {
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(expected[i], q[i], bound) << "component " << i;
}

mgQuaternion_c quaternionOf(mgMatrix_c const &m) {
    mgQuaternion_c q;
    q.matrixToQuat(m);
    return q;
}

mgQuaternion_c slerp(mgQuaternion_c a, mgQuaternion_c const &b, double t) {
    a.quatSlerp(a, b, t); // its own argument
    return a;
}

TEST(Quaternion, EqualityIsStrictlyWithinItsBound) {
    for (int i = 0; i < 4; ++i) {
        mgQuaternion_c const q(0, 0, 0, 0);
        mgQuaternion_c on = q, within = q;
        on[i] = 1e-05;
        within[i] = above(-1e-05);
        EXPECT_FALSE(q == on) << i;
        EXPECT_TRUE(q == within) << i;
    }
}

// Quaternions rotate column vectors, so a rotation of row vectors has the opposite angle.
TEST(Quaternion, OfARotationHasTheOppositeAngleAndConvertsBack) {
    Random random;
    for (int i = 0; i < 3000; ++i) {
        U const axis = direction(random);
        double const angle = i % 2 == 0 ? random.uniform(-3.1, 3.1) : random.uniform(3.0, 3.3);
        mgMatrix_c const m = mg_RotationMatrix(angle, axis, 0);
        mgQuaternion_c const q = quaternionOf(m), expected = about(axis, -angle);
        bool const other = q[0] * expected[0] + q[1] * expected[1] + q[2] * expected[2] < 0;
        CheckNear(other && std::fabs(angle) > 1 ? negated(expected) : expected, q, 1e-14);
        mgMatrix_c back;
        q.quatToMatrix(back);
        for (int k = 0; k < 9; ++k) ASSERT_NEAR(m[k], back[k], 1e-14);
        ASSERT_EQ(0, back.isIdentity());
    }
    CheckNear({0, 0, 0, 1}, quaternionOf({}), 0);
    for (U const &axis : {U(1, 0, 0), {0, 1, 0}, {0, 0, 1}}) {
        mgMatrix_c const halfTurn = mg_RotationMatrix(vexmath::kPi, axis, 1e-6);
        CheckNear(about(axis, vexmath::kPi), quaternionOf(halfTurn), 1e-14);
    }
}

TEST(Quaternion, SlerpRotatesEvenlyAlongTheShorterArc) {
    U const axis(2, 3, -6);
    mgQuaternion_c const a = about(axis, 0.2), b = about(axis, 1.8);
    for (double t : {-0.5, 0.0, 0.3, 0.5, 1.0, 1.5}) {
        CheckNear(about(axis, 0.2 + t * 1.6), slerp(a, b, t), 1e-15);
        CheckNear(about(axis, 0.2 + t * 1.6), slerp(a, negated(b), t), 1e-15);
    }
}

TEST(Quaternion, OppositeQuaternionsAreNotBlended) {
    mgQuaternion_c const a = about({1, 2, 2}, 0.2);
    CheckNear(a, slerp(a, negated(a), below(0.5)), 0);
    CheckNear(negated(a), slerp(a, negated(a), 0.5), 0);
}

} // namespace
