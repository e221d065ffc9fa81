// SPDX-License-Identifier: MIT
// mgPlane_c: an infinite plane.

#ifndef VEXMATH_PLANE_H
#define VEXMATH_PLANE_H

#include <vexmath/intersection_types.h>
#include <vexmath/line.h>

/// An infinite plane, as a root point in it and its normal, stored as a line is: a plain, trivially
/// copyable value of 48 bytes. The positive side is the one that the normal points to. A zero
/// normal is not detected: every point lies in such a plane.
class mgPlane_c : public vexmath::detail::RootedDirection {
public:
    mgPlane_c() = default; ///< through the origin, without a normal
    mgPlane_c(mgPoint_c const &root, mgUnitVector_c const &normal);

    mgUnitVector_c const &normal() const { return unit_; }
    void setNormal(mgUnitVector_c const &normal) { unit_ = normal; }

    /// The root moved as a point, the normal turned as a unit vector.
    mgPlane_c &operator*=(mgXform_c const &x);

    /// The foot of p; always 1. foot may be p. REQUIRES foot not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// 1 when p is strictly nearer to the plane than tol. A negative tol means 1e-08; 0 stays 0,
    /// and then no point is on the plane.
    int isPointOn(mgPoint_c const &p, double tol) const;
    /// 1 when the normals are parallel, in either orientation, and other's root is within 1e-08.
    VEXMATH_API int isCoincidentWith(mgPlane_c const &other) const;
    /// 1 when the normals agree within 1e-12, sign included, and other's root is within 1e-08.
    VEXMATH_API int isEquivalent(mgPlane_c const &other) const;
    /// The constant c of the form n.x x + n.y y + n.z z + c = 0, divided by the normal's length.
    /// NaN for a zero normal.
    VEXMATH_API double getHessianNormalFormConstant() const;
    /// 1 when the plane separates a and b or one of them is strictly nearer to it than tol. A point
    /// in the plane counts as on the negative side.
    VEXMATH_API int cutLineSegment(mgPoint_c const &a, mgPoint_c const &b, double tol) const;

    /// Moves *p, first by the transform when flag is not 0, along the transform's image of the z
    /// axis into the plane. The result of `mg_LineIntPlane`: unless it is mgLinePlane_Parallel, *p
    /// is the intersection.
    VEXMATH_API mgLinePlaneIntersectionType_e projectToPlane(mgXform_c const &x, mgPoint_c *p,
                                                             int flag) const;
    /// Moves *p, a screen point when flag is not 0 and a model point otherwise, along its line of
    /// sight into the plane, by way of the ray's point of `mg_getModelSpaceViewRay`: there *p stays
    /// when the result is mgLinePlane_Parallel.
    VEXMATH_API mgLinePlaneIntersectionType_e projectToPlaneOnViewLine(mgXform_c const &view,
                                                                       mgPoint_c *p,
                                                                       int flag) const;
};

// -------------------------------------------------------------------------------------------------

inline mgPlane_c::mgPlane_c(mgPoint_c const &root, mgUnitVector_c const &normal)
    : RootedDirection(root, normal) {}

inline mgPlane_c &mgPlane_c::operator*=(mgXform_c const &x) {
    move(x);
    return *this;
}

inline int mgPlane_c::pointPerp(mgPoint_c const &p, mgPoint_c *foot) const {
    *foot = p - ((p - root_) % unit_) * unit_;
    return 1;
}

inline int mgPlane_c::isPointOn(mgPoint_c const &p, double tol) const {
    double const reach = tol < 0.0 ? vexmath::kLengthTolerance : tol;
    return std::fabs((p - root_) % unit_) < reach;
}

#endif
