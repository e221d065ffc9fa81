// SPDX-License-Identifier: MIT
// Circular arcs: numbers of segments, where the points lie, what makes none.

#include "polyline.h"

#include <limits>

namespace {

using support::Polyline;

double const kNaN = std::numeric_limits<double>::quiet_NaN();

Polyline polylineOf(arcEdgeData const &arc, mgPoint_c const &start, mgPoint_c const &end,
                    double tol) {
    return support::handedOut([&](auto array, int &count, auto list) {
        mg_TessArc(&arc, &start, &end, tol, array, count, list);
    });
}

mgPoint_c onCircle(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
}

/// An arc about the origin and the z axis, from the x axis on.
Polyline planar(double radius, double sweep, double tol) {
    return polylineOf({{}, {0, 0, 1}, radius}, {radius, 0, 0}, onCircle(radius, sweep), tol);
}

void CheckSegments(double sweepDeg, double tol, int expected) {
    EXPECT_EQ(support::segmentsOf(planar(10.0, sweepDeg * vexmath::kRadPerDeg, tol)), expected)
        << sweepDeg << " degrees, tol " << tol;
}

} // namespace

TEST(TessArc, CountsSegmentsByToleranceBetweenAnEighthAndA120th) {
    CheckSegments(0.0, 0.01, 140); // equal ends: all around
    CheckSegments(90.0, 0.01, 35); // pi / 2 over acos(0.999)
    CheckSegments(90.0, 1e9, 8);
    CheckSegments(90.0, 1e-9, 120);
    CheckSegments(90.0, 0.0, 120);
    CheckSegments(90.0, -1.0, 120);
    CheckSegments(0.0, 1e9, 16); // an eighth of half a turn
    CheckSegments(0.0, 1e-9, 240);
    CheckSegments(4.0, 1e9, 8);
    CheckSegments(2.0, 1e9, 8); // not the two that are the least of other curves
    CheckSegments(2.0, 10.0, 8);
    CheckSegments(90.0, kNaN, 8);
}

TEST(TessArc, ASweepTooSmallForAStepIsOneSegment) {
    auto const segments = [](double x, double y) {
        return support::segmentsOf(polylineOf({{}, {0, 0, 1}, 1.0}, {1, 0, 0}, {x, y, 0}, 1e9));
    };
    EXPECT_EQ(segments(2.0, 0.0), 1);     // on one ray, at different distances
    EXPECT_EQ(segments(2.0, 1.5e-10), 1); // the step is an eighth of 7.5e-11
    EXPECT_EQ(segments(2.0, 1.7e-10), 8);
}

TEST(TessArc, GoesCounterClockwiseAboutTheNormalInEqualSteps) {
    support::Random random;
    for (int round = 0; round < 200; ++round) {
        double const radius = random.uniform(0.1, 100.0);
        auto const centre = random.triple<mgPoint_c>(-100.0, 100.0);
        auto const normal = random.triple<mgVector_c>(-1.0, 1.0);
        mgUnitVector_c u, v;
        mg_getBasis(mg_Normalise(normal), u, v);
        double const sweep = random.uniform(0.01, 6.28);
        double const tol = random.uniform(0.001, 0.01) * radius;
        auto const at = [&](double angle) {
            return centre + radius * std::cos(angle) * u + radius * std::sin(angle) * v;
        };
        arcEdgeData const arc{centre, {normal.x(), normal.y(), normal.z()}, radius};
        Polyline const points = polylineOf(arc, at(0.0), at(sweep), tol);
        int const n = support::segmentsOf(points);
        ASSERT_GE(n, 8);
        ASSERT_BITS_EQ(points.front(), at(0.0));
        ASSERT_BITS_EQ(points.back(), at(sweep));
        for (int i = 0; i <= n; ++i)
            ASSERT_LT(dist(points[static_cast<std::size_t>(i)], at(sweep * i / n)), 1e-12 * 300.0);
        double const gap = radius * (1.0 - std::cos(0.5 * sweep / n));
        ASSERT_LT(gap, n == 8 ? 0.05 * radius : 0.25 * tol * (1.0 + 2.5 / n));
    }
}

TEST(TessArc, TheStartGivesTheRadiusAndTheRecordTheTolerance) {
    arcEdgeData const arc{{}, {0, 0, -5}, 1000.0};
    Polyline const points = polylineOf(arc, {2, 0, 0}, {0, 3, 0}, 1.0);
    ASSERT_EQ(points.size(), 106u); // three quarters the other way round, as of a radius of 1000
    EXPECT_BITS_EQ(points.back(), mgPoint_c(0, 3, 0));
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        EXPECT_NEAR(dist(points[i], mgPoint_c()), 2.0, 1e-13);
}

TEST(TessArc, HalfATurnSnapsWithin1e11) {
    auto const second = [](double offset) { return planar(1.0, vexmath::kPi + offset, 1e9)[1]; };
    EXPECT_BITS_EQ(second(0.0), second(-5e-12));
    EXPECT_BITS_EQ(second(0.0), second(5e-12));
    EXPECT_FALSE(support::sameBits(second(0.0).y(), second(-2e-11).y()));
}

TEST(TessArc, DegenerateInputMakesNothing) {
    mgPoint_c const p{1, 0, 0}, q{0, 1, 0};
    double const least = 1e-09;
    auto const segments = [](double radius, mgPoint_c const &start, mgPoint_c const &end) {
        return support::segmentsOf(polylineOf({{}, {0, 0, 1}, radius}, start, end, 0.01));
    };
    EXPECT_EQ(segments(least, p, q), 8);
    EXPECT_EQ(segments(std::nextafter(least, 0.0), p, q), 0);
    EXPECT_EQ(segments(-1.0, p, q), 0);
    EXPECT_EQ(segments(1.0, {5e-10, 5e-10, 0}, q), 0);
    EXPECT_EQ(segments(1.0, p, {0, 0, 5e-10}), 0);
    EXPECT_EQ(segments(1.0, {1e-09, 0, 0}, q), 11);
    EXPECT_EQ(segments(1.0, p, {kNaN, 0, 0}), 0);
}

TEST(TessArc, TakesItsEndsFromTheListItAppendsTo) {
    suDynamicArray<mgPoint_c> list;
    for (int i = 0; i < 8; ++i) list.Add(onCircle(1.0, i)); // full: the next point moves it
    arcEdgeData const arc{{}, {0, 0, 1}, 1.0};
    int count = 0;
    mg_TessArc(&arc, &list[0], &list[1], 1e-3, nullptr, count, &list);
    ASSERT_EQ(list.Count(), 8 + count + 1);
    EXPECT_BITS_EQ(list[8], onCircle(1.0, 0));
    EXPECT_BITS_EQ(list[8 + count], onCircle(1.0, 1));
}

TEST(TessArc, EndsOnHostileValues) {
    support::Random random;
    auto const h = [&random] { return random.hostile(); };
    for (int round = 0; round < 5000; ++round) {
        arcEdgeData const arc{{h(), h(), h()}, {h(), h(), h()}, h()};
        polylineOf(arc, {h(), h(), h()}, {h(), h(), h()}, h());
    }
}
