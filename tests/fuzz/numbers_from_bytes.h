// SPDX-License-Identifier: MIT
// Random bytes as numbers and objects.

#ifndef VEXMATH_TESTS_FUZZ_NUMBERS_FROM_BYTES_H
#define VEXMATH_TESTS_FUZZ_NUMBERS_FROM_BYTES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Takes doubles off the input until it is used up, then zeros. The bytes are the numbers, so that
/// NaN, infinity and subnormals are as likely as the fuzzer finds them interesting.
class NumbersFromBytes {
public:
    NumbersFromBytes(std::uint8_t const *data, std::size_t size) : data_(data), left_(size) {}

    bool empty() const { return left_ == 0; }

    double next() {
        double value = 0.0;
        std::size_t const taken = left_ < sizeof value ? left_ : sizeof value;
        if (taken > 0) std::memcpy(&value, data_, taken);
        data_ += taken;
        left_ -= taken;
        return value;
    }

    template <class T>
    T triple() {
        double const x = next(), y = next(), z = next();
        return T(x, y, z);
    }

private:
    std::uint8_t const *data_;
    std::size_t left_;
};

#endif
