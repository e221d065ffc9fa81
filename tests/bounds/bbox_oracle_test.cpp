// SPDX-License-Identifier: MIT
// Validity, unions and growth of boxes against their rules in the plainest words, with all
// divisions, roots and loops. The library comes to the same bits by cheaper ways.

#include "bounds/boxes.h"

namespace {

constexpr int kSteps = 300000;

enum Outcome { kBecamePoint, kEnclosed, kGrown, kSphereMadeAnew, kOutcomes };

double sumOfSquares(double const *v) { return v[0] * v[0] + v[1] * v[1] + v[2] * v[2]; }

double distance(double const *a, double const *b) {
    double const d[] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    return std::sqrt(sumOfSquares(d));
}

/// The ten doubles of a box, in their order.
struct LiteralBox {
    double centre[3], high[3], low[3], radius;

    explicit LiteralBox(mgBBox_c const &b) { std::memcpy(static_cast<void *>(this), &b, sizeof b); }

    bool isSet() const {
        return 0.0 <= radius && low[0] <= high[0] && low[1] <= high[1] && low[2] <= high[2];
    }

    bool isValid() const {
        if (!isSet()) return false;
        double const millions = radius * 1e-06;
        double tol = 1e-08, nearest[3];
        int n = millions < 2147483647.0 ? static_cast<int>(millions) : 2147483647;
        for (double power = 10.0; n > 0; n /= 10, power *= 10.0) tol = power * 1e-08;
        for (int i = 0; i < 3; ++i) {
            double const c = centre[i], reach = tol + radius;
            nearest[i] = c < low[i] ? low[i] - c : c <= high[i] ? 0.0 : high[i] - c;
            if (std::fabs(c / tol) >= 1e13) continue;
            if (!(std::fabs(low[i] - c) <= reach && std::fabs(high[i] - c) <= reach)) return false;
        }
        return sumOfSquares(nearest) <= radius * radius * 1.00000001 + 1e-08
               && radius * radius * 0.99999999 - 1e-08 <= farthestSq();
    }

    double farthestSq() const {
        double f[3];
        for (int i = 0; i < 3; ++i) {
            double const toHigh = high[i] - centre[i], toLow = low[i] - centre[i];
            f[i] = std::fabs(toHigh) >= std::fabs(toLow) ? toHigh : toLow;
        }
        return sumOfSquares(f);
    }

    void takeSphereFromCorners() {
        for (int i = 0; i < 3; ++i) centre[i] = (low[i] + high[i]) * 0.5;
        radius = 0.5 * distance(low, high);
    }

    Outcome shrinkSphere() {
        double const s = farthestSq(), sq = radius * radius;
        if (!(s + 5e-09 < sq || (radius > 1e-10 && s * 1.000000005 < sq))) return kGrown;
        takeSphereFromCorners();
        return kSphereMadeAnew;
    }

    void widen(double const *lowest, double const *highest) {
        for (int i = 0; i < 3; ++i) { // NaN replaces no corner
            if (lowest[i] < low[i]) low[i] = lowest[i];
            if (highest[i] > high[i]) high[i] = highest[i];
        }
    }

    Outcome moveSphere(double const *towards, double newRadius) {
        double const step = (newRadius - radius) / distance(centre, towards);
        for (int i = 0; i < 3; ++i) centre[i] += (towards[i] - centre[i]) * step;
        radius = newRadius;
        return shrinkSphere();
    }

    Outcome unite(double const *p) {
        if (!isValid()) {
            for (int i = 0; i < 3; ++i) low[i] = high[i] = p[i];
            takeSphereFromCorners();
            return kBecamePoint;
        }
        widen(p, p);
        double const newRadius = (radius + distance(centre, p)) * 0.5;
        return radius < newRadius ? moveSphere(p, newRadius) : kEnclosed;
    }

    void unite(LiteralBox const &b) {
        if (!b.isValid()) return;
        if (!isSet()) {
            *this = b;
            return;
        }
        widen(b.low, b.high);
        double const newRadius = (b.radius + radius + distance(centre, b.centre)) * 0.5;
        if (newRadius <= radius) return;
        if (newRadius <= b.radius) {
            std::copy_n(b.centre, 3, centre);
            radius = b.radius;
        } else {
            moveSphere(b.centre, newRadius);
        }
    }

