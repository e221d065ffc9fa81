// SPDX-License-Identifier: MIT
// All clashes of many boxes, placed and not. clash_peers.cpp has others for the same scenes.

#include <vexmath/bulk.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_transform.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/xform.h>

#include "scenes.h"

namespace {

using scenes::Numbers;

constexpr int kPlaced = 100000;

std::size_t findClashes(std::vector<mgBBox_c> const &boxes) {
    suDynamicArray<mgIndexPair_c> pairs;
    return static_cast<std::size_t>(
        mg_FindClashes(boxes.data(), static_cast<int>(boxes.size()), 0.0, pairs));
}

std::size_t loop(std::vector<mgBBox_c> const &boxes) {
    std::vector<mgIndexPair_c> pairs;
    int const n = static_cast<int>(boxes.size());
    for (int i = 0; i < n; ++i) {
        for (int j = i + 1; j < n; ++j)
            if (boxes.data()[i].clash(boxes.data() + j, 0.0)) pairs.push_back({i, j});
    }
    benchmark::DoNotOptimize(pairs.data());
    return pairs.size();
}

/// So few boxes that nothing is faster than the loop.
void addFew(int n) {
    std::string const work = "clashes among " + std::to_string(n);
    auto const add = [&work, n](char const *who,
                                std::size_t (*find)(std::vector<mgBBox_c> const &)) {
        works::add(work, who, [n, find](benchmark::State &state) {
            auto const few = [n](Numbers &random) {
                return scenes::boxesOf(scenes::uniform(random, n));
            };
            works::measure(state, works::inputs(few, 100), find);
            state.SetItemsProcessed(state.items_processed() * n);
        });
    };
    add("vexmath", findClashes);
    add("loop", loop);
}

/// The uniform scene, each box placed where it is.
struct Placed {
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
};

Placed const &placed(bool rotated) {
    static auto const make = [](bool rotate) {
        Numbers random;
        Placed all;
        for (auto const &[low, high] : scenes::uniform(random, kPlaced)) {
            mgPoint_c const a(low.x, low.y, low.z), b(high.x, high.y, high.z);
            mgVector_c const half = (b - a) * 0.5, middle = a + half - mgPoint_c();
            all.boxes.emplace_back(mgPoint_c() - half, mgPoint_c() + half);
            works::Triple const axis = random.triple(1.0);
            double const angle = rotate ? random(0.1, 3.0) : 0.0;
            mgUnitVector_c const about(axis.x, axis.y, axis.z);
            all.placements.push_back(
                mg_RestoreXform(mg_RotationMatrix(angle, about, 0.0), middle, 1.0));
        }
        return all;
    };
    static Placed const all[] = {make(false), make(true)};
    return all[rotated];
}

void addPlaced(char const *work, bool rotated) {
    works::addPrepared(
        work, "vexmath", kPlaced, [rotated] { return &placed(rotated); },
        [](Placed const *all) {
            suDynamicArray<mgIndexPair_c> pairs;
            benchmark::DoNotOptimize(
                mg_FindClashes(all->boxes.data(), all->placements.data(), kPlaced, pairs));
        })
        ->Repetitions(3);
}

[[maybe_unused]] bool const registered = [] {
    for (auto const &scene : scenes::cases())
        scenes::addSearch(*scene, "vexmath", scenes::boxesOf, findClashes);
    addFew(20);
    addFew(45);
    addPlaced("placed clashes", false);
    addPlaced("placed clashes, rotated", true);
    return true;
}();

} // namespace
