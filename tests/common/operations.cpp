// SPDX-License-Identifier: MIT

#include "common/operations.h"

#include <algorithm>
#include <istream>
#include <memory>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <utility>

#include "common/generator.h"

namespace {

using namespace common;
using In = Objects const &;
using P = mgPoint_c;
using V = mgVector_c;
using U = mgUnitVector_c;
using M = mgMatrix_c;
using M4 = mgMatrix4_c;
using X = mgXform_c;
using B = mgBBox_c;

/// Makes the objects: everyday numbers off the axes.
struct Maker {
    Generator random{20240229};
    int count = 0;

    double number() { return random.uniform(-9.0, 9.0); }
    template <class T>
    T any() {
        T made;
        make(made);
        return made;
    }
    template <class T, class... Parts>
    void from(T &made) {
        made = T{any<Parts>()...};
    }
    void make(bool &made) { made = true; }
    void make(int &made) { made = 6 + 3 * (count++ % Objects::kCount); } // 6, 9, 12...
    void make(float &made) { made = static_cast<float>(number()); }
    void make(double &made) { made = std::fabs(number()); }
    void make(V &made) { made.set(number(), number(), number()); }
    void make(P &made) { made = any<V>(); }
    void make(U &made) { made = mg_Normalise(any<V>()); }
    void make(mg2DPoint_c &made) { made.set(number(), number()); }
    void make(M &made) { made = mg_RotationMatrix(number(), any<V>(), 0.0); }
    void make(M4 &made) { made = M4::rigidTransform(any<V>(), any<V>(), any<V>()); }
    void make(mgQuaternion_c &made) { made.matrixToQuat(any<M>()); }
    void make(X &made) { made = mg_RestoreXform(any<M>(), any<V>(), random.uniform(0.5, 2.0)); }
    void make(mgGenXform_c &made) { made.set(&static_cast<X const &>(any<X>()), any<V>()); }
    void make(mgPerspInfo_c &made) { made = {number(), number(), -30.0, 5.0}; }
    void make(mgModelPerspInfo_c &made) { made = {number(), number(), -30.0, 5.0}; }
    void make(B &made) { from<B, P, P>(made); }
    void make(mgLine_c &made) { from<mgLine_c, P, U>(made); }
    void make(mgPlane_c &made) { from<mgPlane_c, P, U>(made); }
    void make(mgArc_c &made) { from<mgArc_c, U, P, P, P>(made); }
    void make(mgCone_c &made) { from<mgCone_c, P, U, double, double>(made); }
    void make(mgCylinder_c &made) { from<mgCylinder_c, P, U, double>(made); }
    void make(mgRect &made) { from<mgRect, double, double, double, double>(made); }
    void make(mgParallelogram_c &made) { from<mgParallelogram_c, P, U, U, double, double>(made); }
    void make(mgGeneralBox_c &made) { from<mgGeneralBox_c, P, U, U, double, double, double>(made); }
    void make(CPoint &made) { from<CPoint, int, int>(made); }
    void make(CString &made) { any<X>().saveStringRep(made); }
    template <class T>
    void make(suDynamicArray<T> &made) {
        for (int k = 0; k < 40; ++k) made.Add(any<T>());
    }
    template <class T>
    void make(std::array<T, Objects::kCount> &made) {
        count = 0;
        for (T &one : made) make(one);
    }
};

/// A stream's memory, which needs no heap.
template <class Char>
class Buffer : public std::basic_streambuf<Char> {
public:
    Buffer() {
        this->setp(room_, room_ + kSize);
        this->setg(room_, room_, room_ + kSize);
    }
    void addTo(Bits &out) const {
        for (Char const *at = this->pbase(); at != this->pptr(); ++at)
            out(*at == ',' ? Char('.') : *at); // the decimal point is that of the locale
    }

private:
    static constexpr int kSize = 3000;
    Char room_[kSize] = {};
};

/// Where an argument comes from: the objects, and its number in the call.
struct Place {
    In objects;
    std::size_t k;
};

/// An argument of type A. What the operation may write is a copy.
template <class A>
class Argument {
    using Object = std::remove_reference_t<std::remove_pointer_t<A>>;
    using T = std::remove_const_t<Object>;
    static constexpr bool kIsArray = std::is_pointer_v<A>;
    static constexpr bool kIsWritten = !std::is_same_v<A, T> && !std::is_const_v<Object>;
    static constexpr int kCopies = !kIsWritten ? 0 : kIsArray ? 16 : 1;

public:
    explicit Argument(Place at) : given_(at.objects.all<T>() + at.k % 8) {
        std::copy_n(given_, kCopies, copies_.begin());
    }
    A get() {
        if constexpr (kIsArray && kIsWritten)
            return copies_.data();
        else if constexpr (kIsArray)
            return given_;
        else if constexpr (kIsWritten)
            return copies_[0];
        else
            return *given_;
    }
    void addTo(Bits &out) const {
        if constexpr (kIsWritten) out.all(copies_.data(), kCopies);
    }

private:
    T const *given_;
    std::array<T, kCopies> copies_;
};
template <>
struct Argument<CDumpContext &> {
    explicit Argument(Place) { context << L"p "; }
    Buffer<wchar_t> buffer;
    std::wostream stream{&buffer};
    CDumpContext context{stream};
    CDumpContext &get() { return context; }
    void addTo(Bits &out) const { buffer.addTo(out); }
};

template <class R, class... A, class F, std::size_t... k>
void call(In s, Bits &out, F const &f, std::index_sequence<k...>) {
    std::tuple<Argument<A>...> arguments(Place{s, k + 1}...);
    if constexpr (std::is_void_v<R>) {
        f(std::get<k>(arguments).get()...);
    } else {
        out(f(std::get<k>(arguments).get()...));
    }
    (std::get<k>(arguments).addTo(out), ...);
}

template <class R, class... A>
void callOf(In s, Bits &out, R (*f)(A...)) {
    call<R, A...>(s, out, f, std::index_sequence_for<A...>());
}
template <class R, class C, class... A>
void callOf(In s, Bits &out, R (C::*f)(A...) const) {
    auto const bound = [&](auto &&...a) -> R { return (s.all<C>()[0].*f)(a...); };
    call<R, A...>(s, out, bound, std::index_sequence_for<A...>());
}
template <class R, class C, class... A>
void callOf(In s, Bits &out, R (C::*f)(A...)) {
    C changed = s.all<C>()[0];
    auto const bound = [&](auto &&...a) -> R { return (changed.*f)(a...); };
    call<R, A...>(s, out, bound, std::index_sequence_for<A...>());
    out(changed);
}
void callOf(In s, Bits &out, void (*f)(In, Bits &)) { f(s, out); }
template <auto f>
void callOf(In s, Bits &out) {
    callOf(s, out, f);
}

/// The operations by their names, which commas separate.
template <auto... f>
std::vector<Operation> listed(char const *names) {
    std::vector<Operation> all{{"", callOf<f>}...};
    std::istringstream stream(names);
    for (Operation &operation : all) std::getline(stream >> std::ws, operation.name, ',');
    return all;
}
#define LISTED(...) listed<__VA_ARGS__>(#__VA_ARGS__)

// What has several forms, or needs more than arguments by their types.

void overloads(In s, Bits &out) {
    P const *p = s.all<P>();
    V const *v = s.all<V>();
    U const *u = s.all<U>();
    X const *x = s.all<X>();
    B const *b = s.all<B>();
    M const *m = s.all<M>();
    mgPlane_c const *plane = s.all<mgPlane_c>();
    double const elements[9] = {1.0, 2.0, 3.0, 2.0, 1.0, 4.0, 3.0, 4.0, 1.0};
    double const triangle[3][2] = {{0.0, 0.0}, {3.0, 0.0}, {0.0, 3.0}};
    double gl[16], radius = 0.0, sweep = 0.0, weights[3] = {1.0, 1.0};
    float single[16];
    P at, a, c;
    int degenerate = 0;
    out(v[0].isParallelTo(v[1]), v[0].isParallelTo(v[1], 60.0), mg_AngleBetween(v[0], v[1]));
    out(v[0].isAlmostParallelTo(v[1]), v[0].isAlmostParallelTo(u[1]));
    out(mg_AngleBetween(v[0], v[1], v[2]), m[0] * m[1], v[0] * m[0], p[0] * m[0]);
    out(M(elements, 1), M(u[0], u[1], u[2]), M(0, u[0], u[1], u[2]));
    out(x[0] * x[2], p[0] * s.view, v[0] * x[0], u[0] * x[0], mg_ScaleXform(2.0));
    out(mg_ScaleXform(x[0], 2.0), X(u[0], u[1], v[0]), s.all<mgGenXform_c>()[0] * p[0]);
    x[0].getGLData(gl);
    x[0].getGLData(single);
    out.all(gl, 16), out.all(single, 16);
    mgXform_64BitHelper_c parts;
    x[0].GetHelper(parts);
    X changed;
    changed.SetHelper(x[2].GetHelper());
    out(parts, changed, s.view.inverse(), mgPerspInfo_c(1.0, 2.0, 3.0, 4.0), mgModelPerspInfo_c());
    B box, moved = b[0], grown = b[0], scaled = b[0], united = b[0];
    box.set(elements);
    out(box, moved *= x[0], grown += 0.5, scaled *= 2.0, (united |= b[1]) |= p[0]);
    out(B::clash(b[0], x[0], b[1], x[2]), b[0].clash(b + 1, 0.1), b[0].clash(plane[0], 0.1));
    out(b[0].clashLine(p, p + 1), b[0].clashLine(p, p + 1, 0.1), b[0].isRayHit(p[0], u[0]));
    out(b[0].containsPoint(p[0], 0.1), b[0].containsPoint(p[0], 0.1, 1));
    out(mgArc_c(u[0], p[0], 2.0, 0.3, 1.7).getRadius(), mgCylinder_c().radius());
    out(mg_LineIntPlane(s.all<mgLine_c>()[0], plane[0], &at, nullptr), at);
    out(mg_FindTangentArcCenter2D(p[0], v[0], p[1], a, radius, sweep, 1e-9), a, radius, sweep);
    out(mg_FindTangentArcCenter2D(p[0], p[1], p[1], p[2], 0.1, a, c, at, 1e-9), a, c, at);
    out(mg_MergeLines2D(p[0], p[1], p[1], p[0], a, c, 1e-8), a, c);
    out(rhoConic(p[0], p[1], p[2], interpolate(0.3, p[0], p[2])), rhoConic(0.8, p[0], p[1], p[2]));
    getBaricentricCoordinates(1e-9, weights, triangle, weights, degenerate);
    out.all(weights, 3);
    out(mg_GetUseVectorUnits() & 0);
    mg_SetUseVectorUnits(mg_GetUseVectorUnits());
}

/// Copies of views own a perspective record.
void copiesOfViews(In s, Bits &out) {
    P const *p = s.all<P>();
    X copy(s.view), twice = copy * s.view, all[] = {s.placements[0], s.placements[1]};
    mg_MultiplyXforms(all, 2, s.view);
    mg_MultiplyXforms(all, 2, all);
    out.all(all, 2);
    out(copy, twice, mg_ZoomToPosition(p[0], p[1], p[2], s.view, 2.0));
}

void generalTransform(In s, Bits &out) {
    X const *x = s.all<X>();
    double const factors[] = {2.0, 3.0, 4.0};
    std::unique_ptr<mgGenXform_c> const made(mgGenXform_c::create(&s.view, x, factors));
    if (made != nullptr) out(made->set(x, factors), made->isScaleIdentity());
}

/// The pairs or indices that a search finds.
template <class T, class Find>
void addFound(Bits &out, Find const &find) {
    suDynamicArray<T> list;
    out(find(list));
    out(list);
}

void allClashes(In s, Bits &out) {
    using Pair = mgIndexPair_c;
    B const *const all = s.boxes.data();
    int const n = Objects::kBoxes;
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(all, n, 0.1, to); });
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(all, n, all, n, 0.1, to); });
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(all, s.placements.data(), n, to); });
}

