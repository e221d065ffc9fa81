// SPDX-License-Identifier: MIT
// The path of a typical request: move points, bound them, chain placements, test pairs for a clash.
// A name is "<work>/<who>"; bench/report.py compares those who do the same work.

#include <vexmath/bbox.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_transform.h>
#include <vexmath/point.h>
#include <vexmath/xform.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#ifdef VEXMATH_BENCH_EIGEN
#include <Eigen/Geometry>
#endif

namespace {

constexpr std::size_t pointCount = 1000000;
constexpr std::size_t placementCount = 1000;

std::mt19937_64 engine(7);

double random(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(engine);
}

/// The same work for everybody: numbers first, each library's own types from them.
struct Triple {
    double x, y, z;
};

Triple randomTriple(double reach) {
    return {random(-reach, reach), random(-reach, reach), random(-reach, reach)};
}

std::vector<Triple> const &vertices() {
    static std::vector<Triple> const all = [] {
        std::vector<Triple> triples(pointCount);
        for (Triple &triple : triples) triple = randomTriple(100.0);
        return triples;
    }();
    return all;
}

template <class Point>
std::vector<Point> verticesAs() {
    std::vector<Point> points;
    points.reserve(pointCount);
    for (Triple const &v : vertices()) points.emplace_back(v.x, v.y, v.z);
    return points;
}

/// A placement as a user writes it: turned about an axis, scaled, moved.
struct Placement {
    Triple move, axis;
    double angle, scale;
};

std::vector<Placement> const &placements() {
    static std::vector<Placement> const all = [] {
        std::vector<Placement> result(placementCount);
        for (Placement &p : result)
            p = {randomTriple(50.0), randomTriple(1.0), random(0.1, 3.0), random(0.5, 2.0)};
        return result;
    }();
    return all;
}

mgXform_c vexmathXform(Placement const &p) {
    mgUnitVector_c const axis(p.axis.x, p.axis.y, p.axis.z);
    mgVector_c const move(p.move.x, p.move.y, p.move.z);
    return mg_RestoreXform(mg_RotationMatrix(p.angle, axis, 0.0), move, p.scale);
}

void countItems(benchmark::State &state, std::size_t perIteration) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(perIteration));
}

// Points are moved there and back in turn, so that they stay of ordinary size. The loop is a
// function of its own, as with most callers: it knows nothing about its transform.

__attribute__((noinline)) void moveAll(std::vector<mgPoint_c> &points, mgXform_c const &x) {
    for (mgPoint_c &point : points) point *= x;
}

void transformPointsVexmath(benchmark::State &state) {
    auto points = verticesAs<mgPoint_c>();
    mgXform_c const there = vexmathXform(placements()[0]);
    mgXform_c const back = there.inverse();
    mgXform_c const *next = &there;
    for (auto _ : state) {
        moveAll(points, *next);
        next = next == &there ? &back : &there;
        benchmark::ClobberMemory();
    }
    countItems(state, pointCount);
}
BENCHMARK(transformPointsVexmath)->Name("transform points/vexmath");

void boundVexmath(benchmark::State &state) {
    auto const points = verticesAs<mgPoint_c>();
    for (auto _ : state) {
        mgBBox_c box;
        for (mgPoint_c const &point : points) box |= point;
        benchmark::DoNotOptimize(box);
    }
    countItems(state, pointCount);
}
BENCHMARK(boundVexmath)->Name("bounds/vexmath");

/// A box and a sphere that trust themselves: what the union costs without its test of validity.
struct UncheckedBounds {
    Triple low, high, centre;
    double radius;

    void add(Triple const &p) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        Triple const v{p.x - centre.x, p.y - centre.y, p.z - centre.z};
        double const sq = v.x * v.x + v.y * v.y + v.z * v.z;
        if (sq <= radius * radius) return;
        double const distance = std::sqrt(sq);
        double const grown = (radius + distance) * 0.5;
        double const step = (grown - radius) / distance;
        centre = {centre.x + v.x * step, centre.y + v.y * step, centre.z + v.z * step};
        radius = grown;
    }
};

void boundUnchecked(benchmark::State &state) {
    std::vector<Triple> const &points = vertices();
    for (auto _ : state) {
        UncheckedBounds bounds{points[0], points[0], points[0], 0.0};
        for (Triple const &point : points) bounds.add(point);
        benchmark::DoNotOptimize(bounds);
    }
    countItems(state, pointCount);
}
BENCHMARK(boundUnchecked)->Name("bounds/unchecked");

