// SPDX-License-Identifier: MIT
// The library's values and functions for scripts. Points, vectors, lines and planes are plain
// arrays and objects; boxes, transforms and whole arrays of points are kept here.

#include "binding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cxxabi.h>
#include <exception>
#include <limits>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <emscripten/bind.h>

#include <vexmath/vexmath.h>
#include <vexmath_platform/archive.h>

namespace web {

namespace {

using namespace emscripten;

/// The text of an exception that left the module. The exception is destroyed.
std::string takeText(std::uintptr_t address) {
    auto *const error = reinterpret_cast<std::exception *>(address);
    std::string text = error->what();
    error->~exception();
    abi::__cxa_free_exception(error);
    return text;
}

struct Direction { // a line or a plane as a script writes it
    mgPoint_c root;
    mgVector_c direction;
};

mgLine_c lineOf(Direction const &d) { return {d.root, directionOf(d.direction)}; }
mgPlane_c planeOf(Direction const &d) { return {d.root, directionOf(d.direction)}; }

/// The list that a search fills. The search returns -1 when the memory is exhausted.
template <class Element, class Search>
val found(Search search) {
    suDynamicArray<Element> list;
    if (search(list) < 0) throw std::length_error("more is found than fits into the memory");
    return numbersOf<int>("Int32Array", list);
}

/// Points whose coordinates follow one another.
template <class Point>
suDynamicArray<Point> pointsFrom(val const &coordinates) {
    constexpr std::size_t kEach = sizeof(Point) / sizeof(double);
    auto const numbers = convertJSArrayToNumberVector<double>(coordinates);
    if (numbers.size() % kEach != 0) {
        throw std::invalid_argument("needs " + std::to_string(kEach) + " numbers for each point");
    }
    suDynamicArray<Point> points;
    for (std::size_t i = 0; i < numbers.size(); i += kEach) {
        Point point;
        std::copy_n(&numbers[i], kEach, static_cast<double *>(point));
        points.Add(point);
    }
    return points;
}

template <class Value>
val recordOf(Value const &value) {
    std::stringstream stream;
    su_CArchive archive(stream);
    Value copy(value); // saving repairs a transform
    copy.save(archive);
    return bytesOf(stream.str());
}

template <class Value>
Value fromRecord(std::string const &bytes) {
    std::stringstream stream(bytes);
    su_CArchive archive(stream);
    Value value;
    value.restore(archive);
    return value;
}

val firstHit(mgBBox_c const &box, Direction const &ray) {
    mgPoint_c hit;
    mgLine_c const line = lineOf(ray);
    return box.getFirstRayHit(line.rootPoint(), line.direction(), &hit) ? val(hit) : val::null();
}

mgXform_c fromGlData(val const &numbers) {
    auto const gl = convertJSArrayToNumberVector<double>(numbers);
    if (gl.size() != 16) throw std::invalid_argument("needs sixteen numbers");
    return mgXform_c::createFromGLData(gl.data());
}

// Many points, which stay in the memory of the module.

using Points = std::vector<mgPoint_c>;

Points *newPoints(double count) {
    constexpr double kMost = std::numeric_limits<int>::max();
    if (!(count >= 0.0 && count <= kMost)) throw std::invalid_argument("needs a number of points");
    return new Points(static_cast<std::size_t>(count));
}

val viewOf(Points &points) {
    auto *const first = reinterpret_cast<double *>(points.data());
    return val(typed_memory_view(3 * points.size(), first));
}

mgBBox_c boundOf(Points const &points) {
    mgBBox_c box;
    mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
    return box;
}

// Many boxes.

struct Boxes {
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements; // one for each box, or none

