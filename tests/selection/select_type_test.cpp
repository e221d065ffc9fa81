// SPDX-License-Identifier: MIT
// The operations of the selection sets, for both classes.

#include <vexmath/select_type.h>

#include <initializer_list>
#include <vector>

#include <gtest/gtest.h>

namespace {

uoSelTypes_e codeOf(uoSelectType_c const *, int number) {
    return static_cast<uoSelTypes_e>(number);
}
uoSelConstraint_e codeOf(uoSelectConstraint_c const *, int number) {
    return static_cast<uoSelConstraint_e>(number);
}

/// A set filled as it stands, duplicates included.
template <class Set>
struct Raw : Set {
    Raw(std::initializer_list<int> numbers) {
        for (int const number : numbers) this->words_.Add(static_cast<std::uint32_t>(number));
    }
};

std::vector<long> listed(std::initializer_list<long> numbers) { return numbers; }

template <class Set>
class SelectSets : public ::testing::Test {
protected:
    static auto code(int number) { return codeOf(static_cast<Set const *>(nullptr), number); }

    static std::vector<long> codes(Set const &set) {
        std::vector<long> result(static_cast<std::size_t>(set.getNumOfTypes()));
        set.getTypes(result.data());
        return result;
    }

    static void CheckRelations(Raw<Set> const &a, Raw<Set> const &b, int meets, int contains,
                               int equals, std::vector<long> const &intersection) {
        EXPECT_EQ(meets, static_cast<Set const &>(a) & b);
        EXPECT_EQ(contains, a.contains(b));
        EXPECT_EQ(equals, static_cast<Set const &>(a) == b);
        EXPECT_EQ(intersection, codes(a.intersection(b)));
    }
};

using SetTypes = ::testing::Types<uoSelectType_c, uoSelectConstraint_c>;
TYPED_TEST_SUITE(SelectSets, SetTypes, ); // the empty argument is the default naming

TEST(SelectSet, ConstructorRefusesNothingAndOnlyTypesRefuseMinusOne) {
    EXPECT_EQ(0, uoSelectType_c(uoSelTypes_e(0)).getNumOfTypes());
    EXPECT_EQ(0, uoSelectType_c(uoSelTypes_e(-1)).getNumOfTypes());
    EXPECT_EQ(0, uoSelectType_c(uoSelTypes_e(-2)).getIndex(uoSelTypes_e(-2)));
    EXPECT_EQ(0, uoSelectConstraint_c(uoSelConstraint_e(0)).getNumOfTypes());
    EXPECT_EQ(0, uoSelectConstraint_c(uoSelConstraint_e(-1)).getIndex(uoSelConstraint_e(-1)));
    EXPECT_EQ(cvSelectType_e(76), uoSelectType_c::uoTypeToAuType(uoSelTypes_e(76)));
}

TYPED_TEST(SelectSets, AddKeepsOrderAndSkipsWhatIsPresent) {
    TypeParam set;
    for (int const number : {7, -2, 0, 7, -1, 0}) set.add(this->code(number));
    EXPECT_EQ(listed({7, -2, 0, -1}), this->codes(set));
    EXPECT_EQ(1, set.getIndex(this->code(-2)));
    EXPECT_EQ(-1, set.getIndex(this->code(8)));
    EXPECT_EQ(listed({0, -1}), this->codes(this->code(0) | this->code(-1)));
    EXPECT_EQ(listed({5}), this->codes(this->code(5) | this->code(5)));
}

TYPED_TEST(SelectSets, UnsetRemovesFirstOccurrences) {
    Raw<TypeParam> set{1, 2, 1, 3, 1};
    set.unset(this->code(4));
    set.unset(this->code(1));
    EXPECT_EQ(listed({2, 1, 3, 1}), this->codes(set));
    set.unset(Raw<TypeParam>{1, 3, 9});
    EXPECT_EQ(listed({2, 1}), this->codes(set));
    set.unset(set);
    EXPECT_EQ(listed({}), this->codes(set));
}

TYPED_TEST(SelectSets, UnionsDropDuplicatesAndAssignmentKeepsThem) {
    Raw<TypeParam> const doubled{1, 1, 2};
    EXPECT_EQ(listed({1, 2, 3}), this->codes(doubled | this->code(3)));
    EXPECT_EQ(listed({1, 2}), this->codes(doubled | this->code(1)));
    EXPECT_EQ(listed({1, 2, 4}), this->codes(doubled | Raw<TypeParam>{4, 2, 4}));

    TypeParam set(this->code(9));
    set = doubled;
    EXPECT_EQ(listed({1, 1, 2}), this->codes(set));
    TypeParam &self = set;
    set = self;
    set |= self;
    EXPECT_EQ(listed({1, 1, 2}), this->codes(set));
    TypeParam const copy(set);
    (set |= Raw<TypeParam>{3, 2, 3}) |= TypeParam(this->code(5));
    EXPECT_EQ(listed({1, 1, 2, 3, 5}), this->codes(set));
    EXPECT_EQ(listed({1, 1, 2}), this->codes(copy));
}

TYPED_TEST(SelectSets, RelateByMatchedElements) {
    this->CheckRelations({1, 2}, {2}, 1, 1, 0, {2});
    this->CheckRelations({1, 2}, {3, 2, 1}, 1, 0, 0, {2, 1});
    this->CheckRelations({1, 2}, {2, 1}, 1, 1, 1, {2, 1});
    this->CheckRelations({1, 2}, {1, 3}, 1, 0, 0, {1});
    this->CheckRelations({1, 2}, {3}, 0, 0, 0, {});
    this->CheckRelations({}, {}, 0, 1, 1, {});
    this->CheckRelations({1}, {}, 0, 1, 0, {});
    this->CheckRelations({}, {1}, 0, 0, 0, {});
    this->CheckRelations({}, {0}, 1, 0, 0, {0}); // "nothing" is matched by the empty set
    this->CheckRelations({0}, {}, 0, 1, 0, {});
    this->CheckRelations({0}, {0}, 0, 0, 0, {}); // and by no other, not even one that holds it
    this->CheckRelations({0, 1}, {1, 0}, 1, 0, 0, {1});
}

TYPED_TEST(SelectSets, DuplicatesCountInComparisons) {
    this->CheckRelations({1}, {1, 1}, 1, 0, 0, {1});
    this->CheckRelations({1, 1}, {1}, 1, 1, 0, {1});
    this->CheckRelations({1, 2}, {1, 1}, 1, 1, 1, {1});
    this->CheckRelations({1, 1}, {1, 2}, 1, 0, 0, {1});
}

TYPED_TEST(SelectSets, MeetACodeWhenItIsPresent) {
    Raw<TypeParam> const empty{}, set{3, 0};
    EXPECT_EQ(1, empty & this->code(0));
    EXPECT_EQ(0, empty & this->code(3));
    EXPECT_EQ(0, set & this->code(0));
    EXPECT_EQ(1, set & this->code(3));
    EXPECT_EQ(0, set & this->code(-1));
}

} // namespace
