// SPDX-License-Identifier: MIT
// Free functions for the shape of conic arcs: eccentricity, fullness and points.

#ifndef VEXMATH_MG_CONIC_H
#define VEXMATH_MG_CONIC_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

// The eccentricity e of a conic is 0 for a circle, below 1 for an ellipse, 1 for a parabola and
// above 1 for a hyperbola. `mg_getConicEccentricity`, by focus and vertex, is in mg_tessellation.h:
// its result for degenerate input is not -1 but what its own comment states.
//
// The control triangle of a conic arc has the corners start, end and apex, the point where the
// tangents at both ends meet. Its median goes from the middle of the chord, which is the line from
// start to end, to the apex. The arc crosses the median at its shoulder, where its tangent is
// parallel to the chord. The fullness rho is the distance from the middle of the chord to the
// shoulder, divided by the length of the median. It is the 1 - f of `mg_TessBConic`, and the weight
// of the apex is rho / (1 - rho) when both ends have the weight 1. The arc lies within the
// triangle, so a hyperbola keeps to one branch. Exchanging start and end changes no bit of a
// result; it only reverses the order of `parabolicPoints`.
//
// Points are in space; the plane of the triangle is that of the conic. The relative errors of e,
// rho and x, for the arguments as given, are below 1e-15, also for flat triangles and near
// rho = 1/2. (Measured for an e of 1e-08 or more, coordinates up to 1e20, and a shoulder up to 1e10
// times as far from the median as its foot is from the chord.) But an e near 0 changes by the root
// of a change of the arguments: a circle whose coordinates are rounded has an e of about 1e-08.
//
// No function of this header has a result for the arguments below. Eccentricities and `xConic` are
// then -1, and the others 0. With a result, the eccentricities and `xConic` are 0 or more.
// - A number or coordinate that is NaN, infinite, or 1e70 or more in absolute value.
// - A degenerate triangle: a chord shorter than 1e-08, or an apex nearer than 1e-08 to the line of
//   the chord (distances, both strict). So coincident and collinear corners have no result. (The
//   rounding of coordinates above 1e20 can hide this.)
// - What the function's own comment states.
// Nothing throws.

/// The ratio of the distances of a point from focus and directrix: the eccentricity of the conic
/// through it. Distances are in space, also for a point off the plane of focus and directrix. The
/// focus may lie on the directrix.
///
/// -1 for a point nearer than 1e-08 to the directrix (distance, strict), also at the focus. So also
/// for a directrix without a direction. Elsewhere 0 at the focus. REQUIRES a directrix of unit
/// direction or none.
VEXMATH_API double mg_getPointEccentricity(mgPoint_c const &point, mgPoint_c const &focus,
                                           mgLine_c const &directrix);

/// The eccentricity of the arc with this control triangle and shoulder. The foot of the shoulder on
/// the line of the median counts: how far the shoulder is off the median or off the plane does not
/// matter. Below 1 for a foot nearer to the chord than to the apex, 1 in the middle, above 1 for
/// one nearer to the apex. Rounding can only make it 1.
///
/// -1 for a foot nearer than 1e-08 to an end of the median (distance, strict), and for one that is
/// not between the ends. So a shoulder on the chord or on the apex has no result. -1 also where rho
/// is rounded to 1.
VEXMATH_API double mg_getSgConicEccentricity(mgPoint_c const &start, mgPoint_c const &end,
                                             mgPoint_c const &apex, mgPoint_c const &shoulder);

/// The eccentricity of the arc with this fullness and control triangle. Below 1 for a rho
/// below 1/2, exactly 1 for 1/2, above 1 for a rho above 1/2. Rounding can only make it 1.
/// -1 for a rho of 0 or less and of 1 or more.
VEXMATH_API double eccByRho(double rho, mgPoint_c const &start, mgPoint_c const &end,
                            mgPoint_c const &apex);

/// The fullness rho of the arc with this control triangle and shoulder, strictly between 0 and 1. 0
/// where `mg_getSgConicEccentricity` gives -1.
VEXMATH_API double rhoConic(mgPoint_c const &start, mgPoint_c const &end, mgPoint_c const &apex,
                            mgPoint_c const &shoulder);
/// The fullness rho, strictly between 0 and 1, of the arc with this eccentricity whose shoulder is
/// the vertex on the axis through the foci; the control triangle is symmetric. With h the length of
/// the median and c half the chord, rho = 1 / (1 + sqrt(1 + (1 - e^2) h^2 / c^2)). It grows with e,
/// from the circle, through 1/2 at e = 1, up to 1. `eccByRho` is the inverse, but only for a rho
/// from that of the circle on. (A smaller rho is that of a second ellipse with the same
/// eccentricity, whose shoulder is on the minor axis. This function does not give it.)
///
/// 0 for a negative e, for e^2 >= 1 + c^2 / h^2, where no hyperbola has these tangents, and where
/// rho is rounded to 1. 0 also when the distances from the apex to start and end differ by 1e-08 or
/// more. (With a smaller difference, the triangle counts as symmetric.)
VEXMATH_API double rhoConic(double eccentricity, mgPoint_c const &start, mgPoint_c const &end,
                            mgPoint_c const &apex);

/// The x, 0 or more, at which the conic with its vertex at the origin and its focus at
/// (focalLength, 0) has this y, of either sign. Its directrix is x = -focalLength / eccentricity.
/// Of two such points of an ellipse it is the one nearer to the vertex. The branch of a hyperbola
/// is the one through the vertex.
///
/// -1 for a y beyond the minor axis of an ellipse, |y| > focalLength sqrt((1 + e) / (1 - e)),
/// strict, for a focal length strictly below 1e-08 (so a negative one too), and for a negative e.
VEXMATH_API double xConic(double y, double focalLength, double eccentricity);

/// Appends n points of the parabolic arc with this control triangle, from start to end, and returns
/// 1. The first and the last are start and end exactly. The tangents at neighbouring points make
/// equal angles: the angle between the sides start-apex and apex-end, divided by n - 1.
/// The points between are off their places by less than 1e-15 times the largest coordinate of the
/// triangle, in absolute value (measured for coordinates up to 1e20).
///
/// Returns 0 and leaves the list as it was when n is below 2 or above 10000001, or when there is no
/// result as stated above. Also returns 0 when memory is exhausted; the list then loses all
/// elements. `elementsChanged` is called with (i, i) after each point, where i is its index in the
/// list, and with (-1, -1) when the list loses its elements. The arguments may be elements of the
/// list.
VEXMATH_API int parabolicPoints(mgPoint_c const &start, mgPoint_c const &end, mgPoint_c const &apex,
                                int n, suDynamicArray<mgPoint_c> &points);

#endif