    explicit Boxes(val const &boxesOfScript) : boxes(vecFromJSArray<mgBBox_c>(boxesOfScript)) {}
    Boxes(val const &boxesOfScript, val const &placementsOfScript) : Boxes(boxesOfScript) {
        placements = vecFromJSArray<mgXform_c>(placementsOfScript);
        if (boxes.size() != placements.size())
            throw std::invalid_argument("needs a placement for each box");
    }
    int count() const { return static_cast<int>(boxes.size()); }
};

val findClashes(val const &boxes, double tol) {
    Boxes const all(boxes);
    return found<mgIndexPair_c>(
        [&](auto &pairs) { return mg_FindClashes(all.boxes.data(), all.count(), tol, pairs); });
}

val findPlacedClashes(val const &boxes, val const &placements) {
    Boxes const all(boxes, placements);
    return found<mgIndexPair_c>([&](auto &pairs) {
        return mg_FindClashes(all.boxes.data(), all.placements.data(), all.count(), pairs);
    });
}

template <class... Arrays>
mgBoxIndex_c *newBoxIndex(Arrays const &...boxesAndPlacements) {
    Boxes const all(boxesAndPlacements...);
    auto const *const placements = all.placements.empty() ? nullptr : all.placements.data();
    auto index = std::make_unique<mgBoxIndex_c>();
    if (!index->build(all.boxes.data(), placements, all.count())) {
        throw std::length_error("more boxes than fit into the memory");
    }
    return index.release();
}

val clashesOf(mgBoxIndex_c const &index, val const &some, double tol) {
    auto const which = convertJSArrayToNumberVector<int>(some);
    return found<mgIndexPair_c>([&](auto &pairs) {
        return index.clashesOf(which.data(), static_cast<int>(which.size()), tol, pairs);
    });
}

val firstOnRay(mgBoxIndex_c const &index, Direction const &ray) {
    mgPoint_c hit;
    mgLine_c const line = lineOf(ray);
    int const box = index.firstOnRay(line.rootPoint(), line.direction(), &hit);
    return box < 0 ? val::null() : objectOf({{"box", val(box)}, {"point", val(hit)}});
}

// Polygons, tours, curves.

val hull(val const &coordinates) {
    auto points = pointsFrom<mg2DPoint_c>(coordinates);
    suDynamicArray<mg2DPoint_c> corners;
    convexHull(points, corners);
    return coordinatesOf(corners);
}

template <void (*order)(suDynamicArray<mgPoint_c> &, suDynamicArray<int> &)>
val tour(val const &coordinates) {
    auto points = pointsFrom<mgPoint_c>(coordinates);
    suDynamicArray<int> indices;
    order(points, indices);
    return numbersOf<int>("Int32Array", indices);
}

val clipSegment(mgPoint_c const &a, mgPoint_c const &b, mgPoint_c const &corner1,
                mgPoint_c const &corner2, double tol) {
    std::array<mgPoint_c, 2> ends;
    auto const side = mg_ClipLine2DToBox(a, b, corner1, corner2, ends[0], ends[1], tol);
    return side == mgClipLine_Outside ? val::null() : coordinatesOf(ends);
}

val hatch(val const &outlines, mgPoint_c const &origin, double angle, double spacing) {
    suDynamicArray<mgPoint_c> points;
    std::vector<int> counts;
    for (val const &coordinates : vecFromJSArray<val>(outlines)) {
        auto const outline = pointsFrom<mgPoint_c>(coordinates);
        counts.push_back(outline.Count());
        for (mgPoint_c const &point : outline) points.Add(point);
    }
    suDynamicArray<mgPoint_c> lines;
    mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(), points.Data(),
                               origin, angle, spacing, lines);
    return coordinatesOf(lines);
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
    return coordinatesOf(points);
}

template <class Curve>
mgPoint_c footOn(Curve const &curve, mgPoint_c const &p) {
    mgPoint_c foot;
    curve.pointPerp(p, &foot);
    return foot;
}

template <class Vector>
void bindTriple(char const *name) {
    value_array<Vector>(name)
        .element(emscripten::index<0>())
        .element(emscripten::index<1>())
        .element(emscripten::index<2>());
}

// Embind takes lambdas by pointer alone: + makes one.

template <class Value>
struct Class : class_<Value> {
    using class_<Value>::class_;

