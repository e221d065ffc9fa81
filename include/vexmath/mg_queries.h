// SPDX-License-Identifier: MIT
// Free functions that intersect lines, segments, rays, planes and circles, recognise straight
// polylines and arcs, and find hulls, tours and orders of points.

#ifndef VEXMATH_MG_QUERIES_H
#define VEXMATH_MG_QUERIES_H

#include <vexmath/intersection_types.h>
#include <vexmath/line.h>
#include <vexmath/plane.h>

// An output is written only where the comment says so; otherwise it keeps its value. Outputs may
// alias inputs, but not each other. Pointers must not be null unless the comment allows it.
// Tolerances are absolute lengths. NaN, infinite inputs and inputs whose squares overflow (above
// about 1.3e154) give an unspecified result unless the comment states one; nothing crashes or loops
// forever.
//
// A tol has two roles. Points are the same when each coordinate differs by strictly less than tol.
// Directions are parallel when 1 - |cos| is strictly less than the same number; a tol above 1 makes
// all directions parallel, zero ones too. Pass a positive tol: a negative one compares points with
// 1e-08, and 0 makes no points the same. With both, parallel directions are usually not recognised:
// they then give an unspecified result and can make *out NaN.
//
// Directions passed as mgVector_c need not have unit length. One of a squared length strictly below
// 1e-17 (a length of about 3.2e-09), one longer than about 1.3e154 and one that holds NaN count as
// zero. A line with a zero direction is its root point alone; it is parallel to nothing.
// REQUIRES unit length, or zero, of unit vectors, of directions of lines and of normals of planes.

// Lines and segments.

/// The line through p1 along d1 and the line through p2 along d2, in space. Parallel directions:
/// Coincident, and *out is p1, when p1 and its foot on line 2 are the same within tol; otherwise
/// Parallel, and *out is not written. Other directions: *out is the point of line 1 nearest to
/// line 2; Point when that and the nearest point of line 2 are the same within tol, otherwise None.
VEXMATH_API mgIntersectionType_e mg_LineIntLine(mgPoint_c const &p1, mgVector_c const &d1,
                                                mgPoint_c const &p2, mgVector_c const &d2,
                                                mgPoint_c *out, double tol);
/// Two lines in the plane. *out, with z = 0, is written for Point alone. In this order:
/// - None when d1 or d2 is null: each component below 1e-08 in absolute value.
/// - Directions that are parallel in space, z included: Parallel when p2 is at a distance of tol or
///   more from line 1, in space; otherwise Coincident.
/// - None when |d2.x d1.y - d1.x d2.y| <= tol, or when |d1.x| and |d1.y| are both <= tol. Both
///   tests use the vectors as given, not normalised: short vectors that cross can give None.
/// - Otherwise Point, by x and y alone.
VEXMATH_API mgIntersectionType_e mg_LineIntLine2D(mgPoint_c const &p1, mgVector_c const &d1,
                                                  mgPoint_c const &p2, mgVector_c const &d2,
                                                  mgPoint_c *out, double tol);
/// A line and the segment from a to b. None, without writing, when the segment is shorter than tol
/// (strict). Otherwise *out and the result are those of `mg_LineIntLine`, with the line as line 1,
/// except that a Point beyond an end becomes None; *out stays written. With w = *out - a and
/// d = b - a, a Point is beyond a when w.d < -tol, which is a distance of tol / |d|, and beyond b
/// when |w| > |d|, without slack. Coincident and Parallel do not depend on the ends.
VEXMATH_API mgIntersectionType_e mg_LineIntLineSeg(mgLine_c const &line, mgPoint_c const &a,
                                                   mgPoint_c const &b, mgPoint_c *out, double tol);
/// As `mg_LineIntLineSeg`, except that a Point more than tol behind the ray's root becomes None as
/// well; *out stays written. A collinear segment is Coincident even when it lies behind the root.
VEXMATH_API mgIntersectionType_e mg_RayIntLineSeg(mgLine_c const &ray, mgPoint_c const &a,
                                                  mgPoint_c const &b, mgPoint_c *out, double tol);
