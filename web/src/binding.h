// SPDX-License-Identifier: MIT
// What both halves of the module share: arrays of numbers, objects of a script.

#ifndef VEXMATH_WEB_BINDING_H
#define VEXMATH_WEB_BINDING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include <emscripten/val.h>

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector.h>
#include <vexmath/xform.h>

namespace web {

using emscripten::val;

/// An array of a script's own, such as a Float64Array. The elements are numbers, or hold numbers
/// and nothing else, as points do.
template <class Number, class Elements>
val numbersOf(char const *arrayType, Elements const &elements) {
    constexpr std::size_t kEach = sizeof(*elements.data()) / sizeof(Number);
    static_assert(kEach * sizeof(Number) == sizeof(*elements.data()));
    auto const *const first = reinterpret_cast<Number const *>(elements.data());
    return val::global(arrayType).new_(
        val(emscripten::typed_memory_view(kEach * elements.size(), first)));
}

template <class Points>
val coordinatesOf(Points const &points) {
    return numbersOf<double>("Float64Array", points);
}

inline val bytesOf(std::string const &bytes) {
    return numbersOf<std::uint8_t>("Uint8Array", bytes);
}

inline val glDataOf(mgXform_c const &x) {
    std::array<double, 16> gl{};
    x.getGLData(gl.data());
    return numbersOf<double>("Float64Array", gl);
}

inline val objectOf(std::initializer_list<std::pair<char const *, val>> fields) {
    val object = val::object();
    for (auto const &[name, value] : fields) object.set(name, value);
    return object;
}

/// The direction of a vector, normalised; none for a vector that is too short.
inline mgUnitVector_c directionOf(mgVector_c const &v) { return {v, 0}; }

} // namespace web

#endif