void searchIndex(In s, Bits &out) {
    using Pair = mgIndexPair_c;
    int const some[] = {3, 50, 3};
    P const &p = s.points[0];
    U const &dir = s.all<U>()[0];
    P hit;
    for (mgBoxIndex_c const *const index : {&s.index, &s.placedIndex}) {
        addFound<Pair>(out, [&](auto &to) { return index->clashes(0.1, to); });
        addFound<Pair>(out, [&](auto &to) { return index->clashesOf(some, 3, 0.1, to); });
        addFound<int>(out, [&](auto &to) { return index->clashesWith(s.boxes[0], 0.1, to); });
        addFound<int>(out, [&](auto &to) { return index->around(p, 1.0, to); });
        addFound<int>(out, [&](auto &to) { return index->onLine(p, dir, to); });
        out(index->firstOnRay(p, dir, &hit), hit);
    }
}

void makeIndex(In s, Bits &out) {
    mgBoxIndex_c index, other;
    out(index.build(s.boxes.data(), s.placements.data(), 50));
    index.move(3, s.boxes[0]);
    index.place(4, s.view);
    other = std::move(index);
    mgBoxIndex_c const moved(std::move(other));
    addFound<int>(out, [&](auto &to) { return moved.around(s.points[0], 1.0, to); });
}