/// Two segments in space. None, without writing, when one is shorter than tol (strict). Otherwise
/// `out` and the result are those of `mg_LineIntLine`, with the segment a1 b1 as line 1, with two
/// exceptions; `out` stays written in both. A Point becomes None when it is beyond an end of either
/// segment, as in `mg_LineIntLineSeg`. Coincident, which writes a1, becomes None when the segments
/// do not overlap. They also overlap when an end of segment 2 is within tol of a1 (distance,
/// inclusive); at b1 there is no slack.
VEXMATH_API mgIntersectionType_e mg_LineSegIntLineSeg(mgPoint_c const &a1, mgPoint_c const &b1,
                                                      mgPoint_c const &a2, mgPoint_c const &b2,
                                                      mgPoint_c &out, double tol);
/// Two segments in the plane. A point is "on the line" when its distance from the line of segment
/// 1, in x and y, is below 1e-08 (strict). If segment 1 has a difference in z, that bound is
/// larger, by the ratio of its length to its length in x and y. A point is "on segment 1" when it
/// is at most 1e-08 beyond the ends; only x is compared when segment 1 is longer in x than in y,
/// else only y. In this order:
/// - None when a coordinate, z included, is NaN; when the x of one of the four points is exactly
///   5e-09 or -5e-09; or when no coordinate, z included, differs by more than 1e-08 between the
///   ends of a segment.
/// - a2 and b2 both on the line: None when no part of segment 2 is on segment 1. Otherwise *out is
///   the middle of that part, z included. Each end of the part is an end of one of the segments,
///   with its own z. Point when no coordinate, z included, differs by more than 1e-08 between the
///   ends of the part; otherwise Coincident.
/// - a2 and b2 both off the line and on the same side: None.
/// - Otherwise *out is the end of segment 2 that is on the line, or the crossing when both are off,
///   with all three coordinates interpolated between a2 and b2. Point when *out is on segment 1,
///   else None; *out stays written.
VEXMATH_API mgIntersectionType_e mg_LineSegIntLineSeg2D(mgPoint_c const &a1, mgPoint_c const &b1,
                                                        mgPoint_c const &a2, mgPoint_c const &b2,
                                                        mgPoint_c *out);

// Rays. Each of these functions treats the ray as a whole line: a hit behind the start counts. A
// frame stands for the plane through its translation whose normal is the third column of its
// rotation. (The image of the z axis is the third row.) The scale of the frame is ignored. "Within
// the radius" means that each coordinate differs by strictly less than radius + 1e-08. Discs,
// spheres and cylinders are therefore tested as cubes: points at up to sqrt(3) radii can be hits. A
// radius strictly below -1e-08 has the same effect as 0.

/// A ray and a frame's plane. Parallel when the cosine between the direction and the normal is
/// below 1e-08 in absolute value, also for a ray in the plane or without a direction: *out is not
/// written. Otherwise Point, and *out is the crossing.
VEXMATH_API mgIntersectionType_e mg_RayIntPlane(mgXform_c const *frame, mgPoint_c const *start,
                                                mgUnitVector_c const *direction, mgPoint_c *out);
/// A ray and the disc about a frame's translation. None, without writing, when `mg_RayIntPlane`
/// gives Parallel. Otherwise *out is where the ray meets the plane; Point when that is within the
/// radius of the translation, else None. The two angles are ignored: the disc is always whole.
VEXMATH_API mgIntersectionType_e mg_RayIntDiskSeg(mgXform_c const *frame, mgPoint_c const *start,
                                                  mgUnitVector_c const *direction, double radius,
                                                  double startAngle, double endAngle,
                                                  mgPoint_c *out);
/// A ray and a sphere. TwoPoints when the foot of the centre on the ray is within the radius of the
/// centre, coordinate by coordinate; otherwise None. Writes no point.
VEXMATH_API mgIntersectionType_e mg_RayIntSphere(mgPoint_c const *start,
                                                 mgUnitVector_c const *direction,
                                                 mgPoint_c const *centre, double radius);
