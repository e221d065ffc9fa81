// SPDX-License-Identifier: MIT
// Conic arcs by their end tangents, and which records are taken for them.

#include "polyline.h"

namespace {

using namespace support;
using P = mgPoint_c;

Polyline polylineOf(parabolaEdgeData const &conic, decltype(mg_TessBConic) tess = mg_TessBConic) {
    return handedOut(
        [&](auto array, int &count, auto list) { tess(&conic, 0.01, array, count, list); });
}

/// End tangents that cross at (0, 1, 0); the arc goes the given part of the way to the chord.
parabolaEdgeData conicOf(double flatness) {
    return {{0, 1, 0}, {0, 1 - flatness, 0}, {}, {-1, 0, 0}, {1, 0, 0}, {0, 0, 1}};
}

} // namespace

TEST(TessBConic, LiesOnTheConicWithItsChordsNearItsTangents) {
    for (double const flatness : {0.05, 0.3, 0.5, 0.7, 0.95}) {
        Polyline points = polylineOf(conicOf(flatness));
        ASSERT_GT(points.size(), 100u);
        EXPECT_BITS_EQ(points.front(), P(-1, 0, 0));
        EXPECT_BITS_EQ(points.back(), P(1, 0, 0));
        double const m = (1 - flatness) / flatness;
        for (P const &p : points) {
            // In coordinates a, b, c of the triangle start, vertex, end: b^2 = 4 m^2 a c.
            double const b = p.y(), a = 0.5 * (1 - b - p.x()), c = 0.5 * (1 - b + p.x());
            EXPECT_NEAR(b * b, 4 * m * m * a * c, 4e-15 * (1 + m * m));
        }
        // Chords within the limit of both tangents turn by less than twice as much from one to
        // the next; those at the ends are held against the sides of the triangle.
        points.insert(points.begin(), P(-2, -1, 0));
        points.push_back(P(2, -1, 0));
        for (std::size_t i = 2; i < points.size(); ++i) {
            double const limit = i == 2 || i + 1 == points.size() ? 0.004 : 0.008;
            EXPECT_LT(mg_AngleBetween(points[i - 1] - points[i - 2], points[i] - points[i - 1]),
                      limit);
        }
    }
}

TEST(TessBConic, FollowsACircleWhoseTangentsAreKnown) {
    // A quarter: 256 chords are 0.00307 off their tangents, 128 are 0.00614.
    Polyline const points = polylineOf(conicOf(2 - std::sqrt(2.0)));
    for (P const &p : points) EXPECT_NEAR(dist(p, P(0, -1, 0)), std::sqrt(2.0), 1e-15);
    EXPECT_EQ(segmentsOf(points), 256);
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

void CheckTaken(bool taken, parabolaEdgeData const &conic) {
    EXPECT_EQ(taken, !polylineOf(conic).empty());
    EXPECT_TRUE(areSame(polylineOf(conic, mg_TessParabolaOrBConic),
                        polylineOf(conic, taken ? mg_TessBConic : mg_TessParabola)));
}

TEST(TessBConic, RefusesWhatItCannotTakeAndTheDispatcherDrawsAParabola) {
    for (double const flatness : {0.001, 0.5, 0.999}) CheckTaken(true, conicOf(flatness));
    // The focus on the chord or beyond it, at the vertex or on its other side.
    for (double const flatness : {1.0, 1.5, 0.0, -0.5}) CheckTaken(false, conicOf(flatness));
    parabolaEdgeData missed = conicOf(0.5), skew = missed;
    missed.end = {-0.5, 0, 0}; // the axis passes the chord
    skew.start.set_z(1e-7);
    CheckTaken(false, missed);
    CheckTaken(false, skew);
}

TEST(TessBConic, AParabolaAroundItsFocusIsTakenForABlend) {
    // y = x^2 / 4 with its focus at (0, 1), cut at one height: below the focus and above it.
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
    Random random;
    for (int round = 0; round < 5000; ++round) {
        auto const any = random.hostile<parabolaEdgeData>();
        polylineOf(any);
        polylineOf(any, mg_TessParabola);
        conic = conicOf(random.uniform(0, 1));
        conic.start.set_x(random.hostile());
        conic.end.set_x(-conic.start.x());
        conic.normal[random.below(3)] = random.hostile();
        polylineOf(conic);
    }
}
