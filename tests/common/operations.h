// SPDX-License-Identifier: MIT
// Every exported operation, called with the same objects: for tests of what a process may be like,
// such as many threads, small stacks, other locales and exhausted memory.

#ifndef VEXMATH_TESTS_COMMON_OPERATIONS_H
#define VEXMATH_TESTS_COMMON_OPERATIONS_H

#include <vexmath/vexmath.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace common {

/// FNV-1a over the bits of results. Every NaN counts as the same.
class Bits {
public:
    template <class... T>
    void operator()(T const &...values) {
        (take(values), ...);
    }
    template <class T>
    void all(T const *values, int count) {
        for (int k = 0; k < count; ++k) take(values[k]);
    }
    std::uint64_t value() const { return hash_; }

private:
    template <class N, std::enable_if_t<std::is_arithmetic_v<N> || std::is_enum_v<N>, int> = 0>
    void take(N number) {
        auto const value = static_cast<double>(number);
        std::uint64_t word = 0x7FF8000000000000u;
        if (!std::isnan(value)) std::memcpy(&word, &value, sizeof word);
        for (int shift = 0; shift < 64; shift += 8)
            hash_ = (hash_ ^ ((word >> shift) & 0xFF)) * 0x100000001B3u;
    }
    void take(mgVector_c const &v) { (*this)(v.x(), v.y(), v.z()); }
    void take(mgPoint_c const &p) { take(mgVector_c(p)); }
    void take(mg2DPoint_c const &p) { (*this)(p.u(), p.v()); }
    void take(mgVector4_c const &v) { all(&v[0], 4); }
    void take(mgMatrix_c const &m) { all(&m[0], 9), take(m.isIdentity()); }
    void take(mgMatrix4_c const &m) { all(m.getDataPtr(), 16); }
    void take(mgXform_c const &x) {
        (*this)(x.rotation(), x.translation(), x.scaling(), x.isReflection(), x.hasPerspective());
    }
    void take(mgXform_64BitHelper_c const &x) { (*this)(x.rotation, x.translation, x.scale); }
    void take(mgPerspInfo_c const &info) { (*this)(info.getNearClipZ(), info.getPlaneDistance()); }
    void take(mgBBox_c const &b) { (*this)(b.low(), b.high(), b.sphCenter(), b.sphRadius()); }
    void take(mgParallelogram_c const &p) { take(p.isValid()); }
    void take(mgLine_c const &line) { (*this)(line.rootPoint(), line.direction()); }
    void take(mgCone_c const &cone) { (*this)(cone.rootPoint(), cone.axis(), cone.radius()); }
    void take(mgIndexPair_c const &pair) { (*this)(pair.first, pair.second); }
    /// The decimal point of a text is that of the locale.
    void take(CString const &text) {
        for (wchar_t const *c = text; *c != L'\0'; ++c) take(*c == L',' ? L'.' : *c);
    }
    template <class T>
    void take(suDynamicArray<T> const &list) {
        all(list.Data(), list.Count());
    }

    std::uint64_t hash_ = 0xCBF29CE484222325u;
};

/// What all operations read. None of them changes it.
class Objects {
public:
    static constexpr int kCount = 24;    ///< of each type
    static constexpr int kBoxes = 400;   ///< and placements below
    static constexpr int kPoints = 2200; ///< below: sorted otherwise than a few

    Objects();
    template <class T>
    T const *all() const {
        return std::get<std::array<T, kCount>>(arrays_).data();
    }

    mgXform_c view; ///< with a perspective
    std::vector<mgBBox_c> boxes;
    std::vector<mgXform_c> placements;
    suDynamicArray<mgPoint_c> points;
    suDynamicArray<mg2DPoint_c> flatPoints;
    mgBoxIndex_c index, placedIndex;

private:
    template <class... T>
    using Arrays = std::tuple<std::array<T, kCount>...>;
    Arrays<bool, int, float, double, mgPoint_c, mgVector_c, mgUnitVector_c, mg2DPoint_c, mgMatrix_c,
           mgMatrix4_c, mgQuaternion_c, mgXform_c, mgGenXform_c, mgPerspInfo_c, mgModelPerspInfo_c,
           mgBBox_c, mgGeneralBox_c, mgParallelogram_c, mgLine_c, mgPlane_c, mgArc_c, mgCone_c,
           mgCylinder_c, mgRect, CPoint, CString, suDynamicArray<mgPoint_c>,
           suDynamicArray<mg2DPoint_c>, suDynamicArray<int>>
        arrays_;
};

struct Operation {
    std::string name;
    void (*run)(Objects const &, Bits &);
};

/// The last two, switchOfSpheres and randomDirection, use what the process shares without a lock.
extern std::vector<Operation> const operations;

inline std::uint64_t bitsOf(Operation const &operation, Objects const &objects) {
    Bits out;
    operation.run(objects, out);
    return out.value();
}

} // namespace common

#endif
