// SPDX-License-Identifier: MIT
// Planar hulls: the shipped algorithm against its steps one by one, and what it does to its input.

#include "support/numbers.h"

#include <vexmath/mg_queries.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace {

using List = std::vector<std::pair<double, double>>;

struct Listening : suDynamicArray<mg2DPoint_c> {
    void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
    std::vector<std::pair<int, int>> told;
};

Listening arrayOf(List const &list) {
    Listening points;
    for (auto const &[x, y] : list) points.Add({x, y});
    points.told.clear();
    return points;
}

List listOf(suDynamicArray<mg2DPoint_c> const &points) {
    List list;
    for (int i = 0; i < points.Count(); ++i) list.emplace_back(points[i].x(), points[i].y());
    return list;
}

List hullOf(List const &list) {
    Listening points = arrayOf(list);
    suDynamicArray<mg2DPoint_c> hull;
    EXPECT_EQ(convexHull(points, hull), 1);
    return listOf(hull);
}

double turn(std::pair<double, double> o, std::pair<double, double> a, std::pair<double, double> b) {
    return (a.first - o.first) * (b.second - o.second)
           - (a.second - o.second) * (b.first - o.first);
}

/// The steps, one by one, for finite points.
List literalHull(List p) {
    std::sort(p.begin(), p.end());
    p.erase(std::unique(p.begin(), p.end()), p.end());
    std::size_t const n = p.size();
    if (n < 4) {
        if (n == 3 && turn(p[0], p[1], p[2]) < 0.0) std::swap(p[1], p[2]);
        return p;
    }
    std::size_t minmax = 0;
    std::size_t maxmin = n - 1;
    while (minmax + 1 < n && p[minmax + 1].first == p[0].first) ++minmax;
    while (maxmin > 0 && p[maxmin - 1].first == p[n - 1].first) --maxmin;
    auto rightOf = [&](std::size_t from, std::size_t to, std::size_t i) {
        double lx = p[to].first - p[from].first;
        double ly = p[to].second - p[from].second;
        double const length = std::sqrt(lx * lx + ly * ly);
        if (!(length < 1e-8)) {
            lx = lx / length;
            ly = ly / length;
        }
        return lx * (p[i].second - p[from].second) - ly * (p[i].first - p[from].first) < 0.0;
    };
    List hull{p[0]};
    auto turnTo = [&](std::size_t i) {
        while (hull.size() >= 2 && turn(hull[hull.size() - 2], hull.back(), p[i]) <= 0.0)
            hull.pop_back();
    };
    for (std::size_t i = minmax + 1; i <= maxmin; ++i) {
        if (i < maxmin && !rightOf(0, maxmin, i)) continue;
        turnTo(i);
        hull.push_back(p[i]);
    }
    if (n - 1 != maxmin) hull.push_back(p[n - 1]);
    for (std::size_t i = maxmin; i-- > minmax;) {
        if (i > minmax && !rightOf(n - 1, minmax, i)) continue;
        turnTo(i);
        if (i > 0) hull.push_back(p[i]);
    }
    return hull;
}

} // namespace

TEST(ConvexHull, AgreesWithItsStepsOnGridsAndScatteredPoints) {
    support::Random random;
    for (int round = 0; round < 20000; ++round) {
        List list;
        int const n = 1 + random.below(round % 100 == 0 ? 300 : 12);
        int const side = 1 + random.below(8);
        bool const grid = round % 2 == 0;
        for (int i = 0; i < n; ++i) {
            if (grid) {
                list.emplace_back(random.below(side) * 0.1, random.below(side) * 0.3);
            } else {
                list.emplace_back(random.uniform(-1, 1), random.uniform(-1, 1));
            }
        }
        List const hull = hullOf(list);
        ASSERT_EQ(hull, literalHull(list));
        if (grid) continue;
        for (std::size_t i = 0; i < hull.size() && hull.size() > 2; ++i) {
            for (auto const &p : list) {
                ASSERT_GE(turn(hull[i], hull[(i + 1) % hull.size()], p), -1e-15);
            }
        }
    }
}

