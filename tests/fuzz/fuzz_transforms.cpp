// SPDX-License-Identifier: MIT
// Transforms of any numbers: operations on arrays agree with the loop, and for everyday numbers
// inverses, angles and factories do what they say.

#include "fuzz.h"

namespace {

void checkBulk(Input &in, mgXform_c const &by) {
    mg_SetUseVectorUnits(in.flip());
    std::vector<P> points(static_cast<std::size_t>(in.count()));
    for (P &p : points) p = in.triple<P>();
    std::vector<P> moved = points;
    {
        TimeLimit const limit;
        mg_TransformPoints(moved.data(), static_cast<int>(moved.size()), by);
    }
    for (std::size_t i = 0; i < points.size(); ++i) CHECK(same(moved[i], points[i] * by));

    constexpr int kForms = 9;
    mgXform_c one[kForms], each[kForms], loop[kForms];
    for (int i = 0; i < kForms; ++i) one[i] = each[i] = in.placement();
    std::copy(one, one + kForms, loop);
    mg_MultiplyXforms(one, kForms, by);
    mg_MultiplyXforms(each, kForms, one);
    for (int i = 0; i < kForms; ++i) {
        loop[i] *= by;
        CHECK(same(one[i], loop[i]));
    }
}

/// A transform that is an everyday similarity.
void checkSimilarity(mgXform_c const &x, P const &p) {
    double const size = 1.0 + (p - P()).len() + x.translation().len() / x.scaling();
    CHECK(isNear(p * x * x.inverse(), p, 1e-7 * size));
    CHECK(std::fabs((x.translation() * x).len() - x.translation().len() * x.scaling())
          <= 1e-7 * size * x.scaling());
    double gl[16];
    x.getGLData(gl);
    mgXform_c const read = mgXform_c::createFromGLData(gl);
    for (int k = 0; k < 9; ++k) CHECK(std::fabs(read.rotation()[k] - x.rotation()[k]) < 1e-11);

    double a1 = 0.0, a2 = 0.0, a3 = 0.0;
    if (x.getThreeAnglesNew(a1, a2, a3) == 0) return;
    CHECK(-1e-11 <= std::min(a1, a3) && std::max(a1, a3) < 2 * kPi && std::fabs(a2) <= kPi / 2);
    mgMatrix_c const m = x.rotation(), r = mg_RotationMatrix(a1, U(0, 0, 1), 0)
                                           * mg_RotationMatrix(a2, U(0, 1, 0), 0)
                                           * mg_RotationMatrix(a3, U(1, 0, 0), 0);
    bool const isSmall = std::fabs(m(1, 0)) <= 6e-7 && std::fabs(m(2, 1)) <= 6e-7;
    for (int const k : {0, 3, 7, 8}) CHECK(isSmall || std::fabs(m[k] - r[k]) < 2e-6);
}

void checkFactories(Input &in) {
    P const p1 = in.triple<P>(), p2 = in.triple<P>();
    U const u1 = in.direction(), u2 = in.direction();
    V const v1 = in.triple<V>(), v2 = in.triple<V>();
    int const flag = in.below(3), far = 1 + flag;
    double const number = in.number();
    mgPlane_c const plane(p2, u2);
    mgXform_c const carriers[] = {
        mg_PointVectorXform(p1, p2, u1, u2, flag), mg_PointVecScaleXform(p1, p2, v1, v2, number),
        mg_PointAngleXform(p1, p2, number, v1), mg_PlaneToPlane(p1, v1, p2, v2)};
    mgXform_c const mirror = mg_PlaneReflectionXform(plane);
    mgXform_c const frames[] = {
        mg_CoordinateXform(p1, u1, u2),         mg_CoordinateXformXY(p1, u1, u2, flag),
        mg_CoordinateXformXZ(p1, u1, u2, flag), mg_CoordinateXformYZ(p1, u1, u2, flag),
        mg_CoordinateXformLookAt(p1, u1),       mg_RotateAtPoint(p1, number, v1, 0.0)};
    mgXform_c const view = in.placement();
    P ray;
    U dir;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, p1, flag, ray, dir, isCamera, nullptr);
    mg_ZoomToPosition(p1, p2, ray, view, number),
        mg_ZoomBoxToBox({far, 2}, {3, -far}, p1, p2, view, number);
    if (!in.isTame()) return;
    double const size = 1.0 + dist(p1, P()) + dist(p2, P());
    for (mgXform_c const &x : carriers) CHECK(isNear(p1 * x, p2, 1e-6 * size));
    CHECK(isNear(p1 * mirror * mirror, p1, 1e-9 * size));
    CHECK(isNear(p1 * frames[5], p1, 1e-6 * size));
    bool const isFrame = (u1 * u2).len() > 1e-3;
    for (mgXform_c const &x : frames)
        for (int k = 0; k < 9 && isFrame && !u1.isNull(); k += 3)
            CHECK(isUnit({x.rotation()[k], x.rotation()[k + 1], x.rotation()[k + 2]}));
}

} // namespace

void fuzzOne(Input &in) {
    mgXform_c const a = in.placement(), b = in.placement(), copy(a), copyOfCopy(copy);
    CHECK(same(copy, copyOfCopy));
    mgXform_c product(a);
    product *= b;
    CHECK(same(mgXform_c(product), a * b));
    CHECK(!(in.isTame() && !a.equals(a)));
    double a1 = 0.0, a2 = 0.0, a3 = 0.0;
    a.getThreeAngles(a1, a2, a3);

    P const p = in.triple<P>();
    if (in.isTame() && 1e-3 < a.scaling() && a.scaling() < 1e3) checkSimilarity(a, p);
    checkBulk(in, b);
    checkFactories(in);

    double const scales[] = {in.number(), in.number(), in.number()};
    double out[3] = {1.0, 1.0, 1.0};
    mgGenXform_c general(a);
    bool const isSet = general.set(&b, scales) != 0;
    if (isSet) std::copy(scales, scales + 3, out);
    P expected = p;
    if (isSet) expected *= b.inverse();
    expected.set(expected.x() * out[0], expected.y() * out[1], expected.z() * out[2]);
    if (isSet) expected *= mgXform_c(b);
    expected *= mgXform_c(a);
    if (in.isTame() && 1e-3 < b.scaling() && b.scaling() < 1e3)
        CHECK(isNear(general * p, expected, 1e-4 * (1.0 + (expected - P()).len())));
    double gl[16];
    general.getGenGLData(gl);
}
