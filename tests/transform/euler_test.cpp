// SPDX-License-Identifier: MIT
// Rotation angles about the coordinate axes.

#include "support/geometry.h"

namespace {

using namespace support;

/// Exactly these elements, a rotation or not.
mgXform_c ofElements(double const (&elements)[9]) { return raw(mgMatrix_c(elements, 0)); }

/// The identity but for r10.
mgXform_c slightlyAboutZ(double r10) { return ofElements({1, 0, 0, r10, 1, 0, 0, 0, 1}); }

/// About z, then y, then x.
mgXform_c turned(double g, double b, double a) {
    return mg_RotateXform(g, {0, 0, 1}, 0.0) * mg_RotateXform(b, {0, 1, 0}, 0.0)
           * mg_RotateXform(a, {1, 0, 0}, 0.0);
}

using Decomposition = int (mgXform_c::*)(double &, double &, double &) const;
constexpr Decomposition older = &mgXform_c::getThreeAngles;
constexpr Decomposition newer = &mgXform_c::getThreeAnglesNew;
mgVector_c const unwritten(-77.0, -77.0, -77.0);

void CheckAngles(Decomposition angles, mgXform_c const &x, int result, mgVector_c const &expected) {
    double a1 = -77.0, a2 = -77.0, a3 = -77.0;
    EXPECT_EQ(result, (x.*angles)(a1, a2, a3));
    EXPECT_BITS_EQ(expected, mgVector_c(a1, a2, a3));
}

TEST(Euler, AnglesAreThoseOfTheTurns) {
    Random random;
    for (int i = 0; i < 2000; ++i) {
        double const g = random.uniform(0.0, 6.0), b = random.uniform(0.0, 1.5),
                     a = random.uniform(0.0, 6.0);
        mgXform_c const x = turned(g, b, a);
        double a1, a2, a3;
        ASSERT_EQ(1, mg_ScaleXform(x, 3.0).getThreeAnglesNew(a1, a2, a3));
        // The cosine of b, at least 0.07, divides the rounding of the elements.
        ASSERT_LT(gap(mgVector_c(g, b, a), mgVector_c(a1, a2, a3)), 2e-13);
    }
}

TEST(Euler, NewerAnglesBearRoundingErrorsAndAreConfirmedByFourElements) {
    double const beyond = below(-1e-11);
    CheckAngles(newer, slightlyAboutZ(-1e-11), 1, {-1e-11, 0.0, 0.0});
    CheckAngles(newer, slightlyAboutZ(beyond), 1, {beyond + vexmath::kTwoPi, 0.0, 0.0});
    double const sine = above(1.0); // asin has no value for it
    mgXform_c const quarter = ofElements({0.0, 0.0, -sine, 0.0, 1.0, 0.0, sine, 0.0, 0.0});
    CheckAngles(newer, quarter, 1, {0.0, std::asin(1.0), 0.0});

    // At the quarter turn about y the four vanish, and the turn about x that is left is not found.
    CheckAngles(newer, ofElements({0.0, 0.6, -0.8, 0.0, 0.8, 0.6, 1.0, 0.0, 0.0}), 1,
                {0.0, std::asin(1.0), 0.0});
    // Refused: the angles of the last trial, opposite both ways.
    double const half = vexmath::kTwoPi - std::acos(-1.0);
    CheckAngles(newer, ofElements({0.5, 0, 0, 0, 0.5, 0, 0, 0, 0.5}), 0, {half, 0.0, half});
}

TEST(Euler, TheOlderAnglesMatchWholeHundredths) {
    CheckAngles(older, mgXform_c(), 1, {0.0, 0.0, 0.0});
    CheckAngles(older, slightlyAboutZ(0.0099), 1, {0.0, 0.0, 0.0});
    CheckAngles(older, slightlyAboutZ(0.01), 0, unwritten);
    CheckAngles(older, slightlyAboutZ(-1e-17), 0, unwritten); // a rounding error below zero
}

TEST(Euler, TheOlderAnglesKeepAnAngleOfZero) {
    // Half turns about y and x would do for a backward turn about z; the latter is never tried.
    CheckAngles(older, turned(-0.3, 0.0, 0.0), 0, unwritten);
}

TEST(Euler, HostileElementsEndInAnAnswerThatIsNumbers) {
    Random random;
    for (int i = 0; i < 10000; ++i) {
        double elements[9], a1, a2, a3;
        for (double &element : elements) element = random.hostile();
        Decomposition const angles = i % 2 == 0 ? older : newer;
        int const result = (ofElements(elements).*angles)(a1, a2, a3);
        ASSERT_FALSE(result != 0 && std::isnan(a1 + a2 + a3));
    }
}

} // namespace
