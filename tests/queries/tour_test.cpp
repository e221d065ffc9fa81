// SPDX-License-Identifier: MIT
// The contract of the order. Tours against literal versions of the rules: fuzz/fuzz_point_sets.cpp.

#include "common/arrays.h"

namespace {

using List = std::vector<P>;
using Order = std::vector<int>;

Order tourOf(decltype(mg_OpenTSP) function, List const &list) {
    Watched<P> points(list);
    Watched<int> order;
    function(points, order);
    return order.list();
}

TEST(OpenTour, StartsWithTheLastTwoPoints) {
    EXPECT_EQ((Order{0, 2, 3, 1}),
              tourOf(mg_OpenTSP, {{0, 0, 0}, {4, 0, 0}, {0, 1, 0}, {4, 1, 0}}));
}

TEST(ClosedTour, PointsWithoutFiniteDistancesKeepTheirOrder) {
    Random random;
    for (double const odd : {kNaN, kInfinity, 1e160}) {
        List list;
        for (int i = 0; i < 9; ++i) list.push_back(random.triple<P>(-1, 1));
        list[4].set_z(odd);
        EXPECT_EQ((Order{0, 1, 2, 3, 4, 5, 6, 7, 8}), tourOf(mg_ClosedTSP, list));
    }
}

TEST(ClosedTour, AGainCountsAboveOneInATrillion) {
    auto const tour = [](double gap) {
        return tourOf(mg_ClosedTSP, {{8 - gap, 6, 0}, {5, 4, 0}, {1, 9, 0}, {8, 6, 0}, {1, 0, 0}});
    };
    EXPECT_EQ((Order{0, 2, 4, 1, 3}), tour(1.35e-10));
    EXPECT_EQ((Order{0, 1, 4, 2, 3}), tour(1.25e-10));
}

TEST(Tour, TellsOfTheIndicesAndOfTheNewBlock) {
    auto const check = [](decltype(mg_OpenTSP) function, List const &list, Changes const &told,
                          Caller = {}) {
        Watched<P> points(list);
        Watched<int> order({7, 8});
        function(points, order);
        EXPECT_EQ(told, order.told);
    };
    P const o, p(1, 1, 0), q(2, 4, 0), r(3, 9, 0);
    check(mg_OpenTSP, {}, {{0, -1}}), check(mg_OpenTSP, {o, p}, {{0, -1}, {0, 0}, {1, 1}});
    check(mg_OpenTSP, {o, p, q}, {{0, -1}, {0, 0}, {1, 1}, {2, 2}, {0, 2}});
    check(mg_ClosedTSP, {}, {{0, -1}});
    check(mg_ClosedTSP, {o, p, q}, {{0, -1}, {0, 0}, {1, 1}, {2, 2}});
    check(mg_ClosedTSP, {o, p, q, r}, {{0, -1}, {0, 0}, {1, 1}, {2, 2}, {3, 3}, {0, 3}});
}

} // namespace