/// A ray and a cylinder. When they are parallel, 1 - |cos| < 1e-08, the height is ignored:
/// Coincident, and *out is the ray's root, when the root is within the radius of its foot on the
/// axis; otherwise Parallel, and *out is not written. When they are not parallel, *out is the point
/// of the ray nearest to the axis, and the result TwoPoints when all of this holds, else None: *out
/// is within the radius of the nearest point of the axis; *out is at most 1e-08 below the base
/// along the axis; the distance of *out from the base point is at most height + 1e-08.
VEXMATH_API mgIntersectionType_e mg_RayIntCylSeg(mgLine_c const &ray, mgPoint_c const &base,
                                                 mgUnitVector_c const &axis, double height,
                                                 double radius, mgPoint_c *out);
/// A ray and the part of a cone between two distances from its apex. The half-angle is in radians.
/// *out is written for Coincident, Point and TwoPoints. In this order:
/// - Ray and axis parallel, 1 - |cos| < 1e-08: Coincident, and *out is the ray's root, when that
///   and its foot on the axis differ by less than 1e-08 in each coordinate; otherwise Parallel,
///   also when the ray passes through the cap.
/// - Point when the ray hits the cap, as in `mg_RayIntDiskSeg`: the disc at the axial distance
///   farDistance, of the radius farDistance tan(halfAngle).
/// - TwoPoints when the ray hits the side. Only two straight lines of the side are tested, those in
///   the plane through the apex along axis and ray direction. The ray hits such a line when the
///   nearest points of the two differ by less than 1e-08 in each coordinate; it never hits one that
///   it is parallel to. The hit must not be behind the apex, and its distance from the apex, along
///   the side, must be from nearDistance to farDistance; all with an allowance of 1e-08, inclusive.
///   Of two hits, *out is the first along the ray.
/// - Otherwise None.
/// A zero direction or axis gives an unspecified result.
VEXMATH_API mgIntersectionType_e mg_RayIntConeSeg(mgLine_c const &ray, mgPoint_c const &apex,
                                                  mgUnitVector_c const &axis, double halfAngle,
                                                  double nearDistance, double farDistance,
                                                  mgPoint_c *out);

// Circles in the plane.

/// The line through p along u and a circle. d is the distance of the centre from its foot on the
/// line. In this order:
/// - ThroughCentre when centre and foot differ by less than 1e-08 in each coordinate: *out1 is
///   centre + radius u, *out2 is centre - radius u.
/// - Tangent when |d - radius| < 1e-08: *out1 is the foot, *out2 is not written.
/// - Secant when d <= radius: *out1 is the point farther along u, *out2 the other one.
/// - Otherwise Miss; neither is written.
/// REQUIRES u.z = 0 and p.z = centre.z: d is measured in space. A negative radius gives
/// ThroughCentre, with the outputs exchanged, or Miss.
VEXMATH_API mgLineCircleIntType_e mg_LineIntCircle2D(mgPoint_c const &p, mgUnitVector_c const &u,
                                                     mgPoint_c const &centre, double const &radius,
                                                     mgPoint_c *out1, mgPoint_c *out2);
/// Two circles, by x and y alone; the z of the outputs keeps its value. The sign of a radius is
/// ignored. With the distance d of the centres and
/// disc = 2 (r1^2 + r2^2) d^2 - d^4 - (r2^2 - r1^2)^2, which is a fourth power of a length:
/// - Coincident when d^2 < 1e-16, whatever the radii: nothing is written.
/// - None when disc < -1e-16, or when it is NaN: nothing is written.
/// - Point when disc < 1e-16: *out1 is the touching point, *out2 is not written. Circles with
///   radii below 7e-05 therefore touch wherever they cross.
/// - Otherwise TwoPoints: *out1 is the one to the left of the line from c1 to c2, *out2 the other.
VEXMATH_API mgIntersectionType_e mg_CircleIntCircle2D(mgPoint_c const &c1, double const &r1,
                                                      mgPoint_c const &c2, double const &r2,
                                                      mgPoint_c *out1, mgPoint_c *out2);

