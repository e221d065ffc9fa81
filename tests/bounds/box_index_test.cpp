// SPDX-License-Identifier: MIT
// The index of boxes as an object. Its answers: fuzz/fuzz_clashes.cpp.

#include <vexmath/box_index.h>

#include "bounds/boxes.h"

namespace {

using namespace common;

TEST(BoxIndex, TheIndexOwnsItsBoxesAndIsMoved) {
    std::vector<mgBBox_c> const boxes(9, cube(0, 1));
    mgBoxIndex_c first;
    suDynamicArray<int> which;
    auto const numberAt = [&](mgBoxIndex_c const &index, double at) {
        return index.around(P(at, at, at), 0, which);
    };
    P hit;
    EXPECT_EQ(0, numberAt(first, 0));
    EXPECT_EQ(-1, first.firstOnRay(P(), U(1, 0, 0), &hit));
    EXPECT_EQ(1, first.build(boxes.data(), nullptr, 9));
    for (int const i : {-1, 9, std::numeric_limits<int>::min()}) first.move(i, cube(5, 6));
    first.place(0, mg_TranslateXform(V(5, 5, 5))); // without placements: ignored
    EXPECT_EQ(9, numberAt(first, 0.5));
    first.move(8, cube(5, 6));
    EXPECT_EQ(1, numberAt(first, 5.5));
    EXPECT_EQ(8, which[0]);

    mgBoxIndex_c second = std::move(first);
    EXPECT_EQ(0, numberAt(first, 0.5)); // NOLINT: empty and usable
    EXPECT_EQ(8, numberAt(second, 0.5));
    first = std::move(second);
    first = std::move(static_cast<mgBoxIndex_c &>(first)); // itself
    EXPECT_EQ(8, numberAt(first, 0.5));
    EXPECT_EQ(1, first.build(nullptr, nullptr, -1));
    EXPECT_EQ(0, numberAt(first, 0.5));
}

TEST(BoxIndex, BoxesThatReachThePointByRoundingAloneAreFound) {
    double const next = above(1), half = 0.5 * (next - 1);
    auto const check = [](mgBBox_c const &box, auto const &find, Caller = {}) {
        mgBoxIndex_c index;
        ASSERT_EQ(1, index.build(&box, nullptr, 1));
        EXPECT_EQ(1, find(index));
    };
    suDynamicArray<int> which;
    for (double const sign : {1.0, -1.0}) { // the difference rounds to 1, the sum too
        for (int k = 0; k < 3; ++k) {
            P at, p;
            at[k] = sign * next, p[k] = sign * half;
            check({at, at}, [&](mgBoxIndex_c const &index) { return index.around(p, 1, which); });
        }
    }
    mgBBox_c const box(P(next, 0, 0), P(2, 1, 1)); // next - 1 > 1.2e-16, but 1.2e-16 + 1 == next
    check({P(1.2e-16, 0, 0), P(1.2e-16, 1, 1)},
          [&](mgBoxIndex_c const &index) { return index.clashesWith(box, 1, which); });
}

TEST(BoxIndex, AnInfiniteBoxIsHit) {
    mgBBox_c const box(P(), P(kInfinity, 1, 1));
    mgBoxIndex_c index;
    P hit;
    ASSERT_EQ(1, index.build(&box, nullptr, 1));
    for (int const useVectorUnits : {0, 1}) {
        mg_SetUseVectorUnits(useVectorUnits);
        EXPECT_EQ(0, index.firstOnRay(P(5, -5, 0.5), U(0, 1, 0), &hit));
    }
}

/// Of boxes far from most others, lines along their faces cross the inside in the last digits.
TEST(BoxIndex, LinesJustInsideFarBoxesAreFound) {
    suDynamicArray<int> which;
    for (int k = 0; k < 9; ++k) {
        int const axis = k % 3;
        std::vector<mgBBox_c> boxes(99, cube(0, 1));
        for (int n = 0; n < 40; ++n) {
            V offset;
            offset[axis] = 1000 + 0.37 * n;
            boxes.emplace_back(P() + offset, P(0.1, 0.1, 0.1) + offset);
        }
        mgBoxIndex_c index;
        ASSERT_EQ(1, index.build(boxes.data(), nullptr, 139));
        for (int n = 99; n < 139; ++n) {
            P p(0.05, 0.05, 0.05);
            p[axis] = above(boxes[n].low()[axis]);
            U const dir((axis + 1) % 3 == 0, (axis + 1) % 3 == 1, (axis + 1) % 3 == 2);
            EXPECT_EQ(1, index.onLine(p, dir, which)) << n;
        }
    }
}

} // namespace
