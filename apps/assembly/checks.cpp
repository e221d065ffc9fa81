// SPDX-License-Identifier: MIT
// What is checked of an assembly besides its contacts: drilling, a pick and a section.

#include "checks.h"

#include "report.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <utility>

#include <vexmath/mg_planar.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace {

// Drilling.

DrillingOrder inOrder(std::vector<std::size_t> const &bolts,
                      suDynamicArray<mgPoint_c> const &centres, suDynamicArray<int> const &order) {
    DrillingOrder drilling;
    for (int i = 0; i < order.Count(); ++i) {
        drilling.bolts.push_back(bolts[static_cast<std::size_t>(order[i])]);
        drilling.centres.push_back(centres[order[i]]);
        if (i > 0) drilling.length += dist(centres[order[i - 1]], centres[order[i]]);
    }
    return drilling;
}

Drilling findDrilling(std::vector<Part> const &parts) {
    std::vector<std::size_t> bolts;
    suDynamicArray<mgPoint_c> centres;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].name.rfind("bolt", 0) != 0) continue;
        bolts.push_back(i);
        centres.Add(parts[i].placed.center());
    }
    Drilling drilling{bolts.size(), {}, {}};
    if (bolts.empty() || bolts.size() > Drilling::kMostBolts) return drilling;

    Progress progress("putting bolts in order", 2);
    progress.step("for a path");
    suDynamicArray<int> order;
    mg_OpenTSP(centres, order);
    drilling.path = inOrder(bolts, centres, order);
    progress.step("for a tour");
    mg_ClosedTSP(centres, order);
    drilling.tour = inOrder(bolts, centres, order);
    drilling.tour.length += dist(drilling.tour.centres.back(), drilling.tour.centres.front());
    return drilling;
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
    mgLine_c const sight = sightThrough(pixelAt(panel, at), panel.toPage);
    return {panel, at, sight, hitsAlong(sight, assembly.parts)};
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

/// Where the plane crosses an edge of a mesh. The edge is named by its vertices, the lower one
/// first, so that the triangles on both sides of it find the same point, to the bit.
struct Crossing {
    std::pair<std::uint32_t, std::uint32_t> edge;
    mgPoint_c point;
};

/// The plane enters each triangle that it cuts on one side and leaves it on another.
using Piece = std::array<Crossing, 2>;

std::vector<Piece> piecesOf(Mesh const &mesh, mgPlane_c const &plane) {
    std::vector<Piece> pieces;
    for (Mesh::Triangle const &t : mesh.triangles) {
        std::array<Crossing, 3> crossings;
        std::size_t count = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            auto const [from, to] = std::minmax(t[i], t[(i + 1) % 3]);
            Edge const side = {mesh.vertices[from], mesh.vertices[to]};
            if (!crosses(plane, side, crossings[count].point)) continue;
            crossings[count++].edge = {from, to};
        }
        if (count == 2) pieces.push_back({crossings[0], crossings[1]});
    }
    return pieces;
}

/// Joins pieces that end at the same edges.
class OutlineJoiner {
public:
    explicit OutlineJoiner(std::vector<Piece> pieces)
        : pieces_(std::move(pieces)), isUsed_(pieces_.size(), false) {
        for (std::size_t i = 0; i < pieces_.size(); ++i) {
            for (Crossing const &end : pieces_[i]) pieceAt_.emplace(end.edge, i);
        }
    }

    std::vector<std::vector<mgPoint_c>> join() {
        std::vector<std::vector<mgPoint_c>> outlines;
        for (std::size_t i = 0; i < pieces_.size(); ++i) {
            if (!isUsed_[i]) outlines.push_back(outlineFrom(i));
        }
        return outlines;
    }

private:
    using MeshEdge = decltype(Crossing::edge);

    std::vector<mgPoint_c> outlineFrom(std::size_t piece) {
        auto const &[first, second] = pieces_[piece];
        isUsed_[piece] = true;
        std::vector<mgPoint_c> outline{first.point, second.point};
        if (follow(second.edge, outline) == first.edge) {
            outline.pop_back(); // the first point again
            return outline;
        }
        // The mesh has a gap here: the outline goes on at its other end.
        std::reverse(outline.begin(), outline.end());
        follow(first.edge, outline);
        return outline;
    }

