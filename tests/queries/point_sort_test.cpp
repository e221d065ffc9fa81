// SPDX-License-Identifier: MIT
// The range of sorted points, and the time of equal ones. Against literal steps:
// fuzz/fuzz_point_sets.cpp.

#include <ctime>

#include "common/geometry.h"

namespace {

using List = std::vector<P>;

TEST(PointSort, EqualPointsTakeNoLongerWhenTheyHoldNaNOrInfinity) {
    auto const clocksFor = [](P const &p) {
        List list(20000, p);
        std::clock_t const start = std::clock();
        mg_pointQuickSort(list.data(), 0, static_cast<int>(list.size()) - 1);
        return static_cast<double>(std::clock() - start);
    };
    double const finite = clocksFor({1, 0, 0});
    double const slack = 0.1 * CLOCKS_PER_SEC;
    for (double x : {kNaN, kInfinity, -kInfinity})
        EXPECT_LT(clocksFor({x, 0, 0}), 10.0 * finite + slack); // not a thousandfold
}

TEST(PointSort, SortsOnlyTheRangeAndRefusesAnEmptyOne) {
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        P list[] = {{9, 0, 0}, {3, 0, 0}, {2, 0, 0}, {1, 0, 0}, {0, 0, 0}};
        sort(list, 3, 1);
        EXPECT_EQ(3, list[1].x());
        sort(list, 1, 3);
        for (int i = 0; i < 5; ++i) EXPECT_EQ(i == 0 ? 9 : i % 4, list[i].x());
    }
}

} // namespace