    void grow(double d) {
        radius += d;
        bool const stays = radius >= 0.0;
        for (int i = 0; i < 3; ++i) {
            low[i] = stays ? low[i] - d : 1.0;
            high[i] = stays ? high[i] + d : -1.0;
            if (stays && d < 0.0 && high[i] < low[i]) low[i] = high[i] = (high[i] + low[i]) * 0.5;
        }
        if (!stays) radius = -2.0;
        if (stays && d < 0.0) shrinkSphere();
    }
};

/// Boxes, points and numbers that sit on the edges of the rules.
class Cases : public support::Random {
public:
    /// Changes the kind and the size of what follows.
    void change() {
        // Around these sizes squares underflow or overflow, tolerances matter and decades change.
        constexpr double kScales[] = {1, 1, 1e-4, 1e-8, 1e-10, 1e-145, 1e-154, 1e154, 1e6, 1e15};
        style_ = below(5);
        int const k = below(11);
        scale_ = k < 10 ? kScales[k] * uniform(0.5, 2.0) : ofMagnitude(-320.0, 307.0);
    }

    /// Valid or not by the last digits of a few numbers, in two of three cases.
    mgBBox_c box() {
        mgBBox_c box(any(), any());
        if (below(4) == 0) box = mgBBox_c(any(), std::fabs(number()));
        for (int changes = below(3); changes > 0; --changes) {
            int const at = std::min(below(14), 9); // the radius most of all
            double const value = support::doubleOf(box, at);
            box = support::withDouble(box, at, below(8) == 0 ? number() : nudged(value));
        }
        return below(8) == 0 ? mgBBox_c() : box;
    }

    mgPoint_c point(LiteralBox const &b) {
        mgPoint_c p = any();
        int const kind = below(6);
        if (kind == 0) p = b.centre;
        for (int i = 0; i < 3 && kind == 1; ++i) p[i] = below(2) == 0 ? b.low[i] : b.high[i];
        if (kind == 2) p = mgPoint_c(b.centre) + support::direction(*this) * nudged(b.radius);
        if (kind == 3) p.set(b.centre[0] + nudged(b.radius), b.centre[1], b.centre[2]);
        return p;
    }

    double growth(double radius) {
        double const all[] = {0.0, -1e-300, number(), nudged(-radius), nudged(radius)};
        return all[below(5)];
    }

private:
    mgPoint_c any() {
        double const x = number(), y = number(), z = number();
        return {x, y, z};
    }

    double number() {
        if (style_ == 0) return ofMagnitude(-320.0, 308.23);
        if (style_ == 1) return hostile();
        if (style_ == 2) return (below(7) - 3) * scale_; // ties
        return ((style_ == 3 ? 1e7 : 0.0) + uniform(-1.0, 1.0)) * scale_;
    }

    double nudged(double x) {
        double const all[] = {support::above(x), support::below(x), x * uniform(0.5, 2.0),
                              x * (1.0 + uniform(-3e-08, 3e-08)), x + uniform(-3e-08, 3e-08)};
        return all[below(5)];
    }

    int style_ = 0;
    double scale_ = 1.0;
};

TEST(BBoxOracle, BoxesFollowTheirLiteralRulesToTheBit) {
    Cases cases;
    int seen[kOutcomes] = {};
    for (int step = 0; step < kSteps;) {
        cases.change();
        mgBBox_c box = cases.box();
        LiteralBox literal(box);
        for (int length = 1 + cases.below(12); length > 0; --length, ++step) {
            ASSERT_EQ(literal.isValid(), box.isValid() != 0) << "step " << step;
            int const kind = cases.below(8);
            if (kind == 0) {
                mgBBox_c const other = cases.box();
                literal.unite(LiteralBox(other));
                box |= other;
            } else if (kind == 1) {
                double const d = cases.growth(literal.radius);
                literal.grow(d);
                box += d;
            } else {
                mgPoint_c const p = cases.point(literal);
                ++seen[literal.unite(p)];
                box |= p;
            }
            auto const expected =
                support::boxOf(literal.centre, literal.radius, literal.low, literal.high);
            ASSERT_BITS_EQ(expected, box) << ", step " << step;
        }
    }
    for (int const often : seen) EXPECT_GT(often, kSteps / 5000) << "the cases miss a branch";
}

} // namespace
