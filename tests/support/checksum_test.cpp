// SPDX-License-Identifier: MIT
// The running checksum and the rectangle.

#include <vexmath/checksum.h>
#include <vexmath/rect.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace {

TEST(CheckSum, FollowsItsKey) {
    mgCheckSum_c sum;
    EXPECT_EQ(0u, sum.getCheckSum());
    EXPECT_EQ(209u, sum.update(0));
    EXPECT_EQ(209u + (1690091352u >> 8), sum.update(0)); // 1690091352 is the key by now
    EXPECT_EQ(209u + 6601919u, sum.getCheckSum());
}

TEST(CheckSum, WrapsAt32BitsAndTakesNegativeValuesAsPatterns) {
    mgCheckSum_c sum;
    EXPECT_EQ(0xFFFFFFFFu - 209u, sum.update(-1));
    // Recomputed in 64 bits, reduced at the end of each step.
    std::uint64_t key = 0xD155, expected = 0;
    mgCheckSum_c wrapped;
    for (int const value : {-1, INT_MIN, 7, INT_MAX, -1, 12345}) {
        std::uint64_t const mixed = (key >> 8) ^ (static_cast<std::uint64_t>(value) & 0xFFFFFFFFu);
        expected = (expected + mixed) % 0x100000000u;
        key = (((key + mixed) % 0x100000000u) * 31415u + 27182u) % 0x100000000u;
        EXPECT_EQ(expected, wrapped.update(value)) << value;
    }
}

void CheckOverlap(int expected, mgRect const &a, mgRect const &b) {
    EXPECT_EQ(expected, mgRect().intersectRect(a, b));
    EXPECT_EQ(expected, mgRect::intersectRect(b, a));
}

TEST(Rect, ClosedRectanglesOverlapAtTheirEdges) {
    mgRect const r(0, 3, 4, 1); // left, top, right, bottom
    double const nan = std::numeric_limits<double>::quiet_NaN();
    CheckOverlap(1, r, r);
    CheckOverlap(1, r, mgRect(4, 3, 5, 1));
    CheckOverlap(1, r, mgRect(4, 1, 5, 0));
    CheckOverlap(1, r, mgRect(1, 2.5, 2, 2)); // one inside the other
    CheckOverlap(0, r, mgRect(std::nextafter(4.0, 5.0), 3, 5, 1));
    CheckOverlap(0, r, mgRect(0, 5, 4, std::nextafter(3.0, 4.0)));
    CheckOverlap(0, r, mgRect(nan, 3, 4, 1));
    CheckOverlap(0, r, mgRect(0, nan, 4, 1));
}

void CheckNormalised(mgRect r, mgRect const &expected) {
    r.normalize();
    EXPECT_EQ(expected.left, r.left);
    EXPECT_EQ(expected.top, r.top);
    EXPECT_EQ(expected.right, r.right);
    EXPECT_EQ(expected.bottom, r.bottom);
}

TEST(Rect, NormalizeOrdersTheCorners) {
    CheckNormalised(mgRect(5, 0, 1, 3), mgRect(1, 3, 5, 0));
    CheckNormalised(mgRect(1, 0, 5, 3), mgRect(1, 3, 5, 0));
    CheckNormalised(mgRect(5, 3, 1, 0), mgRect(1, 3, 5, 0));
    CheckNormalised(mgRect(), mgRect(0, 0, 0, 0));
}

} // namespace
