// SPDX-License-Identifier: MIT
// Points and vectors as values, their arithmetic and tolerant comparisons, lines and markers.

#include "common/geometry.h"

namespace {

P const p(1.0, 2.0, 3.0), q(0.5, -0.25, 4.0), origin;
V const v(10.0, 20.0, 30.0);

TEST(Points, ArithmeticIsByComponent) {
    EXPECT_BITS_EQ(P(11.5, 21.75, 37.0), v + p + q);
    EXPECT_BITS_EQ(V(-9.5, -17.75, -31.0), p - v - q);
    EXPECT_BITS_EQ(V(9.0, 18.0, 27.0), v - p);
    EXPECT_BITS_EQ(V(87.5, -25.0, -12.5), v * q); // a cross product
    EXPECT_BITS_EQ(V(12.0, 140.0, 140.0), V(p % q, p % v, v % p));
    EXPECT_EQ(175.0, vol(v, q, V(2.0, -2.0, 4.0)));
    EXPECT_EQ(std::sqrt(sqDist(p, q)), dist(p, V(p) + V(0.5, 2.25, 1.0)));
    EXPECT_BITS_EQ(P(2.0, 6.5, 1.0), interpolate(-2.0, p, q));
    EXPECT_BITS_EQ(V(), v / -below(1e-08));
    EXPECT_BITS_EQ(V(10.0 / 1e-08, 20.0 / 1e-08, 30.0 / 1e-08), v / 1e-08);
    V w = v;
    P r = p;
    w += p, w -= V(1.0, 2.0, 4.0), w *= -0.5, w.flip();
    r += v, r -= V(1.0, 2.0, 4.0);
    EXPECT_BITS_EQ(V(5.0, 10.0, 14.5), w);
    EXPECT_BITS_EQ(P(10.0, 20.0, 29.0), r);
}

TEST(Points, ValuesGoInAndOutInOrder) {
    auto const check = [](auto t, Caller = {}) {
        t.set_x(1.0), t.set_y(2.0), t.set_z(3.0);
        EXPECT_BITS_EQ(p, t);
    };
    check(P()), check(V::nullVector()), check(gcMdiPoint_c());
    double xyzw[] = {2.0, 4.0, 6.0, 2.0};
    float singles[] = {1.0F, 2.0F, 3.0F};
    EXPECT_BITS_EQ(p, mgVector4_c(xyzw).getVector3());
    EXPECT_BITS_EQ(p, mgVector4_c(p).getVector3());
    EXPECT_BITS_EQ(v, mgVector4_c(v).getVector3());
    P fromDoubles, fromFloats;
    V(p).get(xyzw), fromDoubles.set(xyzw), fromFloats.set(singles);
    EXPECT_BITS_EQ(p, fromDoubles);
    EXPECT_BITS_EQ(p, fromFloats);
    fromFloats[2] = 0.7; // it is also an array of three
    float back[3] = {};
    V(fromFloats).get(back);
    EXPECT_BITS_EQ(P(1.0, 2.0, 0.7F), P(back[0], back[1], back[2]));
    EXPECT_BITS_EQ(mg_Normalise(p), U(xyzw));
    mg2DPoint_c uv;
    uv.set(5.0, 6.0), uv.set_y(4.0);
    EXPECT_BITS_EQ(P(5.0, 4.0, 5.0), P(uv.x(), uv.y(), uv.u()));
    uv.set_x(3.0);
    EXPECT_BITS_EQ(P(3.0, 4.0, 0.0), P(uv.u(), uv.v(), 0.0));
    float single = 0.1F;
    double number = 0.1; // not constants, so that the constructors run
    mgTessPoint2D_c const stored(1.0F, 2.0F, single), rounded(1.0, 2.0, number);
    EXPECT_BITS_EQ(P(1.0, 2.0, stored.z), P(rounded.x, rounded.y, rounded.z));
}

using Facts = std::vector<int>;

/// Compares the origin with a point at distance d along each axis.
void CheckEquality(double d, int equal, int unequal, Caller = {}) {
    for (int axis = 0; axis < 3; ++axis) {
        P a;
        a[axis] = d;
        V const w(a);
        SCOPED_TRACE(shown(d) + " along " + std::to_string(axis));
        EXPECT_EQ(Facts(4, equal), (Facts{a == origin, V() == w, w == origin, origin == w}));
        EXPECT_EQ(Facts(4, unequal), (Facts{a != origin, V() != w, w != origin, origin != w}));
        EXPECT_EQ(Facts(3, equal), (Facts{a.isSame(origin, -0.5), a.isSame2(origin), w.isNull()}));
        EXPECT_EQ(!equal, w.isNotNull());
        EXPECT_EQ(d == 0.0, w.null() != 0);
    }
}

TEST(Points, EqualAndUnequalAreBothFalseOnTheBound) {
    CheckEquality(-0.0, 1, 0), CheckEquality(below(1e-08), 1, 0), CheckEquality(-1e-08, 0, 0);
    CheckEquality(above(1e-08), 0, 1), CheckEquality(kNaN, 0, 0);
}

TEST(Points, SecondComparisonIgnoresItsTolerance) {
    P const a(0.0, 0.3, 0.0);
    EXPECT_EQ(1, a.isSame(origin, 0.5));
    EXPECT_EQ(0, a.isSame(origin, 0.3)); // strict
    EXPECT_EQ(0, a.isSame(a, 0.0));
    EXPECT_EQ(0, a.isSame2(origin, 0.5));
    EXPECT_EQ(1, P(0.0, 5e-9, 0.0).isSame2(origin, 1e-12));
}

TEST(Points, OrderIsLexicographicBeyondTheTolerance) {
    EXPECT_EQ(1, P(0.0, 0.0, -above(1e-08)).isLessThan(origin, -1.0));
    EXPECT_EQ(0, P(0.0, 0.0, -1e-08).isLessThan(origin, -1.0)); // the bound counts as equal
    EXPECT_EQ(0, P(2e-08, -1.0, -1.0).isLessThan(origin, -1.0));
    EXPECT_EQ(1, P(1e-08, -1.0, 1.0).isLessThan(origin, -1.0));
    EXPECT_EQ(1, P(kNaN, -1.0, 0.0).isLessThan(origin, 0.5)); // NaN counts as equal
}

TEST(Points, ParametersAndFeetLieWhereTheyShould) {
    P const at(2.0, 21.0, 301.0), from(1.0, 1.0, 1.0), off(6.0, -1.0, 6.0);
    EXPECT_EQ(0.5, at.getParamOnLine(from, {3.0, -1.0, 3.0})); // x on a tie
    EXPECT_EQ(150.0, at.getParamOnLine(from, {1.5, 1.5, 3.0}));
    EXPECT_EQ(-10.0, at.getParamOnLine(from, {2.0, -1.0, 2.0}));
    EXPECT_BITS_EQ(P(61.0, 122.0, -117.0), p.mirror({9.0, 9.0, -1.0}, {1.0, 2.0, -2.0}));
    double t = -1.0;
    P foot;
    EXPECT_EQ(5.0, p.distToLine({-2.0, 6.0, 3.0}, {-2.0 + 5e-9, 6.0, 3.0}, &t, &foot));
    EXPECT_BITS_EQ(P(-2.0, 6.0, 3.0 + t), foot);
    EXPECT_EQ(std::sqrt(18.0), off.distToLine(from, {3.0, 2.0, 3.0}, &t, &foot));
    EXPECT_BITS_EQ(P(5.0, 3.0, 5.0), foot);
    EXPECT_DOUBLE_EQ(std::sqrt(18.0), off.distToRay(from, V(-2.0, -1.0, -2.0) / 3.0, &t));
    EXPECT_DOUBLE_EQ(-6.0, t); // and behind the root
}

void CheckCollinear(P const &b, P const &c, int expected, V const &expectedNormal, Caller = {}) {
    P const points[3] = {p, p + b, p + c};
    P at;
    V normal(9.0, 9.0, 9.0);
    EXPECT_EQ(expected, P::checkCollinear(points, at, normal));
    EXPECT_BITS_EQ(p, at);
    EXPECT_BITS_EQ(expectedNormal, normal);
}

TEST(Points, CollinearPointsShareAPlaneAllTheSame) {
    P const x(3.0, 0.0, 2.0), y(0.0, 2.0, 5.0); // each perpendicular to an axis
    CheckCollinear(x, y, 0, {4.0, 15.0, -6.0}); // (c - a) x (b - a), not normalised
    CheckCollinear(x, {6.0, 0.0, 4.0}, 1, V(x).anyUnitNormal(0));
    CheckCollinear(y, origin, 1, V(y).anyUnitNormal(0)), CheckCollinear(origin, origin, 1, {});
    CheckCollinear(origin, y, 1, V(y).anyUnitNormal(0));
    // A chain: the first equals the second, the second the third, the first not the third.
    CheckCollinear({8e-9, 0.0, 0.0}, {1.6e-8, 0.0, 0.0}, 1, V(1.0, 0.0, 0.0).anyUnitNormal(0));
}

TEST(Points, LastTwoPointsEqualLeaveTheNormal) { CheckCollinear(q, q, 1, {9.0, 9.0, 9.0}); }

TEST(Points, MarkerArmsAreUnequal) {
    P a, b, c, d;
    auto const check = [&](P const &ab, P const &ba, P const &cd, P const &dc, Caller = {}) {
        std::vector<double> const gaps{gap(ab, a), gap(ba, b), gap(cd, c), gap(dc, d)};
        EXPECT_EQ(std::vector<double>(4, 0.0), gaps);
    };
    P(-1.0, 0.0, -5.0).getPLUSrep(a, b, c, d, 1.0);
    check({2.0, 0.0, 0.0}, {-5.0, 0.0, 0.0}, {-1.0, -3.0, 0.0}, {-1.0, 4.0, 0.0});
    P(-1.0, 2.0, -5.0).getPLUSrep(a, b, c, d, 1.0);
    check({2.0, 2.0, 0.0}, {-5.0, 2.0, 0.0}, {-1.0, -1.0, 0.0}, {-1.0, 6.0, 0.0});
    a = P(1.0, -2.0, 5.0);
    a.getXrep(a, b, c, d, 0.5); // an output may be the point itself
    check({-0.5, -0.5, 0.0}, {3.0, -4.0, 0.0}, {2.5, -0.5, 0.0}, {-1.0, -4.0, 0.0});
}

TEST(Points, DumpWritesFourDecimalsAndNothingElse) {
    std::wostringstream text;
    CDumpContext context(text);
    P(1.0, -2.00006, 1e300).Dump(context);
    EXPECT_EQ(L"(1.0000,-2.0001,", text.str().substr(0, 16));
    EXPECT_EQ(16u + 301u + 6u, text.str().size()); // the huge number is written whole
}

TEST(Points, ApplicationPointDividesWithoutGuard) {
    gcMdiPoint_c a(3.0, -4.0, 0.0);
    EXPECT_EQ(5.0, a.magnitude());
    a += a, a -= gcMdiPoint_c(2.0, 1.0, 2.0), a *= 0.5;
    EXPECT_BITS_EQ(gcMdiPoint_c(2.0, -4.5, -1.0), a);
    a.set_z(0.0);
    a /= 0.0;
    EXPECT_BITS_EQ(gcMdiPoint_c(kInfinity, -kInfinity, kNaN), a);
    a.zero();
    EXPECT_BITS_EQ(origin, a);
}

} // namespace
