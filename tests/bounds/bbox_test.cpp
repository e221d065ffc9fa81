// SPDX-License-Identifier: MIT
// Boxes with bounding spheres: setters, queries, validity, unions, growth, transforms, text form.

#include "bounds/boxes.h"

namespace {

mgBBox_c const unit = cube(0, 1), big = cube(-9, 9);
mgBBox_c const bloated = boxOf(P(), 9, P(-1, -1, -1), P(1, 1, 1)); // not valid

void CheckNeutral(mgBBox_c const &box, Caller = {}) {
    EXPECT_EQ(0, box.isSet());
    EXPECT_EQ(0, box.isValid());
    for (P const &p :
         {box.low(), box.high(), box.center(), box.sphCenter(), box.pointPerp(P(5, -5, 1))})
        EXPECT_BITS_EQ(P(), p);
    for (double const d : {box.sphRadius(), box.width(), box.depth(), box.height(),
                           box.diagonalLength(), box.maxDimension()})
        EXPECT_BITS_EQ(0, d);
    EXPECT_EQ(-1, box.minDimension());
    EXPECT_EQ(L"0 0 0 0 0 0", textOf(box));
    box.dump(); // has no visible effect
}

TEST(BBox, AnUnsetBoxAnswersNeutrally) {
    EXPECT_BITS_EQ(boxOf(P(), -2, P(1, 1, 1), P(-1, -1, -1)), mgBBox_c());
    CheckNeutral(mgBBox_c());
    mgBBox_c box = cube(1, 1);
    EXPECT_EQ(1, box.isSet());
    for (int k = 3; k < 10; ++k) { // corners and radius
        CheckNeutral(withDouble(box, k, kNaN));
        CheckNeutral(withDouble(box, k, k < 6 ? below(1) : k < 9 ? above(1) : below(0)));
    }
    box.reset();
    CheckNeutral(box);
    EXPECT_BITS_EQ(boxOf(P(1, 1, 1), 0, P(), P(0, 0, -2)), box);
}

TEST(BBox, SettersWriteWhatTheyAreGiven) {
    P const a(5, 0, 3), b(1, 2, 3), middle(3, 1, 3), nan(kNaN, 2, 3);
    double const radius = 0.5 * std::sqrt(20.0), lowHigh[] = {5, 0, 3, 1, 2, 3};
    mgBBox_c box;
    box.set(b, -2);
    EXPECT_BITS_EQ(boxOf(b, -2, P(3, 4, 5), P(-1, 0, 1)), box);
    box.set2Points(&a, &b);
    EXPECT_BITS_EQ(boxOf(middle, radius, P(1, 0, 3), P(5, 2, 3)), box);
    box.set(lowHigh);
    EXPECT_BITS_EQ(boxOf(middle, radius, a, b), box);          // not sorted
    EXPECT_BITS_EQ(mgBBox_c(a, P(5, 2, 3)), mgBBox_c(a, nan)); // keeps the first point's x
    EXPECT_BITS_EQ(boxOf(P(kNaN, 1, 3), kNaN, P(kNaN, 0, 3), nan), mgBBox_c(nan, a));
    EXPECT_BITS_EQ(mgBBox_c(P(), 500), mgBBox_c::correctedMaxBox());
    EXPECT_BITS_EQ(cube(-288.6002886002886, 288.6002886002886), mgBBox_c::maxBox());
}

TEST(BBox, MeasuresComeFromTheCorners) {
    mgBBox_c const box = boxOf(P(7, 7, 7), 100, P(1, 2, 3), P(5, 8, 11));
    EXPECT_BITS_EQ(P(3, 5, 7), box.center());
    EXPECT_BITS_EQ(V(4, 6, 8), V(box.width(), box.depth(), box.height()));
    EXPECT_BITS_EQ(V(std::sqrt(116.0), 8, 4),
                   V(box.diagonalLength(), box.maxDimension(), box.minDimension()));
    EXPECT_BITS_EQ(P(1, 8, 3.5), box.pointPerp(P(below(1), 99, 3.5)));
    EXPECT_BITS_EQ(P(-0.0, 0, 1), unit.pointPerp(P(-0.0, 0, 1))); // zeros of both signs are equal
    EXPECT_BITS_EQ(P(), cube(-1, -0.0).pointPerp(P()));
}

TEST(BBox, ComparisonsAreStrictInEveryMember) {
    mgBBox_c const zero = boxOf(P(), 0, P(), P());
    for (int k = 0; k < 20; ++k) {
        auto const check = [&](bool same, double by, double tol, Caller = {}) {
            mgBBox_c const other = withDouble(zero, k / 2, k % 2 != 0 ? by : -by);
            EXPECT_EQ(same, zero.isSame(other, tol)) << k << ": " << by << " within " << tol;
            EXPECT_EQ(zero.isSame(other, -1) != 0, zero == other) << k << ": " << by;
        };
        check(true, below(1e-08), -1), check(false, 1e-08, -1);
        check(false, kNaN, -1), check(true, below(0.25), 0.25), check(false, 0.25, 0.25);
        check(false, 0, 0); // 0 stays 0
    }
}

TEST(BBox, ACentreFarOutIsNotHeldAgainstTheCorners) {
    // An axis is not tested when the centre is 1e13 tolerances from the origin. The radius gives
    // the tolerance.
    double const rows[][2] = {{1, 1e-08}, {999999, 1e-08}, {1e6, 1e-07}, {1e7, 1e-06}, {3e15, 100}};
    for (auto const &[r, tol] : rows) {
        double const far = 1e13 * tol, reach = r + tol, radius = r;
        auto const valid = [=](double x, double low, double high) {
            P const centre(x, 0, 0);
            return boxOf(centre, radius, P(x, low, 0), P(x + 1.5 * radius, high, 0)).isValid();
        };
        for (double const x : {-far, 0.999999999 * far, far})
            EXPECT_EQ(std::fabs(x) == far, valid(x, 0, 0)) << r << ' ' << x;
        for (double const y : {reach, above(reach)}) // the other axes are tested
            EXPECT_EQ(y == reach, valid(far, 0, y) && valid(far, -y, 0)) << r;
        EXPECT_EQ(valid(far, 0, above(reach)), valid(far, -above(reach), 0)) << r;
    }
}

TEST(BBox, ASphereIsValidNearTheDistanceOfItsPoint) {
    for (double const r : {0.01, 1e4}) {
        double const near = std::sqrt((r * r * 0.99999999 - 1e-08) / 2);
        double const far = std::sqrt((r * r * 1.00000001 + 1e-08) / 2);
        for (double const x : {below(near), near, far, above(far)}) {
            mgBBox_c const box = boxOf(P(), r, P(x, x, 0), P(x, x, 0));
            EXPECT_EQ(x == near || x == far, box.isValid()) << r << ' ' << x;
        }
    }
}

TEST(BBox, AUnionAsksMoreOfItsOperandThanOfItself) {
    EXPECT_BITS_EQ(unit, mgBBox_c(unit) |= bloated); // an invalid box counts as empty
    mgBBox_c const ball(P(9, 0, 0), 2);
    EXPECT_BITS_EQ(boxOf(P(1, 0, 0), 10, P(-1, -2, -2), P(11, 2, 2)),
                   mgBBox_c(bloated) |= ball); // its oversized sphere is merged as it is
    EXPECT_BITS_EQ(ball, mgBBox_c() |= ball);
    EXPECT_BITS_EQ(mgBBox_c(P(), P()), mgBBox_c(bloated) |= P());       // a point needs a valid box
    mgBBox_c const far = mgBBox_c(unit) |= mgBBox_c(P(1e200, 0, 0), 2); // the square overflows
    EXPECT_EQ(1, far.isSet());
    EXPECT_EQ(0, far.isValid());
}

TEST(BBox, APointThatHoldsNaNWidensTheCornersAlone) {
    mgBBox_c box = unit;
    EXPECT_BITS_EQ(boxOf(unit.center(), unit.sphRadius(), P(), P(1, 5, 1)), box |= P(kNaN, 5, 0.5));
    EXPECT_EQ(0, box.isValid());
    EXPECT_BITS_EQ(mgBBox_c(P(0, 2, 0), 0), box |= P(0, 2, 0)); // replaced by the next point
    box |= P(1e200, 0, 0);                                      // the squared distance overflows
    EXPECT_EQ(1, box.isSet());
    EXPECT_EQ(0, box.isValid());
}

TEST(BBox, TheSwitchGivesTheCubeAroundTheMergedSphere) {
    mgBBox_c const beside(P(1, 0, 0), P(2, 1, 1)), both(P(), P(2, 1, 1));
    EXPECT_BITS_EQ(both, mgBBox_c(unit) |= beside);
    EXPECT_EQ(0, mgBBox_c::SetUseSphereBoundingBox(2));
    EXPECT_EQ(2, mgBBox_c::SetUseSphereBoundingBox(1));
    EXPECT_EQ(1, mgBBox_c::GetUseSphereBoundingBox());
    EXPECT_BITS_EQ(mgBBox_c(both.sphCenter(), both.sphRadius()), mgBBox_c(unit) |= beside);
    EXPECT_BITS_EQ(big, mgBBox_c(big) |= unit); // ignored where the sphere stays
    EXPECT_BITS_EQ(0, (mgBBox_c(unit) |= P(9, -0.0, 0)).low().y());  // and by points
    EXPECT_BITS_EQ(-0.0, (cube(-1, -0.0) |= P(9, 0, 0)).high().y()); // equal to 0
    mgBBox_c::SetUseSphereBoundingBox(0);
}

TEST(BBox, IntersectionsBridgeGapsBelowTheTolerance) {
    for (double const gap : {-0.5, 0.0, below(1e-08), 1e-08, 1.0}) {
        for (int axis = 0; axis < 3; ++axis) {
            P nearer(2, 2, 2), farther(-2, -2, -2);
            nearer[axis] = 0;
            farther[axis] = gap;
            mgBBox_c const a(P(-2, -2, -2), nearer), b(farther, P(2, 2, 2));
            mgBBox_c const common = gap < 1e-08 ? mgBBox_c(nearer, farther) : mgBBox_c();
            EXPECT_BITS_EQ(common, mgBBox_c(a) &= b) << axis << " " << gap;
            EXPECT_BITS_EQ(common, mgBBox_c(b) &= a) << axis << " " << gap;
        }
    }
    mgBBox_c const unset = withDouble(big, 9, -1); // by its radius alone
    for (mgBBox_c const &other : {unit, unset})    // the result is the default one, centre and all
        EXPECT_BITS_EQ(mgBBox_c(), mgBBox_c(other) &= unset);
}

TEST(BBox, AnUnsetBoxBecomesSetByGrowing) {
    mgBBox_c const grown = boxOf(P(), 0, P(-1, -1, -1), P(1, 1, 1));
    EXPECT_BITS_EQ(grown, mgBBox_c() += 2);
    EXPECT_EQ(0, grown.isValid());
    EXPECT_BITS_EQ(mgBBox_c(), mgBBox_c() += below(2));
    mgBBox_c const inverted = boxOf(P(), 9, P(), P(0, 0, -2)); // by its corners alone
    EXPECT_BITS_EQ(boxOf(P(), 10, P(-1, -1, -1), P(1, 1, -1)), mgBBox_c(inverted) += 1);
}

TEST(BBox, AShrunkBoxKeepsASphereThatIsHardlyTooLarge) {
    // Half the box's length, and the largest radius: 5e-9 more in the square, a factor, or 1e-10.
    double const rows[][2] = {
        {3, std::sqrt(9 + 5e-09)}, {0.5, std::sqrt(0.25 * 1.000000005)}, {5e-11, 1e-10}};
    for (auto const &[half, most] : rows)
        for (double const r : {most, above(most)}) {
            mgBBox_c box = boxOf(P(), r, P(-half, 0, 0), P(half, 0, 0));
            EXPECT_EQ(r == most ? r : half, (box += -kTiny).sphRadius());
        }
}

TEST(BBox, AListOfPointsIsBoundedAsOneByOne) {
    // Most are in the sphere of the first two. No axis has a coordinate of another.
    P const points[] = {{2, 100, 1000},  {20, 100, 1000}, {11, 101, 999},  {12, 98, 1003},
                        {9, 104, 998},   {10, 97, 1002},  {13, 99, 1004},  {11, 95, 997},
                        {12, 103, 1001}, {10, 96, 996},   {11, 100, 1005}, {12, 105, 1000}};
    mg_SetUseVectorUnits(1);
    mgBBox_c box, loop;
    for (P const &p : points) loop |= p;
    mg_BoundPoints(points, 12, box);
    EXPECT_BITS_EQ(loop, box);
}

TEST(BBox, TranslationAndScalingMoveEveryMember) {
    mgBBox_c box = boxOf(P(3, 2, 3), 5, P(), P(2, 4, 6));
    EXPECT_BITS_EQ(boxOf(P(13, 22, 33), 5, P(10, 20, 30), P(12, 24, 36)), box += V(10, 20, 30));
    EXPECT_BITS_EQ(boxOf(P(10, 22, 33), -2.5, P(11.5, 23, 34.5), P(10.5, 21, 31.5)),
                   box *= -0.5);               // about the middle of the corners
    EXPECT_EQ(1, (mgBBox_c() *= 0).isValid()); // a point, although it was unset
}

TEST(BBox, TransformsEncloseTheImageWithinTheSphereIgnoringPerspective) {
    mgMatrix_c const quarter = mg_RotationMatrix(1.5707963267949, U::zAxis(), 1e-6);
    mgXform_c placed = mg_RestoreXform(quarter, V(10, 20, 30), 2);
    placed.addPerspectiveInfo(mgPerspInfo_c(1, 2, 3, 4));
    mgBBox_c box(P(), P(2, 4, 6)), ball(P(), 3), reset(P(), 1);
    EXPECT_BITS_EQ(boxOf(P(6, 22, 36), std::sqrt(56.0), P(2, 20, 30), P(10, 24, 42)),
                   box *= placed);
    ball *= mg_RotateXform(0.5, V(1, 2, 3), 0);
    EXPECT_LT(gap(ball.low(), P(-3, -3, -3)), 1e-15); // not wider
    EXPECT_LT(gap(ball.high(), P(3, 3, 3)), 1e-15);
    // Copies drop all of this: a rotation flagged as identity, a tiny translation, a huge scale.
    mgXform_c const odd = raw(quarter.transpose(), V(5e-09, 0, 0), 6e12);
    EXPECT_BITS_EQ(unit, mgBBox_c(unit) *= odd);
    reset.reset();
    EXPECT_EQ(0, (mgBBox_c() *= mg_ScaleXform(2)).isSet()); // unset by its radius: stays unset
    EXPECT_BITS_EQ(boxOf(P(), 1, P(0, 0, -1), P(0, 0, 1)),
                   reset *= mgXform_c()); // by its corners: becomes set
}

TEST(BBox, TheTextFormHoldsTheCornersAlone) {
    EXPECT_EQ(L"0 -1.5 0.3333333333333333 1e+300 2 3",
              textOf(mgBBox_c(P(0, -1.5, 1.0 / 3.0), P(1e300, 2, 3))));
    auto const check = [](CString text, int read, mgBBox_c const &expected, Caller = {}) {
        mgBBox_c box = bloated;
        EXPECT_EQ(read, box.restoreStringRep(text));
        EXPECT_BITS_EQ(expected, box);
    };
    check(L"1 2 3 0 0 0", 1, mgBBox_c(P(), P(1, 2, 3)));
    check(L" 1e0\t-2.5 3\n4 5 6 7", 1, mgBBox_c(P(1, -2.5, 3), P(4, 5, 6)));
    check(L"1 2 3 4 5 6,7", 1, mgBBox_c(P(1, 2, 3), P(4, 5, 6))); // cut off silently
    for (wchar_t const *text : {L"1 2 3", L"", L"box", L"1 2 3 4 5 x", L"1, 2, 3, 4, 5, 6"})
        check(text, 0, bloated);
}

} // namespace
