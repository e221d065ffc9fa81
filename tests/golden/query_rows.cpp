// SPDX-License-Identifier: MIT
// Rows of the golden file: queries in space and in the plane, tessellation, conics.

#include "golden/golden.h"

namespace golden {

namespace {

using P = mgPoint_c;
using V = mgVector_c;
using List = suDynamicArray<mgPoint_c>;

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

std::vector<Row> const exact = {
    GOLDEN(mg_LineIntLine),
    GOLDEN(mg_LineIntLine2D),
    GOLDEN(mg_LineIntLineSeg),
    GOLDEN(mg_RayIntLineSeg),
    GOLDEN(mg_LineSegIntLineSeg),
    GOLDEN(mg_LineSegIntLineSeg2D),
    GOLDEN(mg_RayIntPlane),
    GOLDEN(mg_RayIntDiskSeg),
    GOLDEN(mg_RayIntSphere),
    GOLDEN(mg_RayIntCylSeg),
    GOLDEN(mg_LineIntCircle2D),
    GOLDEN(mg_CircleIntCircle2D),
    GOLDEN(mg_LineIntPlane),
    GOLDEN(mg_LineSegIntPlane),
    GOLDEN(mg_PlaneIntPlane),
    GOLDEN(mg_MirrorPoint),
    GOLDEN(mg_IsPolylineLine),
    GOLDEN(mg_Find3PointArcCenter),
    GOLDEN(convexHull),
    GOLDEN(mg_OpenTSP),
    GOLDEN(mg_ClosedTSP),
    GOLDEN(mg_pointQuickSort),
    GOLDEN(mg_pointSelectionSort),
    GOLDEN(minCnvxPlgRect),
    GOLDEN(mg_ClipLine2DToBox),
    GOLDEN(mg_Clip2DLineToWindow),
    GOLDEN(mg_Point2DInsideBox),
    GOLDEN(mg_Line2DInsideBox),
    GOLDEN(mg_Circle2DInsideBox),
    GOLDEN(mg_Polyline2DInsideBox),
    GOLDEN(mg_PointOnLine2D),
    GOLDEN_OF(mg_MergeLines2D, P const &, P const &, P const &, P const &, P &, P &, double),
    GOLDEN_OF(mg_MergeLines2D, List const &, List &, double),
    GOLDEN_OF(mg_FindTangentArcCenter2D, P const &, P const &, P const &, P const &, double, P &,
              P &, P &, double),
    GOLDEN(mg_NormalFrom3Points),
    GOLDEN(mg_cleanupPolarEdge),
    GOLDEN(mg_fixPolarConvolution),

    GOLDEN(mg_getConicEccentricity),
    GOLDEN(mg_getPointEccentricity),
    GOLDEN(mg_getSgConicEccentricity),
    GOLDEN(eccByRho),
    GOLDEN_OF(rhoConic, P const &, P const &, P const &, P const &),
    GOLDEN_OF(rhoConic, double, P const &, P const &, P const &),
    GOLDEN(xConic)};

// The tessellators of conics are exact, but hostile curves of theirs have millions of points.
std::vector<Row> const trigonometric = {
    GOLDEN(mg_RayIntConeSeg),
    GOLDEN(mg_Clip2DArcToBox),
    GOLDEN(mg_ClipLineEndToRotated2DBox),
    GOLDEN(mg_Arc2DInsideBox),
    GOLDEN_AS("mg_IsPolylineArc",
              [](P const &at, V const &x, P &centre, mgUnitVector_c &n, double &r, double &angle) {
                  V const y = x * V(1.0, 2.0, 4.0);
                  double const unit = x.len() / y.len();
                  P const pts[] = {at + 5.0 * x, at + 4.0 * x + 3.0 * unit * y,
                                   at - 3.0 * x + 4.0 * unit * y, at - 4.0 * x - 3.0 * unit * y};
                  return mg_IsPolylineArc(4, pts, centre, n, r, angle, 1e-8);
              }),
    GOLDEN_OF(mg_FindTangentArcCenter2D, P const &, V const &, P const &, P &, double &, double &,
              double),
    GOLDEN_AS("mg_calcHatchLinesCircle2D",
              [](P const &centre, double r, P const &origin, double angle, double d, List &lines) {
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
                  return mg_calcHatchLinesPolygon2D(4, counts, points, origin, angle, std::fabs(d),
                                                    lines);
              }),
    GOLDEN(parabolicPoints),
    GOLDEN((ellipse<mg_TessArc, arcEdgeData>)),
    GOLDEN((ellipse<mg_TessEllipse, ellipseEdgeData>)),
    GOLDEN((conic<mg_TessParabola, parabolaEdgeData>)),
    GOLDEN((conic<mg_TessBConic, parabolaEdgeData>)),
    GOLDEN((conic<mg_TessParabolaOrBConic, parabolaEdgeData>))};

} // namespace

Rows queryRows() { return {exact, trigonometric}; }

} // namespace golden
