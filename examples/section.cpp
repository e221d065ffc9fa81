// SPDX-License-Identifier: MIT
// Section: cut a triangle mesh with a plane, and find the line that two planes share.

#include <cstdio>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/mg_primitives.h>
#include <vexmath/mg_queries.h>

namespace {

/// A pyramid over a square of side 40, 30 high.
mgPoint_c const kVertices[] = {{-20, -20, 0}, {20, -20, 0}, {20, 20, 0}, {-20, 20, 0}, {0, 0, 30}};
int const kTriangles[][3] = {{0, 2, 1}, {0, 3, 2}, {0, 1, 4}, {1, 2, 4}, {2, 3, 4}, {3, 0, 4}};

struct Segment {
    mgPoint_c from;
    mgPoint_c to;
};

/// Where the plane passes between two points. A point in the plane counts as below it, so that a
/// closed outline is left as often as it is entered.
bool crosses(mgPlane_c const &plane, mgPoint_c const &a, mgPoint_c const &b, mgPoint_c &crossing) {
    if (!plane.cutLineSegment(a, b, 0.0)) return false;
    crossing = a; // stays when the segment lies in the plane
    mg_LineSegIntPlane(a, b, plane, &crossing, nullptr);
    return true;
}

std::vector<Segment> cut(mgPlane_c const &plane) {
    std::vector<Segment> outline;
    mgBBox_c box;
    mg_BoundPoints(kVertices, 5, box);
    if (!box.clash(plane, 0.0)) return outline; // the plane misses the whole mesh
    for (auto const &triangle : kTriangles) {
        mgPoint_c ends[3];
        int count = 0;
        for (int i = 0; i < 3; ++i) {
            mgPoint_c const &from = kVertices[triangle[i]];
            mgPoint_c const &to = kVertices[triangle[(i + 1) % 3]];
            count += crosses(plane, from, to, ends[count]);
        }
        if (count == 2) outline.push_back({ends[0], ends[1]});
    }
    return outline;
}

void print(char const *what, mgPlane_c const &plane) {
    std::vector<Segment> const outline = cut(plane);
    std::printf("%s: %zu pieces\n", what, outline.size());
    for (auto const &[from, to] : outline) {
        std::printf("  (%g, %g, %g) to (%g, %g, %g)\n", from.x(), from.y(), from.z(), to.x(),
                    to.y(), to.z());
    }
}

} // namespace

int main() {
    mgPlane_c const level(mgPoint_c(0, 0, 15), mgUnitVector_c::zAxis());
    mgPlane_c const upright(mgPoint_c(5, 0, 0), mgUnitVector_c::xAxis());
    print("level, half way up", level);
    print("upright, beside the top", upright);
    print("above the top", mgPlane_c(mgPoint_c(0, 0, 31), mgUnitVector_c::zAxis()));

    mgPoint_c point;
    mgUnitVector_c along;
    if (interLine(level, upright, &point, &along)) {
        std::printf("both cuts share the line through (%g, %g, %g) along (%g, %g, %g)\n", point.x(),
                    point.y(), point.z(), along.x(), along.y(), along.z());
    }
}
