// SPDX-License-Identifier: MIT
// mgArc_c: a circular arc as drawings hold it.

#ifndef VEXMATH_ARC_H
#define VEXMATH_ARC_H

#include <vexmath/matrix.h>

/// A circular arc: centre, radius, start and end angle about a normal, the two points it was made
/// from, and, for the caller's use alone, a matrix and a 2D mark.
///
/// Angles are in radians unless a name says degrees, counter-clockwise about the normal. A full
/// turn is 6.2831853071796 and half of it pi. Angles are stored as given. Where one is brought down
/// to a turn, a size beyond 1e6 loses its whole turns of either sign first, and an angle that is
/// not finite gives NaN. Nothing reports an error; `isValid` tells.
class mgArc_c {
public:
    mgArc_c() = default; ///< nothing at the origin, about z
    /// All as given. The points stay (0, 0, 0): `getStartPoint` and `getEndPoint` compute them.
    VEXMATH_API mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre, double radius,
                        double start, double end);
    /// From start counter-clockwise to the direction of end, which need not be on the circle; equal
    /// directions make a full circle. The start angle is 0, at the start point. With the start
    /// closer to the centre than 1e-08 both angles are 0.
    VEXMATH_API mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre,
                        mgPoint_c const &start, mgPoint_c const &end);

    /// 1 when the radius is at least 1e-08 and the angles differ by at least 1e-11.
    VEXMATH_API int isValid() const;

    // Members as they are.
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

    /// The point at the start angle, or end angle, of a circle about the centre in its plane of
    /// constant z, with angles from +x. Neither normal nor matrix is applied: who draws the arc
    /// places it by the matrix.
    VEXMATH_API void getStartPoint(mgPoint_c &out) const;
    VEXMATH_API void getEndPoint(mgPoint_c &out) const;

    /// The angles in degrees, at most 360 up to rounding.
    VEXMATH_API double getStartAngleInDegrees() const;
    VEXMATH_API double getEndAngleInDegrees() const;

    /// The angle of p about the normal, from the start point, up to a full turn; 0 for a p closer
    /// to the centre than 1e-08.
    VEXMATH_API double iGetAngle(mgPoint_c const &p) const;

    // The angles of a partial-disk drawing call: from +y, clockwise.

    /// Radians to radians, in [0, 2 pi]: a quarter turn of 1.5707963267949, which is +y, gives a
    /// full turn and not 0.
    VEXMATH_API static double convertToOglAngle(double angle);
    /// Where the clockwise drawing starts, in degrees: at the arc's end. 0 for an arc whose angles
    /// are less than 1e-11 apart or less than that from a full turn apart.
    VEXMATH_API double getOglStartAngle() const;
    /// How far it goes, in degrees; 360 for angles at most 1e-11 apart, or NaN.
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
