// SPDX-License-Identifier: MIT
// What the golden program calls the library with, what it keeps of the results, and how a row of a
// table calls a function.

#ifndef VEXMATH_TESTS_GOLDEN_GOLDEN_H
#define VEXMATH_TESTS_GOLDEN_GOLDEN_H

#include <vexmath/vexmath.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/generator.h"

namespace golden {

using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using M = mgMatrix_c;
using M4 = mgMatrix4_c;
using Q = mgQuaternion_c;
using X = mgXform_c;
using Box = mgBBox_c;
using List = suDynamicArray<mgPoint_c>;
using Pairs = suDynamicArray<mgIndexPair_c>;

/// The numbers of a stream.
enum class Numbers {
    wide,     ///< of ordinary, tiny and large size
    ordinary, ///< up to 10
    lattice,  ///< whole ones up to 2, a few of them within a tolerance of a whole one
    hostile,  ///< zero, infinite, NaN and huge ones among whole ones
    tame      ///< from 0.5 to 2, of either sign, so that every result is well conditioned
};

/// Arguments of every type.
class Stream {
public:
    explicit Stream(Numbers numbers = Numbers::wide) : numbers_(numbers) {}
    void become(Numbers numbers) { numbers_ = numbers; }
    /// No hostile numbers: in a record or a text, a NaN has the sign that its processor gives it.
    void calm() {
        if (numbers_ == Numbers::hostile) numbers_ = Numbers::wide;
    }

    double next();
    // Braces keep the order of the calls.
    mgVector_c vector() { return mgVector_c{next(), next(), next()}; }
    mgPoint_c point() { return vector(); }
    mgUnitVector_c direction() { return mgUnitVector_c{next(), next(), next()}; }
    mgXform_c placement() {
        mgUnitVector_c const z = direction(), x = direction();
        mgVector_c const origin = vector();
        return mg_RestoreXform(mgXform_c(z, x, origin).rotation(), origin, 0.5 + std::fabs(next()));
    }
    int below(int count) { return generator_.below(count); }
    /// Until it is called with false, all arguments of a type are the same.
    void repeat(bool repeats) {
        repeats_ = repeats;
        start_ = generator_;
    }
    void beginArgument() {
        if (repeats_) generator_ = start_;
    }
    /// Const arguments are those of all streams that share, and not made for a call.
    void share() { shares_ = true; }
    bool shares() const { return shares_; }

    void fill(double &d) { d = next(); }
    void fill(float &f) { f = static_cast<float>(next()); }
    void fill(int &i) { i = below(8); }
    void fill(mgIndexPair_c &pair) { each(pair.first, pair.second); }
    void fill(bool &b) { b = below(2) != 0; }
    void fill(mgVector_c &v) { v = vector(); }
    void fill(mgPoint_c &p) { p = point(); }
    void fill(mgUnitVector_c &u) { u = direction(); }
    void fill(mg2DPoint_c &p) { p = mg2DPoint_c{next(), next()}; }
    void fill(CPoint &p) { p = CPoint{below(2000) - 1000, below(2000) - 1000}; }
    void fill(mgRect &r) { each(r.left, r.top, r.right, r.bottom); }
    void fill(mgVector4_c &v) { each(v[0], v[1], v[2], v[3]); }
    void fill(mgQuaternion_c &q) { fill(static_cast<mgVector4_c &>(q)); }
    void fill(mgMatrix_c &m); ///< a rotation, or any nine numbers
    void fill(mgMatrix4_c &m);
    void fill(mgXform_c &x); ///< a few with a perspective record
    void fill(mgXform_64BitHelper_c &x) { each(x.rotation, x.translation, x.scale, x.reflection); }
    void fill(mgPerspInfo_c &info);
    void fill(mgModelPerspInfo_c &info) {
        fill(static_cast<mgPerspInfo_c &>(info));
        info.setModelViewDir(direction());
    }
    void fill(mgGenXform_c &x);
    void fill(mgBBox_c &box) {
        double corners[6];
        fill(corners);
        box.set(corners);
    }
    void fill(mgLine_c &line) { line = mgLine_c{point(), direction()}; }
    void fill(mgPlane_c &plane) { plane = mgPlane_c{point(), direction()}; }
    void fill(mgCone_c &cone) { cone = mgCone_c{point(), direction(), next(), next()}; }
    void fill(mgCylinder_c &c) { c = mgCylinder_c{point(), direction(), next()}; }
    void fill(mgArc_c &arc);
    void fill(mgGeneralBox_c &box) {
        box = mgGeneralBox_c{point(), direction(), direction(), std::fabs(next()), next(), next()};
    }
    void fill(mgParallelogram_c &area) {
        area = mgParallelogram_c{point(), direction(), direction(), std::fabs(next()), next()};
    }
    void fill(mgPrimitiveBodyData_c &body) {
        each(body.kind, body.anchor, body.first, body.second, body.third, body.extra);
    }
    void fill(arcEdgeData &arc) { each(arc.center, arc.normal, arc.radius); }
    void fill(ellipseEdgeData &ellipse);
    void fill(parabolaEdgeData &curve) {
        each(curve.vertex, curve.focus, curve.start, curve.end, curve.normal);
    }
    template <class T, std::size_t n>
    void fill(T (&items)[n]) {
        for (T &item : items) fill(item);
    }
    template <class T>
    void fill(suDynamicArray<T> &list) {
        for (int n = below(12); n > 0; --n) {
            T item;
            fill(item);
            list.Add(item);
        }
    }

private:
    template <class... T>
    void each(T &...items) {
        (fill(items), ...);
    }

