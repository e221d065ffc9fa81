// SPDX-License-Identifier: MIT
// Similarity transforms: copies, composition, images, comparison, ownership of the record.

#include "common/geometry.h"

namespace {

constexpr double kSmallest = 1.0000000000000002e-13, kLargest = 6e12;
U const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0);
mgMatrix_c const one, quarter = mg_RotationMatrix(1.5707963267949, z, 1e-6); // rows y, -x, z
mgMatrix_c const flagged = quarter.transpose().transpose(); // the same with the identity flag set

/// Every way to copy the source gives exactly these fields.
void CheckCopies(mgXform_c const &source, mgXform_c const &expected, Caller = {}) {
    mgXform_c assigned = mg_RestoreXform(quarter, {1.0, 2.0, 3.0}, 5.0), self;
    assigned = source;
    self.SetHelper(source.GetHelper());
    self = *&self;
    EXPECT_BITS_EQ(expected, mgXform_c(source));
    EXPECT_BITS_EQ(expected, assigned);
    EXPECT_BITS_EQ(expected, self);
    EXPECT_BITS_EQ(expected, source * mgXform_c()); // the left operand is copied
}

TEST(Xform, CopiesReplaceAScaleOutOfRangeByOne) {
    for (double const scale : {kSmallest, kLargest, -2.0, kInfinity, kNaN, above(kSmallest)}) {
        double const expected = scale == above(kSmallest) ? scale : 1.0;
        CheckCopies(raw(quarter, x, scale, 1), raw(quarter, x, expected, 1));
        EXPECT_EQ(expected, mg_ScaleXform(mg_ScaleXform(3.0), scale).scaling()); // replaced
        EXPECT_EQ(expected, mg_RestoreXform(quarter, {}, scale).scaling());
    }
    EXPECT_EQ(below(kLargest), mg_ScaleXform(below(kLargest)).scaling());
}

TEST(Xform, CopiesFlushATinyTranslationAndAFlaggedRotation) {
    double const s = below(1e-08);
    CheckCopies(raw(quarter, {s, -s, s}, 2.0), raw(quarter, {}, 2.0));
    CheckCopies(raw(quarter, {s, 0.0, -1e-08}, 2.0), raw(quarter, {s, 0.0, -1e-08}, 2.0));
    CheckCopies(raw(flagged, {}, 2.0), raw(one, {}, 2.0));
    // A factory's result is not copied; an argument by value is, and the result of a product.
    mgXform_c odd, wide = mg_ScaleXform(1e7);
    odd.SetHelper(raw(flagged, {s, s, s}, kLargest).GetHelper());
    EXPECT_BITS_EQ(raw(flagged, {s, s, s}), mg_RestoreXform(flagged, {s, s, s}, kLargest));
    EXPECT_BITS_EQ(mg_ScaleXform(3.0), mg_ScaleXform(odd, 3.0));
    EXPECT_BITS_EQ(mgXform_c(), wide * mg_ScaleXform(1e6));
    wide *= mg_ScaleXform(1e6);
    EXPECT_EQ(1e13, wide.scaling());                           // in place neither range nor flush
    EXPECT_EQ(1.0, raw(one, {}, 1.2e-13).inverse().scaling()); // 1 / 1.2e-13 is too large
}

TEST(Xform, CompositionGoesByTheFlags) {
    mgXform_c a = raw(flagged), b = raw(quarter);
    a *= mgXform_c(); // both flags set: left alone, elements and all
    EXPECT_BITS_EQ(raw(flagged), a);
    a *= b; // one is clear: the elements of both
    EXPECT_BITS_EQ(raw(quarter * quarter), a);
    mgXform_c const mirror = raw(one, {}, 1.0, 7);
    EXPECT_EQ(1, (mirror * raw(one)).isReflection());
    EXPECT_EQ(0, (mirror * raw(one, {}, 1.0, -1)).isReflection());
}

