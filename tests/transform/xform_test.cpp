// SPDX-License-Identifier: MIT
// The similarity transform: copies that change the value, composition, what it does to points, and
// who owns the perspective record.

#include <vexmath/mg_transform.h>

#include <cstddef>
#include <type_traits>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::kInfinity;
using support::kNaN;

// The rotation comes first, so that a transform's address serves where its matrix is meant.
static_assert(std::is_standard_layout_v<mgXform_c> && !std::is_trivially_copyable_v<mgXform_c>);
using Helper = mgXform_64BitHelper_c;
static_assert(std::is_trivially_copyable_v<Helper> && sizeof(Helper) == sizeof(mgXform_c));
static_assert(offsetof(Helper, translation) == sizeof(mgMatrix_c));
static_assert(offsetof(Helper, reflection) == sizeof(mgMatrix_c) + 32);

constexpr double kSmallest = 1.0000000000000002e-13, kLargest = 6e12;
mgUnitVector_c const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);
mgMatrix_c const one, quarter = mg_RotationMatrix(1.5707963267949, z, 1e-6); // rows y, -x, z
mgMatrix_c const flagged = quarter.transpose().transpose(); // the same, claiming to be the identity

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

/// Every way to copy the source gives exactly these fields.
void checkCopies(mgXform_c const &source, mgXform_c const &expected) {
    mgXform_c assigned = mg_RestoreXform(quarter, {1.0, 2.0, 3.0}, 5.0), self;
    assigned = source;
    self.SetHelper(source.GetHelper());
    self = *&self;
    EXPECT_BITS_EQ(expected, mgXform_c(source));
    EXPECT_BITS_EQ(expected, assigned);
    EXPECT_BITS_EQ(expected, self);
    EXPECT_BITS_EQ(expected, source * mgXform_c()); // the left operand is copied
}

TEST(Xform, CopiesTakeAScaleOutOfRangeAsOne) {
    auto const check = [](double scale, double expected) {
        checkCopies(Raw(quarter, x, scale, 1), Raw(quarter, x, expected, 1));
        EXPECT_EQ(expected, mg_ScaleXform(scale).scaling());
        EXPECT_EQ(expected, mg_ScaleXform(mg_ScaleXform(3.0), scale).scaling()); // replaced
        EXPECT_EQ(expected, mg_RestoreXform(quarter, {}, scale).scaling());
    };
    for (double const kept : {above(kSmallest), below(kLargest)}) check(kept, kept);
    for (double const lost : {kSmallest, kLargest, -2.0, kInfinity, kNaN}) check(lost, 1.0);
}

TEST(Xform, CopiesFlushATinyTranslationAndAFlaggedRotation) {
    double const s = below(1e-08);
    checkCopies(Raw(quarter, {s, -s, s}, 2.0), Raw(quarter, {}, 2.0));
    checkCopies(Raw(quarter, {s, 0.0, -1e-08}, 2.0), Raw(quarter, {s, 0.0, -1e-08}, 2.0));
    checkCopies(Raw(quarter, {0.0, kNaN, 0.0}, 2.0), Raw(quarter, {0.0, kNaN, 0.0}, 2.0));
    checkCopies(Raw(flagged, {}, 2.0), Raw(one, {}, 2.0));
    // What is built is not copied; what goes in by value is.
    Raw const odd(flagged, {s, s, s}, kLargest);
    EXPECT_BITS_EQ(Raw(flagged, {}, kLargest), odd.linearComponent());
    EXPECT_BITS_EQ(Raw(flagged, {s, s, s}, 1.0), mg_RestoreXform(flagged, {s, s, s}, kLargest));
    EXPECT_BITS_EQ(Raw(one, {}, 3.0), mg_ScaleXform(odd, 3.0));
}

TEST(Xform, TheResultOfAProductIsCopiedAgain) {
    mgXform_c const a = Raw(one, x, 1e7), b = Raw(one, {-1e6 + 5e-9, 0.0, 0.0}, 1e6);
    mgXform_c inPlace = a;
    inPlace *= b;
    EXPECT_BITS_EQ(1e13, inPlace.scaling()); // neither range nor flush here
    EXPECT_NEAR(5e-9, inPlace.translation().x(), 1e-10);
    EXPECT_BITS_EQ(mgXform_c(), a * b);
    EXPECT_BITS_EQ(1.0, Raw(one, {}, 1.2e-13).inverse().scaling()); // 1 / 1.2e-13 is too large
}

