// SPDX-License-Identifier: MIT
// Straight polylines and three-point arcs.

#include "common/geometry.h"

namespace {

void CheckPolyline(int straight, P const &start, P const &end, std::vector<P> points, Caller = {}) {
    P s = untouched, e = untouched;
    int const n = static_cast<int>(points.size());
    EXPECT_EQ(straight, mg_IsPolylineLine(n, points.data(), s, e));
    EXPECT_BITS_EQ(start, s);
    EXPECT_BITS_EQ(end, e);
}

TEST(Polyline, TheExtremePointsOfAStraightPolylineAreItsEnds) {
    CheckPolyline(1, untouched, untouched, {{0, 0, 0}, {1, 5, 0}});
    CheckPolyline(1, {0, 0, 1}, {3, 0, 7}, {{1, 0, 3}, {2, 0, 5}, {0, 0, 1}, {3, 0, 7}});
    CheckPolyline(1, {4, 0, 0}, {0, 0, 0}, {{0, 0, 0}, {0, 0, 0}, {4, 0, 0}}); // a tie
    CheckPolyline(1, {-5, 0, 0}, {1, 0, 0}, {{0, 0, 0}, {1, 0, 0}, {-5, 0, 0}, {0.5, 0, 0}});
    CheckPolyline(1, {-1, 4, 1}, {7, 0, 5}, {{1, 3, 2}, {7, 0, 5}, {-1, 4, 1}, {5, 1, 4}});
    CheckPolyline(0, untouched, untouched, {{0, 0, 0}, {1, 0, 0}, {2, 1e-06, 0}});
}

TEST(Polyline, APolylineAlongZKeepsItsFirstTwoPoints) {
    CheckPolyline(1, {0, 0, 0}, {0, 0, 1}, {{0, 0, 0}, {0, 0, 1}, {0, 0, 5}});
    P const first(2 + 9e-9, 1, 3);
    CheckPolyline(1, first, first, {first, {2, 1, 3}, {2, 1, 5}});
}

TEST(Polyline, ThreePointsRunCounterClockwiseAboutTheNormal) {
    auto const check = [](int found, P const &centre, V const &normal, std::vector<P> points,
                          Caller = {}) {
        U n;
        EXPECT_EQ(found, mg_Find3PointArcCenter(points.data(), &points[1], &n)); // an input as well
        EXPECT_LT(dist(centre, points[1]), 4e-15);
        EXPECT_LT((normal - n).len(), 1e-15);
    };
    check(1, {0, 0, 0}, {0, 0, 1}, {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}});
    check(1, {0, 0, 0}, {0, 0, -1}, {{-1, 0, 0}, {0, 1, 0}, {1, 0, 0}});
    check(1, {1, 2, 3}, {-1.0 / 3, -2.0 / 3, 2.0 / 3}, {{3, 3, 5}, {-1, 4, 4}, {-1, 1, 1}});
    P const p(0, 1, 0), q(1, 0, 0), near(1, 0, 9.9e-9); // equal ones
    check(0, p, {}, {q, p, near}), check(0, near, {}, {q, near, p}),
        check(0, near, {}, {p, near, q});
    check(0, {1, 1e-5, 0}, {0, 0, 0}, {{0, 0, 0}, {1, 1e-5, 0}, {2, 0, 0}});   // nearly straight
    check(0, {0.5, 0, 0}, {0, 0, 0}, {{0, 0, 0}, {1, 0, 0}, {2e-8, 1e-5, 0}}); // nearly reversed
}

TEST(Polyline, BisectorsThatMissStillGiveACentre) {
    // So far out that rounding keeps them apart by more than 1e-08.
    P const far[3] = {{9e8, 1e8, -3e8}, {-4e8, 7e8, 2e8}, {1e8, -6e8, 5e8}};
    V const a = far[1] - far[0], b = far[1] - far[2];
    P centre, again;
    U n;
    EXPECT_EQ(1, mg_Find3PointArcCenter(far, &centre, &n));
    V const d1 = mg_Normalise(a) * n, d2 = mg_Normalise(b) * n;
    EXPECT_EQ(mgIntersect_None,
              mg_LineIntLine(far[0] + 0.5 * a, d1, far[2] + 0.5 * b, d2, &again, 1e-8));
    EXPECT_BITS_EQ(again, centre);
}

} // namespace
