// SPDX-License-Identifier: MIT
// The one generator of pseudo-random numbers, for tests, benchmarks and measurements.

#ifndef VEXMATH_TESTS_COMMON_GENERATOR_H
#define VEXMATH_TESTS_COMMON_GENERATOR_H

#include <cstdint>

namespace common {

/// Knuth's 64-bit linear congruence: one seed gives the same numbers on every machine. The low bits
/// of a step have short periods, so only the high bits are used.
class Generator {
public:
    explicit Generator(std::uint64_t seed) : state_(seed) {}

    std::uint64_t step() { return state_ = state_ * 6364136223846793005u + 1442695040888963407u; }

    /// In [0, 1).
    double unit() { return static_cast<double>(step() >> 11) * 0x1p-53; }

    /// In [low, high]; high only by rounding.
    double uniform(double low, double high) { return low + (high - low) * unit(); }

    /// In [0, count).
    int below(int count) {
        return static_cast<int>((step() >> 32) * static_cast<std::uint64_t>(count) >> 32);
    }

private:
    std::uint64_t state_;
};

} // namespace common

#endif