template <class Tessellate>
void addPolylines(Bits &out, Tessellate const &tessellate) {
    P *made = nullptr;
    int count = 0;
    tessellate(&made, count, nullptr);
    if (made != nullptr) out.all(made, count + 1);
    delete[] made;
    suDynamicArray<P> list;
    tessellate(nullptr, count, &list);
    out(count, list);
}

void tessellate(In, Bits &out) {
    P const o, p(2.0, -2.0, 0.0), q(2.0, 2.0, 0.0);
    arcEdgeData const arc{o, {0.0, 0.0, 1.0}, 2.0};
    ellipseEdgeData const ellipse{o, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, 2.0, 1.0, p, p};
    parabolaEdgeData const conic{o, P(1.0, 0.0, 0.0), {}, p, q, {0.0, 0.0, 1.0}};
    addPolylines(out, [&](auto &&...to) { mg_TessArc(&arc, &p, &q, 1e-3, to...); });
    addPolylines(out, [&](auto &&...to) { mg_TessEllipse(&ellipse, &p, &q, 1e-3, to...); });
    addPolylines(out, [&](auto &&...to) { mg_TessParabola(&conic, 1e-3, to...); });
    addPolylines(out, [&](auto &&...to) { mg_TessBConic(&conic, 1e-3, to...); });
    addPolylines(out, [&](auto &&...to) { mg_TessParabolaOrBConic(&conic, 1e-3, to...); });
}

