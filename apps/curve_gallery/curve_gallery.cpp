// SPDX-License-Identifier: MIT
// Gallery of curves: what each tolerance makes of them, as a picture to choose a tolerance by.
//
// Writes SVG to standard output: a row for each curve, a column for each tolerance. The window
// beside a curve shows where the polyline is farthest off, enlarged twenty times.

#include <cmath>
#include <string>

#include <fmt/core.h>

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace {

using Points = suDynamicArray<mgPoint_c>;

// The curves, in the plane z = 0, in millimetres: exact, from t = 0 at the start to t = 1 at the
// end, and as the library's polyline.

mgPoint_c ellipseAt(double t, double a, double b, double degrees) {
    double const angle = t * degrees * vexmath::kRadPerDeg;
    return {a * std::cos(angle), b * std::sin(angle), 0.0};
}

mgPoint_c circleAt(double t) { return ellipseAt(t, 50.0, 50.0, 360.0); }
mgPoint_c filletAt(double t) { return ellipseAt(t, 5.0, 5.0, 90.0); }
mgPoint_c flatEllipseAt(double t) { return ellipseAt(t, 60.0, 20.0, 360.0); }
mgPoint_c parabolaAt(double t) { return {80.0 * t - 40.0, 160.0 * (t - 0.5) * (t - 0.5), 0.0}; }

/// A rational quadratic curve; its weights are 1, 4 and 1.
mgPoint_c conicAt(double t) {
    double const u = 1.0 - t;
    double const a = u * u;
    double const b = 8.0 * t * u;
    double const c = t * t;
    double const sum = a + b + c;
    return {(-60.0 * a + 20.0 * b + 50.0 * c) / sum, (70.0 * b - 10.0 * c) / sum, 0.0};
}

void circle(double tolerance, int &segments, Points &points) {
    arcEdgeData const edge{{}, {0, 0, 1}, 50.0};
    mgPoint_c const start = circleAt(0.0); // and end: equal points make a full circle
    mg_TessArc(&edge, &start, &start, tolerance, nullptr, segments, &points);
}

void fillet(double tolerance, int &segments, Points &points) {
    arcEdgeData const edge{{}, {0, 0, 1}, 5.0};
    mgPoint_c const start = filletAt(0.0);
    mgPoint_c const end = filletAt(1.0);
    mg_TessArc(&edge, &start, &end, tolerance, nullptr, segments, &points);
}

void flatEllipse(double tolerance, int &segments, Points &points) {
    mgPoint_c const start = flatEllipseAt(0.0);
    ellipseEdgeData const edge{{}, {1, 0, 0}, {0, 1, 0}, 60.0, 20.0, start, start};
    mg_TessEllipse(&edge, nullptr, nullptr, tolerance, nullptr, segments, &points);
}

void parabola(double tolerance, int &segments, Points &points) {
    mgPoint_c const focus(0, 10, 0);
    parabolaEdgeData const edge{{}, focus, {}, parabolaAt(0.0), parabolaAt(1.0), {0, 0, 1}};
    mg_TessParabola(&edge, tolerance, nullptr, segments, &points);
}

void conic(double tolerance, int &segments, Points &points) {
    mgPoint_c const tangentsCross(20, 70, 0);
    mgPoint_c const focus = interpolate(0.8, mgPoint_c(-5, -5, 0), tangentsCross);
    parabolaEdgeData const edge{tangentsCross, focus, {}, conicAt(0.0), conicAt(1.0), {0, 0, 1}};
    mg_TessBConic(&edge, tolerance, nullptr, segments, &points);
}

struct Curve {
    char const *name;
    char const *colour;
    mgPoint_c (*at)(double t);
    void (*tessellate)(double tolerance, int &segments, Points &points);
};

Curve const kCurves[] = {{"Circle, radius 50", "#1f77b4", circleAt, circle},
                         {"Fillet, radius 5", "#d1495b", filletAt, fillet},
                         {"Ellipse, radii 60 and 20", "#2ca02c", flatEllipseAt, flatEllipse},
                         {"Parabola, focal length 10", "#9467bd", parabolaAt, parabola},
                         {"Conic, fullness 0.8", "#7f7f00", conicAt, conic}};
double const kTolerances[] = {5.0, 0.5, 0.05, 0.005};

Points samplesOf(Curve const &curve, int count) {
    Points samples;
    for (int i = 0; i <= count; ++i) samples.Add(curve.at(static_cast<double>(i) / count));
    return samples;
}

/// The largest distance from the curve to its polyline, measured at many points of the curve, and
/// the point where it was found.
double deviation(Curve const &curve, Points const &polyline, mgPoint_c &worst) {
    Points const samples = samplesOf(curve, 20000);
    double largest = 0.0;
    int chord = 0; // the one beside the sample: both run along the curve
    for (int i = 0; i < samples.Count(); ++i) {
        double along = 0.0;
        double distance = samples[i].distToLine(polyline[chord], polyline[chord + 1], &along);
        if (along > 1.0 && chord + 2 < polyline.Count()) {
            ++chord;
            distance = samples[i].distToLine(polyline[chord], polyline[chord + 1]);
        }
        if (distance <= largest) continue;
        largest = distance;
        worst = samples[i];
    }
    return largest;
}

// The picture, in pixels.

constexpr double kWindow = 120.0; // side of a window

void drawPath(Points const &points, char const *colour, double width, char const *marker) {
    std::string corners;
    for (int i = 0; i < points.Count(); ++i) {
        // The page's y runs downwards; adding 0 writes -0 as 0.
        corners += fmt::format("{}{:.6g},{:.6g}", i > 0 ? " " : "", points[i].x() + 0.0,
                               0.0 - points[i].y());
    }
    fmt::print("<polyline stroke='{}' stroke-width='{:.4g}' marker-mid='{}' points='{}'/>\n",
               colour, width, marker, corners);
}

void drawText(mgPoint_c const &start, char const *colour, std::string const &text) {
    fmt::print("<text x='{:g}' y='{:g}' fill='{}'>{}</text>\n", start.x(), start.y(), colour, text);
}

/// A square window of the page onto a square of the drawing, which is `extent` wide.
void drawWindow(mgPoint_c const &topLeft, mgPoint_c const &middle, double extent,
                Curve const &curve, Points const &polyline, char const *marker) {
    double const pixel = extent / kWindow;
    fmt::print("<svg x='{:g}' y='{:g}' width='{:g}' height='{:g}' viewBox='{:g} {:g} {:g} {:g}'>\n",
               topLeft.x(), topLeft.y(), kWindow, kWindow, middle.x() - 0.5 * extent,
               -middle.y() - 0.5 * extent, extent, extent);
    drawPath(samplesOf(curve, 400), "#b9bec4", 3.5 * pixel, "none");
    drawPath(polyline, curve.colour, 1.1 * pixel, marker);
    fmt::print("</svg>\n");
}

void drawCell(mgPoint_c const &topLeft, Curve const &curve, double tolerance) {
    constexpr double kMagnification = 20.0;
    Points polyline;
    int segments = 0; // one less than the points
    curve.tessellate(tolerance, segments, polyline);
    mgPoint_c worst;
    double const error = deviation(curve, polyline, worst);

    Points const samples = samplesOf(curve, 400);
    mgBBox_c bounds;
    mg_BoundPoints(samples.Data(), samples.Count(), bounds);
    double const extent = 1.1 * bounds.maxDimension();
    drawWindow(topLeft, bounds.center(), extent, curve, polyline, "none");
    mgPoint_c const lens = topLeft + mgVector_c(kWindow + 10.0, 0.0, 0.0);
    drawWindow(lens, worst, extent / kMagnification, curve, polyline, "url(#dot)");
    fmt::print("<rect x='{:g}' y='{:g}' width='{:g}' height='{:g}' stroke='#9aa0a6'/>\n", lens.x(),
               lens.y(), kWindow, kWindow);
    drawText(topLeft + mgVector_c(0.0, kWindow + 18.0, 0.0),
             error <= tolerance ? "#222" : "#d00000",
             fmt::format("{} points, error {:.3g}", polyline.Count(), error));
}

void drawGallery() {
    mgVector_c const column(2.0 * kWindow + 40.0, 0.0, 0.0);
    mgVector_c const row(0.0, kWindow + 60.0, 0.0);
    mgPoint_c const first(20.0, 80.0, 0.0);
    mgPoint_c cell = first - 0.25 * row;
    for (double const tolerance : kTolerances) {
        drawText(cell, "#222", fmt::format("tolerance {:.3g}", tolerance));
        cell += column;
    }
    mgPoint_c start = first;
    for (Curve const &curve : kCurves) {
        drawText(start + mgVector_c(0.0, -10.0, 0.0), curve.colour, curve.name);
        cell = start;
        for (double const tolerance : kTolerances) {
            drawCell(cell, curve, tolerance);
            cell += column;
        }
        start += row;
    }
}

} // namespace

int main() {
    fmt::print("<svg xmlns='http://www.w3.org/2000/svg' width='1140' height='960' fill='none' "
               "font-family='DejaVu Sans, Arial, sans-serif' font-size='13'>\n"
               "<rect width='1140' height='960' fill='#fff'/>\n"
               "<marker id='dot' viewBox='-1 -1 2 2' markerWidth='3' markerHeight='3'>"
               "<circle r='1' fill='#222'/></marker>\n");
    drawGallery();
    fmt::print("</svg>\n");
}
