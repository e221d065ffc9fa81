// SPDX-License-Identifier: MIT
// The picture of a checked assembly, and the pieces that it is drawn from.

#ifndef ASSEMBLY_PICTURE_H
#define ASSEMBLY_PICTURE_H

#include "checks.h"
#include "edges.h"
#include "panel.h"
#include "svg_page.h"

#include <cstddef>
#include <string>
#include <vector>

namespace assembly {

/// An SVG file: front, top and side view on one scale, with each part's silhouette and its hull,
/// box, bounding circle and least rectangle, the orders of drilling, the overlaps of clashing parts
/// hatched, and a legend. Above them stand the perspective view of a pick and the view of a
/// section, in which the parts are hatched. The other three views show the line of sight and the
/// plane of the section as well. Of more than 500 parts the largest are drawn so, and the others as
/// dots; the picture says so.
std::string drawPicture(Assembly const &assembly, CheckResult const &result);

// Pixels. The legend shows these marks at the size that they have in the views.
constexpr double kHoleRadius = 3.5;
constexpr double kEntryRadius = 5.0; // of the first point where the line of sight enters a box

// legend.cpp: the meaning of the lines, the numbers of the parts, the lists of parts and pairs.

/// The outline of a part on the page.
struct PartOutline {
    std::size_t part = 0;
    double middle = 0.0; ///< the numbers are sorted by it, from left to right
    std::vector<Edge> edges;
};

/// The numbers of the parts along the upper edge of a view, in the order in which the parts stand
/// below them, each with a line to the nearest point of its outline. None when there are more parts
/// than the edge has room for.
void drawBalloons(SvgPage &page, Panel const &panel, std::vector<PartOutline> const &outlines);
/// Two lines that show each kind of line that the picture has beside its meaning.
void drawKey(SvgPage &page, mgPoint_c const &start, CheckResult const &result);
/// The list of the parts that a pick hits.
void drawHits(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
              std::vector<Hit> const &hits);
/// The lists of parts and of pairs below `top`. Returns where they end.
double drawLegend(SvgPage &page, double top, std::vector<Part> const &parts,
                  Contacts const &contacts);

} // namespace assembly

#endif
