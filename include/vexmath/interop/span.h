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

#include <ranges>
#include <span>
#include <type_traits>

// A `suDynamicArray<T>` is a contiguous range, so `std::span(list)` needs no help. Spans are valid
// as long as the array, and until a list grows.
namespace vexmath {

/// The coordinates of the points, vectors, directions or `gcMdiPoint_c` in an array, a list or a
/// span: x, y and z of the first, then of the second, and so on. They are constant when the
/// elements are. A direction written through the span is not normalised.
template <std::ranges::contiguous_range R>
requires std::ranges::borrowed_range<R> &&detail::kIsTriple<std::ranges::range_value_t<R>> auto
asDoubles(R &&triples) {
    std::span const from(triples);
    constexpr bool kIsConst = std::is_const_v<typename decltype(from)::element_type>;
    using Number = std::conditional_t<kIsConst, double const, double>;
    return std::span<Number>(reinterpret_cast<Number *>(from.data()), 3 * from.size());
}

/// The numbers in an array, a list or a span of doubles as points, three by three. One or two
/// numbers at the end are left out. The points are constant when the numbers are.
template <std::ranges::contiguous_range R>
requires std::ranges::borrowed_range<R> &&std::is_same_v<std::ranges::range_value_t<R>, double> auto
asPoints(R &&numbers) {
    std::span const from(numbers);
    constexpr bool kIsConst = std::is_const_v<typename decltype(from)::element_type>;
    using Point = std::conditional_t<kIsConst, mgPoint_c const, mgPoint_c>;
    return std::span<Point>(reinterpret_cast<Point *>(from.data()), from.size() / 3);
}

} // namespace vexmath

#endif
#endif
