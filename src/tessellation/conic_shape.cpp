// SPDX-License-Identifier: MIT
// The shape of conic arcs: eccentricity and fullness, points of a conic and of a parabolic arc.
//
// One derivation serves all functions of a control triangle. With the origin at the apex, median
// the vector to the middle of the chord, and chord half the vector from start to end, a point of
// the plane is s median + d chord. The rational quadratic over start, apex and end with the weights
// 1, rho / (1 - rho), 1 is the conic
//
//     (1 - rho)^2 (1 - s)^2 = rho^2 (s^2 - d^2)
//
// Its quadratic part is (1 - 2 rho) s^2 + rho^2 d^2: the sign of 1 - 2 rho tells the kind. In
// perpendicular coordinates, and times |median x chord|^2, this is a symmetric matrix with
//
//     trace       = (1 - 2 rho) |chord|^2 + rho^2 |median|^2
//     determinant = (1 - 2 rho) rho^2 |median x chord|^2
//     spread      = the difference of its eigenvalues = sqrt(trace^2 - 4 determinant)
//
// Completing the square in s leaves a constant with the sign of 1 - 2 rho. So the axis through the
// foci belongs to the smaller eigenvalue, (trace - spread) / 2, for ellipses and hyperbolas alike,
// and
//
//     e^2 = 1 - smaller / larger = 2 spread / (trace + spread)
//
// Methods: G. Farin, "Curves and Surfaces for CAGD", 2002 (conics as rational quadratics);
// L. Piegl, W. Tiller, "The NURBS Book", 1995 (fullness).

#include <vexmath/line.h>
#include <vexmath/mg_conic.h>
#include <vexmath/mg_vector.h>

#include "double_double.h"
#include "polyline_output.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>

namespace {

using vexmath::detail::DoubleDouble;
using vexmath::detail::wide;
using vexmath::detail::WideVector;

/// What functions give when there is no result.
constexpr double kNoEccentricity = -1.0;
constexpr double kNoX = -1.0;
constexpr double kNoRho = 0.0;

/// Length below which a distance counts as 0; strict.
constexpr double kNoLength = 1e-08;

/// Smallest absolute value that is refused. Below it no fourth power of a length overflows.
constexpr double kTooLarge = 1e70;

/// False for NaN.
bool isUsable(double value) { return std::fabs(value) < kTooLarge; }

bool areUsable(std::initializer_list<mgPoint_c> points) {
    return std::all_of(points.begin(), points.end(), [](mgPoint_c const &p) {
        return isUsable(p.x()) && isUsable(p.y()) && isUsable(p.z());
    });
}

double lengthOf(WideVector const &v) { return std::sqrt(dot(v, v).value()); }

/// The control triangle of an arc. Both vectors are twice those of the derivation, which makes no
/// difference to a ratio of lengths.
struct Triangle {
    WideVector median; ///< twice the vector from the apex to the middle of the chord
    WideVector chord;  ///< from start to end
    double area;       ///< |median x chord|, four times the area
};

/// The triangle, unless it is degenerate.
std::optional<Triangle> triangleOf(mgPoint_c const &start, mgPoint_c const &end,
                                   mgPoint_c const &apex) {
    if (!areUsable({start, end, apex})) return std::nullopt;
    WideVector const a = wide(start), b = wide(end), c = wide(apex);
    WideVector const median = a + b - (c + c), chord = b - a;
    double const area = cross(median, chord).len(), length = lengthOf(chord);
    double const height = 0.5 * area / length;
    if (length < kNoLength || height < kNoLength) return std::nullopt;
    return Triangle{median, chord, area};
}

/// The fraction of the way from the middle of the chord to the apex at which the shoulder's foot
/// lies, when that is between the two.
std::optional<DoubleDouble> fullnessOf(Triangle const &t, mgPoint_c const &start,
                                       mgPoint_c const &end, mgPoint_c const &shoulder) {
    if (!areUsable({shoulder})) return std::nullopt;
    WideVector const s = wide(shoulder);
    WideVector const rise = s + s - (wide(start) + wide(end));
    DoubleDouble const rho = -dot(rise, t.median) / dot(t.median, t.median);
    double const length = 0.5 * lengthOf(t.median);
    if (rho.value() * length < kNoLength) return std::nullopt;
    if ((1.0 - rho).value() * length < kNoLength || rho.value() == 1.0) return std::nullopt;
    return rho;
}

/// The formula of the derivation, for 0 < rho < 1. Each sum that cancels is formed in double
/// doubles: trace and 1 - 2 rho, and for ellipses
///
///     spread^2 = ((1 - 2 rho) |chord|^2 - rho^2 |median|^2)^2
///                + 4 (1 - 2 rho) rho^2 (median . chord)^2
///
/// For hyperbolas e^2 = 1 + slope^2, where slope = 2 sqrt(-determinant) / (trace + spread) is that
/// of an asymptote.
double eccentricityOf(Triangle const &t, DoubleDouble const &rho) {
    DoubleDouble const kind = 1.0 - 2.0 * rho;
    DoubleDouble const ofChord = kind * dot(t.chord, t.chord);
    DoubleDouble const ofMedian = rho * rho * dot(t.median, t.median);
    double const trace = (ofChord + ofMedian).value();
    double const factor = 2.0 * rho.value() * std::sqrt(std::fabs(kind.value()));
    if (kind.value() >= 0.0) {
        double const difference = (ofChord - ofMedian).value();
        double const skew = factor * dot(t.median, t.chord).value();
        // Rounding alone makes the spread larger than the trace.
        double const spread = std::min(std::sqrt(difference * difference + skew * skew), trace);
        return std::sqrt(2.0 * spread / (trace + spread));
    }
    double const root = factor * t.area;
    double const spread = std::sqrt(trace * trace + root * root);
    double const slope = trace >= 0.0 ? root / (trace + spread) : (spread - trace) / root;
    return std::sqrt(1.0 + slope * slope);
}

} // namespace

