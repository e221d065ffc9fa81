// SPDX-License-Identifier: MIT
// What makes the classes values in Python: constructors of exactly the given fields, their
// arguments for an object that is there, equality, and archive records. __init__.py adds repr, copy
// and pickle.

#include "classes.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <unordered_map>

namespace bind {

std::unique_ptr<mgXform_c> exactCopy(mgXform_c const &x) {
    auto copy = std::make_unique<mgXform_c>();
    copy->SetHelper(x.GetHelper());
    copy->iCopyPerspectiveInfo(x);
    return copy;
}

namespace {

// Objects of exactly the given fields.

mgMatrix_c makeMatrix(std::array<double, 9> const &elements, bool orthonormalise,
                      std::optional<bool> isIdentity) {
    double nine[9] = {};
    mgMatrix_c const flagged, unflagged(nine, 0);
    std::copy(elements.begin(), elements.end(), nine);
    mgMatrix_c const made(nine, orthonormalise ? 1 : 0);
    if (!isIdentity) return made;
    mgMatrix_c m = *isIdentity ? flagged : unflagged;
    for (int k = 0; k < 9; ++k) m[k] = made[k]; // which keeps the flag
    return m;
}

mgUnitVector_c makeDirection(double x, double y, double z, bool normalise) {
    if (normalise) return {x, y, z};
    mgUnitVector_c u;
    u.set(x, y, z);
    return u;
}

mgXform_c *makeTransform(mgMatrix_c const &rotation, mgVector_c const &translation, double scaling,
                         int reflection, std::optional<mgPerspInfo_c> const &perspective) {
    auto x = std::make_unique<mgXform_c>();
    x->SetHelper({rotation, translation, scaling, reflection, nullptr});
    if (perspective) x->addPerspectiveInfo(*perspective);
    return x.release();
}

mgGenXform_c *makeGenTransform(mgXform_c const &placing, mgXform_c const &body,
                               std::array<double, 3> const &scales) {
    auto g = std::make_unique<mgGenXform_c>();
    if (g->set(&body, scales.data()) == 0)
        throw py::value_error("a factor is not in [0.001, 1000]");
    g->SetHelper(placing.GetHelper());
    g->iCopyPerspectiveInfo(placing);
    return g.release();
}

template <class Info>
Info makePerspective(mgPoint_c const &eye, double distance, double farDistance,
                     double fovDistance) {
    Info info(0.0, 0.0, 0.0, distance);
    info.setEyePoint(&eye);
    info.setMinFarClipPlaneDistance(farDistance);
    info.setCameraFOVPlaneDistance(fovDistance);
    return info;
}

/// An arc as it lies in memory: its points have no setters.
struct ArcFields {
    std::uint64_t is2D;
    mgPoint_c centre, start, end;
    double radius, startAngle, endAngle;
    mgUnitVector_c normal;
    mgMatrix_c matrix;
};
static_assert(sizeof(ArcFields) == sizeof(mgArc_c) && std::is_trivially_copyable_v<mgArc_c>);

mgArc_c makeArc(mgUnitVector_c const &normal, mgPoint_c const &centre, double radius,
                double startAngle, double endAngle, mgPoint_c const &start, mgPoint_c const &end,
                mgMatrix_c const &matrix, bool is2D) {
    ArcFields const fields{0, centre, start, end, radius, startAngle, endAngle, normal, matrix};
    mgArc_c arc;
    std::memcpy(static_cast<void *>(&arc), &fields, sizeof fields);
    arc.set2D(is2D);
    return arc;
}

/// Beside the constructors of the headers.
void bindConstructors(Classes &c) {
    using Triple = std::tuple<double, double, double>;
    c.Point.def(py::init([](Triple const &xyz) { return std::make_from_tuple<mgPoint_c>(xyz); }),
                "xyz"_a);
    c.Vector.def(py::init([](Triple const &xyz) { return std::make_from_tuple<mgVector_c>(xyz); }),
                 "xyz"_a);
    c.Direction.def(py::init(&makeDirection), "x"_a, "y"_a, "z"_a, "normalise"_a);
    c.Direction.def(py::init([](mgVector_c const &v) { return mgUnitVector_c(v, 0); }), "v"_a);
    c.Matrix.def(py::init(&makeMatrix), "elements"_a, "orthonormalise"_a = false,
                 "identity"_a = py::none());
    c.Matrix4.def(py::init([](std::array<double, 16> const &elements) {
                      mgMatrix4_c m;
                      std::copy(elements.begin(), elements.end(), m.getDataPtr());
                      return m;
                  }),
                  "elements"_a);
    c.Box.def(py::init([](mgPoint_c const &centre, mgPoint_c const &high, mgPoint_c const &low,
                          double radius) {
                  mgBBox_c box;
                  box.setSphereOnly(centre, radius);
                  box.setCornersOnly(low, high);
                  return box;
              }),
              "sph_center"_a, "high"_a, "low"_a, "sph_radius"_a);
    c.Transform.def(py::init(&makeTransform), "rotation"_a, "translation"_a, "scaling"_a = 1.0,
                    "reflection"_a = 0, "perspective"_a = py::none());
    c.GenTransform.def(py::init(&makeGenTransform), "placing"_a, "body"_a, "scales"_a);
    c.Perspective.def(py::init(&makePerspective<mgPerspInfo_c>), "eye_point"_a, "plane_distance"_a,
                      "min_far_clip_plane_distance"_a = 0.0, "camera_fov_plane_distance"_a = -1.0);
    c.ModelPerspective.def(py::init([](mgPoint_c const &eye, double d, double farDistance,
                                       double fovDistance, mgUnitVector_c const &dir) {
                               auto info = makePerspective<mgModelPerspInfo_c>(eye, d, farDistance,
                                                                               fovDistance);
                               info.setModelViewDir(dir);
                               return info;
                           }),
                           "eye_point"_a, "plane_distance"_a, "min_far_clip_plane_distance"_a,
                           "camera_fov_plane_distance"_a, "model_view_dir"_a);
    c.Arc.def(py::init(&makeArc), "normal"_a, "center"_a, "radius"_a, "start_angle"_a,
              "end_angle"_a, "start"_a, "end"_a, "matrix"_a, "is_2d"_a);
    c.Cylinder.def(py::init([](mgPoint_c const &root, mgUnitVector_c const &axis, double radius,
                               double angle) {
                       mgCylinder_c cylinder(root, axis, radius);
                       cylinder.setAngle(angle);
                       return cylinder;
                   }),
                   "root"_a, "axis"_a, "radius"_a, "angle"_a);
}

// The arguments of the constructor that makes an equal object.

template <std::size_t count>
py::list numbers(double const *first) {
    std::array<double, count> all;
    std::copy_n(first, count, all.begin());
    return py::cast(all);
}

py::tuple arguments(mgVector_c const &v) { return py::make_tuple(v.x(), v.y(), v.z()); }
py::tuple arguments(mgPoint_c const &p) { return py::make_tuple(p.x(), p.y(), p.z()); }
py::tuple arguments(mgUnitVector_c const &u) { return py::make_tuple(u.x(), u.y(), u.z(), false); }
py::tuple arguments(mg2DPoint_c const &p) { return py::make_tuple(p.x(), p.y()); }
py::tuple arguments(mgVector4_c const &v) { return py::make_tuple(v[0], v[1], v[2], v[3]); }
py::tuple arguments(mgMatrix_c const &m) {
    return py::make_tuple(numbers<9>(&m[0]), false, m.isIdentity() != 0);
}
py::tuple arguments(mgMatrix4_c const &m) { return py::make_tuple(numbers<16>(m.getDataPtr())); }
py::tuple arguments(mgPerspInfo_c const &info) {
    mgPoint_c eye;
    info.getEyePoint(&eye);
    return py::make_tuple(eye, info.getPlaneDistance(), info.getMinFarClipPlaneDistance(),
                          info.getCameraFOVPlaneDistance());
}
py::tuple arguments(mgModelPerspInfo_c const &info) {
    return arguments(static_cast<mgPerspInfo_c const &>(info))
           + py::make_tuple(info.getModelViewDir());
}
py::tuple arguments(mgXform_c const &x) {
    py::tuple const fields =
        py::make_tuple(x.rotation(), x.translation(), x.scaling(), x.isReflection());
    mgPerspInfo_c info;
    return x.getPerspectiveInfo(&info) != 0 ? py::tuple(fields + py::make_tuple(info)) : fields;
}
py::tuple arguments(mgGenXform_c const &g) {
    double scales[3];
    g.getScale(scales);
    return py::make_tuple(exactCopy(g), exactCopy(g.getBodyXform()), numbers<3>(scales));
}
/// A class of doubles as it lies in memory, which the ABI fixes: not all its fields have accessors.
template <class T>
auto memoryOf(T const &value) {
    std::array<double, sizeof(T) / sizeof(double)> doubles;
    static_assert(std::is_trivially_copyable_v<T> && sizeof doubles == sizeof value);
    std::memcpy(doubles.data(), &value, sizeof value);
    return doubles;
}
py::tuple arguments(mgBBox_c const &box) {
    auto const n = memoryOf(box);
    return py::make_tuple(mgPoint_c(&n[0]), mgPoint_c(&n[3]), mgPoint_c(&n[6]), n[9]);
}
/// Of a corner, two directions and lengths.
template <class T>
py::tuple cornerArguments(T const &value) {
    constexpr std::size_t kFirstLength = 9;
    auto const n = memoryOf(value);
    py::tuple fields =
        py::make_tuple(mgPoint_c(n[0], n[1], n[2]), makeDirection(n[3], n[4], n[5], false),
                       makeDirection(n[6], n[7], n[8], false));
    for (auto k = kFirstLength; k < n.size(); ++k) fields = fields + py::make_tuple(n[k]);
    return fields;
}
py::tuple arguments(mgParallelogram_c const &area) { return cornerArguments(area); }
py::tuple arguments(mgGeneralBox_c const &box) { return cornerArguments(box); }
py::tuple arguments(mgLine_c const &l) { return py::make_tuple(l.rootPoint(), l.direction()); }
py::tuple arguments(mgPlane_c const &p) { return py::make_tuple(p.rootPoint(), p.normal()); }
py::tuple arguments(mgCircle_c const &c) {
    return py::make_tuple(c.center(), c.radius(), c.normal());
}
py::tuple arguments(mgArc_c const &arc) {
    ArcFields a;
    std::memcpy(static_cast<void *>(&a), &arc, sizeof a);
    return py::make_tuple(a.normal, a.centre, a.radius, a.startAngle, a.endAngle, a.start, a.end,
                          a.matrix, arc.is2D());
}
py::tuple arguments(mgCone_c const &c) {
    return py::make_tuple(c.rootPoint(), c.axis(), c.radius(), c.angle());
}
py::tuple arguments(mgPrimitiveBodyData_c const &b) {
    return py::make_tuple(b.kind, b.anchor, b.first, b.second, b.third, b.extra);
}
py::tuple arguments(mgRect const &r) { return py::make_tuple(r.left, r.top, r.right, r.bottom); }

template <class T, class... Base>
void value(Class<T, Base...> &cls) {
    cls.def("_arguments", [](T const &value) { return arguments(value); });
    cls.def(
        "__eq__",
        [](py::object const &self, py::object const &other) {
            return py::type::of(self).is(py::type::of(other))
                   && arguments(self.cast<T const &>()).equal(arguments(other.cast<T const &>()));
        },
        "other"_a);
}

/// The record that `save` writes.
template <class Save>
py::bytes recordOf(Save save) {
    std::stringstream bytes;
    su_CArchive ar(bytes);
    save(ar);
    return bytes.str();
}

template <class T, class... Base, class Restore>
void restoring(Class<T, Base...> &cls, char const *member, char const *python, Restore restore) {
    cls.method(
        member, python,
        [restore](T &value, py::bytes const &record) {
            std::stringstream bytes{std::string(record)};
            su_CArchive ar(bytes);
            restore(value, ar);
        },
        "record"_a);
}

/// `save` and `restore` of a class that has a record of the library.
template <class T, class... Base>
void archived(Class<T, Base...> &cls) {
    cls.method("save", "save", [](T const &value) {
        return recordOf([&](su_CArchive &ar) {
            if constexpr (std::is_same_v<T, mgXform_c>)
                exactCopy(value)->save(ar); // it repairs what it saves
            else
                value.save(ar);
        });
    });
    restoring(cls, "restore", "restore", [](T &value, su_CArchive &ar) { value.restore(ar); });
    if constexpr (std::is_same_v<T, mgXform_c> || std::is_same_v<T, mgMatrix_c>)
        restoring(cls, "restoreAsIs", "restore_as_is",
                  [](T &value, su_CArchive &ar) { value.restoreAsIs(ar); });
}

} // namespace

std::string doc(std::string const &name) {
    static std::unordered_map<std::string, char const *> const table = {
#include "docs.inc"
    };
    auto const found = table.find(name);
    if (found == table.end()) throw std::runtime_error("the headers have no comment for " + name);
    return found->second;
}

void bindValues(Classes &classes) {
    auto &c = classes;
    bindConstructors(c);
    std::apply([](auto &...cls) { (value(cls), ...); },
               std::tie(c.Vector, c.Point, c.Direction, c.Point2D, c.Vector4, c.Quaternion,
                        c.Matrix, c.Matrix4, c.Transform, c.GenTransform, c.Perspective,
                        c.ModelPerspective, c.Box, c.Parallelogram, c.GeneralBox, c.Line, c.Plane,
                        c.Circle, c.Arc, c.Cone, c.Cylinder, c.PrimitiveBody, c.Rect));
    std::apply([](auto &...cls) { (archived(cls), ...); },
               std::tie(c.Point, c.Matrix, c.Transform, c.Box, c.Line, c.Plane, c.Cone,
                        c.Perspective, c.ModelPerspective, c.PrimitiveBody));
}

} // namespace bind
