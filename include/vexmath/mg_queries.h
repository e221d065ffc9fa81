// SPDX-License-Identifier: MIT
// Free functions that intersect lines, segments, rays, planes and circles, recognise straight
// polylines and arcs, and find hulls, tours and orders of points.

#ifndef VEXMATH_MG_QUERIES_H
#define VEXMATH_MG_QUERIES_H

#include <vexmath/intersection_types.h>
#include <vexmath/line.h>
#include <vexmath/plane.h>

// Every function answers through its result alone; outputs are written only where its comment says
// so and may alias the inputs. Output pointers must not be null unless the comment allows it. A tol
// is a length, and in tests for parallel directions the same number bounds 1 - |cos|. Vectors given
// as directions need not have unit length; unit vectors and lines are used as they are. NaN and
// infinity give some result, never a trap.

// Lines and segments.

/// Two lines in space. Coincident: *out is p1. Parallel: *out stays. Otherwise *out is the point of
/// line 1 nearest to line 2, and the result Point when it is within tol of line 2, else None.
VEXMATH_API mgIntersectionType_e mg_LineIntLine(mgPoint_c const &p1, mgVector_c const &d1,
                                                mgPoint_c const &p2, mgVector_c const &d2,
                                                mgPoint_c *out, double tol);
/// Two lines in the plane; *out, with z = 0, is written for Point alone. None for a null direction
/// and for lines too short or too nearly parallel to cross reliably. Whether they are parallel, and
/// how far apart, is judged in space.
VEXMATH_API mgIntersectionType_e mg_LineIntLine2D(mgPoint_c const &p1, mgVector_c const &d1,
                                                  mgPoint_c const &p2, mgVector_c const &d2,
                                                  mgPoint_c *out, double tol);
/// A line and the segment ab. None for a segment shorter than tol. Otherwise *out is written as by
/// `mg_LineIntLine`, and a point beyond an end makes None: before a by more than tol over the
/// segment's length, beyond b at all.
VEXMATH_API mgIntersectionType_e mg_LineIntLineSeg(mgLine_c const &line, mgPoint_c const &a,
                                                   mgPoint_c const &b, mgPoint_c *out, double tol);
/// The same for a ray: a crossing more than tol behind its root makes None as well.
VEXMATH_API mgIntersectionType_e mg_RayIntLineSeg(mgLine_c const &ray, mgPoint_c const &a,
                                                  mgPoint_c const &b, mgPoint_c *out, double tol);
/// Two segments in space, ends judged as in `mg_LineIntLineSeg`, out written as by
/// `mg_LineIntLine`. Coincident means collinear and overlapping; collinear and apart gives None.
/// Both write a1.
VEXMATH_API mgIntersectionType_e mg_LineSegIntLineSeg(mgPoint_c const &a1, mgPoint_c const &b1,
                                                      mgPoint_c const &a2, mgPoint_c const &b2,
                                                      mgPoint_c &out, double tol);
/// Two segments in the plane, within 1e-08 of each other. Point: *out is the crossing, the touching
/// end, or the only point that collinear segments share. Coincident: collinear with a common
/// stretch, *out is its middle. None otherwise, and then *out is still written when the second
/// segment meets the line of the first one outside of it. None also for NaN, for a segment whose
/// ends are equal as points, and when some x is 5e-09 or -5e-09 exactly.
VEXMATH_API mgIntersectionType_e mg_LineSegIntLineSeg2D(mgPoint_c const &a1, mgPoint_c const &b1,
                                                        mgPoint_c const &a2, mgPoint_c const &b2,
                                                        mgPoint_c *out);

// Rays. A frame stands for the plane through its translation whose normal is the third column of
// its rotation. Where a radius is tested it bounds each coordinate difference on its own.

/// A ray and a frame's plane: Point, also for a crossing behind the start, or Parallel, which
/// leaves *out.
VEXMATH_API mgIntersectionType_e mg_RayIntPlane(mgXform_c const *frame, mgPoint_c const *start,
                                                mgUnitVector_c const *direction, mgPoint_c *out);
