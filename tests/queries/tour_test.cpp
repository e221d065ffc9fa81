// SPDX-License-Identifier: MIT
// Open tours: the fast path against the rule as it reads, and the order array's own contract.

#include "support/numbers.h"

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include <gtest/gtest.h>

#include <limits>
#include <numeric>
#include <vector>

namespace {

using List = std::vector<mgPoint_c>;

/// The rule, word for word: three nested loops, a best cost that starts below everything, and the
/// end options tried after the detour.
std::vector<int> literalTour(List const &p) {
    int const n = static_cast<int>(p.size());
    std::vector<int> remaining(p.size());
    std::iota(remaining.begin(), remaining.end(), 0);
    if (n <= 2) return remaining;
    std::vector<int> tour{n - 2, n - 1};
    remaining.resize(p.size() - 2);
    auto at = [&](int place) {
        return p[static_cast<std::size_t>(tour[static_cast<std::size_t>(place)])];
    };
    while (!remaining.empty()) {
        double best = -1000.0;
        int bestPosition = -2;
        int bestCandidate = -2;
        int const count = static_cast<int>(tour.size());
        for (int k = 1; k <= count - 1; ++k) {
            double const length = dist(at(k - 1), at(k));
            for (int c = 0; c < static_cast<int>(remaining.size()); ++c) {
                mgPoint_c const &r =
                    p[static_cast<std::size_t>(remaining[static_cast<std::size_t>(c)])];
                double const d4 = dist(r, at(k));
                double const d5 = dist(r, at(k - 1));
                double const cost = d4 + d5 - length;
                bool const last = k == count - 1;
                bool const choose = bestPosition == -2 || cost < best || (last && d4 < best)
                                    || (k == 1 && d5 < best);
                if (!choose) continue;
                best = cost;
                bestPosition = k;
                bestCandidate = c;
                if (last && d4 < best) {
                    best = d4;
                    bestPosition = k + 1;
                }
                if (k == 1 && d5 < best) {
                    best = d5;
                    bestPosition = 0;
                }
            }
        }
        tour.insert(tour.begin() + bestPosition,
                    remaining[static_cast<std::size_t>(bestCandidate)]);
        remaining.erase(remaining.begin() + bestCandidate);
    }
    return tour;
}

std::vector<int> tourOf(List const &list) {
    suDynamicArray<mgPoint_c> points;
    for (mgPoint_c const &p : list) points.Add(p);
    suDynamicArray<int> order;
    mg_OpenTSP(points, order);
    return {order.Data(), order.Data() + order.Count()};
}

void CheckAgainstTheRule(List const &list) { ASSERT_EQ(tourOf(list), literalTour(list)); }

} // namespace

TEST(OpenTour, AgreesWithTheRuleOnTieHeavySets) {
    support::Random random;
    for (int round = 0; round < 20000; ++round) {
        // Small grids: equal distances, coincident and collinear points everywhere.
        int const n = 1 + random.below(14);
        int const side = random.below(5);
        int const depth = random.below(2);
        List list;
        for (int i = 0; i < n; ++i) {
            list.emplace_back(random.below(side + 1), random.below(side + 1),
                              random.below(depth + 1));
        }
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheRule(list));
    }
}

TEST(OpenTour, AgreesWithTheRuleOnScatteredAndHugeSets) {
    support::Random random;
    for (double const scale : {1.0, 1e-300, 1e150}) {
        for (int round = 0; round < 40; ++round) {
            List list;
            for (int i = 0; i < 60; ++i) {
                list.emplace_back(random.uniform(-scale, scale), random.uniform(-scale, scale),
                                  0.0);
            }
            ASSERT_NO_FATAL_FAILURE(CheckAgainstTheRule(list));
        }
    }
}

TEST(OpenTour, AgreesWithTheRuleWhereDistancesAreNotFinite) {
    support::Random random;
    double const odd[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          1e308,
                          -1e308,
                          0.0,
                          1.0,
                          2.0};
    for (int round = 0; round < 3000; ++round) {
        List list;
        for (int i = 0; i < 7; ++i)
            list.emplace_back(odd[random.below(7)], odd[random.below(7)], 0.0);
        ASSERT_NO_FATAL_FAILURE(CheckAgainstTheRule(list));
    }
}

TEST(OpenTour, StartsFromTheLastTwoPointsHoweverNearTheyAre) {
    EXPECT_EQ(tourOf({{10, 0, 0}, {0, 0, 0}, {1, 0, 0}}), (std::vector<int>{1, 2, 0}));
    EXPECT_EQ(tourOf({{-5, 0, 0}, {0, 0, 0}, {1, 0, 0}}), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(tourOf({{0.5, 0, 0}, {0, 0, 0}, {1, 0, 0}}), (std::vector<int>{1, 0, 2}));
}

TEST(OpenTour, EmptiesFillsAndReplacesTheOrderWithNotifications) {
    struct Listening : suDynamicArray<int> {
        void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
        std::vector<std::pair<int, int>> told;
    };
    using Told = std::vector<std::pair<int, int>>;
    suDynamicArray<mgPoint_c> points;
    Listening order;
    mg_OpenTSP(points, order);
    EXPECT_EQ(order.told, (Told{{0, -1}}));

    for (int i = 0; i < 3; ++i) points.Add(mgPoint_c(i, 0, 0));
    order.told.clear();
    mg_OpenTSP(points, order);
    EXPECT_EQ(order.told, (Told{{0, -1}, {0, 0}, {1, 1}, {2, 2}, {0, 2}}));
    EXPECT_EQ(vexmath::detail::headerOf(order.Data())->capacity, 3);
    EXPECT_EQ(vexmath::detail::headerOf(order.Data())->growStep, 1);
}
