// SPDX-License-Identifier: MIT
// Placements with a scale for each axis of a body.

#include "common/geometry.h"

namespace {

/// x y z -> -y x z, to the bit.
mgXform_c const quarter = mg_RotateXform(vexmath::kHalfPi, {0.0, 0.0, 1.0}, 1e-9);

// A point is mapped, a vector is refused.
template <class T>
constexpr bool kMoves = std::is_invocable_v<std::multiplies<>, mgGenXform_c, T>;
static_assert(kMoves<P> && kMoves<double const *> && !kMoves<V> && !kMoves<U>);

mgGenXform_c scaled(mgXform_c const &placing, mgXform_c const *body, V const &scale) {
    mgGenXform_c g(placing);
    EXPECT_EQ(1, g.set(body, scale));
    return g;
}

V factors(mgGenXform_c const &g) {
    V scale;
    g.getScale(scale);
    return scale;
}

P mappedByArray(mgGenXform_c const &g, P const &p) {
    double gl[16];
    g.getGenGLData(gl);
    EXPECT_BITS_EQ(V(0.0, 0.0, 0.0), V(gl[3], gl[7], gl[11]));
    EXPECT_EQ(1.0, gl[15]);
    return P(p.x() * V(gl) + p.y() * V(gl + 4) + p.z() * V(gl + 8) + V(gl + 12));
}

TEST(GenXform, FactorsLieBetweenAThousandthAndAThousand) {
    V const old(5.0, 6.0, 7.0);
    mgGenXform_c g = scaled(quarter, nullptr, old);
    auto const check = [&](bool taken, V const &scale, Caller = {}) { // by both makers
        std::unique_ptr<mgGenXform_c> const made(mgGenXform_c::create(&quarter, nullptr, scale));
        EXPECT_EQ(taken, made != nullptr) << shown(scale);
        EXPECT_BITS_EQ(made ? factors(*made) : scale, scale);
        EXPECT_EQ(taken, g.set(&quarter, scale)) << shown(scale);
        EXPECT_EQ(taken, g.getBodyXform().rotate()) << shown(scale);
        EXPECT_BITS_EQ(taken ? scale : old, factors(g));
    };
    check(false, {below(0.001), 1.0, 1.0});
    check(false, {1.0, above(1000.0), 1.0}), check(false, {1.0, 1.0, kNaN});
    check(true, {0.001, 1000.0, 2.0});
    EXPECT_EQ(nullptr, mgGenXform_c::create(nullptr, nullptr, nullptr));
}

TEST(GenXform, IsItsPlacingTransform) {
    mgGenXform_c g = scaled(mg_TranslateXform({1.0, 2.0, 3.0}), &quarter, {2.0, 3.0, 4.0});
    mgGenXform_c const copy = g;
    EXPECT_BITS_EQ(P(2.0, 2.0, 3.0), P(1.0, 0.0, 0.0) * g); // placed, not scaled
    EXPECT_EQ(1, g.set(nullptr, nullptr));
    g *= quarter;
    EXPECT_BITS_EQ(V(-2.0, 1.0, 3.0), g.translation());
    EXPECT_BITS_EQ(V(2.0, 3.0, 4.0), factors(copy));
    EXPECT_EQ(1, copy.getBodyXform().rotate());
    g = copy, g = quarter; // body frame and factors are reset
    EXPECT_EQ(1, g.isScaleIdentity());
}

TEST(GenXform, PointsAreScaledInTheBodyFrameAndThenPlaced) {
    Random random;
    for (int i = 0; i < 500; ++i) {
        mgXform_c const placing = placement(random), body = placement(random);
        V const s = random.triple<V>(0.1, 5.0);
        P const p = random.triple<P>(-10.0, 10.0), q = p * body.inverse();
        mgGenXform_c const g = scaled(placing, &body, s);
        ASSERT_BITS_EQ(P(q.x() * s.x(), q.y() * s.y(), q.z() * s.z()) * body * placing, g * p);
        ASSERT_LT(gap(g * p, mappedByArray(g, p)), 1e-11); // lengths up to a thousand
    }
}

TEST(GenXform, WithoutABodyFrameTheArrayScalesInWorldAxes) {
    mgXform_c const placing = quarter * mg_TranslateXform({10.0, 20.0, 30.0});
    mgGenXform_c const g = scaled(placing, nullptr, {2.0, 3.0, 5.0});
    EXPECT_BITS_EQ(P(7.0, 22.0, 35.0), g * P(1.0, 1.0, 1.0));
    EXPECT_BITS_EQ(P(8.0, 23.0, 35.0), mappedByArray(g, {1.0, 1.0, 1.0}));
}

TEST(GenXform, WithFactorsOfOneTheBodyFrameIsIgnored) {
    mgXform_c const body = mg_TranslateXform({1.0, 0.0, 0.0});
    double const last = 1.0 + 1e-8; // rounded down: 9.99999993922529e-09 above 1
    mgGenXform_c const g = scaled(quarter, &body, {1.0, last, 1.0});
    EXPECT_EQ(1, g.isScaleIdentity());
    EXPECT_BITS_EQ(P(-2.0, 3.0, 1.0), g * P(3.0, 2.0, 1.0));
    EXPECT_BITS_EQ(P(-2.0, 3.0, 1.0), mappedByArray(g, {3.0, 2.0, 1.0}));
    EXPECT_EQ(0, scaled(quarter, &body, {1.0, 1.0, above(last)}).isScaleIdentity());
}

TEST(GenXform, TheBodyFramesRecordActsWhenThePointLeavesTheFrame) {
    mgXform_c body = mg_TranslateXform({1.0, 0.0, 0.0});
    body.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, -10.0, 5.0));
    mgGenXform_c const g = scaled({}, &body, {2.0, 1.0, 1.0});
    double const k = 5.0 / 15.0;
    EXPECT_BITS_EQ(P(5.0 * k, 4.0 * k, 5.0), g * P(3.0, 4.0, 5.0));
    EXPECT_BITS_EQ(P(5.0, 4.0, 5.0), mappedByArray(g, P(3.0, 4.0, 5.0)));
}

TEST(GenXform, PerspectiveAloneDoesNotPlace) {
    mgXform_c view;
    view.addPerspectiveInfo(mgPerspInfo_c(0.0, 0.0, 10.0, 5.0));
    EXPECT_BITS_EQ(P(1.0, 2.0, 3.0), mgGenXform_c(view) * P(1.0, 2.0, 3.0));
}

} // namespace
