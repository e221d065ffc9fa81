// SPDX-License-Identifier: MIT
// The picture of a checked assembly: its three views, and the other pieces around them.

#include "drawing.h"

#include "terminal.h"

#include <algorithm>

namespace assembly {

namespace {

// Pixels.
constexpr double kTitleLine = 52.0;
constexpr double kKeyLine = 88.0;
constexpr double kLegendGap = 76.0; // from the views to the first line of the legend
constexpr double kHoleRadius = 3.5;

/// What the views show: the boxes of the parts and the cubes around their spheres, with room
/// around.
mgBBox_c extentOf(std::vector<Part> const &parts) {
    constexpr double kRoomAround = 0.03; // share of the extent
    constexpr double kLeastRoom = 1e-6;  // model units; a single point has no extent
    mgBBox_c extent;
    for (Part const &part : parts) {
        extent |= part.placed;
        extent |= mgBBox_c(part.placed.sphCenter(), part.placed.sphRadius());
    }
    extent += std::max(kRoomAround * extent.maxDimension(), kLeastRoom);
    return extent;
}

mgBBox_c onPage(mgBBox_c box, Panel const &panel) {
    box *= panel.toPage;
    return box;
}

void drawBounds(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    mgBBox_c const box = onPage(part.placed, panel);
    page.circle(box.sphCenter(), box.sphRadius(), {"sphere", number});
    page.rectangle(box.low(), box.high(), {"box", number});
}

/// Placed parts may clash although their boxes along the axes, which are drawn, do not.
void drawOverlap(SvgPage &page, Panel const &panel, Part const &a, Part const &b) {
    mgBBox_c overlap = a.placed;
    overlap &= b.placed;
    if (!overlap.isSet()) return;
    overlap = onPage(overlap, panel);
    page.rectangle(overlap.low(), overlap.high(), {"overlap"});
}

/// Bounds below, then hulls, silhouettes, overlaps and numbers.
void drawView(SvgPage &page, Panel const &panel, std::vector<Part> const &parts,
              Contacts const &contacts, Progress &progress) {
    drawFrame(page, panel);
    std::vector<PartOutline> outlines;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        progress.step(parts[i].name);
        double const middle = (parts[i].placed.center() * panel.toPage).x();
        outlines.push_back({i, middle, silhouetteOf(parts[i], panel.toPage)});
        drawBounds(page, panel, parts[i], i);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        page.path(pathAround(hullOf(parts[i], panel.toPage)), {"hull", i});
    }
    for (PartOutline const &outline : outlines) {
        page.path(pathAlong(outline.edges), {"silhouette", outline.part});
    }
    for (auto const &[first, second] : contacts.clashing) {
        drawOverlap(page, panel, parts[first], parts[second]);
    }
    drawBalloons(page, panel, outlines);
}

/// With an arrow at its end, and a mark at each hole. Nothing without bolts.
void drawDrillingPath(SvgPage &page, Panel const &panel, DrillingPath const &path) {
    std::vector<mgPoint_c> holes;
    for (mgPoint_c const &centre : path.centres) holes.push_back(centre * panel.toPage);
    if (holes.size() > 1) page.path(pathThrough(holes), {"drill drilled"});
    for (mgPoint_c const &hole : holes) page.circle(hole, kHoleRadius, {"hole"});
}

} // namespace

std::string drawPicture(Assembly const &assembly, CheckResult const &result) {
    std::vector<Part> const &parts = assembly.parts;
    SvgPage page;
    page.text({kPageMargin, kTitleLine, 0.0}, assembly.name, {"title"});
    drawKey(page, {kPageMargin, kKeyLine, 0.0}, result);

    mgBBox_c const extent = extentOf(parts);
    std::vector<Panel> const panels = layOutViews(extent, drawUpperRow(page, assembly, result));
    Progress progress("drawing", panels.size() * parts.size());
    for (Panel const &panel : panels) {
        drawView(page, panel, parts, result.contacts, progress);
        drawDrillingPath(page, panel, result.drilling);
        if (result.section) drawTrace(page, panel, *result.section, extent);
        if (result.pick) drawSight(page, panel, *result.pick, extent);
    }

    double const legendTop = panels.front().bottomRight.y() + kLegendGap;
    double const bottom = drawLegend(page, legendTop, parts, result.contacts);
    return page.finish(kPageWidth, bottom + kPageMargin);
}

} // namespace assembly
