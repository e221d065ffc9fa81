// SPDX-License-Identifier: MIT
// mgPlane_c: an infinite plane.

#ifndef VEXMATH_PLANE_H
#define VEXMATH_PLANE_H

#include <vexmath/detail/rooted_direction.h>
#include <vexmath/intersection_types.h>
#include <vexmath/line.h>

/// An infinite plane: a root point in it and its normal. A plain, trivially copyable value of 48
/// bytes.
///
/// The normal is used as it is, and REQUIRES unit length or zero. The positive side is the one that
/// the normal points to. A zero normal is not detected: every point lies in such a plane, at
/// distance 0. Nothing checks for NaN: what holds NaN is on no plane.
class mgPlane_c : public vexmath::detail::RootedDirection {
public:
    mgPlane_c() = default; ///< root at the origin, zero normal
    mgPlane_c(mgPoint_c const &root, mgUnitVector_c const &normal);

    mgPoint_c const &rootPoint() const { return root_; }
    mgUnitVector_c const &normal() const { return unit_; }
    void setRootPoint(mgPoint_c const &root) { root_ = root; }
    void setNormal(mgUnitVector_c const &normal) { unit_ = normal; }

    /// Transforms the root as a point, perspective included, and rotates the normal.
    mgPlane_c &operator*=(mgXform_c const &x);

    /// *foot becomes the foot of p in the plane. Always 1. foot may be p. REQUIRES foot not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// 1 when the distance of p, on either side, is strictly less than tol. A negative tol means
    /// 1e-08. 0 stays 0, and then no point is on the plane; the same for NaN.
    int isPointOn(mgPoint_c const &p, double tol) const;
    /// 1 when the normals are parallel or opposite (`mgVector_c::isParallelTo`, to about 0.008
    /// degrees; a zero normal never is) and the distance of other's root from this plane is
    /// strictly less than 1e-08.
    VEXMATH_API int isCoincidentWith(mgPlane_c const &other) const;
    /// 1 when the normals differ by strictly less than 1e-12 in every component, sign included, and
    /// the distance of other's root from this plane is strictly less than 1e-08.
    VEXMATH_API int isEquivalent(mgPlane_c const &other) const;
    /// The constant c of the form n.x x + n.y y + n.z z + c = 0, divided by the normal's length.
    /// It is the signed distance of the origin from the plane. NaN for a zero normal.
    VEXMATH_API double getHessianNormalFormConstant() const;
    /// 1 when a and b lie on different sides, or when the distance of one of them is strictly less
    /// than tol; else 0. A point in the plane counts as on the negative side, one that holds NaN as
    /// on the positive side. tol is used as it is: 0, a negative one and NaN leave the sides alone
    /// to decide.
    VEXMATH_API int cutLineSegment(mgPoint_c const &a, mgPoint_c const &b, double tol) const;

    /// Moves *p into the plane along the z axis as rotated by x, and returns the result of
    /// `mg_LineIntPlane`. When flag is not 0, *p is first transformed by x, perspective included.
    /// mgLinePlane_Point: *p is the crossing. mgLinePlane_InPlane (the direction runs along the
    /// plane and *p lies within 1e-08 of it) and mgLinePlane_Parallel (it does not): *p stays where
    /// the flag put it. REQUIRES p not null.
    VEXMATH_API mgLinePlaneIntersectionType_e projectToPlane(mgXform_c const &x, mgPoint_c *p,
                                                             int flag) const;
    /// Moves *p into the plane along its line of sight. *p is a screen point when flag is not 0,
    /// else a model point. It first becomes the rayPoint of `mg_getModelSpaceViewRay`, and stays
    /// there unless the result is mgLinePlane_Point. REQUIRES p not null.
    VEXMATH_API mgLinePlaneIntersectionType_e projectToPlaneOnViewLine(mgXform_c const &view,
                                                                       mgPoint_c *p,
                                                                       int flag) const;

    /// Archive record: root point, then normal: six doubles. Reading does not give the normal unit
    /// length. A failing read leaves the plane as it was.
    void save(su_CArchive &ar) const { RootedDirection::save(ar); }
    void restore(su_CArchive &ar) { RootedDirection::restore(ar); }
};

/// A line and a plane. They are parallel when the cosine between direction and normal is below
/// 1e-08 in absolute value, which includes a zero direction or normal. Then InPlane when the line's
/// root is nearer to the plane than 1e-08, and *out is that root; otherwise Parallel, and *out is
/// not written. When they are not parallel: Point, *out is the crossing, and *param, unless param
/// is null, is its signed distance from the root along the direction. Only Point writes *param.
/// NaN in the cosine gives Point, and *out is NaN. out may point into line. REQUIRES unit length,
/// or zero, of direction and normal; out not null.
mgLinePlaneIntersectionType_e mg_LineIntPlane(mgLine_c const &line, mgPlane_c const &plane,
                                              mgPoint_c *out, double *param);

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

inline mgLinePlaneIntersectionType_e mg_LineIntPlane(mgLine_c const &line, mgPlane_c const &plane,
                                                     mgPoint_c *out, double *param) {
    /// Distance of the root below which it is in the plane; strict.
    constexpr double kInPlane = 1e-08;
    /// Cosine between direction and normal below which they are perpendicular; strict.
    constexpr double kParallelCos = 1e-08;
    double const height = (plane.rootPoint() - line.rootPoint()) % plane.normal();
    double const rate = line.direction() % plane.normal();
    if (std::fabs(rate) < kParallelCos) {
        if (!(std::fabs(height) < kInPlane)) return mgLinePlane_Parallel;
        *out = line.rootPoint();
        return mgLinePlane_InPlane;
    }
    double const t = height / rate;
    if (param != nullptr) *param = t;
    *out = line.rootPoint() + t * line.direction();
    return mgLinePlane_Point;
}

#endif
