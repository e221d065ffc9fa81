// SPDX-License-Identifier: MIT
// All clashes of many boxes, against the loop over the single tests. Any boxes:
// fuzz/fuzz_clashes.cpp.

#include <vexmath/box_index.h>
#include <vexmath/bulk.h>

#include "bounds/boxes.h"

namespace {

using To = suDynamicArray<mgIndexPair_c>;

/// `find` gives the pairs that pass the test, in the order of a loop over them, with AVX2 and
/// without it.
template <class Test, class Find>
void CheckPairs(int count, Test const &test, Find const &find, Caller = {}) {
    std::vector<mgIndexPair_c> expected;
    for (int i = 0; i < count; ++i)
        for (int j = i + 1; j < count; ++j)
            if (test(i, j) != 0) expected.push_back({i, j});
    for (int const simd : {0, 1}) {
        mg_SetUseVectorUnits(simd);
        To list;
        list.Add({7, 7});
        ASSERT_EQ(static_cast<int>(expected.size()), find(list));
        ASSERT_EQ(static_cast<int>(expected.size()), list.Count());
        ASSERT_EQ(expected.empty(), list.Data() == nullptr);
        for (std::size_t k = 0; k < expected.size(); ++k)
            ASSERT_EQ(0, std::memcmp(&expected[k], list.Data() + k, sizeof expected[k])) << k;
    }
}

/// Rods along x and y by turns, one above the other, each rotated by an eighth about itself. To
/// each frame the other rod is a wide box: they clash up to half their length apart.
TEST(FindClashes, FindsCrossedRodsThatAreApartInTheWorldsAxes) {
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
    for (int k = 0; k < 50; ++k) {
        P const half = k % 2 == 0 ? P(2, 0.1, 0.1) : P(0.1, 2, 0.1);
        U const along(1 - k % 2, k % 2, 0);
        boxes.emplace_back(P(V(half) * -1.0), half);
        placements.push_back(
            mg_RestoreXform(mg_RotationMatrix(std::atan(1.0), along, 0.0), V(0, 0, 0.9 * k), 1));
    }
    mgBBox_c const *const a = boxes.data();
    mgXform_c const *const x = placements.data();
    auto const test = [=](int i, int j) { return mgBBox_c::clash(a[i], x[i], a[j], x[j]); };
    EXPECT_EQ(1, test(0, 1));
    CheckPairs(50, test, [=](To &to) { return mg_FindClashes(a, x, 50, to); });
    mgBoxIndex_c index;
    index.build(a, x, 50);
    CheckPairs(50, test, [&](To &to) { return index.clashes(kNaN, to); }); // which is ignored
}

/// Boxes of size 1 in a grid, in any order, each touching 26 others, with plates through them.
TEST(FindClashes, ManyPairsAreSorted) {
    Random random;
    std::vector<mgBBox_c> boxes;
    for (int k = 0; k < 1728; ++k) {
        P const low(k % 12, k / 12 % 12, k / 144);
        boxes.emplace_back(low, low + V(1, 1, 1));
        std::swap(boxes.back(), boxes.data()[random.below(k + 1)]);
    }
    for (int k = 0; k < 12; ++k) boxes.emplace_back(P(k, 0.0, 0.0), P(k + 0.01, 12.0, 12.0));
    mgBBox_c const *const a = boxes.data();
    CheckPairs(
        1740, [=](int i, int j) { return a[i].clash(&a[j], 0.0); },
        [=](To &to) { return mg_FindClashes(a, 1740, 0.0, to); });
}

/// Spheres that hold their box but for a corner, far from their centre, and a sphere in its box.
/// Small boxes deep in the corner do not clash with them.
TEST(FindClashes, DeepMeetingsOutsideOfASphereAreNoClashes) {
    P const far(-1e9, -1e9, -1e9), high(2, 2, 2);
    std::vector<mgBBox_c> boxes(70, cube(1.5, 3.5));
    boxes[7] = boxOf(far, (high - far).len() * (1 - 0.9e-9), P(), high);
    boxes[8] = boxOf(P(1, 1, 1), 0.5, P(), high);
    mgBBox_c const *const a = boxes.data();
    EXPECT_EQ(0, a[7].clash(&a[0], 0.0) + a[8].clash(&a[0], 0.0));
    CheckPairs(
        70, [=](int i, int j) { return a[i].clash(&a[j], 0.0); },
        [=](To &to) { return mg_FindClashes(a, 70, 0.0, to); });
}

TEST(FindClashes, NothingIsFoundAmongNoBoxes) {
    mgBBox_c const box = cube(0.0, 1.0);
    auto const check = [](auto const &find, Caller = {}) {
        CheckPairs(0, std::equal_to<>(), find);
    };
    for (int const none : {0, -1, std::numeric_limits<int>::min()}) {
        check([=](To &to) { return mg_FindClashes(nullptr, none, 0.0, to); });
        check([=](To &to) { return mg_FindClashes(nullptr, nullptr, none, to); });
        check([&](To &to) { return mg_FindClashes(&box, 1, nullptr, none, 0.0, to); });
        check([&](To &to) { return mg_FindClashes(nullptr, none, &box, 1, 0.0, to); });
    }
}

} // namespace
