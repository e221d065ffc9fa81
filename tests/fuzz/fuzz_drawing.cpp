// SPDX-License-Identifier: MIT
// Arcs, merged lines, hatch lines and outlines of drawings: lines are those of the literal rules,
// and for everyday numbers the others fulfil their definition.

#include "fuzz.h"

namespace {

using List = suDynamicArray<P>;

/// The rule of the header, by scanning.
Points literalMerge(Points const &points, double tol) {
    auto const n = points.size() / 2;
    auto const flat = [&](std::size_t from, std::size_t to) {
        return V(points[to].x() - points[from].x(), points[to].y() - points[from].y(), 0.0);
    };
    auto const length = [&](std::size_t i) { return flat(2 * i, 2 * i + 1).len(); };
    std::vector<bool> used(n, false);
    std::vector<std::array<std::size_t, 2>> ends(n, {2 * n, 2 * n});
    for (;;) {
        std::size_t base = n;
        for (std::size_t i = 0; i < n; ++i)
            if (!used[i] && (base == n || length(i) > length(base))) base = i;
        if (base == n) break;
        used[base] = true;
        ends[base] = {2 * base, 2 * base + 1};
        V const whole = flat(2 * base, 2 * base + 1);
        double const l = length(base);
        V const d = l > 0 ? V(whole.x() / l, whole.y() / l, 0) : V(1, 0, 0);
        auto const along = [&](std::size_t end) { return flat(2 * base, end) % d; };
        auto const isOff = [&](std::size_t end) {
            return std::fabs((d * flat(2 * base, end)).z()) > tol;
        };
        double low = 0, high = along(2 * base + 1);
        for (std::size_t i = 0; i < n; ++i) {
            std::size_t p = 2 * i, q = p + 1;
            if (along(q) < along(p)) std::swap(p, q);
            if (used[i] || isOff(p) || isOff(q) || along(p) - high > tol || low - along(q) > tol)
                continue;
            used[i] = true;
            auto &[first, last] = ends[base]; // of equal places, the base's or the first one
            if (along(p) < low || (along(p) == low && first / 2 != base && p < first))
                low = along(p), first = p;
            if (along(q) > high || (along(q) == high && last / 2 != base && q < last))
                high = along(q), last = q;
            i = static_cast<std::size_t>(-1); // from the first one again
        }
    }
    Points result;
    for (auto const &[p, q] : ends)
        if (p < 2 * n) result.insert(result.end(), {points[p], points[q]});
    return result;
}

/// Whole segments along x or y, or segments that are nearly on a few lines.
void checkMerged(Input &in) {
    auto const unit = [&in] { return in.word() / 65536.0; };
    bool const isWhole = in.flip();
    double const tol = isWhole ? 0.25 : std::pow(10.0, -1 - in.below(9));
    V const angles = 4.0 * V{unit(), unit(), unit()}; // braces keep the order
    Points points;
    for (int i = in.count(); i > 0; --i) {
        int const line = in.below(6), from = in.below(40), to = from + 1 + in.below(5);
        bool const isAlongX = in.flip();
        double const angle = angles[line % 3], c = std::cos(angle), s = std::sin(angle);
        double const start = 10 * unit(),
                     ends[] = {start, start + std::pow(10.0, 4.5 * unit() - 4)};
        for (int k = 0; k < 2; ++k) {
            double const at = ends[k], off = (2.4 * unit() - 1.2) * tol + line % 2, z = unit();
            P const whole(k == 0 ? from : to, line, z);
            if (isWhole)
                points.push_back(isAlongX ? whole : P(whole.y(), whole.x(), z));
            else
                points.emplace_back(c * at - s * off, s * at + c * off, z);
        }
        if (in.flip()) std::swap(points.back(), points[points.size() - 2]);
    }
    List list;
    for (P const &p : points) list.Add(p);
    int const n = timed([&] { return mg_MergeLines2D(list, list, tol); });
    CHECK(list.Count() == 2 * n && n <= static_cast<int>(points.size()) / 2);
    if (points.size() > 100) return;
    Points const expected = literalMerge(points, tol);
    CHECK(list.Count() == static_cast<int>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) CHECK(same(list.Data()[i], expected[i]));
}

/// Hatch lines in whole polygons, which cross each other and themselves. On each line, length and
/// moment are those of a scan of all edges, except where these are nearly along the lines.
void checkHatched(Input &in) {
    int counts[3] = {in.below(9), in.below(9), in.below(9)}, first = 0;
    double const turn = in.flip() ? in.below(4) * (kPi / 2) : in.number(),
                 angle = in.isTame() ? turn : 0.0, step = 0.25 * (1 + in.below(6));
    double c = std::cos(angle), s = std::sin(angle);
    if (std::fabs(s) < 1e-13) s = 0.0, c = std::copysign(1.0, c);
    if (std::fabs(c) < 1e-13) c = 0.0, s = std::copysign(1.0, s);
    auto const height = [=](P const &p) { return (p.y() - 5) * c - (p.x() - 3) * s; };
    auto const along = [=](P const &p) { return (p.x() - 3) * c + (p.y() - 5) * s; };
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
    int const n = timed([&] {
        return mg_calcHatchLinesPolygon2D(3, counts, points.data(), P(3, 5, 7), angle, step, lines);
    });
    CHECK(lines.Count() == 2 * n);
    int next = 0;
    for (int k = -100; k <= 100; ++k) {
        double const h = k * step;
        std::vector<double> at;
        bool isClear = true;
        for (auto const &[a, b] : edges) {
            double const from = height(a), to = height(b);
            if ((from <= h) == (to <= h)) continue;
            isClear = isClear && std::fabs(to - from) > 1e-6;
            at.push_back(along(a) + (h - from) * (along(b) - along(a)) / (to - from));
        }
        std::sort(at.begin(), at.end());
        double sum = 0.0, moment = 0.0;
        for (std::size_t i = 0; i + 1 < at.size(); i += 2)
            sum += at[i + 1] - at[i], moment += at[i + 1] * at[i + 1] - at[i] * at[i];
        for (; next < n && std::fabs(height(lines[2 * next]) - h) < 1e-9; ++next) {
            P const &a = lines[2 * next], &b = lines[2 * next + 1];
            CHECK(a.z() == 7.0 && std::fabs(height(b) - h) < 1e-9 && along(b) > along(a));
            sum -= along(b) - along(a), moment -= along(b) * along(b) - along(a) * along(a);
        }
        CHECK(!isClear || std::fabs(sum) + std::fabs(moment) < 1e-6);
    }
    CHECK(next == n); // all lie on the lattice, in order
}

void checkHatchedCircle(Input &in) {
    List lines;
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
    Points points = in.points(in.count());
    double const tol = in.isTame() ? 1e-8 : in.number();
    bool const isWalk = in.flip(); // its steps are less than half a turn
    bool isUsable = !points.empty();
    double angle = in.below(7) - 3;
    List edge, fixed, turned;
    for (P &p : points) {
        if (isWalk) p = P(angle += in.below(200) / 100.0 - 0.5, in.below(90) / 10.0, in.byte());
        edge.Add(p), fixed.Add(p), turned.Add(P(p.x() + 2 * kPi * in.below(5), p.y(), p.z()));
        isUsable = isUsable && std::fabs(p.x()) <= 1e150 && std::fabs(p.y()) <= 1e150;
    }
    int const left = timed([&] { return mg_cleanupPolarEdge(edge, tol); }),
              n = timed([&] { return mg_fixPolarConvolution(fixed, tol); });
    CHECK(isUsable == (left > 0) && isUsable == (n > 0) && n <= left && left <= int(points.size()));
    CHECK(!isUsable || (left == edge.Count() && n == fixed.Count()));
    if (!isUsable)
        for (List const &list : {edge, fixed})
            CHECK(std::equal(points.begin(), points.end(), list.begin(), same<P>));
    double reach = 0.0;
    for (int i = 0; i < left; ++i) reach = std::max(reach, std::fabs(edge[i].y()));
    double const way = left > 0 ? edge[left - 1].x() - edge[0].x() : 0.0;
    for (int i = 1; i < left && in.isTame(); ++i)
        CHECK(std::fabs(edge[i].x() - edge[i - 1].x()) <= 3.1415926536);
    for (int i = 1; i < n && in.isTame() && std::fabs(way) * reach > tol; ++i)
        CHECK((fixed[i].x() - fixed[i - 1].x()) * way >= 0.0);
    if (!isWalk || !isUsable || !in.isTame()) return;
    CHECK(mg_cleanupPolarEdge(turned, tol) == left); // whole turns do not matter
    for (int i = 0; i < left; ++i)
        CHECK(std::fabs(edge[i].x() - edge[0].x() - turned[i].x() + turned[0].x()) < 1e-9);
    List again = fixed; // nothing is left to do
    CHECK(mg_fixPolarConvolution(again, tol) == n && mg_cleanupPolarEdge(again, tol) == n);
    CHECK(std::equal(again.begin(), again.end(), fixed.begin(), same<P>));
}

void checkArcs(Input &in) {
    P const start = in.triple<P>(), end = in.triple<P>(), a = in.triple<P>(), b = in.triple<P>();
    double const given = in.number(), tol = in.isTame() ? 1e-8 : in.number(), first = in.number();
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
    V const tangent(a.x() - b.x(), a.y() - b.y(), 0.0), from = start - centre;
    if (isArc && in.isTame() && r < 1e3 && tangent.len() > 1e-3 && std::fabs(sweep) > 1e-6) {
        double const bound = 1e-6 * (1.0 + r), at = std::atan2(from.y(), from.x()) + sweep;
        CHECK(from.z() == 0.0 && std::fabs(from % mg_Normalise(tangent)) < bound);
        CHECK((sweep > 0.0) == ((from * tangent).z() > 0.0)); // counter-clockwise
        CHECK(std::hypot(centre.x() + r * std::cos(at) - end.x(),
                         centre.y() + r * std::sin(at) - end.y())
              < 100 * bound);
    }
    int const isFillet = mg_FindTangentArcCenter2D(start, end, a, b, given, centre, t1, t2, tol);
    CHECK(!isFillet || dist(centre, start) > 1e3 || !(isOff(t1, given) || isOff(t2, given)));
    CHECK(mg_NormalFrom3Points(start, end, a, normal, tol) == 0 || isUnit(normal));

    // Points of an arc, some repeated, of which one may be anywhere.
    Points points;
    mgMatrix_c const turn = in.rotation();
    int const steps = 3 + in.below(30);
    bool const isFull = in.below(4) == 0;
    double const whole = isFull ? 2 * kPi : 0.1 + in.below(61) / 10.0, side = in.flip() ? 1 : -1;
    for (int i = 0; i <= steps; ++i) {
        double const angle = first + side * whole * i / steps;
        points.push_back(a + V(2 * std::cos(angle), 2 * std::sin(angle), 0.0) * turn);
        if (in.below(5) == 0) points.push_back(points.back());
    }
    bool const isMoved = in.byte() < 100;
    if (isMoved) points[points.size() / 2] = b;
    int const n = static_cast<int>(points.size());
    auto const found = mg_IsPolylineArc(n, points.data(), centre, normal, r, sweep, 1e-6);
    if (in.isTame() && !isMoved) {
        V const axis = V(0, 0, side * turn.getDeterminant()) * turn;
        CHECK(found == (isFull ? mgPolylineArc_Circle : mgPolylineArc_Arc)
              && dist(centre, a) < 1e-7);
        CHECK((normal - axis).len() < 1e-6 && std::fabs(r - 2) + std::fabs(sweep - whole) < 1e-7);
    }
    for (P const &p : points)
        if (in.isTame() && (found == mgPolylineArc_Arc || found == mgPolylineArc_Circle))
            CHECK(std::fabs(dist(p, centre) - r) < 2e-6);
}

} // namespace

void fuzz(Input &in) {
    checkArcs(in);
    checkMerged(in);
    checkHatched(in);
    checkHatchedCircle(in);
    checkPolar(in);
}
