// SPDX-License-Identifier: MIT
// mgLine_c: an infinite line; and the storage that it shares with the plane.

#ifndef VEXMATH_LINE_H
#define VEXMATH_LINE_H

#include <vexmath/xform.h>

#include <vexmath_platform/archive.h>

namespace vexmath::detail {

/// A root point and a unit vector, in this order: all that lines and planes have in common, so that
/// it is written once. Nothing checks that the unit vector has unit length.
class RootedDirection {
public:
    mgPoint_c const &rootPoint() const { return root_; }
    void setRootPoint(mgPoint_c const &root) { root_ = root; }

    /// Archive record: root point, then unit vector, six doubles. The unit vector is not normalised
    /// on reading. A failing read leaves the object as it was.
    VEXMATH_API void save(su_CArchive &ar) const;
    VEXMATH_API void restore(su_CArchive &ar);

protected:
    RootedDirection() = default;
    RootedDirection(mgPoint_c const &root, mgUnitVector_c const &unit) : root_(root), unit_(unit) {}

    void move(mgXform_c const &x);

    mgPoint_c root_;
    mgUnitVector_c unit_;
};

} // namespace vexmath::detail

/// An infinite line, as a root point on it and its direction: a plain, trivially copyable value of
/// 48 bytes. A zero direction makes it the point itself, without being detected. Opposite
/// directions count as different lines wherever lines are compared.
class mgLine_c : public vexmath::detail::RootedDirection {
public:
    mgLine_c() = default; ///< the origin, without a direction
    mgLine_c(mgPoint_c const &root, mgUnitVector_c const &direction);

    mgUnitVector_c const &direction() const { return unit_; }
    void setDirection(mgUnitVector_c const &direction) { unit_ = direction; }

    /// The root moved as a point, the direction turned as a unit vector.
    mgLine_c &operator*=(mgXform_c const &x);

    /// The parameter of p's foot on the line, its signed distance from the root; the foot on
    /// request. foot may be p.
    double pointPerpParam(mgPoint_c const &p, mgPoint_c *foot) const;
    /// The foot of p. 1 when p is on the line: equal, as points are, to its foot. foot may be p.
    /// REQUIRES foot not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// 1 when p differs from its foot by less than 1e-08 in every coordinate.
    int isPointOn(mgPoint_c const &p) const;
    /// 1 when the directions agree within 1e-12, sign included, and other's root is on this line.
    VEXMATH_API int isEquivalent(mgLine_c const &other) const;

    /// Distance to another line, with the parameters of the nearest points, here and there, on
    /// request. Of parallel lines: the distance of other's root, its foot's parameter, and 0.
    VEXMATH_API double distToLine(mgLine_c const &other, double *t1, double *t2) const;
    /// Writes the foot of p and returns 1 when p is on the line or strictly nearer to it than tol;
    /// otherwise 0 and *out as it was. out may be p.
    VEXMATH_API int snapPointToLine(mgPoint_c const &p, mgPoint_c *out, double tol) const;
};

// -------------------------------------------------------------------------------------------------

inline void vexmath::detail::RootedDirection::move(mgXform_c const &x) {
    root_ *= x;
    unit_ *= x;
}

inline mgLine_c::mgLine_c(mgPoint_c const &root, mgUnitVector_c const &direction)
    : RootedDirection(root, direction) {}

inline mgLine_c &mgLine_c::operator*=(mgXform_c const &x) {
    move(x);
    return *this;
}

inline double mgLine_c::pointPerpParam(mgPoint_c const &p, mgPoint_c *foot) const {
    double const t = (p - root_) % unit_;
    if (foot != nullptr) *foot = root_ + t * unit_;
    return t;
}

inline int mgLine_c::pointPerp(mgPoint_c const &p, mgPoint_c *foot) const {
    mgPoint_c const given = p;
    pointPerpParam(given, foot);
    return given == *foot;
}

inline int mgLine_c::isPointOn(mgPoint_c const &p) const {
    mgVector_c const v = p - root_;
    return v == (v % unit_) * unit_;
}

#endif
