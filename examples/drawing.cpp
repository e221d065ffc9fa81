// SPDX-License-Identifier: MIT
// Drawing: round a corner, hatch what is cut, and clip lines to a frame. Writes SVG to standard
// output.

#include <cmath>
#include <cstdio>

#include <vexmath/edge_data.h>
#include <vexmath/mg_planar.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace {

using Points = suDynamicArray<mgPoint_c>;

constexpr double kDeg = vexmath::kRadPerDeg;

mgVector_c polar(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0};
}

/// Appends an arc, counter-clockwise about (0, 0, normal), and returns the number of its points. A
/// circle when start is end.
int addArc(Points &points, mgPoint_c const &centre, mgPoint_c const &start, mgPoint_c const &end,
           double normal) {
    arcEdgeData const arc{centre, {0, 0, normal}, dist(centre, start)};
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
    char const *const dashed = "stroke: #1f77b4; stroke-dasharray: 6 1 1 1";
    mgPoint_c const low(5, 5, 0), high(135, 85, 0); // corners of the frame
    std::printf("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 140 90' width='840' "
                "height='540' fill='none' stroke='#222' stroke-width='0.25'>\n"
                "<path fill='#fff' d='M0 0H140V90H0zM5 5H135V85H5z'/>\n");

    // The outline of the part. Its inner corner gets a fillet, which runs clockwise.
    mgPoint_c const right(98, 33, 0), inner(45, 33, 0), top(45, 78, 0);
    mgPoint_c centre, start, end;
    mg_FindTangentArcCenter2D(right, inner, inner, top, 16, centre, start, end, -1);
    Points area;
    for (mgPoint_c const &p : {top, {17, 78, 0}, {17, 15, 0}, {98, 15, 0}, right}) area.Add(p);
    addArc(area, centre, start, end, -1);
    area.Add(top);

    // Two holes are outlines of their own. The pin in one is hatched at another angle.
    mgPoint_c const pin(31, 58, 0), hole(80, 24, 0);
    int const counts[] = {area.Count(), addArc(area, pin, pin + polar(8, 0), pin + polar(8, 0), 1),
                          addArc(area, hole, hole + polar(5, 0), hole + polar(5, 0), 1)};
    Points hatch; // two points for each line
    mg_calcHatchLinesPolygon2D(3, counts, area.Data(), {}, 45 * kDeg, 2, hatch);
    draw("", hatch.Data(), hatch.Count(), 2);
    mg_calcHatchLinesCircle2D(pin, 8, {}, 135 * kDeg, 1.2, hatch);
    draw("", hatch.Data(), hatch.Count(), 2);
    for (int i = 0, first = 0; i < 3; first += counts[i++])
        draw("stroke-width: 0.6; stroke-linecap: square", &area[first], counts[i], counts[i]);

    // The line through both holes and the circle about one through the other, cut at the frame.
    mgVector_c const apart = hole - pin;
    mgPoint_c line[2];
    mg_ClipLine2DToBox(pin - 9 * apart, pin + 9 * apart, low, high, line[0], line[1], -1);
    draw(dashed, line, 2, 2);
    double const r = apart.len();
    double angles[10]; // of up to five arcs
    int const arcs = mg_Clip2DArcToBox(pin, r, 0, 360 * kDeg, low, high, angles, -1);
    for (int i = 0; i < 2 * arcs; i += 2) {
        Points arc;
        addArc(arc, pin, pin + polar(r, angles[i]), pin + polar(r, angles[i + 1]), 1);
        draw(dashed, arc.Data(), arc.Count(), arc.Count());
    }

    // The leader from the fillet to the middle of a rotated note ends at the frame of the note.
    mgPoint_c const note(97, 48, 0);
    mgVector_c const along = polar(32, 15 * kDeg), up = polar(10, 105 * kDeg);
    mgPoint_c leader[] = {centre + polar(16, 225 * kDeg), note + 0.5 * (along + up)};
    mg_ClipLineEndToRotated2DBox(leader[0], leader[1], note, 32, 10, 15 * kDeg, -1);
    draw("stroke: #d1495b", leader, 2, 2);
    mgPoint_c const frame[] = {note, note + along, note + along + up, note + up, note};
    draw("stroke: #d1495b", frame, 5, 5);
    std::printf("<text transform='translate(101 38) rotate(-15)' font-size='5' fill='#d1495b' "
                "stroke='none' font-family='DejaVu Sans, Arial, sans-serif'>fillet R16</text>\n"
                "</svg>\n");
}
