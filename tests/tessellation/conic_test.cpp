// SPDX-License-Identifier: MIT
// Conic arcs by their end tangents, and which records are read as such.

#include "polyline.h"

namespace {

Polyline polylineOf(parabolaEdgeData const &conic, decltype(mg_TessBConic) tess = mg_TessBConic) {
    return outputOf([&](auto &&...out) { tess(&conic, 0.01, out...); });
}

/// End tangents that cross at (0, 1, 0); the focus, on the arc, at a share of the way to the chord.
parabolaEdgeData conicOf(double flatness) {
    return {{0, 1, 0}, {0, 1 - flatness, 0}, {}, {-1, 0, 0}, {1, 0, 0}, {0, 0, 1}};
}

} // namespace

/// Chords within 0.004 of the tangents at both ends differ by less than 0.008 from one to the next.
/// Those at the ends are compared with the sides of the triangle.
void CheckTurns(parabolaEdgeData const &conic, Polyline points, Caller = {}) {
    points.insert(points.begin(), conic.start + (conic.start - conic.vertex));
    points.push_back(conic.end + (conic.end - conic.vertex));
    for (std::size_t i = 2; i < points.size(); ++i) {
        double const limit = i == 2 || i + 1 == points.size() ? 0.004 : 0.008;
        ASSERT_LT(mg_AngleBetween(points[i - 1] - points[i - 2], points[i] - points[i - 1]), limit);
    }
}

TEST(TessBConic, LiesOnTheConicWithItsChordsNearItsTangents) {
    // A quarter of a circle: 256 chords are 0.00307 off their tangents, 128 are 0.00614.
    double const circle = 2 - std::sqrt(2.0);
    EXPECT_EQ(segmentsOf(polylineOf(conicOf(circle))), 256);
    // A chord that is hardly more than 0.004 off its tangent.
    EXPECT_EQ(segmentsOf(polylineOf(conicOf(0.33334224))), 302);
    double const h = 0.0040000213334698675; // 0.004 off by rounding, as measured about the normal
    for (double const k : {1.0, -1.0, 0x1p-9, -0x1p-9}) {
        parabolaEdgeData conic = conicOf(0.5);
        conic.vertex = {0, h * k, 0}, conic.focus = {0, h * k / 2, 0};
        conic.start = {-k, 0, 0}, conic.end = {k, 0, 0}, conic.normal[2] = k;
        EXPECT_EQ(segmentsOf(polylineOf(conic)), 2);
    }
    Random random;
    for (double const flatness : {0.05, 0.3, 0.5, circle, 0.7, 0.95}) {
        mgXform_c const x = mg_ScaleXform(placement(random), 1), back = x.inverse();
        parabolaEdgeData const conic = placed(conicOf(flatness), x);
        Polyline const points = polylineOf(conic);
        ASSERT_GT(points.size(), 100u);
        EXPECT_BITS_EQ(points.front(), conic.start);
        EXPECT_BITS_EQ(points.back(), conic.end);
        double const m = (1 - flatness) / flatness;
        for (P const &point : points) {
            // In coordinates a, b, c of the triangle start, vertex, end: b^2 = 4 m^2 a c.
            P const p = point * back;
            double const b = p.y(), a = 0.5 * (1 - b - p.x()), c = 0.5 * (1 - b + p.x());
            EXPECT_NEAR(b * b, 4 * m * m * a * c, 1e-13 * (1 + m * m));
            EXPECT_NEAR(0, p.z(), 1e-13);
        }
        CheckTurns(conic, points);
    }
}

TEST(TessBConic, ASharpTurnIsResolvedByTheNumbersAtThatTurn) {
    // At the vertex, start or end, which lies at the origin, far from the other points.
    parabolaEdgeData const sharp{{}, {1e-8, 0, 0}, {}, {1e6, -1e6, 0}, {1e6, 1e6, 0}, {0, 0, 1}};
    EXPECT_EQ(260, segmentsOf(polylineOf(sharp)));
    CheckTurns(sharp, polylineOf(sharp));
    double const flat = 0x1p-50;
    parabolaEdgeData const atStart{{1, 1, 0}, {1, flat, 0}, {}, {}, {2, 0, 0}, {0, 0, 1}};
    parabolaEdgeData const atEnd{{-1, 1, 0}, {-1, flat, 0}, {}, {-2, 0, 0}, {}, {0, 0, 1}};
    for (auto const &conic : {atStart, atEnd}) EXPECT_EQ(210, segmentsOf(polylineOf(conic)));
}

