// SPDX-License-Identifier: MIT
// Rows of the golden file: vectors, points, matrices, transforms, perspective.

#include "golden/golden.h"

#include <memory>

namespace golden {

namespace {

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using M = mgMatrix_c;
using M4 = mgMatrix4_c;
using X = mgXform_c;
using Q = mgQuaternion_c;

std::vector<Row> const exact = {
    GOLDEN_AS("axes", [] { return U::xAxis() + U::yAxis() + U::zAxis() + V::nullVector(); }),
    GOLDEN_OF(&V::isParallelTo, V const &),
    GOLDEN(&V::isPerpendicularTo),
    GOLDEN(&V::isSameDirection),
    GOLDEN(&V::isOppositeDirection),
    GOLDEN_OF(&V::isAlmostParallelTo, V const &),
    GOLDEN_OF(&V::isAlmostParallelTo, U const &),
    GOLDEN(&V::isOrthogonal),
    GOLDEN(&V::dominantComponentIndex),
    GOLDEN(&V::anyUnitNormal),
    GOLDEN(&V::pullBack),
    GOLDEN(&P::getParamOnLine),
    GOLDEN(&P::mirror),
    GOLDEN(&P::distToRay),
    GOLDEN(&P::distToLine),
    GOLDEN(&P::checkCollinear),
    GOLDEN(&P::getPLUSrep),
    GOLDEN(&P::getXrep),
    GOLDEN(&P::xformByPerspInverse),
    GOLDEN(&P::xformByPerspInverseVisible),
    GOLDEN(&P::xformByPerspInversePlane),
    GOLDEN(&P::xformByPerspInverseLine),
    GOLDEN(mgUnitVectorDer),
    GOLDEN(mg_getBasis),
    GOLDEN(mg_PutParamInRange),
    GOLDEN(mg_PutAngleInRange),

    GOLDEN_AS("mgMatrix_c(double[9], int)",
              [](double const *m, bool orthonormalise) {
                  return M(*reinterpret_cast<double const(*)[9]>(m), orthonormalise);
              }),
    GOLDEN_AS("mgMatrix_c(U, U, U)", [](U a, U b, U c) { return M(a, b, c); }),
    GOLDEN_AS("mgMatrix_c(int, U, U, U)",
              [](int order, U a, U b, U c) { return M(order, a, b, c); }),
    GOLDEN(&M::operator+),
    GOLDEN(&M::operator-),
    GOLDEN(&M::operator+=),
    GOLDEN(&M::operator==),
    GOLDEN(&M::zero),
    GOLDEN(&M::tensor),
    GOLDEN(&M::getDeterminant),
    GOLDEN(&M::transpose),
    GOLDEN(&M::inverse),
    GOLDEN(&M::isNearZero),
    GOLDEN(&M::isNearIdentity),
    GOLDEN(&M::normalize),
    GOLDEN(&M::iValidateRepairOrthonormality),
    GOLDEN(&M::getRotationAxis),
    GOLDEN(&M::getEigensystem),
    GOLDEN(&M::getMatrixFromEigs),
    GOLDEN(&M::getNullspace),
    GOLDEN_AS("M * M", [](M const &a, M const &b) { return a * b; }),
    GOLDEN(mg_solveQuadratic),
    GOLDEN(mgSolveQuadratic),
    GOLDEN(mg_solveCubic),

    GOLDEN(&M4::rigidTransform),
    GOLDEN(&M4::vvt),
    GOLDEN(&M4::getRotation),
    GOLDEN(&M4::operator==),
    GOLDEN(&M4::operator<),
    GOLDEN(&M4::operator+),
    GOLDEN(&M4::operator-),
    GOLDEN(&M4::scale),
    GOLDEN_AS("M4 * M4", [](M4 const &a, M4 const &b) { return a * b; }),
    GOLDEN(&M4::transpose),
    GOLDEN(&M4::inverse),
    GOLDEN(&M4::getRotationAxis),
    GOLDEN(&M4::isRigid),
    GOLDEN(&M4::distTo),
    GOLDEN(&M4::convertToMatrix),
    GOLDEN(&Q::operator==),
    GOLDEN(&Q::matrixToQuat),
    GOLDEN(&Q::quatToMatrix),

    GOLDEN_AS("mgXform_c(U, U, V)", [](U z, U x, V origin) { return X(z, x, origin); }),
    GOLDEN_AS("a copy", [](X const &x) { return X(x); }),
    GOLDEN(&X::isIdentity),
    GOLDEN(&X::linearComponent),
    GOLDEN(&X::getNearestAxis),
    GOLDEN(&X::operator*=),
    GOLDEN_AS("X * X", [](X const &a, X const &b) { return a * b; }),
    GOLDEN(&X::inverse),
    GOLDEN(&X::equals),
    GOLDEN(&X::sameOrParallel),
    GOLDEN(&X::iValidateRepairRotationMatrix),
    GOLDEN(&X::iValidateRepairXForm),
    GOLDEN(&X::getPerspectiveInfo),
    GOLDEN(&X::addPerspectiveInfo),
    GOLDEN(&X::deletePerspectiveInfo),
    GOLDEN(&X::iCopyPerspectiveInfo),
    GOLDEN(&X::iIsPerspectiveEqual),
    GOLDEN_AS(
        "mgXform_c::GetHelper",
        [](X const &x, mgXform_64BitHelper_c &out) { return x.GetHelper(out), x.GetHelper(); }),
    GOLDEN_OF(&X::getGLData, double *),
    GOLDEN_OF(&X::getGLData, float *),
    GOLDEN(&X::createFromGLData),
    GOLDEN_AS("a point times a transform", [](P &p, X const &x) { p *= x; }),
    GOLDEN_AS("a vector times a transform", [](V &v, X const &x) { v *= x; }),
    GOLDEN_AS("a direction times a transform", [](U &u, X const &x) { u *= x; }),

    GOLDEN(mg_RestoreXform),
    GOLDEN(mg_TranslateXform),
    GOLDEN_OF(mg_ScaleXform, double),
    GOLDEN_OF(mg_ScaleXform, X, double),
    GOLDEN(mg_XReflectionXform),
    GOLDEN(mg_YReflectionXform),
    GOLDEN(mg_ZReflectionXform),
    GOLDEN(mg_ReflectionXform),
    GOLDEN(mg_PlaneReflectionXform),
    GOLDEN(mg_CoordinateXform),
    GOLDEN(mg_CoordinateXformXY),
    GOLDEN(mg_CoordinateXformXZ),
    GOLDEN(mg_CoordinateXformYZ),
    GOLDEN(mg_CoordinateXformLookAt),
    GOLDEN(mg_getModelSpaceViewRay),
    GOLDEN(mg_ZoomToPosition),
    GOLDEN(mg_ZoomBoxToBox),
    GOLDEN(mg_TransformPoints),
    GOLDEN_OF(mg_MultiplyXforms, X *, int, X const &),
    GOLDEN_OF(mg_MultiplyXforms, X *, int, X const *),

    GOLDEN_AS("mgGenXform_c::create",
              [](X const &placing, X const &body, double const *scales, mgGenXform_c &out) {
                  std::unique_ptr<mgGenXform_c> const made(
                      mgGenXform_c::create(&placing, &body, scales));
                  if (made != nullptr) out = *made;
              }),
    GOLDEN(&mgGenXform_c::set),
    GOLDEN(&mgGenXform_c::isScaleIdentity),
    GOLDEN_AS("mgGenXform_c * P", [](mgGenXform_c const &x, P const &p) { return x * p; }),
    GOLDEN(&mgGenXform_c::getGenGLData),

    GOLDEN(&mgPerspInfo_c::getFocusPoint),
    GOLDEN(&mgPerspInfo_c::operator==),
    GOLDEN(&mgPerspInfo_c::doScreenPointPerspectiveDivision),
    GOLDEN(&mgPerspInfo_c::doScreenPointInversePerspectiveDivision),
    GOLDEN(&mgPerspInfo_c::moveScreenPointToNearClipPlane),
    GOLDEN(&mgModelPerspInfo_c::getFocusPoint),
    GOLDEN_AS("mgModelPerspInfo_c(x, y, z, d)", [](double x, double y, double z, double d) {
        return mgModelPerspInfo_c(x, y, z, d);
    })};

std::vector<Row> const trigonometric = {
    GOLDEN_OF(&V::isParallelTo, V const &, double),
    GOLDEN(&V::isParallelToTol),
    GOLDEN_OF(mg_AngleBetween, V const &, V const &),
    GOLDEN_OF(mg_AngleBetween, V const &, V const &, V const &),
    GOLDEN(mg_AngleBetween2d),
    GOLDEN(mg_getAngleFromVectors),
    GOLDEN(mg_RotationMatrix),
    GOLDEN(&M::getRotationAngle),
    GOLDEN_AS("mg_GoodEqu3",
              [](double a, double b, double c, double *roots) {
                  a *= a, b *= b, c *= c; // the roots
                  return mg_GoodEqu3(a + b + c, a * b + b * c + c * a, a * b * c, roots);
              }),
    GOLDEN(&M4::rotationMatrix),
    GOLDEN(&M4::interpolate),
    GOLDEN(&M4::getRotationAngle),
    GOLDEN_AS("mgQuaternion_c::quatSlerp",
              [](M const &a, M const &b, double t, Q &out) {
                  Q from, to;
                  from.matrixToQuat(a), to.matrixToQuat(b);
                  out.quatSlerp(from, to, std::fabs(t) / 2);
              }),
    GOLDEN_AS("mg_RotateXform",
              [](double angle, V const &axis) { return mg_RotateXform(angle, axis, 1e-9); }),
    GOLDEN(mg_RotateAtPoint),
    GOLDEN(mg_PointVectorXform),
    GOLDEN(mg_PointVecScaleXform),
    GOLDEN(mg_PointAngleXform),
    GOLDEN(mg_PlaneToPlane),
    GOLDEN(&X::getThreeAngles),
    GOLDEN(&X::getThreeAnglesNew)};

} // namespace

Rows transformRows() { return {exact, trigonometric}; }

} // namespace golden
