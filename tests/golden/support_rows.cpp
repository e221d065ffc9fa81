// SPDX-License-Identifier: MIT
// Rows of the golden file: archive records, text forms, arrays, display maths, selection sets.

#include "golden/golden.h"

#include <sstream>

#include "common/records.h"

namespace golden {

namespace {

/// The bytes of a record.
struct Record {
    std::stringstream stream;
    su_CArchive archive{stream};

    void keep(Bits &out) const {
        for (char const byte : stream.str()) out.add(static_cast<unsigned char>(byte));
    }
};

using common::get, common::put, common::save, common::save2D;
using common::restore, common::restore2D, common::restoreAsIs;

/// Writes an object and reads it into another one.
template <class T, class Archive, class Write, class Read>
void record(Stream &in, Bits &out, Write write, Read read) {
    T object, other;
    in.calm(), in.fill(object), in.fill(other);
    Record memory;
    write(static_cast<Archive &>(memory.archive), object);
    memory.keep(out);
    out.add(object);
    read(static_cast<Archive &>(memory.archive), other);
    out.add(other);
}

// clang-format off
#define RECORD(T, Archive, write, read)                                                            \
    Row {#T " " #write " " #read " " #Archive,                                                     \
         [](Stream &in, Bits &out) { record<T, Archive>(in, out, write, read); }}
// clang-format on

/// Three numbers that were saved as a point: what a vector can only read.
template <class T>
void readNumbers(Stream &in, Bits &out) {
    mgPoint_c point;
    T object;
    in.fill(point);
    Record memory;
    point.save(memory.archive);
    object.restore(memory.archive);
    out.add(object);
}

template <class T>
void text(Stream &in, Bits &out) {
    T object, other;
    in.calm(), in.fill(object), in.fill(other);
    CString form;
    object.saveStringRep(form);
    out.add(form, other.restoreStringRep(form));
    out.add(other);
}

/// Whether the error of an empty stream survives copying.
bool error(su_CArchive &archive) {
#if defined(_WIN32) && !defined(_WIN64) // its unwinder cannot leave a DLL
    return static_cast<void>(archive), true;
#else
    try {
        int number = 0;
        archive >> number;
    } catch (su_CArchiveError const &thrown) {
        su_CArchiveError copy(thrown), other("other");
        other = copy;
        return std::strcmp(other.what(), thrown.what()) == 0;
    }
    return false;
#endif
}

/// Every type of item, and a stream that ends too early.
void items(Stream &in, Bits &out) {
    Record memory;
    unsigned char byte = static_cast<unsigned char>(in.below(256));
    int number = in.below(1 << 30) - (1 << 29);
    unsigned long word = static_cast<unsigned long>(in.below(1 << 30));
    in.calm();
    double real = in.next();
    memory.archive << byte << number << word << real;
    memory.keep(out);
    memory.archive >> number >> byte >> word >> real;
    out.add(byte, number, word, real);
    out.add(error(memory.archive));
}

void format(Stream &in, Bits &out) {
    CString form;
    int const whole = in.below(100);
    form.Format(L"%d %.17g", whole, 1.0 / (1 + in.below(100)));
    out.add(form);
}

void dump(Stream &in, Bits &out) {
    std::wostringstream stream;
    CDumpContext context(stream);
    mgBBox_c box;
    in.calm(), in.fill(box);
    box.dump();
    in.point().Dump(context << L"at ");
    out.add(CString(stream.str().c_str()));
}

/// Random operations on an array for C callers.
void arrays(Stream &in, Bits &out) {
    int const growth = 1 + in.below(2), step = in.below(5), capacity = in.below(4);
    void *list = in.below(2) == 0 ? suDynArrayAlloc(capacity, step, growth, 4)
                                  : suDynArrayAllocSpecial(0, step, growth, 4);
    void *const other = suDynArrayAlloc1(3, list);
    auto const become = [&](void *array) { list = array != nullptr ? array : list; };
    int const items[] = {3, 1, 4, 1};
    amDynamicArrayAdd(other, items);
    for (int round = 0; round < 20; ++round) {
        int const at = in.below(6), n = in.below(5), operation = in.below(9);
        if (operation == 0) become(amDynamicArrayAppend(list, other));
        if (operation == 1) become(amDynamicArrayInsertAt(list, at, items, n));
        if (operation == 2) amDynamicArraySetAt(list, items, at, n);
        if (operation == 3) amDynamicArrayRemoveAt(list, at, n);
        if (operation == 4) amDynamicArrayResize(list, 6 + n);
        if (operation == 5) out.add(amDynamicArrayReverseFromTo(list, at, at + n));
        if (operation == 6) become(amDynArrayRealloc(list, 5 * at));
        if (operation == 7) become(amDynamicArrayFreeExtra(list, 0.25));
        if (operation == 8) become(amDynamicArrayAdd(list, &round));
        void *const copy = amDynamicArrayCopy(list, round % 2);
        int growStep = 0, growMode = 0, size = 0;
        suDynamicGetStats(copy, &growStep, &growMode, &size);
        out.add(amDynamicArrayCount(copy), growStep, growMode, size);
        for (int k = 0; k < amDynamicArrayCount(copy); ++k) out.add(static_cast<int *>(copy)[k]);
        amDynamicArrayFree(copy);
    }
    amDynamicArrayRangeError();
    amDynamicArrayFree(other), amDynamicArrayFree(list);
}

/// Copies of a list, each with what the other lacks.
template <class T>
void lists(Stream &in, Bits &out) {
    suDynamicArray<T> list, other;
    for (int n = in.below(20); n > 0; --n) {
        T item{};
        in.fill(item);
        list.Add(item);
    }
    suDynamicArray<T> copy(list);
    other = copy;
    if (other.Count() > 0) copy.Add(other[0]), other.Data()[0] = copy[copy.Count() - 1];
    out.add(list, copy, other);
    copy.Adopt(nullptr);
    out.add(copy);
}

template <class Set, class Code>
void selection(Stream &in, Bits &out) {
    Code codes[24];
    for (Code &code : codes) code = static_cast<Code>(in.below(9) == 0 ? 244 : in.below(12) - 2);
    auto const add = [&](Set const &set) {
        std::vector<long> types(300);
        set.getTypes(types.data());
        for (int k = 0; k < set.getNumOfTypes(); ++k) out.add(types[static_cast<std::size_t>(k)]);
    };
    Set a(codes[0]), b = codes[1] | codes[2];
    for (int n = 4; n < 8 + in.below(8); ++n) a.add(codes[n]), b = b | codes[n + 8];
    Set const both = a | b;
    add(a), add(both), add(both.intersection(a));
    out.add(a & b, a & codes[3], a == b, both.contains(a), both.contains(b),
            both.getIndex(codes[4]), Set::uoTypeToAuType(codes[5]));
    a.unset(codes[6]), b.unset(a), a |= b;
    add(a), add(b);
    b = a;
    add(b);
}

} // namespace

Table supportRows() {
    return joined({
        {RECORD(mgPoint_c, CArchive, save, restore),
         RECORD(mgPoint_c, CArchive, save2D, restore2D),
         RECORD(mgPoint_c, su_CArchive, put, get),
         {"mgVector_c restore", readNumbers<mgVector_c>},
         {"mg2DPoint_c restore", readNumbers<mg2DPoint_c>},
         RECORD(mgMatrix_c, su_CArchive, save, restore),
         RECORD(mgMatrix_c, su_CArchive, save, restoreAsIs),
         RECORD(mgMatrix_c, CArchive, save, restore),
         RECORD(mgMatrix_c, CArchive, save, restoreAsIs),
         RECORD(mgXform_c, su_CArchive, save, restore),
         RECORD(mgXform_c, su_CArchive, save, restoreAsIs),
         RECORD(mgXform_c, CArchive, save, restore),
         RECORD(mgXform_c, CArchive, save, restoreAsIs),
         RECORD(mgXform_c, su_CArchive, put, get),
         RECORD(mgPerspInfo_c, su_CArchive, save, restore),
         RECORD(mgModelPerspInfo_c, su_CArchive, save, restore),
         RECORD(mgBBox_c, su_CArchive, save, restore),
         RECORD(mgLine_c, su_CArchive, save, restore),
         RECORD(mgPlane_c, su_CArchive, save, restore),
         RECORD(mgCone_c, su_CArchive, save, restore),
         RECORD(mgPrimitiveBodyData_c, su_CArchive, save, restore),
         RECORD(mgPrimitiveBodyData_c, CArchive, save, restore),
         {"text of mgBBox_c", text<mgBBox_c>},
         {"text of mgXform_c", text<mgXform_c>},
         {"items of an archive", items},
         {"CString::Format", format},
         {"dump", dump},
         {"arrays for C callers", arrays},
         {"lists of int", lists<int>},
         {"lists of double", lists<double>},
         {"lists of mgPoint_c", lists<mgPoint_c>},
         {"lists of mgVector_c", lists<mgVector_c>},
         {"lists of mgIndexPair_c", lists<mgIndexPair_c>},
         {"uoSelectType_c", selection<uoSelectType_c, uoSelTypes_e>},
         {"uoSelectConstraint_c", selection<uoSelectConstraint_c, uoSelConstraint_e>}},
        GOLDEN(gfxmath_add, gfxmath_subtract, gfxmath_dot_product, gfxmath_cross_product,
               gfxmath_length, gfxmath_normalise, gfxmath_mult_point_by_matrix,
               gfxmath_mult_vector_by_matrix, gfxmath_mult_matrix, gfxmath_triangle_normal,
               gfxmath_triangle_normal_scale, gfxmath_triangle_normal_negative_scale),
        trigonometric({
            GOLDEN(gfxmath_rotate_axis, gfxmath_cartesian_to_spherical_normal,
                   gfxmath_spherical_to_cartesian_normal),
        }),
    });
}

} // namespace golden