void CheckTaken(bool taken, parabolaEdgeData const &conic, Caller = {}) {
    EXPECT_EQ(taken, !polylineOf(conic).empty());
    EXPECT_BITS_EQ(polylineOf(conic, taken ? mg_TessBConic : mg_TessParabola),
                   polylineOf(conic, mg_TessParabolaOrBConic));
}

TEST(TessBConic, RefusesNaNAndCoordinatesFrom1e100On) {
    auto const segments = [](double size) {
        return segmentsOf(polylineOf(
            {{0, size, 0}, {0, 0.5 * size, 0}, {}, {-size, 0, 0}, {size, 0, 0}, {0, 0, 1}}));
    };
    EXPECT_EQ(254, segments(1));
    EXPECT_EQ(254, segments(0x1p332)); // 8.7e99
    for (double const size : {1e100, 1e150, kMax, kInfinity}) EXPECT_EQ(0, segments(size));
    // NaN, also where the focus is at the start.
    for (P const &end : {P(kNaN, 0, 0), P(0, 0, kNaN)})
        CheckTaken(false, {{0, 1, 0}, {-1, 0, 0}, {}, {-1, 0, 0}, end, {0, 0, 1}});
}

TEST(TessBConic, AListIsReplaced) {
    parabolaEdgeData const conic = conicOf(0.5);
    suDynamicArray<P> list;
    list.Add({9, 9, 9});
    int count = 0;
    mg_TessBConic(&conic, 0.01, nullptr, count, &list);
    EXPECT_GT(count, 0);
    EXPECT_EQ(list.Count(), count + 1);
}

TEST(TessBConic, RefusesWhatItCannotTakeAndTheDispatcherDrawsAParabola) {
    for (double const flatness : {0.001, 0.5, 0.999}) CheckTaken(true, conicOf(flatness));
    // The focus on the chord, beyond it, at the vertex and behind the vertex.
    for (double const flatness : {1.0, 1.5, 0.0, -0.5}) CheckTaken(false, conicOf(flatness));
    parabolaEdgeData missed = conicOf(0.5), skew = missed;
    missed.end = {-0.5, 0, 0}; // the axis does not meet the chord
    skew.start.set_z(2.04e-8);
    CheckTaken(false, missed), CheckTaken(false, skew);
}

TEST(TessBConic, AParabolaAroundItsFocusIsReadByItsTangents) {
    // y = x^2 / 4 with its focus at (0, 1), ending at a height below and above the focus.
    auto const lowest = [](double x) {
        double const top = x * x / 4;
        double y = top;
        for (P const &p : polylineOf({{}, {0, 1, 0}, {}, {-x, top, 0}, {x, top, 0}, {0, 0, 1}},
                                     mg_TessParabolaOrBConic))
            y = std::min(y, p.y());
        return y;
    };
    EXPECT_NEAR(lowest(1.99), 0, 1e-3);
    EXPECT_EQ(lowest(4), 1); // at the focus, not at the vertex
}

TEST(TessBConic, EndsWhereNumbersAreTooCoarseToBecomeStraight) {
    // Size 1 at a distance where neighbouring numbers are 1/8 apart: every chord is off.
    parabolaEdgeData conic = conicOf(0.5);
    for (P *p : {&conic.vertex, &conic.focus, &conic.start, &conic.end}) p->set_x(p->x() + 1e15);
    EXPECT_LT(polylineOf(conic).size(), 5000u);
    // A needle with its tip at the origin, computed from numbers of size 3000 that cancel.
    P const start(-0.01, -3e3, 0), end(0.01, -3e3, 0);
    int const segments = segmentsOf(polylineOf({{0, 3e3, 0}, {}, {}, start, end, {0, 0, 1}}));
    EXPECT_TRUE(500 < segments && segments < 5000) << segments;
}
