// SPDX-License-Identifier: MIT
// Arcs, merged lines, hatch lines and outlines of drawings: on whole numbers they are what exact
// arithmetic gives, and for everyday numbers they fulfil their definition.

#include "fuzz.h"

#include <map>

namespace {

using List = suDynamicArray<P>;

/// The parts of whole segments along x or y, by line; the union of each line has the merged ones.
void checkMerged(Input &in) {
    List lines, merged;
    std::map<std::pair<bool, int>, std::vector<std::pair<int, int>>> parts;
    for (int i = 1 + in.count(); i > 0; --i) {
        int const line = in.below(6), from = in.below(40), to = from + 1 + in.below(5);
        bool const isAlongX = in.flip();
        P const a = isAlongX ? P(from, line, 0) : P(line, from, 0),
                b = isAlongX ? P(to, line, 0) : P(line, to, 0);
        bool const isReversed = in.flip();
        lines.Add(isReversed ? b : a), lines.Add(isReversed ? a : b);
        parts[{isAlongX, line}].emplace_back(from, to);
    }
    int expected = 0;
    for (auto &[line, intervals] : parts) {
        std::sort(intervals.begin(), intervals.end());
        int end = -1;
        for (auto const &[from, to] : intervals) expected += from > end, end = std::max(end, to);
    }
    TimeLimit const limit;
    CHECK(mg_MergeLines2D(lines, merged, 0.25) == expected && merged.Count() == 2 * expected);
    CHECK(mg_MergeLines2D(merged, merged, 0.25) == expected);
}

/// The length of all hatch lines along x in polygons, by scanning the edges.
double lengthOf(std::vector<int> const &counts, std::vector<P> const &points, double spacing) {
    double sum = 0.0;
    for (double y = -spacing; y < 20.0; y += spacing) {
        std::vector<double> crossings;
        std::size_t first = 0;
        for (int const count : counts) {
            auto const n = static_cast<std::size_t>(count);
            for (std::size_t i = 0; i < n && n > 2; ++i) {
                P const &a = points[first + i], &b = points[first + (i + 1) % n];
                if ((a.y() <= y) != (b.y() <= y))
                    crossings.push_back(a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y()));
            }
            first += n;
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            sum += crossings[i + 1] - crossings[i];
    }
    return sum;
}

void checkHatch(Input &in) {
    std::vector<int> counts;
    std::vector<P> points;
    for (int outlines = in.below(4); outlines > 0; --outlines) {
        counts.push_back(in.below(9));
        for (int i = counts.back(); i > 0; --i) points.push_back(in.whole(16));
    }
    double const spacing = in.flip() ? 1.0 : 0.5;
    List lines;
    int const count = mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(),
                                                 points.data(), P(3, 5, 0), 0.0, spacing, lines);
    double sum = 0.0;
    for (int i = 0; i < count; ++i) sum += lines[2 * i + 1].x() - lines[2 * i].x();
    CHECK(lines.Count() == 2 * count
          && std::fabs(sum - lengthOf(counts, points, spacing)) < 1e-9 * (1.0 + sum));

    P const centre = in.triple<P>(), origin = in.triple<P>();
    double const radius = in.number(), angle = in.number(), any = in.number();
    if (std::fabs(radius / any) > 1e3 && std::fabs(radius / any) < 1e7) return; // takes long
    int const circle = mg_calcHatchLinesCircle2D(centre, radius, origin, angle, any, lines);
    CHECK(lines.Count() == 2 * circle);
    double const size = 1.0 + dist(centre, origin) + std::fabs(radius);
    for (int i = 0; i < lines.Count() && in.isTame(); ++i) {
        P const p(lines[i].x(), lines[i].y(), centre.z());
        CHECK(std::fabs(dist(p, centre) - radius) < 1e-7 * size);
        double const k =
            ((p.y() - origin.y()) * std::cos(angle) - (p.x() - origin.x()) * std::sin(angle)) / any;
        CHECK(std::fabs(k - std::round(k)) < 1e-9 * size / any);
    }
    mg_calcHatchLinesRect2D({centre.x(), centre.y(), origin.x(), origin.y()}, origin, angle,
                            std::max(any, 0.01 * size), lines);
}