TEST(Xform, CompositionAppliesLeftThenRight) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        mgXform_c const a = support::placement(random), b = support::placement(random), ab = a * b;
        auto const p = random.triple<mgPoint_c>(-10.0, 10.0);
        ASSERT_LT(support::gap((p * a) * b, p * ab), 1e-11); // 1e-16 of 500, a few times over
        ASSERT_LT(support::gap(p, (p * a) * a.inverse()), 1e-12);
        ASSERT_BITS_EQ(b.scaling() * a.scaling(), ab.scaling());
        ASSERT_BITS_EQ(a.rotation() * b.rotation(), ab.rotation());
        ASSERT_BITS_EQ(a.translation() * b + b.translation(), ab.translation());
        mgXform_c square = a;
        square *= square;
        ASSERT_BITS_EQ(a * mgXform_c(a), square);
    }
    mgXform_c const shift = mg_TranslateXform(y);
    EXPECT_BITS_EQ(Raw(one, y, 5.0), mg_ScaleXform(5.0) * shift); // a null translation adds nothing
}

TEST(Xform, CompositionGoesByTheFlags) {
    Raw a(flagged, {}, 1.0), b(quarter, {}, 1.0);
    a *= mgXform_c(); // both flags set: left alone, elements and all
    EXPECT_BITS_EQ(Raw(flagged, {}, 1.0), a);
    a *= b; // one is clear: the elements of both
    EXPECT_BITS_EQ(Raw(quarter * quarter, {}, 1.0), a);
    b *= Raw(quarter.inverse(), {}, 1.0);
    EXPECT_EQ(1, b.isIdentity()); // an honest flag
    auto const mirrored = [](int left, int right) {
        return (Raw(one, {}, 1.0, left) * Raw(one, {}, 1.0, right)).isReflection();
    };
    EXPECT_EQ(2, mirrored(7, 0) + mirrored(0, -1));
    EXPECT_EQ(0, mirrored(1, 7) + mirrored(0, 0));
}

TEST(Xform, ThreeKindsOfThingsAreMovedInThreeWays) {
    Raw const form(quarter, {10.0, 0.0, 30.0}, 2.0), stale(flagged, {}, 1.0);
    mgUnitVector_c longer;
    longer.set(0.0, 3.0, 0.0);
    EXPECT_BITS_EQ(mgPoint_c(6.0, 2.0, 36.0), mgPoint_c(1.0, 2.0, 3.0) * form);
    EXPECT_BITS_EQ(mgVector_c(-4.0, 2.0, 6.0), mgVector_c(1.0, 2.0, 3.0) * form);
    EXPECT_BITS_EQ(mgVector_c(-1.0, 0.0, 0.0), longer * form); // normalised
    // Points and vectors go by the elements, directions by the flag.
    EXPECT_BITS_EQ(mgPoint_c(-2.0, 1.0, 3.0), mgPoint_c(1.0, 2.0, 3.0) * stale);
    EXPECT_BITS_EQ(3.0 * y, longer * stale);
    // A zero of either sign stays; a translation component of 0 is not added.
    EXPECT_BITS_EQ(mgVector_c(-0.0, 0.0, -0.0), mgVector_c(-0.0, 0.0, -0.0) * form);
    EXPECT_BITS_EQ(mgPoint_c(kInfinity, 5.0, -0.0),
                   mgPoint_c(kInfinity, 0.0, -0.0) * mg_TranslateXform({0.0, 5.0, 0.0}));
    auto const scaled = [](double s) { return (mgPoint_c(3.0, 0.0, 0.0) * Raw(one, {}, s)).x(); };
    double const up = 1.0 + 1e-08, down = above(1.0 - 1e-08); // the last within 1e-08 of 1
    EXPECT_EQ(6.0, scaled(up) + scaled(down));
    EXPECT_BITS_EQ(3.0 * above(up), scaled(above(up)));
    EXPECT_BITS_EQ(3.0 * below(down), scaled(below(down)));
}

