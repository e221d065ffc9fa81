// SPDX-License-Identifier: MIT
// Factories of transforms: thresholds, frames, images of points and directions.

#include "common/geometry.h"

namespace {

U const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);
P const eye(1.0, 2.0, 3.0), origin;

/// Rotation rows, each within 1e-15, and the translation to the bit.
void CheckRows(mgXform_c const &form, V const &r0, V const &r1, V const &r2, V const &translation,
               Caller = {}) {
    double const *const rows = &form.rotation()[0];
    EXPECT_LT(gap(r0, V(rows)), 1e-15);
    EXPECT_LT(gap(r1, V(rows + 3)), 1e-15);
    EXPECT_LT(gap(r2, V(rows + 6)), 1e-15);
    EXPECT_BITS_EQ(raw(form.rotation(), translation, 1.0, form.isReflection()), form);
}

TEST(Factories, TinyInputGivesTheIdentityAndMirrorsNegateTheirNormal) {
    double const s = below(1e-08);
    EXPECT_BITS_EQ(mgXform_c(), mg_TranslateXform({s, -s, s}));
    EXPECT_BITS_EQ(raw({}, {0.0, 1e-08, s}), mg_TranslateXform({0.0, 1e-08, s}));
    EXPECT_BITS_EQ(mgXform_c(), mg_RotateXform(1e-11, z, 0.0));
    EXPECT_BITS_EQ(mgXform_c(), mg_RotateXform(1.0, {s, s, s}, 0.0));
    EXPECT_EQ(1, mg_RotateXform(-above(1e-11), 1e-08 * z, 0.0).rotate());
    EXPECT_BITS_EQ(raw(mg_RotationMatrix(1.57, y, 0.01)), mg_RotateXform(1.57, y, 0.01));
    EXPECT_BITS_EQ(raw({-x, y, z}, {}, 1.0, 1), mg_XReflectionXform());
    EXPECT_BITS_EQ(raw({x, -y, z}, {}, 1.0, 1), mg_YReflectionXform());
    EXPECT_BITS_EQ(raw({x, y, -z}, {}, 1.0, 1), mg_ZReflectionXform());
    EXPECT_EQ(1, mg_ReflectionXform(x).isReflection());
}

TEST(Factories, NamedAxesAreKeptByEachFunctionsOwnRule) {
    // The kept direction lies in its row, the other on the positive side of its own.
    auto const check = [](mgXform_c const &frame, int kept, V const &exact, int rotated,
                          V const &other, Caller = {}) {
        V row[3] = {};
        row[kept] = exact, row[rotated] = mg_Normalise(other - (other % exact) * exact);
        row[3 - kept - rotated] = row[(4 - kept - rotated) % 3] * row[(5 - kept - rotated) % 3];
        CheckRows(frame, row[0], row[1], row[2], V(eye));
    };
    U const a(1.0, 2.0, 2.0), b(-2.0, 3.0, 1.0);
    check(mg_CoordinateXform(eye, a, b), 0, a, 1, b);
    check(mg_CoordinateXformXY(eye, a, b, 1), 1, b, 0, a);
    check(mg_CoordinateXformXZ(eye, a, b, 1), 0, a, 2, b);
    check(mg_CoordinateXformYZ(eye, a, b, 1), 2, b, 1, a);
    check(mg_CoordinateXformXY(eye, a, b, 0), 0, a, 1, b);
    check(mg_CoordinateXformXZ(eye, a, b, 2), 2, b, 0, a);
    check(mg_CoordinateXformYZ(eye, a, b, 0), 1, a, 2, b);
}

TEST(Factories, ParallelDirectionsLeaveAKeptXOrYAndZeroRows) {
    V const none;
    CheckRows(mg_CoordinateXform(eye, x, x), x, none, none, V(eye));
    CheckRows(mg_CoordinateXformXY(eye, x, -x, 1), none, -x, none, V(eye));
    CheckRows(mg_CoordinateXformXZ(eye, x, x, 1), x, none, none, V(eye));
    CheckRows(mg_CoordinateXformXZ(eye, x, x, 0), none, none, none, V(eye)); // Z would be kept
    CheckRows(mg_CoordinateXformYZ(eye, U(), x, 1), none, none, none, V(eye));
    CheckRows(mg_CoordinateXformLookAt(eye, U()), none, none, none, V(eye));
    CheckRows(mgXform_c(x, x, V(eye)), x, none, none, V(eye));
}

TEST(Factories, LookingAlongADirectionHasAFixedUp) {
    auto const check = [](U const &dir, V const &up, Caller = {}) {
        V const across = mg_Normalise(-dir * up);
        CheckRows(mg_CoordinateXformLookAt(eye, dir), across * -dir, across, -dir, V(eye));
    };
    check(z, -x), check(-z, x);
    check({1.0, 1.0, 1.0}, z); // of equal components the earlier one decides
    check({-1.0, 1.0, 1.0}, -z);
    check({1.0, 1.0 + 1e-08, 1.0 + 1e-08}, z); // a later one must exceed it by 1e-08
    check({1.0, 1.0, -1.0 - 3e-08}, x);
}

