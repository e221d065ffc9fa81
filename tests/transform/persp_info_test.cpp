// SPDX-License-Identifier: MIT
// Perspective records: their kinds, the division of screen points and the way back.

#include <vexmath/persp_info.h>

#include <type_traits>

#include "support/geometry.h"

namespace {

using support::below;
using support::kInfinity;

static_assert(
    std::is_polymorphic_v<mgPerspInfo_c> && !std::has_virtual_destructor_v<mgPerspInfo_c>);

/// Eye (1, 2, 3), plane distance 4, field-of-view plane at fov.
mgPerspInfo_c record(double fov) {
    mgPerspInfo_c info(1.0, 2.0, 3.0, 4.0);
    info.setCameraFOVPlaneDistance(fov);
    return info;
}

TEST(PerspInfo, TheFieldOfViewPlaneTellsTheKind) {
    auto const check = [](double fov, bool camera, bool ortho, bool perspective, double iso) {
        EXPECT_EQ(camera, record(fov).isCamera()) << fov;
        EXPECT_EQ(ortho, record(fov).isOrthoCamera()) << fov;
        EXPECT_EQ(perspective, record(fov).isPerspCamera()) << fov;
        EXPECT_EQ(iso, record(fov).getIsoPlaneDistance()) << fov;
        mgPoint_c p(3.0, 6.0, 99.0); // meets the near clip plane along the line of sight
        record(fov).moveScreenPointToNearClipPlane(p);
        EXPECT_BITS_EQ(perspective ? mgPoint_c(5.0, 10.0, 7.0) : mgPoint_c(3.0, 6.0, 7.0), p);
    };
    EXPECT_EQ(-1.0, mgPerspInfo_c().getCameraFOVPlaneDistance());
    check(-5e-324, false, false, false, 4.0);
    check(0.0, true, true, false, 4.0);
    check(2.0, true, false, true, 2.0);
    check(support::kNaN, false, false, false, 4.0);
}

void checkDivision(double fov, double z, mgPoint_c const &expected) {
    mgPoint_c p(3.0, 6.0, z);
    record(fov).doScreenPointPerspectiveDivision(p);
    EXPECT_BITS_EQ(expected, p) << fov << " at depth " << z;
}

TEST(PerspInfo, DivisionPullsTowardsTheEyeAndHasAWayBack) {
    double const k = 2.0 / 1e-08; // at the eye's depth
    checkDivision(2.0, 3.0, {1.0 + 2.0 * k, 2.0 + 4.0 * k, 3.0});
    checkDivision(2.0, below(3.0), {1.0 - 2.0 * k, 2.0 - 4.0 * k, below(3.0)});
    checkDivision(2.0, 7.0, {2.0, 4.0, 7.0});
    checkDivision(-1.0, 5.0, {5.0, 10.0, 5.0}); // no camera: by the plane distance
    checkDivision(0.0, 5.0, {3.0, 6.0, 5.0});   // orthographic
    auto const checkBack = [](mgPerspInfo_c const &info, mgPoint_c const &expected) {
        mgPoint_c p(2.0, 4.0, 9.0);
        info.doScreenPointInversePerspectiveDivision(p);
        EXPECT_BITS_EQ(expected, p);
    };
    checkBack(record(2.0), {4.0, 8.0, 9.0});
    checkBack(record(0.0), {2.0, 4.0, 9.0});
    checkBack(mgPerspInfo_c(), {kInfinity, kInfinity, 9.0}); // no guard
}

TEST(PerspInfo, AModelRecordLooksAlongItsOwnDirection) {
    mgModelPerspInfo_c model(1.0, 2.0, 3.0, 4.0);
    auto const check = [](mgPerspInfo_c const &info, mgPoint_c const &expected) {
        mgPoint_c focus;
        info.getFocusPoint(&focus);
        EXPECT_BITS_EQ(expected, focus);
    };
    check(model, {1.0, 2.0, 7.0}); // z by default
    model.setModelViewDir(-mgUnitVector_c::xAxis());
    check(model, {-3.0, 2.0, 3.0});
    check(mgPerspInfo_c(model), {1.0, 2.0, 7.0}); // sliced to a plain record
    EXPECT_EQ(7.0, model.getNearClipZ());
}

TEST(PerspInfo, EqualityComparesEveryMemberExactly) {
    mgPerspInfo_c const one = record(2.0);
    mgPoint_c const eye(1.0, 2.0, below(3.0));
    mgPerspInfo_c eyeOff = one, nearOff = one, farOff = one;
    eyeOff.setEyePoint(&eye);
    nearOff.setNearClipPlaneDistance(below(4.0));
    farOff.setMinFarClipPlaneDistance(5e-324);
    EXPECT_TRUE(one == mgPerspInfo_c(one));
    for (auto const &other : {eyeOff, nearOff, farOff, record(below(2.0))})
        EXPECT_FALSE(one == other);
}

} // namespace
