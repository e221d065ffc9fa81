// SPDX-License-Identifier: MIT
// Every query, line, plane, cone and view function on hostile numbers. The sanitizers find traps;
// the test itself checks that every result is one of its enumeration.

#include "common/geometry.h"

namespace {

using namespace common;

/// Converts to an argument of any type. Its numbers are hostile, different ones each time.
struct Any {
    template <class T>
    operator T() {
        return random.hostile<T>();
    }
    operator U() { return direction(); }
    operator mgXform_c() {
        mgXform_c x(direction(), direction(), random.hostile<V>());
        mgPerspInfo_c info(*this, *this, *this, *this);
        info.setCameraFOVPlaneDistance(*this);
        if (random.below(2) != 0) x.addPerspectiveInfo(info);
        return x;
    }
    operator CPoint() { return {pixel(), pixel()}; }

    /// Normalised, or as restored from a document.
    U direction() {
        auto const u = random.hostile<U>();
        return random.below(2) != 0 ? u : U(V(u), 0);
    }
    int pixel() { return static_cast<int>(random.uniform(-0x1p31, 0x1p31)); }
    mgLine_c line() { return {*this, *this}; }
    mgPlane_c plane() { return {*this, *this}; }
    mgCone_c cone() { return {*this, *this, *this, *this}; }
    P point() { return random.hostile<P>(); }

    Random random;
};

P p, q, pts[4];
U u;
mgLine_c line;
mgXform_c form;
double number;
int flag;

TEST(Hostile, NothingTrapsAndEveryResultIsOfItsEnumeration) {
    Any a;
    for (int round = 0; round < 3000; ++round) {
        double triangle[3][2];
        for (auto &corner : triangle) corner[0] = a, corner[1] = a;
        pts[round & 3] = a.point();
        form = mgXform_c(a), u = a.direction(), q = a.point();
        int const mostAndResult[][2] = {
            {4, mg_LineIntLine(a, a, a, a, &p, a)},
            {4, mg_LineIntLine2D(a, a, a, a, &p, a)},
            {4, mg_LineSegIntLineSeg(a, a, a, a, p, a)},
            {4, mg_LineSegIntLineSeg2D(a, a, a, a, &p)},
            {4, mg_LineIntLineSeg(a.line(), a, a, &p, a)},
            {4, mg_RayIntLineSeg(a.line(), a, a, &p, a)},
            {4, mg_RayIntPlane(&form, &q, &u, &p)},
            {4, mg_RayIntDiskSeg(&form, &q, &u, a, a, a, &p)},
            {4, mg_RayIntSphere(&p, &u, &q, a)},
            {4, mg_RayIntCylSeg(a.line(), a, a, a, a, &p)},
            {4, mg_RayIntConeSeg(a.line(), a, a, a, a, a, &p)},
            {3, mg_LineIntCircle2D(a, a, a, a, &p, &q)},
            {4, mg_CircleIntCircle2D(a, a, a, a, &p, &q)},
            {2, mg_LineIntPlane(a.line(), a.plane(), &p, &number)},
            {2, mg_LineSegIntPlane(a, a, a.plane(), &p, &number)},
            {3, mg_PlaneIntPlane(a.plane(), a.plane(), &line)},
            {1, mg_IsPolylineLine(4, pts, p, q)},
            {1, mg_Find3PointArcCenter(pts, &p, &u)},
            {2, (p = a.point(), a.plane().projectToPlane(a, &p, 1))},
            {2, (p = a.point(), a.plane().projectToPlaneOnViewLine(a, &p, 0))},
            {1, a.line().pointPerp(a, &p)},
            {1, a.line().isPointOn(a)},
            {1, a.line().isEquivalent(a.line())},
            {1, a.line().snapPointToLine(p, &p, a)},
            {1, a.plane().pointPerp(a, &p)},
            {1, a.plane().isPointOn(a, a)},
            {1, a.plane().isCoincidentWith(a.plane())},
            {1, a.plane().isEquivalent(a.plane())},
            {1, a.plane().cutLineSegment(a, a, a)},
            {1, interLine(a.plane(), a.plane(), &p, &u)},
            {1, (getBaricentricCoordinates(a, a, triangle, p, flag), flag)},
            {1, a.cone().pointPerp(a, &p)},
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
        a.point().xformByPerspInversePlane(a, a.plane());
        a.point().xformByPerspInverseLine(a, a.line());
        line = a.line(), line *= mgXform_c(a);
        number = a.line().distToLine(a.line(), &number, nullptr);
        a.cone().extremePts(a, a, pts);
        p = s_projPointOnLine(a, a, a);
    }
}

} // namespace