void checkPolar(Input &in) {
    List edge, fixed;
    for (int i = in.count(); i > 0; --i) edge.Add(in.triple<P>());
    for (int i = 0; i < edge.Count(); ++i) fixed.Add(edge[i]);
    double const tol = in.isTame() ? 1e-8 : in.number();
    int const before = edge.Count(), left = mg_cleanupPolarEdge(edge, tol),
              n = mg_fixPolarConvolution(fixed, tol);
    CHECK(left <= before && n <= left);
    for (int i = 1; i < left && in.isTame(); ++i)
        CHECK(std::fabs(edge[i].x() - edge[i - 1].x()) <= 3.1415926536);
    double reach = 0.0;
    for (int i = 0; i < left; ++i) reach = std::max(reach, std::fabs(edge[i].y()));
    if (!in.isTame() || n < 2) return;
    double const way = edge[left - 1].x() - edge[0].x();
    for (int i = 1; i < n && std::fabs(way) * reach > tol; ++i)
        CHECK((fixed[i].x() - fixed[i - 1].x()) * way >= 0.0);
}

void checkArcs(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), a = in.triple<P>(), b = in.triple<P>();
    V const tangent = in.triple<V>();
    double const given = in.number(), tol = in.isTame() ? 1e-8 : in.number();
    P centre, t1, t2;
    double radius = 77, sweep = 77;
    auto const inPlane = [](P const &p, P const &q) {
        return std::hypot(p.x() - q.x(), p.y() - q.y());
    };
    double const size = 1.0 + dist(start, end) + dist(a, b) + dist(a, start);
    int const isArc = mg_FindTangentArcCenter2D(start, tangent, end, centre, radius, sweep, tol);
    CHECK(isArc ? radius > 0.0 && std::fabs(sweep) <= 2 * kPi : radius == 77 && sweep == 77);
    if (isArc && in.isTame() && radius < 1e3)
        CHECK(std::fabs(inPlane(centre, start) - radius) + std::fabs(inPlane(centre, end) - radius)
              < 1e-9 * (radius + size));
    int const isFillet = mg_FindTangentArcCenter2D(start, end, a, b, given, centre, t1, t2, tol);
    if (isFillet && in.isTame() && inPlane(centre, start) < 1e3 * size)
        CHECK(std::fabs(inPlane(centre, t1) - given) + std::fabs(inPlane(centre, t2) - given)
              < 1e-6 * (size + given));
    U normal;
    if (mg_NormalFrom3Points(start, end, a, normal, tol))
        CHECK(isUnit(normal)
              && (!in.isTame() || std::fabs(normal % mg_Normalise(end - start)) < 1e-7));

    // Points of an arc, of which one may be anywhere.
    std::vector<P> points;
    double const step = 0.01 + 0.02 * in.below(100), from = in.number();
    for (int i = 3 + in.below(20); i > 0 && i * step < 6.2; --i)
        points.emplace_back(a.x() + 2 * std::cos(from + i * step),
                            a.y() + 2 * std::sin(from + i * step), a.z());
    bool const isMoved = in.byte() < 100;
    if (isMoved && !points.empty()) points[points.size() / 2] = b;
    auto const found = mg_IsPolylineArc(static_cast<int>(points.size()), points.data(), centre,
                                        normal, radius, sweep, tol);
    if (in.isTame() && !isMoved && points.size() > 2)
        CHECK(found == mgPolylineArc_Arc && isNear(centre, a, 1e-4) && normal.z() < 0.0);
    for (P const &p : points)
        if (in.isTame() && (found == mgPolylineArc_Arc || found == mgPolylineArc_Circle))
            CHECK(std::fabs(dist(p, centre) - radius) < 1e-7 * (1.0 + radius));
}

} // namespace

void fuzzOne(Input &in) {
    checkArcs(in);
    checkMerged(in);
    checkHatch(in);
    checkPolar(in);
}
