// SPDX-License-Identifier: MIT
// The library's values and functions for scripts. Points, vectors, lines and planes are plain
// arrays and objects; boxes, transforms and whole arrays of points are kept here.

#include "binding.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

#include <emscripten.h>
#include <emscripten/bind.h>

#include <vexmath/vexmath.h>
#include <vexmath_platform/archive.h>

namespace web {

EM_JS(void, vexmath_throw, (char const *text), { throw new Error(UTF8ToString(text)); });

void throwError(char const *text) {
    vexmath_throw(text);
    std::terminate(); // never reached
}

namespace {

using namespace emscripten;

struct Direction { // a line or a plane as a script writes it
    mgPoint_c root;
    mgVector_c direction;
};

mgLine_c lineOf(Direction const &d) { return {d.root, directionOf(d.direction)}; }
mgPlane_c planeOf(Direction const &d) { return {d.root, directionOf(d.direction)}; }

template <class Number>
val indicesOf(suDynamicArray<Number> const &indices) {
    return numbersOf("Int32Array",
                     std::vector<int>(indices.Data(), indices.Data() + indices.Count()));
}

val pairsOf(int count, suDynamicArray<mgIndexPair_c> const &pairs) {
    if (count < 0) throwError("more pairs than fit into the memory");
    std::vector<int> numbers;
    for (int i = 0; i < pairs.Count(); ++i)
        numbers.insert(numbers.end(), {pairs[i].first, pairs[i].second});
    return numbersOf("Int32Array", numbers);
}

val coordinatesOfArray(suDynamicArray<mgPoint_c> const &points) {
    return coordinatesOf(std::vector<mgPoint_c>(points.Data(), points.Data() + points.Count()));
}

/// Points one after the other, as three numbers each.
suDynamicArray<mgPoint_c> pointsFrom(val const &coordinates) {
    auto const numbers = convertJSArrayToNumberVector<double>(coordinates);
    suDynamicArray<mgPoint_c> points;
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
        points.Add({numbers[i], numbers[i + 1], numbers[i + 2]});
    return points;
}

// Records.

template <class Value>
val recordOf(Value const &value) {
    return guarded([&] {
        std::stringstream stream;
        su_CArchive archive(stream);
        Value copy(value); // saving repairs a transform
        copy.save(archive);
        return bytesOf(stream.str());
    });
}

template <class Value>
Value fromRecord(std::string const &bytes) {
    return guarded([&] {
        std::stringstream stream(bytes);
        su_CArchive archive(stream);
        Value value;
        value.restore(archive);
        return value;
    });
}

// Boxes.

mgBBox_c boxOf(mgPoint_c const &a, mgPoint_c const &b) { return {a, b}; }

mgBBox_c placed(mgBBox_c box, mgXform_c const &x) { return box *= x; }
mgBBox_c grown(mgBBox_c box, double by) { return box += by; }
mgBBox_c united(mgBBox_c box, mgBBox_c const &other) { return box |= other; }
mgBBox_c intersected(mgBBox_c box, mgBBox_c const &other) { return box &= other; }
mgBBox_c enclosing(mgBBox_c box, mgPoint_c const &p) { return box |= p; }

bool clashes(mgBBox_c const &a, mgBBox_c const &b, double tol) { return a.clash(&b, tol) != 0; }
bool clashesPlaced(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b, mgXform_c const &xb) {
    return mgBBox_c::clash(a, xa, b, xb) != 0;
}
bool clashesPlane(mgBBox_c const &box, Direction const &plane, double tol) {
    return box.clash(planeOf(plane), tol) != 0;
}
bool contains(mgBBox_c const &a, mgBBox_c const &b, double tol) {
    return a.containsBBox(&b, tol) != 0;
}
bool containsPoint(mgBBox_c const &box, mgPoint_c const &p, double tol) {
    return box.containsPoint(p, tol) != 0;
}

val firstHit(mgBBox_c const &box, Direction const &ray) {
    mgPoint_c hit;
    mgLine_c const line = lineOf(ray);
    if (box.getFirstRayHit(line.rootPoint(), line.direction(), &hit) == 0) return val::null();
    return val(hit);
}

// Transforms.

mgXform_c productOf(mgXform_c const &a, mgXform_c const &b) { return a * b; }
mgXform_c rotation(double angle, mgVector_c const &axis, double snapTol) {
    return mg_RotateXform(angle, axis, snapTol);
}
mgXform_c scale(double s) { return mg_ScaleXform(s); }
mgXform_c mirror(Direction const &plane) { return mg_PlaneReflectionXform(planeOf(plane)); }
mgXform_c frame(mgPoint_c const &origin, mgVector_c const &u, mgVector_c const &v) {
    return mg_CoordinateXform(origin, directionOf(u), directionOf(v));
}
mgPoint_c point(mgXform_c const &x, mgPoint_c const &p) { return p * x; }
mgVector_c vector(mgXform_c const &x, mgVector_c const &v) { return v * x; }
mgVector_c direction(mgXform_c const &x, mgVector_c const &v) { return directionOf(v) * x; }
Direction placedDirection(mgXform_c const &x, Direction const &d) {
    return {d.root * x, directionOf(d.direction) * x};
}
bool isReflection(mgXform_c const &x) { return x.isReflection() != 0; }
bool isEqual(mgXform_c const &a, mgXform_c const &b) { return a.equals(b) != 0; }

val glData(mgXform_c const &x) {
    std::vector<double> gl(16);
    x.getGLData(gl.data());
    return numbersOf("Float64Array", gl);
}

mgXform_c fromGlData(val const &numbers) {
    return guarded([&] {
        auto const gl = convertJSArrayToNumberVector<double>(numbers);
        if (gl.size() != 16) throw std::invalid_argument("needs sixteen numbers");
        return mgXform_c::createFromGLData(gl.data());
    });
}

// Many points, which stay in the memory of the module.

class Points {
public:
    explicit Points(int count) : points_(static_cast<std::size_t>(std::max(count, 0))) {}

