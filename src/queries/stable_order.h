// SPDX-License-Identifier: MIT
// The order of many doubles, in linear time.

#ifndef VEXMATH_SRC_QUERIES_STABLE_ORDER_H
#define VEXMATH_SRC_QUERIES_STABLE_ORDER_H

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace vexmath::detail {

/// A double as an integer of the same order, with the index of what it belongs to.
struct OrderKey {
    std::uint64_t key;
    std::uint32_t index;
};

/// -0 equals 0; all NaN are equal, and behind infinity.
inline OrderKey orderKey(double value, std::uint32_t index) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    if (std::isnan(value)) return {~std::uint64_t{0}, index};
    double const positiveZero = value + 0.0;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &positiveZero, sizeof bits);
    return {(bits & kSign) != 0 ? ~bits : bits | kSign, index};
}

/// The double of a key: 0 for -0, NaN for any NaN.
inline double valueOf(std::uint64_t key) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    std::uint64_t const bits = (key & kSign) != 0 ? key ^ kSign : ~key;
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Sorts by key; equal keys keep their order. Throws std::bad_alloc with the keys as they were.
void sortStably(std::vector<OrderKey> &keys);

} // namespace vexmath::detail

#endif
