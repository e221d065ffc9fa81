// SPDX-License-Identifier: MIT
// Parabolas and arcs of hyperbolas by vertex and focus, approximated by polylines.

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>

#include "polyline_output.h"

#include <algorithm>
#include <cmath>

double mg_getConicEccentricity(mgPoint_c const &focus, mgPoint_c const &vertex,
                               mgPoint_c const &start, mgPoint_c const &end) {
    // Every point is e times as far from the focus as from the directrix, which crosses the axis
    // f / e before the vertex. At height h along the axis from the vertex: r = e (h + f / e).
    double const focal = dist(focus, vertex);
    mgUnitVector_c const axis = mg_Normalise(focus - vertex);
    double const startHeight = (start - vertex) % axis;
    double const endHeight = (end - vertex) % axis;
    bool const endIsFarther = endHeight > startHeight;
    double const height = endIsFarther ? endHeight : startHeight;
    if (height == 0.0) return 1.0; // at the vertex's height, where rounding alone leaves an excess
    double const excess = dist(endIsFarther ? end : start, focus) - focal;
    return excess / height;
}

namespace {

/// A parabola or hyperbola over its parameter t, the distance across the axis in units of 2 f.
///
/// With q = (e + 1) / 4 the height above the vertex in units of f solves
/// t^2 = 2 q h + (e^2 - 1) h^2 / 4. Its root is written with the sum in the denominator, so that
/// e = 1 is no special case.
class OpenConic {
    /// Upper limit of the eccentricity. Its square does not overflow.
    static constexpr double kMostEccentric = 1e154;

public:
    explicit OpenConic(parabolaEdgeData const &p)
        : vertex_(p.vertex), axis_(mg_Normalise(p.focus - p.vertex)),
          across_(mg_Normalise(mgUnitVector_c(p.normal) * axis_)), focal_(dist(p.focus, p.vertex)),
          eccentricity_(std::clamp(mg_getConicEccentricity(p.focus, p.vertex, p.start, p.end), 1.0,
                                   kMostEccentric)) {}

    double parameterOf(mgPoint_c const &p) const {
        return ((p - vertex_) % across_) / (2.0 * focal_);
    }

    mgPoint_c at(double t) const {
        double const q = 0.25 * (eccentricity_ + 1.0);
        double const root = std::sqrt(t * t * (eccentricity_ * eccentricity_ - 1.0) * 0.25 + q * q);
        return vertex_ + across_ * (2.0 * focal_ * t) + axis_ * (focal_ * (t * t) / (root + q));
    }

private:
    mgPoint_c vertex_;
    mgUnitVector_c axis_;
    mgUnitVector_c across_;
    double focal_;
    double eccentricity_;
};

} // namespace

// QUIRK: mg_tessellation.h, mg_TessParabola: the tolerance is ignored, and the number of segments
// depends on the span of the parameter alone. Expected: fewer segments for a coarse tolerance.
// Kept: callers and stored data depend on it. (test: TheToleranceDoesNotChangeAParabola)
void mg_TessParabola(parabolaEdgeData const *parabola, double /*tol*/, mgPoint_c **outArray,
                     int &count, suDynamicArray<mgPoint_c> *list) {
    constexpr double kSegmentsPerUnit = 25.0;
    constexpr int kFewest = 10;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    OpenConic const curve(*parabola);
    double const start = curve.parameterOf(parabola->start);
    double const end = curve.parameterOf(parabola->end);
    if (start == end) return;

    double const segments = std::fabs(end - start) * kSegmentsPerUnit;
    int const n = segments < kFewest ? kFewest : vexmath::detail::wholeSegments(segments);
    // The parameter is a running sum, not start + i * step, which rounds differently.
    output.append(n, [curve, step = (end - start) / n, t = start](int) mutable {
        mgPoint_c const point = curve.at(t);
        t += step;
        return point;
    });
}
