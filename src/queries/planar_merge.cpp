// SPDX-License-Identifier: MIT
// Collinear segments in the plane that overlap or touch become one.
// Method: J. L. Bentley, "Multidimensional binary search trees used for associative searching",
// 1975, over the middles and directions of the segments.

#include <vexmath/mg_planar.h>
#include <vexmath/point.h>
#include <vexmath/su_dynamic_array.h>

#include "planar_box.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace {

using vexmath::detail::areFinite;
using vexmath::detail::largestOf;
using vexmath::detail::planarScale;
using vexmath::detail::planarTolerance;

constexpr double kPiExact = vexmath::kTwoPiExact / 2.0;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A segment, with its direction. One of equal ends has the direction of the x axis.
struct Segment {
    double x[2], y[2]; ///< of the ends
    double dx = 1.0, dy = 0.0;
    double length = 0.0;

    Segment(mgPoint_c const &a, mgPoint_c const &b, double scale)
        : x{scale * a.x(), scale * b.x()}, y{scale * a.y(), scale * b.y()} {
        double const ex = x[1] - x[0];
        double const ey = y[1] - y[0];
        length = std::sqrt(ex * ex + ey * ey);
        if (length == 0.0) return;
        dx = ex / length;
        dy = ey / length;
    }
    /// Distance of a point from the line, positive on the left.
    double across(double px, double py) const { return dx * (py - y[0]) - dy * (px - x[0]); }
    /// Distance of a point's foot from the first end.
    double along(double px, double py) const { return dx * (px - x[0]) + dy * (py - y[0]); }
    /// What `along` gives for the second end: the length, rounded like the places of other ends.
    double extent() const { return along(x[1], y[1]); }
    /// Of the axis 0 or 1.
    double middle(int axis) const {
        double const *const ends = axis == 0 ? x : y;
        return 0.5 * (ends[0] + ends[1]);
    }
    /// In [0, pi]: of the line.
    double angle() const {
        double const a = std::atan2(dy, dx);
        return a < 0.0 ? a + kPiExact : a;
    }
};

/// What a segment, the base, grows to. Ends are named by twice the index of their segment, plus 1
/// for the second end.
class Group {
public:
    Group(Segment const &base, int index, double reach)
        : base_(base), index_(index), reach_(reach) {}

    /// Takes a segment in if it is collinear and overlaps or touches what the group has.
    bool add(Segment const &s, int index) {
        Place first{base_.along(s.x[0], s.y[0]), 2 * index};
        Place last{base_.along(s.x[1], s.y[1]), 2 * index + 1};
        if (last.at < first.at) std::swap(first, last);
        bool const isCollinear = std::fabs(base_.across(s.x[0], s.y[0])) <= reach_
                                 && std::fabs(base_.across(s.x[1], s.y[1])) <= reach_;
        if (!isCollinear || !reaches(first.at, last.at)) return false;
        if (isBetter(first, low_, low_.at - first.at)) low_ = first;
        if (isBetter(last, high_, last.at - high_.at)) high_ = last;
        return true;
    }
    /// Could it take in a segment whose middle is in this box, and which is no longer than twice
    /// `half`? `slack` is an allowance for the rounding of coordinates.
    bool mayReach(double const low[2], double const high[2], double half, double slack) const {
        auto const range = [&](double f, int axis) {
            double const origin = axis == 0 ? base_.x[0] : base_.y[0];
            double const p = f * (low[axis] - origin);
            double const q = f * (high[axis] - origin);
            return std::pair(std::min(p, q), std::max(p, q));
        };
        auto const upward = range(base_.dx, 1);
        auto const sideways = range(base_.dy, 0);
        double const reach = reach_ + slack;
        if (upward.first - sideways.second > reach || upward.second - sideways.first < -reach)
            return false;
        auto const alongX = range(base_.dx, 0);
        auto const alongY = range(base_.dy, 1);
        double const longest = half + slack;
        return reaches(alongX.first + alongY.first - longest,
                       alongX.second + alongY.second + longest);
    }
    double angle() const { return base_.angle(); }
    int lowEnd() const { return low_.end; }
    int highEnd() const { return high_.end; }

private:
    struct Place {
        double at;
        int end;
    };

    bool reaches(double from, double to) const {
        return from - high_.at <= reach_ && low_.at - to <= reach_;
    }
    /// Of equal places, the base's end is kept, else the one of the lowest index.
    bool isBetter(Place const &fresh, Place const &old, double gain) const {
        bool const isOfBase = old.end / 2 == index_;
        return gain > 0.0 || (gain == 0.0 && !isOfBase && fresh.end < old.end);
    }

    Segment const &base_;
    int index_; ///< of the base
    double reach_;
    Place low_{0.0, 2 * index_};
    Place high_{base_.extent(), 2 * index_ + 1};
};

