// SPDX-License-Identifier: MIT
// Free functions for drawings: clipping, inside tests, recognition of arcs, merging of lines, hatch
// lines, outlines about an axis, closed tours and least rectangles.

#ifndef VEXMATH_MG_PLANAR_H
#define VEXMATH_MG_PLANAR_H

#include <vexmath/export.h>
#include <vexmath/forward.h>

// The plane is that of x and y. Functions with 2D in their names never read a z for a decision. An
// output point keeps the z of the input point that it stands for; where a point is new, the comment
// says which z it gets.
//
// An output is written only where the comment says so; otherwise it keeps its value. Outputs may
// alias inputs, but not each other. Pointers must not be null unless the comment allows it.
//
// Lengths and tolerances are absolute. A tol that is negative or NaN means 1e-08. Angles are in
// radians, counter-clockwise from the x axis.
//
// A number that is NaN or infinite gives the neutral result of the function, which each comment
// states, and nothing is written; this does not apply to a tol, or to a z that is not read. Finite
// numbers may have any size. Differences of coordinates below about 1e-140 count as 0 when some
// coordinate is far larger. Nothing crashes or loops forever.

// Clipping and inside tests.
//
// A box is given by two opposite corners in any order; they may coincide in x or y. It is closed:
// its sides belong to it. The results depend on two other boxes:
// - The outer box is larger by tol on each side, and closed. Its corners are not rounded.
// - The inner box is smaller by tol on each side, and open. It is empty when a side of the box is
//   2 tol or shorter.
// A figure that misses the outer box is Outside. One that meets the outer box but not the inner box
// is Touching: it grazes a side or a corner within tol, from outside or from inside. A box with an
// empty inner box is therefore only touched. With a tol of 0, the outer box is the box itself, and
// the inner box is the box without its sides.
//
// For points, and for segments parallel to an axis, these comparisons are exact: a point is in the
// outer box when low - tol <= x <= high + tol, with the sums rounded, and in the inner box when
// low + tol < x < high - tol; the same in y. For other figures the two boxes are met or missed up
// to rounding of sizes and distances. The neutral result is Outside, or a count of 0.

/// The part of a segment in a box.
enum mgClipLine_e : int {
    mgClipLine_Outside = 0,     ///< not in the outer box; nothing is written
    mgClipLine_Inside = 1,      ///< both ends are in the box
    mgClipLine_ClippedA = 2,    ///< b is in the box, a was moved
    mgClipLine_ClippedB = 3,    ///< a is in the box, b was moved
    mgClipLine_ClippedBoth = 4, ///< both ends were moved
    mgClipLine_Touching = 5     ///< in the outer box, not in the inner box
};

/// A figure and a box. A point is never Partly.
enum mgInsideBox_e : int {
    mgInsideBox_Outside = 0,  ///< no point of it is in the outer box
    mgInsideBox_Touching = 1, ///< part of it is in the outer box, none in the inner box
    mgInsideBox_Partly = 2,   ///< part of it is in the inner box, and part not in the outer box
    mgInsideBox_Inside = 3    ///< all of it is in the outer box, and part of it in the inner box
};

/// A point and a segment.
enum mgPointOnLine_e : int {
    mgPointOnLine_Off = 0,
    mgPointOnLine_Between = 1, ///< on the segment, not at an end
    mgPointOnLine_AtA = 2,
    mgPointOnLine_AtB = 3
};

/// Clips the segment from a to b to a box. outA and outB are written unless the result is Outside,
/// and are always in the box:
/// - An end in the box keeps its bits.
/// - An end outside is moved to where the segment enters the box. A coordinate in which it meets a
///   side is exactly that of the side; the other one is interpolated from the end that is in the
///   box, or from the one that is nearer to it.
/// - Touching: the part of the segment in the outer box is kept, and each of its ends is moved to
///   the nearest point of the box. So a segment along a side gives a part of that side, and one at
///   a corner can give the corner twice.
/// outA has the z of a, outB that of b. a and b may be equal: a point is Outside, Inside or
/// Touching. Never allocates.
/// Method: Y.-D. Liang, B. A. Barsky, "A new concept and method for line clipping", 1984.
VEXMATH_API mgClipLine_e mg_ClipLine2DToBox(mgPoint_c const &a, mgPoint_c const &b,
                                            mgPoint_c const &corner1, mgPoint_c const &corner2,
                                            mgPoint_c &outA, mgPoint_c &outB, double tol);
