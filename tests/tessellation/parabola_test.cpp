// SPDX-License-Identifier: MIT
// Parabolas and hyperbolas by vertex and focus, and their eccentricity.

#include "polyline.h"

namespace {

using support::Polyline;

Polyline polylineOf(parabolaEdgeData const &parabola, double tol = 0.01) {
    return support::handedOut([&](auto array, int &count, auto list) {
        mg_TessParabola(&parabola, tol, array, count, list);
    });
}

/// The point of the conic with its vertex at (1, 2, 3) and its focus f above, over a way across.
mgPoint_c onConic(double f, double e, double across) {
    double const q = 1.0 + e;
    double const height =
        across * across / (f * q + std::sqrt(f * f * q * q + across * across * (e * e - 1.0)));
    return {1.0 - across, 2.0, 3.0 + height};
}

/// About the axis z in the plane of z and x; t counts in twice the focal length.
parabolaEdgeData conicOf(double f, double e, double t0, double t1) {
    return {{1, 2, 3}, {1, 2, 3 + f}, {}, onConic(f, e, 2 * f * t0), onConic(f, e, 2 * f * t1),
            {0, -4, 0}};
}

} // namespace

TEST(TessParabola, StepsEquallyAcrossTheAxisOnTheCurve) {
    for (double const e : {1.0, 1.25, 3.0, 1000.0}) {
        Polyline const points = polylineOf(conicOf(2.0, e, -0.5, 1.01));
        int const n = support::segmentsOf(points);
        ASSERT_EQ(n, 37); // 1.51 times 25
        for (int i = 0; i <= n; ++i) {
            double const across = 4.0 * (-0.5 + 1.51 * i / n);
            EXPECT_LT(dist(points[static_cast<std::size_t>(i)], onConic(2.0, e, across)), 1e-12)
                << e;
        }
    }
}

TEST(TessParabola, HasAtLeastTenSegments) {
    EXPECT_EQ(polylineOf(conicOf(2.0, 1.0, 0.0, 0.439)).size(), 11u);
    EXPECT_EQ(polylineOf(conicOf(2.0, 1.0, 0.0, 0.441)).size(), 12u);
    EXPECT_EQ(polylineOf(conicOf(2.0, 1.0, 1.0, 0.99)).size(), 11u);
    EXPECT_TRUE(polylineOf(conicOf(2.0, 1.0, 0.25, 0.25)).empty());
}

TEST(TessParabola, TheToleranceDoesNotChangeAParabola) {
    parabolaEdgeData const parabola = conicOf(2.0, 1.0, -1.0, 1.0);
    for (double const tol : {0.0, 1e9, -1.0})
        support::expectSame(polylineOf(parabola, tol), polylineOf(parabola));
}

TEST(TessParabola, AnEllipseIsDrawnAsAParabola) {
    parabolaEdgeData const ellipse = conicOf(2.0, 0.5, 0.0, 0.5);
    Polyline const points = polylineOf(ellipse);
    EXPECT_LT(dist(points.back(), onConic(2.0, 1.0, 2.0)), 1e-13);
}

TEST(TessParabola, RefusesCountsOfMoreThanTenMillion) {
    EXPECT_TRUE(polylineOf(conicOf(1e-3, 1.0, 0.0, 400000.1)).empty());
    EXPECT_TRUE(polylineOf({{}, {0, 0, 0}, {}, {-1, 0, 1}, {1, 0, 1}, {0, 1, 0}}).empty()); // f = 0
}

TEST(TessParabola, EndsOnHostileValues) {
    support::Random random;
    auto const h = [&random] { return random.hostile(); };
    for (int round = 0; round < 5000; ++round) {
        polylineOf({{h(), h(), h()},
                    {h(), h(), h()},
                    {},
                    {h(), h(), h()},
                    {h(), h(), h()},
                    {h(), h(), h()}});
    }
}

TEST(ConicEccentricity, IsThatOfTheCurveThroughTheEndFartherAlongTheAxis) {
    for (double const e : {0.0, 0.5, 1.0, 2.0}) {
        parabolaEdgeData const c = conicOf(2.0, e, -0.25, 0.5);
        EXPECT_NEAR(mg_getConicEccentricity(c.focus, c.vertex, c.start, c.end), e, 1e-14);
        EXPECT_NEAR(mg_getConicEccentricity(c.focus, c.vertex, c.end, c.vertex), e, 1e-14);
    }
    mgPoint_c const v{0, 0, 0}, f{0, 0, 1};
    EXPECT_EQ(mg_getConicEccentricity(f, v, v, v), 1.0);
    // On a tie the start: (2, 0, 1) is on the parabola, (4, 0, 1) is not.
    EXPECT_EQ(mg_getConicEccentricity(f, v, {2, 0, 1}, {4, 0, 1}), 1.0);
    EXPECT_EQ(mg_getConicEccentricity(f, v, {4, 0, 1}, {2, 0, 1}), 3.0);
}
