// SPDX-License-Identifier: MIT
// Open and closed tours by cheapest insertion.
//
// The rule: the path starts with the last two points. Each step combines every edge of the path, in
// path order, with every point that is left, in index order. The value of a combination is the
// detour over the point. At the last edge the distance from the path's end to the point replaces it
// when strictly smaller, then at the first edge the distance from the path's start. The step
// inserts the point of the first combination of least value.
//
// `insertByScan` follows the rule literally, in n^3 work. `Tour` stores for each point its own
// first combination of least value, or a lower bound of that value, and updates only what an
// insertion changed. Both give the same path for finite distances; NaN and infinite ones go to the
// scan.
//
// A closed tour is built as a path whose last point is its first one again. It has no ends, so
// every point is inserted between two others.
//
// QUIRK: mg_queries.h, mg_OpenTSP: the path starts with the last two points, however near they are.
// Expected: the two points that are farthest apart. Kept: callers and stored data depend on it.
// (test: StartsWithTheLastTwoPoints)

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include "tour.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace {

/// How a point joins the path at an edge.
enum class Join { Between, BehindTheEnd, BeforeTheStart };

/// A combination of an edge, named by its place in the path, with a point.
struct Candidate {
    double value;
    int place; ///< the edge joins path[place - 1] and path[place]; 0 for a lower bound of the value
    Join join;

    /// Where in the path the point goes.
    int position() const {
        if (join == Join::BeforeTheStart) return 0;
        return join == Join::BehindTheEnd ? place + 1 : place;
    }
};

/// The value of one point at one edge, given its distances to the ends and the edge's length.
Candidate evaluate(double toTail, double toHead, double length, int place, bool first, bool last) {
    Candidate best{toHead + toTail - length, place, Join::Between};
    if (last && toHead < best.value) best = {toHead, place, Join::BehindTheEnd};
    if (first && toTail < best.value) best = {toTail, place, Join::BeforeTheStart};
    return best;
}

/// The path found by scanning all combinations in each step, NaN and infinity included.
std::vector<int> insertByScan(mgPoint_c const *points, int n) {
    std::vector<int> path{n - 2, n - 1};
    std::vector<int> left(static_cast<std::size_t>(n - 2));
    std::iota(left.begin(), left.end(), 0);
    while (!left.empty()) {
        Candidate best{0.0, 0, Join::Between};
        auto chosen = left.begin();
        bool found = false;
        int const edges = static_cast<int>(path.size()) - 1;
        for (int place = 1; place <= edges; ++place) {
            mgPoint_c const &head = points[path[static_cast<std::size_t>(place)]];
            mgPoint_c const &tail = points[path[static_cast<std::size_t>(place - 1)]];
            double const length = dist(head, tail);
            for (auto r = left.begin(); r != left.end(); ++r) {
                double const toTail = dist(points[*r], tail);
                double const toHead = dist(points[*r], head);
                bool const first = place == 1;
                bool const last = place == edges;
                // The values are not compared: a detour of NaN can be chosen for its end alone.
                bool const better = toHead + toTail - length < best.value
                                    || (last && toHead < best.value)
                                    || (first && toTail < best.value);
                if (!found || better) {
                    found = true;
                    best = evaluate(toTail, toHead, length, place, first, last);
                    chosen = r;
                }
            }
        }
        path.insert(path.begin() + best.position(), *chosen);
        left.erase(chosen);
    }
    return path;
}

/// The path under construction, for finite distances.
class Tour {
public:
    /// Starts with these points of all n.
    Tour(mgPoint_c const *points, int n, std::vector<int> start);

    /// All points, in visiting order.
    std::vector<int> build();

private:
    /// A point that is left, with its first combination of least value.
    struct Open {
        mgPoint_c at;
        int index;
        Candidate best;
    };

    mgPoint_c const &node(int place) const {
        return points_[path_[static_cast<std::size_t>(place)]];
    }
    double &length(int place) { return lengths_[static_cast<std::size_t>(place)]; }
    int edges() const { return static_cast<int>(path_.size()) - 1; }
    /// The place of the edge at the end of the path; 0, which no edge has, for a closed one.
    int last() const { return closed_ ? 0 : edges(); }
    Candidate bestOfAll(mgPoint_c const &point) const;
    std::vector<Open>::iterator cheapest();
    void carryOut(int index, Candidate const &done);
    void follow(Candidate const &done);

    mgPoint_c const *points_;
    std::vector<int> path_;
    bool closed_;
    std::vector<double> lengths_; // of the edge at each place, 1 and up
    std::vector<Open> open_;      // in index order
};

Tour::Tour(mgPoint_c const *points, int n, std::vector<int> start)
    : points_(points), path_(std::move(start)),
      closed_(path_.front() == path_.back()), lengths_{0.0} {
    path_.reserve(static_cast<std::size_t>(n) + 1);
    lengths_.reserve(static_cast<std::size_t>(n) + 1);
    for (int place = 1; place <= edges(); ++place)
        lengths_.push_back(dist(node(place), node(place - 1)));
    open_.reserve(static_cast<std::size_t>(n - 2));
    for (int i = 0; i < n - 2; ++i) open_.push_back({points[i], i, bestOfAll(points[i])});
}

