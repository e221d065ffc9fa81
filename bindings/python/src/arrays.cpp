// SPDX-License-Identifier: MIT
// Whole arrays in one call: points, boxes, clashes, hatch lines, tessellations.

#include "classes.h"
#include "rows.h"

#include <algorithm>
#include <variant>

namespace bind {

namespace {

std::string nameOf(py::handle type) { return py::str(type.attr("__name__")); }

} // namespace

py::array requireRows(py::handle object, int columns, bool isWritten) {
    std::string const wanted = "expected a C-contiguous, aligned float64 array of shape (n, "
                               + std::to_string(columns) + "), got ";
    if (!py::isinstance<py::array>(object))
        throw py::type_error(wanted + nameOf(py::type::of(object)));
    auto const array = py::reinterpret_borrow<py::array>(object);
    std::string const given = std::string(py::str(array.dtype())) + " of shape "
                              + std::string(py::str(array.attr("shape")));
    if (!py::isinstance<py::array_t<double>>(array)) throw py::type_error(wanted + given);
    constexpr int kFlags = py::array::c_style | py::detail::npy_api::NPY_ARRAY_ALIGNED_;
    if (array.ndim() != 2 || array.shape(1) != columns) throw py::value_error(wanted + given);
    if ((array.flags() & kFlags) != kFlags)
        throw py::type_error(wanted + "one that is strided or not aligned");
    if (isWritten && !array.writeable()) throw py::value_error(wanted + "one that is read-only");
    return array;
}

namespace {

/// An array, not a sequence of items; anything else is refused.
bool isRows(py::handle object, std::string const &item) {
    if (py::isinstance<py::array>(object)) return true;
    if (py::isinstance<py::sequence>(object)) return false;
    throw py::type_error("expected a float64 array or a sequence of " + item + ", got "
                         + nameOf(py::type::of(object)));
}

template <class T>
T const &itemOf(py::handle item) {
    if (py::isinstance<T>(item)) return item.cast<T const &>();
    throw py::type_error("expected a " + nameOf(py::type::of<T>()) + ", got "
                         + nameOf(py::type::of(item)));
}

} // namespace

Boxes::Boxes(py::handle object) {
    if (isRows(object, "Box")) {
        array = requireRows(object, kColumns, false);
        return;
    }
    std::vector<mgBBox_c> copies;
    for (py::object const box : py::reinterpret_borrow<py::sequence>(object))
        copies.push_back(itemOf<mgBBox_c>(box));
    array = newRows(static_cast<py::ssize_t>(copies.size()), kColumns);
    std::copy(copies.begin(), copies.end(), mutableData());
}

Placements::Placements(py::handle object) {
    if (isRows(object, "Transform")) {
        py::array const array = requireRows(object, kPlacementColumns, false);
        auto const *row = static_cast<double const *>(array.data());
        transforms = std::vector<mgXform_c>(static_cast<std::size_t>(array.shape(0)));
        for (mgXform_c &x : transforms) {
            double elements[9];
            std::copy_n(row, 9, elements);
            x.SetHelper({mgMatrix_c(elements, 0), mgVector_c(row + 9), row[12], 0, nullptr});
            row += kPlacementColumns;
        }
        return;
    }
    auto const sequence = py::reinterpret_borrow<py::sequence>(object);
    transforms = std::vector<mgXform_c>(sequence.size());
    for (std::size_t i = 0; i < transforms.size(); ++i) {
        py::object const item = sequence[i];
        auto const &x = itemOf<mgXform_c>(item);
        transforms[i].SetHelper(x.GetHelper()); // with its fields as they are
        transforms[i].iCopyPerspectiveInfo(x);
    }
}

namespace {

using Point = mgPoint_c;
using Direction = mgUnitVector_c;
using Points = Rows<Point>;
using Planar = Rows<mg2DPoint_c>;
using WithoutLock = py::gil_scoped_release;

void requireSame(py::ssize_t a, py::ssize_t b) {
    if (a != b)
        throw py::value_error("arrays of " + std::to_string(a) + " and " + std::to_string(b)
                              + " rows");
}

/// Calls a function of the library for pieces that an int can count.
template <class F>
void inPieces(py::ssize_t count, F f) {
    for (py::ssize_t first = 0; first < count; first += INT_MAX)
        f(first, static_cast<int>(std::min<py::ssize_t>(INT_MAX, count - first)));
}

py::array_t<double> transformPoints(Points const &points, mgXform_c const &x,
                                    std::optional<Rows<Point, true>> out) {
    if (!out) out = Rows<Point, true>(newRows(points.count(), 3));
    requireSame(points.count(), out->count());
    Point *const to = out->mutableData();
    {
        WithoutLock const released;
        if (to != points.data())
            std::memmove(static_cast<void *>(to), points.data(),
                         sizeof(Point) * static_cast<std::size_t>(points.count()));
        inPieces(points.count(),
                 [&](py::ssize_t first, int count) { mg_TransformPoints(to + first, count, x); });
    }
    return py::reinterpret_borrow<py::array_t<double>>(out->array);
}

mgBBox_c boundPoints(Points const &points, mgBBox_c box) {
    WithoutLock const released;
    inPieces(points.count(), [&](py::ssize_t first, int count) {
        mg_BoundPoints(points.data() + first, count, box);
    });
    return box;
}

double distance(Point const &p, Point const &to) { return dist(p, to); }
double distance(Point const &p, mgLine_c const &to) {
    return p.distToRay(to.rootPoint(), to.direction());
}
double distance(Point const &p, mgPlane_c const &to) { return (p - to.rootPoint()) % to.normal(); }

py::array_t<double> distances(Points const &points,
                              std::variant<Point, mgLine_c, mgPlane_c> const &other) {
    py::array_t<double> numbers(points.count());
    double *const out = numbers.mutable_data();
    Point const *const p = points.data();
    std::visit(
        [&](auto const &to) {
            WithoutLock const released;
            for (py::ssize_t i = 0; i < points.count(); ++i) out[i] = distance(p[i], to);
        },
        other);
    return numbers;
}

/// Results of one intersection for each row: kinds, and points that are NaN where none was written.
template <class F, class First, class... Others>
auto intersectionForEach(F intersect, Rows<First> const &first, Rows<Others> const &...others) {
    (requireSame(first.count(), others.count()), ...);
    py::array_t<int> kinds(first.count());
    py::array_t<double> points = newRows(first.count(), 3);
    std::fill_n(points.mutable_data(), points.size(), std::numeric_limits<double>::quiet_NaN());
    int *const kind = kinds.mutable_data();
    auto *const point = reinterpret_cast<Point *>(points.mutable_data());
    WithoutLock const released;
    for (py::ssize_t i = 0; i < first.count(); ++i)
        kind[i] = intersect(first.data()[i], others.data()[i]..., point[i]);
    return std::pair(std::move(kinds), std::move(points));
}

auto intersectLinesPlane(Points const &roots, Rows<Direction> const &directions,
                         mgPlane_c const &plane) {
    auto const intersect = [&](Point const &root, Direction const &direction, Point &out) {
        return mg_LineIntPlane({root, direction}, plane, &out, nullptr);
    };
    return intersectionForEach(intersect, roots, directions);
}

auto intersectSegmentArrays(Points const &a1, Points const &b1, Points const &a2, Points const &b2,
                            double tol) {
    auto const intersect = [&](auto &...endsAndOut) {
        return mg_LineSegIntLineSeg(endsAndOut..., tol);
    };
    return intersectionForEach(intersect, a1, b1, a2, b2);
}

auto firstRayHits(mgBBox_c const &box, Points const &starts, Rows<Direction> const &directions) {
    auto const intersect = [&](Point const &start, Direction const &direction, Point &out) {
        return box.getFirstRayHit(start, direction, &out);
    };
    return intersectionForEach(intersect, starts, directions);
}

void bindPointArrays(py::module_ &m) {
    m.def("transform_points", &transformPoints, doc("mg_TransformPoints").c_str(), "points"_a,
          "x"_a, "out"_a = py::none());
    m.def("bound_points", &boundPoints, doc("mg_BoundPoints").c_str(), "points"_a,
          "box"_a = mgBBox_c());
    m.def("distances", &distances,
          "The distance of each point (n, 3) from a point or a line, or from a plane, signed.",
          "points"_a, "to"_a);
    m.def(
        "intersect_lines_plane", &intersectLinesPlane,
        "`intersect_line_plane` of each line, given by arrays (n, 3) of roots and unit directions: "
        "an array of results, one of points. A point that is not written is NaN.",
        "roots"_a, "directions"_a, "plane"_a);
    m.def("intersect_segment_arrays", &intersectSegmentArrays,
          "`intersect_segments` of each two segments, given by arrays (n, 3) of their ends: "
          "an array of results, one of points. A point that is not written is NaN.",
          "a1"_a, "b1"_a, "a2"_a, "b2"_a, "tol"_a);
    m.def("first_ray_hits", &firstRayHits,
          "`Box.first_ray_hit` of each ray, given by arrays (n, 3) of starts and unit directions: "
          "an array of 1 and 0, one of hits. A point without a hit is NaN.",
          "box"_a, "starts"_a, "directions"_a);
}

py::array_t<double> boxRows(Boxes const &boxes) { return boxes.array.attr("copy")(); }

std::vector<mgBBox_c> boxesOf(Rows<mgBBox_c> const &rows) {
    return {rows.data(), rows.data() + rows.count()};
}

py::array_t<double> placementRows(Placements const &placements) {
    py::array_t<double> rows =
        newRows(static_cast<py::ssize_t>(placements.transforms.size()), kPlacementColumns);
    double *row = rows.mutable_data();
    for (mgXform_c const &x : placements.transforms) {
        row = std::copy_n(&x.rotation()[0], 9, row);
        row = std::copy_n(static_cast<double const *>(x.translation()), 3, row);
        *row++ = x.scaling();
    }
    return rows;
}

mgXform_c const *transformsFor(Boxes const &boxes, Placements const &placements) {
    requireSame(boxes.count(), static_cast<py::ssize_t>(placements.transforms.size()));
    return placements.transforms.data();
}

/// Low and high corner of the cube around a placed sphere, moved outwards by a margin. Infinite
/// where the placement is no similarity of an everyday scale or a number is huge or NaN; NaN for an
/// unset box, which clashes with nothing.
void placedCube(mgBBox_c const &box, mgXform_c const &x, double *lowHigh) {
    constexpr double kLeastScale = 1e-03, kMostScale = 1e03, kMostLengths = 1e100;
    constexpr double kNearlyOrthonormal = 1e-09;
    constexpr double kMarginOfLengths = 1e-05, kMarginOfUnits = 1e-06;
    double const infinity = std::numeric_limits<double>::infinity(), s = x.scaling();
    mgMatrix_c const &m = x.rotation();
    bool isSimilar = s > kLeastScale && s < kMostScale && x.hasPerspective() == 0;
    bool isIdentity = true;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            double const wanted = i == j ? 1.0 : 0.0;
            double const product = m(i, 0) * m(j, 0) + m(i, 1) * m(j, 1) + m(i, 2) * m(j, 2);
            isSimilar = isSimilar && std::fabs(product - wanted) < kNearlyOrthonormal;
            isIdentity = isIdentity && m(i, j) == wanted;
        }
    isSimilar = isSimilar && (x.rotate() != 0 || isIdentity);
    double lengths = box.sphRadius();
    for (Point const &p : {box.low(), box.high(), box.sphCenter()})
        lengths += std::fabs(p.x()) + std::fabs(p.y()) + std::fabs(p.z());
    for (int i = 0; i < 3; ++i) lengths += std::fabs(x.translation().component(i)) / s;
    bool const isOrdinary = isSimilar && s * lengths < kMostLengths;
    double const reach =
        s * box.sphRadius() + kMarginOfLengths * s * lengths + kMarginOfUnits * (1.0 + s);
    mgPoint_c const centre = box.sphCenter() * x;
    for (int i = 0; i < 3; ++i) {
        lowHigh[i] = isOrdinary ? centre[i] - reach : -infinity;
        lowHigh[3 + i] = isOrdinary ? centre[i] + reach : infinity;
    }
    if (box.isSet() == 0) std::fill_n(lowHigh, 6, std::numeric_limits<double>::quiet_NaN());
}

py::array_t<double> placedCubes(Boxes const &boxes, Placements const &placements) {
    mgXform_c const *const x = transformsFor(boxes, placements);
    py::array_t<double> cubes = newRows(boxes.count(), 6);
    double *const to = cubes.mutable_data();
    for (int i = 0; i < boxes.count(); ++i) placedCube(boxes.data()[i], x[i], to + 6 * i);
    return cubes;
}

/// The pairs of an overload of mg_FindClashes.
template <class... Given>
py::array_t<int> foundClashes(Given... given) {
    return filled<mgIndexPair_c>([&](auto &pairs) { return mg_FindClashes(given..., pairs); });
}

py::array_t<int> findClashes(Boxes const &boxes, double tol) {
    return foundClashes(boxes.data(), boxes.count(), tol);
}

py::array_t<int> findPlacedClashes(Boxes const &boxes, Placements const &placements) {
    return foundClashes(boxes.data(), transformsFor(boxes, placements), boxes.count());
}

py::array_t<int> findClashesBetween(Boxes const &a, Boxes const &b, double tol) {
    return foundClashes(a.data(), a.count(), b.data(), b.count(), tol);
}

std::vector<std::unique_ptr<mgXform_c>>
multiplyTransforms(Placements placements, std::variant<mgXform_c const *, Placements> const &by) {
    std::vector<mgXform_c> &x = placements.transforms;
    int const count = intCount(static_cast<py::ssize_t>(x.size()));
    if (auto const *one = std::get_if<mgXform_c const *>(&by)) {
        if (*one == nullptr) throw py::type_error("expected a Transform or placements, got None");
        mg_MultiplyXforms(x.data(), count, **one);
    } else {
        auto const &each = std::get<Placements>(by).transforms;
        requireSame(count, static_cast<py::ssize_t>(each.size()));
        mg_MultiplyXforms(x.data(), count, each.data());
    }
    std::vector<std::unique_ptr<mgXform_c>> products;
    for (mgXform_c const &product : x) products.push_back(exactCopy(product));
    return products;
}

void bindClashes(py::module_ &m) {
    function(m, "mg_FindClashes", "find_clashes", &findClashes, "boxes"_a, "tol"_a);
    m.def("find_placed_clashes", &findPlacedClashes, doc("mg_FindClashes").c_str(), "boxes"_a,
          "placements"_a);
    m.def("find_clashes_between", &findClashesBetween, doc("mg_FindClashes").c_str(), "a"_a, "b"_a,
          "tol"_a);
    m.def("box_rows", &boxRows,
          "Boxes as an array (n, 10): sphere centre, high corner, low corner, radius of each.",
          "boxes"_a);
    m.def("boxes_of", &boxesOf, "The boxes of an array that `box_rows` made.", "rows"_a);
    m.def("placement_rows", &placementRows,
          "Transforms as an array (n, 13): nine elements row by row, translation, scale. "
          "Flags and perspective records are lost.",
          "placements"_a);
    m.def("placed_cubes", &placedCubes,
          "Low and high corners (n, 6) of cubes around the placed spheres. Parts that clash have "
          "cubes that meet. "
          "A cube is infinite where that cannot be said of the part, and NaN where the box is "
          "unset and clashes with nothing.",
          "boxes"_a, "placements"_a);
    function(m, "mg_MultiplyXforms", "multiply_transforms", &multiplyTransforms, "xforms"_a,
             "by"_a);
}

void bindBoxIndex(Class<mgBoxIndex_c> &cls) {
    using Index = mgBoxIndex_c;
    cls.def(py::init([](Boxes const &boxes, std::optional<Placements> const &placements) {
                auto index = std::make_unique<Index>();
                mgXform_c const *const x = placements ? transformsFor(boxes, *placements) : nullptr;
                if (index->build(boxes.data(), x, boxes.count()) == 0) throw std::bad_alloc();
                return index.release();
            }),
            "boxes"_a, "placements"_a = py::none());
    cls.method(
        "clashesOf", "clashes_of",
        [](Index const &index, std::vector<int> const &some, double tol) {
            int const count = intCount(static_cast<py::ssize_t>(some.size()));
            return filled<mgIndexPair_c>(
                [&](auto &pairs) { return index.clashesOf(some.data(), count, tol, pairs); });
        },
        "some"_a, "tol"_a);
}

void bindOutlines(py::module_ &m) {
    function(
        m, "minCnvxPlgRect", "least_rectangle",
        [](Planar const &polygon, bool byWidth) -> std::optional<py::array_t<double>> {
            py::array_t<double> corners = newRows(4, 2);
            auto *const to = reinterpret_cast<mg2DPoint_c *>(corners.mutable_data());
            if (minCnvxPlgRect(intCount(polygon.count()), polygon.data(), byWidth ? 1 : 0, to) == 0)
                return std::nullopt;
            return corners;
        },
        "polygon"_a, "by_width"_a = false);
    function(
        m, "mg_pointQuickSort", "sort_points",
        [](Rows<Point, true> points) {
            int const last = intCount(points.count()) - 1;
            Point *const first = points.mutableData();
            WithoutLock const released;
            mg_pointQuickSort(first, 0, last);
        },
        "points"_a);
    function(
        m, "mg_calcHatchLinesPolygon2D", "hatch_lines_polygon_2d",
        [](std::vector<Points> const &outlines, Point const &origin, double angle, double spacing) {
            std::vector<int> counts;
            std::vector<Point> points;
            for (Points const &outline : outlines) {
                counts.push_back(intCount(outline.count()));
                points.insert(points.end(), outline.data(), outline.data() + outline.count());
            }
            return filled<Point>([&](auto &lines) {
                return mg_calcHatchLinesPolygon2D(static_cast<int>(counts.size()), counts.data(),
                                                  points.data(), origin, angle, spacing, lines);
            });
        },
        "outlines"_a, "origin"_a, "angle"_a, "spacing"_a);
}

template <class Tessellate, class... Given>
py::array_t<double> tessellated(Tessellate tessellate, Given... given) {
    int count = 0;
    return filled<Point>([&](auto &points) { tessellate(given..., nullptr, count, &points); });
}

/// The arguments of these functions are the fields of the library's records of edges.
void bindConic(py::module_ &m, char const *key, char const *python,
               decltype(&mg_TessParabola) tessellate) {
    function(
        m, key, python,
        [tessellate](Point const &vertex, Point const &focus, Point const &start, Point const &end,
                     mgVector_c const &n, double tol) {
            parabolaEdgeData const curve{vertex, focus, {}, start, end, {n.x(), n.y(), n.z()}};
            return tessellated(tessellate, &curve, tol);
        },
        "vertex"_a, "focus"_a, "start"_a, "end"_a, "normal"_a = mgVector_c(0.0, 0.0, 1.0),
        "tol"_a = 0.0);
}

void bindTessellation(py::module_ &m) {
    function(
        m, "mg_TessArc", "tessellate_arc",
        [](Point const &centre, mgVector_c const &n, double radius, Point const &start,
           Point const &end, double tol) {
            arcEdgeData const arc{centre, {n.x(), n.y(), n.z()}, radius};
            return tessellated(&mg_TessArc, &arc, &start, &end, tol);
        },
        "center"_a, "normal"_a, "radius"_a, "start"_a, "end"_a, "tol"_a);
    function(
        m, "mg_TessEllipse", "tessellate_ellipse",
        [](Point const &centre, mgVector_c const &u, mgVector_c const &v, double majorRadius,
           double minorRadius, Point const &start, Point const &end, double tol) {
            ellipseEdgeData const ellipse{centre,      {u.x(), u.y(), u.z()}, {v.x(), v.y(), v.z()},
                                          majorRadius, minorRadius,           start,
                                          end};
            return tessellated(&mg_TessEllipse, &ellipse, nullptr, nullptr, tol);
        },
        "center"_a, "major_dir"_a, "minor_dir"_a, "major_radius"_a, "minor_radius"_a, "start"_a,
        "end"_a, "tol"_a);
    bindConic(m, "mg_TessParabola", "tessellate_parabola", &mg_TessParabola);
    bindConic(m, "mg_TessBConic", "tessellate_conic", &mg_TessBConic);
    bindConic(m, "mg_TessParabolaOrBConic", "tessellate_parabola_or_conic",
              &mg_TessParabolaOrBConic);
}

} // namespace

void bindArrays(Classes &classes) {
    py::module_ &m = classes.m;
    bindPointArrays(m);
    bindClashes(m);
    bindBoxIndex(classes.BoxIndex);
    bindOutlines(m);
    bindTessellation(m);
}

} // namespace bind