/// A tree of segments that are not yet in a group.
class SegmentTree {
public:
    /// Copies the indices of the segments to be searched.
    SegmentTree(std::vector<Segment> const &segments, std::vector<int> const &indices, double reach,
                double slack)
        : segments_(segments), order_(indices), isFree_(segments.size(), 0), slack_(slack) {
        for (int const i : order_) isFree_[at(i)] = 1;
        angles_.reserve(segments.size());
        for (Segment const &s : segments)
            angles_.push_back(hasAnyAngle(s, reach) ? 0.0 : s.angle());
        nodes_.reserve(2 * (order_.size() / kLeaf + 1) + 1);
        if (!order_.empty()) build(0, static_cast<int>(order_.size()), reach);
    }

    bool isFree(int i) const { return isFree_[at(i)] != 0; }

    /// Removes a segment, and all that the group then takes in one after the other.
    void collect(int base, Group &group) {
        isFree_[at(base)] = 0;
        double const angle = group.angle();
        while (collectBelow(0, angle, group) > 0) {
        }
    }

private:
    static constexpr int kLeaf = 8;

    struct Node {
        double low[2] = {kInfinity, kInfinity}, high[2] = {-kInfinity, -kInfinity}; ///< of middles
        double half = 0.0; ///< of the greatest length
        double leastAngle = kInfinity, greatestAngle = -kInfinity;
        int first = 0, last = 0;
        int children[2] = {-1, -1};
        int free = 0; ///< at least the number of free segments
    };

    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    /// Is the segment so short that a line of any direction may pass both of its ends?
    static bool hasAnyAngle(Segment const &s, double reach) { return 2.0 * reach >= s.length; }

    double key(int i, int axis) const {
        return axis == 2 ? angles_[at(i)] : segments_[at(i)].middle(axis);
    }

    std::pair<double, double> rangeOf(int first, int last, int axis) const {
        std::pair<double, double> range{kInfinity, -kInfinity};
        for (int i = first; i < last; ++i) {
            double const k = key(order_[at(i)], axis);
            range = {std::min(range.first, k), std::max(range.second, k)};
        }
        return range;
    }

    /// The axis in which the segments are spread most, in units of the extent of all segments: x,
    /// y, or the angle, for which the unit is pi.
    int widestAxis(int first, int last) {
        double spread[3];
        for (int const axis : {0, 1, 2}) {
            auto const [low, high] = rangeOf(first, last, axis);
            spread[axis] = high - low;
        }
        double const wider = std::max(spread[0], spread[1]);
        if (nodes_.size() == 1) extent_ = wider;
        if (spread[2] * extent_ >= kPiExact * wider) return 2;
        return spread[1] > spread[0] ? 1 : 0;
    }

    int build(int first, int last, double reach) {
        int const index = static_cast<int>(nodes_.size());
        nodes_.emplace_back();
        Node node;
        node.first = first;
        node.last = last;
        node.free = last - first;
        for (int i = first; i < last; ++i) enlarge(node, order_[at(i)], reach);
        if (last - first > kLeaf) {
            int const middle = first + (last - first) / 2;
            int const axis = widestAxis(first, last);
            std::nth_element(order_.begin() + first, order_.begin() + middle, order_.begin() + last,
                             [&](int i, int j) { return key(i, axis) < key(j, axis); });
            node.children[0] = build(first, middle, reach);
            node.children[1] = build(middle, last, reach);
        }
        nodes_[at(index)] = node;
        return index;
    }

    /// The directions of a node are those of lines within reach of both ends of one of its
    /// segments: the sine of the difference is at most 2 reach / length.
    void enlarge(Node &node, int i, double reach) const {
        /// Allowance for the rounding of angles, which are only used to skip nodes.
        constexpr double kSlack = 1e-9;
        Segment const &s = segments_[at(i)];
        for (int const axis : {0, 1}) {
            node.low[axis] = std::min(node.low[axis], s.middle(axis));
            node.high[axis] = std::max(node.high[axis], s.middle(axis));
        }
        node.half = std::max(node.half, 0.5 * s.length);
        double const window =
            kSlack + (hasAnyAngle(s, reach) ? kPiExact : std::asin(2.0 * reach / s.length));
        node.leastAngle = std::min(node.leastAngle, angles_[at(i)] - window);
        node.greatestAngle = std::max(node.greatestAngle, angles_[at(i)] + window);
    }

    static bool hasAngle(Node const &node, double angle) {
        for (double const image : {angle, angle - kPiExact, angle + kPiExact}) {
            if (node.leastAngle <= image && image <= node.greatestAngle) return true;
        }
        return false;
    }