Candidate Tour::bestOfAll(mgPoint_c const &point) const {
    int const lastPlace = last();
    double toTail = dist(point, node(1));
    Candidate best =
        evaluate(dist(point, node(0)), toTail, lengths_[1], 1, !closed_, lastPlace == 1);
    for (int place = 2; place <= edges(); ++place) {
        double const toHead = dist(point, node(place));
        Candidate const here = evaluate(toTail, toHead, lengths_[static_cast<std::size_t>(place)],
                                        place, false, place == lastPlace);
        if (here.value < best.value) best = here;
        toTail = toHead;
    }
    return best;
}

/// Of the points whose combination has the least value, the first in scan order. A lower bound is
/// before the combinations of the same value: its point is then evaluated.
std::vector<Tour::Open>::iterator Tour::cheapest() {
    for (;;) {
        auto const least =
            std::min_element(open_.begin(), open_.end(), [](Open const &a, Open const &b) {
                if (a.best.value != b.best.value) return a.best.value < b.best.value;
                return a.best.place < b.best.place;
            });
        if (least->best.place > 0) return least;
        least->best = bestOfAll(least->at);
    }
}

/// Inserts a point into the path. The edge at done.place becomes two: the edges there and at the
/// next place. One of them is the old edge when the point was added at an end.
void Tour::carryOut(int index, Candidate const &done) {
    path_.insert(path_.begin() + done.position(), index);
    lengths_.insert(lengths_.begin() + done.place, 0.0);
    for (int place : {done.place, done.place + 1})
        length(place) = dist(node(place), node(place - 1));
}

/// Updates the best combination of every open point after `done` was carried out.
///
/// A combination is gone when its edge was divided, or its end of the path has moved. Every other
/// edge was worse than it, or as good and later in the path; so the better of the two new edges
/// replaces it if that is no worse, and otherwise its value is a lower bound. A combination that
/// still exists is compared with the two new edges only, and so is a lower bound.
void Tour::follow(Candidate const &done) {
    int const place = done.place;
    mgPoint_c const tail = node(place - 1);
    mgPoint_c const middle = node(place);
    mgPoint_c const head = node(place + 1);
    double const lengthBefore = length(place);
    double const lengthBehind = length(place + 1);
    bool const isFirst = place == 1 && !closed_;
    bool const isLast = place + 1 == last();
    for (Open &point : open_) {
        double const toMiddle = dist(point.at, middle);
        Candidate const before =
            evaluate(dist(point.at, tail), toMiddle, lengthBefore, place, isFirst, false);
        Candidate const behind =
            evaluate(toMiddle, dist(point.at, head), lengthBehind, place + 1, false, isLast);
        Candidate const &fresh = behind.value < before.value ? behind : before;

        Candidate &best = point.best;
        bool const gone =
            best.place == place && (done.join == Join::Between || best.join == done.join);
        if (gone) {
            if (fresh.value <= best.value) {
                best = fresh;
            } else {
                best.place = 0;
            }
            continue;
        }
        if (best.place > done.position()) ++best.place;
        bool const better =
            fresh.value < best.value || (fresh.value == best.value && fresh.place < best.place);
        if (better) best = fresh;
    }
}

std::vector<int> Tour::build() {
    while (!open_.empty()) {
        auto const chosen = cheapest();
        int const index = chosen->index;
        Candidate const done = chosen->best;
        open_.erase(chosen);
        carryOut(index, done);
        follow(done);
    }
    return path_;
}

} // namespace

bool vexmath::detail::distancesAreFinite(mgPoint_c const *points, int n) {
    mgPoint_c low = points[0];
    mgPoint_c high = points[0];
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < 3; ++k) {
            if (!std::isfinite(points[i][k])) return false;
            low[k] = std::min(low[k], points[i][k]);
            high[k] = std::max(high[k], points[i][k]);
        }
    }
    return std::isfinite(dist(low, high));
}

std::vector<int> vexmath::detail::closedInsertionTour(mgPoint_c const *points, int n) {
    std::vector<int> tour = Tour(points, n, {n - 2, n - 1, n - 2}).build();
    tour.pop_back();
    return tour;
}

void mg_OpenTSP(suDynamicArray<mgPoint_c> &points, suDynamicArray<int> &order) {
    int const n = points.Count();
    vexmath::detail::replaceOrder(order, n, [&]() -> std::vector<int> {
        mgPoint_c const *const all = points.Data();
        if (n < 3) return {};
        if (!vexmath::detail::distancesAreFinite(all, n)) return insertByScan(all, n);
        return Tour(all, n, {n - 2, n - 1}).build();
    });
}
