// SPDX-License-Identifier: MIT
// The perspective view: how it looks at the assembly.

#include "perspective.h"

#include "box_edges.h"
#include "text.h"

#include <algorithm>
#include <cmath>

#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>

namespace example::assembly {

namespace {

/// Half the angle under which the eye sees the bounding sphere, in radians.
constexpr double kHalfAngle = 0.22;
/// Distance of the near clip plane, as a part of the eye's distance from the sphere.
constexpr double kNear = 0.5;
/// The least radius, in model units: a single point is something to look at, too.
constexpr double kLeastRadius = 1e-6;
/// Room around the boxes, in pixels.
constexpr double kRoom = 36.0;

mgUnitVector_c const kLooking(-0.5, 0.85, -0.42);

/// An eye that looks at the middle of a sphere from where it sees all of it.
struct Eye {
    explicit Eye(mgBBox_c const &bounds)
        : radius(std::max(bounds.sphRadius(), kLeastRadius)),
          distance(radius / std::sin(kHalfAngle)), place(bounds.sphCenter() - distance * kLooking) {
    }

    double radius;
    double distance; ///< to the middle
    mgPoint_c place;
};

/// From the assembly to what the eye sees: x to the right, y downwards like on a page, z away from
/// the eye, which is the origin.
mgXform_c toEye(Eye const &eye) {
    // The viewer's frame looks along its negative z; turned about that, the z axis of the assembly
    // stands upright in it.
    mgXform_c const toViewer = mg_CoordinateXformLookAt(eye.place, kLooking).inverse();
    mgVector_c up = mgUnitVector_c::zAxis() * toViewer;
    up.set_z(0.0);
    double const lean = mg_AngleBetween2d(up, mgUnitVector_c::yAxis());
    return toViewer * mg_RotateXform(lean, mgUnitVector_c::zAxis(), 0.0)
           * mg_RotateXform(vexmath::kPi, mgUnitVector_c::xAxis(), 0.0);
}

/// The view in which the eye stands above a point of the page, and what is as far from it as the
/// middle of the bounds has the scale.
mgXform_c viewOf(Eye const &eye, double scale, mgPoint_c const &eyeOnPage) {
    mgXform_c view = toEye(eye) * mg_ScaleXform(scale) * mg_TranslateXform(eyeOnPage);
    double const nearest = kNear * (eye.distance - eye.radius);
    mgPerspInfo_c info(eyeOnPage.x(), eyeOnPage.y(), eyeOnPage.z(), nearest * scale);
    info.setMinFarClipPlaneDistance((eye.distance + eye.radius) * scale);
    info.setCameraFOVPlaneDistance(eye.distance * scale);
    view.addPerspectiveInfo(info);
    return view;
}

} // namespace

Panel layOutPerspective(std::vector<Part> const &parts, mgBBox_c const &total) {
    Panel panel = {"Perspective", {}, {}, {}, kFirstRow, kFirstRow + kUpperSize};
    Eye const eye(total);
    mgXform_c const unscaled = viewOf(eye, 1.0, {}); // with the eye at the origin of the page
    mgBBox_c shown;
    for (Part const &part : parts) {
        for (mgPoint_c const &corner : cornersOf(part.mesh->bounds)) {
            shown |= corner * part.placement * unscaled;
        }
    }

    mgVector_c const room = kUpperSize - mgVector_c(2.0 * kRoom, 2.0 * kRoom, 0.0);
    double const scale = std::min(room.x() / std::max(shown.width(), kLeastRadius),
                                  room.y() / std::max(shown.depth(), kLeastRadius));
    mgVector_c aside = scale * mgVector_c(shown.center());
    aside.set_z(0.0);
    panel.toPage = viewOf(eye, scale, placeIn(panel, 0.5, 0.5) - aside);
    return panel;
}

mgPoint_c placeIn(Panel const &panel, double x, double y) {
    mgVector_c const size = panel.bottomRight - panel.topLeft;
    return panel.topLeft + mgVector_c(x * size.x(), (1.0 - y) * size.y(), 0.0);
}

void drawPerspectiveFrame(SvgPage &page, Panel const &panel) {
    constexpr int kTicks = 10;
    for (int i = 0; i <= kTicks; ++i) {
        double const share = static_cast<double>(i) / kTicks;
        page.line(placeIn(panel, share, 0.0), placeIn(panel, share, 1.0), "class='grid'");
        page.line(placeIn(panel, 0.0, share), placeIn(panel, 1.0, share), "class='grid'");
        page.text(placeIn(panel, share, 0.0) + mgVector_c(0.0, 16.0, 0.0), number(share),
                  "class='number middle'");
        page.text(placeIn(panel, 0.0, share) + mgVector_c(-6.0, 4.0, 0.0), number(share),
                  "class='number end'");
    }
    page.rectangle(panel.topLeft, panel.bottomRight, "class='frame'");
    page.text(panel.topLeft + mgVector_c(0.0, -12.0, 0.0), panel.title, "class='heading'");
}

} // namespace example::assembly