    val view() {
        double *const first = points_.empty() ? nullptr : static_cast<double *>(points_.front());
        return val(typed_memory_view(3 * points_.size(), first));
    }
    void transform(mgXform_c const &x) { mg_TransformPoints(points_.data(), count(), x); }
    mgBBox_c bound() const {
        mgBBox_c box;
        mg_BoundPoints(points_.data(), count(), box);
        return box;
    }
    int count() const { return static_cast<int>(points_.size()); }

private:
    std::vector<mgPoint_c> points_;
};

// Many boxes.

val findClashes(val const &boxes, double tol) {
    auto const all = vecFromJSArray<mgBBox_c>(boxes);
    suDynamicArray<mgIndexPair_c> pairs;
    int const count = mg_FindClashes(all.data(), static_cast<int>(all.size()), tol, pairs);
    return pairsOf(count, pairs);
}

val findPlacedClashes(val const &boxes, val const &placements) {
    if (boxes["length"].as<int>() != placements["length"].as<int>()) {
        throwError("needs a placement for each box");
    }
    auto const all = vecFromJSArray<mgBBox_c>(boxes);
    auto const xforms = vecFromJSArray<mgXform_c>(placements);
    suDynamicArray<mgIndexPair_c> pairs;
    int const count =
        mg_FindClashes(all.data(), xforms.data(), static_cast<int>(all.size()), pairs);
    return pairsOf(count, pairs);
}

class BoxIndex {
public:
    explicit BoxIndex(val const &boxes) {
        auto const all = vecFromJSArray<mgBBox_c>(boxes);
        index_.build(all.data(), nullptr, static_cast<int>(all.size()));
    }
    void move(int i, mgBBox_c const &box) { index_.move(i, box); }
    val clashes(double tol) const {
        suDynamicArray<mgIndexPair_c> pairs;
        int const count = index_.clashes(tol, pairs);
        return pairsOf(count, pairs);
    }
    val clashesOf(val const &some, double tol) const {
        auto const which = convertJSArrayToNumberVector<int>(some);
        suDynamicArray<mgIndexPair_c> pairs;
        int const count =
            index_.clashesOf(which.data(), static_cast<int>(which.size()), tol, pairs);
        return pairsOf(count, pairs);
    }
    val clashesWith(mgBBox_c const &box, double tol) const {
        suDynamicArray<int> which;
        index_.clashesWith(box, tol, which);
        return indicesOf(which);
    }
    val around(mgPoint_c const &p, double tol) const {
        suDynamicArray<int> which;
        index_.around(p, tol, which);
        return indicesOf(which);
    }
    val firstOnRay(Direction const &ray) const {
        mgPoint_c hit;
        mgLine_c const line = lineOf(ray);
        int const box = index_.firstOnRay(line.rootPoint(), line.direction(), &hit);
        if (box < 0) return val::null();
        val result = val::object();
        result.set("box", box);
        result.set("point", hit);
        return result;
    }

private:
    mgBoxIndex_c index_;
};

// Polygons, tours, curves.

/// x and y of each corner.
val hull(val const &coordinates) {
    auto const numbers = convertJSArrayToNumberVector<double>(coordinates);
    suDynamicArray<mg2DPoint_c> points;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
        points.Add({numbers[i], numbers[i + 1]});
    suDynamicArray<mg2DPoint_c> corners;
    convexHull(points, corners);
    std::vector<double> result;
    for (int i = 0; i < corners.Count(); ++i)
        result.insert(result.end(), {corners[i].x(), corners[i].y()});
    return numbersOf("Float64Array", result);
}

val openTour(val const &coordinates) {
    suDynamicArray<mgPoint_c> points = pointsFrom(coordinates);
    suDynamicArray<int> order;
    mg_OpenTSP(points, order);
    return indicesOf(order);
}

val closedTour(val const &coordinates) {
    suDynamicArray<mgPoint_c> points = pointsFrom(coordinates);
    suDynamicArray<int> order;
    mg_ClosedTSP(points, order);
    return indicesOf(order);
}

val clipSegment(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &corner1,
                mgPoint_c const &corner2, double tol) {
    std::array<mgPoint_c, 2> ends;
    if (mg_ClipLine2DToBox(a, b, corner1, corner2, ends[0], ends[1], tol) == mgClipLine_Outside) {
        return val::null();
    }
    return coordinatesOf(ends);
}

val hatch(val const &outlines, mgPoint_c const &origin, double angle, double spacing) {
    suDynamicArray<mgPoint_c> points;
    std::vector<int> counts;
    for (int i = 0, count = outlines["length"].as<int>(); i < count; ++i) {
        suDynamicArray<mgPoint_c> const outline = pointsFrom(outlines[i]);
        counts.push_back(outline.Count());
        for (int k = 0; k < outline.Count(); ++k) points.Add(outline[k]);
    }
    suDynamicArray<mgPoint_c> lines;
    mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(), points.Data(),
                               origin, angle, spacing, lines);
    return coordinatesOfArray(lines);
}

val tessellateArc(mgPoint_c const &centre, mgVector_c const &normal, mgPoint_c const &start,
                  mgPoint_c const &end, double tol) {
    arcEdgeData arc;
    arc.center = centre;
    for (int k = 0; k < 3; ++k) arc.normal[k] = normal[k];
    arc.radius = dist(centre, start);
    int segments = 0;
    suDynamicArray<mgPoint_c> points;
    mg_TessArc(&arc, &start, &end, tol, nullptr, segments, &points);
    return coordinatesOfArray(points);
}

// Vectors.

double dot(mgVector_c const &a, mgVector_c const &b) { return a % b; }
mgVector_c cross(mgVector_c const &a, mgVector_c const &b) { return a * b; }
mgVector_c normalise(mgVector_c const &v) { return directionOf(v); }
double distance(mgPoint_c const &a, mgPoint_c const &b) { return dist(a, b); }
double angleBetween(mgVector_c const &a, mgVector_c const &b) { return mg_AngleBetween(a, b); }
mgPoint_c footOnLine(Direction const &line, mgPoint_c const &p) {
    mgPoint_c foot;
    lineOf(line).pointPerp(p, &foot);
    return foot;
}
mgPoint_c footOnPlane(Direction const &plane, mgPoint_c const &p) {
    mgPoint_c foot;
    planeOf(plane).pointPerp(p, &foot);
    return foot;
}

template <int kAxis, class Vector>
double coordinate(Vector const &v) {
    return v[kAxis];
}
template <int kAxis, class Vector>
void setCoordinate(Vector &v, double value) {
    static_cast<double *>(v)[kAxis] = value;
}

template <class Vector>
void bindTriple(char const *name) {
    value_array<Vector>(name)
        .element(&coordinate<0, Vector>, &setCoordinate<0, Vector>)
        .element(&coordinate<1, Vector>, &setCoordinate<1, Vector>)
        .element(&coordinate<2, Vector>, &setCoordinate<2, Vector>);
}

EMSCRIPTEN_BINDINGS(vexmath_values) {
    bindTriple<mgPoint_c>("Point");
    bindTriple<mgVector_c>("Vector");
    value_object<Direction>("Direction")
        .field("root", &Direction::root)
        .field("direction", &Direction::direction);

    class_<mgXform_c>("Xform")
        .constructor<>()
        .class_function("translation", &mg_TranslateXform)
        .class_function("rotation", &rotation)
        .class_function("scale", &scale)
        .class_function("mirror", &mirror)
        .class_function("frame", &frame)
        .class_function("fromGlData", &fromGlData)
        .class_function("fromRecord", &fromRecord<mgXform_c>)
        .function("times", &productOf)
        .function("inverse", &mgXform_c::inverse)
        .function("equals", &isEqual)
        .function("isReflection", &isReflection)
        .function("scaling", &mgXform_c::scaling)
        .function("point", &point)
        .function("vector", &vector)
        .function("direction", &direction)
        .function("line", &placedDirection)
        .function("glData", &glData)
        .function("record", &recordOf<mgXform_c>);

    class_<mgBBox_c>("BBox")
        .constructor<>()
        .class_function("of", &boxOf)
        .class_function("fromRecord", &fromRecord<mgBBox_c>)
        .function("isSet", optional_override([](mgBBox_c const &box) { return box.isSet() != 0; }))
        .function("low", &mgBBox_c::low)
        .function("high", &mgBBox_c::high)
        .function("centre", &mgBBox_c::center)
        .function("sphereCentre", &mgBBox_c::sphCenter)
        .function("sphereRadius", &mgBBox_c::sphRadius)
        .function("placed", &placed)
        .function("grown", &grown)
        .function("enclosing", &enclosing)
        .function("united", &united)
        .function("intersected", &intersected)
        .function("clashes", &clashes)
        .function("clashesPlane", &clashesPlane)
        .function("contains", &contains)
        .function("containsPoint", &containsPoint)
        .function("firstHit", &firstHit)
        .function("record", &recordOf<mgBBox_c>);

    class_<Points>("Points")
        .constructor<int>()
        .function("view", &Points::view)
        .function("transform", &Points::transform)
        .function("bound", &Points::bound)
        .function("count", &Points::count);

    class_<BoxIndex>("BoxIndex")
        .constructor<val>()
        .function("move", &BoxIndex::move)
        .function("clashes", &BoxIndex::clashes)
        .function("clashesOf", &BoxIndex::clashesOf)
        .function("clashesWith", &BoxIndex::clashesWith)
        .function("around", &BoxIndex::around)
        .function("firstOnRay", &BoxIndex::firstOnRay);

    function("dot", &dot);
    function("cross", &cross);
    function("normalise", &normalise);
    function("distance", &distance);
    function("angleBetween", &angleBetween);
    function("footOnLine", &footOnLine);
    function("footOnPlane", &footOnPlane);
    function("clashPlaced", &clashesPlaced);
    function("findClashes", &findClashes);
    function("findPlacedClashes", &findPlacedClashes);
    function("convexHull", &hull);
    function("openTour", &openTour);
    function("closedTour", &closedTour);
    function("clipSegment", &clipSegment);
    function("hatch", &hatch);
    function("tessellateArc", &tessellateArc);
}

} // namespace

} // namespace web
