// SPDX-License-Identifier: MIT
// Closed tours: the library against a literal version of the rule, and against the shortest tours.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <numeric>
#include <tuple>
#include <vector>

namespace {

using List = std::vector<mgPoint_c>;
using Order = std::vector<int>;

Order tourOf(List const &list) {
    suDynamicArray<mgPoint_c> points;
    for (mgPoint_c const &p : list) points.Add(p);
    suDynamicArray<int> order;
    mg_ClosedTSP(points, order);
    return {order.Data(), order.Data() + order.Count()};
}

double lengthOf(List const &list, Order const &order) {
    mgPoint_c const *const p = list.data();
    double sum = 0.0;
    for (std::size_t i = 0; i < order.size(); ++i)
        sum += dist(p[order[i]], p[order[(i + 1) % order.size()]]);
    return sum;
}

Order literalInsertion(List const &list) {
    mgPoint_c const *const p = list.data();
    int const n = static_cast<int>(list.size());
    Order tour{n - 2, n - 1}, left(list.size() - 2);
    std::iota(left.begin(), left.end(), 0);
    while (!left.empty()) {
        double best = support::kInfinity;
        std::size_t at = 0, chosen = 0;
        for (std::size_t k = 0; k < tour.size(); ++k)
            for (std::size_t i = 0; i < left.size(); ++i) {
                mgPoint_c const &a = p[tour[k]], &b = p[tour[(k + 1) % tour.size()]];
                double const cost = dist(p[left[i]], b) + dist(p[left[i]], a) - dist(b, a);
                if (cost < best) std::tie(best, at, chosen) = std::tuple(cost, k, i);
            }
        tour.insert(tour.begin() + static_cast<std::ptrdiff_t>(at) + 1, left[chosen]);
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(chosen));
    }
    return tour;
}

