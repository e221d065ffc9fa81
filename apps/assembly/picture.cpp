// SPDX-License-Identifier: MIT
// The picture of a checked assembly: its three views, and the other pieces around them.

#include "picture.h"

#include "report.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <set>
#include <utility>

#include <fmt/core.h>

#include <vexmath/mg_planar.h>
#include <vexmath/mg_primitives.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace {

// Pixels.
constexpr double kTitleLine = 52.0;
constexpr double kKeyLine = 84.0;
constexpr double kLegendGap = 76.0; // from the views to the first line of the legend
constexpr double kListGap = 24.0;   // from the view of a pick to its list
constexpr double kListRoom = 240.0; // from there to the next view
constexpr double kRowGap = 90.0;    // to the row below
constexpr double kArrow = 26.0;
constexpr double kFartherRadius = 3.0; // of a point where the line of sight enters a box

mgBBox_c onPage(mgBBox_c box, Panel const &panel) {
    box *= panel.toPage;
    return box;
}

std::vector<mgPoint_c> onPage(std::vector<mgPoint_c> points, Panel const &panel) {
    for (mgPoint_c &point : points) point *= panel.toPage;
    return points;
}

/// The commands of a path along the edges. Edges that coincide on the page occur once.
std::string pathAlong(std::vector<Edge> const &edges) {
    std::set<std::string> segments;
    for (Edge const &edge : edges) {
        std::string const forth = pathThrough({edge.from, edge.to});
        std::string const back = pathThrough({edge.to, edge.from});
        segments.insert(std::min(forth, back));
    }
    std::string commands;
    for (std::string const &segment : segments) commands += segment;
    return commands;
}

// Of many parts only the largest are drawn in full.

constexpr std::size_t kMostInFull = 500;

/// The indices of the largest things, in ascending order. All of them, when they are few.
std::vector<std::size_t> largestOf(std::vector<double> const &sizes) {
    std::vector<std::size_t> indices(sizes.size());
    std::iota(indices.begin(), indices.end(), std::size_t{0});
    if (indices.size() <= kMostInFull) return indices;
    std::stable_sort(indices.begin(), indices.end(),
                     [&](std::size_t a, std::size_t b) { return sizes[a] > sizes[b]; });
    indices.resize(kMostInFull);
    std::sort(indices.begin(), indices.end());
    return indices;
}

/// The parts of a picture: which of them are drawn in full, and which clash.
struct Drawn {
    Drawn(std::vector<Part> const &all, Contacts const &contacts);

    std::vector<Part> const &parts;
    std::vector<std::size_t> inFull;
    std::vector<bool> isInFull; // by parts, as the next
    std::vector<bool> clashes;
};

Drawn::Drawn(std::vector<Part> const &all, Contacts const &contacts)
    : parts(all), isInFull(all.size(), false), clashes(all.size(), false) {
    std::vector<double> sizes;
    for (Part const &part : parts) sizes.push_back(part.placed.diagonalLength());
    inFull = largestOf(sizes);
    for (std::size_t const i : inFull) isInFull[i] = true;
    for (auto const &[first, second] : contacts.clashing) clashes[first] = clashes[second] = true;
}

/// A path of dots. Of several in one pixel, one is drawn.
std::string dotsAt(std::vector<mgPoint_c> points) {
    for (mgPoint_c &p : points) p = {std::round(p.x()), std::round(p.y()), 0.0};
    auto const isBefore = [](mgPoint_c const &a, mgPoint_c const &b) {
        return std::make_pair(a.y(), a.x()) < std::make_pair(b.y(), b.x());
    };
    std::sort(points.begin(), points.end(), isBefore);
    std::string commands;
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (i > 0 && !isBefore(points[i - 1], points[i])) continue;
        commands += pathThrough({points[i]}) + "h0";
    }
    return commands;
}

/// A dot for each part that is not drawn in full.
void drawDots(SvgPage &page, Panel const &panel, Drawn const &drawn) {
    std::vector<mgPoint_c> clear;
    std::vector<mgPoint_c> clashing;
    for (std::size_t i = 0; i < drawn.parts.size(); ++i) {
        if (drawn.isInFull[i]) continue;
        (drawn.clashes[i] ? clashing : clear)
            .push_back(drawn.parts[i].placed.center() * panel.toPage);
    }
    page.path(dotsAt(std::move(clear)), {"dots"});
    page.path(dotsAt(std::move(clashing)), {"dots clash"});
}

