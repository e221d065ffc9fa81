// SPDX-License-Identifier: MIT
// Edges: those of a box, and those that a view shows of a part.

#include "edges.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <vexmath/bulk.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

namespace assembly {

namespace {

/// One side of a triangle; from < to, so that both triangles at an edge name it alike.
struct Side {
    std::uint32_t from;
    std::uint32_t to;
    bool clockwise; // the sense of the triangle on the page

    bool sameEdge(Side const &other) const { return from == other.from && to == other.to; }
};

/// The vertices on the page, at depth 0.
std::vector<mgPoint_c> verticesOnPage(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> points = part.mesh->vertices;
    mg_TransformPoints(points.data(), static_cast<int>(points.size()), part.placement);
    mg_TransformPoints(points.data(), static_cast<int>(points.size()), toPage);
    for (mgPoint_c &point : points) point.set_z(0.0);
    return points;
}

/// False for a triangle seen edge-on.
bool isClockwise(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &c) {
    /// A triangle whose doubled area is below this share of its longest side squared is seen
    /// edge-on. Mesh files hold single precision: walls square to the page tilt by that much.
    constexpr double kEdgeOnRatio = 1e-5;
    double const twiceArea = ((b - a) * (c - a)).z(); // positive, as y runs downwards on a page
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

} // namespace

Edge moved(Edge const &edge, mgXform_c const &x) { return {edge.from * x, edge.to * x}; }

std::array<mgPoint_c, 8> cornersOf(mgBBox_c const &box) {
    mgPoint_c const ends[] = {box.low(), box.high()};
    std::array<mgPoint_c, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = {ends[i & 1U].x(), ends[i >> 1U & 1U].y(), ends[i >> 2U].z()};
    }
    return corners;
}

std::array<Edge, 12> edgesOf(mgBBox_c const &box) {
    std::array<mgPoint_c, 8> const corners = cornersOf(box);
    std::array<Edge, 12> edges;
    std::size_t count = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        // One edge along each axis on which the corner is the low end.
        for (std::size_t const axis : {1U, 2U, 4U}) {
            if ((i & axis) == 0) edges[count++] = {corners[i], corners[i | axis]};
        }
    }
    return edges;
}

std::optional<Edge> insideOf(mgBBox_c const &box, mgLine_c const &line) {
    mgPoint_c const &root = line.rootPoint();
    mgUnitVector_c const &along = line.direction();
    double first = 0.0;
    double last = 0.0;
    box.limitRay(root, along, &first, &last);
    // Two rays towards each other, which start outside the box by its extent along the line.
    mgPoint_c const before = root + (first - (last - first)) * along;
    mgPoint_c const behind = root + (last + (last - first)) * along;
    Edge inside;
    bool const meets = box.getFirstRayHit(before, along, &inside.from)
                       && box.getFirstRayHit(behind, -along, &inside.to);
    return meets ? std::optional<Edge>(inside) : std::nullopt;
}

std::vector<Edge> silhouetteOf(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> const points = verticesOnPage(part, toPage);
    std::vector<Side> const sides = sidesByEdge(*part.mesh, points);
    std::vector<Edge> edges;
    for (auto first = sides.begin(); first != sides.end();) {
        auto const last = std::find_if_not(first, sides.end(),
                                           [&](Side const &side) { return side.sameEdge(*first); });
        bool const isOpen = last - first == 1;
        bool const isFold = std::any_of(
            first, last, [&](Side const &side) { return side.clockwise != first->clockwise; });
        if (isOpen || isFold) edges.push_back({points[first->from], points[first->to]});
        first = last;
    }
    return edges;
}

std::vector<mgPoint_c> hullOf(Part const &part, mgXform_c const &toPage) {
    suDynamicArray<mg2DPoint_c> points; // with y upwards, unlike the page
    for (mgPoint_c const &p : verticesOnPage(part, toPage)) points.Add({p.x(), -p.y()});
    suDynamicArray<mg2DPoint_c> hull;
    convexHull(points, hull);
    std::vector<mgPoint_c> corners;
    corners.reserve(static_cast<std::size_t>(hull.Count()));
    for (int i = 0; i < hull.Count(); ++i) corners.emplace_back(hull[i].x(), -hull[i].y(), 0.0);
    return corners;
}

std::vector<std::vector<mgPoint_c>> facesOf(Part const &part, mgXform_c const &toPage) {
    std::vector<mgPoint_c> const points = verticesOnPage(part, toPage);
    std::vector<std::vector<mgPoint_c>> faces;
    for (Mesh::Triangle const &t : part.mesh->triangles) {
        if (!isClockwise(points[t[0]], points[t[1]], points[t[2]])) continue;
        faces.push_back({points[t[0]], points[t[1]], points[t[2]]});
    }
    return faces;
}

} // namespace assembly
