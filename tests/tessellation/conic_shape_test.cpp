// SPDX-License-Identifier: MIT
// Shape and points of conic arcs, against conics in polar form about their focus.

#include "polyline.h"

namespace {

struct Arc {
    P start, end, apex, shoulder;
};

double ecc(Arc const &a) { return mg_getSgConicEccentricity(a.start, a.end, a.apex, a.shoulder); }
double rho(Arc const &a) { return rhoConic(a.start, a.end, a.apex, a.shoulder); }

/// The conic r (1 + e cos(angle)) = 1 about its focus, the origin.
struct Conic {
    double e;

    static P polar(double angle, double inverse) {
        return {std::cos(angle) / inverse, std::sin(angle) / inverse, 0};
    }
    P at(double angle) const { return polar(angle, 1 + e * std::cos(angle)); }
    /// Where the tangents at middle - half and middle + half meet.
    P apex(double middle, double half) const {
        return polar(middle, e * std::cos(middle) + std::cos(half));
    }
    Arc arc(double middle, double half) const {
        Arc arc{at(middle - half), at(middle + half), apex(middle, half), {}};
        P inside = interpolate(0.5, arc.start, arc.end), outside = arc.apex;
        for (int i = 0; i < 60; ++i) {
            arc.shoulder = interpolate(0.5, inside, outside);
            bool const isInside = dist(arc.shoulder, P()) < 1 - e * arc.shoulder.x();
            (isInside ? inside : outside) = arc.shoulder;
        }
        return arc;
    }
};

void CheckNear(double expected, double actual, double relative, Caller = {}) {
    EXPECT_LE(std::fabs(actual - expected), relative * std::fabs(expected)) << shown(actual);
}

/// e^2, not e: near a circle, e changes by the root of a change of the arc.
void CheckEccentricity(double e, double actual, Caller = {}) {
    CheckNear(1 + e * e, 1 + actual * actual, 1e-9);
}

} // namespace

TEST(ConicShape, AnArcOfAKnownConicHasItsEccentricityByAllMeans) {
    Random random;
    for (double const e : {0.0, 1e-3, 0.5, 1 - 1e-12, 1.0, 1 + 1e-12, 1.7, 4.0})
        for (int round = 0; round < 200; ++round) {
            double const most = 0.45 * (e > 1 ? std::acos(-1 / e) : 3.14);
            double const middle = round % 2 * most * random.uniform(-0.5, 0.5), f = 1 / (1 + e);
            Arc arc = Conic{e}.arc(middle, most * random.uniform(0.7, 1));
            // Beyond the minor axis, the other point of the same y is nearer to the vertex.
            double const x = f - arc.end.x(), other = 2 * f / (1 - e) - x;
            EXPECT_NEAR(e < 1 ? std::min(x, other) : x, xConic(arc.end.y(), f, e), 1e-9 * f);
            // In space, with a shoulder off the plane that keeps its foot on the median.
            arc.shoulder.set_z(random.uniform(-1, 1));
            mgLine_c directrix({1 / e, 7, 0}, {0, -1, 0});
            P focus, vertex(f, 0, 0);
            mgXform_c const placed = placement(random);
            directrix *= placed;
            for (P *p : {&arc.start, &arc.end, &arc.apex, &arc.shoulder, &focus, &vertex})
                *p *= placed;
            double const full = rho(arc);
            CheckEccentricity(e, ecc(arc));
            CheckEccentricity(e, eccByRho(full, arc.end, arc.start, arc.apex));
            if (e > 0) CheckNear(e, mg_getPointEccentricity(arc.end, focus, directrix), 1e-11);
            if (middle != 0) continue;
            CheckNear(full, rhoConic(e, arc.start, arc.end, arc.apex), 1e-11);
            CheckEccentricity(e, mg_getConicEccentricity(focus, vertex, arc.start, arc.end));
        }
}

TEST(ConicShape, SumsThatCancelKeepTheirDigits) {
    // c = m^2 - n^2 and h = 2 m n belong to a circle with an exact rho.
    double const m = 0x1p24, n = 0x1p23 + 1, c = m * m - n * n, h = 2 * m * n;
    P const start(-c, -c, 0), end(c, c, 0), apex(-h, h, 0);
    EXPECT_LT(eccByRho(0.5 * c / (m * m), start, end, apex), 1e-14);
    CheckNear(0.5 * c / (m * m), rhoConic(0, start, end, apex), 1e-15);
    // Flat, with 1 - 2 rho of the size of the squared height: e^2 is 1/2 and 3/2 but for 1e-12.
    P const flat(0, 0x1p-20, 0), left(-1, 0, 0), right(1, 0, 0);
    CheckNear(std::sqrt(0.5), eccByRho(0.5 - 0x1p-44, left, right, flat), 1e-11);
    CheckNear(std::sqrt(1.5), eccByRho(0.5 + 0x1p-44, left, right, flat), 1e-11);
    CheckNear(std::sqrt(0.8) / 0.9 * 0x1p20, eccByRho(0.9, left, right, flat), 1e-11);
    // Far from the origin, with the shoulder off the median.
    double const q = 0x1p40;
    CheckNear(0.25, rho({{q, 9, 0}, {q, 11, 0}, {q + 1, 10, 0}, {q + 0.25, 7, 9}}), 1e-15);
    double const limit = std::hypot(1, 0x1p20);
    EXPECT_GT(rhoConic(limit * (1 - 1e-9), left, right, flat), 0.9);
    EXPECT_EQ(rhoConic(limit * (1 + 1e-9), left, right, flat), 0);
    CheckNear(5e-303, xConic(1e-155, 1e-8, 0), 1e-15);
}

