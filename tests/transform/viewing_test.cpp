// SPDX-License-Identifier: MIT
// View rays, inverse mappings of screen points, projections along the line of sight, zoom.

#include "common/geometry.h"

namespace {

constexpr double nearZ = -8.0;
P const model(1, 2, 3);
U const x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
mgXform_c const plainView = mg_RestoreXform({y, z, x}, V(3, -2, 1), 2.0);

/// The same with an eye, classified by its field-of-view plane.
mgXform_c viewWithRecord(double fovPlaneDistance) {
    mgXform_c view = plainView;
    mgPerspInfo_c info(1, 2, nearZ - 2.0, 2.0);
    info.setCameraFOVPlaneDistance(fovPlaneDistance);
    view.addPerspectiveInfo(info);
    return view;
}

mgLine_c rayOf(mgXform_c view, P p, int isScreen, int expectCamera) {
    U dir;
    int isCamera = -1;
    mg_getModelSpaceViewRay(view, p, isScreen, p, dir, isCamera, &view); // outputs are inputs
    EXPECT_EQ(expectCamera, isCamera);
    EXPECT_EQ(0, view.hasPerspective());
    return {p, dir};
}

void CheckNear(P const &expected, P const &actual, Caller = {}) {
    EXPECT_LT(gap(expected, actual), 1e-12);
}

TEST(Viewing, ScreenPointsMoveAlongTheirLineOfSight) {
    for (double fov : {-1.0, 0.0, 4.0}) {
        mgXform_c const view = viewWithRecord(fov);
        P const screen = model * view;
        mgLine_c const ray = rayOf(view, model, 0, fov >= 0.0);
        P const begin = ray.rootPoint();
        EXPECT_NEAR(nearZ, (begin * plainView).z(), 1e-12);
        EXPECT_NEAR(1.0, mg_Normalise(model - begin) % ray.direction(), 1e-14);
        CheckNear(begin, rayOf(view, screen, 1, fov >= 0.0).rootPoint());
        CheckNear(begin, P(screen).xformByPerspInverse(view));
        CheckNear(model, P(screen).xformByPerspInverseVisible(view));
        // A point in front of the near clip plane is moved to it first.
        EXPECT_BITS_EQ(P(5, 5, nearZ).xformByPerspInverseVisible(view),
                       P(5, 5, nearZ - 1.0).xformByPerspInverseVisible(view));
    }
}

TEST(Viewing, WithoutARecordTheCallersViewIsInvertedAsItIs) {
    EXPECT_BITS_EQ(y, rayOf(plainView, model, 0, 0).direction());
    P p(8e12, 0, 0);
    U dir;
    int isCamera = -1;
    // A copy would have scale 1.
    mg_getModelSpaceViewRay(raw({}, {}, 8e12), p, 1, p, dir, isCamera, nullptr);
    EXPECT_BITS_EQ(x, p);
}

TEST(Viewing, TheLineOfSightMeetsPlanesAndLines) {
    mgXform_c const view = viewWithRecord(4.0);
    mgLine_c const ray = rayOf(view, model, 0, 1);
    U const across = mg_Normalise(ray.direction() * x), slanted(1, 1, 1);
    P screen = model * view, begin = ray.rootPoint();
    CheckNear(model, P(screen).xformByPerspInverseLine(view, {model + across, x})); // skew
    CheckNear(begin, P(screen).xformByPerspInverseLine(view, {model + x, ray.direction()}));
    CheckNear(model, screen.xformByPerspInversePlane(view, {model, slanted}));
    CheckNear(model, screen); // the point itself has moved

    auto const check = [&](P const &root, U const &normal, int type, P const &expected,
                           Caller = {}) {
        P p = model;
        EXPECT_EQ(type, mgPlane_c(root, normal).projectToPlaneOnViewLine(view, &p, 0));
        CheckNear(expected, p);
    };
    check(model, slanted, mgLinePlane_Point, model);
    check(model, across, mgLinePlane_InPlane, begin);
    check(model + across, across, mgLinePlane_Parallel, begin);
}

TEST(Viewing, AProjectionFollowsTheImageOfTheDepthAxis) {
    auto const check = [](U const &normal, int flag, int type, P const &expected, Caller = {}) {
        P p(1, 2, 3);
        EXPECT_EQ(type, mgPlane_c(P(7, 7, 0), normal).projectToPlane(plainView, &p, flag));
        EXPECT_BITS_EQ(expected, p);
    };
    check(x, 0, mgLinePlane_Point, {7, 2, 3}); // z goes to x
    check(x, 1, mgLinePlane_Point, {7, 0, 5}), check(z, 0, mgLinePlane_Parallel, {1, 2, 3});
}

TEST(Viewing, ABoxDraggedBackwardsIsCentredBeyondItsStart) {
    auto const check = [](CPoint const &p1, CPoint const &p2, double px, double py, Caller = {}) {
        mgXform_c const zoom = mg_ZoomBoxToBox(p1, p2, P(), P(2, 2, 2), {}, 1.0);
        EXPECT_BITS_EQ(P(px, py, 0), P(1, 1, 1) * zoom);
    };
    check({0, -7}, {11, -10}, 5, -6); // halves are cut off
    constexpr int lowest = std::numeric_limits<int>::min(), highest = -1 - lowest;
    check({lowest, highest}, {highest, lowest}, -1, 2.0 * highest);
    // To a position, with the view's translation and record.
    mgXform_c const zoom =
        mg_ZoomToPosition(P(100, 50, 77), model, P(5, 4, 9), viewWithRecord(0.0), 3.0);
    EXPECT_BITS_EQ(P(103, 48, 1), P(3, 3, 6) * zoom);
    EXPECT_EQ(6.0, zoom.scaling());
    EXPECT_EQ(1, zoom.hasPerspective());
}

TEST(Viewing, AZoomIsReturnedAsItWasComposed) {
    // A copy would have translation 0 or scale 1.
    mgXform_c const near =
        mg_ZoomToPosition(P(-5.0 + 0x1p-28, 0, 0), P(), P(), mg_TranslateXform({5, 0, 0}), 2.0);
    EXPECT_BITS_EQ(raw({}, {0x1p-28, 0, 0}, 2.0), near);
    V const move(-5e14 + 4.0, -1e15, -1.5e15);
    mgXform_c const view = mg_ScaleXform(1e5);
    mgXform_c const zoom = raw({}, move, 1e15);
    EXPECT_BITS_EQ(zoom, mg_ZoomToPosition(P(4, 0, 0), model, P(), view, 1e10));
    EXPECT_BITS_EQ(zoom, mg_ZoomBoxToBox({4, 0}, {4, 0}, model, P(), view, 1e10));
}

} // namespace
