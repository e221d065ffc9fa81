// SPDX-License-Identifier: MIT
// Hulls, tours, sorted points and least rectangles are those of the literal steps, and no point
// gets lost.

#include "fuzz.h"

#include <complex>
#include <numeric>
#include <tuple>

namespace {

/// Points of one kind: on grids, in clusters, on an ellipse, hardly apart, or any.
Points anyPoints(Input &in, int kind) {
    int const bytes = in.byte(), side = 1 + in.below(16);
    int const many[] = {100, 100, 100, 100, 300, 300, 1000, 2500}; // sorted by digits from 2000 on
    Points points(static_cast<std::size_t>(bytes < 248 ? bytes / 6 : many[bytes - 248]));
    auto const unit = [&in] { return in.word() / 65536.0; };
    auto const step = [&in](int count, double by) { return in.below(count) * by; };
    double const tied = in.flip() ? 7e-9 : 1.0; // not transitive, or apart
    for (P &p : points) {
        double const angle = 2 * kPi * unit();
        if (kind == 0) p = in.whole(side);
        if (kind == 1) p = P(3.0 + std::cos(angle), 4.0 + 0.3 * std::sin(angle), 0.0);
        if (kind == 2) p = P(unit(), 1e-3 * unit(), step(2, 1.0));
        if (kind == 3) p = P(step(side, 0.1), step(side, 0.3), step(2, -0.0));
        if (kind == 4) p = P(step(5, tied), step(3, tied), step(50, 1e-9));
        if (kind == 5)
            p = P(step(50, 1.0) + step(3, 9e-9), step(in.below(2) * 50 + 1, 1.0),
                  in.flip() ? unit() : 1);
        if (kind == 6) p = P(1 + unit() * 0x1p-40, step(9, 1.0), step(2, -0.0));
        if (kind == 7) p = P(std::pow(10.0, 600 * unit() - 300), unit(), 0.0);
        if (kind == 8) p = P(step(4, 1.5) + unit(), unit(), 0.0);
        if (kind == 9 && in.byte() < 160)
            p = P(step(5, 1e3) + unit(), unit(), 0.0);
        else if (kind == 9)
            p = P(0.0, 6e3 * unit() - 3e3, 0.0);
        if (kind > 9) p = in.triple<P>();
    }
    return points;
}

using Number = std::complex<double>;
using Corners = std::vector<Number>;

/// The corners; none when the result is 0.
Corners rectangle(Corners const &list, bool byWidth) {
    std::vector<mg2DPoint_c> points;
    for (Number const &p : list) points.emplace_back(p.real(), p.imag());
    mg2DPoint_c corners[4];
    if (minCnvxPlgRect(int(points.size()), points.data(), byWidth, corners) == 0) return {};
    Corners result;
    for (mg2DPoint_c const &p : corners) result.emplace_back(p.x(), p.y());
    return result;
}

/// Compares with the boxes of the polygon, rotated so that an edge is level.
void checkRectangle(Corners const &p, bool byWidth) {
    double area = kInfinity, width = kInfinity, size = 0.0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        Number const edge = p[(i + 1) % p.size()] - p[i];
        size = std::max(size, std::abs(p[i] - p[0]));
        if (edge == 0.0) continue;
        double low = 0, high = 0, left = 0, right = 0;
        for (Number const &q : p) {
            Number const at = (q - p[i]) * std::conj(edge) / std::abs(edge);
            left = std::min(left, at.real()), right = std::max(right, at.real());
            low = std::min(low, at.imag()), high = std::max(high, at.imag());
        }
        area = std::min(area, (right - left) * (high - low));
        width = std::min(width, high - low);
    }
    Corners const r = rectangle(p, byWidth);
    CHECK(r.size() == 4);
    Number const along = r[1] - r[0], up = r[2] - r[1], product = std::conj(along) * up;
    double const slack = 1e-11 * size, found = std::abs(up);
    CHECK(std::abs(r[3] - r[0] - up) <= slack && std::fabs(product.real()) <= slack * size);
    CHECK(product.imag() >= -slack * size); // counter-clockwise
    CHECK(byWidth ? std::fabs(found - width) <= slack
                  : std::fabs(found * std::abs(along) - area) <= slack * size);
    for (Number const &q : p)
        for (std::size_t k = 0; k < 4; ++k) {
            Number const side = r[(k + 1) % 4] - r[k];
            CHECK((std::conj(side) * (q - r[k])).imag() >= -slack * std::abs(side));
        }
    for (double const scale : {0x1p-530, 0x1p460}) {
        Corners scaled = p;
        for (Number &q : scaled) q *= scale;
        for (Number &q : scaled = rectangle(scaled, byWidth)) q /= scale;
        CHECK(scaled == r);
    }
}

using Pair = std::pair<double, double>;
using Pairs = std::vector<Pair>;

double turn(Pair const &o, Pair const &a, Pair const &b) {
    return (a.first - o.first) * (b.second - o.second)
           - (a.second - o.second) * (b.first - o.first);
}

