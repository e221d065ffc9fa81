// SPDX-License-Identifier: MIT
// The views of a pick and of a section, and what the other views show of them.

#include "drawing.h"

#include <optional>

#include <vexmath/mg_primitives.h>
#include <vexmath/mg_vector.h>

namespace assembly {

namespace {

// Pixels.
constexpr double kListGap = 24.0;   // from the view of a pick to its list
constexpr double kListRoom = 240.0; // from there to the next view
constexpr double kRowGap = 90.0;    // to the row below
constexpr double kArrow = 26.0;
constexpr double kEntryRadius = 3.0;
constexpr double kNearestRadius = 5.0;

void drawCross(SvgPage &page, Pick const &pick) {
    auto const &[x, y] = pick.at;
    page.line(pixelAt(pick.panel, {x, 0.0}), pixelAt(pick.panel, {x, 1.0}), {"cross"});
    page.line(pixelAt(pick.panel, {0.0, y}), pixelAt(pick.panel, {1.0, y}), {"cross"});
    page.circle(pixelAt(pick.panel, pick.at), kNearestRadius, {"entry"});
}

/// Fills the part and draws its silhouette, which is returned.
PartOutline drawSolid(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    std::string area;
    for (auto const &face : facesOf(part, panel.toPage)) area += pathAround(face);
    page.path(area, {"solid", number});
    double const middle = (part.placed.center() * panel.toPage).x();
    PartOutline outline{number, middle, silhouetteOf(part, panel.toPage)};
    page.path(pathAlong(outline.edges), {"silhouette", number});
    return outline;
}

/// The box that was hit, which stands in the part's own frame.
void drawHitBox(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    std::vector<Edge> edges;
    for (Edge const &edge : edgesOf(part.mesh->bounds)) {
        edges.push_back(moved(moved(edge, part.placement), panel.toPage));
    }
    page.path(pathAlong(edges), {"hit", number});
}

void drawPick(SvgPage &page, std::vector<Part> const &parts, Pick const &pick) {
    drawPerspectiveFrame(page, pick.panel);
    std::vector<PartOutline> outlines;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        outlines.push_back(drawSolid(page, pick.panel, parts[i], i));
    }
    for (Hit const &hit : pick.hits) drawHitBox(page, pick.panel, parts[hit.part], hit.part);
    drawBalloons(page, pick.panel, outlines);
    drawCross(page, pick);
    mgPoint_c const list(pick.panel.bottomRight.x() + kListGap, pick.panel.topLeft.y(), 0.0);
    drawHits(page, list, parts, pick.hits);
}

/// The area that the pieces of an outline enclose, in any order: the triangles from one point to
/// all pieces cover a point inside an odd number of times, and a point outside an even one.
std::string areaWithin(std::vector<Edge> const &pieces) {
    std::string commands;
    for (Edge const &piece : pieces) {
        commands += pathAround({pieces.front().from, piece.from, piece.to});
    }
    return commands;
}

/// Draws the box's outline and fills the part's, which is returned.
PartOutline drawCut(SvgPage &page, Panel const &panel, PartCut const &cut) {
    std::vector<mgPoint_c> corners = cut.boxOutline;
    for (mgPoint_c &corner : corners) corner *= panel.toPage;
    page.path(pathAround(corners), {"box", cut.part});

    PartOutline outline{cut.part, 0.0, {}};
    mgBBox_c bounds;
    for (Edge const &edge : cut.meshOutline) {
        outline.edges.push_back(moved(edge, panel.toPage));
        bounds |= outline.edges.back().from;
    }
    outline.middle = bounds.center().x();
    page.path(areaWithin(outline.edges), {"material", cut.part});
    page.path(pathAlong(outline.edges), {"silhouette", cut.part});
    return outline;
}

/// The cut boxes and parts, seen against the plane's normal.
void drawSection(SvgPage &page, Section const &section, double left) {
    std::vector<mgPoint_c> corners;
    for (PartCut const &cut : section.cuts) {
        corners.insert(corners.end(), cut.boxOutline.begin(), cut.boxOutline.end());
    }
    Panel const panel = layOutAgainst("Section A–A", section.plane.normal(), corners, left);
    drawFrame(page, panel);
    std::vector<PartOutline> outlines;
    for (PartCut const &cut : section.cuts) outlines.push_back(drawCut(page, panel, cut));
    drawBalloons(page, panel, outlines);
}

} // namespace

double drawUpperRow(SvgPage &page, Assembly const &assembly, CheckResult const &result) {
    bool const cuts = result.section && !result.section->cuts.empty();
    if (!result.pick && !cuts) return kUpperRow.y();
    double left = kUpperRow.x();
    if (result.pick) {
        drawPick(page, assembly.parts, *result.pick);
        left += kUpperSize.x() + kListRoom;
    }
    if (cuts) drawSection(page, *result.section, left);
    return kUpperRow.y() + kUpperSize.y() + kRowGap;
}

void drawSight(SvgPage &page, Panel const &panel, Pick const &pick, mgBBox_c const &extent) {
    std::optional<Edge> const inside = insideOf(extent, pick.sight);
    if (!inside) return;
    auto const [from, to] = moved(*inside, panel.toPage);
    page.line(from, to, {"sight arrow"});
    for (Hit const &hit : pick.hits) {
        bool const isNearest = &hit == &pick.hits.front();
        page.circle(hit.point * panel.toPage, isNearest ? kNearestRadius : kEntryRadius, {"entry"});
    }
}

void drawTrace(SvgPage &page, Panel const &panel, Section const &section, mgBBox_c const &extent) {
    mgUnitVector_c const towardsViewer(panel.right.direction * panel.up.direction, 0);
    mgPlane_c const middle(extent.center(), towardsViewer);
    mgPoint_c root;
    mgUnitVector_c along;
    if (!interLine(section.plane, middle, &root, &along)) return;
    std::optional<Edge> const inside = insideOf(extent, mgLine_c(root, along));
    if (!inside) return;

    auto const [from, to] = moved(*inside, panel.toPage);
    page.line(from, to, {"trace"});
    // On the page the arrows are square to the trace.
    mgVector_c across = -section.plane.normal() * panel.toPage;
    across.set_z(0.0);
    mgVector_c const arrow = kArrow * mg_Normalise(across);
    for (mgPoint_c const &end : {from, to}) {
        page.line(end, end + arrow, {"sight arrow"});
        page.text(end + 1.5 * arrow + mgVector_c(0.0, 5.0, 0.0), "A", {"heading middle"});
    }
}

} // namespace assembly
