// SPDX-License-Identifier: MIT
// Arrays of points as spans of their coordinates, and the other way round, without copies. Needs
// C++20; with an older standard this header is empty.

#ifndef VEXMATH_INTEROP_SPAN_H
#define VEXMATH_INTEROP_SPAN_H

#include <vexmath/interop/numbers.h>

#if __has_include(<version>)
#include <version>
#endif

#ifdef __cpp_lib_span

#include <cstddef>
#include <span>
#include <type_traits>

// Lists are contiguous ranges, so `std::span(list)` is a span of the elements. A span is valid as
// long as the array that it shows, and until a list grows.
namespace vexmath {

/// The coordinates of points, vectors, directions or `gcMdiPoint_c`, as in
/// `asDoubles(std::span(list))`: x, y and z of the first, then of the second, and so on. They are
/// constant when the elements are. A direction written through the result is not normalised.
template <class T, std::size_t n, detail::IfTriple<std::remove_const_t<T>> = 0>
auto asDoubles(std::span<T, n> triples) {
    using Number = std::conditional_t<std::is_const_v<T>, double const, double>;
    return std::span<Number>(reinterpret_cast<Number *>(triples.data()), 3 * triples.size());
}

/// The inverse: each three numbers are a point. One or two numbers at the end are left out.
template <class T, std::size_t n, class = std::enable_if_t<std::is_same_v<T const, double const>>>
auto asPoints(std::span<T, n> numbers) {
    using Point = std::conditional_t<std::is_const_v<T>, mgPoint_c const, mgPoint_c>;
    return std::span<Point>(reinterpret_cast<Point *>(numbers.data()), numbers.size() / 3);
}

} // namespace vexmath

#endif
#endif
