// SPDX-License-Identifier: MIT
// What is checked of an assembly besides its contacts: drilling, a pick and a section. All of them
// use the bounding volumes of the parts; only the outlines of a section use the meshes.

#ifndef ASSEMBLY_CHECKS_H
#define ASSEMBLY_CHECKS_H

#include "assembly.h"
#include "contacts.h"
#include "edges.h"
#include "panel.h"

#include <cstddef>
#include <optional>
#include <vector>

#include <vexmath/line.h>
#include <vexmath/plane.h>
#include <vexmath/point.h>

namespace assembly {

/// An order of drilling: through the centres of all bolts.
struct DrillingOrder {
    std::vector<std::size_t> bolts; ///< indices of parts
    std::vector<mgPoint_c> centres; ///< of the bolts
    double length = 0.0;
};

/// Short orders for all bolts: for the parts whose names begin with "bolt". Both are empty when
/// there are more bolts than kMostBolts, because the time grows with the square of their number.
struct Drilling {
    static constexpr std::size_t kMostBolts = 2000;

    std::size_t bolts = 0; ///< how many there are
    DrillingOrder path;    ///< from any bolt to any other
    DrillingOrder tour; ///< back to the first one, for a drill that makes one piece after another
};

/// Where a line of sight enters the box of a part. The box is the one in the part's own frame,
/// where it fits best.
struct Hit {
    std::size_t part = 0;
    mgPoint_c point;
    double distance = 0.0; ///< from the root of the line of sight
};

/// The parts under a point of the perspective view.
struct Pick {
    Panel panel; ///< the perspective view
    PanelPoint at;
    mgLine_c sight;        ///< from the near clip plane away from the eye
    std::vector<Hit> hits; ///< nearest first
};

/// A part whose box is cut by a plane. The box is the one in the part's own frame.
struct PartCut {
    std::size_t part = 0;
    std::vector<mgPoint_c> boxOutline; ///< a convex polygon of three to six corners, in order
    /// The outlines of the part itself, closed, with those of its holes. Where the mesh has a gap,
    /// an outline is closed by a straight line.
    std::vector<std::vector<mgPoint_c>> outlines;
    double hatchDegrees = 0.0; ///< differs between parts that clash or touch, up to six of them
};

struct Section {
    mgPlane_c plane;
    std::vector<PartCut> cuts;
};

struct CheckResult {
    Contacts contacts;
    Drilling drilling;
    std::optional<Pick> pick;
    std::optional<Section> section;
};

/// The parts whose boxes the line of sight enters, nearest first. What lies behind the line's root
/// is not seen.
std::vector<Hit> hitsAlong(mgLine_c const &sight, std::vector<Part> const &parts);

Section findSection(std::vector<Part> const &parts, mgPlane_c const &plane,
                    Contacts const &contacts);

/// Hatches the area within closed outlines in the xy plane. z is ignored. The lines are at an angle
/// to the x axis and belong to one lattice, which has a line through the origin.
std::vector<Edge> hatchLines(std::vector<std::vector<mgPoint_c>> const &outlines,
                             mgPoint_c const &origin, double degrees, double spacing);

/// Checks all of it; a pick and a section only where they are asked for.
CheckResult check(Assembly const &assembly, Contacts contacts,
                  std::optional<PanelPoint> const &pickAt,
                  std::optional<mgPlane_c> const &sectionPlane);

} // namespace assembly

#endif