void outlines(In s, Bits &out) {
    P const o, *const p = s.all<P>();
    int const n[] = {6, 9};
    suDynamicArray<P> const &few = s.all<suDynamicArray<P>>()[0];
    suDynamicArray<P> sorted = s.points;
    suDynamicArray<mg2DPoint_c> flat = s.flatPoints, hull;
    mg_pointQuickSort(sorted.Data(), 0, sorted.Count() - 1);
    out(sorted, convexHull(flat, hull), hull);
    addFound<P>(out, [&](auto &to) { return mg_MergeLines2D(few, to, 1e-8); });
    addFound<P>(out, [&](auto &to) { return mg_calcHatchLinesCircle2D(o, 3.0, o, 0.1, 1.0, to); });
    addFound<P>(out,
                [&](auto &to) { return mg_calcHatchLinesPolygon2D(2, n, p, o, 0.1, 1.0, to); });
}

void arrays(In s, Bits &out) {
    P const *const p = s.all<P>();
    int growStep = 0, growMode = 0, size = 0;
    struct Free {
        void operator()(void *array) const { amDynamicArrayFree(array); }
    };
    using Array = std::unique_ptr<void, Free>;
    Array array(suDynArrayAlloc(3, 2, 2, sizeof(P)));
    Array const other(suDynArrayAllocSpecial(0, 2, 1, sizeof(P)));
    if (array == nullptr || other == nullptr) return;
    auto const keep = [&](void *grown) {
        if (grown != nullptr) static_cast<void>(array.release()), array.reset(grown);
    };
    for (int k = 0; k < 9; ++k) keep(amDynamicArrayAdd(array.get(), p + k));
    keep(amDynamicArrayAppend(array.get(), other.get()));
    keep(amDynamicArrayInsertAt(array.get(), 0, p, 5));
    amDynamicArraySetAt(array.get(), p, 1, 2);
    amDynamicArrayRemoveAt(array.get(), 2, 1);
    out(amDynamicArrayReverseFromTo(array.get(), 0, 3));
    keep(amDynArrayRealloc(amDynamicArrayResize(array.get(), 4), 90));
    keep(amDynamicArrayFreeExtra(array.get(), 0.1));
    amDynamicArrayRangeError();
    suDynamicGetStats(array.get(), &growStep, &growMode, &size);
    out(amDynamicArrayCount(array.get()), growStep, growMode, size);
    out.all(static_cast<P const *>(array.get()), amDynamicArrayCount(array.get()));
    Array const like(suDynArrayAlloc1(2, array.get()));
}

