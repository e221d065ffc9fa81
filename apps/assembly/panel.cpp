// SPDX-License-Identifier: MIT
// Panels: rectangles of the page, each with a view of the assembly.

#include "panel.h"

#include "edges.h"

#include <algorithm>
#include <cmath>

#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace {

// Pixels.
constexpr double kNumberRoom = 44.0; // left of a panel
constexpr double kGap = 24.0;        // between a panel and the next one's numbers
constexpr double kMostHeight = 560.0;

/// The least extent that a view shows, in model units: a single point has none.
constexpr double kLeastExtent = 1e-6;

/// From the assembly to the viewer's frame: x to the right, y upwards, z towards the viewer.
mgXform_c toViewer(Panel const &panel) {
    return mg_CoordinateXform(mgPoint_c(), panel.right.direction, panel.up.direction).inverse();
}

/// The page is one more coordinate system: upside down, in pixels. The middle of what is shown goes
/// to the middle of the panel.
void place(Panel &panel, mgBBox_c const &shown, double scale) {
    mgXform_c const toPixels = mg_YReflectionXform() * mg_ScaleXform(scale);
    mgPoint_c const middle = pixelAt(panel, {0.5, 0.5});
    panel.toPage =
        toViewer(panel) * toPixels * mg_TranslateXform(middle - shown.center() * toPixels);
}

/// "x" or "-x" and the like; no name for a direction along no coordinate axis.
Axis named(mgUnitVector_c const &direction) {
    Axis const axes[] = {{"x", mgUnitVector_c::xAxis()},
                         {"y", mgUnitVector_c::yAxis()},
                         {"z", mgUnitVector_c::zAxis()}};
    for (Axis const &axis : axes) {
        if (direction == axis.direction) return axis;
        if (direction == -axis.direction) return {"-" + axis.name, -axis.direction};
    }
    return {"", direction};
}

// The perspective view.

/// An eye that looks at the middle of a sphere, from where it sees all of it.
struct Eye {
    explicit Eye(mgBBox_c const &bounds)
        : radius(std::max(bounds.sphRadius(), kLeastExtent)),
          distance(radius / std::sin(kHalfAngleRad)),
          place(bounds.sphCenter() - distance * kLooking) {}

    static constexpr double kHalfAngleRad = 0.22; // half the angle under which it sees the sphere
    static inline mgUnitVector_c const kLooking{-0.5, 0.85, -0.42};

    double radius;
    double distance; ///< to the middle of the sphere
    mgPoint_c place;
};

/// From the assembly to what the eye sees: x to the right, y downwards as on a page, z away from
/// the eye, which is the origin. The z axis of the assembly is upright.
mgXform_c toEye(Eye const &eye) {
    constexpr int kKeepZ = 1;
    mgXform_c const viewer =
        mg_CoordinateXformYZ(eye.place, mgUnitVector_c::zAxis(), -Eye::kLooking, kKeepZ);
    return viewer.inverse() * mg_RotateXform(vexmath::kPi, mgUnitVector_c::xAxis(), 0.0);
}

/// The view in which the eye stands above a point of the page. The scale is that of what is as far
/// from the eye as the middle of the bounds.
mgXform_c viewOf(Eye const &eye, double scale, mgPoint_c const &eyeOnPage) {
    constexpr double kNear = 0.5; // share of the way to the sphere at which the near plane lies
    mgXform_c view = toEye(eye) * mg_ScaleXform(scale) * mg_TranslateXform(eyeOnPage);
    double const nearest = kNear * (eye.distance - eye.radius);
    mgPerspInfo_c info(eyeOnPage.x(), eyeOnPage.y(), eyeOnPage.z(), nearest * scale);
    info.setMinFarClipPlaneDistance((eye.distance + eye.radius) * scale);
    info.setCameraFOVPlaneDistance(eye.distance * scale);
    view.addPerspectiveInfo(info);
    return view;
}

} // namespace

