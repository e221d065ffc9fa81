// SPDX-License-Identifier: MIT
// The similarity transform: copies that change the value, composition, what it does to points, and
// who owns the perspective record.

#include <vexmath/mg_transform.h>

#include <cstddef>
#include <type_traits>
#include <utility>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::kNaN;

// The rotation comes first, so that a transform's address serves where its matrix is meant.
static_assert(std::is_standard_layout_v<mgXform_c> && !std::is_trivially_copyable_v<mgXform_c>);
using Helper = mgXform_64BitHelper_c;
static_assert(std::is_trivially_copyable_v<Helper> && std::is_standard_layout_v<Helper>);
static_assert(offsetof(Helper, rotation) == 0 && sizeof(Helper) == sizeof(mgXform_c));
static_assert(offsetof(Helper, translation) == sizeof(mgMatrix_c));
static_assert(offsetof(Helper, scale) == sizeof(mgMatrix_c) + 24);
static_assert(offsetof(Helper, perspective) > offsetof(Helper, reflection));

constexpr double kSmallest = 1.0000000000000002e-13, kLargest = 6e12;
mgMatrix_c const quarter = mg_RotationMatrix(1.5707963267949, mgUnitVector_c::zAxis(), 1e-6);

/// A transform of exactly these fields, which no copy would let through.
struct Raw : mgXform_c {
    Raw(mgMatrix_c const &rotation, mgVector_c const &translation, double scale,
        int reflection = 0) {
        Helper helper;
        helper.rotation = rotation;
        helper.translation = translation;
        helper.scale = scale;
        helper.reflection = reflection;
        SetHelper(helper);
    }
};

/// A quarter turn about z under the flag of the identity.
mgMatrix_c staleQuarter() { return quarter.transpose().transpose(); }

/// Every way to copy gives what a raw record of the expected fields holds.
void checkCopies(mgXform_c const &source, mgXform_c const &expected) {
    mgXform_c assigned = mg_RestoreXform(quarter, {1.0, 2.0, 3.0}, 5.0), self, taken = source;
    assigned = source;
    self.SetHelper(source.GetHelper());
    self = *&self;
    EXPECT_BITS_EQ(expected, mgXform_c(source));
    EXPECT_BITS_EQ(expected, assigned);
    EXPECT_BITS_EQ(expected, self);
    EXPECT_BITS_EQ(expected, mgXform_c(std::move(taken)));
    EXPECT_BITS_EQ(expected, source * mgXform_c()); // the left operand is copied
}

TEST(Xform, CopiesTakeAScaleOutOfRangeAsOne) {
    auto const check = [](double scale, double expected) {
        checkCopies(Raw(quarter, {1.0, 0.0, 0.0}, scale, 1),
                    Raw(quarter, {1.0, 0.0, 0.0}, expected, 1));
        EXPECT_EQ(expected, mg_ScaleXform(scale).scaling());
        EXPECT_EQ(expected, mg_ScaleXform(mgXform_c(), scale).scaling());
        EXPECT_EQ(expected, mg_RestoreXform(quarter, {}, scale).scaling());
    };
    for (double const kept : {above(kSmallest), below(kLargest), 0.5}) check(kept, kept);
    for (double const lost : {kSmallest, kLargest, 0.0, -2.0, support::kInfinity, kNaN})
        check(lost, 1.0);
}

TEST(Xform, CopiesFlushATinyTranslationAndAFlaggedRotation) {
    double const s = below(1e-08);
    checkCopies(Raw(quarter, {s, -s, s}, 2.0), Raw(quarter, {}, 2.0));
    checkCopies(Raw(quarter, {s, 0.0, -1e-08}, 2.0), Raw(quarter, {s, 0.0, -1e-08}, 2.0));
    checkCopies(Raw(quarter, {0.0, kNaN, 0.0}, 2.0), Raw(quarter, {0.0, kNaN, 0.0}, 2.0));
    checkCopies(Raw(staleQuarter(), {}, 2.0), Raw(mgMatrix_c(), {}, 2.0));
    // What is built is not copied.
    Raw const odd(staleQuarter(), {s, s, s}, kLargest);
    EXPECT_BITS_EQ(Raw(staleQuarter(), {}, kLargest), odd.linearComponent());
    EXPECT_BITS_EQ(Raw(staleQuarter(), {s, s, s}, 1.0),
                   mg_RestoreXform(odd.rotation(), odd.translation(), odd.scaling()));
    EXPECT_BITS_EQ(Raw(mgMatrix_c(), {}, 3.0), mg_ScaleXform(odd, 3.0));
}

