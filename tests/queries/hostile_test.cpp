// SPDX-License-Identifier: MIT
// Every query, line, plane, cone and view function on hostile numbers. The sanitizers find traps;
// the test itself checks that every result is one of its enumeration.

#include "common/numbers.h"

#include <vexmath/cone.h>
#include <vexmath/mg_primitives.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>

namespace {

/// Hostile arguments, different ones at each call.
class Arguments {
public:
    double number() { return random_.hostile(); }
    mgPoint_c point() { return vector(); }
    mgVector_c vector() { return mgVector_c{number(), number(), number()}; }
    /// Normalised, or as restored from a document.
    mgUnitVector_c unit() {
        mgUnitVector_c u(vector(), 0);
        if (random_.below(2) != 0) u.set(vector());
        return u;
    }
    mgLine_c line() { return {point(), unit()}; }
    mgPlane_c plane() { return {point(), unit()}; }
    mgXform_c form() {
        mgXform_c x(unit(), unit(), vector());
        if (random_.below(2) != 0) {
            mgPerspInfo_c info(number(), number(), number(), number());
            info.setCameraFOVPlaneDistance(number());
            x.addPerspectiveInfo(info);
        }
        return x;
    }
    mgCone_c cone() { return {point(), unit(), number(), number()}; }
    double const (*triangle())[2] {
        for (auto &corner : triangle_)
            for (double &coordinate : corner) coordinate = number();
        return triangle_;
    }
    CPoint pixels() { return {pixel(), pixel()}; }

private:
    int pixel() { return static_cast<int>(random_.uniform(-0x1p31, 0x1p31)); }

    support::Random random_;
    double triangle_[3][2] = {};
};

mgPoint_c p, q, pts[4];
mgUnitVector_c u;
mgLine_c line;
mgXform_c form;
double number;
int flag;

TEST(Hostile, NothingTrapsAndEveryResultIsOfItsEnumeration) {
    Arguments a;
    for (int round = 0; round < 3000; ++round) {
        int const mostAndResult[][2] = {
            {4, mg_LineIntLine(a.point(), a.vector(), a.point(), a.vector(), &p, a.number())},
            {4, mg_LineIntLine2D(a.point(), a.vector(), a.point(), a.vector(), &p, a.number())},
            {4, mg_LineSegIntLineSeg(a.point(), a.point(), a.point(), a.point(), p, a.number())},
            {4, mg_LineSegIntLineSeg2D(a.point(), a.point(), a.point(), a.point(), &p)},
            {4, mg_LineIntLineSeg(a.line(), a.point(), a.point(), &p, a.number())},
            {4, mg_RayIntLineSeg(a.line(), a.point(), a.point(), &p, a.number())},
            {4, (form = a.form(), u = a.unit(), q = a.point(), mg_RayIntPlane(&form, &q, &u, &p))},
            {4, mg_RayIntDiskSeg(&form, &q, &u, a.number(), a.number(), a.number(), &p)},
            {4, mg_RayIntSphere(&p, &u, &q, a.number())},
            {4, mg_RayIntCylSeg(a.line(), a.point(), a.unit(), a.number(), a.number(), &p)},
            {4, mg_RayIntConeSeg(a.line(), a.point(), a.unit(), a.number(), a.number(), a.number(),
                                 &p)},
            {3, mg_LineIntCircle2D(a.point(), a.unit(), a.point(), a.number(), &p, &q)},
            {4, mg_CircleIntCircle2D(a.point(), a.number(), a.point(), a.number(), &p, &q)},
            {2, mg_LineIntPlane(a.line(), a.plane(), &p, &number)},
            {2, mg_LineSegIntPlane(a.point(), a.point(), a.plane(), &p, &number)},
            {3, mg_PlaneIntPlane(a.plane(), a.plane(), &line)},
            {1, (pts[round & 3] = a.point(), mg_IsPolylineLine(4, pts, p, q))},
            {1, (pts[round & 3] = a.point(), mg_Find3PointArcCenter(pts, &p, &u))},
            {0, (mg_getModelSpaceViewRay(a.form(), a.point(), flag & 1, p, u, flag, &form), 0)},
            {0, (form = mg_ZoomToPosition(p, a.point(), a.point(), a.form(), a.number()), 0)},
            {0, (form = mg_ZoomBoxToBox(a.pixels(), a.pixels(), p, q, a.form(), a.number()), 0)},
            {0, (p.xformByPerspInverse(a.form()), q.xformByPerspInverseVisible(a.form()), 0)},
            {0, (a.point().xformByPerspInversePlane(a.form(), a.plane()), 0)},
            {0, (a.point().xformByPerspInverseLine(a.form(), a.line()), 0)},
            {2, (p = a.point(), a.plane().projectToPlane(a.form(), &p, 1))},
            {2, (p = a.point(), a.plane().projectToPlaneOnViewLine(a.form(), &p, 0))},
            {1, a.line().pointPerp(a.point(), &p)},
            {1, a.line().isPointOn(a.point())},
            {1, a.line().isEquivalent(a.line())},
            {1, a.line().snapPointToLine(p, &p, a.number())},
            {0, (line = a.line(), line *= a.form(), 0)},
            {0, (number = a.line().distToLine(a.line(), &number, nullptr), 0)},
            {1, a.plane().pointPerp(a.point(), &p)},
            {1, a.plane().isPointOn(a.point(), a.number())},
            {1, a.plane().isCoincidentWith(a.plane())},
            {1, a.plane().isEquivalent(a.plane())},
            {1, a.plane().cutLineSegment(a.point(), a.point(), a.number())},
            {1, interLine(a.plane(), a.plane(), &p, &u)},
            {1, (getBaricentricCoordinates(a.number(), a.point(), a.triangle(), p, flag), flag)},
            {1, a.cone().pointPerp(a.point(), &p)},
            {0, (a.cone().extremePts(a.unit(), a.number(), pts), 0)},
            {1, mgCylinder_c(a.point(), a.unit(), a.number()).pointPerp(a.point(), &p)},
            {0, (p = s_projPointOnLine(a.point(), a.point(), a.vector()), 0)},
        };
        for (std::size_t i = 0; i < std::size(mostAndResult); ++i) {
            auto const [most, result] = mostAndResult[i];
            ASSERT_TRUE(0 <= result && result <= most) << "call " << i << " is " << result;
        }
    }
}

} // namespace
