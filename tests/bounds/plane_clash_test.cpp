// SPDX-License-Identifier: MIT
// Boxes against planes and segments.

#include <vexmath/bbox.h>
#include <vexmath/plane.h>

#include "support/geometry.h"

namespace {

using support::above;
using support::kNaN;

mgBBox_c const box(mgPoint_c(0.0, 0.0, 0.0), mgPoint_c(1.0, 2.0, 3.0));
mgUnitVector_c const xAxis(1.0, 0.0, 0.0);

int clashAtX(double x, double tol) {
    return box.clash(mgPlane_c(mgPoint_c(x, 7.0, -7.0), xAxis), tol);
}

TEST(PlaneClash, ACornerNearerThanTheToleranceTouches) {
    EXPECT_EQ(clashAtX(0.5, 0.0), 1);
    EXPECT_EQ(clashAtX(-1e-08, 0.0), 0); // strict
    EXPECT_EQ(clashAtX(above(-1e-08), 0.0), 1);
    EXPECT_EQ(clashAtX(-2e-08, 0.0), 0);
    EXPECT_EQ(clashAtX(1.0 + 5e-09, -1.0), 1); // a smaller tolerance counts as 1e-08
    EXPECT_EQ(clashAtX(1.0 + 5e-09, kNaN), 1);
    EXPECT_EQ(clashAtX(-0.25, 0.25), 0);
    EXPECT_EQ(clashAtX(-0.25, 0.2500001), 1);
}

TEST(PlaneClash, EveryCornerCanBeCutOff) {
    mgPoint_c const middle = box.center();
    for (int i = 0; i < 8; ++i) {
        mgVector_c const halfDiagonal((i & 1) != 0 ? 0.5 : -0.5, (i & 2) != 0 ? 1.0 : -1.0,
                                      (i & 4) != 0 ? 1.5 : -1.5);
        for (double const side : {1.0, -1.0}) {
            mgUnitVector_c const normal(side * halfDiagonal, 0);
            EXPECT_EQ(box.clash(mgPlane_c(middle + 0.999 * halfDiagonal, normal), 0.0), 1) << i;
            EXPECT_EQ(box.clash(mgPlane_c(middle + 1.001 * halfDiagonal, normal), 0.0), 0) << i;
        }
    }
}

TEST(PlaneClash, NothingClashesWithAnUnsetBoxOrAPlaneOfNaN) {
    mgBBox_c unset = box;
    unset.setSphereOnly(box.center(), -1.0);
    EXPECT_EQ(unset.clash(mgPlane_c(box.center(), xAxis), 1.0), 0);
    EXPECT_EQ(clashAtX(kNaN, 1.0), 0);
    // Without a normal every point lies in the plane.
    EXPECT_EQ(box.clash(mgPlane_c(mgPoint_c(9.0, 9.0, 9.0), mgUnitVector_c()), 0.0), 1);
}

mgBBox_c const cube(mgPoint_c(0.0, 0.0, 0.0), mgPoint_c(1.0, 1.0, 1.0));

void CheckSegment(mgPoint_c const &a, mgPoint_c const &b, int expected) {
    EXPECT_EQ(cube.clashLine(&a, &b), expected) << a.x() << ' ' << a.y() << ' ' << a.z();
    EXPECT_EQ(cube.clashLine(&b, &a), expected) << b.x() << ' ' << b.y() << ' ' << b.z();
}

TEST(SegmentClash, ASegmentMeetsTheBox) {
    CheckSegment({-1.0, 0.5, 0.5}, {2.0, 0.5, 0.5}, 1);
    CheckSegment({0.2, 0.3, 0.4}, {0.5, 0.6, 0.7}, 1);  // within
    CheckSegment({0.5, 0.5, 0.5}, {0.5, 0.5, 0.5}, 1);  // a point
    CheckSegment({1.5, 0.5, 0.5}, {2.0, 0.5, 0.5}, 0);  // on a line that hits, too short
    CheckSegment({-1.0, 1.5, 0.5}, {2.0, 1.5, 0.5}, 0); // passing by
    CheckSegment({0.1, 1.0 + 5e-09, 0.5}, {0.9, 1.0 + 5e-09, 0.5}, 1);
    CheckSegment({0.1, 1.0 + 2e-08, 0.5}, {0.9, 1.0 + 2e-08, 0.5}, 0);
}

TEST(SegmentClash, ASegmentIsTestedAgainstTheSphereAlone) {
    // The line x + y = 2.1 passes outside of the edge, but within the sphere.
    CheckSegment({1.6, 0.5, 0.5}, {0.5, 1.6, 0.5}, 1);
    CheckSegment({1.8, 0.5, 0.5}, {0.5, 1.8, 0.5}, 0);
}

TEST(SegmentClash, TheToleranceWidensTheSquaredRadius) {
    mgPoint_c const a(1.8, 0.5, 0.5);
    mgPoint_c const b(0.5, 1.8, 0.5); // 0.845 from the centre, squared; the radius squared is 0.75
    EXPECT_EQ(cube.clashLine(&a, &b, 0.094), 0);
    EXPECT_EQ(cube.clashLine(&a, &b, 0.096), 1);
    mgPoint_c const beside(1.1, 0.2, 0.5);
    mgPoint_c const far(1.1, 0.8, 0.5); // 0.1 from the face
    EXPECT_EQ(cube.clashLine(&beside, &far, 0.09), 0);
    EXPECT_EQ(cube.clashLine(&beside, &far, 0.11), 1);
}

} // namespace
