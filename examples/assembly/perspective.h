// SPDX-License-Identifier: MIT
// The perspective view: how it looks at the assembly.

#ifndef ASSEMBLY_PERSPECTIVE_H
#define ASSEMBLY_PERSPECTIVE_H

#include "panel.h"
#include "parts.h"
#include "svg.h"

#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/point.h>

namespace example::assembly {

/// The panel of the perspective view, which shows the parts from the front, the right and above, as
/// large as their boxes fit. Its transform holds a perspective record: the page is the screen, in
/// pixels, and what is farther from the eye has a larger z there.
Panel layOutPerspective(std::vector<Part> const &parts, mgBBox_c const &total);

/// The point of the page at parts of the panel's width and height, from its lower left corner.
mgPoint_c placeIn(Panel const &panel, double x, double y);

/// The panel's frame and title, and the scales from 0 to 1 by which a point is picked.
void drawPerspectiveFrame(SvgPage &page, Panel const &panel);

} // namespace example::assembly

#endif
