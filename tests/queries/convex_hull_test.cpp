// SPDX-License-Identifier: MIT
// Planar hulls: the library against a literal version of its steps, and the changes of the input.

#include "common/arrays.h"

namespace {

using namespace common;

using Pair = std::pair<double, double>;
using List = std::vector<Pair>;

struct Points : Watched<mg2DPoint_c> {
    Points(List const &list) {
        for (auto const &[x, y] : list) Add({x, y});
        told.clear();
    }
    List list() const {
        List all;
        for (mg2DPoint_c const &p : *this) all.emplace_back(p.x(), p.y());
        return all;
    }
};

List hullOf(List const &list, List const &before = {}) {
    Points points(list), hull(before);
    EXPECT_EQ(1, convexHull(points, hull));
    return hull.list();
}

double turn(Pair const &o, Pair const &a, Pair const &b) {
    return (a.first - o.first) * (b.second - o.second)
           - (a.second - o.second) * (b.first - o.first);
}

bool isRightOf(Pair const &from, Pair const &to, Pair const &p) {
    double const x = to.first - from.first, y = to.second - from.second;
    double const length = std::sqrt(x * x + y * y), divisor = length < 1e-8 ? 1.0 : length;
    return x / divisor * (p.second - from.second) - y / divisor * (p.first - from.first) < 0.0;
}

/// The steps, one by one, for finite points.
List literalHull(List p) {
    std::sort(p.begin(), p.end());
    p.erase(std::unique(p.begin(), p.end()), p.end());
    std::size_t const n = p.size();
    if (n == 3 && turn(p[0], p[1], p[2]) < 0.0) std::swap(p[1], p[2]);
    if (n < 4) return p;
    std::size_t minmax = 0, maxmin = n - 1;
    while (minmax + 1 < n && p[minmax + 1].first == p[0].first) ++minmax;
    while (maxmin > 0 && p[maxmin - 1].first == p[n - 1].first) --maxmin;
    List hull{p[0]};
    auto const visit = [&](std::size_t i, std::size_t from, std::size_t to) {
        if (i != to && !isRightOf(p[from], p[to], p[i])) return;
        while (hull.size() >= 2 && turn(hull[hull.size() - 2], hull.back(), p[i]) <= 0.0)
            hull.pop_back();
        if (i > 0) hull.push_back(p[i]);
    };
    for (std::size_t i = minmax + 1; i <= maxmin; ++i) visit(i, 0, maxmin);
    if (n - 1 != maxmin) hull.push_back(p[n - 1]);
    for (std::size_t i = maxmin; i-- > minmax;) visit(i, n - 1, minmax);
    return hull;
}

TEST(ConvexHull, AgreesWithItsSteps) {
    Random random;
    auto const check = [&](int rounds, int mostPoints, auto point, Caller = {}) {
        for (int round = 0; round < rounds; ++round) {
            List list;
            int const side = 1 + random.below(8);
            for (int i = random.below(mostPoints); i >= 0; --i) list.push_back(point(side));
            ASSERT_EQ(literalHull(list), hullOf(list));
        }
    };
    auto const onGrid = [&](int side) {
        return Pair(random.below(side) * 0.1, random.below(side) * 0.3);
    };
    auto const scattered = [&](int) { return Pair(random.uniform(-1, 1), random.uniform(-1, 1)); };
    check(2000, 12, onGrid), check(100, 300, onGrid);
    check(2000, 12, scattered), check(100, 300, scattered);
    check(500, 12, [&](int) { return Pair(random.below(2) != 0 ? 0.0 : -0.0, random.below(9)); });
    // Many, which differ in their last bits, or hardly.
    check(6, 9000, [&](int) { return Pair(1 + random.below(4000) * 0x1p-52, random.below(9)); });
    check(6, 9000, [&](int) { return Pair(random.ofMagnitude(-300, 300), random.unit()); });
}

TEST(ConvexHull, CollinearPointsGiveOnePoint) {
    List const appended{{9, 9}, {0, 0}};
    EXPECT_EQ(appended, hullOf({{0, 0}, {1, 1}, {2, 2}, {3, 3}}, {{9, 9}}));
    EXPECT_EQ((List{{0, 0}, {1, 1}, {2, 2}}), hullOf({{2, 2}, {0, 0}, {1, 1}})); // three are kept
    EXPECT_EQ((List{{1, 0}, {1, 3}}), hullOf({{1, 2}, {1, 0}, {1, 3}, {1, 1}})); // of the same x
}

TEST(ConvexHull, UpperChainMayPopTheLower) {
    // By rounding, (0.1, 0.25) is above the edge to (0.2, 0.5) when that is divided by its length.
    // The turn there, computed without dividing, is 0: the corner is removed.
    EXPECT_EQ((List{{0, 0}, {0.1, 0.25}, {0.05, 1.5}}),
              hullOf({{0, 0}, {0.2, 0.5}, {0.1, 0.25}, {0.05, 1.5}}));
}

TEST(ConvexHull, LeavesTheInputSortedWithoutDuplicatesAndTellsOfEachRemoval) {
    Points points({{2, 0}, {1, 5}, {1, 5}, {2, 0}, {1, 5}, {0, 7}, {1, 4}}), hull({}), none({});
    EXPECT_EQ(1, convexHull(points, hull));
    EXPECT_EQ((List{{0, 7}, {1, 4}, {1, 5}, {2, 0}}), points.list());
    EXPECT_EQ((Changes{{3, 5}, {3, 4}, {4, 3}}), points.told);
    EXPECT_EQ(0, convexHull(none, hull));
    EXPECT_EQ(0, convexHull(points, points));
    EXPECT_EQ(4, points.Count());
}

TEST(ConvexHull, ChangesNeitherArrayWhenTheHullCannotGrow) {
    List const given{{1, 1}, {0, 0}, {1, 1}, {0, 1}, {1, 0}}, outlines{{9, 9}, {8, 8}};
    for (int distinct : {3, 4}) {
        for (int room = 0; room < distinct; ++room) {
            Points points(List(given.begin(), given.begin() + distinct + 1)), hull({});
            List const before = points.list();
            hull.Adopt(static_cast<mg2DPoint_c *>(suDynArrayAlloc(2 + room, 0, 1, 16)));
            for (auto const &[x, y] : outlines) hull.Add({x, y});
            void const *const handle = hull.Data();
            points.told.clear();
            EXPECT_EQ(0, convexHull(points, hull));
            EXPECT_EQ(before, points.list());
            EXPECT_EQ(outlines, hull.list());
            EXPECT_EQ(handle, hull.Data());
            EXPECT_EQ((Changes{{distinct, distinct - 1}, {0, distinct}}), points.told);
            EXPECT_EQ((Changes{{-1, -1}, {0, 1}}), (Changes{hull.told.end() - 2, hull.told.end()}));
        }
    }
}

TEST(ConvexHull, SortsNaNLast) {
    Random random;
    for (int round = 0; round < 2000; ++round) {
        Points points({}), hull({});
        for (int i = random.below(40); i >= 0; --i)
            points.Add({random.hostile(), random.hostile()});
        convexHull(points, hull);
        auto const isNumber = [](mg2DPoint_c const &p) { return !std::isnan(p.x()); };
        ASSERT_TRUE(std::is_partitioned(points.begin(), points.end(), isNumber));
    }
}

} // namespace
