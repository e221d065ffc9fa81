// SPDX-License-Identifier: MIT
// The similarity transform: copies that change the value, composition, what it does to points, and
// who owns the perspective record.

#include <vexmath/mg_transform.h>

#include <cstddef>
#include <type_traits>

#include "support/geometry.h"

namespace {

using namespace support;

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
    for (double const scale : {kSmallest, kLargest, -2.0, kInfinity, kNaN, above(kSmallest)}) {
        double const expected = scale == above(kSmallest) ? scale : 1.0;
        checkCopies(raw(quarter, x, scale, 1), raw(quarter, x, expected, 1));
        EXPECT_EQ(expected, mg_ScaleXform(scale).scaling());
        EXPECT_EQ(expected, mg_ScaleXform(mg_ScaleXform(3.0), scale).scaling()); // replaced
        EXPECT_EQ(expected, mg_RestoreXform(quarter, {}, scale).scaling());
    }
    EXPECT_EQ(below(kLargest), mg_ScaleXform(below(kLargest)).scaling());
}

TEST(Xform, CopiesFlushATinyTranslationAndAFlaggedRotation) {
    double const s = below(1e-08);
    checkCopies(raw(quarter, {s, -s, s}, 2.0), raw(quarter, {}, 2.0));
    checkCopies(raw(quarter, {s, 0.0, -1e-08}, 2.0), raw(quarter, {s, 0.0, -1e-08}, 2.0));
    checkCopies(raw(quarter, {0.0, kNaN, 0.0}, 2.0), raw(quarter, {0.0, kNaN, 0.0}, 2.0));
    checkCopies(raw(flagged, {}, 2.0), raw(one, {}, 2.0));
    // What is built is not copied; what goes in by value is, and the result of a product.
    mgXform_c odd, wide = mg_ScaleXform(1e7);
    odd.SetHelper(raw(flagged, {s, s, s}, kLargest).GetHelper());
    EXPECT_BITS_EQ(raw(flagged, {}, kLargest), odd.linearComponent());
    EXPECT_BITS_EQ(raw(flagged, {s, s, s}), mg_RestoreXform(flagged, {s, s, s}, kLargest));
    EXPECT_BITS_EQ(mg_ScaleXform(3.0), mg_ScaleXform(odd, 3.0));
    EXPECT_BITS_EQ(mgXform_c(), wide * mg_ScaleXform(1e6));
    wide *= mg_ScaleXform(1e6);
    EXPECT_EQ(1e13, wide.scaling());                           // in place neither range nor flush
    EXPECT_EQ(1.0, raw(one, {}, 1.2e-13).inverse().scaling()); // 1 / 1.2e-13 is too large
}

TEST(Xform, CompositionAppliesLeftThenRight) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        mgXform_c const a = placement(random), b = placement(random), ab = a * b;
        auto const p = random.triple<mgPoint_c>(-10.0, 10.0);
        ASSERT_LT(gap((p * a) * b, p * ab), 1e-11); // 1e-16 of 500, a few times over
        ASSERT_LT(gap(p, (p * a) * a.inverse()), 1e-12);
        ASSERT_BITS_EQ(b.scaling() * a.scaling(), ab.scaling());
        mgXform_c square = a;
        square *= square;
        ASSERT_BITS_EQ(a * mgXform_c(a), square);
    }
}

TEST(Xform, CompositionGoesByTheFlags) {
    mgXform_c a = raw(flagged), b = raw(quarter);
    a *= mgXform_c(); // both flags set: left alone, elements and all
    EXPECT_BITS_EQ(raw(flagged), a);
    a *= b; // one is clear: the elements of both
    EXPECT_BITS_EQ(raw(quarter * quarter), a);
    b *= raw(quarter.inverse());
    EXPECT_EQ(1, b.isIdentity()); // an honest flag
    auto const mirrored = [](int left, int right) {
        return (raw(one, {}, 1.0, left) * raw(one, {}, 1.0, right)).isReflection();
    };
    EXPECT_EQ(2, mirrored(7, 0) + mirrored(0, -1));
    EXPECT_EQ(0, mirrored(1, 7) + mirrored(0, 0));
}

