// SPDX-License-Identifier: MIT
// Validity, unions with points and growth of boxes against a literal form of their rules, with all
// divisions, roots and loops. The library gets the same bits at lower cost.

#include "bounds/boxes.h"

namespace {

using namespace common;

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

/// Boxes, points and numbers at the thresholds of the rules.
class Cases : public Random {
public:
    /// Chooses the kind and the size of the next cases.
    void change() {
        // Near these sizes squares underflow or overflow, tolerances matter and decades change.
        constexpr double kScales[] = {1, 1, 1e-4, 1e-8, 1e-10, 1e-145, 1e-154, 1e154, 1e6, 1e15};
        style_ = below(5);
        int const k = below(11);
        scale_ = k < 10 ? kScales[k] * uniform(0.5, 2.0) : ofMagnitude(-320.0, 307.0);
    }

    /// In two of three cases the last digits of a few numbers decide whether it is valid.
    mgBBox_c box() {
        mgBBox_c box(any(), any());
        if (below(4) == 0) box = mgBBox_c(any(), std::fabs(number()));
        for (int changes = below(3); changes > 0; --changes) {
            int const at = std::min(below(14), 9); // most often the radius
            box = withDouble(box, at, below(8) == 0 ? number() : nudged(doubleOf(box, at)));
        }
        return below(8) == 0 ? mgBBox_c() : box;
    }

    P point(LiteralBox const &b) {
        int const kind = below(6);
        P p = kind == 0 ? b.centre : any();
        for (int i = 0; i < 3 && kind == 1; ++i) p[i] = below(2) == 0 ? b.low[i] : b.high[i];
        if (kind == 2) p = b.centre + direction(*this) * nudged(b.radius);
        if (kind == 3) p.set(b.centre[0] + nudged(b.radius), b.centre[1], b.centre[2]);
        return p;
    }

    double growth(double radius) {
        double const all[] = {0.0, -1e-300, number(), nudged(-radius), nudged(radius)};
        return all[below(5)];
    }

private:
    P any() { return {number(), number(), number()}; }

    double number() {
        if (style_ == 0) return ofMagnitude(-320.0, 308.23);
        if (style_ == 1) return hostile();
        if (style_ == 2) return (below(7) - 3) * scale_; // ties
        return ((style_ == 3 ? 1e7 : 0.0) + uniform(-1.0, 1.0)) * scale_;
    }

    double nudged(double x) {
        double const all[] = {above(x), common::below(x), x * uniform(0.5, 2.0),
                              x * (1.0 + uniform(-3e-08, 3e-08)), x + uniform(-3e-08, 3e-08)};
        return all[below(5)];
    }

    int style_ = 0;
    double scale_ = 1.0;
};

TEST(BBoxOracle, BoxesFollowTheirLiteralRulesToTheBit) {
    Cases cases;
    for (int step = 0; step < 300000;) {
        cases.change();
        mgBBox_c box = cases.box();
        LiteralBox literal(box);
        for (int length = 1 + cases.below(12); length > 0; --length, ++step) {
            ASSERT_EQ(literal.isValid(), box.isValid() != 0) << "step " << step;
            if (cases.below(8) == 0) {
                double const d = cases.growth(literal.radius);
                literal.grow(d), box += d;
            } else {
                P const p = cases.point(literal);
                literal.unite(p), box |= p;
            }
            ASSERT_BITS_EQ(boxOf(literal.centre, literal.radius, literal.low, literal.high), box)
                << step;
        }
    }
}

} // namespace
