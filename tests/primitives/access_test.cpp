// SPDX-License-Identifier: MIT
// What setters of the primitives store, getters give back; planes and circles under a transform.

#include <vexmath/arc.h>
#include <vexmath/circle.h>
#include <vexmath/cone.h>
#include <vexmath/mg_transform.h>
#include <vexmath/plane.h>

#include "support/numbers.h"

namespace {

mgPoint_c const kPoint(1.0, 2.0, 3.0);
mgUnitVector_c const &kX = mgUnitVector_c::xAxis();
mgUnitVector_c const &kZ = mgUnitVector_c::zAxis();

} // namespace

TEST(PrimitiveAccess, ArcsGiveBackWhatTheyWereMadeOf) {
    mgArc_c arc(kX, kPoint, kPoint + mgVector_c(0, 2, 0), kPoint + mgVector_c(0, 0, 2));
    mgPoint_c centre, start, end;
    mgUnitVector_c normal;
    arc.getCenter(centre);
    arc.getStart(start);
    arc.getEnd(end);
    arc.getNormal(normal);
    EXPECT_BITS_EQ(kPoint, centre);
    EXPECT_BITS_EQ(mgPoint_c(1, 4, 3), start);
    EXPECT_BITS_EQ(mgPoint_c(1, 2, 5), end);
    EXPECT_BITS_EQ(kX, normal);
    EXPECT_EQ(arc.getStartAngleInRadians(), 0.0);
    arc.getStartPoint(
        start); // in the plane of the centre's z, from +x: not the point it was made of
    EXPECT_BITS_EQ(mgPoint_c(3, 2, 3), start);
    EXPECT_FALSE(arc.is2D());
    arc.set2D(true);
    EXPECT_TRUE(arc.is2D());
    mgMatrix_c turn;
    turn(0, 1) = 0.5;
    arc.setMatrix(turn);
    EXPECT_EQ(arc.matrix()(0, 1), 0.5);
}

TEST(PrimitiveAccess, LinesPlanesCirclesAndConesKeepAndMoveTheirParts) {
    mgXform_c const place =
        mg_ScaleXform(mg_CoordinateXform(mgPoint_c(10, 0, 0), mgUnitVector_c::yAxis(), kZ), 2.0);
    mgLine_c line(kPoint, kX);
    line.setDirection(kZ);
    EXPECT_BITS_EQ(kZ, line.direction());
    mgPlane_c plane(kPoint, kZ);
    plane.setNormal(kX);
    plane *= place;
    EXPECT_BITS_EQ(mgUnitVector_c::yAxis(), plane.normal());
    EXPECT_BITS_EQ(mgPoint_c(16, 2, 4), plane.rootPoint());

    mgCircle_c circle(kPoint, 3.0, kX);
    circle *= place;
    EXPECT_BITS_EQ(mgPoint_c(16, 2, 4), circle.center());
    EXPECT_EQ(circle.radius(), 6.0);
    EXPECT_BITS_EQ(mgUnitVector_c::yAxis(), circle.normal());

    mgCone_c cone;
    cone.setRootPoint(kPoint);
    cone.setAxis(kX);
    cone.setRadius(4.0);
    cone.setAngle(0.25);
    EXPECT_BITS_EQ(kPoint, cone.rootPoint());
    EXPECT_BITS_EQ(kX, cone.axis());
    EXPECT_EQ(cone.radius() + cone.angle(), 4.25);
    EXPECT_EQ(mgCylinder_c().angle(), 0.0);
    EXPECT_EQ(mgCylinder_c().radius(), 0.01);
}

TEST(PrimitiveAccess, ConesAndCylindersAnswerThroughTheirBaseAndByThemselves) {
    mgCylinder_c const cylinder(mgPoint_c(), kZ, 2.0);
    mgCone_c const cone(mgPoint_c(), kZ, 2.0, 0.0);
    mgPoint_c foot, own, ends[2];
    mgCone_c const &base = cylinder;
    EXPECT_EQ(base.pointPerp(mgPoint_c(5, 0, 7), &foot), 0);
    EXPECT_EQ(cylinder.pointPerp(mgPoint_c(5, 0, 7), &own), 0);
    EXPECT_BITS_EQ(mgPoint_c(2, 0, 7), foot);
    EXPECT_BITS_EQ(foot, own);
    EXPECT_EQ(cone.pointPerp(mgPoint_c(0, 0, 7), &foot), 0); // on the axis, away from the root
    EXPECT_BITS_EQ(mgPoint_c(0, 0, 7), foot);
    cone.extremePts(kX, 3.0, ends);
    EXPECT_BITS_EQ(mgPoint_c(-2, 0, 0), ends[0]);
    EXPECT_BITS_EQ(mgPoint_c(2, 0, 0), ends[1]);
}
