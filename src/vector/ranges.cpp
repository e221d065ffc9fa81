// SPDX-License-Identifier: MIT
// Periodic parameters brought into range.

#include <vexmath/mg_vector.h>

namespace {

/// Distance to the period within which a parameter counts as a whole period (or as 0).
constexpr double kSnap = 1e-11;
/// Periods strictly below this are not added: the additions may never end.
constexpr double kSmallestPeriod = 1e-14;
/// From strictly more than this many periods below zero, one remainder replaces the additions.
constexpr double kMostAdditions = 1e6;

/// The negative parameter raised to zero or above. By additions, whose rounding is part of the
/// result; by one remainder where they would take too long or change nothing.
double lifted(double param, double period) {
    if (-param / period > kMostAdditions) param = std::fmod(param, period) + 0.0; // never -0.0
    while (param < 0.0) param += period;
    return param;
}

double wrapped(double param, double period, bool snapToPeriod) {
    if (period >= kSmallestPeriod && param < 0.0) param = lifted(param, period);
    double const remainder = std::fmod(param, period);
    bool const fullTurns = snapToPeriod && remainder < kSnap && param > kSnap;
    return fullTurns ? period : remainder;
}

} // namespace

void mg_PutParamInRange(double *param, double period, double *endParam) {
    if (endParam == nullptr) {
        *param = wrapped(*param, period, true);
        return;
    }
    double span = *endParam - *param;
    if (span > period) span = period;
    double start = wrapped(*param, period, false);
    if (period - start <= kSnap) start = 0.0;
    *param = start;
    *endParam = start + span;
}

void mg_PutAngleInRange(double *angle, double *endAngle) {
    mg_PutParamInRange(angle, vexmath::kTwoPiExact, endAngle);
}
