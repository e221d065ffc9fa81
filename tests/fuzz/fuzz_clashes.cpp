// SPDX-License-Identifier: MIT
// Boxes and placements that often touch, or miss each other by what decides: the clashes found
// among them, by one call or by an index, are those of the loop over the single tests. Placed boxes
// clash as by the steps for single boxes.

#include "fuzz.h"

namespace {

using Pairs = suDynamicArray<mgIndexPair_c>;
using Indices = suDynamicArray<int>;

/// Boxes and placements on a small lattice, near the origin or far from it.
struct Lattice {
    explicit Lattice(Input &input) : in(input), frame(in.flip() ? mgMatrix_c() : in.rotation()) {
        double const tols[] = {0.0, 0.0, -0.0, 1e-8, 0.25, -0.25, 1.0, -1.0, 1e8, 1e30, 1e39};
        double const offsets[] = {0.0, 0.0, 0.0, 0.0, 1e3, 1e7, -1e15, 1e30};
        double const sizes[] = {1.0, 1.0, 1.0, 1.0, 1e-9, 1e-4, 1e6, 1e9};
        tol = in.flip() ? tols[in.below(11)] : in.number();
        offset = offsets[in.below(8)];
        size = in.byte() < 200 ? sizes[in.below(8)] : 1e-15 * std::fabs(offset);
    }

    /// On the lattice, or off it by what rounding and tolerances decide.
    double coordinate() {
        double const at = in.below(4), by = std::fabs(tol) < 1e3 ? tol : 0.0;
        double const near[] = {at + 1e-8,
                               at - 1e-8,
                               at + 5e-9,
                               at - 5e-9,
                               at + 1.1e-8,
                               at + 0.125,
                               at - 0.125,
                               at + by,
                               at - by,
                               std::nextafter(at, 9.0),
                               std::nextafter(at, -9.0)};
        int const kind = in.byte();
        return kind < 2 ? in.number() : kind % 20 < 11 ? near[kind % 20] : at;
    }
    P corner() {
        double const x = coordinate(), y = coordinate(), z = coordinate();
        return {x * size + offset, y * size + offset, z * size + offset};
    }

    /// At times with a sphere of another place or size, a point, or unset.
    mgBBox_c box() {
        P const a = corner(), b = corner();
        mgBBox_c box(a, b);
        double const r = box.sphRadius(), any = in.number(),
                     radii[] = {0.0, 0.5, 1.0, 2.0, r, r * (1 + 2e-9), r * (1 - 2e-9), any};
        int const kind = in.below(32);
        if (kind < 8) box.setSphereOnly(kind < 2 ? box.sphCenter() : corner(), radii[in.below(8)]);
        if (kind == 8) box.setCornersOnly(b, a);
        if (kind == 9) return {a, a};
        if (kind == 10) return {};
        if (kind == 11) return in.box();
        if (kind == 12) { // barely reaches the farthest corner, or not
            double const away = std::pow(10.0, 5 + in.below(7)) * (in.flip() ? size : -size);
            P const from = box.low() - V(away, away, away), to = away > 0 ? box.high() : box.low();
            box.setSphereOnly(from, (to - from).len() * (1.0 - 1e-9 * in.below(3)));
        }
        return box;
    }

    /// Quarters and eighths of a turn in the frame. Of these, some are off by what copies decide.
    void place(mgXform_c &x) {
        U const axes[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
        int const kind = in.below(32);
        double const eighths = kind < 24 ? 2 * in.below(4) : in.below(8),
                     off = in.below(3) == 0 ? in.number() * 1e-9 : 0.0;
        U const axis = kind == 31 ? in.direction() : axes[in.below(3)];
        mgMatrix_c turn = mg_RotationMatrix(eighths * (kPi / 4) + off, axis, 0.0) * frame;
        double const any = in.number(), scales[] = {1, 1, 1, 1, 1 + 5e-9, 1 + 2e-8, 3, any};
        double const scale = kind == 6 ? 5e-4 : scales[in.below(8)];
        for (int k = 0; k < 3 && kind == 0; ++k) turn[k] = -turn[k];
        if (kind == 1) turn[in.below(9)] += std::pow(10.0, -1 - in.below(9));
        if (kind == 2) turn = mgMatrix_c(), turn[1] = 0.5; // flagged as identity
        V const here(offset, offset, offset);
        V const shift = (0.5 * (V(corner()) - here)) * frame - (here * turn) * scale;
        x.SetHelper({turn, shift, scale, kind == 3 ? 1 : 0, nullptr});
        if (kind == 4) x.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, -9.0, 2.0));
        if (kind == 5) x.SetHelper(in.placement().GetHelper());
    }

