// SPDX-License-Identifier: MIT
// Angles between vectors.

#include <vexmath/mg_vector.h>

using vexmath::kTwoPi;

double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b) {
    // Adding 0.0 changes a dot product of -0.0 to 0.0, so that a zero vector gives 0 and not pi.
    return std::atan2((a * b).len(), a % b + 0.0);
}

double mg_AngleBetween(mgVector_c const &a, mgVector_c const &b, mgVector_c const &ref) {
    double const angle = mg_AngleBetween(a, b);
    return (a * b) % ref < 0.0 ? kTwoPi - angle : angle;
}

// QUIRK: mg_vector.h, mg_AngleBetween2d: the dot product includes z. Expected: x and y alone. Kept:
// callers and stored data depend on it. (test: AReferenceMeasuresTheLongWayRound)
double mg_AngleBetween2d(mgVector_c const &a, mgVector_c const &b) {
    double const angle = std::atan2((a * b).z(), a % b + 0.0);
    return angle < 0.0 ? angle + kTwoPi : angle;
}

// QUIRK: mg_vector.h, mg_getAngleFromVectors: the angle in space is never negative, and the double
// is ignored. Expected: a sign, and a use for the argument. Kept: callers and stored data depend on
// it. (test: FromVectorsIsSignedInThePlaneAlone)
double mg_getAngleFromVectors(mgVector_c const &a, mgVector_c const &b, double /*unused*/,
                              int force3d) {
    if (a.isNull() || b.isNull()) return 0.0;
    bool const planar = std::fabs(a.z()) <= vexmath::kLengthTolerance
                        && std::fabs(b.z()) <= vexmath::kLengthTolerance;
    if (!force3d && planar) {
        return std::atan2(a.x() * b.y() - a.y() * b.x(), a.x() * b.x() + a.y() * b.y());
    }
    return std::atan2((a * b).len(), a % b);
}

mgVector_c mgUnitVectorDer(mgVector_c const &v, mgVector_c const &dv) {
    double const length = v.len();
    if (length < vexmath::kLengthTolerance) return {};
    return dv / length - ((v % dv) / (length * length * length)) * v;
}
