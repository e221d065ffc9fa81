// SPDX-License-Identifier: MIT
// Closed tours: the library against a literal version of the rule, and against the shortest tours.

#include "common/geometry.h"

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
        double best = common::kInfinity;
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

/// Carries out the best exchange at point a, if there is any.
bool improve(mgPoint_c const *p, Order &tour, int a) {
    std::tuple<double, int, int> best{0.0, 0, 0}; // minus what it saves, c, b
    Order result;
    for (bool const backwards : {false, true}) {
        Order t = tour;
        if (backwards) std::reverse(t.begin(), t.end());
        std::rotate(t.begin(), std::find(t.begin(), t.end(), a) + 1, t.end()); // b ... c d ... a
        for (std::size_t i = 1; i + 2 < t.size(); ++i) {
            int const b = t[0], c = t[i], d = t[i + 1];
            if (!(dist(p[a], p[c]) < dist(p[a], p[b]))) continue;
            double const removed = dist(p[a], p[b]) + dist(p[c], p[d]);
            double const saved = removed - (dist(p[a], p[c]) + dist(p[b], p[d]));
            if (!(saved > 1e-12 * removed) || std::tuple(-saved, c, b) >= best) continue;
            best = {-saved, c, b};
            result = t;
            std::reverse(result.begin(), result.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
    }
    if (!result.empty()) tour = result;
    return !result.empty();
}

Order literalTour(List const &p) {
    Order tour(p.size());
    std::iota(tour.begin(), tour.end(), 0);
    if (p.size() < 4) return tour;
    tour = literalInsertion(p);
    for (bool improved = true; improved;) {
        improved = false;
        for (int a = 0; a < static_cast<int>(p.size()); ++a) improved |= improve(p.data(), tour, a);
    }
    std::rotate(tour.begin(), std::find(tour.begin(), tour.end(), 0), tour.end());
    if (tour[1] > tour.back()) std::reverse(tour.begin() + 1, tour.end());
    return tour;
}

/// M. Held, R. M. Karp, "A dynamic programming approach to sequencing problems", 1962.
double shortest(List const &p) {
    std::size_t const n = p.size() - 1, sets = std::size_t{1} << n;
    std::vector<double> cost(sets * n, common::kInfinity); // of a path from point n to an end
    for (std::size_t k = 0; k < n; ++k) cost[(std::size_t{1} << k) * n + k] = dist(p[n], p[k]);
    for (std::size_t set = 1; set < sets; ++set)
        for (std::size_t k = 0; k < n; ++k)
            for (std::size_t next = 0; next < n && (set >> k & 1); ++next) {
                if (set >> next & 1) continue;
                double &there = cost[(set | std::size_t{1} << next) * n + next];
                there = std::min(there, cost[set * n + k] + dist(p[k], p[next]));
            }
    double least = common::kInfinity;
    for (std::size_t k = 0; k < n; ++k)
        least = std::min(least, cost[(sets - 1) * n + k] + dist(p[k], p[n]));
    return least;
}

TEST(ClosedTour, AgreesWithTheLiteralRule) {
    common::Random random;
    auto const check = [&random](int rounds, int mostPoints, auto point, common::Caller = {}) {
        for (int round = 0; round < rounds; ++round) {
            List list;
            for (int i = random.below(mostPoints); i >= 0; --i) list.push_back(point(round));
            ASSERT_EQ(literalTour(list), tourOf(list));
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
    check(4, 200, [&](int) { // clusters and a line: edges far longer than the stored neighbours
        return random.below(3) ? mgPoint_c(random.below(5) * 1000 + random.unit(), random.unit(), 0)
                               : mgPoint_c(0, random.uniform(-3000, 3000), 0);
    });
}

TEST(ClosedTour, IsHardlyLongerThanTheShortest) {
    common::Random random;
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

TEST(ClosedTour, PointsWithoutFiniteDistancesKeepTheirOrder) {
    common::Random random;
    for (double const odd : {common::kNaN, common::kInfinity, 1e160}) {
        List list;
        for (int i = 0; i < 9; ++i) list.push_back(random.triple<mgPoint_c>(-1, 1));
        list[4].set_z(odd);
        EXPECT_EQ((Order{0, 1, 2, 3, 4, 5, 6, 7, 8}), tourOf(list));
    }
    common::Hostile any;
    for (int round = 0; round < 3000; ++round)
        ASSERT_EQ(7u, tourOf({any, any, any, any, any, any, any}).size());
}

TEST(ClosedTour, TellsOfTheIndicesAndOfTheNewBlock) {
    struct Listening : suDynamicArray<int> {
        void elementsChanged(int first, int last) override { told.emplace_back(first, last); }
        std::vector<std::pair<int, int>> told;
    };
    for (int const n : {0, 3, 4}) { // of 4 points in order, too
        suDynamicArray<mgPoint_c> points;
        std::vector<std::pair<int, int>> told{{0, -1}};
        for (int i = 0; i < n; ++i) {
            points.Add(mgPoint_c(i, i * i, 0));
            told.emplace_back(i, i);
        }
        if (n == 4) told.emplace_back(0, 3);
        Listening order;
        mg_ClosedTSP(points, order);
        EXPECT_EQ(told, order.told);
    }
}

} // namespace
