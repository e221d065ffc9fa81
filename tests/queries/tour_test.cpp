// SPDX-License-Identifier: MIT
// Open tours: the library against a literal version of the rule, and the contract of the order.

#include <numeric>
#include <vector>

#include "common/geometry.h"

namespace {

using namespace common;

using List = std::vector<P>;
using Order = std::vector<int>;

/// The rule, step by step: three nested loops, a best cost that starts below all others, and the
/// ends tried after the detour.
Order literalTour(List const &list) {
    P const *const p = list.data();
    int const n = static_cast<int>(list.size());
    Order left(list.size());
    std::iota(left.begin(), left.end(), 0);
    if (n <= 2) return left;
    left.resize(list.size() - 2);
    Order tour{n - 2, n - 1};
    while (!left.empty()) {
        double best = -1000.0;
        auto chosen = left.end();
        auto place = tour.end();
        for (auto k = tour.begin() + 1; k != tour.end(); ++k) {
            bool const first = k - 1 == tour.begin(), last = k + 1 == tour.end();
            for (auto c = left.begin(); c != left.end(); ++c) {
                double const d4 = dist(p[*c], p[*k]), d5 = dist(p[*c], p[k[-1]]);
                double const cost = d4 + d5 - dist(p[k[-1]], p[*k]);
                if (!(chosen == left.end() || cost < best || (last && d4 < best)
                      || (first && d5 < best)))
                    continue;
                best = cost, chosen = c, place = k;
                if (last && d4 < best) best = d4, place = k + 1;
                if (first && d5 < best) best = d5, place = k - 1;
            }
        }
        tour.insert(place, *chosen);
        left.erase(chosen);
    }
    return tour;
}

Order tourOf(List const &list) {
    suDynamicArray<P> points;
    for (P const &p : list) points.Add(p);
    suDynamicArray<int> order;
    mg_OpenTSP(points, order);
    return {order.Data(), order.Data() + order.Count()};
}

TEST(OpenTour, AgreesWithTheRule) {
    Random random;
    auto const check = [&random](int rounds, int mostPoints, auto point, Caller = {}) {
        for (int round = 0; round < rounds; ++round) {
            List list;
            for (int i = random.below(mostPoints); i >= 0; --i) list.push_back(point(round));
            ASSERT_EQ(literalTour(list), tourOf(list));
        }
    };
    check(20000, 14, [&](int round) { // small grids: equal distances, coincident points
        int const side = 1 + round % 5;
        return P(random.below(side), random.below(side), random.below(1 + round % 2));
    });
    check(240, 60, [&](int round) {
        double const scales[] = {1.0, 1e-300, 1e150}, scale = scales[round % 3];
        return random.triple<P>(-scale, scale);
    });
    check(3000, 9, [&](int) { return P(random.hostile(), random.hostile(), 0); });
}

TEST(OpenTour, EmptiesFillsAndReplacesTheOrderWithNotifications) {
    struct Listening : suDynamicArray<int> {
        void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
        std::vector<std::pair<int, int>> told;
    };
    suDynamicArray<P> points;
    Listening order;
    mg_OpenTSP(points, order);
    for (int i = 0; i < 3; ++i) points.Add(P(i, 0, 0));
    mg_OpenTSP(points, order);
    decltype(order.told) const expected{{0, -1}, {0, -1}, {0, 0}, {1, 1}, {2, 2}, {0, 2}};
    EXPECT_EQ(expected, order.told);
}

TEST(OpenTour, AnOrderThatCannotGrowEndsUpEmptyUnlessThePathReplacesIt) {
    auto const check = [](int count, int n, int capacity, Caller = {}) {
        suDynamicArray<P> points;
        for (int i = 0; i < n; ++i) points.Add(P(i, 0, 0));
        suDynamicArray<int> order;
        order.Adopt(static_cast<int *>(suDynArrayAlloc(capacity, 0, 1, sizeof(int))));
        mg_OpenTSP(points, order);
        EXPECT_EQ(count, order.Count());
    };
    check(0, 2, 0), check(0, 2, 1), check(2, 2, 2), check(3, 3, 1);
}

} // namespace
