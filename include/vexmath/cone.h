// SPDX-License-Identifier: MIT
// mgCone_c: a cone about an axis; mgCylinder_c: the same with straight sides.

#ifndef VEXMATH_CONE_H
#define VEXMATH_CONE_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

/// A cone: a root point on its axis, the axis, the radius at the root, and the half-angle in
/// radians. A positive angle narrows the cone along the axis: the radius at a height h above the
/// root is |radius - tan(angle) h|. The axis REQUIRES unit length or zero. Nothing is checked. A
/// p that holds NaN gives points of NaN and the result 0; other NaN gives points without meaning.
///
/// The class has two virtual operations and, on purpose, no virtual destructor: destroy an object
/// of a derived class as what it is.
class VEXMATH_API mgCone_c {
public:
    /// Unset: root at the origin, axis z, radius and angle -2.
    mgCone_c() = default;
    /// Stores everything as given.
    mgCone_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius, double angle);

    /// Despite its name not the foot of p on the surface: *foot becomes the foot of the root on the
    /// line from p towards the axis that leans forward along it by the half-angle. 1 when that foot
    /// lies ahead of the root along the axis by strictly more than 1e-08, else 0.
    ///
    /// When p is on the axis (within 1e-08 in every coordinate, strictly): *foot becomes p's foot
    /// on the axis, and the result is 1 when that equals the root within the same bound. foot may
    /// be p. REQUIRES foot not null.
    virtual int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// The lowest and the highest point along dir of the piece between the root and a height above
    /// it, as out[0] and out[1]. dir is used as it is and should have unit length.
    /// - dir parallel or opposite to the axis (`mgVector_c::isParallelTo`, to about 0.008 degrees):
    ///   the root, then the centre of the top, in this order for both senses.
    /// - dir forward along the axis, with a cosine of 1e-06 or more: the lowest and the highest of
    ///   the four rim points in the plane of dir and the axis.
    /// - Otherwise, which includes every backward dir and a null dir or axis: root - m * dir, then
    ///   root + m * dir, with m the larger of the two radii. `height` affects the top's radius
    ///   only.
    ///
    /// REQUIRES room for two points.
    virtual void extremePts(mgUnitVector_c const &dir, double height, mgPoint_c *out) const;

    mgPoint_c const &rootPoint() const { return root_; }
    mgUnitVector_c const &axis() const { return axis_; }
    double radius() const { return radius_; }
    double angle() const { return angle_; }
    void setRootPoint(mgPoint_c const &root) { root_ = root; }
    void setAxis(mgUnitVector_c const &axis) { axis_ = axis; }
    void setRadius(double radius) { radius_ = radius; }
    void setAngle(double angle) { angle_ = angle; }

    /// Transforms the root as a point, perspective included, and rotates the axis. The radius is
    /// multiplied by the scale only when it is above 0, so that an unset one stays unset. The angle
    /// stays.
    mgCone_c &operator*=(mgXform_c const &x);

    /// The foot of p on the axis.
    mgPoint_c projectPointOnAxis(mgPoint_c const &p) const;
    /// The radius at the root, from a radius r at p's height h along the axis: r - tan(angle) h.
    /// The sign is that of a cone which widens along its axis for a positive angle, unlike the rule
    /// of the class.
    double transformRadiusAtRoot(mgPoint_c const &p, double r) const;

    /// Archive record: root, axis, radius, angle: eight doubles. Reading does not normalise the
    /// axis. A failing read leaves the cone as it was.
    void save(su_CArchive &ar) const;
    void restore(su_CArchive &ar);

private:
    double heightOf(mgPoint_c const &p) const { return (p - root_) % axis_; }

    mgPoint_c root_;
    mgUnitVector_c axis_ = mgUnitVector_c(0.0, 0.0, 1.0);
    double radius_ = -2.0;
    double angle_ = -2.0;
};

/// A cylinder: a cone of half-angle 0. The setters of the cone and its `restore` may still give it
/// another angle: then `extremePts`, `transformRadiusAtRoot` and `save` use it, while `pointPerp`
/// and `isEquivalent` ignore it.
class VEXMATH_API mgCylinder_c : public mgCone_c {
public:
    mgCylinder_c(); ///< root at the origin, axis z, radius 0.01
    /// Stores everything as given.
    mgCylinder_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius);

    /// *foot becomes the foot of p on the surface, which is treated as infinitely long. 1 when p is
    /// on the axis (within 1e-08 in every coordinate, strictly), else 0. For such a p the foot lies
    /// in the direction of the axis's `anyUnitNormal(0)`. A negative radius gives the point on the
    /// far side. foot may be p. REQUIRES foot not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const override;

    /// 1 when the axes differ by strictly less than 1e-12 in every component, sign included,
    /// other's root is on this axis (`mgLine_c::isPointOn`), and the radii are both above 0 and
    /// differ by strictly less than 1e-08. 0 for NaN.
    int isEquivalent(mgCylinder_c const &other) const;
};

#endif