/// A ray and the disc about a frame's origin: Point or None. *out is where the ray meets the plane,
/// on the disc or off it. The two angles are accepted and play no part.
VEXMATH_API mgIntersectionType_e mg_RayIntDiskSeg(mgXform_c const *frame, mgPoint_c const *start,
                                                  mgUnitVector_c const *direction, double radius,
                                                  double startAngle, double endAngle,
                                                  mgPoint_c *out);
/// A ray and a sphere: TwoPoints for a hit, also behind the start, else None. Writes no point.
VEXMATH_API mgIntersectionType_e mg_RayIntSphere(mgPoint_c const *start,
                                                 mgUnitVector_c const *direction,
                                                 mgPoint_c const *centre, double radius);
/// A ray and a cylinder between its base and a height along the axis. Along the axis: Coincident
/// with *out the ray's root when that is within the radius, else Parallel. Otherwise *out is the
/// point of the ray nearest to the axis, and the result TwoPoints when it is within the radius and
/// the height (measured as a distance from the base), else None.
VEXMATH_API mgIntersectionType_e mg_RayIntCylSeg(mgLine_c const &ray, mgPoint_c const &base,
                                                 mgUnitVector_c const &axis, double height,
                                                 double radius, mgPoint_c *out);
/// A ray and a cone between two distances from its apex, which are axial for the cap at the far end
/// and slant lengths for the side. Along the axis: Coincident with *out the ray's root when that is
/// on it, else Parallel. Through the cap: Point. Through the side in the plane of apex, axis and
/// ray direction: TwoPoints, *out the first such point along the ray. Else None.
VEXMATH_API mgIntersectionType_e mg_RayIntConeSeg(mgLine_c const &ray, mgPoint_c const &apex,
                                                  mgUnitVector_c const &axis, double halfAngle,
                                                  double nearDistance, double farDistance,
                                                  mgPoint_c *out);

// Circles in the plane.

/// The line through p along u and a circle; the outputs follow the result's comment, the one
/// farther along u first. A radius must be larger than the line's distance by 1e-08 for a secant.
VEXMATH_API mgLineCircleIntType_e mg_LineIntCircle2D(mgPoint_c const &p, mgUnitVector_c const &u,
                                                     mgPoint_c const &centre, double const &radius,
                                                     mgPoint_c *out1, mgPoint_c *out2);
/// Two circles: TwoPoints; Point when they touch, in *out1; Coincident, without a point, when the
/// centres are within 1e-08, whatever the radii; None when apart or for NaN. The z of the outputs
/// stays as it was.
VEXMATH_API mgIntersectionType_e mg_CircleIntCircle2D(mgPoint_c const &c1, double const &r1,
                                                      mgPoint_c const &c2, double const &r2,
                                                      mgPoint_c *out1, mgPoint_c *out2);

// Planes.

/// A line and a plane. InPlane: *out is the line's root. Parallel: *out stays. Point: *out is the
/// crossing, and *param, if given, its distance from the root along the direction.
mgLinePlaneIntersectionType_e mg_LineIntPlane(mgLine_c const &line, mgPlane_c const &plane,
                                              mgPoint_c *out, double *param);
/// The segment ab and a plane, as above; Parallel also when the crossing lies more than 1e-08
/// beyond an end, and then *out is written all the same. *param, if given, is always written: the
/// crossing's distance from a, or 0 without one.
VEXMATH_API mgLinePlaneIntersectionType_e mg_LineSegIntPlane(mgPoint_c const &a, mgPoint_c const &b,
                                                             mgPlane_c const &plane, mgPoint_c *out,
                                                             double *param);
/// Two planes; *out is written for Line alone. Its direction is normal 1 x normal 2, unless the
/// line that the construction starts with, in plane 1 through its root, lies in plane 2 as well:
/// then it is that line.
VEXMATH_API mgPlnPlnIntersectionType_e mg_PlaneIntPlane(mgPlane_c const &plane1,
                                                        mgPlane_c const &plane2, mgLine_c *out);

/// The mirror image of q in the line through a along v.
VEXMATH_API mgPoint_c mg_MirrorPoint(mgPoint_c const &a, mgVector_c const &v, mgPoint_c const &q);

