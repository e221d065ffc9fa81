// SPDX-License-Identifier: MIT
// mgParallelogram_c: a parallelogram in space; mgGeneralBox_c: a box in any orientation.

#ifndef VEXMATH_GENERAL_BOX_H
#define VEXMATH_GENERAL_BOX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

/// A corner, two edge directions and the lengths along them: a plain, trivially copyable value. The
/// directions need not be perpendicular. Construction stores everything as given.
class mgParallelogram_c {
public:
    mgParallelogram_c() = default; ///< corner at the origin, null directions, lengths 0
    mgParallelogram_c(mgPoint_c const &corner, mgUnitVector_c const &d1, mgUnitVector_c const &d2,
                      double len1, double len2);

    bool isValid() const { return len1_ > 0.0 && len2_ > 0.0; } ///< of the lengths alone
    /// Is p in the plane and within the edges, bounds included? In the plane means nearer to it
    /// than 1e-08 / sin(angle between the directions), strictly. There is no tolerance along the
    /// edges. The validity is not tested: a length of 0 leaves a segment, a negative or NaN one the
    /// corner.
    ///
    /// A p that differs from the corner by less than 1e-08 in every coordinate is always inside.
    /// When the directions are parallel or opposite (every component of the cross product below
    /// 1e-08) nothing else is. A zero direction bounds nothing, if its length is 0 or more. When
    /// one is zero, p is inside if its projection on the other one is within that length, wherever
    /// p is otherwise. When both are zero, every point is inside. A p that holds NaN is outside.
    VEXMATH_API bool isPointInside(mgPoint_c const &p) const;
    /// low becomes the corner farthest against dir. high becomes the one farthest along dir among
    /// three: the root corner and the ends of edges 1 and 2. The fourth corner is never high. Of
    /// equally far ones the first in this order: root corner, end of edge 1, end of edge 2, fourth
    /// corner. So a null dir, or NaN in it, gives
    /// the corner twice. False, with the outputs unchanged, when a length is not above 0, or is
    /// NaN.
    VEXMATH_API bool getExtremPts(mgUnitVector_c const &dir, mgPoint_c &low, mgPoint_c &high) const;

private:
    mgPoint_c corner_;
    mgUnitVector_c d1_;
    mgUnitVector_c d2_;
    double len1_ = 0.0;
    double len2_ = 0.0;
};

/// A corner, two edge directions and three lengths, the third along the normalised cross product of
/// the directions: a plain, trivially copyable value. The first two directions need not be
/// perpendicular. Construction stores everything as given.
class mgGeneralBox_c {
public:
    mgGeneralBox_c() = default; ///< corner at the origin, null directions, lengths 0
    mgGeneralBox_c(mgPoint_c const &corner, mgUnitVector_c const &d1, mgUnitVector_c const &d2,
                   double len1, double len2, double len3);

    mgUnitVector_c getBoxDir_v1() const { return d1_; }
    mgUnitVector_c getBoxDir_v2() const { return d2_; }
    /// d1 x d2, normalised; the zero vector when that is shorter than about 3.2e-09: when the
    /// directions are parallel, opposite or null.
    mgUnitVector_c getBoxDir_v3() const;
    double getBoxLen_v1() const { return len1_; }
    double getBoxLen_v3() const { return len3_; }
    /// Of the lengths alone; the directions are not tested.
    bool isValid() const { return len1_ > 0.0 && len2_ > 0.0 && len3_ > 0.0; }

    /// The box in its own frame, from the origin to (len1, len2, len3), and the transform that
    /// places it: `mg_CoordinateXform(corner, d1, d2)`. Its second axis is perpendicular to d1, in
    /// the plane of d1 and d2, so that for other angles than a right one the placed box is not this
    /// box. Parallel or null directions are not detected; they leave zero rows in x. x is
    /// assigned, so that the copy rules of `mgXform_c` apply. False, with the outputs unchanged,
    /// when a length is not above 0, or is NaN.
    VEXMATH_API bool getBBoxAndXform(mgBBox_c &box, mgXform_c &x) const;
    /// The parallelogram in which the extended edges along the third direction meet the plane. It
    /// covers the projection of the box along that direction, which need not be perpendicular to
    /// the plane. Its corner and its edges 1 and 2 are the images of the box's.
    ///
    /// False, with the result unchanged, when a length is not above 0 or is NaN, when there is no
    /// third direction or its cosine with the normal is below 1e-08 in absolute value, or when an
    /// edge of the result is shorter than 1e-08 or NaN.
    VEXMATH_API bool projectToPlane(mgPlane_c const &plane, mgParallelogram_c &result) const;

private:
    mgPoint_c corner_;
    mgUnitVector_c d1_;
    mgUnitVector_c d2_;
    double len1_ = 0.0;
    double len2_ = 0.0;
    double len3_ = 0.0;
};

// -------------------------------------------------------------------------------------------------

inline mgParallelogram_c::mgParallelogram_c(mgPoint_c const &corner, mgUnitVector_c const &d1,
                                            mgUnitVector_c const &d2, double len1, double len2)
    : corner_(corner), d1_(d1), d2_(d2), len1_(len1), len2_(len2) {}

inline mgGeneralBox_c::mgGeneralBox_c(mgPoint_c const &corner, mgUnitVector_c const &d1,
                                      mgUnitVector_c const &d2, double len1, double len2,
                                      double len3)
    : corner_(corner), d1_(d1), d2_(d2), len1_(len1), len2_(len2), len3_(len3) {}

inline mgUnitVector_c mgGeneralBox_c::getBoxDir_v3() const { return {d1_ * d2_, 0}; }

#endif
