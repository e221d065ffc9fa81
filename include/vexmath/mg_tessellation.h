// SPDX-License-Identifier: MIT
// Free functions that approximate curved edges by polylines.

#ifndef VEXMATH_MG_TESSELLATION_H
#define VEXMATH_MG_TESSELLATION_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

// All tessellators return their points in the same way:
// - count becomes the number of segments, one less than the number of points.
// - If outArray is not null, *outArray becomes a new array of count + 1 points, which the caller
//   releases with delete[]. The list is ignored and may be null.
// - If outArray is null, the points go to the list: `mg_TessBConic` replaces its elements, the
//   others append.
// - count becomes 0, and *outArray and the list stay as they were, for degenerate input (see each
//   function), for NaN in a point, where there would be more than 1e7 segments, and when memory is
//   exhausted. One exception: when there is no memory for the list itself, it loses all elements.
// The list's `elementsChanged` is called with (i, i) after each point that is appended; i is its
// index in the list. By `mg_TessBConic` it is called once, with (0, count). When the list loses its
// elements, the last call has (-1, -1); by `mg_TessBConic` it is the only one and has (0, -1). In
// all other cases of count 0 there is no call.
// Nothing throws. Infinite coordinates give some result or count 0. A normal that holds NaN counts
// as null. REQUIRES a record, points that are not null, and outArray or list. The points may lie in
// the list.

/// An arc from *start to *end, counter-clockwise about the record's normal; a full circle when the
/// two are equal as points (every coordinate differs by strictly less than 1e-08).
///
/// The step is acos(1 - tol / radius), at least A / 120 and at most A / 8, where A is the angle of
/// the arc, or half a turn when it is longer. Chords of that step stay within about tol / 4 of the
/// arc. The number of segments is the angle divided by the step, rounded down: 8 to 120 (119 where
/// the division itself rounds down) for an arc of up to half a turn, 16 to 240 for a full circle.
/// For angles below 1e-05 radians, where the cosines are too coarse, it is anything from 1 to 146,
/// and below 8e-11 it is 1. A tol of 0 or less makes the finest step, NaN or infinity the coarsest.
/// A radius of NaN makes the coarsest step too.
///
/// The first and the last point are *start and *end exactly. The points between have the distance
/// of start from the center; the record's radius serves for the step and the test below only. An
/// angle that differs from half a turn by strictly less than 1e-11 becomes half a turn.
/// REQUIRES a normal perpendicular to the arc. With a null normal all points but the last lie on
/// the line through start and center.
/// Degenerate: a radius strictly below 1e-09; start or end with every coordinate strictly within
/// 1e-09 of the center's.
VEXMATH_API void mg_TessArc(arcEdgeData const *arc, mgPoint_c const *start, mgPoint_c const *end,
                            double tol, mgPoint_c **outArray, int &count,
                            suDynamicArray<mgPoint_c> *list);

/// An arc of an ellipse, from the record's own start to its own end, turning from the major to the
/// minor direction. The arguments start and end are ignored and may be null.
///
/// The angle of a point p is atan2(w . minorDir / minorRadius, w . majorDir / majorRadius) with w =
/// p - center; the arc goes from the angle of start up to that of end. It is a full ellipse when
/// the two are equal, or when end is ahead by strictly less than 1e-11 radians.
///
/// The step is acos(1 - tol / majorRadius), at least 1.5 and at most 10 degrees. Both bounds are
/// stored a rounding above: a quarter has 8 to 59 segments, half an ellipse 17 to 119, and a full
/// one 36 to 240. The number of segments is the angle divided by the step, rounded down, but at
/// least 2 for an angle above 1.5 degrees, 3 above 3 degrees, else 1. A tol of 0 or less makes the
/// finest step, NaN the coarsest. All points are computed, the ends too: ends of the record that
/// are off the curve are replaced. REQUIRES positive radii and unit directions perpendicular to
/// each other, which are used as they are. Degenerate: a radius strictly below tol; NaN anywhere in
/// the record.
VEXMATH_API void mg_TessEllipse(ellipseEdgeData const *ellipse, mgPoint_c const *start,
                                mgPoint_c const *end, double tol, mgPoint_c **outArray, int &count,
                                suDynamicArray<mgPoint_c> *list);

