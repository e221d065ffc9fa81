// SPDX-License-Identifier: MIT
// Members and functions that no declaration tells how to bind: arrays of a fixed size, sequences.

#include "classes.h"

#include <vector>

namespace bind {

namespace {

using Gl = std::array<double, 16>;
using Triple = std::array<double, 3>;
using Roots = std::vector<double>;

/// `v[i]` for the first `count` numbers.
template <int count, class T>
void sequence(T &cls) {
    using V = typename T::type;
    cls.def(
        "__getitem__",
        [](V const &v, int i) {
            if (i < 0 || i >= count) throw py::index_error("index out of range");
            return v[i];
        },
        "i"_a);
    cls.def("__len__", [](V const &) { return count; });
}

/// `m[i, j]`, and the elements as an array.
template <int size, class T>
void elements(T &cls) {
    using M = typename T::type;
    auto const at = [](M &m, std::pair<int, int> place) -> double & {
        auto const [i, j] = place;
        if (i < 0 || i >= size || j < 0 || j >= size) throw py::index_error("index out of range");
        return m(i, j);
    };
    cls.def(
        "__getitem__", [at](M &m, std::pair<int, int> place) { return double(at(m, place)); },
        "place"_a);
    cls.def(
        "__setitem__", [at](M &m, std::pair<int, int> place, double v) { at(m, place) = v; },
        "place"_a, "value"_a);
    cls.def_property_readonly(
        "array",
        [](M const &m) {
            return py::array_t<double>({size, size}, &m(0, 0));
        },
        "A new array of the elements.");
}

void bindMatrices(Classes &classes) {
    using Matrix = mgMatrix_c;
    sequence<3>(classes.Vector);
    sequence<3>(classes.Point);
    sequence<2>(classes.Point2D);
    sequence<4>(classes.Vector4);
    elements<3>(classes.Matrix);
    elements<4>(classes.Matrix4);
    auto &cls = classes.Matrix;
    cls.method(
        "mgMatrix_c::getRotationAngle", "rotation_angle",
        [](Matrix const &m, std::optional<mgUnitVector_c> const &axis) {
            return m.getRotationAngle(axis ? &*axis : nullptr);
        },
        "axis"_a = py::none());
    cls.method("mgMatrix_c::getEigensystem", "eigensystem", [](Matrix const &m) {
        Triple values;
        std::array<mgUnitVector_c, 3> vectors;
        bool const converged = m.getEigensystem(values.data(), vectors.data()) != 0;
        return std::tuple(converged, values, vectors);
    });
    cls.fixed(
        "mgMatrix_c::getMatrixFromEigs", "from_eigenvectors",
        [](std::array<mgVector_c, 3> const &vectors) {
            return Matrix::getMatrixFromEigs(nullptr, vectors.data());
        },
        "vectors"_a);
    cls.method(
        "mgMatrix_c::getNullspace", "null_space",
        [](Matrix const &m, bool force) {
            mgUnitVector_c basis[3];
            int const count = m.getNullspace(basis, force);
            return std::vector<mgUnitVector_c>(basis, basis + count);
        },
        "force"_a);
    classes.Point.fixed(
        "mgPoint_c::checkCollinear", "check_collinear",
        [](std::array<mgPoint_c, 3> const &points) {
            Output<mgPoint_c> point;
            Output<mgVector_c> normal;
            bool const collinear =
                mgPoint_c::checkCollinear(points.data(), point.value, normal.value) != 0;
            return std::tuple(collinear, point.get(), normal.get());
        },
        "points"_a);
    classes.Cone.method(
        "mgCone_c::extremePts", "extreme_points",
        [](mgCone_c const &cone, mgUnitVector_c const &dir, double height) {
            std::array<mgPoint_c, 2> ends;
            cone.extremePts(dir, height, ends.data());
            return ends;
        },
        "dir"_a, "height"_a);
}

void bindTransform(Class<mgXform_c> &cls) {
    using Xform = mgXform_c;
    using Info = std::optional<mgPerspInfo_c>;
    cls.property(
        "mgXform_c::getPerspectiveInfo", "perspective",
        [](Xform const &x) {
            mgPerspInfo_c info;
            return x.getPerspectiveInfo(&info) != 0 ? Info(info) : Info();
        },
        [](Xform &x, Info const &info) {
            if (info)
                x.addPerspectiveInfo(*info);
            else
                x.deletePerspectiveInfo();
        });
    cls.method("mgXform_c::getGLData", "to_gl", [](Xform const &x) {
        Gl gl;
        x.getGLData(gl.data());
        return gl;
    });
    cls.fixed(
        "mgXform_c::createFromGLData", "from_gl",
        [](Gl const &gl) { return new Xform(Xform::createFromGLData(gl.data())); }, "gl"_a);
}

void bindGenTransform(Class<mgGenXform_c, mgXform_c> &cls) {
    using Gen = mgGenXform_c;
    cls.def(py::init([](mgXform_c const &placing, mgXform_c const &body, Triple const &scales) {
                Gen *const made = Gen::create(&placing, &body, scales.data());
                if (made == nullptr) throw py::value_error("a factor is not in [0.001, 1000]");
                return made;
            }),
            "placing"_a, "body"_a, "scales"_a);
    cls.method(
        "mgGenXform_c::set", "set",
        [](Gen &g, mgXform_c const &body, Triple const &scales) {
            return g.set(&body, scales.data()) != 0;
        },
        "body"_a, "scales"_a);
    cls.property("mgGenXform_c::getScale", "scales", [](Gen const &g) {
        Triple scales;
        g.getScale(scales.data());
        return scales;
    });
    cls.method("mgGenXform_c::getGenGLData", "to_gen_gl", [](Gen const &g) {
        Gl gl;
        g.getGenGLData(gl.data());
        return gl;
    });
}

/// The point moves, or stays where the library leaves it.
void bindProjections(Class<mgPlane_c> &cls) {
    cls.method(
        "mgPlane_c::projectToPlane", "project_to_plane",
        [](mgPlane_c const &plane, mgXform_c const &x, mgPoint_c p, int flag) {
            auto const result = plane.projectToPlane(x, &p, flag);
            return std::pair(result, p);
        },
        "x"_a, "p"_a, "flag"_a);
    cls.method(
        "mgPlane_c::projectToPlaneOnViewLine", "project_to_plane_on_view_line",
        [](mgPlane_c const &plane, mgXform_c const &view, mgPoint_c p, int flag) {
            auto const result = plane.projectToPlaneOnViewLine(view, &p, flag);
            return std::pair(result, p);
        },
        "view"_a, "p"_a, "flag"_a);
}

template <class T>
void textForm(T &cls, std::string const &library) {
    using Value = typename T::type;
    cls.method((library + "::saveStringRep").c_str(), "to_text", [](Value const &value) {
        CString text;
        value.saveStringRep(text);
        return std::wstring(static_cast<wchar_t const *>(text));
    });
    cls.method((library + "::restoreStringRep").c_str(), "set_from_text",
               [](Value &value, std::wstring const &text) {
                   return value.restoreStringRep(CString(text.c_str())) != 0;
               },
               "text"_a);
}

/// A parameter and perhaps an end, brought into a period.
template <class F>
auto inRange(double param, std::optional<double> end, F f) {
    f(&param, end ? &*end : nullptr);
    return std::pair(param, end);
}

} // namespace

void bindMembers(Classes &classes) {
    bindMatrices(classes);
    bindTransform(classes.Transform);
    bindGenTransform(classes.GenTransform);
    bindProjections(classes.Plane);
    textForm(classes.Transform, "mgXform_c");
    textForm(classes.Box, "mgBBox_c");
}

void bindFunctions(py::module_ &m) {
    function(
        m, "mg_PutParamInRange", "put_param_in_range",
        [](double param, double period, std::optional<double> end) {
            return inRange(param, end,
                           [period](double *p, double *e) { mg_PutParamInRange(p, period, e); });
        },
        "param"_a, "period"_a, "end_param"_a = py::none());
    function(
        m, "mg_PutAngleInRange", "put_angle_in_range",
        [](double angle, std::optional<double> end) {
            return inRange(angle, end, &mg_PutAngleInRange);
        },
        "angle"_a, "end_angle"_a = py::none());
    function(
        m, "mg_solveQuadratic", "solve_quadratic",
        [](double a, double b, double c) {
            double roots[2];
            int const count = mg_solveQuadratic(a, b, c, roots);
            return Roots(roots, roots + count);
        },
        "a"_a, "b"_a, "c"_a);
    function(
        m, "mg_solveCubic", "solve_cubic",
        [](double a, double b, double c, double d) {
            double roots[3];
            int const count = mg_solveCubic(a, b, c, d, roots);
            return Roots(roots, roots + count);
        },
        "a"_a, "b"_a, "c"_a, "d"_a);
    function(
        m, "mg_GoodEqu3", "solve_characteristic",
        [](double a, double b, double c) {
            double roots[3];
            auto const status = mg_GoodEqu3(a, b, c, roots);
            return std::pair(status,
                             status == mgGoodEqu3_Failed ? Roots() : Roots(roots, roots + 3));
        },
        "a"_a, "b"_a, "c"_a);
    function(
        m, "mg_FindBBox", "placed_extent",
        [](mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &x, double grow) {
            std::array<double, 4> extent;
            mg_FindBBox(a, b, x, extent.data(), grow);
            return extent;
        },
        "a"_a, "b"_a, "x"_a, "grow"_a);
    function(
        m, "mg_Find3PointArcCenter", "arc_center_of_3_points",
        [](std::array<mgPoint_c, 3> const &points) {
            Output<mgPoint_c> centre;
            Output<mgUnitVector_c> normal;
            bool const isFound =
                mg_Find3PointArcCenter(points.data(), &centre.value, &normal.value) != 0;
            return std::tuple(isFound, centre.get(), normal.get());
        },
        "points"_a);
    function(
        m, "getBaricentricCoordinates", "barycentric_coordinates",
        [](double tol, std::array<double, 2> const &p,
           std::array<std::array<double, 2>, 3> const &tri) {
            double const corners[3][2] = {
                {tri[0][0], tri[0][1]}, {tri[1][0], tri[1][1]}, {tri[2][0], tri[2][1]}};
            Triple weights;
            int degenerate = 0;
            getBaricentricCoordinates(tol, p.data(), corners, weights.data(), degenerate);
            return std::pair(weights, degenerate != 0);
        },
        "tol"_a, "p"_a, "tri"_a);
    function(
        m, "mg_Clip2DArcToBox", "clip_arc_to_box_2d",
        [](mgPoint_c const &centre, double radius, double start, double end,
           mgPoint_c const &corner1, mgPoint_c const &corner2, double tol) {
            double angles[10];
            int const count =
                mg_Clip2DArcToBox(centre, radius, start, end, corner1, corner2, angles, tol);
            std::vector<std::pair<double, double>> arcs;
            for (int i = 0; i < count; ++i) arcs.emplace_back(angles[2 * i], angles[2 * i + 1]);
            return arcs;
        },
        "centre"_a, "radius"_a, "start"_a, "end"_a, "corner1"_a, "corner2"_a, "tol"_a);
    using Pixel = std::pair<int, int>;
    function(
        m, "mg_ZoomBoxToBox", "zoom_box_to_box",
        [](Pixel p1, Pixel p2, mgPoint_c const &a, mgPoint_c const &b, mgXform_c const &view,
           double scale) {
            return new mgXform_c(mg_ZoomBoxToBox(CPoint(p1.first, p1.second),
                                                 CPoint(p2.first, p2.second), a, b, view, scale));
        },
        "p1"_a, "p2"_a, "a"_a, "b"_a, "view"_a, "scale"_a);
}

} // namespace bind