// Polylines.

/// Do n points lie on one straight line? 1, and two of them that are far apart in x and y, as the
/// line's ends, in no particular order. Fewer than three points: 1, without ends. Otherwise 0,
/// without ends. Of a polyline along z the ends are the first two points, not the extreme ones.
VEXMATH_API int mg_IsPolylineLine(int n, mgPoint_c const *pts, mgPoint_c &start, mgPoint_c &end);
/// Centre of the circle through three points, and the normal about which they run
/// counter-clockwise. 0 when two points are equal or all are collinear; the normal then stays as it
/// was.
VEXMATH_API int mg_Find3PointArcCenter(mgPoint_c const *pts, mgPoint_c *center,
                                       mgUnitVector_c *normal);

// Point sets.

/// Planar convex hull, appended to `hull` counter-clockwise from the point of lowest x (then lowest
/// y), without a closing duplicate and without points on its edges. Returns 0 for an empty input,
/// or when both arguments are the same object, and touches nothing; otherwise 1.
///
/// Leaves the input sorted by x, then y, NaN last, and free of exact duplicates; each removal is
/// notified as (index, last index then). Fewer than four different points are all returned, as a
/// counter-clockwise triangle where there are three. Four or more on one line that differ in x come
/// to the first alone, and a corner may be lost to rounding: see the marks in the body.
///
/// Method: A. M. Andrew, "Another efficient algorithm for convex hulls in two dimensions", 1979.
VEXMATH_API int convexHull(suDynamicArray<mg2DPoint_c> &input, suDynamicArray<mg2DPoint_c> &hull);

/// A short open path through all points, as their indices in visiting order: the path starts with
/// the last two points and grows by the cheapest insertion. Up to two points keep their order, and
/// so do more than that when memory is exhausted. Ties keep the earlier choice.
///
/// Notifies `order` of its being emptied, (0, -1), of each index in turn, and of the path,
/// (0, count - 1), where there are three points or more.
///
/// About n^2 work for finite points; n^3 when a distance is infinite or NaN.
/// Method: D. J. Rosenkrantz, R. E. Stearns, P. M. Lewis, "An analysis of several heuristics for
/// the traveling salesman problem", 1977 (cheapest insertion).
VEXMATH_API void mg_OpenTSP(suDynamicArray<mgPoint_c> &points, suDynamicArray<int> &order);

/// Sorts points[first] to points[last], both included, by `mgPoint_c::isLessThan` with its default
/// tolerance. That order is not transitive across the tolerance: points closer than it can end in
/// an order that depends on their arrangement before, always the same for the same input. Nothing
/// happens unless first < last. Recursion stays logarithmic.
/// Method: C. A. R. Hoare, "Quicksort", 1962, with the median of three as pivot.
VEXMATH_API void mg_pointQuickSort(mgPoint_c *points, int first, int last);
/// The same by selection: for each place the least of the points behind it, the earliest among
/// equals. Quadratic work.
VEXMATH_API void mg_pointSelectionSort(mgPoint_c *points, int first, int last);

// -------------------------------------------------------------------------------------------------

inline mgLinePlaneIntersectionType_e mg_LineIntPlane(mgLine_c const &line, mgPlane_c const &plane,
                                                     mgPoint_c *out, double *param) {
    /// Distance of the root below which it is in the plane; strict.
    constexpr double kInPlane = 1e-08;
    /// Cosine between direction and normal below which they are perpendicular; strict.
    constexpr double kParallelCos = 1e-08;
    double const height = (plane.rootPoint() - line.rootPoint()) % plane.normal();
    double const rate = line.direction() % plane.normal();
    if (std::fabs(rate) < kParallelCos) {
        if (!(std::fabs(height) < kInPlane)) return mgLinePlane_Parallel;
        *out = line.rootPoint();
        return mgLinePlane_InPlane;
    }
    double const t = height / rate;
    if (param != nullptr) *param = t;
    *out = line.rootPoint() + t * line.direction();
    return mgLinePlane_Point;
}

#endif
