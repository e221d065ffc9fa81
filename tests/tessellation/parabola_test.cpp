// SPDX-License-Identifier: MIT
// Parabolas and hyperbolas by vertex and focus, and their eccentricity.

#include "polyline.h"

namespace {

Polyline polylineOf(parabolaEdgeData const &parabola, double tol = 0.01) {
    return outputOf([&](auto &&...out) { mg_TessParabola(&parabola, tol, out...); });
}

/// Of the conic with its vertex at (1, 2, 3) and its focus f above, at a distance from the axis.
P onConic(double f, double e, double across) {
    double const q = f * (1 + e);
    double const height = across * across / (q + std::sqrt(q * q + across * across * (e * e - 1)));
    return {1 - across, 2, 3 + height};
}

/// With the axis z, in the plane of x and z; t is in units of twice the focal length.
parabolaEdgeData conicOf(double f, double e, double t0, double t1) {
    return {{1, 2, 3}, {1, 2, 3 + f}, {}, onConic(f, e, 2 * f * t0), onConic(f, e, 2 * f * t1),
            {0, -4, 0}};
}

} // namespace

TEST(TessParabola, StepsEquallyAcrossTheAxisOnTheCurve) {
    Random random;
    for (double const e : {0.5, 1.0, 1.25, 3.0, 1000.0}) {
        mgXform_c const x = placement(random);
        Polyline const points = polylineOf(placed(conicOf(2, e, -0.25, 0.53), x));
        EXPECT_EQ(segmentsOf(points), 19) << e;      // 0.78 times 25
        CheckNear(points, 1e-12, [&](double share) { // an ellipse is replaced by a parabola
            return onConic(2, std::max(e, 1.0), 4 * (-0.25 + 0.78 * share)) * x;
        });
    }
}

TEST(TessParabola, TheToleranceDoesNotChangeAParabola) {
    parabolaEdgeData const conic = conicOf(2, 1, -1, 1);
    for (double const tol : {0.0, 1e9, -1.0})
        EXPECT_BITS_EQ(polylineOf(conic), polylineOf(conic, tol));
}

TEST(TessParabola, HasFromTenToTenMillionSegments) {
    double const rows[][4] = {
        {2, 0, 0.439, 10},     {2, 0, 0.441, 11},      {2, 1, 0.99, 10}, // f, t0, t1
        {2, 0, 3.9999999, 99}, {2, 0, 4.0000001, 100}, {2, 0.25, 0.25, 0}, {1e-3, 0, 400000.1, 0},
        {0, 0, 1, 0}};
    for (auto const &[f, t0, t1, expected] : rows)
        EXPECT_EQ(expected, segmentsOf(polylineOf(conicOf(f, 1, t0, t1)))) << f << ' ' << t1;
}

TEST(TessParabola, AShortArcWhoseHeightIsLostToRoundingIsAParabola) {
    P const vertex(1e6, 0, 0), focus(1e6 + 100, 0, 0), start(1e6, 0.000147, 0);
    Polyline const points = polylineOf({vertex, focus, {}, start, {1e6, -0.000147, 0}, {0, 0, 1}});
    EXPECT_EQ(10, segmentsOf(points));
    for (P const &p : points) {
        EXPECT_EQ(1e6, p.x());
        EXPECT_LT(std::fabs(p.y()), 0.000148);
    }
}

TEST(TessParabola, AHyperbolaOfHugeEccentricityIsALine) {
    Polyline const points = polylineOf({{}, {1, 0, 0}, {}, {}, {1e-160, 1, 0}, {0, 0, 1}});
    for (P const &p : points) EXPECT_GE(p.x(), 0);
    // Of an eccentricity of 1e154, which is the largest.
    EXPECT_NEAR((std::sqrt(2.0) - 1) * 1e-154, points.back().x(), 1e-163);
    EXPECT_NEAR(1, points.back().y(), 1e-15);
}

TEST(ConicEccentricity, IsThatOfTheCurveThroughTheEndFartherAlongTheAxis) {
    for (double const e : {0.0, 0.5, 1.0, 2.0}) {
        parabolaEdgeData const c = conicOf(2, e, -0.25, 0.5);
        EXPECT_NEAR(mg_getConicEccentricity(c.focus, c.vertex, c.start, c.end), e, 1e-14);
        EXPECT_NEAR(mg_getConicEccentricity(c.focus, c.vertex, c.end, c.vertex), e, 1e-14);
    }
    P const v{0, 0, 0}, f{0, 0, 1};
    EXPECT_EQ(mg_getConicEccentricity(f, v, v, v), 1);
    EXPECT_EQ(mg_getConicEccentricity(f, v, {3, 0, 0}, {4, 0, 0}), 1); // level with the vertex
    // On a tie the start: (2, 0, 1) is on the parabola, (4, 0, 1) is not.
    EXPECT_EQ(mg_getConicEccentricity(f, v, {2, 0, 1}, {4, 0, 1}), 1);
    EXPECT_EQ(mg_getConicEccentricity(f, v, {4, 0, 1}, {2, 0, 1}), 3);
}
