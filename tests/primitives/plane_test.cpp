// SPDX-License-Identifier: MIT
// Planes: tolerances, comparison, segments, the line of two planes, mirrors; triangles.

#include "support/numbers.h"

#include <vexmath/mg_primitives.h>
#include <vexmath/mg_transform.h>
#include <vexmath/plane.h>

namespace {

mgUnitVector_c const z(0, 0, 1);
mgPlane_c const ground(mgPoint_c(1, 2, 0), z);

TEST(Plane, ToleranceIsStrictAndOrientationCountsForEquivalence) {
    EXPECT_EQ(0, ground.isPointOn(mgPoint_c(5, 5, 0), 0.0)); // not even a point in it
    EXPECT_EQ(0, ground.isPointOn(mgPoint_c(5, 5, 1e-08), -1.0));
    EXPECT_EQ(1, ground.isPointOn(mgPoint_c(5, 5, -std::nextafter(1e-08, 0.0)), -1.0));
    auto const check = [](double height, mgUnitVector_c const &n, int coincident, int equivalent) {
        EXPECT_EQ(coincident, ground.isCoincidentWith({mgPoint_c(7, 7, height), n}));
        EXPECT_EQ(equivalent, ground.isEquivalent({mgPoint_c(7, 7, height), n}));
    };
    check(0, z, 1, 1);
    check(0, -z, 1, 0);
    check(1, z, 0, 0);
    check(0, mgUnitVector_c(), 0, 0);
    mgUnitVector_c twice;
    twice.set(0, 0, 2);
    EXPECT_EQ(-3.0, mgPlane_c(mgPoint_c(1, 2, 3), twice).getHessianNormalFormConstant());
}

TEST(Plane, APointInThePlaneCountsAsOnTheNegativeSide) {
    auto const check = [](int cuts, double a, double b, double tol) {
        EXPECT_EQ(cuts, ground.cutLineSegment(mgPoint_c(0, 0, a), mgPoint_c(1, 0, b), tol));
    };
    check(1, 0, 1, 0);
    check(0, 0, -1, 0);
    check(1, 0, -1, 1e-8);
    check(0, 2, 0.5, 0.5);
    check(1, 2, 0.5, std::nextafter(0.5, 1.0));
}

void checkCommonLine(int found, mgPoint_c const &begin, mgUnitVector_c const &normal,
                     double height = 5.0) {
    mgPoint_c point(7, 7, 7);
    mgUnitVector_c dir(7, 7, 7);
    EXPECT_EQ(found, interLine(ground, {mgPoint_c(8, 9, height), normal}, &point, &dir));
    EXPECT_NEAR(0.0, (point - begin).len(), 1e-14);
    EXPECT_EQ(found, dir == mg_Normalise(z * normal));
}

TEST(Plane, TheLineOfTwoPlanesIsOnEitherSideOfTheSecondRootsFoot) {
    checkCommonLine(1, {13, 9, 0}, mgUnitVector_c(1, 0, 1));
    checkCommonLine(1, {3, 9, 0}, mgUnitVector_c(1, 0, -1)); // an obtuse angle
    checkCommonLine(1, {8, 9, 0}, mgUnitVector_c(1, 0, 0));
    checkCommonLine(1, {8, 9, 0}, mgUnitVector_c(1, 0, 1), 0.0); // the root itself
    checkCommonLine(0, {7, 7, 7}, -z);
}

TEST(Plane, AMirrorNegatesTheHeight) {
    mgXform_c const mirror = mg_PlaneReflectionXform({mgPoint_c(1, 2, 3), z});
    EXPECT_EQ(1, mirror.isReflection());
    EXPECT_BITS_EQ(mgPoint_c(4, 5, 1), mgPoint_c(4, 5, 5) * mirror);
}

void checkWeights(double height, double tol, int flat, mgPoint_c const &p, mgPoint_c const &w) {
    double const corners[3][2] = {{1, 1}, {5, 1}, {5, 1 + height}};
    double out[3] = {p.x(), p.y(), 0}; // the output is the input
    int degenerate = -1;
    getBaricentricCoordinates(tol, out, corners, out, degenerate);
    EXPECT_EQ(flat, degenerate);
    EXPECT_BITS_EQ(w, mgPoint_c(out));
}

TEST(Triangle, WeightsSumToOneUnlessTheTriangleIsFlat) {
    checkWeights(4, 1e-12, 0, {5, 1, 0}, {0, 1, 0});
    checkWeights(4, 1e-12, 0, {3, 2, 0}, {0.5, 0.25, 0.25});
    checkWeights(3, std::nextafter(0.36, 1), 1, {1, 1, 0}, {-1, -1, -1}); // the sine is 3/5
    checkWeights(3, std::nextafter(0.36, 0), 0, {1, 1, 0}, {1, 0, 0});
    checkWeights(0, -1, 1, {1, 1, 0}, {-1, -1, -1}); // collinear, whatever the tolerance
}

} // namespace
