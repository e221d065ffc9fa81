// SPDX-License-Identifier: MIT
// Appending points one by one: a million, to one list and to three lists in step, and a thousand to
// each of a hundred lists.

#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/vector.h>

#include <vector>

#include <benchmark/benchmark.h>

namespace {

constexpr int pointCount = 1000000;

template <class T>
void append(suDynamicArray<T> &list, T const &element) {
    list.Add(element);
}
template <class T>
void append(std::vector<T> &list, T const &element) {
    list.push_back(element);
}

template <template <class...> class List>
void appendPoints(benchmark::State &state) {
    for (auto _ : state) {
        List<mgPoint_c> points;
        for (int i = 0; i < pointCount; ++i) append(points, mgPoint_c(i, 0.5, -1.0));
        benchmark::DoNotOptimize(&points[0]);
    }
    state.SetItemsProcessed(state.iterations() * pointCount);
}
BENCHMARK_TEMPLATE(appendPoints, suDynamicArray)->Name("append points/vexmath");
BENCHMARK_TEMPLATE(appendPoints, std::vector)->Name("append points/std::vector");

/// Lists of a thousand points, as of a curve, each released before the next.
template <template <class...> class List>
void appendToSmallLists(benchmark::State &state) {
    constexpr int size = 1000, lists = 100;
    for (auto _ : state) {
        for (int list = 0; list < lists; ++list) {
            List<mgPoint_c> points;
            for (int i = 0; i < size; ++i) append(points, mgPoint_c(i, 0.5, -1.0));
            benchmark::DoNotOptimize(&points[0]);
        }
    }
    state.SetItemsProcessed(state.iterations() * lists * size);
}
BENCHMARK_TEMPLATE(appendToSmallLists, suDynamicArray)->Name("append of 1000/vexmath");
BENCHMARK_TEMPLATE(appendToSmallLists, std::vector)->Name("append of 1000/std::vector");

/// As a curve is refined: the lists lie in each other's way, so none can grow in place.
template <template <class...> class List>
void appendInStep(benchmark::State &state) {
    for (auto _ : state) {
        List<mgPoint_c> points;
        List<mgVector_c> tangents;
        List<double> parameters;
        for (int i = 0; i < pointCount; ++i) {
            append(points, mgPoint_c(i, 0.5, -1.0));
            append(tangents, mgVector_c(1.0, 0.0, i));
            append(parameters, static_cast<double>(i));
        }
        benchmark::DoNotOptimize(&points[0]);
    }
    state.SetItemsProcessed(state.iterations() * pointCount);
}
BENCHMARK_TEMPLATE(appendInStep, suDynamicArray)->Name("append in step/vexmath");
BENCHMARK_TEMPLATE(appendInStep, std::vector)->Name("append in step/std::vector");

} // namespace
