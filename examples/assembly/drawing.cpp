// SPDX-License-Identifier: MIT
// The picture of a checked assembly.

#include "drawing.h"

#include "legend.h"
#include "panel.h"
#include "pick_drawing.h"
#include "progress.h"
#include "section_drawing.h"
#include "silhouette.h"
#include "strokes.h"
#include "style.h"
#include "svg.h"

#include <algorithm>
#include <memory>

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>

namespace example::assembly {

namespace {

// Where things stand on the page, in pixels.
constexpr double kTitleLine = 52.0;
constexpr double kKeyLine = 88.0;
constexpr double kRowGap = 90.0;    // between the two rows of views
constexpr double kLegendGap = 76.0; // from the views to the first line of the legend
constexpr double kListRoom = 240.0; // between the views of the upper row

/// Room around the parts in a view, as a part of their extent, and the least of it in model units:
/// a single point is something to look at, too.
constexpr double kPadding = 0.03;
constexpr double kLeastRoom = 1e-6;

/// What the picture has to hold: the boxes of the parts and the cubes around their spheres.
mgBBox_c extentOf(std::vector<Part> const &parts) {
    mgBBox_c extent;
    for (Part const &part : parts) {
        extent |= part.placed;
        extent |= mgBBox_c(part.placed.sphCenter(), part.placed.sphRadius());
    }
    extent += std::max(kPadding * extent.maxDimension(), kLeastRoom);
    return extent;
}

void drawBox(SvgPage &page, Panel const &panel, mgBBox_c box, std::string const &style) {
    box *= panel.toPage;
    page.rectangle(box.low(), box.high(), style);
}

/// Points so close that chords and circle fall together on the page.
std::vector<mgPoint_c> circleOnPage(mgPoint_c const &middle, double radius) {
    constexpr double kTolerance = 0.4; // pixels; the chords are off by a quarter of it
    mgPoint_c const centre(middle.x(), middle.y(), 0.0);
    mgPoint_c const start = centre + mgVector_c(radius, 0.0, 0.0);
    arcEdgeData const circle{centre, {0.0, 0.0, 1.0}, radius};
    mgPoint_c *points = nullptr;
    int segments = 0; // none for a radius of 0
    mg_TessArc(&circle, &start, &start, kTolerance, &points, segments, nullptr);
    std::unique_ptr<mgPoint_c[]> const owned(points);
    return {points, points + segments};
}

void drawSphere(SvgPage &page, Panel const &panel, mgBBox_c box, std::string const &style) {
    box *= panel.toPage;
    std::vector<mgPoint_c> const circle = circleOnPage(box.sphCenter(), box.sphRadius());
    if (!circle.empty()) page.path(polygon(circle), style);
}

void drawView(SvgPage &page, Panel const &panel, std::vector<Part> const &parts,
              CheckResult const &result, Progress &progress) {
    drawFrame(page, panel);
    std::vector<PartOutline> silhouettes;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        progress.step(parts[i].name);
        double const middle = (parts[i].placed.center() * panel.toPage).x();
        silhouettes.push_back({i, middle, silhouetteOf(parts[i], panel.toPage)});
        drawSphere(page, panel, parts[i].placed, partStyle("sphere", i));
        drawBox(page, panel, parts[i].placed, partStyle("box", i));
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        page.path(polygon(hullOf(parts[i], panel.toPage)), partStyle("hull", i));
    }
    for (PartOutline const &silhouette : silhouettes) {
        drawEdges(page, silhouette.edges, partStyle("silhouette", silhouette.part));
    }
    for (PartPair const &pair : result.clashing) {
        mgBBox_c overlap = parts[pair.first].placed;
        overlap &= parts[pair.second].placed;
        // Turned parts may clash although the boxes drawn here, square to the axes, do not.
        if (overlap.isSet()) drawBox(page, panel, overlap, "class='overlap'");
    }
    drawBalloons(page, panel, silhouettes);
}

/// The row above the views: perspective and section. Returns where the views begin.
double drawUpperRow(SvgPage &page, std::vector<Part> const &parts, Extras const &extras) {
    double left = kFirstRow.x();
    bool const cuts = extras.section && !extras.section->cuts.empty();
    if (extras.pick) {
        drawPick(page, parts, *extras.pick);
        left += kUpperSize.x() + kListRoom;
    }
    if (cuts) drawSection(page, *extras.section, left);
    return kFirstRow.y() + (extras.pick || cuts ? kUpperSize.y() + kRowGap : 0.0);
}

} // namespace

std::string drawAssembly(std::string const &title, std::vector<Part> const &parts,
                         CheckResult const &result, Extras const &extras) {
    SvgPage page(kStyleSheet);
    page.raw(kDefinitions);
    page.text({kPageMargin, kTitleLine, 0.0}, title, "class='title'");
    drawKey(page, {kPageMargin, kKeyLine, 0.0}, extras);

    mgBBox_c const extent = extentOf(parts);
    std::vector<Panel> const panels = layOutViews(extent, drawUpperRow(page, parts, extras));
    Progress progress("drawing", panels.size() * parts.size());
    for (Panel const &panel : panels) {
        drawView(page, panel, parts, result, progress);
        drawDrillingPath(page, panel, extras.drilling);
        if (extras.section) drawTrace(page, panel, *extras.section, extent);
        if (extras.pick) drawSight(page, panel, *extras.pick, extent);
    }

    double const legendTop = panels.front().bottomRight.y() + kLegendGap;
    double const bottom = drawLegend(page, legendTop, parts, result);
    return page.finish(kPageWidth, bottom + kPageMargin);
}

} // namespace example::assembly
