// SPDX-License-Identifier: MIT
// The value classes as text: for std::ostream, for std::format where the standard library has it,
// and for {fmt} when that is included before. Opt-in: no other header includes this one.

#ifndef VEXMATH_FORMAT_H
#define VEXMATH_FORMAT_H

#include <vexmath/arc.h>
#include <vexmath/bbox.h>
#include <vexmath/circle.h>
#include <vexmath/cone.h>
#include <vexmath/gen_xform.h>
#include <vexmath/line.h>
#include <vexmath/matrix4.h>
#include <vexmath/plane.h>
#include <vexmath/point2d.h>
#include <vexmath/quaternion.h>
#include <vexmath/rect.h>

#include <charconv>
#include <ostream>
#include <string_view>
#include <type_traits>

#if __has_include(<version>)
#include <version>
#endif
#ifdef __cpp_lib_format
#include <format>
#endif

// Points, vectors, directions, quaternions, matrices, transforms, perspectives, boxes (mgBBox_c),
// lines, planes, circles, arcs, cones, cylinders and mgRect have a text. It is meant for people,
// and is what a debugger shows, except for broken values:
//
//     (1, 2.5, -3)             points, vectors, directions; (x, y) and (x, y, z, w) accordingly
//     no direction             a direction of exactly (0, 0, 0)
//     (0, 0, 2) of length 2    a direction whose length differs from 1 by more than 1e-08
//     [(0, 1, 0), (-1, 0, 0), (0, 0, 1)]                       a matrix by rows, or: identity
//     rotation [...], scale 2, translation (1, 2, 3), mirrored a transform, or: identity
//     box (0, 0, 0) to (2, 4, 4), sphere (1, 2, 2) r 3         a box; also: unset box, invalid box
//     line through (0, 0, 0) along (1, 0, 0)
//     plane through (0, 0, 0), normal (0, 0, 1)
//
// An mgMatrix_c that is the identity without the flag is "unflagged identity". One that has the
// flag and other elements ends in "flagged as identity".
//
// The format options are those of double and apply to each number: "{:8.3f}" or std::setw(8).
// Without one, each number is the shortest that reads back as the same double. Lists are ranges:
// fmt/ranges.h and the std::format of C++23 show them element by element.

