// SPDX-License-Identifier: MIT
// Eccentricity and fullness of conic arcs against their implicit equation and their foci, and
// points of a parabolic arc.

#include <vexmath/line.h>
#include <vexmath/mg_conic.h>

#include "polyline.h"

namespace {

using namespace support;
using P = mgPoint_c;

struct Arc {
    P start, end, apex, shoulder;
};

Arc arcOf(double rho, P const &start, P const &end, P const &apex) {
    return {start, end, apex, interpolate(rho, interpolate(0.5, start, end), apex)};
}

double ecc(Arc const &a) { return mg_getSgConicEccentricity(a.start, a.end, a.apex, a.shoulder); }
double rho(Arc const &a) { return rhoConic(a.start, a.end, a.apex, a.shoulder); }

/// A x^2 + B x y + C y^2 + D x + E y + F: the product of the lines through a, b and c, d.
struct Quadratic {
    long double A, B, C, D, E, F;

    Quadratic(P const &a, P const &b, P const &c, P const &d) {
        long double const l = a.y() - b.y(), m = b.x() - a.x(), n = -l * a.x() - m * a.y();
        long double const o = c.y() - d.y(), p = d.x() - c.x(), q = -o * c.x() - p * c.y();
        A = l * o, B = l * p + m * o, C = m * p, D = l * q + n * o, E = m * q + n * p, F = n * q;
    }
    long double at(P const &p) const {
        return (A * p.x() + B * p.y() + D) * p.x() + (C * p.y() + E) * p.y() + F;
    }
    mgVector_c tangentAt(P const &p) const {
        return {-double(B * p.x() + 2 * C * p.y() + E), double(2 * A * p.x() + B * p.y() + D), 0};
    }
};

/// The conic through the shoulder that has the tangents at start and end.
Quadratic conicOf(Arc const &arc) {
    Quadratic conic(arc.start, arc.apex, arc.end, arc.apex);
    Quadratic const chord(arc.start, arc.end, arc.start, arc.end);
    long double const factor = -conic.at(arc.shoulder) / chord.at(arc.shoulder);
    conic.A += factor * chord.A, conic.B += factor * chord.B, conic.C += factor * chord.C;
    conic.D += factor * chord.D, conic.E += factor * chord.E, conic.F += factor * chord.F;
    return conic;
}

/// By the invariants of the equation.
double eccentricityOf(Quadratic const &q) {
    long double const trace = q.A + q.C, spread = std::hypot(q.A - q.C, q.B);
    long double const det =
        (4 * q.A * q.C - q.B * q.B) * q.F + q.B * q.E * q.D - q.C * q.D * q.D - q.A * q.E * q.E;
    return double(std::sqrt(2 * spread / (spread + (det < 0 ? trace : -trace))));
}

void CheckNear(double expected, double actual, double relative, Caller = {}) {
    EXPECT_LE(std::fabs(actual - expected), relative * std::fabs(expected)) << shown(actual);
}

/// e^2, not e: near a circle, e changes by the root of a change of the arc.
void CheckEccentricity(double expected, double actual, double bound, Caller = {}) {
    CheckNear(1 + expected * expected, 1 + actual * actual, bound);
}

void CheckNone(bool isNone, Arc const &arc, Caller = {}) {
    EXPECT_EQ(isNone, ecc(arc) == -1);
    EXPECT_EQ(isNone, rho(arc) == 0);
}

} // namespace

TEST(ConicShape, TheEccentricityIsThatOfTheImplicitEquation) {
    Random random;
    auto const corner = [&] { return P(random.uniform(-1, 1), random.uniform(-1, 1), 0); };
    for (int round = 0; round < 2000; ++round) {
        Arc arc = arcOf(random.uniform(0.02, 0.98), corner(), corner(), corner());
        if (((arc.apex - arc.start) * (arc.end - arc.start)).len() < 0.2) continue;
        double const expected = eccentricityOf(conicOf(arc)), full = rho(arc);
        CheckEccentricity(expected, ecc(arc), 1e-11);
        CheckEccentricity(expected, eccByRho(full, arc.end, arc.start, arc.apex), 1e-11);
        // In space, with a shoulder off the plane that keeps its foot on the median.
        arc.shoulder.set_z(random.uniform(-1, 1));
        mgXform_c const placed = placement(random);
        for (P *p : {&arc.start, &arc.end, &arc.apex, &arc.shoulder}) *p *= placed;
        CheckEccentricity(expected, ecc(arc), 1e-10);
        CheckNear(full, rho(arc), 1e-11);
    }
}

