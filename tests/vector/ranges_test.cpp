// SPDX-License-Identifier: MIT
// Periodic ranges: snaps at both ends, bits of sums, and values that could loop forever.

#include "common/geometry.h"

namespace {

constexpr double kTurn = 6.283185307179586;
constexpr double kUlp = 0x1p-52; // spacing of the doubles in [1, 2)

void CheckParam(double param, double period, double expected, Caller = {}) {
    double const given = param;
    mg_PutParamInRange(&param, period, nullptr);
    EXPECT_BITS_EQ(expected, param) << given << " in a period of " << period;
}

void CheckInterval(double start, double end, double period, double newStart, double newEnd,
                   Caller = {}) {
    mg_PutParamInRange(&start, period, &end);
    EXPECT_BITS_EQ(newStart, start);
    EXPECT_BITS_EQ(newEnd, end);
}

TEST(Ranges, APositiveFullTurnStaysAFullTurn) {
    CheckParam(2.0 * kTurn, kTurn, kTurn);
    CheckParam(-4e6, 2.0, 0.0); // in one step, and not -0.0
    CheckParam(-1e-20, kTurn, kTurn);
    CheckParam(5e-12, kTurn, 5e-12); // a value near 0 is not near a full turn
    CheckParam(1e-11, 1e-11, 0.0);   // nor is this one, in any period
    CheckParam(2.2e-11, 2.2e-11 - 1e-11, 1e-11);
    CheckParam(1.0 + 45035 * kUlp, 1.0, 1.0); // 1e-11 lies between these two
    CheckParam(1.0 + 45036 * kUlp, 1.0, 45036 * kUlp);
}

TEST(Ranges, AnIntervalKeepsItsLengthUpToOnePeriod) {
    CheckInterval(-1.0, 10.0, kTurn, -1.0 + kTurn, (-1.0 + kTurn) + kTurn);
    CheckInterval(1.0, -30.0, kTurn, 1.0, -30.0); // a negative length is not clipped
    CheckInterval(1.0 - 90071 * kUlp / 2, 1.0, 1.0, 0.0, 90071 * kUlp / 2); // within 1e-11
    CheckInterval(1.0 - 90072 * kUlp / 2, 1.0, 1.0, 1.0 - 90072 * kUlp / 2, 1.0);
    CheckInterval(1e-11, 1e-11, 2e-11, 0.0, 0.0);
    CheckInterval(1.0 + 0x1p-40, 2.0, 1.0, 0x1p-40, 1.0); // just behind a full turn
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
        CheckParam(param, 0.7, plain(param, 0.7));
    }
    CheckParam(-99999.9, 0.1, plain(-99999.9, 0.1)); // just under a million of them
    CheckParam(-1e18, 3.0, 2.0);                     // beyond, by one exact remainder
    CheckParam(-2.5e-14, 1e-14, -2.5e-14 + 1e-14 + 1e-14 + 1e-14);
    CheckParam(-2.5e-14, below(1e-14), std::fmod(-2.5e-14, below(1e-14)));
    CheckParam(2.5, kInfinity, 2.5), CheckParam(-2.5, kInfinity, kNaN), CheckParam(2.5, 0.0, kNaN);
}

TEST(Ranges, HostileValuesEndAndFiniteOnesLandInRange) {
    for (double const start : hostileValues) {
        for (double const period : hostileValues) {
            double param = start, from = start, to = 1.0;
            mg_PutParamInRange(&param, period, nullptr);
            mg_PutParamInRange(&from, period, &to);
            if (!std::isfinite(start + period) || period < 1e-14) continue;
            EXPECT_TRUE(0.0 <= param && param <= period) << param << " of " << start;
            EXPECT_TRUE(0.0 <= from && from < period) << from << " of " << start;
        }
    }
}

} // namespace
