// SPDX-License-Identifier: MIT
// Merged segments: pairs at the thresholds, lists against the rule.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>
#include <vexmath/su_dynamic_array.h>

#include <array>
#include <vector>

namespace {

using common::above, common::Caller, common::kInfinity, common::kNaN;
using Points = suDynamicArray<mgPoint_c>;

mgPoint_c const untouched(77, 77, 77);

TEST(MergePair, ThresholdsAreInclusive) {
    // The base is from (0, 0) to (8, 0).
    auto const check = [](int merged, mgPoint_c const &p, mgPoint_c const &q, double low,
                          double high, Caller = {}) {
        for (double k : {1.0, 0x1p1018, 0x1p-1000})
            for (bool isFirst : {true, false}) {
                mgPoint_c const a(0, 0, 0), b(8 * k, 0, 0), c = k * p, d = k * q;
                mgPoint_c u = untouched, v = untouched;
                EXPECT_EQ(merged, isFirst ? mg_MergeLines2D(a, b, c, d, u, v, k * 0.5)
                                          : mg_MergeLines2D(c, d, a, b, u, v, k * 0.5));
                EXPECT_EQ(merged != 0 ? low * k : 77, u.x());
                EXPECT_EQ(merged != 0 ? high * k : 77, v.x());
            }
    };
    check(1, {8.5, 0.5, 1}, {11, -0.5, 2}, 0, 11);
    check(1, {11, -0.5, 1}, {8.5, 0.5, 2}, 0, 11);
    check(0, {above(8.5), 0, 1}, {11, 0, 2}, 0, 0);
    check(0, {8, above(0.5), 1}, {11, 0, 2}, 0, 0);
    check(0, {8, 0, 1}, {11, -above(0.5), 2}, 0, 0);
    check(1, {-3, 0, 1}, {-0.5, 0, 2}, -3, 8);
    check(0, {-3, 0, 1}, {-above(0.5), 0, 2}, 0, 0);
    check(1, {2, 0.5, 1}, {2, -0.5, 2}, 0, 8); // across
    check(1, {8.25, 0.25, 1}, {8.25, 0.25, 2}, 0, 8.25);
    check(0, {1, kNaN, 1}, {11, 0, 2}, 0, 0);
    check(0, {1, 0, 1}, {kInfinity, 0, 2}, 0, 0);

    mgPoint_c a(0, 0, 1), b(1, 1, 2), c(3, 3, 3), d(2, 2, 4);
    EXPECT_EQ(0, mg_MergeLines2D(a, b, c, d, a, b, 1.0));
    EXPECT_EQ(1, mg_MergeLines2D(a, b, c, d, a, b, -above(0.0) + 1.5)); // the outputs are inputs
    EXPECT_BITS_EQ(mgPoint_c(0, 0, 1), a);
    EXPECT_BITS_EQ(mgPoint_c(3, 3, 3), b);
}

Points listOf(std::vector<mgPoint_c> const &points) {
    Points list;
    for (mgPoint_c const &p : points) list.Add(p);
    return list;
}

/// The rule of the header, by scanning.
std::vector<mgPoint_c> byRule(std::vector<mgPoint_c> const &pts, double tol) {
    auto const n = pts.size() / 2;
    std::vector<mgVector_c> d;
    std::vector<double> length;
    for (std::size_t i = 0; i < n; ++i) {
        mgVector_c e = pts[2 * i + 1] - pts[2 * i];
        e.set_z(0);
        length.push_back(e.len());
        d.push_back(e.len() > 0 ? (1.0 / e.len()) * e : mgVector_c(1, 0, 0));
    }
    std::vector<bool> used(n, false);
    std::vector<std::array<std::size_t, 2>> ends(n, {2 * n, 2 * n});
    for (;;) {
        std::size_t base = n;
        for (std::size_t i = 0; i < n; ++i)
            if (!used[i] && (base == n || length[i] > length[base])) base = i;
        if (base == n) break;
        used[base] = true;
        ends[base] = {2 * base, 2 * base + 1};
        auto const along = [&](std::size_t end) {
            mgVector_c const e = pts[end] - pts[2 * base];
            return e.x() * d[base].x() + e.y() * d[base].y();
        };
        auto const isOff = [&](std::size_t end) {
            mgVector_c const e = pts[end] - pts[2 * base];
            return std::fabs(e.y() * d[base].x() - e.x() * d[base].y()) > tol;
        };
        double low = 0, high = length[base];
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
    std::vector<mgPoint_c> result;
    for (auto const &[p, q] : ends)
        if (p < 2 * n) result.insert(result.end(), {pts[p], pts[q]});
    return result;
}

TEST(MergeList, AgreesWithTheRuleForAnySizesAndTolerances) {
    common::Random random;
    for (int round = 0; round < 300; ++round) {
        double const tol = std::pow(10.0, random.uniform(-9, -1));
        std::vector<mgPoint_c> points;
        int const lines = 1 + random.below(8);
        for (int line = 0; line < lines; ++line) {
            mgPoint_c const root(random.uniform(-5, 5), random.uniform(-5, 5), 0);
            double const angle = random.uniform(-4, 4);
            for (int count = random.below(30); count > 0; --count) {
                double const from = random.uniform(-5, 5);
                double const to = from + random.ofMagnitude(-4, 0.5);
                for (double at : {from, to}) {
                    double const off = random.uniform(-1.2, 1.2) * tol;
                    points.emplace_back(root.x() + at * std::cos(angle) - off * std::sin(angle),
                                        root.y() + at * std::sin(angle) + off * std::cos(angle),
                                        random.unit());
                }
            }
        }
        auto const expected = byRule(points, tol);
        Points list = listOf(points);
        ASSERT_EQ(static_cast<int>(expected.size()) / 2, mg_MergeLines2D(list, list, tol));
        ASSERT_EQ(static_cast<int>(expected.size()), list.Count());
        for (int i = 0; i < list.Count(); ++i)
            ASSERT_BITS_EQ(expected[static_cast<std::size_t>(i)], list[i]);
    }
}

TEST(MergeList, OfEqualPlacesKeepsTheBaseElseTheFirst) {
    for (int const side : {0, 1}) { // where the base and another segment end
        mgPoint_c const ends[] = {{8, 0, 2}, {0, 0, 1}};
        Points list = listOf({{6, 0.25, 7},
                              {8, 0.25, 8},
                              {-1, 0.25, 3},
                              {1, 0.25, 4},
                              ends[1 - side],
                              ends[side],
                              {-1, -0.25, 5},
                              {1, -0.25, 6}});
        EXPECT_EQ(1, mg_MergeLines2D(list, list, 0.5));
        EXPECT_BITS_EQ(mgPoint_c(-1, 0.25, 3), list[side]);
        EXPECT_BITS_EQ(mgPoint_c(8, 0, 2), list[1 - side]);
    }
}

TEST(MergeList, KeepsBadSegmentsAndIgnoresAnOddPoint) {
    Points list = listOf({{0, 0, 1},
                          {1, 0, 2},
                          {kNaN, 0, 0},
                          {1, 0, 0},
                          {1, 0, 3},
                          {3, 0, 4},
                          {0, 0, 5},
                          {0, kInfinity, 0},
                          {2, 0, 6},
                          {9, 9, 9},
                          {8, 8, 8}});
    list[9] = {2.5, 0, 7};
    EXPECT_EQ(3, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_BITS_EQ(mgPoint_c(1, 0, 0), list[1]);
    EXPECT_BITS_EQ(mgPoint_c(0, 0, 1), list[2]); // in the place of the longest
    EXPECT_BITS_EQ(mgPoint_c(3, 0, 4), list[3]);
    EXPECT_EQ(6, list.Count());
    list = listOf({{0, 0, 1}});
    EXPECT_EQ(0, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_EQ(0, list.Count());
    EXPECT_EQ(nullptr, list.Data());
}

} // namespace
