// SPDX-License-Identifier: MIT
// The curves of the gallery.

#include "shapes.h"

#include "text.h"

#include <cmath>

#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

namespace example::curves {

namespace {

char const *const kDegrees = "\xC2\xB0";

/// What a tessellator puts into a list.
template <class Tessellate>
std::vector<mgPoint_c> listed(Tessellate tessellate) {
    suDynamicArray<mgPoint_c> list;
    int count = 0; // of segments; the list has one point more
    tessellate(nullptr, count, &list);
    return {list.Data(), list.Data() + list.Count()};
}

/// From the x axis on; 360 degrees make a closed circle.
Shape circularArc(std::string const &name, double radius, double degrees) {
    double const sweep = degrees * vexmath::kRadPerDeg;
    auto const at = [=](double t) {
        return mgPoint_c(radius * std::cos(t * sweep), radius * std::sin(t * sweep), 0.0);
    };
    auto const polyline = [=](double tolerance) {
        return listed([=](auto array, int &count, auto list) {
            arcEdgeData const edge{{}, {0, 0, 1}, radius};
            mgPoint_c const start = at(0.0);
            mgPoint_c const end = at(1.0);
            mg_TessArc(&edge, &start, &end, tolerance, array, count, list);
        });
    };
    std::string const measures = "radius " + number(radius) + ", " + number(degrees) + kDegrees;
    return {name, measures, "mg_TessArc", true, polyline, at};
}

/// From one angle of the circle that it is the image of to another.
Shape ellipticArc(std::string const &name, double a, double b, double fromDeg, double toDeg) {
    auto const at = [=](double t) {
        double const angle = (fromDeg + t * (toDeg - fromDeg)) * vexmath::kRadPerDeg;
        return mgPoint_c(a * std::cos(angle), b * std::sin(angle), 0.0);
    };
    auto const polyline = [=](double tolerance) {
        return listed([=](auto array, int &count, auto list) {
            ellipseEdgeData const edge{{}, {1, 0, 0}, {0, 1, 0}, a, b, at(0.0), at(1.0)};
            mg_TessEllipse(&edge, nullptr, nullptr, tolerance, array, count, list);
        });
    };
    std::string const measures =
        "radii " + number(a) + " and " + number(b) + ", " + number(toDeg - fromDeg) + kDegrees;
    return {name, measures, "mg_TessEllipse", true, polyline, at};
}

/// Above its vertex at the origin, as wide to the left as to the right.
Shape openConic(std::string const &name, double focalLength, double eccentricity, double width) {
    auto const at = [=](double t) {
        double const x = (t - 0.5) * width;
        double const p = focalLength * (1.0 + eccentricity); // half the width at the focus
        double const widening = x * x * (eccentricity * eccentricity - 1.0);
        return mgPoint_c(x, x * x / (p + std::sqrt(p * p + widening)), 0.0);
    };
    auto const polyline = [=](double tolerance) {
        return listed([=](auto array, int &count, auto list) {
            mgPoint_c const focus(0.0, focalLength, 0.0);
            parabolaEdgeData const edge{{}, focus, {}, at(0.0), at(1.0), {0, 0, 1}};
            mg_TessParabola(&edge, tolerance, array, count, list);
        });
    };
    std::string const measures =
        "focal length " + number(focalLength) + ", eccentricity " + number(eccentricity);
    return {name, measures, "mg_TessParabola", false, polyline, at};
}

/// Between two end tangents; the arc goes from the chord to their crossing by the fullness.
Shape blendedConic(std::string const &name, double fullness) {
    mgPoint_c const start(-60, 0, 0);
    mgPoint_c const vertex(20, 70, 0);
    mgPoint_c const end(50, -10, 0);
    double const weight = fullness / (1.0 - fullness);
    auto const at = [=](double t) {
        double const u = 1.0 - t;
        double const toVertex = 2.0 * weight * t * u;
        mgVector_c const sum =
            u * u * mgVector_c(start) + toVertex * mgVector_c(vertex) + t * t * mgVector_c(end);
        return mgPoint_c(sum / (u * u + toVertex + t * t));
    };
    auto const polyline = [=](double tolerance) {
        return listed([=](auto array, int &count, auto list) {
            mgPoint_c const middle = interpolate(0.5, start, end);
            mgPoint_c const focus = interpolate(fullness, middle, vertex);
            parabolaEdgeData const edge{vertex, focus, {}, start, end, {0, 0, 1}};
            mg_TessBConic(&edge, tolerance, array, count, list);
        });
    };
    return {name, "fullness " + number(fullness), "mg_TessBConic", false, polyline, at};
}

} // namespace

std::vector<Shape> allShapes() {
    return {circularArc("Circle", 50.0, 360.0),
            circularArc("Fillet", 5.0, 90.0),
            ellipticArc("Ellipse", 60.0, 20.0, 0.0, 360.0),
            ellipticArc("Arc of an ellipse", 60.0, 20.0, -20.0, 80.0),
            openConic("Parabola", 10.0, 1.0, 80.0),
            openConic("Hyperbola", 10.0, 1.5, 80.0),
            blendedConic("Flat conic", 0.3),
            blendedConic("Full conic", 0.8)};
}

} // namespace example::curves
