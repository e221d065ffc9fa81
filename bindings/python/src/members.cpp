// SPDX-License-Identifier: MIT
// Members and functions that no declaration tells how to bind: arrays of a fixed size, sequences.

#include "classes.h"

#include <vector>

namespace bind {

namespace {

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

void bindTransforms(Classes &classes) {
    using Info = std::optional<mgPerspInfo_c>;
    classes.Transform.property(
        "getPerspectiveInfo", "perspective",
        [](mgXform_c const &x) {
            mgPerspInfo_c info;
            return x.getPerspectiveInfo(&info) != 0 ? Info(info) : Info();
        },
        [](mgXform_c &x, Info const &info) {
            if (info)
                x.addPerspectiveInfo(*info);
            else
                x.deletePerspectiveInfo();
        });
    classes.GenTransform.method(
        "set", "set",
        [](mgGenXform_c &g, mgXform_c const &body, std::array<double, 3> const &scales) {
            return g.set(&body, scales.data()) != 0;
        },
        "body"_a, "scales"_a);
}

template <class T, class... Base>
void textForm(Class<T, Base...> &cls) {
    cls.method("saveStringRep", "to_text", [](T const &value) {
        CString text;
        value.saveStringRep(text);
        return std::wstring(static_cast<wchar_t const *>(text));
    });
    cls.method(
        "restoreStringRep", "set_from_text",
        [](T &value, std::wstring const &text) {
            return value.restoreStringRep(CString(text.c_str())) != 0;
        },
        "text"_a);
}

} // namespace

void bindMembers(Classes &classes) {
    sequence<3>(classes.Vector);
    sequence<3>(classes.Point);
    sequence<2>(classes.Point2D);
    sequence<4>(classes.Vector4);
    elements<3>(classes.Matrix);
    elements<4>(classes.Matrix4);
    bindTransforms(classes);
    textForm(classes.Transform);
    textForm(classes.Box);
}

void bindFunctions(py::module_ &m) {
    function(
        m, "getBaricentricCoordinates", "barycentric_coordinates",
        [](double tol, std::array<double, 2> const &p,
           std::array<std::array<double, 2>, 3> const &tri) {
            double const corners[3][2] = {
                {tri[0][0], tri[0][1]}, {tri[1][0], tri[1][1]}, {tri[2][0], tri[2][1]}};
            std::array<double, 3> weights;
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
