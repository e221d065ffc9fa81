// SPDX-License-Identifier: MIT
// What a plane cuts of the parts.

#include "check_result.h"

#include <algorithm>

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>

namespace assembly {

namespace {

/// Where the plane passes between the ends of an edge. An end in the plane counts as below it, so
/// that a polygon is left as often as it is entered.
bool crosses(mgPlane_c const &plane, Edge const &edge, mgPoint_c &crossing) {
    constexpr double kNoTolerance = 0.0;
    if (!plane.cutLineSegment(edge.from, edge.to, kNoTolerance)) return false;
    crossing = edge.from; // stays when the edge lies almost in the plane
    mg_LineSegIntPlane(edge.from, edge.to, plane, &crossing, nullptr);
    return true;
}

/// Sorts the corners of a convex polygon counter-clockwise about the normal, and keeps one of
/// several that coincide, where edges of the box cross the plane in one place. The first corner
/// has the angle 0, so that a corner equal to it may come last, just below a full turn.
void sortAround(std::vector<mgPoint_c> &corners, mgUnitVector_c const &normal) {
    mgVector_c sum;
    for (mgPoint_c const &corner : corners) sum += corner;
    mgPoint_c const middle = sum / static_cast<double>(corners.size());
    mgVector_c const start = corners.front() - middle;
    auto const angle = [&](mgPoint_c const &p) {
        return mg_AngleBetween(start, p - middle, normal);
    };
    std::sort(corners.begin(), corners.end(),
              [&](mgPoint_c const &a, mgPoint_c const &b) { return angle(a) < angle(b); });
    auto const same = [](mgPoint_c const &a, mgPoint_c const &b) { return a == b; };
    corners.erase(std::unique(corners.begin(), corners.end(), same), corners.end());
    if (corners.size() > 1 && same(corners.front(), corners.back())) corners.pop_back();
}

std::vector<mgPoint_c> outlineOf(mgBBox_c const &box, mgPlane_c const &plane) {
    std::vector<mgPoint_c> corners;
    for (Edge const &edge : edgesOf(box)) {
        mgPoint_c crossing;
        if (crosses(plane, edge, crossing)) corners.push_back(crossing);
    }
    if (!corners.empty()) sortAround(corners, plane.normal());
    return corners;
}

/// The plane enters each triangle that it cuts on one side and leaves it on another.
std::vector<Edge> outlineOf(Mesh const &mesh, mgPlane_c const &plane) {
    std::vector<Edge> outline;
    for (Mesh::Triangle const &t : mesh.triangles) {
        mgPoint_c ends[3];
        int count = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            Edge const side = {mesh.vertices[t[i]], mesh.vertices[t[(i + 1) % 3]]};
            count += crosses(plane, side, ends[count]);
        }
        if (count == 2) outline.push_back({ends[0], ends[1]});
    }
    return outline;
}

} // namespace

Section findSection(std::vector<Part> const &parts, mgPlane_c const &plane) {
    constexpr double kLeastTolerance = 0.0; // the library's own is used instead
    constexpr std::size_t kLeastCorners = 3;
    Section section{plane, {}};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        Part const &part = parts[i];
        mgPlane_c local = plane;
        local *= part.placement.inverse();
        if (!part.mesh->bounds.clash(local, kLeastTolerance)) continue;

        PartCut cut{i, outlineOf(part.mesh->bounds, local), outlineOf(*part.mesh, local)};
        if (cut.boxOutline.size() < kLeastCorners) continue; // touched from below, not cut
        for (mgPoint_c &corner : cut.boxOutline) corner *= part.placement;
        for (Edge &edge : cut.meshOutline) edge = moved(edge, part.placement);
        section.cuts.push_back(std::move(cut));
    }
    return section;
}

} // namespace assembly
