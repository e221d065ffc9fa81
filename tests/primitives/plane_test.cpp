// SPDX-License-Identifier: MIT
// Planes: tolerances, comparison, segments, the line of two planes, mirrors; triangles.

#include "common/geometry.h"

#include <vexmath/mg_primitives.h>
#include <vexmath/plane.h>

namespace {

mgUnitVector_c const z(0, 0, 1);
mgPlane_c const ground(mgPoint_c(1, 2, 0), z);

TEST(Plane, ToleranceIsStrictAndOrientationCountsForEquivalence) {
    EXPECT_EQ(0, ground.isPointOn(mgPoint_c(5, 5, 0), 0.0)); // not even a point in it
    EXPECT_EQ(0, ground.isPointOn(mgPoint_c(5, 5, 1e-08), -1.0));
    EXPECT_EQ(1, ground.isPointOn(mgPoint_c(5, 5, -support::below(1e-08)), -1.0));
    auto const check = [](double height, mgUnitVector_c const &n, int coincident, int equivalent,
                          support::Caller = {}) {
        EXPECT_EQ(coincident, ground.isCoincidentWith({mgPoint_c(7, 7, height), n}));
        EXPECT_EQ(equivalent, ground.isEquivalent({mgPoint_c(7, 7, height), n}));
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
    EXPECT_BITS_EQ(mgPoint_c(4, 5, 1), mgPoint_c(4, 5, 5) * mg_PlaneReflectionXform(plane));
}

TEST(Plane, APointInThePlaneCountsAsOnTheNegativeSide) {
    auto const check = [](int cuts, double a, double b, double tol, support::Caller = {}) {
        EXPECT_EQ(cuts, ground.cutLineSegment(mgPoint_c(0, 0, a), mgPoint_c(1, 0, b), tol));
    };
    check(1, 0, 1, 0);
    check(0, 0, -1, 0);
    check(0, 2, 0.5, 0.5);
    check(1, 2, 0.5, support::above(0.5));
}

TEST(Plane, TheLineOfTwoPlanesIsOnEitherSideOfTheSecondRootsFoot) {
    auto const check = [](int found, mgPoint_c const &begin, double height,
                          mgUnitVector_c const &normal, support::Caller = {}) {
        mgPoint_c point(7, 7, 7);
        mgUnitVector_c dir(7, 7, 7);
        EXPECT_EQ(found, interLine(ground, {mgPoint_c(8, 9, height), normal}, &point, &dir));
        EXPECT_LT(dist(point, begin), 1e-14);
        EXPECT_EQ(found, dir == mg_Normalise(z * normal));
    };
    check(1, {13, 9, 0}, 5, mgUnitVector_c(1, 0, 1));
    check(1, {3, 9, 0}, 5, mgUnitVector_c(1, 0, -1)); // an obtuse angle
    check(1, {8, 9, 0}, 0, mgUnitVector_c(1, 0, 1));  // the root itself
    check(0, {7, 7, 7}, 5, -z);
}

TEST(Triangle, WeightsSumToOneUnlessTheTriangleIsFlat) {
    auto const check = [](double height, double tol, int flat, mgPoint_c p, mgPoint_c const &w,
                          support::Caller = {}) {
        double const corners[3][2] = {{1, 1}, {5, 1}, {5, 1 + height}};
        int degenerate = -1;
        getBaricentricCoordinates(tol, p, corners, p, degenerate); // the output is the input
        EXPECT_EQ(flat, degenerate);
        EXPECT_BITS_EQ(w, p);
    };
    check(4, 1e-12, 0, {3, 2, 0}, {0.5, 0.25, 0.25});
    check(3, support::above(0.36), 1, {1, 1, 0}, {-1, -1, -1}); // the sine is 3/5
    check(3, support::below(0.36), 0, {1, 1, 0}, {1, 0, 0});
    check(0, -1, 1, {1, 1, 0}, {-1, -1, -1}); // collinear, whatever the tolerance
}

} // namespace
