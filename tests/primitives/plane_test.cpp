// SPDX-License-Identifier: MIT
// Planes: tolerances, comparison, segments, the line of two planes, mirrors; triangles.

#include "common/geometry.h"

namespace {

using namespace common;

U const z(0, 0, 1);
mgPlane_c const ground(P(1, 2, 0), z);

TEST(Plane, ToleranceIsStrictAndOrientationCountsForEquivalence) {
    EXPECT_EQ(0, ground.isPointOn(P(5, 5, 0), 0.0)); // not even a point in it
    EXPECT_EQ(0, ground.isPointOn(P(5, 5, 1e-08), -1.0));
    EXPECT_EQ(1, ground.isPointOn(P(5, 5, -below(1e-08)), -1.0));
    auto const check = [](double height, U const &n, int coincident, int equivalent, Caller = {}) {
        EXPECT_EQ(coincident, ground.isCoincidentWith({P(7, 7, height), n}));
        EXPECT_EQ(equivalent, ground.isEquivalent({P(7, 7, height), n}));
    };
    check(0, z, 1, 1);
    check(0, -z, 1, 0);
    check(1, z, 0, 0);
}

TEST(Plane, IsTransformedAndMirrorsPoints) {
    mgPlane_c plane = ground;
    plane *= mg_TranslateXform({0, 0, 3});
    plane.setNormal(-plane.normal());
    EXPECT_EQ(3.0, plane.getHessianNormalFormConstant()); // minus the normal times the root
    EXPECT_BITS_EQ(P(4, 5, 1), P(4, 5, 5) * mg_PlaneReflectionXform(plane));
}

TEST(Plane, APointInThePlaneCountsAsOnTheNegativeSide) {
    auto const check = [](int cuts, double a, double b, double tol, Caller = {}) {
        EXPECT_EQ(cuts, ground.cutLineSegment(P(0, 0, a), P(1, 0, b), tol));
    };
    check(1, 0, 1, 0);
    check(0, 0, -1, 0);
    check(0, 2, 0.5, 0.5);
    check(1, 2, 0.5, above(0.5));
}

TEST(Plane, TheLineOfTwoPlanesIsOnEitherSideOfTheSecondRootsFoot) {
    auto const check = [](int found, P const &begin, double height, U const &normal, Caller = {}) {
        P point(7, 7, 7);
        U dir(7, 7, 7);
        EXPECT_EQ(found, interLine(ground, {P(8, 9, height), normal}, &point, &dir));
        EXPECT_LT(dist(point, begin), 1e-14);
        EXPECT_EQ(found, dir == mg_Normalise(z * normal));
    };
    check(1, {13, 9, 0}, 5, U(1, 0, 1));
    check(1, {3, 9, 0}, 5, U(1, 0, -1));     // an obtuse angle
    check(1, {8, 9, 0}, 0, U(1, 0, 1));      // the root itself
    check(1, {8, 9, 0}, 5, U(1, 0, 9.5e-9)); // counts as perpendicular, from 1e-8 on not
    check(1, {8 + 5 * 1.05e-8, 9, 0}, 5, U(1, 0, 1.05e-8));
    check(0, {7, 7, 7}, 5, -z);
}

TEST(Triangle, WeightsSumToOneUnlessTheTriangleIsFlat) {
    auto const check = [](double height, double tol, int flat, P p, P const &w, Caller = {}) {
        double const corners[3][2] = {{1, 1}, {5, 1}, {5, 1 + height}};
        int degenerate = -1;
        getBaricentricCoordinates(tol, p, corners, p, degenerate); // the output is the input
        EXPECT_EQ(flat, degenerate);
        EXPECT_BITS_EQ(w, p);
    };
    check(4, 1e-12, 0, {3, 2, 0}, {0.5, 0.25, 0.25});
    check(3, above(0.36), 1, {1, 1, 0}, {-1, -1, -1}); // the sine is 3/5
    check(3, below(0.36), 0, {1, 1, 0}, {1, 0, 0});
    check(0, -1, 1, {1, 1, 0}, {-1, -1, -1}); // collinear, whatever the tolerance
}

} // namespace