mgPoint_c pixelAt(Panel const &panel, PanelPoint const &at) {
    mgVector_c const size = panel.bottomRight - panel.topLeft;
    return panel.topLeft + mgVector_c(at.x * size.x(), (1.0 - at.y) * size.y(), 0.0);
}

void addRoomAround(mgBBox_c &box, double share) {
    box += std::max(share * box.maxDimension(), kLeastExtent);
}

std::vector<Panel> layOutViews(mgBBox_c const &extent, double top) {
    Axis const x = named(mgUnitVector_c::xAxis());
    Axis const y = named(mgUnitVector_c::yAxis());
    Axis const z = named(mgUnitVector_c::zAxis());
    std::vector<Panel> panels = {
        {"Front", x, z, {}, {}, {}}, {"Top", x, y, {}, {}, {}}, {"Side", y, z, {}, {}, {}}};
    std::vector<mgBBox_c> shown; // the extent as each viewer sees it
    double widths = 0.0;
    double tallest = 0.0;
    for (Panel const &panel : panels) {
        shown.push_back(extent);
        shown.back() *= toViewer(panel);
        widths += shown.back().width();
        tallest = std::max(tallest, shown.back().depth()); // the extent along y
    }
    double const count = static_cast<double>(panels.size());
    double const room = kPageWidth - 2.0 * kPageMargin - count * kNumberRoom - (count - 1.0) * kGap;
    double const scale = std::min(room / widths, kMostHeight / tallest);

    double left = kPageMargin + kNumberRoom;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        double const width = shown[i].width() * scale;
        panels[i].topLeft = {left, top, 0.0};
        panels[i].bottomRight = {left + width, top + tallest * scale, 0.0};
        place(panels[i], shown[i], scale);
        left += width + kGap + kNumberRoom;
    }
    return panels;
}

Panel layOutAgainst(std::string const &title, mgUnitVector_c const &normal,
                    std::vector<mgPoint_c> const &points, double left) {
    constexpr double kRoomAround = 0.08;
    mgVector_c const level = mgUnitVector_c::zAxis() * normal;
    mgUnitVector_c const right =
        level.isNull() ? mgUnitVector_c::xAxis() : mgUnitVector_c(level, 0);
    mgPoint_c const topLeft(left, kUpperRow.y(), 0.0);
    Panel panel{title,   named(right),         named(mgUnitVector_c(normal * right, 0)),
                topLeft, topLeft + kUpperSize, {}};

    mgBBox_c shown;
    for (mgPoint_c const &point : points) shown |= point * toViewer(panel);
    addRoomAround(shown, kRoomAround);
    place(panel, shown, std::min(kUpperSize.x() / shown.width(), kUpperSize.y() / shown.depth()));
    return panel;
}

Panel layOutPerspective(Assembly const &assembly) {
    constexpr double kRoom = 36.0; // pixels around the boxes
    Panel panel{"Perspective", {}, {}, kUpperRow, kUpperRow + kUpperSize, {}};
    Eye const eye(assembly.bounds);
    mgXform_c const unscaled = viewOf(eye, 1.0, {}); // with the eye at the origin of the page
    mgBBox_c shown;
    for (Part const &part : assembly.parts) {
        for (mgPoint_c const &corner : cornersOf(part.mesh->bounds)) {
            shown |= corner * part.placement * unscaled;
        }
    }

    mgVector_c const room = kUpperSize - mgVector_c(2.0 * kRoom, 2.0 * kRoom, 0.0);
    double const scale = std::min(room.x() / std::max(shown.width(), kLeastExtent),
                                  room.y() / std::max(shown.depth(), kLeastExtent));
    mgVector_c aside = scale * mgVector_c(shown.center());
    aside.set_z(0.0);
    panel.toPage = viewOf(eye, scale, pixelAt(panel, {0.5, 0.5}) - aside);
    return panel;
}

} // namespace assembly
