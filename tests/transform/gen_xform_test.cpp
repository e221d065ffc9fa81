// SPDX-License-Identifier: MIT
// Placements with a scale for each axis of a body.

#include <vexmath/gen_xform.h>

#include "support/geometry.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

using support::Random;

/// x y z -> -y x z, to the bit.
mgXform_c quarterTurn() { return mg_RotateXform(vexmath::kHalfPi, {0.0, 0.0, 1.0}, 1e-9); }

mgGenXform_c scaled(mgXform_c const &placing, mgXform_c const *body, mgVector_c const &scale) {
    mgGenXform_c g(placing);
    EXPECT_EQ(1, g.set(body, scale));
    return g;
}

void CheckScale(mgVector_c const &expected, mgGenXform_c const &g) {
    double scale[3];
    g.getScale(scale);
    EXPECT_BITS_EQ(expected, mgVector_c(scale));
}

mgPoint_c mappedByArray(mgGenXform_c const &g, mgPoint_c const &p) {
    double gl[16];
    g.getGenGLData(gl);
    EXPECT_BITS_EQ(mgVector_c(0.0, 0.0, 0.0), mgVector_c(gl[3], gl[7], gl[11]));
    EXPECT_EQ(1.0, gl[15]);
    return mgPoint_c(p.x() * mgVector_c(gl) + p.y() * mgVector_c(gl + 4)
                     + p.z() * mgVector_c(gl + 8) + mgVector_c(gl + 12));
}

/// A factor is taken on any axis by both makers, or refused by both without a change.
void CheckFactor(bool taken, double factor) {
    mgXform_c const body = quarterTurn();
    for (int axis = 0; axis < 3; ++axis) {
        mgVector_c scale(2.0, 3.0, 4.0);
        scale[axis] = factor;
        std::unique_ptr<mgGenXform_c> const made(mgGenXform_c::create(&body, &body, scale));
        mgGenXform_c g = scaled(body, nullptr, {5.0, 6.0, 7.0});
        ASSERT_EQ(taken, made != nullptr) << factor;
        EXPECT_EQ(taken, g.set(&body, scale)) << factor;
        EXPECT_EQ(taken, g.getBodyXform().rotate()) << factor;
        CheckScale(taken ? scale : mgVector_c(5.0, 6.0, 7.0), g);
        EXPECT_BITS_EQ(g * mgPoint_c(1.0, 2.0, 3.0),
                       (taken ? *made : g) * mgPoint_c(1.0, 2.0, 3.0));
    }
}

TEST(GenXform, FactorsLieBetweenAThousandthAndAThousand) {
    CheckFactor(true, 0.001);
    CheckFactor(false, support::below(0.001));
    CheckFactor(true, 1000.0);
    CheckFactor(false, support::above(1000.0));
    CheckFactor(false, support::kNaN);
    EXPECT_EQ(nullptr, mgGenXform_c::create(nullptr, nullptr, nullptr));
}

TEST(GenXform, IsItsPlacingTransform) {
    mgXform_c const placing = mg_TranslateXform({1.0, 2.0, 3.0});
    mgXform_c body = quarterTurn();
    body.addPerspectiveInfo(mgPerspInfo_c());
    mgGenXform_c g = scaled(placing, &body, {2.0, 3.0, 4.0});
    EXPECT_BITS_EQ(mgPoint_c(2.0, 2.0, 3.0), mgPoint_c(1.0, 0.0, 0.0) * g); // placed, not scaled
    EXPECT_EQ(1, g.set(nullptr, nullptr));

    mgGenXform_c copy = g;
    g *= quarterTurn();
    EXPECT_BITS_EQ(mgVector_c(-2.0, 1.0, 3.0), g.translation());
    EXPECT_BITS_EQ(placing.translation(), copy.translation());
    EXPECT_EQ(1, copy.getBodyXform().hasPerspective());
    CheckScale({2.0, 3.0, 4.0}, copy);
    copy = placing; // the rest is reset
    EXPECT_EQ(1, copy.getBodyXform().isIdentity());
    CheckScale({1.0, 1.0, 1.0}, copy);
}

TEST(GenXform, PointsAreScaledInTheBodyFrameAndThenPlaced) {
    Random random;
    for (int i = 0; i < 500; ++i) {
        mgXform_c const placing = support::placement(random), body = support::placement(random);
        mgVector_c const s = random.triple<mgVector_c>(0.1, 5.0);
        mgPoint_c const p = random.triple<mgPoint_c>(-10.0, 10.0), q = p * body.inverse();
        mgPoint_c const image = mgPoint_c(q.x() * s.x(), q.y() * s.y(), q.z() * s.z()) * body;
        mgGenXform_c const g = scaled(placing, &body, s);
        ASSERT_BITS_EQ(image * placing, g * p);
        ASSERT_LT(dist(g * p, mappedByArray(g, p)), 1e-11); // lengths up to a thousand
    }
}

TEST(GenXform, WithoutABodyFrameTheArrayScalesInWorldAxes) {
    mgXform_c const placing = quarterTurn() * mg_TranslateXform({10.0, 20.0, 30.0});
    mgGenXform_c const g = scaled(placing, nullptr, {2.0, 3.0, 5.0});
    EXPECT_BITS_EQ(mgPoint_c(7.0, 22.0, 35.0), g * mgPoint_c(1.0, 1.0, 1.0));
    EXPECT_BITS_EQ(mgPoint_c(8.0, 23.0, 35.0), mappedByArray(g, {1.0, 1.0, 1.0}));
}

TEST(GenXform, WithFactorsOfOneTheBodyFramePlaysNoPart) {
    mgXform_c const body = mg_TranslateXform({1.0, 0.0, 0.0});
    double const last = 1.0 + 1e-8; // rounded down: 9.99999993922529e-09 above 1
    for (int axis = 0; axis < 3; ++axis) {
        mgVector_c scale(1.0, 1.0, 1.0);
        scale[axis] = last;
        mgGenXform_c const one = scaled(quarterTurn(), &body, scale);
        EXPECT_EQ(1, one.isScaleIdentity());
        EXPECT_BITS_EQ(mgPoint_c(-2.0, 3.0, 1.0), one * mgPoint_c(3.0, 2.0, 1.0));
        EXPECT_BITS_EQ(mgPoint_c(-2.0, 3.0, 1.0), mappedByArray(one, {3.0, 2.0, 1.0}));
        scale[axis] = support::above(last);
        EXPECT_EQ(0, scaled(quarterTurn(), &body, scale).isScaleIdentity());
    }
}

TEST(GenXform, PerspectiveAloneDoesNotPlace) {
    mgXform_c view;
    view.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, 10.0, 5.0));
    EXPECT_BITS_EQ(mgPoint_c(1.0, 2.0, 3.0), mgGenXform_c(view) * mgPoint_c(1.0, 2.0, 3.0));
}

} // namespace
