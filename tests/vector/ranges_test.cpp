// SPDX-License-Identifier: MIT
// Periodic ranges: the snaps at both ends, the bits of the sums, and values that could loop
// forever.

#include <vexmath/mg_vector.h>

#include "common/geometry.h"

namespace {

using namespace support;

constexpr double kTurn = 6.283185307179586;
constexpr double kUlp = 0x1p-52; // spacing of the doubles in [1, 2)

void checkParam(double param, double period, double expected) {
    double const given = param;
    mg_PutParamInRange(&param, period, nullptr);
    EXPECT_BITS_EQ(expected, param) << given << " in a period of " << period;
}

void checkInterval(double start, double end, double period, double newStart, double newEnd) {
    mg_PutParamInRange(&start, period, &end);
    EXPECT_BITS_EQ(newStart, start);
    EXPECT_BITS_EQ(newEnd, end);
}

TEST(Ranges, APositiveFullTurnStaysAFullTurn) {
    checkParam(2.0 * kTurn, kTurn, kTurn);
    checkParam(-4e6, 2.0, 0.0); // in one step, and not -0.0
    checkParam(-1e-20, kTurn, kTurn);
    checkParam(5e-12, kTurn, 5e-12);          // a value near 0 is not near a full turn
    checkParam(1.0 + 45035 * kUlp, 1.0, 1.0); // 1e-11 lies between these two
    checkParam(1.0 + 45036 * kUlp, 1.0, 45036 * kUlp);
}

TEST(Ranges, AnIntervalKeepsItsLengthUpToOnePeriod) {
    checkInterval(-1.0, 10.0, kTurn, -1.0 + kTurn, (-1.0 + kTurn) + kTurn);
    checkInterval(1.0, -30.0, kTurn, 1.0, -30.0); // a negative length is not clipped
    checkInterval(1.0 - 90071 * kUlp / 2, 1.0, 1.0, 0.0, 90071 * kUlp / 2); // within 1e-11
    checkInterval(1.0 - 90072 * kUlp / 2, 1.0, 1.0, 1.0 - 90072 * kUlp / 2, 1.0);
    double angle = -0.5, end = 0.5;
    mg_PutAngleInRange(&angle, &end);
    EXPECT_BITS_EQ((kTurn - 0.5) + 1.0, end);
}

TEST(Ranges, OrdinaryValuesHaveTheBitsOfPlainAdditions) {
    auto const plain = [](double param, double period) {
        while (param < 0.0) param += period;
        double const rest = std::fmod(param, period);
        return rest < 1e-11 && param > 1e-11 ? period : rest;
    };
    Random random;
    for (int i = 0; i < 2000; ++i) {
        double const param = 1000.0 * random.uniform(-1.0, 1.0);
        checkParam(param, 0.7, plain(param, 0.7));
    }
    checkParam(-99999.9, 0.1, plain(-99999.9, 0.1)); // just under a million of them
    checkParam(-1e18, 3.0, 2.0);                     // beyond, by one exact remainder
    checkParam(-2.5e-14, 1e-14, -2.5e-14 + 1e-14 + 1e-14 + 1e-14);
    checkParam(-2.5e-14, below(1e-14), std::fmod(-2.5e-14, below(1e-14)));
    checkParam(2.5, kInfinity, 2.5);
    checkParam(-2.5, kInfinity, kNaN);
    checkParam(2.5, 0.0, kNaN);
}

TEST(Ranges, HostileValuesEndAndFiniteOnesLandInRange) {
    for (double const start : hostileValues) {
        for (double const period : hostileValues) {
            double param = start, from = start, to = 1.0;
            mg_PutParamInRange(&param, period, nullptr);
            mg_PutParamInRange(&from, period, &to);
            bool const inRange = param >= 0.0 && param <= period && from >= 0.0 && from < period;
            EXPECT_TRUE(inRange || !std::isfinite(start + period) || period < 1e-14) << start;
        }
    }
}

} // namespace