double mg_getPointEccentricity(mgPoint_c const &point, mgPoint_c const &focus,
                               mgLine_c const &directrix) {
    mgPoint_c const &root = directrix.rootPoint();
    mgPoint_c const direction = mgVector_c(directrix.direction());
    if (!areUsable({point, focus, root, direction})) return kNoEccentricity;
    double const toDirectrix = cross(wide(point) - wide(root), wide(direction)).len();
    if (toDirectrix < kNoLength) return kNoEccentricity;
    return dist(point, focus) / toDirectrix;
}

double mg_getSgConicEccentricity(mgPoint_c const &start, mgPoint_c const &end,
                                 mgPoint_c const &apex, mgPoint_c const &shoulder) {
    auto const triangle = triangleOf(start, end, apex);
    if (!triangle) return kNoEccentricity;
    auto const rho = fullnessOf(*triangle, start, end, shoulder);
    return rho ? eccentricityOf(*triangle, *rho) : kNoEccentricity;
}

double eccByRho(double rho, mgPoint_c const &start, mgPoint_c const &end, mgPoint_c const &apex) {
    auto const triangle = triangleOf(start, end, apex);
    if (!triangle || !(0.0 < rho && rho < 1.0)) return kNoEccentricity;
    return eccentricityOf(*triangle, rho);
}

double rhoConic(mgPoint_c const &start, mgPoint_c const &end, mgPoint_c const &apex,
                mgPoint_c const &shoulder) {
    auto const triangle = triangleOf(start, end, apex);
    if (!triangle) return kNoRho;
    auto const rho = fullnessOf(*triangle, start, end, shoulder);
    return rho ? rho->value() : kNoRho;
}