TEST(ConicShape, AnArcAboutTheVertexHasOneEccentricityByAllMeans) {
    double const f = 1.7, y = 0.9 * f;
    for (double const e : {0.0, 0.3, 1 - 1e-13, 1.0, 1 + 1e-13, 1.4, 30.0}) {
        double const x = xConic(y, f, e), q = f * (1 + e);
        P const focus(f, 0, 0), vertex, start(x, -y, 0), end(x, y, 0);
        EXPECT_EQ(x, xConic(-y, f, e));
        CheckNear(e * x + f, std::hypot(x - f, y), 1e-15);
        EXPECT_NEAR(e, mg_getConicEccentricity(focus, vertex, start, end), 1e-13 * (1 + e));
        mgLine_c const directrix({-f / e, 7, 0}, {0, -1, 0});
        if (e > 0) CheckNear(e, mg_getPointEccentricity(end, focus, directrix), 1e-15);
        // The chord is the polar of the apex.
        Arc const arc{start, end, {-q * x / (q + (e * e - 1) * x), 0, 0}, vertex};
        EXPECT_NEAR(e, ecc(arc), e > 0 ? 1e-14 * e : 4e-8);
        CheckNear(rho(arc), rhoConic(e, start, end, arc.apex), 1e-14 * (1 + e));
    }
}

TEST(ConicShape, FullnessAndEccentricityAreInverseOnSymmetricTriangles) {
    P const start(-3, 0, 0), end(3, 0, 0);
    for (double const height : {0.1, 0.5, 4.0, 30.0}) {
        P const apex(0, height, 0);
        double const circle = rhoConic(0, start, end, apex);
        CheckNear(3 / (3 + std::hypot(3, height)), circle, 1e-15);
        for (double const share : {1e-4, 0.3, 0.7}) {
            double const full = circle + share * (1 - circle);
            CheckNear(full, rhoConic(eccByRho(full, start, end, apex), start, end, apex), 1e-13);
        }
        double const limit = std::hypot(1, 3 / height);
        EXPECT_GT(rhoConic(limit * (1 - 1e-9), start, end, apex), 0.9);
        EXPECT_EQ(rhoConic(limit * (1 + 1e-9), start, end, apex), 0);
    }
    EXPECT_EQ(eccByRho(0.375, start, end, {0, 4, 0}), 0); // a circle in exact numbers
}

TEST(ConicShape, OneHalfIsTheParabolaWhateverTheTriangle) {
    Random random;
    for (int round = 0; round < 2000; ++round) {
        auto const a = random.triple<P>(-9, 9), b = random.triple<P>(-9, 9);
        auto const off = std::fabs(random.ofMagnitude(-5, 0)) * random.triple<P>(-1, 1);
        P const apex = interpolate(random.uniform(-1, 2), a, b) + off;
        EXPECT_EQ(eccByRho(0.5, a, b, apex), 1);
        EXPECT_LE(eccByRho(0.5 - std::fabs(random.ofMagnitude(-16, -1)), a, b, apex), 1);
        EXPECT_GE(eccByRho(0.5 + std::fabs(random.ofMagnitude(-15, -1)), a, b, apex), 1);
    }
    // Flat, 1 - 2 rho of the size of the squared height: e^2 is 1/2 and 3/2 with an error of 1e-11.
    P const start(-1, 0, 0), end(1, 0, 0), apex(0, 0x1p-20, 0);
    CheckNear(std::sqrt(0.5), eccByRho(0.5 - 0x1p-44, start, end, apex), 1e-11);
    CheckNear(std::sqrt(1.5), eccByRho(0.5 + 0x1p-44, start, end, apex), 1e-11);
}

