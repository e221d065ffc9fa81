// SPDX-License-Identifier: MIT
// Free functions over lines, planes and triangles.

#ifndef VEXMATH_MG_PRIMITIVES_H
#define VEXMATH_MG_PRIMITIVES_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// The line common to two planes: a point on it and its direction, a's normal x b's, each on
/// request. Returns 0, writing nothing, when the normals are equal or opposite within 1e-08 per
/// component, else 1.
VEXMATH_API int interLine(mgPlane_c const &a, mgPlane_c const &b, mgPoint_c *point,
                          mgUnitVector_c *dir);

/// The foot of p on the line through a along v, which may have any length; p itself when p is on
/// the line or v is null: when v x (p - a) x v is null, so also for a p so near the line that its
/// distance times the square of v's length is below 1e-08.
VEXMATH_API mgPoint_c s_projPointOnLine(mgPoint_c p, mgPoint_c a, mgVector_c v);

/// Barycentric coordinates of the point p = (x, y) in the triangle of three points (x, y): weights
/// of the corners that sum to 1, negative outside. tol bounds, relatively and strictly, the squared
/// sine of the angle at tri[0]: below it, or when the corners are collinear to the last bit,
/// degenerate becomes 1 and the coordinates -1; otherwise degenerate becomes 0. out may alias the
/// inputs. REQUIRES two doubles in p, three pairs in tri, room for three doubles in out.
VEXMATH_API void getBaricentricCoordinates(double tol, double const *p, double const (*tri)[2],
                                           double *out, int &degenerate);

#endif