    Numbers numbers_;
    bool shares_ = false, repeats_ = false;
    common::Generator generator_{1}, start_{1};
};

/// The arguments that streams share.
template <class T>
T const *shared() {
    struct Items {
        Items() { Stream(Numbers::ordinary).fill(items); }
        T items[20];
    };
    static Items const made;
    return made.items;
}

/// FNV-1a over the bits of what it is given. Every NaN counts as the same.
class Bits {
public:
    template <class... T>
    void add(T const &...values) {
        (take(values), ...);
    }
    void addAll(double const *values, int count) {
        for (int k = 0; k < count; ++k) take(values[k]);
    }
    std::uint64_t value() const { return hash_; }

    std::vector<double> *numbers = nullptr; ///< if not null, also gets every number

private:
    template <class N, class = std::enable_if_t<std::is_arithmetic_v<N> || std::is_enum_v<N>>>
    void take(N value) {
        takeNumber(static_cast<double>(value));
    }
    void takeNumber(double value);
    void take(mgVector_c const &v) { add(v.x(), v.y(), v.z()); }
    void take(mgPoint_c const &p) { add(p.x(), p.y(), p.z()); }
    void take(mg2DPoint_c const &p) { add(p.x(), p.y()); }
    void take(mgVector4_c const &v) { add(v[0], v[1], v[2], v[3]); }
    void take(mgRect const &r) { add(r.left, r.top, r.right, r.bottom); }
    void take(mgMatrix_c const &m) { addAll(&m[0], 9), add(m.isIdentity()); }
    void take(mgMatrix4_c const &m) { addAll(m.getDataPtr(), 16); }
    void take(mgXform_c const &x);
    void take(mgXform_64BitHelper_c const &x) {
        add(x.rotation, x.translation, x.scale, x.reflection, x.perspective != nullptr);
    }
    void take(mgGenXform_c const &x);
    void take(mgPerspInfo_c const &info);
    void take(mgModelPerspInfo_c const &info) {
        add(static_cast<mgPerspInfo_c const &>(info), info.getModelViewDir());
    }
    void take(mgBBox_c const &box) {
        add(box.isSet(), box.low(), box.high(), box.sphCenter(), box.sphRadius());
    }
    void take(mgLine_c const &line) { add(line.rootPoint(), line.direction()); }
    void take(mgPlane_c const &plane) { add(plane.rootPoint(), plane.normal()); }
    void take(mgCone_c const &c) { add(c.rootPoint(), c.axis(), c.radius(), c.angle()); }
    void take(mgArc_c const &arc);
    void take(mgParallelogram_c const &area);
    void take(mgPrimitiveBodyData_c const &body) {
        add(body.kind, body.anchor, body.first, body.second, body.third, body.extra);
    }
    void take(mgIndexPair_c const &pair) { add(pair.first, pair.second); }
    void take(CString const &text) {
        for (int k = 0; k < text.GetLength(); ++k) add(static_cast<wchar_t const *>(text)[k]);
    }
    template <class T>
    void take(suDynamicArray<T> const &list) {
        add(list.Count());
        for (int k = 0; k < list.Count(); ++k) add(list[k]);
    }

