// SPDX-License-Identifier: MIT
// A fixed set of works for valgrind's callgrind, which counts their instructions one by one:
// bench/guard.py runs this and compares. Works have the names of the benchmarks where there is one.
// Nothing here depends on a clock or a random seed.

#include <vexmath/vexmath.h>

#include <array>
#include <cstddef>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include <valgrind/callgrind.h>

#include "common/generator.h"

namespace {

constexpr int kItems = 1000;

/// Keeps a result from being left out, and tells nothing of it.
template <class T>
void keep(T const &value) {
    asm volatile("" : : "r"(&value) : "memory");
}

/// What the work executes is written out under its name; "items" says for how many items.
template <class Work>
void count(std::string const &name, int items, Work const &work) {
    work(); // whatever the first call alone must do
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    std::printf("%s\t%d\n", name.c_str(), items);
}

template <class Work>
void countEach(std::string const &name, Work const &work) {
    count(name, kItems, [&work] {
        for (std::size_t i = 0; i < kItems; ++i) keep(work(i));
    });
}

/// The same numbers everywhere.
struct Numbers {
    double next(double reach) { return generator.uniform(-1.0, 1.0) * reach; }
    mgPoint_c point(double reach) {
        double const x = next(reach), y = next(reach), z = next(reach);
        return {x, y, z};
    }
    mgUnitVector_c direction() {
        mgPoint_c const p = point(1.0);
        return {p.x(), p.y(), p.z()};
    }
    mgXform_c placement() {
        mgUnitVector_c const axis = direction();
        double const angle = next(3.0);
        return mg_RestoreXform(mg_RotationMatrix(angle, axis, 0.0), point(30.0), 1.5);
    }

