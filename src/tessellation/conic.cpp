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
#include <initializer_list>
#include <limits>
#include <new>
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

/// A parameter from 0 at the start to 1 at the end, with its complement: each has all its digits
/// near the end of the curve where it is small.
struct Parameter {
    double t, u; ///< u = 1 - t

    bool operator!=(Parameter const &p) const { return t != p.t || u != p.u; }
};

/// A point of the curve.
struct Sample {
    Parameter parameter;
    mgPoint_c point;
    mgVector_c tangent; ///< of any length
    double resolution;  ///< distance up to which rounding alone may have moved the point
};

double largestCoordinate(mgPoint_c const &p) {
    return std::max({std::fabs(p.x()), std::fabs(p.y()), std::fabs(p.z())});
}

/// The rational quadratic over start, vertex and end with weights 1, m, 1.
class BlendedConic {
public:
    BlendedConic(parabolaEdgeData const &c, double flatness)
        : start_(c.start), vertex_(c.vertex), end_(c.end), startSize_(largestCoordinate(start_)),
          vertexSize_(largestCoordinate(vertex_)), endSize_(largestCoordinate(end_)),
          weight_((1.0 - flatness) / flatness) {
        // A power of two changes no digit, and so no angle.
        int const size = std::ilogb(std::max({startSize_, vertexSize_, endSize_}));
        tangentScale_ = std::scalbn(1.0, -size - std::max(std::ilogb(weight_), 0));
    }

    Sample at(Parameter const &p) const {
        constexpr double kResolution = 4.0 * std::numeric_limits<double>::epsilon();
        double const atStart = p.u * p.u;
        double const atVertex = 2.0 * weight_ * p.t * p.u;
        double const atEnd = p.t * p.t;
        double const sum = atStart + atVertex + atEnd;
        mgVector_c const weighted = atStart * mgVector_c(start_) + atVertex * mgVector_c(vertex_)
                                    + atEnd * mgVector_c(end_);
        double const size = atStart * startSize_ + atVertex * vertexSize_ + atEnd * endSize_;
        // The derivative, times sum squared / 2: differences of the three points alone, exact at
        // both ends, where the quotient rule cancels. Scaled to about 1, so that the products with
        // a chord, from which angles are taken, do not overflow.
        double const scaledWeight = weight_ * tangentScale_;
        mgVector_c const tangent = scaledWeight * atStart * (vertex_ - start_)
                                   + tangentScale_ * (p.t * p.u) * (end_ - start_)
                                   + scaledWeight * atEnd * (end_ - vertex_);
        return {p, weighted / sum, tangent, kResolution * (size / sum)};
    }

private:
    mgPoint_c start_, vertex_, end_;
    double startSize_, vertexSize_, endSize_; ///< largest coordinates
    double weight_;
    double tangentScale_; ///< a power of two
};

/// Is the chord off a tangent at one of its ends by the limit or more? False for NaN.
bool isOff(mgVector_c const &chord, Sample const &a, Sample const &b, mgVector_c const &normal) {
    constexpr double kLimitRad = 0.004;
    auto const folded = [](double angle) { return std::min(angle, vexmath::kTwoPi - angle); };
    return folded(mg_AngleBetween(chord, a.tangent, normal)) >= kLimitRad
           || folded(mg_AngleBetween(b.tangent, chord, normal)) >= kLimitRad;
}

/// Appends the points of the curve, halving the parameter's interval wherever the chord is off and
/// longer than the resolution at its ends: without the latter, a curve that is tiny for its
/// distance from the origin would take every parameter there is. False when there are too many
/// points.
bool refine(BlendedConic const &curve, mgVector_c const &normal,
            suDynamicArray<mgPoint_c> &points) {
    Sample left = curve.at({0.0, 1.0});
    // Computed and not yet reached; the nearest is last.
    std::vector<Sample> ahead{curve.at({1.0, 0.0})};
    points.Add(left.point);
    while (!ahead.empty()) {
        Sample const right = ahead.back();
        mgVector_c const chord = right.point - left.point;
        Parameter const a = left.parameter, b = right.parameter;
        Parameter const middle{0.5 * (a.t + b.t), 0.5 * (a.u + b.u)};
        bool const canHalve = middle != a && middle != b;
        if (canHalve && chord.len() > std::max(left.resolution, right.resolution)
            && isOff(chord, left, right, normal)) {
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
    /// Coordinates from here on are refused. Below it neither squares of lengths overflow nor
    /// weighted points: the weight is at most the distance to the chord over 3e-09.
    constexpr double kTooLarge = 1e100;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    for (mgPoint_c const &p : {conic->vertex, conic->focus, conic->start, conic->end})
        if (largestCoordinate(p) >= kTooLarge) return;
    std::optional<double> const flatness = flatnessOf(*conic);
    if (!flatness) return;

    mgVector_c normal = mgUnitVector_c(conic->normal);
    mgVector_c const turn = (conic->start - conic->vertex) * (conic->end - conic->vertex);
    if (turn % normal < 0.0) normal.flip();

    // QUIRK: a list loses what it held, while the other tessellators append; a caller would expect
    // one or the other. Edges are collected in a list of their own each. (test: AListIsReplaced)
    suDynamicArray<mgPoint_c> points;
    try {
        if (refine(BlendedConic(*conic, *flatness), normal, points)) output.assign(points);
    } catch (std::bad_alloc const &) { // no memory for the points ahead: count stays 0
    }
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