TEST(Xform, TheResultOfAProductIsCopiedAgain) {
    mgXform_c const a = mg_ScaleXform(1e7), b = Raw({}, {-1.0 + 5e-9, 0.0, 0.0}, 1e6);
    mgXform_c inPlace = a;
    inPlace *= b;
    EXPECT_BITS_EQ(1e13, inPlace.scaling()); // no range here
    EXPECT_BITS_EQ(1.0, (a * b).scaling());
    mgXform_c const back = mg_TranslateXform({1.0, 0.0, 0.0});
    inPlace = back;
    inPlace *= mg_TranslateXform({-1.0 + 5e-9, 0.0, 0.0});
    EXPECT_NEAR(5e-9, inPlace.translation().x(), 1e-16);
    EXPECT_BITS_EQ(mgVector_c(), (back * mg_TranslateXform({-1.0 + 5e-9, 0.0, 0.0})).translation());
    // 1 / 1.2e-13 lies beyond the range.
    EXPECT_BITS_EQ(1.0, Raw({}, {}, 1.2e-13).inverse().scaling());
}

TEST(Xform, CompositionAppliesLeftThenRight) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        mgXform_c const a = support::placement(random), b = support::placement(random);
        auto const p = random.triple<mgPoint_c>(-10.0, 10.0);
        mgXform_c const ab = a * b;
        ASSERT_LT(support::gap((p * a) * b, p * ab), 1e-11); // about 1e-16 of 500, a few times over
        ASSERT_BITS_EQ(b.scaling() * a.scaling(), ab.scaling());
        ASSERT_BITS_EQ(a.rotation() * b.rotation(), ab.rotation());
        ASSERT_BITS_EQ(a.translation() * b + b.translation(), ab.translation());
        ASSERT_LT(support::gap(p, (p * a) * a.inverse()), 1e-12);
        mgXform_c square = a;
        square *= square;
        ASSERT_BITS_EQ(a * mgXform_c(a), square);
    }
}

TEST(Xform, CompositionGoesByTheFlags) {
    Raw flagged(staleQuarter(), {}, 1.0), turned(quarter, {}, 1.0);
    flagged *= mgXform_c(); // both flags set: left alone, elements and all
    EXPECT_BITS_EQ(Raw(staleQuarter(), {}, 1.0), flagged);
    flagged *= turned; // one is clear: the elements of both
    EXPECT_BITS_EQ(Raw(quarter * quarter, {}, 1.0), flagged);
    turned *= Raw(quarter.inverse(), {}, 1.0);
    EXPECT_EQ(1, turned.isIdentity()); // an honest flag

    auto const mirrored = [](int a, int b) {
        return (Raw({}, {}, 1.0, a) * Raw({}, {}, 1.0, b)).isReflection();
    };
    EXPECT_EQ(1, mirrored(7, 0));
    EXPECT_EQ(1, mirrored(0, -1));
    EXPECT_EQ(0, mirrored(1, 7));
    EXPECT_EQ(0, mirrored(0, 0));
}

