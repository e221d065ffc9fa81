// SPDX-License-Identifier: MIT
// The picture of a checked assembly, and the pieces that it is drawn from.

#ifndef ASSEMBLY_DRAWING_H
#define ASSEMBLY_DRAWING_H

#include "check_result.h"
#include "panel.h"
#include "svg_page.h"

#include <cstddef>
#include <string>
#include <vector>

namespace assembly {

/// An SVG file: front, top and side view on one scale, with each part's silhouette and its hull,
/// box and bounding circle, the drilling path, the overlaps of clashing parts hatched, and a
/// legend. Above them stand the perspective view of a pick and the view of a section. The other
/// three views show the line of sight and the plane of the section as well.
std::string drawPicture(Assembly const &assembly, CheckResult const &result);

// upper_row.cpp: the views that are asked for, and what the other views show of them.

/// Draws the pick and the section beside each other. Returns where the row below begins.
double drawUpperRow(SvgPage &page, Assembly const &assembly, CheckResult const &result);
/// The line of sight in another view, as far as it is within the extent, and the points where it
/// enters the boxes. The nearest one is larger.
void drawSight(SvgPage &page, Panel const &panel, Pick const &pick, mgBBox_c const &extent);
/// The line that the section's plane has in common with the middle plane of another view, as far as
/// it is within the extent, with arrows in the direction of sight. Nothing in a view along the
/// plane's normal.
void drawTrace(SvgPage &page, Panel const &panel, Section const &section, mgBBox_c const &extent);

// legend.cpp: the meaning of the lines, the numbers of the parts, the lists of parts and pairs.

/// The outline of a part on the page.
struct PartOutline {
    std::size_t part = 0;
    double middle = 0.0; ///< the numbers are sorted by it, from left to right
    std::vector<Edge> edges;
};

constexpr double kBalloonRadius = 9.0; // pixels

/// The number of a part, counted from 1, in a ring of its colour.
void drawBalloon(SvgPage &page, mgPoint_c const &centre, std::size_t part);
/// The numbers of the parts along the upper edge of a view, in the order in which the parts stand
/// below them, each with a line to the nearest point of its outline. None when there are more parts
/// than the edge has room for.
void drawBalloons(SvgPage &page, Panel const &panel, std::vector<PartOutline> const &outlines);
/// One line that shows each kind of line that the picture has beside its meaning.
void drawKey(SvgPage &page, mgPoint_c const &start, CheckResult const &result);
/// The list of the parts that a pick hits.
void drawHits(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
              std::vector<Hit> const &hits);
/// The lists of parts and of pairs below `top`. Returns where they end.
double drawLegend(SvgPage &page, double top, std::vector<Part> const &parts,
                  Contacts const &contacts);

} // namespace assembly

#endif
