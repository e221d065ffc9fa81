// SPDX-License-Identifier: MIT
// Picking: which parts lie under a point of the perspective view.

#include "pick.h"

#include "perspective.h"

#include <algorithm>

#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>

namespace example::assembly {

namespace {

/// The line of sight through a point of the page.
mgLine_c sightThrough(mgPoint_c const &pagePoint, mgXform_c const &view) {
    constexpr int kIsScreenPoint = 1;
    mgPoint_c root;
    mgUnitVector_c direction;
    int isCamera = 0;
    mg_getModelSpaceViewRay(view, pagePoint, kIsScreenPoint, root, direction, isCamera, nullptr);
    return {root, direction};
}

/// Does the line of sight meet the part's box, and where?
bool meets(mgLine_c const &sight, Part const &part, mgPoint_c &point) {
    mgLine_c local = sight;
    local *= part.placement.inverse();
    mgBBox_c const &box = part.mesh->bounds;
    // The whole line first, which most parts are quickly out of; then the first hit in front.
    if (!box.isRayHit(local.rootPoint(), local.direction())) return false;
    if (!box.getFirstRayHit(local.rootPoint(), local.direction(), &point)) return false;
    point *= part.placement;
    return true;
}

} // namespace

Pick pickParts(std::vector<Part> const &parts, mgBBox_c const &total, ScreenPoint const &at) {
    Pick pick;
    pick.panel = layOutPerspective(parts, total);
    pick.at = at;
    pick.sight = sightThrough(placeIn(pick.panel, at.x, at.y), pick.panel.toPage);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        mgPoint_c point;
        if (!meets(pick.sight, parts[i], point)) continue;
        pick.hits.push_back({i, point, dist(pick.sight.rootPoint(), point)});
    }
    std::stable_sort(pick.hits.begin(), pick.hits.end(),
                     [](Hit const &a, Hit const &b) { return a.distance < b.distance; });
    return pick;
}

} // namespace example::assembly
