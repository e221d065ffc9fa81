// SPDX-License-Identifier: MIT
// A running checksum over a stream of integers.

#ifndef VEXMATH_CHECKSUM_H
#define VEXMATH_CHECKSUM_H

#include <cstdint>

/// Checksum of the values seen so far; it depends on their order. A value type of two 32-bit words,
/// sum and key, which begin at 0 and 0xD155.
class mgCheckSum_c {
public:
    /// Adds one value and returns the new sum. With m = (key >> 8) ^ value, where the value is
    /// its 32-bit pattern: sum += m, then key = (key + m) * 31415 + 27182. All of it is modulo
    /// 2^32, however wide `unsigned long` is.
    unsigned long update(int value);

    /// The sum; 0 before the first value.
    unsigned long getCheckSum() const;

private:
    std::uint32_t sum_ = 0;
    std::uint32_t key_ = 0xD155;
};

// -------------------------------------------------------------------------------------------------

inline unsigned long mgCheckSum_c::update(int value) {
    std::uint32_t const mixed = (key_ >> 8) ^ static_cast<std::uint32_t>(value);
    sum_ += mixed;
    key_ = (key_ + mixed) * std::uint32_t{31415} + std::uint32_t{27182};
    return sum_;
}

inline unsigned long mgCheckSum_c::getCheckSum() const { return sum_; }

#endif