    /// Along an axis, nearly along it, to another corner, or any.
    U direction(P const &from) {
        int const kind = in.below(8);
        U dir;
        if (kind == 0) dir.set(1e-8, std::nextafter(-1e-8, 0.0), 1.0);
        return kind == 0 ? dir : kind < 4 ? in.direction() : mg_Normalise(corner() - from);
    }

    Input &in;
    mgMatrix_c const frame;
    double tol, offset, size;
};

bool clashLiterally(mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                    mgXform_c const &xb) {
    if (!a.isSet() || !b.isSet()) return false;
    mgXform_c const intoA = xb * xa.inverse();
    double const distance = (b.sphCenter() * intoA - a.sphCenter()).len();
    return distance + 1e-08 <= a.sphRadius() + b.sphRadius()
           && (mgBBox_c(b) *= intoA).clash(&a, 1e-08)
           && (mgBBox_c(a) *= intoA.inverse()).clash(&b, 1e-08);
}

/// Are the pairs those of the loop, in its order? Of long lists, only some tests are repeated.
template <class Test>
void checkPairs(Pairs const &pairs, int found, int countA, int countB, bool isSame,
                Test const &test) {
    int k = 0;
    for (int i = 0; i < countA; ++i)
        for (int j = isSame ? i + 1 : 0; j < countB; ++j) {
            bool const isFound = k < pairs.Count() && pairs[k].first == i && pairs[k].second == j;
            k += isFound;
            if (countA < 200 || (31 * i + j) % 97 == 0) CHECK(isFound == (test(i, j) != 0));
        }
    CHECK(k == found && k == pairs.Count() && (k == 0) == (pairs.Data() == nullptr));
}

/// Are the indices those of the loop?
template <class Test>
void checkIndices(Indices const &list, int found, int count, Test const &test) {
    int k = 0;
    for (int i = 0; i < count; ++i)
        if (test(i) != 0) CHECK(k < list.Count() && list[k++] == i);
    CHECK(k == found && k == list.Count() && (k == 0) == (list.Data() == nullptr));
}

/// The pairs of some of the boxes, given in any order, and at times of none.
void checkSome(Input &in, mgBoxIndex_c const &index, int count, double tol, Pairs const &all) {
    std::vector<int> some(static_cast<std::size_t>(in.below(6)));
    for (int &i : some) i = in.word() % (count + 2) - 1;
    auto const has = [&](int i) { return std::count(some.begin(), some.end(), i) > 0; };
    Pairs of;
    int const found = index.clashesOf(some.data(), static_cast<int>(some.size()), tol, of);
    int k = 0;
    for (mgIndexPair_c const &pair : all)
        if (has(pair.first) || has(pair.second)) {
            CHECK(k < of.Count() && of[k].first == pair.first && of[k].second == pair.second);
            ++k;
        }
    CHECK(k == found && k == of.Count() && (k == 0) == (of.Data() == nullptr));
}

