// SPDX-License-Identifier: MIT
// Factories of transforms: their thresholds, the frames, and where points and directions are sent.

#include <vexmath/mg_transform.h>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::gap;

mgUnitVector_c const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);
mgPoint_c const eye(1.0, 2.0, 3.0), origin;

/// Rotation rows, each within 1e-15, and the translation to the bit.
void checkRows(mgXform_c const &form, mgVector_c const &r0, mgVector_c const &r1,
               mgVector_c const &r2, mgVector_c const &translation) {
    EXPECT_LT(gap(r0, mgVector_c(&form.rotation()[0])), 1e-15);
    EXPECT_LT(gap(r1, mgVector_c(&form.rotation()[3])), 1e-15);
    EXPECT_LT(gap(r2, mgVector_c(&form.rotation()[6])), 1e-15);
    EXPECT_BITS_EQ(translation, form.translation());
    EXPECT_EQ(1.0, form.scaling());
}

TEST(Factories, TinyInputGivesTheIdentity) {
    double const s = below(1e-08);
    EXPECT_BITS_EQ(mgXform_c(), mg_TranslateXform({s, -s, s}));
    EXPECT_BITS_EQ(mgVector_c(0.0, 1e-08, s), mg_TranslateXform({0.0, 1e-08, s}).translation());
    EXPECT_BITS_EQ(mgXform_c(), mg_RotateXform(1e-11, z, 0.0));
    EXPECT_BITS_EQ(mgXform_c(), mg_RotateXform(1.0, {s, s, s}, 0.0));
    EXPECT_EQ(1, mg_RotateXform(-above(1e-11), {0.0, 0.0, 1e-08}, 0.0).rotate());
    EXPECT_BITS_EQ(mg_RotationMatrix(1.57, y, 0.01), mg_RotateXform(1.57, y, 0.01).rotation());
}

TEST(Factories, MirrorsNegateTheirNormal) {
    checkRows(mg_XReflectionXform(), -x, y, z, {});
    checkRows(mg_YReflectionXform(), x, -y, z, {});
    checkRows(mg_ZReflectionXform(), x, y, -z, {});
    support::Random random;
    for (int i = 0; i < 200; ++i) {
        mgUnitVector_c const n = support::direction(random);
        auto const p = random.triple<mgPoint_c>(-1.0, 1.0);
        ASSERT_LT(gap(p.mirror(origin, n), p * mg_ReflectionXform(n)), 2e-15);
    }
    EXPECT_EQ(2, mg_XReflectionXform().isReflection() + mg_ReflectionXform(x).isReflection());
    EXPECT_EQ(0, mg_RestoreXform(mg_ZReflectionXform().rotation(), {}, 1.0).isReflection());
}

TEST(Factories, NamedAxesAreKeptByEachFunctionsOwnRule) {
    // The kept direction lies in its row, the other on the positive side of its own.
    auto const check = [](mgXform_c const &frame, int kept, mgVector_c const &exact, int turned,
                          mgVector_c const &other) {
        mgMatrix_c const &m = frame.rotation();
        EXPECT_LT(gap(exact, mgVector_c(&m[3 * kept])), 1e-15);
        mgVector_c const inPlane = other - (other % exact) * exact;
        EXPECT_LT(gap(mg_Normalise(inPlane), mgVector_c(&m[3 * turned])), 1e-15);
        EXPECT_NEAR(1.0, m.getDeterminant(), 1e-15);
        EXPECT_BITS_EQ(mgVector_c(eye), frame.translation());
    };
    mgUnitVector_c const a(1.0, 2.0, 2.0), b(-2.0, 3.0, 1.0);
    check(mg_CoordinateXform(eye, a, b), 0, a, 1, b);
    check(mg_CoordinateXformXY(eye, a, b, 1), 1, b, 0, a);
    check(mg_CoordinateXformXZ(eye, a, b, 1), 0, a, 2, b);
    check(mg_CoordinateXformYZ(eye, a, b, 1), 2, b, 1, a);
    for (int const other : {0, 2}) {
        check(mg_CoordinateXformXY(eye, a, b, other), 0, a, 1, b);
        check(mg_CoordinateXformXZ(eye, a, b, other), 2, b, 0, a);
        check(mg_CoordinateXformYZ(eye, a, b, other), 1, a, 2, b);
    }
}

