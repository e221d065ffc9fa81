// SPDX-License-Identifier: MIT
// mgLine_c: an infinite line.

#ifndef VEXMATH_LINE_H
#define VEXMATH_LINE_H

#include <vexmath/detail/rooted_direction.h>
#include <vexmath/xform.h>

#include <vexmath_platform/archive.h>

/// An infinite line: a root point on it and its direction. A plain, trivially copyable value of 48
/// bytes.
///
/// The direction is used as it is, and REQUIRES unit length or zero. A zero direction is not
/// detected: the line is then its root point alone. Nothing checks for NaN: a point or line that
/// holds NaN is on no line and equivalent to none, and gives NaN distances, parameters and feet.
class mgLine_c : public vexmath::detail::RootedDirection {
public:
    mgLine_c() = default; ///< root at the origin, zero direction
    mgLine_c(mgPoint_c const &root, mgUnitVector_c const &direction);

    mgPoint_c const &rootPoint() const { return root_; }
    mgUnitVector_c const &direction() const { return unit_; }
    void setRootPoint(mgPoint_c const &root) { root_ = root; }
    void setDirection(mgUnitVector_c const &direction) { unit_ = direction; }

    /// Transforms the root as a point, perspective included, and rotates the direction.
    mgLine_c &operator*=(mgXform_c const &x);

    /// Returns the parameter of p's foot on the line: its signed distance from the root along the
    /// direction. *foot becomes the foot unless foot is null. foot may be p.
    double pointPerpParam(mgPoint_c const &p, mgPoint_c *foot) const;
    /// *foot becomes the foot of p on the line. 1 when p is on the line: when it differs from its
    /// foot by strictly less than 1e-08 in every coordinate; else 0. foot may be p. REQUIRES foot
    /// not null.
    int pointPerp(mgPoint_c const &p, mgPoint_c *foot) const;
    /// 1 when p is on the line, by the rule of `pointPerp`. Rounding alone can make the two differ.
    int isPointOn(mgPoint_c const &p) const;
    /// 1 when the directions differ by strictly less than 1e-12 in every component, sign included,
    /// and other's root is on this line (`isPointOn`). Lines of opposite directions are not
    /// equivalent.
    VEXMATH_API int isEquivalent(mgLine_c const &other) const;

    /// Distance to another line. *t1 becomes the parameter of the nearest point on this line, *t2
    /// of the one on other; each may be null. For parallel lines, in either sense
    /// (`mgVector_c::isParallelTo`, to about 0.008 degrees): the distance of other's root from this
    /// line, with *t1 the parameter of its foot and *t2 0. A zero direction is not parallel: its
    /// line counts as its root, with the parameter 0.
    VEXMATH_API double distToLine(mgLine_c const &other, double *t1, double *t2) const;
    /// Writes the foot of p and returns 1 when p is on the line (as in `pointPerp`, whatever tol
    /// is) or its distance is strictly less than |tol|. Otherwise 0, and *out unchanged. A tol of
    /// NaN counts as 0. out may be p. REQUIRES out not null.
    VEXMATH_API int snapPointToLine(mgPoint_c const &p, mgPoint_c *out, double tol) const;

    /// Archive record: root point, then direction: six doubles. Reading does not normalise the
    /// direction. A failing read leaves the line as it was.
    void save(su_CArchive &ar) const { RootedDirection::save(ar); }
    void restore(su_CArchive &ar) { RootedDirection::restore(ar); }
};

// -------------------------------------------------------------------------------------------------

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
