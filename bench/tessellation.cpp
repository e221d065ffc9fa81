// SPDX-License-Identifier: MIT
// Arcs to polylines, against a loop that asks for a sine and a cosine at every point.

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include <cmath>
#include <cstdint>
#include <memory>

#include <benchmark/benchmark.h>

namespace {

constexpr double tolerance = 0.001;

/// A closed circle, in a plane that is not a coordinate plane.
struct Circle {
    mgPoint_c centre{10.0, 20.0, 30.0};
    mgUnitVector_c normal{1.0, 2.0, 3.0};
    double radius = 5.0;
    mgPoint_c start = centre + radius * normal.anyUnitNormal(0);
};

void tessellateToArray(benchmark::State &state) {
    Circle const circle;
    mgUnitVector_c const &n = circle.normal;
    arcEdgeData const arc{circle.centre, {n.x(), n.y(), n.z()}, circle.radius};
    int count = 0;
    for (auto _ : state) {
        mgPoint_c *points = nullptr;
        mg_TessArc(&arc, &circle.start, &circle.start, tolerance, &points, count, nullptr);
        benchmark::DoNotOptimize(points);
        delete[] points;
    }
    state.SetItemsProcessed(state.iterations() * (count + 1));
}
BENCHMARK(tessellateToArray)->Name("arc/vexmath");

void tessellateToList(benchmark::State &state) {
    Circle const circle;
    mgUnitVector_c const &n = circle.normal;
    arcEdgeData const arc{circle.centre, {n.x(), n.y(), n.z()}, circle.radius};
    int count = 0;
    for (auto _ : state) {
        suDynamicArray<mgPoint_c> points;
        mg_TessArc(&arc, &circle.start, &circle.start, tolerance, nullptr, count, &points);
        benchmark::DoNotOptimize(points);
    }
    state.SetItemsProcessed(state.iterations() * (count + 1));
}
BENCHMARK(tessellateToList)->Name("arc to list/vexmath");

void tessellateBySines(benchmark::State &state) {
    Circle const circle;
    mgVector_c const x = circle.start - circle.centre;
    mgVector_c const y = circle.normal * x;
    int const count = 240; // as many as above
    for (auto _ : state) {
        std::unique_ptr<mgPoint_c[]> const points(new mgPoint_c[count + 1]);
        for (int i = 0; i <= count; ++i) {
            double const angle = vexmath::kTwoPi * i / count;
            points[static_cast<std::size_t>(i)] =
                circle.centre + x * std::cos(angle) + y * std::sin(angle);
        }
        benchmark::DoNotOptimize(points.get());
    }
    state.SetItemsProcessed(state.iterations() * (count + 1));
}
BENCHMARK(tessellateBySines)->Name("arc/sine and cosine");

} // namespace
