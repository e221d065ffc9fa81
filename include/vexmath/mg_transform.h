// SPDX-License-Identifier: MIT
// Free functions that build transforms for a particular job.

#ifndef VEXMATH_MG_TRANSFORM_H
#define VEXMATH_MG_TRANSFORM_H

#include <vexmath/xform.h>

// Every factory starts from the identity and changes only what it says. Angles are in radians,
// lengths in model units. A scale outside (1.0000000000000002e-13, 6e12), bounds excluded, becomes
// 1. No factory reports an error: a null axis or a tiny angle gives no rotation, a tiny translation
// none.

/// Rotation m with its flag, translation t and scale s as they are, but for the scale's range.
VEXMATH_API mgXform_c mg_RestoreXform(mgMatrix_c const &m, mgVector_c const &t, double s);

/// Translation; the identity when every component is below 1e-08 in absolute value.
VEXMATH_API mgXform_c mg_TranslateXform(mgVector_c const &t);

/// Rotation about an axis through the origin. The identity for a null axis or an angle of at most
/// 1e-11; tol snaps to quarter turns as in `mg_RotationMatrix`.
VEXMATH_API mgXform_c mg_RotateXform(double angle, mgVector_c const &axis, double tol);
/// The same about an axis through p.
VEXMATH_API mgXform_c mg_RotateAtPoint(mgPoint_c const &p, double angle, mgVector_c const &axis,
                                       double tol);

/// Uniform scale about the origin.
VEXMATH_API mgXform_c mg_ScaleXform(double s);
/// x with its scale replaced, not multiplied, by s.
VEXMATH_API mgXform_c mg_ScaleXform(mgXform_c x, double s);

// Mirrors in a coordinate plane, each negating one coordinate; reflection flag set.
VEXMATH_API mgXform_c mg_XReflectionXform();
VEXMATH_API mgXform_c mg_YReflectionXform();
VEXMATH_API mgXform_c mg_ZReflectionXform();
/// Mirror in the plane through the origin with normal n (a Householder matrix); flag set.
VEXMATH_API mgXform_c mg_ReflectionXform(mgUnitVector_c const &n);

// Coordinate frames: rows X, Y, Z of the rotation, and the origin as translation. Zero or parallel
// directions are not detected; they leave zero rows.

/// X is u; Y lies in the plane of u and v, on v's side.
VEXMATH_API mgXform_c mg_CoordinateXform(mgPoint_c const &origin, mgUnitVector_c const &u,
                                         mgUnitVector_c const &v);
/// X and Y given. keepFlag 1 keeps Y and turns X perpendicular to it; anything else keeps X.
VEXMATH_API mgXform_c mg_CoordinateXformXY(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// X and Z given. keepFlag 1 keeps X; anything else keeps Z.
VEXMATH_API mgXform_c mg_CoordinateXformXZ(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// Y and Z given. keepFlag 1 keeps Z; anything else keeps Y.
VEXMATH_API mgXform_c mg_CoordinateXformYZ(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// The frame of a viewer at eye looking along dir, which is the frame's negative Z. Up is the world
/// axis that the direction is farthest from, by a fixed rule.
VEXMATH_API mgXform_c mg_CoordinateXformLookAt(mgPoint_c const &eye, mgUnitVector_c const &dir);

/// Carries p1 to p2 and turns u1 into u2, about u1 x u2. Opposite directions are turned half a turn
/// about z when useZAxis is not 0, else about an axis made of u1's absolute components, which is
/// perpendicular to u1 only for some signs; `mg_PointVecScaleXform` turns about a true
/// perpendicular.
VEXMATH_API mgXform_c mg_PointVectorXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                          mgUnitVector_c const &u1, mgUnitVector_c const &u2,
                                          int useZAxis);
/// Carries p1 to p2, scales by s about it, and turns d1 into the direction of d2.
VEXMATH_API mgXform_c mg_PointVecScaleXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                            mgVector_c const &d1, mgVector_c const &d2, double s);
/// Carries p1 to p2 with a rotation about an axis through it.
VEXMATH_API mgXform_c mg_PointAngleXform(mgPoint_c const &p1, mgPoint_c const &p2, double angle,
                                         mgVector_c const &axis);
/// Carries the plane (p1, norm1) onto the plane (p2, norm2). Parallel and opposite normals are not
/// turned: the result only translates.
VEXMATH_API mgXform_c mg_PlaneToPlane(mgPoint_c const &p1, mgVector_c const &norm1,
                                      mgPoint_c const &p2, mgVector_c const &norm2);

#endif
