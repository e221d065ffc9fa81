// SPDX-License-Identifier: MIT
// Hulls, tours, sorted points and least rectangles: whatever the points are, none gets lost, and on
// whole numbers hulls and orders are exact.

#include "fuzz.h"

namespace {

double cross(mg2DPoint_c const &o, mg2DPoint_c const &a, P const &b) {
    return (a.x() - o.x()) * (b.y() - o.y()) - (a.y() - o.y()) * (b.x() - o.x());
}

void checkHull(Points const &points, bool isWhole, bool byWidth) {
    suDynamicArray<mg2DPoint_c> list, hull;
    for (P const &p : points) list.Add({p.x(), p.y()});
    CHECK(timed([&] { return convexHull(list, hull); }) == !points.empty());
    int const n = hull.Count();
    mg2DPoint_c corners[4];
    int const hasRectangle = minCnvxPlgRect(n, hull.Data(), byWidth, corners);
    if (!isWhole || n < 3) return;
    double width = kInfinity; // the least width is the height over some edge
    for (int i = 0; i < n; ++i) {
        mg2DPoint_c const &a = hull[i], &b = hull[(i + 1) % n], &c = hull[(i + 2) % n];
        CHECK(cross(a, b, P(c.x(), c.y(), 0.0)) > 0.0);
        double most = 0.0;
        for (P const &p : points) {
            CHECK(cross(a, b, p) >= 0.0 && cross(corners[i % 4], corners[(i + 1) % 4], p) > -1e-9);
            most = std::max(most, cross(a, b, p));
        }
        width = std::min(width, most / std::hypot(b.x() - a.x(), b.y() - a.y()));
    }
    P const c1(corners[1].x(), corners[1].y(), 0), c2(corners[2].x(), corners[2].y(), 0);
    CHECK(hasRectangle == 1 && dist(c1, c2) >= width - 1e-9);
    CHECK(!byWidth || dist(c1, c2) <= width + 1e-9);
}

void checkSorts(Points const &points, bool isWhole) {
    auto const isBefore = [](P const &a, P const &b) { return std::memcmp(&a, &b, sizeof a) < 0; };
    Points all = points;
    std::sort(all.begin(), all.end(), isBefore);
    for (auto const sort : {mg_pointQuickSort, mg_pointSelectionSort}) {
        Points sorted = points;
        timed([&] { return sort(sorted.data(), 0, int(sorted.size()) - 1), 0; });
        for (std::size_t i = 1; i < sorted.size() && isWhole; ++i)
            CHECK(!sorted[i].isLessThan(sorted[i - 1]));
        std::sort(sorted.begin(), sorted.end(), isBefore);
        for (std::size_t i = 0; i < sorted.size(); ++i) CHECK(same(sorted[i], all[i]));
    }
}

void checkTour(Points const &points, bool isOrdinary, decltype(mg_OpenTSP) &tour) {
    suDynamicArray<P> list;
    suDynamicArray<int> order;
    for (P const &p : points) list.Add(p);
    int const n = list.Count();
    timed([&] { return tour(list, order), 0; });
    std::vector<int> visits(points.size());
    CHECK(order.Count() == n);
    for (int k = 0; k < n; ++k)
        CHECK(0 <= order[k] && order[k] < n && visits[std::size_t(order[k])]++ == 0);
    if (!isOrdinary || tour == mg_OpenTSP || n < 4 || n > 40) return;
    CHECK(order[0] == 0 && order[1] < order[n - 1]);
    auto const at = [&](int k) { return list[order[k % n]]; };
    for (int i = 0; i < n; ++i)
        for (int j = i + 1; j < n; ++j) { // an exchange of two edges makes it no shorter
            double const removed = dist(at(i), at(i + 1)) + dist(at(j), at(j + 1));
            CHECK(dist(at(i), at(j)) + dist(at(i + 1), at(j + 1)) >= removed * (1.0 - 2e-12));
        }
}

} // namespace

void fuzz(Input &in) {
    bool const isWhole = in.flip(), byWidth = in.flip(), isOrdinary = in.isTame() || isWhole;
    Points points(static_cast<std::size_t>(in.count()));
    for (P &p : points) p = isWhole ? in.whole(16) : in.triple<P>();
    checkHull(points, isWhole, byWidth);
    checkSorts(points, isWhole);
    checkTour(points, isOrdinary, mg_ClosedTSP);
    // Infinite distances make cubic work, as the header says.
    if (isOrdinary || points.size() < 100) checkTour(points, isOrdinary, mg_OpenTSP);
}
