// SPDX-License-Identifier: MIT
// The least rectangle around a convex polygon, by rotating calipers.
//
// A rectangle of least area, and one of least width, has a side along an edge of the polygon. Four
// calipers touch the polygon on the four sides of a rectangle. They rotate together, each time to
// the next edge at any of them, and touch every edge once in a quarter turn.

#include <vexmath/mg_planar.h>
#include <vexmath/point2d.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

/// Shorter edges, relative to the polygon, have no direction: squared length, strict.
constexpr double kLeastLengthSq = std::numeric_limits<double>::min();

struct Vec {
    double x = 0.0;
    double y = 0.0;
};

Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
Vec leftOf(Vec a) { return {-a.y, a.x}; }

/// a x b: positive when b is to the left of a.
double cross(Vec a, Vec b) { return a.x * b.y - a.y * b.x; }

/// The indices of the corners that are farthest down, right, up and left. Of several it is the one
/// that is farthest counter-clockwise, so right, up, left and down.
struct Extremes {
    int corner[4] = {0, 0, 0, 0};

    Extremes(int n, mg2DPoint_c const *p);
};

Extremes::Extremes(int n, mg2DPoint_c const *p) {
    Vec far[4];
    std::fill_n(far, 4, Vec{p[0].x(), p[0].y()});
    for (int i = 1; i < n; ++i) {
        Vec const at{p[i].x(), p[i].y()};
        bool const isFarther[] = {at.y < far[0].y || (at.y == far[0].y && at.x > far[0].x),
                                  at.x > far[1].x || (at.x == far[1].x && at.y > far[1].y),
                                  at.y > far[2].y || (at.y == far[2].y && at.x < far[2].x),
                                  at.x < far[3].x || (at.x == far[3].x && at.y < far[3].y)};
        for (int k = 0; k < 4; ++k) {
            if (!isFarther[k]) continue;
            far[k] = at;
            corner[k] = i;
        }
    }
}

/// A polygon that was moved, scaled to about unit size and, if it runs clockwise, read backwards.
/// So no product overflows, and the polygon is on the left of each edge.
class Polygon {
public:
    Polygon(int n, mg2DPoint_c const *points, Extremes const &extremes);

    int count() const { return n_; }
    int next(int i) const {
        if (step_ > 0) return i + 1 < n_ ? i + 1 : 0;
        return i > 0 ? i - 1 : n_ - 1;
    }
    Vec operator[](int i) const {
        return {(points_[i].x() - first_.x) * scale_, (points_[i].y() - first_.y) * scale_};
    }
    /// The index of the edge from point i, in the order of the points that were given.
    int edgeIndex(int i) const { return step_ > 0 ? i : next(i); }

private:
    bool isClockwise(Extremes const &extremes) const;

    int n_;
    mg2DPoint_c const *points_;
    int step_ = 1;
    Vec first_;
    double scale_ = 1.0;
};

Polygon::Polygon(int n, mg2DPoint_c const *points, Extremes const &extremes)
    : n_(n), points_(points), first_{points[0].x(), points[0].y()} {
    auto const &[down, right, up, left] = extremes.corner;
    double const extent =
        std::max(points[right].x() - points[left].x(), points[up].y() - points[down].y());
    constexpr int kMostExponent = 1000; // of the scale, which must stay finite
    int exponent = 0;
    std::frexp(extent, &exponent);
    scale_ = std::ldexp(1.0, std::min(-exponent, kMostExponent));
    if (isClockwise(extremes)) step_ = -1;
}

/// The sign of the area. That of the four extreme corners, in the polygon's order, has the same
/// sign, where it is large enough to be safe from rounding.
bool Polygon::isClockwise(Extremes const &extremes) const {
    constexpr double kSafeArea = 1e-06; // twice the area, in squares of about the polygon's size
    int order[4];
    std::copy(std::begin(extremes.corner), std::end(extremes.corner), order);
    std::sort(order, order + 4);
    double const area = cross((*this)[order[2]] - (*this)[order[0]], //
                              (*this)[order[3]] - (*this)[order[1]]);
    if (std::fabs(area) > kSafeArea) return area < 0.0;

    double sum = 0.0;
    Vec before = (*this)[n_ - 1];
    for (int i = 0; i < n_; ++i) {
        Vec const p = (*this)[i];
        sum += cross(before, p);
        before = p;
    }
    return sum < 0.0;
}

/// Four calipers. Caliper 0 starts below the polygon; k is rotated counter-clockwise from it by k
/// quarter turns. All edges are rotated back by as much, so that they are compared with each other.
class Calipers {
public:
    Calipers(Polygon const &polygon, Extremes const &extremes, bool byWidth)
        : polygon_(polygon), byWidth_(byWidth), left_(polygon.count()) {
        for (int k = 0; k < 4; ++k) ends_[k] = extremes.corner[k];
        advance<0>();
        advance<1>();
        advance<2>();
        advance<3>();
    }

