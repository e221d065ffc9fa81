// SPDX-License-Identifier: MIT
// Hashes of the value classes, for std::unordered_map and std::unordered_set. Opt-in: no other
// header includes this one.

#ifndef VEXMATH_HASH_H
#define VEXMATH_HASH_H

#include <vexmath/matrix4.h>
#include <vexmath/persp_info.h>
#include <vexmath/point.h>
#include <vexmath/point2d.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector4.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>

// std::hash exists for the classes whose == compares exactly: mgMatrix4_c, mgPerspInfo_c and
// mgModelPerspInfo_c. Points, vectors, directions, 3x3 matrices, quaternions and boxes compare
// within a tolerance. Such an == is not transitive: a chain of points, each equal to the next,
// leads from any point to any other. Equal keys must have equal hashes, so all points would need
// the same hash. Therefore these classes have no std::hash, and std::unordered_set<mgPoint_c> does
// not compile. Sets of selection types have none either: their == is not symmetric.
//
// To find points again that are exactly the same, name the hash and the equality:
//
//     std::unordered_set<mgPoint_c, vexmath::ExactHash, vexmath::ExactEqual> seen;
namespace vexmath {

/// True when all numbers of two objects of one class are equal by == of doubles: 0.0 equals -0.0,
/// and NaN equals nothing, not even itself. A key that holds NaN is stored but never found again.
struct ExactEqual {
    template <class T>
    bool operator()(T const &a, T const &b) const;
};

/// The same hash for all objects that `ExactEqual` calls equal. It depends on the standard library:
/// do not store it.
///
/// Both are for points, vectors, directions, `gcMdiPoint_c`, `mg2DPoint_c`, `mgVector4_c`,
/// quaternions, `mgMatrix_c` and the classes with a std::hash. They ignore the identity flag of an
/// `mgMatrix_c` and the direction of an `mgModelPerspInfo_c`.
struct ExactHash {
    template <class T>
    std::size_t operator()(T const &value) const;
};

} // namespace vexmath

template <>
struct std::hash<mgMatrix4_c> : vexmath::ExactHash {};
template <>
struct std::hash<mgPerspInfo_c> : vexmath::ExactHash {};
// Ignores the view direction, as == does.
template <>
struct std::hash<mgModelPerspInfo_c> : vexmath::ExactHash {};

// -------------------------------------------------------------------------------------------------

namespace vexmath::detail {

// The numbers of a key.

template <class T>
auto keyOf(T const &p) -> decltype(std::array{p.x(), p.y(), p.z()}) {
    return {p.x(), p.y(), p.z()};
}
inline std::array<double, 2> keyOf(mg2DPoint_c const &p) { return {p.u(), p.v()}; }
inline std::array<double, 4> keyOf(mgVector4_c const &v) { return {v[0], v[1], v[2], v[3]}; }
inline std::array<double, 9> keyOf(mgMatrix_c const &m) {
    return {m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]};
}
inline std::array<double, 16> keyOf(mgMatrix4_c const &m) {
    std::array<double, 16> key;
    std::copy_n(m.getDataPtr(), key.size(), key.begin());
    return key;
}
inline std::array<double, 6> keyOf(mgPerspInfo_c const &p) {
    mgPoint_c eye;
    p.getEyePoint(&eye);
    return {eye.x(),
            eye.y(),
            eye.z(),
            p.getPlaneDistance(),
            p.getMinFarClipPlaneDistance(),
            p.getCameraFOVPlaneDistance()};
}

} // namespace vexmath::detail

template <class T>
bool vexmath::ExactEqual::operator()(T const &a, T const &b) const {
    return detail::keyOf(a) == detail::keyOf(b);
}

template <class T>
std::size_t vexmath::ExactHash::operator()(T const &value) const {
    std::size_t hash = 0;
    for (double const number : detail::keyOf(value)) // 0.0 and -0.0 have the same hash
        hash ^= std::hash<double>()(number) + 0x9e3779b9U + (hash << 6) + (hash >> 2);
    return hash;
}

#endif
