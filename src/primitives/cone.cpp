// SPDX-License-Identifier: MIT
// Cones and cylinders: feet, extreme points, equivalence.

#include <vexmath/cone.h>
#include <vexmath/line.h>
#include <vexmath/mg_vector.h>

mgCone_c::mgCone_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius, double angle)
    : root_(root), axis_(axis), radius_(radius), angle_(angle) {}

mgCone_c &mgCone_c::operator*=(mgXform_c const &x) {
    root_ *= x;
    axis_ *= x;
    if (radius_ > 0.0) radius_ *= x.scaling();
    return *this;
}

mgPoint_c mgCone_c::projectPointOnAxis(mgPoint_c const &p) const {
    return root_ + heightOf(p) * axis_;
}

double mgCone_c::transformRadiusAtRoot(mgPoint_c const &p, double r) const {
    // QUIRK: cone.h, mgCone_c::transformRadiusAtRoot: the sign is that of a cone which widens along
    // its axis. Expected: that of the cone which narrows in `extremePts`. Kept: callers and stored
    // data depend on it. (test: TheRadiusAtTheRootIsThatOfAWideningCone)
    return r - std::tan(angle_) * heightOf(p);
}

int mgCone_c::pointPerp(mgPoint_c const &p, mgPoint_c *foot) const {
    /// By how much the foot must lie ahead of the root for a result of 1; strict.
    constexpr double kAhead = 1e-08;
    mgPoint_c const given = p; // foot may be p
    if (mgLine_c(root_, axis_).pointPerp(given, foot)) return *foot == root_;
    // QUIRK: cone.h, mgCone_c::pointPerp: gives the foot of the root on a line through p. Expected:
    // the foot of p on the surface. Kept: callers and stored data depend on it.
    // (test: TheConesFootIsThatOfItsRoot)
    mgUnitVector_c const inward(*foot - given, 0);
    mgUnitVector_c const leaning(std::cos(angle_) * inward + std::sin(angle_) * axis_, 0);
    mgLine_c(given, leaning).pointPerp(root_, foot);
    return heightOf(*foot) > kAhead;
}

namespace {

/// Writes the candidates with the lowest and the highest projection along dir.
void chooseExtremes(mgPoint_c const (&candidates)[4], mgPoint_c const &root,
                    mgUnitVector_c const &dir, mgPoint_c *out) {
    /// Where the search starts, in model units. The first two candidates lie opposite each other
    /// about the root: one projects to 0 or below, the other to 0 or above, so that both starts are
    /// replaced. Candidate 0 stays only for NaN, and for a root so far out that coordinates are
    /// rounded by 1000 or more.
    constexpr double kStart = 1000.0;
    double lowest = kStart;
    double highest = -kStart;
    int low = 0;
    int high = 0;
    for (int i = 0; i < 4; ++i) {
        double const s = (candidates[i] - root) % dir;
        if (s > highest) {
            highest = s;
            high = i;
        }
        if (s < lowest) {
            lowest = s;
            low = i;
        }
    }
    out[0] = candidates[low];
    out[1] = candidates[high];
}

} // namespace

void mgCone_c::extremePts(mgUnitVector_c const &dir, double height, mgPoint_c *out) const {
    /// Cosine of dir and axis from which the rim points are compared; bound included.
    constexpr double kForwardCos = 1e-06;
    mgPoint_c const top = root_ + height * axis_;
    if (axis_.isParallelTo(dir)) {
        out[0] = root_;
        out[1] = top;
        return;
    }
    double const cosine = axis_ % dir;
    double const topRadius = std::fabs(radius_ - std::tan(angle_) * height);
    if (cosine >= kForwardCos) {
        mgUnitVector_c const across = mg_Normalise(dir - cosine * axis_);
        mgPoint_c const rims[4] = {root_ + radius_ * across, root_ - radius_ * across,
                                   top + topRadius * across, top - topRadius * across};
        chooseExtremes(rims, root_, dir, out);
        return;
    }
    // QUIRK: cone.h, mgCone_c::extremePts: for every dir that points back along the axis, only the
    // root counts. Expected: only for a dir nearly perpendicular to the axis. Kept: callers and
    // stored data depend on it. (test: LookingBackTheRootAloneCounts)
    double const larger = topRadius > radius_ ? topRadius : radius_;
    out[0] = root_ - larger * dir;
    out[1] = root_ + larger * dir;
}

mgCylinder_c::mgCylinder_c() : mgCylinder_c(mgPoint_c(), mgUnitVector_c::zAxis(), 0.01) {}

mgCylinder_c::mgCylinder_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius)
    : mgCone_c(root, axis, radius, 0.0) {}

int mgCylinder_c::pointPerp(mgPoint_c const &p, mgPoint_c *foot) const {
    mgPoint_c axisFoot;
    int const onAxis = mgLine_c(rootPoint(), axis()).pointPerp(p, &axisFoot);
    mgUnitVector_c const outward =
        onAxis ? axis().anyUnitNormal(0) : mgUnitVector_c(p - axisFoot, 0);
    *foot = axisFoot + radius() * outward;
    return onAxis;
}

int mgCylinder_c::isEquivalent(mgCylinder_c const &other) const {
    /// How far the axes may differ per component; strict.
    constexpr double kSameAxis = 1e-12;
    return axis().isEqual(other.axis(), kSameAxis)
           && mgLine_c(rootPoint(), axis()).isPointOn(other.rootPoint()) && radius() > 0.0
           && other.radius() > 0.0 && vexmath::detail::isTiny(radius() - other.radius());
}
