// SPDX-License-Identifier: MIT
// Circular arcs: numbers of segments, positions of the points, degenerate input.

#include "polyline.h"

namespace {

Polyline polylineOf(arcEdgeData const &arc, P const &start, P const &end, double tol) {
    return outputOf([&](auto &&...out) { mg_TessArc(&arc, &start, &end, tol, out...); });
}

P onCircle(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle), 0};
}

/// Segments of an arc about the origin and the z axis.
int segments(double radius, P const &start, P const &end, double tol) {
    return segmentsOf(polylineOf({{}, {0, 0, 1}, radius}, start, end, tol));
}

} // namespace

TEST(TessArc, CountsSegmentsByToleranceBetweenAnEighthAndA120th) {
    // Degrees, tolerance, segments. Equal ends make a full circle, in eighths of half a turn. Small
    // arcs have eight segments too, more than the least number of other curves.
    double const rows[][3] = {{0, 0.01, 140},      {90, 0.01, 35}, {90, 0.1921475, 8},
                              {90, 8.572e-4, 119}, {90, 0, 120},   {90, -1, 120},
                              {90, kNaN, 8},       {0, 1e9, 16},   {0, 1e-9, 240},
                              {4, 1e9, 8},         {2, 1e9, 8},    {2, 10, 8}};
    for (auto const &[degrees, tol, expected] : rows) {
        P const end = onCircle(10, degrees * vexmath::kRadPerDeg);
        EXPECT_EQ(expected, segments(10, {10, 0, 0}, end, tol)) << degrees << ' ' << tol;
    }
    // A sweep too small for a step is one segment; its ends differ because their radii do.
    EXPECT_EQ(1, segments(1, {1, 0, 0}, {2, 0, 0}, 1e9));
    EXPECT_EQ(1, segments(1, {1, 0, 0}, {2, 1.5e-10, 0}, 1e9)); // the step is an eighth of 7.5e-11
    EXPECT_EQ(8, segments(1, {1, 0, 0}, {2, 1.7e-10, 0}, 1e9));
}

TEST(TessArc, DegenerateInputMakesNothing) {
    P const p{1, 0, 0}, q{0, 1, 0};
    for (double const r : {1e-09, below(1e-09)})
        EXPECT_EQ(r < 1e-09 ? 0 : 8, segments(r, p, q, 0.01));
    EXPECT_EQ(0, segments(1, {5e-10, 5e-10, 0}, q, 0.01));
    EXPECT_EQ(0, segments(1, p, {0, 0, 5e-10}, 0.01));
    EXPECT_EQ(11, segments(1, {1e-09, 0, 0}, q, 0.01));
    EXPECT_EQ(0, segments(1, p, {kNaN, 0, 0}, 0.01));
    EXPECT_TRUE(polylineOf({{0, kNaN, 0}, {0, 0, 1}, 1}, p, p, 0.01).empty());
}

TEST(TessArc, TheStartGivesTheRadiusAndTheRecordTheTolerance) {
    Polyline const points = polylineOf({{}, {0, 0, -5}, 1000}, {2, 0, 0}, {0, 3, 0}, 1);
    ASSERT_EQ(points.size(), 106u); // three quarters of a turn, with steps for a radius of 1000
    EXPECT_BITS_EQ(points.back(), P(0, 3, 0));
    for (std::size_t i = 0; i + 1 < points.size(); ++i) EXPECT_NEAR(dist(points[i], P()), 2, 1e-13);
}

TEST(TessArc, HalfATurnSnapsWithin1e11) {
    auto const height = [](double sweep) { // of the second point
        return polylineOf({{}, {0, 0, 1}, 1}, {1, 0, 0}, onCircle(1, sweep), 9)[1].y();
    };
    EXPECT_BITS_EQ(height(vexmath::kPi), height(vexmath::kPi - 9.9e-12));
    EXPECT_BITS_EQ(height(vexmath::kPi), height(vexmath::kPi + 9.9e-12));
    EXPECT_FALSE(sameBits(height(vexmath::kPi), height(vexmath::kPi - 1.01e-11)));
}

TEST(TessArc, TakesItsEndsFromTheListItAppendsTo) {
    suDynamicArray<P> list;
    for (int i = 0; i < 8; ++i) list.Add(onCircle(1, i)); // full: the next point moves the block
    arcEdgeData const arc{{}, {0, 0, 1}, 1};
    int count = 0;
    mg_TessArc(&arc, &list[0], &list[1], 1e-3, nullptr, count, &list);
    ASSERT_EQ(list.Count(), 8 + count + 1);
    EXPECT_BITS_EQ(list[8], onCircle(1, 0));
    EXPECT_BITS_EQ(list[8 + count], onCircle(1, 1));
}