// Planes. `mg_LineIntPlane` is in plane.h.

/// The segment from a to b and a plane: as `mg_LineIntPlane` for the line from a towards b, except
/// that a Point more than 1e-08 before a or beyond b becomes Parallel; *out stays written. Ends
/// that are nearer than about 3.2e-09 give no direction: InPlane or Parallel. *param, unless param
/// is null, is always written: the signed distance of the crossing from a, or 0 for InPlane and for
/// parallel directions.
VEXMATH_API mgLinePlaneIntersectionType_e mg_LineSegIntPlane(mgPoint_c const &a, mgPoint_c const &b,
                                                             mgPlane_c const &plane, mgPoint_c *out,
                                                             double *param);
/// Two planes. They are parallel when each component of normal 1 x normal 2 is below 1e-08 in
/// absolute value: Coincident when the root of plane 2 is nearer to plane 1 than 1e-08, otherwise
/// Parallel. When they are not parallel: Line, and *out is the line that they share. Only Line
/// writes *out. Failed is possible when the angle is hardly larger than that of parallel planes.
///
/// The direction of *out is normal 1 x normal 2, normalised. Its root is where a line of plane 1
/// meets plane 2: the line through the root of plane 1 along `anyUnitNormal(0)` of its normal, or
/// the one perpendicular to it when that is parallel to plane 2. Exception: when the first of these
/// lines lies in plane 2, *out is that line itself, whose direction can be the opposite.
VEXMATH_API mgPlnPlnIntersectionType_e mg_PlaneIntPlane(mgPlane_c const &plane1,
                                                        mgPlane_c const &plane2, mgLine_c *out);

/// The mirror image of q in the line through a along v; in the point a when v counts as zero.
VEXMATH_API mgPoint_c mg_MirrorPoint(mgPoint_c const &a, mgVector_c const &v, mgPoint_c const &q);

// Polylines.

/// Returns 1 when n points lie on one straight line, otherwise 0. A point lies on the line when it
/// differs by less than 1e-08 in each coordinate from its foot on the line through `start` and
/// `end`. n < 3 gives 1; pts is not read and can be null.
///
/// `start` and `end` are written only when n >= 3 and the result is 1. They are two of the points
/// that are far apart, in no particular order: the extreme ones, unless the line is parallel to z.
/// The search for them compares the larger of the differences in x and y, and not z. Of a polyline
/// along z they are therefore the first two points. When the two that were found differ by less
/// than 1e-08 in each coordinate, `start` and `end` are both pts[0] and the result is 1, whatever
/// the z of the other points.
VEXMATH_API int mg_IsPolylineLine(int n, mgPoint_c const *pts, mgPoint_c &start, mgPoint_c &end);
/// The circle through pts[0], pts[1] and pts[2]. Returns 1 and writes its centre and the unit
/// normal about which the points run counter-clockwise in this order.
///
/// Returns 0 without writing when two points differ by less than 1e-08 in each coordinate, or when
/// the unit directions from pts[0] and from pts[2] to pts[1] are equal or opposite within 1e-08 in
/// each component. Also returns 0 when the angle between these two directions, or between one and
/// the opposite of the other, is less than about 1.4e-04 rad (1 - |cos| < 1e-08): *normal is not
/// written then, but *center can be, with the middle of pts[0] and pts[1]. Far from the origin
/// rounding can keep the perpendicular bisectors apart; the result is 1 all the same, and *center
/// is the point of the first bisector nearest to the second.
VEXMATH_API int mg_Find3PointArcCenter(mgPoint_c const *pts, mgPoint_c *center,
                                       mgUnitVector_c *normal);

// Point sets. Listeners are the overridden `elementsChanged` of the arrays; REQUIRES that they do
// not change the arrays.

