// SPDX-License-Identifier: MIT
// Clashes of many boxes: long lists of pairs, and no boxes. Against the loop over the single tests:
// fuzz/fuzz_clashes.cpp.

#include "bounds/boxes.h"

namespace {

using Pairs = suDynamicArray<mgIndexPair_c>;

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
    std::vector<mgIndexPair_c> expected;
    for (int i = 0; i < 1740; ++i)
        for (int j = i + 1; j < 1740; ++j)
            if (a[i].clash(&a[j], 0.0) != 0) expected.push_back({i, j});
    for (int const simd : {0, 1}) {
        mg_SetUseVectorUnits(simd);
        Pairs list;
        ASSERT_EQ(static_cast<int>(expected.size()), mg_FindClashes(a, 1740, 0.0, list));
        ASSERT_EQ(static_cast<int>(expected.size()), list.Count());
        for (std::size_t k = 0; k < expected.size(); ++k)
            ASSERT_EQ(0, std::memcmp(&expected[k], list.Data() + k, sizeof expected[k])) << k;
    }
}

TEST(FindClashes, NothingIsFoundAmongNoBoxes) {
    mgBBox_c const box = cube(0.0, 1.0);
    auto const check = [](auto const &find, Caller = {}) {
        Pairs list;
        list.Add({7, 7});
        EXPECT_EQ(0, find(list));
        EXPECT_EQ(nullptr, list.Data());
    };
    for (int const none : {0, -1, std::numeric_limits<int>::min()}) {
        check([=](Pairs &to) { return mg_FindClashes(nullptr, none, 0.0, to); });
        check([=](Pairs &to) { return mg_FindClashes(nullptr, nullptr, none, to); });
        check([&](Pairs &to) { return mg_FindClashes(&box, 1, nullptr, none, 0.0, to); });
        check([&](Pairs &to) { return mg_FindClashes(nullptr, none, &box, 1, 0.0, to); });
    }
}

} // namespace
