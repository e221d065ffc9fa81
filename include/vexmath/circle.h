// SPDX-License-Identifier: MIT
// mgCircle_c: a full circle in space.

#ifndef VEXMATH_CIRCLE_H
#define VEXMATH_CIRCLE_H

#include <vexmath/xform.h>

/// A circle: centre, radius and the normal of its plane. A plain, trivially copyable value of 56
/// bytes. Construction stores everything as given and checks nothing.
class mgCircle_c {
public:
    mgCircle_c(mgPoint_c const &centre, double radius, mgUnitVector_c const &normal);

    mgPoint_c const &center() const { return centre_; }
    double radius() const { return radius_; }
    mgUnitVector_c const &normal() const { return normal_; }

    /// Transforms the centre as a point, perspective included, multiplies the radius by the scale,
    /// and rotates the normal.
    mgCircle_c &operator*=(mgXform_c const &x);

    /// 1 when the radii differ by strictly less than 1e-08, the centres by strictly less than 1e-08
    /// in every coordinate, and the normals by strictly less than 1e-12 in every component, sign
    /// included. 0 for NaN.
    int isEquivalent(mgCircle_c const &other) const;

private:
    mgPoint_c centre_;
    double radius_;
    mgUnitVector_c normal_;
};

// -------------------------------------------------------------------------------------------------

inline mgCircle_c::mgCircle_c(mgPoint_c const &centre, double radius, mgUnitVector_c const &normal)
    : centre_(centre), radius_(radius), normal_(normal) {}

inline mgCircle_c &mgCircle_c::operator*=(mgXform_c const &x) {
    centre_ *= x;
    radius_ *= x.scaling();
    normal_ *= x;
    return *this;
}

inline int mgCircle_c::isEquivalent(mgCircle_c const &other) const {
    /// How far the components of equal normals may differ; strict.
    constexpr double kNormalTolerance = 1e-12;
    return vexmath::detail::isTiny(radius_ - other.radius_) && centre_.isSame(other.centre_)
           && normal_.isEqual(other.normal_, kNormalTolerance);
}

#endif
