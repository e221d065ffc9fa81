// SPDX-License-Identifier: MIT
// Perspective records: their kinds, the division of screen points and the way back.

#include <vexmath/persp_info.h>

#include <type_traits>

#include "support/geometry.h"

namespace {

using support::below;

static_assert(
    std::is_polymorphic_v<mgPerspInfo_c> && !std::has_virtual_destructor_v<mgPerspInfo_c>);
static_assert(std::is_trivially_destructible_v<mgModelPerspInfo_c>);

/// Eye (1, 2, 3), plane distance 4, field-of-view plane at fov.
mgPerspInfo_c record(double fov) {
    mgPerspInfo_c info(1.0, 2.0, 3.0, 4.0);
    info.setCameraFOVPlaneDistance(fov);
    return info;
}

TEST(PerspInfo, TheFieldOfViewPlaneTellsTheKind) {
    auto const check = [](double fov, int camera, int ortho, int perspective, double iso) {
        EXPECT_EQ(camera, record(fov).isCamera()) << fov;
        EXPECT_EQ(ortho, record(fov).isOrthoCamera()) << fov;
        EXPECT_EQ(perspective, record(fov).isPerspCamera()) << fov;
        EXPECT_EQ(iso, record(fov).getIsoPlaneDistance()) << fov;
    };
    check(mgPerspInfo_c().getCameraFOVPlaneDistance(), 0, 0, 0, 4.0);
    check(-5e-324, 0, 0, 0, 4.0);
    check(0.0, 1, 1, 0, 4.0);
    check(2.0, 1, 0, 1, 2.0);
    check(support::kNaN, 0, 0, 0, 4.0);
    EXPECT_EQ(7.0, record(2.0).getNearClipZ());
}

void checkDivision(double fov, double z, mgPoint_c const &expected) {
    mgPoint_c p(3.0, 6.0, z);
    record(fov).doScreenPointPerspectiveDivision(p);
    EXPECT_BITS_EQ(expected, p) << fov << " at depth " << z;
}

TEST(PerspInfo, DivisionPullsTowardsTheEyeAndHasAWayBack) {
    checkDivision(2.0, 7.0, {2.0, 4.0, 7.0});   // k = 2 / 4
    checkDivision(-1.0, 5.0, {5.0, 10.0, 5.0}); // k = 4 / 2
    checkDivision(0.0, 7.0, {3.0, 6.0, 7.0});   // orthographic
    checkDivision(2.0, 1.0, {-1.0, -2.0, 1.0}); // behind the eye
    double const front = 2.0 / 1e-08;           // k at the eye's depth
    checkDivision(2.0, 3.0, {1.0 + 2.0 * front, 2.0 + 4.0 * front, 3.0});
    checkDivision(2.0, below(3.0), {1.0 - 2.0 * front, 2.0 - 4.0 * front, below(3.0)});
    mgPoint_c collapsed(3.0, 6.0, 7.0), back(2.0, 4.0, 7.0), ortho = back, none = back;
    mgPerspInfo_c().doScreenPointPerspectiveDivision(collapsed); // plane distance 0
    EXPECT_BITS_EQ(mgPoint_c(0.0, 0.0, 7.0), collapsed);
    record(2.0).doScreenPointInversePerspectiveDivision(back);
    EXPECT_BITS_EQ(mgPoint_c(3.0, 6.0, 7.0), back);
    record(0.0).doScreenPointInversePerspectiveDivision(ortho);
    EXPECT_BITS_EQ(mgPoint_c(2.0, 4.0, 7.0), ortho);
    mgPerspInfo_c().doScreenPointInversePerspectiveDivision(none); // no guard
    EXPECT_BITS_EQ(mgPoint_c(support::kInfinity, support::kInfinity, 7.0), none);
}

TEST(PerspInfo, NearClipPlaneIsMetAlongTheLineOfSight) {
    for (double const fov : {2.0, 0.0, -1.0}) {
        mgPoint_c p(3.0, 6.0, 99.0);
        record(fov).moveScreenPointToNearClipPlane(p);
        EXPECT_BITS_EQ(fov > 0.0 ? mgPoint_c(5.0, 10.0, 7.0) : mgPoint_c(3.0, 6.0, 7.0), p) << fov;
    }
}

TEST(PerspInfo, AModelRecordLooksAlongItsOwnDirection) {
    mgModelPerspInfo_c model(1.0, 2.0, 3.0, 4.0);
    mgPerspInfo_c const &base = model;
    mgPoint_c focus;
    base.getFocusPoint(&focus);
    EXPECT_BITS_EQ(mgPoint_c(1.0, 2.0, 7.0), focus); // z by default
    model.setModelViewDir(-mgUnitVector_c::xAxis());
    base.getFocusPoint(&focus);
    EXPECT_BITS_EQ(mgPoint_c(-3.0, 2.0, 3.0), focus);
    mgPerspInfo_c(model).getFocusPoint(&focus); // sliced to a plain record
    EXPECT_BITS_EQ(mgPoint_c(1.0, 2.0, 7.0), focus);
}

TEST(PerspInfo, EqualityComparesEveryMemberExactly) {
    mgPerspInfo_c const one = record(2.0);
    mgPoint_c const eye(1.0, 2.0, below(3.0));
    mgPerspInfo_c eyeOff = one, nearOff = one, farOff = one, fovOff = one;
    eyeOff.setEyePoint(&eye);
    nearOff.setNearClipPlaneDistance(below(4.0));
    farOff.setMinFarClipPlaneDistance(5e-324);
    fovOff.setCameraFOVPlaneDistance(below(2.0));
    EXPECT_TRUE(one == mgPerspInfo_c(one));
    for (auto const &other : {eyeOff, nearOff, farOff, fovOff}) EXPECT_FALSE(one == other);
}

} // namespace
