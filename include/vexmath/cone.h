// SPDX-License-Identifier: MIT
// mgCone_c: a cone about an axis; mgCylinder_c: the same with straight sides.

#ifndef VEXMATH_CONE_H
#define VEXMATH_CONE_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

/// A cone: a root point on its axis, the axis, the radius at the root, and the half-angle in
/// radians. A positive angle narrows the cone along the axis: the radius at a height h above the
/// root is |radius - tan(angle) h|. Nothing is checked.
///
/// The class has two virtual operations and, on purpose, no virtual destructor: destroy a derived
/// object as what it is.
class VEXMATH_API mgCone_c {
public:
    /// Recognisably unset: at the origin, about z, radius and angle -2.
    mgCone_c() = default;
    mgCone_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius, double angle);

    /// Not the foot on the surface, whatever the name says: the foot of the root on the line that
    /// runs from p towards the axis, leaning forward along it by the half-angle. 1 when it lies
    /// ahead of the root by more than 1e-08, strictly. For p on the axis: p's foot there, and 1
    /// when that is the root. foot may be p. REQUIRES foot not null.
    virtual int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// The lowest and the highest point along dir of the piece from the root to a height above it.
    /// Along the axis, either way: the root and the top's centre. Where dir looks forward along the
    /// axis, its cosine 1e-06 or more: points of the two rims. Otherwise, and so wherever it looks
    /// back: the root less and plus the larger of the two radii along dir. REQUIRES room for two
    /// points.
    virtual void extremePts(mgUnitVector_c const &dir, double height, mgPoint_c *out) const;

    mgPoint_c const &rootPoint() const { return root_; }
    mgUnitVector_c const &axis() const { return axis_; }
    double radius() const { return radius_; }
    double angle() const { return angle_; }
    void setRootPoint(mgPoint_c const &root) { root_ = root; }
    void setAxis(mgUnitVector_c const &axis) { axis_ = axis; }
    void setRadius(double radius) { radius_ = radius; }
    void setAngle(double angle) { angle_ = angle; }

    /// The root moved as a point, the axis turned; the radius scaled when it is above 0, so that an
    /// unset one stays unset.
    mgCone_c &operator*=(mgXform_c const &x);

    /// The foot of p on the axis.
    mgPoint_c projectPointOnAxis(mgPoint_c const &p) const;
    /// From a radius at p's height the radius at the root, r - tan(angle) h: that of a cone which
    /// widens along its axis.
    double transformRadiusAtRoot(mgPoint_c const &p, double r) const;

    /// Archive record: root, axis, radius, angle, eight doubles. The axis is not normalised on
    /// reading. A failing read leaves the cone as it was.
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
    mgCylinder_c(); ///< at the origin, about z, radius 0.01
    mgCylinder_c(mgPoint_c const &root, mgUnitVector_c const &axis, double radius);

    /// The foot of p on the surface, without looking at the ends. For p on the axis: in the
    /// direction of the axis's `anyUnitNormal(0)`. 1 when p is on the axis. foot may be p.
    /// REQUIRES foot not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const override;

    /// 1 when the axes agree within 1e-12, sign included, other's root is on this axis, and the
    /// radii are above 0 and differ by less than 1e-08. All strict.
    int isEquivalent(mgCylinder_c const &other) const;
};

#endif
