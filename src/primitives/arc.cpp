// SPDX-License-Identifier: MIT
// Circular arcs: construction from points, and the points and angles of the ends.

#include <vexmath/arc.h>
#include <vexmath/mg_vector.h>

#include <cmath>

using vexmath::kFullTurnBound;
using vexmath::kTwoPi;

namespace {

/// Smallest radius, or distance from the centre, at which angles are defined; bound included.
constexpr double kShortestRadius = 1e-08;
/// Angles that differ by less than this, in radians, are the same; strict but in the Ogl sweep.
constexpr double kSameAngle = 1e-11;

double degrees(double angle) { return angle * vexmath::kInvPi * vexmath::kHalfTurnDeg; }

/// Subtracts full turns while the angle exceeds the bound. One by one, because a single product
/// would change last bits; but an angle of very many turns first loses them by a remainder, which
/// is NaN for infinity.
double reduced(double angle, double bound) {
    /// Absolute angle in radians up to which no remainder is taken; bound included.
    constexpr double kFewTurns = 1e6;
    double rest = std::fabs(angle) > kFewTurns ? std::fmod(angle, kTwoPi) : angle;
    while (rest > bound) rest -= kTwoPi;
    return rest;
}

/// The point of the unit circle at an angle from +x. Beyond half a turn it is computed as the
/// mirror image of the point at a full turn minus the angle.
mgVector_c onUnitCircle(double angle) {
    double const a = reduced(angle, kFullTurnBound);
    if (!(a > vexmath::kHalfTurnBound)) return {std::cos(a), std::sin(a), 0.0};
    double const rest = kTwoPi - a;
    return {std::cos(rest), -std::sin(rest), 0.0};
}

} // namespace

mgArc_c::mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre, double radius, double start,
                 double end)
    : centre_(centre), radius_(radius), startAngle_(start), endAngle_(end), normal_(normal) {}

mgArc_c::mgArc_c(mgUnitVector_c const &normal, mgPoint_c const &centre, mgPoint_c const &start,
                 mgPoint_c const &end)
    : centre_(centre), start_(start), end_(end), normal_(normal) {
    normal_.normalise();
    radius_ = (start - centre).len();
    if (!(radius_ >= kShortestRadius)) return;

    endAngle_ = iGetAngle(end);
    // QUIRK: arc.h, mgArc_c::mgArc_c: a full circle from points ends at 6.283185307179586, the
    // double nearest to 2 pi. Expected: 6.2831853071796, the full turn of all other angles. Kept:
    // callers and stored data depend on it. (test: FromPointsSweepsCounterClockwiseAboutTheNormal)
    if (endAngle_ < kSameAngle) endAngle_ = vexmath::kTwoPiExact;
}

int mgArc_c::isValid() const {
    return radius_ >= kShortestRadius && std::fabs(startAngle_ - endAngle_) >= kSameAngle;
}

// QUIRK: arc.h, mgArc_c::getStartPoint, mgArc_c::getEndPoint: the point lies in the plane of
// constant z through the centre, whatever the normal is. Expected: in the arc's own plane. Kept:
// callers and stored data depend on it. (test: EndsAreComputedInThePlaneOfTheCentresZ)
mgPoint_c mgArc_c::pointAt(double angle) const { return centre_ + radius_ * onUnitCircle(angle); }

void mgArc_c::getStartPoint(mgPoint_c &out) const { out = pointAt(startAngle_); }

void mgArc_c::getEndPoint(mgPoint_c &out) const { out = pointAt(endAngle_); }

// QUIRK: arc.h, mgArc_c::getStartAngleInDegrees, mgArc_c::getEndAngleInDegrees: an angle above a
// full turn is reduced, where the end points keep one of up to 1e-11 more. Expected: one bound.
// Kept: callers and stored data depend on it. (test: AngleJustBeyondAFullTurnIsKept)

double mgArc_c::getStartAngleInDegrees() const { return degrees(reduced(startAngle_, kTwoPi)); }

double mgArc_c::getEndAngleInDegrees() const { return degrees(reduced(endAngle_, kTwoPi)); }

double mgArc_c::iGetAngle(mgPoint_c const &p) const {
    mgVector_c const v = p - centre_;
    if (!(v.len() >= kShortestRadius)) return 0.0;
    return mg_AngleBetween(start_ - centre_, v, normal_);
}

double mgArc_c::convertToOglAngle(double angle) {
    double fromY = reduced(angle, kTwoPi) - vexmath::kHalfPi;
    while (fromY < 0.0) fromY += kTwoPi;
    // QUIRK: arc.h, mgArc_c::convertToOglAngle, mgArc_c::getOglStartAngle: +y becomes a full turn.
    // Expected: 0. Kept: callers and stored data depend on it. (test: TheAngleOfUpIsAFullTurn)
    return kTwoPi - fromY;
}

double mgArc_c::getOglStartAngle() const {
    double const sweep = std::fabs(endAngle_ - startAngle_);
    bool const isPart = sweep >= kSameAngle && std::fabs(kTwoPi - sweep) >= kSameAngle;
    return isPart ? degrees(convertToOglAngle(endAngle_)) : 0.0;
}

double mgArc_c::getOglSweepAngle() const {
    constexpr double kFullTurnDeg = 360.0;
    double const sweep = endAngle_ - startAngle_;
    return std::fabs(sweep) > kSameAngle ? degrees(sweep) : kFullTurnDeg; // NaN too
}
