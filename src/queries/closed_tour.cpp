// SPDX-License-Identifier: MIT
// Closed tours: cheapest insertion, improved by exchanges of two edges.

#include <vexmath/mg_planar.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

#include "stable_order.h"
#include "tour.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

struct Neighbour {
    double distance;
    int index;
};

bool isNearer(Neighbour const &a, Neighbour const &b) { return a.distance < b.distance; }

/// The nearest neighbours of each point, nearest first.
class Neighbours {
public:
    Neighbours(mgPoint_c const *points, int n);

    /// Calls `use` with at least the points that are strictly nearer to a point than `reach`.
    template <class Use>
    void forEachNearer(int index, double reach, Use const &use) const;

private:
    void collect(std::vector<vexmath::detail::OrderKey> const &byX, int rank);

    mgPoint_c const *points_;
    int n_;
    int each_; // neighbours that are stored of each point
    std::vector<Neighbour> near_;
};

Neighbours::Neighbours(mgPoint_c const *points, int n)
    : points_(points), n_(n), each_(std::min(n - 1, 8)),
      near_(static_cast<std::size_t>(n) * static_cast<std::size_t>(each_)) {
    std::vector<vexmath::detail::OrderKey> byX(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        byX[static_cast<std::size_t>(i)] =
            vexmath::detail::orderKey(points[i].x(), static_cast<std::uint32_t>(i));
    sortStably(byX);
    for (int rank = 0; rank < n; ++rank) collect(byX, rank);
}

/// Walks away from a point in both directions of x, until the difference in x alone is larger than
/// the distance of all that were found.
void Neighbours::collect(std::vector<vexmath::detail::OrderKey> const &byX, int rank) {
    auto const indexAt = [&byX](int r) {
        return static_cast<int>(byX[static_cast<std::size_t>(r)].index);
    };
    int const index = indexAt(rank);
    mgPoint_c const at = points_[index];
    Neighbour *const first = near_.data() + static_cast<std::ptrdiff_t>(index) * each_;
    Neighbour *const end = first + each_;
    Neighbour *last = first; // behind those that were found
    for (int const way : {-1, 1}) {
        for (int r = rank + way; r >= 0 && r < n_; r += way) {
            mgPoint_c const &other = points_[indexAt(r)];
            if (last == end && std::fabs(other.x() - at.x()) >= end[-1].distance) break;
            Neighbour const found{dist(at, other), indexAt(r)};
            if (last == end && found.distance >= end[-1].distance) continue;
            if (last == end) --last;
            Neighbour *const place = std::upper_bound(first, last, found, isNearer);
            std::move_backward(place, last, last + 1);
            *place = found;
            ++last;
        }
    }
}

template <class Use>
void Neighbours::forEachNearer(int index, double reach, Use const &use) const {
    Neighbour const *const first = near_.data() + static_cast<std::ptrdiff_t>(index) * each_;
    Neighbour const *const end = first + each_;
    if (end[-1].distance >= reach) {
        for (Neighbour const *at = first; at->distance < reach; ++at) use(at->index, at->distance);
        return;
    }
    for (int other = 0; other < n_; ++other) {
        if (other == index) continue;
        double const distance = dist(points_[index], points_[other]);
        if (distance < reach) use(other, distance);
    }
}

/// A closed tour under improvement.
class Improved {
public:
    Improved(mgPoint_c const *points, std::vector<int> tour);

    /// All points, from 0 on, in the direction in which the second is lower than the last.
    std::vector<int> build();

private:
    /// Replaces the edges from a to b and from c to d by those from a to c and from b to d. In the
    /// tour, b is `side` of a and d the same side of c: +1 behind, -1 before.
    struct Exchange {
        double gain;
        int a, b, c, d;
        int side;
    };

    double distance(int i, int j) const { return dist(points_[i], points_[j]); }
    int &place(int point) { return places_[static_cast<std::size_t>(point)]; }
    int &pointAt(int place) { return tour_[static_cast<std::size_t>(place)]; }
    int wrapped(int place) const {
        return place < 0 ? place + n_ : place < n_ ? place : place - n_;
    }
    int neighbour(int point, int side) { return pointAt(wrapped(place(point) + side)); }
    Exchange best(int a);
    void carryOut(Exchange const &exchange);
    void reverse(int first, int last);
    bool improveAround();
    void normalise();

    mgPoint_c const *points_;
    int n_;
    Neighbours near_;
    std::vector<int> tour_;
    std::vector<int> places_; // of each point in the tour
};

Improved::Improved(mgPoint_c const *points, std::vector<int> tour)
    : points_(points), n_(static_cast<int>(tour.size())), near_(points, n_), tour_(std::move(tour)),
      places_(tour_.size()) {
    for (int i = 0; i < n_; ++i) place(pointAt(i)) = i;
}

/// The exchange of the largest gain that removes an edge of a for a shorter one. Of equal gains it
/// is that of the lowest c, then of the lowest b. A gain of 0 means that there is none.
///
/// An exchange that gains makes the new edge at one of the four ends shorter than the edge that it
/// replaces there. So a tour without such an exchange at any point has none at all.
Improved::Exchange Improved::best(int a) {
    // A gain counts when it is strictly above this part of the length that is removed. Rounding is
    // far below, so that every exchange makes the tour shorter, and none is ever undone.
    constexpr double kRelativeGain = 1e-12;
    Exchange most{0.0, a, a, a, a, 1};
    for (int const side : {1, -1}) {
        int const b = neighbour(a, side);
        double const length = distance(a, b);
        near_.forEachNearer(a, length, [&](int c, double toC) {
            int const d = neighbour(c, side);
            double const removed = length + distance(c, d);
            double const gain = removed - (toC + distance(b, d));
            if (!(gain > kRelativeGain * removed) || gain < most.gain) return;
            bool const isBetter = gain > most.gain || c < most.c || (c == most.c && b < most.b);
            if (isBetter) most = {gain, a, b, c, d, side};
        });
    }
    return most;
}

void Improved::carryOut(Exchange const &exchange) {
    if (exchange.side > 0) {
        reverse(place(exchange.b), place(exchange.c));
    } else {
        reverse(place(exchange.a), place(exchange.d));
    }
}

/// Reverses the part of the tour between two places, or the rest of it when that is shorter: the
/// tour is the same.
void Improved::reverse(int first, int last) {
    int count = wrapped(last - first) + 1;
    if (count > n_ - count) {
        int const behind = wrapped(last + 1);
        last = wrapped(first - 1);
        first = behind;
        count = n_ - count;
    }
    for (; count > 1; count -= 2) {
        std::swap(pointAt(first), pointAt(last));
        place(pointAt(first)) = first;
        place(pointAt(last)) = last;
        first = wrapped(first + 1);
        last = wrapped(last - 1);
    }
}

/// One round: one exchange at most for each point. Returns whether there was any.
bool Improved::improveAround() {
    bool improved = false;
    for (int a = 0; a < n_; ++a) {
        Exchange const exchange = best(a);
        if (!(exchange.gain > 0.0)) continue;
        carryOut(exchange);
        improved = true;
    }
    return improved;
}

void Improved::normalise() {
    std::rotate(tour_.begin(), tour_.begin() + place(0), tour_.end());
    if (tour_[1] > tour_.back()) std::reverse(tour_.begin() + 1, tour_.end());
}

std::vector<int> Improved::build() {
    constexpr int kMostRounds = 1000;
    for (int round = 0; round < kMostRounds; ++round)
        if (!improveAround()) break;
    normalise();
    return tour_;
}

} // namespace

void mg_ClosedTSP(suDynamicArray<mgPoint_c> &points, suDynamicArray<int> &order) {
    int const n = points.Count();
    vexmath::detail::replaceOrder(order, n, [&]() -> std::vector<int> {
        mgPoint_c const *const all = points.Data();
        if (n < 4 || !vexmath::detail::distancesAreFinite(all, n)) return {};
        return Improved(all, vexmath::detail::closedInsertionTour(all, n)).build();
    });
}