TEST(Xform, PointsFollowTheirStepsToTheBit) {
    support::Random random;
    auto const number = [&] {
        return random.below(2) == 0 ? random.hostile() : random.uniform(-9.0, 9.0);
    };
    for (int k = 0; k < 100000; ++k) {
        double m[9] = {1.0, -0.0, 0.0, 0.0, 1.0, 0.0, 0.0, -0.0, 1.0};
        for (int edits = random.below(4); edits > 0; --edits) m[random.below(9)] = number();
        mgMatrix_c const rotation(m, 0);
        mgVector_c const t(number(), number(), number());
        double const scale = random.below(2) == 0 ? 1.0 : number();
        mgPoint_c const p(number(), number(), number());
        mgPoint_c expected = std::equal(m, m + 9, &one[0]) ? p : p * rotation;
        for (int i = 0; i < 3; ++i) {
            if (std::fabs(scale - 1.0) > 1e-08) expected[i] *= scale;
            if (t[i] != 0.0) expected[i] += t[i];
        }
        ASSERT_BITS_EQ(expected, p * Raw(rotation, t, scale)) << k;
    }
}

TEST(Xform, InverseDropsMirrorAndPerspective) {
    Raw mirror(one, {}, 1.0, 1);
    mirror.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_BITS_EQ(mgXform_c(), mirror.inverse());
    EXPECT_EQ(0, mirror.inverse().hasPerspective());
    EXPECT_BITS_EQ(Raw(quarter.inverse(), mgVector_c(-2.0, 1.0, -3.0) * 0.25, 0.25),
                   Raw(quarter, {1.0, 2.0, 3.0}, 4.0, 1).inverse());
    EXPECT_BITS_EQ(Raw(one, -x, 1.0), Raw(one, x, 1.0 + 1e-9).inverse()); // nearly no scale
}

TEST(Xform, IdentityAndEqualityHaveBoundsOfTheirOwn) {
    EXPECT_EQ(1, Raw(flagged, {below(1e-08), 0.0, 0.0}, 1.0 + 9e-09, 1).isIdentity());
    EXPECT_EQ(0, Raw(one, {1e-08, 0.0, 0.0}, 1.0).isIdentity());
    EXPECT_EQ(0, Raw(one, {}, 1.0 - 1.1e-08).isIdentity() + Raw(quarter, {}, 1.0).isIdentity());
    mgXform_c const turn = Raw(quarter, {}, 1.0);
    mgMatrix_c onBound = quarter, beyond = quarter;
    onBound[0] = 1e-08, beyond[7] = -above(1e-08);
    EXPECT_EQ(1, turn.equals(Raw(onBound, {0.0, -1e-08, 0.0}, 1.0 + 9e-09)));
    EXPECT_EQ(0, turn.equals(Raw(beyond, {}, 1.0)));
    EXPECT_EQ(0, turn.equals(Raw(quarter, {0.0, 0.0, above(1e-08)}, 1.0)));
    EXPECT_EQ(0, turn.equals(Raw(quarter, {}, 1.0 - 1.1e-08)) + turn.equals(mgXform_c()));
    EXPECT_EQ(1, Raw(flagged, {}, 1.0).equals(mgXform_c())); // two set flags are believed
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
    auto const parallel = [](double angle) { // 1 - cos is 1e-08 at 1.41421e-4
        mgXform_c const turned = mg_RotateXform(angle, x, 1e-9);
        return mgXform_c().sameOrParallel(&turned);
    };
    EXPECT_EQ(2, parallel(1.414e-4) + parallel(3.1415926535898));
    EXPECT_EQ(0, parallel(1.415e-4));
    auto const check = [](mgUnitVector_c const &dir, int axis, int expectedOpposite) {
        int opposite = 7;
        EXPECT_EQ(axis, Raw(quarter, {}, 1.0).getNearestAxis(dir, opposite));
        EXPECT_EQ(expectedOpposite, opposite);
    };
    check({1.0, 0.5, 0.0}, 2, 1);
    check({1.0, 1.0, -1.0}, 1, 0); // a tie goes to the earlier row
    check({1.0, 1.0, -1.001}, 3, 1);
    check({}, 1, 0);
}

TEST(Xform, RepairLeavesTranslationInDepth) {
    auto const check = [](mgVector_c const &translation, int expected, mgVector_c const &after) {
        Raw form(quarter, translation, 2.0);
        EXPECT_EQ(expected, form.iValidateRepairXForm());
        EXPECT_BITS_EQ(Raw(quarter, after, 2.0), form);
    };
    check({2e8, -2e8, 5e8}, 1, {0.0, 0.0, 5e8});
    check({1e8, -1e8, -5e8}, 0, {1e8, -1e8, -5e8});
    check({1.0, above(1e8), 1.0}, 1, {1.0, 0.0, 1.0});
}