    /// False after a quarter turn, in which the calipers passed each point once.
    bool hasNextEdge() const { return left_ > 0; }
    /// Measures the rectangle at the next edge and moves the caliper there along it.
    void visitNextEdge() {
        if (cross(edges_[0], edges_[1]) < 0.0) {
            if (cross(edges_[2], edges_[3]) < 0.0) {
                cross(edges_[1], edges_[3]) < 0.0 ? visit<3>() : visit<1>();
            } else {
                cross(edges_[1], edges_[2]) < 0.0 ? visit<2>() : visit<1>();
            }
        } else {
            if (cross(edges_[2], edges_[3]) < 0.0) {
                cross(edges_[0], edges_[3]) < 0.0 ? visit<3>() : visit<0>();
            } else {
                cross(edges_[0], edges_[2]) < 0.0 ? visit<2>() : visit<0>();
            }
        }
    }

    /// The edge of the least rectangle; zero when all points are the same.
    Vec bestEdge() const { return bestEdge_; }

private:
    template <int k>
    void visit();
    template <int k>
    void advance();
    template <int k>
    static Vec rotated(Vec a);

    Polygon const &polygon_;
    bool byWidth_;
    int left_; // of the points
    int starts_[4] = {0, 0, 0, 0};
    int ends_[4] = {0, 0, 0, 0};
    int steps_[4] = {0, 0, 0,
                     0}; // points from the places to the ends, 1 unless points are repeated
    Vec places_[4];      // of the starts
    Vec edges_[4];       // from the starts to the ends, rotated
    double best_ = std::numeric_limits<double>::infinity();
    int bestIndex_ = 0;
    Vec bestEdge_;
};

/// Rotated clockwise by k quarter turns.
template <int k>
Vec Calipers::rotated(Vec a) {
    if constexpr (k == 0) return a;
    if constexpr (k == 1) return {a.y, -a.x};
    if constexpr (k == 2) return {-a.x, -a.y};
    return {-a.y, a.x};
}

template <int k>
void Calipers::visit() {
    Vec const edge = edges_[k];
    double const lengthSq = dot(edge, edge);
    double const along = dot(places_[1] - places_[3], edge);
    double const across = cross(edge, places_[2] - places_[0]);
    double const width = k % 2 == 0 ? across : along;
    double const size = (byWidth_ ? width * width : along * across) / lengthSq;
    int const index = polygon_.edgeIndex(starts_[k]);
    if (size < best_ || (size == best_ && index < bestIndex_)) {
        best_ = size;
        bestIndex_ = index;
        bestEdge_ = rotated<(4 - k) % 4>(edge);
    }
    left_ -= steps_[k];
    advance<k>();
}

/// Moves a caliper to the end of its edge. Edges without a length are passed over.
template <int k>
void Calipers::advance() {
    Vec edge;
    int start = ends_[k];
    int end = start;
    int steps = 0;
    Vec const at = polygon_[start];
    for (; steps < polygon_.count() && !(dot(edge, edge) >= kLeastLengthSq); ++steps) {
        start = end;
        end = polygon_.next(end);
        edge = polygon_[end] - at;
    }
    starts_[k] = start;
    ends_[k] = end;
    steps_[k] = steps;
    places_[k] = at;
    edges_[k] = rotated<k>(edge);
}

/// The direction of the edge of the least rectangle; the x axis when all points are the same.
Vec leastDirection(int n, mg2DPoint_c const *points, bool byWidth) {
    Extremes const extremes(n, points);
    Polygon const polygon(n, points, extremes);
    Calipers calipers(polygon, extremes, byWidth);
    while (calipers.hasNextEdge()) calipers.visitNextEdge();
    Vec const edge = calipers.bestEdge();
    double const length = std::sqrt(dot(edge, edge));
    return length > 0.0 ? Vec{edge.x / length, edge.y / length} : Vec{1.0, 0.0};
}

/// The rectangle with a side along a unit direction around all points. These are all read again, so
/// that none is outside by more than rounding.
void circumscribe(int n, mg2DPoint_c const *points, Vec direction, mg2DPoint_c *corners) {
    Vec const up = leftOf(direction);
    double const infinity = std::numeric_limits<double>::infinity();
    Vec low{infinity, infinity};
    Vec high{-infinity, -infinity};
    for (int i = 0; i < n; ++i) {
        Vec const p{points[i].x(), points[i].y()};
        low = {std::min(low.x, dot(p, direction)), std::min(low.y, dot(p, up))};
        high = {std::max(high.x, dot(p, direction)), std::max(high.y, dot(p, up))};
    }
    Vec const ends[] = {{low.x, low.y}, {high.x, low.y}, {high.x, high.y}, {low.x, high.y}};
    for (int k = 0; k < 4; ++k)
        corners[k].set(ends[k].x * direction.x + ends[k].y * up.x,
                       ends[k].x * direction.y + ends[k].y * up.y);
}

bool isUsable(mg2DPoint_c const &p) {
    constexpr double kMost = 1e150; // absolute, inclusive
    return std::fabs(p.x()) <= kMost && std::fabs(p.y()) <= kMost;
}

} // namespace

int minCnvxPlgRect(int n, mg2DPoint_c const *polygon, int byWidth, mg2DPoint_c *corners) {
    if (n < 1 || !std::all_of(polygon, polygon + n, isUsable)) return 0;
    Vec const direction = leastDirection(n, polygon, byWidth != 0);
    circumscribe(n, polygon, direction, corners);
    return 1;
}
