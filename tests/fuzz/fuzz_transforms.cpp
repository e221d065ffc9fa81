// SPDX-License-Identifier: MIT
// Transforms of any numbers: operations on arrays agree with the loop, and for everyday numbers
// inverses, angles and factories do what they say.

#include "fuzz.h"

namespace {

void checkBulk(Input &in, mgXform_c const &by) {
    mg_SetUseVectorUnits(in.flip());
    Points const points = in.points(in.count());
    Points moved = points;
    timed([&] { return mg_TransformPoints(moved.data(), int(moved.size()), by), 0; });
    for (std::size_t i = 0; i < points.size(); ++i) CHECK(same(moved[i], points[i] * by));
    mgXform_c forms[9], loop[9];
    for (int i = 0; i < 9; ++i) loop[i] = forms[i] = in.placement();
    mg_MultiplyXforms(forms, 9, by), mg_MultiplyXforms(forms, 9, forms);
    for (int i = 0; i < 9; ++i) CHECK(same(forms[i], (loop[i] *= by, loop[i] *= loop[i])));
}

/// x is a similarity, of a scale of everyday size.
void checkSimilarity(mgXform_c const &x, P const &p) {
    double const size = 1.0 + dist(p, P()) + x.translation().len() / x.scaling();
    CHECK(dist(p * x * x.inverse(), p) <= 1e-7 * size);
    double a1 = 0.0, a2 = 0.0, a3 = 0.0;
    if (x.getThreeAnglesNew(a1, a2, a3) == 0) return;
    CHECK(-1e-11 <= std::min(a1, a3) && std::max(a1, a3) < 2 * kPi && std::fabs(a2) <= kPi / 2);
    mgMatrix_c const &m = x.rotation();
    mgMatrix_c const r = mg_RotationMatrix(a1, U(0, 0, 1), 0) * mg_RotationMatrix(a2, U(0, 1, 0), 0)
                         * mg_RotationMatrix(a3, U(1, 0, 0), 0);
    bool const isSmall = std::fabs(m(1, 0)) <= 6e-7 && std::fabs(m(2, 1)) <= 6e-7;
    for (int const k : {0, 3, 7, 8}) CHECK(isSmall || std::fabs(m[k] - r[k]) < 2e-6);
}

void checkFactories(Input &in) {
    P const p1 = in.triple<P>(), p2 = in.triple<P>();
    U const u1 = in.direction(), u2 = in.direction();
    V const v1 = in.triple<V>(), v2 = in.triple<V>();
    int const flag = in.below(3);
    double const number = in.number(), size = 1.0 + dist(p1, P()) + dist(p2, P());
    mgXform_c const mirror = mg_PlaneReflectionXform({p2, u2});
    mgXform_c const carriers[] = {
        mg_PointVectorXform(p1, p2, u1, u2, flag), mg_PointVecScaleXform(p1, p2, v1, v2, number),
        mg_PointAngleXform(p1, p2, number, v1), mg_PlaneToPlane(p1, v1, p2, v2)};
    mgXform_c const frames[] = {
        mg_CoordinateXform(p1, u1, u2), mg_CoordinateXformXY(p1, u1, u2, flag),
        mg_CoordinateXformXZ(p1, u1, u2, flag), mg_CoordinateXformYZ(p1, u1, u2, flag)};
    mgXform_c const view = in.placement(), zoom = mg_ZoomToPosition(p1, p2, p1, view, number);
    P ray;
    U axis;
    int isCamera = 0;
    mg_getModelSpaceViewRay(zoom, p1, flag, ray, axis, isCamera, nullptr);
    if (!in.isTame()) return;
    for (mgXform_c const &x : carriers) CHECK(dist(p1 * x, p2) <= 1e-6 * size);
    P const middle = interpolate(0.5, p1, p2), zoomed = P(p1.x(), p1.y(), 0) + view.translation();
    double const scale = std::fabs(view.scaling());
    if (1e-3 < number && number < 1e3 && scale < 1e3)
        CHECK(dist(middle * zoom, zoomed) <= 1e-7 * size * (1.0 + number) * (1.0 + scale));
    CHECK(dist(p1 * mirror * mirror, p1) <= 1e-9 * size);
    for (mgXform_c const &x : frames)
        CHECK((u1 * u2).len() < 1e-3 || (x.getIXAxis(&axis), isUnit(axis)));
}

} // namespace

void fuzz(Input &in) {
    mgXform_c const a = in.placement(), b = in.placement(), copy(a), copyOfCopy(copy);
    mgXform_c product(a);
    product *= b;
    CHECK(same(copy, copyOfCopy) && same(mgXform_c(product), a * b));
    double angle = 0.0;
    a.getThreeAngles(angle, angle, angle);
    P const p = in.triple<P>();
    if (in.isTame() && 1e-3 < a.scaling() && a.scaling() < 1e3) checkSimilarity(a, p);
    checkBulk(in, b);
    checkFactories(in);
    V const factors = in.triple<V>();
    mgGenXform_c general(a);
    if (general.set(&b, &factors[0]) == 0)
        CHECK(same(general * p, copy.isIdentity() ? p : p * copy));
}
