// SPDX-License-Identifier: MIT
// The corners and edges of a box, and the piece of a line inside of it.

#include "box_edges.h"

#include <cstddef>

namespace example::assembly {

std::array<mgPoint_c, 8> cornersOf(mgBBox_c const &box) {
    mgPoint_c const ends[] = {box.low(), box.high()};
    std::array<mgPoint_c, 8> corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        corners[i] = {ends[i & 1U].x(), ends[i >> 1U & 1U].y(), ends[i >> 2U].z()};
    }
    return corners;
}

std::array<Edge, 12> edgesOf(mgBBox_c const &box) {
    std::array<mgPoint_c, 8> const corners = cornersOf(box);
    std::array<Edge, 12> edges;
    std::size_t count = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        // One edge along each axis on which the corner is the low end.
        for (std::size_t const axis : {1U, 2U, 4U}) {
            if ((i & axis) == 0) edges[count++] = {corners[i], corners[i | axis]};
        }
    }
    return edges;
}

std::optional<Edge> insideOf(mgBBox_c const &box, mgLine_c const &line) {
    mgPoint_c const &root = line.rootPoint();
    mgUnitVector_c const &along = line.direction();
    double first = 0.0;
    double last = 0.0;
    box.limitRay(root, along, &first, &last);
    // Two rays against each other, from as far outside of the box as it is long.
    mgPoint_c const before = root + (first - (last - first)) * along;
    mgPoint_c const behind = root + (last + (last - first)) * along;
    Edge inside;
    bool const meets = box.getFirstRayHit(before, along, &inside.from)
                       && box.getFirstRayHit(behind, -along, &inside.to);
    return meets ? std::optional<Edge>(inside) : std::nullopt;
}

} // namespace example::assembly