/// Right above a panel or the page: what was left out.
void drawLimit(SvgPage &page, mgPoint_c const &end, std::size_t count, std::string const &what) {
    if (count <= kMostInFull) return;
    page.text(end, fmt::format("The {} largest of {} {}", kMostInFull, count, what), {"end"});
}

PartOutline outlineOf(Part const &part, std::size_t number, Panel const &panel) {
    double const middle = (part.placed.center() * panel.toPage).x();
    return {number, middle, silhouetteOf(part, panel.toPage)};
}

// The upper row: a pick and a section, where they are asked for.

void drawCross(SvgPage &page, Pick const &pick) {
    auto const &[x, y] = pick.at;
    page.line(pixelAt(pick.panel, {x, 0.0}), pixelAt(pick.panel, {x, 1.0}), {"cross"});
    page.line(pixelAt(pick.panel, {0.0, y}), pixelAt(pick.panel, {1.0, y}), {"cross"});
    page.circle(pixelAt(pick.panel, pick.at), kEntryRadius, {"entry"});
}

/// Fills the part and draws its silhouette, which is returned.
PartOutline drawSolid(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    std::string area;
    for (auto const &face : facesOf(part, panel.toPage)) area += pathAround(face);
    page.path(area, {"solid", number});
    PartOutline outline = outlineOf(part, number, panel);
    page.path(pathAlong(outline.edges), {"silhouette", number});
    return outline;
}

/// The box that was hit: the one in the part's own frame.
void drawHitBox(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    std::vector<Edge> edges;
    for (Edge const &edge : edgesOf(part.mesh->bounds)) {
        edges.push_back(moved(moved(edge, part.placement), panel.toPage));
    }
    page.path(pathAlong(edges), {"hit", number});
}

void drawPick(SvgPage &page, Drawn const &drawn, Pick const &pick) {
    drawPerspectiveFrame(page, pick.panel);
    std::vector<Part> const &parts = drawn.parts;
    std::vector<PartOutline> outlines;
    Progress progress("drawing in perspective", drawn.inFull.size());
    drawDots(page, pick.panel, drawn);
    for (std::size_t const i : drawn.inFull) {
        progress.step(parts[i].name);
        outlines.push_back(drawSolid(page, pick.panel, parts[i], i));
    }
    for (std::size_t i = 0; i < std::min(pick.hits.size(), kMostInFull); ++i) {
        std::size_t const part = pick.hits[i].part;
        drawHitBox(page, pick.panel, parts[part], part);
    }
    drawBalloons(page, pick.panel, outlines);
    drawCross(page, pick);
    mgPoint_c const list(pick.panel.bottomRight.x() + kListGap, pick.panel.topLeft.y(), 0.0);
    drawHits(page, list, parts, pick.hits);
}

/// The hatch lines of the area within outlines on the page. All areas of a panel have one lattice,
/// so that lines of the same angle meet.
std::string hatchWithin(std::vector<std::vector<mgPoint_c>> const &outlines, double degrees,
                        Panel const &panel) {
    constexpr double kSpacing = 7.0; // pixels
    std::string commands;
    for (Edge const &line : hatchLines(outlines, panel.topLeft, -degrees, kSpacing)) {
        commands += pathThrough({line.from, line.to});
    }
    return commands;
}

/// Draws the box's outline and hatches the part's area, whose outline is returned.
PartOutline drawCut(SvgPage &page, Panel const &panel, PartCut const &cut) {
    page.path(pathAround(onPage(cut.boxOutline, panel)), {"cutbox", cut.part});

    PartOutline result{cut.part, 0.0, {}};
    std::vector<std::vector<mgPoint_c>> outlines;
    std::string area;
    mgBBox_c bounds;
    for (auto const &outline : cut.outlines) {
        outlines.push_back(onPage(outline, panel));
        area += pathAround(outlines.back());
        for (mgPoint_c const &point : outlines.back()) {
            result.edges.push_back({point, point});
            bounds |= point;
        }
    }
    result.middle = bounds.center().x();
    page.path(area, {"material", cut.part});
    page.path(hatchWithin(outlines, cut.hatchDegrees, panel), {"hatching", cut.part});
    return result;
}

