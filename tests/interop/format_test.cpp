// SPDX-License-Identifier: MIT
// Tests of format.h on streams, and of {fmt} where it is.

#if __has_include(<fmt/ranges.h>)
#include <fmt/ranges.h>
#endif
#include <vexmath/format.h>

#include <cstdio>

#include "common/geometry.h"

namespace {

/// The text by a stream; {fmt} gives the same.
template <class T>
void CheckText(char const *expected, T const &object, Caller = {}) {
    std::ostringstream out;
    out << object;
    EXPECT_EQ(expected, out.str());
#ifdef FMT_VERSION
    EXPECT_EQ(expected, fmt::format("{}", object));
#endif
}

mgMatrix_c quarterTurn() { return mg_RotationMatrix(vexmath::kHalfPi, V(0, 0, 1), 1e-9); }

} // namespace

TEST(Format, PointsAndDirections) {
    CheckText("(1, 2.5, -3)", P(1, 2.5, -3));
    CheckText("(0.1, -0, 1e+300)", V(0.1, -0.0, 1e300));
    CheckText("(nan, inf, -inf)", P(kNaN, kInfinity, -kInfinity));
    CheckText("(1, 2)", mg2DPoint_c(1, 2));
    CheckText("(1, 2, 3)", gcMdiPoint_c(1, 2, 3));
    CheckText("(1, 2, 3, 4)", mgVector4_c(1, 2, 3, 4));
    CheckText("(0, 0, 0, 1)", mgQuaternion_c());
    CheckText("(0, 0, 1)", U(0, 0, 1));
    CheckText("no direction", U());
    U stretched(0, 0, 1);
    stretched += V(0, 0, 1);
    CheckText("(0, 0, 2) of length 2", stretched);
}

TEST(Format, MatricesAndTransforms) {
    CheckText("identity", mgMatrix_c());
    CheckText("[(0, 1, 0), (-1, 0, 0), (0, 0, 1)]", quarterTurn());
    CheckText("[(0, -1, 0), (1, 0, 0), (0, 0, 1)] flagged as identity", quarterTurn().transpose());
    mgMatrix_c edited = quarterTurn();
    for (int k = 0; k < 9; ++k) edited[k] = k % 4 == 0 ? 1.0 : 0.0;
    CheckText("unflagged identity", edited);
    CheckText("identity", mgMatrix4_c());
    CheckText("[(1, 0, 0, 7), (0, 1, 0, 8), (0, 0, 1, 9), (0, 0, 0, 1)]",
              mgMatrix4_c::translationMatrix(V(7, 8, 9)));

    CheckText("identity", mgXform_c());
    CheckText("scale 2, translation (1, 2, 3)", raw({}, V(1, 2, 3), 2.0));
    mgXform_c const flagged = raw(quarterTurn(), V(), 1.0, 1);
    CheckText("rotation [(0, 1, 0), (-1, 0, 0), (0, 0, 1)], mirrored", flagged);
    mgXform_c view;
    view.addPerspectiveInfo(mgPerspInfo_c(1, 2, 3, 4));
    CheckText("identity, perspective from (1, 2, 3), plane 4, far clip 0, no camera", view);
    double const factors[] = {1, 2, 3};
    mgGenXform_c general(raw({}, V(4, 5, 6)));
    general.set(nullptr, factors);
    CheckText("translation (4, 5, 6), body scaled (1, 2, 3)", general);
    general.set(&flagged, factors);
    CheckText("translation (4, 5, 6), body scaled (1, 2, 3) in frame: "
              "rotation [(0, 1, 0), (-1, 0, 0), (0, 0, 1)], mirrored",
              general);
}

TEST(Format, BoxesAndPrimitives) {
    CheckText("unset box", mgBBox_c());
    mgBBox_c box(P(0, 0, 0), 1.0);
    CheckText("box (-1, -1, -1) to (1, 1, 1), sphere (0, 0, 0) r 1", box);
    box.setSphereOnly(P(9, 0, 0), 1.0);
    CheckText("invalid box (-1, -1, -1) to (1, 1, 1), sphere (9, 0, 0) r 1", box);
    P const p(1, 2, 3);
    U const z(0, 0, 1);
    CheckText("line through (1, 2, 3) along (0, 0, 1)", mgLine_c(p, z));
    CheckText("line through (0, 0, 0) along no direction", mgLine_c());
    CheckText("plane through (1, 2, 3), normal (0, 0, 1)", mgPlane_c(p, z));
    CheckText("circle about (1, 2, 3), normal (0, 0, 1), r 4", mgCircle_c(p, 4, z));
    CheckText("arc about (1, 2, 3), normal (0, 0, 1), r 4, 0.5 to 1 rad", mgArc_c(z, p, 4, 0.5, 1));
    CheckText("invalid arc about (0, 0, 0), normal (0, 0, 1), r 0, 0 to 0 rad", mgArc_c());
    CheckText("unset cone", mgCone_c());
    CheckText("cone at (1, 2, 3) along (0, 0, 1), r 4, half-angle 0.5 rad", mgCone_c(p, z, 4, 0.5));
    CheckText("cylinder at (1, 2, 3) along (0, 0, 1), r 4", mgCylinder_c(p, z, 4));
    CheckText("x 1 to 3, y 4 to 2", mgRect(1, 2, 3, 4));
}

TEST(Format, WidthAndPrecisionApplyToEachNumber) {
    P const p(1, -2.34567, 1000);
    std::ostringstream out;
    out << std::fixed << std::setprecision(2) << std::setw(7) << p << p;
    EXPECT_EQ("(   1.00,   -2.35, 1000.00)(1.00, -2.35, 1000.00)", out.str());
    out.str("");
    out << std::defaultfloat << std::setprecision(6) << std::left << std::setfill('.')
        << std::setw(5) << P(1, 2, 3);
    EXPECT_EQ("(1...., 2...., 3....)", out.str());
#ifdef FMT_VERSION
    EXPECT_EQ("(   1.00,   -2.35, 1000.00)", fmt::format("{:7.2f}", p));
    EXPECT_EQ("(   1.00,   -2.35, 1000.00)", fmt::format("{:{}.{}f}", p, 7, 2));
    suDynamicArray<P> list;
    list.Add(p);
    EXPECT_EQ("[(1, -2.34567, 1000)]", fmt::format("{}", list));
#endif
}

TEST(Format, TheTextReadsBackTheSame) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        P const p(random.ofMagnitude(-320, 308), random.uniform(-1, 1), random.hostile());
        std::ostringstream out;
        out << p;
        double x = 7, y = 7, z = 7;
        ASSERT_EQ(3, std::sscanf(out.str().c_str(), "(%lf, %lf, %lf)", &x, &y, &z)) << out.str();
        EXPECT_BITS_EQ(p, P(x, y, z));
    }
}
