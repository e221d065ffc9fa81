// SPDX-License-Identifier: MIT
// Conic arcs by their end tangents to polylines, and the choice between the two readings of a
// record.

#include <vexmath/edge_data.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>

#include "polyline_output.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace {

/// How far the focus lies on the way from the vertex to the chord, between 0 and 1; nothing when
/// the three do not follow each other on one line.
std::optional<double> flatnessOf(parabolaEdgeData const &conic) {
    /// How near the line must pass the chord.
    constexpr double kMeets = 1e-08;
    mgLine_c const axis(conic.vertex, mg_Normalise(conic.focus - conic.vertex));
    mgPoint_c crossing;
    if (mg_LineIntLineSeg(axis, conic.start, conic.end, &crossing, kMeets) != mgIntersect_Point)
        return std::nullopt;
    double const toFocus = dist(conic.focus, conic.vertex);
    double const toChord = dist(crossing, conic.vertex);
    if (!(toFocus < toChord && dist(crossing, conic.focus) < toChord)) return std::nullopt;
    return toFocus / toChord;
}

/// A point of the curve with its direction.
struct Sample {
    double parameter;
    mgPoint_c point;
    mgVector_c tangent;
};

/// The rational quadratic over start, vertex and end with weights 1, m, 1.
class BlendedConic {
public:
    BlendedConic(parabolaEdgeData const &c, double flatness)
        : start_(c.start), vertex_(c.vertex), end_(c.end), weight_((1.0 - flatness) / flatness) {}

    Sample at(double t) const {
        double const u = 1.0 - t;
        double const atStart = u * u;
        double const atVertex = 2.0 * weight_ * t * u;
        double const atEnd = t * t;
        double const sum = atStart + atVertex + atEnd;
        mgVector_c const weighted = atStart * mgVector_c(start_) + atVertex * mgVector_c(vertex_)
                                    + atEnd * mgVector_c(end_);
        // The derivative, times sum squared / 2: differences of the three points alone, exact at
        // both ends, where the quotient rule cancels.
        mgVector_c const tangent = weight_ * atStart * (vertex_ - start_) + t * u * (end_ - start_)
                                   + weight_ * atEnd * (end_ - vertex_);
        return {t, weighted / sum, tangent};
    }

    /// Distance below which rounding alone decides how points of the curve lie to each other.
    double resolution() const {
        constexpr double kRoundings = 4.0;
        double largest = 0.0;
        for (mgPoint_c const &p : {start_, vertex_, end_})
            for (int k = 0; k < 3; ++k) largest = std::max(largest, std::fabs(p[k]));
        return kRoundings * std::numeric_limits<double>::epsilon() * largest;
    }

private:
    mgPoint_c start_;
    mgPoint_c vertex_;
    mgPoint_c end_;
    double weight_;
};

/// Is the chord off a tangent at one of its ends by the limit or more? False for NaN.
bool isOff(mgVector_c const &chord, Sample const &a, Sample const &b, mgVector_c const &normal) {
    constexpr double kLimitRad = 0.004;
    auto const folded = [](double angle) { return std::min(angle, vexmath::kTwoPi - angle); };
    return folded(mg_AngleBetween(chord, a.tangent, normal)) >= kLimitRad
           || folded(mg_AngleBetween(b.tangent, chord, normal)) >= kLimitRad;
}

/// Appends the points of the curve, halving the way of the parameter wherever the chord is off. It
/// ends where parameter or points come to their resolution: without the latter, a curve that is
/// tiny for its distance from the origin would take every parameter there is. False when there are
/// too many points.
bool refine(BlendedConic const &curve, mgVector_c const &normal,
            suDynamicArray<mgPoint_c> &points) {
    double const shortest = curve.resolution();
    Sample left = curve.at(0.0);
    std::vector<Sample> ahead{curve.at(1.0)}; // found, and not yet reached; the nearest is last
    points.Add(left.point);
    while (!ahead.empty()) {
        Sample const right = ahead.back();
        mgVector_c const chord = right.point - left.point;
        double const middle = 0.5 * (left.parameter + right.parameter);
        bool const canHalve = middle != left.parameter && middle != right.parameter;
        if (canHalve && chord.len() > shortest && isOff(chord, left, right, normal)) {
            ahead.push_back(curve.at(middle));
            continue;
        }
        if (points.Count() > vexmath::detail::kMostSegments || points.Add(right.point) < 0)
            return false;
        left = right;
        ahead.pop_back();
    }
    return true;
}

} // namespace

void mg_TessBConic(parabolaEdgeData const *conic, double /*tol*/, mgPoint_c **outArray, int &count,
                   suDynamicArray<mgPoint_c> *list) {
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    std::optional<double> const flatness = flatnessOf(*conic);
    if (!flatness) return;

    mgVector_c normal = mgUnitVector_c(conic->normal);
    mgVector_c const turn = (conic->start - conic->vertex) * (conic->end - conic->vertex);
    if (turn % normal < 0.0) normal.flip();

    // QUIRK: a list loses what it held, while the other tessellators append; a caller would expect
    // one or the other. Edges are collected in a list of their own each. (test: AListIsReplaced)
    suDynamicArray<mgPoint_c> points;
    if (refine(BlendedConic(*conic, *flatness), normal, points)) output.assign(points);
}

// QUIRK: a record by vertex and focus is taken for one by end tangents when its chord crosses the
// axis beyond the focus, so that a parabola around its focus comes out flatter; a caller would
// expect the kind to be told. Readers of stored drawings write parabolas that end before the focus.
// (test: AParabolaAroundItsFocusIsTakenForABlend)
void mg_TessParabolaOrBConic(parabolaEdgeData const *curve, double tol, mgPoint_c **outArray,
                             int &count, suDynamicArray<mgPoint_c> *list) {
    auto const tessellate = flatnessOf(*curve) ? mg_TessBConic : mg_TessParabola;
    tessellate(curve, tol, outArray, count, list);
}
