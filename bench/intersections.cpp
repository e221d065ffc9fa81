// SPDX-License-Identifier: MIT
// Lines against planes and each other, segments against segments. The peers trust their input; the
// library tells parallel, coincident and missing apart.

#include <vexmath/mg_queries.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include <benchmark/benchmark.h>

#include "common/generator.h"

#ifdef VEXMATH_BENCH_EIGEN
#include <Eigen/Geometry>
#endif
#ifdef VEXMATH_BENCH_IMATH
#include <Imath/ImathLine.h>
#include <Imath/ImathPlane.h>
#endif

namespace {

constexpr std::size_t count = 256; // what stays in the first cache

/// A point, a direction, and another of each.
struct Numbers {
    double value[12];
};

std::vector<Numbers> const &numbers() {
    static std::vector<Numbers> const all = [] {
        common::Generator generator(11);
        std::vector<Numbers> result(count);
        for (Numbers &n : result) {
            for (double &value : n.value) value = generator.uniform(-1.0, 1.0);
        }
        return result;
    }();
    return all;
}

template <class Pair>
std::vector<Pair> pairs() {
    std::vector<Pair> result;
    for (Numbers const &n : numbers()) result.emplace_back(n.value);
    return result;
}

/// Runs the call over all pairs; its results are added so that none is left out.
template <class Pair, class Call>
void measure(benchmark::State &state, Call const &call) {
    auto const all = pairs<Pair>();
    for (auto _ : state) {
        double sum = 0.0;
        for (Pair const &pair : all) sum += call(pair);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

struct LineAndPlane {
    explicit LineAndPlane(double const *v)
        : line(v, mgUnitVector_c(v + 3)), plane(v + 6, mgUnitVector_c(v + 9)) {}
    mgLine_c line;
    mgPlane_c plane;
};

void linePlaneVexmath(benchmark::State &state) {
    measure<LineAndPlane>(state, [](LineAndPlane const &pair) {
        mgPoint_c out;
        mg_LineIntPlane(pair.line, pair.plane, &out, nullptr);
        return out.x() + out.y() + out.z();
    });
}
BENCHMARK(linePlaneVexmath)->Name("line plane/vexmath");

struct TwoLines {
    explicit TwoLines(double const *v) : p1(v), d1(v + 3), p2(v + 6), d2(v + 9) {}
    mgPoint_c p1;
    mgUnitVector_c d1;
    mgPoint_c p2;
    mgUnitVector_c d2;
};

void lineLineVexmath(benchmark::State &state) {
    measure<TwoLines>(state, [](TwoLines const &pair) {
        mgPoint_c out;
        mg_LineIntLine(pair.p1, pair.d1, pair.p2, pair.d2, &out, 1e-8);
        return out.x() + out.y() + out.z();
    });
}
BENCHMARK(lineLineVexmath)->Name("line line/vexmath");

void segmentsVexmath(benchmark::State &state) {
    measure<TwoLines>(state, [](TwoLines const &pair) {
        mgPoint_c out;
        mg_LineSegIntLineSeg(pair.p1, mgPoint_c(pair.d1), pair.p2, mgPoint_c(pair.d2), out, 1e-8);
        return out.x() + out.y() + out.z();
    });
}
BENCHMARK(segmentsVexmath)->Name("segment segment/vexmath");

#ifdef VEXMATH_BENCH_EIGEN

struct EigenLineAndPlane {
    explicit EigenLineAndPlane(double const *v)
        : line(Eigen::Vector3d(v), Eigen::Vector3d(v + 3).normalized()),
          plane(Eigen::Vector3d(v + 9).normalized(), Eigen::Vector3d(v + 6)) {}
    Eigen::ParametrizedLine<double, 3> line;
    Eigen::Hyperplane<double, 3> plane;
};

void linePlaneEigen(benchmark::State &state) {
    measure<EigenLineAndPlane>(state, [](EigenLineAndPlane const &pair) {
        return pair.line.intersectionPoint(pair.plane).sum();
    });
}
BENCHMARK(linePlaneEigen)->Name("line plane/Eigen");

#endif

#ifdef VEXMATH_BENCH_IMATH

Imath::V3d imath(double const *v) { return {v[0], v[1], v[2]}; }

struct ImathLineAndPlane {
    explicit ImathLineAndPlane(double const *v)
        : line(imath(v), imath(v) + imath(v + 3)), plane(imath(v + 6), imath(v + 9)) {}
    Imath::Line3d line;
    Imath::Plane3d plane;
};

void linePlaneImath(benchmark::State &state) {
    measure<ImathLineAndPlane>(state, [](ImathLineAndPlane const &pair) {
        Imath::V3d out(0.0); // unwritten when they are parallel
        pair.plane.intersect(pair.line, out);
        return out.x + out.y + out.z;
    });
}
BENCHMARK(linePlaneImath)->Name("line plane/Imath");

struct ImathTwoLines {
    explicit ImathTwoLines(double const *v)
        : first(imath(v), imath(v) + imath(v + 3)),
          second(imath(v + 6), imath(v + 6) + imath(v + 9)) {}
    Imath::Line3d first;
    Imath::Line3d second;
};

void lineLineImath(benchmark::State &state) {
    measure<ImathTwoLines>(state, [](ImathTwoLines const &pair) {
        Imath::V3d const out = pair.first.closestPointTo(pair.second);
        return out.x + out.y + out.z;
    });
}
BENCHMARK(lineLineImath)->Name("line line/Imath");

#endif

} // namespace