    /// Returns how many segments the group took.
    int collectBelow(int index, double angle, Group &group) {
        Node &node = nodes_[at(index)];
        if (node.free == 0 || !hasAngle(node, angle)
            || !group.mayReach(node.low, node.high, node.half, slack_))
            return 0;
        int taken = 0;
        if (node.children[0] >= 0) {
            for (int const child : node.children) taken += collectBelow(child, angle, group);
        } else {
            for (int i = node.first; i < node.last; ++i) {
                int const candidate = order_[at(i)];
                if (!isFree(candidate) || !group.add(segments_[at(candidate)], candidate)) continue;
                isFree_[at(candidate)] = 0;
                ++taken;
            }
        }
        node.free -= taken;
        return taken;
    }

    std::vector<Segment> const &segments_;
    std::vector<int> order_;
    std::vector<char> isFree_;
    std::vector<double> angles_;
    double extent_ = 0.0; ///< of all middles
    double slack_;
    std::vector<Node> nodes_;
};

/// Two ends of a merged segment, or -1 where the segment went into another one.
struct Ends {
    int first, last;
};

double largestCoordinate(mgPoint_c const &p) { return largestOf(p.x(), p.y()); }

bool isFinite(mgPoint_c const &a, mgPoint_c const &b) {
    return areFinite(a.x(), a.y(), b.x(), b.y());
}

/// The result of the list. Throws std::bad_alloc.
std::vector<Ends> mergedEnds(mgPoint_c const *pts, int segmentCount, double tol) {
    double largest = 0.0;
    std::vector<int> indices;
    std::vector<Ends> result;
    for (int i = 0; i < segmentCount; ++i) {
        result.push_back({2 * i, 2 * i + 1});
        if (!isFinite(pts[2 * i], pts[2 * i + 1])) continue;
        indices.push_back(i);
        largest =
            std::max({largest, largestCoordinate(pts[2 * i]), largestCoordinate(pts[2 * i + 1])});
    }
    double const scale = planarScale(largest);
    double const reach = scale * planarTolerance(tol);
    std::vector<Segment> segments;
    segments.reserve(static_cast<std::size_t>(segmentCount));
    for (int i = 0; i < segmentCount; ++i) segments.emplace_back(pts[2 * i], pts[2 * i + 1], scale);

    /// Rounding of a distance between scaled coordinates, in units of the largest of them.
    constexpr double kRounding = 1e-14;
    SegmentTree tree(segments, indices, reach, kRounding * scale * largest);
    auto const segment = [&](int i) -> Segment const & {
        return segments[static_cast<std::size_t>(i)];
    };
    std::sort(indices.begin(), indices.end(), [&](int i, int j) {
        if (segment(i).length != segment(j).length) return segment(i).length > segment(j).length;
        return i < j;
    });
    for (int const i : indices) {
        Ends &ends = result[static_cast<std::size_t>(i)];
        if (!tree.isFree(i)) {
            ends = {-1, -1};
            continue;
        }
        Group group(segment(i), i, reach);
        tree.collect(i, group);
        ends = {group.lowEnd(), group.highEnd()};
    }
    result.erase(std::remove_if(result.begin(), result.end(),
                                [](Ends const &ends) { return ends.first < 0; }),
                 result.end());
    return result;
}

} // namespace

int mg_MergeLines2D(mgPoint_c const &a1, mgPoint_c const &b1, mgPoint_c const &a2,
                    mgPoint_c const &b2, mgPoint_c &a, mgPoint_c &b, double tol) {
    if (!isFinite(a1, b1) || !isFinite(a2, b2)) return 0;
    double const scale = planarScale(std::max({largestCoordinate(a1), largestCoordinate(b1),
                                               largestCoordinate(a2), largestCoordinate(b2)}));
    Segment const segments[] = {{a1, b1, scale}, {a2, b2, scale}};
    int const base = segments[1].length > segments[0].length ? 1 : 0;
    Group group(segments[base], base, scale * planarTolerance(tol));
    if (!group.add(segments[1 - base], 1 - base)) return 0;
    mgPoint_c const ends[] = {a1, b1, a2, b2};
    a = ends[group.lowEnd()];
    b = ends[group.highEnd()];
    return 1;
}

int mg_MergeLines2D(suDynamicArray<mgPoint_c> const &lines, suDynamicArray<mgPoint_c> &merged,
                    double tol) {
    mgPoint_c const *const pts = lines.Data();
    int count = 0;
    mgPoint_c *block = nullptr;
    try {
        std::vector<Ends> const result = mergedEnds(pts, lines.Count() / 2, tol);
        count = static_cast<int>(result.size());
        if (count > 0) {
            block = static_cast<mgPoint_c *>(
                suDynArrayAllocSpecial(2 * count, 16, 1, static_cast<int>(sizeof(mgPoint_c))));
            if (!block) return 0;
        }
        for (int i = 0; i < count; ++i) {
            Ends const &ends = result[static_cast<std::size_t>(i)];
            block[2 * i] = pts[ends.first];
            block[2 * i + 1] = pts[ends.last];
        }
    } catch (std::bad_alloc const &) {
        return 0;
    }
    merged.Adopt(block);
    return count;
}