TEST(Factories, PointsAndDirectionsAreCarriedOver) {
    Random random;
    for (int i = 0; i < 500; ++i) {
        P const p1 = random.triple<P>(-9.0, 9.0), p2 = random.triple<P>(-9.0, 9.0);
        U const u1 = direction(random), u2 = direction(random);
        mgXform_c const scaled = mg_PointVecScaleXform(p1, p2, 3.0 * u1, 2.0 * u2, 0.5);
        for (auto const &form : {mg_PointVectorXform(p1, p2, u1, u2, i % 2), scaled,
                                 mg_PlaneToPlane(p1, 3.0 * u1, p2, 2.0 * u2)}) {
            ASSERT_LT(gap(p2, p1 * form), 1e-13);
            ASSERT_LT(gap(u2, u1 * form), 1e-13);
        }
        double const t = random.uniform(-3.0, 3.0);
        V const rotated = u2 * mg_RotationMatrix(t, u1, 0.0);
        ASSERT_LT(gap(p2 + rotated, (p1 + u2) * mg_PointAngleXform(p1, p2, t, u1)), 1e-13);
        ASSERT_LT(gap(p1 + rotated, (p1 + u2) * mg_RotateAtPoint(p1, t, u1, 0.0)), 1e-13);
    }
}

TEST(Factories, PlaneToPlaneOnlyTranslatesOppositeNormals) {
    mgXform_c const moved = raw({}, origin - eye);
    V const small = 9.9e-5 * z;                                 // the product is too short
    EXPECT_BITS_EQ(moved, mg_PlaneToPlane(eye, z, origin, -z)); // not half a turn
    EXPECT_BITS_EQ(moved, mg_PlaneToPlane(eye, small, origin, 9.9e-5 * x));
    EXPECT_EQ(1, mg_PlaneToPlane(eye, 1.1e-4 * z, origin, 1.1e-4 * x).rotate());
}

TEST(Factories, SmallTurnsAreKeptFromTheirOwnThreshold) {
    auto const check = [](double sine, int turns, int turnsScaled, Caller = {}) {
        U u;
        u.set(1.0, sine, 0.0);
        EXPECT_EQ(turns, mg_PointVectorXform(origin, origin, x, u, 0).rotate()) << sine;
        EXPECT_EQ(turnsScaled, mg_PointVecScaleXform(origin, origin, x, u, 1.0).rotate()) << sine;
    };
    check(1e-08, 1, 1);
    check(below(1e-08), 0, 1); // with an axis made longer
    check(below(1e-11), 0, 0);
}

mgXform_c half(V const &axis) {
    return mgXform_c() * mg_RotateXform(3.1415926535898, mg_Normalise(axis), 0.0) * mgXform_c();
}

TEST(Factories, ANullSecondDirectionGivesHalfATurn) {
    EXPECT_BITS_EQ(half(-y), mg_PointVectorXform(origin, origin, x, U(), 0));
    EXPECT_BITS_EQ(half(z), mg_PointVectorXform(origin, origin, x, U(), 1));
    EXPECT_BITS_EQ(half(-y), mg_PointVecScaleXform(origin, origin, x, V(3e-9, 0.0, 0.0), 1.0));
    EXPECT_BITS_EQ(mgXform_c(), mg_PointVectorXform(origin, origin, U(), x, 0));
    EXPECT_BITS_EQ(half(z), mg_PointVectorXform(origin, origin, U(), x, 1));
    EXPECT_BITS_EQ(mgXform_c(), mg_PointVecScaleXform(origin, origin, V(), x, 1.0));
}

TEST(Factories, OppositeDirectionsTurnAboutAbsoluteComponents) {
    auto const check = [&](U const &u, V const &absolute, V const &perpendicular, Caller = {}) {
        EXPECT_BITS_EQ(half(absolute), mg_PointVectorXform(origin, origin, u, -u, 0));
        EXPECT_BITS_EQ(half(z), mg_PointVectorXform(origin, origin, u, -u, 1));
        EXPECT_BITS_EQ(half(perpendicular), mg_PointVecScaleXform(origin, origin, u, -u, 1.0));
    };
    check({-0.6, 0.8, 0.0}, {0.8, -0.6, 0.0}, {0.8, 0.6, 0.0});
    check({0.6, 0.0, -0.8}, {0.8, 0.0, -0.6}, {-0.8, 0.0, -0.6});
    check({0.0, -0.6, 0.8}, {0.0, 0.8, -0.6}, {0.0, 0.8, 0.6});
    check(x, -y, -y), check(y, x, x), check(z, x, x);
}

} // namespace