bool isRightOf(Pair const &from, Pair const &to, Pair const &p) {
    double const x = to.first - from.first, y = to.second - from.second;
    double const length = std::sqrt(x * x + y * y), divisor = length < 1e-8 ? 1.0 : length;
    return x / divisor * (p.second - from.second) - y / divisor * (p.first - from.first) < 0.0;
}

/// The steps, one by one, for finite points; these are then sorted, without duplicates.
Pairs literalHull(Pairs &p) {
    std::sort(p.begin(), p.end());
    p.erase(std::unique(p.begin(), p.end()), p.end());
    std::size_t const n = p.size();
    Pairs hull = p;
    if (n == 3 && turn(p[0], p[1], p[2]) < 0.0) std::swap(hull[1], hull[2]);
    if (n < 4) return hull;
    hull.resize(1);
    std::size_t minmax = 0, maxmin = n - 1;
    while (minmax + 1 < n && p[minmax + 1].first == p[0].first) ++minmax;
    while (maxmin > 0 && p[maxmin - 1].first == p[n - 1].first) --maxmin;
    auto const visit = [&](std::size_t i, std::size_t from, std::size_t to) {
        if (i != to && !isRightOf(p[from], p[to], p[i])) return;
        while (hull.size() >= 2 && turn(hull[hull.size() - 2], hull.back(), p[i]) <= 0.0)
            hull.pop_back();
        if (i > 0) hull.push_back(p[i]);
    };
    for (std::size_t i = minmax + 1; i <= maxmin; ++i) visit(i, 0, maxmin);
    if (n - 1 != maxmin) hull.push_back(p[n - 1]);
    for (std::size_t i = maxmin; i-- > minmax;) visit(i, n - 1, minmax);
    return hull;
}

void checkHull(Input &in, Points const &points, int kind) {
    suDynamicArray<mg2DPoint_c> list, hull;
    Pairs pairs;
    for (P const &p : points) list.Add({p.x(), p.y()}), pairs.emplace_back(p.x(), p.y());
    CHECK(timed([&] { return convexHull(list, hull); }) == !points.empty());
    auto const isNumber = [](mg2DPoint_c const &p) { return !std::isnan(p.x()); };
    CHECK(std::is_partitioned(list.begin(), list.end(), isNumber));
    if (points.empty() || (kind > 9 && !in.isTame())) return;
    auto const areSame = [](mg2DPoint_c const &a, Pair const &b) {
        return a.x() == b.first && a.y() == b.second;
    };
    Pairs const literal = literalHull(pairs);
    CHECK(std::equal(hull.begin(), hull.end(), literal.begin(), literal.end(), areSame));
    CHECK(literal.size() == 3
          || std::equal(list.begin(), list.end(), pairs.begin(), pairs.end(), areSame));
    if (kind > 2 || literal.size() < 2) return;
    Corners p;
    for (int i = 0; i < hull.Count(); ++i) {
        Number const a(hull[i].x(), hull[i].y());
        mg2DPoint_c const &next = hull[(i + 1) % hull.Count()];
        p.insert(p.end(), static_cast<std::size_t>(1 + in.below(3)), a);
        if (kind == 0 && in.below(4) == 0) p.push_back((a + Number(next.x(), next.y())) / 2.0);
    }
    std::rotate(p.begin(), p.begin() + in.byte() % static_cast<int>(p.size()), p.end());
    if (in.flip()) std::reverse(p.begin(), p.end());
    checkRectangle(p, in.flip());
}

bool isLess(P const &a, P const &b) { return a.isLessThan(b, -1.0) != 0; }

/// Not the same; a difference of NaN is none.
bool areApart(P const &a, P const &b) {
    V const d = a - b;
    return std::fabs(d.x()) >= 1e-8 || std::fabs(d.y()) >= 1e-8 || std::fabs(d.z()) >= 1e-8;
}

void literalSelectionSort(P *p, int first, int last) {
    for (int i = first; i < last; ++i)
        std::swap(p[i], *std::min_element(p + i, p + last + 1, isLess));
}

/// Recursion sorts the left side, and the loop goes on with the right one.
void literalQuickSort(P *p, int first, int last) {
    while (last - first >= 10) {
        int const mid = (first + last) / 2;
        int lo = first, hi = last;
        if (isLess(p[last], p[first])) std::swap(lo, hi);
        int median = mid;
        if (isLess(p[mid], p[lo])) median = lo;
        if (isLess(p[hi], p[median])) median = hi;
        std::swap(p[first], p[median]);
        P const pivot = p[first];
        int i = first + 1, j = last;
        while (i < j) {
            while (i < j && isLess(p[i], pivot)) ++i;
            while (i < j && !isLess(p[j], pivot) && areApart(p[j], pivot)) --j;
            if (i < j) std::swap(p[i++], p[j--]);
        }
        int const k = isLess(p[i], pivot) ? i : i - 1;
        std::swap(p[first], p[k]);
        literalQuickSort(p, first, k - 1);
        first = k + 1;
    }
    literalSelectionSort(p, first, last);
}

