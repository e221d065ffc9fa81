// SPDX-License-Identifier: MIT
// Least rectangles against the box of the rotated polygon, for every edge.

#include <complex>

#include "common/arrays.h"

namespace {

using Number = std::complex<double>;
using List = std::vector<Number>;

/// The corners; none when the result is 0.
List rectangle(List const &list, int byWidth = 0, int expected = 1) {
    std::vector<mg2DPoint_c> points, corners(4, mg2DPoint_c(8, 9));
    for (Number const &p : list) points.emplace_back(p.real(), p.imag());
    int const n = static_cast<int>(points.size());
    EXPECT_EQ(expected, minCnvxPlgRect(n, points.data(), byWidth, corners.data()));
    List result;
    for (mg2DPoint_c const &p : corners) result.emplace_back(p.x(), p.y());
    EXPECT_TRUE(expected == 1 || result == List(4, {8, 9}));
    return result;
}

TEST(LeastRectangle, OfDegenerateAndEqualPolygons) {
    EXPECT_EQ(List(4, {3, 5}), rectangle({{3, 5}}));
    EXPECT_EQ(List(4, {3, 5}), rectangle({{3, 5}, {3, 5}, {3, 5}}, 1));
    Number const a(1, 2), b(1, 7), c(1, 5);
    EXPECT_EQ((List{a, b, b, a}), rectangle({a, b}));
    EXPECT_EQ((List{a, b, b, a}), rectangle({a, a, c, b, b}, 1));
    // Of equal rectangles the one at the first edge, in either orientation.
    List square{{2, 1}, {6, 1}, {6, 5}, {2, 5}};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(square, rectangle(square, i % 2));
        EXPECT_EQ(square, rectangle({square[1], square[0], square[3], square[2]}, i % 2));
        if (i % 2 != 0) std::rotate(square.begin(), square.begin() + 1, square.end());
    }
    // Here the one at the first edge is the least by rounding.
    EXPECT_NEAR(0.9, rectangle({{0.9, -0.9}, {1.2, -1.2}, {1.5, -0.9}, {1.2, -0.6}})[0].real(),
                1e-9);
    // A triangle of sides 3, 4 and 5 has the same area at each edge, and the least width at 5.
    EXPECT_EQ((List{{0, 0}, {4, 0}, {4, 3}, {0, 3}}), rectangle({{0, 0}, {4, 0}, {0, 3}}));
    List const byWidth = rectangle({{0, 0}, {4, 0}, {0, 3}}, 1);
    EXPECT_NEAR(2.4, std::abs(byWidth[2] - byWidth[1]), 1e-15);
}

TEST(LeastRectangle, RefusesHostilePoints) {
    EXPECT_EQ(0, minCnvxPlgRect(0, nullptr, 0, nullptr));
    Random random;
    for (int round = 0; round < 5000; ++round) {
        List p;
        bool isUsable = true;
        for (int i = random.below(6); i >= 0; --i) {
            double const x = random.hostile(), y = random.hostile();
            p.emplace_back(x, y);
            isUsable = isUsable && std::fabs(x) <= 1e150 && std::fabs(y) <= 1e150;
        }
        for (Number const &corner : rectangle(p, round % 2, isUsable))
            ASSERT_TRUE(std::isfinite(corner.real()) && std::isfinite(corner.imag()));
    }
    rectangle({{0, 0}, {1e150, 0}, {0, -1e150}});
    rectangle({{0, 0}, {above(1e150), 0}}, 0, 0);
}

} // namespace
