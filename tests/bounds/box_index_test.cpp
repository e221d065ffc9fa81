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

} // namespace
