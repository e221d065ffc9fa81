// SPDX-License-Identifier: MIT
// Points and vectors as values, their arithmetic and tolerant comparisons, lines and markers.

#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/vector4.h>

#include <sstream>
#include <type_traits>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::kInfinity;
using support::kNaN;

// Callers copy these by memcpy, pass them as arrays and overlay them on their own structures.
template <class T, std::size_t size>
constexpr bool plain = sizeof(T)
                       == size &&std::is_trivially_copyable_v<T>
                           &&std::is_trivially_destructible_v<T> &&std::is_standard_layout_v<T>;
static_assert(plain<mgVector_c, 24> && plain<mgPoint_c, 24> && plain<gcMdiPoint_c, 24>);
static_assert(plain<mgUnitVector_c, 24> && plain<mg2DPoint_c, 16> && plain<mgVector4_c, 32>);
static_assert(plain<mgTessPoint2D_c, 12>);

// What would read an address for a value does not compile.
template <class A, class B, class = void>
struct Adds : std::false_type {};
template <class A, class B>
struct Adds<A, B, std::void_t<decltype(std::declval<A>() + std::declval<B>())>> : std::true_type {};
template <class T>
constexpr bool loose =
    std::is_convertible_v<T, bool> || std::is_constructible_v<bool, T> || Adds<T, int>::value
    || Adds<double, T>::value;
template <class T>
constexpr bool fromNumber = std::is_constructible_v<T, int> || std::is_constructible_v<T, double>;
static_assert(!loose<mgVector_c &> && !loose<mgPoint_c &> && !loose<mgUnitVector_c &>);
static_assert(!loose<mgVector_c const &> && !loose<mgPoint_c const &>);
static_assert(!fromNumber<mgVector_c> && !fromNumber<mgPoint_c> && !fromNumber<mgUnitVector_c>);
static_assert(!fromNumber<mgVector4_c>);

// Every mixture of points and vectors has its plain meaning.
template <class A, class B>
constexpr bool is = std::is_same_v<A, B>;
mgPoint_c const p(1.0, 2.0, 3.0), q(0.5, -0.25, 4.0), origin;
mgVector_c const v(10.0, 20.0, 30.0);
static_assert(is<decltype(p - q), mgVector_c> && is<decltype(v - p), mgVector_c>);
static_assert(is<decltype(p - v), mgPoint_c> && is<decltype(p + v), mgPoint_c>);
static_assert(is<decltype(v + p), mgPoint_c> && is<decltype(p + q), mgPoint_c>);
static_assert(
    is<decltype(v == p), int> && is<decltype(p != v), int> && is<decltype(-v), mgVector_c>);

TEST(Points, ArithmeticIsByComponent) {
    EXPECT_BITS_EQ(mgPoint_c(11.0, 22.0, 33.0), p + v);
    EXPECT_BITS_EQ(mgPoint_c(11.0, 22.0, 33.0), v + p);
    EXPECT_BITS_EQ(mgPoint_c(1.5, 1.75, 7.0), p + q);
    EXPECT_BITS_EQ(mgPoint_c(-9.0, -18.0, -27.0), p - v);
    EXPECT_BITS_EQ(mgVector_c(9.0, 18.0, 27.0), v - p);
    EXPECT_BITS_EQ(mgVector_c(0.5, 2.25, -1.0), p - q);
    EXPECT_BITS_EQ(mgVector_c(20.0, 40.0, 60.0), v * 2.0);
    EXPECT_BITS_EQ(mgVector_c(87.5, -25.0, -12.5), v * q); // a cross product
    EXPECT_EQ(12.0, p % q);
    EXPECT_EQ(0.0, mgVector_c(1e16, 1.0, -1e16) % mgVector_c(1.0, 1.0, 1.0)); // x before y before z
    EXPECT_EQ(175.0, vol(v, q, mgVector_c(2.0, -2.0, 4.0)));
    EXPECT_EQ(std::sqrt(0.25 + 5.0625 + 1.0), dist(p, q));
    EXPECT_BITS_EQ(mgPoint_c(2.0, 6.5, 1.0), interpolate(-2.0, p, q));
    EXPECT_BITS_EQ(mgVector_c(), v / -below(1e-08));
    EXPECT_BITS_EQ(mgVector_c(10.0 / 1e-08, 20.0 / 1e-08, 30.0 / 1e-08), v / 1e-08);
    mgVector_c w = v;
    w += p, w -= mgVector_c(1.0, 2.0, 4.0), w *= -0.5, w.flip();
    EXPECT_BITS_EQ(mgVector_c(5.0, 10.0, 14.5), w);
    float singles[] = {0.1F, 0.2F, 0.3F};
    mgPoint_c r = p;
    r += v, r -= mgVector_c(1.0, 2.0, 4.0);
    EXPECT_BITS_EQ(mgPoint_c(10.0, 20.0, 29.0), r);
    r.set(singles);
    r[2] = 0.7; // an array of three as well
    EXPECT_BITS_EQ(mgPoint_c(static_cast<double>(0.1F), static_cast<double>(0.2F), 0.7), r);
    mgVector_c(r).get(singles);
    EXPECT_EQ(0.7F, singles[2]);
    EXPECT_BITS_EQ(mgVector_c(1.0, 2.0, 3.0), mgVector4_c(2.0, 4.0, 6.0, 2.0).getVector3());
    EXPECT_BITS_EQ(v, mgVector4_c(v).getVector3());
    EXPECT_EQ(0.1F, mgTessPoint2D_c(0.1, 0.2, 0.3).x);
}

