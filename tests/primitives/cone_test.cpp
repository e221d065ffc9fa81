// SPDX-License-Identifier: MIT
// Cones and cylinders.

#include "common/geometry.h"

namespace {

U const up(0, 0, 1);
double const eighthTurn = std::atan(1.0);
mgXform_c const away = mg_RestoreXform(moved.rotation(), V(2000, -200, 100), 1.0);

TEST(Cone, AnUnsetRadiusIsNotScaled) {
    mgCone_c unset, cone;
    cone.setRootPoint({1, 2, 3});
    cone.setAxis(up);
    cone.setRadius(5e-8);
    cone.setAngle(0.5);
    unset *= moved;
    cone *= moved;
    mgCylinder_c line({}, up, 0.0);
    line *= raw({}, {}, kInfinity);
    EXPECT_EQ(0.0, line.radius());
    EXPECT_BITS_EQ(P(-2.0, -2.0, 3 * 5e-8), P(unset.radius(), unset.angle(), cone.radius()));
    EXPECT_BITS_EQ(P(11, 3, 7), cone.rootPoint());
    EXPECT_BITS_EQ(U(1, 0, 0), cone.axis());
    EXPECT_EQ(0.01, mgCylinder_c().radius());
    EXPECT_EQ(0.0, mgCylinder_c().angle());
}

TEST(Cone, TheRadiusAtTheRootIsThatOfAWideningCone) {
    mgCone_c const cone({0, 0, 1}, up, 5.0, eighthTurn);
    EXPECT_NEAR(7.0 - 2.0, cone.transformRadiusAtRoot({9, 9, 3}, 7.0), 1e-14);
    EXPECT_BITS_EQ(P(0, 0, 3), cone.projectPointOnAxis({9, 9, 3}));
}

void CheckFoot(int result, P const &expected, mgCone_c const &cone, P p, Caller = {}) {
    EXPECT_EQ(result, cone.pointPerp(p, &p)); // in place
    EXPECT_LT(dist(expected, p), 1e-12);
}

TEST(Cone, TheConesFootIsThatOfItsRoot) {
    mgCone_c cone({}, up, 5.0, eighthTurn);
    cone *= away;
    auto const check = [&](int result, P const &expected, P const &p, Caller = {}) {
        CheckFoot(result, expected * away, cone, p * away);
    };
    check(1, {2, 0, 2}, {4, 0, 0}), check(0, {-1, 0, -1}, {0.5, 0, -2.5});
    check(1, {1.05e-8, 0, 1.05e-8}, {2.1e-8, 0, 0}); // 1e-8 ahead of the root
    check(0, {0.95e-8, 0, 0.95e-8}, {1.9e-8, 0, 0});
    check(1, {}, {}); // on the axis: 1 at the root
    check(0, {0, 0, 2}, {0, 0, 2});
}

TEST(Cylinder, TheFootLiesOnTheSurface) {
    U const axis(1, 2, 2), side(2, 1, -2);
    P const root(1, 2, 3), p = root - 5.0 * axis;
    mgCylinder_c const cylinder(root, axis, 2.0), tilted(root, U(0, 3, 4), 2.0);
    CheckFoot(0, p + 2.0 * side, cylinder, p + 7.0 * side);
    CheckFoot(1, p + 2.0 * axis.anyUnitNormal(0), cylinder, p);
    CheckFoot(1, root + 2.0 * tilted.axis().anyUnitNormal(0), tilted, root);
}

TEST(Cylinder, TheConesSettersAreInherited) {
    mgCylinder_c cylinder({}, up, 1.0), straight = cylinder;
    cylinder.setAngle(eighthTurn);
    EXPECT_EQ(eighthTurn, cylinder.angle());
    P out[2];
    cylinder.extremePts({1, 0, 0}, 10.0, out); // the top's radius is that of a cone
    EXPECT_LT(dist({9, 0, 0}, out[1]), 1e-13);
    CheckFoot(0, {1, 0, 7}, cylinder, {4, 0, 7}); // the feet remain a cylinder's
    EXPECT_EQ(1, cylinder.isEquivalent(straight));
}

void CheckExtremes(P const &low, P const &high, mgCone_c cone, V const &direction, Caller = {}) {
    U dir;
    dir.set(direction * away.rotation()); // to the bit
    P out[2];
    (cone *= away).extremePts(dir, 10.0, out);
    EXPECT_LT(dist(low * away, out[0]), 1e-12);
    EXPECT_LT(dist(high * away, out[1]), 1e-12);
}

TEST(Cone, LookingBackTheRootAloneCounts) {
    mgCylinder_c const cylinder({}, up, 1.0);
    mgCone_c const cone({}, up, 1.0, eighthTurn); // 9 at the top
    double const less = below(1e-6);
    CheckExtremes({-1, 0, 0}, {1, 0, 10}, cylinder, {0.6, 0, 0.8});
    CheckExtremes({-11, 0, 0}, {11, 0, 0}, {{}, up, 11, eighthTurn}, {0.8, 0, 0.6}); // 1 at the top
    CheckExtremes({-6.6, 0, 8.8}, {6.6, 0, -8.8}, {{}, up, 11, eighthTurn}, {0.6, 0, -0.8});
    for (U const &along : {up, -up}) CheckExtremes({}, {0, 0, 10}, cylinder, along);
    CheckExtremes({-5.4, 0, 7.2}, {5.4, 0, -7.2}, cone, {0.6, 0, -0.8});
    CheckExtremes({-9, 0, 10}, {9, 0, 10}, cone, {1, 0, 1e-6});
    CheckExtremes({-9, 0, -9 * less}, {9, 0, 9 * less}, cone, {1, 0, less});
}

TEST(Cylinder, EquivalenceNeedsRadii) {
    auto const check = [](int same, double r1, double r2, double x, U const &axis, Caller = {}) {
        EXPECT_EQ(same, mgCylinder_c({}, up, r1).isEquivalent({{x, 0, 7}, axis, r2})) << r2;
    };
    check(1, 1, 1 + 9e-9, 9e-9, up), check(0, 5e-9, 0, 0, up), check(0, 0, 5e-9, 0, up);
    check(0, 1, 1 + 1.1e-8, 0, up), check(1, 5e-8, 5e-8, 0, up);
    check(1, 1, 1, 0, U(0.95e-12, 0, 1)), check(0, 1, 1, 0, U(0, 1.05e-12, 1));
    check(0, 1, 1, 0, -up);
}

} // namespace
