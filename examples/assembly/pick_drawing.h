// SPDX-License-Identifier: MIT
// How a pick is drawn: in the perspective view, and as a line of sight in the others.

#ifndef ASSEMBLY_PICK_DRAWING_H
#define ASSEMBLY_PICK_DRAWING_H

#include "panel.h"
#include "parts.h"
#include "pick.h"
#include "svg.h"

#include <vector>

#include <vexmath/bbox.h>

namespace example::assembly {

/// The perspective view, with the boxes of the parts that are hit and the list of these beside it.
void drawPick(SvgPage &page, std::vector<Part> const &parts, Pick const &pick);

/// The line of sight in another view, as far as it is within the extent, and the points where it
/// enters the boxes. The nearest one is larger.
void drawSight(SvgPage &page, Panel const &panel, Pick const &pick, mgBBox_c const &extent);

} // namespace example::assembly

#endif