/// The cut boxes and parts, seen against the plane's normal.
void drawSection(SvgPage &page, Section const &section, double left) {
    std::vector<mgPoint_c> corners;
    for (PartCut const &cut : section.cuts) {
        corners.insert(corners.end(), cut.boxOutline.begin(), cut.boxOutline.end());
    }
    Panel const panel = layOutAgainst("Section A–A", section.plane.normal(), corners, left);
    drawFrame(page, panel);
    std::vector<double> sizes;
    std::vector<mgPoint_c> middles;
    for (PartCut const &cut : section.cuts) {
        mgBBox_c outline;
        for (mgPoint_c const &corner : cut.boxOutline) outline |= corner;
        sizes.push_back(outline.diagonalLength());
        middles.push_back(outline.center());
    }
    std::vector<std::size_t> const inFull = largestOf(sizes);
    std::vector<PartOutline> outlines;
    std::vector<mgPoint_c> others;
    for (std::size_t i = 0; i < section.cuts.size(); ++i) {
        if (std::binary_search(inFull.begin(), inFull.end(), i)) {
            outlines.push_back(drawCut(page, panel, section.cuts[i]));
        } else {
            others.push_back(middles[i] * panel.toPage);
        }
    }
    page.path(dotsAt(std::move(others)), {"dots"});
    drawLimit(page, {panel.bottomRight.x(), panel.topLeft.y() - 12.0, 0.0}, sizes.size(),
              "cut parts are hatched, the others are dots");
    drawBalloons(page, panel, outlines);
}

/// Draws the pick and the section beside each other. Returns where the row below begins.
double drawUpperRow(SvgPage &page, Drawn const &drawn, CheckResult const &result) {
    bool const cuts = result.section && !result.section->cuts.empty();
    if (!result.pick && !cuts) return kUpperRow.y();
    double left = kUpperRow.x();
    if (result.pick) {
        drawPick(page, drawn, *result.pick);
        left += kUpperSize.x() + kListRoom;
    }
    if (cuts) drawSection(page, *result.section, left);
    return kUpperRow.y() + kUpperSize.y() + kRowGap;
}

// The three views.

/// What the views show: the boxes of the parts and the cubes around their spheres, with room
/// around.
mgBBox_c extentOf(std::vector<Part> const &parts) {
    constexpr double kRoomAround = 0.03;
    mgBBox_c extent;
    for (Part const &part : parts) {
        extent |= part.placed;
        extent |= mgBBox_c(part.placed.sphCenter(), part.placed.sphRadius());
    }
    addRoomAround(extent, kRoomAround);
    return extent;
}

void drawBounds(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    mgBBox_c const box = onPage(part.placed, panel);
    page.circle(box.sphCenter(), box.sphRadius(), {"sphere", number});
    page.rectangle(box.low(), box.high(), {"box", number});
}

/// The least rectangle around the part in plan, in a view along the part's own z axis. Only where
/// it is smaller than the box, which is drawn as well.
void drawStock(SvgPage &page, Panel const &panel, Part const &part, std::size_t number) {
    constexpr double kSmaller = 0.999; // share of the area of the box
    mgVector_c const towardsViewer = panel.right.direction * panel.up.direction;
    mgVector_c const partZ = mgVector_c(0.0, 0.0, 1.0) * part.placement;
    if (!towardsViewer.isParallelTo(partZ)) return;
    auto const &rectangle = part.mesh->stock.rectangle;
    std::vector<mgPoint_c> corners(rectangle.begin(), rectangle.end());
    for (mgPoint_c &corner : corners) corner *= part.placement;
    corners = onPage(corners, panel);
    mgBBox_c const box = onPage(part.placed, panel);
    double const area = dist(corners[0], corners[1]) * dist(corners[1], corners[2]);
    if (area >= kSmaller * box.width() * box.depth()) return;
    page.path(pathAround(corners), {"stock", number});
}

