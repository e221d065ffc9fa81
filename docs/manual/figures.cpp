// SPDX-License-Identifier: MIT
// Draws the figures of the manual. Every result in them is computed by the library.
//
// usage: vexmath_figures FOLDER

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>

#include "canvas.h"

#include <vexmath/vexmath.h>

namespace {

constexpr double kDeg = vexmath::kRadPerDeg;

mgPoint_c polar(mgPoint_c const &centre, double radius, double angle) {
    return centre + mgVector_c(radius * std::cos(angle), radius * std::sin(angle), 0);
}

/// A flag: a shape that shows how it was rotated and mirrored.
Points const kFlag = {{0, 0, 0}, {0, 4, 0}, {2.4, 3.2, 0}, {0, 2.4, 0}};

Points moved(Points points, mgXform_c const &by) {
    for (mgPoint_c &p : points) p *= by;
    return points;
}

template <class T>
std::vector<T> toVector(suDynamicArray<T> const &list) {
    return {list.Data(), list.Data() + list.Count()};
}

void drawAxes(Canvas &canvas, double length) {
    canvas.arrow({-0.5, 0, 0}, {length, 0, 0}, Ink::Help);
    canvas.arrow({0, -0.5, 0}, {0, length, 0}, Ink::Help);
}

Canvas composition() {
    Canvas canvas(2, 14, 11.5);
    mgXform_c const rotation = mg_RotateXform(60 * kDeg, {0, 0, 1}, 0);
    mgXform_c const move = mg_TranslateXform({6, 0, 0});
    for (bool const isMovedLast : {true, false}) {
        canvas.panel(isMovedLast ? "rotation * move: rotate, then move"
                                 : "move * rotation: move, then rotate",
                     {3.3, 0, 0});
        drawAxes(canvas, 7);
        canvas.line(moved(kFlag, isMovedLast ? rotation : move), Ink::Help, true);
        canvas.line(kFlag, Ink::Given, true);
        canvas.line(moved(kFlag, isMovedLast ? rotation * move : move * rotation), Ink::Result,
                    true);
    }
    return canvas;
}

Canvas mirror() {
    Canvas canvas(2, 13, 9);
    mgPlane_c const plane({5, 0, 0}, mg_Normalise({1, 0.3, 0}));
    mgXform_c const mirrored = mg_PlaneReflectionXform(plane);
    mgVector_c const along = mgVector_c(0, 0, 1) * plane.normal();
    canvas.panel("mg_PlaneReflectionXform", {0, 0.4, 0});
    canvas.line({plane.rootPoint() - 0.8 * along, plane.rootPoint() + 5.5 * along}, Ink::Second);
    canvas.line(kFlag, Ink::Given, true);
    canvas.line(moved(kFlag, mirrored), Ink::Result, true);
    canvas.panel("mg_MirrorPoint", {0, 1.6, 0});
    mgPoint_c const p(0, 4.5, 0);
    canvas.line({{-1, 0.5, 0}, {7, 4.5, 0}}, Ink::Second);
    mgPoint_c const image = mg_MirrorPoint({-1, 0.5, 0}, {2, 1, 0}, p);
    canvas.line({p, image}, Ink::Help);
    canvas.dot(p, Ink::Given, "p");
    canvas.dot(image, Ink::Result, "image");
    return canvas;
}

Canvas feet() {
    Canvas canvas(3, 10, 9);
    mgPoint_c const a(0, 0.5, 0), b(8, 3, 0), p(3, 5.5, 0);
    canvas.panel("mgPoint_c::distToLine");
    canvas.line({a, b}, Ink::Given);
    mgPoint_c foot;
    double parameter = 0;
    double const distance = p.distToLine(a, b, &parameter, &foot);
    canvas.line({p, foot}, Ink::Result);
    canvas.dot(a, Ink::Given, "a, 0", -0.2, -1);
    canvas.dot(b, Ink::Given, "b, 1", -0.6, 0.5);
    canvas.dot(p, Ink::Given, "p");
    char label[48];
    std::snprintf(label, sizeof label, "foot, %.2f", parameter);
    canvas.dot(foot, Ink::Result, label, -0.2, -1);
    std::snprintf(label, sizeof label, "%.2f", distance);
    canvas.text(interpolate(0.5, p, foot) + mgVector_c(0.3, 0.2, 0), label);

    canvas.panel("mg_AngleBetween");
    mgPoint_c const o(3.2, 2, 0);
    canvas.arrow(o, o + mgVector_c(4, 0.5, 0), Ink::Given);
    canvas.arrow(o, o + mgVector_c(-2, 3.5, 0), Ink::Given);
    canvas.text(o + mgVector_c(4.2, 0.4, 0), "a");
    canvas.text(o + mgVector_c(-2.8, 3.6, 0), "b");
    canvas.line(
        Canvas::arc(o, o + 1.5 * mg_Normalise({4, 0.5, 0}), o + 1.5 * mg_Normalise({-2, 3.5, 0})),
        Ink::Result);
    canvas.line(
        Canvas::arc(o, o + 1 * mg_Normalise({-2, 3.5, 0}), o + 1 * mg_Normalise({4, 0.5, 0})),
        Ink::Second);
    std::snprintf(label, sizeof label, "a to b: %.0f°",
                  mg_AngleBetween({4, 0.5, 0}, {-2, 3.5, 0}) / kDeg);
    canvas.text(o + mgVector_c(0.9, 1.7, 0), label);
    std::snprintf(label, sizeof label, "b to a about z: %.0f°",
                  mg_AngleBetween({-2, 3.5, 0}, {4, 0.5, 0}, {0, 0, 1}) / kDeg);
    canvas.text(o + mgVector_c(-2.2, -1.9, 0), label);

    canvas.panel("mg_getBasis");
    mgUnitVector_c u, v;
    mg_getBasis(mg_Normalise({1, 2, 0}), u, v);
    mgPoint_c const q(3, 2.2, 0);
    canvas.arrow(q, q + 4 * mg_Normalise({1, 2, 0}), Ink::Given);
    canvas.text(q + 4.3 * mg_Normalise({1, 2, 0}), "n");
    for (auto const &[axis, name] : {std::pair(u, "u"), std::pair(v, "v")}) {
        bool const isAcross = std::fabs(axis.z()) > 0.5;
        if (isAcross)
            canvas.dot(q, Ink::Result, std::string(name) + ", towards you", -2.5, -1.9);
        else
            canvas.arrow(q, q + 3 * axis, Ink::Result);
        if (!isAcross) canvas.text(q + 3.3 * axis, name);
    }
    return canvas;
}

void drawBox(Canvas &canvas, mgBBox_c const &box, Ink ink) {
    canvas.box(box.low(), box.high(), ink);
    canvas.circle(box.sphCenter(), box.sphRadius(), ink);
}

Canvas boxWithSphere() {
    Canvas canvas(3, 10, 11);
    Points points;
    for (int i = 0; i < 24; ++i) // a leaf, away from the axes
        points.push_back({4 + 3.4 * std::cos(i * 15 * kDeg), 3 + 1.3 * std::sin(i * 15 * kDeg), 0});
    mgBBox_c box;
    mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
    canvas.panel("mg_BoundPoints", {0, 1, 0});
    drawBox(canvas, box, Ink::Result);
    for (mgPoint_c const &p : points) canvas.dot(p, Ink::Given);

    mgXform_c const placement = mg_RotateAtPoint({4, 3, 0}, 40 * kDeg, {0, 0, 1}, 0);
    Points const placed = moved(points, placement);
    mgBBox_c tight, quick = box;
    quick *= placement;
    mg_BoundPoints(placed.data(), static_cast<int>(placed.size()), tight);
    canvas.panel("placed box and placed points", {0, 1, 0});
    canvas.box(quick.low(), quick.high(), Ink::Result);
    canvas.box(tight.low(), tight.high(), Ink::Second);
    for (mgPoint_c const &p : placed) canvas.dot(p, Ink::Given);

    canvas.panel("mgBBox_c::limitRay", {0, 1, 0});
    mgPoint_c const from(-0.3, 0.5, 0);
    mgUnitVector_c const dir = mg_Normalise({2, 1.1, 0});
    double in = 0, out = 0;
    box.limitRay(from, dir, &in, &out);
    canvas.box(box.low(), box.high(), Ink::Given);
    canvas.arrow(from, from + 9.8 * dir, Ink::Help);
    canvas.line({from + in * dir, from + out * dir}, Ink::Result);
    canvas.line({box.low(), from + in * dir}, Ink::Help);
    canvas.line({box.high(), from + out * dir}, Ink::Help);
    canvas.dot(from, Ink::Given, "p", -0.6, -0.9);
    return canvas;
}

Canvas placedClash() {
    Canvas canvas(2, 12, 11);
    mgBBox_c const rod({-4, -0.5, -1}, {4, 0.5, 1});
    for (double const apart : {1.6, 0.6}) {
        mgXform_c const tilt = mg_RotateXform(35 * kDeg, {0, 0, 1}, 0);
        mgXform_c const placements[] = {tilt, tilt * mg_TranslateXform({apart, -apart, 0})};
        bool const clash = mgBBox_c::clash(rod, placements[0], rod, placements[1]) != 0;
        canvas.panel(clash ? "the placed boxes clash" : "the placed boxes are clear",
                     {4.2, 3.6, 0});
        for (mgXform_c const &placement : placements) {
            mgBBox_c world = rod;
            world *= placement;
            canvas.box(world.low(), world.high(), Ink::Help);
            canvas.line(moved({{-4, -0.5, 0}, {4, -0.5, 0}, {4, 0.5, 0}, {-4, 0.5, 0}}, placement),
                        clash ? Ink::Result : Ink::Second, true);
        }
    }
    return canvas;
}

Canvas arcs() {
    Canvas canvas(3, 10, 10);
    mgPoint_c const points[] = {{6.5, 1.2, 0}, {3.5, 6, 0}, {0, 2.5, 0}};
    mgPoint_c centre;
    mgUnitVector_c normal;
    mg_Find3PointArcCenter(points, &centre, &normal);
    mgArc_c const arc(normal, centre, points[0], points[2]);
    canvas.panel("mgArc_c through three points");
    canvas.line(Canvas::arc(centre, points[0], points[2]), Ink::Result);
    canvas.line({centre, points[0]}, Ink::Help);
    canvas.line({centre, points[2]}, Ink::Help);
    canvas.dot(centre, Ink::Result, "centre");
    for (int i = 0; i < 3; ++i) canvas.dot(points[i], Ink::Given, std::to_string(i + 1), 0.4, 0.2);
    char label[64];
    std::snprintf(label, sizeof label, "from 0° at 1 to %.0f° at 3", arc.getEndAngleInDegrees());
    canvas.text({1, 0.2, 0}, label);

    // The same angles in the convention of a partial-disk drawing call.
    canvas.panel("from +x, or clockwise from +y");
    mgPoint_c const o(3.5, 3, 0);
    canvas.arrow(o, o + mgVector_c(4.2, 0, 0), Ink::Help);
    canvas.arrow(o, o + mgVector_c(0, 4.2, 0), Ink::Help);
    double const angle = 215 * kDeg;
    double const drawn = mgArc_c::convertToOglAngle(angle);
    canvas.line({o, polar(o, 3.4, angle)}, Ink::Given);
    canvas.line(Canvas::arc(o, polar(o, 2.2, 0), polar(o, 2.2, angle)), Ink::Result);
    canvas.line(Canvas::arc(o, polar(o, 1.4, angle), polar(o, 1.4, 90 * kDeg)), Ink::Second);
    canvas.text(polar(o, 2.6, 40 * kDeg), "215°");
    std::snprintf(label, sizeof label, "%.0f°", drawn / kDeg);
    canvas.text(polar(o, 2.2, 275 * kDeg), label);

    canvas.panel("mgPlane_c: sides and feet");
    mgPlane_c const plane({3, 2.5, 0}, mg_Normalise({-1, 2, 0}));
    mgVector_c const along = plane.normal() * mgVector_c(0, 0, 1);
    canvas.line({plane.rootPoint() - 3.4 * along, plane.rootPoint() + 3.4 * along}, Ink::Second);
    canvas.arrow(plane.rootPoint(), plane.rootPoint() + 1.8 * plane.normal(), Ink::Second);
    mgPoint_c const a(2, 6, 0), b(6, 1, 0);
    mgPoint_c foot, crossing;
    plane.pointPerp(a, &foot);
    mg_LineSegIntPlane(a, b, plane, &crossing, nullptr);
    canvas.line({a, b}, Ink::Given);
    canvas.line({a, foot}, Ink::Help);
    canvas.dot(foot, Ink::Result, "foot", -0.6, -1);
    canvas.dot(crossing, Ink::Result, "crossing", 0.6, -0.35);
    canvas.dot(a, Ink::Given, "a");
    canvas.dot(b, Ink::Given, "b");
    return canvas;
}

Canvas intersections() {
    Canvas canvas(3, 10, 10);
    mgPoint_c out[2];
    canvas.panel("mg_LineIntLine2D");
    mgPoint_c const p1(0, 0, 0), p2(6, 0.5, 0);
    mgVector_c const d1(3, 2, 0), d2(-1.5, 2, 0);
    canvas.line({p1, p1 + 2.4 * d1}, Ink::Given);
    canvas.line({p2, p2 + 2.4 * d2}, Ink::Given);
    if (mg_LineIntLine2D(p1, d1, p2, d2, &out[0], 1e-8) == mgIntersect_Point)
        canvas.dot(out[0], Ink::Result);

    canvas.panel("mg_LineIntCircle2D");
    mgPoint_c const centre(3.5, 2.8, 0);
    canvas.circle(centre, 2.6, Ink::Given);
    double const radius = 2.6;
    mgUnitVector_c const along = mg_Normalise({3, 1, 0});
    for (mgPoint_c const &p : {mgPoint_c(0, 3.2, 0), centre - 4 * along}) {
        canvas.line({p, p + 8 * along}, Ink::Help);
        mgLineCircleIntType_e const kind =
            mg_LineIntCircle2D(p, along, centre, radius, &out[0], &out[1]);
        if (kind == mgLineCircle_Miss) continue;
        for (mgPoint_c const &q : out) canvas.dot(q, Ink::Result);
    }

    canvas.panel("mg_CircleIntCircle2D: left, right");
    mgPoint_c const c1(2.6, 2.5, 0), c2(5.6, 3.5, 0);
    double const r1 = 2.4, r2 = 1.8;
    canvas.circle(c1, r1, Ink::Given);
    canvas.circle(c2, r2, Ink::Given);
    canvas.arrow(c1, c2, Ink::Help);
    mg_CircleIntCircle2D(c1, r1, c2, r2, &out[0], &out[1]);
    canvas.dot(out[0], Ink::Result, "1", -0.3, 0.5);
    canvas.dot(out[1], Ink::Result, "2", -0.2, -1.1);
    return canvas;
}

Canvas pointSets() {
    Canvas canvas(3, 10, 10);
    Points const holes = {{0.5, 1, 0}, {6.5, 0.2, 0}, {3, 2.4, 0},   {7, 5, 0},  {1.6, 4.1, 0},
                          {0, 5.5, 0}, {5.2, 1.6, 0}, {3.4, 0.6, 0}, {4.6, 4, 0}};
    suDynamicArray<mg2DPoint_c> inPlane, hull;
    suDynamicArray<mgPoint_c> inSpace;
    for (mgPoint_c const &hole : holes) {
        inPlane.Add({hole.x(), hole.y()});
        inSpace.Add(hole);
    }
    convexHull(inPlane, hull);
    mg2DPoint_c corners[4];
    minCnvxPlgRect(hull.Count(), hull.Data(), 0, corners);
    canvas.panel("convexHull, minCnvxPlgRect");
    Points outline, rectangle;
    for (mg2DPoint_c const &p : toVector(hull)) outline.push_back({p.x(), p.y(), 0});
    for (mg2DPoint_c const &p : corners) rectangle.push_back({p.x(), p.y(), 0});
    canvas.line(rectangle, Ink::Second, true);
    canvas.line(outline, Ink::Result, true);
    for (mgPoint_c const &p : holes) canvas.dot(p, Ink::Given);
    for (bool const isClosed : {false, true}) {
        suDynamicArray<int> order;
        (isClosed ? mg_ClosedTSP : mg_OpenTSP)(inSpace, order);
        Points tour;
        for (int const i : toVector(order)) tour.push_back(inSpace[i]);
        canvas.panel(isClosed ? "mg_ClosedTSP" : "mg_OpenTSP");
        canvas.line(tour, Ink::Result, isClosed);
        for (mgPoint_c const &p : holes) canvas.dot(p, Ink::Given);
    }
    return canvas;
}

Canvas clipping() {
    Canvas canvas(3, 10, 10);
    mgPoint_c const low(1, 1, 0), high(7, 5, 0);
    canvas.panel("mg_ClipLine2DToBox");
    canvas.box(low, high, Ink::Given);
    for (auto const &[a, b] : {std::pair(mgPoint_c(0, 0.5, 0), mgPoint_c(8, 3.5, 0)),
                               std::pair(mgPoint_c(2, 6, 0), mgPoint_c(5, 2.5, 0)),
                               std::pair(mgPoint_c(5.5, 6, 0), mgPoint_c(8, 4.2, 0))}) {
        mgPoint_c in, out;
        canvas.line({a, b}, Ink::Help);
        if (mg_ClipLine2DToBox(a, b, low, high, in, out, -1) != mgClipLine_Outside)
            canvas.line({in, out}, Ink::Result);
    }
    canvas.panel("mg_Clip2DArcToBox");
    canvas.box(low, high, Ink::Given);
    mgPoint_c const centre(4, 2.6, 0);
    double const radius = 2.7;
    canvas.circle(centre, radius, Ink::Help);
    double angles[10];
    int const count = mg_Clip2DArcToBox(centre, radius, 0, 360 * kDeg, low, high, angles, -1);
    for (int i = 0; i < 2 * count; i += 2)
        canvas.line(Canvas::arc(centre, polar(centre, radius, angles[i]),
                                polar(centre, radius, angles[i + 1])),
                    Ink::Result);
    canvas.panel("mg_FindTangentArcCenter2D");
    mgPoint_c const corner(2, 1.5, 0), right(8, 1.5, 0), up(4.5, 5.8, 0);
    mgPoint_c middle, start, end;
    mg_FindTangentArcCenter2D(right, corner, corner, up, 1.6, middle, start, end, -1);
    canvas.line({right, corner, up}, Ink::Given);
    canvas.line(Canvas::arc(middle, end, start), Ink::Result);
    canvas.dot(middle, Ink::Result, "centre");
    canvas.dot(start, Ink::Result);
    canvas.dot(end, Ink::Result);
    return canvas;
}

Canvas hatching() {
    Canvas canvas(3, 10, 10);
    suDynamicArray<mgPoint_c> lines;
    auto const drawLines = [&](Ink ink) {
        for (int i = 0; i < lines.Count(); i += 2) canvas.line({lines[i], lines[i + 1]}, ink);
    };
    canvas.panel("outlines in outlines: even-odd");
    Points area = {{0, 0, 0}, {8, 0, 0}, {8, 3.5, 0}, {4.5, 6, 0}, {0, 6, 0}};
    Points const hole = Canvas::arc({3, 3, 0}, {4.6, 3, 0}, {4.6, 3, 0});
    int const counts[] = {static_cast<int>(area.size()), static_cast<int>(hole.size())};
    canvas.line(area, Ink::Given, true);
    canvas.line(hole, Ink::Given);
    area.insert(area.end(), hole.begin(), hole.end());
    mg_calcHatchLinesPolygon2D(2, counts, area.data(), {}, 45 * kDeg, 0.45, lines);
    drawLines(Ink::Result);
    canvas.panel("neighbours with one lattice match");
    Ink const inks[] = {Ink::Result, Ink::Second};
    Points const parts[] = {{{0, 0, 0}, {3, 0, 0}, {4.5, 3, 0}, {2, 6, 0}, {0, 6, 0}},
                            {{3, 0, 0}, {8, 0, 0}, {8, 6, 0}, {2, 6, 0}, {4.5, 3, 0}}};
    for (int i = 0; i < 2; ++i) {
        int const count = static_cast<int>(parts[i].size());
        canvas.line(parts[i], Ink::Given, true);
        mg_calcHatchLinesPolygon2D(1, &count, parts[i].data(), {}, 30 * kDeg, 0.5, lines);
        drawLines(inks[i]);
    }
    canvas.panel("mg_MergeLines2D");
    suDynamicArray<mgPoint_c> pieces, merged;
    for (mgPoint_c const &p : {mgPoint_c(0, 1, 0),
                               {2.5, 2, 0},
                               {2, 1.8, 0},
                               {6, 3.4, 0},
                               {1, 5, 0},
                               {3, 4, 0},
                               {4, 3.5, 0},
                               {6, 2.5, 0}})
        pieces.Add(p);
    int const count = mg_MergeLines2D(pieces, merged, 1e-6);
    for (int i = 0; i < 2 * count; i += 2) canvas.line({merged[i], merged[i + 1]}, Ink::Result);
    for (int i = 0; i < pieces.Count(); ++i) canvas.dot(pieces[i], Ink::Given);
    return canvas;
}

Canvas curves() {
    Canvas canvas(3, 10, 10);
    mgPoint_c const centre(3.4, 2.8, 0), start(6.4, 2.8, 0);
    for (double const tolerance : {2.0, 0.02}) {
        Points const points = Canvas::arc(centre, start, start, tolerance);
        char caption[64];
        std::snprintf(caption, sizeof caption, "tolerance %g: %zu points", tolerance,
                      points.size());
        canvas.panel(caption);
        canvas.circle(centre, 3, Ink::Help);
        canvas.line(points, Ink::Result);
        for (mgPoint_c const &p : points) canvas.dot(p, Ink::Result);
    }
    canvas.panel("conics by fullness");
    mgPoint_c const a(0.5, 0, 0), b(8, 1, 0), apex(3.5, 6, 0);
    mgPoint_c const middle = interpolate(0.5, a, b);
    canvas.line({a, apex, b}, Ink::Given);
    canvas.line({a, b}, Ink::Help);
    canvas.line({middle, apex}, Ink::Help);
    for (double const rho : {0.25, 0.5, 0.75}) {
        mgPoint_c const shoulder = interpolate(rho, middle, apex);
        parabolaEdgeData const conic{apex, shoulder, {}, a, b, {0, 0, 1}};
        suDynamicArray<mgPoint_c> points;
        int segments = 0;
        mg_TessBConic(&conic, 0.01, nullptr, segments, &points);
        canvas.line(toVector(points), Ink::Result);
        char label[32];
        std::snprintf(label, sizeof label, "%g", rhoConic(a, b, apex, shoulder));
        canvas.dot(shoulder, Ink::Second, label, 0.4, 0.1);
    }
    return canvas;
}

void write(std::string const &folder, char const *name, Canvas const &canvas) {
    std::ofstream file(folder + "/" + name + ".svg");
    file << canvas.svg();
    if (!file.flush()) throw std::runtime_error(std::string("cannot write ") + name + ".svg");
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: vexmath_figures FOLDER\n");
        return 2;
    }
    std::pair<char const *, Canvas (*)()> const figures[] = {{"composition", composition},
                                                             {"mirror", mirror},
                                                             {"feet", feet},
                                                             {"box-with-sphere", boxWithSphere},
                                                             {"placed-clash", placedClash},
                                                             {"arcs", arcs},
                                                             {"intersections", intersections},
                                                             {"point-sets", pointSets},
                                                             {"clipping", clipping},
                                                             {"hatching", hatching},
                                                             {"curves", curves}};
    try {
        for (auto const &[name, draw] : figures) write(argv[1], name, draw());
    } catch (std::exception const &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
