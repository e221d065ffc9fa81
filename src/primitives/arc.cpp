// SPDX-License-Identifier: MIT
// Circular arcs: construction from points, and the points and angles of the ends.

#include <vexmath/arc.h>
#include <vexmath/mg_vector.h>

#include <limits>

using vexmath::kFullTurnBound;
using vexmath::kTwoPi;

namespace {

/// Shortest radius, or distance from the centre, that has an angle; bound included.
constexpr double kShortestRadius = 1e-08;
/// Difference of angles in radians below which they are the same; strict but where said.
constexpr double kSameAngle = 1e-11;

double degrees(double angle) { return angle * vexmath::kInvPi * vexmath::kHalfTurnDeg; }

/// An angle with full turns taken off while it is beyond the bound: one by one, because callers
/// compare the differences, but for angles that have too many.
double broughtDown(double angle, double bound) {
    /// Size in radians up to which turns are taken off one by one; bound included.
    constexpr double kFewTurns = 1e6;
    if (!std::isfinite(angle)) return std::numeric_limits<double>::quiet_NaN();
    double reduced = std::fabs(angle) > kFewTurns ? std::fmod(angle, kTwoPi) : angle;
    while (reduced > bound) reduced -= kTwoPi;
    return reduced;
}

/// The point of the unit circle at an angle from +x. Beyond half a turn it is the mirror image of
/// the point at the rest of the turn.
mgVector_c onUnitCircle(double angle) {
    double const a = broughtDown(angle, kFullTurnBound);
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
    // QUIRK: the double nearest to 2 pi, where a reader would expect the rounded turn of all other
    // angles. Stored circles hold it. (test: FromPointsSweepsCounterClockwiseAboutTheNormal)
    if (std::fabs(endAngle_) < kSameAngle) endAngle_ = vexmath::kTwoPiExact;
    // In order and within a turn; the turn itself, to which an angle may be rounded, stays.
    startAngle_ = broughtDown(startAngle_, kFullTurnBound);
    endAngle_ = broughtDown(endAngle_, kFullTurnBound);
    if (startAngle_ > endAngle_) endAngle_ += kTwoPi;
}

int mgArc_c::isValid() const {
    return radius_ >= kShortestRadius && std::fabs(startAngle_ - endAngle_) >= kSameAngle;
}

// QUIRK: in the plane z = centre.z whatever the normal, where a reader would expect the arc's own
// plane. Who draws the arc turns it by its matrix. (test: EndsAreComputedInThePlaneOfTheCentresZ)
mgPoint_c mgArc_c::pointAt(double angle) const { return centre_ + radius_ * onUnitCircle(angle); }

void mgArc_c::getStartPoint(mgPoint_c &out) const { out = pointAt(startAngle_); }

void mgArc_c::getEndPoint(mgPoint_c &out) const { out = pointAt(endAngle_); }

// QUIRK: in degrees the turn itself is the bound, where the points allow 1e-11 beyond it; a reader
// would expect one bound. Dimension texts rely on never showing more than 360.
// (test: AngleJustBeyondAFullTurnIsKept)

double mgArc_c::getStartAngleInDegrees() const { return degrees(broughtDown(startAngle_, kTwoPi)); }

double mgArc_c::getEndAngleInDegrees() const { return degrees(broughtDown(endAngle_, kTwoPi)); }

double mgArc_c::iGetAngle(mgPoint_c const &p) const {
    mgVector_c const v = p - centre_;
    if (!(v.len() >= kShortestRadius)) return 0.0;
    return mg_AngleBetween(start_ - centre_, v, normal_);
}

double mgArc_c::convertToOglAngle(double angle) {
    double fromY = broughtDown(angle, kTwoPi) - vexmath::kHalfPi;
    while (fromY < 0.0) fromY += kTwoPi;
    // QUIRK: +y itself becomes a full turn, where a reader would expect 0. The drawing call takes a
    // start of 360 degrees, and recorded pictures hold it. (test: TheAngleOfUpIsAFullTurn)
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