/// The same with a window. Left and right, and top and bottom, may be in any order, so y may point
/// up or down.
VEXMATH_API mgClipLine_e mg_Clip2DLineToWindow(mgPoint_c const &a, mgPoint_c const &b,
                                               mgRect const &window, mgPoint_c &outA,
                                               mgPoint_c &outB, double tol);
/// Clips an arc to a box: counter-clockwise about the centre from the angle start to the angle end.
/// Returns the number of arcs in the box, 0 to 5, and writes the angles of the arc i, start and
/// end, to angles[2 i] and angles[2 i + 1]; the others are not written.
///
/// A sweep of 2 pi - 1e-11 or more is a full circle. The arcs of a full circle that is cut, at most
/// 4, run from one side to the next: none of them begins or ends at start unless a side does. The
/// arcs are in counter-clockwise order. Up to rounding, each arc of a cut one begins in
/// [start, start + 2 pi) and ends at most 2 pi later. The first angle has the bits of start when
/// the arc begins there, and the last one those of end.
///
/// Let d be the distance of a side from the centre, positive when the centre is on the inner side.
/// In this order, for each side:
/// - d >= radius - tol: the side does not cut. When no side cuts, start and end are written
///   unchanged, also when they are several turns apart.
/// - d <= tol - radius: the circle is beyond the side or touches it: no arc.
/// - Otherwise the side cuts where the circle crosses it, without tolerance.
/// Arcs of a length, radius times sweep, of at most tol are left out, also when the arc was not
/// cut. `mg_Arc2DInsideBox` says whether an arc without a part in the box touches it.
///
/// 0 when radius <= 0, when end < start, and when an angle is above 1e6 in absolute value. Never
/// allocates. REQUIRES ten writable doubles.
VEXMATH_API int mg_Clip2DArcToBox(mgPoint_c const &centre, double radius, double start, double end,
                                  mgPoint_c const &corner1, mgPoint_c const &corner2,
                                  double angles[10], double tol);
/// Shortens the end of a leader line to where the segment from start to end first meets the outline
/// of a rotated frame. The frame has one corner at `corner`, its width along the direction `angle`,
/// and its height along that direction rotated by a quarter turn. A negative width or height
/// reaches to the other side of the corner.
///
/// ClippedB, and end is written, its z unchanged: when start is outside the frame, to where the
/// segment enters; when start is in the frame and end outside, to where it leaves. No other result
/// writes. Inside: both are in the frame. Touching: the segment only grazes the frame within tol,
/// or ends at its outline. Outside: it misses the frame. ClippedA and ClippedBoth are never
/// returned. The results are those of `mg_ClipLine2DToBox` in the system of the frame, whose axes
/// are the two directions; coordinates in it are rounded, so the new end is on the outline up to
/// rounding.
VEXMATH_API mgClipLine_e mg_ClipLineEndToRotated2DBox(mgPoint_c const &start, mgPoint_c &end,
                                                      mgPoint_c const &corner, double width,
                                                      double height, double angle, double tol);

/// A point: Outside, Touching or Inside.
VEXMATH_API mgInsideBox_e mg_Point2DInsideBox(mgPoint_c const &p, mgPoint_c const &corner1,
                                              mgPoint_c const &corner2, double tol);
/// The segment from a to b. Equal ends are a point.
VEXMATH_API mgInsideBox_e mg_Line2DInsideBox(mgPoint_c const &a, mgPoint_c const &b,
                                             mgPoint_c const &corner1, mgPoint_c const &corner2,
                                             double tol);
/// A circle: the curve and not its disc, so a circle around the box is Outside. A radius of 0 gives
/// the result for its centre, a negative one Outside.
VEXMATH_API mgInsideBox_e mg_Circle2DInsideBox(mgPoint_c const &centre, double radius,
                                               mgPoint_c const &corner1, mgPoint_c const &corner2,
                                               double tol);
/// An arc, given as for `mg_Clip2DArcToBox`: the curve. A sweep of 0 is a point. Outside when the
/// radius is negative, when end < start, and when an angle is above 1e6 in absolute value.
VEXMATH_API mgInsideBox_e mg_Arc2DInsideBox(mgPoint_c const &centre, double radius, double start,
                                            double end, mgPoint_c const &corner1,
                                            mgPoint_c const &corner2, double tol);
/// The open polyline through n points; one point is a point. Outside when n < 1, where pts may be
/// null, and when any of the points is NaN or infinite.
VEXMATH_API mgInsideBox_e mg_Polyline2DInsideBox(int n, mgPoint_c const *pts,
                                                 mgPoint_c const &corner1, mgPoint_c const &corner2,
                                                 double tol);

