// SPDX-License-Identifier: MIT
// Boxes of any numbers, united, cut, moved and asked: each answer is the one that its rule gives,
// and no point gets lost.

#include "fuzz.h"

namespace {

/// Is p in the corners and in the sphere, up to rounding?
bool encloses(mgBBox_c const &box, P const &p, double tol) {
    return box.containsPoint(p, tol) != 0 && dist(p, box.sphCenter()) <= box.sphRadius() + tol;
}

void checkCloud(Input &in) {
    std::vector<P> points(static_cast<std::size_t>(1 + in.count()));
    for (P &p : points) p = in.triple<P>();
    mgBBox_c const start = in.byte() < 200 ? mgBBox_c() : in.box();
    mgBBox_c box = start, loop = start;
    mg_SetUseVectorUnits(in.flip());
    {
        TimeLimit const limit;
        mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
    }
    for (P const &p : points) loop |= p;
    CHECK(same(box, loop));
    mgXform_c const x = in.placement();
    mgBBox_c moved = box;
    moved *= x;
    if (!in.isTame() || start.isSet()) return;
    CHECK(box.isValid());
    double const size = 1.0 + box.sphRadius() + dist(box.sphCenter(), P()) + x.translation().len();
    bool const isScaled = 1e-3 < x.scaling() && x.scaling() < 1e3 && box.minDimension() > 1e-6;
    for (P const &p : points) {
        CHECK(box.containsPoint(p, 0.0) && encloses(box, p, 1e-9 * size));
        CHECK(!isScaled || encloses(moved, p * mgXform_c(x), 1e-7 * size * (1.0 + x.scaling())));
    }
}

void checkAnswers(Input &in, mgBBox_c const &box) {
    P const p = in.triple<P>(), low = box.low(), high = box.high(), nearest = box.pointPerp(p);
    double const tol = in.number();
    bool isInside = true;
    for (int k = 0; k < 3; ++k) {
        isInside = isInside && !(low[k] - p[k] > tol) && !(p[k] - high[k] > tol);
        CHECK(nearest[k] == (!(p[k] > low[k]) ? low[k] : p[k] > high[k] ? high[k] : p[k]));
    }
    CHECK(!box.isSet() || box.containsPoint(p, tol) == (isInside ? 1 : 0));
    CHECK(box.isSet() || (!box.isValid() && box.minDimension() == -1.0 && box.width() == 0.0));
    CHECK(box.maxDimension() >= box.minDimension() || std::isnan(box.maxDimension()));

    // A plane clashes when corners are on both sides or one is near.
    mgPlane_c const plane(p, in.direction());
    double least = kInfinity, most = -kInfinity;
    box.limitRay(p, plane.normal(), &least, &most);
    double const reach = tol < 1e-8 ? 1e-8 : tol;
    if (in.isTame() && box.isSet()
        && std::min(std::fabs(least - reach), std::fabs(most + reach)) > 1e-9)
        CHECK(box.clash(plane, tol) == (least < reach && most > -reach));
}

void checkPairs(Input &in, mgBBox_c const &a, mgBBox_c const &b) {
    mgBBox_c both = a, common = a;
    both |= b;
    common &= b;
    for (int k = 0; k < 3 && a.isSet() && b.isValid(); ++k) {
        CHECK(both.low()[k] == std::min(a.low()[k], b.low()[k]) || !both.isSet());
        CHECK(both.high()[k] == std::max(a.high()[k], b.high()[k]) || !both.isSet());
        double const from = std::max(a.low()[k], b.low()[k]),
                     to = std::min(a.high()[k], b.high()[k]);
        CHECK(!common.isSet()
              || (common.low()[k] == std::min(from, to) && common.high()[k] == std::max(from, to)));
    }
    CHECK(!in.isTame() || a.isSame(a, 1e-8) == 1);
    P const p = in.triple<P>(), q = in.triple<P>();
    mgXform_c const x = in.placement();
    double const grow = in.number();
    double out[4];
    mg_FindBBox(p, q, x, out, grow);
    mgBBox_c expected(p, q);
    expected *= x;
    expected += grow;
    if (expected.isSet())
        CHECK(same(P(out), P(expected.low().x(), expected.low().y(), expected.high().x())));
    expected *= grow;
    expected.translate(p - q);
    a.containsBBox(&b, grow);
}

void checkGeneralBox(Input &in) {
    P const corner = in.triple<P>(), p = in.triple<P>();
    U const d1 = in.direction(), d2 = in.direction(), normal = in.direction();
    double const l1 = in.number(), l2 = in.number(), l3 = in.number();
    mgGeneralBox_c const block(corner, d1, d2, l1, l2, l3);
    mgPlane_c const plane(p, normal);
    mgParallelogram_c shadow;
    mgBBox_c box;
    mgXform_c x;
    P low = corner, high = corner;
    bool const isValid = l1 > 0.0 && l2 > 0.0 && l3 > 0.0;
    CHECK(block.getBBoxAndXform(box, x) == isValid && block.isValid() == isValid);
    bool const isProjected = block.projectToPlane(plane, shadow);
    CHECK(!isProjected || isValid);
    CHECK(shadow.getExtremPts(d1, low, high) == isProjected);
    shadow.isPointInside(p);
    if (!isProjected || !in.isTame() || std::fabs(block.getBoxDir_v3() % normal) < 1e-3) return;
    double const size = 1e-9 * (1.0 + dist(low, high) + dist(low, p));
    CHECK(plane.isPointOn(low, size) && plane.isPointOn(high, size));
}

} // namespace

void fuzzOne(Input &in) {
    mgBBox_c const a = in.box(), b = in.box();
    checkAnswers(in, a);
    checkPairs(in, a, b);
    checkGeneralBox(in);
    checkCloud(in);
}