TEST(Factories, LookingAlongADirectionHasAFixedUp) {
    checkRows(mg_CoordinateXformLookAt(eye, -z), x, y, z, eye);
    checkRows(mg_CoordinateXformLookAt(eye, z), -x, y, -z, eye);
    auto const check = [](mgUnitVector_c const &dir, mgVector_c const &up) {
        mgVector_c const across = mg_Normalise(-dir * up);
        checkRows(mg_CoordinateXformLookAt(eye, dir), across * -dir, across, -dir, eye);
    };
    check({0.0, 0.6, 0.6}, x); // no component along x
    check({1.0, 1.0, 1.0}, z); // of equal components the earlier one decides
    check({-1.0, 1.0, 1.0}, -z);
    check({1.0, 1.0 + 1e-08, 1.0 + 1e-08}, z); // a later one must exceed it by 1e-08
    check({1.0, -1.0 - 3e-08, 1.0}, x);
    check({1.0, 1.0, 1.0 + 3e-08}, -x);
    check({1.0, 1.0, -1.0 - 3e-08}, x);
}

TEST(Factories, PointsAndDirectionsAreCarriedOver) {
    support::Random random;
    for (int i = 0; i < 500; ++i) {
        auto const p1 = random.triple<mgPoint_c>(-9.0, 9.0);
        auto const p2 = random.triple<mgPoint_c>(-9.0, 9.0);
        mgUnitVector_c const u1 = support::direction(random), u2 = support::direction(random);
        mgXform_c const scaled = mg_PointVecScaleXform(p1, p2, 3.0 * u1, 2.0 * u2, 0.5);
        for (auto const &form : {mg_PointVectorXform(p1, p2, u1, u2, i % 2), scaled,
                                 mg_PlaneToPlane(p1, 3.0 * u1, p2, 2.0 * u2)}) {
            ASSERT_LT(gap(p2, p1 * form), 1e-13);
            ASSERT_LT(gap(u2, u1 * form), 1e-13);
        }
        ASSERT_EQ(0.5, scaled.scaling());
        double const t = random.uniform(-3.0, 3.0);
        mgVector_c const turned = u2 * mg_RotationMatrix(t, u1, 0.0);
        ASSERT_LT(gap(p2 + turned, (p1 + u2) * mg_PointAngleXform(p1, p2, t, u1)), 1e-13);
        ASSERT_LT(gap(p1 + turned, (p1 + u2) * mg_RotateAtPoint(p1, t, u1, 0.0)), 1e-13);
    }
    checkRows(mg_PointVectorXform(eye, origin, y, y, 0), x, y, z, origin - eye);
    checkRows(mg_PointVecScaleXform(eye, origin, y, y, 1.0), x, y, z, origin - eye);
}

TEST(Factories, PlaneToPlaneOnlyTranslatesOppositeNormals) {
    checkRows(mg_PlaneToPlane(eye, z, origin, -z), x, y, z, origin - eye); // not turned over
}

TEST(Factories, SmallTurnsAreKeptFromTheirOwnThreshold) {
    auto const check = [](double sine, int turns, int turnsScaled) {
        mgUnitVector_c u;
        u.set(1.0, sine, 0.0);
        EXPECT_EQ(turns, mg_PointVectorXform(origin, origin, x, u, 0).rotate()) << sine;
        EXPECT_EQ(turnsScaled, mg_PointVecScaleXform(origin, origin, x, u, 1.0).rotate()) << sine;
    };
    check(1e-08, 1, 1);
    check(below(1e-08), 0, 1); // an axis made long enough for the factory
    check(above(1e-11), 0, 1);
    check(below(1e-11), 0, 0);
}

TEST(Factories, OppositeDirectionsTurnAboutAbsoluteComponents) {
    auto const half = [](mgVector_c const &axis) {
        return mgXform_c() * mg_RotateXform(3.1415926535898, mg_Normalise(axis), 0.0) * mgXform_c();
    };
    auto const check = [&](mgUnitVector_c const &u, mgVector_c const &absolute,
                           mgVector_c const &perpendicular) {
        EXPECT_BITS_EQ(half(absolute), mg_PointVectorXform(origin, origin, u, -u, 0));
        EXPECT_BITS_EQ(half(z), mg_PointVectorXform(origin, origin, u, -u, 1));
        EXPECT_BITS_EQ(half(perpendicular), mg_PointVecScaleXform(origin, origin, u, -u, 1.0));
        EXPECT_EQ(0.0, perpendicular % u);
    };
    check({-0.6, 0.8, 0.0}, {0.8, -0.6, 0.0}, {0.8, 0.6, 0.0});
    check({0.0, -0.6, 0.8}, {0.0, 0.8, -0.6}, {0.0, 0.8, 0.6});
    check({0.6, 0.0, -0.8}, {0.8, 0.0, -0.6}, {-0.8, 0.0, -0.6});
    check(x, -y, -y), check(y, x, x), check(z, x, x);
}

} // namespace
