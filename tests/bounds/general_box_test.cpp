// SPDX-License-Identifier: MIT
// Parallelograms and boxes in any orientation.

#include <vexmath/general_box.h>
#include <vexmath/plane.h>

#include "bounds/boxes.h"

namespace {

using namespace support;
using P = mgPoint_c;
using U = mgUnitVector_c;

static_assert(sizeof(mgParallelogram_c) == 88 && sizeof(mgGeneralBox_c) == 96);
static_assert(std::is_trivially_copyable_v<mgGeneralBox_c>); // callers use memcpy

P const origin;
U const xAxis(1, 0, 0), yAxis(0, 1, 0), zAxis(0, 0, 1);
mgParallelogram_c const square(origin, xAxis, yAxis, 1, 1);

bool sameBytes(mgParallelogram_c const &a, mgParallelogram_c const &b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(Parallelogram, PointsInsideReachTheEdges) {
    mgParallelogram_c const skew(P(1, 1, 1), xAxis, U(3, 4, 0), 2, 5); // to (3, 1) and (4, 5)
    auto const check = [](bool expected, mgParallelogram_c const &plate, P const &p) {
        EXPECT_EQ(expected, plate.isPointInside(p)) << p.x() << ' ' << p.y() << ' ' << p.z();
    };
    check(true, square, {1, 1, 0});
    check(true, square, {0.5, 0.5, below(1e-08)});
    check(false, square, {0.5, 0.5, -1e-08}); // off the plane
    check(false, square, {above(1), 0.5, 0});
    check(false, square, {0.5, above(1), 0});
    check(false, square, {0.5, -1e-9, 0}); // no tolerance within the plane
    check(false, square, {kNaN, 0.5, 0});
    check(true, skew, {4.5, 4, 1});
    check(false, skew, {1.5, 4, 1});
    // Nothing but the corner is inside parallel edges, or such that are parallel by rounding.
    U const slanted(1, 2, 3), sameButForRounding(1.0 / 3.0, 2.0 / 3, 1);
    for (U const &d2 : {slanted, -slanted, sameButForRounding, U()}) {
        check(false, {origin, slanted, d2, 9, 9}, {0.5, 1, 1.5});
        check(true, {origin, slanted, d2, 9, 9}, {5e-09, 0, 0});
    }
}

TEST(Parallelogram, TheFarCornerIsNeverTheHighPoint) {
    P low, high;
    EXPECT_TRUE(square.getExtremPts(U(1, 1, 0), low, high)); // a tie: the end of the first edge
    EXPECT_BITS_EQ(P(1, 0, 0), high);
    EXPECT_TRUE(square.getExtremPts(zAxis, low, high));
    EXPECT_BITS_EQ(origin, high);
    mgParallelogram_c const flipped(origin, xAxis, -yAxis, 2, 3);
    EXPECT_TRUE(flipped.getExtremPts(U(1, -1, 0), low, high)); // (2, -3, 0) would be higher
    EXPECT_BITS_EQ(P(0, -3, 0), high);
    EXPECT_TRUE(flipped.getExtremPts(U(-1, 1, 0), low, high));
    EXPECT_BITS_EQ(P(2, -3, 0), low);
}

TEST(GeneralBox, WithoutALengthNothingIsWritten) {
    for (int k = 0; k < 9; ++k) {
        double const none[] = {0, -1, kNaN};
        mgVector_c len(1, 1, 1);
        static_cast<double *>(len)[k % 3] = none[k / 3];
        mgGeneralBox_c const block(origin, xAxis, yAxis, len.x(), len.y(), len.z());
        mgParallelogram_c const flat(origin, xAxis, yAxis, len.x(), len.y());
        mgParallelogram_c plate = square;
        mgBBox_c box = cube(7, 8);
        mgXform_c placing = mg_ScaleXform(3);
        P low = box.low(), high = low;
        EXPECT_FALSE(block.isValid() || block.getBBoxAndXform(box, placing)
                     || block.projectToPlane(mgPlane_c(origin, zAxis), plate));
        EXPECT_TRUE(placing.scaling() == 3 && sameBytes(plate, square));
        EXPECT_BITS_EQ(cube(7, 8), box);
        EXPECT_EQ(k % 3 == 2, flat.isValid() && flat.getExtremPts(xAxis, low, high));
        EXPECT_EQ(k % 3 == 2, low != high);
    }
}

TEST(GeneralBox, BecomesABoxAndItsPlacement) {
    mgGeneralBox_c const block(P(1, 2, 3), xAxis, U(0, 3, 4), 2, 5, 10);
    mgBBox_c box;
    mgXform_c placing;
    ASSERT_TRUE(block.getBBoxAndXform(box, placing));
    EXPECT_BITS_EQ(mgBBox_c(origin, P(2, 5, 10)), box);
    EXPECT_LT(gap(P(1, 0, 0) * placing, P(1, 2, 3) + block.getBoxDir_v1()), 1e-14);
    EXPECT_LT(gap(P(0, 1, 0) * placing, P(1, 2, 3) + block.getBoxDir_v2()), 1e-14);
    EXPECT_LT(gap(block.getBoxDir_v3(), P(0, -0.8, 0.6)), 1e-15);
    EXPECT_TRUE(block.getBoxLen_v1() == 2 && block.getBoxLen_v3() == 10);
}

void CheckProjection(bool expected, mgGeneralBox_c const &block) {
    mgParallelogram_c plate = square;
    EXPECT_EQ(expected, block.projectToPlane(mgPlane_c(P(1, 2, -5), zAxis), plate));
    EXPECT_EQ(expected, !sameBytes(plate, square));
}

TEST(GeneralBox, ProjectsAlongItsThirdDirection) {
    CheckProjection(true, {origin, xAxis, yAxis, 1e-08, 5, 1});
    CheckProjection(false, {origin, xAxis, yAxis, below(1e-08), 5, 1});
    CheckProjection(false, {origin, xAxis, yAxis, 2, below(1e-08), 1});
    CheckProjection(false, {origin, xAxis, zAxis, 2, 5, 1}); // along the plane
    CheckProjection(false, {origin, xAxis, xAxis, 2, 5, 1}); // no third direction
    // The parallelogram leans over the plane z = -5, where the edges of the block come down.
    mgGeneralBox_c const block(P(1, 2, 3), xAxis, U(0, 3, 4), 2, 5, 10);
    mgParallelogram_c plate;
    ASSERT_TRUE(block.projectToPlane(mgPlane_c(P(1, 2, -5), zAxis), plate));
    P const foot(1, 2 + 8 / 0.6 * 0.8, -5);
    for (mgVector_c const &inside : {mgVector_c(0.01, 0.01, 0), mgVector_c(1.99, 8.32, 0)})
        EXPECT_TRUE(plate.isPointInside(foot + inside));
    for (mgVector_c const &outside : {mgVector_c(-0.01, 1, 0), mgVector_c(1, 8.34, 0)})
        EXPECT_FALSE(plate.isPointInside(foot + outside));
}

} // namespace
