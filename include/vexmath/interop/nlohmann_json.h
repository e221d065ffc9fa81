// SPDX-License-Identifier: MIT
// The value classes as JSON, by nlohmann::json: `json j = point;` and `j.get<mgPoint_c>()`.

#ifndef VEXMATH_INTEROP_NLOHMANN_JSON_H
#define VEXMATH_INTEROP_NLOHMANN_JSON_H

#include <vexmath/bbox.h>
#include <vexmath/interop/numbers.h>
#include <vexmath/persp_info.h>
#include <vexmath/su_dynamic_array.h>

#include <nlohmann/json.hpp>

#include <array>
#include <new>
#include <type_traits>

// What is written and read back is the same to the bit, unless said otherwise. Reading another form
// throws an exception of nlohmann::json, such as type_error or out_of_range, and leaves the object
// as it was. NaN and infinity become null in a text; a null instead of a number is refused.
//
// The functions are in the global namespace, where nlohmann::json finds them: the classes are
// there.

namespace vexmath::detail {

template <class T>
using IfPlainTriple = std::enable_if_t<kIsOneOf<T, mgPoint_c, mgVector_c, gcMdiPoint_c>, int>;

template <class Json>
mgVector_c vectorFrom(Json const &j) {
    auto const n = j.template get<std::array<double, 3>>();
    return {n[0], n[1], n[2]};
}

} // namespace vexmath::detail

/// A point, a vector or a `gcMdiPoint_c`: [x, y, z]. Numbers after the third are ignored.
template <class Json, class T, vexmath::detail::IfPlainTriple<T> = 0>
void to_json(Json &j, T const &p) {
    j = Json::array({p.x(), p.y(), p.z()});
}
template <class Json, class T, vexmath::detail::IfPlainTriple<T> = 0>
void from_json(Json const &j, T &p) {
    mgVector_c const v = vexmath::detail::vectorFrom(j);
    p = T(v.x(), v.y(), v.z());
}

/// A direction: [x, y, z], or null for exactly (0, 0, 0), "no direction". Numbers that are not of
/// unit length are normalised on reading, as by `vexmath::directionOf`.
template <class Json>
void to_json(Json &j, mgUnitVector_c const &u) {
    if (u.null())
        j = nullptr;
    else
        j = Json::array({u.x(), u.y(), u.z()});
}
template <class Json>
void from_json(Json const &j, mgUnitVector_c &u) {
    mgVector_c const v = j.is_null() ? mgVector_c() : vexmath::detail::vectorFrom(j);
    u = vexmath::directionOf(v.x(), v.y(), v.z());
}

/// Three rows of three elements. The identity flag is not written, and computed on reading.
template <class Json>
void to_json(Json &j, mgMatrix_c const &m) {
    j = Json::array();
    for (int i = 0; i < 3; ++i) j.push_back(Json::array({m(i, 0), m(i, 1), m(i, 2)}));
}
template <class Json>
void from_json(Json const &j, mgMatrix_c &m) {
    auto const n = j.template get<std::array<std::array<double, 3>, 3>>();
    m = vexmath::matrixOf(n[0].data());
}

/// {"eye": [x, y, z], "plane": number, "far": number, "camera": number}: the eye point and the
/// distances of the plane, the far clip plane and the camera's field-of-view plane. The direction
/// of an `mgModelPerspInfo_c` is neither written nor read.
template <class Json>
void to_json(Json &j, mgPerspInfo_c const &p) {
    mgPoint_c eye;
    p.getEyePoint(&eye);
    j = {{"eye", eye},
         {"plane", p.getPlaneDistance()},
         {"far", p.getMinFarClipPlaneDistance()},
         {"camera", p.getCameraFOVPlaneDistance()}};
}
template <class Json>
void from_json(Json const &j, mgPerspInfo_c &p) {
    auto const eye = j.at("eye").template get<mgPoint_c>();
    mgPerspInfo_c info(eye.x(), eye.y(), eye.z(), j.at("plane").template get<double>());
    info.setMinFarClipPlaneDistance(j.at("far").template get<double>());
    info.setCameraFOVPlaneDistance(j.at("camera").template get<double>());
    p = info;
}

/// {"rotation": rows, "scale": number, "translation": [x, y, z], "reflection": flag}, and
/// "perspective" when there is a record. The fields are written and read as they are, without the
/// copy rules. Of an `mgGenXform_c` only the placing part is written and read. When memory for the
/// record is exhausted, reading throws `std::bad_alloc` after the other fields.
template <class Json>
void to_json(Json &j, mgXform_c const &x) {
    j = {{"rotation", x.rotation()},
         {"scale", x.scaling()},
         {"translation", x.translation()},
         {"reflection", x.isReflection()}};
    mgPerspInfo_c perspective;
    if (x.getPerspectiveInfo(&perspective)) j["perspective"] = perspective;
}
template <class Json>
void from_json(Json const &j, mgXform_c &x) {
    mgXform_64BitHelper_c fields;
    j.at("rotation").get_to(fields.rotation);
    j.at("scale").get_to(fields.scale);
    j.at("translation").get_to(fields.translation);
    j.at("reflection").get_to(fields.reflection);
    mgPerspInfo_c perspective;
    bool const has = j.contains("perspective");
    if (has) j["perspective"].get_to(perspective);
    x.SetHelper(fields);
    if (has) x.addPerspectiveInfo(perspective);
}

/// {"low": [x, y, z], "high": [x, y, z], "centre": [x, y, z], "radius": number} with corners and
/// sphere as they are; null for an unset box, which is read as a default box.
template <class Json>
void to_json(Json &j, mgBBox_c const &b) {
    if (b.isSet())
        j = {{"low", b.low()},
             {"high", b.high()},
             {"centre", b.sphCenter()},
             {"radius", b.sphRadius()}};
    else
        j = nullptr;
}
template <class Json>
void from_json(Json const &j, mgBBox_c &b) {
    mgBBox_c read;
    if (!j.is_null()) {
        read.setCornersOnly(j.at("low").template get<mgPoint_c>(),
                            j.at("high").template get<mgPoint_c>());
        read.setSphereOnly(j.at("centre").template get<mgPoint_c>(),
                           j.at("radius").template get<double>());
    }
    b = read;
}

/// A list is an array of its elements; nlohmann::json writes it as any range. Reading replaces the
/// elements. When memory is exhausted it throws `std::bad_alloc`; the list is then empty or as it
/// was.
template <class Json, class T>
void from_json(Json const &j, suDynamicArray<T> &list) {
    suDynamicArray<T> read;
    for (auto const &element : j.template get_ref<typename Json::array_t const &>())
        if (read.Add(element.template get<T>()) < 0) throw std::bad_alloc();
    list = read;
    if (list.Count() != read.Count()) throw std::bad_alloc();
}

#endif
