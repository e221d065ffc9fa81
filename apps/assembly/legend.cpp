// SPDX-License-Identifier: MIT
// The meaning of the lines, the numbers of the parts, and the lists of parts and pairs.

#include "picture.h"

#include "report.h"

#include <algorithm>
#include <map>
#include <string>

#include <fmt/core.h>

#include <vexmath/mg_vector.h>

namespace assembly {

namespace {

constexpr double kBalloonRadius = 9.0; // pixels

/// The name, or its beginning and an ellipsis when it is too long for a column.
std::string nameOf(Part const &part) {
    constexpr int kMost = 20; // characters
    std::string const whole = fmt::format("{:.{}}", part.name, kMost);
    return whole == part.name ? whole : fmt::format("{:.{}}…", part.name, kMost - 1);
}

/// Draws a heading and the first entries of a list by `drawEntry(number, where)`, and counts the
/// others. Returns where the list ends.
template <class DrawEntry>
double drawList(SvgPage &page, mgPoint_c const &start, std::string const &heading,
                std::size_t count, DrawEntry drawEntry, std::size_t mostListed = 30) {
    mgVector_c const down(0.0, 22.0, 0.0);
    page.text(start, fmt::format("{}: {}", heading, count), {"heading"});
    mgPoint_c line = start + mgVector_c(0.0, 4.0, 0.0);
    for (std::size_t i = 0; i < std::min(count, mostListed); ++i) drawEntry(i, line += down);
    if (count > mostListed) {
        page.text(line += down, fmt::format("and {} more", count - mostListed));
    }
    return line.y();
}

/// The point of the outline that is nearest to p; p itself when there is no outline.
mgPoint_c nearestPoint(std::vector<Edge> const &outline, mgPoint_c const &p) {
    auto const nearest =
        std::min_element(outline.begin(), outline.end(), [&](Edge const &a, Edge const &b) {
            return sqDist(p, a.from) < sqDist(p, b.from);
        });
    return nearest == outline.end() ? p : nearest->from;
}

/// The number of a part, counted from 1, in a ring of its colour. Higher numbers do not fit.
void drawBalloon(SvgPage &page, mgPoint_c const &centre, std::size_t part) {
    constexpr std::size_t kHighestNumber = 999;
    page.circle(centre, kBalloonRadius, {"balloon", part});
    if (part >= kHighestNumber) return;
    page.text(centre + mgVector_c(0.0, 4.0, 0.0), std::to_string(part + 1), {"number middle"});
}

/// The number of a part, then a text.
void drawNumbered(SvgPage &page, mgPoint_c const &start, std::size_t part, std::string const &text,
                  Style const &style = {}) {
    drawBalloon(page, start + mgVector_c(kBalloonRadius, -4.0, 0.0), part);
    page.text(start + mgVector_c(3.0 * kBalloonRadius, 0.0, 0.0), text, style);
}

double drawParts(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
                 std::vector<PartPair> const &clashing) {
    std::vector<bool> clashes(parts.size(), false);
    for (auto const &[first, second] : clashing) clashes[first] = clashes[second] = true;
    mgVector_c const toSizes(265.0, 0.0, 0.0);
    page.text(start + toSizes, "Stock size", {"heading"});
    return drawList(page, start, "Parts", parts.size(), [&](std::size_t i, mgPoint_c const &at) {
        std::string const note = clashes[i] ? " (clashes)" : "";
        drawNumbered(page, at, i, nameOf(parts[i]) + note, {clashes[i] ? "alarm" : ""});
        page.text(at + toSizes, stockSize(parts[i]));
    });
}

double drawPairs(SvgPage &page, mgPoint_c const &start, std::string const &heading,
                 std::string const &between, std::vector<PartPair> const &pairs,
                 std::vector<Part> const &parts) {
    return drawList(page, start, heading, pairs.size(), [&](std::size_t i, mgPoint_c const &at) {
        page.text(at, fmt::format("{} {} {}", nameOf(parts[pairs[i].first]), between,
                                  nameOf(parts[pairs[i].second])));
    });
}

} // namespace

void drawBalloons(SvgPage &page, Panel const &panel, std::vector<PartOutline> const &outlines) {
    constexpr double kDotRadius = 2.2; // pixels
    double const width = panel.bottomRight.x() - panel.topLeft.x();
    double const spacing = width / static_cast<double>(outlines.size());
    if (spacing < 2.2 * kBalloonRadius) return;

    std::multimap<double, PartOutline const *> fromLeftToRight;
    for (PartOutline const &outline : outlines) fromLeftToRight.emplace(outline.middle, &outline);
    mgPoint_c balloon = panel.topLeft + mgVector_c(0.5 * spacing, 1.7 * kBalloonRadius, 0.0);
    for (auto const &[middle, outline] : fromLeftToRight) {
        mgPoint_c const target = nearestPoint(outline->edges, balloon);
        page.line(balloon, target, {"leader", outline->part});
        page.circle(target, kDotRadius, {"dot", outline->part});
        drawBalloon(page, balloon, outline->part);
        balloon += mgVector_c(spacing, 0.0, 0.0);
    }
}

void drawKey(SvgPage &page, mgPoint_c const &start, CheckResult const &result) {
    mgVector_c const wide(24.0, 0.0, 0.0); // of each sign
    mgVector_c const half(0.0, 7.0, 0.0);
    mgPoint_c lineStart = start;
    // Where the sign of an entry begins, after its meaning is written beside it.
    auto const entry = [&](double x, std::string const &meaning) {
        page.text(lineStart + mgVector_c(x + 32.0, 0.0, 0.0), meaning);
        return lineStart + mgVector_c(x, -5.0, 0.0);
    };
    auto const line = [&](mgPoint_c const &sign, Style const &style) {
        page.line(sign, sign + wide, style);
    };
    auto const area = [&](mgPoint_c const &sign, Style const &style) {
        page.rectangle(sign - half, sign + wide + half, style);
    };

    line(entry(0.0, "silhouette"), {"silhouette"});
    area(entry(120.0, "its convex hull"), {"hull"});
    area(entry(270.0, "box"), {"box"});
    page.circle(entry(350.0, "bounding sphere") + 0.5 * wide, 9.0, {"sphere"});
    area(entry(515.0,
               "least rectangle along the part's own z axis, where it is smaller than the box"),
         {"stock"});
    area(entry(1090.0, "where the boxes of two clashing parts overlap"), {"overlap"});

    // Below, what only some pictures have, without gaps.
    lineStart += mgVector_c(0.0, 26.0, 0.0);
    double x = 0.0;
    auto const next = [&](double width, std::string const &meaning) {
        mgPoint_c const sign = entry(x, meaning);
        x += width;
        return sign;
    };
    if (!result.drilling.path.bolts.empty()) {
        mgPoint_c const sign = next(145.0, "drilling path");
        line(sign, {"drill"});
        page.circle(sign, kHoleRadius, {"hole"});
        line(next(285.0, "drilling tour, back to the first bolt"), {"tour"});
    }
    if (result.pick) {
        mgPoint_c const sign = next(300.0, "line of sight, where it enters a box");
        line(sign, {"sight"});
        page.circle(sign + 0.5 * wide, kEntryRadius, {"entry"});
    }
    if (result.section) {
        line(next(185.0, "plane of the section"), {"trace"});
        area(next(190.0, "outline of a box that is cut"), {"cutbox"});
    }
}

void drawHits(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
              std::vector<Hit> const &hits) {
    constexpr std::size_t kMostBesidePanel = 20;
    auto const drawHit = [&](std::size_t i, mgPoint_c const &at) {
        drawNumbered(page, at, hits[i].part, nameOf(parts[hits[i].part]));
    };
    drawList(page, start, "Hit, nearest first", hits.size(), drawHit, kMostBesidePanel);
}

double drawLegend(SvgPage &page, double top, std::vector<Part> const &parts,
                  Contacts const &contacts) {
    mgPoint_c const start(kPageMargin, top, 0.0);
    auto const column = [&](double x) { return start + mgVector_c(x, 0.0, 0.0); };
    return std::max(
        {drawParts(page, start, parts, contacts.clashing),
         drawPairs(page, column(480.0), "Clashing pairs", "–", contacts.clashing, parts),
         drawPairs(page, column(840.0), "Touching pairs", "–", contacts.touching, parts),
         drawPairs(page, column(1200.0), "Containments", "contains", contacts.containing, parts)});
}

} // namespace assembly
