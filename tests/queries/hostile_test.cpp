// SPDX-License-Identifier: MIT
// Every query, line, plane, cone and view function on hostile numbers. The sanitizers find traps;
// the test itself checks that every result is one of its enumeration.

#include <vector>

#include "common/geometry.h"

namespace {

using namespace common;

P p, q, pts[4];
U u;
mgLine_c line;
mgXform_c form;
double number;
int flag;

TEST(Hostile, NothingTrapsAndEveryResultIsOfItsEnumeration) {
    Hostile a;
    for (int round = 0; round < 3000; ++round) {
        double triangle[3][2];
        for (auto &corner : triangle) corner[0] = a, corner[1] = a;
        pts[round & 3] = a.any<P>();
        form = a.any<mgXform_c>(), u = a.any<U>(), q = a.any<P>();
        int const mostAndResult[][2] = {
            {4, mg_LineIntLine(a, a, a, a, &p, a)},
            {4, mg_LineIntLine2D(a, a, a, a, &p, a)},
            {4, mg_LineSegIntLineSeg(a, a, a, a, p, a)},
            {4, mg_LineSegIntLineSeg2D(a, a, a, a, &p)},
            {4, mg_LineIntLineSeg(a.any<mgLine_c>(), a, a, &p, a)},
            {4, mg_RayIntLineSeg(a.any<mgLine_c>(), a, a, &p, a)},
            {4, mg_RayIntPlane(&form, &q, &u, &p)},
            {4, mg_RayIntDiskSeg(&form, &q, &u, a, a, a, &p)},
            {4, mg_RayIntSphere(&p, &u, &q, a)},
            {4, mg_RayIntCylSeg(a.any<mgLine_c>(), a, a, a, a, &p)},
            {4, mg_RayIntConeSeg(a.any<mgLine_c>(), a, a, a, a, a, &p)},
            {3, mg_LineIntCircle2D(a, a, a, a, &p, &q)},
            {4, mg_CircleIntCircle2D(a, a, a, a, &p, &q)},
            {2, mg_LineIntPlane(a.any<mgLine_c>(), a.any<mgPlane_c>(), &p, &number)},
            {2, mg_LineSegIntPlane(a, a, a.any<mgPlane_c>(), &p, &number)},
            {3, mg_PlaneIntPlane(a.any<mgPlane_c>(), a.any<mgPlane_c>(), &line)},
            {1, mg_IsPolylineLine(4, pts, p, q)},
            {1, mg_Find3PointArcCenter(pts, &p, &u)},
            {2, (p = a.any<P>(), a.any<mgPlane_c>().projectToPlane(a, &p, 1))},
            {2, (p = a.any<P>(), a.any<mgPlane_c>().projectToPlaneOnViewLine(a, &p, 0))},
            {1, a.any<mgLine_c>().pointPerp(a, &p)},
            {1, a.any<mgLine_c>().isPointOn(a)},
            {1, a.any<mgLine_c>().isEquivalent(a.any<mgLine_c>())},
            {1, a.any<mgLine_c>().snapPointToLine(p, &p, a)},
            {1, a.any<mgPlane_c>().pointPerp(a, &p)},
            {1, a.any<mgPlane_c>().isPointOn(a, a)},
            {1, a.any<mgPlane_c>().isCoincidentWith(a.any<mgPlane_c>())},
            {1, a.any<mgPlane_c>().isEquivalent(a.any<mgPlane_c>())},
            {1, a.any<mgPlane_c>().cutLineSegment(a, a, a)},
            {1, interLine(a.any<mgPlane_c>(), a.any<mgPlane_c>(), &p, &u)},
            {1, (getBaricentricCoordinates(a, a.any<P>(), triangle, p, flag), flag)},
            {1, a.any<mgCone_c>().pointPerp(a, &p)},
            {1, mgCylinder_c(a, a, a).pointPerp(a, &p)},
        };
        for (std::size_t i = 0; i < std::size(mostAndResult); ++i) {
            auto const [most, result] = mostAndResult[i];
            ASSERT_TRUE(0 <= result && result <= most) << "call " << i << " is " << result;
        }
        mg_getModelSpaceViewRay(a, a, flag & 1, p, u, flag, &form);
        form = mg_ZoomToPosition(p, a, a, a, a);
        form = mg_ZoomBoxToBox(a, a, p, q, a, a);
        p.xformByPerspInverse(a), q.xformByPerspInverseVisible(a);
        a.any<P>().xformByPerspInversePlane(a, a.any<mgPlane_c>());
        a.any<P>().xformByPerspInverseLine(a, a.any<mgLine_c>());
        line = a.any<mgLine_c>(), line *= a.any<mgXform_c>();
        number = a.any<mgLine_c>().distToLine(a.any<mgLine_c>(), &number, nullptr);
        a.any<mgCone_c>().extremePts(a, a, pts);
        p = s_projPointOnLine(a, a, a);
    }
}

TEST(Results, HaveTheNumbersThatCallersStore) {
    std::vector<std::vector<int>> const enumerations{
        {mgIntersect_Coincident, mgIntersect_Parallel, mgIntersect_Point, mgIntersect_TwoPoints,
         mgIntersect_None},
        {mgLinePlane_InPlane, mgLinePlane_Parallel, mgLinePlane_Point, mgLinePlane_Failed},
        {mgPlnPln_Coincident, mgPlnPln_Parallel, mgPlnPln_Line, mgPlnPln_Failed},
        {mgLineCircle_Tangent, mgLineCircle_ThroughCentre, mgLineCircle_Secant, mgLineCircle_Miss},
        {mgClipLine_Outside, mgClipLine_Inside, mgClipLine_ClippedA, mgClipLine_ClippedB,
         mgClipLine_ClippedBoth, mgClipLine_Touching},
        {mgInsideBox_Outside, mgInsideBox_Touching, mgInsideBox_Partly, mgInsideBox_Inside},
        {mgPointOnLine_Off, mgPointOnLine_Between, mgPointOnLine_AtA, mgPointOnLine_AtB},
        {mgPolylineArc_None, mgPolylineArc_Arc, mgPolylineArc_Circle, mgPolylineArc_Line}};
    for (auto const &numbers : enumerations)
        for (std::size_t i = 0; i < numbers.size(); ++i) EXPECT_EQ(static_cast<int>(i), numbers[i]);
}

} // namespace