    /// Adds the pieces that follow each other from an edge on. Returns the edge where they end.
    MeshEdge follow(MeshEdge edge, std::vector<mgPoint_c> &outline) {
        while (true) {
            auto const [begin, end] = pieceAt_.equal_range(edge);
            auto const next = std::find_if(
                begin, end, [this](auto const &entry) { return !isUsed_[entry.second]; });
            if (next == end) return edge;
            isUsed_[next->second] = true;
            Piece const &piece = pieces_[next->second];
            Crossing const &farEnd = piece[0].edge == edge ? piece[1] : piece[0];
            outline.push_back(farEnd.point);
            edge = farEnd.edge;
        }
    }

    std::vector<Piece> const pieces_;
    std::vector<bool> isUsed_;
    std::multimap<MeshEdge, std::size_t> pieceAt_; // by both of its ends
};

/// Gives each part the first angle that none of the parts before it has that clash or touch it.
void chooseHatches(std::vector<PartCut> &cuts, Contacts const &contacts) {
    // Any two differ by 30 degrees or more. None is level or upright, as outlines often are.
    constexpr double kDegrees[] = {45.0, 135.0, 75.0, 165.0, 15.0, 105.0};
    std::map<std::size_t, std::size_t> cutOfPart;
    for (std::size_t i = 0; i < cuts.size(); ++i) cutOfPart[cuts[i].part] = i;
    std::vector<std::vector<std::size_t>> before(cuts.size()); // neighbours, by their cuts
    for (auto const *const pairs : {&contacts.clashing, &contacts.touching}) {
        for (auto const &[first, second] : *pairs) {
            auto const a = cutOfPart.find(first);
            auto const b = cutOfPart.find(second);
            if (a == cutOfPart.end() || b == cutOfPart.end()) continue;
            before[std::max(a->second, b->second)].push_back(std::min(a->second, b->second));
        }
    }
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        auto const uses = [&](double degrees) {
            return std::count_if(before[i].begin(), before[i].end(), [&](std::size_t neighbour) {
                return cuts[neighbour].hatchDegrees == degrees;
            });
        };
        cuts[i].hatchDegrees =
            *std::min_element(std::begin(kDegrees), std::end(kDegrees),
                              [&](double a, double b) { return uses(a) < uses(b); });
    }
}

} // namespace

std::vector<Hit> hitsAlong(mgLine_c const &sight, std::vector<Part> const &parts) {
    std::vector<Hit> hits;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        mgPoint_c point;
        if (!meets(sight, parts[i], point)) continue;
        hits.push_back({i, point, dist(sight.rootPoint(), point)});
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](Hit const &a, Hit const &b) { return a.distance < b.distance; });
    return hits;
}

Section findSection(std::vector<Part> const &parts, mgPlane_c const &plane,
                    Contacts const &contacts) {
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

        PartCut cut{i, outlineOf(part.mesh->bounds, local), {}, 0.0};
        if (cut.boxOutline.size() < kLeastCorners) continue; // touched from below, not cut
        for (mgPoint_c &corner : cut.boxOutline) corner *= part.placement;
        cut.outlines = OutlineJoiner(piecesOf(*part.mesh, local)).join();
        for (auto &outline : cut.outlines) {
            for (mgPoint_c &corner : outline) corner *= part.placement;
        }
        section.cuts.push_back(std::move(cut));
    }
    chooseHatches(section.cuts, contacts);
    return section;
}

std::vector<Edge> hatchLines(std::vector<std::vector<mgPoint_c>> const &outlines,
                             mgPoint_c const &origin, double degrees, double spacing) {
    std::vector<int> counts;
    std::vector<mgPoint_c> points;
    for (auto const &outline : outlines) {
        counts.push_back(static_cast<int>(outline.size()));
        points.insert(points.end(), outline.begin(), outline.end());
    }
    suDynamicArray<mgPoint_c> ends;
    mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(), points.data(),
                               origin, degrees * vexmath::kRadPerDeg, spacing, ends);
    std::vector<Edge> lines;
    for (int i = 0; i < ends.Count(); i += 2) lines.push_back({ends[i], ends[i + 1]});
    return lines;
}

CheckResult check(Assembly const &assembly, Contacts contacts,
                  std::optional<PanelPoint> const &pickAt,
                  std::optional<mgPlane_c> const &sectionPlane) {
    CheckResult result;
    result.contacts = std::move(contacts);
    result.drilling = findDrilling(assembly.parts);
    if (pickAt) result.pick = findPick(assembly, *pickAt);
    if (sectionPlane) {
        result.section = findSection(assembly.parts, *sectionPlane, result.contacts);
    }
    return result;
}

} // namespace assembly
