// SPDX-License-Identifier: MIT
// Conic arcs by their end tangents, approximated by polylines, and the choice between the two
// readings of a record.

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

/// The distance from vertex to focus as a fraction of that from vertex to chord, between 0 and 1.
/// Nothing unless the focus lies between the two.
std::optional<double> flatnessOf(parabolaEdgeData const &conic) {
    /// How far the line may miss the chord, per coordinate; strict.
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

/// A parameter from 0 at the start to 1 at the end, with its complement: the smaller of the two
/// keeps all its digits.
struct Parameter {
    double t, u; ///< u = 1 - t

    bool operator!=(Parameter const &p) const { return t != p.t || u != p.u; }
};

/// A point of the curve.
struct Sample {
    Parameter parameter;
    mgPoint_c point;
    mgVector_c tangent; ///< of any length
    double resolution;  ///< about how far rounding can have moved the point
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
        // The derivative times sum squared / 2: from differences of the three points alone, and
        // exact at both ends, where the quotient rule cancels. Scaled to a size of about 1, so that
        // its products with a chord, which give the angles, do not overflow.
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

/// True when the angle between the chord and the tangent at one of its ends is too large. False for
/// NaN.
bool isOff(mgVector_c const &chord, Sample const &a, Sample const &b, mgVector_c const &normal) {
    /// Smallest angle that is too large.
    constexpr double kLimitRad = 0.004;
    auto const folded = [](double angle) { return std::min(angle, vexmath::kTwoPi - angle); };
    return folded(mg_AngleBetween(chord, a.tangent, normal)) >= kLimitRad
           || folded(mg_AngleBetween(b.tangent, chord, normal)) >= kLimitRad;
}

/// Appends the points of the curve. A parameter interval is halved when its chord is off and longer
/// than the resolution at its ends. Without the second condition, a curve that is tiny for its
/// distance from the origin would be divided at every double. False when there are too many points
/// or no memory for them.
bool refine(BlendedConic const &curve, mgVector_c const &normal,
            suDynamicArray<mgPoint_c> &points) {
    Sample left = curve.at({0.0, 1.0});
    // The samples computed but not yet appended; the nearest is last.
    std::vector<Sample> ahead{curve.at({1.0, 0.0})};
    if (points.Add(left.point) < 0) return false;
    while (!ahead.empty()) {
        Sample const right = ahead.back();
        mgVector_c const chord = right.point - left.point;
        Parameter const a = left.parameter, b = right.parameter;
        Parameter const middle{0.5 * (a.t + b.t), 0.5 * (a.u + b.u)};
        // The chord reaches its resolution first; this only excludes an endless loop.
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
    /// Smallest coordinate, in absolute value, that is refused. Below it no square of a length and
    /// no weighted point overflows: the weight is at most the distance from the vertex to the chord
    /// divided by 3e-09.
    constexpr double kTooLarge = 1e100;
    vexmath::detail::PolylineOutput const output(outArray, count, list);
    for (mgPoint_c const &p : {conic->vertex, conic->focus, conic->start, conic->end})
        for (double const coordinate : {p.x(), p.y(), p.z()})
            if (!(std::fabs(coordinate) < kTooLarge)) return; // also for NaN
    std::optional<double> const flatness = flatnessOf(*conic);
    if (!flatness) return;

    mgVector_c normal = mgUnitVector_c(conic->normal);
    mgVector_c const turn = (conic->start - conic->vertex) * (conic->end - conic->vertex);
    if (turn % normal < 0.0) normal.flip();

    // QUIRK: mg_tessellation.h, mg_TessBConic: the list loses the elements that it held. Expected:
    // points are appended, as by the other tessellators. Kept: callers and stored data depend on
    // it. (test: AListIsReplaced)
    suDynamicArray<mgPoint_c> points;
    try {
        if (refine(BlendedConic(*conic, *flatness), normal, points)) output.assign(points);
    } catch (std::bad_alloc const &) { // no memory for the samples: count stays 0
    }
}

// QUIRK: mg_tessellation.h, mg_TessParabolaOrBConic: a record by vertex and focus is read as one by
// end tangents when its chord crosses the axis beyond the focus, so that a parabola around its
// focus comes out flatter. Expected: the record tells its kind. Kept: callers and stored data
// depend on it. (test: AParabolaAroundItsFocusIsReadByItsTangents)
void mg_TessParabolaOrBConic(parabolaEdgeData const *curve, double tol, mgPoint_c **outArray,
                             int &count, suDynamicArray<mgPoint_c> *list) {
    auto const tessellate = flatnessOf(*curve) ? mg_TessBConic : mg_TessParabola;
    tessellate(curve, tol, outArray, count, list);
}
