// SPDX-License-Identifier: MIT
// What stands above and below the views: the meaning of the lines, the parts and their pairs.

#include "legend.h"

#include "drawing.h"
#include "panel.h"
#include "style.h"
#include "text.h"

#include <algorithm>
#include <string>

namespace example::assembly {

namespace {

constexpr std::size_t kMostListed = 30;    // further entries of a list are only counted
constexpr std::size_t kNameWidth = 20;     // characters
constexpr double kPartColumnWidth = 280.0; // pixels, like the next two
constexpr double kPairColumnWidth = 390.0; // for two names
constexpr double kLineHeight = 22.0;

std::string nameOf(Part const &part) { return shortened(part.name, kNameWidth); }

/// Draws the heading and the first entries of a list by `drawEntry(number, where)`. Returns where
/// the list ends.
template <class DrawEntry>
double drawList(SvgPage &page, mgPoint_c const &start, std::string const &heading,
                std::size_t count, DrawEntry drawEntry) {
    page.text(start, heading + ": " + std::to_string(count), "class='heading'");
    mgPoint_c line = start + mgVector_c(0.0, 4.0, 0.0);
    mgVector_c const down(0.0, kLineHeight, 0.0);
    for (std::size_t i = 0; i < std::min(count, kMostListed); ++i) drawEntry(i, line += down);
    if (count > kMostListed) {
        page.text(line += down, "and " + std::to_string(count - kMostListed) + " more");
    }
    return line.y();
}

double drawParts(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
                 std::vector<bool> const &clashes) {
    return drawList(page, start, "Parts", parts.size(), [&](std::size_t i, mgPoint_c const &at) {
        drawBalloon(page, at + mgVector_c(kBalloonRadius, -4.0, 0.0), i);
        page.text(at + mgVector_c(3.0 * kBalloonRadius, 0.0, 0.0),
                  nameOf(parts[i]) + (clashes[i] ? " (clashes)" : ""),
                  clashes[i] ? "class='alarm'" : "");
    });
}

double drawPairs(SvgPage &page, mgPoint_c const &start, std::string const &heading,
                 std::string const &between, std::vector<PartPair> const &pairs,
                 std::vector<Part> const &parts) {
    return drawList(page, start, heading, pairs.size(), [&](std::size_t i, mgPoint_c const &at) {
        page.text(at, nameOf(parts[pairs[i].first]) + between + nameOf(parts[pairs[i].second]));
    });
}

} // namespace

void drawBalloon(SvgPage &page, mgPoint_c const &centre, std::size_t part) {
    page.circle(centre, kBalloonRadius, partStyle("balloon", part));
    page.text(centre + mgVector_c(0.0, 4.0, 0.0), std::to_string(part + 1),
              "class='number middle'");
}

void drawKey(SvgPage &page, mgPoint_c const &start, Extras const &extras) {
    // Each sign is 24 pixels wide, its meaning begins 8 pixels behind it.
    auto const sign = [&](double x) { return start + mgVector_c(x, -5.0, 0.0); };
    auto const meaning = [&](double x) { return start + mgVector_c(x + 32.0, 0.0, 0.0); };
    mgVector_c const wide(24.0, 0.0, 0.0);
    mgVector_c const half(0.0, 7.0, 0.0);

    page.line(sign(0.0), sign(0.0) + wide, "class='silhouette'");
    page.text(meaning(0.0), "silhouette");
    page.rectangle(sign(120.0) - half, sign(120.0) + wide + half, "class='hull'");
    page.text(meaning(120.0), "its convex hull");
    page.rectangle(sign(270.0) - half, sign(270.0) + wide + half, "class='box'");
    page.text(meaning(270.0), "box");
    page.circle(sign(350.0) + 0.5 * wide, 9.0, "class='sphere'");
    page.text(meaning(350.0), "bounding sphere");
    page.rectangle(sign(515.0) - half, sign(515.0) + wide + half, "class='overlap'");
    page.text(meaning(515.0), "where the boxes of two clashing parts overlap");
    if (!extras.drilling.bolts.empty()) {
        page.line(sign(880.0), sign(880.0) + wide, "class='drill'");
        page.circle(sign(880.0), 3.5, "class='hole'");
        page.text(meaning(880.0), "drilling path");
    }
    if (extras.pick) {
        page.line(sign(1020.0), sign(1020.0) + wide, "class='sight'");
        page.circle(sign(1020.0) + 0.5 * wide, 5.0, "class='entry'");
        page.text(meaning(1020.0), "line of sight, where it enters a box");
    }
    if (extras.section) {
        page.line(sign(1318.0), sign(1318.0) + wide, "class='trace'");
        page.text(meaning(1318.0), "plane of the section");
    }
}

void drawHits(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
              std::vector<Hit> const &hits) {
    drawList(
        page, start, "Hit, nearest first", hits.size(), [&](std::size_t i, mgPoint_c const &at) {
            drawBalloon(page, at + mgVector_c(kBalloonRadius, -4.0, 0.0), hits[i].part);
            page.text(at + mgVector_c(3.0 * kBalloonRadius, 0.0, 0.0), nameOf(parts[hits[i].part]));
        });
}

double drawLegend(SvgPage &page, double top, std::vector<Part> const &parts,
                  CheckResult const &result) {
    mgPoint_c start(kPageMargin, top, 0.0);
    double bottom = drawParts(page, start, parts, clashingParts(result, parts.size()));
    start += mgVector_c(kPartColumnWidth, 0.0, 0.0);

    struct {
        char const *heading;
        char const *between;
        std::vector<PartPair> const &pairs;
    } const lists[] = {{"Clashing pairs", " \xE2\x80\x93 ", result.clashing},
                       {"Touching pairs", " \xE2\x80\x93 ", result.touching},
                       {"Containments", " contains ", result.containing}};
    for (auto const &[heading, between, pairs] : lists) {
        bottom = std::max(bottom, drawPairs(page, start, heading, between, pairs, parts));
        start += mgVector_c(kPairColumnWidth, 0.0, 0.0);
    }
    return bottom;
}

} // namespace example::assembly
