// SPDX-License-Identifier: MIT
// The index of boxes as an object. Its answers: fuzz/fuzz_clashes.cpp.

#include "bounds/boxes.h"

namespace {

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
    suDynamicArray<int> which;
    mgBoxIndex_c index;
    for (double const sign : {1.0, -1.0}) { // the difference rounds to 1, the sum too
        mgBBox_c const box(P(sign * next, 0, 0), P(sign * next, 0, 0));
        index.build(&box, nullptr, 1);
        EXPECT_EQ(1, index.around(P(sign * half, 0, 0), 1, which));
    }
    mgBBox_c const box(P(1.2e-16, 0, 0), P(1.2e-16, 1, 1)); // 1.2e-16 < next - 1
    index.build(&box, nullptr, 1);
    EXPECT_EQ(1, index.clashesWith({P(next, 0, 0), P(2, 1, 1)}, 1, which));
}

TEST(BoxIndex, LinesFindInfiniteBoxesAndThoseFarFromMostOthers) {
    mgBoxIndex_c index;
    suDynamicArray<int> which;
    P hit;
    U const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    for (int k = 0; k < 6; ++k) {
        mg_SetUseVectorUnits(k % 2);
        std::vector<mgBBox_c> boxes(99, cube(0, 1));
        for (int n = 0; n < 40; ++n)
            boxes.push_back(cube(0, 0.1) += V(axes[k / 2]) * (1000 + 0.37 * n));
        index.build(boxes.data(), nullptr, 139);
        for (std::size_t n = 99; n < 139; ++n) {
            P p = boxes[n].center();
            p[k / 2] = above(boxes[n].low()[k / 2]); // just inside a face
            EXPECT_EQ(1, index.onLine(p, axes[(k / 2 + 1) % 3], which)) << n;
        }
        boxes[0] = {P(), P(kInfinity, 1, 1)};
        index.build(boxes.data(), nullptr, 1);
        EXPECT_EQ(0, index.firstOnRay(P(5, -5, 0.5), axes[1], &hit));
    }
}

} // namespace