TEST(Xform, PointsVectorsAndDirectionsAreMovedInThreeWays) {
    Random random;
    double const up = 1.0 + 1e-08, down = above(1.0 - 1e-08); // the last within 1e-08 of 1
    double const scales[] = {1.0, up, above(up), down, below(down), 2.0, kNaN};
    auto const number = [&] {
        return random.below(2) == 0 ? random.hostile() : random.uniform(-9.0, 9.0);
    };
    for (int k = 0; k < 100000; ++k) {
        double m[9] = {1.0, -0.0, 0.0, 0.0, 1.0, 0.0, 0.0, -0.0, 1.0};
        for (int edits = random.below(4); edits > 0; --edits) m[random.below(9)] = number();
        mgMatrix_c const rotation(m, 0);
        mgVector_c const t(number(), number(), number());
        double const scale = scales[random.below(7)];
        mgPoint_c const p(number(), number(), number());
        mgPoint_c turned = std::equal(m, m + 9, &one[0]) ? p : p * rotation, moved;
        for (int i = 0; i < 3; ++i) {
            if (std::fabs(scale - 1.0) > 1e-08) turned[i] *= scale;
            moved[i] = t[i] != 0.0 ? turned[i] + t[i] : turned[i];
        }
        mgXform_c const form = raw(rotation, t, scale);
        ASSERT_BITS_EQ(moved, p * form) << k;
        ASSERT_BITS_EQ(mgVector_c(p).null() ? p : turned, mgVector_c(p) * form) << k;
    }
    // Directions go by the flag, vectors by the elements; directions are normalised when turned.
    mgUnitVector_c longer;
    longer.set(0.0, 3.0, 0.0);
    EXPECT_EQ(0.0, gap(-x, longer * raw(quarter, x, 2.0)) + gap(3.0 * y, longer * raw(flagged)));
    EXPECT_EQ(0.0, gap(-3.0 * x, mgVector_c(longer) * raw(flagged)));
}

TEST(Xform, InverseDropsMirrorAndPerspective) {
    mgXform_c mirror;
    mirror.setReflection(1);
    mirror.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_BITS_EQ(mgXform_c(), mirror.inverse());
    EXPECT_EQ(0, mirror.inverse().hasPerspective());
    EXPECT_BITS_EQ(raw(quarter.inverse(), mgVector_c(-2.0, 1.0, -3.0) * 0.25, 0.25),
                   raw(quarter, {1.0, 2.0, 3.0}, 4.0, 1).inverse());
    EXPECT_BITS_EQ(raw(one, -x), raw(one, x, 1.0 + 1e-9).inverse()); // nearly no scale
}

TEST(Xform, IdentityAndEqualityHaveBoundsOfTheirOwn) {
    EXPECT_EQ(1, raw(flagged, below(1e-08) * x, 1.0 + 9e-09, 1).isIdentity());
    EXPECT_EQ(0, raw(one, 1e-08 * x).isIdentity() + raw(one, {}, 1.0 - 1.1e-08).isIdentity());
    EXPECT_EQ(0, raw(quarter).isIdentity());
    mgXform_c const turn = raw(quarter);
    mgMatrix_c onBound = quarter, beyond = quarter;
    onBound[0] = 1e-08, beyond[7] = -above(1e-08);
    EXPECT_EQ(1, turn.equals(raw(onBound, -1e-08 * y, 1.0 + 9e-09)));
    EXPECT_EQ(0, turn.equals(raw(beyond)) + turn.equals(raw(quarter, above(1e-08) * z)));
    EXPECT_EQ(0, turn.equals(raw(quarter, {}, 1.0 - 1.1e-08)) + turn.equals(mgXform_c()));
    EXPECT_EQ(1, raw(flagged).equals(mgXform_c())); // two set flags are believed
}

TEST(Xform, TransformsThatDifferInReflectionAreEqual) {
    EXPECT_EQ(1, raw(quarter, {}, 1.0, 1).equals(raw(quarter)));
}

TEST(Xform, PerspectivesThatDifferInClipPlanesAreEqual) {
    auto const view = [](double eyeZ, double planes, double fov) {
        mgPerspInfo_c record(1.0, 2.0, eyeZ, planes);
        record.setMinFarClipPlaneDistance(planes);
        record.setCameraFOVPlaneDistance(fov);
        mgXform_c form;
        form.addPerspectiveInfo(record);
        return form;
    };
    mgXform_c const a = view(3.0, 4.0, -1.0), none;
    EXPECT_EQ(2, a.equals(view(3.0, 50.0, -1.0)) + none.iIsPerspectiveEqual(none));
    EXPECT_EQ(0, a.equals(view(above(3.0), 4.0, -1.0)) + a.equals(view(3.0, 4.0, above(-1.0))));
    EXPECT_EQ(0, a.equals(none) + none.equals(a)); // one alone
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
        EXPECT_EQ(axis, raw(quarter).getNearestAxis(dir, opposite));
        EXPECT_EQ(expectedOpposite, opposite);
    };
    check({1.0, 0.5, 0.0}, 2, 1);
    check({1.0, 1.0, -1.0}, 1, 0); // a tie goes to the earlier row
    check({1.0, 1.0, -1.001}, 3, 1);
    check({}, 1, 0);
}

void checkRepair(mgXform_c form, int expected, mgXform_c const &repaired) {
    EXPECT_EQ(expected, form.iValidateRepairXForm());
    EXPECT_BITS_EQ(repaired, form);
}