/// Sorts by indices from -origin on.
template <class Sort, class Literal>
void checkSort(Points const &points, int origin, Sort const &sort, Literal const &literal) {
    Points sorted = points, expected = points;
    int const last = static_cast<int>(points.size()) - 1 - origin;
    timed([&] { return sort(sorted.data() + origin, -origin, last), 0; });
    literal(expected.data() + origin, -origin, last);
    for (std::size_t i = 0; i < points.size(); ++i) CHECK(same(sorted[i], expected[i]));
}

using Order = std::vector<int>;

/// The rule of insertion, step by step: three nested loops, a best cost that starts below all
/// others, and the ends tried after the detour. A closed tour ends with its start, and has no ends.
Order literalInsertion(Points const &list, bool closed) {
    P const *const p = list.data();
    int const n = static_cast<int>(list.size());
    Order left(list.size() - 2), tour{n - 2, n - 1};
    std::iota(left.begin(), left.end(), 0);
    if (closed) tour.push_back(n - 2);
    while (!left.empty()) {
        double best = -1000.0;
        auto chosen = left.end();
        auto place = tour.end();
        for (auto k = tour.begin() + 1; k != tour.end(); ++k) {
            bool const first = !closed && k - 1 == tour.begin();
            bool const last = !closed && k + 1 == tour.end();
            for (auto c = left.begin(); c != left.end(); ++c) {
                double const d4 = dist(p[*c], p[*k]), d5 = dist(p[*c], p[k[-1]]);
                double const cost = d4 + d5 - dist(p[k[-1]], p[*k]);
                if (!(chosen == left.end() || cost < best || (last && d4 < best)
                      || (first && d5 < best)))
                    continue;
                best = cost, chosen = c, place = k;
                if (last && d4 < best) best = d4, place = k + 1;
                if (first && d5 < best) best = d5, place = k - 1;
            }
        }
        tour.insert(place, *chosen);
        left.erase(chosen);
    }
    if (closed) tour.pop_back();
    return tour;
}

/// Carries out the best exchange at point a, if there is any.
bool improve(P const *p, Order &tour, int a) {
    std::tuple<double, int, int> best{0.0, 0, 0}; // minus what it saves, c, b
    Order result;
    for (bool const backwards : {false, true}) {
        Order t = tour;
        if (backwards) std::reverse(t.begin(), t.end());
        std::rotate(t.begin(), std::find(t.begin(), t.end(), a) + 1, t.end()); // b ... c d ... a
        for (std::size_t i = 1; i + 2 < t.size(); ++i) {
            int const b = t[0], c = t[i], d = t[i + 1];
            if (!(dist(p[a], p[c]) < dist(p[a], p[b]))) continue;
            double const removed = dist(p[a], p[b]) + dist(p[c], p[d]);
            double const saved = removed - (dist(p[a], p[c]) + dist(p[b], p[d]));
            if (!(saved > 1e-12 * removed) || std::tuple(-saved, c, b) >= best) continue;
            best = {-saved, c, b};
            result = t;
            std::reverse(result.begin(), result.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        }
    }
    if (!result.empty()) tour = result;
    return !result.empty();
}

Order literalTour(Points const &p, bool closed) {
    Order tour(p.size());
    std::iota(tour.begin(), tour.end(), 0);
    if (p.size() < (closed ? 4 : 3)) return tour;
    tour = literalInsertion(p, closed);
    if (!closed) return tour;
    for (bool improved = true; improved;) {
        improved = false;
        for (int a = 0; a < static_cast<int>(p.size()); ++a) improved |= improve(p.data(), tour, a);
    }
    std::rotate(tour.begin(), std::find(tour.begin(), tour.end(), 0), tour.end());
    if (tour[1] > tour.back()) std::reverse(tour.begin() + 1, tour.end());
    return tour;
}

void checkTour(Points const &points, bool isOrdinary, bool closed) {
    suDynamicArray<P> list;
    suDynamicArray<int> indices;
    for (P const &p : points) list.Add(p);
    timed([&] { return (closed ? mg_ClosedTSP : mg_OpenTSP)(list, indices), 0; });
    Order order(indices.begin(), indices.end());
    if (points.size() < 50 && (isOrdinary || !closed))
        return CHECK(order == literalTour(points, closed));
    std::sort(order.begin(), order.end());
    CHECK(order.size() == points.size());
    for (std::size_t i = 0; i < order.size(); ++i) CHECK(order[i] == static_cast<int>(i));
}

} // namespace

void fuzz(Input &in) {
    int const kind = in.below(14);
    bool const isOrdinary = kind > 9 ? in.isTame() : kind != 7;
    Points const points = anyPoints(in, kind);
    int const n = static_cast<int>(points.size()), origin = n == 0 ? 0 : in.byte() % n;
    checkHull(in, points, kind);
    checkSort(points, origin, mg_pointQuickSort, literalQuickSort);
    if (n <= 300) checkSort(points, origin, mg_pointSelectionSort, literalSelectionSort);
    // Infinite distances make cubic work, as the header says.
    for (bool const closed : {false, true})
        if (n < 100 || (n <= 1000 && (isOrdinary || closed))) checkTour(points, isOrdinary, closed);
}
