// SPDX-License-Identifier: MIT
// Lines: feet, distances, snapping, comparison.

#include "common/geometry.h"

namespace {

static_assert(!std::is_convertible_v<mgLine_c, mgPlane_c>);

U const x(1, 0, 0);
mgLine_c const alongX(P(1, 0, 3), x);

TEST(Line, FeetMayReplaceThePointAndSnappingIsStrict) {
    P p(4, 7, 3);
    EXPECT_EQ(3.0, alongX.pointPerpParam(p, nullptr));
    EXPECT_EQ(0, alongX.pointPerp(p, &p));
    EXPECT_EQ(1, alongX.pointPerp(p, &p)); // on the line now
    EXPECT_EQ(1, alongX.isPointOn(P(5, below(1e-08), 3)));
    EXPECT_EQ(0, alongX.isPointOn(P(5, 1e-08, 3)));
    for (double tol : {0.5, above(0.5), -0.75}) { // the absolute value counts
        p.set(4, 0.5, 3);
        EXPECT_EQ(tol != 0.5, alongX.snapPointToLine(p, &p, tol));
        EXPECT_EQ(tol != 0.5 ? 0.0 : 0.5, p.y());
    }
    EXPECT_EQ(1, alongX.isEquivalent({p, U(1, 0.95e-12, 0)}));
    EXPECT_EQ(0, alongX.isEquivalent({p, U(1, 1.05e-12, 0)}));
    EXPECT_EQ(0, alongX.isEquivalent({p, -x}) + alongX.isEquivalent({P(4, 9, 3), x}));
    EXPECT_EQ(1, alongX.snapPointToLine(P(4, 0, 3), &p, 0)); // on the line
}

TEST(Line, DistanceComesWithTheNearestPoints) {
    double t1 = 77, t2 = 77;
    EXPECT_EQ(5.0, alongX.distToLine({P(4, 7, 8), U(3, 4, 0)}, &t1, &t2));
    EXPECT_LT(gap(P(-2.25, -8.75, 0), P(t1, t2, 0)), 1e-14);
    mgLine_c parallel(P(5, 0, 7), x); // measured from its root
    parallel.setDirection(-x);
    EXPECT_EQ(4.0, alongX.distToLine(parallel, &t1, &t2));
    EXPECT_BITS_EQ(P(4, 0, 0), P(t1, t2, 0));
    EXPECT_EQ(4.0, alongX.distToLine(parallel, nullptr, nullptr));
    EXPECT_EQ(4.0, alongX.distToLine({P(5, 0, 7), {}}, &t1, &t2)); // a point
    EXPECT_BITS_EQ(P(4, 0, 0), P(t1, t2, 0));
}

TEST(Line, AProjectedPointIsTheFootOnTheLine) {
    P const a(1, 2, 3), near(1 + 1e-9, 2, 7);
    EXPECT_LT(dist({3, 6, 7}, s_projPointOnLine({5, 7, 5}, a, {1, 2, 2})), 1e-14);
    EXPECT_BITS_EQ(near, s_projPointOnLine(near, a, {0, 0, 3}));
}

} // namespace
