// SPDX-License-Identifier: MIT
// The angle constants and conversion factors that several subsystems share.
//
// Each tolerance is a named constant of the one operation that uses it, because operations use
// different ones on purpose. Only the library-wide length tolerance is here.

#ifndef VEXMATH_TOLERANCES_H
#define VEXMATH_TOLERANCES_H

namespace vexmath {

/// Length tolerance in model units, absolute, tested per component. A vector is null when every
/// component is strictly below it in absolute value; two points are the same when every coordinate
/// differs by strictly less. It also replaces an optional tolerance argument that is negative.
inline constexpr double kLengthTolerance = 1e-08;

/// Period of `mg_PutAngleInRange`: the double nearest to 2 pi.
inline constexpr double kTwoPiExact = 6.283185307179586;

/// 2 pi and pi rounded to 13 decimals, as most of the library uses them. The nearest doubles must
/// not replace them: results would change in their last digits.
inline constexpr double kTwoPi = 6.2831853071796;
inline constexpr double kPi = 3.1415926535898;

/// Quarter turns, rounded to 13 decimals like `kPi`.
inline constexpr double kHalfPi = 1.5707963267949;
inline constexpr double kThreeHalfPi = 4.7123889803847;

// QUIRK: tolerances.h, kFullTurnBound,kHalfTurnBound: the bounds of an arc's angles lie 1e-11 above
// 2 pi and pi. Expected: 2 pi and pi. Kept: callers and stored data depend on it.
// (test: AngleJustBeyondAFullTurnIsKept)
/// A full turn is subtracted from an arc's angle only when the angle is strictly greater than the
/// first. The point at an angle strictly greater than the second is computed as the mirror image of
/// the point at a full turn minus the angle. They exceed a full and a half turn by 1e-11, on
/// purpose.
inline constexpr double kFullTurnBound = 6.2831853071896;
inline constexpr double kHalfTurnBound = 3.1415926535998002;

/// Radians per degree in `mgVector_c::isParallelToTol`.
inline constexpr double kRadPerDeg = 0.017453292519943334;

/// 1/180. Elsewhere degrees become radians by `deg * kPi * kPerHalfTurnDeg`, in that order.
inline constexpr double kPerHalfTurnDeg = 0.005555555555555556;

/// Radians become degrees by `rad * kInvPi * kHalfTurnDeg`, in that order.
inline constexpr double kInvPi = 0.31830988618378997;
inline constexpr double kHalfTurnDeg = 180.0;

} // namespace vexmath

#endif
