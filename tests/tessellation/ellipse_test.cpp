// SPDX-License-Identifier: MIT
// Arcs of ellipses: numbers of segments, where the points lie, what makes none.

#include "polyline.h"

namespace {

using support::Polyline;

Polyline polylineOf(ellipseEdgeData const &ellipse, double tol, mgPoint_c const &start = {},
                    mgPoint_c const &end = {}) {
    return support::handedOut([&](auto array, int &count, auto list) {
        mg_TessEllipse(&ellipse, &start, &end, tol, array, count, list);
    });
}

mgPoint_c onEllipse(double a, double b, double angle) {
    return {a * std::cos(angle), b * std::sin(angle), 0.0};
}

ellipseEdgeData ellipseOf(double a, double b, double from, double to) {
    return {{}, {1, 0, 0}, {0, 1, 0}, a, b, onEllipse(a, b, from), onEllipse(a, b, to)};
}

void CheckSegments(double sweepDeg, double tol, int expected) {
    ellipseEdgeData const ellipse = ellipseOf(10.0, 4.0, 0.5, 0.5 + sweepDeg * vexmath::kRadPerDeg);
    EXPECT_EQ(support::segmentsOf(polylineOf(ellipse, tol)), expected)
        << sweepDeg << " degrees, tol " << tol;
}

} // namespace

TEST(TessEllipse, CountsSegmentsByToleranceBetweenTenAndOneAndAHalfDegrees) {
    CheckSegments(360.0, 0.01, 140);
    CheckSegments(100.5, 4.0, 10);
    CheckSegments(100.5, 1e-9, 67);
    CheckSegments(100.5, -1.0, 67);
    // At least two above 1.5 degrees and three above 3.
    CheckSegments(1.49, 4.0, 1);
    CheckSegments(1.51, 4.0, 2);
    CheckSegments(2.99, 4.0, 2);
    CheckSegments(3.01, 4.0, 3);
    CheckSegments(29.9, 4.0, 3); // two steps of 10 degrees would do
    CheckSegments(41.0, 4.0, 4);
}

TEST(TessEllipse, GoesFromStartToEndInEqualAngles) {
    Polyline const points = polylineOf(ellipseOf(10.0, 4.0, 3.0, 7.0), 0.01);
    int const n = support::segmentsOf(points);
    ASSERT_EQ(n, 89);
    for (int i = 0; i <= n; ++i)
        EXPECT_LT(
            dist(points[static_cast<std::size_t>(i)], onEllipse(10.0, 4.0, 3.0 + 4.0 * i / n)),
            1e-12);
    // Ends that lie off the curve are moved to it, not copied.
    ellipseEdgeData off = ellipseOf(10.0, 4.0, 0.0, 1.0);
    off.start = {20, 0, 5};
    EXPECT_BITS_EQ(polylineOf(off, 0.01).front(), mgPoint_c(10, 0, 0));
}

TEST(TessEllipse, UsesItsDirectionsAsGiven) {
    ellipseEdgeData const doubled{{1, 2, 3}, {2, 0, 0}, {0, 0, 2}, 3.0, 1.0, {7, 2, 3}, {7, 2, 3}};
    Polyline const points = polylineOf(doubled, 1e9);
    EXPECT_TRUE(points.empty()); // both radii are below the tolerance
    Polyline const closed = polylineOf(doubled, 1.0);
    ASSERT_EQ(closed.size(), 37u);
    EXPECT_LT(dist(closed[18], {-5, 2, 3}), 1e-11);
    EXPECT_LT(dist(closed[0], closed[36]), 1e-11);
}

TEST(TessEllipse, TheEndsOfTheRecordCountAndThoseOfTheCallDoNot) {
    ellipseEdgeData const ellipse = ellipseOf(10.0, 4.0, 1.0, 2.0);
    support::expectSame(polylineOf(ellipse, 0.01, {1, 2, 3}, {4, 5, 6}), polylineOf(ellipse, 0.01));
    int count = 0;
    suDynamicArray<mgPoint_c> list;
    mg_TessEllipse(&ellipse, nullptr, nullptr, 0.01, nullptr, count, &list);
    EXPECT_EQ(list.Count(), count + 1);
}

TEST(TessEllipse, ARadiusBelowTheToleranceMakesNothing) {
    for (double const tol : {4.0, std::nextafter(4.0, 5.0)}) {
        bool const below = tol > 4.0;
        EXPECT_EQ(polylineOf(ellipseOf(10.0, 4.0, 0.0, 1.0), tol).empty(), below);
        EXPECT_EQ(polylineOf(ellipseOf(4.0, 10.0, 0.0, 1.0), tol).empty(), below);
    }
}

TEST(TessEllipse, EndsOnHostileValues) {
    support::Random random;
    auto const h = [&random] { return random.hostile(); };
    for (int round = 0; round < 5000; ++round) {
        polylineOf({{h(), h(), h()},
                    {h(), h(), h()},
                    {h(), h(), h()},
                    h(),
                    h(),
                    {h(), h(), h()},
                    {h(), h(), h()}},
                   h());
    }
}
