// SPDX-License-Identifier: MIT
// Free functions over lines, planes and triangles.

#ifndef VEXMATH_MG_PRIMITIVES_H
#define VEXMATH_MG_PRIMITIVES_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

/// The line common to two planes. Returns 0 and writes nothing when the normals are equal or
/// opposite: when every component differs by strictly less than 1e-08. Otherwise returns 1; *dir
/// becomes a's normal x b's normal, normalised, and *point the foot of b's root on the line. Each
/// may be null. REQUIRES two planes with a normal: with one zero normal the result is 1 and *dir is
/// zero. NaN in a normal gives 1 and outputs without meaning; NaN in a root, a *point without
/// meaning.
VEXMATH_API int interLine(mgPlane_c const &a, mgPlane_c const &b, mgPoint_c *point,
                          mgUnitVector_c *dir);

/// The foot of p on the line through a along v, which may have any length. Returns p unchanged when
/// every component of (v x (p - a)) x v is below 1e-08 in absolute value: when v is short, and when
/// p is so near the line that its distance times the squared length of v is about as small. p
/// unchanged or NaN where the square of that vector overflows (beyond about 1.3e154). NaN in p or a
/// gives NaN; NaN in v gives p.
VEXMATH_API mgPoint_c s_projPointOnLine(mgPoint_c p, mgPoint_c a, mgVector_c v);

/// Barycentric coordinates of the point p = (x, y) in the triangle of three points (x, y): weights
/// of the corners that sum to 1; p is outside when one is negative. When the squared sine of the
/// angle at tri[0] is strictly less than tol, or the corners are collinear to the last bit,
/// degenerate becomes 1 and all weights -1. Otherwise degenerate becomes 0. With a tol of 0, a
/// negative one or NaN only the second test remains. NaN coordinates give NaN and 0. The test with
/// tol can miss flat triangles whose sides are longer than about 1e77 or shorter than 1e-77. Sides
/// beyond about 1e154 give weights without meaning. out may alias the inputs. REQUIRES two doubles
/// in p, three pairs in tri, room for three doubles in out.
VEXMATH_API void getBaricentricCoordinates(double tol, double const *p, double const (*tri)[2],
                                           double *out, int &degenerate);

#endif
