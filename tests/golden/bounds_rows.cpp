// SPDX-License-Identifier: MIT
// Rows of the golden file: boxes, lines, planes, arcs, cones.

#include "golden/golden.h"

namespace golden {

namespace {

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using X = mgXform_c;
using Box = mgBBox_c;
using Line = mgLine_c;
using Plane = mgPlane_c;
using Arc = mgArc_c;
using Cone = mgCone_c;
using Cylinder = mgCylinder_c;
using Pairs = suDynamicArray<mgIndexPair_c>;

std::vector<Row> const exact = {
    GOLDEN_OF(&Box::set, double const *),
    GOLDEN(&Box::set2Points),
    GOLDEN(&Box::reset),
    GOLDEN(&Box::maxBox),
    GOLDEN(&Box::correctedMaxBox),
    GOLDEN(&Box::isValid),
    GOLDEN(&Box::diagonalLength),
    GOLDEN(&Box::maxDimension),
    GOLDEN(&Box::minDimension),
    GOLDEN(&Box::pointPerp),
    GOLDEN(&Box::operator==),
    GOLDEN(&Box::isSame),
    GOLDEN(&Box::translate),
    GOLDEN_OF(&Box::operator+=, double),
    GOLDEN_OF(&Box::operator*=, double),
    GOLDEN_OF(&Box::operator*=, X const &),
    GOLDEN_OF(&Box::operator|=, P const &),
    GOLDEN_OF(&Box::operator|=, Box const &),
    GOLDEN(&Box::operator&=),
    GOLDEN_OF(&Box::clash, Plane const &, double),
    GOLDEN_OF(&Box::clash, Box const *, double),
    GOLDEN_OF(&Box::clash, Box const &, X const &, Box const &, X const &),
    GOLDEN(&Box::containsBBox),
    GOLDEN_OF(&Box::containsPoint, P const &, double),
    GOLDEN_OF(&Box::containsPoint, P const &, double, int),
    GOLDEN_OF(&Box::clashLine, P const *, P const *),
    GOLDEN_OF(&Box::clashLine, P const *, P const *, double),
    GOLDEN(&Box::isRayHit),
    GOLDEN(&Box::getFirstRayHit),
    GOLDEN(&Box::limitRay),
    GOLDEN_AS("without the sphere",
              [](Box a, Box const &b, X const &x) {
                  int const before = Box::SetUseSphereBoundingBox(0);
                  a *= x;
                  a |= b;
                  int const result = 2 * a.clash(&b, 0.1) + Box::GetUseSphereBoundingBox();
                  Box::SetUseSphereBoundingBox(before);
                  return result;
              }),
    GOLDEN(mg_FindBBox),
    GOLDEN(mg_BoundPoints),
    GOLDEN_OF(mg_FindClashes, Box const *, int, double, Pairs &),
    GOLDEN_OF(mg_FindClashes, Box const *, int, Box const *, int, double, Pairs &),
    GOLDEN_OF(mg_FindClashes, Box const *, X const *, int, Pairs &),
    GOLDEN(&mgGeneralBox_c::getBBoxAndXform),
    GOLDEN(&mgGeneralBox_c::projectToPlane),
    GOLDEN(&mgParallelogram_c::isPointInside),
    GOLDEN(&mgParallelogram_c::getExtremPts),

    GOLDEN(&Line::isEquivalent),
    GOLDEN(&Line::distToLine),
    GOLDEN(&Line::snapPointToLine),
    GOLDEN(&Line::operator*=),
    GOLDEN(&Plane::isCoincidentWith),
    GOLDEN(&Plane::isEquivalent),
    GOLDEN(&Plane::getHessianNormalFormConstant),
    GOLDEN(&Plane::cutLineSegment),
    GOLDEN(&Plane::projectToPlane),
    GOLDEN(&Plane::projectToPlaneOnViewLine),
    GOLDEN(&Plane::operator*=),
    GOLDEN(s_projPointOnLine),
    GOLDEN_AS("getBaricentricCoordinates",
              [](double tol, double const *p, double const *corners, double *out, int &degenerate) {
                  getBaricentricCoordinates(tol, p, reinterpret_cast<double const(*)[2]>(corners),
                                            out, degenerate);
              }),
    GOLDEN_AS("mgArc_c of angles",
              [](U n, P centre, double r, double a, double b) { return Arc(n, centre, r, a, b); }),
    GOLDEN(&Arc::isValid),
    GOLDEN(&Arc::convertToOglAngle),
    GOLDEN(&Cone::operator*=),
    GOLDEN(&Cone::projectPointOnAxis),
    GOLDEN_AS("mgCylinder_c()", [] { return Cylinder(); }),
    GOLDEN(&Cylinder::isEquivalent),
    GOLDEN(&Cylinder::pointPerp)};

std::vector<Row> const trigonometric = {
    GOLDEN(interLine),
    GOLDEN_AS("mgArc_c of points", [](U n, P centre, P a, P b) { return Arc(n, centre, a, b); }),
    GOLDEN(&Arc::getStartPoint),
    GOLDEN(&Arc::getEndPoint),
    GOLDEN(&Arc::iGetAngle),
    GOLDEN(&Arc::getStartAngleInDegrees),
    GOLDEN(&Arc::getEndAngleInDegrees),
    GOLDEN(&Arc::getOglStartAngle),
    GOLDEN(&Arc::getOglSweepAngle),
    GOLDEN(&Cone::pointPerp),
    GOLDEN(&Cone::extremePts),
    GOLDEN(&Cone::transformRadiusAtRoot)};

} // namespace

Rows boundsRows() { return {exact, trigonometric}; }

} // namespace golden