TEST(Xform, ThreeKindsOfThingsAreMovedInThreeWays) {
    mgXform_c const x = mg_RestoreXform(quarter, {10.0, 0.0, 30.0}, 2.0);
    EXPECT_BITS_EQ(mgPoint_c(6.0, 2.0, 36.0), mgPoint_c(1.0, 2.0, 3.0) * x);
    EXPECT_BITS_EQ(mgVector_c(-4.0, 2.0, 6.0), mgVector_c(1.0, 2.0, 3.0) * x);
    EXPECT_BITS_EQ(mgVector_c(0.0, 1.0, 0.0), mgUnitVector_c::xAxis() * x);
    // Points and vectors go by the elements, directions by the flag.
    Raw const flagged(staleQuarter(), {}, 1.0);
    mgUnitVector_c longer = mgUnitVector_c::xAxis();
    longer.set(0.0, 3.0, 0.0);
    EXPECT_BITS_EQ(mgPoint_c(-2.0, 1.0, 3.0), mgPoint_c(1.0, 2.0, 3.0) * flagged);
    EXPECT_BITS_EQ(mgVector_c(0.0, 3.0, 0.0), longer * flagged);
    EXPECT_BITS_EQ(mgVector_c(-1.0, 0.0, 0.0), longer * x); // normalised
    // A zero of either sign stays; a translation component of 0 is not added.
    EXPECT_BITS_EQ(mgVector_c(-0.0, 0.0, -0.0), mgVector_c(-0.0, 0.0, -0.0) * x);
    EXPECT_BITS_EQ(mgPoint_c(5.0, -0.0, -0.0),
                   mgPoint_c(0.0, -0.0, -0.0) * Raw({}, {5.0, -0.0, 0.0}, 1.0));
    auto const scaled = [](double s) { return (mgPoint_c(3.0, 0.0, 0.0) * Raw({}, {}, s)).x(); };
    double const up = 1.0 + 1e-08, down = above(1.0 - 1e-08); // the last within 1e-08 of 1
    EXPECT_BITS_EQ(3.0, scaled(up));
    EXPECT_BITS_EQ(3.0, scaled(down));
    EXPECT_BITS_EQ(3.0 * above(up), scaled(above(up)));
    EXPECT_BITS_EQ(3.0 * below(down), scaled(below(down)));
    EXPECT_BITS_EQ(mgPoint_c(support::kInfinity, 1.0, 2.0), // an identity is not multiplied by
                   mgPoint_c(support::kInfinity, 1.0, 2.0) * mgXform_c());
}

TEST(Xform, InverseDropsMirrorAndPerspective) {
    mgXform_c x;
    x.setReflection(1);
    x.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(1, x.isIdentity());
    EXPECT_BITS_EQ(mgXform_c(), x.inverse());
    EXPECT_EQ(0, x.inverse().hasPerspective());
    x = Raw(quarter, {1.0, 2.0, 3.0}, 4.0, 1);
    EXPECT_BITS_EQ(Raw(quarter.inverse(), mgVector_c(-2.0, 1.0, -3.0) * 0.25, 0.25), x.inverse());
    EXPECT_BITS_EQ(Raw({}, {-1.0, -0.0, -0.0}, 1.0),
                   Raw({}, {1.0, 0.0, 0.0}, 1.0 + 1e-9).inverse());
}

TEST(Xform, IdentityIsWithinTolerance) {
    EXPECT_EQ(1, Raw(staleQuarter(), {below(1e-08), 0.0, 0.0}, 1.0 + 9e-09).isIdentity());
    EXPECT_EQ(0, Raw({}, {1e-08, 0.0, 0.0}, 1.0).isIdentity());
    EXPECT_EQ(0, Raw({}, {}, 1.0 - 1.1e-08).isIdentity());
    EXPECT_EQ(0, Raw(quarter, {}, 1.0).isIdentity());
}

TEST(Xform, EqualityIncludesItsBound) {
    mgXform_c const one = Raw(quarter, {}, 1.0);
    mgMatrix_c onBound = quarter, beyond = quarter;
    onBound[0] = 1e-08, beyond[7] = -above(1e-08);
    EXPECT_EQ(1, one.equals(Raw(onBound, {0.0, -1e-08, 0.0}, 1.0 + 9e-09)));
    EXPECT_EQ(0, one.equals(Raw(beyond, {}, 1.0)));
    EXPECT_EQ(0, one.equals(Raw(quarter, {0.0, 0.0, above(1e-08)}, 1.0)));
    EXPECT_EQ(0, one.equals(Raw(quarter, {}, 1.0 - 1.1e-08)));
    EXPECT_EQ(1, Raw(staleQuarter(), {}, 1.0).equals(mgXform_c())); // flags are believed
    EXPECT_EQ(1, Raw(staleQuarter(), {}, 1.0).equals(one));         // one is clear: elements
}

