// SPDX-License-Identifier: MIT
// Perspective records: their kinds, the division of screen points and its inverse.

#include "common/geometry.h"

namespace {

static_assert(
    std::is_polymorphic_v<mgPerspInfo_c> && !std::has_virtual_destructor_v<mgPerspInfo_c>);

/// Eye (1, 2, 3), plane distance 4, field-of-view plane at fov.
mgPerspInfo_c record(double fov) {
    mgPerspInfo_c info(1.0, 2.0, 3.0, 4.0);
    info.setCameraFOVPlaneDistance(fov);
    return info;
}

/// The image of (3, 6, z) by one of the three moves of screen points.
void CheckMove(mgPerspInfo_c const &info, void (mgPerspInfo_c::*move)(P &) const, double z,
               P const &expected, Caller = {}) {
    P p(3.0, 6.0, z);
    (info.*move)(p);
    EXPECT_BITS_EQ(expected, p) << info.getCameraFOVPlaneDistance() << " at depth " << z;
}

TEST(PerspInfo, TheFieldOfViewPlaneDistanceGivesTheKind) {
    auto const check = [](double fov, bool ortho, bool perspective, double iso, Caller = {}) {
        mgPerspInfo_c const info = record(fov);
        EXPECT_EQ(ortho || perspective, info.isCamera()) << fov;
        EXPECT_EQ(ortho, info.isOrthoCamera()) << fov;
        EXPECT_EQ(perspective, info.isPerspCamera()) << fov;
        EXPECT_EQ(iso, info.getIsoPlaneDistance()) << fov;
        CheckMove(info, &mgPerspInfo_c::moveScreenPointToNearClipPlane, 99.0,
                  perspective ? P(5.0, 10.0, 7.0) : P(3.0, 6.0, 7.0));
    };
    check(-5e-324, false, false, 4.0), check(0.0, true, false, 4.0);
    check(2.0, false, true, 2.0), check(kNaN, false, false, 4.0);
    EXPECT_TRUE(record(kTiny).isPerspCamera());
}

TEST(PerspInfo, DivisionMovesTowardsTheEyeAndHasAnInverse) {
    double const k = 2.0 / 1e-08; // at the eye's depth
    auto const divide = &mgPerspInfo_c::doScreenPointPerspectiveDivision;
    CheckMove(record(2.0), divide, 3.0, {1.0 + 2.0 * k, 2.0 + 4.0 * k, 3.0});
    CheckMove(record(2.0), divide, below(3.0), {1.0 - 2.0 * k, 2.0 - 4.0 * k, below(3.0)});
    CheckMove(record(-1.0), divide, 5.0, {5.0, 10.0, 5.0}); // no camera: by the plane distance
    CheckMove(record(0.0), divide, 5.0, {3.0, 6.0, 5.0});   // orthographic
    auto const inverse = &mgPerspInfo_c::doScreenPointInversePerspectiveDivision;
    CheckMove(record(2.0), inverse, 9.0, {7.0, 14.0, 9.0});
    CheckMove(mgPerspInfo_c(), inverse, 9.0, {kInfinity, kInfinity, 9.0}); // no guard
}

TEST(PerspInfo, AModelRecordLooksAlongItsOwnDirection) {
    mgModelPerspInfo_c model(1.0, 2.0, 3.0, 4.0);
    P focus, eye;
    model.setModelViewDir(-U::xAxis());
    model.getFocusPoint(&focus);
    EXPECT_BITS_EQ(P(-3.0, 2.0, 3.0), focus);
    EXPECT_EQ(-1.0, model.getModelViewDir().x());
    mgPerspInfo_c const sliced(model); // to a plain record, which looks along z
    sliced.getFocusPoint(&focus), sliced.getEyePoint(&eye);
    EXPECT_BITS_EQ(P(eye.x(), 2.0, sliced.getNearClipZ()), focus);
}

TEST(PerspInfo, EqualityComparesEveryMemberExactly) {
    P const eye(1.0, 2.0, below(3.0));
    mgPerspInfo_c const one = record(2.0);
    mgPerspInfo_c eyeOff = one, nearOff = one, farOff = one;
    eyeOff.setEyePoint(&eye);
    nearOff.setNearClipPlaneDistance(below(4.0));
    farOff.setMinFarClipPlaneDistance(above(one.getMinFarClipPlaneDistance()));
    EXPECT_TRUE(one == mgPerspInfo_c(one));
    for (auto const &other : {eyeOff, nearOff, farOff, record(below(2.0))})
        EXPECT_FALSE(one == other);
}

} // namespace