TEST(ConicShape, WhatIsDegenerateHasNoResult) {
    constexpr double kBound = 1e-8;
    P const left(-1, 0, 0), right(1, 0, 0), top(0, 1, 0);
    for (double const h : {kBound, below(kBound), 0.0}) {
        bool const isNone = h < kBound;
        EXPECT_EQ(isNone, eccByRho(0.4, left, right, {7, h, 0}) == -1);
        EXPECT_EQ(isNone, eccByRho(0.4, {0, 0, 0}, {h, 0, 0}, top) == -1);
        CheckNone(isNone, {left, right, top, {5, h, 6}}); // on the chord, on the apex
        CheckNone(isNone, {{-1, -1, 0}, {1, -1, 0}, {0, 0, 0}, {5, -h, 6}});
        EXPECT_EQ(isNone, mg_getPointEccentricity({0, 3, 0}, top, {{h, 9, 0}, {0, 1, 0}}) == -1);
        EXPECT_EQ(isNone, xConic(1, h, 1) == -1);
    }
    for (double const y : {-1.0, 1.5}) CheckNone(true, {left, right, top, {0, y, 0}});
    for (double const big : {below(1e70), 1e70, kInfinity, kNaN}) {
        EXPECT_EQ(!(big < 1e70), eccByRho(0.4, left, right, {0, big, 0}) == -1);
        EXPECT_EQ(!(big < 1e70), xConic(big, 1, 1) == -1);
        EXPECT_EQ(!(big < 1e70),
                  mg_getPointEccentricity({0, big, 0}, top, {left, {0, 1, 0}}) == -1);
    }
    for (double const full : {0.0, 1.0, kNaN}) EXPECT_EQ(eccByRho(full, left, right, top), -1);
    for (double const full : {kTiny, below(1)}) EXPECT_GT(eccByRho(full, left, right, top), 0.9);
    for (double const e : {-kTiny, -1.0, kInfinity, kNaN}) {
        EXPECT_EQ(rhoConic(e, left, right, top), 0);
        EXPECT_EQ(xConic(1, 1, e), -1);
    }
    for (double const skew : {0.999e-8, 1.001e-8})
        EXPECT_EQ(skew > kBound, rhoConic(0.5, right, {0, 1 + skew, 0}, {0, 0, 0}) == 0);
    EXPECT_EQ(mg_getPointEccentricity(left, top, {}), -1); // no direction
    EXPECT_EQ(mg_getPointEccentricity(left, left, {top, {1, 0, 0}}), 0);
    EXPECT_EQ(xConic(5, 5, 0), 5); // the minor axis is included
    EXPECT_EQ(xConic(above(5), 5, 0), -1);
}

TEST(ParabolicPoints, TurnByEqualAnglesAlongTheParabola) {
    Arc const arc = arcOf(0.5, {1, 2, 0}, {8, 3, 0}, {2, 9, 0});
    Quadratic const conic = conicOf(arc);
    double const turn = mg_AngleBetween(arc.apex - arc.start, arc.end - arc.apex);
    for (int const n : {2, 3, 10, 100}) {
        suDynamicArray<P> list;
        for (P const &p : {arc.start, arc.end, arc.apex}) list.Add(p);
        ASSERT_EQ(parabolicPoints(list[0], list[1], list[2], n, list), 1);
        ASSERT_EQ(n + 3, list.Count());
        EXPECT_BITS_EQ(arc.start, list[3]);
        EXPECT_BITS_EQ(arc.end, list[n + 2]);
        for (int i = 0; i < n; ++i) {
            mgVector_c const tangent = conic.tangentAt(list[3 + i]);
            EXPECT_NEAR(double(conic.at(list[3 + i])) / tangent.len(), 0, 1e-14);
            // Clockwise, for a tangent of either sense.
            double const angle = mg_AngleBetween2d(tangent, arc.apex - arc.start);
            EXPECT_NEAR(std::sin(angle - turn * i / (n - 1)), 0, 1e-13) << i;
        }
    }
}

TEST(ParabolicPoints, LeaveTheListWhereThereAreNone) {
    suDynamicArray<P> list;
    auto const points = [&](int n, double height) {
        return parabolicPoints({-1, 0, 0}, {1, 0, 0}, {0, height, 0}, n, list);
    };
    for (int const n : {1, -1, std::numeric_limits<int>::min(), 10000002})
        EXPECT_EQ(points(n, 1), 0);
    for (double const h : {below(1e-8), 1e70, kNaN}) EXPECT_EQ(points(5, h), 0);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(points(5, 1e-8), 1);
}

TEST(ConicShape, HostileNumbersGiveAResultInRangeOrNone) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        auto const [a, b, c, d] = random.hostile<Arc>();
        double const any = random.hostile(), other = random.hostile();
        for (double const e : {ecc({a, b, c, d}), eccByRho(any, a, b, c), xConic(any, other, 1.5),
                               mg_getPointEccentricity(a, b, random.hostile<mgLine_c>())})
            EXPECT_TRUE(e == -1 || (e >= 0 && e < kInfinity)) << e;
        for (double const full : {rho({a, b, c, d}), rhoConic(any, a, b, c)})
            EXPECT_TRUE(0 <= full && full < 1) << full;
        suDynamicArray<P> list;
        int const made = parabolicPoints(a, b, c, 4, list);
        EXPECT_EQ(4 * made, list.Count());
        for (int i = 0; i < list.Count(); ++i) EXPECT_LT(gap(list[i], P()), kInfinity);
    }
}