/// An arc of the parabola or hyperbola with the record's vertex and focus, at equal steps across
/// the axis, which is the direction normal x (focus - vertex).
///
/// The number of segments is 25 w / (2 f), rounded down, but at least 10, where f is the distance
/// of focus and vertex, and w that of start and end measured across the axis. tol is ignored. The
/// eccentricity is that of `mg_getConicEccentricity`, limited to the range from 1 to 1e154. All
/// points are computed, the ends too: start and end tell where the arc ends across the axis only.
/// Degenerate: start and end equally far across the axis, to the bit. That is so for a normal that
/// is null or parallel to the axis (squared sine of the angle strictly below 1e-17), and for a
/// focus whose squared distance from the vertex is strictly below 1e-17 (3.16e-09 in length).
VEXMATH_API void mg_TessParabola(parabolaEdgeData const *parabola, double tol, mgPoint_c **outArray,
                                 int &count, suDynamicArray<mgPoint_c> *list);

/// A conic arc by its end tangents: the rational quadratic over start, vertex and end with the
/// weights 1, (1 - f) / f, 1. Here f = |focus - vertex| / |X - vertex|, where X is the crossing of
/// the chord from start to end with the line through vertex and focus.
///
/// Parameter intervals are halved until the angles between the chord and the tangents at its two
/// ends are both strictly below 0.004 radians, or the chord is not longer than the resolution of
/// its points. A point is a weighted mean of start, vertex and end. Its resolution is 4 DBL_EPSILON
/// times the mean of their largest coordinates, in absolute value, with the same weights. The
/// larger resolution of the two points decides. tol and the normal do not matter. The first and the
/// last point are start and end exactly.
/// Degenerate:
/// - a chord shorter than 1e-08;
/// - a line that is parallel to the chord (1 - |cos| < 1e-08), or misses it by 1e-08 or more in a
///   coordinate, or crosses it beyond end, or before start by more than 1e-08 / chord length;
/// - a focus that does not lie strictly between vertex and X, or whose squared distance from the
///   vertex is strictly below 1e-17 (3.16e-09 in length);
/// - a coordinate of 1e100 or more in absolute value.
/// Method: L. Piegl, W. Tiller, "The NURBS Book", 1995 (rational quadratics).
VEXMATH_API void mg_TessBConic(parabolaEdgeData const *conic, double tol, mgPoint_c **outArray,
                               int &count, suDynamicArray<mgPoint_c> *list);

/// `mg_TessBConic` unless one of its first three degenerate cases applies, else `mg_TessParabola`.
/// A record does not tell how it is meant: a parabola by vertex and focus whose chord crosses the
/// axis beyond the focus goes to `mg_TessBConic` too, and comes out flatter.
VEXMATH_API void mg_TessParabolaOrBConic(parabolaEdgeData const *curve, double tol,
                                         mgPoint_c **outArray, int &count,
                                         suDynamicArray<mgPoint_c> *list);

/// Eccentricity of the conic with this focus and vertex through one of the two ends: below 1 for an
/// ellipse, 1 for a parabola, above 1 for a hyperbola. It is (|P - focus| - |vertex - focus|) / h,
/// where h is the height of P above the vertex, signed, along the axis from vertex to focus; P is
/// the end of larger h, or start when both are equal. 1 when h is 0, which includes a focus whose
/// squared distance from the vertex is strictly below 1e-17. Negative or meaningless when both ends
/// lie behind the vertex. NaN in vertex or start gives NaN, in focus 1, and in end the value for
/// start. Where a squared distance in it overflows (from 1.3e154 on), it is infinite, NaN or 1.
/// Eccentricities by other means are in mg_conic.h.
VEXMATH_API double mg_getConicEccentricity(mgPoint_c const &focus, mgPoint_c const &vertex,
                                           mgPoint_c const &start, mgPoint_c const &end);

#endif
