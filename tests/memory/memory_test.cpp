// SPDX-License-Identifier: MIT
// What is called for every vertex or pair allocates nothing.

#include <sstream>

#include "common/geometry.h"
#include "memory/heap.h"

namespace {

using namespace common;

struct Scene {
    Random random;
    mgXform_c a = placement(random), b = placement(random), out, view;
    mgXform_c placements[6];
    P points[21], p, q;
    U u = direction(random), axes[3];
    mgLine_c line{points[0], u};
    mgPlane_c plane{points[1], u};
    mgGenXform_c general;
    mgBBox_c box{P(-1.0, -2.0, -3.0), P(1.0, 2.0, 3.0)}, grown;
    mgMatrix4_c m4;
    std::stringstream stream{std::string(4096, ' ')}; // room enough: writing does not extend it
    su_CArchive archive{stream};
    double numbers[16] = {2.0, 3.0, 4.0};
    int answer = 0;
};

TEST(Memory, NothingIsAllocatedForAPointAPlacementOrAPair) {
    Scene s;
    s.view.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, -20.0, 5.0));
    s.general = s.view;
    s.general.set(&s.view, s.numbers);
    auto const check = [&s](char const *what, auto const &work) {
        for (P &p : s.points) p = s.random.triple<P>(-10.0, 10.0);
        int const before = heap::asked;
        work();
        int const asked = heap::asked - before;
        EXPECT_EQ(0, asked) << what;
    };
    check("transform all", [&] { mg_TransformPoints(s.points, 21, s.a); });
    check("bound all", [&] { mg_BoundPoints(s.points, 21, s.grown); });
    check("union", [&] { (s.grown |= s.points[3]) |= s.box; });
    check("multiply all", [&] {
        mg_MultiplyXforms(s.placements, 6, s.a);
        mg_MultiplyXforms(s.placements, 6, s.placements);
    });
    check("compose", [&] { s.out = s.a * s.b.inverse(); });
    check("clash", [&] { s.answer = mgBBox_c::clash(s.box, s.a, s.grown, s.b); });
    check("ray and box", [&] { s.answer = s.box.getFirstRayHit(s.points[0], s.u, &s.p); });
    check("line and plane", [&] { mg_LineIntPlane(s.line, s.plane, &s.p, nullptr); });
    check("lines", [&] { mg_LineIntLine(s.p, s.u, s.points[1], s.points[2], &s.q, 1e-8); });
    check("cylinder", [&] { mg_RayIntCylSeg(s.line, s.points[1], s.u, 2.0, 3.0, &s.p); });
    check("eigensystem", [&] { s.a.rotation().getEigensystem(s.numbers, s.axes); });
    check("cubic", [&] { mg_solveCubic(1.0, -6.0, 11.0, -6.0, s.numbers); });
    check("4x4", [&] { s.m4 = s.m4 * s.m4.inverse(); });
    check("factories", [&] {
        s.out = mg_RotateAtPoint(s.p, 1.0, s.u, 0.0);
        s.out = mg_PointAngleXform(s.p, s.q, 1.0, s.u);
        s.out = mg_PointVectorXform(s.p, s.q, s.u, s.axes[0], 0);
        s.out = mg_PointVecScaleXform(s.p, s.q, s.u, s.axes[0], 2.0);
        s.out = mg_PlaneToPlane(s.p, s.u, s.q, s.axes[0]);
    });
    check("angles", [&] { s.a.getThreeAnglesNew(s.numbers[0], s.numbers[1], s.numbers[2]); });
    check("view", [&] {
        mg_TransformPoints(s.points, 21, s.view);
        s.out = s.view.inverse();
        mg_getModelSpaceViewRay(s.view, s.points[0], 1, s.p, s.u, s.answer, &s.out);
        s.p.xformByPerspInverse(s.view);
        s.p.xformByPerspInverseVisible(s.view);
        s.p.xformByPerspInversePlane(s.view, s.plane);
        s.p.xformByPerspInverseLine(s.view, s.line);
        s.plane.projectToPlaneOnViewLine(s.view, &s.p, 1);
        s.answer = mgBBox_c::clash(s.box, s.view, s.box, s.view);
        mg_FindBBox(s.p, s.q, s.view, s.numbers, 1.0);
        s.box *= s.view;
        s.general.getGenGLData(s.numbers);
    });
    check("archive", [&] {
        s.view.save(s.archive);
        s.view.restore(s.archive);
        s.archive << s.view; // drops the record
        s.archive >> s.view;
    });
    check("polyline", [&] { s.answer = mg_IsPolylineLine(21, s.points, s.p, s.q); });
    check("general box", [&] {
        mgGeneralBox_c(s.p, s.u, s.axes[0], 1.0, 2.0, 3.0).getBBoxAndXform(s.grown, s.out);
    });
}

TEST(Memory, APolylineIsAllocatedOnceOrNotAtAll) {
    arcEdgeData const arc{P(), {0.0, 0.0, 1.0}, 5.0};
    P const start(5.0, 0.0, 0.0);
    P *made = nullptr;
    int count = 0;
    int before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, &made, count, nullptr);
    EXPECT_EQ(before + 1, heap::asked);
    delete[] made;

    suDynamicArray<P> list;
    list.Adopt(static_cast<P *>(suDynArrayAlloc(count + 1, 1, 1, sizeof(P))));
    P const *const room = list.Data();
    before = heap::asked;
    mg_TessArc(&arc, &start, &start, 0.001, nullptr, count, &list);
    EXPECT_EQ(before, heap::asked);
    EXPECT_EQ(room, list.Data());
    EXPECT_EQ(count + 1, list.Count());
}

} // namespace
