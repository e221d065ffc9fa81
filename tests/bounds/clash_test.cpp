// SPDX-License-Identifier: MIT
// Interference of boxes, also placed ones: which contacts clash; containment; planes and segments.

#include "bounds/boxes.h"

namespace {

mgBBox_c const unit = cube(0, 1), ball(P(), 1);

void CheckClash(int expected, mgBBox_c const &a, mgBBox_c const &b, double tol = 0, Caller = {}) {
    for (int const useVectorUnits : {0, 1}) {
        mg_SetUseVectorUnits(useVectorUnits);
        EXPECT_EQ(expected, a.clash(&b, tol)) << tol << ' ' << useVectorUnits;
        EXPECT_EQ(expected, b.clash(&a, tol)) << tol << ' ' << useVectorUnits;
    }
}

TEST(Clash, FacesAndEdgesTouchSingleCornersDoNot) {
    CheckClash(1, unit, unit), CheckClash(1, unit, {P(1, 0, 0), P(2, 1, 1)});
    CheckClash(1, unit, {P(1, 1, 0), P(2, 2, 1)});
    for (double const tol : {0.0, 1.0}) CheckClash(0, unit, {P(1, 1, -1), P(2, 2, 0)}, tol);
    CheckClash(0, unit, cube(1 - 5e-09, 2)); // one corner, within the tolerance
    CheckClash(1, unit, cube(1 - 2e-08, 2)), CheckClash(0, unit, cube(1, 1));
    CheckClash(0, cube(5, 5), cube(5, 5));    // a point and itself
    CheckClash(1, unit, {P(1, 0.5, 0.5), 0}); // a corner of the point, not of unit
    CheckClash(0, unit, mgBBox_c());
}

TEST(Clash, SphereToleranceIsAFactorOnTheSquaredRadius) {
    // The overlap begins at x = d. The sphere about the origin has radius 1. With tolerance 3 its
    // squared radius is 4, so it reaches to 2; a tolerance as a length would reach to 4.
    mgBBox_c const a = boxOf(P(), 1, P(-1, -1, -1), P(3, 1, 1)), b = boxOf(P(), 1, P(), P(2, 1, 1));
    auto const from = [](double d) { return boxOf(P(d, 0, 0), 1, P(d, -1, -1), P(3, 1, 1)); };
    CheckClash(1, a, from(1)), CheckClash(0, a, from(above(1))), CheckClash(1, a, from(2), 3);
    CheckClash(0, a, from(above(2)), 3);
    // For gaps between spheres and between corners the tolerance is a length.
    CheckClash(1, b, boxOf(P(3.5, 0, 0), 2, P(), P(4, 1, 1)), 0.5);
    CheckClash(0, b, boxOf(P(above(3.5), 0, 0), 2, P(), P(4, 1, 1)), 0.5);
    CheckClash(1, {P(), P(2, 0, 2)}, {P(0, 0.125, 0), P(2, 2, 2)}, 0.125);
    CheckClash(0, {P(), P(2, 0, 2)}, {P(0, 0.125, 0), P(2, 2, 2)}, below(0.125));
    CheckClash(0, unit, unit, -1.25); // used as it is: asks for an overlap
}

void CheckPlacedClash(int expected, mgBBox_c const &a, mgXform_c const &xa, mgBBox_c const &b,
                      mgXform_c const &xb, Caller = {}) {
    mgBBox_c const boxes[] = {a, b};
    mgXform_c const placements[] = {xa, xb};
    for (int const useVectorUnits : {0, 1}) {
        mg_SetUseVectorUnits(useVectorUnits);
        EXPECT_EQ(expected, mgBBox_c::clash(a, xa, b, xb)) << useVectorUnits;
        mgBoxIndex_c index;
        suDynamicArray<mgIndexPair_c> pairs;
        EXPECT_EQ(1, index.build(boxes, placements, 2));
        EXPECT_EQ(expected, index.clashes(0, pairs)) << useVectorUnits;
    }
}

TEST(Clash, ARelativeRotationThatIsFlaggedAsNoneIsNotApplied) {
    mgMatrix_c const turn = mg_RotationMatrix(1.0, {1, 2, 3}, 0.0);
    for (double const angle : {5e-13, 1e-6}) // the second is not flagged
        for (int i = 0; i < 3; ++i) {
            // The rotation would move the ends of such long rods by more than the gap.
            int const up = (i + 1) % 3;
            P end(1, 1, 1);
            end[i] = 1e5;
            mgBBox_c const rod(P(), end);
            V gap;
            gap[up] = 1 + 2e-8;
            mgMatrix_c other = turn;
            for (int j = 0; j < 3; ++j) {
                other[3 * i + j] -= angle * turn[3 * up + j];
                other[3 * up + j] += angle * turn[3 * i + j];
            }
            mgXform_c const lower = raw(turn), upper = raw(other, gap * lower);
            CheckPlacedClash(angle > 1e-12, rod, lower, rod, upper);
            CheckPlacedClash(angle > 1e-12, rod, upper, rod, lower);
        }
}

TEST(Clash, ARotatedAndScaledBoxReachesAsFarAsItsCorners) {
    Random random;
    mgBBox_c const wall(P(-20, -20, -20), P(0, 20, 20)), box = cube(-1, 1);
    for (int round = 0; round < 30; ++round) {
        mgMatrix_c const m = placement(random).rotation();
        double const reach = 2 * (std::fabs(m(0, 0)) + std::fabs(m(1, 0)) + std::fabs(m(2, 0)));
        for (double const gap : {-1e-6, 1e-6})
            CheckPlacedClash(gap < 0, wall, {}, box, mg_RestoreXform(m, V(reach + gap, 0, 0), 2));
    }
}

TEST(Clash, ASlightStretchIsInvertedAsARotation) {
    // Far out, it is longer than a gap of 0.001, or an overlap.
    mgMatrix_c const turn = mg_RotationMatrix(std::acos(-0.5), {1, 1, 1}, 0.0);
    mgMatrix_c larger = turn;
    V const back(-1e7, -1e7, -1e7);
    for (int j = 0; j < 9; ++j) larger[j] *= 1 + 2e-10;
    mgBBox_c const a = cube(1e7, 1e7 + 1), b = mgBBox_c(a) += V(1.001, 0, 0);
    CheckPlacedClash(0, a, raw(larger, back), b, raw(turn, back));
    CheckPlacedClash(0, b, raw(turn, back), a, raw(larger, back));
    mgBBox_c const far(P(1e7, 1e7, 1e7), 1), near = mgBBox_c(far) += V(-1.999, 0, 0);
    CheckPlacedClash(1, far, raw(larger, back), near, raw(turn, back));
}

/// The second box is placed at x.
void CheckPlaced(int expected, mgBBox_c const &a, mgBBox_c const &b, double x, Caller = {}) {
    mgXform_c const placed = mg_TranslateXform(V(x, 0, 0));
    CheckPlacedClash(expected, a, mgXform_c(), b, placed);
    CheckPlacedClash(expected, b, placed, a, mgXform_c());
}

TEST(Clash, PlacedSpheresAreComparedUnscaled) {
    // Scaled by 2 the second sphere reaches into the first, but the test uses its radius of 1.
    mgXform_c const scaled = mg_RestoreXform({}, V(2.5, 0, 0), 2);
    CheckPlacedClash(0, ball, mgXform_c(), ball, scaled);
    CheckPlaced(1, ball, {P(), 2}, 2.5);
    // Placed spheres must overlap by the tolerance; unplaced, touching is enough.
    CheckPlaced(1, ball, ball, 2 - 1e-08 - 1e-15), CheckPlaced(0, ball, ball, 2 - 1e-08 + 1e-15);
    CheckClash(1, ball, {P(2, 0, 0), 1});
    CheckPlaced(0, ball, mgBBox_c(), 0);
    CheckPlaced(1, cube(0, 100), cube(-1, 1e-6), 0); // within the rounding of the larger one
    // Both boxes overlap, but beyond their spheres, which touch.
    CheckPlaced(0, boxOf(P(-0.635, -0.635, -0.635), 0.1, P(-5, -5, -5), P(-0.7, -0.7, -0.7)),
                boxOf(P(), 1, P(-5, -5, -5), P(5, 5, 5)), 0);
    CheckPlaced(1, unit, boxOf(P(kInfinity, 0, 0), kInfinity, P(), P(1, 1, 1)), 0);
}

void CheckInside(int expected, mgBBox_c const &inner, mgBBox_c const &outer, double tol,
                 Caller = {}) {
    EXPECT_EQ(expected, outer.containsBBox(&inner, tol)) << tol;
}

TEST(Clash, ContainmentToleranceIsRelative) {
    for (double const size : {0.01, 1000.0}) {
        mgBBox_c const box = cube(-size, size), wider = cube(-1.0625 * size, 1.0625 * size);
        CheckInside(0, box, box, 0); // strictly
        CheckInside(1, box, box, 0.01), CheckInside(1, wider, box, 0.0625);
        CheckInside(0, wider, box, 0.05), CheckInside(1, box, wider, 0);
        for (int k = 3; k < 9; ++k)
            CheckInside(0, box, withDouble(wider, k, k < 6 ? size : -size), 0);
    }
    mgBBox_c const outer = boxOf(P(), 2.5, P(-1, -1, -1), P(1, 1, 1));
    CheckInside(1, boxOf(P(5, 0, 0), 2, P(), P()), outer, 0.5); // spheres no farther apart
    CheckInside(0, boxOf(P(above(5), 0, 0), 2, P(), P()), outer, 0.5);
    CheckInside(0, cube(-2, 2), ball, 0.5), CheckInside(1, cube(-2, 2), ball, above(0.5));
    CheckInside(0, mgBBox_c(), unit, 0), CheckInside(0, ball, mgBBox_c(), 0);
    EXPECT_EQ(0, outer.containsBBox(nullptr, 0));
}

TEST(Clash, PointsOnTheBoundAreContainedWhetherSetOrNot) {
    double const rows[][3] = {
        {1, 1, 0},     {0, above(1), 0}, {1, 1.25, 0.25}, {0, 1.25, below(0.25)},
        {0, 1, -1e-9}, {1, kNaN, 0},     {1, 9, kNaN}};
    for (double const radius : {1.0, -2.0}) {
        mgBBox_c const box = boxOf(P(), radius, P(-1, -1, -1), P(1, 1, 1));
        for (int k = 0; k < 6; ++k) {
            for (auto const &[expected, at, tol] : rows) {
                P p;
                p[k / 2] = k % 2 != 0 ? at : -at;
                EXPECT_EQ(expected, box.containsPoint(p, tol)) << at << ' ' << tol;
                EXPECT_EQ(expected, box.containsPoint(p, tol, (k / 2 + 1) % 3)) << at << ' ' << tol;
                EXPECT_EQ(1, box.containsPoint(p, tol, k / 2)) << at << ' ' << tol;
            }
        }
    }
    EXPECT_EQ(1, mgBBox_c().containsPoint(P(), 1)); // between inverted corners
    EXPECT_EQ(0, mgBBox_c().containsPoint(P(), below(1)));
}

TEST(PlaneClash, ACornerNearerThanTheToleranceTouches) {
    // Result, x of the plane, tolerance. A tolerance below 1e-08 counts as 1e-08. Strict.
    double const rows[][3] = {
        {1, 0.5, 0},          {0, -1e-08, 0},   {1, above(-1e-08), 0},   {1, 1 + 5e-09, -1},
        {1, 1 + 5e-09, kNaN}, {0, -0.25, 0.25}, {1, -0.25, above(0.25)}, {0, kNaN, 1},
        {0, -1e-04, 0}};
    for (auto const &[expected, x, tol] : rows) {
        mgPlane_c const plane(P(x, 7, -7), mgUnitVector_c(1, 0, 0));
        EXPECT_EQ(expected, unit.clash(plane, tol)) << x << ' ' << tol;
    }
    mgPlane_c const withoutNormal(P(9, 9, 9), mgUnitVector_c()); // every point lies in it
    EXPECT_EQ(1, unit.clash(withoutNormal, 0));
    EXPECT_EQ(0, mgBBox_c().clash(withoutNormal, 0));
    for (int i = 0; i < 16; ++i) { // every corner can be cut off
        V const half((i & 1) - 0.5, (i & 2) * 0.5 - 0.5, (i & 4) * 0.25 - 0.5);
        mgUnitVector_c const normal(i < 8 ? half : -half, 0);
        EXPECT_EQ(1, unit.clash(mgPlane_c(unit.center() + 0.999 * half, normal), 0)) << i;
        EXPECT_EQ(0, unit.clash(mgPlane_c(unit.center() + 1.001 * half, normal), 0)) << i;
    }
}

void CheckSegment(int expected, P const &a, P const &b, double tol, Caller = {}) {
    EXPECT_EQ(expected, unit.clashLine(&a, &b, tol)) << a.x() << ' ' << a.y() << ' ' << tol;
    EXPECT_EQ(expected, unit.clashLine(&b, &a, tol)) << b.x() << ' ' << b.y() << ' ' << tol;
}

TEST(SegmentClash, ASegmentIsTestedAgainstTheSphereAlone) {
    CheckSegment(1, {-1, 0.5, 0.5}, {2, 0.5, 0.5}, 0);
    CheckSegment(1, {0.5, 0.5, 0.5}, {0.5, 0.5, 0.5}, 0); // a point
    CheckSegment(0, {1.5, 0.5, 0.5}, {2, 0.5, 0.5}, 0);   // its line hits, but it is too short
    CheckSegment(1, {1.6, 0.5, 0.5}, {0.5, 1.6, 0.5}, 0); // outside the edge, inside the sphere
    // The squared distance is 0.845. The squared radius is 0.75, and the tolerance is added to it.
    CheckSegment(0, {1.8, 0.5, 0.5}, {0.5, 1.8, 0.5}, 0.094);
    CheckSegment(1, {1.8, 0.5, 0.5}, {0.5, 1.8, 0.5}, 0.096);
    CheckSegment(0, {1.1, 0.2, 0.5}, {1.1, 0.8, 0.5}, 0.09); // 0.1 from the face
    CheckSegment(1, {1.1, 0.2, 0.5}, {1.1, 0.8, 0.5}, 0.11);
    for (double const beyond : {1e-08, 1.05e-08}) { // 1e-08, for the corners only
        P const a(0.1, 1 + beyond, 0.5), b(0.9, 1 + beyond, 0.5);
        EXPECT_EQ(beyond == 1e-08, unit.clashLine(&a, &b));
    }
}

} // namespace