/// The best exchange at point a: what it saves, c, b, and the tour after it.
std::tuple<double, int, int, Order> literalExchange(mgPoint_c const *p, Order const &tour, int a) {
    std::tuple<double, int, int, Order> best{0.0, 0, 0, {}};
    for (bool const backwards : {false, true}) {
        Order t = tour;
        if (backwards) std::reverse(t.begin(), t.end());
        std::rotate(t.begin(), std::find(t.begin(), t.end(), a) + 1, t.end()); // b ... c d ... a
        for (std::size_t i = 1; i + 2 < t.size(); ++i) {
            int const b = t[0], c = t[i], d = t[i + 1];
            if (!(dist(p[a], p[c]) < dist(p[a], p[b]))) continue;
            double const removed = dist(p[a], p[b]) + dist(p[c], p[d]);
            double const saved = removed - (dist(p[a], p[c]) + dist(p[b], p[d]));
            auto const &[most, bestC, bestB, ignored] = best;
            if (!(saved > 1e-12 * removed) || saved < most) continue;
            if (saved == most && std::pair(c, b) > std::pair(bestC, bestB)) continue;
            Order exchanged = t;
            std::reverse(exchanged.begin(), exchanged.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            best = {saved, c, b, exchanged};
        }
    }
    return best;
}

Order literalTour(List const &p) {
    Order tour(p.size());
    std::iota(tour.begin(), tour.end(), 0);
    if (p.size() < 4) return tour;
    tour = literalInsertion(p);
    for (bool improved = true; improved;) {
        improved = false;
        for (int a = 0; a < static_cast<int>(p.size()); ++a) {
            auto const exchange = literalExchange(p.data(), tour, a);
            if (std::get<0>(exchange) == 0.0) continue;
            tour = std::get<3>(exchange);
            improved = true;
        }
    }
    std::rotate(tour.begin(), std::find(tour.begin(), tour.end(), 0), tour.end());
    if (tour[1] > tour.back()) std::reverse(tour.begin() + 1, tour.end());
    return tour;
}

/// M. Held, R. M. Karp, "A dynamic programming approach to sequencing problems", 1962.
double shortest(List const &p) {
    std::size_t const n = p.size() - 1, sets = std::size_t{1} << n;
    std::vector<double> cost(sets * n, support::kInfinity); // of a path from point n to an end
    for (std::size_t k = 0; k < n; ++k) cost[(std::size_t{1} << k) * n + k] = dist(p[n], p[k]);
    for (std::size_t set = 1; set < sets; ++set)
        for (std::size_t k = 0; k < n; ++k)
            for (std::size_t next = 0; next < n && (set >> k & 1); ++next) {
                if (set >> next & 1) continue;
                double &there = cost[(set | std::size_t{1} << next) * n + next];
                there = std::min(there, cost[set * n + k] + dist(p[k], p[next]));
            }
    double least = support::kInfinity;
    for (std::size_t k = 0; k < n; ++k)
        least = std::min(least, cost[(sets - 1) * n + k] + dist(p[k], p[n]));
    return least;
}

TEST(ClosedTour, AgreesWithTheLiteralRule) {
    support::Random random;
    auto const check = [&random](int rounds, int mostPoints, auto point, support::Caller = {}) {
        for (int round = 0; round < rounds; ++round) {
            List list;
            for (int i = random.below(mostPoints); i >= 0; --i) list.push_back(point(round));
            Order const tour = tourOf(list);
            ASSERT_EQ(literalTour(list), tour);
            if (list.size() < 4) continue;
            ASSERT_LE(lengthOf(list, tour), lengthOf(list, literalInsertion(list)) * (1 + 1e-14));
        }
    };
    check(2000, 16, [&](int round) { // small grids: equal distances, coincident points
        int const side = 1 + round % 5;
        return mgPoint_c(random.below(side), random.below(side), random.below(1 + round % 2));
    });
    check(40, 60, [&](int round) {
        double const scales[] = {1.0, 1e-300, 1e150}, scale = scales[round % 3];
        return random.triple<mgPoint_c>(-scale, scale);
    });
    check(40, 60, [&](int i) { return mgPoint_c(i % 2, random.ofMagnitude(-9, 9), 0); });
}

TEST(ClosedTour, IsHardlyLongerThanTheShortest) {
    support::Random random;
    double sum = 0.0;
    for (int round = 0; round < 60; ++round) {
        List list;
        for (int i = 5 + round % 7; i >= 0; --i) list.push_back(random.triple<mgPoint_c>(-1, 1));
        double const ratio = lengthOf(list, tourOf(list)) / shortest(list);
        ASSERT_GE(ratio, 1.0 - 1e-12);
        ASSERT_LE(ratio, 1.3);
        sum += ratio;
    }
    EXPECT_LE(sum, 60 * 1.03);
}

TEST(ClosedTour, NoExchangeImprovesAThousandPoints) {
    support::Random random;
    List list; // clusters and a line: edges far longer than the neighbours that are stored
    for (int i = 0; i < 1000; ++i)
        list.push_back(i % 3 ? mgPoint_c(i % 5 * 1000 + random.unit(), random.unit(), 0)
                             : mgPoint_c(0, random.uniform(-3000, 3000), 0));
    Order const t = tourOf(list);
    Order sorted = t;
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < 1000; ++i) ASSERT_EQ(i, sorted[static_cast<std::size_t>(i)]);
    EXPECT_TRUE(t[0] == 0 && t[1] < t.back());
    for (std::size_t i = 0; i < 1000; ++i)
        for (std::size_t k = i + 1; k < 1000; ++k) {
            mgPoint_c const *const p = list.data();
            mgPoint_c const &a = p[t[i]], &b = p[t[i + 1]], &c = p[t[k]], &d = p[t[(k + 1) % 1000]];
            double const removed = dist(a, b) + dist(c, d);
            ASSERT_LE(removed - dist(a, c) - dist(b, d), 2e-12 * removed);
        }
}

TEST(ClosedTour, PointsWithoutFiniteDistancesKeepTheirOrder) {
    support::Random random;
    for (double const odd : {support::kNaN, support::kInfinity, 1e160}) {
        List list;
        for (int i = 0; i < 9; ++i) list.push_back(random.triple<mgPoint_c>(-1, 1));
        list[4].set_z(odd);
        EXPECT_EQ((Order{0, 1, 2, 3, 4, 5, 6, 7, 8}), tourOf(list));
    }
    for (int round = 0; round < 3000; ++round) {
        List list(7);
        for (mgPoint_c &p : list) p = random.hostile<mgPoint_c>();
        ASSERT_EQ(7u, tourOf(list).size());
    }
}

TEST(ClosedTour, EmptiesFillsAndReplacesTheOrderWithNotifications) {
    struct Listening : suDynamicArray<int> {
        void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
        std::vector<std::pair<int, int>> told;
    };
    auto const check = [](int n, std::vector<std::pair<int, int>> const &told,
                          support::Caller = {}) {
        suDynamicArray<mgPoint_c> points;
        for (int i = 0; i < n; ++i) points.Add(mgPoint_c(i, i * i, 0));
        Listening order;
        mg_ClosedTSP(points, order);
        EXPECT_EQ(told, order.told);
    };
    check(0, {{0, -1}});
    check(3, {{0, -1}, {0, 0}, {1, 1}, {2, 2}});
    check(4, {{0, -1}, {0, 0}, {1, 1}, {2, 2}, {3, 3}, {0, 3}});
}

} // namespace
