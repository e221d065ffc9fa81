// SPDX-License-Identifier: MIT
// Planes: tolerances, comparison, segments, the line of two planes, mirrors; triangles.

#include "common/geometry.h"

namespace {

U const z(0, 0, 1);
mgPlane_c const ground(P(1, 2, 0), z), raised(P(1, 2, 4), z);

TEST(Plane, ToleranceIsStrictAndOrientationCountsForEquivalence) {
    EXPECT_EQ(0, ground.isPointOn(P(5, 5, 0), 0.0)); // not even a point in it
    EXPECT_EQ(0, ground.isPointOn(P(5, 5, 1e-08), -1.0));
    EXPECT_EQ(1, ground.isPointOn(P(5, 5, -below(1e-08)), -1.0));
    auto const check = [](double height, U const &n, int coincident, int equivalent, Caller = {}) {
        EXPECT_EQ(coincident, ground.isCoincidentWith({P(7, 7, height), n}));
        EXPECT_EQ(equivalent, ground.isEquivalent({P(7, 7, height), n}));
    };
    check(0, z, 1, 1), check(0, -z, 1, 0), check(0.5, z, 0, 0), check(0, U(1, 0, 1), 0, 0);
    check(0, U(0.95e-12, 0, 1), 1, 1), check(0, U(0, 1.05e-12, 1), 1, 0);
}

TEST(Plane, IsTransformedAndMirrorsPoints) {
    mgPlane_c plane = ground;
    plane *= moved;
    EXPECT_BITS_EQ(U(1, 0, 0), plane.normal());
    plane.setNormal(U(-2, 1, -2));
    EXPECT_DOUBLE_EQ(5.0, plane.getHessianNormalFormConstant()); // minus the normal times the root
    U twice;
    twice.set(0, 0, 2); // no unit length
    EXPECT_EQ(-3.0, mgPlane_c(P(1, 2, 3), twice).getHessianNormalFormConstant());
    EXPECT_LT(gap(P(-2, 5, 3), P(6, 1, 11) * mg_PlaneReflectionXform(plane)), 1e-14);
    P foot(6, 1, 11);
    EXPECT_EQ(1, plane.pointPerp(foot, &foot));
    EXPECT_LT(gap(P(2, 3, 7), foot), 1e-14); // the root
}

TEST(Plane, APointInThePlaneCountsAsOnTheNegativeSide) {
    auto const check = [](int cuts, double a, double b, double tol, Caller = {}) {
        EXPECT_EQ(cuts, raised.cutLineSegment(P(0, 0, 4 + a), P(1, 0, 4 + b), tol));
    };
    check(1, 0, 1, 0), check(0, 0, -1, 0), check(0, 2, 0.5, 0.5);
    check(1, 2, 0.5, above(0.5)), check(1, 0.5, 2, above(0.5));
    check(0, 5e-8, 1, 0), check(0, 1, 5e-8, 0);
}

TEST(Plane, TheLineOfTwoPlanesIsOnEitherSideOfTheSecondRootsFoot) {
    auto const check = [](int found, P const &begin, double height, U const &normal, Caller = {}) {
        P point(7, 7, 7);
        U dir(7, 7, 7);
        EXPECT_EQ(found, interLine(raised, {P(8, 9, 4 + height), normal}, &point, &dir));
        EXPECT_LT(dist(point, begin), 1e-14);
        EXPECT_EQ(found, dir == mg_Normalise(z * normal));
    };
    check(1, {13, 9, 4}, 5, U(1, 0, 1));
    check(1, {3, 9, 4}, 5, U(1, 0, -1));                // an obtuse angle
    check(1, {8, 9, 4 + 0.95e-8}, 0.95e-8, U(1, 0, 1)); // the root itself
    check(1, {8 + 1.05e-8, 9, 4}, 1.05e-8, U(1, 0, 1));
    check(1, {8, 9, 4}, 5, U(1, 0, 9.5e-9)); // counts as perpendicular, from 1e-8 on not
    check(1, {8 + 5 * 1.05e-8, 9, 4}, 5, U(1, 0, 1.05e-8));
    check(0, {7, 7, 7}, 5, -z), check(0, {7, 7, 7}, 5, z);
    EXPECT_EQ(1, interLine(raised, {P(8, 9, 3), U(1, 0, 1)}, nullptr, nullptr));
    P point;
    interLine({P(), U(1, 0, 0)}, {P(1e-8, 0, 0), U(0, 1, 0)}, &point, nullptr);
    EXPECT_BITS_EQ(P(), point); // the foot: roots 1e-8 apart do not coincide
}

TEST(Triangle, WeightsSumToOneUnlessTheTriangleIsFlat) {
    auto const check = [](P const &third, double tol, int flat, P p, P const &w, Caller = {}) {
        double const corners[3][2] = {{1, 1}, {5, 4}, {third.x(), third.y()}};
        int degenerate = -1;
        getBaricentricCoordinates(tol, p, corners, p, degenerate); // the output is the input
        EXPECT_EQ(flat, degenerate);
        EXPECT_BITS_EQ(w, p);
    };
    check({3, 6.5, 0}, 1e-12, 0, {3, 4.5, 0}, {0.25, 0.25, 0.5});
    check({8, 25, 0}, 0.36 + 1e-15, 1, {1, 1, 0}, {-1, -1, -1}); // the sine is 3/5
    check({8, 25, 0}, 0.36 - 1e-15, 0, {1, 1, 0}, {1, 0, 0});
    check({9, 7, 0}, -1, 1, {1, 1, 0}, {-1, -1, -1}); // collinear, whatever the tolerance
}

} // namespace
