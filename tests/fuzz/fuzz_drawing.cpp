// SPDX-License-Identifier: MIT
// Arcs, merged lines, hatch lines and outlines of drawings: on whole numbers they are what exact
// arithmetic gives, and for everyday numbers they fulfil their definition.

#include "fuzz.h"

#include <map>

namespace {

using List = suDynamicArray<P>;

/// Whole segments along x or y: the merged ones are the unions of intervals on each line.
void checkMerged(Input &in) {
    List lines, merged;
    std::map<std::pair<bool, int>, std::vector<std::pair<int, int>>> parts;
    for (int i = in.count(); i > 0; --i) {
        int const line = in.below(6), from = in.below(40), to = from + 1 + in.below(5);
        bool const isAlongX = in.flip(), isReversed = in.flip();
        P const a = isAlongX ? P(from, line, 0) : P(line, from, 0),
                b = isAlongX ? P(to, line, 0) : P(line, to, 0);
        lines.Add(isReversed ? b : a), lines.Add(isReversed ? a : b);
        parts[{isAlongX, line}].emplace_back(from, to);
    }
    int expected = 0;
    for (auto &[line, intervals] : parts) {
        int end = -1;
        std::sort(intervals.begin(), intervals.end());
        for (auto const &[from, to] : intervals) expected += from > end, end = std::max(end, to);
    }
    TimeLimit const limit;
    CHECK(mg_MergeLines2D(lines, merged, 0.25) == expected && merged.Count() == 2 * expected);
    CHECK(mg_MergeLines2D(merged, merged, 0.25) == expected);
}

/// Hatch lines along x in whole polygons: their whole length is that of a scan of all edges.
void checkHatchedPolygons(Input &in) {
    std::vector<int> counts(static_cast<std::size_t>(in.below(4)));
    Points points;
    std::vector<std::pair<P, P>> edges;
    for (int &count : counts) {
        count = in.below(9);
        std::size_t const first = points.size();
        for (int i = 0; i < count; ++i) points.push_back(in.whole(16));
        for (int i = 0; i < count && count > 2; ++i)
            edges.emplace_back(points[first + static_cast<std::size_t>(i)],
                               points[first + static_cast<std::size_t>((i + 1) % count)]);
    }
    List lines;
    int const n = mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(),
                                             points.data(), P(3, 5, 0), 0.0, 0.5, lines);
    double sum = 0.0;
    CHECK(lines.Count() == 2 * n);
    for (int i = 0; i < n; ++i) sum += lines[2 * i + 1].x() - lines[2 * i].x();
    for (double y = 0.0; y < 16.0; y += 0.5) {
        std::vector<double> crossings;
        for (auto const &[a, b] : edges)
            if ((a.y() <= y) != (b.y() <= y))
                crossings.push_back(a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y()));
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            sum -= crossings[i + 1] - crossings[i];
    }
    CHECK(std::fabs(sum) < 1e-9);
}

void checkHatchedCircle(Input &in) {
    P const centre = in.triple<P>(), origin = in.triple<P>();
    double const radius = in.number(), angle = in.number(), spacing = in.number();
    if (!(std::fabs(radius / spacing) < 1e3 || std::fabs(radius / spacing) > 1e7)) return; // long
    List lines;
    CHECK(2 * mg_calcHatchLinesCircle2D(centre, radius, origin, angle, spacing, lines)
          == lines.Count());
    double const size = 1.0 + dist(centre, origin) + std::fabs(radius);
    for (int i = 0; i < lines.Count() && in.isTame(); ++i) {
        V const v = lines[i] - origin;
        double const k = (v.y() * std::cos(angle) - v.x() * std::sin(angle)) / spacing;
        CHECK(std::fabs(std::hypot(lines[i].x() - centre.x(), lines[i].y() - centre.y()) - radius)
              < 1e-7 * size);
        CHECK(std::fabs(k - std::round(k)) < 1e-9 * size / spacing);
    }
}

void checkPolar(Input &in) {
    List edge, fixed;
    for (P const &p : in.points(in.count())) edge.Add(p), fixed.Add(p);
    double const tol = in.isTame() ? 1e-8 : in.number();
    int const before = edge.Count(), left = mg_cleanupPolarEdge(edge, tol),
              n = mg_fixPolarConvolution(fixed, tol);
    CHECK(left <= before && n <= left);
    double reach = 0.0;
    for (int i = 0; i < left; ++i) reach = std::max(reach, std::fabs(edge[i].y()));
    double const way = left > 0 ? edge[left - 1].x() - edge[0].x() : 0.0;
    for (int i = 1; i < left && in.isTame(); ++i)
        CHECK(std::fabs(edge[i].x() - edge[i - 1].x()) <= 3.1415926536);
    for (int i = 1; i < n && in.isTame(); ++i)
        CHECK(std::fabs(way) * reach <= tol || (fixed[i].x() - fixed[i - 1].x()) * way >= 0.0);
}

void checkArcs(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), a = in.triple<P>(), b = in.triple<P>();
    double const given = in.number(), tol = in.isTame() ? 1e-8 : in.number(), from = in.number();
    P centre, t1, t2;
    U normal;
    double radius = 77, sweep = 77;
    auto const isOff = [&](P const &p, double r) {
        return std::fabs(std::hypot(p.x() - centre.x(), p.y() - centre.y()) - r) > 1e-6 * (1.0 + r);
    };
    int const isArc = mg_FindTangentArcCenter2D(start, a - b, end, centre, radius, sweep, tol);
    CHECK(isArc ? radius > 0.0 && std::fabs(sweep) <= 2 * kPi : radius == 77 && sweep == 77);
    CHECK(!isArc || !in.isTame() || radius > 1e3 || !(isOff(start, radius) || isOff(end, radius)));
    int const isFillet = mg_FindTangentArcCenter2D(start, end, a, b, given, centre, t1, t2, tol);
    CHECK(!isFillet || !in.isTame() || dist(centre, start) > 1e3
          || !(isOff(t1, given) || isOff(t2, given)));
    if (mg_NormalFrom3Points(start, end, a, normal, tol)) CHECK(isUnit(normal));

    // Points of an arc, of which one may be anywhere.
    Points points;
    double const step = 0.01 + 0.02 * in.below(100);
    for (int i = in.below(20); i >= 0 && i * step < 6.2; --i)
        points.emplace_back(a.x() + 2 * std::cos(from + i * step),
                            a.y() + 2 * std::sin(from + i * step), a.z());
    bool const isMoved = in.byte() < 100;
    if (isMoved && !points.empty()) points[points.size() / 2] = b;
    auto const found = mg_IsPolylineArc(static_cast<int>(points.size()), points.data(), centre,
                                        normal, radius, sweep, tol);
    if (in.isTame() && !isMoved && points.size() > 2)
        CHECK(found == mgPolylineArc_Arc && dist(centre, a) < 1e-4 && normal.z() < 0.0);
    for (P const &p : points)
        CHECK(!in.isTame() || found == mgPolylineArc_None || found == mgPolylineArc_Line
              || std::fabs(dist(p, centre) - radius) < 1e-7 * (1.0 + radius));
}

} // namespace

void fuzz(Input &in) {
    checkArcs(in);
    checkMerged(in);
    checkHatchedPolygons(in);
    checkHatchedCircle(in);
    checkPolar(in);
}
