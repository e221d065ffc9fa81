// SPDX-License-Identifier: MIT
// Shared by the tests of geometry: the whole library under short names, neighbours of a threshold,
// distances, matrices and placements. It includes the standard headers that many tests use.

#ifndef VEXMATH_TESTS_COMMON_GEOMETRY_H
#define VEXMATH_TESTS_COMMON_GEOMETRY_H

#include <vexmath/vexmath.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

#include "common/numbers.h"

namespace common {

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;

/// Have the enumerators, which callers store, the numbers from 0 on?
template <class... Enumerator>
constexpr bool areNumbered(Enumerator... each) {
    int number = 0;
    return (... && (each == number++));
}

/// What an output holds that no function wrote.
inline P const untouched(77.0, 77.0, 77.0);

/// The doubles next to a threshold.
inline double below(double x) { return std::nextafter(x, -kInfinity); }
inline double above(double x) { return std::nextafter(x, kInfinity); }

/// The largest difference of a coordinate; infinite where one is NaN.
template <class A, class B>
double gap(A const &a, B const &b) {
    double const d[] = {std::fabs(a.x() - b.x()), std::fabs(a.y() - b.y()),
                        std::fabs(a.z() - b.z())};
    return d[0] + d[1] + d[2] < kInfinity ? std::max({d[0], d[1], d[2]}) : kInfinity;
}

inline ::testing::AssertionResult bitsEqual(char const *aText, char const *bText,
                                            mgMatrix_c const &a, mgMatrix_c const &b) {
    auto result = ::testing::AssertionSuccess();
    for (int k = 0; k < 9 && result; ++k) result = bitsEqual(aText, bText, a[k], b[k]);
    return result;
}

/// Flags, elements, translation and scale.
inline ::testing::AssertionResult bitsEqual(char const *aText, char const *bText,
                                            mgXform_c const &a, mgXform_c const &b) {
    if (a.rotate() != b.rotate() || a.isReflection() != b.isReflection())
        return ::testing::AssertionFailure() << "flags of " << aText << " and " << bText;
    auto result = bitsEqual(aText, bText, a.rotation(), b.rotation());
    if (result) result = bitsEqual(aText, bText, a.translation(), b.translation());
    return result ? bitsEqual(aText, bText, a.scaling(), b.scaling()) : result;
}

/// A transform of exactly these fields, including those that a copy would repair.
inline mgXform_c raw(mgMatrix_c const &rotation, V const &translation = {}, double scale = 1.0,
                     int reflection = 0) {
    mgXform_c x;
    x.SetHelper({rotation, translation, scale, reflection, nullptr});
    return x; // constructed in place, not copied
}

/// The text form of a box or a transform.
template <class T>
std::wstring textOf(T const &object) {
    CString text(L"old");
    object.saveStringRep(text);
    return static_cast<wchar_t const *>(text);
}

/// Exchanges the axes, x to y to z, then scales by 3, so that no coordinate stays in its place.
inline mgXform_c const moved = mg_RestoreXform({U(0, 1, 0), {0, 0, 1}, {1, 0, 0}}, {2, 0, 1}, 3.0);

inline U direction(Random &random) {
    for (;;) {
        auto const v = random.triple<V>(-1.0, 1.0);
        if (v.sqlen() > 0.01) return mg_Normalise(v);
    }
}

/// Rotation, scale and translation of everyday sizes.
inline mgXform_c placement(Random &random) {
    mgMatrix_c const turn = mg_RotationMatrix(random.uniform(-3.0, 3.0), direction(random), 0.0);
    auto const shift = random.triple<V>(-10.0, 10.0);
    return mg_RestoreXform(turn, shift, random.uniform(0.2, 5.0));
}

} // namespace common

using namespace common; // each program is a test

#endif