namespace vexmath::detail {

/// The classes that have a text.
template <class T>
inline constexpr bool kHasText =
    kIsOneOf<T, mgPoint_c, mgVector_c, mgUnitVector_c, gcMdiPoint_c, mg2DPoint_c, mgVector4_c,
             mgQuaternion_c, mgMatrix_c, mgMatrix4_c, mgXform_c, mgGenXform_c, mgPerspInfo_c,
             mgModelPerspInfo_c, mgBBox_c, mgLine_c, mgPlane_c, mgCircle_c, mgArc_c, mgCone_c,
             mgCylinder_c, mgRect>;

// put(out, value) writes the text of a class. A Writer has the members words(std::string_view) and
// number(double).

template <class Writer>
void put(Writer &out, std::string_view words) {
    out.words(words);
}

template <class Writer>
void put(Writer &out, double number) {
    out.number(number);
}

template <class Writer, class... Parts>
void putAll(Writer &out, Parts const &...parts) {
    (put(out, parts), ...);
}

template <class Writer>
void putTuple(Writer &out, double const *numbers, int count) {
    for (int i = 0; i < count; ++i) putAll(out, i == 0 ? "(" : ", ", numbers[i]);
    put(out, ")");
}

template <class Writer>
void putRows(Writer &out, double const *elements, int count) {
    for (int i = 0; i < count; ++i) {
        put(out, i == 0 ? "[" : ", ");
        putTuple(out, elements + count * i, count);
    }
    put(out, "]");
}

template <class Writer>
void put(Writer &out, mgPoint_c const &p) {
    putTuple(out, p, 3);
}

template <class Writer>
void put(Writer &out, mgVector_c const &v) {
    putTuple(out, v, 3);
}

template <class Writer>
void put(Writer &out, mgUnitVector_c const &u) {
    /// How far the length of a direction may be from 1; bound included.
    constexpr double kUnitLength = 1e-08;
    if (u.null()) return put(out, "no direction");
    putTuple(out, u, 3);
    if (!(std::fabs(u.len() - 1.0) <= kUnitLength)) putAll(out, " of length ", u.len());
}

template <class Writer>
void put(Writer &out, gcMdiPoint_c const &p) {
    put(out, mgPoint_c(p.x(), p.y(), p.z()));
}

template <class Writer>
void put(Writer &out, mg2DPoint_c const &p) {
    putTuple(out, p, 2);
}

template <class Writer>
void put(Writer &out, mgVector4_c const &v) {
    putTuple(out, &v[0], 4);
}

inline bool isPlainIdentity(mgMatrix_c const &m) {
    return isExactIdentity(m) && m.isIdentity() != 0;
}

template <class Writer>
void put(Writer &out, mgMatrix_c const &m) {
    if (isPlainIdentity(m)) return put(out, "identity");
    if (isExactIdentity(m)) return put(out, "unflagged identity");
    putRows(out, &m(0, 0), 3);
    if (m.isIdentity()) put(out, " flagged as identity");
}

template <class Writer>
void put(Writer &out, mgMatrix4_c const &m) {
    if (m == mgMatrix4_c()) return put(out, "identity");
    putRows(out, m.getDataPtr(), 4);
}

template <class Writer>
void put(Writer &out, mgPerspInfo_c const &p) {
    mgPoint_c eye;
    p.getEyePoint(&eye);
    putAll(out, "perspective from ", eye, ", plane ", p.getPlaneDistance(), ", far clip ",
           p.getMinFarClipPlaneDistance());
    if (!p.isCamera()) return put(out, ", no camera");
    if (p.isOrthoCamera()) return put(out, ", orthographic camera");
    putAll(out, ", camera plane ", p.getCameraFOVPlaneDistance());
}

template <class Writer>
void put(Writer &out, mgModelPerspInfo_c const &p) {
    put(out, static_cast<mgPerspInfo_c const &>(p));
    putAll(out, ", looking along ", p.getModelViewDir());
}

template <class Writer>
void put(Writer &out, mgXform_c const &x) {
    char const *before = "";
    auto const putPart = [&](auto const &...parts) {
        putAll(out, before, parts...);
        before = ", ";
    };
    if (!isPlainIdentity(x.rotation())) putPart("rotation ", x.rotation());
    if (x.scaling() != 1.0) putPart("scale ", x.scaling());
    if (!x.translation().null()) putPart("translation ", x.translation());
    if (before[0] == '\0') putPart("identity");
    if (x.isReflection()) putPart("mirrored");
    mgPerspInfo_c perspective;
    if (x.getPerspectiveInfo(&perspective)) putPart(perspective);
}

inline bool isPlainIdentity(mgXform_c const &x) {
    return isPlainIdentity(x.rotation()) && x.scaling() == 1.0 && x.translation().null()
           && !x.isReflection() && !x.hasPerspective();
}

template <class Writer>
void put(Writer &out, mgGenXform_c const &g) {
    mgPoint_c scales;
    g.getScale(scales);
    put(out, static_cast<mgXform_c const &>(g));
    putAll(out, ", body scaled ", scales);
    mgXform_c const frame = g.getBodyXform();
    if (!isPlainIdentity(frame)) putAll(out, " in frame: ", frame);
}

template <class Writer>
void put(Writer &out, mgBBox_c const &b) {
    if (!b.isSet()) return put(out, "unset box");
    putAll(out, b.isValid() ? "box " : "invalid box ", b.low(), " to ", b.high(), ", sphere ",
           b.sphCenter(), " r ", b.sphRadius());
}

template <class Writer>
void put(Writer &out, mgLine_c const &line) {
    putAll(out, "line through ", line.rootPoint(), " along ", line.direction());
}

template <class Writer>
void put(Writer &out, mgPlane_c const &plane) {
    putAll(out, "plane through ", plane.rootPoint(), ", normal ", plane.normal());
}

template <class Writer>
void put(Writer &out, mgCircle_c const &circle) {
    putAll(out, "circle about ", circle.center(), ", normal ", circle.normal(), ", r ",
           circle.radius());
}

template <class Writer>
void put(Writer &out, mgArc_c const &arc) {
    mgPoint_c centre, start, end;
    mgUnitVector_c normal;
    arc.getCenter(centre);
    arc.getNormal(normal);
    arc.getStart(start);
    arc.getEnd(end);
    putAll(out, arc.isValid() ? "arc about " : "invalid arc about ", centre, ", normal ", normal,
           ", r ", arc.getRadius(), ", ", arc.getStartAngleInRadians(), " to ",
           arc.getEndAngleInRadians(), " rad");
    if (!mgVector_c(start).null() || !mgVector_c(end).null())
        putAll(out, ", from ", start, " to ", end);
    if (!isPlainIdentity(arc.matrix())) putAll(out, ", matrix ", arc.matrix());
    if (arc.is2D()) put(out, ", 2D");
}

template <class Writer>
void put(Writer &out, mgCone_c const &cone) {
    constexpr double kUnset = -2.0;
    if (cone.radius() == kUnset && cone.angle() == kUnset) return put(out, "unset cone");
    putAll(out, "cone at ", cone.rootPoint(), " along ", cone.axis(), ", r ", cone.radius(),
           ", half-angle ", cone.angle(), " rad");
}

template <class Writer>
void put(Writer &out, mgCylinder_c const &cylinder) {
    putAll(out, "cylinder at ", cylinder.rootPoint(), " along ", cylinder.axis(), ", r ",
           cylinder.radius());
    if (cylinder.angle() != 0.0) putAll(out, ", half-angle ", cylinder.angle(), " rad");
}

template <class Writer>
void put(Writer &out, mgRect const &r) {
    putAll(out, "x ", r.left, " to ", r.right, ", y ", r.bottom, " to ", r.top);
}

/// Writes to a stream: the width that it had applies to each number.
class StreamWriter {
public:
    explicit StreamWriter(std::ostream &out) : out_(out), width_(out.width(0)) {}

