// SPDX-License-Identifier: MIT
// The union of a box with a point, against the rule in its plainest words: the test of validity
// with its divisions and its loop over decades, and the union with its root, at every point. The
// library comes to the same bits by cheaper ways.

#include "bounds/boxes.h"

namespace {

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VEXMATH_TESTS_SANITIZED
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VEXMATH_TESTS_SANITIZED
#endif
#if defined(VEXMATH_TESTS_SANITIZED)
constexpr int kUnions = 100000;
#else
constexpr int kUnions = 2000000;
#endif

enum Outcome { kBecamePoint, kEnclosed, kGrown, kSphereMadeAnew, kOutcomes };

struct LiteralBox {
    double centre[3], high[3], low[3], radius;

    bool isValid() const {
        if (!(0.0 <= radius)) return false;
        double const millions = radius * 1e-06;
        double power = 1.0;
        for (int n = millions < 2147483647.0 ? static_cast<int>(millions) : 2147483647; n > 0;) {
            n = n / 10;
            power = power * 10.0;
        }
        double const tol = power * 1e-08, reach = tol + radius;
        double q[3];
        for (int i = 0; i < 3; ++i) {
            double const c = centre[i];
            if (!(low[i] <= high[i])) return false;
            q[i] = c < low[i] ? low[i] - c : (c <= high[i] ? 0.0 : high[i] - c);
            if (std::fabs(c / tol) >= 1e13) continue;
            if (!(std::fabs(low[i] - c) <= reach && std::fabs(high[i] - c) <= reach)) return false;
        }
        double const nearestSq = q[0] * q[0] + q[1] * q[1] + q[2] * q[2];
        return nearestSq <= radius * radius * 1.00000001 + 1e-08
               && radius * radius * 0.99999999 - 1e-08 <= farthestSq();
    }

    double farthestSq() const {
        double f[3];
        for (int i = 0; i < 3; ++i) {
            double const toHigh = high[i] - centre[i], toLow = low[i] - centre[i];
            f[i] = std::fabs(toHigh) >= std::fabs(toLow) ? toHigh : toLow;
        }
        return f[0] * f[0] + f[1] * f[1] + f[2] * f[2];
    }

    void takeSphereFromCorners() {
        double const d[3] = {high[0] - low[0], high[1] - low[1], high[2] - low[2]};
        for (int i = 0; i < 3; ++i) centre[i] = (low[i] + high[i]) * 0.5;
        radius = 0.5 * std::sqrt(d[0] * d[0] + d[1] * d[1] + d[2] * d[2]);
    }

    Outcome unite(double const *p) {
        if (!isValid()) {
            for (int i = 0; i < 3; ++i) low[i] = high[i] = p[i];
            takeSphereFromCorners();
            return kBecamePoint;
        }
        for (int i = 0; i < 3; ++i) { // NaN replaces no corner
            low[i] = p[i] < low[i] ? p[i] : low[i];
            high[i] = p[i] > high[i] ? p[i] : high[i];
        }
        double const v[3] = {p[0] - centre[0], p[1] - centre[1], p[2] - centre[2]};
        double const dist = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
        double const newRadius = (radius + dist) * 0.5;
        if (!(radius < newRadius)) return kEnclosed;
        double const step = (newRadius - radius) / dist;
        for (int i = 0; i < 3; ++i) centre[i] += v[i] * step;
        radius = newRadius;
        double const s = farthestSq(), sq = radius * radius;
        if (!(s + 5e-09 < sq || (radius > 1e-10 && s * 1.000000005 < sq))) return kGrown;
        takeSphereFromCorners();
        return kSphereMadeAnew;
    }
};

/// Boxes and points that sit on the edges of the rule.
class Cases : public support::Random {
public:
    /// A box to begin with; two in three are valid or not by the last digits of a few numbers.
    mgBBox_c box() {
        // Around these sizes squares underflow or overflow, tolerances matter and decades change.
        constexpr double kScales[] = {1.0,  1.0,    1.0,    1e-4,  1e-8, 1e-10,
                                      1e-5, 1e-145, 1e-154, 1e154, 1e6,  1e15};
        style_ = below(5);
        int const k = below(13);
        scale_ = k < 12 ? kScales[k] * uniform(0.5, 2.0) : ofMagnitude(-320.0, 307.0);
        mgBBox_c box(any(), any());
        if (below(4) == 0) box = mgBBox_c(any(), uniform(0.0, 2.0) * scale_);
        for (int changes = below(3); changes > 0; --changes) {
            int const at = std::min(below(14), 9); // the radius most of all
            double value = 0.0;
            std::memcpy(&value, reinterpret_cast<char const *>(&box) + 8 * at, 8);
            box = support::withDouble(box, at, below(8) == 0 ? number() : nudged(value));
        }
        return below(8) == 0 ? mgBBox_c() : box;
    }

    mgPoint_c point(LiteralBox const &b) {
        mgPoint_c p = any();
        switch (below(6)) {
        case 0:
            return b.centre;
        case 1:
            for (int i = 0; i < 3; ++i) p[i] = below(2) == 0 ? b.low[i] : b.high[i];
            return p;
        case 2:
            return mgPoint_c(b.centre) + support::direction(*this) * nudged(b.radius);
        case 3:
            return {b.centre[0] + nudged(b.radius), b.centre[1], b.centre[2]};
        default:
            return p;
        }
    }

private:
    mgPoint_c any() {
        double const x = number(), y = number(), z = number();
        return {x, y, z};
    }

    double number() {
        switch (style_) {
        case 0:
            return ofMagnitude(-320.0, 308.23);
        case 1:
            return hostile();
        case 2:
            return (below(7) - 3) * scale_; // ties
        case 3:
            return (1e7 + uniform(-1.0, 1.0)) * scale_;
        default:
            return uniform(-1.0, 1.0) * scale_;
        }
    }

    double nudged(double x) {
        switch (below(5)) {
        case 0:
            return support::above(x);
        case 1:
            return support::below(x);
        case 2:
            return x * (1.0 + uniform(-3e-08, 3e-08));
        case 3:
            return x + uniform(-3e-08, 3e-08);
        default:
            return x * uniform(0.5, 2.0);
        }
    }

    int style_ = 0;
    double scale_ = 1.0;
};

TEST(UnionOracle, TheUnionIsTheLiteralRuleToTheBit) {
    Cases cases;
    int seen[kOutcomes] = {};
    for (int unions = 0; unions < kUnions;) {
        mgBBox_c box = cases.box(), expected = box;
        LiteralBox literal;
        std::memcpy(&literal, &box, sizeof box);
        for (int length = 1 + cases.below(12); length > 0; --length, ++unions) {
            ASSERT_EQ(literal.isValid(), box.isValid() != 0) << "union " << unions;
            mgPoint_c const p = cases.point(literal);
            ++seen[literal.unite(p)];
            box |= p;
            std::memcpy(static_cast<void *>(&expected), &literal, sizeof box);
            if (std::memcmp(&literal, &box, sizeof box) == 0) continue;
            ASSERT_BITS_EQ(expected, box) << ", union " << unions;
        }
    }
    for (int const often : seen) EXPECT_GT(often, kUnions / 5000) << "the cases miss a branch";
}

} // namespace
