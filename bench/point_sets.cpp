// SPDX-License-Identifier: MIT
// Hulls, tours and orders of points.

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "works.h"

#ifdef VEXMATH_BENCH_CGAL
#include <CGAL/Simple_cartesian.h>
#include <CGAL/ch_graham_andrew.h>
#include <CGAL/convex_hull_2.h>
#endif
#ifdef VEXMATH_BENCH_BOOST
#include <boost/graph/adjacency_matrix.hpp>
#include <boost/graph/metric_tsp_approx.hpp>
#endif

namespace {

constexpr int manyPoints = 1000000;

/// The same points for everybody: in a cube of the size of a machine part.
std::vector<mgPoint_c> const &points() {
    static std::vector<mgPoint_c> const all = [] {
        common::Generator generator(11);
        auto const coordinate = [&generator] { return generator.uniform(-100.0, 100.0); };
        std::vector<mgPoint_c> result(manyPoints);
        for (mgPoint_c &p : result) {
            p.set_x(coordinate());
            p.set_y(coordinate());
            p.set_z(coordinate());
        }
        return result;
    }();
    return all;
}

/// n of the points, from another place each time: a processor learns what it sees again.
mgPoint_c const *somePoints(int n) {
    static int next = 0;
    if (next + n > manyPoints) next = 0;
    return points().data() + (next += n) - n;
}

template <class Sort>
void addSort(std::string const &work, char const *who, int n, Sort const &sort) {
    auto const some = [n] {
        mgPoint_c const *const first = somePoints(n);
        return std::vector<mgPoint_c>(first, first + n);
    };
    works::addPrepared(work, who, static_cast<std::size_t>(n), some, [sort](auto &unsorted) {
        sort(unsorted);
        benchmark::DoNotOptimize(unsorted.data());
    });
}

void addSorts(int n) {
    std::string const work = "sort of " + std::to_string(n);
    addSort(work, "vexmath", n,
            [n](auto &unsorted) { mg_pointQuickSort(unsorted.data(), 0, n - 1); });
    // Another order: exact, where the library's has a tolerance.
    auto const less = [](mgPoint_c const &a, mgPoint_c const &b) {
        if (a.x() != b.x()) return a.x() < b.x();
        if (a.y() != b.y()) return a.y() < b.y();
        return a.z() < b.z();
    };
    addSort(work, "std::sort", n,
            [less](auto &unsorted) { std::sort(unsorted.begin(), unsorted.end(), less); });
}

#ifdef VEXMATH_BENCH_CGAL
using CgalPoint = CGAL::Simple_cartesian<double>::Point_2;

template <class Hull>
void addCgalHull(std::string const &work, char const *who, int n, Hull const &hullOf) {
    auto const input = [n] {
        std::vector<CgalPoint> result;
        mgPoint_c const *p = somePoints(n);
        for (int i = 0; i < n; ++i, ++p) result.emplace_back(p->x(), p->y());
        return result;
    };
    works::addPrepared(work, who, static_cast<std::size_t>(n), input, [hullOf](auto const &all) {
        std::vector<CgalPoint> hull;
        hullOf(all.begin(), all.end(), std::back_inserter(hull));
        benchmark::DoNotOptimize(hull.data());
    });
}
#endif

void addHulls(int n) {
    std::string const work = "hull of " + std::to_string(n);
    auto const some = [n] {
        suDynamicArray<mg2DPoint_c> result;
        mgPoint_c const *p = somePoints(n);
        for (int i = 0; i < n; ++i, ++p) result.Add({p->x(), p->y()});
        return result;
    };
    works::addPrepared(work, "vexmath", static_cast<std::size_t>(n), some, [](auto &input) {
        suDynamicArray<mg2DPoint_c> hull;
        benchmark::DoNotOptimize(convexHull(input, hull));
    });
#ifdef VEXMATH_BENCH_CGAL
    // The same method, sorting included; and one that drops most points before it sorts.
    addCgalHull(work, "CGAL Graham-Andrew", n,
                [](auto... range) { CGAL::ch_graham_andrew(range...); });
    addCgalHull(work, "CGAL convex_hull_2", n,
                [](auto... range) { CGAL::convex_hull_2(range...); });
#endif
}

/// How long an open tour is, for the table.
template <class Order>
double lengthOf(Order const &order) {
    double length = 0.0;
    for (std::size_t i = 1; i < order.size(); ++i)
        length += (points()[order[i]] - points()[order[i - 1]]).len();
    return length;
}

void tourVexmath(benchmark::State &state, int n) {
    suDynamicArray<mgPoint_c> stops;
    for (int i = 0; i < n; ++i) stops.Add(points()[static_cast<std::size_t>(i)]);
    suDynamicArray<int> order;
    for (auto _ : state) {
        order = suDynamicArray<int>();
        mg_OpenTSP(stops, order);
        benchmark::DoNotOptimize(order.Data());
    }
    std::vector<std::size_t> tour;
    for (int i = 0; i < order.Count(); ++i) tour.push_back(static_cast<std::size_t>(order[i]));
    state.counters["length"] = lengthOf(tour);
    works::countItems(state, static_cast<std::size_t>(n));
}

#ifdef VEXMATH_BENCH_BOOST
using Distances = boost::adjacency_matrix<boost::undirectedS, boost::no_property,
                                          boost::property<boost::edge_weight_t, double>>;

/// At most twice the shortest length, without the return to the start. It needs the table of all
/// distances, which is made before the clock starts; the library needs none.
void tourBoost(benchmark::State &state, std::size_t n) {
    Distances distances(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j)
            boost::add_edge(i, j, (points()[i] - points()[j]).len(), distances);
    std::vector<std::size_t> tour;
    for (auto _ : state) {
        tour.clear();
        boost::metric_tsp_approx_tour(distances, std::back_inserter(tour));
        benchmark::DoNotOptimize(tour.data());
    }
    tour.pop_back(); // the start again
    state.counters["length"] = lengthOf(tour);
    works::countItems(state, n);
}
#endif

void addTours(int n) {
    std::string const work = "tour of " + std::to_string(n);
    works::add(work, "vexmath", [n](benchmark::State &state) { tourVexmath(state, n); });
#ifdef VEXMATH_BENCH_BOOST
    works::add(work, "Boost 2-approximation",
               [n](benchmark::State &state) { tourBoost(state, static_cast<std::size_t>(n)); });
#endif
}

[[maybe_unused]] bool const ofAllSizes = [] {
    for (int const n : {500, 1000, 2000, 4000}) addTours(n);
    for (int const n : {1000, 10000, 100000, manyPoints}) {
        addSorts(n);
        addHulls(n);
    }
    return true;
}();

} // namespace
