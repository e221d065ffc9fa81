// SPDX-License-Identifier: MIT
// Parallelograms and boxes in any orientation.

#include "bounds/boxes.h"

namespace {

P const origin;
U const xAxis(1, 0, 0), yAxis(0, 1, 0), zAxis(0, 0, 1);
mgParallelogram_c const square(origin, xAxis, yAxis, 1, 1);

bool sameBytes(mgParallelogram_c const &a, mgParallelogram_c const &b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(Parallelogram, PointsInsideReachTheEdges) {
    mgParallelogram_c const skew(P(1, 1, 1), xAxis, U(3, 4, 0), 2, 5); // to (3, 1) and (4, 5)
    auto const check = [](bool expected, mgParallelogram_c const &plate, P const &p, Caller = {}) {
        EXPECT_EQ(expected, plate.isPointInside(p)) << shown(p);
    };
    check(true, square, origin), check(true, square, {1, 1, 0});
    check(true, square, {0.5, 0.5, below(1e-08)});
    check(false, square, {0.5, 0.5, -1e-08}); // off the plane
    check(false, square, {above(1), 0.5, 0}), check(false, square, {0.5, above(1), 0});
    check(false, square, {0.5, -1e-9, 0}); // no tolerance within the plane
    check(false, square, {kNaN, 0.5, 0}), check(true, skew, {4.5, 4, 1});
    check(false, skew, {1.5, 4, 1});
    // Between parallel edges, also by rounding alone, only the corner is inside.
    U const slanted(1, 2, 3), sameButForRounding(1.0 / 3.0, 2.0 / 3, 1);
    for (U const &d2 : {slanted, -slanted, sameButForRounding}) {
        check(false, {origin, slanted, d2, 9, 9}, {0.5, 1, 1.5});
        check(true, {origin, slanted, d2, 9, 9}, {5e-09, 0, 0});
    }
    check(false, {origin, xAxis, xAxis, 9, 9}, {3, 0, 0});
}

TEST(Parallelogram, ANullEdgeDirectionBoundsNothing) {
    auto const check = [](bool expected, U const &d1, U const &d2, P const &p, Caller = {}) {
        mgParallelogram_c const plate(origin, d1, d2, 2, 2);
        EXPECT_EQ(expected, plate.isPointInside(p)) << shown(p);
    };
    for (P const &p : {P(0.5, 0, 0), P(2, -9, 0), P(0, 0, 3)}) { // between x = 0 and 2
        check(true, xAxis, U(), p), check(true, U(), xAxis, p), check(true, U(), U(), p);
    }
    for (double const x : {-1e-09, above(2), kNaN}) {
        check(false, xAxis, U(), {x, 1, 0}), check(false, U(), xAxis, {x, 1, 0});
    }
}

TEST(Parallelogram, TheFarCornerIsNeverTheHighPoint) {
    P low, high;
    EXPECT_TRUE(square.getExtremPts(U(1, 1, 0), low, high)); // a tie: the first edge's end
    EXPECT_BITS_EQ(P(1, 0, 0), high);
    EXPECT_TRUE(square.getExtremPts(zAxis, low, high));
    EXPECT_BITS_EQ(origin, high);
    Random random;
    for (int n = 0; n < 2000; ++n) {
        P const corner = random.triple<P>(-9, 9);
        U const d1 = direction(random), d2 = direction(random), dir = direction(random);
        double const len1 = random.uniform(0.1, 9), len2 = random.uniform(0.1, 9);
        double const s1 = len1 * d1 % dir, s2 = len2 * d2 % dir;
        ASSERT_TRUE(mgParallelogram_c(corner, d1, d2, len1, len2).getExtremPts(dir, low, high));
        EXPECT_NEAR((low - corner) % dir, std::min({0.0, s1, s2, s1 + s2}), 1e-13);
        EXPECT_NEAR((high - corner) % dir, std::max({0.0, s1, s2}), 1e-13);
    }
}

TEST(GeneralBox, WithoutALengthNothingIsWritten) {
    EXPECT_FALSE(mgParallelogram_c().isValid());
    EXPECT_BITS_EQ(V(), V(0, mgGeneralBox_c().getBoxLen_v1(), mgGeneralBox_c().getBoxLen_v3()));
    for (int k = 0; k < 9; ++k) {
        P len(1, 1, 1);
        len[k % 3] = k < 3 ? 0 : k < 6 ? -1 : kNaN;
        mgGeneralBox_c const block(origin, xAxis, yAxis, len.x(), len.y(), len.z());
        mgParallelogram_c const flat(origin, xAxis, yAxis, len.x(), len.y());
        mgParallelogram_c plate = square;
        mgBBox_c box = cube(7, 8);
        mgXform_c placing = mg_ScaleXform(3);
        P low = box.low(), high = low;
        EXPECT_FALSE(block.isValid()) << k;
        EXPECT_FALSE(block.getBBoxAndXform(box, placing)) << k;
        EXPECT_FALSE(block.projectToPlane(mgPlane_c(origin, zAxis), plate)) << k;
        EXPECT_EQ(3, placing.scaling());
        EXPECT_TRUE(sameBytes(plate, square));
        EXPECT_BITS_EQ(cube(7, 8), box);
        EXPECT_EQ(k % 3 == 2, flat.isValid()) << k;
        EXPECT_EQ(k % 3 == 2, flat.getExtremPts(xAxis, low, high)) << k;
        EXPECT_EQ(k % 3 == 2, low != high) << k;
    }
}

TEST(GeneralBox, BecomesABoxAndItsPlacement) {
    mgGeneralBox_c const block(P(1, 2, 3), xAxis, U(0, 3, 4), 2, 5, 10);
    mgBBox_c box;
    mgXform_c placing;
    ASSERT_TRUE(block.getBBoxAndXform(box, placing));
    EXPECT_BITS_EQ(mgBBox_c(origin, P(2, 5, 10)), box);
    U const dirs[] = {block.getBoxDir_v1(), block.getBoxDir_v2(), block.getBoxDir_v3()};
    for (int i = 0; i < 3; ++i)
        EXPECT_LT(gap(P(i == 0, i == 1, i == 2) * placing, P(1, 2, 3) + dirs[i]), 1e-14) << i;
    EXPECT_LT(gap(dirs[2], P(0, -0.8, 0.6)), 1e-15);
    EXPECT_EQ(2, block.getBoxLen_v1());
    EXPECT_EQ(10, block.getBoxLen_v3());
}

void CheckProjection(bool expected, mgGeneralBox_c const &block, Caller = {}) {
    mgParallelogram_c plate = square;
    EXPECT_EQ(expected, block.projectToPlane(mgPlane_c(P(1, 2, -5), zAxis), plate));
    EXPECT_EQ(expected, !sameBytes(plate, square));
}

TEST(GeneralBox, ProjectsAlongItsThirdDirection) {
    CheckProjection(true, {origin, xAxis, yAxis, 1e-08, 5, 1});
    CheckProjection(false, {origin, xAxis, yAxis, below(1e-08), 5, 1});
    CheckProjection(false, {origin, xAxis, yAxis, 2, below(1e-08), 1});
    CheckProjection(false, {origin, xAxis, zAxis, 2, 5, 1});      // parallel to the plane
    CheckProjection(false, {P(1, 2, -5), xAxis, zAxis, 2, 5, 1}); // and in it
    CheckProjection(false, {origin, xAxis, xAxis, 2, 5, 1});      // no third direction
    Random random;
    for (int n = 0; n < 2000; ++n) {
        mgPlane_c const plane(random.triple<P>(-3, 3), direction(random));
        P const corner = random.triple<P>(-3, 3);
        U const d1 = direction(random), d2 = direction(random);
        mgGeneralBox_c const block(corner, d1, d2, 1, 2, 3);
        U const d3 = block.getBoxDir_v3();
        mgParallelogram_c plate;
        if ((d1 * d2).len() < 0.3 || std::fabs(d3 % plane.normal()) < 0.3) continue;
        ASSERT_TRUE(block.projectToPlane(plane, plate));
        auto const share = random.triple<V>(0.001, 0.999);
        P const inside = corner + share.x() * d1 + 2 * share.y() * d2 + 3 * share.z() * d3;
        P shadow;
        mg_LineIntPlane(mgLine_c(inside, d3), plane, &shadow, nullptr);
        EXPECT_TRUE(plate.isPointInside(shadow));
    }
}

} // namespace
