// SPDX-License-Identifier: MIT
// Perspective records: the division of screen points and its inverse.

#include <vexmath/persp_info.h>

mgPerspInfo_c::mgPerspInfo_c(double x, double y, double z, double planeDistance)
    : eye_(x, y, z), planeDistance_(planeDistance) {}

void mgPerspInfo_c::getFocusPoint(mgPoint_c *focus) const {
    *focus = eye_ + mgVector_c(0.0, 0.0, planeDistance_);
}

bool mgPerspInfo_c::operator==(mgPerspInfo_c const &other) const {
    return eye_.x() == other.eye_.x() && eye_.y() == other.eye_.y() && eye_.z() == other.eye_.z()
           && planeDistance_ == other.planeDistance_
           && minFarClipDistance_ == other.minFarClipDistance_
           && fovPlaneDistance_ == other.fovPlaneDistance_;
}

void mgPerspInfo_c::scaleFromEye(mgPoint_c &p, double k) const {
    p.set_x(eye_.x() + (p.x() - eye_.x()) * k);
    p.set_y(eye_.y() + (p.y() - eye_.y()) * k);
}

void mgPerspInfo_c::doScreenPointPerspectiveDivision(mgPoint_c &p) const {
    /// Absolute depth from the eye that replaces a smaller one; strict.
    constexpr double kSmallestDepth = 1e-08;
    if (isOrthoCamera()) return;
    double depth = p.z() - eye_.z();
    if (std::fabs(depth) < kSmallestDepth) {
        depth = p.z() >= eye_.z() ? kSmallestDepth : -kSmallestDepth;
    }
    scaleFromEye(p, getIsoPlaneDistance() / depth);
}

void mgPerspInfo_c::doScreenPointInversePerspectiveDivision(mgPoint_c &p) const {
    if (isOrthoCamera()) return;
    scaleFromEye(p, (p.z() - eye_.z()) / getIsoPlaneDistance());
}

void mgPerspInfo_c::moveScreenPointToNearClipPlane(mgPoint_c &p) const {
    p.set_z(eye_.z() + planeDistance_);
    if (isPerspCamera()) scaleFromEye(p, planeDistance_ / fovPlaneDistance_);
}

mgModelPerspInfo_c::mgModelPerspInfo_c() : modelViewDir_(mgUnitVector_c::zAxis()) {}

mgModelPerspInfo_c::mgModelPerspInfo_c(double x, double y, double z, double planeDistance)
    : mgPerspInfo_c(x, y, z, planeDistance), modelViewDir_(mgUnitVector_c::zAxis()) {}

void mgModelPerspInfo_c::getFocusPoint(mgPoint_c *focus) const {
    mgPoint_c eye;
    getEyePoint(&eye);
    *focus = eye + getPlaneDistance() * modelViewDir_;
}
