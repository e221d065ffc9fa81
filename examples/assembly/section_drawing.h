// SPDX-License-Identifier: MIT
// How a section is drawn: in a view of its own, and as a trace in the others.

#ifndef ASSEMBLY_SECTION_DRAWING_H
#define ASSEMBLY_SECTION_DRAWING_H

#include "panel.h"
#include "section.h"
#include "svg.h"

#include <vexmath/bbox.h>

namespace example::assembly {

/// The cut boxes and, filled, the cut parts, seen against the plane's normal, in the upper row from
/// `left` on.
void drawSection(SvgPage &page, Section const &section, double left);

/// The line in which the section's plane meets the middle plane of another view, as far as it is
/// within the extent, with arrows that look as the section does. Nothing in a view that looks along
/// the plane's normal.
void drawTrace(SvgPage &page, Panel const &panel, Section const &section, mgBBox_c const &extent);

} // namespace example::assembly

#endif