    std::uint64_t hash_ = 0xCBF29CE484222325u;
};

/// Every index that the searches of boxes find, and the nearest hit.
void addClashes(Bits &out, Box const *boxes, X const *placements, int count);
void addSearches(Bits &out, mgBoxIndex_c const &index, Box const &box, P const &p, U const &dir);

/// An argument of the parameter type P: made, passed and, where a function can change it, kept.
template <class P>
class Argument {
    using T = std::decay_t<P>;
    static constexpr bool kIsConst = std::is_same_v<P, T const &>;

public:
    explicit Argument(Stream &in) {
        in.beginArgument();
        in.fill(value_);
        if constexpr (kIsConst)
            if (in.shares()) shared_ = shared<T>() + in.below(4);
    }
    P pass() {
        if constexpr (kIsConst)
            if (shared_ != nullptr) return *shared_;
        return static_cast<P>(value_);
    }
    void keep(Bits &out) const {
        if constexpr (std::is_lvalue_reference_v<P> && !kIsConst) out.add(value_);
    }

private:
    T value_;
    T const *shared_ = nullptr;
};

/// A pointer is one to enough elements, also where a function reads or writes only the first.
template <class T>
class Argument<T *> {
public:
    explicit Argument(Stream &in) : shares_(in.shares()) { in.fill(values_); }
    T *pass() {
        if constexpr (std::is_const_v<T>)
            if (shares_) return shared<std::remove_const_t<T>>();
        return values_;
    }
    void keep(Bits &out) const {
        std::size_t const kept = out.numbers != nullptr ? 4 : 16; // a sample needs few
        if constexpr (!std::is_const_v<T>)
            for (std::size_t k = 0; k < kept; ++k) out.add(values_[k]);
    }

private:
    bool shares_;
    std::remove_const_t<T> values_[16];
};

/// If not null, called before and after each call of a function.
inline void (*watch)(bool isBefore) = nullptr;

template <class... P>
struct Types {};

template <class F, class... Made>
void callWith(Stream &, Bits &out, F const &f, Types<>, Made &...made) {
    if (watch != nullptr) watch(true);
    if constexpr (std::is_void_v<decltype(std::invoke(f, made.pass()...))>) {
        std::invoke(f, made.pass()...);
        if (watch != nullptr) watch(false);
    } else {
        auto const &result = std::invoke(f, made.pass()...);
        if (watch != nullptr) watch(false);
        out.add(result);
    }
    (made.keep(out), ...);
}
template <class F, class P, class... Rest, class... Made>
void callWith(Stream &in, Bits &out, F const &f, Types<P, Rest...>, Made &...made) {
    Argument<P> argument(in);
    callWith(in, out, f, Types<Rest...>(), made..., argument);
}

/// Makes arguments, calls the function with them, and keeps its result and outputs. A member
/// function is called for an object that is made as the arguments are.
template <class R, class... P>
void call(Stream &in, Bits &out, R (*f)(P...)) {
    callWith(in, out, f, Types<P...>());
}
template <class C, class R, class... P>
void call(Stream &in, Bits &out, R (C::*f)(P...)) {
    callWith(in, out, f, Types<C &, P...>());
}
template <class C, class R, class... P>
void call(Stream &in, Bits &out, R (C::*f)(P...) const) {
    callWith(in, out, f, Types<C const &, P...>());
}

/// Chooses one of the functions of a name, by the types of its parameters.
template <class... P>
struct Taking {
    template <class R>
    static constexpr auto of(R (*f)(P...)) {
        return f;
    }
    template <class C, class R>
    static constexpr auto of(R (C::*f)(P...)) {
        return f;
    }
    template <class C, class R>
    static constexpr auto of(R (C::*f)(P...) const) {
        return f;
    }
};

/// One line of the golden file.
struct Row {
    std::string name;
    void (*run)(Stream &in, Bits &out);
    bool isExact = true; ///< are its bits the same with every C library?
};
using Table = std::vector<Row>;

/// Gives the rows their names. In a list of several, each name stands between commas.
void nameRows(Table &rows, std::string names);

template <auto function>
void run(Stream &in, Bits &out) {
    call(in, out, function);
}
/// At times with arguments that are the same.
template <auto function>
void runSame(Stream &in, Bits &out) {
    in.repeat(in.below(3) == 0);
    call(in, out, function);
    in.repeat(false);
}
/// A row for each function. `names` lists their names.
template <auto... functions>
Table rowsOf(char const *names) {
    Table rows{{"", run<functions>}...};
    nameRows(rows, names);
    return rows;
}
template <auto... functions>
Table rowsOfSame(char const *names) {
    Table rows{{"", runSame<functions>}...};
    nameRows(rows, names);
    return rows;
}

// Rows: of functions; of functions that compare; of one of several functions of a name; of a
// lambda, which has a name.
#define GOLDEN(...) golden::rowsOf<__VA_ARGS__>(#__VA_ARGS__)
#define GOLDEN_SAME(...) golden::rowsOfSame<__VA_ARGS__>(#__VA_ARGS__)
#define GOLDEN_OF(f, ...)                                                                          \
    golden::rowsOf<golden::Taking<__VA_ARGS__>::of(f)>(#f "(" #__VA_ARGS__ ")")
#define GOLDEN_AS(name, ...)                                                                       \
    golden::Table(1, {name, [](golden::Stream &in_, golden::Bits &out_) {                          \
                          golden::call(in_, out_, +__VA_ARGS__);                                   \
                      }})

/// All rows in this order.
Table joined(std::initializer_list<Table> tables);
/// The same, of results that depend on the trigonometric functions of the C library.
Table trigonometric(std::initializer_list<Table> tables);

Table transformRows();
Table boundsRows();
Table queryRows();
Table supportRows();
Table allRows(); ///< every exported function

} // namespace golden

#endif