/// A point that lies off the origin by d along one axis after the other.
void checkEquality(double d, int equal, int unequal) {
    for (int axis = 0; axis < 3; ++axis) {
        mgPoint_c a;
        a[axis] = d;
        EXPECT_EQ(equal, a == origin) << d << " along " << axis;
        EXPECT_EQ(unequal, a != origin) << d << " along " << axis;
        EXPECT_EQ(equal, mgVector_c() == mgVector_c(a));
        EXPECT_EQ(unequal, mgVector_c() != mgVector_c(a));
        EXPECT_EQ(equal, a.isSame(origin, -0.5));
        EXPECT_EQ(equal, a.isSame2(origin));
        EXPECT_EQ(equal, mgVector_c(a).isNull());
        EXPECT_EQ(!equal, mgVector_c(a).isNotNull());
        EXPECT_EQ(d == 0.0, mgVector_c(a).null() != 0);
    }
}

TEST(Points, EqualAndUnequalAreBothFalseOnTheBound) {
    checkEquality(-0.0, 1, 0);
    checkEquality(below(1e-08), 1, 0);
    checkEquality(-1e-08, 0, 0);
    checkEquality(above(1e-08), 0, 1);
    checkEquality(-kInfinity, 0, 1);
    checkEquality(kNaN, 0, 0);
}

TEST(Points, SecondComparisonIgnoresItsTolerance) {
    mgPoint_c const a(0.0, 0.3, 0.0);
    EXPECT_EQ(1, a.isSame(origin, 0.5));
    EXPECT_EQ(0, a.isSame(origin, 0.3) + a.isSame(a, 0.0)); // strict
    EXPECT_EQ(0, a.isSame2(origin, 0.5));
    EXPECT_EQ(1, mgPoint_c(0.0, 5e-9, 0.0).isSame2(origin, 1e-12));
}

TEST(Points, OrderIsLexicographicBeyondTheTolerance) {
    auto const less = [](mgPoint_c const &a, double tol) { return a.isLessThan(origin, tol); };
    EXPECT_EQ(1, less({0.0, 0.0, -above(1e-08)}, -1.0));
    EXPECT_EQ(0, less({0.0, 0.0, -1e-08}, -1.0)); // the bound counts as equal
    EXPECT_EQ(0, less({2e-08, -1.0, -1.0}, -1.0));
    EXPECT_EQ(1, less({1e-08, -1.0, 1.0}, -1.0));
    EXPECT_EQ(1, less({0.0, 0.0, -1e-300}, 0.0));
    EXPECT_EQ(1, less({kNaN, -1.0, 0.0}, 0.5)); // NaN is neither before nor behind
}

