// SPDX-License-Identifier: MIT
// Which operators points and vectors have. Nothing runs here: all is decided by the compiler, in
// C++17, 20 and 23, of which the newer ones also try the operands of a comparison in reverse.

#include <vexmath/vexmath.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <optional>
#include <type_traits>
#include <vector>

namespace {

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using P2 = mg2DPoint_c;

enum Enumerator { kOne = 1 };

template <class Operator, class A, class B>
constexpr bool has = std::disjunction_v<std::is_invocable<Operator, A &, B &>,
                                        std::is_invocable<Operator, A const &, B const &>,
                                        std::is_invocable<Operator, B &, A const &>>;
template <class A, class B, class... Operator>
constexpr bool hasAny = (... || has<Operator, A, B>);
template <class A, class... B>
constexpr bool orders =
    (... || hasAny<A, B, std::less<>, std::greater<>, std::less_equal<>, std::greater_equal<>>);
template <class A, class... B>
constexpr bool steps = (... || hasAny<A, B, std::plus<>, std::minus<>>);
template <class A, class... B>
constexpr bool equates = (... || hasAny<A, B, std::equal_to<>, std::not_equal_to<>>);
template <class A>
constexpr bool isTruth = hasAny<A, bool, std::logical_and<>, std::logical_or<>>;
constexpr auto write = [](auto &stream, auto &value) -> decltype(void(stream << value)) {};
template <class A>
constexpr bool isText =
    has<decltype(write), std::ostream, A> || has<decltype(write), std::wostream, A>;
template <class A, class... B>
constexpr bool makes = (... || std::is_constructible_v<B, A &>);

// What would take an address for a value does not compile.
static_assert(!orders<P, P, V, U, P2, double *, int> && !orders<V, V, U, P2, double const *, int>);
static_assert(!orders<U, U, P2, double *> && !orders<P2, P2, double *, int, std::nullptr_t>);
static_assert(!orders<gcMdiPoint_c, gcMdiPoint_c, P> && !orders<mgVector4_c, mgVector4_c, P>);
static_assert(!steps<P, int, double, Enumerator, P2> && !steps<V, int, double, Enumerator, P2>);
static_assert(!steps<U, int, double, Enumerator, P2> && !steps<P2, P2, int, Enumerator, double *>);
static_assert(!equates<P2, P2, P, V, U, double *, int, std::nullptr_t>);
static_assert(!equates<P, double *, int, std::nullptr_t> && !equates<V, double *, int>);
static_assert(!isTruth<P> && !isTruth<V> && !isTruth<U> && !isTruth<P2>);
static_assert(!isText<P> && !isText<V> && !isText<U> && !isText<P2>);
static_assert(!makes<P, int, double, bool> && !makes<V, int, double> && !makes<P2, int, double>);
static_assert(!makes<int, P, V, U, P2, mgVector4_c>);

// Two doubles are never read, or written, as three or four.
constexpr auto set = [](auto &a, auto &two) -> decltype(a.set(two)) {};
constexpr auto get = [](auto &a, auto &two) -> decltype(a.get(two)) {};
template <class A, class Call>
constexpr bool accepts = std::is_invocable_v<Call, A &, P2 &>;
static_assert(!makes<P2, P, V, U, mgVector4_c> && !accepts<V, decltype(get)>);
static_assert(
    !accepts<P, decltype(set)> && !accepts<V, decltype(set)> && !accepts<U, decltype(set)>);

// Every mixture of points and vectors has its plain meaning.
template <class A, class B>
constexpr bool is = std::is_same_v<A, B>;
P const p(1.0, 2.0, 3.0), q(0.5, -0.25, 4.0);
V const v(10.0, 20.0, 30.0);
U const u;
static_assert(is<decltype(p - q), V> && is<decltype(v - p), V> && is<decltype(-v), V>);
static_assert(is<decltype(p - v), P> && is<decltype(p + v), P> && is<decltype(v + p), P>);
static_assert(is<decltype(p + q), P> && is<decltype(u + u), V> && is<decltype(p - u), P>);
static_assert(is<decltype(-u), U> && is<decltype(p || u), int> && is<decltype(v * p % u), double>);
template <class A, class... B>
constexpr bool becomes = (... && std::is_convertible_v<A, B>);
static_assert(becomes<P &, V, double *, void *> && becomes<V &, P, double *, void *>);
static_assert(becomes<U const &, P, V, double const *> && becomes<P2 const &, double const *>);
static_assert(!becomes<V, U> && !becomes<P, U>); // a direction is asked for by name

// These are compiled for the warnings that they may raise.
[[maybe_unused]] bool compareAll(std::vector<P> const &points, std::optional<V> const &maybe) {
    bool const equal = p == q && p == v && v == p && v == v && u == v && p == u && u == u;
    bool const unequal = p != q && p != v && v != p && v != v && u != v && p != u && u != u;
    bool const nested =
        points == std::vector<P>(2, p) && maybe == v && std::pair(p, v) != std::pair(q, v);
    return equal && unequal && nested && std::find(points.begin(), points.end(), p) != points.end();
}
[[maybe_unused]] bool compareOthers(uoSelectType_c const &types,
                                    uoSelectConstraint_c const &rules) {
    auto const compareEach = [](auto const &...a) { return (... && (a == a)); };
    return compareEach(mgBBox_c(), mgMatrix_c(), mgMatrix4_c(), mgQuaternion_c(), mgPerspInfo_c(),
                       mgModelPerspInfo_c(), types, rules)
           && types != types && rules != rules;
}

} // namespace
