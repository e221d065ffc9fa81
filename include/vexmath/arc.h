// SPDX-License-Identifier: MIT
// mgArc_c: a circular arc by centre, radius and angles.

#ifndef VEXMATH_ARC_H
#define VEXMATH_ARC_H

#include <vexmath/matrix.h>

/// A circular arc: centre, radius, start and end angle about a normal, the two points it was made
/// from, and, for the caller alone, a matrix and a 2D flag.
///
/// Angles are in radians unless a name says degrees, counter-clockwise about the normal. A full
/// turn is 6.2831853071796. Nothing reports an error; `isValid` tells.
///
/// Where an angle is said to be reduced, full turns are subtracted while it exceeds one; negative
/// angles stay negative. An angle beyond 1e6 in absolute value first loses all whole turns, of
/// either sign. An infinite angle and NaN give NaN.
class mgArc_c {
public:
    /// At the origin about z, with radius and angles 0: not valid.
    mgArc_c() = default;
    /// Stores everything as given. The start and end point stay (0, 0, 0): `getStartPoint` and
    /// `getEndPoint` compute them.
    VEXMATH_API mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre, double radius,
                        double start, double end);
    /// From start counter-clockwise about the normal to the direction of end, which need not be on
    /// the circle. The normal is normalised. The radius is the distance of start from centre. The
    /// start angle is 0, at start. The end angle is `iGetAngle(end)`; where that is below 1e-11 it
    /// becomes the full circle, 6.283185307179586. So an end in the direction of start makes a full
    /// circle, and so does one that is closer to the centre than 1e-08 or holds NaN. Without a
    /// normal the end angle never exceeds pi, except for the full circle. When start is closer to
    /// the centre than 1e-08, or holds NaN, both angles stay 0 and the arc is not valid.
    VEXMATH_API mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre,
                        mgPoint_c const &start, mgPoint_c const &end);

    /// 1 when the radius is at least 1e-08 and the angles differ by at least 1e-11 in absolute
    /// value. 0 for NaN.
    VEXMATH_API int isValid() const;

    // Members, as stored.
    void getCenter(mgPoint_c &out) const { out = centre_; }
    void getStart(mgPoint_c &out) const { out = start_; }
    void getEnd(mgPoint_c &out) const { out = end_; }
    void getNormal(mgUnitVector_c &out) const { out = normal_; }
    double getRadius() const { return radius_; }
    double getStartAngleInRadians() const { return startAngle_; }
    double getEndAngleInRadians() const { return endAngle_; }
    bool is2D() const { return is2D_; }
    void set2D(bool is2D) { is2D_ = is2D; }
    mgMatrix_c const &matrix() const { return matrix_; }
    void setMatrix(mgMatrix_c const &matrix) { matrix_ = matrix; }

    /// The point at the start angle, or end angle, of the circle about the centre in the plane of
    /// constant z, with angles counted from +x. Neither the normal nor the matrix is applied, and
    /// the start and end point stored are not used: the caller places the point by the matrix. The
    /// angle is reduced, but one of up to 1e-11 beyond a full turn is kept. An angle that is not
    /// finite gives NaN in x and y.
    VEXMATH_API void getStartPoint(mgPoint_c &out) const;
    VEXMATH_API void getEndPoint(mgPoint_c &out) const;

    /// The angles, reduced, in degrees: at most 360 up to rounding.
    VEXMATH_API double getStartAngleInDegrees() const;
    VEXMATH_API double getEndAngleInDegrees() const;

    /// The angle between the directions from the centre to the start point and to p, counted
    /// counter-clockwise about the normal, from 0 to a full turn (`mg_AngleBetween`). p need not
    /// lie in the plane of the arc. Without a normal it is at most pi. 0 when p is closer to the
    /// centre than 1e-08 or holds NaN, and when the start point is the centre. REQUIRES an arc made
    /// from points: for another one the start point is (0, 0, 0).
    VEXMATH_API double iGetAngle(mgPoint_c const &p) const;

    // The angles of a partial-disk drawing call: from +y, clockwise.

    /// Radians to radians: a full turn minus the angle from +y, where the angle from +y is the
    /// reduced angle minus 1.5707963267949, raised by full turns until it is 0 or more. The result
    /// lies in [0, 6.2831853071796]; exactly +y gives the full turn and not 0. An angle that is not
    /// finite gives NaN.
    VEXMATH_API static double convertToOglAngle(double angle);
    /// Where the clockwise drawing starts, in degrees: the end angle, converted. 0 when the
    /// absolute difference of the angles is less than 1e-11, or differs from a full turn by less
    /// than 1e-11, or is NaN.
    VEXMATH_API double getOglStartAngle() const;
    /// The end angle minus the start angle, in degrees; not reduced, and negative when the end
    /// comes first. 360 when the absolute difference is at most 1e-11, bound included, or NaN.
    VEXMATH_API double getOglSweepAngle() const;

private:
    mgPoint_c pointAt(double angle) const;

    bool is2D_ = false;
    mgPoint_c centre_;
    mgPoint_c start_;
    mgPoint_c end_;
    double radius_ = 0.0;
    double startAngle_ = 0.0;
    double endAngle_ = 0.0;
    mgUnitVector_c normal_ = mgUnitVector_c(0.0, 0.0, 1.0);
    mgMatrix_c matrix_;
};

#endif
