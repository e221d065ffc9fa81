// SPDX-License-Identifier: MIT
// How a section is drawn: in a view of its own, and as a trace in the others.

#include "section_drawing.h"

#include "strokes.h"
#include "style.h"

#include <optional>
#include <string>

#include <vexmath/mg_primitives.h>
#include <vexmath/mg_vector.h>

namespace example::assembly {

namespace {

constexpr double kArrow = 26.0; // pixels

/// The area that the pieces of an outline enclose, in whatever order they come: from any one point,
/// the triangles to all pieces cover a point within an odd number of times and others an even one.
std::string areaWithin(std::vector<Edge> const &pieces) {
    std::string commands;
    for (Edge const &piece : pieces) {
        commands += polygon({pieces.front().from, piece.from, piece.to});
    }
    return commands;
}

std::vector<mgPoint_c> onPage(std::vector<mgPoint_c> points, mgXform_c const &toPage) {
    for (mgPoint_c &point : points) point *= toPage;
    return points;
}

PartOutline outlineOf(PartCut const &cut, mgXform_c const &toPage) {
    PartOutline outline{cut.part, 0.0, {}};
    mgBBox_c bounds;
    for (Edge const &edge : cut.meshOutline) {
        outline.edges.push_back({edge.from * toPage, edge.to * toPage});
        bounds |= outline.edges.back().from;
    }
    outline.middle = bounds.center().x();
    return outline;
}

} // namespace

void drawSection(SvgPage &page, Section const &section, double left) {
    std::vector<mgPoint_c> corners;
    for (PartCut const &cut : section.cuts) {
        corners.insert(corners.end(), cut.boxOutline.begin(), cut.boxOutline.end());
    }
    Panel const panel = layOutAgainst("Section A\xE2\x80\x93"
                                      "A",
                                      section.plane.normal(), corners, left);
    drawFrame(page, panel);
    std::vector<PartOutline> outlines;
    for (PartCut const &cut : section.cuts) {
        outlines.push_back(outlineOf(cut, panel.toPage));
        page.path(polygon(onPage(cut.boxOutline, panel.toPage)), partStyle("box", cut.part));
        page.path(areaWithin(outlines.back().edges), partStyle("material", cut.part));
        drawEdges(page, outlines.back().edges, partStyle("silhouette", cut.part));
    }
    drawBalloons(page, panel, outlines);
}

void drawTrace(SvgPage &page, Panel const &panel, Section const &section, mgBBox_c const &extent) {
    mgUnitVector_c const towardsViewer(panel.right.direction * panel.up.direction, 0);
    mgPlane_c const middle(extent.center(), towardsViewer);
    mgPoint_c root;
    mgUnitVector_c along;
    if (!interLine(section.plane, middle, &root, &along)) return;
    std::optional<Edge> const trace = insideOf(extent, mgLine_c(root, along));
    if (!trace) return;

    mgPoint_c const ends[] = {trace->from * panel.toPage, trace->to * panel.toPage};
    page.line(ends[0], ends[1], "class='trace'");
    // On the page the arrows stand square on the trace.
    mgVector_c across = -section.plane.normal() * panel.toPage;
    across.set_z(0.0);
    mgVector_c const arrow = kArrow * mg_Normalise(across);
    for (mgPoint_c const &end : ends) {
        page.line(end, end + arrow, "class='sight' marker-end='url(#arrow)'");
        page.text(end + 1.5 * arrow + mgVector_c(0.0, 5.0, 0.0), "A", "class='heading middle'");
    }
}

} // namespace example::assembly
