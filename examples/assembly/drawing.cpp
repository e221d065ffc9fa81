// SPDX-License-Identifier: MIT
// The picture of a checked assembly.

#include "drawing.h"

#include "legend.h"
#include "panel.h"
#include "progress.h"
#include "silhouette.h"
#include "style.h"
#include "svg.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace assembly {

namespace {

// Where things stand on the page, in pixels.
constexpr double kTitleLine = 52.0;
constexpr double kKeyLine = 88.0;
constexpr double kViewsTop = 142.0;
constexpr double kLegendGap = 76.0; // from the views to the first line of the legend

constexpr double kDotRadius = 2.2;

/// Room around the parts in a view, as a part of their extent, and the least of it in model units:
/// a single point is something to look at, too.
constexpr double kPadding = 0.03;
constexpr double kLeastRoom = 1e-6;

using Silhouette = std::vector<SilhouetteEdge>;

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

void drawSphere(SvgPage &page, Panel const &panel, mgBBox_c box, std::string const &style) {
    box *= panel.toPage;
    page.circle(box.sphCenter(), box.sphRadius(), style);
}

void drawSilhouette(SvgPage &page, Silhouette const &silhouette, std::string const &style) {
    auto const written = [](mgPoint_c const &p) { return pixels(p.x()) + " " + pixels(p.y()); };
    // Edges that fall onto each other on the page are drawn once.
    std::set<std::pair<std::string, std::string>> segments;
    for (SilhouetteEdge const &edge : silhouette) {
        segments.insert(std::minmax({written(edge.from), written(edge.to)}));
    }
    std::string commands;
    for (auto const &[from, to] : segments) {
        commands.append("M").append(from).append("L").append(to);
    }
    page.path(commands, style);
}

/// The point of the silhouette that is nearest to p; p itself when there is no silhouette.
mgPoint_c nearestPoint(Silhouette const &silhouette, mgPoint_c const &p) {
    auto const nearest = std::min_element(silhouette.begin(), silhouette.end(),
                                          [&](SilhouetteEdge const &a, SilhouetteEdge const &b) {
                                              return sqDist(p, a.from) < sqDist(p, b.from);
                                          });
    return nearest == silhouette.end() ? p : nearest->from;
}

/// The numbers of the parts along the upper edge of a view, in the order in which the parts stand
/// below them, each with a leader to the nearest point of its silhouette. None when there are more
/// parts than the edge has room for.
void drawBalloons(SvgPage &page, Panel const &panel, std::vector<Part> const &parts,
                  std::vector<Silhouette> const &silhouettes) {
    double const width = panel.bottomRight.x() - panel.topLeft.x();
    double const spacing = width / static_cast<double>(parts.size());
    if (spacing < 2.2 * kBalloonRadius) return;

    std::multimap<double, std::size_t> fromLeftToRight;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        fromLeftToRight.emplace((parts[i].placed.center() * panel.toPage).x(), i);
    }
    mgPoint_c balloon = panel.topLeft + mgVector_c(0.5 * spacing, 1.7 * kBalloonRadius, 0.0);
    for (auto const &[x, part] : fromLeftToRight) {
        mgPoint_c const target = nearestPoint(silhouettes[part], balloon);
        page.line(balloon, target, partStyle("leader", part));
        page.circle(target, kDotRadius, partStyle("dot", part));
        drawBalloon(page, balloon, part);
        balloon += mgVector_c(spacing, 0.0, 0.0);
    }
}

void drawView(SvgPage &page, Panel const &panel, std::vector<Part> const &parts,
              CheckResult const &result, Progress &progress) {
    drawFrame(page, panel);
    std::vector<Silhouette> silhouettes;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        progress.step(parts[i].name);
        silhouettes.push_back(silhouetteOf(parts[i], panel.toPage));
        drawSphere(page, panel, parts[i].placed, partStyle("sphere", i));
        drawBox(page, panel, parts[i].placed, partStyle("box", i));
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        drawSilhouette(page, silhouettes[i], partStyle("silhouette", i));
    }
    for (PartPair const &pair : result.clashing) {
        mgBBox_c overlap = parts[pair.first].placed;
        overlap &= parts[pair.second].placed;
        // Turned parts may clash although the boxes drawn here, square to the axes, do not.
        if (overlap.isSet()) drawBox(page, panel, overlap, "class='overlap'");
    }
    drawBalloons(page, panel, parts, silhouettes);
}

} // namespace

std::string drawAssembly(std::string const &title, std::vector<Part> const &parts,
                         CheckResult const &result) {
    SvgPage page(kStyleSheet);
    page.raw(kHatch);
    page.text({kPageMargin, kTitleLine, 0.0}, title, "class='title'");
    drawKey(page, {kPageMargin, kKeyLine, 0.0});

    std::vector<Panel> const panels = layOutViews(extentOf(parts), kViewsTop);
    Progress progress("drawing", panels.size() * parts.size());
    for (Panel const &panel : panels) drawView(page, panel, parts, result, progress);

    double const legendTop = panels.front().bottomRight.y() + kLegendGap;
    double const bottom = drawLegend(page, legendTop, parts, result);
    return page.finish(kPageWidth, bottom + kPageMargin);
}

} // namespace assembly
