// SPDX-License-Identifier: MIT
// Every result is one of its enumeration, whose numbers callers store, also for hostile numbers.

#include "common/geometry.h"

namespace {

using namespace common;

static_assert(areNumbered(mgIntersect_Coincident, mgIntersect_Parallel, mgIntersect_Point,
                          mgIntersect_TwoPoints, mgIntersect_None));
static_assert(areNumbered(mgLinePlane_InPlane, mgLinePlane_Parallel, mgLinePlane_Point,
                          mgLinePlane_Failed));
static_assert(areNumbered(mgPlnPln_Coincident, mgPlnPln_Parallel, mgPlnPln_Line, mgPlnPln_Failed));
static_assert(areNumbered(mgLineCircle_Tangent, mgLineCircle_ThroughCentre, mgLineCircle_Secant,
                          mgLineCircle_Miss));
static_assert(areNumbered(mgClipLine_Outside, mgClipLine_Inside, mgClipLine_ClippedA,
                          mgClipLine_ClippedB, mgClipLine_ClippedBoth, mgClipLine_Touching));
static_assert(areNumbered(mgInsideBox_Outside, mgInsideBox_Touching, mgInsideBox_Partly,
                          mgInsideBox_Inside));
static_assert(areNumbered(mgPointOnLine_Off, mgPointOnLine_Between, mgPointOnLine_AtA,
                          mgPointOnLine_AtB));
static_assert(areNumbered(mgPolylineArc_None, mgPolylineArc_Arc, mgPolylineArc_Circle,
                          mgPolylineArc_Line));

TEST(Hostile, NumbersGiveAResultOfTheEnumeration) {
    Hostile a;
    P p;
    mgLine_c line;
    for (int round = 0; round < 3000; ++round) {
        auto const form = a.any<mgXform_c>();
        auto const q = a.any<P>();
        auto const u = a.any<U>();
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
            {3, mg_LineIntCircle2D(a, a, a, a, &p, &p)},
            {4, mg_CircleIntCircle2D(a, a, a, a, &p, &p)},
            {2, mg_LineIntPlane(a.any<mgLine_c>(), a.any<mgPlane_c>(), &p, nullptr)},
            {2, mg_LineSegIntPlane(a, a, a.any<mgPlane_c>(), &p, nullptr)},
            {3, mg_PlaneIntPlane(a.any<mgPlane_c>(), a.any<mgPlane_c>(), &line)},
            {2, (p = a.any<P>(), a.any<mgPlane_c>().projectToPlane(a, &p, 1))},
            {2, (p = a.any<P>(), a.any<mgPlane_c>().projectToPlaneOnViewLine(a, &p, 0))}};
        for (auto const &[most, result] : mostAndResult)
            ASSERT_TRUE(0 <= result && result <= most) << "call " << (&most - *mostAndResult) / 2;
    }
}

} // namespace
