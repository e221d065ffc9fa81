// SPDX-License-Identifier: MIT
// What an intersection can come to: the four result enumerations. Callers store and switch over the
// values, so none of them ever changes.

#ifndef VEXMATH_INTERSECTION_TYPES_H
#define VEXMATH_INTERSECTION_TYPES_H

/// Lines, segments and rays with each other and with discs, spheres, cylinders and cones; circle
/// with circle.
enum mgIntersectionType_e : int {
    mgIntersect_Coincident = 0, ///< one on the other; a point written is the first one's root
    mgIntersect_Parallel = 1,   ///< parallel and apart
    mgIntersect_Point = 2,      ///< exactly one point, written
    mgIntersect_TwoPoints = 3,  ///< a crossing at two points: each function says what it writes
    mgIntersect_None = 4        ///< skew, outside a segment, behind a ray, missed, or degenerate
};

/// Line or segment with plane.
enum mgLinePlaneIntersectionType_e : int {
    mgLinePlane_InPlane = 0,  ///< the line lies in the plane; the point written is its root
    mgLinePlane_Parallel = 1, ///< parallel and off the plane, or the crossing is off the segment
    mgLinePlane_Point = 2,    ///< one crossing point
    mgLinePlane_Failed = 3    ///< reserved: no function gives it today
};

/// Plane with plane.
enum mgPlnPlnIntersectionType_e : int {
    mgPlnPln_Coincident = 0,
    mgPlnPln_Parallel = 1, ///< parallel and distinct
    mgPlnPln_Line = 2,     ///< the planes meet in the line written
    mgPlnPln_Failed = 3    ///< too nearly parallel to construct a line
};

/// Line with circle.
enum mgLineCircleIntType_e : int {
    mgLineCircle_Tangent = 0,       ///< the touching point is the first output
    mgLineCircle_ThroughCentre = 1, ///< both outputs are written
    mgLineCircle_Secant = 2,        ///< both outputs are written
    mgLineCircle_Miss = 3
};

#endif
