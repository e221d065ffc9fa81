// SPDX-License-Identifier: MIT
// mgParallelogram_c: a parallelogram in space; mgGeneralBox_c: a box in any orientation.

#ifndef VEXMATH_GENERAL_BOX_H
#define VEXMATH_GENERAL_BOX_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

/// A corner, two edge directions and the lengths along them: a plain, trivially copyable value. The
/// directions need not be perpendicular. Nothing is checked on construction.
class mgParallelogram_c {
public:
    mgParallelogram_c() = default; ///< the origin, without directions; lengths 0
    mgParallelogram_c(mgPoint_c const &corner, mgUnitVector_c const &d1, mgUnitVector_c const &d2,
                      double len1, double len2);

    bool isValid() const { return len1_ > 0.0 && len2_ > 0.0; }
    /// Is p within 1e-08 of the plane, strictly, and within the edges, bounds included? The corner
    /// always is; nothing else is when the directions are parallel (null cross product). A null
    /// direction bounds nothing: then only the projection of p on the other one must lie within its
    /// length, and of two null directions every point is inside.
    VEXMATH_API bool isPointInside(mgPoint_c const &p) const;
    /// The corners farthest against dir and farthest along it, but for the corner opposite to the
    /// first, which is never given as high. Where several are equally far, the first of corner, end
    /// of edge 1, end of edge 2, opposite corner. False, outputs unchanged, when not valid.
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
/// perpendicular. Nothing is checked on construction.
class mgGeneralBox_c {
public:
    mgGeneralBox_c() = default; ///< the origin, without directions; lengths 0
    mgGeneralBox_c(mgPoint_c const &corner, mgUnitVector_c const &d1, mgUnitVector_c const &d2,
                   double len1, double len2, double len3);

    mgUnitVector_c getBoxDir_v1() const { return d1_; }
    mgUnitVector_c getBoxDir_v2() const { return d2_; }
    mgUnitVector_c getBoxDir_v3() const; ///< d1 x d2; no direction when they are parallel
    double getBoxLen_v1() const { return len1_; }
    double getBoxLen_v3() const { return len3_; }
    bool isValid() const { return len1_ > 0.0 && len2_ > 0.0 && len3_ > 0.0; }

    /// The box in a frame of its own, from the origin to the three lengths, and the transform that
    /// places it there. Its second axis is perpendicular to d1, in the plane of d1 and d2. False,
    /// outputs unchanged, when the box is not valid.
    VEXMATH_API bool getBBoxAndXform(mgBBox_c &box, mgXform_c &x) const;
    /// The parallelogram in which the edges along the third direction, prolonged, meet the plane:
    /// it covers the projection of the box along that direction. False, result unchanged, when the
    /// box is not valid, its third direction runs along the plane, or an edge of the result is
    /// shorter than 1e-08.
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