/// A point and the segment from a to b, by distances; all comparisons are inclusive. In this order:
/// - AtA when p is within tol of a and not nearer to b.
/// - AtB when p is within tol of b.
/// - Between when the foot of p on the line is on the segment, and p within tol of the line.
/// - Otherwise Off, also for NaN. A segment shorter than 1e-145 has its ends alone.
VEXMATH_API mgPointOnLine_e mg_PointOnLine2D(mgPoint_c const &p, mgPoint_c const &a,
                                             mgPoint_c const &b, double tol);

// Recognition and merging.

/// What a polyline is part of.
enum mgPolylineArc_e : int {
    mgPolylineArc_None = 0,   ///< neither of these
    mgPolylineArc_Arc = 1,    ///< an arc of less than a full turn
    mgPolylineArc_Circle = 2, ///< a closed circle: the last point is at the first
    mgPolylineArc_Line = 3    ///< a straight line, or points in an order that goes to and fro on it
};

/// Tells whether n points in space are, in this order, on one circular arc within tol. For Arc and
/// Circle all four outputs are written: the unit normal about which the points run
/// counter-clockwise, and the sweep in `angle`, from the first point to the last. It is the double
/// nearest to 2 pi for a Circle and less for an Arc. For None and Line nothing is written. The
/// outputs may be parts of pts.
///
/// Three points fix the circle: the first one; the point farthest from it; the point farthest from
/// the line through these two. Of equal distances the lowest index counts. In this order, with all
/// distances in space and inclusive:
/// - None when n < 3, where pts may be null; when a coordinate is NaN or infinite, z included; when
///   all points are within tol of the first.
/// - Line when all points are within tol of the line through the first two of the three points,
///   and when the centre or the radius would not be finite.
/// - None when a point is not within tol of the circle.
/// - None when the points do not run one way around. A point within tol of the one before, leaving
///   out such points, does not count. A point that comes back within tol of the first point closes
///   the circle: all points after it must be within tol of it.
/// - Otherwise Circle when the circle was closed, else Arc.
/// The size of a step is free: two steps of 170 degrees are an arc, and a closed triangle is a
/// Circle. Up to rounding, the result is that of the exact numbers.
VEXMATH_API mgPolylineArc_e mg_IsPolylineArc(int n, mgPoint_c const *pts, mgPoint_c &centre,
                                             mgUnitVector_c &normal, double &radius, double &angle,
                                             double tol);

/// The arc that starts at `start` along `tangent` and ends at `end`. Returns 1 and writes the
/// centre with the z of start, the radius, which is positive, and the sweep, which is positive for
/// an arc to the left, counter-clockwise, and negative for one to the right. In absolute value, the
/// sweep is at most the double nearest to 2 pi. The tangent needs no unit length.
///
/// Returns 0 without writing when end is at most tol off the line through start along the tangent,
/// ahead or behind; when x and y of the tangent are both 0; when a result would not be finite.
VEXMATH_API int mg_FindTangentArcCenter2D(mgPoint_c const &start, mgVector_c const &tangent,
                                          mgPoint_c const &end, mgPoint_c &centre, double &radius,
                                          double &sweep, double tol);
/// The fillet between two lines, given as segments from a1 to b1 and from a2 to b2. Of the four
/// fillets it is the one between the ends that are farther from the crossing of the lines; b1 and
/// b2 where both ends are equally far. The lines have no ends: `mg_PointOnLine2D` tells whether a
/// touching point is on its segment. A radius of 0 gives the crossing three times.
///
/// Returns 1 and writes the centre with the z of a1, the touching point of line 1 with the z of a1,
/// and that of line 2 with the z of a2. Returns 0 without writing when the lines are parallel: when
/// the longer segment goes at most tol away from the direction of the other, which is |sin| times
/// its length. Also returns 0 when the ends of a segment have the same x and y, when the radius is
/// negative, and when a result would not be finite.
VEXMATH_API int mg_FindTangentArcCenter2D(mgPoint_c const &a1, mgPoint_c const &b1,
                                          mgPoint_c const &a2, mgPoint_c const &b2, double radius,
                                          mgPoint_c &centre, mgPoint_c &tangent1,
                                          mgPoint_c &tangent2, double tol);

