// SPDX-License-Identifier: MIT
// Hulls, tours and orders of points.

#include <vexmath/mg_queries.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

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
        std::mt19937_64 engine(11);
        std::uniform_real_distribution<double> coordinate(-100.0, 100.0);
        std::vector<mgPoint_c> result(manyPoints);
        for (mgPoint_c &p : result) {
            p.set_x(coordinate(engine));
            p.set_y(coordinate(engine));
            p.set_z(coordinate(engine));
        }
        return result;
    }();
    return all;
}

void countItems(benchmark::State &state, int perIteration) {
    state.SetItemsProcessed(state.iterations() * perIteration);
}

template <class Sort>
void sortPoints(benchmark::State &state, Sort sort) {
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<mgPoint_c> sorted = points();
        state.ResumeTiming();
        sort(sorted);
        benchmark::DoNotOptimize(sorted.data());
    }
    countItems(state, manyPoints);
}

void sortVexmath(benchmark::State &state) {
    sortPoints(state, [](auto &p) { mg_pointQuickSort(p.data(), 0, manyPoints - 1); });
}
BENCHMARK(sortVexmath)->Name("sort points/vexmath");

/// Another order: exact, where the library's has a tolerance.
void sortStd(benchmark::State &state) {
    auto const less = [](mgPoint_c const &a, mgPoint_c const &b) {
        if (a.x() != b.x()) return a.x() < b.x();
        if (a.y() != b.y()) return a.y() < b.y();
        return a.z() < b.z();
    };
    sortPoints(state, [&](auto &p) { std::sort(p.begin(), p.end(), less); });
}
BENCHMARK(sortStd)->Name("sort points/std::sort");

void hullVexmath(benchmark::State &state) {
    suDynamicArray<mg2DPoint_c> unsorted;
    for (mgPoint_c const &p : points()) unsorted.Add({p.x(), p.y()});
    for (auto _ : state) {
        state.PauseTiming();
        suDynamicArray<mg2DPoint_c> input = unsorted; // the call sorts it
        suDynamicArray<mg2DPoint_c> hull;
        state.ResumeTiming();
        benchmark::DoNotOptimize(convexHull(input, hull));
    }
    countItems(state, manyPoints);
}
BENCHMARK(hullVexmath)->Name("hull/vexmath");

#ifdef VEXMATH_BENCH_CGAL
using CgalPoint = CGAL::Simple_cartesian<double>::Point_2;

template <class Hull>
void hullCgal(benchmark::State &state, Hull hullOf) {
    std::vector<CgalPoint> input;
    for (mgPoint_c const &p : points()) input.emplace_back(p.x(), p.y());
    for (auto _ : state) {
        std::vector<CgalPoint> hull;
        hullOf(input.begin(), input.end(), std::back_inserter(hull));
        benchmark::DoNotOptimize(hull.data());
    }
    countItems(state, manyPoints);
}

/// The same method, sorting included.
void hullGrahamAndrew(benchmark::State &state) {
    hullCgal(state, [](auto... range) { CGAL::ch_graham_andrew(range...); });
}
BENCHMARK(hullGrahamAndrew)->Name("hull/CGAL Graham-Andrew");

/// Drops most points before it sorts.
void hullConvexHull2(benchmark::State &state) {
    hullCgal(state, [](auto... range) { CGAL::convex_hull_2(range...); });
}
BENCHMARK(hullConvexHull2)->Name("hull/CGAL convex_hull_2");
#endif

void tourVexmath(benchmark::State &state, int n) {
    suDynamicArray<mgPoint_c> stops;
    for (int i = 0; i < n; ++i) stops.Add(points()[static_cast<std::size_t>(i)]);
    for (auto _ : state) {
        suDynamicArray<int> order;
        mg_OpenTSP(stops, order);
        benchmark::DoNotOptimize(order.Data());
    }
    countItems(state, n);
}

#ifdef VEXMATH_BENCH_BOOST
using Distances = boost::adjacency_matrix<boost::undirectedS, boost::no_property,
                                          boost::property<boost::edge_weight_t, double>>;

/// A closed tour of at most twice the shortest length. The table of all distances, which it needs
/// and the library does without, is made beforehand.
void tourBoost(benchmark::State &state, std::size_t n) {
    Distances distances(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < i; ++j)
            boost::add_edge(i, j, (points()[i] - points()[j]).len(), distances);
    for (auto _ : state) {
        std::vector<std::size_t> tour;
        boost::metric_tsp_approx_tour(distances, std::back_inserter(tour));
        benchmark::DoNotOptimize(tour.data());
    }
    countItems(state, static_cast<int>(n));
}
#endif

[[maybe_unused]] bool const toursOfAllSizes = [] {
    for (int const n : {500, 1000, 2000, 4000}) {
        std::string const work = "tour of " + std::to_string(n);
        benchmark::RegisterBenchmark((work + "/vexmath").c_str(), tourVexmath, n);
#ifdef VEXMATH_BENCH_BOOST
        benchmark::RegisterBenchmark((work + "/Boost approximation").c_str(), tourBoost, n);
#endif
    }
    return true;
}();

} // namespace
