// SPDX-License-Identifier: MIT
// Free functions that build transforms; view rays and zooms.

#ifndef VEXMATH_MG_TRANSFORM_H
#define VEXMATH_MG_TRANSFORM_H

#include <vexmath/xform.h>

#include <vexmath_platform/point.h>

// Factories. Each starts from the identity and changes only what it says. Angles are in radians,
// lengths in model units. A scale that is not strictly between 1.0000000000000002e-13 and 6e12, or
// is NaN, becomes 1. A rotation made of directions is orthonormalised by one pass (see
// `mgMatrix_c::normalize`), so an axis that is said to be kept is kept up to rounding. Unit vectors
// are used as they are: REQUIRES length 1 or none. No factory reports an error; where the result
// holds a perspective record, exhausted memory throws `std::bad_alloc`.
//
// The copy rules of `mgXform_c` hold only where a function says so.

/// Rotation m with its flag and translation t, both as they are, and scale s. The reflection flag
/// is 0, also when m mirrors.
VEXMATH_API mgXform_c mg_RestoreXform(mgMatrix_c const &m, mgVector_c const &t, double s);

/// Translation; the identity when every component is below 1e-08 in absolute value. A NaN component
/// is taken over.
VEXMATH_API mgXform_c mg_TranslateXform(mgVector_c const &t);

/// Rotation about an axis through the origin, as by `mg_RotationMatrix`, whose snapTol is tol. The
/// identity when every component of the axis is below 1e-08 in absolute value, or the angle is at
/// most 1e-11 in absolute value. A NaN or infinite angle, or an infinite axis, gives three zero
/// rows. An axis with NaN, or of a length beyond 1.3e154, gives the identity or its negative, by
/// the sign of the cosine, or three zero rows when tol snaps the cosine to 0.
VEXMATH_API mgXform_c mg_RotateXform(double angle, mgVector_c const &axis, double tol);
/// The same about an axis through p. A p whose coordinates are all below 1e-08 in absolute value is
/// treated as the origin. The result follows the copy rules.
VEXMATH_API mgXform_c mg_RotateAtPoint(mgPoint_c const &p, double angle, mgVector_c const &axis,
                                       double tol);

/// Uniform scale about the origin.
VEXMATH_API mgXform_c mg_ScaleXform(double s);
/// x with its scale replaced, not multiplied, by s. Everything else, the perspective record
/// included, is a copy by the copy rules.
VEXMATH_API mgXform_c mg_ScaleXform(mgXform_c x, double s);

// Mirrors in a coordinate plane, each negating one coordinate. The reflection flag is 1.
VEXMATH_API mgXform_c mg_XReflectionXform();
VEXMATH_API mgXform_c mg_YReflectionXform();
VEXMATH_API mgXform_c mg_ZReflectionXform();
/// Mirror in the plane through the origin with normal n (a Householder matrix). The reflection flag
/// is 1. A null n gives the identity, with the flag.
VEXMATH_API mgXform_c mg_ReflectionXform(mgUnitVector_c const &n);
/// Mirror in the plane. The reflection flag is 1. A null normal gives the identity, with the flag.
VEXMATH_API mgXform_c mg_PlaneReflectionXform(mgPlane_c const &plane);

// Coordinate frames: the frame's axes X, Y, Z as rows of the rotation, and the origin as
// translation. Zero and parallel directions, whose cross product is shorter than about 3.2e-09, are
// not reported: a kept X or Y then stays with two zero rows; otherwise all rows are zero.

/// Keeps X = u. Y lies in the plane of u and v, on v's side.
VEXMATH_API mgXform_c mg_CoordinateXform(mgPoint_c const &origin, mgUnitVector_c const &u,
                                         mgUnitVector_c const &v);
// In the next three, a and b are the directions of the two named axes, in that order. One is kept
// and the other becomes its part perpendicular to it. The third completes the right-handed frame.

