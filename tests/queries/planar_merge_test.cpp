// SPDX-License-Identifier: MIT
// Merged segments: pairs at the thresholds, lists of few. Against the literal rule:
// fuzz/fuzz_drawing.cpp.

#include "planar.h"

namespace {

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

TEST(MergeList, OfEqualPlacesKeepsTheBase) {
    Watched<P> list;
    for (int k = 0; k < 50; ++k) { // oblique: the places are rounded
        P const p(0.1, 0.2, 1), q(0.1 * k, 0.9, 2);
        list = Watched<P>({p, q, {q.x(), q.y(), 3}, {p.x(), p.y(), 4}});
        EXPECT_EQ(1, mg_MergeLines2D(list, list, 0.01));
        EXPECT_BITS_EQ((std::vector<P>{p, q}), list.list());
    }
}

TEST(MergeList, KeepsBadSegmentsAndIgnoresAnOddPoint) {
    P const a(0, 0, 1), b(1, 0, 2), c(1, 0, 3), d(3, 0, 4), bad(kNaN, 0, 0), worse(0, kInfinity, 0);
    Watched<P> list({a, b, bad, b, c, d, a, worse, {2, 0, 6}, {2.5, 0, 7}, {8, 8, 8}});
    EXPECT_EQ(3, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_BITS_EQ((std::vector<P>{bad, b, a, d, a, worse}), list.list()); // in the place of c, d
    list = Watched<P>({{-1, 5, 0}, {0, 5, 0}, {0x1p1018, 0, 0}, {}});      // one huge number
    EXPECT_EQ(2, mg_MergeLines2D(list, list, 0));
    std::vector<P> points{{}, {0, 100, 0}}; // on a segment, and so many that a tree holds them
    for (int i = 1; i < 60; ++i) points.insert(points.end(), 2, {0, double(i), 0});
    list = Watched<P>(points);
    EXPECT_EQ(1, mg_MergeLines2D(list, list, 0));
    list = Watched<P>({a});
    EXPECT_EQ(0, mg_MergeLines2D(list, list, 1e-8));
    EXPECT_EQ(nullptr, list.Data());
}

} // namespace
