// SPDX-License-Identifier: MIT
// Rotation angles about the coordinate axes.

#include "common/geometry.h"

namespace {

/// Exactly these elements, a rotation or not.
mgXform_c ofElements(double const (&elements)[9]) { return raw(mgMatrix_c(elements, 0)); }

/// The identity but for r10.
mgXform_c slightlyAboutZ(double r10) { return ofElements({1, 0, 0, r10, 1, 0, 0, 0, 1}); }

/// About z, then y, then x.
mgXform_c rotated(double g, double b, double a) {
    return mg_RotateXform(g, {0, 0, 1}, 0.0) * mg_RotateXform(b, {0, 1, 0}, 0.0)
           * mg_RotateXform(a, {1, 0, 0}, 0.0);
}

using Decomposition = int (mgXform_c::*)(double &, double &, double &) const;
constexpr Decomposition older = &mgXform_c::getThreeAngles;
constexpr Decomposition newer = &mgXform_c::getThreeAnglesNew;
V const unwritten(-77.0, -77.0, -77.0);

void CheckAngles(Decomposition angles, mgXform_c const &x, int result, V const &expected,
                 Caller = {}) {
    double a1 = -77.0, a2 = -77.0, a3 = -77.0;
    EXPECT_EQ(result, (x.*angles)(a1, a2, a3));
    EXPECT_BITS_EQ(expected, V(a1, a2, a3));
}

TEST(Euler, AnglesAreThoseOfTheRotations) {
    Random random;
    for (int i = 0; i < 2000; ++i) {
        double const g = random.uniform(0.0, 6.0), b = random.uniform(0.0, 1.5),
                     a = random.uniform(0.0, 6.0);
        mgXform_c const x = rotated(g, b, a);
        double a1, a2, a3;
        ASSERT_EQ(1, mg_ScaleXform(x, 3.0).getThreeAnglesNew(a1, a2, a3));
        // The cosine of b, at least 0.07, divides the rounding of the elements.
        ASSERT_LT(gap(V(g, b, a), V(a1, a2, a3)), 2e-13);
    }
}

TEST(Euler, NewerAnglesAllowRoundingErrorsAndAreConfirmedByFourElements) {
    double const beyond = below(-1e-11);
    CheckAngles(newer, slightlyAboutZ(-1e-11), 1, {-1e-11, 0.0, 0.0});
    CheckAngles(newer, slightlyAboutZ(beyond), 1, {beyond + vexmath::kTwoPi, 0.0, 0.0});
    double const sine = above(1.0); // asin has no value for it
    mgXform_c const quarter = ofElements({0.0, 0.0, -sine, 0.0, 1.0, 0.0, sine, 0.0, 0.0});
    CheckAngles(newer, quarter, 1, {0.0, std::asin(1.0), 0.0});

    // At the quarter turn about y the four vanish, so the rotation about x is not found.
    CheckAngles(newer, ofElements({0.0, 0.6, -0.8, 0.0, 0.8, 0.6, 1.0, 0.0, 0.0}), 1,
                {0.0, std::asin(1.0), 0.0});
    double const volatile one = 1.0; // the C library's cosine, not the compiler's
    double const onBound = 1e-06 + std::cos(std::asin(one));
    CheckAngles(newer, ofElements({onBound, 0, 0, 0, 0, 0, 1, 0, 0}), 1, {0, std::asin(1.0), 0});
    // Refused, with the angles of the last trial.
    double const half = vexmath::kTwoPi - std::acos(-1.0);
    CheckAngles(newer, ofElements({0.5, 0, 0, 0, 0.5, 0, 0, 0, 0.5}), 0, {half, 0.0, half});
}

TEST(Euler, TheNewerAnglesOfSmallRotationsHaveTheOppositeSign) {
    // Element (1, 0) is minus the sine, so the first trial rebuilds it with the other sign.
    double const accepted = 4.99e-07, refused = 5.01e-07;
    double const wrong = vexmath::kTwoPi - std::atan2(accepted, 1.0);
    CheckAngles(newer, slightlyAboutZ(-accepted), 1, {wrong, 0.0, 0.0});
    CheckAngles(newer, slightlyAboutZ(-refused), 1, {std::atan2(refused, 1.0), 0.0, -0.0});
    double const last = vexmath::kTwoPi - std::acos(-1.0);
    CheckAngles(newer, ofElements({1, 0, 0, 0, 1, 0, kNaN, 0, 1}), 0, {last, kNaN, last});
    CheckAngles(newer, ofElements({1, kNaN, kNaN, 0, 1, kNaN, 0, 0, 1}), 1, {0.0, 0.0, 0.0});
}

TEST(Euler, TheOlderAnglesAreFoundByTheirOwnSteps) {
    auto const check = [](mgXform_c const &form, V const &expected, Caller = {}) {
        double a1, a2, a3;
        ASSERT_EQ(1, form.getThreeAngles(a1, a2, a3)) << shown(expected);
        EXPECT_LT(gap(expected, V(a1, a2, a3)), 1e-12);
    };
    double const half = vexmath::kPi, quarter = vexmath::kHalfPi;
    check(rotated(0, 0, 1.2), {0, 0, 1.2}), check(rotated(0, 0, -1.2), {0, 0, -1.2});
    check(rotated(0, 0, 1.7), {half, half, 1.7 - half});
    check(rotated(0, 0, -1.7), {half, half, half - 1.7});
    check(rotated(0, 2.5, 0), {0, 2.5, 0}), check(rotated(0, -2.5, 0), {0, -2.5, 0});
    check(rotated(2.5, 0, 0), {2.5, 0, 0}), check(rotated(-1.4e-5, 0, 0), {}); // as 1: 1 - 1e-10
    check(rotated(0.3, 0.4, 0.5), {0.3, 0.4, 0.5});
    check(rotated(-0.3, 0.4, 0.5), {half - 0.3, half - 0.4, 0.5 - half});
    check(rotated(-0.3, 0.4, -0.5), {half - 0.3, half - 0.4, half - 0.5});
    for (double const t : {quarter, -quarter})
        CheckAngles(older, mg_RotateXform(t, {0, 1, 0}, 1e-9), 0, unwritten);
    for (double const t : {half, -2.5, 1.4e-5})
        CheckAngles(older, mg_RotateXform(t, {0, 0, 1}, 1e-9), 0, unwritten);
}

TEST(Euler, TheOlderAnglesMatchWholeHundredths) {
    CheckAngles(older, mgXform_c(), 1, {0.0, 0.0, 0.0});
    CheckAngles(older, slightlyAboutZ(0.0099), 1, {0.0, 0.0, 0.0});
    CheckAngles(older, slightlyAboutZ(0.01), 0, unwritten);
    CheckAngles(older, slightlyAboutZ(-1e-17), 0, unwritten); // a rounding error below zero
    CheckAngles(older, ofElements({kNaN, 0, 0, 0, 1, 0, 0, 0, 1}), 1, {0.0, 0.0, 0.0}); // as 1
    CheckAngles(older, ofElements({1, 0, 0, 0, 1, 0, 0, 0, kNaN}), 0, unwritten);
}

TEST(Euler, TheOlderAnglesKeepAnAngleOfZero) {
    // Half turns about y and x would give a negative angle about z; the one about x is never tried.
    CheckAngles(older, rotated(-0.3, 0.0, 0.0), 0, unwritten);
}

} // namespace
