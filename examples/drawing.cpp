// SPDX-License-Identifier: MIT
// Drawing: round a corner, hatch what is cut, and clip lines to a frame. Prints SVG.

#include <cmath>
#include <cstdio>

#include <vexmath/edge_data.h>
#include <vexmath/mg_planar.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace {

mgVector_c polar(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
}

/// Appends a counter-clockwise arc, or a circle when start is end. Returns the number of points.
int addArc(suDynamicArray<mgPoint_c> &points, mgPoint_c const &centre, mgPoint_c const &start,
           mgPoint_c const &end) {
    arcEdgeData const arc{centre, {0, 0, 1}, dist(centre, start)};
    int segments = 0;
    mg_TessArc(&arc, &start, &end, 0.01, nullptr, segments, &points);
    return segments + 1;
}

/// Draws polylines of so many points each. y points up in the drawing and down on the page.
void draw(char const *style, mgPoint_c const *points, int count, int each) {
    std::printf("<path style='%s' d='", style);
    for (int i = 0; i < count; ++i)
        std::printf("%c%.5g %.5g", i % each == 0 ? 'M' : 'L', points[i].x(), 90 - points[i].y());
    std::printf("'/>\n");
}

} // namespace

int main() {
    std::printf("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 140 90' width='840' "
                "height='540' fill='none' stroke='#222' stroke-width='0.25'>\n"
                "<path fill='#fff' d='M0 0H140V90H0zM5 5H135V85H5z'/>\n");

    // The outline of the part. Its inner corner gets a fillet.
    mgPoint_c const right(98, 33, 0), inner(45, 33, 0), top(45, 78, 0);
    mgPoint_c centre, start, end;
    mg_FindTangentArcCenter2D(top, inner, inner, right, 16, centre, start, end, -1);
    suDynamicArray<mgPoint_c> area;
    for (mgPoint_c const &p : {right, {98, 15, 0}, {17, 15, 0}, {17, 78, 0}, top}) area.Add(p);
    addArc(area, centre, start, end);
    area.Add(right);

    // Two holes are outlines of their own. The pin in one is hatched at another angle.
    mgPoint_c const pin(31, 58, 0), hole(80, 24, 0), onPin(39, 58, 0), onHole(85, 24, 0);
    int const counts[] = {area.Count(), addArc(area, pin, onPin, onPin),
                          addArc(area, hole, onHole, onHole)};
    suDynamicArray<mgPoint_c> hatch; // two points for each line
    mg_calcHatchLinesPolygon2D(3, counts, area.Data(), {}, vexmath::kHalfPi / 2, 2, hatch);
    draw("", hatch.Data(), hatch.Count(), 2);
    mg_calcHatchLinesCircle2D(pin, 8, {}, -vexmath::kHalfPi / 2, 1.2, hatch);
    draw("", hatch.Data(), hatch.Count(), 2);
    for (int i = 0, first = 0; i < 3; first += counts[i++])
        draw("stroke-width: 0.6; stroke-linecap: square", &area[first], counts[i], counts[i]);

    // The line through both holes, and the circle about one through the other, end at the frame.
    mgPoint_c const low(5, 5, 0), high(135, 85, 0);
    mgPoint_c line[] = {pin + 9 * (pin - hole), pin + 9 * (hole - pin)};
    mg_ClipLine2DToBox(line[0], line[1], low, high, line[0], line[1], -1);
    char const *const dashed = "stroke: #1f77b4; stroke-dasharray: 6 1 1 1";
    draw(dashed, line, 2, 2);
    double const radius = dist(pin, hole);
    double angles[10]; // of up to five arcs
    int const arcs = mg_Clip2DArcToBox(pin, radius, 0, vexmath::kTwoPi, low, high, angles, -1);
    for (int i = 0; i < 2 * arcs; i += 2) {
        suDynamicArray<mgPoint_c> arc;
        addArc(arc, pin, pin + polar(radius, angles[i]), pin + polar(radius, angles[i + 1]));
        draw(dashed, arc.Data(), arc.Count(), arc.Count());
    }
    std::printf("</svg>\n");
}
