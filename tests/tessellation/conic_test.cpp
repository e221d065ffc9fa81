// SPDX-License-Identifier: MIT
// Conic arcs by their end tangents, and which records are taken for them.

#include "polyline.h"

namespace {

using support::Polyline;

Polyline polylineOf(parabolaEdgeData const &conic) {
    return support::handedOut([&](auto array, int &count, auto list) {
        mg_TessBConic(&conic, 0.01, array, count, list);
    });
}

/// End tangents that cross at (0, 1, 0); the arc goes the given part of the way to the chord.
parabolaEdgeData conicOf(double flatness) {
    return {{0, 1, 0}, {0, 1 - flatness, 0}, {}, {-1, 0, 0}, {1, 0, 0}, {0, 0, 1}};
}

double angle(mgVector_c const &a, mgVector_c const &b) { return mg_AngleBetween(a, b); }

} // namespace

TEST(TessBConic, LiesOnTheConicWithItsChordsNearItsTangents) {
    for (double const flatness : {0.05, 0.3, 0.5, 0.7, 0.95}) {
        Polyline const points = polylineOf(conicOf(flatness));
        ASSERT_GT(points.size(), 100u);
        EXPECT_BITS_EQ(points.front(), mgPoint_c(-1, 0, 0));
        EXPECT_BITS_EQ(points.back(), mgPoint_c(1, 0, 0));
        double const m = (1.0 - flatness) / flatness;
        for (mgPoint_c const &p : points) {
            // In coordinates a, b, c of the triangle start, vertex, end: b^2 = 4 m^2 a c.
            double const b = p.y(), a = 0.5 * (1.0 - b - p.x()), c = 0.5 * (1.0 - b + p.x());
            EXPECT_NEAR(b * b, 4.0 * m * m * a * c, 4e-15 * (1.0 + m * m));
        }
        // Chords within the limit of both tangents turn by less than twice as much from one to
        // the next; those at the ends are held against the sides of the triangle.
        for (std::size_t i = 2; i < points.size(); ++i)
            EXPECT_LT(angle(points[i - 1] - points[i - 2], points[i] - points[i - 1]), 0.008);
        EXPECT_LT(angle(points[1] - points[0], mgVector_c(1, 1, 0)), 0.004);
        EXPECT_LT(angle(points.back() - points[points.size() - 2], mgVector_c(1, -1, 0)), 0.004);
    }
}

TEST(TessBConic, FollowsACircleWhoseTangentsAreKnown) {
    // A quarter: 256 chords are 0.00307 off their tangents, 128 are 0.00614.
    double const flatness = 2.0 - std::sqrt(2.0);
    Polyline const points = polylineOf(conicOf(flatness));
    for (mgPoint_c const &p : points)
        EXPECT_NEAR(dist(p, mgPoint_c(0, -1, 0)), std::sqrt(2.0), 1e-15);
    EXPECT_EQ(support::segmentsOf(points), 256);
}

TEST(TessBConic, DoesNotDependOnTheNormal) {
    parabolaEdgeData conic = conicOf(0.4);
    Polyline const points = polylineOf(conic);
    conic.normal[2] = -3.0;
    support::expectSame(points, polylineOf(conic));
}

TEST(TessBConic, AListIsReplaced) {
    parabolaEdgeData const conic = conicOf(0.5);
    suDynamicArray<mgPoint_c> list;
    for (int i = 0; i < 3; ++i) list.Add({9, 9, 9});
    int count = 0;
    mg_TessBConic(&conic, 0.01, nullptr, count, &list);
    EXPECT_GT(count, 0);
    EXPECT_EQ(list.Count(), count + 1);
}

TEST(TessBConic, RefusesWhatItCannotTakeAndTheDispatcherDrawsAParabola) {
    auto const CheckTaken = [](parabolaEdgeData const &conic, bool taken) {
        Polyline const direct = polylineOf(conic);
        EXPECT_EQ(!direct.empty(), taken);
        Polyline const dispatched = support::handedOut([&](auto array, int &count, auto list) {
            mg_TessParabolaOrBConic(&conic, 0.01, array, count, list);
        });
        if (taken) return support::expectSame(dispatched, direct);
        support::expectSame(dispatched, support::handedOut([&](auto array, int &count, auto list) {
                                mg_TessParabola(&conic, 0.01, array, count, list);
                            }));
    };
    CheckTaken(conicOf(0.5), true);
    CheckTaken(conicOf(0.001), true);
    CheckTaken(conicOf(0.999), true);
    CheckTaken(conicOf(1.0), false);  // the focus on the chord
    CheckTaken(conicOf(1.5), false);  // beyond it
    CheckTaken(conicOf(-0.5), false); // on the other side of the vertex
    CheckTaken(conicOf(0.0), false);
    parabolaEdgeData missed = conicOf(0.5);
    missed.end = {-0.5, 0, 0}; // the axis passes the chord
    CheckTaken(missed, false);
    parabolaEdgeData skew = conicOf(0.5);
    skew.start.set_z(1e-7);
    CheckTaken(skew, false);
}

TEST(TessBConic, AParabolaAroundItsFocusIsTakenForABlend) {
    // y = x^2 / 4 with its focus at (0, 1), cut at one height: below the focus and above it.
    auto const lowest = [](double x) {
        parabolaEdgeData const parabola{
            {}, {0, 1, 0}, {}, {-x, x * x / 4, 0}, {x, x * x / 4, 0}, {0, 0, 1}};
        Polyline const points = support::handedOut([&](auto array, int &count, auto list) {
            mg_TessParabolaOrBConic(&parabola, 0.01, array, count, list);
        });
        double y = 1e9;
        for (mgPoint_c const &p : points) y = std::min(y, p.y());
        return y;
    };
    EXPECT_NEAR(lowest(1.99), 0.0, 1e-3);
    EXPECT_EQ(lowest(4.0), 1.0); // at the focus, not at the vertex
}

TEST(TessBConic, EndsWhereNumbersAreTooCoarseToBecomeStraight) {
    // Size 1 at a distance where neighbouring numbers are 1/8 apart: every chord is off.
    double const far = 1e15;
    parabolaEdgeData conic = conicOf(0.5);
    for (mgPoint_c *p : {&conic.vertex, &conic.focus, &conic.start, &conic.end})
        p->set_x(p->x() + far);
    EXPECT_LT(polylineOf(conic).size(), 5000u);
    support::Random random;
    auto const h = [&random] { return random.hostile(); };
    for (int round = 0; round < 5000; ++round) {
        polylineOf({{h(), h(), h()},
                    {h(), h(), h()},
                    {},
                    {h(), h(), h()},
                    {h(), h(), h()},
                    {h(), h(), h()}});
        parabolaEdgeData bent = conicOf(random.uniform(0.0, 1.0));
        bent.start.set_x(h());
        bent.end.set_x(-bent.start.x());
        bent.normal[random.below(3)] = h();
        polylineOf(bent);
    }
}
