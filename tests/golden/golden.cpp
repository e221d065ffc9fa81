// SPDX-License-Identifier: MIT
// Prints one line for each exported operation, and for families of operations that callers inline.
// A line is made of every bit of the results for a fixed stream of arguments, and is the same from
// every compiler, optimisation and word size. What depends on the trigonometric functions of the C
// library has lines of its own, with numbers: those functions differ between C libraries.

#include "golden/golden.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

namespace {

using namespace golden;

constexpr int rounds = 20000;

void vectors(Stream &in, Bits &out) {
    mgVector_c const a = in.vector(), b = in.vector();
    out.add(a * b, a % b, a / b.x(), in.direction(), a.anyUnitNormal(1));
    out.add(a.pullBack(b, in.vector()));
    mgPoint_c const p = in.point(), q = in.point(), r = in.point();
    out.add(p.distToLine(q, r));
}

void matrices(Stream &in, Bits &out) {
    mgXform_c const a = in.placement(), b = in.placement();
    out.add(mg_RestoreXform(a.rotation() * b.rotation(), mgVector_c(), 1.0),
            mg_RestoreXform(a.rotation().inverse(), mgVector_c(), 1.0),
            a.rotation().getDeterminant());
}

void transforms(Stream &in, Bits &out) {
    mgXform_c const a = in.placement(), b = in.placement();
    out.add(a * b, a.inverse(), in.point() * a);
    out.add(in.vector() * b);
    out.add(in.direction() * b);
    out.add(mg_ReflectionXform(in.direction()));
}

void boxes(Stream &in, Bits &out) {
    mgBBox_c a, b;
    for (int i = 0; i < 10; ++i) {
        a |= in.point();
        b |= in.point();
    }
    mgXform_c const xa = in.placement(), xb = in.placement();
    out.add(mgBBox_c::clash(a, xa, b, xb), a.clash(&b, 1e-8), a.isValid());
    out.add(a *= xa);
    out.add(a |= b);
    out.add(a &= b);
}

void bulk(Stream &in, Bits &out) {
    mgPoint_c points[11];
    for (mgPoint_c &p : points) p = in.point();
    mgBBox_c box;
    mg_TransformPoints(points, 11, in.placement());
    mg_BoundPoints(points, 11, box);
    for (mgPoint_c const &p : points) out.add(p);
    out.add(box);
}

void products(Stream &in, Bits &out) {
    mgXform_c placements[11];
    for (mgXform_c &x : placements) x = in.placement();
    mg_MultiplyXforms(placements, 11, in.placement());
    mg_MultiplyXforms(placements, 11, placements);
    for (mgXform_c const &x : placements) out.add(x);
}

/// An assembly.
struct Parts {
    static constexpr int kCount = 60;
    explicit Parts(Stream &in) {
        for (int i = 0; i < kCount; ++i) {
            boxes[i] = {in.point(), in.point()};
            placements[i] = in.placement();
        }
    }
    mgBBox_c boxes[kCount];
    mgXform_c placements[kCount];
};

void clashes(Stream &in, Bits &out) {
    Parts const parts(in);
    addClashes(out, parts.boxes, parts.placements, Parts::kCount);
}

void index(Stream &in, Bits &out) {
    Parts const parts(in);
    mgPoint_c const p = in.point();
    mgUnitVector_c const dir = in.direction();
    mgXform_c const *const choices[] = {nullptr, parts.placements};
    for (mgXform_c const *const placed : choices) {
        mgBoxIndex_c boxIndex;
        out.add(boxIndex.build(parts.boxes, placed, Parts::kCount));
        for (int i = 0; i < Parts::kCount; i += 7) boxIndex.move(i, {in.point(), in.point()});
        boxIndex.place(1, parts.placements[2]);
        mgBoxIndex_c other(std::move(boxIndex));
        boxIndex = std::move(other);
        addSearches(out, boxIndex, parts.boxes[5], p, dir);
    }
}

void print(std::uint64_t bits, char const *name) { std::printf("%016" PRIx64 " %s\n", bits, name); }

void family(char const *name, void (*run)(Stream &, Bits &), int times = rounds) {
    Stream in;
    Bits out;
    for (int i = 0; i < times; ++i) run(in, out);
    print(out.value(), name);
}

/// Arguments of each kind in turn.
void exact(Row const &row) {
    constexpr Numbers kinds[] = {Numbers::ordinary, Numbers::wide, Numbers::lattice,
                                 Numbers::hostile};
    Stream in;
    Bits out;
    for (int i = 0; i < 400; ++i) {
        in.become(kinds[i % 4]);
        row.run(in, out);
    }
    print(out.value(), row.name.c_str());
}

/// How many numbers the results have, and a sample of them.
void trigonometric(Row const &row) {
    constexpr std::size_t most = 24;
    Stream in(Numbers::tame);
    std::vector<double> numbers;
    Bits out;
    out.numbers = &numbers;
    for (std::size_t i = 0; i < most && numbers.size() < most; ++i) row.run(in, out);
    std::size_t const count = numbers.size(), shown = std::min(count, most);
    std::printf("trig %zu %zu", shown + 1, count);
    for (std::size_t k = 0; k < shown; ++k) std::printf(" %.17g", numbers[k * count / shown]);
    std::printf(" %s\n", row.name.c_str());
}

} // namespace

int main() {
    mg_SetUseVectorUnits(mg_GetUseVectorUnits()); // as they are
    family("vectors", vectors);
    family("matrices", matrices);
    family("transforms", transforms);
    family("bulk", bulk);
    family("products", products);
    family("clashes", clashes, rounds / 50);
    family("index", index, rounds / 50);
    family("boxes", boxes);
    for (Row const &row : allRows()) row.isExact ? exact(row) : trigonometric(row);
}
