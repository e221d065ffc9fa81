// SPDX-License-Identifier: MIT
// Rows of the golden file: vectors, points, matrices, transforms, perspective.

#include "golden/golden.h"

#include <memory>

namespace golden {

Table transformRows() {
    return joined({
        GOLDEN_AS("axes", [] { return U::xAxis() + U::yAxis() + U::zAxis() + V::nullVector(); }),
        GOLDEN_OF(&V::isParallelTo, V const &),
        GOLDEN(&V::isPerpendicularTo, &V::isSameDirection, &V::isOppositeDirection),
        GOLDEN_OF(&V::isAlmostParallelTo, V const &),
        GOLDEN_OF(&V::isAlmostParallelTo, U const &),
        GOLDEN(&V::isOrthogonal, &V::dominantComponentIndex, &V::anyUnitNormal, &V::pullBack,
               &P::getParamOnLine, &P::mirror, &P::distToRay, &P::distToLine, &P::checkCollinear,
               &P::getPLUSrep, &P::getXrep, &P::xformByPerspInverse, &P::xformByPerspInverseVisible,
               &P::xformByPerspInversePlane, &P::xformByPerspInverseLine, mgUnitVectorDer,
               mg_getBasis, mg_PutParamInRange, mg_PutAngleInRange),
        GOLDEN_AS("mgMatrix_c(double[9], int)",
                  [](double const *m, bool orthonormalise) {
                      return M(*reinterpret_cast<double const(*)[9]>(m), orthonormalise);
                  }),
        GOLDEN_AS("mgMatrix_c(U, U, U)", [](U a, U b, U c) { return M(a, b, c); }),
        GOLDEN_AS("mgMatrix_c(int, U, U, U)",
                  [](int order, U a, U b, U c) { return M(order, a, b, c); }),
        GOLDEN(&M::operator+, &M::operator-, &M::operator+=, &M::operator==, &M::zero, &M::tensor,
               &M::getDeterminant, &M::transpose, &M::inverse, &M::isNearZero, &M::isNearIdentity,
               &M::normalize, &M::iValidateRepairOrthonormality, &M::getRotationAxis,
               &M::getEigensystem, &M::getMatrixFromEigs, &M::getNullspace),
        GOLDEN_AS("M * M", [](M const &a, M const &b) { return a * b; }),
        GOLDEN(mg_solveQuadratic, mgSolveQuadratic, mg_solveCubic, &M4::rigidTransform, &M4::vvt,
               &M4::getRotation, &M4::operator<, &M4::operator+, &M4::operator-, &M4::scale),
        GOLDEN_AS("M4 * M4", [](M4 const &a, M4 const &b) { return a * b; }),
        GOLDEN(&M4::transpose, &M4::inverse, &M4::getRotationAxis, &M4::isRigid, &M4::distTo,
               &M4::convertToMatrix, &Q::matrixToQuat, &Q::quatToMatrix),
        GOLDEN_AS("mgXform_c(U, U, V)", [](U z, U x, V origin) { return X(z, x, origin); }),
        GOLDEN_AS("a copy", [](X const &x) { return X(x); }),
        GOLDEN_SAME(&M4::operator==, &Q::operator==, &X::equals, &mgPerspInfo_c::operator==),
        GOLDEN_AS("X::isIdentity",
                  [](X const &x, bool isKept) {
                      X const identity;
                      return (isKept ? x : identity).isIdentity();
                  }),
        GOLDEN(&X::linearComponent, &X::getNearestAxis, &X::operator*=),
        GOLDEN_AS("X * X", [](X const &a, X const &b) { return a * b; }),
        GOLDEN(&X::inverse, &X::sameOrParallel, &X::iValidateRepairRotationMatrix,
               &X::iValidateRepairXForm, &X::getPerspectiveInfo, &X::addPerspectiveInfo,
               &X::deletePerspectiveInfo, &X::iCopyPerspectiveInfo, &X::iIsPerspectiveEqual),
        GOLDEN_AS(
            "mgXform_c::GetHelper",
            [](X const &x, mgXform_64BitHelper_c &out) { return x.GetHelper(out), x.GetHelper(); }),
        GOLDEN_OF(&X::getGLData, double *),
        GOLDEN_OF(&X::getGLData, float *),
        GOLDEN(&X::createFromGLData),
        GOLDEN_AS("a point times a transform", [](P &p, X const &x) { p *= x; }),
        GOLDEN_AS("a vector times a transform", [](V &v, X const &x) { v *= x; }),
        GOLDEN_AS("a direction times a transform", [](U &u, X const &x) { u *= x; }),
        GOLDEN(mg_RestoreXform, mg_TranslateXform),
        GOLDEN_OF(mg_ScaleXform, double),
        GOLDEN_OF(mg_ScaleXform, X, double),
        GOLDEN(mg_XReflectionXform, mg_YReflectionXform, mg_ZReflectionXform, mg_ReflectionXform,
               mg_PlaneReflectionXform, mg_CoordinateXform, mg_CoordinateXformXY,
               mg_CoordinateXformXZ, mg_CoordinateXformYZ, mg_CoordinateXformLookAt,
               mg_getModelSpaceViewRay, mg_ZoomToPosition, mg_ZoomBoxToBox, mg_TransformPoints),
        GOLDEN_OF(mg_MultiplyXforms, X *, int, X const &),
        GOLDEN_OF(mg_MultiplyXforms, X *, int, X const *),
        GOLDEN_AS("mgGenXform_c::create",
                  [](X const &placing, X const &body, double const *scales, mgGenXform_c &out) {
                      std::unique_ptr<mgGenXform_c> const made(
                          mgGenXform_c::create(&placing, &body, scales));
                      if (made != nullptr) out = *made;
                  }),
        GOLDEN(&mgGenXform_c::set, &mgGenXform_c::isScaleIdentity),
        GOLDEN_AS("mgGenXform_c * P", [](mgGenXform_c const &x, P const &p) { return x * p; }),
        GOLDEN(&mgGenXform_c::getGenGLData, &mgPerspInfo_c::getFocusPoint,
               &mgPerspInfo_c::doScreenPointPerspectiveDivision,
               &mgPerspInfo_c::doScreenPointInversePerspectiveDivision,
               &mgPerspInfo_c::moveScreenPointToNearClipPlane, &mgModelPerspInfo_c::getFocusPoint),
        GOLDEN_AS(
            "mgModelPerspInfo_c(x, y, z, d)",
            [](double x, double y, double z, double d) { return mgModelPerspInfo_c(x, y, z, d); }),
        trigonometric({
            GOLDEN_AS("V::isParallelTo(V const &, double)",
                      [](V const &a, V const &b, double k) {
                          return a.isParallelTo(b, 0.1) + 2 * a.isParallelTo(k * a, 0.1);
                      }),
            GOLDEN_SAME(&V::isParallelToTol),
            GOLDEN_OF(mg_AngleBetween, V const &, V const &),
            GOLDEN_OF(mg_AngleBetween, V const &, V const &, V const &),
            GOLDEN(mg_AngleBetween2d, mg_getAngleFromVectors, mg_RotationMatrix,
                   &M::getRotationAngle),
            GOLDEN_AS("mg_GoodEqu3",
                      [](double a, double b, double c, double *roots) {
                          a *= a, b *= b, c *= c; // the roots
                          return mg_GoodEqu3(a + b + c, a * b + b * c + c * a, a * b * c, roots);
                      }),
            GOLDEN(&M4::rotationMatrix, &M4::interpolate, &M4::getRotationAngle),
            GOLDEN_AS("mgQuaternion_c::quatSlerp",
                      [](M const &a, M const &b, double t, Q &out) {
                          Q from, to;
                          from.matrixToQuat(a), to.matrixToQuat(b);
                          out.quatSlerp(from, to, std::fabs(t) / 2);
                      }),
            GOLDEN_AS(
                "mg_RotateXform",
                [](double angle, V const &axis) { return mg_RotateXform(angle, axis, 1e-9); }),
            GOLDEN(mg_RotateAtPoint, mg_PointVectorXform, mg_PointVecScaleXform, mg_PointAngleXform,
                   mg_PlaneToPlane, &X::getThreeAngles, &X::getThreeAnglesNew),
        }),
    });
}

} // namespace golden
