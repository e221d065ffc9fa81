// SPDX-License-Identifier: MIT
// What both halves of the module share: points as arrays of three numbers, and errors of scripts.

#ifndef VEXMATH_WEB_BINDING_H
#define VEXMATH_WEB_BINDING_H

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include <emscripten/val.h>

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector.h>

namespace web {

using emscripten::val;

/// Throws a script's Error with the text. Destructors of the callers do not run.
[[noreturn]] void throwError(char const *text);

/// Calls a function. An exception of C++ becomes an Error with its text.
template <class Function>
auto guarded(Function function) -> decltype(function()) {
    static std::string message; // outlives the frame that the Error leaves
    try {
        return function();
    } catch (std::exception const &error) {
        message = error.what();
    }
    throwError(message.c_str());
}

/// An array of numbers, of a script's own, such as a Float64Array.
template <class Number>
val numbersOf(char const *arrayType, std::vector<Number> const &numbers) {
    val const view(emscripten::typed_memory_view(numbers.size(), numbers.data()));
    return val::global(arrayType).new_(view);
}

/// x, y, z of all points, one after the other.
template <class Points>
val coordinatesOf(Points const &points) {
    std::vector<double> numbers;
    for (mgPoint_c const &p : points) numbers.insert(numbers.end(), {p.x(), p.y(), p.z()});
    return numbersOf("Float64Array", numbers);
}

inline val bytesOf(std::string const &bytes) {
    return numbersOf("Uint8Array", std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

/// The direction of a vector, normalised; none for a vector that is too short.
inline mgUnitVector_c directionOf(mgVector_c const &v) { return {v, 0}; }

} // namespace web

#endif
