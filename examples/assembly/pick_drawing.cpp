// SPDX-License-Identifier: MIT
// How a pick is drawn: in the perspective view, and as a line of sight in the others.

#include "pick_drawing.h"

#include "box_edges.h"
#include "legend.h"
#include "perspective.h"
#include "silhouette.h"
#include "strokes.h"
#include "style.h"

#include <optional>

namespace example::assembly {

namespace {

constexpr double kEntryRadius = 3.0; // pixels, like the next two
constexpr double kNearestRadius = 5.0;
constexpr double kListGap = 24.0; // from the view to the list

/// The edges of the part's box in its own frame.
std::vector<Edge> boxOnPage(Part const &part, mgXform_c const &toPage) {
    std::vector<Edge> edges;
    for (Edge const &edge : edgesOf(part.mesh->bounds)) {
        edges.push_back({edge.from * part.placement * toPage, edge.to * part.placement * toPage});
    }
    return edges;
}

void drawCross(SvgPage &page, Pick const &pick) {
    auto const &[x, y] = pick.at;
    page.line(placeIn(pick.panel, x, 0.0), placeIn(pick.panel, x, 1.0), "class='cross'");
    page.line(placeIn(pick.panel, 0.0, y), placeIn(pick.panel, 1.0, y), "class='cross'");
    page.circle(placeIn(pick.panel, x, y), kNearestRadius, "class='entry'");
}

} // namespace

void drawPick(SvgPage &page, std::vector<Part> const &parts, Pick const &pick) {
    mgXform_c const &toPage = pick.panel.toPage;
    drawPerspectiveFrame(page, pick.panel);
    std::vector<PartOutline> outlines;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        double const middle = (parts[i].placed.center() * toPage).x();
        outlines.push_back({i, middle, silhouetteOf(parts[i], toPage)});
        std::string area;
        for (auto const &face : facesOf(parts[i], toPage)) area += polygon(face);
        page.path(area, partStyle("solid", i));
        drawEdges(page, outlines.back().edges, partStyle("silhouette", i));
    }
    for (Hit const &hit : pick.hits) {
        drawEdges(page, boxOnPage(parts[hit.part], toPage), partStyle("hit", hit.part));
    }
    drawBalloons(page, pick.panel, outlines);
    drawCross(page, pick);

    mgPoint_c const list(pick.panel.bottomRight.x() + kListGap, pick.panel.topLeft.y(), 0.0);
    drawHits(page, list, parts, pick.hits);
}

void drawSight(SvgPage &page, Panel const &panel, Pick const &pick, mgBBox_c const &extent) {
    std::optional<Edge> const inside = insideOf(extent, pick.sight);
    if (!inside) return;
    page.line(inside->from * panel.toPage, inside->to * panel.toPage,
              "class='sight' marker-end='url(#arrow)'");
    for (Hit const &hit : pick.hits) {
        bool const isNearest = &hit == &pick.hits.front();
        page.circle(hit.point * panel.toPage, isNearest ? kNearestRadius : kEntryRadius,
                    "class='entry'");
    }
}

} // namespace example::assembly
