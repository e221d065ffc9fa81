// SPDX-License-Identifier: MIT
// Free functions that turn curved edges into polylines.

#ifndef VEXMATH_MG_TESSELLATION_H
#define VEXMATH_MG_TESSELLATION_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

// All tessellators hand out their points alike:
// - count becomes the number of segments, one less than that of the points. It is 0 when nothing
//   is handed out: for the degenerate input that the comment tells, and when NaN or huge numbers
//   would make more than 1e7 segments.
// - With outArray, *outArray becomes a new array of count + 1 points, which the caller releases
//   with delete[]; the list plays no part and may be null. With count 0, *outArray stays.
// - Without (null), the points go to the list: `mg_TessBConic` replaces what it holds, the others
//   append. With count 0 the list stays.
// Memory that cannot be had gives count 0 as well; a list that cannot grow has lost its elements.
// REQUIRES a record, points that are not null, and outArray or list. The points may be the list's.

/// An arc from start to end; equal points make a full circle. A step turns by the angle at which
/// the arc is tol off its tangent, so that chords stay within about tol / 4 of it. But a step is
/// never less than 1/120 of the arc or more than 1/8 (of half a circle where the arc is longer), so
/// that a very fine or coarse tol is not honoured. The first and the last point are start and end
/// exactly, even if their radii differ; those between have that of start. Degenerate: a radius
/// below 1e-09, an end at the centre within 1e-09.
VEXMATH_API void mg_TessArc(arcEdgeData const *arc, mgPoint_c const *start, mgPoint_c const *end,
                            double tol, mgPoint_c **outArray, int &count,
                            suDynamicArray<mgPoint_c> *list);

/// An arc of an ellipse, as the image of a circle, between the angles of the record's own start and
/// end; a full ellipse when they are the same. start and end are accepted and play no part. Steps
/// turn by the angle of `mg_TessArc` for a circle of the major radius, but never by less than 1.5
/// or more than 10 degrees. All points are computed, also the ends. Degenerate: a radius below tol.
VEXMATH_API void mg_TessEllipse(ellipseEdgeData const *ellipse, mgPoint_c const *start,
                                mgPoint_c const *end, double tol, mgPoint_c **outArray, int &count,
                                suDynamicArray<mgPoint_c> *list);

/// A parabola or an arc of a hyperbola, by vertex and focus, at equal steps across the axis: 25
/// for a way of twice the focal length, at least 10 in all, whatever tol. An eccentricity below 1
/// is taken for 1. All points are computed, also the ends. Degenerate: start and end equally far
/// across the axis, to the bit.
VEXMATH_API void mg_TessParabola(parabolaEdgeData const *parabola, double tol, mgPoint_c **outArray,
                                 int &count, suDynamicArray<mgPoint_c> *list);

/// A conic arc by its end tangents, refined until no chord is 0.004 radians or more off the
/// tangents at its ends, whatever tol; where numbers are too coarse for that, until the parameter
/// is exhausted. Start and end are met exactly. Degenerate: the line from vertex to focus misses
/// the chord by more than 1e-08, or does not meet focus and chord in this order.
/// Method: L. Piegl, W. Tiller, "The NURBS Book", 1995 (rational quadratics).
VEXMATH_API void mg_TessBConic(parabolaEdgeData const *conic, double tol, mgPoint_c **outArray,
                               int &count, suDynamicArray<mgPoint_c> *list);

/// `mg_TessBConic` for a record that it can take, else `mg_TessParabola`. It can take any whose
/// axis crosses the chord beyond the focus, so also a parabola that reaches around its focus.
VEXMATH_API void mg_TessParabolaOrBConic(parabolaEdgeData const *curve, double tol,
                                         mgPoint_c **outArray, int &count,
                                         suDynamicArray<mgPoint_c> *list);

/// Eccentricity of the conic with this focus and vertex through the one of the two ends that lies
/// farther along the axis (on a tie, start): below 1 for an ellipse, 1 for a parabola, above it for
/// a hyperbola. 1 when that end is the vertex.
VEXMATH_API double mg_getConicEccentricity(mgPoint_c const &focus, mgPoint_c const &vertex,
                                           mgPoint_c const &start, mgPoint_c const &end);

#endif
