// SPDX-License-Identifier: MIT
// Infinite lines with each other, in space and in the plane.

#include "common/geometry.h"

namespace {

constexpr double tol = 1e-8;
V const alongX(3, 0, 0), alongY(0, 2, 0); // directions need not have unit length

void CheckSpace(mgIntersectionType_e type, P const &point, P const &p2, V const &d2, Caller = {}) {
    P out = untouched;
    EXPECT_EQ(type, mg_LineIntLine(P(), alongX, p2, d2, &out, tol));
    EXPECT_BITS_EQ(point, out);
    P aliased = p2;
    EXPECT_EQ(type, mg_LineIntLine(P(), alongX, aliased, d2, &aliased, tol));
}

TEST(LineLine, InSpaceSkewLinesStillWriteTheNearestPointOfTheFirst) {
    CheckSpace(mgIntersect_Coincident, {0, 0, 0}, {5, std::nextafter(tol, 0), 0}, -alongX);
    CheckSpace(mgIntersect_Parallel, untouched, {5, tol, 0}, alongX);
    CheckSpace(mgIntersect_None, {5, 0, 0}, {5, 7, tol}, alongY);
    // The tolerance also bounds 1 - cos, which is 5e-9 and 2e-8 here.
    CheckSpace(mgIntersect_Coincident, {0, 0, 0}, {0, 0, 0}, {1, 1e-4, 0});
    CheckSpace(mgIntersect_Point, {0, 0, 0}, {0, 0, 0}, {1, 2e-4, 0});
    CheckSpace(mgIntersect_None, {1, 0, 0}, {1, 1, 0}, {0, 0, 0}); // the root alone
    P out;
    EXPECT_EQ(mgIntersect_Point, mg_LineIntLine(P(), alongX, P(), alongY, &out, 1));
}

void CheckPlane(mgIntersectionType_e type, P const &point, V const &d1, P const &p2, V const &d2,
                Caller = {}) {
    P out = untouched;
    EXPECT_EQ(type, mg_LineIntLine2D(P(1, 2, 0), d1, p2, d2, &out, tol));
    EXPECT_BITS_EQ(point, out);
}

TEST(LineLine, InThePlaneOnlyAProperCrossingIsWritten) {
    CheckPlane(mgIntersect_Point, {1, 7, 0}, alongY, {5, 7, 9}, alongX);
    CheckPlane(mgIntersect_Point, {7, 4, 0}, {3, 1, 0}, {3, 10, 9}, {2, -3, 0});
    CheckPlane(mgIntersect_Point, {3, 8, 0}, {1, 3, 0}, {-1, 14, 9}, {2, -3, 0});
    CheckPlane(mgIntersect_Coincident, untouched, alongX, {5, 2, below(tol)}, alongX); // in space
    CheckPlane(mgIntersect_Parallel, untouched, alongX, {5, 2, tol}, -alongX);
    CheckPlane(mgIntersect_None, untouched, {tol, 0, 0}, {0, 0, 0}, alongY);
    CheckPlane(mgIntersect_None, untouched, {0, tol, 0}, {0, 0, 0}, alongX);
    CheckPlane(mgIntersect_None, untouched, {0.5, 0, 0}, {0, 0, 0}, {0, 2 * tol, 0});
}

TEST(LineLine, MirroringInALineNegatesWhatIsAcrossIt) {
    EXPECT_BITS_EQ(P(1, -6, -4), mg_MirrorPoint(P(7, -2, 0), alongX, {1, 2, 4}));
    EXPECT_LT(gap(P(5.6, -2, 5.8), mg_MirrorPoint(P(7, -2, 1), {3, 0, 4}, {12, -2, 1})), 4e-15);
}

} // namespace