TEST(Xform, ScaleOnABoundIsRepairedOnlyByACopy) {
    auto const check = [](double scale, int expected, double after) {
        Raw form(one, {}, scale);
        EXPECT_EQ(expected, form.iValidateRepairXForm());
        EXPECT_BITS_EQ(after, form.scaling());
        EXPECT_BITS_EQ(1.0, mgXform_c(form).scaling());
    };
    check(kSmallest, 0, kSmallest), check(below(kSmallest), 1, 1.0);
    check(kLargest, 0, kLargest), check(above(kLargest), 1, 1.0);
    check(kNaN, 1, 1.0);
}

/// Does the transform hold a record with this plane distance, or none (-1)?
void checkRecord(mgXform_c const &form, double planeDistance) {
    mgPerspInfo_c out(0.0, 0.0, 0.0, -1.0);
    EXPECT_EQ(planeDistance >= 0.0, form.getPerspectiveInfo(&out));
    EXPECT_EQ(planeDistance >= 0.0, form.hasPerspective());
    EXPECT_EQ(planeDistance, out.getPlaneDistance());
}

// Run under the address sanitizer, this also counts what is freed and how often.
TEST(Xform, ARecordIsOwnedByOneTransform) {
    mgXform_c a, b, none;
    a.addPerspectiveInfo(mgModelPerspInfo_c(1.0, 2.0, 3.0, 4.0)); // by its base fields
    b.addPerspectiveInfo(mgPerspInfo_c(9.0, 9.0, 9.0, 9.0));
    b.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 5.0)); // the second stays
    b = *&b;                                                 // and self assignment keeps it
    mgXform_c const copy(b), moved(std::move(b));
    checkRecord(a, 4.0), checkRecord(b, 5.0), checkRecord(copy, 5.0), checkRecord(moved, 5.0);
    checkRecord(copy * none, 5.0); // kept
    checkRecord(none * copy, 5.0); // taken over
    checkRecord(copy * a, 4.0);    // replaced
    a *= a;
    checkRecord(a, 4.0), checkRecord(a.linearComponent(), -1.0);
    b = none, a.SetHelper(copy.GetHelper());
    checkRecord(a, -1.0), checkRecord(b, -1.0), checkRecord(copy, 5.0);
    b = copy;
    b.deletePerspectiveInfo(), b.deletePerspectiveInfo();
    checkRecord(b, -1.0), checkRecord(copy, 5.0);
    EXPECT_EQ(nullptr, copy.GetHelper().perspective);
    // e + (p - e) 5 / dz, with the eye e at (1, 2, 3), after the scale
    EXPECT_BITS_EQ(mgPoint_c(11.0, 2.0, 5.5),
                   mgPoint_c(3.0, 1.0, 2.75) * (mg_ScaleXform(2.0) * copy));
    EXPECT_BITS_EQ(mgVector_c(3.0, 1.0, 2.75), mgVector_c(3.0, 1.0, 2.75) * copy);
}

TEST(Xform, AxesAreCopiedFromColumnsAndRows) {
    Raw const form(mgMatrix_c({1, 2, 3, 4, 5, 6, 7, 8, 9}, 0), {}, 2.0);
    mgUnitVector_c a[3], b[3];
    form.getXAxis(&a[0]), form.getYAxis(&a[1]), form.getZAxis(&a[2]);
    form.getIXAxis(&b[0]), form.getIYAxis(&b[1]), form.getIZAxis(&b[2]);
    for (int i = 0; i < 3; ++i) {
        EXPECT_BITS_EQ(mgVector_c(1.0 + i, 4.0 + i, 7.0 + i), a[i]);
        EXPECT_BITS_EQ(mgVector_c(1.0 + 3 * i, 2.0 + 3 * i, 3.0 + 3 * i), b[i]);
    }
    mgVector_c const near(5e-9, 0.0, 0.0);
    EXPECT_BITS_EQ(Raw(mgMatrix_c(z, x, y), near, 1.0), mgXform_c(y, z, near)); // z, x, origin
}

} // namespace
