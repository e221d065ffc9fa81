// SPDX-License-Identifier: MIT
// Which operands a template accepts, or a deleted one refuses.

#ifndef VEXMATH_DETAIL_OPERAND_TRAITS_H
#define VEXMATH_DETAIL_OPERAND_TRAITS_H

#include <vexmath/forward.h>

#include <type_traits>

namespace vexmath::detail {

template <class N>
using IfNumber = std::enable_if_t<std::is_arithmetic_v<N> || std::is_enum_v<N>, int>;

template <class B>
using IfBool = std::enable_if_t<std::is_same_v<B, bool>, int>;

/// Restricts a template to points. A plain overload for points would be ambiguous for arguments
/// that convert to points and to vectors.
template <class P>
using IfPoint = std::enable_if_t<std::is_base_of_v<mgPoint_c, P>, int>;

template <class V>
using IfVector = std::enable_if_t<std::is_base_of_v<mgVector_c, V>, int>;

template <class T, class... Classes>
inline constexpr bool kIsOneOf = (std::is_same_v<T, Classes> || ...);

/// Could T be an operand of an operator on addresses: a number, or what converts to an address?
template <class T>
inline constexpr bool kIsAddressOperand =
    std::is_arithmetic_v<
        T> || std::is_enum_v<T> || std::is_convertible_v<T const &, double const *>;

template <class A, class B>
using IfAddressOperands = std::enable_if_t<kIsAddressOperand<A> && kIsAddressOperand<B>, bool>;

} // namespace vexmath::detail

#endif