void composeVexmath(benchmark::State &state) {
    std::vector<mgXform_c> chain;
    for (Placement const &p : placements()) chain.push_back(vexmathXform(p));
    for (auto _ : state)
        for (std::size_t i = 1; i < chain.size(); ++i)
            benchmark::DoNotOptimize(chain[i - 1] * chain[i]);
    countItems(state, placementCount - 1);
}
BENCHMARK(composeVexmath)->Name("compose/vexmath");

void invertVexmath(benchmark::State &state) {
    std::vector<mgXform_c> all;
    for (Placement const &p : placements()) all.push_back(vexmathXform(p));
    for (auto _ : state)
        for (mgXform_c const &xform : all) benchmark::DoNotOptimize(xform.inverse());
    countItems(state, placementCount);
}
BENCHMARK(invertVexmath)->Name("inverse/vexmath");

void clashVexmath(benchmark::State &state) {
    struct Placed {
        mgBBox_c box;
        mgXform_c placement;
    };
    auto const placed = [](Placement const &p) {
        Triple const half{random(1.0, 20.0), random(1.0, 20.0), random(1.0, 20.0)};
        return Placed{
            mgBBox_c(mgPoint_c(-half.x, -half.y, -half.z), mgPoint_c(half.x, half.y, half.z)),
            vexmathXform(p)};
    };
    std::vector<std::pair<Placed, Placed>> pairs;
    for (std::size_t i = 0; i < placementCount; ++i)
        pairs.emplace_back(placed(placements()[i]), placed(placements()[placementCount - 1 - i]));
    for (auto _ : state)
        for (auto const &[a, b] : pairs)
            benchmark::DoNotOptimize(mgBBox_c::clash(a.box, a.placement, b.box, b.placement));
    countItems(state, pairs.size());
}
BENCHMARK(clashVexmath)->Name("placed clash/vexmath");

#ifdef VEXMATH_BENCH_EIGEN

Eigen::Affine3d eigenAffine(Placement const &p) {
    Eigen::Vector3d const axis = Eigen::Vector3d(p.axis.x, p.axis.y, p.axis.z).normalized();
    return Eigen::Translation3d(p.move.x, p.move.y, p.move.z) * Eigen::AngleAxisd(p.angle, axis)
           * Eigen::Scaling(p.scale);
}

__attribute__((noinline)) void moveAll(std::vector<Eigen::Vector3d> &points,
                                       Eigen::Affine3d const &x) {
    for (Eigen::Vector3d &point : points) point = x * point;
}

void transformPointsEigen(benchmark::State &state) {
    auto points = verticesAs<Eigen::Vector3d>();
    Eigen::Affine3d const there = eigenAffine(placements()[0]);
    Eigen::Affine3d const back = there.inverse(Eigen::Affine);
    Eigen::Affine3d const *next = &there;
    for (auto _ : state) {
        moveAll(points, *next);
        next = next == &there ? &back : &there;
        benchmark::ClobberMemory();
    }
    countItems(state, pointCount);
}
BENCHMARK(transformPointsEigen)->Name("transform points/Eigen");

void boundEigen(benchmark::State &state) {
    auto const points = verticesAs<Eigen::Vector3d>();
    for (auto _ : state) {
        Eigen::AlignedBox3d box;
        for (Eigen::Vector3d const &point : points) box.extend(point);
        benchmark::DoNotOptimize(box);
    }
    countItems(state, pointCount);
}
BENCHMARK(boundEigen)->Name("bounds/Eigen box only");

void composeEigen(benchmark::State &state) {
    std::vector<Eigen::Affine3d> chain;
    for (Placement const &p : placements()) chain.push_back(eigenAffine(p));
    for (auto _ : state)
        for (std::size_t i = 1; i < chain.size(); ++i) {
            Eigen::Affine3d product = chain[i] * chain[i - 1];
            benchmark::DoNotOptimize(product);
        }
    countItems(state, placementCount - 1);
}
BENCHMARK(composeEigen)->Name("compose/Eigen");

void invertEigen(benchmark::State &state) {
    std::vector<Eigen::Affine3d> all;
    for (Placement const &p : placements()) all.push_back(eigenAffine(p));
    for (auto _ : state)
        for (Eigen::Affine3d const &affine : all) {
            Eigen::Affine3d inverse = affine.inverse(Eigen::Affine);
            benchmark::DoNotOptimize(inverse);
        }
    countItems(state, placementCount);
}
BENCHMARK(invertEigen)->Name("inverse/Eigen");

#endif

} // namespace
