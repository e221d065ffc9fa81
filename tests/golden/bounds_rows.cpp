// SPDX-License-Identifier: MIT
// Rows of the golden file: boxes, lines, planes, arcs, cones.

#include "golden/golden.h"

namespace golden {

using Line = mgLine_c;
using Plane = mgPlane_c;
using Arc = mgArc_c;
using Cone = mgCone_c;
using Cylinder = mgCylinder_c;

Table boundsRows() {
    return joined({
        GOLDEN_OF(&Box::set, double const *),
        GOLDEN(&Box::set2Points, &Box::reset, &Box::maxBox, &Box::correctedMaxBox, &Box::isValid,
               &Box::diagonalLength, &Box::maxDimension, &Box::minDimension, &Box::pointPerp,
               &Box::isSame, &Box::translate),
        GOLDEN_SAME(&Box::operator==, &Box::containsBBox, &Line::isEquivalent,
                    &Plane::isCoincidentWith, &Cylinder::isEquivalent),
        GOLDEN_OF(&Box::operator+=, double),
        GOLDEN_OF(&Box::operator*=, double),
        GOLDEN_OF(&Box::operator*=, X const &),
        GOLDEN_OF(&Box::operator|=, P const &),
        GOLDEN_OF(&Box::operator|=, Box const &),
        GOLDEN(&Box::operator&=),
        GOLDEN_OF(&Box::clash, Plane const &, double),
        GOLDEN_OF(&Box::clash, Box const *, double),
        GOLDEN_OF(&Box::clash, Box const &, X const &, Box const &, X const &),
        GOLDEN_OF(&Box::containsPoint, P const &, double),
        GOLDEN_OF(&Box::containsPoint, P const &, double, int),
        GOLDEN_OF(&Box::clashLine, P const *, P const *),
        GOLDEN_OF(&Box::clashLine, P const *, P const *, double),
        GOLDEN(&Box::isRayHit, &Box::getFirstRayHit, &Box::limitRay),
        GOLDEN_AS("without the sphere",
                  [](Box a, Box const &b, X const &x) {
                      int const before = Box::SetUseSphereBoundingBox(0);
                      a *= x;
                      a |= b;
                      int const result = 2 * a.clash(&b, 0.1) + Box::GetUseSphereBoundingBox();
                      Box::SetUseSphereBoundingBox(before);
                      return result;
                  }),
        GOLDEN(mg_FindBBox, mg_BoundPoints),
        GOLDEN_OF(mg_FindClashes, Box const *, int, double, Pairs &),
        GOLDEN_OF(mg_FindClashes, Box const *, int, Box const *, int, double, Pairs &),
        GOLDEN_OF(mg_FindClashes, Box const *, X const *, int, Pairs &),
        GOLDEN(&mgGeneralBox_c::getBBoxAndXform, &mgGeneralBox_c::projectToPlane,
               &mgParallelogram_c::isPointInside, &mgParallelogram_c::getExtremPts,
               &Line::distToLine, &Line::snapPointToLine, &Line::operator*=, &Plane::isEquivalent,
               &Plane::getHessianNormalFormConstant, &Plane::cutLineSegment, &Plane::projectToPlane,
               &Plane::projectToPlaneOnViewLine, &Plane::operator*=, s_projPointOnLine),
        GOLDEN_AS(
            "getBaricentricCoordinates",
            [](double tol, double const *p, double const *corners, double *out, int &degenerate) {
                getBaricentricCoordinates(tol, p, reinterpret_cast<double const(*)[2]>(corners),
                                          out, degenerate);
            }),
        GOLDEN_AS("mgArc_c of angles", [](U n, P centre, double r, double a,
                                          double b) { return Arc(n, centre, r, a, b); }),
        GOLDEN(&Arc::isValid, &Arc::convertToOglAngle, &Cone::operator*=,
               &Cone::projectPointOnAxis),
        GOLDEN_AS("mgCylinder_c()", [] { return Cylinder(); }),
        GOLDEN(&Cylinder::pointPerp),
        trigonometric({
            GOLDEN(interLine),
            GOLDEN_AS("mgArc_c of points",
                      [](U n, P centre, P a, P b) { return Arc(n, centre, a, b); }),
            GOLDEN(&Arc::getStartPoint, &Arc::getEndPoint, &Arc::iGetAngle,
                   &Arc::getStartAngleInDegrees, &Arc::getEndAngleInDegrees, &Arc::getOglStartAngle,
                   &Arc::getOglSweepAngle, &Cone::pointPerp, &Cone::extremePts,
                   &Cone::transformRadiusAtRoot),
        }),
    });
}

} // namespace golden