/// Merges two segments when they are collinear and overlap or touch, all within tol, inclusive. The
/// longer one is the base, the first one when both are equally long. The other is collinear when
/// both of its ends are within tol of the line of the base. It touches when the gap between the
/// two, measured along that line, is at most tol.
///
/// Returns 1 and writes the two ends that are farthest apart along the base, with their bits and
/// their z; a to b has the direction of the base. Where two ends are at the same place along it,
/// the base's end is kept. Returns 0 without writing when the segments are not merged. A segment of
/// equal ends has the direction of the x axis.
VEXMATH_API int mg_MergeLines2D(mgPoint_c const &a1, mgPoint_c const &b1, mgPoint_c const &a2,
                                mgPoint_c const &b2, mgPoint_c &a, mgPoint_c &b, double tol);
/// Merges the segments of a list, in which the points 2 i and 2 i + 1 are the ends of the segment
/// i. The last of an odd number of points is ignored. Replaces `merged`, which may be the same
/// list, by the merged segments, and returns their number.
///
/// The longest segment that is left, of equal ones the first, is the next base. All segments that
/// are collinear with it, as above, and that it touches, directly or through others of them, go
/// into it. The line is always that of the base as it was given. The merged segment has the two
/// ends that are farthest apart along the base; where some are at the same place, the base's end,
/// else the first one in the list. It has the direction of the base. The results are in the order
/// of their bases in the list. A segment with a NaN or an infinite x or y stays as it is.
///
/// When memory is exhausted, returns 0 and leaves `merged` as it was. Otherwise `merged` gets a new
/// block of the size needed, which grows linearly by 16, or none when it is empty. Its listener is
/// told (0, count of points - 1).
///
/// The work is about n log n. It is up to about n^1.5 where long segments cross each other in all
/// directions, and more where many short ones within tol of each other's lines do not touch.
/// Method: J. L. Bentley, "Multidimensional binary search trees used for associative searching",
/// 1975.
VEXMATH_API int mg_MergeLines2D(suDynamicArray<mgPoint_c> const &lines,
                                suDynamicArray<mgPoint_c> &merged, double tol);

/// The unit normal of the triangle p0 p1 p2 in space, about which the points run counter-clockwise.
/// Returns 1 and writes it. Returns 0 without writing when the height of the triangle over its
/// longest side is at most tol, and when a coordinate, z included, is NaN or infinite.
VEXMATH_API int mg_NormalFrom3Points(mgPoint_c const &p0, mgPoint_c const &p1, mgPoint_c const &p2,
                                     mgUnitVector_c &normal, double tol);

// Hatch lines.
//
// Hatch lines are the lines of one lattice, cut off at the outline of an area. They have the
// direction u = (cos angle, sin angle). The height of a point is its signed distance from the
// origin along n = (-sin angle, cos angle), which is u rotated counter-clockwise by a quarter turn.
// Line k, a whole number of either sign, has the height k * spacing. A sine or cosine strictly
// below 1e-13 in absolute value counts as 0.
//
// An edge is crossed by the lines from the height of its lower end, included, to that of its upper
// end, not included. So a line counts as an infinitely small step above its height:
// - No line begins or ends at a corner that is the lowest or the highest of its surroundings. At
//   any other corner the line through it begins or ends.
// - A line along an edge belongs to the area above it, and not to the area below it.
// - A line that touches a circle gives no line.
// Heights are rounded. So on a lattice that is not along x or y, a line along an edge can belong to
// either area, and can begin or end within the edge.
//
//         n           .--------------.            with the heights of three edges on the lattice:
//         ^   k = 2   |    above     |  -------   line 2 lies on the upper edge: not drawn
//         |   k = 1   |==============|            line 1 lies on the common edge: drawn once
//         |           |    below     |
//         +--> u      '--------------'  k = 0     line 0 lies on the lower edge: drawn
//
// Areas with the same origin, angle and spacing therefore match. At a common edge whose ends are
// equal in both, in either order, no line is lost or drawn twice, and lines that meet there meet in
// the same x and y, to the bit. At an edge that is common in part they meet up to
// rounding, and a line along it can be lost or drawn twice.
//
// Each function replaces the elements of `lines` by two points for each line and returns the number
// of lines. Lines are ordered by k, then along u; the second point of each is farther along u. All
// points have the z of the origin. No line has length 0. Inputs may be elements of `lines`. The
// block is new, has just this capacity and grows linearly by 16; the handle is null for no lines.
// The listener is told (0, 2 count - 1).
//
// The result is 0, and `lines` ends up empty, in these cases:
// - The spacing is not above 0, or infinite, or NaN; the angle is infinite or NaN.
// - An x, y or radius is NaN or above 1e150 in absolute value.
// - A corner, or the lowest or highest height of a circle, is above 2^52 spacings (about 4.5e15
//   times the spacing) in absolute height.
// - The lattice has more than 1e6 lines from the lowest height of the circle, included, to the
//   highest, not included. In a rectangle or polygon, more than 2e6 crossings with edges.
// - Memory is exhausted.

