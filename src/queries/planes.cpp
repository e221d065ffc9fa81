// SPDX-License-Identifier: MIT
// Planes with segments and with each other.

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>

#include <cmath>

mgLinePlaneIntersectionType_e mg_LineSegIntPlane(mgPoint_c const &a, mgPoint_c const &b,
                                                 mgPlane_c const &plane, mgPoint_c *out,
                                                 double *param) {
    /// How far beyond an end a crossing is still on the segment; bound included.
    constexpr double kOnEnd = 1e-08;
    mgVector_c const d = b - a;
    mgLine_c const line(a, mg_Normalise(d));
    double t = 0.0;
    mgLinePlaneIntersectionType_e const type = mg_LineIntPlane(line, plane, out, &t);
    if (param != nullptr) *param = t;
    // QUIRK: mg_queries.h, mg_LineSegIntPlane: a crossing off the segment is Parallel, and *out is
    // written. Expected: a result of its own. Kept: callers and stored data depend on it.
    // (test: ASegmentThatEndsBeforeThePlaneStillTellsTheParameter)
    bool const beyond = t < -kOnEnd || t - kOnEnd > d.len();
    return type == mgLinePlane_Point && beyond ? mgLinePlane_Parallel : type;
}

mgPlnPlnIntersectionType_e mg_PlaneIntPlane(mgPlane_c const &plane1, mgPlane_c const &plane2,
                                            mgLine_c *out) {
    /// Distance of parallel planes below which they coincide; strict.
    constexpr double kCoincident = 1e-08;
    mgUnitVector_c const &normal = plane1.normal();
    mgPoint_c const &root = plane1.rootPoint();
    mgVector_c const across = normal * plane2.normal();
    if (across.isNull()) {
        double const distance = (plane2.rootPoint() - root) % normal;
        return std::fabs(distance) < kCoincident ? mgPlnPln_Coincident : mgPlnPln_Parallel;
    }

    // A line of plane 1 through its root meets plane 2; the perpendicular one does if the first is
    // parallel to plane 2. Both are parallel when the normals differ by hardly more than 1e-08.
    mgLine_c inPlane1(root, normal.anyUnitNormal(0));
    mgPoint_c crossing;
    mgLinePlaneIntersectionType_e type = mg_LineIntPlane(inPlane1, plane2, &crossing, nullptr);
    if (type == mgLinePlane_Parallel) {
        inPlane1.setDirection(mg_Normalise(normal * inPlane1.direction()));
        type = mg_LineIntPlane(inPlane1, plane2, &crossing, nullptr);
    }
    if (type == mgLinePlane_InPlane) {
        // QUIRK: mg_queries.h, mg_PlaneIntPlane: the output can be opposite to normal 1 x normal 2,
        // when the line that the construction starts with lies in both planes. Expected: always
        // along it. Kept: callers and stored data depend on it.
        // (test: ALineOfBothPlanesIsTakenAsItIs)
        *out = inPlane1;
        return mgPlnPln_Line;
    }
    if (type != mgLinePlane_Point) return mgPlnPln_Failed;
    *out = mgLine_c(crossing, mg_Normalise(across));
    return mgPlnPln_Line;
}
