// SPDX-License-Identifier: MIT
// The results of intersections: four enumerations. Callers store the values, so they never change.
// Each function states which results it gives and which outputs it then writes.

#ifndef VEXMATH_INTERSECTION_TYPES_H
#define VEXMATH_INTERSECTION_TYPES_H

/// Lines, segments and rays with each other and with discs, spheres, cylinders and cones; circle
/// with circle.
enum mgIntersectionType_e : int {
    mgIntersect_Coincident = 0, ///< on the same line; in a cylinder along its axis; concentric
    mgIntersect_Parallel = 1,   ///< parallel and apart; a ray along a frame's plane or in it
    mgIntersect_Point = 2,      ///< one point, written
    mgIntersect_TwoPoints = 3,  ///< two points, or a hit of a sphere, a cylinder or a cone's side
    mgIntersect_None = 4        ///< skew, outside a segment, behind a ray, missed, or degenerate
};

/// Line or segment with plane.
enum mgLinePlaneIntersectionType_e : int {
    mgLinePlane_InPlane = 0,  ///< the line lies in the plane; the point written is its root
    mgLinePlane_Parallel = 1, ///< parallel and off the plane, or the crossing is off the segment
    mgLinePlane_Point = 2,    ///< one point, written
    mgLinePlane_Failed = 3    ///< reserved: no function gives it
};

/// Plane with plane.
enum mgPlnPlnIntersectionType_e : int {
    mgPlnPln_Coincident = 0, ///< parallel and the same, in either orientation of the normals
    mgPlnPln_Parallel = 1,   ///< parallel and apart
    mgPlnPln_Line = 2,       ///< the planes meet in a line, written
    mgPlnPln_Failed = 3      ///< too nearly parallel to construct a line
};

/// Line with circle.
enum mgLineCircleIntType_e : int {
    mgLineCircle_Tangent = 0,       ///< one point, the first output
    mgLineCircle_ThroughCentre = 1, ///< two points, on a line through the centre
    mgLineCircle_Secant = 2,        ///< two points, on any other line
    mgLineCircle_Miss = 3           ///< no point
};

#endif
