// SPDX-License-Identifier: MIT
// Parallelograms and boxes in any orientation.

#include <vexmath/bbox.h>
#include <vexmath/general_box.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_transform.h>

#include <type_traits>

#include "support/geometry.h"

namespace {

using support::above;
using support::below;
using support::direction;
using support::gap;
using support::kNaN;

// Callers copy these by memcpy.
template <class T, std::size_t size>
constexpr bool plain = sizeof(T) == size &&std::is_trivially_copyable_v<T>;
static_assert(plain<mgParallelogram_c, 88> && plain<mgGeneralBox_c, 96>);

mgPoint_c const origin;
mgUnitVector_c const xAxis(1.0, 0.0, 0.0), yAxis(0.0, 1.0, 0.0), zAxis(0.0, 0.0, 1.0);
mgParallelogram_c const square(origin, xAxis, yAxis, 1.0, 1.0);

bool sameBytes(mgParallelogram_c const &a, mgParallelogram_c const &b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(Parallelogram, PointsInsideReachTheEdges) {
    EXPECT_TRUE(square.isPointInside(origin));
    EXPECT_TRUE(square.isPointInside(mgPoint_c(1.0, 1.0, 0.0)));
    EXPECT_TRUE(square.isPointInside(mgPoint_c(0.5, 0.0, 0.0)));
    EXPECT_FALSE(square.isPointInside(mgPoint_c(above(1.0), 0.5, 0.0)));
    EXPECT_FALSE(square.isPointInside(mgPoint_c(0.5, above(1.0), 0.0)));
    EXPECT_FALSE(square.isPointInside(mgPoint_c(0.5, -1e-9, 0.0))); // no tolerance within the plane
    EXPECT_TRUE(square.isPointInside(mgPoint_c(0.5, 0.5, below(1e-08))));
    EXPECT_FALSE(square.isPointInside(mgPoint_c(0.5, 0.5, -1e-08))); // off the plane
    EXPECT_FALSE(square.isPointInside(mgPoint_c(kNaN, 0.5, 0.0)));
}

TEST(Parallelogram, EdgesNeedNotBePerpendicular) {
    mgParallelogram_c const skew(mgPoint_c(1.0, 1.0, 1.0), xAxis, mgUnitVector_c(3.0, 4.0, 0.0),
                                 2.0, 5.0); // up to (3, 1) and (4, 5)
    EXPECT_TRUE(skew.isPointInside(mgPoint_c(4.5, 4.0, 1.0)));
    EXPECT_TRUE(skew.isPointInside(mgPoint_c(3.3, 3.9, 1.0)));
    EXPECT_FALSE(skew.isPointInside(mgPoint_c(1.5, 4.0, 1.0)));
    EXPECT_FALSE(skew.isPointInside(mgPoint_c(3.5, 1.5, 1.0)));
}

TEST(Parallelogram, NothingButTheCornerIsInsideParallelEdges) {
    mgUnitVector_c const slanted(1.0, 2.0, 3.0);
    mgUnitVector_c const sameButForRounding(1.0 / 3.0, 2.0 / 3.0, 1.0);
    for (mgUnitVector_c const &d2 : {slanted, -slanted, sameButForRounding, mgUnitVector_c()}) {
        mgParallelogram_c const flat(origin, slanted, d2, 9.0, 9.0);
        EXPECT_FALSE(flat.isPointInside(mgPoint_c(0.5, 1.0, 1.5)));
        EXPECT_TRUE(flat.isPointInside(mgPoint_c(5e-09, 0.0, 0.0)));
    }
    EXPECT_FALSE(mgParallelogram_c(origin, xAxis, xAxis, 9.0, 9.0).isPointInside({3.0, 0.0, 0.0}));
}

void CheckExtremes(mgUnitVector_c const &dir, mgPoint_c const &low, mgPoint_c const &high) {
    mgPoint_c lowest, highest;
    EXPECT_TRUE(square.getExtremPts(dir, lowest, highest));
    EXPECT_BITS_EQ(low, lowest);
    EXPECT_BITS_EQ(high, highest);
}

TEST(Parallelogram, TheFarCornerIsNeverTheHighPoint) {
    mgPoint_c const end1(1.0, 0.0, 0.0), end2(0.0, 1.0, 0.0), far(1.0, 1.0, 0.0);
    CheckExtremes({1.0, 1.0, 0.0}, origin, end1);
    CheckExtremes({1.0, 2.0, 0.0}, origin, end2);
    CheckExtremes({-1.0, -1.0, 0.0}, far, origin);
    CheckExtremes({-1.0, 1.0, 0.0}, end1, end2);
    CheckExtremes({1.0, -1.0, 0.0}, end2, end1);
    CheckExtremes(zAxis, origin, origin);
}

TEST(Parallelogram, RandomExtremesAreThoseOfTheCorners) {
    support::Random random;
    for (int n = 0; n < 2000; ++n) {
        auto const corner = random.triple<mgPoint_c>(-9.0, 9.0);
        mgUnitVector_c const d1 = direction(random), d2 = direction(random);
        mgUnitVector_c const dir = direction(random);
        double const len1 = random.uniform(0.1, 9.0), len2 = random.uniform(0.1, 9.0);
        double const s1 = len1 * d1 % dir, s2 = len2 * d2 % dir;

        mgPoint_c low, high;
        ASSERT_TRUE(mgParallelogram_c(corner, d1, d2, len1, len2).getExtremPts(dir, low, high));
        EXPECT_NEAR((low - corner) % dir, std::min({0.0, s1, s2, s1 + s2}), 1e-13);
        EXPECT_NEAR((high - corner) % dir, std::max({0.0, s1, s2}), 1e-13);
    }
}

TEST(Parallelogram, WithoutALengthItHasNoExtremes) {
    for (double const none : {0.0, -1.0, kNaN}) {
        mgPoint_c low(7.0, 7.0, 7.0), high = low;
        EXPECT_FALSE(mgParallelogram_c(origin, xAxis, yAxis, none, 1.0).isValid());
        EXPECT_FALSE(
            mgParallelogram_c(origin, xAxis, yAxis, 1.0, none).getExtremPts(xAxis, low, high));
        EXPECT_BITS_EQ(mgPoint_c(7.0, 7.0, 7.0), low);
        EXPECT_BITS_EQ(mgPoint_c(7.0, 7.0, 7.0), high);
    }
}

TEST(GeneralBox, BecomesABoxAndItsPlacement) {
    mgUnitVector_c const d2(0.0, 3.0, 4.0);
    mgGeneralBox_c const block(mgPoint_c(1.0, 2.0, 3.0), xAxis, d2, 2.0, 5.0, 10.0);
    mgBBox_c box;
    mgXform_c placing;
    ASSERT_TRUE(block.getBBoxAndXform(box, placing));
    EXPECT_BITS_EQ(mgPoint_c(2.0, 5.0, 10.0), box.high());
    EXPECT_BITS_EQ(origin, box.low());
    EXPECT_TRUE(box.isValid());
    // x along d1, y along d2, z along d1 x d2 = (0, -0.8, 0.6).
    mgPoint_c const far = box.high() * placing;
    EXPECT_LT(gap(far, mgPoint_c(3.0, 2.0 + 3.0 - 8.0, 3.0 + 4.0 + 6.0)), 1e-14);
    EXPECT_EQ(block.getBoxLen_v1(), 2.0);
    EXPECT_EQ(block.getBoxLen_v3(), 10.0);
    EXPECT_BITS_EQ(xAxis, block.getBoxDir_v1());
    EXPECT_BITS_EQ(d2, block.getBoxDir_v2());
    EXPECT_LT(gap(block.getBoxDir_v3(), mgVector_c(0.0, -0.8, 0.6)), 1e-15);
}

TEST(GeneralBox, WithoutALengthNothingIsWritten) {
    mgPlane_c const floor(origin, zAxis);
    double const wrong[][3] = {{0.0, 1.0, 1.0}, {1.0, -1.0, 1.0}, {1.0, 1.0, kNaN}};
    for (auto const &[len1, len2, len3] : wrong) {
        mgGeneralBox_c const block(origin, xAxis, yAxis, len1, len2, len3);
        mgBBox_c box(mgPoint_c(7.0, 7.0, 7.0), 1.0);
        mgXform_c placing = mg_ScaleXform(3.0);
        mgParallelogram_c plate = square;
        EXPECT_FALSE(block.isValid());
        EXPECT_FALSE(block.getBBoxAndXform(box, placing));
        EXPECT_FALSE(block.projectToPlane(floor, plate));
        EXPECT_BITS_EQ(mgPoint_c(8.0, 8.0, 8.0), box.high());
        EXPECT_EQ(placing.scaling(), 3.0);
        EXPECT_TRUE(sameBytes(plate, square));
    }
}

void CheckNoProjection(mgGeneralBox_c const &block, mgPlane_c const &plane) {
    mgParallelogram_c plate = square;
    EXPECT_FALSE(block.projectToPlane(plane, plate));
    EXPECT_TRUE(sameBytes(plate, square));
}

TEST(GeneralBox, ProjectsAlongItsThirdDirection) {
    mgPlane_c const floor(mgPoint_c(8.0, 8.0, -5.0), zAxis);
    mgParallelogram_c plate;
    ASSERT_TRUE(mgGeneralBox_c(mgPoint_c(1.0, 2.0, 3.0), xAxis, yAxis, 2.0, 5.0, 1.0)
                    .projectToPlane(floor, plate));
    EXPECT_TRUE(sameBytes(plate, {mgPoint_c(1.0, 2.0, -5.0), xAxis, yAxis, 2.0, 5.0}));

    CheckNoProjection({origin, xAxis, zAxis, 2.0, 5.0, 1.0}, floor); // along the plane
    CheckNoProjection({mgPoint_c(1.0, 2.0, -5.0), xAxis, zAxis, 2.0, 5.0, 1.0}, floor); // and in it
    CheckNoProjection({origin, xAxis, xAxis, 2.0, 5.0, 1.0}, floor); // no third direction
    CheckNoProjection({origin, xAxis, yAxis, below(1e-08), 5.0, 1.0}, floor);
    CheckNoProjection({origin, xAxis, yAxis, 2.0, below(1e-08), 1.0}, floor);
    EXPECT_TRUE(mgGeneralBox_c(origin, xAxis, yAxis, 1e-08, 5.0, 1.0).projectToPlane(floor, plate));
}

TEST(GeneralBox, RandomProjectionsCoverTheBox) {
    support::Random random;
    int projected = 0;
    for (int n = 0; n < 2000; ++n) {
        auto const corner = random.triple<mgPoint_c>(-3.0, 3.0);
        mgUnitVector_c const d1 = direction(random), d2 = direction(random);
        mgVector_c const len = random.triple<mgVector_c>(1.0, 3.0);
        mgPlane_c const plane(random.triple<mgPoint_c>(-3.0, 3.0), direction(random));
        mgGeneralBox_c const block(corner, d1, d2, len.x(), len.y(), len.z());
        mgUnitVector_c const d3 = block.getBoxDir_v3();
        if ((d1 * d2).len() < 0.3 || std::fabs(d3 % plane.normal()) < 0.3) continue;

        mgParallelogram_c plate;
        ASSERT_TRUE(block.projectToPlane(plane, plate));
        auto const share = random.triple<mgVector_c>(0.001, 0.999);
        mgPoint_c const inside =
            corner + share.x() * len.x() * d1 + share.y() * len.y() * d2 + share.z() * len.z() * d3;
        mgPoint_c shadow;
        mg_LineIntPlane(mgLine_c(inside, d3), plane, &shadow, nullptr);
        EXPECT_TRUE(plate.isPointInside(shadow));
        ++projected;
    }
    EXPECT_GT(projected, 500);
}

} // namespace
