// SPDX-License-Identifier: MIT
// Picking: which parts lie under a pixel of a perspective view, nearest first.

#include <cmath>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/line.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>
#include <vexmath/persp_info.h>
#include <vexmath/tolerances.h>

namespace {

struct Part {
    char const *name;
    mgBBox_c box;
    mgXform_c placement;
};

/// A camera in front of the assembly that looks along y. The page is 800 by 600 pixels, with x to
/// the right and y downwards. What is 500 from the eye appears at 2 pixels per unit of length.
mgXform_c camera() {
    constexpr double kPixels = 2.0;
    constexpr double kDistance = 500.0;
    mgPoint_c const eye(0, -kDistance, 0);
    mgPoint_c const middle(400, 300, 0);
    // Screen space is in pixels, and the camera looks along its z.
    mgXform_c view = mg_CoordinateXform(eye, mgUnitVector_c::xAxis(), -mgUnitVector_c::zAxis());
    view = view.inverse() * mg_ScaleXform(kPixels) * mg_TranslateXform(middle);
    mgPerspInfo_c perspective(middle.x(), middle.y(), middle.z(), 100.0 * kPixels);
    perspective.setCameraFOVPlaneDistance(kDistance * kPixels);
    view.addPerspectiveInfo(perspective);
    return view;
}

void pick(mgXform_c const &view, std::vector<Part> const &parts, mgPoint_c const &pixel) {
    mgPoint_c root;
    mgUnitVector_c direction;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, pixel, 1, root, direction, isCamera, nullptr);

    std::multimap<double, std::pair<char const *, mgPoint_c>> hits; // by the distance
    for (Part const &part : parts) {
        // Follows the line of sight into the part's own frame, where the box fits best.
        mgLine_c sight(root, direction);
        sight *= part.placement.inverse();
        mgPoint_c point;
        if (!part.box.getFirstRayHit(sight.rootPoint(), sight.direction(), &point)) continue;
        point *= part.placement;
        hits.insert({dist(root, point), {part.name, point}});
    }
    std::printf("pixel %g %g: %zu hits\n", pixel.x(), pixel.y(), hits.size());
    for (auto const &[distance, hit] : hits) {
        auto const &[name, at] = hit;
        std::printf("  %-5s at (%g, %g, %g), distance %g\n", name, at.x(), at.y(), at.z(),
                    distance);
    }
}

} // namespace

int main() {
    mgXform_c const tilt = mg_RotateXform(0.25 * vexmath::kPi, mgUnitVector_c::yAxis(), 0.0);
    std::vector<Part> const parts = {{"wall", {mgPoint_c(-80, 40, -60), mgPoint_c(80, 50, 60)}, {}},
                                     {"shaft", {mgPoint_c(-60, -8, -8), mgPoint_c(60, 8, 8)}, tilt},
                                     {"lid", {mgPoint_c(-50, -25, 50), mgPoint_c(50, 25, 54)}, {}}};
    mgXform_c const view = camera();

    // The pixel at which a point is seen is the point placed by the view.
    mgPoint_c pixel = mgPoint_c(55, 0, 0) * tilt * view;
    pixel.set(std::round(pixel.x()), std::round(pixel.y()), 0.0);
    pick(view, parts, pixel);
    pick(view, parts, mgPoint_c(400, 190, 0));
    pick(view, parts, mgPoint_c(790, 10, 0));
}
