// SPDX-License-Identifier: MIT
// Merged segments: pairs at the thresholds, lists against the rule.

#include <array>

#include "planar.h"

namespace {

using namespace common;

TEST(MergePair, ThresholdsAreInclusive) {
    // The base is from (0, 0) to (8, 0).
    auto const check = [](int merged, P const &p, P const &q, double low, double high,
                          Caller = {}) {
        for (double k : kScales)
            for (bool isFirst : {true, false}) {
                P const a(0, 0, 0), b(8 * k, 0, 0), c = k * p, d = k * q;
                P u = untouched, v = untouched;
                EXPECT_EQ(merged, isFirst ? mg_MergeLines2D(a, b, c, d, u, v, k * 0.5)
                                          : mg_MergeLines2D(c, d, a, b, u, v, k * 0.5));
                EXPECT_EQ(merged != 0 ? low * k : 77, u.x());
                EXPECT_EQ(merged != 0 ? high * k : 77, v.x());
            }
    };
    check(1, {8.5, 0.5, 1}, {11, -0.5, 2}, 0, 11), check(1, {11, -0.5, 1}, {8.5, 0.5, 2}, 0, 11);
    check(0, {above(8.5), 0, 1}, {11, 0, 2}, 0, 0), check(0, {8, above(0.5), 1}, {11, 0, 2}, 0, 0);
    check(0, {8, 0, 1}, {11, -above(0.5), 2}, 0, 0), check(1, {-3, 0, 1}, {-0.5, 0, 2}, -3, 8);
    check(0, {-3, 0, 1}, {-above(0.5), 0, 2}, 0, 0);
    check(1, {2, 0.5, 1}, {2, -0.5, 2}, 0, 8); // across
    check(1, {8.25, 0.25, 1}, {8.25, 0.25, 2}, 0, 8.25), check(0, {1, kNaN, 1}, {11, 0, 2}, 0, 0);
    check(0, {1, 0, 1}, {kInfinity, 0, 2}, 0, 0);

    P a(0, 0, 1), b(1, 1, 2), c(3, 3, 3), d(2, 2, 4);
    EXPECT_EQ(0, mg_MergeLines2D(a, b, c, d, a, b, 1.0));
    EXPECT_EQ(1, mg_MergeLines2D(a, b, c, d, a, b, -above(0.0) + 1.5)); // the outputs are inputs
    EXPECT_BITS_EQ(P(0, 0, 1), a);
    EXPECT_BITS_EQ(P(3, 3, 3), b);
}

/// The rule of the header, by scanning.
std::vector<P> byRule(std::vector<P> const &pts, double tol) {
    auto const n = pts.size() / 2;
    auto const flat = [&](std::size_t from, std::size_t to) {
        V e = pts[to] - pts[from];
        e.set_z(0);
        return e;
    };
    auto const length = [&](std::size_t i) { return flat(2 * i, 2 * i + 1).len(); };
    std::vector<bool> used(n, false);
    std::vector<std::array<std::size_t, 2>> ends(n, {2 * n, 2 * n});
    for (;;) {
        std::size_t base = n;
        for (std::size_t i = 0; i < n; ++i)
            if (!used[i] && (base == n || length(i) > length(base))) base = i;
        if (base == n) break;
        used[base] = true;
        ends[base] = {2 * base, 2 * base + 1};
        V const whole = flat(2 * base, 2 * base + 1);
        V const d = length(base) > 0 ? (1.0 / length(base)) * whole : V(1, 0, 0);
        auto const along = [&](std::size_t end) { return flat(2 * base, end) % d; };
        auto const isOff = [&](std::size_t end) {
            return std::fabs((d * flat(2 * base, end)).z()) > tol;
        };
        double low = 0, high = length(base);
        for (std::size_t i = 0; i < n; ++i) {
            std::size_t p = 2 * i, q = p + 1;
            if (along(q) < along(p)) std::swap(p, q);
            if (used[i] || isOff(p) || isOff(q) || along(p) - high > tol || low - along(q) > tol)
                continue;
            used[i] = true;
            if (along(p) < low) low = along(p), ends[base][0] = p;
            if (along(q) > high) high = along(q), ends[base][1] = q;
            i = static_cast<std::size_t>(-1); // from the first one again
        }
    }
    std::vector<P> result;
    for (auto const &[p, q] : ends)
        if (p < 2 * n) result.insert(result.end(), {pts[p], pts[q]});
    return result;
}

TEST(MergeList, AgreesWithTheRuleForAnySizesAndTolerances) {
    Random random;
    for (int round = 0; round < 80; ++round) {
        double const tol = std::pow(10.0, random.uniform(-9, -1));
        std::vector<P> points;
        int const lines = 1 + random.below(8);
        for (int line = 0; line < lines; ++line) {
            P const root = planar(random, -5, 5);
            double const angle = random.uniform(-4, 4);
            for (int count = random.below(30); count > 0; --count) {
                double const from = random.uniform(-5, 5);
                double const to = from + random.ofMagnitude(-4, 0.5);
                for (double at : {from, to}) {
                    double const off = random.uniform(-1.2, 1.2) * tol;
                    points.push_back(onCircle(onCircle(root, at, angle), off, angle + kTurn / 4));
                    points.back().set_z(random.unit());
                }
            }
        }
        auto const expected = byRule(points, tol);
        Watched<P> list(points);
        ASSERT_EQ(static_cast<int>(expected.size()) / 2, mg_MergeLines2D(list, list, tol));
        ASSERT_BITS_EQ(expected, list.list());
    }
}

TEST(MergeList, OfEqualPlacesKeepsTheBaseElseTheFirst) {
    P const a(-1, 0.25, 3), b(1, 0.25, 4), c(6, 0.25, 7), d(8, 0.25, 8), low(0, 0, 1),
        high(8, 0, 2);
    // In this order: a segment that is taken late is before one that ends at the same place.
    P const e(-1, 0.25, 9), f(-0.75, 0.25, 9);
    Watched<P> list({e, f, c, d, a, b, low, high, {-1, -0.25, 5}, {1, -0.25, 6}}), merged;
    EXPECT_EQ(1, mg_MergeLines2D(list, merged, 0.5));
    EXPECT_BITS_EQ((std::vector<P>{e, high}), merged.list());
    list[6] = high, list[7] = low; // the base runs the other way
    EXPECT_EQ(1, mg_MergeLines2D(list, merged, 0.5));
    EXPECT_BITS_EQ((std::vector<P>{high, e}), merged.list());
}

TEST(MergeList, KeepsBadSegmentsAndIgnoresAnOddPoint) {
    P const a(0, 0, 1), b(1, 0, 2), c(1, 0, 3), d(3, 0, 4), bad(kNaN, 0, 0), worse(0, kInfinity, 0);
    Watched<P> list({a, b, bad, b, c, d, a, worse, {2, 0, 6}, {2.5, 0, 7}, {8, 8, 8}});
    EXPECT_EQ(3, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_BITS_EQ((std::vector<P>{bad, b, a, d, a, worse}), list.list()); // in the place of c, d
    list = Watched<P>({a});
    EXPECT_EQ(0, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_EQ(nullptr, list.Data());
}

} // namespace
