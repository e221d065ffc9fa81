// SPDX-License-Identifier: MIT
// Arcs recognised in polylines, tangent arcs, fillets and normals, against how they were made.

#include "common/geometry.h"

#include <vexmath/mg_planar.h>

#include <vector>

namespace {

using common::above, common::below, common::Caller, common::kInfinity, common::kNaN;

mgPoint_c const untouched(77, 77, 77);
constexpr double kTurn = vexmath::kTwoPiExact;

struct Found {
    mgPoint_c centre = untouched;
    mgUnitVector_c normal;
    double radius = 77, angle = 77;
    mgPolylineArc_e type;

    Found(std::vector<mgPoint_c> const &p, double tol) {
        int const n = static_cast<int>(p.size());
        type = mg_IsPolylineArc(n, p.data(), centre, normal, radius, angle, tol);
    }
};

TEST(PolylineArc, FindsTheArcThatThePointsWereMadeOf) {
    common::Random random;
    for (int round = 0; round < 3000; ++round) {
        mgXform_c const x = common::placement(random);
        double const r = random.uniform(0.5, 20), unit = x.scaling(), tol = 1e-6;
        int const n = 4 + random.below(30);
        bool const isFull = random.below(4) == 0;
        double const sweep = isFull ? kTurn : random.uniform(0.1, 6.2);
        double const sign = random.below(2) != 0 ? 1.0 : -1.0;
        std::vector<mgPoint_c> points;
        for (int i = 0; i < n; ++i) {
            double const t = sign * sweep * i / (n - 1) + 0.3;
            points.emplace_back(mgPoint_c(r * std::cos(t) + 1, r * std::sin(t), 2.0) *= x);
            if (random.below(5) == 0) points.push_back(points.back()); // repeated
        }
        Found const found(points, tol);
        ASSERT_EQ(isFull ? mgPolylineArc_Circle : mgPolylineArc_Arc, found.type);
        mgVector_c axis(0, 0, sign);
        axis *= x;
        EXPECT_LT(common::gap(mgPoint_c(1, 0, 2) *= x, found.centre), 1e-9);
        EXPECT_LT(common::gap(mg_Normalise(axis), found.normal), 1e-10);
        EXPECT_NEAR(r * unit, found.radius, 1e-9);
        EXPECT_NEAR(sweep, found.angle, 1e-10);

        std::vector<mgPoint_c> reversed(points.rbegin(), points.rend());
        EXPECT_LT(common::gap(-found.normal, Found(reversed, tol).normal), 1e-9);
    }
}

TEST(PolylineArc, TellsLinesCirclesAndReturnsApart) {
    auto const check = [](mgPolylineArc_e expected, std::vector<mgPoint_c> const &points,
                          double tol = 1e-8, Caller = {}) {
        for (double k : {1.0, 0x1p1019, 0x1p-1000}) {
            std::vector<mgPoint_c> scaled;
            for (mgPoint_c const &p : points) scaled.emplace_back(k * p);
            Found const found(scaled, k * tol);
            EXPECT_EQ(expected, found.type);
            bool const isWritten =
                expected == mgPolylineArc_Arc || expected == mgPolylineArc_Circle;
            EXPECT_EQ(isWritten, found.radius != 77 && found.angle != 77);
            EXPECT_EQ(isWritten, !common::sameBits(untouched, found.centre));
        }
    };
    mgPoint_c const a(1, 0, 0), b(0, 1, 0), c(-1, 0, 0), d(0, -1, 0);
    check(mgPolylineArc_None, {a, b});
    check(mgPolylineArc_Arc, {a, b, c});
    check(mgPolylineArc_Arc, {a, c, b});
    check(mgPolylineArc_Arc, {a, b, c, d});
    check(mgPolylineArc_Circle, {a, b, c, d, a});
    check(mgPolylineArc_Circle, {a, d, c, b, a, a});
    check(mgPolylineArc_Circle, {a, b, d, a});
    check(mgPolylineArc_None, {a, b, c, d, a, b}); // beyond the start
    check(mgPolylineArc_None, {a, c, b, d});       // to and fro
    // An arc whose angle rounds to a full turn.
    check(mgPolylineArc_Arc, {{}, {-1, 1, 0}, {-2, 0, 0}, {-1, -1, 0}, {0, -0x1p-60, 0}}, 0x1p-62);
    check(mgPolylineArc_None, {a, b, {-0.6, 0.8, 0}, {-0.5, 0.85, 0}, d});
    for (double side : {1.0, -1.0}) { // off the circle through the three other points
        check(mgPolylineArc_Arc, {{5, 0, 0}, {3, 4, side * 0.25}, {0, 5, 0}, {-5, 0, 0}}, 0.25);
        check(mgPolylineArc_None, {{5, 0, 0}, {3, 4, side * above(0.25)}, {0, 5, 0}, {-5, 0, 0}},
              0.25);
        double const less = 1 + side * 0.0499, more = 1 + side * 0.0501;
        check(mgPolylineArc_Arc, {{5, 0, 0}, {3 * less, 4 * less, 0}, {0, 5, 0}, {-5, 0, 0}}, 0.25);
        check(mgPolylineArc_None, {{5, 0, 0}, {3 * more, 4 * more, 0}, {0, 5, 0}, {-5, 0, 0}},
              0.25);
    }
    check(mgPolylineArc_None, {a, a, a});
    check(mgPolylineArc_Line, {a, c, {0, 0, 0}});
    check(mgPolylineArc_Line, {{0, 0, 0}, {1, 0.5, 0}, {4, 0, 0}}, 0.5);
    check(mgPolylineArc_Arc, {{0, 0, 0}, {1, above(0.5), 0}, {4, 0, 0}}, 0.5);
    check(mgPolylineArc_None, {{0, 0, 0}, {0.5, 0, 0}, {0, 0.25, 0}}, 0.5);
    check(mgPolylineArc_None, {a, b, {kNaN, 0, 0}});
    check(mgPolylineArc_None, {a, b, {0, 0, kInfinity}});
    mgPoint_c centre(9, 9, 9);
    mgUnitVector_c normal;
    double number = 0.0;
    EXPECT_EQ(mgPolylineArc_None,
              mg_IsPolylineArc(0, nullptr, centre, normal, number, number, 1e-8));
}

TEST(TangentArc, StartsAlongTheTangentAndEndsAtTheEnd) {
    common::Random random;
    for (int round = 0; round < 3000; ++round) {
        mgPoint_c const start(random.uniform(-9, 9), random.uniform(-9, 9), 4);
        mgPoint_c const end(random.uniform(-9, 9), random.uniform(-9, 9), 6);
        mgVector_c const tangent(random.uniform(-1, 1), random.uniform(-1, 1), 7);
        mgPoint_c centre = start;
        double radius = 0, sweep = 0;
        ASSERT_EQ(1, mg_FindTangentArcCenter2D(centre, tangent, end, centre, radius, sweep, 1e-8));
        EXPECT_EQ(4.0, centre.z());
        double const x = start.x() - centre.x(), y = start.y() - centre.y();
        double const bound = 1e-14 * (radius + 9) * (radius + 9);
        EXPECT_NEAR(radius, std::hypot(x, y), bound);
        EXPECT_NEAR(0, x * tangent.x() + y * tangent.y(), bound);
        EXPECT_EQ(sweep > 0, x * tangent.y() - y * tangent.x() > 0); // counter-clockwise
        double const c = std::cos(sweep), s = std::sin(sweep);
        EXPECT_NEAR(end.x(), centre.x() + c * x - s * y, 100 * bound);
        EXPECT_NEAR(end.y(), centre.y() + s * x + c * y, 100 * bound);
        EXPECT_TRUE(std::fabs(sweep) < kTurn);
    }
    auto const check = [](int found, mgVector_c const &tangent, double x, double y, double tol,
                          Caller = {}) {
        mgPoint_c const start(0, 0, 1);
        mgPoint_c centre = untouched;
        double radius = 77, sweep = 77;
        EXPECT_EQ(found, mg_FindTangentArcCenter2D(start, tangent, mgPoint_c(x, y, 2), centre,
                                                   radius, sweep, tol));
        EXPECT_EQ(found == 0, common::sameBits(untouched, centre) && radius == 77 && sweep == 77);
    };
    check(0, {3, 0, 0}, 4, 0.5, 0.5);
    check(1, {3, 0, 0}, 4, above(0.5), 0.5);
    check(0, {3, 0, 0}, -4, -0.5, 0.5);
    check(1, {1e300, 0, 0}, 4, 1, 0.5);
    check(1, {1e-310, 0, 0}, 0, -1, 0.5);
    check(0, {0, 0, 1}, 4, 1, 0);
    check(0, {kInfinity, 0, 1}, 4, 1, 0);
    check(0, {1, 0, 0}, kNaN, 1, 0);
    check(1, {1, 0, 0}, 1e308, 1e308, 0);
    check(0, {1, 0, 0}, 1e308, 1, 0); // the radius overflows
}

TEST(TangentArc, AFilletTouchesBothLinesBetweenTheFarEnds) {
    common::Random random;
    for (int round = 0; round < 3000; ++round) {
        double const side = random.uniform(-9, 9), f = random.uniform(-3.1, 3.1);
        mgPoint_c const crossing(random.uniform(-9, 9), random.uniform(-9, 9), 0);
        mgVector_c const e1(std::cos(side), std::sin(side), 0);
        mgVector_c const e2(std::cos(side + f), std::sin(side + f), 0);
        if (std::fabs(f) < 0.05) continue;
        auto const at = [&](mgVector_c const &e, double t, double z) {
            mgPoint_c p = crossing + t * e;
            p.set_z(z);
            return p;
        };
        double const length = random.uniform(1, 9), near1 = random.uniform(-0.9, 0.9) * length;
        double const radius = random.uniform(0, 3);
        mgPoint_c const p1 = at(e1, length, 1), q1 = at(e1, near1, 2);
        mgPoint_c const p2 = at(e2, near1, 3), q2 = at(e2, length, 4);
        mgPoint_c centre, t1, t2;
        bool const isSwapped = random.below(2) != 0; // the ends
        ASSERT_EQ(1, isSwapped
                         ? mg_FindTangentArcCenter2D(q1, p1, q2, p2, radius, centre, t1, t2, 0)
                         : mg_FindTangentArcCenter2D(p1, q1, p2, q2, radius, centre, t1, t2, 0));
        double const reach = radius / std::fabs(std::tan(f / 2)), bound = 1e-11;
        EXPECT_LT(common::gap(at(e1, reach, isSwapped ? 2 : 1), t1), bound);
        EXPECT_LT(common::gap(at(e2, reach, isSwapped ? 4 : 3), t2), bound);
        double const toCentre = std::hypot(reach, radius);
        mgVector_c const half(std::cos(side + f / 2), std::sin(side + f / 2), 0);
        EXPECT_LT(common::gap(at(half, toCentre, isSwapped ? 2 : 1), centre), bound);
    }
    auto const check = [](int found, mgPoint_c const &b1, mgPoint_c const &a2, mgPoint_c const &b2,
                          double radius, double tol, Caller = {}) {
        for (double k : {1.0, 0x1p1019, 0x1p-1000}) {
            mgPoint_c centre = untouched, t1 = untouched, t2 = untouched;
            EXPECT_EQ(found, mg_FindTangentArcCenter2D({}, k * b1, k * a2, k * b2, k * radius,
                                                       centre, t1, t2, k * tol));
            EXPECT_EQ(found == 0, common::sameBits(untouched, centre));
            EXPECT_EQ(found == 0, common::sameBits(untouched, t1));
        }
    };
    check(0, {2, 0, 0}, {0, 1, 0}, {4, 1.5, 0}, 1, 0.5);
    check(1, {2, 0, 0}, {0, 1, 0}, {4, 1.5 + 0x1p-40, 0}, 1, 0.5);
    check(0, {4, 0, 0}, {0, 1, 0}, {2, 1.25, 0}, 1, 0.5); // the first one is the longer
    check(0, {0, 0, 0}, {0, 1, 0}, {2, 2, 0}, 1, 0.5);
    check(1, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, 0, 0);
    check(0, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, -1, 0);
    check(0, {1, 0, 0}, {0, 0, 0}, {0, kNaN, 0}, 1, 0);
    check(0, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, kInfinity, 0);
}

TEST(NormalFrom3Points, NeedsAHeightAboveTheTolerance) {
    auto const check = [](int found, mgPoint_c const &p1, mgPoint_c const &p2, double tol,
                          mgVector_c const &expected, Caller = {}) {
        for (double k : {1.0, 0x1p1019, 0x1p-1000}) {
            mgUnitVector_c n;
            EXPECT_EQ(found, mg_NormalFrom3Points({}, k * p1, k * p2, n, k * tol));
            EXPECT_EQ(0.0, common::gap(expected, n));
            mgUnitVector_c m;
            EXPECT_EQ(found, mg_NormalFrom3Points({}, k * p2, k * p1, m, k * tol));
            EXPECT_EQ(0.0, common::gap(-1.0 * expected, m));
        }
    };
    mgVector_c const none, z(0, 0, 1);
    check(0, {8, 0, 0}, {4, 0.5, 0}, 0.5, none);
    check(1, {8, 0, 0}, {4, above(0.5), 0}, 0.5, z);
    check(1, {4, 0.75, 0}, {8, 0, 0}, 0.5, -1.0 * z);
    check(1, {0, 8, 0}, {0, 0, 1}, 0, {1, 0, 0});
    check(1, {8, 0, 0}, {4, 1e-12, 0}, 0, z); // however flat
    check(0, {8, 0, 0}, {4, 0, 0}, 0, none);
    check(0, {}, {}, 0, none);
    check(0, {1, 0, kNaN}, {0, 1, 0}, 0, none);
    check(0, {kInfinity, 0, 0}, {0, 1, 0}, 0, none);
}

} // namespace
