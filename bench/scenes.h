// SPDX-License-Identifier: MIT
// Scenes of boxes for the search for clashes, the same for everybody.

#ifndef VEXMATH_BENCH_SCENES_H
#define VEXMATH_BENCH_SCENES_H

#include <vexmath/bbox.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "works.h"

namespace scenes {

using works::Numbers;
using works::Triple;

struct Extent {
    Triple low, high;
};
using Extents = std::vector<Extent>;

inline Extent around(Triple const &p, Triple const &half) {
    return {{p.x - half.x, p.y - half.y, p.z - half.z}, {p.x + half.x, p.y + half.y, p.z + half.z}};
}

inline Triple halfOf(Numbers &random, double least, double most) {
    double const x = random(least, most), y = random(least, most);
    return {x, y, random(least, most)};
}

/// Each box meets about five others.
inline Extents uniform(Numbers &random, int n) {
    double const reach = 0.5 * std::cbrt(1.6 * n);
    Extents all;
    for (int i = 0; i < n; ++i) {
        Triple const middle = random.triple(reach);
        all.push_back(around(middle, halfOf(random, 0.25, 0.75)));
    }
    return all;
}

/// Of a hundred boxes, one is a plate along two of the axes, ten are parts, the others bolts.
inline Extents assembly(Numbers &random, int n) {
    double const reach = 0.5 * std::cbrt(1.45 * n);
    Extents all;
    for (int i = 0; i < n; ++i) {
        Triple const middle = random.triple(reach),
                     plate[] = {{0.1, 5, 5}, {5, 0.1, 5}, {5, 5, 0.1}};
        Triple const half = i % 100 == 0  ? plate[i / 100 % 3]
                            : i % 10 == 1 ? halfOf(random, 0.5, 1.5)
                                          : halfOf(random, 0.1, 0.3);
        all.push_back(around(middle, half));
    }
    return all;
}

/// The cells of a cube: each touches 26 others.
inline Extents grid(Numbers & /*random*/, int n) {
    int const side = static_cast<int>(std::ceil(std::cbrt(n)));
    Extents all;
    for (int i = 0; i < n; ++i) {
        double const x = i % side, y = i / side % side, z = i / (side * side);
        all.push_back({{x, y, z}, {x + 1.0, y + 1.0, z + 1.0}});
    }
    return all;
}

/// Thin rods along the axes, each through the whole scene: the order of their middles is no help.
inline Extents rods(Numbers &random, int n) {
    double const reach = 500.0, half = 5.0 * reach / n * 2.0;
    Extents all;
    for (int i = 0; i < n; ++i) {
        Triple const p = random.triple(reach);
        Triple const middle[] = {{0.0, p.y, p.z}, {p.x, 0.0, p.z}, {p.x, p.y, 0.0}};
        Triple const size[] = {{reach, half, half}, {half, reach, half}, {half, half, reach}};
        all.push_back(around(middle[i % 3], size[i % 3]));
    }
    return all;
}

/// One scene of one size.
class Case {
public:
    using Make = Extents (*)(Numbers &, int);
    Case(char const *scene, Make make, int count)
        : work(std::string(scene) + " clashes of " + std::to_string(count)), n(count), make_(make) {
    }

    bool hasRods() const { return make_ == rods; }
    Extents const &extents() const {
        if (extents_.empty()) {
            Numbers random;
            extents_ = make_(random, n);
        }
        return extents_;
    }
    /// Ends the program unless all find the same number of pairs. In the grid, the library finds
    /// fewer than its peers: boxes that share a corner alone meet but do not clash.
    void expect(std::size_t pairs, std::string_view who) {
        if (make_ == grid && who == "vexmath") return;
        if (pairs_ == 0) pairs_ = pairs;
        if (pairs == pairs_) return;
        std::fprintf(stderr, "%s/%s: %zu pairs, others %zu\n", work.c_str(), who.data(), pairs,
                     pairs_);
        std::exit(1);
    }

    std::string const work;
    int const n;

private:
    Make make_;
    mutable Extents extents_;
    std::size_t pairs_ = 0;
};

inline std::vector<std::unique_ptr<Case>> const &cases() {
    static auto const all = [] {
        std::vector<std::unique_ptr<Case>> result;
        auto const add = [&result](char const *scene, Case::Make make, std::vector<int> const &of) {
            for (int const n : of) result.push_back(std::make_unique<Case>(scene, make, n));
        };
        add("uniform", uniform, {1000, 10000, 100000, 1000000});
        add("assembly", assembly, {1000, 10000, 100000, 1000000});
        add("grid", grid, {1000, 10000, 100000, 1000000});
        add("rod", rods, {10000, 100000});
        return result;
    }();
    return all;
}

/// Times a search on what `prepare` makes of the extents; `find` returns the number of pairs.
template <class Prepare, class Find>
void addSearch(Case &in, char const *who, Prepare const &prepare, Find const &find) {
    works::addPrepared(
        in.work, who, static_cast<std::size_t>(in.n),
        [&in, prepare] { return prepare(in.extents()); },
        [&in, find, who](auto &input) { in.expect(find(input), who); })
        ->MinTime(0.05)
        ->Repetitions(in.n < 100000 ? 5 : 3);
}

/// The library's boxes, with spheres through their corners: boxes that meet reach each other's.
inline std::vector<mgBBox_c> boxesOf(Extents const &extents) {
    std::vector<mgBBox_c> boxes;
    boxes.reserve(extents.size());
    for (auto const &[low, high] : extents)
        boxes.emplace_back(mgPoint_c(low.x, low.y, low.z), mgPoint_c(high.x, high.y, high.z));
    return boxes;
}

} // namespace scenes

#endif
