// SPDX-License-Identifier: MIT
// Picking: which parts lie under a point of the perspective view.

#ifndef ASSEMBLY_PICK_H
#define ASSEMBLY_PICK_H

#include "panel.h"
#include "parts.h"

#include <cstddef>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/line.h>
#include <vexmath/point.h>

namespace example::assembly {

/// A place in the perspective view, as parts of its width and height from the lower left corner.
struct ScreenPoint {
    double x = 0.0;
    double y = 0.0;
};

/// Where the line of sight enters the box of a part, taken in the part's own frame, in which it
/// fits the part best.
struct Hit {
    std::size_t part = 0;
    mgPoint_c point;
    double distance = 0.0; ///< from the root of the line of sight
};

struct Pick {
    Panel panel; ///< the perspective view over the bounds of the assembly
    ScreenPoint at;
    mgLine_c sight;        ///< from the near clip plane away from the eye
    std::vector<Hit> hits; ///< nearest first
};

Pick pickParts(std::vector<Part> const &parts, mgBBox_c const &total, ScreenPoint const &at);

} // namespace example::assembly

#endif
