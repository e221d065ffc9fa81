// SPDX-License-Identifier: MIT
// Outlines and numbers, as the views draw them.

#ifndef ASSEMBLY_STROKES_H
#define ASSEMBLY_STROKES_H

#include "box_edges.h"
#include "panel.h"
#include "svg.h"

#include <cstddef>
#include <string>
#include <vector>

namespace example::assembly {

/// The outline of a part on the page.
struct PartOutline {
    std::size_t part = 0;
    double middle = 0.0; ///< by which the numbers are put in order, from left to right
    std::vector<Edge> edges;
};

/// Lines; those that fall onto each other on the page are drawn once.
void drawEdges(SvgPage &page, std::vector<Edge> const &edges, std::string const &style);

/// The commands of a path around an area on the page.
std::string polygon(std::vector<mgPoint_c> const &corners);

/// The numbers of the parts along the upper edge of a view, in the order in which the parts stand
/// below them, each with a leader to the nearest point of its outline. None when there are more
/// parts than the edge has room for.
void drawBalloons(SvgPage &page, Panel const &panel, std::vector<PartOutline> const &outlines);

} // namespace example::assembly

#endif
