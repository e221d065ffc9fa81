// SPDX-License-Identifier: MIT
// What makes the classes values in Python: exact equality, a repr that eval reads, copy and pickle.
// All of it follows from the numbers of a value and from its archive record.

#include "classes.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <unordered_map>
#include <vector>

namespace bind {

namespace {

using Numbers = std::vector<double>;

/// An archive over bytes.
struct Stream {
    explicit Stream(std::string const &record = {}) : bytes(record) {}
    std::stringstream bytes;
    su_CArchive ar{bytes};
};

void append(Numbers &numbers, Numbers const &more) {
    numbers.insert(numbers.end(), more.begin(), more.end());
}

// The numbers of each class. A class of doubles alone is read by its bytes, which the ABI fixes.

template <class T>
Numbers numbersOf(T const &value) {
    static_assert(std::is_trivially_copyable_v<T> && sizeof(T) % sizeof(double) == 0);
    Numbers numbers(sizeof(T) / sizeof(double));
    std::memcpy(numbers.data(), &value, sizeof value);
    return numbers;
}

Numbers numbersOf(mgMatrix_c const &m) {
    Numbers numbers(&m[0], &m[0] + 9);
    numbers.push_back(m.isIdentity());
    return numbers;
}

Numbers numbersOf(mgPerspInfo_c const &info) {
    mgPoint_c eye;
    info.getEyePoint(&eye);
    return {eye.x(),
            eye.y(),
            eye.z(),
            info.getPlaneDistance(),
            info.getMinFarClipPlaneDistance(),
            info.getCameraFOVPlaneDistance()};
}

Numbers numbersOf(mgModelPerspInfo_c const &info) {
    Numbers numbers = numbersOf(static_cast<mgPerspInfo_c const &>(info));
    append(numbers, numbersOf(info.getModelViewDir()));
    return numbers;
}

Numbers numbersOf(mgXform_c const &x) {
    Numbers numbers = numbersOf(x.rotation());
    append(numbers, numbersOf(x.translation()));
    append(numbers, {x.scaling(), static_cast<double>(x.isReflection())});
    mgPerspInfo_c info;
    if (x.getPerspectiveInfo(&info) != 0) append(numbers, numbersOf(info));
    return numbers;
}

Numbers numbersOf(mgGenXform_c const &g) {
    Numbers numbers = numbersOf(static_cast<mgXform_c const &>(g)), scales(3);
    append(numbers, numbersOf(g.getBodyXform()));
    g.getScale(scales.data());
    append(numbers, scales);
    return numbers;
}

Numbers numbersOf(mgCone_c const &cone) {
    Numbers numbers = numbersOf(cone.rootPoint());
    append(numbers, numbersOf(cone.axis()));
    append(numbers, {cone.radius(), cone.angle()});
    return numbers;
}

Numbers numbersOf(mgCylinder_c const &cylinder) {
    return numbersOf(static_cast<mgCone_c const &>(cylinder));
}

Numbers numbersOf(mgPrimitiveBodyData_c const &body) {
    Numbers numbers{static_cast<double>(body.kind)};
    append(numbers, numbersOf(body.anchor));
    append(numbers, {body.first, body.second, body.third, static_cast<double>(body.extra)});
    return numbers;
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

Numbers numbersOf(mgArc_c const &arc) {
    ArcFields fields;
    std::memcpy(static_cast<void *>(&fields), &arc, sizeof fields);
    Numbers numbers = numbersOf(fields.normal);
    append(numbers, numbersOf(fields.centre));
    append(numbers, {fields.radius, fields.startAngle, fields.endAngle});
    append(numbers, numbersOf(fields.start));
    append(numbers, numbersOf(fields.end));
    append(numbers, numbersOf(fields.matrix));
    numbers.push_back(arc.is2D() ? 1.0 : 0.0);
    return numbers;
}

// Objects of exactly the given fields.

mgMatrix_c makeMatrix(double const *elements, bool isIdentity) {
    double const zeros[9] = {};
    mgMatrix_c m = isIdentity ? mgMatrix_c() : mgMatrix_c(zeros, 0);
    for (int k = 0; k < 9; ++k) m[k] = elements[k]; // which keeps the flag
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

template <class Info>
Info makePerspective(mgPoint_c const &eye, double distance, double farDistance,
                     double fovDistance) {
    Info info(0.0, 0.0, 0.0, distance);
    info.setEyePoint(&eye);
    info.setMinFarClipPlaneDistance(farDistance);
    info.setCameraFOVPlaneDistance(fovDistance);
    return info;
}

mgArc_c makeArc(mgUnitVector_c const &normal, mgPoint_c const &centre, double radius,
                double startAngle, double endAngle, mgPoint_c const &start, mgPoint_c const &end,
                mgMatrix_c const &matrix, bool is2D) {
    ArcFields const fields{0, centre, start, end, radius, startAngle, endAngle, normal, matrix};
    mgArc_c arc;
    std::memcpy(static_cast<void *>(&arc), &fields, sizeof fields);
    arc.set2D(is2D);
    return arc;
}

// Records for pickle. Without one of the library: the numbers as doubles.

template <class T, class = void>
constexpr bool hasRecord = false;
template <class T>
constexpr bool hasRecord<
    T, std::void_t<decltype(std::declval<T const &>().save(std::declval<su_CArchive &>()))>> = true;

void writeNumbers(su_CArchive &ar, Numbers const &numbers) {
    for (double const number : numbers) ar << number;
}

Numbers readNumbers(su_CArchive &ar, std::size_t count) {
    Numbers numbers(count);
    for (double &number : numbers) ar >> number;
    return numbers;
}

template <class T>
void write(su_CArchive &ar, T const &value) {
    if constexpr (hasRecord<T>)
        value.save(ar);
    else
        writeNumbers(ar, numbersOf(value));
}

template <class T>
T *read(su_CArchive &ar, T const *) {
    if constexpr (hasRecord<T>) {
        auto value = std::make_unique<T>();
        value->restore(ar);
        return value.release();
    } else {
        Numbers const numbers = readNumbers(ar, sizeof(T) / sizeof(double));
        T *value = nullptr;
        if constexpr (std::is_default_constructible_v<T>)
            value = new T;
        else
            value = new T({}, 0.0, {});
        std::memcpy(static_cast<void *>(value), numbers.data(), sizeof *value);
        return value;
    }
}

// These keep every field: flags, what a copy would repair, the perspective.

void write(su_CArchive &ar, mgMatrix_c const &m) { writeNumbers(ar, numbersOf(m)); }
mgMatrix_c *read(su_CArchive &ar, mgMatrix_c const *) {
    Numbers const numbers = readNumbers(ar, 10);
    return new mgMatrix_c(makeMatrix(numbers.data(), numbers[9] != 0.0));
}

void write(su_CArchive &ar, mgXform_c const &x) {
    std::unique_ptr<mgXform_c> const fields(
        makeTransform(x.rotation(), x.translation(), x.scaling(), x.isReflection(), {}));
    ar << *fields << static_cast<unsigned char>(x.hasPerspective());
    mgPerspInfo_c info;
    if (x.getPerspectiveInfo(&info) != 0) info.save(ar);
}
mgXform_c *read(su_CArchive &ar, mgXform_c const *) {
    auto x = std::make_unique<mgXform_c>();
    unsigned char hasPerspective = 0;
    ar >> *x >> hasPerspective;
    mgPerspInfo_c info;
    if (hasPerspective != 0) {
        info.restore(ar);
        x->addPerspectiveInfo(info);
    }
    return x.release();
}

void write(su_CArchive &ar, mgGenXform_c const &g) {
    double scales[3];
    g.getScale(scales);
    write(ar, static_cast<mgXform_c const &>(g));
    write(ar, g.getBodyXform());
    ar << scales[0] << scales[1] << scales[2];
}
mgGenXform_c *read(su_CArchive &ar, mgGenXform_c const *) {
    mgXform_c const *const any = nullptr;
    std::unique_ptr<mgXform_c> const placing(read(ar, any)), body(read(ar, any));
    double scales[3];
    ar >> scales[0] >> scales[1] >> scales[2];
    auto g = std::make_unique<mgGenXform_c>();
    g->set(body.get(), scales);
    g->SetHelper(placing->GetHelper());
    g->iCopyPerspectiveInfo(*placing);
    return g.release();
}

mgArc_c *read(su_CArchive &ar, mgArc_c const *) {
    Numbers const n = readNumbers(ar, 26);
    return new mgArc_c(makeArc(makeDirection(n[0], n[1], n[2], false), &n[3], n[6], n[7], n[8],
                               &n[9], &n[12], makeMatrix(&n[15], n[24] != 0.0), n[25] != 0.0));
}

template <class T>
T *copyOf(T const &value) {
    Stream stream;
    write(stream.ar, value);
    return read(stream.ar, &value);
}

// The repr. A layout lists the constructor's arguments, each "name=kind" or "kind": s a number, i
// an integer, b a truth value, p a point, v a vector, d a direction, m a matrix.

class Layout {
public:
    explicit Layout(Numbers const &numbers) : numbers_(numbers) {}

    std::string show(std::string const &layout) {
        std::istringstream items(layout);
        std::string text, item;
        while (items >> item) {
            auto const end = item.find('=') + 1; // 0 without a name
            text += (text.empty() ? "" : ", ") + item.substr(0, end) + one(item[end]);
        }
        return text;
    }

private:
    std::string one(char kind) {
        switch (kind) {
        case 'i':
            return std::to_string(static_cast<int>(next()));
        case 'b':
            return next() != 0.0 ? "True" : "False";
        case 'p':
            return "Point(" + show("s s s") + ")";
        case 'v':
            return "Vector(" + show("s s s") + ")";
        case 'd':
            return "Direction(" + show("s s s") + ", False)";
        case 'm': {
            std::string const elements = show("s s s s s s s s s");
            return "Matrix([" + elements + "], False, " + show("b") + ")";
        }
        default:
            return number(next());
        }
    }
    double next() { return numbers_.at(place_++); }
    static std::string number(double value) {
        std::string const digits = py::repr(py::float_(value));
        return std::isfinite(value) ? digits : "float('" + digits + "')";
    }

    Numbers const &numbers_;
    std::size_t place_ = 0;
};

std::string reprOf(mgXform_c const &x) {
    Numbers const numbers = numbersOf(x);
    bool const hasPerspective = x.hasPerspective() != 0;
    return "Transform(" + Layout(numbers).show("m v s i")
           + (hasPerspective
                  ? ", Perspective("
                        + Layout(Numbers(numbers.begin() + 15, numbers.end())).show("p s s s") + ")"
                  : "")
           + ")";
}

template <class T, class... Base>
void value(Class<T, Base...> &cls, char const *layout) {
    std::string const name = py::str(cls.attr("__name__"));
    cls.def(
        "__eq__",
        [](py::object const &self, py::object const &other) {
            bool const isExactly = py::type::of(self).is(py::type::of<T>())
                                   && py::type::of(other).is(py::type::of<T>());
            return isExactly
                   && numbersOf(self.cast<T const &>()) == numbersOf(other.cast<T const &>());
        },
        "other"_a);
    if (*layout != '\0') // else the class shows itself in its own way
        cls.def("__repr__", [name, layout](T const &self) {
            Numbers const numbers = numbersOf(self);
            return name + "(" + Layout(numbers).show(layout) + ")";
        });
    cls.def("__copy__", &copyOf<T>);
    cls.def(
        "__deepcopy__", [](T const &self, py::object const &) { return copyOf(self); }, "memo"_a);
    cls.def(py::pickle(
        [](T const &self) {
            Stream stream;
            write(stream.ar, self);
            return py::bytes(stream.bytes.str());
        },
        [](py::bytes const &record) {
            Stream stream(record);
            return read(stream.ar, static_cast<T const *>(nullptr));
        }));
    // Protocols 0 and 1 would make an object without its constructor.
    cls.def(
        "__reduce_ex__",
        [](py::object const &self, int protocol) -> py::object {
            return py::module_::import("builtins")
                .attr("object")
                .attr("__reduce_ex__")(self, std::max(protocol, 2));
        },
        "protocol"_a);
}

/// `save` and `restore` of a class that has a record of the library.
template <class T, class... Base>
void archived(Class<T, Base...> &cls, std::string const &library) {
    cls.method((library + "::save").c_str(), "save", [](T const &value) {
        Stream stream;
        if constexpr (hasRecord<T>)
            value.save(stream.ar);
        else
            std::unique_ptr<T>(copyOf(value))->save(stream.ar); // it repairs what it saves
        return py::bytes(stream.bytes.str());
    });
    cls.method((library + "::restore").c_str(), "restore",
               [](T &value, py::bytes const &record) {
                   Stream stream(record);
                   value.restore(stream.ar);
               },
               "record"_a);
}

template <class T, class... Base>
void restoredAsIs(Class<T, Base...> &cls, std::string const &library) {
    cls.method((library + "::restoreAsIs").c_str(), "restore_as_is",
               [](T &value, py::bytes const &record) {
                   Stream stream(record);
                   value.restoreAsIs(stream.ar);
               },
               "record"_a);
}

/// Constructors of exactly the given fields, which the reprs name.
void bindConstructors(Classes &classes) {
    using Triple = std::tuple<double, double, double>;
    classes.Point.def(
        py::init([](Triple const &xyz) { return std::make_from_tuple<mgPoint_c>(xyz); }), "xyz"_a);
    classes.Vector.def(
        py::init([](Triple const &xyz) { return std::make_from_tuple<mgVector_c>(xyz); }), "xyz"_a);
    classes.Direction.def(py::init(&makeDirection), "x"_a, "y"_a, "z"_a, "normalise"_a);
    classes.Direction.def(py::init([](mgVector_c const &v) { return mgUnitVector_c(v, 0); }),
                          "v"_a);
    classes.Matrix.def(py::init([](std::array<double, 9> const &elements, bool orthonormalise,
                                   std::optional<bool> identity) {
                           double nine[9];
                           std::copy(elements.begin(), elements.end(), nine);
                           mgMatrix_c const made(nine, orthonormalise ? 1 : 0);
                           return identity ? makeMatrix(&made[0], *identity) : made;
                       }),
                       "elements"_a, "orthonormalise"_a = false, "identity"_a = py::none());
    classes.Matrix4.def(py::init([](std::array<double, 16> const &elements) {
                            mgMatrix4_c m;
                            std::copy(elements.begin(), elements.end(), m.getDataPtr());
                            return m;
                        }),
                        "elements"_a);
    classes.Box.def(py::init([](mgPoint_c const &centre, mgPoint_c const &high,
                                mgPoint_c const &low, double radius) {
                        mgBBox_c box;
                        box.setSphereOnly(centre, radius);
                        box.setCornersOnly(low, high);
                        return box;
                    }),
                    "sph_center"_a, "high"_a, "low"_a, "sph_radius"_a);
    classes.Transform.def(py::init(&makeTransform), "rotation"_a, "translation"_a,
                          "scaling"_a = 1.0, "reflection"_a = 0, "perspective"_a = py::none());
    classes.Perspective.def(py::init(&makePerspective<mgPerspInfo_c>), "eye_point"_a,
                            "plane_distance"_a, "min_far_clip_plane_distance"_a = 0.0,
                            "camera_fov_plane_distance"_a = -1.0);
    classes.ModelPerspective.def(py::init([](mgPoint_c const &eye, double d, double farDistance,
                                             double fovDistance, mgUnitVector_c const &dir) {
                                     auto info = makePerspective<mgModelPerspInfo_c>(
                                         eye, d, farDistance, fovDistance);
                                     info.setModelViewDir(dir);
                                     return info;
                                 }),
                                 "eye_point"_a, "plane_distance"_a, "min_far_clip_plane_distance"_a,
                                 "camera_fov_plane_distance"_a, "model_view_dir"_a);
    classes.Arc.def(py::init(&makeArc), "normal"_a, "center"_a, "radius"_a, "start_angle"_a,
                    "end_angle"_a, "start"_a, "end"_a, "matrix"_a, "is_2d"_a);
    classes.Cylinder.def(py::init([](mgPoint_c const &root, mgUnitVector_c const &axis,
                                     double radius, double angle) {
                             mgCylinder_c cylinder(root, axis, radius);
                             cylinder.setAngle(angle);
                             return cylinder;
                         }),
                         "root"_a, "axis"_a, "radius"_a, "angle"_a);
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
    bindConstructors(classes);
    value(classes.Vector, "s s s");
    value(classes.Point, "s s s");
    value(classes.Direction, "");
    classes.Direction.def("__repr__",
                          [](mgUnitVector_c const &u) { return Layout(numbersOf(u)).show("d"); });
    value(classes.Point2D, "s s");
    value(classes.Vector4, "s s s s");
    value(classes.Quaternion, "s s s s");
    value(classes.Matrix, "");
    classes.Matrix.def("__repr__",
                       [](mgMatrix_c const &m) { return Layout(numbersOf(m)).show("m"); });
    value(classes.Matrix4, "");
    classes.Matrix4.def("__repr__", [](mgMatrix4_c const &m) {
        return "Matrix4([" + Layout(numbersOf(m)).show("s s s s s s s s s s s s s s s s") + "])";
    });
    value(classes.Transform, "");
    classes.Transform.def("__repr__", &reprOf);
    value(classes.GenTransform, "");
    classes.GenTransform.def("__repr__", [](mgGenXform_c const &g) {
        Numbers scales(3);
        g.getScale(scales.data());
        return "GenTransform(" + reprOf(g) + ", " + reprOf(g.getBodyXform()) + ", ("
               + Layout(scales).show("s s s") + "))";
    });
    value(classes.Perspective, "p s s s");
    value(classes.ModelPerspective, "p s s s d");
    value(classes.Box, "sph_center=p high=p low=p sph_radius=s");
    value(classes.Parallelogram, "p d d s s");
    value(classes.GeneralBox, "p d d s s s");
    value(classes.Line, "p d");
    value(classes.Plane, "p d");
    value(classes.Circle, "p s d");
    value(classes.Arc, "d p s s s p p m b");
    value(classes.Cone, "p d s s");
    value(classes.Cylinder, "p d s s");
    value(classes.PrimitiveBody, "i p s s s i");
    value(classes.Rect, "s s s s");
    archived(classes.Point, "mgPoint_c");
    archived(classes.Matrix, "mgMatrix_c");
    restoredAsIs(classes.Matrix, "mgMatrix_c");
    archived(classes.Transform, "mgXform_c");
    restoredAsIs(classes.Transform, "mgXform_c");
    archived(classes.Box, "mgBBox_c");
    archived(classes.Line, "mgLine_c");
    archived(classes.Plane, "mgPlane_c");
    archived(classes.Cone, "mgCone_c");
    archived(classes.Perspective, "mgPerspInfo_c");
    archived(classes.ModelPerspective, "mgModelPerspInfo_c");
    archived(classes.PrimitiveBody, "mgPrimitiveBodyData_c");
}

} // namespace bind
