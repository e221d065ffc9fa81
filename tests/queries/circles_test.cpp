// SPDX-License-Identifier: MIT
// Circles in the plane, with lines and with each other.

#include "common/geometry.h"

namespace {

void CheckLine(mgLineCircleIntType_e type, double height, P const &first, P const &second,
               double radius = 5, Caller = {}) {
    P const p(-9, height, 0);
    U const u(1, 0, 0);
    P out = untouched, centre(2, 0, 0);
    EXPECT_EQ(type, mg_LineIntCircle2D(p, u, centre, radius, &out, &centre)); // an input as well
    EXPECT_BITS_EQ(first, out);
    EXPECT_BITS_EQ(second, centre);
}

TEST(Circles, ALineMeetsACircleInFourWays) {
    CheckLine(mgLineCircle_ThroughCentre, 9.99e-9, {7, 0, 0}, {-3, 0, 0});
    CheckLine(mgLineCircle_Secant, 3, {6, 3, 0}, {-2, 3, 0});
    CheckLine(mgLineCircle_Tangent, -5 - 9.99e-9, {2, -5 - 9.99e-9, 0}, {2, 0, 0});
    CheckLine(mgLineCircle_Miss, 5 + 1.001e-8, untouched, {2, 0, 0});
    CheckLine(mgLineCircle_Miss, 1e-8, untouched, {2, 0, 0}, 0);
}

TEST(Circles, ASlantedLineMayLeaveThePlane) {
    auto const check = [](P const &foot, U const &u, Caller = {}) {
        P const centre(1, 2, 4); // 3 from the foot
        P out1, out2;
        EXPECT_EQ(mgLineCircle_Secant,
                  mg_LineIntCircle2D(foot - 10 * u, u, centre, 5.0, &out1, &out2));
        EXPECT_LT(gap(foot + 4 * u, out1), 1e-14);
        EXPECT_LT(gap(foot - 4 * u, out2), 1e-14);
    };
    check({3.4, 0.2, 4}, U(3, 4, 0)), check({1, 5, 4}, U(3, 0, 4));
}

void CheckCircles(mgIntersectionType_e type, double distance, double r1, double r2, P const &first,
                  P const &second, Caller = {}) {
    P out = untouched, c2(1 + distance, 2, 5);
    EXPECT_EQ(type, mg_CircleIntCircle2D(P(1, 2, 3), r1, c2, r2, &out, &c2));
    EXPECT_BITS_EQ(first, out);
    EXPECT_BITS_EQ(second, c2);
}

TEST(Circles, TwoCirclesMeetInTwoPointsTouchOrMissAndKeepTheOutputsZ) {
    CheckCircles(mgIntersect_TwoPoints, 8, 5, 5, {5, 5, 77}, {5, -1, 5});
    CheckCircles(mgIntersect_Point, 2, 1, 1, {2, 2, 77}, {3, 2, 5});
    CheckCircles(mgIntersect_Point, 2, 3, 1, {4, 2, 77}, {3, 2, 5}); // one inside the other
    double const small = 0x1p-15; // below 7e-05, circles that cross touch
    CheckCircles(mgIntersect_Point, small, small, small, {1 + small / 2, 2, 77}, {1 + small, 2, 5});
    CheckCircles(mgIntersect_None, 2, 1, 0.9, untouched, {3, 2, 5});
    CheckCircles(mgIntersect_None, 2, 9, 1, untouched, {3, 2, 5});
    CheckCircles(mgIntersect_Coincident, 0, 1, 9, untouched, {1, 2, 5});
    CheckCircles(mgIntersect_Coincident, 9.99e-9, 1, 9, untouched, {1 + 9.99e-9, 2, 5});
    CheckCircles(mgIntersect_None, 1.001e-8, 1, 9, untouched, {1 + 1.001e-8, 2, 5});
    P out1, out2;
    EXPECT_EQ(mgIntersect_TwoPoints,
              mg_CircleIntCircle2D({}, 7.7e-5, {7.7e-5, 0, 0}, 7.7e-5, &out1, &out2));
    mg_CircleIntCircle2D({1, 2, 0}, 13.0, {7, 10, 0}, 13.0, &out1, &out2);
    EXPECT_LT(gap(P(-5.6, 13.2, 0), out1), 4e-15);
    EXPECT_LT(gap(P(13.6, -1.2, 0), out2), 4e-15);
}

} // namespace
