// SPDX-License-Identifier: MIT
// Boxes of any numbers, united, cut, moved and asked: each answer is the one that its rule gives,
// and no point gets lost. Validity, unions and growth have the bits of a literal form of their
// rules, with all divisions, roots and loops; the library gets them at lower cost.

#include "fuzz.h"

namespace {

/// The members of a box, in their order.
struct LiteralBox {
    P centre, high, low;
    double radius;

    explicit LiteralBox(mgBBox_c const &b) { std::memcpy(static_cast<void *>(this), &b, sizeof b); }

    bool isSet() const {
        return 0 <= radius && low[0] <= high[0] && low[1] <= high[1] && low[2] <= high[2];
    }

    bool isValid() const {
        if (!isSet()) return false;
        double const millions = radius * 1e-06;
        double tol = 1e-08;
        int n = millions < 2147483647.0 ? static_cast<int>(millions) : 2147483647;
        for (double power = 10; n > 0; n /= 10, power *= 10) tol = power * 1e-08;
        P nearest;
        for (int i = 0; i < 3; ++i) {
            double const c = centre[i], reach = tol + radius;
            nearest[i] = c < low[i] ? low[i] - c : c <= high[i] ? 0 : high[i] - c;
            if (std::fabs(c / tol) >= 1e13) continue;
            if (!(std::fabs(low[i] - c) <= reach && std::fabs(high[i] - c) <= reach)) return false;
        }
        return (nearest - P()).sqlen() <= radius * radius * 1.00000001 + 1e-08
               && radius * radius * 0.99999999 - 1e-08 <= farthestSq();
    }

    double farthestSq() const {
        V const toHigh = high - centre, toLow = low - centre;
        P farthest;
        for (int i = 0; i < 3; ++i)
            farthest[i] = std::fabs(toHigh[i]) >= std::fabs(toLow[i]) ? toHigh[i] : toLow[i];
        return (farthest - P()).sqlen();
    }

    void takeSphereFromCorners() {
        centre = (low + high) * 0.5;
        radius = 0.5 * (high - low).len();
    }

    void shrinkSphere() {
        double const s = farthestSq(), sq = radius * radius;
        if (s + 5e-09 < sq || (radius > 1e-10 && s * 1.000000005 < sq)) takeSphereFromCorners();
    }

    void unite(P const &p) {
        if (!isValid()) {
            low = high = p;
            return takeSphereFromCorners();
        }
        for (int i = 0; i < 3; ++i) { // NaN replaces no corner
            if (p[i] < low[i]) low[i] = p[i];
            if (p[i] > high[i]) high[i] = p[i];
        }
        V const offset = p - centre;
        double const newRadius = (radius + offset.len()) * 0.5;
        if (!(radius < newRadius)) return;
        centre = centre + offset * ((newRadius - radius) / offset.len());
        radius = newRadius;
        shrinkSphere();
    }

    void grow(double d) {
        radius += d;
        bool const stays = radius >= 0;
        for (int i = 0; i < 3; ++i) {
            low[i] = stays ? low[i] - d : 1;
            high[i] = stays ? high[i] + d : -1;
            if (stays && d < 0 && high[i] < low[i]) low[i] = high[i] = (high[i] + low[i]) * 0.5;
        }
        if (!stays) radius = -2;
        if (stays && d < 0) shrinkSphere();
    }
};

/// Boxes, points and growths at the thresholds of the rules.
struct Cases {
    explicit Cases(Input &input) : in(input), kind(in.below(6)) {
        // Near these sizes squares underflow or overflow, tolerances matter and decades change.
        double const sizes[] = {1, 1, 1e-4, 1e-8, 1e-10, 1e-145, 1e-154, 1e154, 1e6, 1e15};
        size = sizes[in.below(10)] * (0.5 + 1.5 * unit());
    }
    double unit() { return in.word() / 65536.0; }
    double number() {
        if (kind == 0) return in.number();
        if (kind == 1) return (in.below(7) - 3) * size; // ties
        if (kind == 2) return (in.flip() ? 1.0 : -1.0) * std::pow(10.0, 628 * unit() - 320);
        return ((kind == 3 ? 1e7 : 0.0) + 2 * unit() - 1) * size;
    }
    double nudged(double x) {
        double const by = 6e-8 * unit() - 3e-8,
                     all[] = {std::nextafter(x, kInfinity), std::nextafter(x, -kInfinity),
                              x * (0.5 + 1.5 * unit()), x * (1.0 + by), x + by};
        return all[in.below(5)];
    }
    P any() {
        double const x = number(), y = number();
        return {x, y, number()};
    }
    /// In two of three cases the last digits of a few numbers decide whether it is valid.
    mgBBox_c box() {
        P const a = any(), b = any();
        mgBBox_c box(a, b);
        if (in.below(4) == 0) box = mgBBox_c(a, std::fabs(b.x()));
        for (int changes = in.below(3); changes > 0; --changes) {
            double all[10];
            double &changed = all[std::min(in.below(14), 9)]; // most often the radius
            std::memcpy(all, &box, sizeof all);
            changed = in.below(8) == 0 ? number() : nudged(changed);
            std::memcpy(static_cast<void *>(&box), all, sizeof all);
        }
        return in.below(8) == 0 ? mgBBox_c() : box;
    }
    P point(LiteralBox const &b) {
        int const at = in.below(6);
        P p = at == 0 ? b.centre : any();
        for (int i = 0; i < 3 && at == 1; ++i) p[i] = in.flip() ? b.low[i] : b.high[i];
        if (at == 2) p = b.centre + in.direction() * nudged(b.radius);
        if (at == 3) p.set(b.centre[0] + nudged(b.radius), b.centre[1], b.centre[2]);
        return p;
    }
    double growth(double radius) {
        double const all[] = {0.0, -1e-300, number(), nudged(-radius), nudged(radius)};
        return all[in.below(5)];
    }

    Input &in;
    int const kind;
    double size;
};

/// Validity, unions with points and growth, to the bit.
void checkLiterally(Input &in) {
    Cases cases(in);
    for (int round = 0; round < 40; ++round) {
        mgBBox_c box = cases.box();
        LiteralBox literal(box);
        for (int length = 1 + in.below(12); length > 0; --length) {
            CHECK(literal.isValid() == (box.isValid() != 0));
            if (in.below(8) == 0) {
                double const d = cases.growth(literal.radius);
                literal.grow(d), box += d;
            } else {
                P const p = cases.point(literal);
                literal.unite(p), box |= p;
            }
            CHECK(same(literal, LiteralBox(box)));
        }
    }
}

void checkCloud(Input &in) {
    Points const points = in.points(1 + in.count());
    mgBBox_c const start = in.byte() < 200 ? mgBBox_c() : in.box();
    mgBBox_c box = start, loop = start;
    mg_SetUseVectorUnits(in.flip());
    timed([&] { return mg_BoundPoints(points.data(), static_cast<int>(points.size()), box), 0; });
    for (P const &p : points) loop |= p;
    mg_BoundPoints(nullptr, -in.below(2), box);
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
    checkLiterally(in);
}
