// SPDX-License-Identifier: MIT
// Outlines and numbers, as the views draw them.

#include "strokes.h"

#include "legend.h"
#include "style.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <vexmath/mg_vector.h>

namespace example::assembly {

namespace {

constexpr double kDotRadius = 2.2; // pixels

std::string written(mgPoint_c const &p) { return pixels(p.x()) + " " + pixels(p.y()); }

/// The point of the outline that is nearest to p; p itself when there is no outline.
mgPoint_c nearestPoint(std::vector<Edge> const &outline, mgPoint_c const &p) {
    auto const nearest =
        std::min_element(outline.begin(), outline.end(), [&](Edge const &a, Edge const &b) {
            return sqDist(p, a.from) < sqDist(p, b.from);
        });
    return nearest == outline.end() ? p : nearest->from;
}

} // namespace

void drawEdges(SvgPage &page, std::vector<Edge> const &edges, std::string const &style) {
    std::set<std::pair<std::string, std::string>> segments;
    for (Edge const &edge : edges) {
        segments.insert(std::minmax({written(edge.from), written(edge.to)}));
    }
    std::string commands;
    for (auto const &[from, to] : segments) {
        commands.append("M").append(from).append("L").append(to);
    }
    page.path(commands, style);
}

std::string polygon(std::vector<mgPoint_c> const &corners) { return pathThrough(corners) + "Z"; }

void drawBalloons(SvgPage &page, Panel const &panel, std::vector<PartOutline> const &outlines) {
    double const width = panel.bottomRight.x() - panel.topLeft.x();
    double const spacing = width / static_cast<double>(outlines.size());
    if (spacing < 2.2 * kBalloonRadius) return;

    std::multimap<double, PartOutline const *> fromLeftToRight;
    for (PartOutline const &outline : outlines) fromLeftToRight.emplace(outline.middle, &outline);
    mgPoint_c balloon = panel.topLeft + mgVector_c(0.5 * spacing, 1.7 * kBalloonRadius, 0.0);
    for (auto const &[middle, outline] : fromLeftToRight) {
        mgPoint_c const target = nearestPoint(outline->edges, balloon);
        page.line(balloon, target, partStyle("leader", outline->part));
        page.circle(target, kDotRadius, partStyle("dot", outline->part));
        drawBalloon(page, balloon, outline->part);
        balloon += mgVector_c(spacing, 0.0, 0.0);
    }
}

} // namespace example::assembly
