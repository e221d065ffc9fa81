// SPDX-License-Identifier: MIT
// Least rectangles against the box of the rotated polygon, for every edge.

#include <complex>

#include "common/arrays.h"

namespace {

using namespace common;

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

/// The least area and width of the boxes of the polygon, rotated so that an edge is level.
std::pair<double, double> leastByForce(List const &p) {
    double area = kInfinity, width = kInfinity;
    for (std::size_t i = 0; i < p.size(); ++i) {
        Number const edge = p[(i + 1) % p.size()] - p[i];
        if (edge == 0.0) continue;
        double low = 0, high = 0, left = 0, right = 0;
        for (Number const &q : p) {
            Number const at = (q - p[i]) * std::conj(edge) / std::abs(edge);
            left = std::min(left, at.real()), right = std::max(right, at.real());
            low = std::min(low, at.imag()), high = std::max(high, at.imag());
        }
        area = std::min(area, (right - left) * (high - low));
        width = std::min(width, high - low);
    }
    return {area, width};
}

void CheckRectangle(List const &p, double slack = 1e-12, Caller = {}) {
    auto const [area, width] = leastByForce(p);
    double size = 0.0;
    for (Number const &q : p) size = std::max(size, std::abs(q - p[0]));
    for (int const byWidth : {0, 1}) {
        List const r = rectangle(p, byWidth);
        Number const along = r[1] - r[0], up = r[2] - r[1];
        ASSERT_LE(std::abs(r[3] - r[0] - up), slack * size);
        ASSERT_NEAR(0.0, (along * std::conj(up)).real(), slack * size * size);
        ASSERT_GE((std::conj(along) * up).imag(), -slack * size * size); // counter-clockwise
        ASSERT_NEAR(byWidth ? width : area, byWidth ? std::abs(up) : std::abs(along) * std::abs(up),
                    slack * (byWidth ? size : size * size));
        for (Number const &q : p)
            for (std::size_t k = 0; k < 4; ++k) {
                Number const side = r[(k + 1) % 4] - r[k];
                ASSERT_GE((std::conj(side) * (q - r[k])).imag(), -slack * size * std::abs(side));
            }
    }
}

TEST(LeastRectangle, IsTheLeastOfAllEdges) {
    Random random;
    for (int round = 0; round < 1500; ++round) {
        suDynamicArray<mg2DPoint_c> input, hull;
        int const side = 2 + random.below(9); // a grid has right angles, parallel edges and lines
        double const flat = round % 5 == 0 ? 1e-3 : 1.0;
        for (int i = 3 + random.below(40); i >= 0; --i)
            round % 2 ? input.Add(mg2DPoint_c(random.below(side), random.below(side)))
                      : input.Add({random.uniform(5, 9), flat * random.uniform(-2, 3)});
        convexHull(input, hull);
        List p;
        for (int i = 0; i < hull.Count(); ++i) {
            mg2DPoint_c const &a = hull[i], &b = hull[(i + 1) % hull.Count()];
            p.insert(p.end(), 1 + static_cast<std::size_t>(random.below(3)), {a.x(), a.y()});
            if (random.below(4) == 0 && round % 2) // in the middle of an edge, exactly
                p.emplace_back((a.x() + b.x()) / 2, (a.y() + b.y()) / 2);
        }
        std::rotate(p.begin(), p.begin() + random.below(static_cast<int>(p.size())), p.end());
        if (random.below(2)) std::reverse(p.begin(), p.end());
        CheckRectangle(p);
        if (testing::Test::HasFatalFailure()) return;
        List const r = rectangle(p);
        for (double const scale : {0x1p-530, 0x1p460}) {
            List scaled = p;
            for (Number &q : scaled) q *= scale;
            for (Number &q : scaled = rectangle(scaled)) q /= scale;
            ASSERT_EQ(r, scaled);
        }
    }
}

TEST(LeastRectangle, HasManyCorners) {
    for (double const height : {1.0, 0.3, 1e-9})
        for (int const n : {5, 200, 201}) {
            List p;
            for (int i = 0; i < n; ++i) {
                Number const at = std::polar(1.0, vexmath::kTwoPi * i / n);
                p.push_back(Number(3, 4)
                            + Number(at.real(), height * at.imag()) * Number(0.6, 0.8));
            }
            CheckRectangle(p, 1e-11);
        }
}

TEST(LeastRectangle, OfDegenerateAndEqualPolygons) {
    EXPECT_EQ(List(4, {3, 5}), rectangle({{3, 5}}));
    EXPECT_EQ(List(4, {3, 5}), rectangle({{3, 5}, {3, 5}, {3, 5}}, 1));
    Number const a(1, 2), b(1, 7), c(1, 5);
    EXPECT_EQ((List{a, b, b, a}), rectangle({a, b}));
    EXPECT_EQ((List{a, b, b, a}), rectangle({a, a, c, b, b}, 1));
    CheckRectangle({{0, 0}, {0.1, 0.1 / 3}, {0.7, 0.7 / 3}, {3, 1}});
    // Of equal rectangles the one at the first edge, in either orientation.
    List const square{{2, 1}, {6, 1}, {6, 5}, {2, 5}};
    List const rotated{square[1], square[2], square[3], square[0]};
    for (int const byWidth : {0, 1}) {
        EXPECT_EQ(square, rectangle(square, byWidth));
        EXPECT_EQ(rotated, rectangle(rotated, byWidth));
        EXPECT_EQ(square, rectangle({square[1], square[0], square[3], square[2]}, byWidth));
    }
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
