// SPDX-License-Identifier: MIT
// Arcs recognised in polylines, tangent arcs, fillets and normals, against how they were made.

#include "planar.h"

namespace {

struct Found {
    P centre = untouched;
    U normal;
    double radius = 77, angle = 77;
    mgPolylineArc_e type;

    Found(std::vector<P> const &p, double tol) {
        int const n = static_cast<int>(p.size());
        type = mg_IsPolylineArc(n, p.data(), centre, normal, radius, angle, tol);
        bool const isWritten = type == mgPolylineArc_Arc || type == mgPolylineArc_Circle;
        EXPECT_EQ(isWritten, radius != 77);
        EXPECT_EQ(isWritten, angle != 77);
        EXPECT_EQ(isWritten, V(normal).len() > 0);
        EXPECT_EQ(isWritten, !sameBits(untouched, centre));
    }
};

TEST(PolylineArc, TellsLinesCirclesAndReturnsApart) {
    auto const check = [](mgPolylineArc_e expected, std::vector<P> const &points, double tol = 1e-8,
                          Caller = {}) {
        for (double k : kScales) {
            std::vector<P> scaled;
            for (P const &p : points) scaled.emplace_back(k * p);
            EXPECT_EQ(expected, Found(scaled, k * tol).type);
        }
    };
    constexpr auto None = mgPolylineArc_None, Arc = mgPolylineArc_Arc, Line = mgPolylineArc_Line,
                   Circle = mgPolylineArc_Circle;
    P const a(1, 0, 0), b(0, 1, 0), c(-1, 0, 0), d(0, -1, 0);
    check(None, {}), check(None, {a, b}), check(None, {a, a, a});
    check(Arc, {a, b, c}), check(Arc, {a, c, b}), check(Arc, {a, b, c, d});
    check(Circle, {a, b, c, d, a}), check(Circle, {a, d, c, b, a, a}), check(Circle, {a, b, d, a});
    check(None, {a, b, c, d, a, b}), check(None, {a, b, c, a, d}); // beyond the start
    check(None, {a, c, b, d});                                     // to and fro
    check(None, {a, b, {-0.6, 0.8, 0}, {-0.5, 0.85, 0}, d});
    // An arc whose angle rounds to a full turn.
    check(Arc, {{}, {-1, 1, 0}, {-2, 0, 0}, {-1, -1, 0}, {0, -0x1p-60, 0}}, 0x1p-62);
    check(Arc, {{}, {0x3p-60, -0x4p-60, 0}, {4, -2, 0}, {8, 0, 0}}, 0x1p-62); // or to 0
    for (double side : {1.0, -1.0}) { // off the circle through the three other points
        auto const checkSecond = [&](mgPolylineArc_e expected, P const &p, Caller = {}) {
            check(expected, {{5, 0, 0}, p, {0, 5, 0}, {-5, 0, 0}}, 0.25);
        };
        checkSecond(Arc, {3, 4, side * 0.25}), checkSecond(None, {3, 4, side * above(0.25)});
        checkSecond(Arc, (1 + side * 0.0499999) * P(3, 4, 0));
        checkSecond(None, (1 + side * 0.0500001) * P(3, 4, 0));
    }
    check(Line, {a, c, {0, 0, 0}}), check(Line, {{0, 0, 0}, {1, 0.5, 0}, {4, 0, 0}}, 0.5);
    check(Arc, {{0, 0, 0}, {1, above(0.5), 0}, {4, 0, 0}}, 0.5);
    check(None, {{0, 0, 0}, {0.5, 0, 0}, {0, 0.25, 0}}, 0.5), check(None, {a, b, {kNaN, 0, 0}});
    check(None, {a, b, {0, 0, kInfinity}});
    // A centre beyond all numbers.
    EXPECT_EQ(Line, Found({{-kMax, 0, 0}, {0, 1e300, 0}, {kMax, 0, 0}}, 0).type);
}

TEST(TangentArc, StartsAlongTheTangentAndEndsAtTheEnd) {
    P middle(1, 2, 4); // an input as well
    double r = 0, turn = 0;
    EXPECT_EQ(1, mg_FindTangentArcCenter2D(middle, {0, 3, 5}, {-3, 2, 9}, middle, r, turn, 0));
    EXPECT_BITS_EQ(P(-1, 2, 4), middle);
    EXPECT_NEAR(2.0, r, 1e-15);
    EXPECT_NEAR(kTurn / 2, turn, 1e-15);
    auto const check = [](int found, V const &tangent, double x, double y, double tol,
                          P const &start = {0, 0, 1}, Caller = {}) {
        P centre = untouched;
        double radius = 77, sweep = 77;
        EXPECT_EQ(found, mg_FindTangentArcCenter2D(start, tangent, P(x, y, 2), centre, radius,
                                                   sweep, tol));
        EXPECT_EQ(found == 0, sameBits(untouched, centre));
        EXPECT_EQ(found == 0, radius == 77);
        EXPECT_EQ(found == 0, sweep == 77);
    };
    check(0, {3, 0, 0}, 4, 0.5, 0.5), check(1, {3, 0, 0}, 4, above(0.5), 0.5);
    check(0, {3, 0, 0}, -4, -0.5, 0.5), check(1, {1e300, 0, 0}, 4, 1, 0.5);
    check(1, {1e-310, 0, 0}, 0, -1, 0.5), check(0, {0, 0, 1}, 4, 1, 0);
    check(0, {kInfinity, 0, 1}, 4, 1, 0);
    check(0, {1, 0, 0}, kNaN, 1, 0), check(0, {1, 0, 0}, 4, 1, 0, {0, kInfinity, 0});
    check(1, {1, 0, 0}, 1e308, 1e308, 0);
    check(0, {1, 0, 0}, 1e308, 1, 0); // the centre overflows, or the radius alone
    check(0, {1, 1, 0}, 0.35 * kMax, 0.83 * kMax, 0);
}

TEST(TangentArc, AFilletTouchesBothLinesBetweenTheFarEnds) {
    Random random;
    for (int round = 0; round < 1000; ++round) {
        double const side = random.uniform(-9, 9), f = random.ofMagnitude(-4, 0.49);
        P const crossing = planar(random, -9, 9);
        auto const at = [&](double angle, double distance, double z) {
            P p = onCircle(crossing, distance, angle);
            p.set_z(z);
            return p;
        };
        double const length = random.uniform(1, 9), near = random.uniform(-0.9, 0.9) * length;
        double const radius = random.uniform(0, 3);
        P a1 = at(side, length, 1), b1 = at(side, near, 2);
        P a2 = at(side + f, near, 3), b2 = at(side + f, length, 4);
        if (random.below(2) != 0) std::swap(a1, b1), std::swap(a2, b2);
        double const reach = radius / std::fabs(std::tan(f / 2));
        double const bound = 1e-13 * (reach + 20) / std::fabs(f);
        P const z1 = a1, z2 = a2;
        P centre;
        ASSERT_EQ(1, mg_FindTangentArcCenter2D(a1, b1, a2, b2, radius, centre, a1, a2, 0));
        EXPECT_LT(gap(at(side, reach, z1.z()), a1), bound); // the outputs are inputs
        EXPECT_LT(gap(at(side + f, reach, z2.z()), a2), bound);
        EXPECT_LT(gap(at(side + f / 2, std::hypot(reach, radius), z1.z()), centre), bound);
    }
    auto const check = [](int found, P const &b1, P const &a2, P const &b2, double radius,
                          double tol, Caller = {}) {
        for (double k : kScales) {
            P centre = untouched, t1 = untouched, t2 = untouched;
            EXPECT_EQ(found, mg_FindTangentArcCenter2D({}, k * b1, k * a2, k * b2, k * radius,
                                                       centre, t1, t2, k * tol));
            for (P const &out : {centre, t1, t2}) EXPECT_EQ(found == 0, sameBits(untouched, out));
        }
    };
    check(0, {2, 0, 0}, {0, 1, 0}, {4, 1.5, 0}, 1, 0.5);
    check(1, {2, 0, 0}, {0, 1, 0}, {4, 1.5 + 0x1p-40, 0}, 1, 0.5);
    check(0, {4, 0, 0}, {0, 1, 0}, {2, 1.25, 0}, 1, 0.5); // the first one is the longer
    check(0, {0, 0, 0}, {0, 1, 0}, {2, 2, 0}, 1, 0.5);
    check(1, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, 0, 0);
    check(0, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, -1, 0);
    check(0, {1, 0, 0}, {0, 0, 0}, {0, 1, 0}, kInfinity, 0);
    P out;
    for (int bad = 0; bad < 4; ++bad) {
        P p[] = {{}, {1, 0, 0}, {}, {0, 1, 0}};
        p[bad].set_y(kNaN);
        EXPECT_EQ(0, mg_FindTangentArcCenter2D(p[0], p[1], p[2], p[3], 1, out, out, out, 0));
    }
    // Beyond all numbers.
    EXPECT_EQ(0,
              mg_FindTangentArcCenter2D({}, {1, 0, 0}, {}, {1, 1e-9, 0}, 1e307, out, out, out, 0));
}

TEST(NormalFrom3Points, NeedsAHeightAboveTheTolerance) {
    auto const check = [](int found, P const &p1, P const &p2, double tol, V const &expected,
                          Caller = {}) {
        for (double k : kScales) {
            U n, m;
            EXPECT_EQ(found, mg_NormalFrom3Points({}, k * p1, k * p2, n, k * tol));
            EXPECT_EQ(0.0, gap(expected, n));
            EXPECT_EQ(found, mg_NormalFrom3Points({}, k * p2, k * p1, m, k * tol));
            EXPECT_EQ(0.0, gap(-1.0 * expected, m));
        }
    };
    V const none, z(0, 0, 1);
    check(0, {8, 0, 0}, {4, 0.5, 0}, 0.5, none), check(1, {8, 0, 0}, {4, above(0.5), 0}, 0.5, z);
    check(1, {4, 0.75, 0}, {8, 0, 0}, 0.5, -1.0 * z), check(1, {0, 8, 0}, {0, 0, 1}, 0, {1, 0, 0});
    check(1, {8, 0, 0}, {4, 1e-12, 0}, 0, z); // however flat
    check(0, {8, 0, 0}, {4, 0, 0}, 0, none), check(0, {}, {}, 0, none);
    check(0, {1, 0, kNaN}, {0, 1, 0}, 0, none), check(0, {kInfinity, 0, 0}, {0, 1, 0}, 0, none);
}

} // namespace
