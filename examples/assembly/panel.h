// SPDX-License-Identifier: MIT
// Where the views stand on the page.

#ifndef ASSEMBLY_PANEL_H
#define ASSEMBLY_PANEL_H

#include "svg.h"

#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/unit_vector.h>
#include <vexmath/xform.h>

namespace assembly {

constexpr double kPageWidth = 1560.0; // pixels
constexpr double kPageMargin = 40.0;

/// A coordinate axis of the assembly and its name.
struct Axis {
    char const *name;
    mgUnitVector_c direction;
};

/// The rectangle of the page that shows the assembly from one side.
struct Panel {
    char const *title;
    Axis right; ///< what runs to the right and upwards
    Axis up;
    mgXform_c toPage; ///< assembly coordinates to pixels, x to the right and y downwards
    mgPoint_c topLeft;
    mgPoint_c bottomRight;
};

/// Front, top and side view beside each other below `top`, all on the one scale at which they fit,
/// and equally tall, so that what is level in space is level on the page.
std::vector<Panel> layOutViews(mgBBox_c const &extent, double top);

/// The panel's frame and title, and a grid with numbers at round values.
void drawFrame(SvgPage &page, Panel const &panel);

} // namespace assembly

#endif