    template <class Function>
    void def(char const *name, Function callable) {
        this->function(name, +callable);
    }
    /// For functions of the class itself, which make a value.
    template <class Function>
    void make(char const *name, Function callable) {
        this->class_function(name, +callable);
    }
};

template <class Function>
void def(char const *name, Function callable) {
    function(name, +callable);
}

// Short names for the tables below.
using Box = mgBBox_c;
using Index = mgBoxIndex_c;
using Plain = Direction;
using Point = mgPoint_c;
using Vector = mgVector_c;
using Xform = mgXform_c;

EMSCRIPTEN_BINDINGS(vexmath_values) {
    bindTriple<Point>("Point");
    bindTriple<Vector>("Vector");
    value_object<Direction>("Direction")
        .field("root", &Direction::root)
        .field("direction", &Direction::direction);

    Class<Xform> xform("Xform");
    xform.constructor<>();
    xform.make("translation", &mg_TranslateXform);
    xform.make("rotation", [](double angle, Vector const &axis, double snapTol) {
        return mg_RotateXform(angle, axis, snapTol);
    });
    xform.make("scale", [](double s) { return mg_ScaleXform(s); });
    xform.make("mirror", [](Plain const &p) { return mg_PlaneReflectionXform(planeOf(p)); });
    xform.make("frame", [](Point const &origin, Vector const &u, Vector const &v) {
        return mg_CoordinateXform(origin, directionOf(u), directionOf(v));
    });
    xform.make("fromGlData", &fromGlData);
    xform.make("fromRecord", &fromRecord<Xform>);
    xform.def("times", [](Xform const &a, Xform const &b) { return a * b; });
    xform.function("inverse", &Xform::inverse);
    xform.def("equals", [](Xform const &a, Xform const &b) { return a.equals(b) != 0; });
    xform.def("isReflection", [](Xform const &x) { return x.isReflection() != 0; });
    xform.function("scaling", &Xform::scaling);
    xform.def("point", [](Xform const &x, Point const &p) { return p * x; });
    xform.def("vector", [](Xform const &x, Vector const &v) { return v * x; });
    xform.def("direction",
              [](Xform const &x, Vector const &v) { return Vector(directionOf(v) * x); });
    xform.def("line", [](Xform const &x, Plain const &d) {
        return Plain{d.root * x, directionOf(d.direction) * x};
    });
    xform.def("glData", &glDataOf);
    xform.def("record", &recordOf<Xform>);

    Class<Box> box("BBox");
    box.constructor<>();
    box.make("of", [](Point const &a, Point const &b) { return Box(a, b); });
    box.make("fromRecord", &fromRecord<Box>);
    box.def("isSet", [](Box const &b) { return b.isSet() != 0; });
    box.function("low", &Box::low);
    box.function("high", &Box::high);
    box.function("centre", &Box::center);
    box.function("sphereCentre", &Box::sphCenter);
    box.function("sphereRadius", &Box::sphRadius);
    box.def("placed", [](Box b, Xform const &x) { return b *= x; });
    box.def("grown", [](Box b, double by) { return b += by; });
    box.def("enclosing", [](Box b, Point const &p) { return b |= p; });
    box.def("united", [](Box b, Box const &c) { return b |= c; });
    box.def("intersected", [](Box b, Box const &c) { return b &= c; });
    box.def("clashes",
            [](Box const &a, Box const &b, double tol) { return a.clash(&b, tol) != 0; });
    box.def("clashesPlane", [](Box const &b, Plain const &plane, double tol) {
        return b.clash(planeOf(plane), tol) != 0;
    });
    box.def("contains",
            [](Box const &a, Box const &b, double tol) { return a.containsBBox(&b, tol) != 0; });
    box.def("containsPoint",
            [](Box const &b, Point const &p, double tol) { return b.containsPoint(p, tol) != 0; });
    box.def("firstHit", &firstHit);
    box.def("record", &recordOf<Box>);

    Class<Points> points("Points");
    points.constructor(&newPoints);
    points.def("view", &viewOf);
    points.def("transform", [](Points &all, Xform const &x) {
        mg_TransformPoints(all.data(), static_cast<int>(all.size()), x);
    });
    points.def("bound", &boundOf);
    points.def("count", [](Points const &all) { return all.size(); });

    Class<Index> index("BoxIndex");
    index.constructor(&newBoxIndex<val>);
    index.constructor(&newBoxIndex<val, val>);
    index.function("move", &Index::move);
    index.function("place", &Index::place);
    index.def("clashes", [](Index const &boxes, double tol) {
        return found<mgIndexPair_c>([&](auto &pairs) { return boxes.clashes(tol, pairs); });
    });
    index.def("clashesOf", &clashesOf);
    index.def("clashesWith", [](Index const &boxes, Box const &b, double tol) {
        return found<int>([&](auto &which) { return boxes.clashesWith(b, tol, which); });
    });
    index.def("around", [](Index const &boxes, Point const &p, double tol) {
        return found<int>([&](auto &which) { return boxes.around(p, tol, which); });
    });
    index.def("firstOnRay", &firstOnRay);

    def("takeText", &takeText); // for errors.js alone
    def("dot", [](Vector const &a, Vector const &b) { return a % b; });
    def("cross", [](Vector const &a, Vector const &b) { return a * b; });
    def("normalise", [](Vector const &v) { return Vector(directionOf(v)); });
    def("distance", [](Point const &a, Point const &b) { return dist(a, b); });
    def("angleBetween", [](Vector const &a, Vector const &b) { return mg_AngleBetween(a, b); });
    def("footOnLine", [](Plain const &l, Point const &p) { return footOn(lineOf(l), p); });
    def("footOnPlane", [](Plain const &d, Point const &p) { return footOn(planeOf(d), p); });
    def("clashPlaced", [](Box const &a, Xform const &xa, Box const &b, Xform const &xb) {
        return Box::clash(a, xa, b, xb) != 0;
    });
    def("findClashes", &findClashes);
    def("findPlacedClashes", &findPlacedClashes);
    def("convexHull", &hull);
    def("openTour", &tour<&mg_OpenTSP>);
    def("closedTour", &tour<&mg_ClosedTSP>);
    def("clipSegment", &clipSegment);
    def("hatch", &hatch);
    def("tessellateArc", &tessellateArc);
}

} // namespace

} // namespace web
