// SPDX-License-Identifier: MIT
// Free functions that build transforms for a particular job, and the view ray of a screen point.

#ifndef VEXMATH_MG_TRANSFORM_H
#define VEXMATH_MG_TRANSFORM_H

#include <vexmath/xform.h>

#include <vexmath_platform/point.h>

// Every factory starts from the identity and changes only what it says. Angles are in radians,
// lengths in model units. A scale outside (1.0000000000000002e-13, 6e12), bounds excluded, becomes
// 1. No factory reports an error: a null axis or a tiny angle gives no rotation. Every rotation is
// orthonormalised once, so that an axis said to be kept is kept up to rounding.

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
/// Mirror in the plane; flag set.
VEXMATH_API mgXform_c mg_PlaneReflectionXform(mgPlane_c const &plane);

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
/// The frame of a viewer at eye looking along dir, which is the frame's negative Z. Its X is the
/// part perpendicular to dir of a world axis that goes by dir's largest component (a later one must
/// be larger by more than 1e-08): z or -z for x, x for y, -x or x for z, so that X lies along it.
VEXMATH_API mgXform_c mg_CoordinateXformLookAt(mgPoint_c const &eye, mgUnitVector_c const &dir);

/// Carries p1 to p2 and turns u1 into u2, about u1 x u2. Opposite directions are turned half a turn
/// about z when useZAxis is not 0, else about an axis made of u1's absolute components, which is
/// perpendicular to u1 only for some signs; `mg_PointVecScaleXform` turns about a true
/// perpendicular.
VEXMATH_API mgXform_c mg_PointVectorXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                          mgUnitVector_c const &u1, mgUnitVector_c const &u2,
                                          int useZAxis);
/// Carries p1 to p2, scales by s about it, and turns d1 into the direction of d2; opposite
/// directions by half a turn about a perpendicular. A null direction is not turned, or by that half
/// turn about nothing: either way there is no rotation.
VEXMATH_API mgXform_c mg_PointVecScaleXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                            mgVector_c const &d1, mgVector_c const &d2, double s);
/// Carries p1 to p2 with a rotation about an axis through it.
VEXMATH_API mgXform_c mg_PointAngleXform(mgPoint_c const &p1, mgPoint_c const &p2, double angle,
                                         mgVector_c const &axis);
/// Carries the plane (p1, norm1) onto the plane (p2, norm2). Parallel and opposite normals are not
/// turned: the result only translates.
VEXMATH_API mgXform_c mg_PlaneToPlane(mgPoint_c const &p1, mgVector_c const &norm1,
                                      mgPoint_c const &p2, mgVector_c const &norm2);

// Viewing. Screen space is what a view's rotation, scale and translation lead to; the eye looks
// along its z axis. Zooming composes the view behind a move of the middle of a and b to the origin
// and a scale, and before a move of the origin to a place of the screen at depth 0.

/// The line of sight through p, a screen point when pIsScreen is not 0, else a model point, in
/// model space. Of a view with a perspective record: rayPoint on the near clip plane; rayDir from
/// the eye to it, or for an orthographic camera the z axis carried back; isCamera 1 when the record
/// is a camera. Without: rayPoint is p in model space, rayDir the z axis carried back, isCamera 0.
/// inverseOut, which may be null, becomes the way back from screen to model space. The outputs may
/// alias p and view.
VEXMATH_API void mg_getModelSpaceViewRay(mgXform_c const &view, mgPoint_c const &p, int pIsScreen,
                                         mgPoint_c &rayPoint, mgUnitVector_c &rayDir, int &isCamera,
                                         mgXform_c *inverseOut);
/// The view scaled by scale, with the middle of a and b at screenPos, whose z plays no part.
VEXMATH_API mgXform_c mg_ZoomToPosition(mgPoint_c const &screenPos, mgPoint_c const &a,
                                        mgPoint_c const &b, mgXform_c const &view, double scale);
/// The same with the middle of a and b at p1 plus half the absolute extent of the box p1 p2, halved
/// towards zero. That is the middle of the box only when p2 is its far corner.
VEXMATH_API mgXform_c mg_ZoomBoxToBox(CPoint const &p1, CPoint const &p2, mgPoint_c const &a,
                                      mgPoint_c const &b, mgXform_c const &view, double scale);

#endif