void checkLine(mgBoxIndex_c const &index, std::vector<mgBBox_c> const &boxes, P const &p,
               U const &dir) {
    Indices which;
    int const found = index.onLine(p, dir, which), count = static_cast<int>(boxes.size());
    checkIndices(which, found, count, [&](int i) { return boxes.data()[i].isRayHit(p, dir); });
    int first = -1;
    P nearest = unwritten, hit = unwritten, replaced = p, at;
    for (int i = 0; i < count; ++i) {
        if (boxes.data()[i].getFirstRayHit(p, dir, &at) == 0) continue;
        if (first >= 0 && (at - p).len() >= (nearest - p).len()) continue;
        first = i, nearest = at;
    }
    CHECK(index.firstOnRay(p, dir, &hit) == first && same(hit, nearest));
    CHECK(index.firstOnRay(replaced, dir, &replaced) == first);
    CHECK(same(replaced, first < 0 ? p : nearest));
}

/// Boxes, perhaps placed, and other boxes.
void checkScene(Lattice &lattice, int count, bool isPlaced) {
    Input &in = lattice.in;
    double const tol = lattice.tol;
    std::vector<mgBBox_c> all(static_cast<std::size_t>(count) + 1),
        others(in.flip() ? all.size() : all.size() / 2);
    std::vector<mgXform_c> forms(all.size());
    mgBBox_c *const boxes = all.data(), *const more = others.data();
    mgXform_c *const placements = forms.data();
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = lattice.box();
        if (isPlaced) lattice.place(forms[i]);
    }
    for (std::size_t i = 0; i < others.size(); ++i) others[i] = in.flip() ? all[i] : lattice.box();
    auto const clash = [&](int i, int j) {
        return isPlaced ? mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j])
                        : boxes[i].clash(&boxes[j], tol);
    };
    for (int i = 0; i < count && isPlaced; ++i)
        CHECK(clash(i, i + 1)
              == clashLiterally(boxes[i], placements[i], boxes[i + 1], placements[i + 1]));
    Pairs pairs;
    int found = timed([&] {
        return isPlaced ? mg_FindClashes(boxes, placements, count, pairs)
                        : mg_FindClashes(boxes, count, tol, pairs);
    });
    checkPairs(pairs, found, count, count, true, clash);
    int const n = static_cast<int>(others.size());
    found = timed([&] { return mg_FindClashes(boxes, count, more, n, tol, pairs); });
    checkPairs(pairs, found, count, n, false,
               [&](int i, int j) { return boxes[i].clash(&more[j], tol); });

    mgBoxIndex_c index;
    CHECK(timed([&] { return index.build(boxes, isPlaced ? placements : nullptr, count); }) == 1);
    for (int i = in.below(8); i < count; i += 5 + in.below(99)) {
        boxes[i] = lattice.box(), index.move(i, boxes[i]);
        if (isPlaced) lattice.place(placements[i]), index.place(i, placements[i]);
    }
    std::vector<mgBBox_c> placed(all.begin(), all.end() - 1);
    for (std::size_t i = 0; i < placed.size() && isPlaced; ++i) placed[i] *= forms[i];
    mgBBox_c const *const at = placed.data();
    found = timed([&] { return index.clashes(tol, pairs); });
    checkPairs(pairs, found, count, count, true, clash);
    checkSome(in, index, count, tol, pairs);
    for (int k = 0; k < 3; ++k) {
        mgBBox_c const sought = lattice.box();
        P const p = lattice.corner();
        U const dir = lattice.direction(p);
        Indices which;
        found = index.clashesWith(sought, tol, which);
        checkIndices(which, found, count, [&](int i) { return at[i].clash(&sought, tol); });
        found = index.around(p, tol, which);
        checkIndices(which, found, count, [&](int i) { return at[i].containsPoint(p, tol); });
        checkLine(index, placed, p, dir), checkLine(index, placed, p - 1e6 * dir, dir);
    }
}

} // namespace

void fuzz(Input &in) {
    mg_SetUseVectorUnits(in.flip());
    int const kind = in.byte(); // a few boxes, or about as many as the library tests one by one
    Lattice lattice(in);
    checkScene(lattice, in.isRare() ? 1000 : kind < 128 ? kind % 16 : 40 + kind % 32, in.flip());
}