template <class T>
void list(In, Bits &out) {
    suDynamicArray<T> list, other;
    for (int i = 0; i < 20; ++i) list.Add(T());
    suDynamicArray<T> const copy(list);
    other = copy;
    for (int i = 0; i < other.Count(); ++i) other[i] = T();
    list.Adopt(static_cast<T *>(amDynamicArrayCopy(copy.Data(), 1)));
    out(list, other, copy);
    for (int i = 0; i < copy.Count(); ++i) out(copy[i]);
    other.elementsChanged(0, 1);
    if (list.Data() != nullptr) out(list.Data()[0]);
}

template <class Set>
void selection(In, Bits &out) {
    constexpr bool isOfTypes = std::is_same_v<Set, uoSelectType_c>;
    using Code = std::conditional_t<isOfTypes, uoSelTypes_e, uoSelConstraint_e>;
    Set none, a(Code(3)), b = Code(4) | Code(5), all = a | b | Code(6);
    a.add(Code(7));
    all |= a;
    a = all;
    a.unset(Code(3));
    a.unset(b);
    long types[9] = {};
    all.getTypes(types);
    out.all(types, 9);
    out(all == none, all != b, all.contains(b), all & b, all & Code(5), Set(all).getNumOfTypes());
    out(all.intersection(a).getNumOfTypes(), all.getIndex(Code(6)), Set::uoTypeToAuType(Code(6)));
    if constexpr (isOfTypes) out(uo_GenSelSOLIDBODIESFIRST.contains(a));
}

void texts(In s, Bits &out) {
    CString boxText, text, number;
    B box;
    X x;
    s.boxes[0].saveStringRep(boxText);
    s.placements[0].saveStringRep(text);
    number.Format(L"%.3f", 1.5);
    out(box.restoreStringRep(boxText), box, x.restoreStringRep(text), x);
    out(boxText, text, number);
}

/// Writes every kind of item and record, and reads them back.
void archive(In s, Bits &out) {
    Buffer<char> buffer;
    std::iostream stream(&buffer);
    su_CArchive ar(stream);
    CArchive &plain = ar;
    auto const pass = [](auto &to, auto object) {
        object.save(to);
        object.restore(to);
        return object;
    };
    P p = s.all<P>()[0];
    X x = s.all<X>()[0];
    M m = s.all<M>()[0];
    mgPrimitiveBodyData_c const body(1, p, 2.0, 3.0, 4.0, 5);
    out(pass(plain, p), pass(ar, m), pass(plain, m), pass(ar, x), pass(plain, x));
    out(pass(ar, s.all<mgLine_c>()[0]), pass(ar, s.all<mgPlane_c>()[0]).normal());
    out(pass(ar, s.all<mgCone_c>()[0]), pass(ar, s.boxes[0]), pass(ar, body).third);
    out(pass(plain, body).third, pass(ar, s.all<mgPerspInfo_c>()[0]));
    out(pass(ar, s.all<mgModelPerspInfo_c>()[0]));
    m.save(ar), m.restoreAsIs(ar), m.save(plain), m.restoreAsIs(plain);
    x.save(ar), x.restoreAsIs(ar), x.save(plain), x.restoreAsIs(plain);
    V v;
    mg2DPoint_c uv;
    int i = 1;
    unsigned long word = 2;
    unsigned char byte = 3;
    double number = 4.0;
    (ar << i << word << byte << number << p << x) >> i >> word >> byte >> number >> p >> x;
    p.save(plain), v.restore(plain), p.save2D(plain), uv.restore(plain);
    p.save2D(plain), p.restore2D(plain);
    buffer.addTo(out);
    out(i, word, byte, number, p, x, v, uv, m);
}

void switchOfSpheres(In s, Bits &out) {
    int const before = B::SetUseSphereBoundingBox(1);
    B both = s.boxes[0];
    out(before, both |= s.boxes[1]);
    B::SetUseSphereBoundingBox(before);
}

void randomDirection(In, Bits &) { std::unique_ptr<U>(U::random()); }

} // namespace