/// Placed parts may clash although their boxes along the axes, which are drawn, do not.
void drawOverlap(SvgPage &page, Panel const &panel, Part const &a, Part const &b) {
    mgBBox_c overlap = a.placed;
    overlap &= b.placed;
    if (!overlap.isSet()) return;
    overlap = onPage(overlap, panel);
    page.rectangle(overlap.low(), overlap.high(), {"overlap"});
}

/// Bounds below, then hulls, silhouettes, least rectangles, overlaps, dots and numbers.
void drawView(SvgPage &page, Panel const &panel, Drawn const &drawn, Contacts const &contacts,
              Progress &progress) {
    drawFrame(page, panel);
    std::vector<Part> const &parts = drawn.parts;
    std::vector<PartOutline> outlines;
    for (std::size_t const i : drawn.inFull) {
        progress.step(parts[i].name);
        outlines.push_back(outlineOf(parts[i], i, panel));
        drawBounds(page, panel, parts[i], i);
    }
    for (std::size_t const i : drawn.inFull) {
        page.path(pathAround(hullOf(parts[i], panel.toPage)), {"hull", i});
    }
    for (PartOutline const &outline : outlines) {
        page.path(pathAlong(outline.edges), {"silhouette", outline.part});
    }
    for (std::size_t const i : drawn.inFull) drawStock(page, panel, parts[i], i);
    for (auto const &[first, second] : contacts.clashing) {
        bool const isInFull = drawn.isInFull[first] && drawn.isInFull[second];
        if (isInFull) drawOverlap(page, panel, parts[first], parts[second]);
    }
    drawDots(page, panel, drawn);
    drawBalloons(page, panel, outlines);
}

/// The tour, and over it the path with an arrow at its end, and a mark at each hole. Nothing
/// without bolts.
void drawDrilling(SvgPage &page, Panel const &panel, Drilling const &drilling) {
    page.path(pathAround(onPage(drilling.tour.centres, panel)), {"tour"});
    std::vector<mgPoint_c> const holes = onPage(drilling.path.centres, panel);
    if (holes.size() > 1) page.path(pathThrough(holes), {"drill drilled"});
    for (mgPoint_c const &hole : holes) page.circle(hole, kHoleRadius, {"hole"});
}

/// The line of sight in another view, as far as it is within the extent, and the points where it
/// enters the boxes. The nearest one is larger.
void drawSight(SvgPage &page, Panel const &panel, Pick const &pick, mgBBox_c const &extent) {
    std::optional<Edge> const inside = insideOf(extent, pick.sight);
    if (!inside) return;
    auto const [from, to] = moved(*inside, panel.toPage);
    page.line(from, to, {"sight arrow"});
    for (Hit const &hit : pick.hits) {
        bool const isNearest = &hit == &pick.hits.front();
        page.circle(hit.point * panel.toPage, isNearest ? kEntryRadius : kFartherRadius, {"entry"});
    }
}

/// The line that the section's plane has in common with the middle plane of another view, as far as
/// it is within the extent, with arrows in the direction of sight. Nothing in a view along the
/// plane's normal.
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

} // namespace

std::string drawPicture(Assembly const &assembly, CheckResult const &result) {
    std::vector<Part> const &parts = assembly.parts;
    SvgPage page;
    page.text({kPageMargin, kTitleLine, 0.0}, assembly.name, {"title"});
    drawKey(page, {kPageMargin, kKeyLine, 0.0}, result);

    mgBBox_c const extent = extentOf(parts);
    Drawn const drawn(parts, result.contacts);
    drawLimit(page, {kPageWidth - kPageMargin, kTitleLine, 0.0}, parts.size(),
              "parts are drawn in full, the others are dots, red where they clash");
    std::vector<Panel> const panels = layOutViews(extent, drawUpperRow(page, drawn, result));
    Progress progress("drawing", panels.size() * drawn.inFull.size());
    for (Panel const &panel : panels) {
        drawView(page, panel, drawn, result.contacts, progress);
        drawDrilling(page, panel, result.drilling);
        if (result.section) drawTrace(page, panel, *result.section, extent);
        if (result.pick) drawSight(page, panel, *result.pick, extent);
    }

    double const legendTop = panels.front().bottomRight.y() + kLegendGap;
    double const bottom = drawLegend(page, legendTop, parts, result.contacts);
    return page.finish(kPageWidth, bottom + kPageMargin);
}

} // namespace assembly
