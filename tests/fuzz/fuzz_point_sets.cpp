// SPDX-License-Identifier: MIT
// Hulls, tours, sorted points and least rectangles: whatever the points are, none gets lost, and on
// whole numbers hull, order and tour are what exact arithmetic or the rule gives.

#include "fuzz.h"

namespace {

using Points = std::vector<P>;

bool isBefore(P const &a, P const &b) { return std::memcmp(&a, &b, sizeof a) < 0; }

bool isPermutation(Points a, Points b) {
    std::sort(a.begin(), a.end(), isBefore), std::sort(b.begin(), b.end(), isBefore);
    return std::equal(a.begin(), a.end(), b.begin(),
                      [](P const &p, P const &q) { return same(p, q); });
}

double cross(mg2DPoint_c const &o, mg2DPoint_c const &a, mg2DPoint_c const &b) {
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

void checkHull(Points const &points, bool isWhole, bool byWidth) {
    suDynamicArray<mg2DPoint_c> list, hull;
    for (P const &p : points) list.Add({p.x(), p.y()});
    {
        TimeLimit const limit;
        CHECK(convexHull(list, hull) == !points.empty());
    }
    int const n = hull.Count();
    mg2DPoint_c corners[4];
    int const hasRectangle = minCnvxPlgRect(n, hull.Data(), byWidth, corners);
    if (!isWhole || n < 3) return;
    CHECK(hasRectangle == 1);
    mg2DPoint_c const *const h = hull.Data();
    auto const extent = [&](mg2DPoint_c const &a, mg2DPoint_c const &b, double x, double y) {
        double least = kInfinity, most = -kInfinity,
               length = std::hypot(b.x() - a.x(), b.y() - a.y());
        for (int i = 0; i < n; ++i) {
            double const at = (h[i].x() * x * (b.x() - a.x()) - h[i].x() * y * (b.y() - a.y())
                               + h[i].y() * y * (b.x() - a.x()) + h[i].y() * x * (b.y() - a.y()))
                              / length;
            least = std::min(least, at), most = std::max(most, at);
        }
        return most - least;
    };
    double best = kInfinity;
    for (int i = 0; i < n; ++i) {
        mg2DPoint_c const &a = h[i], &b = h[(i + 1) % n], &c = h[(i + 2) % n];
        CHECK(cross(a, b, c) > 0.0);
        for (P const &p : points) CHECK(cross(a, b, {p.x(), p.y()}) >= 0.0);
        double const height = extent(a, b, 0, 1);
        best = std::min(best, byWidth ? height : height * extent(a, b, 1, 0));
    }
    double const width =
                     std::hypot(corners[1].x() - corners[0].x(), corners[1].y() - corners[0].y()),
                 height =
                     std::hypot(corners[2].x() - corners[1].x(), corners[2].y() - corners[1].y());
    CHECK(std::fabs((byWidth ? height : width * height) - best) < 1e-9 * (1.0 + best));
    for (int i = 0; i < 4; ++i)
        for (P const &p : points)
            CHECK(cross(corners[i], corners[(i + 1) % 4], {p.x(), p.y()}) > -1e-9);
}

void checkSorts(Points const &points, bool isWhole) {
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        Points sorted = points;
        {
            TimeLimit const limit;
            sort(sorted.data(), 0, static_cast<int>(sorted.size()) - 1);
        }
        CHECK(isPermutation(points, sorted));
        for (std::size_t i = 1; i < sorted.size() && isWhole; ++i)
            CHECK(!sorted[i].isLessThan(sorted[i - 1]));
    }
}

/// The open tour by its rule, literally.
std::vector<int> openTour(Points const &p) {
    int const n = static_cast<int>(p.size());
    auto const at = [&p](int i) { return p[static_cast<std::size_t>(i)]; };
    std::vector<int> path{n - 2, n - 1}, left;
    for (int i = 0; i < n - 2; ++i) left.push_back(i);
    while (!left.empty()) {
        double best = kInfinity;
        std::ptrdiff_t place = 0, chosen = 0, last = static_cast<std::ptrdiff_t>(path.size()) - 1;
        for (std::ptrdiff_t k = 1; k <= last; ++k)
            for (std::size_t i = 0; i < left.size(); ++i) {
                P const &tail = at(path[std::size_t(k - 1)]), &head = at(path[std::size_t(k)]),
                        &own = at(left[i]);
                auto const offer = [&](double value, std::ptrdiff_t where) {
                    if (value < best)
                        best = value, place = where, chosen = static_cast<std::ptrdiff_t>(i);
                };
                offer(dist(own, head) + dist(own, tail) - dist(head, tail), k);
                if (k == last) offer(dist(own, head), k + 1);
                if (k == 1) offer(dist(own, tail), 0);
            }
        path.insert(path.begin() + place, left[std::size_t(chosen)]);
        left.erase(left.begin() + chosen);
    }
    return path;
}

void checkTours(Points const &points, bool isFinite) {
    suDynamicArray<P> list;
    for (P const &p : points) list.Add(p);
    int const n = list.Count();
    for (auto const tour : {mg_OpenTSP, mg_ClosedTSP}) {
        suDynamicArray<int> order;
        {
            TimeLimit const limit;
            tour(list, order);
        }
        CHECK(order.Count() == n);
        std::vector<int> const found(order.Data(), order.Data() + n);
        std::vector<bool> isVisited(points.size());
        for (int const i : found)
            CHECK(0 <= i && i < n && !isVisited[std::size_t(i)]), isVisited[std::size_t(i)] = true;
        if (!isFinite || n < 4 || n > 40) continue;
        if (tour == mg_OpenTSP) {
            CHECK(found == openTour(points));
            continue;
        }
        CHECK(found[0] == 0 && found[1] < found.back());
        // No exchange of two edges makes it shorter.
        auto const at = [&](int k) { return points[std::size_t(found[std::size_t(k % n)])]; };
        for (int i = 0; i < n; ++i)
            for (int j = i + 1; j < n; ++j) {
                double const removed = dist(at(i), at(i + 1)) + dist(at(j), at(j + 1));
                CHECK(dist(at(i), at(j)) + dist(at(i + 1), at(j + 1))
                      > removed * (1.0 - 2e-12) - 1e-150);
            }
    }
}

} // namespace

void fuzzOne(Input &in) {
    bool const isWhole = in.flip(), byWidth = in.flip();
    Points points(static_cast<std::size_t>(in.count()));
    bool isOrdinary = in.isTame() || isWhole;
    for (P &p : points) p = isWhole ? in.whole(16) : in.triple<P>();
    checkHull(points, isWhole, byWidth);
    checkSorts(points, isWhole);
    // Infinite distances make cubic work, as the header says.
    if (isOrdinary || points.size() < 100) checkTours(points, isOrdinary);
}
