// SPDX-License-Identifier: MIT
// Least rectangles against the box of the rotated polygon, for every edge.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>
#include <vexmath/mg_queries.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include <algorithm>
#include <complex>
#include <vector>

namespace {

using Number = std::complex<double>;
using List = std::vector<Number>;

/// The corners; none when the result is 0.
List rectangle(List const &list, int byWidth = 0, int expected = 1) {
    std::vector<mg2DPoint_c> points;
    for (Number const &p : list) points.emplace_back(p.real(), p.imag());
    mg2DPoint_c corners[4];
    std::fill_n(corners, 4, mg2DPoint_c(8, 9));
    int const n = static_cast<int>(points.size());
    EXPECT_EQ(expected, minCnvxPlgRect(n, points.data(), byWidth, corners));
    List result;
    for (mg2DPoint_c const &p : corners) result.emplace_back(p.x(), p.y());
    EXPECT_TRUE(expected == 1 || result == List(4, {8, 9}));
    return result;
}

/// The least area and width of the boxes of the polygon, rotated so that an edge is level.
std::pair<double, double> leastByForce(List const &p) {
    double area = support::kInfinity, width = support::kInfinity;
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

void CheckRectangle(List const &p, double slack = 1e-12, support::Caller = {}) {
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
    support::Random random;
    for (int round = 0; round < 4000; ++round) {
        suDynamicArray<mg2DPoint_c> input, hull;
        int const side = 2 + random.below(9); // a grid has right angles, parallel edges and lines
        double const scale = round % 3 == 1 ? 1e-160 : round % 3 == 2 ? 1e140 : 1.0;
        double const flat = round % 5 == 0 ? 1e-3 : 1.0;
        for (int i = 3 + random.below(40); i >= 0; --i) {
            if (round % 2)
                input.Add({scale * random.below(side), scale * random.below(side)});
            else
                input.Add({scale * random.uniform(5, 9), flat * scale * random.uniform(-2, 3)});
        }
        convexHull(input, hull);
        List p;
        for (int i = 0; i < hull.Count(); ++i) {
            int const again = random.below(4) ? 1 : 1 + random.below(3);
            for (int k = 0; k < again; ++k)
                p.emplace_back(hull[i].x() / scale, hull[i].y() / scale);
            if (random.below(4) == 0 && round % 2) // in the middle of an edge, exactly
                p.push_back((p.back()
                             + Number(hull[(i + 1) % hull.Count()].x() / scale,
                                      hull[(i + 1) % hull.Count()].y() / scale))
                            / 2.0);
        }
        std::rotate(p.begin(), p.begin() + random.below(static_cast<int>(p.size())), p.end());
        if (random.below(2)) std::reverse(p.begin(), p.end());
        CheckRectangle(p);
        if (testing::Test::HasFatalFailure()) return;
        List scaled = p;
        for (Number &q : scaled) q *= scale;
        auto const areaOf = [](List const &r, double unit) {
            return std::abs((r[1] - r[0]) / unit) * std::abs((r[2] - r[1]) / unit);
        };
        ASSERT_NEAR(areaOf(rectangle(p), 1.0), areaOf(rectangle(scaled), scale), 1e-10);
    }
}

TEST(LeastRectangle, HasManyCorners) {
    for (double const height : {1.0, 0.3, 1e-9})
        for (int const n : {5, 1000, 1001}) {
            List p;
            for (int i = 0; i < n; ++i) {
                Number const at = std::polar(1.0, 6.283185307179586 * i / n);
                p.push_back(Number(3, 4)
                            + Number(at.real(), height * at.imag()) * Number(0.6, 0.8));
            }
            CheckRectangle(p, 1e-11);
        }
    List noisy; // 400 points on the sides of a square that is not along the axes
    for (int side = 0; side < 4; ++side)
        for (int i = 0; i < 100; ++i)
            noisy.push_back(Number(0.28, 0.96) * std::pow(Number(0, 1), side)
                            * Number(1, i / 50.0 - 1));
    CheckRectangle(noisy, 1e-9);
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
    List const turned{square[1], square[2], square[3], square[0]};
    for (int const byWidth : {0, 1}) {
        EXPECT_EQ(square, rectangle(square, byWidth));
        EXPECT_EQ(turned, rectangle(turned, byWidth));
        EXPECT_EQ(square, rectangle({square[1], square[0], square[3], square[2]}, byWidth));
    }
    // A triangle of sides 3, 4 and 5 has the same area at each edge, and the least width at 5.
    EXPECT_EQ((List{{0, 0}, {4, 0}, {4, 3}, {0, 3}}), rectangle({{0, 0}, {4, 0}, {0, 3}}));
    EXPECT_NEAR(2.4,
                std::abs(rectangle({{0, 0}, {4, 0}, {0, 3}}, 1)[2]
                         - rectangle({{0, 0}, {4, 0}, {0, 3}}, 1)[1]),
                1e-15);
}

TEST(LeastRectangle, RefusesHostilePoints) {
    rectangle({}, 0, 0);
    EXPECT_EQ(0, minCnvxPlgRect(0, nullptr, 0, nullptr));
    rectangle({{0, 0}, {1e150, 0}, {0, -1e150}});
    support::Random random;
    for (int round = 0; round < 20000; ++round) {
        List p;
        bool isUsable = true;
        for (int i = random.below(6); i >= 0; --i) {
            p.emplace_back(random.hostile(), random.hostile());
            for (double x : {p.back().real(), p.back().imag()})
                isUsable = isUsable && std::fabs(x) <= 1e150;
        }
        for (Number const &corner : rectangle(p, round % 2, isUsable))
            ASSERT_TRUE(std::isfinite(corner.real()) && std::isfinite(corner.imag()));
    }
}

} // namespace
