// SPDX-License-Identifier: MIT
// Segments and rays in space, segments in the plane.

#include "common/geometry.h"

namespace {

// Of all queries.
static_assert(areNumbered(mgIntersect_Coincident, mgIntersect_Parallel, mgIntersect_Point,
                          mgIntersect_TwoPoints, mgIntersect_None));
static_assert(areNumbered(mgLinePlane_InPlane, mgLinePlane_Parallel, mgLinePlane_Point,
                          mgLinePlane_Failed));
static_assert(areNumbered(mgPlnPln_Coincident, mgPlnPln_Parallel, mgPlnPln_Line, mgPlnPln_Failed));
static_assert(areNumbered(mgLineCircle_Tangent, mgLineCircle_ThroughCentre, mgLineCircle_Secant,
                          mgLineCircle_Miss));
static_assert(areNumbered(mgClipLine_Outside, mgClipLine_Inside, mgClipLine_ClippedA,
                          mgClipLine_ClippedB, mgClipLine_ClippedBoth, mgClipLine_Touching));
static_assert(areNumbered(mgInsideBox_Outside, mgInsideBox_Touching, mgInsideBox_Partly,
                          mgInsideBox_Inside));
static_assert(areNumbered(mgPointOnLine_Off, mgPointOnLine_Between, mgPointOnLine_AtA,
                          mgPointOnLine_AtB));
static_assert(areNumbered(mgPolylineArc_None, mgPolylineArc_Arc, mgPolylineArc_Circle,
                          mgPolylineArc_Line));

constexpr auto Coincident = mgIntersect_Coincident, Parallel = mgIntersect_Parallel,
               Point = mgIntersect_Point, None = mgIntersect_None;
P const a(0, 0, 0), b(4, 0, 0);
U const x(1, 0, 0), y(0, 1, 0);

TEST(Segments, TheFirstEndHasSlackAndTheSecondHasNone) {
    auto const check = [](mgIntersectionType_e type, double at, Caller = {}) {
        P out = b; // the output is an input
        EXPECT_EQ(type, mg_LineSegIntLineSeg(a, out, P(at, -1, 0), P(at, 1, 0), out, 0.5));
    };
    check(Point, -0.125); // the tolerance over the length, 0.5 / 4
    check(None, below(-0.125)), check(Point, 4), check(None, above(4));
}

TEST(Segments, MissedEndsAndSkewSegmentsStillWriteThePoint) {
    auto const check = [](mgIntersectionType_e type, P const &written, P const &a2, P const &b2,
                          Caller = {}) {
        for (bool swapped : {false, true}) {
            P out = untouched;
            EXPECT_EQ(type,
                      mg_LineSegIntLineSeg(a, b, swapped ? b2 : a2, swapped ? a2 : b2, out, 1e-8));
            EXPECT_BITS_EQ(written, out);
        }
    };
    check(Point, {2, 0, 0}, {2, 0, 0}, {2, 5, 0});
    check(None, {2, 0, 0}, {2, -5, 1}, {2, 5, 1}), check(None, {2, 0, 0}, {2, 1, 0}, {2, 5, 0});
    check(Parallel, untouched, {0, 1, 0}, {4, 1, 0});
    check(None, untouched, {2, 0, 0}, {2, below(1e-8), 0});
    check(Point, {2, 0, 0}, {2, 0, 0}, {2, 1e-8, 0});
    check(Coincident, a, {4, 0, 0}, {7, 0, 0});      // collinear from here on
    check(Coincident, a, {-7, 0, 0}, {-1e-8, 0, 0}); // touching within the tolerance
    check(None, a, {std::nextafter(4, 5), 0, 0}, {7, 0, 0});
    check(None, a, {-7, 0, 0}, {-1.001e-8, 0, 0});
    check(Coincident, a, {-2, 0, 0}, {2, 0, 0}), check(Coincident, a, {-2, 0, 0}, {6, 0, 0});
}

TEST(Segments, LinesAndRaysAreJudgedByTheSameEnds) {
    auto const check = [](mgLine_c const &line, mgIntersectionType_e byLine,
                          mgIntersectionType_e byRay, P const &written, Caller = {}) {
        P out = untouched;
        EXPECT_EQ(byLine, mg_LineIntLineSeg(line, a, b, &out, 1e-8));
        EXPECT_BITS_EQ(written, out);
        out = b; // the output is an input
        EXPECT_EQ(byRay, mg_RayIntLineSeg(line, a, out, &out, 1e-8));
    };
    check({{2, 1e-8, 0}, y}, Point, Point, {2, 0, 0});
    check({{2, 2e-8, 0}, y}, Point, None, {2, 0, 0}); // behind the ray
    check({{2, -9, 1}, y}, None, None, {2, 0, 1});    // skew
    check({{9, 0, 0}, x}, Coincident, Coincident, {9, 0, 0});
    check({{9, 1, 0}, x}, Parallel, Parallel, untouched);
    P out = untouched;
    EXPECT_EQ(None, mg_LineIntLineSeg({{9, 0, 0}, x}, a, {9e-9, 0, 0}, &out, 1e-8));
    EXPECT_BITS_EQ(untouched, out);
}

void CheckPlanar(mgIntersectionType_e type, P const &written, P const &q1, P const &q2,
                 P const &p1 = a, P const &p2 = b, Caller = {}) {
    P out = untouched;
    EXPECT_EQ(type, mg_LineSegIntLineSeg2D(p1, p2, q1, q2, &out));
    EXPECT_NEAR(0.0, dist(written, out), 1e-15);
    out = p1;
    EXPECT_EQ(type, mg_LineSegIntLineSeg2D(out, p2, q1, q2, &out));
}

TEST(Segments2D, OffTheLineTheCandidateIsWrittenUnlessBothEndsAreOnOneSide) {
    CheckPlanar(Point, {1, 0, 6}, {1, -2, 4}, {1, 2, 8}); // z is carried along
    for (double const at : {-1e-8, 4 + 9e-9})
        CheckPlanar(Point, {at, 0, 0}, {at, -2, 0}, {at, 2, 0});
    for (double const at : {below(-1e-8), 4 + 1.001e-8})
        CheckPlanar(None, {at, 0, 0}, {at, -2, 0}, {at, 2, 0});
    CheckPlanar(None, untouched, {1, 1, 0}, {2, 2, 0});
    double const in = below(1e-8); // nearer than this, an end is on the line
    CheckPlanar(Point, {1, in, 0}, {1, in, 0}, {2, 1, 0});
    CheckPlanar(Point, {1, in, 0}, {2, 1, 0}, {1, in, 0});
    CheckPlanar(None, untouched, {1, 1e-8, 0}, {2, 1, 0});
    CheckPlanar(None, untouched, {2, 1, 0}, {1, 1e-8, 0});
}

TEST(Segments2D, CollinearSegmentsGiveTheMiddleOfTheirOverlap) {
    auto const check = [](mgIntersectionType_e type, double q1, double q2, double middle,
                          Caller = {}) {
        for (V const &d : {V(x), V(-x), V(y)}) {
            P const written = type == None ? untouched : P(middle * d);
            CheckPlanar(type, written, q1 * d, q2 * d, a, 4 * d);
            CheckPlanar(type, written, q2 * d, q1 * d, a, 4 * d);
        }
    };
    check(Coincident, 1, 2, 1.5), check(Coincident, 4 - 2e-8, 7, 4 - 1e-8);
    check(Point, 4 - 8e-9, 7, 4 - 4e-9); // ends within 1e-08 of each other touch
    check(None, 5, 7, 0);
}

TEST(Segments2D, TheAreasAreThoseAtTheFirstEnd) {
    Random random;
    for (int round = 0; round < 20; ++round) {
        P const p1 = random.triple<P>(-9, -1), p2 = random.triple<P>(1, 9);
        P const q1(random.uniform(-1, 0), 9, 1), q2(random.unit(), -9, 2);
        double const area1 = ((p2 - p1) * (q1 - p1)).z(), area2 = ((p2 - p1) * (q2 - p1)).z();
        P out;
        EXPECT_EQ(Point, mg_LineSegIntLineSeg2D(p1, p2, q1, q2, &out));
        EXPECT_BITS_EQ(interpolate(area1 / (area1 - area2), q1, q2), out);
    }
}

TEST(Segments2D, AMarkedPointMeetsNothing) {
    for (double mark : {5e-09, -5e-09}) {
        CheckPlanar(None, untouched, {mark, -1, 0}, {1, 1, 0});
        CheckPlanar(None, untouched, {1, 1, 0}, {mark, -1, 0});
        CheckPlanar(None, untouched, {1, -1, 0}, {1, 1, 0}, {mark, 0, 0});
        CheckPlanar(None, untouched, {-1, -1, 0}, {-1, 1, 0}, {-4, 0, 0}, {mark, 0, 0});
        double const next = std::nextafter(mark, 1);
        CheckPlanar(Point, {next, 0, 0}, {next, -1, 0}, {next, 1, 0}, {-4, 0, 0});
    }
    CheckPlanar(None, untouched, {1, -1, 0}, {1, 1, std::nan("")});
    CheckPlanar(None, untouched, {1, 1, 0}, {1, 1, 9e-9}); // equal ends
    P out;                                                 // the candidate is NaN
    EXPECT_EQ(None,
              mg_LineSegIntLineSeg2D({-kMax, 0, 0}, {kMax, 0, 0}, {0, -1, 0}, {0, 1, 0}, &out));
}

} // namespace