TEST(Xform, RepairLeavesTranslationInDepth) {
    checkRepair(raw(quarter, {2e8, -2e8, 5e8}), 1, raw(quarter, {0.0, 0.0, 5e8}));
    checkRepair(raw(quarter, {1e8, -1e8, -5e8}), 0, raw(quarter, {1e8, -1e8, -5e8}));
    checkRepair(raw(quarter, {1.0, above(1e8), 1.0}), 1, raw(quarter, {1.0, 0.0, 1.0}));
    mgXform_c nearly = raw(mgMatrix_c({1.0 - 5e-9, 5e-9, 0, -5e-9, 1.0 - 5e-9, 0, 0, 0, 1}, 0));
    EXPECT_EQ(1, nearly.iValidateRepairRotationMatrix());
    EXPECT_BITS_EQ(one, nearly.rotation());
}

TEST(Xform, ScaleOnABoundIsRepairedOnlyByACopy) {
    for (double const bound : {kSmallest, kLargest})
        checkRepair(raw(one, {}, bound), 0, raw(one, {}, bound)); // which a copy takes as 1
    for (double const beyond : {below(kSmallest), above(kLargest), kNaN})
        checkRepair(raw(one, {}, beyond), 1, mgXform_c());
}

/// Does the transform hold a record with this plane distance, or none (-1)?
void checkRecord(mgXform_c const &form, double planeDistance) {
    mgPerspInfo_c out(0.0, 0.0, 0.0, -1.0);
    EXPECT_EQ(planeDistance >= 0.0, form.getPerspectiveInfo(&out));
    EXPECT_EQ(planeDistance, out.getPlaneDistance());
}

// Run under the address sanitizer, this also counts what is freed and how often.
TEST(Xform, ARecordIsOwnedByOneTransform) {
    mgXform_c a, b, none;
    Helper helper;
    a.addPerspectiveInfo(mgModelPerspInfo_c(1.0, 2.0, 3.0, 4.0)); // by its base fields
    b.addPerspectiveInfo(mgPerspInfo_c(9.0, 9.0, 9.0, 9.0));
    b.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 5.0)); // the second stays
    b = *&b;                                                 // and self assignment keeps it
    mgXform_c const copy(std::move(b));                      // as a copy would
    checkRecord(a, 4.0), checkRecord(b, 5.0), checkRecord(copy, 5.0);
    checkRecord(copy * none, 5.0); // kept
    checkRecord(none * copy, 5.0); // taken over
    checkRecord(copy * a, 4.0);    // replaced
    a *= a;
    checkRecord(a, 4.0), checkRecord(a.linearComponent(), -1.0);
    copy.GetHelper(helper);
    EXPECT_EQ(nullptr, helper.perspective);
    b = none, a.SetHelper(helper);
    checkRecord(a, -1.0), checkRecord(b, -1.0), checkRecord(copy, 5.0);
    b = copy;
    b.deletePerspectiveInfo(), b.deletePerspectiveInfo();
    checkRecord(b, -1.0), checkRecord(copy, 5.0);
    // e + (p - e) 5 / dz, with the eye e at (1, 2, 3), after the scale
    EXPECT_BITS_EQ(mgPoint_c(11.0, 2.0, 5.5),
                   mgPoint_c(3.0, 1.0, 2.75) * (mg_ScaleXform(2.0) * copy));
    EXPECT_BITS_EQ(mgVector_c(3.0, 1.0, 2.75), mgVector_c(3.0, 1.0, 2.75) * copy);
}

TEST(Xform, AxesAreCopiedFromColumnsAndRows) {
    mgXform_c const form = raw(mgMatrix_c({1, 2, 3, 4, 5, 6, 7, 8, 9}, 0), {}, 2.0);
    mgUnitVector_c a, b, c;
    form.getXAxis(&a), form.getYAxis(&b), form.getZAxis(&c);
    EXPECT_BITS_EQ(mgVector_c(1.0 + 2.0 + 3.0, 4.0 + 5.0 + 6.0, 7.0 + 8.0 + 9.0), a + b + c);
    EXPECT_BITS_EQ(mgVector_c(2.0, 5.0, 8.0), b);
    form.getIXAxis(&a), form.getIYAxis(&b), form.getIZAxis(&c);
    EXPECT_BITS_EQ(mgVector_c(12.0, 15.0, 18.0), a + b + c);
    EXPECT_BITS_EQ(mgVector_c(4.0, 5.0, 6.0), b);
    EXPECT_BITS_EQ(raw(mgMatrix_c(1, z, x, y), 5e-9 * x),
                   mgXform_c(y, z, 5e-9 * x)); // z, x, origin
}

} // namespace
