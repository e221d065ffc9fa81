// SPDX-License-Identifier: MIT
// Shared by the tests: random cases, comparison to the bit, and hostile values.

#ifndef VEXMATH_TESTS_COMMON_NUMBERS_H
#define VEXMATH_TESTS_COMMON_NUMBERS_H

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iomanip>
#include <limits>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "common/generator.h"

namespace common {

/// Seed of every Random: VEXMATH_TEST_SEED of the environment, else always the same.
inline std::uint64_t seed() {
    char const *text = std::getenv("VEXMATH_TEST_SEED");
    return text != nullptr ? std::strtoull(text, nullptr, 0) : 20240229u;
}

/// The generator with that seed. A failure in the scope of the object shows the seed.
class Random : public Generator {
public:
    Random() : Generator(seed()) {}

    /// Either sign, the decimal exponent uniform(lowExponent, highExponent).
    double ofMagnitude(double lowExponent, double highExponent) {
        double const size = std::pow(10.0, uniform(lowExponent, highExponent));
        return below(2) != 0 ? -size : size;
    }

    /// A point, vector or the like with each coordinate uniform(low, high).
    template <class T>
    T triple(double low, double high) {
        double const x = uniform(low, high), y = uniform(low, high), z = uniform(low, high);
        return T(x, y, z);
    }

    /// One of the hostile values below.
    double hostile();

private:
    ::testing::ScopedTrace trace_{__FILE__, __LINE__,
                                  "VEXMATH_TEST_SEED=" + std::to_string(seed())};
};

/// The last parameter of a Check function: a failure in there shows the line that called it.
struct Caller {
    Caller(char const *file = __builtin_FILE(), int line = __builtin_LINE())
        : trace(file, line, "called here") {}
    ::testing::ScopedTrace trace;
};

using Limits = std::numeric_limits<double>;
inline constexpr double kInfinity = Limits::infinity(), kNaN = Limits::quiet_NaN();
inline constexpr double kTiny = Limits::denorm_min(), kMin = Limits::min(), kMax = Limits::max();

/// Values for which a careless formula loops for ever, traps or is wrong.
inline constexpr double hostileValues[] = {
    0.0, -0.0, kTiny, -kTiny, kMin,  1e-300, 1e-17, 1e-8,      -1e-8,      1.0, -1.0,
    3e9, 1e18, 1e155, -1e155, 1e308, kMax,   -kMax, kInfinity, -kInfinity, kNaN};

inline double Random::hostile() {
    return hostileValues[below(static_cast<int>(std::size(hostileValues)))];
}

/// The same bits, so 0.0 and -0.0 differ. Any NaN equals any NaN: the compiler chooses its payload
/// and sign.
inline bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

/// A number with all its digits, and its bits.
inline std::string shown(double value) {
    std::ostringstream text;
    text << std::setprecision(17) << value << " (" << std::hexfloat << value << ")";
    return text.str();
}

// The same for points, vectors and other classes with x(), y() and z().
template <class A, class B>
auto sameBits(A const &a, B const &b) -> decltype(a.z() == b.z()) {
    return sameBits(a.x(), b.x()) && sameBits(a.y(), b.y()) && sameBits(a.z(), b.z());
}
template <class A>
auto shown(A const &a) -> decltype(std::to_string(a.z())) {
    return "\n    " + shown(a.x()) + "\n    " + shown(a.y()) + "\n    " + shown(a.z()) + "\n";
}

template <class A, class B>
auto bitsEqual(char const *aText, char const *bText, A const &a, B const &b)
    -> decltype(sameBits(a, b), ::testing::AssertionResult(true)) {
    if (sameBits(a, b)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << aText << " is " << shown(a) << ", " << bText << " is " << shown(b);
}

} // namespace common

/// Equal to the bit: doubles, or objects with x(), y() and z().
#define EXPECT_BITS_EQ(expected, actual) EXPECT_PRED_FORMAT2(::common::bitsEqual, expected, actual)
#define ASSERT_BITS_EQ(expected, actual) ASSERT_PRED_FORMAT2(::common::bitsEqual, expected, actual)

#endif
