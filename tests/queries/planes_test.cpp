// SPDX-License-Identifier: MIT
// Planes with lines, segments and each other.

#include "common/geometry.h"

namespace {

U const z(0, 0, 1);
mgPlane_c const ground(P(9, 9, 0), z);
double const inside = below(1e-08);

void CheckLine(mgLinePlaneIntersectionType_e type, double height, V const &direction,
               P const &point, double parameter, Caller = {}) {
    U u;
    u.set(direction); // not normalised
    P out = untouched;
    double t = 77.0;
    EXPECT_EQ(type, mg_LineIntPlane({P(1, 2, height), u}, ground, &out, &t));
    EXPECT_BITS_EQ(point, out);
    EXPECT_BITS_EQ(parameter, t);
}

TEST(Planes, ALineLiesInThePlaneRunsBesideItOrCrossesIt) {
    CheckLine(mgLinePlane_InPlane, inside, {1, 0, inside}, {1, 2, inside}, 77);
    CheckLine(mgLinePlane_Parallel, 1e-08, {1, 0, inside}, untouched, 77);
    CheckLine(mgLinePlane_Point, 1, {1, 0, 1e-08}, {1 - 1 / 1e-08, 2, 0}, -1 / 1e-08);
}

TEST(Planes, ASegmentThatEndsBeforeThePlaneStillTellsTheParameter) {
    auto const check = [](mgLinePlaneIntersectionType_e type, double from, double to, double t,
                          double height, Caller = {}) {
        P a(1, 2, from); // an output as well
        double parameter = 77.0;
        P same;
        EXPECT_EQ(type, mg_LineSegIntPlane(a, P(1, 2, to), ground, &same, nullptr));
        EXPECT_EQ(type, mg_LineSegIntPlane(a, P(1, 2, to), ground, &a, &parameter));
        EXPECT_BITS_EQ(P(1, 2, height), a);
        EXPECT_BITS_EQ(t, parameter);
    };
    check(mgLinePlane_Point, 4, 9.99e-9, 4, 0), check(mgLinePlane_Parallel, 4, 1.001e-8, 4, 0);
    check(mgLinePlane_Point, -1e-8, -4, -1e-8, 0);
    check(mgLinePlane_Parallel, below(-1e-8), -4, below(-1e-8), 0);
    check(mgLinePlane_InPlane, 0, 0, 0, 0); // neither length nor direction
}

mgLine_c meet(mgPlnPlnIntersectionType_e type, P const &root, U const &normal,
              mgPlane_c const &first = ground) {
    mgLine_c out(untouched, z);
    EXPECT_EQ(type, mg_PlaneIntPlane(first, {root, normal}, &out));
    EXPECT_EQ(type != mgPlnPln_Line, out.rootPoint() == untouched);
    return out;
}

TEST(Planes, ParallelPlanesCoincideBelowTheTolerance) {
    meet(mgPlnPln_Coincident, {1, 1, inside}, -z);
    meet(mgPlnPln_Parallel, {1, 1, 1e-08}, z);
    U const slanted(1, 2, 2);
    meet(mgPlnPln_Coincident, {5, -3, 5}, slanted, {P(3, -2, 5), slanted});
    meet(mgPlnPln_Parallel, {5, -3, 5.001}, -slanted, {P(3, -2, 5), slanted});
    // Normals that differ by hardly more than 1e-08: both lines that are tried are parallel.
    meet(mgPlnPln_Failed, {1, 1, 1}, U(1.2e-8, 0, 1));
}

TEST(Planes, ALineOfBothPlanesIsTakenAsItIs) {
    U const tried(1, 1, 0); // in the ground plane first
    for (double sign : {1.0, -1.0}) {
        U const upright(sign, -sign, 0);
        mgLine_c const shared = meet(mgPlnPln_Line, ground.rootPoint(), upright);
        EXPECT_EQ(1, shared.isEquivalent({ground.rootPoint(), tried}));
        // Otherwise the normals decide the sign; here the second line tried finds the point.
        mgLine_c const found = meet(mgPlnPln_Line, {11, 9, 0}, upright);
        EXPECT_EQ(1, found.isEquivalent({{10, 8, 0}, mg_Normalise(sign * tried)}));
    }
}

} // namespace