TEST(ConicShape, WhatIsDegenerateHasNoResult) {
    P const left(-1, 0, 0), right(1, 0, 0), top(0, 1, 0);
    auto const check = [&](bool isNone, Arc const &arc) {
        suDynamicArray<P> list;
        EXPECT_EQ(isNone ? 0 : 5, 5 * parabolicPoints(arc.start, arc.end, arc.apex, 5, list));
        EXPECT_EQ(isNone ? 0 : 5, list.Count());
        EXPECT_EQ(isNone, eccByRho(0.4, arc.start, arc.end, arc.apex) == -1);
    };
    auto const checkShoulder = [](bool isNone, Arc const &arc) {
        EXPECT_EQ(isNone, ecc(arc) == -1);
        EXPECT_EQ(isNone, rho(arc) == 0);
    };
    for (double const h : {1e-8, below(1e-8), 0.0}) {
        bool const isNone = h < 1e-8;
        check(isNone, {left, right, {7, h, 0}, {}}), check(isNone, {{0, 0, 0}, {h, 0, 0}, top, {}});
        checkShoulder(isNone, {left, right, top, {5, h, 6}}); // on the chord, on the apex
        checkShoulder(isNone, {left, right, {0, 4, 0}, {5, h, 6}});
        checkShoulder(isNone, {{-1, -4, 0}, {1, -4, 0}, {0, 0, 0}, {5, -h, 6}});
        EXPECT_EQ(isNone, mg_getPointEccentricity({0, 3, 0}, top, {{h, 9, 0}, {0, 1, 0}}) == -1);
        EXPECT_EQ(isNone, xConic(1, h, 1) == -1);
    }
    for (double const y : {-1.0, 1.5}) checkShoulder(true, {left, right, top, {0, y, 0}});
    checkShoulder(true, {left, right, {0, 0, 0}, top}); // no triangle
    double const far = 0x1p60; // the shoulder is 1 off the apex, and rho is 1 by rounding
    checkShoulder(true, {{-1, -far, 0}, {1, -far, 0}, {0, 0, 0}, {5, -1, 6}});
    for (double const big : {below(1e70), 1e70, kInfinity, kNaN}) {
        bool const isNone = !(big < 1e70);
        check(isNone, {left, right, {0, big, 0}, {}});
        EXPECT_EQ(isNone, xConic(big, 1, 1) == -1);
        EXPECT_EQ(isNone, mg_getPointEccentricity({0, big, 0}, top, {left, {0, 1, 0}}) == -1);
    }
    for (double const full : {0.0, 1.0, kNaN}) EXPECT_EQ(eccByRho(full, left, right, top), -1);
    for (double const full : {kTiny, below(1)}) EXPECT_GT(eccByRho(full, left, right, top), 0.9);
    for (double const e : {-kTiny, -1.0, kInfinity, kNaN}) {
        EXPECT_EQ(rhoConic(e, left, right, top), 0);
        EXPECT_EQ(xConic(1, 1, e), -1);
    }
    for (double const skew : {0.999e-8, 1.001e-8})
        EXPECT_EQ(skew > 1e-8, rhoConic(0.5, right, {0, 1 + skew, 0}, {0, 0, 0}) == 0);
    EXPECT_EQ(mg_getPointEccentricity(left, top, {}), -1); // no direction
    EXPECT_EQ(mg_getPointEccentricity(left, left, {top, {1, 0, 0}}), 0);
    EXPECT_EQ(xConic(5, 5, 0), 5); // the minor axis is included
    EXPECT_EQ(xConic(above(5), 5, 0), -1);
    suDynamicArray<P> list;
    for (int const n : {1, std::numeric_limits<int>::min(), 10000002})
        EXPECT_EQ(parabolicPoints(left, right, top, n, list), 0);
}

TEST(ParabolicPoints, RotateTheirTangentsEqually) {
    for (int const n : {2, 3, 10, 100}) {
        Conic const parabola{1};
        suDynamicArray<P> list;
        for (P const &p : {parabola.at(-1), parabola.at(2), parabola.apex(0.5, 1.5)}) list.Add(p);
        P const start = list[0], end = list[1];
        ASSERT_EQ(parabolicPoints(list[0], list[1], list[2], n, list), 1);
        ASSERT_EQ(n + 3, list.Count());
        EXPECT_BITS_EQ(start, list[3]);
        EXPECT_BITS_EQ(end, list[n + 2]);
        // The tangent rotates by half the angle at the focus.
        for (int i = 0; i < n; ++i)
            EXPECT_LT(dist(parabola.at(3.0 * i / (n - 1) - 1), list[3 + i]), 1e-14) << i;
    }
    // Tall: y = h (1 - x^2) / 2 has the slope -h x.
    long double const h = 1 << 10;
    suDynamicArray<P> list;
    ASSERT_EQ(parabolicPoints({-1, 0, 0}, {1, 0, 0}, {0, double(h), 0}, 20001, list), 1);
    for (int i = 0; i < 20001; i = 2 * i + 1) {
        long double const x = -std::tan(std::atan(h) * (1 - i / 10000.0L)) / h;
        EXPECT_LT(dist(P(double(x), double(h * (1 - x * x) / 2), 0), list[i]), 1e-15 * h) << i;
    }
}