TEST(ConvexHull, RunsCounterClockwiseFromTheLowestCorner) {
    EXPECT_EQ(hullOf({{1, 1}, {0.5, 0.5}, {0, 1}, {1, 0}, {0, 0}}),
              (List{{0, 0}, {1, 0}, {1, 1}, {0, 1}}));
    EXPECT_EQ(hullOf({{0, 0}, {1, 1}, {1, 0}}), (List{{0, 0}, {1, 0}, {1, 1}}));
    EXPECT_EQ(hullOf({{2, 2}, {0, 0}, {1, 1}}), (List{{0, 0}, {1, 1}, {2, 2}})); // three are kept
    EXPECT_EQ(hullOf({{5, 3}, {5, 1}, {5, 2}, {5, 4}}), (List{{5, 1}, {5, 4}})); // one x: the ends
}

TEST(ConvexHull, CollinearPointsGiveOnePoint) {
    EXPECT_EQ(hullOf({{0, 0}, {1, 1}, {2, 2}, {3, 3}}), (List{{0, 0}}));
}

TEST(ConvexHull, UpperChainMayPopTheLower) {
    // (0.1, 0.25) lies on the edge from (0, 0) to (0.2, 0.5). Divided by its length that edge has
    // the point on its upper side, by rounding; the turn at (0.2, 0.5), which does not divide, is
    // none: the corner goes.
    List const outline{{0, 0}, {0.2, 0.5}, {0.1, 0.25}, {0.05, 1.5}};
    EXPECT_EQ(hullOf(outline), (List{{0, 0}, {0.1, 0.25}, {0.05, 1.5}}));
}

TEST(ConvexHull, LeavesTheInputSortedWithoutDuplicatesAndTellsOfEachRemoval) {
    Listening points = arrayOf({{2, 0}, {1, 5}, {1, 5}, {2, 0}, {1, 5}, {0, 7}, {1, 4}});
    suDynamicArray<mg2DPoint_c> hull;
    EXPECT_EQ(convexHull(points, hull), 1);
    EXPECT_EQ(listOf(points), (List{{0, 7}, {1, 4}, {1, 5}, {2, 0}}));
    EXPECT_EQ(points.told, (std::vector<std::pair<int, int>>{{3, 5}, {3, 4}, {4, 3}}));
}

TEST(ConvexHull, AppendsToAHullThatHoldsPoints) {
    Listening points = arrayOf({{0, 0}, {4, 0}, {4, 4}, {0, 4}});
    suDynamicArray<mg2DPoint_c> hull;
    hull.Add({9, 9});
    hull.Add({8, 8});
    EXPECT_EQ(convexHull(points, hull), 1);
    EXPECT_EQ(listOf(hull), (List{{9, 9}, {8, 8}, {0, 0}, {4, 0}, {4, 4}, {0, 4}}));
}

TEST(ConvexHull, RefusesNothingAndItself) {
    Listening points;
    suDynamicArray<mg2DPoint_c> hull;
    EXPECT_EQ(convexHull(points, hull), 0);
    points.Add({1, 1});
    points.Add({0, 0});
    EXPECT_EQ(convexHull(points, points), 0);
    EXPECT_EQ(listOf(points), (List{{1, 1}, {0, 0}}));
}

TEST(ConvexHull, SortsNaNLastAndEndsOnHostileValues) {
    double const nan = std::numeric_limits<double>::quiet_NaN();
    Listening points = arrayOf({{nan, 0}, {1, nan}, {1, 2}, {0, 0}, {nan, nan}, {1e308, -1e308}});
    suDynamicArray<mg2DPoint_c> hull;
    EXPECT_EQ(convexHull(points, hull), 1);
    EXPECT_BITS_EQ(points[2].y(), nan);
    EXPECT_BITS_EQ(points[5].y(), nan);
    EXPECT_EQ(points[3].x(), 1e308);
    support::Random random;
    for (int round = 0; round < 2000; ++round) {
        List list;
        for (int i = 0; i < 9; ++i) list.emplace_back(random.hostile(), random.hostile());
        hullOf(list);
    }
}
