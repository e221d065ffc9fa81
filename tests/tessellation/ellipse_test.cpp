// SPDX-License-Identifier: MIT
// Arcs of ellipses: numbers of segments, positions of the points, degenerate input.

#include "polyline.h"

namespace {

Polyline polylineOf(ellipseEdgeData const &ellipse, double tol, P const *start = nullptr,
                    P const *end = nullptr) {
    return outputOf([&](auto &&...out) { mg_TessEllipse(&ellipse, start, end, tol, out...); });
}

P onEllipse(double a, double b, double angle) {
    return {a * std::cos(angle), b * std::sin(angle), 0};
}

ellipseEdgeData ellipseOf(double a, double b, double from, double to) {
    return {{}, {1, 0, 0}, {0, 1, 0}, a, b, onEllipse(a, b, from), onEllipse(a, b, to)};
}

} // namespace

TEST(TessEllipse, CountsSegmentsByToleranceBetweenTenAndOneAndAHalfDegrees) {
    // Degrees, tolerance, segments: at least two above 1.5 degrees and three above 3.
    double const rows[][3] = {
        {360, 0.01, 140},       {100.5, 4, 10},           {100.5, 1e-9, 67}, {100.5, -1, 67},
        {1.49, 4, 1},           {1.50000007, 4, 2},       {2.99, 4, 2},      {3.0000001, 4, 3},
        {29.9, 4, 3},           {40.000001, 0.151923, 4}, {6.02e-10, 4, 1},  {5.6e-10, 4, 36},
        {360, 0.00342725, 239}, {100.5, kNaN, 10}};
    for (auto const &[degrees, tol, expected] : rows) {
        double const end = 0.5 + degrees * vexmath::kRadPerDeg;
        EXPECT_EQ(expected, segmentsOf(polylineOf(ellipseOf(10, 4, 0.5, end), tol))) << degrees;
    }
    for (double const tol : {4.0, above(4)}) { // no points for a radius below the tolerance
        EXPECT_EQ(polylineOf(ellipseOf(10, 4, 0, 1), tol).empty(), tol > 4);
        EXPECT_EQ(polylineOf(ellipseOf(4, 10, 0, 1), tol).empty(), tol > 4);
    }
}

TEST(TessEllipse, GoesFromStartToEndInEqualAngles) {
    // Directions are used as given, here three times as long.
    auto const check = [](int segments, double from, double sweep, Caller = {}) {
        P const centre(1, 2, 3);
        auto const at = [&](double share) {
            P const p = onEllipse(2, 1, from + share * sweep);
            return centre + p.x() * V(1, 2, 2) + p.y() * V(2, 1, -2);
        };
        Polyline const points =
            polylineOf({centre, {1, 2, 2}, {2, 1, -2}, 2, 1, at(0), at(sweep < 6 ? 1 : 0)}, 1);
        EXPECT_EQ(segments, segmentsOf(points));
        CheckNear(points, 1e-11, at);
    };
    check(36, 0.3, vexmath::kTwoPi), check(11, 2, 2), check(28, 0.5, 5);
}

TEST(TessEllipse, TheEndsOfTheRecordCountAndThoseOfTheCallDoNot) {
    ellipseEdgeData ellipse = ellipseOf(10, 4, 0, 2);
    P const start(1, 2, 3), end(4, 5, 6);
    EXPECT_BITS_EQ(polylineOf(ellipse, 0.01), polylineOf(ellipse, 0.01, &start, &end));
    ellipse.start = {20, 0, 5}; // off the curve: moved to it, not copied
    EXPECT_BITS_EQ(polylineOf(ellipse, 0.01).front(), P(10, 0, 0));
}