TEST(Xform, TransformsThatDifferInReflectionAreEqual) {
    EXPECT_EQ(1, Raw(quarter, {}, 1.0, 1).equals(Raw(quarter, {}, 1.0, 0)));
}

TEST(Xform, PerspectivesThatDifferInClipPlanesAreEqual) {
    mgPerspInfo_c record(1.0, 2.0, 3.0, 4.0);
    mgXform_c a, b;
    a.addPerspectiveInfo(record);
    EXPECT_EQ(0, a.equals(b) + b.equals(a)); // one alone
    record.setNearClipPlaneDistance(40.0), record.setMinFarClipPlaneDistance(50.0);
    b.addPerspectiveInfo(record);
    EXPECT_EQ(1, a.equals(b));
    record.setCameraFOVPlaneDistance(above(-1.0));
    b.addPerspectiveInfo(record);
    EXPECT_EQ(0, a.equals(b));
    b.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, above(3.0), 4.0));
    EXPECT_EQ(0, a.equals(b));
}

TEST(Xform, AxesAreComparedByDirection) {
    mgVector_c const x(1.0, 0.0, 0.0);
    mgXform_c flipped = mg_RotateXform(3.1415926535898, x, 1e-9);
    mgXform_c slight = mg_RotateXform(1.414e-4, x, 0.0), more = mg_RotateXform(1.415e-4, x, 0.0);
    EXPECT_EQ(1, mgXform_c().sameOrParallel(&flipped)); // 1 - cos is 1e-08 at 1.41421e-4
    EXPECT_EQ(1, mgXform_c().sameOrParallel(&slight));
    EXPECT_EQ(0, mgXform_c().sameOrParallel(&more));

    auto const check = [](mgUnitVector_c const &dir, int axis, int expectedOpposite) {
        int opposite = 7;
        EXPECT_EQ(axis, Raw(quarter, {}, 1.0).getNearestAxis(dir, opposite));
        EXPECT_EQ(expectedOpposite, opposite);
    };
    check({0.0, 1.0, 0.0}, 1, 0); // row 0 of a quarter turn
    check({1.0, 0.0, 0.0}, 2, 1);
    check({1.0, 1.0, 0.0}, 1, 0); // a tie goes to the earlier row
    check({1.0, 1.0, -1.0}, 1, 0);
    check({1.0, 1.0, -1.001}, 3, 1);
    check({}, 1, 0);
}

TEST(Xform, RepairLeavesTranslationInDepth) {
    auto const check = [](mgVector_c const &translation, int expected, mgVector_c const &after) {
        Raw x(quarter, translation, 2.0);
        EXPECT_EQ(expected, x.iValidateRepairXForm());
        EXPECT_BITS_EQ(Raw(quarter, after, 2.0), x);
    };
    check({2e8, -2e8, 5e8}, 1, {0.0, 0.0, 5e8});
    check({1e8, -1e8, -5e8}, 0, {1e8, -1e8, -5e8});
    check({1.0, above(1e8), 1.0}, 1, {1.0, 0.0, 1.0});
}

TEST(Xform, ScaleOnABoundIsRepairedOnlyByACopy) {
    auto const check = [](double scale, int expected, double after) {
        Raw x({}, {}, scale);
        EXPECT_EQ(expected, x.iValidateRepairXForm());
        EXPECT_BITS_EQ(after, x.scaling());
    };
    check(kSmallest, 0, kSmallest);
    check(kLargest, 0, kLargest);
    check(below(kSmallest), 1, 1.0);
    check(above(kLargest), 1, 1.0);
    EXPECT_EQ(1.0, mgXform_c(Raw({}, {}, kLargest)).scaling());
}