TEST(Points, ParametersAndFeetLieWhereTheyShould) {
    mgPoint_c const at(2.0, 21.0, 301.0), from(1.0, 1.0, 1.0), off(8.0, 4.0, 3.0);
    EXPECT_EQ(0.5, at.getParamOnLine(from, {3.0, -1.0, 3.0})); // x on a tie
    EXPECT_EQ(-20.0, at.getParamOnLine(from, {1.5, 0.0, 1.2}));
    EXPECT_EQ(150.0, at.getParamOnLine(from, {1.5, 1.5, 3.0}));
    EXPECT_BITS_EQ(mgPoint_c(1.0, 2.0, -5.0), p.mirror({9.0, 9.0, -1.0}, {0.0, 0.0, 1.0}));
    double t = -1.0;
    mgPoint_c foot;
    EXPECT_EQ(5.0, p.distToLine({-2.0, 6.0, 3.0}, {-2.0 + 5e-9, 6.0, 3.0}, &t, &foot));
    EXPECT_EQ(0.0, t);
    EXPECT_BITS_EQ(mgPoint_c(-2.0, 6.0, 3.0), foot);
    EXPECT_EQ(5.0, off.distToLine({2.0, 0.0, 0.0}, {4.0, 0.0, 0.0}, &t, &foot));
    EXPECT_EQ(3.0, t); // beyond the segment
    EXPECT_BITS_EQ(mgPoint_c(8.0, 0.0, 0.0), foot);
    EXPECT_EQ(5.0, off.distToRay({1.0, 0.0, 0.0}, {-1.0, 0.0, 0.0}, &t));
    EXPECT_EQ(-7.0, t); // and behind the root
}

void checkCollinear(mgPoint_c const &b, mgPoint_c const &c, int expected,
                    mgVector_c const &expectedNormal) {
    mgPoint_c const points[3] = {p, p + b, p + c};
    mgPoint_c at(7.0, 7.0, 7.0);
    mgVector_c normal(9.0, 9.0, 9.0);
    EXPECT_EQ(expected, mgPoint_c::checkCollinear(points, at, normal));
    EXPECT_BITS_EQ(p, at);
    EXPECT_BITS_EQ(expectedNormal, normal);
}

TEST(Points, CollinearPointsShareAPlaneAllTheSame) {
    mgPoint_c const x(3.0, 0.0, 0.0), y(0.0, 2.0, 0.0);
    checkCollinear(x, y, 0, {0.0, 0.0, -6.0}); // (c - a) x (b - a), not normalised
    checkCollinear(x, {6.0, 0.0, 0.0}, 1, mgVector_c(x).anyUnitNormal(0));
    checkCollinear(origin, origin, 1, {});
    checkCollinear(origin, y, 1, mgVector_c(y).anyUnitNormal(0));
    checkCollinear(y, origin, 1, mgVector_c(y).anyUnitNormal(0));
    // A chain: the first equals the second, the second the third, the first not the third.
    checkCollinear({8e-9, 0.0, 0.0}, {1.6e-8, 0.0, 0.0}, 1, mgVector_c(x).anyUnitNormal(0));
}

TEST(Points, LastTwoPointsEqualLeaveTheNormal) { checkCollinear(q, q, 1, {9.0, 9.0, 9.0}); }

TEST(Points, MarkerArmsAreUnequal) {
    mgPoint_c a, b, c, d;
    auto const check = [&](double ax, double ay, double bx, double by, double cx, double cy,
                           double dx, double dy) {
        EXPECT_BITS_EQ(mgPoint_c(ax, ay, 0.0), a);
        EXPECT_BITS_EQ(mgPoint_c(bx, by, 0.0), b);
        EXPECT_BITS_EQ(mgPoint_c(cx, cy, 0.0), c);
        EXPECT_BITS_EQ(mgPoint_c(dx, dy, 0.0), d);
    };
    mgPoint_c(-1.0, 0.0, -5.0).getPLUSrep(a, b, c, d, 1.0);
    check(2.0, 0.0, -5.0, 0.0, -1.0, -3.0, -1.0, 4.0);
    a = mgPoint_c(1.0, -2.0, 5.0);
    a.getXrep(a, b, c, d, 0.5); // an output may be the point itself
    check(-0.5, -0.5, 3.0, -4.0, 2.5, -0.5, -1.0, -4.0);
}

TEST(Points, DumpWritesFourDecimalsAndNothingElse) {
    std::wostringstream text;
    CDumpContext context(text);
    mgPoint_c(1.0, -2.00006, 1e300).Dump(context);
    EXPECT_EQ(L"(1.0000,-2.0001,", text.str().substr(0, 16));
    EXPECT_EQ(16u + 301u + 6u, text.str().size()); // the huge one is not cut
}

TEST(Points, ApplicationPointDividesWithoutGuard) {
    gcMdiPoint_c a(3.0, -4.0, 0.0);
    EXPECT_EQ(5.0, a.magnitude());
    a += a, a -= gcMdiPoint_c(2.0, 1.0, 2.0), a *= 0.5;
    EXPECT_BITS_EQ(gcMdiPoint_c(2.0, -4.5, -1.0), a);
    a.set_z(0.0);
    a /= 0.0;
    EXPECT_BITS_EQ(gcMdiPoint_c(kInfinity, -kInfinity, kNaN), a);
}

} // namespace
