// SPDX-License-Identifier: MIT
// Planar hulls: the library against a literal version of its steps, and the changes of the input.

#include <utility>
#include <vector>

#include "common/geometry.h"

namespace {

using namespace common;

using Pair = std::pair<double, double>;
using List = std::vector<Pair>;
using Told = std::vector<std::pair<int, int>>;

struct Points : suDynamicArray<mg2DPoint_c> {
    Points(List const &list) {
        for (auto const &[x, y] : list) Add({x, y});
        told.clear();
    }
    List list() const {
        List all;
        for (int i = 0; i < Count(); ++i) all.emplace_back((*this)[i].x(), (*this)[i].y());
        return all;
    }
    void elementsChanged(int first, int last) override {
        EXPECT_EQ(Count() - 1, last); // the elements that are told of exist
        told.emplace_back(first, last);
    }
    Told told;
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

TEST(ConvexHull, AgreesWithItsStepsOnGridsAndScatteredPoints) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        List grid, scattered;
        int const side = 1 + random.below(8);
        for (int i = random.below(round % 100 == 0 ? 300 : 12); i >= 0; --i) {
            grid.emplace_back(random.below(side) * 0.1, random.below(side) * 0.3);
            scattered.emplace_back(random.uniform(-1, 1), random.uniform(-1, 1));
        }
        ASSERT_EQ(literalHull(grid), hullOf(grid));
        ASSERT_EQ(literalHull(scattered), hullOf(scattered));
    }
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
    EXPECT_EQ((Told{{3, 5}, {3, 4}, {4, 3}}), points.told);
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
            EXPECT_EQ((Told{{distinct, distinct - 1}, {0, distinct}}), points.told);
            EXPECT_EQ((Told{{-1, -1}, {0, 1}}), (Told{hull.told.end() - 2, hull.told.end()}));
        }
    }
}

TEST(ConvexHull, EndsOnHostileValues) {
    Random random;
    for (int round = 0; round < 2000; ++round) {
        List list;
        for (int i = 0; i < 9; ++i) list.emplace_back(random.hostile(), random.hostile());
        Points points(list), hull({});
        convexHull(points, hull);
        List const sorted = points.list(); // NaN last
        auto const isNumber = [](Pair const &p) { return !std::isnan(p.first); };
        ASSERT_TRUE(std::is_partitioned(sorted.begin(), sorted.end(), isNumber));
    }
}

} // namespace
