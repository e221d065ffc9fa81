// SPDX-License-Identifier: MIT
// Planes: comparison, segments against them, projections, the mirror in a plane, the line of two
// planes.

#include <vexmath/mg_primitives.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/plane.h>

#include "line_of_sight.h"
#include "transform/xform_parts.h"

#include <cmath>

namespace {

/// Makes `mgPlane_c::isPointOn` use the library's length tolerance.
constexpr double kDefaultTolerance = -1.0;

} // namespace

int mgPlane_c::isCoincidentWith(mgPlane_c const &other) const {
    return normal().isParallelTo(other.normal()) && isPointOn(other.rootPoint(), kDefaultTolerance);
}

int mgPlane_c::isEquivalent(mgPlane_c const &other) const {
    /// How far the normals may differ per component; strict.
    constexpr double kSameDirection = 1e-12;
    return normal().isEqual(other.normal(), kSameDirection)
           && isPointOn(other.rootPoint(), kDefaultTolerance);
}

double mgPlane_c::getHessianNormalFormConstant() const {
    // Keep this order of operations: another one changes last bits.
    mgPoint_c const &r = rootPoint();
    mgUnitVector_c const &n = normal();
    return (n.x() * -1.0 * r.x() - r.y() * n.y() - r.z() * n.z())
           / std::sqrt(n.z() * n.z() + n.y() * n.y() + n.x() * n.x());
}

int mgPlane_c::cutLineSegment(mgPoint_c const &a, mgPoint_c const &b, double tol) const {
    double const heightA = (a - rootPoint()) % normal();
    double const heightB = (b - rootPoint()) % normal();
    bool const separated = (heightA <= 0.0) != (heightB <= 0.0);
    return separated || std::fabs(heightA) < tol || std::fabs(heightB) < tol;
}

mgXform_c mg_PlaneReflectionXform(mgPlane_c const &plane) {
    mgUnitVector_c const &n = plane.normal();
    mgXform_c const mirror = mg_ReflectionXform(n);
    return vexmath::detail::makeXform(mirror.rotation(), (2.0 * (plane.rootPoint() % n)) * n, 1.0,
                                      mirror.isReflection());
}

namespace {

/// A point on both planes: b's root if it lies on a; else the foot of b's root on a, moved within a
/// until it lies on b. u is the direction of the common line.
mgPoint_c pointOnBoth(mgPlane_c const &a, mgPlane_c const &b, mgUnitVector_c const &u) {
    /// Distance below which the roots coincide, and below which b's root lies on a; strict.
    constexpr double kSamePoint = 1e-08;
    constexpr double kOnPlane = 1e-08;
    /// Cosine of the normals below which the planes are perpendicular; strict.
    constexpr double kPerpendicularCos = 1e-08;
    mgUnitVector_c const &na = a.normal();
    mgPoint_c const &rb = b.rootPoint();

    mgVector_c const w = rb - a.rootPoint();
    if (w.len() < kSamePoint) return rb;
    double const height = w % na;
    if (std::fabs(height) < kOnPlane) return rb;
    mgPoint_c const foot = rb - height * na;
    if (std::fabs(na % b.normal()) < kPerpendicularCos) return foot;
    // Do not fold an obtuse angle into the acute one: its tangent is negative, and the step then
    // rightly goes backwards.
    double const angle = mg_AngleBetween(na, b.normal());
    return foot + (u * na) * (height / std::tan(angle));
}

} // namespace

int interLine(mgPlane_c const &a, mgPlane_c const &b, mgPoint_c *point, mgUnitVector_c *dir) {
    mgUnitVector_c const &na = a.normal();
    mgUnitVector_c const &nb = b.normal();
    if (na == nb || na == -nb) return 0;
    mgUnitVector_c const u = mg_Normalise(na * nb);
    if (point != nullptr) *point = pointOnBoth(a, b, u);
    if (dir != nullptr) *dir = u;
    return 1;
}

mgLinePlaneIntersectionType_e mgPlane_c::projectToPlane(mgXform_c const &x, mgPoint_c *p,
                                                        int flag) const {
    mgUnitVector_c const dir = mgUnitVector_c::zAxis() * x;
    if (flag) *p *= x;
    return mg_LineIntPlane(mgLine_c(*p, dir), *this, p, nullptr);
}

mgLinePlaneIntersectionType_e mgPlane_c::projectToPlaneOnViewLine(mgXform_c const &view,
                                                                  mgPoint_c *p, int flag) const {
    return mg_LineIntPlane(vexmath::detail::lineOfSight(view, p, flag), *this, p, nullptr);
}

mgPoint_c mgPoint_c::xformByPerspInversePlane(mgXform_c const &view, mgPlane_c const &plane) {
    plane.projectToPlaneOnViewLine(view, this, 1);
    return *this;
}
