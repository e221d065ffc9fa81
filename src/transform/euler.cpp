// SPDX-License-Identifier: MIT
// Rotation angles about the coordinate axes: the older and the newer decomposition of a rotation.
//
// Both return angles of a rotation about z by g, then about y by b, then about x by a. It has
//     r00 =  cos g cos b
//     r10 = -sin g cos b
//     r20 =  sin b        r21 = -sin a cos b        r22 = cos a cos b

#include <vexmath/mg_transform.h>
#include <vexmath/xform.h>

#include <algorithm>
#include <cmath>

namespace {

/// The argument for asin or acos: an absolute value that is within 1e-10 of 1, or beyond 1, becomes
/// 1; NaN becomes 1.
double sineOrCosine(double q) {
    /// Distance from 1 below which an absolute value becomes 1; strict.
    constexpr double kNearOne = 1e-10;
    double const size = std::fabs(q);
    double const clipped = std::fabs(1.0 - size) >= kNearOne && size < 1.0 ? size : 1.0;
    return q < 0.0 ? -clipped : clipped;
}

/// Do two elements agree when both are rounded down to hundredths? False for NaN.
bool hundredthsAgree(double a, double b) {
    /// How far apart two whole numbers may be; strict.
    constexpr double kSameNumber = 1e-08;
    // QUIRK: xform.h, mgXform_c::getThreeAngles: elements are compared after rounding down to
    // hundredths, so 0 and -1e-17 differ, and 0.001 and 0.009 agree. Expected: a comparison within
    // a tolerance. Kept: callers and stored data depend on it. (test:
    // TheOlderAnglesMatchWholeHundredths)
    return std::fabs(std::floor(100.0 * a) - std::floor(100.0 * b)) < kSameNumber;
}

/// The other angle with the same sine.
double supplement(double a) {
    // QUIRK: xform.h, mgXform_c::getThreeAngles: an angle of 0 has no supplement, so rotations that
    // need it, such as those about z by a negative angle, are refused. Expected: half a turn.
    // Kept: callers and stored data depend on it. (test: TheOlderAnglesKeepAnAngleOfZero)
    if (a > 0.0) return vexmath::kPi - a;
    if (a < 0.0) return -vexmath::kPi - a;
    return a;
}

} // namespace

int mgXform_c::getThreeAngles(double &a1, double &a2, double &a3) const {
    double const bFirst = std::asin(rotation_(2, 0));
    double const bOther = (bFirst >= 0.0 ? vexmath::kPi : -vexmath::kPi) - bFirst;

    // At most four rounds: each of the three changes is made once.
    double a = 0.0, b = bFirst, g = 0.0;
    bool seekA = true, seekG = true;
    for (;;) {
        double const cosB = std::cos(b);
        if (seekA) a = std::asin(sineOrCosine(-(rotation_(2, 1) / cosB)));
        if (seekG) g = std::acos(sineOrCosine(rotation_(0, 0) / cosB));
        bool const gFits = hundredthsAgree(rotation_(1, 0), -std::sin(g) * cosB);
        bool const aFits = hundredthsAgree(rotation_(2, 2), cosB * std::cos(a));
        if (gFits && aFits) break;

        if (b == bFirst) {
            b = bOther;
        } else if (gFits && seekA) {
            a = supplement(a);
            seekA = false;
        } else if (aFits && seekG) {
            g = -g;
            seekG = false;
        } else {
            return 0;
        }
    }
    a1 = g;
    a2 = b;
    a3 = a;
    return 1;
}

namespace {

/// An angle of atan2 in a full turn from 0. A rounding error below 0 stays.
double withinTurn(double angle) {
    /// How far below 0 an angle stays, in radians; bound included.
    constexpr double kBelowZero = 1e-11;
    return angle < -kBelowZero ? angle + vexmath::kTwoPi : angle;
}

mgXform_c rotatedAboutAxes(double g, double b, double a) {
    mgPoint_c const origin;
    return (mg_RotateAtPoint(origin, g, mgUnitVector_c::zAxis(), 0.0)
            * mg_RotateAtPoint(origin, b, mgUnitVector_c::yAxis(), 0.0))
           * mg_RotateAtPoint(origin, a, mgUnitVector_c::xAxis(), 0.0);
}

/// Do two rotations agree in the elements that the angles about z and x are taken from? False for
/// NaN.
bool sameAngles(mgMatrix_c const &p, mgMatrix_c const &q) {
    /// How far an element may differ; bound included.
    constexpr double kElementTolerance = 1e-06;
    auto const agree = [&](int i, int j) {
        return std::fabs(p(i, j) - q(i, j)) <= kElementTolerance;
    };
    return agree(0, 0) && agree(1, 0) && agree(2, 1) && agree(2, 2);
}

} // namespace

int mgXform_c::getThreeAnglesNew(double &a1, double &a2, double &a3) const {
    // QUIRK: xform.h, mgXform_c::getThreeAnglesNew: elements (1, 0) and (2, 1) are minus the sines,
    // and the first trial takes them as they are, so angles with sines below the tolerance are
    // returned with the opposite sign. Expected: the angles themselves. Kept: callers and stored
    // data depend on it. (test: TheNewerAnglesOfSmallRotationsHaveTheOppositeSign)

    /// The quadrants to look in, as signs of sine and cosine for z and for x.
    struct Signs {
        double r10, r00, r21, r22;
    };
    constexpr Signs kTrials[] = {{1.0, 1.0, 1.0, 1.0},
                                 {-1.0, 1.0, -1.0, 1.0},
                                 {1.0, -1.0, 1.0, -1.0},
                                 {-1.0, -1.0, -1.0, -1.0}};
    // Rounding may leave the sine an ulp beyond 1, where asin has no value.
    double const b = std::asin(std::clamp(rotation_(2, 0), -1.0, 1.0));
    bool const isAngle = !std::isnan(b);
    for (Signs const &sign : kTrials) {
        double const g =
            withinTurn(std::atan2(sign.r10 * rotation_(1, 0), sign.r00 * rotation_(0, 0)));
        double const a =
            withinTurn(std::atan2(sign.r21 * rotation_(2, 1), sign.r22 * rotation_(2, 2)));
        a1 = g;
        a2 = b;
        a3 = a;
        if (isAngle && sameAngles(rotatedAboutAxes(g, b, a).rotation(), rotation_)) return 1;
    }
    return 0;
}
