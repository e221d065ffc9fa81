// SPDX-License-Identifier: MIT
// Boxes of any numbers, united, cut, moved and asked: each answer is the one that its rule gives,
// and no point gets lost.

#include "fuzz.h"

namespace {

void checkCloud(Input &in) {
    Points const points = in.points(1 + in.count());
    mgBBox_c const start = in.byte() < 200 ? mgBBox_c() : in.box();
    mgBBox_c box = start, loop = start;
    mg_SetUseVectorUnits(in.flip());
    timed([&] { return mg_BoundPoints(points.data(), static_cast<int>(points.size()), box), 0; });
    for (P const &p : points) loop |= p;
    mgXform_c const x(in.placement());
    mgBBox_c moved = box;
    moved *= x;
    CHECK(same(box, loop) && (!in.isTame() || box.isValid()));
    if (!in.isTame() || start.isSet()) return;
    double const size = 1.0 + box.sphRadius() + dist(box.sphCenter(), P()) + x.translation().len();
    bool const canMove = 1e-3 < x.scaling() && x.scaling() < 1e3 && box.minDimension() > 1e-6;
    auto const encloses = [](mgBBox_c const &b, P const &p, double tol) {
        return b.containsPoint(p, tol) != 0 && dist(p, b.sphCenter()) <= b.sphRadius() + tol;
    };
    for (P const &p : points) {
        CHECK(box.containsPoint(p, 0.0) && encloses(box, p, 1e-9 * size));
        CHECK(!canMove || encloses(moved, p * x, 1e-7 * size * (1.0 + x.scaling())));
    }
}

void checkAnswers(Input &in, mgBBox_c const &box) {
    P const p = in.triple<P>(), low = box.low(), high = box.high(), nearest = box.pointPerp(p);
    double const tol = in.number(), reach = tol < 1e-8 ? 1e-8 : tol;
    bool isInside = true;
    for (int k = 0; k < 3; ++k) {
        isInside = isInside && !(low[k] - p[k] > tol) && !(p[k] - high[k] > tol);
        CHECK(nearest[k] == (!(p[k] > low[k]) ? low[k] : std::min(p[k], high[k])));
    }
    CHECK(!box.isSet() || box.containsPoint(p, tol) == (isInside ? 1 : 0));
    CHECK(box.isSet() || (!box.isValid() && box.minDimension() == -1.0 && box.width() == 0.0));

    // A plane clashes when corners are on both sides or one is near.
    mgPlane_c const plane(p, in.direction());
    double least = 0.0, most = 0.0;
    box.limitRay(p, plane.normal(), &least, &most);
    bool const isClear = std::min(std::fabs(least - reach), std::fabs(most + reach)) > 1e-9;
    if (in.isTame() && box.isSet() && isClear)
        CHECK(box.clash(plane, tol) == (least < reach && most > -reach));
}

void checkPairs(Input &in, mgBBox_c const &a, mgBBox_c const &b) {
    mgBBox_c both = a, common = a;
    both |= b;
    common &= b;
    for (int k = 0; k < 3 && a.isSet() && b.isValid(); ++k) {
        double const low[] = {a.low()[k], b.low()[k]}, high[] = {a.high()[k], b.high()[k]};
        double const from = std::max(low[0], low[1]), to = std::min(high[0], high[1]);
        CHECK(!both.isSet() || both.low()[k] == std::min(low[0], low[1]));
        CHECK(!both.isSet() || both.high()[k] == std::max(high[0], high[1]));
        CHECK(!common.isSet() || common.low()[k] == std::min(from, to));
        CHECK(!common.isSet() || common.high()[k] == std::max(from, to));
    }
    P const p = in.triple<P>(), q = in.triple<P>();
    mgXform_c const x = in.placement();
    double const grow = in.number();
    double out[4];
    mg_FindBBox(p, q, x, out, grow);
    mgBBox_c moved(p, q);
    moved *= x;
    moved += grow;
    if (moved.isSet()) CHECK(out[0] == moved.low().x() && out[3] == moved.high().y());
    a.containsBBox(&b, grow);
}

} // namespace

void fuzz(Input &in) {
    mgBBox_c const a = in.box(), b = in.box();
    checkAnswers(in, a);
    checkPairs(in, a, b);
    checkCloud(in);
}
