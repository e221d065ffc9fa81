// SPDX-License-Identifier: MIT
// Curves: turn curved edges into polylines within a tolerance.

#include <cstdio>

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/su_dynamic_array.h>

namespace {

using Polyline = suDynamicArray<mgPoint_c>;

double const kTolerances[] = {5.0, 0.5, 0.05, 0.005}; // millimetres, as all lengths here

// Each tessellator reads an edge record and appends its points to a list. The number of segments,
// one less than that of the points, is 0 for a record that it refuses.

Polyline circle(double tolerance) {
    arcEdgeData const edge{{}, {0, 0, 1}, 50.0};
    mgPoint_c const start(50, 0, 0); // and end: equal points make a full circle
    Polyline points;
    int segments = 0;
    mg_TessArc(&edge, &start, &start, tolerance, nullptr, segments, &points);
    return points;
}

Polyline ellipse(double tolerance) {
    ellipseEdgeData const edge{{}, {1, 0, 0}, {0, 1, 0}, 60.0, 20.0, {60, 0, 0}, {60, 0, 0}};
    Polyline points;
    int segments = 0;
    mg_TessEllipse(&edge, nullptr, nullptr, tolerance, nullptr, segments, &points);
    return points;
}

/// By vertex and focus, between two of its points.
Polyline parabola(double tolerance) {
    parabolaEdgeData const edge{{0, 0, 0}, {0, 10, 0}, {}, {-40, 40, 0}, {40, 40, 0}, {0, 0, 1}};
    Polyline points;
    int segments = 0;
    mg_TessParabola(&edge, tolerance, nullptr, segments, &points);
    return points;
}

/// By the point where the end tangents cross, and the arc's point on the way from there to the
/// middle of the chord.
Polyline conic(double tolerance) {
    parabolaEdgeData const edge{{0, 60, 0}, {0, 20, 0}, {}, {-40, 0, 0}, {40, 0, 0}, {0, 0, 1}};
    Polyline points;
    int segments = 0;
    mg_TessBConic(&edge, tolerance, nullptr, segments, &points);
    return points;
}

void print(char const *name, Polyline (*tessellate)(double)) {
    std::printf("%-9s", name);
    for (double const tolerance : kTolerances) std::printf(" %8d", tessellate(tolerance).Count());
    std::printf("\n");
}

} // namespace

int main() {
    std::printf("tolerance");
    for (double const tolerance : kTolerances) std::printf(" %8g", tolerance);
    std::printf("\nPoints:\n");
    print("circle", circle);
    print("ellipse", ellipse);
    print("parabola", parabola); // it ignores the tolerance, as the conic does
    print("conic", conic);

    // The middle of a chord is farthest off the circle, and nearest to its centre.
    std::printf("Distance from the circle to its polyline:\n         ");
    for (double const tolerance : kTolerances) {
        Polyline const points = circle(tolerance);
        std::printf(" %8.3g", 50.0 - mgPoint_c().distToLine(points[0], points[1]));
    }
    std::printf("\n");
}
