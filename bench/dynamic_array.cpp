// SPDX-License-Identifier: MIT
// Appending a million points one by one, to one list and to three lists in step.

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
