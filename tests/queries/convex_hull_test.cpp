// SPDX-License-Identifier: MIT
// Planar hulls of few points, and the changes of the input. Against literal steps:
// fuzz/fuzz_point_sets.cpp.

#include "common/arrays.h"

namespace {

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
    // An edge of a length of exactly 1e-08 is the shortest that is divided.
    double const x = 7.8e-9, y = 6.257795138864805e-9;
    EXPECT_EQ((List{{0, 0}, {x / 2, y / 2}, {1e-9, 1}}),
              hullOf({{0, 0}, {x, y}, {x / 2, y / 2}, {1e-9, 1}}));
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

// Their x differ in 16 neighbouring bits, at each place of the fraction.
TEST(ConvexHull, SortsManyPoints) {
    Random random;
    for (int lowest = 16; lowest <= 52; lowest += 4) {
        List list;
        for (int i = 0; i < 2500; ++i)
            list.emplace_back(1 + std::ldexp(random.below(1 << 16), -lowest), random.below(3));
        Points points(list), hull({});
        EXPECT_EQ(1, convexHull(points, hull));
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
        EXPECT_EQ(list, points.list());
    }
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

} // namespace