TEST(Xform, PointsVectorsAndDirectionsAreMovedInThreeWays) {
    P const p(-0.0, -5.0, kInfinity); // a product with the identity would change it
    mgMatrix_c const unflagged({1, -0.0, 0, 0, 1, 0, 0, -0.0, 1}, 0);
    mgMatrix_c const nearly({1, 0, 0, 0, 1, 0, 0, 0, above(1.0)}, 0);
    EXPECT_BITS_EQ(P(-0.0, 2.0, kInfinity), p * raw(unflagged, 7.0 * y));
    EXPECT_BITS_EQ(p * nearly, p * raw(nearly));
    EXPECT_BITS_EQ(V(-0.0, 0.0, 0.0), V(-0.0, 0.0, 0.0) * raw(quarter));
    double const up = 1.0 + 1e-08, down = above(1.0 - 1e-08); // the last within 1e-08 of 1
    for (double const scale : {up, above(up), down, below(down), kNaN}) {
        double const factor = scale == above(up) || scale == below(down) ? scale : 1.0;
        EXPECT_BITS_EQ(V(1.0, -5.0 * factor, kInfinity), p * raw(one, x, scale));
        EXPECT_BITS_EQ(V(p) * factor, V(p) * raw(one, x, scale));
    }
    // Directions go by the flag, vectors by the elements; directions are normalised when rotated.
    U longer;
    longer.set(0.0, 3.0, 0.0);
    EXPECT_EQ(0.0, gap(-x, longer * raw(quarter, x, 2.0)));
    EXPECT_EQ(0.0, gap(3.0 * y, longer * raw(flagged)));
    EXPECT_EQ(0.0, gap(-3.0 * x, V(longer) * raw(flagged)));
}

TEST(Xform, InverseDropsMirrorAndPerspective) {
    mgXform_c mirror = raw(quarter, {1.0, 2.0, 3.0}, 4.0);
    mirror.setReflection(1);
    mirror.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_BITS_EQ(raw(quarter.inverse(), V(-2.0, 1.0, -3.0) * 0.25, 0.25), mirror.inverse());
    EXPECT_EQ(0, mirror.inverse().hasPerspective());
}

TEST(Xform, TransformsThatDifferInReflectionOrWithinBoundsAreEqual) {
    EXPECT_EQ(1, raw(flagged, below(1e-08) * x, 1.0 + 9e-09, 1).isIdentity());
    EXPECT_EQ(0, raw(one, 1e-08 * x).isIdentity());
    EXPECT_EQ(0, raw(one, {}, 1.0 - 1.1e-08).isIdentity());
    mgXform_c const turn = raw(quarter);
    mgMatrix_c onBound = quarter, beyond = quarter;
    onBound[0] = 1e-08, beyond[7] = -above(1e-08);
    EXPECT_EQ(1, turn.equals(raw(onBound, -1e-08 * y, 1.0 + 9e-09)));
    EXPECT_EQ(0, turn.equals(raw(beyond)));
    EXPECT_EQ(0, turn.equals(raw(quarter, above(1e-08) * z)));
    EXPECT_EQ(0, turn.equals(raw(quarter, {}, 1.0 - 1.1e-08)));
    EXPECT_EQ(1, raw(flagged).equals(mgXform_c()));                  // both flags are set
    EXPECT_EQ(1, turn.equals(raw(quarter, {kNaN, 0.0, 0.0}, kNaN))); // NaN differs from nothing
    EXPECT_EQ(1, raw(quarter, {}, 1.0, 1).equals(turn));
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
    EXPECT_EQ(1, a.equals(view(3.0, 50.0, -1.0)));
    EXPECT_EQ(0, a.equals(view(above(3.0), 4.0, -1.0)));
    EXPECT_EQ(0, a.equals(view(3.0, 4.0, above(-1.0))));
    EXPECT_EQ(0, a.equals(none)); // one alone
    EXPECT_EQ(0, none.iIsPerspectiveEqual(a));
}

TEST(Xform, AxesAreComparedByDirection) {
    for (double const angle : {1.414e-4, 1.415e-4, 3.1415926535898}) { // bound: 1 - cos is 1e-8
        mgXform_c const rotated = mg_RotateXform(angle, x, 1e-9);
        EXPECT_EQ(angle != 1.415e-4, mgXform_c().sameOrParallel(&rotated));
    }
    int opposite = 7;
    EXPECT_EQ(1, raw(quarter).getNearestAxis({1.0, 1.0, -1.0}, opposite)); // the earlier row
    EXPECT_EQ(0, opposite);
    EXPECT_EQ(3, raw(quarter).getNearestAxis({1.0, 1.0, -1.001}, opposite));
    EXPECT_EQ(1, opposite);
    EXPECT_EQ(1, raw(quarter).getNearestAxis(U(), opposite));
    EXPECT_EQ(0, opposite);
}

