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
    std::map<int, std::vector<std::pair<int, int>>> parts; // of lines along x, then along y
    for (int i = in.count(); i > 0; --i) {
        int const line = in.below(6), from = in.below(40), to = from + 1 + in.below(5);
        bool const isAlongX = in.flip(), isReversed = in.flip();
        P const a(from, line, 0), b(to, line, 0), c(line, from, 0), d(line, to, 0);
        lines.Add(isReversed ? isAlongX ? b : d : isAlongX ? a : c);
        lines.Add(isReversed ? isAlongX ? a : c : isAlongX ? b : d);
        parts[isAlongX ? line : 6 + line].emplace_back(from, to);
    }
    int expected = 0;
    for (auto &[line, intervals] : parts) {
        int end = -1;
        std::sort(intervals.begin(), intervals.end());
        for (auto const &[from, to] : intervals) expected += from > end, end = std::max(end, to);
    }
    CHECK(timed([&] { return mg_MergeLines2D(lines, merged, 0.25); }) == expected);
    CHECK(merged.Count() == 2 * expected && mg_MergeLines2D(merged, merged, 0.25) == expected);
}

/// Hatch lines along x in whole polygons: their whole length is that of a scan of all edges.
void checkHatched(Input &in) {
    int counts[3] = {in.below(9), in.below(9), in.below(9)}, first = 0;
    Points points;
    std::vector<std::pair<P, P>> edges;
    for (int i = 0; i < counts[0] + counts[1] + counts[2]; ++i) points.push_back(in.whole(16));
    for (int const n : counts) {
        for (int i = 0; i < n && n > 2; ++i)
            edges.emplace_back(points[std::size_t(first + i)],
                               points[std::size_t(first + (i + 1) % n)]);
        first += n;
    }
    List lines;
    int const n = mg_calcHatchLinesPolygon2D(3, counts, points.data(), P(3, 5, 0), 0.0, 0.5, lines);
    double sum = 0.0;
    CHECK(lines.Count() == 2 * n);
    for (int i = 0; i < n; ++i) sum += lines[2 * i + 1].x() - lines[2 * i].x();
    for (double y = 0.0; y < 16.0; y += 0.5) {
        std::vector<double> at;
        for (auto const &[a, b] : edges)
            if ((a.y() <= y) != (b.y() <= y))
                at.push_back(a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y()));
        std::sort(at.begin(), at.end());
        for (std::size_t i = 0; i + 1 < at.size(); i += 2) sum -= at[i + 1] - at[i];
    }
    CHECK(std::fabs(sum) < 1e-9);

    P const centre = in.triple<P>(), origin = in.triple<P>();
    double const radius = in.number(), angle = in.number(), spacing = in.number(),
                 share = std::fabs(radius / spacing);
    if (share > 1e3 && share < 1e7) return; // many lines
    CHECK(2 * mg_calcHatchLinesCircle2D(centre, radius, origin, angle, spacing, lines)
          == lines.Count());
    double const bound = 1e-7 * (1.0 + dist(centre, origin) + std::fabs(radius));
    for (int i = 0; i < lines.Count() && in.isTame(); ++i)
        CHECK(std::fabs(std::hypot(lines[i].x() - centre.x(), lines[i].y() - centre.y()) - radius)
              < bound);
}

void checkPolar(Input &in) {
    List edge, fixed;
    for (P const &p : in.points(in.count())) edge.Add(p), fixed.Add(p);
    double const tol = in.isTame() ? 1e-8 : in.number();
    int const before = edge.Count(), left = mg_cleanupPolarEdge(edge, tol);
    int const n = mg_fixPolarConvolution(fixed, tol);
    CHECK(left <= before && n <= left);
    double reach = 0.0;
    for (int i = 0; i < left; ++i) reach = std::max(reach, std::fabs(edge[i].y()));
    double const way = left > 0 ? edge[left - 1].x() - edge[0].x() : 0.0;
    for (int i = 1; i < left && in.isTame(); ++i)
        CHECK(std::fabs(edge[i].x() - edge[i - 1].x()) <= 3.1415926536);
    for (int i = 1; i < n && in.isTame() && std::fabs(way) * reach > tol; ++i)
        CHECK((fixed[i].x() - fixed[i - 1].x()) * way >= 0.0);
}

void checkArcs(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), a = in.triple<P>(), b = in.triple<P>();
    double const given = in.number(), tol = in.isTame() ? 1e-8 : in.number(), from = in.number();
    P centre, t1, t2;
    U normal;
    double r = 77, sweep = 77;
    auto const isOff = [&](P const &p, double radius) {
        double const distance = std::hypot(p.x() - centre.x(), p.y() - centre.y());
        return in.isTame() && std::fabs(distance - radius) > 1e-6 * (1.0 + radius);
    };
    int const isArc = mg_FindTangentArcCenter2D(start, a - b, end, centre, r, sweep, tol);
    CHECK(isArc ? r > 0.0 && std::fabs(sweep) <= 2 * kPi : r == 77 && sweep == 77);
    CHECK(!isArc || r > 1e3 || !(isOff(start, r) || isOff(end, r)));
    int const isFillet = mg_FindTangentArcCenter2D(start, end, a, b, given, centre, t1, t2, tol);
    CHECK(!isFillet || dist(centre, start) > 1e3 || !(isOff(t1, given) || isOff(t2, given)));
    CHECK(mg_NormalFrom3Points(start, end, a, normal, tol) == 0 || isUnit(normal));

    // Points of an arc, of which one may be anywhere.
    Points points;
    double const step = 0.01 + 0.02 * in.below(100);
    for (double t = step * in.below(20); t >= 0.0 && t < 6.2; t -= step)
        points.emplace_back(a.x() + 2 * std::cos(from + t), a.y() + 2 * std::sin(from + t), a.z());
    bool const isMoved = in.byte() < 100 && !points.empty();
    if (isMoved) points[points.size() / 2] = b;
    int const n = static_cast<int>(points.size());
    auto const found = mg_IsPolylineArc(n, points.data(), centre, normal, r, sweep, tol);
    if (in.isTame() && !isMoved && n > 2)
        CHECK(found == mgPolylineArc_Arc && dist(centre, a) < 1e-4);
    for (P const &p : points)
        if (in.isTame() && (found == mgPolylineArc_Arc || found == mgPolylineArc_Circle))
            CHECK(std::fabs(dist(p, centre) - r) < 1e-7 * (1.0 + r));
}

} // namespace

void fuzz(Input &in) {
    checkArcs(in);
    checkMerged(in);
    checkHatched(in);
    checkPolar(in);
}
