// SPDX-License-Identifier: MIT
// Hull and tour: the outline around the holes of a plate, and a short path for the drill.

#include <cstdio>

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>

int main() {
    mgPoint_c const holes[] = {{0, 0, 0},   {100, 0, 0}, {50, 30, 0}, {100, 80, 0},
                               {20, 60, 0}, {0, 80, 0},  {80, 20, 0}, {50, 0, 0}};

    // The library gives lists as growable arrays, which also serve as its input.
    suDynamicArray<mg2DPoint_c> inPlane;
    suDynamicArray<mgPoint_c> inSpace;
    for (mgPoint_c const &hole : holes) {
        inPlane.Add({hole.x(), hole.y()});
        inSpace.Add(hole);
    }

    // Corners only, counter-clockwise: the hole at (50, 0) lies on an edge and is left out. The
    // input comes back sorted and without duplicates.
    suDynamicArray<mg2DPoint_c> hull;
    convexHull(inPlane, hull);
    std::printf("hull of %d holes: %d corners\n", inPlane.Count(), hull.Count());
    for (int i = 0; i < hull.Count(); ++i) std::printf("  (%g, %g)\n", hull[i].x(), hull[i].y());

    // The tour visits every hole once and does not return to its start. It is short, though not
    // always the shortest.
    suDynamicArray<int> order;
    mg_OpenTSP(inSpace, order);
    std::printf("tour:");
    double length = 0.0;
    double listed = 0.0; // in the order of the list
    for (int i = 0; i < order.Count(); ++i) {
        std::printf(" %d", order[i]);
        if (i == 0) continue;
        length += dist(inSpace[order[i - 1]], inSpace[order[i]]);
        listed += dist(inSpace[i - 1], inSpace[i]);
    }
    std::printf("\nlength %g, in the order of the list %g\n", length, listed);
}
