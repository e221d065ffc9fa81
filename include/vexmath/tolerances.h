// SPDX-License-Identifier: MIT
// The angle constants and conversion factors that several subsystems share.
//
// Tolerances are not here: each is a named constant of the one operation that uses it, because
// operations use different ones on purpose. The library-wide length tolerance is the exception.

#ifndef VEXMATH_TOLERANCES_H
#define VEXMATH_TOLERANCES_H

namespace vexmath {

/// Length tolerance in model units, absolute, tested per component: a vector is null when every
/// component is strictly below it, two points are the same when every coordinate differs by
/// strictly less. Also stands in for an optional tolerance argument that is negative.
inline constexpr double kLengthTolerance = 1e-08;

/// Period of `mg_PutAngleInRange`: the double nearest to 2 pi.
inline constexpr double kTwoPiExact = 6.283185307179586;

/// 2 pi and pi as most of the library writes them, rounded to 13 decimals. Results that callers
/// store carry these digits, so the nearest doubles must not take their place.
inline constexpr double kTwoPi = 6.2831853071796;
inline constexpr double kPi = 3.1415926535898;

/// Quarter turns, rounded to 13 decimals like `kPi`.
inline constexpr double kHalfPi = 1.5707963267949;
inline constexpr double kThreeHalfPi = 4.7123889803847;

// QUIRK: two bounds that look like misprints of 2 pi and pi and are not. Each lies 1e-11 above its
// angle, so that an arc angle up to 1e-11 beyond a full (half) turn is kept as it is. Drawings rely
// on it for arcs that were closed by rounding. (test: AngleJustBeyondAFullTurnIsKept)
inline constexpr double kFullTurnBound = 6.2831853071896;
inline constexpr double kHalfTurnBound = 3.1415926535998002;

/// Degrees to radians as `mgVector_c::isParallelToTol` multiplies.
inline constexpr double kRadPerDeg = 0.017453292519943334;

/// 1/180. Elsewhere degrees become radians as `deg * kPi * kPerHalfTurnDeg`, in that order.
inline constexpr double kPerHalfTurnDeg = 0.005555555555555556;

/// Radians become degrees as `rad * kInvPi * kHalfTurnDeg`, in that order.
inline constexpr double kInvPi = 0.31830988618378997;
inline constexpr double kHalfTurnDeg = 180.0;

} // namespace vexmath

#endif
