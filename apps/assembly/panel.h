// SPDX-License-Identifier: MIT
// Panels: rectangles of the page, each with a view of the assembly.

#ifndef ASSEMBLY_PANEL_H
#define ASSEMBLY_PANEL_H

#include "assembly.h"

#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/point.h>
#include <vexmath/unit_vector.h>
#include <vexmath/xform.h>

namespace assembly {

class SvgPage;

constexpr double kPageWidth = 1560.0; // pixels
constexpr double kPageMargin = 40.0;

/// The first panel of the upper row begins here, and each of its panels has this size.
constexpr mgPoint_c kUpperRow(84.0, 166.0, 0.0);
constexpr mgVector_c kUpperSize(600.0, 500.0, 0.0);

/// A coordinate axis of the assembly or its opposite, named; or another direction without a name.
struct Axis {
    std::string name;
    mgUnitVector_c direction;
};

struct Panel {
    std::string title;
    Axis right; ///< what runs to the right and upwards; unset in perspective
    Axis up;
    mgPoint_c topLeft;
    mgPoint_c bottomRight;
    mgXform_c toPage; ///< from the assembly to pixels: x to the right, y downwards
};

/// A place in a panel: shares of its width and height from the lower left corner, 0 to 1.
struct PanelPoint {
    double x = 0.0;
    double y = 0.0;
};

mgPoint_c pixelAt(Panel const &panel, PanelPoint const &at);

/// Grows the box by a share of its extent. A single point, which has none, grows by a little.
void addRoomAround(mgBBox_c &box, double share);

/// Front, top and side view beside each other below `top`. They have one scale, at which they fit,
/// and one height, so that what is level in space is level on the page.
std::vector<Panel> layOutViews(mgBBox_c const &extent, double top);

/// A view against the normal of points near a plane, as large as they fit into a panel of the upper
/// row that begins at `left`. The z axis is upright where that is possible.
Panel layOutAgainst(std::string const &title, mgUnitVector_c const &normal,
                    std::vector<mgPoint_c> const &points, double left);

/// The perspective view, the first panel of the upper row. It shows the parts from the front, the
/// right and above, as large as their boxes fit. Its transform holds a perspective record: the page
/// is the screen, and what is farther from the eye has a larger z there.
Panel layOutPerspective(Assembly const &assembly);

/// The frame and title, and a grid with coordinates at round values.
void drawFrame(SvgPage &page, Panel const &panel);
/// The frame and title, and a grid with the shares by which a point is picked.
void drawPerspectiveFrame(SvgPage &page, Panel const &panel);

} // namespace assembly

#endif
