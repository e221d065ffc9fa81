// SPDX-License-Identifier: MIT
// Where the views stand on the page.

#ifndef ASSEMBLY_PANEL_H
#define ASSEMBLY_PANEL_H

#include "svg.h"

#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>
#include <vexmath/xform.h>

namespace example::assembly {

constexpr double kPageWidth = 1560.0; // pixels
constexpr double kPageMargin = 40.0;
constexpr double kNumberRoom = 44.0; // left of a panel

/// Where the first row of views stands, and how large a view of the row above the three is.
constexpr mgPoint_c kFirstRow(kPageMargin + kNumberRoom, 142.0, 0.0);
constexpr mgVector_c kUpperSize(600.0, 500.0, 0.0);

/// A coordinate axis of the assembly, or another direction, and its name.
struct Axis {
    std::string name;
    mgUnitVector_c direction;
};

/// The rectangle of the page that shows the assembly from one side.
struct Panel {
    char const *title;
    Axis right; ///< what runs to the right and upwards; nothing in perspective
    Axis up;
    mgXform_c toPage; ///< assembly coordinates to pixels, x to the right and y downwards
    mgPoint_c topLeft;
    mgPoint_c bottomRight;
};

/// Front, top and side view beside each other below `top`, all on the one scale at which they fit,
/// and equally tall, so that what is level in space is level on the page.
std::vector<Panel> layOutViews(mgBBox_c const &extent, double top);

/// A view against the normal of points in a plane, or near one, as large as they fit into a panel
/// of the upper row that begins at `left`. The z axis is upright where that is possible.
Panel layOutAgainst(char const *title, mgUnitVector_c const &normal,
                    std::vector<mgPoint_c> const &points, double left);

/// The panel's frame and title, and a grid with numbers at round values.
void drawFrame(SvgPage &page, Panel const &panel);

} // namespace example::assembly

#endif