/// Hatches the circle of a centre and a radius. A radius of 0 or less gives 0.
VEXMATH_API int mg_calcHatchLinesCircle2D(mgPoint_c const &centre, double radius,
                                          mgPoint_c const &origin, double angle, double spacing,
                                          suDynamicArray<mgPoint_c> &lines);
/// Hatches a rectangle with sides along x and y, which need not be normalised. The result is that
/// for its outline as a polygon.
VEXMATH_API int mg_calcHatchLinesRect2D(mgRect const &rect, mgPoint_c const &origin, double angle,
                                        double spacing, suDynamicArray<mgPoint_c> &lines);
/// Hatches the area of closed outlines by the even-odd rule: a point is inside when a ray from it
/// crosses the outlines an odd number of times. Holes and islands are outlines like any other; the
/// orientation is ignored, and outlines may cross each other and themselves.
///
/// Outline i has counts[i] points; the points of all outlines follow each other in `points`. The
/// last point of an outline is joined to its first one and may be equal to it. A count below 3
/// encloses nothing; a negative one counts as 0. An edge that is there twice, with equal ends, does
/// not divide a line; one that is there twice in part can, by a gap of rounding. With outlines <= 0
/// neither array is read; both can be null.
///
/// About c log c work for c crossings.
/// Method: W. K. Bouknight, "A procedure for generation of three-dimensional half-toned computer
/// graphics presentations", 1970 (scan lines).
VEXMATH_API int mg_calcHatchLinesPolygon2D(int outlines, int const *counts, mgPoint_c const *points,
                                           mgPoint_c const &origin, double angle, double spacing,
                                           suDynamicArray<mgPoint_c> &lines);

// Outlines about an axis.
//
// An edge is a list of points in polar coordinates about an axis: x is the angle in radians, y the
// radius. z is ignored and kept. A radius may be negative and is kept; at the pole, and in an arc
// length, its absolute value counts. An arc length is a difference of angles times a radius. tol is
// a length, inclusive; 0 is allowed, and with an infinite tol all points are at the pole.
//
// Both functions change the edge in place, without allocating, and return the number of points that
// are left. They tell the listener once, (0, count - 1). They return 0 and change nothing, without
// a notification, when the edge is empty or when an angle or a radius is NaN or above 1e150 in
// absolute value.

/// Makes the angles of an edge continuous. The points are visited in order; "the one before" is the
/// last point that was kept:
/// - A point at the pole, |radius| <= tol, takes the angle of the one before. At the start of the
///   edge it takes that of the first point off the pole, or of the first point if there is none.
/// - Any other angle that differs from the one before by more than 3.1415926535998 (pi and 1e-11)
///   is moved by the whole number of turns that brings it nearest. The first angle stays.
/// - A point is dropped when it repeats the one before: the radii, with their signs, differ by at
///   most tol, and the arc length between the points, at the larger radius, is at most tol.
///
///      radius |  3  4             1  2        radius |                1  2  3  4
///             |                                      |
///             |          0                           |                            0
///             +-------------------- angle            +------------------------------- angle
///             0                  2 pi                0                 2 pi
///      3 follows 2 across the seam; 0 is a point at the pole, after 4
///
/// A step of half a turn keeps its direction. A full circle needs three points or more, with the
/// first one again at its end: two points a full turn apart are the same.
///
/// Method: K. Itoh, "Analysis of the phase unwrapping algorithm", 1982.
VEXMATH_API int mg_cleanupPolarEdge(suDynamicArray<mgPoint_c> &edge, double tol);
/// Does the work of `mg_cleanupPolarEdge` and then makes the angle monotone: it never steps back
/// between the first and the last point. A convolution of an outline (an offset, for example)
/// leaves such steps where it folds, and where both ends of a closed outline overlap at the seam.
///
///      radius |      3<----2                  radius |          2
///             |       `.  .'                         |        .' `.
///             |         ><                           |      .'     `.
///             |  1----'    '-->4---->5               |  1--'         '->4---->5
///             +-------------------------- angle      +-------------------------- angle
///
///      radius |    2-----3-----4-----5        radius |    2-----3
///             |                      |               |          |
///             | 1           6--------'               | 1        '--6
///             +-------------------------- angle      +-------------------------- angle
///      6 ends the edge; 4 and 5 are beyond it and are removed: 1, 2, 3, 6 are left
///
/// The edge runs from the angle of its first to that of its last point, in either direction. A
/// closed outline around the axis therefore ends with its first point, a full turn on. No direction
/// is known, and nothing more is done, when the arc length from the first to the last point, at the
/// largest radius of the edge, is at most tol: as in a closed outline beside the axis.
///
/// The range of each point between is that from the angle of the one before to that of the last
/// point. When its arc length outside this range, at its own radius, is above tol, the point is
/// removed. Otherwise it takes the nearest angle of the range or, at the pole, that of the one
/// before. Then it is dropped if it repeats the one before, and so is the last point. A step along
/// the radius alone is kept.
VEXMATH_API int mg_fixPolarConvolution(suDynamicArray<mgPoint_c> &edge, double tol);

