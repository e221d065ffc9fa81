// SPDX-License-Identifier: MIT
// Which parts lie under a point of the perspective view.

#include "check_result.h"

#include <algorithm>

#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>

namespace assembly {

namespace {

/// The line of sight through a pixel of the page.
mgLine_c sightThrough(mgPoint_c const &pixel, mgXform_c const &view) {
    constexpr int kIsScreenPoint = 1;
    mgPoint_c root;
    mgUnitVector_c direction;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, pixel, kIsScreenPoint, root, direction, isCamera, nullptr);
    return {root, direction};
}

/// Does the line of sight meet the part's box, and where?
bool meets(mgLine_c sight, Part const &part, mgPoint_c &point) {
    sight *= part.placement.inverse();
    mgBBox_c const &box = part.mesh->bounds;
    // The test of the whole line rejects most parts quickly; the second one finds the first hit.
    if (!box.isRayHit(sight.rootPoint(), sight.direction())) return false;
    if (!box.getFirstRayHit(sight.rootPoint(), sight.direction(), &point)) return false;
    point *= part.placement;
    return true;
}

} // namespace

Pick findPick(Assembly const &assembly, PanelPoint const &at) {
    Panel const panel = layOutPerspective(assembly);
    Pick pick{panel, at, sightThrough(pixelAt(panel, at), panel.toPage), {}};
    for (std::size_t i = 0; i < assembly.parts.size(); ++i) {
        mgPoint_c point;
        if (!meets(pick.sight, assembly.parts[i], point)) continue;
        pick.hits.push_back({i, point, dist(pick.sight.rootPoint(), point)});
    }
    std::stable_sort(pick.hits.begin(), pick.hits.end(),
                     [](Hit const &a, Hit const &b) { return a.distance < b.distance; });
    return pick;
}

} // namespace assembly
