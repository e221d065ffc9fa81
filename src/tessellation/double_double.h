// SPDX-License-Identifier: MIT
// Numbers of twice the precision of a double, for sums whose terms cancel.

#ifndef VEXMATH_TESSELLATION_DOUBLE_DOUBLE_H
#define VEXMATH_TESSELLATION_DOUBLE_DOUBLE_H

#include <vexmath/point.h>

namespace vexmath::detail {

/// The exact sum of two doubles, the second at most half a unit in the last place of the first.
/// Each operation has a relative error of about 1e-31, also where terms cancel. Exceptions: a
/// product above 1e299 can be NaN, and one below 1e-270 is rounded as a double.
/// Method: T. J. Dekker, "A floating-point technique for extending the available precision", 1971.
class DoubleDouble {
public:
    DoubleDouble(double value = 0.0) : high_(value), low_(0.0) {}

    double value() const { return high_; } ///< rounded to the nearest double

    DoubleDouble operator-() const { return {-high_, -low_}; }

    friend DoubleDouble operator+(DoubleDouble const &a, DoubleDouble const &b) {
        DoubleDouble const high = sumOf(a.high_, b.high_), low = sumOf(a.low_, b.low_);
        DoubleDouble const sum = sumOf(high.high_, high.low_ + low.high_);
        return sumOf(sum.high_, sum.low_ + low.low_);
    }

    friend DoubleDouble operator-(DoubleDouble const &a, DoubleDouble const &b) { return a + -b; }

    friend DoubleDouble operator*(DoubleDouble const &a, DoubleDouble const &b) {
        DoubleDouble const product = productOf(a.high_, b.high_);
        return sumOf(product.high_, product.low_ + (a.high_ * b.low_ + a.low_ * b.high_));
    }

    friend DoubleDouble operator/(DoubleDouble const &a, DoubleDouble const &b) {
        double const quotient = a.high_ / b.high_;
        DoubleDouble const rest = a - b * quotient;
        return sumOf(quotient, rest.high_ / b.high_);
    }

private:
    DoubleDouble(double high, double low) : high_(high), low_(low) {}

    /// a + b, exactly.
    static DoubleDouble sumOf(double a, double b) {
        double const sum = a + b;
        double const ofB = sum - a;
        return {sum, (a - (sum - ofB)) + (b - ofB)};
    }

    /// a * b, exactly: the products of the halves of their digits are exact.
    static DoubleDouble productOf(double a, double b) {
        double const product = a * b;
        double const a1 = upperHalf(a), a2 = a - a1;
        double const b1 = upperHalf(b), b2 = b - b1;
        return {product, ((a1 * b1 - product) + a1 * b2 + a2 * b1) + a2 * b2};
    }

    /// The upper 26 of the 53 digits.
    static double upperHalf(double a) {
        constexpr double kSplit = 134217729.0; // 2^27 + 1
        double const shifted = kSplit * a;
        return shifted - (shifted - a);
    }

    double high_, low_;
};

/// A vector of three such numbers.
struct WideVector {
    DoubleDouble x, y, z;

    friend WideVector operator+(WideVector const &a, WideVector const &b) {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend WideVector operator-(WideVector const &a, WideVector const &b) {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend DoubleDouble dot(WideVector const &a, WideVector const &b) {
        return a.x * b.x + a.y * b.y + a.z * b.z;
    }
    /// The cross product, rounded to doubles at the end.
    friend mgVector_c cross(WideVector const &a, WideVector const &b) {
        return {(a.y * b.z - a.z * b.y).value(), (a.z * b.x - a.x * b.z).value(),
                (a.x * b.y - a.y * b.x).value()};
    }
};

inline WideVector wide(mgPoint_c const &p) { return {p.x(), p.y(), p.z()}; }

} // namespace vexmath::detail

#endif
