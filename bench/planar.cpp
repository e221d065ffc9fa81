// SPDX-License-Identifier: MIT
// Tools for drawings: clipping, least rectangles, closed tours.

#include <vexmath/mg_planar.h>
#include <vexmath/mg_queries.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

#include <cmath>
#include <iterator>

#include "works.h"

#ifdef VEXMATH_BENCH_CGAL
#include <CGAL/Simple_cartesian.h>
#include <CGAL/intersections.h>
#include <CGAL/min_quadrilateral_2.h>
#endif
#ifdef VEXMATH_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/graph/adjacency_matrix.hpp>
#include <boost/graph/metric_tsp_approx.hpp>
#endif

namespace {

using works::Numbers;
using works::Triple;

constexpr double kWindow = 50.0; ///< the box is a square around the origin, half its side

struct Segment {
    Triple a, b;
};

/// Both ends inside, one of them, none: a third each. Some of the last cross the box.
template <class Make>
auto segmentsAs(Make const &make) {
    auto const inside = [](Triple const &p) {
        return std::abs(p.x) < kWindow && std::abs(p.y) < kWindow;
    };
    auto const point = [inside](Numbers &random, bool wanted) {
        Triple p = random.triple(3.0 * kWindow);
        while (inside(p) != wanted) p = random.triple(wanted ? kWindow : 3.0 * kWindow);
        return p;
    };
    return works::inputs(
        [&make, point](Numbers &random) {
            int const within = static_cast<int>(random(0.0, 3.0));
            Triple const a = point(random, within > 0), b = point(random, within > 1);
            return random(0.0, 2.0) < 1.0 ? make(Segment{a, b}) : make(Segment{b, a});
        },
        1000000);
}

template <class Make, class Clip>
void addClip(char const *who, Make const &make, Clip const &clip) {
    works::add("clip segments", who, [make, clip](benchmark::State &state) {
        works::measure(state, segmentsAs(make), clip);
    });
}

/// A convex polygon of many corners, counter-clockwise, oblique to the axes.
template <class Point>
std::vector<Point> const &ellipse() {
    static std::vector<Point> const all = [] {
        constexpr int n = 100000;
        std::vector<Point> result;
        for (int i = 0; i < n; ++i) {
            double const angle = 6.283185307179586 * i / n;
            double const u = 100.0 * std::cos(angle), v = 60.0 * std::sin(angle);
            result.emplace_back(0.8 * u - 0.6 * v, 0.6 * u + 0.8 * v);
        }
        return result;
    }();
    return all;
}

template <class Point, class LeastRectangle>
void addLeastRectangle(char const *who, LeastRectangle const &leastRectangle) {
    works::add("least rectangle", who, [leastRectangle](benchmark::State &state) {
        auto const &polygon = ellipse<Point>();
        for (auto _ : state) {
            Point corners[4];
            leastRectangle(polygon, corners);
            benchmark::DoNotOptimize(corners);
        }
        works::countItems(state, polygon.size());
    });
}

constexpr std::size_t kStops = 2000;

std::vector<mgPoint_c> const &stops() {
    static auto const all = works::inputs(
        [](Numbers &random) {
            Triple const p = random.triple(100.0);
            return mgPoint_c(p.x, p.y, p.z);
        },
        kStops);
    return all;
}

/// `tourOf` returns the order, which it may have to write elsewhere first.
template <class TourOf>
void addClosedTour(char const *who, TourOf const &tourOf) {
    works::add("closed tour of " + std::to_string(kStops), who, [tourOf](benchmark::State &state) {
        std::vector<std::size_t> const order = tourOf(state);
        double length = (stops()[order.front()] - stops()[order.back()]).len();
        for (std::size_t i = 1; i < order.size(); ++i)
            length += (stops()[order[i]] - stops()[order[i - 1]]).len();
        state.counters["length"] = length;
        works::countItems(state, kStops);
    });
}

void addVexmath() {
    static mgPoint_c const low(-kWindow, -kWindow, 0.0), high(kWindow, kWindow, 0.0);
    struct Clipped {
        mgPoint_c a, b;
        mgClipLine_e how;
    };
    addClip(
        "vexmath",
        [](Segment const &s) {
            return std::pair(mgPoint_c(s.a.x, s.a.y, 0.0), mgPoint_c(s.b.x, s.b.y, 0.0));
        },
        [](auto const &s) {
            Clipped out;
            out.how = mg_ClipLine2DToBox(s.first, s.second, low, high, out.a, out.b, 1e-8);
            return out;
        });
    addLeastRectangle<mg2DPoint_c>("vexmath", [](auto const &polygon, mg2DPoint_c *corners) {
        minCnvxPlgRect(static_cast<int>(polygon.size()), polygon.data(), 0, corners);
    });
    addClosedTour("vexmath", [](benchmark::State &state) {
        suDynamicArray<mgPoint_c> points;
        for (mgPoint_c const &stop : stops()) points.Add(stop);
        suDynamicArray<int> order;
        for (auto _ : state) {
            order = suDynamicArray<int>();
            mg_ClosedTSP(points, order);
            benchmark::DoNotOptimize(order.Data());
        }
        std::vector<std::size_t> tour;
        for (int i = 0; i < order.Count(); ++i) tour.push_back(static_cast<std::size_t>(order[i]));
        return tour;
    });
}

#ifdef VEXMATH_BENCH_CGAL

using Cgal = CGAL::Simple_cartesian<double>;

void addCgal() {
    static Cgal::Iso_rectangle_2 const window(-kWindow, -kWindow, kWindow, kWindow);
    addClip(
        "CGAL",
        [](Segment const &s) {
            return Cgal::Segment_2(Cgal::Point_2(s.a.x, s.a.y), Cgal::Point_2(s.b.x, s.b.y));
        },
        [](auto const &s) { return CGAL::intersection(window, s); });
    addLeastRectangle<Cgal::Point_2>("CGAL", [](auto const &polygon, Cgal::Point_2 *corners) {
        CGAL::min_rectangle_2(polygon.begin(), polygon.end(), corners);
    });
}

#endif
#ifdef VEXMATH_BENCH_BOOST

namespace bg = boost::geometry;

/// Its Liang-Barsky clips in place and says which ends; the library around it makes lists of lines.
void addBoost() {
    using Point = bg::model::d2::point_xy<double>;
    using Box = bg::model::box<Point>;
    static Box const window({-kWindow, -kWindow}, {kWindow, kWindow});
    struct Clipped {
        Point a, b;
        bool meets, movedA, movedB;
    };
    addClip(
        "Boost Liang-Barsky",
        [](Segment const &s) { return std::pair(Point(s.a.x, s.a.y), Point(s.b.x, s.b.y)); },
        [](auto const &s) {
            Clipped out{s.first, s.second, false, false, false};
            bg::model::referring_segment<Point> segment(out.a, out.b);
            out.meets = bg::strategy::intersection::liang_barsky<Box, Point>().clip_segment(
                window, segment, out.movedA, out.movedB);
            return out;
        });
}

using Distances = boost::adjacency_matrix<boost::undirectedS, boost::no_property,
                                          boost::property<boost::edge_weight_t, double>>;

/// At most twice the shortest length. It needs the table of all distances, which is made before the
/// clock starts; the library needs none.
void addBoostTour() {
    addClosedTour("Boost 2-approximation", [](benchmark::State &state) {
        Distances distances(kStops);
        for (std::size_t i = 0; i < kStops; ++i)
            for (std::size_t j = 0; j < i; ++j)
                boost::add_edge(i, j, (stops()[i] - stops()[j]).len(), distances);
        std::vector<std::size_t> tour;
        for (auto _ : state) {
            tour.clear();
            boost::metric_tsp_approx_tour(distances, std::back_inserter(tour));
            benchmark::DoNotOptimize(tour.data());
        }
        return tour; // ends with the start again, which adds no length
    });
}

#endif

[[maybe_unused]] bool const registered = [] {
    addVexmath();
#ifdef VEXMATH_BENCH_CGAL
    addCgal();
#endif
#ifdef VEXMATH_BENCH_BOOST
    addBoost();
    addBoostTour();
#endif
    return true;
}();

} // namespace
