// SPDX-License-Identifier: MIT
// Sets of selection codes: none, the code 0 and duplicates. Any sets without duplicates:
// fuzz/fuzz_selection.cpp.

#include "common/geometry.h"

namespace {

using Codes = std::vector<long>;

/// A set of exactly these codes, duplicates included.
template <class Set>
struct Raw : Set {
    Raw(Codes const &codes) {
        for (long const code : codes) this->words_.Add(static_cast<std::uint32_t>(code));
    }
};

template <class Set>
Codes codesOf(Set const &set) {
    Codes result(static_cast<std::size_t>(set.getNumOfTypes()));
    set.getTypes(result.data());
    return result;
}

// Each test runs for both classes, with the codes of each.
template <class Test>
void forBoth(Test test) {
    test(uoSelectType_c(), [](int number) { return uoSelTypes_e(number); });
    test(uoSelectConstraint_c(), [](int number) { return uoSelConstraint_e(number); });
}

TEST(SelectSets, EditsKeepTheOrderAndTheDuplicates) {
    forBoth([](auto set, auto c) {
        using Set = decltype(set);
        EXPECT_EQ(8, static_cast<int>(Set::uoTypeToAuType(c(8))));
        EXPECT_EQ((Codes{0, -1}), codesOf(c(0) | c(-1)));

        Raw<Set> const doubled({1, 1, 2});
        EXPECT_EQ((Codes{1, 2}), codesOf(doubled | c(1)));
        EXPECT_EQ((Codes{1, 2, 4}), codesOf(doubled | Raw<Set>({4, 2, 4})));
        Set const copy = set = doubled; // which keeps duplicates
        Set &self = set;
        set = self;
        (set |= self) |= Raw<Set>({3, 2, 3});
        EXPECT_EQ((Codes{1, 1, 2, 3}), codesOf(set));
        EXPECT_EQ((Codes{1, 1, 2}), codesOf(copy));

        Raw<Set> rest({1, 2, 1, 3, 1}); // first occurrences are removed
        rest.unset(c(4)), rest.unset(c(1));
        EXPECT_EQ((Codes{2, 1, 3, 1}), codesOf(rest));
        rest.unset(Raw<Set>({1, 3, 9}));
        EXPECT_EQ((Codes{2, 1}), codesOf(rest));
        rest.unset(rest);
        EXPECT_EQ(Codes{}, codesOf(rest));
    });
}

void CheckRelations(Codes const &a, Codes const &b, int meets, int contains, int equals,
                    Codes const &intersection) {
    forBoth([&](auto left, auto) {
        using Set = decltype(left);
        Raw<Set> const right(b);
        left = Raw<Set>(a);
        EXPECT_EQ(meets, left & right);
        EXPECT_EQ(contains, left.contains(right));
        EXPECT_EQ(equals, left == right);
        EXPECT_EQ(!equals, left != right);
        EXPECT_EQ(intersection, codesOf(left.intersection(right)));
    });
}

TEST(SelectSets, RelateByMatchedElements) {
    CheckRelations({1, 2}, {3, 2, 1}, 1, 0, 0, {2, 1}), CheckRelations({}, {}, 0, 1, 1, {});
    CheckRelations({}, {0}, 1, 0, 0, {0}); // "nothing" is matched by the empty set
    CheckRelations({0}, {0}, 0, 0, 0, {}); // and by no other, not even one that holds it
    CheckRelations({0, 1}, {1, 0}, 1, 0, 0, {1});
}

TEST(SelectSets, DuplicatesCountInComparisons) {
    CheckRelations({1, 1}, {1}, 1, 1, 0, {1}), CheckRelations({1, 2}, {1, 1}, 1, 1, 1, {1});
    CheckRelations({1, 1}, {1, 2}, 1, 0, 0, {1});
}

} // namespace
