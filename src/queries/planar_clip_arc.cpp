// SPDX-License-Identifier: MIT
// Arcs in the plane clipped to boxes.
//
// The part of a circle beyond a side is an interval of angles about the side's normal. With the
// distance d of the side from the centre, it reaches acos(d / radius) to both sides. What the
// intervals of the four sides leave of the arc is in the box.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>

#include "planar_arc.h"
#include "planar_box.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

using vexmath::kTwoPiExact;
using vexmath::detail::areArcAngles;
using vexmath::detail::areFinite;
using vexmath::detail::PlanarBox;
using vexmath::detail::planarSweep;
using vexmath::detail::PlanarSweep;
using vexmath::detail::planarTolerance;

struct Interval {
    double begin, end;
};

/// At most `capacity` intervals.
template <int capacity>
struct Intervals {
    std::array<Interval, capacity> list;
    int count = 0;

    void add(double begin, double end) { list[static_cast<std::size_t>(count++)] = {begin, end}; }
    Interval *begin() { return list.data(); }
    Interval *end() { return list.data() + count; }
    Interval const *begin() const { return list.data(); }
    Interval const *end() const { return list.data() + count; }
};

/// The angles beyond each side that cuts the circle, from 0 to 2 pi for their middle.
using Cuts = Intervals<4>;

/// Turns that shift a cut, which lies between -pi and 5 pi / 2, to all places from 0 to 6 pi.
constexpr int kFirstTurn = -1;
constexpr int kLastTurn = 3;
constexpr int kMostImages = 4 * (kLastTurn - kFirstTurn + 1);

/// False when the whole circle is beyond a side or touches it from there.
bool findCuts(mgPoint_c const &centre, double radius, PlanarBox const &box, double tol,
              Cuts &cuts) {
    // The distances of the sides from the centre, outwards positive, by the angle of the normal.
    double const sides[] = {box.xHigh - centre.x(), box.yHigh - centre.y(), centre.x() - box.xLow,
                            centre.y() - box.yLow};
    for (int i = 0; i < 4; ++i) {
        double const distance = sides[i];
        if (distance >= radius - tol) continue;
        if (distance <= tol - radius) return false;
        // cos = distance / radius. The sine is computed from the difference, which is exact where
        // the side is nearly tangent.
        double const cosine = distance / radius;
        double const size = std::fabs(distance);
        double const sine = std::sqrt((radius - size) / radius * (1.0 + std::fabs(cosine)));
        double const half = std::atan2(sine, cosine);
        double const normal = i * (kTwoPiExact / 4.0);
        cuts.add(normal - half, normal + half);
    }
    return true;
}

/// Images of the cuts, in order, that reach into [from, from + 2 pi].
Intervals<kMostImages> imagesOf(Cuts const &cuts, double from) {
    Intervals<kMostImages> images;
    for (Interval const &cut : cuts) {
        for (int turn = kFirstTurn; turn <= kLastTurn; ++turn) {
            double const shift = turn * kTwoPiExact;
            bool const reaches = cut.end + shift >= from && cut.begin + shift <= from + kTwoPiExact;
            if (reaches) images.add(cut.begin + shift, cut.end + shift);
        }
    }
    std::sort(images.begin(), images.end(),
              [](Interval const &a, Interval const &b) { return a.begin < b.begin; });
    return images;
}

/// The least angle from `start` on at which the circle comes back across a side.
double firstReturn(Cuts const &cuts, double start) {
    double first = start + kTwoPiExact;
    for (Interval const &cut : cuts) {
        for (int turn = kFirstTurn; turn <= kLastTurn; ++turn) {
            double const at = cut.end + turn * kTwoPiExact;
            if (at >= start) first = std::min(first, at);
        }
    }
    return first;
}

} // namespace

int mg_Clip2DArcToBox(mgPoint_c const &centre, double radius, double start, double end,
                      mgPoint_c const &corner1, mgPoint_c const &corner2, double angles[10],
                      double tol) {
    /// Four cuts leave no more of an arc; rounding does not either.
    constexpr int kMostArcs = 5;
    double const reach = planarTolerance(tol);
    if (!areFinite(centre.x(), centre.y(), radius, corner1.x(), corner1.y(), corner2.x(),
                   corner2.y())
        || !areArcAngles(start, end))
        return 0;
    PlanarSweep const arc = planarSweep(start, end);
    /// Is the arc longer than the tolerance?
    auto const isLong = [&](double sweep) { return radius * sweep > reach; };
    if (!isLong(arc.sweep)) return 0; // of no radius, too

    Cuts cuts;
    if (!findCuts(centre, radius, PlanarBox::ofCorners(corner1, corner2), reach, cuts)) return 0;
    if (cuts.count == 0) {
        angles[0] = start;
        angles[1] = end;
        return 1;
    }

    // The start of a full circle is no end of an arc: it begins where a cut ends.
    double const from = arc.isFull ? firstReturn(cuts, arc.start) : arc.start;
    double const to = from + arc.sweep;
    int count = 0;
    auto const keep = [&](double begin, double stop) {
        if (!isLong(stop - begin) || count == kMostArcs) return;
        angles[2 * count] = begin == arc.start ? start : start + (begin - arc.start);
        angles[2 * count + 1] = stop == to ? end : start + (stop - arc.start);
        ++count;
    };
    double at = from;
    for (Interval const &cut : imagesOf(cuts, from)) {
        if (cut.begin >= to) break;
        keep(at, cut.begin);
        at = std::max(at, cut.end);
    }
    if (!arc.isFull) keep(at, to);
    return count;
}
