// SPDX-License-Identifier: MIT
// Free functions over points and vectors: ranges, distances, angles, bases.

#ifndef VEXMATH_MG_VECTOR_H
#define VEXMATH_MG_VECTOR_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

/// Brings a periodic parameter into one period. REQUIRES param not null.
///
/// Without endParam (null), *param ends in [0, period]. A positive multiple of the period, or a
/// value that exceeds such a multiple by strictly less than 1e-11, becomes the period and not 0. 0
/// stays 0. A negative multiple becomes 0, or by rounding the period.
///
/// With endParam, *param starts an interval and *endParam ends it. *param ends in [0, period); it
/// becomes 0 when it is at most 1e-11 below the period. *endParam becomes *param plus the old
/// difference of the two, or plus the period when the difference was larger. A negative difference
/// stays as it was.
///
/// Periods are added one by one to a negative parameter, and each sum is rounded. A parameter more
/// than 1e6 periods below zero takes one remainder instead. A period strictly below 1e-14 is not
/// added: without endParam a negative parameter then stays negative or becomes -0.0, and with
/// endParam *param becomes 0. REQUIRES a period that is not negative: a negative one gives values
/// outside these ranges. Both values become NaN when the period is 0 or NaN, when the parameter is
/// NaN or infinite, and when the parameter is negative and the period +infinity.
VEXMATH_API void mg_PutParamInRange(double *param, double period, double *endParam);
/// The same with the period 2 pi (the double nearest to it).
VEXMATH_API void mg_PutAngleInRange(double *angle, double *endAngle);

/// Scalar triple product (a x b) . c.
double vol(mgVector_c const &a, mgVector_c const &b, mgVector_c const &c);
/// a + t (b - a); t is not clamped.
mgPoint_c interpolate(double t, mgPoint_c const &a, mgPoint_c const &b);
double sqDist(mgPoint_c const &a, mgPoint_c const &b); ///< squared distance of a and b
double dist(mgPoint_c const &a, mgPoint_c const &b);   ///< distance of a and b

/// The direction of v, as the constructors of `mgUnitVector_c` make it: (0, 0, 0) when the squared
/// length is strictly below 1e-17. `mgVector_c::normalise` refuses some vectors that are longer:
/// (5e-09, 0, 0) gives the x axis here, and there it stays unchanged with a result of 0.
mgUnitVector_c mg_Normalise(mgVector_c const &v);

/// Completes n to a right-handed frame (u, v, n). u is the part perpendicular to n of a coordinate
/// axis, normalised, and v is n x u, normalised. The axis is x when |n.x| is strictly smaller than
/// both others, else z when |n.z| <= |n.y|, else y. REQUIRES n of unit length: only then is u
/// perpendicular to it. A zero n gives the z axis and (0, 0, 0). A NaN or infinite component gives
/// (0, 0, 0) twice. Each output may alias n.
VEXMATH_API void mg_getBasis(mgVector_c const &n, mgUnitVector_c &u, mgUnitVector_c &v);

// Angles in radians. A NaN component of a or b gives NaN. An angle computed from |a x b| loses
// digits when that length is below about 1e-154, and is 0 or pi when it is below about 1e-162. When
// |a| |b| is above about 1e154, the angle can be wrong or NaN. Only mg_getAngleFromVectors tests
// for null vectors.

/// The angle between two vectors in [0, pi]: atan2(|a x b|, a . b). 0 when either is exactly zero.
VEXMATH_API double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b);
/// The angle from a to b counter-clockwise about ref: the angle between them, or 6.2831853071796
/// minus it when (a x b) . ref < 0. It reaches 6.2831853071796 by rounding. A NaN ref gives the
/// angle between them.
VEXMATH_API double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b, mgVector_c const &ref);
/// The angle from a to b counter-clockwise about z: atan2((a x b).z, a . b), plus 6.2831853071796
/// when that is negative. The dot product includes z, so the angle is right only for vectors
/// with z = 0. It reaches 6.2831853071796 by rounding.
VEXMATH_API double mg_AngleBetween2d(mgVector_c const &a, mgVector_c const &b);
/// When force3d is 0 and |z| of both is at most 1e-08: the signed angle from a to b in the plane,
/// atan2(a.x b.y - a.y b.x, a.x b.x + a.y b.y), in [-pi, pi]; opposite vectors can give either end.
/// Otherwise the angle between them in [0, pi], never negative. 0 when either is null, also when
/// the other holds NaN. The double is ignored.
VEXMATH_API double mg_getAngleFromVectors(mgVector_c const &a, mgVector_c const &b, double unused,
                                          int force3d);
/// The derivative of v/|v| when v changes by dv. The zero vector when |v| is strictly below 1e-08.
/// From |v| of about 5.6e102 on |v|^3 overflows, and the part of dv along v is not removed; from
/// about 1.3e154 on the result is (0, 0, 0) or NaN.
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