Objects::Objects() {
    Maker maker;
    std::apply([&](auto &...arrays) { (maker.make(arrays), ...); }, arrays_);
    view = maker.any<X>();
    view.addPerspectiveInfo({1.0, 2.0, -30.0, 5.0});
    auto &xforms = std::get<std::array<X, kCount>>(arrays_);
    for (int const k : {1, 3}) xforms[k] = view;
    for (int i = 0; i < kPoints; ++i)
        points.Add(maker.any<P>()), flatPoints.Add(maker.any<mg2DPoint_c>());
    for (int i = 0; i < kBoxes; ++i) {
        boxes.emplace_back(maker.any<P>(), maker.random.uniform(0.1, 1.0));
        placements.push_back(maker.any<X>());
    }
    index.build(boxes.data(), nullptr, kBoxes);
    placedIndex.build(boxes.data(), placements.data(), kBoxes);
}

std::vector<Operation> const common::operations = LISTED(
    &V::isParallelToTol, &V::isPerpendicularTo, &V::isSameDirection, &V::isOppositeDirection,
    &V::isOrthogonal, &V::dominantComponentIndex, &V::anyUnitNormal, &V::pullBack, &V::nullVector,
    &U::xAxis, &U::yAxis, &U::zAxis, mgUnitVectorDer, mg_AngleBetween2d, mg_getAngleFromVectors,
    mg_PutAngleInRange, mg_PutParamInRange, mg_getBasis, &P::getParamOnLine, &P::mirror,
    &P::distToRay, &P::distToLine, &P::checkCollinear, &P::getPLUSrep, &P::getXrep, &P::Dump,
    &P::xformByPerspInverse, &P::xformByPerspInverseVisible, &P::xformByPerspInversePlane,
    &P::xformByPerspInverseLine, &M::operator+, &M::operator-, &M::operator+=, &M::operator==,
    &M::zero, &M::tensor, &M::getDeterminant, &M::transpose, &M::inverse, &M::isNearZero,
    &M::isNearIdentity, &M::normalize, &M::iValidateRepairOrthonormality, &M::getRotationAxis,
    &M::getRotationAngle, &M::getEigensystem, &M::getMatrixFromEigs, &M::getNullspace,
    mg_RotationMatrix, mg_solveQuadratic, mgSolveQuadratic, mg_solveCubic, mg_GoodEqu3,
    &M4::rotationMatrix, &M4::rigidTransform, &M4::vvt, &M4::interpolate, &M4::getRotation,
    &M4::operator==, &M4::operator<, &M4::operator+, &M4::operator-, &M4::scale, &M4::transpose,
    &M4::inverse, &M4::operator*=, &M4::getRotationAxis, &M4::getRotationAngle, &M4::isRigid,
    &M4::distTo, &M4::convertToMatrix, &mgQuaternion_c::operator==, &mgQuaternion_c::matrixToQuat,
    &mgQuaternion_c::quatToMatrix, &mgQuaternion_c::quatSlerp, &X::isIdentity, &X::linearComponent,
    &X::getNearestAxis, &X::operator*=, &X::inverse, &X::equals, &X::sameOrParallel,
    &X::iValidateRepairRotationMatrix, &X::iValidateRepairXForm, &X::getPerspectiveInfo,
    &X::addPerspectiveInfo, &X::deletePerspectiveInfo, &X::iCopyPerspectiveInfo,
    &X::iIsPerspectiveEqual, &X::getThreeAngles, &X::getThreeAnglesNew, &X::createFromGLData,
    &X::restoreStringRep, mg_RestoreXform, mg_TranslateXform, mg_RotateXform, mg_RotateAtPoint,
    mg_XReflectionXform, mg_YReflectionXform, mg_ZReflectionXform, mg_ReflectionXform,
    mg_PlaneReflectionXform, mg_CoordinateXform, mg_CoordinateXformXY, mg_CoordinateXformXZ,
    mg_CoordinateXformYZ, mg_CoordinateXformLookAt, mg_PointVectorXform, mg_PointVecScaleXform,
    mg_PointAngleXform, mg_PlaneToPlane, mg_getModelSpaceViewRay, mg_ZoomBoxToBox,
    &mgGenXform_c::isScaleIdentity, &mgGenXform_c::getGenGLData, &mgPerspInfo_c::getFocusPoint,
    &mgModelPerspInfo_c::getFocusPoint, &mgPerspInfo_c::operator==,
    &mgPerspInfo_c::doScreenPointPerspectiveDivision,
    &mgPerspInfo_c::doScreenPointInversePerspectiveDivision,
    &mgPerspInfo_c::moveScreenPointToNearClipPlane, &B::set2Points, &B::reset, &B::maxBox,
    &B::correctedMaxBox, &B::GetUseSphereBoundingBox, &B::isValid, &B::diagonalLength,
    &B::maxDimension, &B::minDimension, &B::pointPerp, &B::operator==, &B::isSame, &B::translate,
    &B::operator&=, &B::containsBBox, &B::getFirstRayHit, &B::limitRay, &B::restoreStringRep,
    &B::dump, mg_FindBBox, &mgParallelogram_c::isPointInside, &mgParallelogram_c::getExtremPts,
    &mgGeneralBox_c::getBBoxAndXform, &mgGeneralBox_c::projectToPlane, mg_TransformPoints,
    mg_BoundPoints, &mgLine_c::isEquivalent, &mgLine_c::distToLine, &mgLine_c::snapPointToLine,
    &mgPlane_c::isCoincidentWith, &mgPlane_c::isEquivalent,
    &mgPlane_c::getHessianNormalFormConstant, &mgPlane_c::cutLineSegment,
    &mgPlane_c::projectToPlane, &mgPlane_c::projectToPlaneOnViewLine, interLine, s_projPointOnLine,
    &mgArc_c::isValid, &mgArc_c::getStartPoint, &mgArc_c::getEndPoint,
    &mgArc_c::getStartAngleInDegrees, &mgArc_c::getEndAngleInDegrees, &mgArc_c::iGetAngle,
    &mgArc_c::convertToOglAngle, &mgArc_c::getOglStartAngle, &mgArc_c::getOglSweepAngle,
    &mgCone_c::pointPerp, &mgCone_c::extremePts, &mgCone_c::operator*=,
    &mgCone_c::projectPointOnAxis, &mgCone_c::transformRadiusAtRoot, &mgCylinder_c::pointPerp,
    &mgCylinder_c::isEquivalent, mg_LineIntLine, mg_LineIntLine2D, mg_LineIntLineSeg,
    mg_RayIntLineSeg, mg_LineSegIntLineSeg, mg_LineSegIntLineSeg2D, mg_RayIntPlane,
    mg_RayIntDiskSeg, mg_RayIntSphere, mg_RayIntCylSeg, mg_RayIntConeSeg, mg_LineIntCircle2D,
    mg_CircleIntCircle2D, mg_LineSegIntPlane, mg_PlaneIntPlane, mg_MirrorPoint, mg_IsPolylineLine,
    mg_Find3PointArcCenter, convexHull, mg_OpenTSP, mg_pointQuickSort, mg_pointSelectionSort,
    mg_ClipLine2DToBox, mg_Clip2DLineToWindow, mg_Clip2DArcToBox, mg_ClipLineEndToRotated2DBox,
    mg_Point2DInsideBox, mg_Line2DInsideBox, mg_Circle2DInsideBox, mg_Arc2DInsideBox,
    mg_Polyline2DInsideBox, mg_PointOnLine2D, mg_IsPolylineArc, mg_NormalFrom3Points,
    mg_calcHatchLinesRect2D, mg_cleanupPolarEdge, mg_fixPolarConvolution, mg_ClosedTSP,
    minCnvxPlgRect, mg_getConicEccentricity, mg_getPointEccentricity, mg_getSgConicEccentricity,
    eccByRho, xConic, parabolicPoints, gfxmath_add, gfxmath_subtract, gfxmath_dot_product,
    gfxmath_cross_product, gfxmath_length, gfxmath_normalise, gfxmath_mult_point_by_matrix,
    gfxmath_mult_vector_by_matrix, gfxmath_mult_matrix, gfxmath_triangle_normal,
    gfxmath_triangle_normal_scale, gfxmath_triangle_normal_negative_scale, gfxmath_rotate_axis,
    gfxmath_cartesian_to_spherical_normal, gfxmath_spherical_to_cartesian_normal, overloads,
    copiesOfViews, generalTransform, allClashes, searchIndex, makeIndex, tessellate, outlines,
    arrays, list<int>, list<double>, list<P>, list<V>, list<mgIndexPair_c>,
    selection<uoSelectType_c>, selection<uoSelectConstraint_c>, texts, archive, switchOfSpheres,
    randomDirection);
