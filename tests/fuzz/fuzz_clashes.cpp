// SPDX-License-Identifier: MIT
// Boxes made of a few numbers, so that many coordinates are equal: the clashes found among them are
// those of the loop over the single tests.

#include "numbers_from_bytes.h"

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/xform.h>

#include <cstdlib>

namespace {

constexpr int kBoxes = 60; // more than the library tests one by one
constexpr int kNumbers = 16;

/// Digits of the input choose among the numbers.
class Chooser {
public:
    explicit Chooser(NumbersFromBytes &in) : in_(in) {
        for (double &number : numbers_) number = in.next();
    }

    double next() {
        if (left_ == 0) {
            double const digits = in_.next();
            std::memcpy(&digits_, &digits, sizeof digits_);
            left_ = 16;
        }
        --left_;
        double const chosen = numbers_[digits_ % kNumbers];
        digits_ /= kNumbers;
        return chosen;
    }

private:
    NumbersFromBytes &in_;
    double numbers_[kNumbers];
    std::uint64_t digits_ = 0;
    int left_ = 0;
};

/// Are the pairs those of the loop, in its order?
template <class Test>
void check(suDynamicArray<mgIndexPair_c> const &pairs, int found, Test const &test) {
    int k = 0;
    for (int i = 0; i < kBoxes; ++i)
        for (int j = i + 1; j < kBoxes; ++j) {
            if (test(i, j) == 0) continue;
            if (k == pairs.Count() || pairs[k].first != i || pairs[k].second != j) std::abort();
            ++k;
        }
    if (k != found || k != pairs.Count()) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    NumbersFromBytes in(data, size);
    double const tol = in.next();
    Chooser chooser(in);
    mgBBox_c boxes[kBoxes];
    mgXform_c placements[kBoxes];
    for (int i = 0; i < kBoxes; ++i) {
        double members[10];
        for (double &member : members) member = chooser.next();
        boxes[i].set(members);
        if (members[6] < 0.0) boxes[i].setSphereOnly(mgPoint_c(members + 6), members[9]);
        mgUnitVector_c const z(members[7], members[8], members[9]), x(members[0], 0.0, members[6]);
        placements[i] = mgXform_c(z, x, mgVector_c(members[3], members[8], 0.0));
    }
    suDynamicArray<mgIndexPair_c> pairs;
    mg_SetUseVectorUnits(static_cast<int>(size % 2));
    int found = mg_FindClashes(boxes, kBoxes, tol, pairs);
    check(pairs, found, [&](int i, int j) { return boxes[i].clash(&boxes[j], tol); });
    found = mg_FindClashes(boxes, placements, kBoxes, pairs);
    check(pairs, found, [&](int i, int j) {
        return mgBBox_c::clash(boxes[i], placements[i], boxes[j], placements[j]);
    });
    return 0;
}