/// Does x hold a record with this plane distance, or none (-1)?
void checkRecord(mgXform_c const &x, double planeDistance) {
    mgPerspInfo_c out(0.0, 0.0, 0.0, -1.0);
    EXPECT_EQ(planeDistance >= 0.0, x.getPerspectiveInfo(&out));
    EXPECT_EQ(planeDistance >= 0.0, x.hasPerspective());
    EXPECT_EQ(planeDistance, out.getPlaneDistance());
}

// Run under the address sanitizer, this also counts what is freed and how often.
TEST(Xform, ARecordIsOwnedByOneTransform) {
    mgXform_c a, b, none;
    mgModelPerspInfo_c model(1.0, 2.0, 3.0, 4.0);
    a.addPerspectiveInfo(model);
    a.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 5.0)); // the second stays
    checkRecord(a, 5.0);
    mgModelPerspInfo_c out;
    out.setModelViewDir(mgUnitVector_c::xAxis());
    EXPECT_EQ(1, a.getPerspectiveInfo(&out)); // the base fields alone
    EXPECT_BITS_EQ(mgVector_c(1.0, 0.0, 0.0), out.getModelViewDir());

    b = a, a = *&a; // self assignment keeps it
    mgXform_c const copy(a), moved(std::move(a));
    checkRecord(a, 5.0), checkRecord(b, 5.0), checkRecord(copy, 5.0), checkRecord(moved, 5.0);
    b.deletePerspectiveInfo(), b.deletePerspectiveInfo();
    checkRecord(b, -1.0);
    checkRecord(copy, 5.0);
    checkRecord(copy * none, 5.0); // kept
    checkRecord(none * copy, 5.0); // taken over
    b.addPerspectiveInfo(model);
    checkRecord(copy * b, 4.0); // replaced
    b *= b;
    checkRecord(b, 4.0);
    b = none;
    checkRecord(b, -1.0);
    b = copy;
    checkRecord(b.linearComponent(), -1.0);
    EXPECT_EQ(nullptr, b.GetHelper().perspective);
    b.SetHelper(copy.GetHelper());
    checkRecord(b, -1.0);
    // x' = e + (x - e) d / dz with the eye at (1, 2, 3) and d = 5
    EXPECT_BITS_EQ(mgPoint_c(6.0, 2.0, 8.0), mgPoint_c(6.0, 2.0, 8.0) * copy);
    EXPECT_BITS_EQ(mgPoint_c(11.0, 2.0, 5.5),
                   mgPoint_c(3.0, 1.0, 2.75) * (mg_ScaleXform(2.0) * copy));
    EXPECT_BITS_EQ(mgVector_c(6.0, 2.0, 8.0), mgVector_c(6.0, 2.0, 8.0) * copy);
}

TEST(Xform, AxesAreCopiedFromColumnsAndRows) {
    double const counted[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    Raw const x(mgMatrix_c(counted, 0), {}, 2.0);
    mgUnitVector_c a, b;
    x.getXAxis(&a), x.getIXAxis(&b);
    EXPECT_BITS_EQ(mgVector_c(1.0, 4.0, 7.0), a);
    EXPECT_BITS_EQ(mgVector_c(1.0, 2.0, 3.0), b);
    x.getZAxis(&a), x.getIYAxis(&b);
    EXPECT_BITS_EQ(mgVector_c(3.0, 6.0, 9.0), a);
    EXPECT_BITS_EQ(mgVector_c(4.0, 5.0, 6.0), b);
    mgXform_c const frame({0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {5e-9, 0.0, 0.0}); // z, x, origin
    double const rows[9] = {0, 0, 1, 1, 0, 0, 0, 1, 0};
    EXPECT_BITS_EQ(Raw(mgMatrix_c(rows, 0), {5e-9, 0.0, 0.0}, 1.0), frame);
}

} // namespace