void CheckRepair(mgXform_c form, int expected, mgXform_c const &repaired, Caller = {}) {
    EXPECT_EQ(expected, form.iValidateRepairXForm());
    EXPECT_BITS_EQ(repaired, form);
}

TEST(Xform, RepairLeavesTranslationInDepth) {
    CheckRepair(raw(quarter, {2e8, -2e8, 5e8}), 1, raw(quarter, {0.0, 0.0, 5e8}));
    CheckRepair(raw(quarter, {1e8, -1e8, -5e8}), 0, raw(quarter, {1e8, -1e8, -5e8}));
    CheckRepair(raw(quarter, {1.0, above(1e8), 1.0}), 1, raw(quarter, {1.0, 0.0, 1.0}));
    EXPECT_EQ(0, raw(quarter).iValidateRepairRotationMatrix());
}

TEST(Xform, ScaleOnABoundIsRepairedOnlyByACopy) {
    for (double const bound : {kSmallest, kLargest})
        CheckRepair(raw(one, {}, bound), 0, raw(one, {}, bound)); // 1 in a copy
    for (double const beyond : {below(kSmallest), above(kLargest), kNaN})
        CheckRepair(raw(one, {}, beyond), 1, mgXform_c());
}

/// Does the transform hold a record with this plane distance, or none (-1)?
void CheckRecord(mgXform_c const &form, double planeDistance, Caller = {}) {
    mgPerspInfo_c out(0.0, 0.0, 0.0, -1.0);
    EXPECT_EQ(planeDistance >= 0.0, form.getPerspectiveInfo(&out));
    EXPECT_EQ(planeDistance, out.getPlaneDistance());
}

// Run under the address sanitizer, this also counts what is freed and how often.
TEST(Xform, ARecordIsOwnedByOneTransform) {
    mgXform_c a, b, none;
    mgXform_64BitHelper_c helper;
    a.addPerspectiveInfo(mgModelPerspInfo_c(1.0, 2.0, 3.0, 4.0)); // by its base fields
    b.addPerspectiveInfo(mgPerspInfo_c(9.0, 9.0, 9.0, 9.0));
    b.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 5.0)); // the second stays
    b = *&b;                                                 // and self assignment keeps it
    mgXform_c const copy(std::move(b));                      // as a copy would
    CheckRecord(a, 4.0), CheckRecord(b, 5.0);
    CheckRecord(copy * none, 5.0); // kept
    CheckRecord(none * copy, 5.0); // taken over
    CheckRecord(copy * a, 4.0);    // replaced
    a *= a;
    CheckRecord(a, 4.0), CheckRecord(a.linearComponent(), -1.0);
    copy.GetHelper(helper);
    EXPECT_EQ(nullptr, helper.perspective);
    b = none, a.SetHelper(helper);
    CheckRecord(a, -1.0), CheckRecord(b, -1.0), CheckRecord(copy, 5.0);
    b = copy;
    b.deletePerspectiveInfo(), b.deletePerspectiveInfo();
    CheckRecord(b, -1.0), CheckRecord(copy, 5.0);
    // e + (p - e) 5 / dz, with the eye e at (1, 2, 3), after the scale
    EXPECT_BITS_EQ(P(11.0, 2.0, 5.5), P(3.0, 1.0, 2.75) * (mg_ScaleXform(2.0) * copy));
}

TEST(Xform, AxesAreCopiedFromColumnsAndRows) {
    mgXform_c const form = raw(mgMatrix_c({1, 2, 3, 4, 5, 6, 7, 8, 9}, 0), {}, 2.0);
    U a, b, c;
    form.getXAxis(&a), form.getYAxis(&b), form.getZAxis(&c);
    EXPECT_BITS_EQ(V(4.0, 5.0, 6.0), V(a.y(), b.y(), c.y()));
    form.getIXAxis(&a), form.getIYAxis(&b), form.getIZAxis(&c);
    EXPECT_BITS_EQ(V(2.0, 5.0, 8.0), V(a.y(), b.y(), c.y()));
    EXPECT_BITS_EQ(raw({z, x, y}, 5e-9 * x), mgXform_c(y, z, 5e-9 * x)); // z, x, origin
}

} // namespace
