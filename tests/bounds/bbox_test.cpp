// SPDX-License-Identifier: MIT
// Boxes with bounding spheres: setters, validity, unions, growth, transformation, text form.

#include <string>

#include "bounds/boxes.h"

namespace {

using support::above;
using support::below;
using support::boxOf;
using support::cube;
using support::withDouble;
using P = mgPoint_c;
using V = mgVector_c;

mgBBox_c const unit = cube(0.0, 1.0), small = cube(-1.0, 1.0), big = cube(-9.0, 9.0);
mgBBox_c const bloated = boxOf(P(), 9.0, P(-1.0, -1.0, -1.0), P(1.0, 1.0, 1.0)); // not valid

std::wstring textOf(mgBBox_c const &box) {
    CString text(L"old");
    box.saveStringRep(text);
    box.dump(); // which nobody sees
    return static_cast<wchar_t const *>(text);
}

void checkNeutral(mgBBox_c const &box) {
    EXPECT_EQ(0, box.isSet() + box.isValid());
    for (P const &p : {box.low(), box.high(), box.center(), box.sphCenter()})
        EXPECT_BITS_EQ(P(), p);
    for (double const d : {box.sphRadius(), box.width(), box.depth(), box.height(),
                           box.diagonalLength(), box.maxDimension()})
        EXPECT_BITS_EQ(0.0, d);
    EXPECT_EQ(-1.0, box.minDimension());
    EXPECT_BITS_EQ(P(), box.pointPerp(P(5.0, -5.0, 1.0)));
    EXPECT_EQ(L"0 0 0 0 0 0", textOf(box));
}

TEST(BBox, AnUnsetBoxAnswersNeutrally) {
    EXPECT_BITS_EQ(boxOf(P(), -2.0, P(1.0, 1.0, 1.0), P(-1.0, -1.0, -1.0)), mgBBox_c());
    checkNeutral(mgBBox_c());
    mgBBox_c const flat(P(1.0, 1.0, 1.0), 0.0);
    EXPECT_EQ(1, flat.isSet());
    for (int k = 3; k < 10; ++k) { // corners and radius
        checkNeutral(withDouble(flat, k, support::kNaN));
        checkNeutral(withDouble(flat, k, k < 6 ? below(1.0) : k < 9 ? above(1.0) : below(0.0)));
    }
    mgBBox_c box(P(1.0, 2.0, 3.0), 4.0);
    box.reset();
    checkNeutral(box);
    EXPECT_BITS_EQ(boxOf(P(1.0, 2.0, 3.0), 4.0, P(), P(0.0, 0.0, -2.0)), box);
}

TEST(BBox, SettersWriteWhatTheyAreGiven) {
    P const a(5.0, 0.0, 3.0), b(1.0, 2.0, 3.0), middle(3.0, 1.0, 3.0);
    mgBBox_c box = big;
    for (double const r : {2.0, -2.0}) {
        box.set(b, r);
        EXPECT_BITS_EQ(boxOf(b, r, P(1.0 - r, 2.0 - r, 3.0 - r), b + V(r, r, r)), box);
    }
    double const radius = 0.5 * std::sqrt(20.0), lowHigh[] = {5.0, 0.0, 3.0, 1.0, 2.0, 3.0};
    box.set2Points(&a, &b);
    EXPECT_BITS_EQ(boxOf(middle, radius, P(1.0, 0.0, 3.0), P(5.0, 2.0, 3.0)), box);
    box.set(lowHigh);
    EXPECT_BITS_EQ(boxOf(middle, radius, a, b), box); // not sorted
    EXPECT_BITS_EQ(mgBBox_c(P(), 500.0), mgBBox_c::correctedMaxBox());
    EXPECT_BITS_EQ(cube(-288.6002886002886, 288.6002886002886), mgBBox_c::maxBox());
}

TEST(BBox, MeasuresComeFromTheCorners) {
    P const low(1.0, 2.0, 3.0);
    for (V const &size : {V(4.0, 6.0, 8.0), V(8.0, 4.0, 6.0), V(6.0, 8.0, 4.0)}) {
        mgBBox_c const box = boxOf(P(7.0, 7.0, 7.0), 100.0, low, low + size);
        EXPECT_BITS_EQ(low + size * 0.5, box.center());
        EXPECT_BITS_EQ(size, V(box.width(), box.depth(), box.height()));
        EXPECT_EQ(std::sqrt(116.0), box.diagonalLength());
        EXPECT_EQ(8.0, box.maxDimension());
        EXPECT_EQ(4.0, box.minDimension());
    }
    mgBBox_c const box(P(-1.0, -2.0, -3.0), P(1.0, 2.0, 3.0));
    EXPECT_BITS_EQ(P(1.0, -2.0, 0.5), box.pointPerp(P(4.0, -2.5, 0.5)));
    EXPECT_BITS_EQ(P(-1.0, 2.0, 3.0), box.pointPerp(P(below(-1.0), 2.0, above(3.0))));
}

TEST(BBox, ComparisonsAreStrictInEveryMember) {
    mgBBox_c const zero = boxOf(P(), 0.0, P(), P());
    for (int k = 0; k < 10; ++k) {
        for (double const sign : {1.0, -1.0}) {
            auto const off = [&](double by) { return withDouble(zero, k, sign * by); };
            EXPECT_TRUE(zero == off(below(1e-08)) && zero.isSame(off(below(1e-08)), -1.0)) << k;
            EXPECT_FALSE(zero == off(1e-08) || zero.isSame(off(1e-08), -1.0)) << k;
            EXPECT_TRUE(zero.isSame(off(below(0.25)), 0.25) && !zero.isSame(off(0.25), 0.25)) << k;
            EXPECT_FALSE(zero == off(support::kNaN)) << k;
        }
    }
    EXPECT_EQ(0, zero.isSame(zero, 0.0)); // 0 stays 0
}

TEST(BBox, TheSphereReachesTheCornersWithinATolerancePerDecade) {
    auto const check = [](double radius, double decades) {
        double const reach = decades * 1e-08 + radius;
        for (int i = 3; i < 9; ++i) {
            mgBBox_c const box = boxOf(P(), radius, P(), P());
            double const side = i < 6 ? 1.0 : -1.0;
            EXPECT_EQ(1, withDouble(box, i, side * reach).isValid()) << radius;
            EXPECT_EQ(0, withDouble(box, i, side * above(reach)).isValid()) << radius;
        }
    };
    check(1.0, 1.0);
    check(below(1e6), 1.0);
    check(1e6, 10.0);
    check(below(1e7), 10.0);
    check(1e7, 100.0);
    check(2.1e15, 1e10);
    check(5e15, 1e10); // more millions than an int holds

    // 1e13 tolerances from the origin no digits are left to compare on that axis.
    auto const valid = [](double x, double y) {
        return boxOf(P(x, 0.0, 0.0), 1.0, P(x, 0.0, 0.0), P(x + 1.5, y, 0.0)).isValid();
    };
    EXPECT_EQ(1, valid(1e5, 0.0) & valid(-1e5, 0.0));
    EXPECT_EQ(0, valid(below(1e5), 0.0));
    EXPECT_EQ(0, valid(1e5, 1.5)); // the other axes still count
}

TEST(BBox, TheSphereTouchesTheBoxAndIsNoLargerThanItsFarthestCorner) {
    // A box that is one point at the squared distance sq from the centre of the sphere.
    auto const valid = [](double radius, double sq) {
        double const x = 0.8 * radius, y = std::sqrt(sq - x * x);
        return boxOf(P(), radius, P(x, 0.0, -y), P(x, 0.0, -y)).isValid();
    };
    EXPECT_EQ(1, valid(1.0, 1.00000002 - 1e-15));
    EXPECT_EQ(0, valid(1.0, 1.00000002 + 1e-15));
    EXPECT_EQ(1, valid(1.0, 0.99999998 + 1e-15));
    EXPECT_EQ(0, valid(1.0, 0.99999998 - 1e-15));
    EXPECT_EQ(1, valid(1000.0, 1000000.010000005)); // relative and absolute slack add up
    EXPECT_EQ(0, valid(1000.0, 1000000.010000015));
    EXPECT_EQ(1, valid(1000.0, 999999.989999995));
    EXPECT_EQ(0, valid(1000.0, 999999.989999985));
    EXPECT_EQ(1, boxOf(P(), 1.0, P(-1.0, 0.0, 0.0), P(0.5, 0.0, 0.0)).isValid()); // by low.x
    EXPECT_EQ(0, bloated.isValid());
}

TEST(BBox, UnionsWithPointsGrowTheSphereByAsLittleAsNeeded) {
    P const a(1.0, 2.0, 3.0), b(5.0, 2.0, 3.0);
    mgBBox_c const pair = boxOf(P(3.0, 2.0, 3.0), 2.0, a, b);
    mgBBox_c box = bloated; // gives way
    EXPECT_BITS_EQ(boxOf(a, 0.0, a, a), box |= a);
    EXPECT_BITS_EQ(pair, box |= b);
    EXPECT_BITS_EQ(boxOf(P(3.0, 2.0, 3.0), 2.0, a, P(5.0, 4.0, 3.0)), box |= P(3.0, 4.0, 3.0));
    box = pair;
    EXPECT_BITS_EQ(pair, box |= P(3.0, support::kNaN, 3.0));
    EXPECT_BITS_EQ(boxOf(P(5.0, 2.0, 3.0), 4.0, a, P(9.0, 2.0, 3.0)), box |= P(9.0, 2.0, 3.0));
}

void checkUnion(mgBBox_c const &expected, mgBBox_c a, mgBBox_c const &b) {
    EXPECT_BITS_EQ(expected, a |= b);
}

mgBBox_c const nextToUnit(P(1.0, 0.0, 0.0), P(2.0, 1.0, 1.0)), both(P(), P(2.0, 1.0, 1.0));

TEST(BBox, UnionsWithBoxes) {
    checkUnion(unit, unit, mgBBox_c());
    checkUnion(unit, unit, bloated); // an invalid operand is empty
    checkUnion(unit, mgBBox_c(), unit);
    checkUnion(big, big, small);
    checkUnion(big, small, big);
    checkUnion(both, unit, nextToUnit); // the merged sphere is too large and is made anew
    // This box only needs to be set: its sphere, too large for its corners, enters as it is.
    checkUnion(boxOf(P(1.0, 0.0, 0.0), 10.0, P(-1.0, -2.0, -2.0), P(11.0, 2.0, 2.0)), bloated,
               mgBBox_c(P(9.0, 0.0, 0.0), 2.0));
}

TEST(BBox, TheSwitchGivesTheCubeAroundTheMergedSphere) {
    EXPECT_EQ(0, mgBBox_c::SetUseSphereBoundingBox(2));
    EXPECT_EQ(2, mgBBox_c::SetUseSphereBoundingBox(1));
    EXPECT_EQ(1, mgBBox_c::GetUseSphereBoundingBox());
    checkUnion(mgBBox_c(both.sphCenter(), both.sphRadius()), unit, nextToUnit);
    checkUnion(mgBBox_c(P(), big.sphRadius()), small, big);
    // The cube may cut corners off: here at x = -2 and z = 8.
    checkUnion(mgBBox_c(P(2.0, 0.0, 0.0), 3.0),
               boxOf(P(), 1.0, P(-2.0, 0.0, 0.0), P(1.0, 1.0, 8.0)),
               mgBBox_c(P(4.0, 0.0, 0.0), 1.0));
    checkUnion(big, big, small); // where the sphere stays, the switch is not asked; nor by points
    EXPECT_EQ(-1.0, (mgBBox_c(small) |= P(9.0, 0.0, 0.0)).low().y());
    mgBBox_c::SetUseSphereBoundingBox(0);
}

TEST(BBox, IntersectionsBridgeGapsBelowTheTolerance) {
    for (int axis = 0; axis < 3; ++axis) {
        for (double const gap : {-0.5, 0.0, 5e-09, below(1e-08), 1e-08, 1.0}) {
            auto const slab = [axis](double low, double high) {
                P a, b(2.0, 2.0, 2.0);
                a[axis] = low;
                b[axis] = high;
                return mgBBox_c(a, b);
            };
            mgBBox_c const expected = gap < 1e-08 ? slab(gap, 0.0) : mgBBox_c();
            EXPECT_BITS_EQ(expected, slab(-1.0, 0.0) &= slab(gap, 2.0)) << axis << " " << gap;
            EXPECT_BITS_EQ(expected, slab(gap, 2.0) &= slab(-1.0, 0.0)) << axis << " " << gap;
        }
    }
    EXPECT_BITS_EQ(mgBBox_c(), mgBBox_c(P(1.0, 2.0, 3.0), 4.0) &= mgBBox_c()); // centre and all
    EXPECT_BITS_EQ(mgBBox_c(), mgBBox_c(P(1.0, 2.0, 3.0), -4.0) &= unit);
}

TEST(BBox, GrowingAndShrinking) {
    auto const check = [](mgBBox_c const &expected, mgBBox_c box, double d) {
        EXPECT_BITS_EQ(expected, box += d);
    };
    P const c(1.0, 2.0, 3.0);
    check(boxOf(P(), 0.0, P(-1.0, -1.0, -1.0), P(1.0, 1.0, 1.0)), mgBBox_c(), 2.0);
    check(mgBBox_c(), mgBBox_c(), below(2.0));
    check(mgBBox_c(c, 4.0), mgBBox_c(c, 2.5), 1.5);
    check(mgBBox_c(c, 0.0), mgBBox_c(c, 2.5), -2.5);
    check(boxOf(c, -2.0, P(1.0, 1.0, 1.0), P(-1.0, -1.0, -1.0)), mgBBox_c(c, 2.5), below(-2.5));
    // An axis thinner than two steps becomes flat at its middle, and the sphere is made anew.
    check(boxOf(P(2.0, 0.5, 0.25), 1.0, P(1.0, 0.5, 0.25), P(3.0, 0.5, 0.25)),
          mgBBox_c(P(), P(4.0, 1.0, 0.5)), -1.0);
    // A sphere that is too large stays so when the box does not shrink.
    check(boxOf(P(), 10.0, P(-2.0, -2.0, -2.0), P(2.0, 2.0, 2.0)), bloated, 1.0);
    check(bloated, bloated, -0.0);
}

TEST(BBox, ASphereIsMadeAnewWhenItExceedsTheFarthestCorner) {
    // Shrunk by next to nothing, a box only has its sphere looked at.
    auto const check = [](double expected, double half, double radius) {
        mgBBox_c box = boxOf(P(), radius, P(-half, 0.0, 0.0), P(half, 0.0, 0.0));
        EXPECT_EQ(expected, (box += below(0.0)).sphRadius());
    };
    double const absolute = std::sqrt(4.0 + 5e-09), relative = 0.5 * std::sqrt(1.000000005);
    check(absolute - 1e-15, 2.0, absolute - 1e-15);
    check(2.0, 2.0, absolute + 1e-15);
    check(relative - 1e-15, 0.5, relative - 1e-15);
    check(0.5, 0.5, relative + 1e-15);
    check(1e-10, 0.0, 1e-10); // so small that only the absolute excess counts
    check(0.0, 0.0, above(1e-10));
}

TEST(BBox, TranslationAndScalingMoveEveryMember) {
    mgBBox_c const box = boxOf(P(3.0, 2.0, 3.0), 5.0, P(), P(2.0, 4.0, 6.0));
    EXPECT_BITS_EQ(boxOf(P(0.0, 2.0, 3.0), -2.5, P(1.5, 3.0, 4.5), P(0.5, 1.0, 1.5)),
                   mgBBox_c(box) *= -0.5); // about the middle of the corners
    EXPECT_BITS_EQ(boxOf(P(), -4.0, P(2.0, 2.0, 2.0), P(-2.0, -2.0, -2.0)), mgBBox_c() *= 2.0);
    V const v(10.0, 20.0, 30.0);
    EXPECT_BITS_EQ(boxOf(P(13.0, 22.0, 33.0), 5.0, v, P(12.0, 24.0, 36.0)), mgBBox_c(box) += v);
    EXPECT_BITS_EQ(boxOf(v, -2.0, P(11.0, 21.0, 31.0), P(9.0, 19.0, 29.0)), mgBBox_c() += v);
}

/// The image step by step: three half-diagonals, the fourth as their sum, clipped to the sphere.
mgBBox_c literalImage(mgBBox_c const &box, mgXform_c const &x) {
    P const m = box.center() * x, c = box.sphCenter() * x;
    V const e = box.high() - box.center();
    V const d0 = e * x, d1 = V(-e.x(), e.y(), e.z()) * x, d2 = V(e.x(), -e.y(), e.z()) * x;
    V const d3 = d1 + d2 - d0;
    double const r = box.sphRadius() * x.scaling();
    P low, high;
    for (int i = 0; i < 3; ++i) {
        double h = 0.0;
        for (V const &d : {d0, d1, d2, d3}) h = std::max(h, std::fabs(d.component(i)));
        low[i] = std::max(m[i] - h, c[i] - r);
        high[i] = std::min(m[i] + h, c[i] + r);
    }
    return boxOf(c, r, low, high);
}

TEST(BBox, TransformsFollowTheirStepsToTheBit) {
    support::Random random;
    for (int k = 0; k < 2000; ++k) {
        mgBBox_c box(random.triple<P>(-9.0, 9.0), random.triple<P>(-9.0, 9.0));
        if (k % 2 == 0) box.set(random.triple<P>(-9.0, 9.0), random.uniform(0.0, 9.0));
        mgXform_c const x = support::placement(random);
        ASSERT_BITS_EQ(literalImage(box, x), mgBBox_c(box) *= x);
    }
}

TEST(BBox, TransformsWorkOnACopyWithoutPerspective) {
    mgMatrix_c const quarter = mg_RotationMatrix(1.5707963267949, mgUnitVector_c::zAxis(), 1e-6);
    mgBBox_c const box(P(), P(2.0, 4.0, 6.0));
    mgXform_c placed = mg_RestoreXform(quarter, V(10.0, 20.0, 30.0), 2.0);
    placed.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, 3.0, 4.0));
    EXPECT_BITS_EQ(
        boxOf(P(6.0, 22.0, 36.0), std::sqrt(56.0), P(2.0, 20.0, 30.0), P(10.0, 24.0, 42.0)),
        mgBBox_c(box) *= placed);
    // What no copy lets through: a flagged rotation, a tiny translation, a scale out of range.
    EXPECT_BITS_EQ(box, mgBBox_c(box) *=
                        vexmath::detail::makeXform(quarter.transpose(), V(5e-09, 0.0, 0.0), 6e12));
    // An unset box stays unset by its radius; one unset by its corners alone need not.
    EXPECT_EQ(0, (mgBBox_c() *= mg_ScaleXform(2.0)).isSet());
    mgBBox_c reset(P(), 1.0);
    reset.reset();
    EXPECT_BITS_EQ(boxOf(P(), 1.0, P(0.0, 0.0, -1.0), P(0.0, 0.0, 1.0)), reset *= mgXform_c());
}

TEST(BBox, TheTextFormHoldsTheCornersAlone) {
    EXPECT_EQ(L"0 -1.5 0.3333333333333333 1e+300 2 3",
              textOf(mgBBox_c(P(0.0, -1.5, 1.0 / 3.0), P(1e300, 2.0, 3.0))));
    auto const check = [](wchar_t const *text, int read, mgBBox_c const &expected) {
        mgBBox_c box = bloated;
        EXPECT_EQ(read, box.restoreStringRep(CString(text))) << text;
        EXPECT_BITS_EQ(expected, box) << text;
    };
    check(L"1 2 3 0 0 0", 1, mgBBox_c(P(), P(1.0, 2.0, 3.0)));
    check(L" 1e0\t-2.5 3\n4 5 6 7", 1, mgBBox_c(P(1.0, -2.5, 3.0), P(4.0, 5.0, 6.0)));
    check(textOf(cube(-0.1, 0.7)).c_str(), 1, cube(-0.1, 0.7));
    for (wchar_t const *text : {L"1 2 3", L"", L"box", L"1 2 3 4 5 x", L"1, 2, 3, 4, 5, 6"})
        check(text, 0, bloated);
}

} // namespace