/// keepFlag 1 keeps Y = b, any other X = a.
VEXMATH_API mgXform_c mg_CoordinateXformXY(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// keepFlag 1 keeps X = a, any other Z = b.
VEXMATH_API mgXform_c mg_CoordinateXformXZ(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// keepFlag 1 keeps Z = b, any other Y = a.
VEXMATH_API mgXform_c mg_CoordinateXformYZ(mgPoint_c const &origin, mgUnitVector_c const &a,
                                           mgUnitVector_c const &b, int keepFlag);
/// The frame of a viewer at eye that looks along dir: Z is -dir. X is the direction of that part of
/// a world axis which is perpendicular to dir. dir's dominant component selects the axis:
/// - x: world z when dir.x > 0, else world -z;
/// - y: world x;
/// - z: world -x when dir.z > 0, else world x.
///
/// y dominates when |dir.y| > |dir.x| + 1e-08, otherwise x; z dominates when |dir.z| exceeds the
/// absolute value of that one by more than 1e-08. A null dir gives zero rows.
VEXMATH_API mgXform_c mg_CoordinateXformLookAt(mgPoint_c const &eye, mgUnitVector_c const &dir);

// Transforms that carry p1 to p2. Each is a product of a translation of p1 to the origin, the steps
// named, and a translation of the origin to p2; the result follows the copy rules. A p1 or p2 whose
// coordinates are all below 1e-08 in absolute value is treated as the origin.

/// Rotates u1 into u2, about u1 x u2. When |u1 x u2| < 1e-08 nothing is rotated if u1 . u2 > 0;
/// otherwise the rotation is half a turn, about z when useZAxis is not 0, else about an axis made
/// of u1's absolute components, which is perpendicular to u1 only for some signs;
/// `mg_PointVecScaleXform` uses a true perpendicular. So a null u2 gives half a turn, and a null
/// u1 only when useZAxis is not 0.
VEXMATH_API mgXform_c mg_PointVectorXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                          mgUnitVector_c const &u1, mgUnitVector_c const &u2,
                                          int useZAxis);
/// Scales by s and rotates the direction of d1 into that of d2, about d1 x d2. When the sine is
/// below 1e-11 nothing is rotated if the directions agree; opposite ones are rotated by half a turn
/// about a perpendicular of d1. A d2 that is NaN or shorter than about 3.2e-09 gives that half turn
/// too; such a d1 gives no rotation.
VEXMATH_API mgXform_c mg_PointVecScaleXform(mgPoint_c const &p1, mgPoint_c const &p2,
                                            mgVector_c const &d1, mgVector_c const &d2, double s);
/// Rotates about an axis through p1, as `mg_RotateXform` with tol 0.
VEXMATH_API mgXform_c mg_PointAngleXform(mgPoint_c const &p1, mgPoint_c const &p2, double angle,
                                         mgVector_c const &axis);
/// Carries the plane (p1, norm1) onto the plane (p2, norm2): rotates norm1 into the direction of
/// norm2, about norm1 x norm2. Only translates when a normal is null or every component of that
/// product is below 1e-08 in absolute value: parallel and opposite normals are not rotated, nor are
/// two of length 1e-05. Otherwise a NaN component gives three zero rows. The normals need not be of
/// unit length.
VEXMATH_API mgXform_c mg_PlaneToPlane(mgPoint_c const &p1, mgVector_c const &norm1,
                                      mgPoint_c const &p2, mgVector_c const &norm2);

// Viewing. Screen space is the image of a view's rotation, scale and translation; the eye looks
// along its z axis.

/// The line of sight through p, in model space. p is a screen point when pIsScreen is not 0, else a
/// model point.
///
/// Without a perspective record: rayPoint is p in model space, which a model point is already;
/// rayDir is the image of the z axis under the view's inverse; isCamera is 0.
///
/// With a record: p in screen space (a model point goes through the perspective division) is moved
/// to the near clip plane by `mgPerspInfo_c::moveScreenPointToNearClipPlane` and then to model
/// space: rayPoint. rayDir leads from the eye to it, or is (0, 0, 0) when they are closer than
/// about 3.2e-09; for an orthographic camera it is the image of the z axis as above. isCamera is 1
/// when the record is a camera, else 0.
///
/// The inverse is that of the view's rotation, scale and translation; with a record, of a copy by
/// the copy rules. *inverseOut becomes that inverse; inverseOut may be null. The outputs may alias
/// p and view. Nothing is allocated.
VEXMATH_API void mg_getModelSpaceViewRay(mgXform_c const &view, mgPoint_c const &p, int pIsScreen,
                                         mgPoint_c &rayPoint, mgUnitVector_c &rayDir, int &isCamera,
                                         mgXform_c *inverseOut);

// A zoom composes, by `*=`: the translation of the middle of a and b to the origin, the scale, the
// view, and a translation (x, y, 0) on the screen. The translations and the scale are made by the
// factories above: x and y that are both below 1e-08 in absolute value are treated as 0, and so is
// a middle with three such coordinates. The result is returned as composed, without the copy rules,
// and holds a copy of the view's perspective record. The image of the middle, before the
// perspective division, is the view's translation plus (x, y, 0), up to rounding; for a view
// without translation it is (x, y, 0).

/// (x, y) is that of screenPos, whose z is ignored.
VEXMATH_API mgXform_c mg_ZoomToPosition(mgPoint_c const &screenPos, mgPoint_c const &a,
                                        mgPoint_c const &b, mgXform_c const &view, double scale);
/// x is p1.x + |p2.x - p1.x| / 2, in integers that do not overflow, the half rounded towards zero;
/// y likewise. That is the middle of the box p1 p2 only when neither coordinate of p2 is smaller
/// than p1's.
VEXMATH_API mgXform_c mg_ZoomBoxToBox(CPoint const &p1, CPoint const &p2, mgPoint_c const &a,
                                      mgPoint_c const &b, mgXform_c const &view, double scale);

#endif
