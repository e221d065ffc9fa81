// SPDX-License-Identifier: MIT
// The silhouette of a part in a view.

#include "silhouette.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <vexmath/mg_queries.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

namespace example::assembly {

namespace {

/// A triangle whose area on the page is below this part of its longest side squared is seen
/// edge-on. Mesh files hold single precision: walls square to the page tilt by that much.
constexpr double kEdgeOnRatio = 1e-5;

/// One side of a triangle; from < to, so that the two triangles at an edge name it alike.
struct Side {
    std::uint32_t from;
    std::uint32_t to;
    bool clockwise; // the way the triangle runs on the page

    bool sameEdge(Side const &other) const { return from == other.from && to == other.to; }
};

bool isClockwise(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &c) {
    double const twiceArea = ((b - a) * (c - a)).z(); // positive: on a page y runs downwards
    double const longestSq = std::max({sqDist(a, b), sqDist(b, c), sqDist(c, a)});
    return twiceArea > kEdgeOnRatio * longestSq;
}

/// The sides of all triangles, those of one edge next to each other.
std::vector<Side> sidesByEdge(Mesh const &mesh, std::vector<mgPoint_c> const &points) {
    std::vector<Side> sides;
    sides.reserve(3 * mesh.triangles.size());
    for (Mesh::Triangle const &t : mesh.triangles) {
        bool const clockwise = isClockwise(points[t[0]], points[t[1]], points[t[2]]);
        for (std::size_t i = 0; i < 3; ++i) {
            auto const [from, to] = std::minmax(t[i], t[(i + 1) % 3]);
            sides.push_back({from, to, clockwise});
        }
    }
    std::sort(sides.begin(), sides.end(), [](Side const &a, Side const &b) {
        return std::make_pair(a.from, a.to) < std::make_pair(b.from, b.to);
    });
    return sides;
}

/// The vertices on the page, depth (z) flattened away.
std::vector<mgPoint_c> flattened(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> points;
    for (mgPoint_c const &vertex : part.mesh->vertices) {
        points.push_back(vertex * part.placement * toPage);
        points.back().set_z(0.0);
    }
    return points;
}

} // namespace

std::vector<Edge> silhouetteOf(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> const points = flattened(part, toPage);
    std::vector<Edge> edges;
    std::vector<Side> const sides = sidesByEdge(*part.mesh, points);
    for (auto first = sides.begin(); first != sides.end();) {
        auto const last = std::find_if_not(first, sides.end(),
                                           [&](Side const &side) { return side.sameEdge(*first); });
        bool const open = last - first == 1;
        bool const turns = std::any_of(
            first, last, [&](Side const &side) { return side.clockwise != first->clockwise; });
        if (open || turns) edges.push_back({points[first->from], points[first->to]});
        first = last;
    }
    return edges;
}

std::vector<mgPoint_c> hullOf(Part const &part, mgXform_c const &toPage) {
    suDynamicArray<mg2DPoint_c> points;
    for (mgPoint_c const &p : flattened(part, toPage)) points.Add({p.x(), -p.y()});
    suDynamicArray<mg2DPoint_c> hull; // y runs upwards in here
    convexHull(points, hull);
    std::vector<mgPoint_c> corners;
    corners.reserve(static_cast<std::size_t>(hull.Count()));
    for (int i = 0; i < hull.Count(); ++i) corners.emplace_back(hull[i].x(), -hull[i].y(), 0.0);
    return corners;
}

std::vector<std::vector<mgPoint_c>> facesOf(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> const points = flattened(part, toPage);
    std::vector<std::vector<mgPoint_c>> faces;
    for (Mesh::Triangle const &t : part.mesh->triangles) {
        if (!isClockwise(points[t[0]], points[t[1]], points[t[2]])) continue;
        faces.push_back({points[t[0]], points[t[1]], points[t[2]]});
    }
    return faces;
}

} // namespace example::assembly
