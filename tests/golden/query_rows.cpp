// SPDX-License-Identifier: MIT
// Rows of the golden file: queries in space and in the plane, tessellation, conics.

#include "golden/golden.h"

namespace golden {

namespace {

/// The points of a tessellator, which returns them in a list and in an array.
template <class Tessellate>
void tessellated(List &list, Tessellate tessellate) {
    P *points = nullptr;
    int count = 0;
    tessellate(static_cast<P **>(nullptr), count);
    tessellate(&points, count);
    for (int k = 0; points != nullptr && k <= count; ++k) list.Add(points[k]);
    delete[] points;
}

template <auto tessellate, class Record>
void conic(Record const &record, double tol, List &list) {
    tessellated(list, [&](P **out, int &count) { tessellate(&record, tol, out, count, &list); });
}

template <auto tessellate, class Record>
void ellipse(Record const &record, P const &a, P const &b, double tol, List &list) {
    tessellated(list,
                [&](P **out, int &count) { tessellate(&record, &a, &b, tol, out, count, &list); });
}

} // namespace

Table queryRows() {
    return joined({
        GOLDEN(mg_LineIntLine, mg_LineIntLine2D, mg_LineIntLineSeg, mg_RayIntLineSeg,
               mg_LineSegIntLineSeg, mg_LineSegIntLineSeg2D, mg_RayIntPlane, mg_RayIntDiskSeg,
               mg_RayIntSphere, mg_RayIntCylSeg, mg_LineIntCircle2D, mg_CircleIntCircle2D,
               mg_LineIntPlane, mg_LineSegIntPlane, mg_PlaneIntPlane, mg_MirrorPoint,
               mg_IsPolylineLine, mg_Find3PointArcCenter, convexHull, mg_OpenTSP, mg_ClosedTSP,
               mg_pointQuickSort, mg_pointSelectionSort, minCnvxPlgRect, mg_ClipLine2DToBox,
               mg_Clip2DLineToWindow, mg_Point2DInsideBox, mg_Line2DInsideBox, mg_Circle2DInsideBox,
               mg_Polyline2DInsideBox, mg_PointOnLine2D),
        GOLDEN_OF(mg_MergeLines2D, P const &, P const &, P const &, P const &, P &, P &, double),
        GOLDEN_OF(mg_MergeLines2D, List const &, List &, double),
        GOLDEN_OF(mg_FindTangentArcCenter2D, P const &, P const &, P const &, P const &, double,
                  P &, P &, P &, double),
        GOLDEN(mg_NormalFrom3Points, mg_cleanupPolarEdge, mg_fixPolarConvolution,
               mg_getConicEccentricity, mg_getPointEccentricity, mg_getSgConicEccentricity,
               eccByRho),
        GOLDEN_OF(rhoConic, P const &, P const &, P const &, P const &),
        GOLDEN_OF(rhoConic, double, P const &, P const &, P const &),
        GOLDEN(xConic),
        // The tessellators of conics are exact, but hostile curves of theirs have millions of
        // points.
        trigonometric({
            GOLDEN(mg_RayIntConeSeg, mg_Clip2DArcToBox, mg_ClipLineEndToRotated2DBox,
                   mg_Arc2DInsideBox),
            GOLDEN_AS("mg_IsPolylineArc",
                      [](P const &at, V const &x, P &centre, U &n, double &r, double &angle) {
                          V const y = x * V(1.0, 2.0, 4.0);
                          double const unit = x.len() / y.len();
                          P const pts[] = {at + 5.0 * x, at + 4.0 * x + 3.0 * unit * y,
                                           at - 3.0 * x + 4.0 * unit * y,
                                           at - 4.0 * x - 3.0 * unit * y};
                          return mg_IsPolylineArc(4, pts, centre, n, r, angle, 1e-8);
                      }),
            GOLDEN_OF(mg_FindTangentArcCenter2D, P const &, V const &, P const &, P &, double &,
                      double &, double),
            GOLDEN_AS("mg_calcHatchLinesCircle2D",
                      [](P const &centre, double r, P const &origin, double angle, double d,
                         List &lines) {
                          return mg_calcHatchLinesCircle2D(centre, std::fabs(r), origin, angle,
                                                           std::fabs(d) / 4, lines);
                      }),
            GOLDEN_AS("mg_calcHatchLinesRect2D",
                      [](mgRect const &rect, P const &origin, double angle, double d, List &lines) {
                          return mg_calcHatchLinesRect2D(rect, origin, angle, std::fabs(d), lines);
                      }),
            GOLDEN_AS("mg_calcHatchLinesPolygon2D",
                      [](P const *points, P const &origin, double angle, double d, List &lines) {
                          int const counts[] = {5, 0, 7, 4};
                          return mg_calcHatchLinesPolygon2D(4, counts, points, origin, angle,
                                                            std::fabs(d), lines);
                      }),
            GOLDEN(parabolicPoints),
            GOLDEN((ellipse<mg_TessArc, arcEdgeData>)),
            GOLDEN((ellipse<mg_TessEllipse, ellipseEdgeData>)),
            GOLDEN((conic<mg_TessParabola, parabolaEdgeData>)),
            GOLDEN((conic<mg_TessBConic, parabolaEdgeData>)),
            GOLDEN((conic<mg_TessParabolaOrBConic, parabolaEdgeData>)),
        }),
    });
}

} // namespace golden
