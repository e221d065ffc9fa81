// SPDX-License-Identifier: MIT
// Open and closed tours against literal versions of the rules, and the contract of the order.

#include <numeric>
#include <tuple>

#include "common/arrays.h"

namespace {

using namespace common;

using List = std::vector<P>;
using Order = std::vector<int>;

Order tourOf(decltype(mg_OpenTSP) function, List const &list) {
    Watched<P> points(list);
    Watched<int> order;
    function(points, order);
    return order.list();
}

/// The rule of insertion, step by step: three nested loops, a best cost that starts below all
/// others, and the ends tried after the detour. A closed tour ends with its start, and has no ends.
Order literalInsertion(List const &list, bool closed) {
    P const *const p = list.data();
    int const n = static_cast<int>(list.size());
    Order left(list.size() - 2), tour{n - 2, n - 1};
    std::iota(left.begin(), left.end(), 0);
    if (closed) tour.push_back(n - 2);
    while (!left.empty()) {
        double best = -1000.0;
        auto chosen = left.end();
        auto place = tour.end();
        for (auto k = tour.begin() + 1; k != tour.end(); ++k) {
            bool const first = !closed && k - 1 == tour.begin();
            bool const last = !closed && k + 1 == tour.end();
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
    if (closed) tour.pop_back();
    return tour;
}

/// Carries out the best exchange at point a, if there is any.
bool improve(P const *p, Order &tour, int a) {
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

Order literalTour(List const &p, bool closed) {
    Order tour(p.size());
    std::iota(tour.begin(), tour.end(), 0);
    if (p.size() < (closed ? 4 : 3)) return tour;
    tour = literalInsertion(p, closed);
    if (!closed) return tour;
    for (bool improved = true; improved;) {
        improved = false;
        for (int a = 0; a < static_cast<int>(p.size()); ++a) improved |= improve(p.data(), tour, a);
    }
    std::rotate(tour.begin(), std::find(tour.begin(), tour.end(), 0), tour.end());
    if (tour[1] > tour.back()) std::reverse(tour.begin() + 1, tour.end());
    return tour;
}

TEST(Tour, AgreesWithTheRule) {
    Random random;
    for (bool const closed : {false, true}) {
        auto const check = [&](int rounds, int mostPoints, auto point, Caller = {}) {
            for (int round = 0; round < rounds; ++round) {
                List list;
                for (int i = random.below(mostPoints); i >= 0; --i) list.push_back(point(round));
                ASSERT_EQ(literalTour(list, closed),
                          tourOf(closed ? mg_ClosedTSP : mg_OpenTSP, list));
            }
        };
        check(1000, 16, [&](int round) { // small grids: equal distances, coincident points
            int const side = 1 + round % 5;
            return P(random.below(side), random.below(side), random.below(1 + round % 2));
        });
        check(40, 60, [&](int round) {
            double const scales[] = {1.0, 1e-300, 1e150}, scale = scales[round % 3];
            return random.triple<P>(-scale, scale);
        });
        check(40, 60, [&](int i) { return P(i % 2, random.ofMagnitude(-9, 9), 0); });
        // Clusters whose distances are those of the last neighbours stored.
        check(300, 40,
              [&](int) { return P(random.below(4) * 1.5 + random.unit(), random.unit(), 0); });
        // Clusters and a line: edges far longer than the stored neighbours.
        check(4, closed ? 120 : 60, [&](int) {
            return random.below(3) ? P(random.below(5) * 1000 + random.unit(), random.unit(), 0)
                                   : P(0, random.uniform(-3000, 3000), 0);
        });
        if (closed) continue; // for which infinite distances are none
        check(500, 9, [&](int) { return P(random.hostile(), random.hostile(), 0); });
    }
}

TEST(ClosedTour, PointsWithoutFiniteDistancesKeepTheirOrder) {
    Random random;
    for (double const odd : {kNaN, kInfinity, 1e160}) {
        List list;
        for (int i = 0; i < 9; ++i) list.push_back(random.triple<P>(-1, 1));
        list[4].set_z(odd);
        EXPECT_EQ((Order{0, 1, 2, 3, 4, 5, 6, 7, 8}), tourOf(mg_ClosedTSP, list));
    }
    Hostile any;
    for (int round = 0; round < 1000; ++round)
        ASSERT_EQ(7u, tourOf(mg_ClosedTSP, {any, any, any, any, any, any, any}).size());
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
