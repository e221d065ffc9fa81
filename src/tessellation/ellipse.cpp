// SPDX-License-Identifier: MIT
// Arcs of ellipses, approximated by polylines.

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>

#include "polyline_output.h"

#include <cmath>

namespace {

/// An ellipse as the image of a circle.
class Ellipse {
public:
    explicit Ellipse(ellipseEdgeData const &e)
        : centre_(e.center), major_(e.majorDir), minor_(e.minorDir), a_(e.majorRadius),
          b_(e.minorRadius) {}

    /// The angle on the circle of the point whose image lies on the ray from the centre through p.
    double angleOf(mgPoint_c const &p) const {
        mgVector_c const v = p - centre_;
        return std::atan2((v % minor_) / b_, (v % major_) / a_);
    }

    mgPoint_c at(double angle) const {
        return centre_ + major_ * (a_ * std::cos(angle)) + minor_ * (b_ * std::sin(angle));
    }

private:
    mgPoint_c centre_;
    mgVector_c major_;
    mgVector_c minor_;
    double a_;
    double b_;
};

/// The angle at which a circle of the major radius is tol off its tangent, limited to the range
/// from 1.5 to 10 degrees.
double stepOf(double tol, double radius) {
    constexpr double kCoarsestRad = 0.17453292519943334; // 10 degrees
    constexpr double kFinestRad = 0.026179938779915;     // 1.5 degrees
    double const ratio = tol / radius;
    if (!(1.0 - std::cos(kCoarsestRad) > ratio)) return kCoarsestRad;
    return 1.0 - std::cos(kFinestRad) < ratio ? std::acos(1.0 - ratio) : kFinestRad;
}

} // namespace

// QUIRK: mg_tessellation.h, mg_TessEllipse: the arguments start and end are ignored, and the ends
// of the record are used. Expected: the arguments are the ends. Kept: callers and stored data
// depend on it. (test: TheEndsOfTheRecordCountAndThoseOfTheCallDoNot)
void mg_TessEllipse(ellipseEdgeData const *ellipse, mgPoint_c const * /*start*/,
                    mgPoint_c const * /*end*/, double tol, mgPoint_c **outArray, int &count,
                    suDynamicArray<mgPoint_c> *list) {
    /// Sweep below which start and end are the same point; strict.
    constexpr double kNoSweepRad = 1e-11;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    if (ellipse->majorRadius < tol || ellipse->minorRadius < tol) return;

    Ellipse const curve(*ellipse);
    double const start = curve.angleOf(ellipse->start);
    double end = curve.angleOf(ellipse->end);
    if (end <= start) end += vexmath::kTwoPi;
    double sweep = end - start;
    if (std::fabs(sweep) < kNoSweepRad) sweep = vexmath::kTwoPi;

    int const n = vexmath::detail::segmentsOfSweep(sweep, stepOf(tol, ellipse->majorRadius));
    // The angle is a running sum, not start + i * step, which rounds differently.
    output.append(n, [curve, step = sweep / n, angle = start](int) mutable {
        mgPoint_c const point = curve.at(angle);
        angle += step;
        return point;
    });
}
