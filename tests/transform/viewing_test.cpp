// SPDX-License-Identifier: MIT
// View rays, inverse mappings of screen points, projections along the line of sight, zoom.

#include "support/numbers.h"

#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>

namespace {

constexpr double nearZ = -8.0;
mgPoint_c const model(1, 2, 3);
mgUnitVector_c const x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);

mgXform_c plainView() { return mg_RestoreXform({y, z, x}, mgVector_c(3, -2, 1), 2.0); }

/// The same with an eye, classified by its field-of-view plane.
mgXform_c viewWithRecord(double fovPlaneDistance) {
    mgXform_c view = plainView();
    mgPerspInfo_c info(1, 2, nearZ - 2.0, 2.0);
    info.setCameraFOVPlaneDistance(fovPlaneDistance);
    view.addPerspectiveInfo(info);
    return view;
}

mgLine_c rayOf(mgXform_c view, mgPoint_c p, int isScreen, int expectCamera) {
    mgUnitVector_c dir;
    int isCamera = -1;
    mg_getModelSpaceViewRay(view, p, isScreen, p, dir, isCamera, &view); // outputs are inputs
    EXPECT_EQ(expectCamera, isCamera);
    EXPECT_EQ(0, view.hasPerspective());
    return {p, dir};
}

void expectNear(mgPoint_c const &expected, mgPoint_c const &actual) {
    EXPECT_NEAR(0.0, dist(expected, actual), 1e-12);
}

TEST(Viewing, ScreenPointsGoBackAlongTheirLineOfSight) {
    for (double fov : {-1.0, 0.0, 4.0}) {
        mgXform_c const view = viewWithRecord(fov);
        mgPoint_c const screen = model * view;
        mgLine_c const ray = rayOf(view, model, 0, fov >= 0.0);
        mgPoint_c const begin = ray.rootPoint();
        EXPECT_NEAR(nearZ, (begin * plainView()).z(), 1e-12);
        EXPECT_NEAR(1.0, mg_Normalise(model - begin) % ray.direction(), 1e-14);
        expectNear(begin, rayOf(view, screen, 1, fov >= 0.0).rootPoint());
        expectNear(begin, mgPoint_c(screen).xformByPerspInverse(view));
        expectNear(model, mgPoint_c(screen).xformByPerspInverseVisible(view));
        // Before the near clip plane a point is raised to it first.
        EXPECT_BITS_EQ(mgPoint_c(5, 5, nearZ).xformByPerspInverseVisible(view),
                       mgPoint_c(5, 5, nearZ - 1.0).xformByPerspInverseVisible(view));
    }
}

TEST(Viewing, WithoutARecordTheCallersViewIsInvertedAsItIs) {
    EXPECT_BITS_EQ(model, rayOf(plainView(), model, 0, 0).rootPoint());
    EXPECT_BITS_EQ(y, rayOf(plainView(), model, 0, 0).direction());
    mgXform_c view = mg_ScaleXform(4e12);
    view *= mg_ScaleXform(2.0); // a copy would take the scale as 1
    mgPoint_c p(8e12, 0, 0);
    mgUnitVector_c dir;
    int isCamera = -1;
    mg_getModelSpaceViewRay(view, p, 1, p, dir, isCamera, nullptr);
    EXPECT_BITS_EQ(x, p);
    EXPECT_EQ(8e12, mgPoint_c(8e12, 0, 0).xformByPerspInverse(view).x());
}

TEST(Viewing, TheLineOfSightMeetsPlanesAndLines) {
    mgXform_c const view = viewWithRecord(4.0);
    mgLine_c const ray = rayOf(view, model, 0, 1);
    mgPoint_c const begin = ray.rootPoint();
    mgUnitVector_c const across = mg_Normalise(ray.direction() * x);
    mgPoint_c screen = model * view;
    expectNear(model, mgPoint_c(screen).xformByPerspInverseLine(view, {model, x}));
    expectNear(model, mgPoint_c(screen).xformByPerspInverseLine(view, {model + across, x})); // skew
    mgLine_c const beside(model + x, ray.direction());
    expectNear(begin, mgPoint_c(screen).xformByPerspInverseLine(view, beside));
    expectNear(model, screen.xformByPerspInversePlane(view, {model, mgUnitVector_c(1, 1, 1)}));
    expectNear(model, screen); // the point itself has moved

    auto const project = [&](mgPoint_c const &root, mgUnitVector_c const &normal,
                             mgLinePlaneIntersectionType_e type, mgPoint_c const &expected) {
        mgPoint_c p = model;
        EXPECT_EQ(type, mgPlane_c(root, normal).projectToPlaneOnViewLine(view, &p, 0));
        expectNear(expected, p);
    };
    project(model, mgUnitVector_c(1, 1, 1), mgLinePlane_Point, model);
    project(model, across, mgLinePlane_InPlane, begin);
    project(model + across, across, mgLinePlane_Parallel, begin);
}

TEST(Viewing, AProjectionFollowsTheImageOfTheDepthAxis) {
    auto const project = [](mgUnitVector_c const &normal, int flag, double height,
                            mgLinePlaneIntersectionType_e type, mgPoint_c const &expected) {
        mgPoint_c p(1, 2, height);
        mgPlane_c const plane(mgPoint_c(7, 7, 0), normal);
        EXPECT_EQ(type, plane.projectToPlane(plainView(), &p, flag)); // z goes to x
        EXPECT_BITS_EQ(expected, p);
    };
    project(x, 0, 3, mgLinePlane_Point, {7, 2, 3});
    project(x, 1, 3, mgLinePlane_Point, {7, 0, 5});
    project(z, 0, 0, mgLinePlane_InPlane, {1, 2, 0});
    project(z, 0, 3, mgLinePlane_Parallel, {1, 2, 3});
}

TEST(Viewing, ZoomPutsTheMiddleAtTheScreenPosition) {
    mgXform_c const zoom = mg_ZoomToPosition(mgPoint_c(100, 50, 77), mgPoint_c(1, 2, 3),
                                             mgPoint_c(5, 4, 9), viewWithRecord(0.0), 3.0);
    EXPECT_BITS_EQ(mgPoint_c(103, 48, 1), mgPoint_c(3, 3, 6) * zoom); // the view's move stays
    EXPECT_EQ(6.0, zoom.scaling());
    EXPECT_EQ(1, zoom.hasPerspective());
}

TEST(Viewing, ABoxDraggedBackwardsIsCentredBeyondItsStart) {
    auto const check = [](CPoint const &p1, CPoint const &p2, double px, double py) {
        mgXform_c const zoom = mg_ZoomBoxToBox(p1, p2, mgPoint_c(), mgPoint_c(2, 2, 2), {}, 1.0);
        EXPECT_BITS_EQ(mgPoint_c(px, py, 0), mgPoint_c(1, 1, 1) * zoom);
    };
    check({0, -7}, {11, -10}, 5, -6); // halves are cut off
    check({10, 10}, {0, 0}, 15, 15);
    constexpr int lowest = std::numeric_limits<int>::min(), highest = -1 - lowest;
    check({lowest, highest}, {highest, lowest}, -1, 2.0 * highest);
}

} // namespace