    common::Generator generator{1};
};

template <class Make>
auto inputs(Make const &make, int n = kItems) {
    std::vector<decltype(make())> all;
    for (int i = 0; i < n; ++i) all.push_back(make());
    return all;
}

void points(Numbers &in) {
    mgXform_c const x = in.placement(), move = mg_TranslateXform(mgVector_c(1.0, 2.0, 3.0));
    auto all = inputs([&in] { return in.point(100.0); });
    auto const array = [&all](mgXform_c const &form) {
        return [&all, &form] { mg_TransformPoints(all.data(), kItems, form); };
    };
    auto const bounds = [&all] {
        mgBBox_c box;
        mg_BoundPoints(all.data(), kItems, box);
        keep(box);
    };
    countEach("transform points", [&](std::size_t i) { return all[i] *= x; });
    countEach("move points", [&](std::size_t i) { return all[i] *= move; });
    mg_SetUseVectorUnits(1);
    count("transform array", kItems, array(x));
    count("bounds of array", kItems, bounds);
    mg_SetUseVectorUnits(0);
    count("transform array, plain", kItems, array(x));
    count("move array", kItems, array(move));
    count("bounds of array, plain", kItems, bounds);
    mgBBox_c box;
    countEach("bounds", [&](std::size_t i) { return box |= all[i]; });
}

void placements(Numbers &in) {
    auto const all = inputs([&in] { return in.placement(); }, kItems + 1);
    auto const boxes =
        inputs([&in] { return mgBBox_c(in.point(20.0), in.point(20.0)); }, kItems + 1);
    for (std::string const suffix : {"", ", plain"}) {
        mg_SetUseVectorUnits(suffix.empty());
        countEach("compose" + suffix, [&](std::size_t i) { return all[i] * all[i + 1]; });
        std::vector<mgXform_c> products = all;
        countEach(
            "compose in place" + suffix, [&](std::size_t i) -> auto & {
                return products[i] *= all[i + 1];
            });
        count("compose array" + suffix, kItems,
              [&] { mg_MultiplyXforms(products.data(), kItems, all[0]); });
        count("compose arrays" + suffix, kItems,
              [&] { mg_MultiplyXforms(products.data(), kItems, all.data()); });
        countEach("inverse" + suffix, [&](std::size_t i) { return all[i].inverse(); });
        countEach("placed clash" + suffix, [&](std::size_t i) {
            return mgBBox_c::clash(boxes[i], all[i], boxes[i + 1], all[i + 1]);
        });
    }
    countEach("box and box", [&](std::size_t i) { return mgBBox_c(boxes[i]) |= boxes[i + 1]; });
    countEach("place a box", [&](std::size_t i) { return mgBBox_c(boxes[i]) *= all[i]; });
    countEach("archive round trip", [&](std::size_t i) {
        std::stringstream stream;
        su_CArchive archive(stream);
        mgXform_c saved = all[i], restored;
        saved.save(archive);
        restored.restore(archive);
        return restored;
    });
}

void intersections(Numbers &in) {
    auto const lines =
        inputs([&in] { return mgLine_c(in.point(1.0), in.direction()); }, kItems + 1);
    auto const planes =
        inputs([&in] { return mgPlane_c(in.point(1.0), in.direction()); }, kItems + 1);
    mgBBox_c const box(mgPoint_c(-0.5, -0.5, -0.5), mgPoint_c(0.5, 0.5, 0.5));
    mgPoint_c out;
    countEach("line plane",
              [&](std::size_t i) { return mg_LineIntPlane(lines[i], planes[i], &out, nullptr); });
    countEach("line line", [&](std::size_t i) {
        mgLine_c const &a = lines[i], &b = lines[i + 1];
        return mg_LineIntLine(a.rootPoint(), a.direction(), b.rootPoint(), b.direction(), &out,
                              1e-8);
    });
    countEach("segment segment", [&](std::size_t i) {
        mgLine_c const &a = lines[i], &b = lines[i + 1];
        return mg_LineSegIntLineSeg(a.rootPoint(), a.direction(), b.rootPoint(), b.direction(), out,
                                    1e-8);
    });
    countEach("plane plane", [&](std::size_t i) {
        mgLine_c common;
        mg_PlaneIntPlane(planes[i], planes[i + 1], &common);
        return common;
    });
    countEach("ray box", [&](std::size_t i) {
        return box.getFirstRayHit(lines[i].rootPoint(), lines[i].direction(), &out);
    });
}

void numerics(Numbers &in) {
    auto const matrices = inputs([&in] {
        mgMatrix_c m;
        for (int i = 0; i < 3; ++i)
            for (int j = i; j < 3; ++j) m[3 * i + j] = m[3 * j + i] = in.next(1.0);
        return m;
    });
    struct Eigensystem {
        double values[3];
        mgUnitVector_c vectors[3];
    };
    struct Roots {
        double root[3];
    };
    countEach("eigensystem 3x3", [&](std::size_t i) {
        Eigensystem system;
        matrices[i].getEigensystem(system.values, system.vectors);
        return system;
    });
    countEach("null space", [&](std::size_t i) {
        Eigensystem system;
        matrices[i].getNullspace(system.vectors, true);
        return system;
    });
    countEach("cubic roots", [&](std::size_t i) {
        mgMatrix_c const &m = matrices[i];
        Roots roots;
        mg_solveCubic(m[0], m[1], m[2], m[4], roots.root);
        return roots;
    });
}

void pointSets(Numbers &in) {
    auto const all = inputs([&in] { return in.point(100.0); }, 20 * kItems);
    for (int const n : {20 * kItems, kItems}) {
        std::string const few = n == kItems ? ", few" : "";
        auto const end = all.begin() + n;
        count("sort" + few, n, [&all, end] {
            std::vector<mgPoint_c> sorted(all.begin(), end);
            mg_pointQuickSort(sorted.data(), 0, static_cast<int>(sorted.size()) - 1);
            keep(sorted[0]);
        });
        suDynamicArray<mg2DPoint_c> flat;
        for (auto p = all.begin(); p != end; ++p) flat.Add({p->x(), p->y()});
        count("hull" + few, n, [&flat] {
            suDynamicArray<mg2DPoint_c> input = flat, hull; // the call sorts it
            keep(convexHull(input, hull));
        });
        count("append points" + few, n, [&all, end] {
            suDynamicArray<mgPoint_c> list;
            for (auto p = all.begin(); p != end; ++p) list.Add(*p);
            keep(list[0]);
        });
    }
    suDynamicArray<mgPoint_c> stops;
    for (std::size_t i = 0; i < kItems; ++i) stops.Add(all[i]);
    count("tour", kItems, [&stops] {
        suDynamicArray<int> order;
        mg_OpenTSP(stops, order);
        keep(order[0]);
    });
}

void tessellation() {
    mgPoint_c const start(5.0, 0.0, 0.0);
    arcEdgeData const arc{mgPoint_c(), {0.0, 0.0, 1.0}, 5.0};
    int segments = 0;
    count("arc", 240, [&] {
        mgPoint_c *points = nullptr;
        mg_TessArc(&arc, &start, &start, 0.001, &points, segments, nullptr);
        keep(points[0]);
        delete[] points;
    });
}

void singlePrecision(Numbers &in) {
    using Matrix = std::array<float, 16>;
    auto const matrices = inputs(
        [&in] {
            Matrix m;
            for (float &element : m) element = static_cast<float>(in.next(1.0));
            return m;
        },
        kItems + 1);
    std::vector<std::array<float, 3>> points(kItems, {1, 2, 3});
    count("float point by matrix", kItems, [&] {
        Matrix const m = matrices[0];
        for (auto &p : points) gfxmath_mult_point_by_matrix(p.data(), m.data(), p.data());
        keep(points[0]);
    });
    countEach("float matrix product", [&matrices](std::size_t i) {
        Matrix product;
        gfxmath_mult_matrix(matrices[i].data(), matrices[i + 1].data(), product.data());
        return product;
    });
}

void planar(Numbers &in) {
    auto const all = inputs([&in] { return in.point(100.0); }, kItems + 1);
    mgPoint_c const low(-50.0, -50.0, 0.0), high(50.0, 50.0, 0.0);
    struct Clipped {
        mgPoint_c a, b;
    };
    countEach("clip segments", [&](std::size_t i) {
        Clipped out;
        keep(mg_ClipLine2DToBox(all[i], all[i + 1], low, high, out.a, out.b, 1e-8));
        return out;
    });
    // Integer corners of a convex curve: no function of the C library decides what is counted.
    std::vector<mg2DPoint_c> polygon;
    for (int i = 0; i < kItems; ++i) {
        double const x = i < kItems / 2 ? i : kItems - i;
        double const height = x * (kItems / 2 - x);
        polygon.emplace_back(x, i < kItems / 2 ? -height : height);
    }
    count("least rectangle", kItems, [&polygon] {
        mg2DPoint_c corners[4];
        minCnvxPlgRect(kItems, polygon.data(), 0, corners);
        keep(corners);
    });
    suDynamicArray<mgPoint_c> stops;
    for (std::size_t i = 0; i < kItems; ++i) stops.Add(all[i]);
    count("closed tour", kItems, [&stops] {
        suDynamicArray<int> order;
        mg_ClosedTSP(stops, order);
        keep(order[0]);
    });
}

void clashes(Numbers &in) {
    int const few = 10 * kItems;
    auto const boxes = inputs(
        [&in] {
            mgPoint_c const middle = in.point(12.6); // each box meets about five others
            double const x = 0.5 + in.next(0.25), y = 0.5 + in.next(0.25);
            mgVector_c const half(x, y, 0.5 + in.next(0.25));
            return mgBBox_c(middle - half, middle + half);
        },
        few);
    for (std::string const suffix : {"", ", plain"}) {
        mg_SetUseVectorUnits(suffix.empty());
        count("uniform clashes of 10000" + suffix, few, [&boxes, few] {
            suDynamicArray<mgIndexPair_c> pairs;
            keep(mg_FindClashes(boxes.data(), few, 0.0, pairs));
        });
        mgBoxIndex_c index;
        index.build(boxes.data(), nullptr, few);
        suDynamicArray<int> which;
        countEach("index clashesWith" + suffix,
                  [&](std::size_t i) { return index.clashesWith(boxes[i], 0.0, which); });
    }
}

} // namespace

int main() {
    Numbers in;
    points(in);
    placements(in);
    intersections(in);
    numerics(in);
    pointSets(in);
    tessellation();
    singlePrecision(in);
    planar(in);
    clashes(in);
}
