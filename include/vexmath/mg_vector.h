// SPDX-License-Identifier: MIT
// Free functions over points and vectors: ranges, distances, angles, bases.

#ifndef VEXMATH_MG_VECTOR_H
#define VEXMATH_MG_VECTOR_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

/// Brings a periodic parameter into one period.
///
/// Without an end (null) the parameter ends in [0, period], and a positive multiple of the period,
/// or what lies less than 1e-11 above one, becomes the period and not 0. With an end, *param starts
/// an interval: it ends in [0, period), snapping to 0 within 1e-11 of the period, and *endParam
/// follows it at the old distance, clipped to one period. A negative parameter is lifted only when
/// the period is at least 1e-14. NaN, or an infinite parameter, gives NaN. Never loops without
/// progress.
VEXMATH_API void mg_PutParamInRange(double *param, double period, double *endParam);
/// The same with the period 2 pi (the double nearest to it).
VEXMATH_API void mg_PutAngleInRange(double *angle, double *endAngle);

/// Scalar triple product (a x b) . c.
double vol(mgVector_c const &a, mgVector_c const &b, mgVector_c const &c);
/// a + t (b - a); t is not clamped.
mgPoint_c interpolate(double t, mgPoint_c const &a, mgPoint_c const &b);
double sqDist(mgPoint_c const &a, mgPoint_c const &b);
double dist(mgPoint_c const &a, mgPoint_c const &b);

/// The direction of v. Goes by the squared length, (0, 0, 0) strictly below 1e-17, and so accepts
/// shorter vectors than `mgVector_c::normalise`: (5e-09, 0, 0) gives the x axis here and is refused
/// there.
mgUnitVector_c mg_Normalise(mgVector_c const &v);

/// Completes n to a right-handed frame (u, v, n); u is near the coordinate axis along which n is
/// shortest. REQUIRES n of unit length: u is exactly
/// perpendicular only then. The outputs may alias n.
VEXMATH_API void mg_getBasis(mgVector_c const &n, mgUnitVector_c &u, mgUnitVector_c &v);

/// Angle in radians between two vectors, in [0, pi]; 0 when either is exactly zero.
VEXMATH_API double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b);
/// Angle from a to b counter-clockwise about ref, in [0, 2 pi) up to rounding.
VEXMATH_API double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b, mgVector_c const &ref);
/// Angle from a to b counter-clockwise about z, in [0, 2 pi) up to rounding. The cosine side uses
/// all three components.
VEXMATH_API double mg_AngleBetween2d(mgVector_c const &a, mgVector_c const &b);
/// Signed planar angle from a to b in [-pi, pi] (-pi by the sign of a zero alone) when both lie in
/// the plane z = 0 (within 1e-08, bound included) and force3d is 0; otherwise the angle between
/// them in [0, pi], never negative. 0 when either is null. The double is accepted and plays no
/// part.
VEXMATH_API double mg_getAngleFromVectors(mgVector_c const &a, mgVector_c const &b, double unused,
                                          int force3d);
/// Derivative of v/|v| when v changes by dv; the zero vector when |v| < 1e-08.
VEXMATH_API mgVector_c mgUnitVectorDer(mgVector_c const &v, mgVector_c const &dv);

// -------------------------------------------------------------------------------------------------

inline double vol(mgVector_c const &a, mgVector_c const &b, mgVector_c const &c) {
    return (a * b) % c;
}

inline mgPoint_c interpolate(double t, mgPoint_c const &a, mgPoint_c const &b) {
    return a + t * (b - a);
}

inline double sqDist(mgPoint_c const &a, mgPoint_c const &b) { return (b - a).sqlen(); }

inline double dist(mgPoint_c const &a, mgPoint_c const &b) { return (b - a).len(); }

inline mgUnitVector_c mg_Normalise(mgVector_c const &v) { return {v.x(), v.y(), v.z()}; }

#endif