    void words(std::string_view words) { out_ << words; }

    void number(double number) {
        out_.width(width_);
        if (formatsNumbers())
            out_ << number;
        else
            putShortest(number);
    }

private:
    /// Has the caller chosen a format?
    bool formatsNumbers() const {
        constexpr std::streamsize kDefaultPrecision = 6;
        constexpr auto kFlags = std::ios_base::floatfield | std::ios_base::showpoint
                                | std::ios_base::showpos | std::ios_base::uppercase;
        return out_.precision() != kDefaultPrecision || (out_.flags() & kFlags) != 0;
    }

    void putShortest(double number) {
#if defined(__cpp_lib_to_chars) || (defined(_LIBCPP_VERSION) && _LIBCPP_VERSION >= 14000)
        char text[32]; // the longest needs 24
        char const *const end = std::to_chars(text, text + sizeof text, number).ptr;
        out_ << std::string_view(text, static_cast<std::size_t>(end - text));
#else // not the shortest, but it reads back the same
        constexpr int kEnoughDigits = 17;
        std::streamsize const precision = out_.precision(kEnoughDigits);
        out_ << number;
        out_.precision(precision);
#endif
    }

    std::ostream &out_;
    std::streamsize width_;
};

/// The formatters of {fmt} and of the standard library. Number is the formatter of double.
template <class Number>
class TextFormatter {
public:
    template <class Context>
    constexpr auto parse(Context &context) {
        return number_.parse(context);
    }

    template <class T, class Context>
    auto format(T const &value, Context &context) const {
        Writer<Context> out{number_, context};
        put(out, value);
        return context.out();
    }

private:
    template <class Context>
    struct Writer {
        void words(std::string_view words) {
            auto at = context.out();
            for (char const c : words) *at++ = c;
            context.advance_to(at);
        }
        void number(double number) { context.advance_to(formatter.format(number, context)); }

        Number const &formatter;
        Context &context;
    };

    Number number_;
};

} // namespace vexmath::detail

/// Writes the text of a value class. The stream's width and fill apply to each number; the width is
/// reset to 0. When the precision is 6 and none of std::fixed, scientific, hexfloat, showpoint,
/// showpos and uppercase is set, each number is the shortest that reads back as the same double,
/// with a decimal point in every locale. Otherwise precision, flags and locale apply to each
/// number.
template <class T, std::enable_if_t<vexmath::detail::kHasText<T>, int> = 0>
std::ostream &operator<<(std::ostream &out, T const &value) {
    vexmath::detail::StreamWriter writer(out);
    put(writer, value);
    return out;
}

#ifdef __cpp_lib_format
template <class T>
requires vexmath::detail::kHasText<T> struct std::formatter<T, char>
    : vexmath::detail::TextFormatter<std::formatter<double, char>> {};
#endif

#endif

// Apart, so that it suffices to include this header once more after {fmt}.
#if defined(FMT_VERSION) && !defined(VEXMATH_FORMAT_FMT)
#define VEXMATH_FORMAT_FMT

template <class T>
struct fmt::formatter<T, char, std::enable_if_t<vexmath::detail::kHasText<T>>>
    : vexmath::detail::TextFormatter<fmt::formatter<double, char>> {};

#endif
