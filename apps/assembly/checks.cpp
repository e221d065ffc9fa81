// SPDX-License-Identifier: MIT
// What is checked of an assembly: contacts, a drilling path, a pick and a section.

#include "checks.h"

#include "report.h"

#include <algorithm>
#include <utility>

#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

namespace assembly {

namespace {

// Contacts.

/// A part prepared for tests against many others: its bounds in its own frame at their final size,
/// and the rigid motion, mirrored or not, from that frame into the assembly.
///
/// The scale leaves the placement because the placed clash compares the two spheres at the size at
/// which they are given, and because the tolerance is a length of the assembly.
struct Body {
    mgBBox_c sized;
    mgBBox_c grown;  ///< by half the tolerance: two that do not meet are farther apart than it
    mgBBox_c shrunk; ///< by half the tolerance: two that meet overlap by more than it
    mgXform_c motion;
};

Body bodyOf(Part const &part, double tolerance) {
    mgBBox_c sized = part.mesh->bounds;
    sized *= mg_ScaleXform(part.placement.scaling());
    Body body{sized, sized, sized, mg_ScaleXform(part.placement, 1.0)}; // replaces the scale
    body.grown += 0.5 * tolerance;
    body.shrunk += -0.5 * tolerance;
    return body;
}

/// Asked in the frame of the outer part, where its box fits best.
bool contains(Body const &outer, Body const &inner) {
    constexpr double kNoShrink = 0.0; // the inner box keeps its size
    mgBBox_c inOuterFrame = inner.sized;
    inOuterFrame *= inner.motion * outer.motion.inverse();
    return outer.sized.containsBBox(&inOuterFrame, kNoShrink) != 0;
}

Contacts findContacts(std::vector<Part> const &parts, double tolerance) {
    std::vector<Body> bodies;
    bodies.reserve(parts.size());
    for (Part const &part : parts) bodies.push_back(bodyOf(part, tolerance));

    Contacts contacts;
    Progress progress("checking pairs", parts.size() * (parts.size() - 1) / 2);
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        for (std::size_t j = i + 1; j < bodies.size(); ++j) {
            progress.step();
            Body const &a = bodies[i];
            Body const &b = bodies[j];
            if (!mgBBox_c::clash(a.grown, a.motion, b.grown, b.motion)) continue;
            bool const overlap = mgBBox_c::clash(a.shrunk, a.motion, b.shrunk, b.motion) != 0;
            (overlap ? contacts.clashing : contacts.touching).push_back({i, j});
            if (contains(a, b)) contacts.containing.push_back({i, j});
            if (contains(b, a)) contacts.containing.push_back({j, i});
        }
    }
    return contacts;
}

// Drilling path.

DrillingPath findDrillingPath(std::vector<Part> const &parts) {
    std::vector<std::size_t> bolts;
    suDynamicArray<mgPoint_c> centres;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].name.rfind("bolt", 0) != 0) continue;
        bolts.push_back(i);
        centres.Add(parts[i].placed.center());
    }
    suDynamicArray<int> order;
    mg_OpenTSP(centres, order);

    DrillingPath path;
    for (int i = 0; i < order.Count(); ++i) {
        path.bolts.push_back(bolts[static_cast<std::size_t>(order[i])]);
        path.centres.push_back(centres[order[i]]);
        if (i > 0) path.length += dist(centres[order[i - 1]], centres[order[i]]);
    }
    return path;
}

// Pick.

/// The line of sight through a pixel of the page.
mgLine_c sightThrough(mgPoint_c const &pixel, mgXform_c const &view) {
    constexpr int kIsScreenPoint = 1;
    mgPoint_c root;
    mgUnitVector_c direction;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, pixel, kIsScreenPoint, root, direction, isCamera, nullptr);
    return {root, direction};
}

/// Does the line of sight meet the part's box, and where?
bool meets(mgLine_c sight, Part const &part, mgPoint_c &point) {
    sight *= part.placement.inverse();
    mgBBox_c const &box = part.mesh->bounds;
    // The test of the whole line rejects most parts quickly; the second one finds the first hit.
    if (!box.isRayHit(sight.rootPoint(), sight.direction())) return false;
    if (!box.getFirstRayHit(sight.rootPoint(), sight.direction(), &point)) return false;
    point *= part.placement;
    return true;
}

Pick findPick(Assembly const &assembly, PanelPoint const &at) {
    Panel const panel = layOutPerspective(assembly);
    Pick pick{panel, at, sightThrough(pixelAt(panel, at), panel.toPage), {}};
    for (std::size_t i = 0; i < assembly.parts.size(); ++i) {
        mgPoint_c point;
        if (!meets(pick.sight, assembly.parts[i], point)) continue;
        pick.hits.push_back({i, point, dist(pick.sight.rootPoint(), point)});
    }
    std::stable_sort(pick.hits.begin(), pick.hits.end(),
                     [](Hit const &a, Hit const &b) { return a.distance < b.distance; });
    return pick;
}

// Section.

/// Where the plane passes between the ends of an edge. An end in the plane is treated as below it,
/// so that a polygon is left as often as it is entered.
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

Section findSection(std::vector<Part> const &parts, mgPlane_c const &plane) {
    constexpr double kLeastTolerance = 0.0; // the library's own is used instead
    constexpr std::size_t kLeastCorners = 3;
    Section section{plane, {}};
    Progress progress("cutting parts", parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        Part const &part = parts[i];
        progress.step(part.name);
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

} // namespace

CheckResult check(Assembly const &assembly, std::optional<PanelPoint> const &pickAt,
                  std::optional<mgPlane_c> const &sectionPlane) {
    CheckResult result;
    result.contacts = findContacts(assembly.parts, assembly.clashTolerance);
    result.drilling = findDrillingPath(assembly.parts);
    if (pickAt) result.pick = findPick(assembly, *pickAt);
    if (sectionPlane) result.section = findSection(assembly.parts, *sectionPlane);
    return result;
}

} // namespace assembly
