// SPDX-License-Identifier: MIT
// Hatch lines of circles, rectangles and polygons.
//
// All areas are hatched by the lines of one lattice. The height of a point is its signed distance
// from line 0, and line k holds the points of the height k * spacing, as rounded. An edge is
// crossed by the lines from the height of its lower end, included, to that of its upper end, not
// included. Two areas with a common corner compute the same height for it, so no line is lost or
// drawn twice at a common edge, whatever the rounding.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/rect.h>
#include <vexmath/su_dynamic_array.h>

#include "stable_order.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>
#include <vector>

namespace {

/// An area that would get more lines gets none.
constexpr double kMostLines = 1e6;
/// The largest coordinate and radius, absolute, inclusive: no product of two overflows.
constexpr double kMostCoordinate = 1e150;

bool isUsable(double value) { return std::fabs(value) <= kMostCoordinate; } // not NaN
bool isUsable(mgPoint_c const &p) { return isUsable(p.x()) && isUsable(p.y()); }

class Lattice {
public:
    Lattice(mgPoint_c const &origin, double angle, double spacing);

    bool isUsable() const;
    double height(double x, double y) const { return (y - y_) * cos_ - (x - x_) * sin_; }
    double along(double x, double y) const { return (x - x_) * cos_ + (y - y_) * sin_; }
    double heightOf(double line) const { return line * spacing_; }
    /// Is the number of the line at this height an exact integer?
    bool canNumber(double height) const;
    /// The number of the lowest line at or above a height.
    double firstFrom(double height) const;
    /// The point at a height and a distance along the line.
    mgPoint_c pointAt(mgPoint_c const &from, double height, double along) const {
        return {from.x() + along * cos_ - height * sin_, from.y() + along * sin_ + height * cos_,
                z_};
    }
    double z() const { return z_; }

private:
    double x_, y_, z_;
    double cos_, sin_;
    double spacing_;
};

Lattice::Lattice(mgPoint_c const &origin, double angle, double spacing)
    : x_(origin.x()), y_(origin.y()), z_(origin.z()), cos_(std::cos(angle)), sin_(std::sin(angle)),
      spacing_(spacing) {
    // A quarter turn is no double, and the library's own has 13 decimals. Strictly below, absolute.
    constexpr double kAxisSin = 1e-13;
    if (std::fabs(sin_) < kAxisSin) {
        sin_ = 0.0;
        cos_ = std::copysign(1.0, cos_);
    } else if (std::fabs(cos_) < kAxisSin) {
        cos_ = 0.0;
        sin_ = std::copysign(1.0, sin_);
    }
}

bool Lattice::isUsable() const {
    return ::isUsable(x_) && ::isUsable(y_) && std::isfinite(cos_) && spacing_ > 0.0
           && std::isfinite(spacing_);
}

bool Lattice::canNumber(double height) const {
    constexpr double kMostNumber = 0x1p52;
    return std::fabs(height) <= kMostNumber * spacing_;
}

double Lattice::firstFrom(double height) const {
    double const line = std::ceil(height / spacing_); // by rounding, this can be the next one
    if (heightOf(line) < height) return line + 1.0;
    return heightOf(line - 1.0) < height ? line : line - 1.0;
}

/// The ends of lines, two for each.
using Ends = std::vector<mgPoint_c>;

/// Where a line enters or leaves the area.
struct Crossing {
    double line;
    double along;
    double x, y;
};

/// An edge of an outline, from its lower to its upper end.
struct Edge {
    mgPoint_c low, high;
    double lowHeight, highHeight;
    double from, to; ///< is crossed by the lines from <= k < to