// Tours and rectangles.

/// Replaces `order` by a short closed tour through all points: their indices in visiting order,
/// from 0 on, in the direction in which the second index is lower than the last. The way back from
/// the last point to the first belongs to the tour. Distances are in space; those below about
/// 1e-162 are 0. The points do not change. The order is 0 to n - 1 for up to three points, for a
/// NaN or infinite coordinate, z included, and for a bounding box with a diagonal that overflows
/// (from about 1.3e154 on).
///
/// First the tour is built as n - 2, n - 1 and back. Each step inserts the point of the least
/// detour between two neighbours. Of equal detours it takes the one at the earlier edge of the
/// tour, then the one of the lower index.
///
/// Then pairs of edges are exchanged: ab and cd become ac and bd, where the tour runs a, b, ..., c,
/// d in one direction. Each round visits the points by index. At point a it considers both edges ab
/// and all c that are strictly nearer to a than b. It carries out the exchange that saves the most;
/// of equal ones that of the lowest c, then of the lowest b. An exchange must save strictly more
/// than 1e-12 of ab + cd, so the tour is never longer than the inserted one. After a round that
/// changes nothing, no exchange of two edges saves more than that. The rounds end there, or after
/// 1000 of them.
///
/// First `order` loses its elements; its listener is told (0, -1). Then the indices 0 to n - 1 are
/// added to its storage, and the listener is told each of them, as by `Add`. A tour then gets a new
/// block of capacity n, which grows linearly by 1; the listener is told (0, n - 1). When there is
/// none, as above or because memory is exhausted, `order` stays 0 to n - 1. If one of these could
/// not be added, it ends up empty, and the listener is told (0, -1).
///
/// About n^2 work.
/// Method: D. J. Rosenkrantz, R. E. Stearns, P. M. Lewis, "An analysis of several heuristics for
/// the traveling salesman problem", 1977 (cheapest insertion); J. L. Bentley, "Fast algorithms for
/// geometric traveling salesman problems", 1992 (2-opt with neighbour lists).
VEXMATH_API void mg_ClosedTSP(suDynamicArray<mgPoint_c> &points, suDynamicArray<int> &order);

/// The rectangle of least area around a convex polygon of n points or, when byWidth is not 0, the
/// one of least width. Returns 1 and writes four corners, counter-clockwise. The side from
/// corners[0] to corners[1] lies along an edge of the polygon; byWidth makes the other side as
/// short as possible. Of rectangles of the same computed size it is the one at the first edge,
/// where edge i joins point i and the next; rounding can make equal sizes differ.
///
/// The polygon may run in either direction, repeat points and have points on its edges;
/// `convexHull` makes one. Points on one line give a rectangle of width 0 along them, up to
/// rounding. Equal points give four corners there. Edges shorter than about 1e-154 of the polygon's
/// size have no direction. A polygon that is not convex also gives a rectangle around all points,
/// but not always the least. A point can lie outside by rounding; a rectangle with sides along x
/// and y has the exact coordinates of the points.
///
/// Returns 0, without writing, when n < 1 (polygon can then be null) or when a coordinate is NaN or
/// above 1e150 in absolute value. `corners` may be in the polygon. Linear work, no allocation.
/// Method: H. Freeman, R. Shapira, "Determining the minimum-area encasing rectangle for an
/// arbitrary closed curve", 1975; G. T. Toussaint, "Solving geometric problems with the rotating
/// calipers", 1983.
VEXMATH_API int minCnvxPlgRect(int n, mg2DPoint_c const *polygon, int byWidth,
                               mg2DPoint_c *corners);

#endif