double rhoConic(double eccentricity, mgPoint_c const &start, mgPoint_c const &end,
                mgPoint_c const &apex) {
    auto const triangle = triangleOf(start, end, apex);
    if (!triangle || !(eccentricity >= 0.0) || !isUsable(eccentricity)) return kNoRho;
    // |end - apex|^2 - |start - apex|^2 = median . chord
    double const skew = std::fabs(dot(triangle->median, triangle->chord).value());
    if (skew >= kNoLength * (dist(start, apex) + dist(end, apex))) return kNoRho;

    // The larger eigenvalue is rho^2 |median|^2, the smaller one (1 - 2 rho) |chord|^2:
    // (1 - e^2) |median|^2 rho^2 + 2 |chord|^2 rho - |chord|^2 = 0. Its root is written with the
    // sum in the denominator, so that e = 1 is no special case.
    DoubleDouble const e = eccentricity, chordSq = dot(triangle->chord, triangle->chord);
    DoubleDouble const medianSq = dot(triangle->median, triangle->median);
    double const rootSq = (chordSq + (1.0 - e) * (1.0 + e) * medianSq).value();
    if (rootSq <= 0.0) return kNoRho;
    double const chord = std::sqrt(chordSq.value());
    double const rho = chord / (chord + std::sqrt(rootSq));
    return rho < 1.0 ? rho : kNoRho;
}

double xConic(double y, double focalLength, double eccentricity) {
    if (!isUsable(y) || !isUsable(focalLength) || !isUsable(eccentricity)) return kNoX;
    if (focalLength < kNoLength || eccentricity < 0.0) return kNoX;
    // A point is e times as far from the focus (f, 0) as from the directrix x = -f / e. Squared:
    // (e^2 - 1) x^2 + 2 f (1 + e) x - y^2 = 0. Its root near the vertex, with s = (1 + e) rootSq
    // for the discriminant / 4, is y^2 / (f (1 + e) + sqrt(s)).
    DoubleDouble const e = eccentricity, f = focalLength, across = y;
    double const rootSq = (f * f * (1.0 + e) - across * across * (1.0 - e)).value();
    if (rootSq < 0.0) return kNoX;
    double const sum = 1.0 + eccentricity;
    return y / (focalLength * sum + std::sqrt(sum * rootSq)) * y;
}

int parabolicPoints(mgPoint_c const &start, mgPoint_c const &end, mgPoint_c const &apex, int n,
                    suDynamicArray<mgPoint_c> &points) {
    if (n < 2 || n > vexmath::detail::kMostSegments + 1) return 0;
    int const last = n - 1;
    auto const triangle = triangleOf(start, end, apex);
    if (!triangle) return 0;

    // The derivative is twice (1 - t) a + t b, where a is the side from start to apex and b that
    // from apex to end. It makes the angle phi with a, and turn - phi with b, where
    // (1 - t) |a| sin(phi) = t |b| sin(turn - phi). Here |a x b| = area / 2.
    mgVector_c const toApex = apex - start, toEnd = end - start;
    double const a = toApex.len(), b = dist(apex, end);
    double const sine = 0.5 * triangle->area, cosine = toApex % (end - apex);
    double const turn = std::atan2(sine, cosine);
    double const supplement = std::atan2(sine, -cosine); // pi - turn
    // The sine of i steps. That of an obtuse angle is taken from its supplement, which has a small
    // relative error also near a half turn.
    auto const sineOf = [=](int i) {
        double const angle = turn * i / last;
        return std::sin(angle < 1.5 ? angle : supplement + turn * (last - i) / last);
    };
    int count = 0;
    vexmath::detail::PolylineOutput(nullptr, count, &points)
        .append(last, [=, first = start, final = end](int i) {
            if (i == 0 || i == last) return i == 0 ? first : final;
            double const ofEnd = a * sineOf(i), ofStart = b * sineOf(last - i);
            double const t = ofEnd / (ofEnd + ofStart), u = ofStart / (ofEnd + ofStart);
            return first + (2.0 * t * u) * toApex + (t * t) * toEnd;
        });
    return count > 0;
}