/// Appends the convex hull of planar points to `hull`, counter-clockwise from the point of lowest x
/// (then lowest y), without a closing duplicate and without points on its edges, and returns 1.
/// Returns 0 and changes nothing when the input is empty or both arguments are the same object.
/// When memory is exhausted or `hull` cannot grow, returns 0, and both arrays hold the points that
/// they held before.
///
/// Sorts the input by x, then y, NaN last, and removes its exact duplicates (-0 equals 0, NaN
/// equals nothing). Up to three distinct points are all returned, collinear ones too; three run
/// counter-clockwise. Four or more points on one line give both ends when all have the same x. When
/// they differ in x, they give the first alone, unless rounding puts one off the line. Rounding can
/// also lose a corner: points on the first edge can remove one of its ends. NaN and infinite points
/// give an unspecified hull.
///
/// The input's listener is told of each removal, first to last, as (index of the removed duplicate
/// in the sorted array as it is then, last index after the removal). When the last point is
/// removed, the first number is therefore one larger than the second. The distinct points are in
/// their final places before the first call; behind them lie copies of points, as many as there are
/// removals to come. The hull's listener is told (index, index) of each point
/// that is appended, also of those that are removed again, and not of their removal. When `hull`
/// cannot grow, it is told (-1, -1), and then both listeners are told (0, count - 1) of the points
/// that are back.
///
/// Method: A. M. Andrew, "Another efficient algorithm for convex hulls in two dimensions", 1979.
VEXMATH_API int convexHull(suDynamicArray<mg2DPoint_c> &input, suDynamicArray<mg2DPoint_c> &hull);

/// Replaces `order` by a short open path through all points: their indices in visiting order. One
/// or two points keep their order. The path of n points starts as (n - 2, n - 1). Each step inserts
/// the point that adds the least length: between two neighbours, behind the end or before the
/// start. Of equal lengths it takes the one at the earlier pair of neighbours, then the one of the
/// lower index, then the one that comes first in this list. The end belongs to the last pair, the
/// start to the first. The points do not change.
///
/// One or two indices are added to the storage of `order`. Three or more get a new block of
/// capacity n, which grows linearly by 1. When memory is exhausted, `order` is 0 to n - 1, or empty
/// if it cannot hold these. It is also empty when it may not grow and one or two indices do not
/// fit.
///
/// The listener of `order` is told that it is empty, (0, -1), then of each index from 0 to n - 1,
/// as by `Add`, then of the path, (0, n - 1), when n >= 3 and memory is not exhausted. When memory
/// is exhausted so that `order` ends up empty, the last call is (0, -1).
///
/// About n^2 work for finite points; n^3 when a distance is infinite or NaN.
/// Method: D. J. Rosenkrantz, R. E. Stearns, P. M. Lewis, "An analysis of several heuristics for
/// the traveling salesman problem", 1977 (cheapest insertion).
VEXMATH_API void mg_OpenTSP(suDynamicArray<mgPoint_c> &points, suDynamicArray<int> &order);

/// Sorts points[first] to points[last], both included, by `mgPoint_c::isLessThan` with its default
/// tolerance of 1e-08, inclusive. Does nothing unless first < last. Equal points can change places.
/// The order is not transitive across the tolerance: points closer than it can end in an order that
/// depends on their places before, always the same for the same input. A coordinate difference of
/// NaN counts as equal.
///
/// About n log n work, also for many equal points, NaN and infinite ones included; n^2 for a few
/// orders. The recursion depth is logarithmic. From 30 points on it allocates; when memory is
/// exhausted, it sorts in place, with the same result.
///
/// Method: C. A. R. Hoare, "Quicksort", 1962, with the median of three as pivot.
VEXMATH_API void mg_pointQuickSort(mgPoint_c *points, int first, int last);
/// Sorts the same range by the same order, by selection: each place, from first on, swaps its point
/// with the least of the points from there to last, the earliest of equal ones. A scan from the
/// place on keeps a point until a later one is less than it, which decides where NaN or the
/// tolerance leave no order. Does nothing unless
/// first < last. Quadratic work. Never allocates.
VEXMATH_API void mg_pointSelectionSort(mgPoint_c *points, int first, int last);

#endif
