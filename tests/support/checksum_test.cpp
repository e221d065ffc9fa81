// SPDX-License-Identifier: MIT
// The running checksum and the rectangle.

#include <climits>
#include <tuple>

#include "common/geometry.h"

namespace {

TEST(CheckSum, IsTakenModulo32Bits) {
    mgCheckSum_c sum;
    // Recomputed in 64 bits, reduced at the end of each step.
    std::uint64_t key = 0xD155, expected = 0;
    for (int const value : {0, -1, INT_MIN, INT_MAX}) {
        std::uint64_t const mixed = (key >> 8) ^ (static_cast<std::uint64_t>(value) & 0xFFFFFFFFu);
        expected = (expected + mixed) % 0x100000000u;
        key = (((key + mixed) % 0x100000000u) * 31415u + 27182u) % 0x100000000u;
        EXPECT_EQ(expected, sum.update(value)) << value;
    }
    EXPECT_EQ(expected, sum.getCheckSum());
}

TEST(Rect, ClosedRectanglesOverlapAtTheirEdges) {
    mgRect const r(0, 3, 4, 1); // left, top, right, bottom
    auto const check = [&](int expected, mgRect const &other, Caller = {}) {
        EXPECT_EQ(expected, mgRect::intersectRect(r, other));
        EXPECT_EQ(expected, mgRect().intersectRect(other, r));
    };
    check(1, {4, 1, 5, 0}); // a corner in common
    check(0, {above(4.0), 3, 5, 1}), check(0, {0, 5, 4, above(3.0)}), check(0, {0, kNaN, 4, 1});
    // Right before left: only what covers all between them overlaps.
    check(1, {4, 3, 0, 1}), check(0, {4, 3, below(0.0), 1});
}

TEST(Rect, NormalizeOrdersTheCorners) {
    mgRect r;
    EXPECT_EQ(std::tuple(0, 0, 0, 0), std::tuple(r.left, r.top, r.right, r.bottom));
    r = {5, 0, 1, 3};
    r.normalize();
    EXPECT_EQ(std::tuple(1, 3, 5, 0), std::tuple(r.left, r.top, r.right, r.bottom));
}

} // namespace