    Edge(Lattice const &lattice, mgPoint_c const &a, mgPoint_c const &b);
    Crossing crossing(Lattice const &lattice, double line) const;
};

Edge::Edge(Lattice const &lattice, mgPoint_c const &a, mgPoint_c const &b)
    : low(a), high(b), lowHeight(lattice.height(a.x(), a.y())),
      highHeight(lattice.height(b.x(), b.y())) {
    if (highHeight < lowHeight) {
        std::swap(low, high);
        std::swap(lowHeight, highHeight);
    }
    from = lattice.firstFrom(lowHeight);
    to = lattice.firstFrom(highHeight);
}

/// Gives an end exactly where the line passes through it.
Crossing Edge::crossing(Lattice const &lattice, double line) const {
    double const ratio = (lattice.heightOf(line) - lowHeight) / (highHeight - lowHeight);
    double const x = low.x() + ratio * (high.x() - low.x());
    double const y = low.y() + ratio * (high.y() - low.y());
    return {line, lattice.along(x, y), x, y};
}

/// Calls `use` for each edge of the closed outlines.
template <class Use>
void forEachEdge(int outlines, int const *counts, mgPoint_c const *points, Use const &use) {
    for (int outline = 0; outline < outlines; ++outline) {
        std::ptrdiff_t const n = std::max(counts[outline], 0);
        for (std::ptrdiff_t i = 0; i < n; ++i) use(points[i], points[i + 1 < n ? i + 1 : 0]);
        points += n;
    }
}

/// The crossings by line, and then along it.
std::vector<Crossing> sorted(std::vector<Crossing> const &all) {
    using vexmath::detail::OrderKey;
    std::vector<OrderKey> keys;
    keys.reserve(all.size());
    for (Crossing const &c : all)
        keys.push_back(vexmath::detail::orderKey(c.line, static_cast<std::uint32_t>(keys.size())));
    sortStably(keys);
    std::vector<Crossing> result;
    result.reserve(all.size());
    for (OrderKey const &key : keys) result.push_back(all[key.index]);

    for (auto first = result.begin(); first != result.end();) {
        auto const isOfOther = [&](Crossing const &c) { return c.line != first->line; };
        auto const end = std::find_if(first, result.end(), isOfOther);
        std::sort(first, end,
                  [](Crossing const &p, Crossing const &q) { return p.along < q.along; });
        first = end;
    }
    return result;
}

/// All crossings, by line and then along it; none when they are too many.
std::vector<Crossing> crossingsOf(Lattice const &lattice, int outlines, int const *counts,
                                  mgPoint_c const *points) {
    bool usable = lattice.isUsable();
    double total = 0.0;
    forEachEdge(outlines, counts, points, [&](mgPoint_c const &a, mgPoint_c const &b) {
        usable = usable && isUsable(a) && lattice.canNumber(lattice.height(a.x(), a.y()));
        if (!usable || !isUsable(b)) return;
        Edge const edge(lattice, a, b);
        total += edge.to - edge.from;
    });
    std::vector<Crossing> all;
    if (!usable || total > 2.0 * kMostLines) return all;

    all.reserve(static_cast<std::size_t>(total));
    forEachEdge(outlines, counts, points, [&](mgPoint_c const &a, mgPoint_c const &b) {
        Edge const edge(lattice, a, b);
        for (int i = 0; edge.from + i < edge.to; ++i)
            all.push_back(edge.crossing(lattice, edge.from + i));
    });
    return sorted(all);
}

/// The lines inside closed outlines, by the even-odd rule. Two crossings at one point change
/// nothing, so they are removed: no line has length 0, and none is divided at an edge that is there
/// twice.
Ends hatch(Lattice const &lattice, int outlines, int const *counts, mgPoint_c const *points) {
    std::vector<Crossing> kept = crossingsOf(lattice, outlines, counts, points);
    std::size_t n = 0;
    for (Crossing const &c : kept) {
        bool const again = n > 0 && kept[n - 1].line == c.line && kept[n - 1].along == c.along;
        if (again) {
            --n;
        } else {
            kept[n++] = c;
        }
    }
    Ends ends(n);
    for (std::size_t i = 0; i < n; ++i) ends[i].set(kept[i].x, kept[i].y, lattice.z());
    return ends;
}

Ends hatchCircle(Lattice const &lattice, mgPoint_c const &centre, double radius) {
    Ends ends;
    if (!lattice.isUsable() || !isUsable(centre) || !(radius > 0.0) || !isUsable(radius))
        return ends;
    double const middle = lattice.height(centre.x(), centre.y());
    if (!lattice.canNumber(middle - radius) || !lattice.canNumber(middle + radius)) return ends;
    double const from = lattice.firstFrom(middle - radius);
    double const to = lattice.firstFrom(middle + radius);
    if (to - from > kMostLines) return ends;

    ends.reserve(static_cast<std::size_t>(2.0 * (to - from)));
    for (int i = 0; from + i < to; ++i) {
        double const height = lattice.heightOf(from + i) - middle;
        double const halfSq = (radius - height) * (radius + height);
        double const half = std::sqrt(std::max(halfSq, 0.0));
        mgPoint_c const start = lattice.pointAt(centre, height, -half);
        mgPoint_c const end = lattice.pointAt(centre, height, half);
        if (start.x() == end.x() && start.y() == end.y()) continue;
        ends.push_back(start);
        ends.push_back(end);
    }
    return ends;
}

/// Replaces the list by the ends that `find` returns. Returns the number of lines.
template <class Find>
int replace(suDynamicArray<mgPoint_c> &lines, Find const &find) {
    constexpr int kGrowStep = 16;
    constexpr int kLinearGrowth = 1;
    mgPoint_c *list = nullptr;
    try {
        Ends const ends = find();
        auto const n = static_cast<int>(ends.size());
        if (n > 0)
            list = static_cast<mgPoint_c *>(
                suDynArrayAllocSpecial(n, kGrowStep, kLinearGrowth, sizeof(mgPoint_c)));
        if (list) std::copy(ends.begin(), ends.end(), list);
    } catch (std::bad_alloc const &) {
        list = nullptr;
    }
    lines.Adopt(list);
    return lines.Count() / 2;
}

} // namespace

int mg_calcHatchLinesCircle2D(mgPoint_c const &centre, double radius, mgPoint_c const &origin,
                              double angle, double spacing, suDynamicArray<mgPoint_c> &lines) {
    return replace(lines, [&] { return hatchCircle({origin, angle, spacing}, centre, radius); });
}

int mg_calcHatchLinesRect2D(mgRect const &rect, mgPoint_c const &origin, double angle,
                            double spacing, suDynamicArray<mgPoint_c> &lines) {
    mgPoint_c const corners[] = {
        mgPoint_c(rect.left, rect.bottom, 0.0), mgPoint_c(rect.right, rect.bottom, 0.0),
        mgPoint_c(rect.right, rect.top, 0.0), mgPoint_c(rect.left, rect.top, 0.0)};
    int const four = 4;
    return replace(lines, [&] { return hatch({origin, angle, spacing}, 1, &four, corners); });
}

int mg_calcHatchLinesPolygon2D(int outlines, int const *counts, mgPoint_c const *points,
                               mgPoint_c const &origin, double angle, double spacing,
                               suDynamicArray<mgPoint_c> &lines) {
    return replace(lines, [&] {
        return hatch({origin, angle, spacing}, outlines, counts, points);
    });
}
