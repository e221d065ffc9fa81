// SPDX-License-Identifier: MIT
// 4x4 matrices.

#include "common/geometry.h"

namespace {

template <class Operand>
constexpr bool isMultiplied = std::is_invocable_v<std::multiplies<>, mgMatrix4_c, Operand>;
static_assert(isMultiplied<V> && isMultiplied<U>);
struct NamedPoint : P {};
static_assert(!isMultiplied<P> && !isMultiplied<NamedPoint>, "the translation gets lost");
static_assert(std::is_same_v<P, decltype(mgMatrix4_c().mult(NamedPoint()))>);

mgMatrix4_c placed(V const &axis, double angle, double scale, V const &move) {
    return mgMatrix4_c::rotationMatrix(axis, angle).scale(scale).setTranslation(move);
}

void CheckElements(double const (&expected)[16], mgMatrix4_c const &m, Caller = {}) {
    for (int k = 0; k < 16; ++k) EXPECT_EQ(expected[k], m.getDataPtr()[k]) << "element " << k;
}

TEST(Matrix4, MapsPointsVectorsAndHomogeneousVectorsByColumns) {
    mgMatrix4_c m = mgMatrix4_c::translationMatrix({10, 20, 30});
    m(3, 0) = 5, m(3, 1) = 4, m(3, 2) = 3;
    m(0, 1) = 7;
    V const v(1, 2, 3);
    mgVector4_c const q(2, 2, 3, 2);
    EXPECT_BITS_EQ(V(15, 2, 3), m * v);
    EXPECT_BITS_EQ(V(25, 22, 33), m.mult(v)); // never divided
    EXPECT_BITS_EQ(P(25, 22, 33), m.mult(P(v)));
    EXPECT_BITS_EQ(V(25, 22, 33), m.mult({1.0, 2.0, 3.0}));
    EXPECT_BITS_EQ(V(36, 42, 63), m.mult(q));
    EXPECT_BITS_EQ(V(36, 42, 63) / 29, m.mult4(q).getVector3());
    m.loadIdentity();
    EXPECT_EQ(1, m == mgMatrix4_c());
}

TEST(Matrix4, ProductSumsOverAllRowsAndMayReplaceAFactor) {
    mgMatrix4_c m = mgMatrix4_c::vvt({1, 2, 3});
    m(0, 3) = 1;
    m(3, 1) = 2;
    mgMatrix4_c const factor = m;
    m *= m;
    CheckElements({14, 30, 42, 2, 28, 56, 84, 2, 42, 84, 126, 3, 4, 10, 12, 1}, m);
    CheckElements({1, 2, 3, 0, 2, 4, 6, 2, 3, 6, 9, 0, 1, 0, 0, 1}, factor.transpose());
    EXPECT_EQ(factor(3, 1), m.getDataPtr()[3]);
}

TEST(Matrix4, DifferenceOfAffineMatricesIsTheArgumentMinusThis) {
    mgMatrix4_c const a = mgMatrix4_c::vvt({1, 2, 3});
    mgMatrix4_c b = mgMatrix4_c::translationMatrix({5, 6, 7});
    b(3, 0) = 9;
    CheckElements({2, 2, 3, 5, 2, 5, 6, 6, 3, 6, 10, 7, 0, 0, 0, 1}, a + b);
    CheckElements({0, -2, -3, 5, -2, -3, -6, 6, -3, -6, -8, 7, 0, 0, 0, 1}, a - b);
    CheckElements({3, 0, 0, 15, 0, 3, 0, 18, 0, 0, 3, 21, 0, 0, 0, 1}, b.scale(3));
}

TEST(Matrix4, OrderIsExactAndLexicographic) {
    mgMatrix4_c const a;
    mgMatrix4_c b;
    b(3, 2) = kTiny;
    EXPECT_TRUE(a < b);
    EXPECT_FALSE(b < a);
    EXPECT_FALSE(a < a);
    EXPECT_FALSE(a == b);
}

TEST(Matrix4, InverseUndoesAnAffineMap) {
    mgMatrix4_c m = placed({1, 2, 3}, 0.5, 2, {4, 5, 6});
    m(3, 0) = 7; // whatever the bottom row is
    EXPECT_LT((m.scale(1) * m.inverse()).distTo({}), 1e-14);
    mgMatrix4_c thin = mgMatrix4_c::translationMatrix({1, 2, 3});
    thin(0, 0) = 1e-13;
    EXPECT_NEAR(1e13, thin.inverse()(0, 0), 1e-2);
    thin(0, 0) = -below(1e-13);
    EXPECT_EQ(1, thin.inverse() == mgMatrix4_c());
}

TEST(Matrix4, RotationOfAScaledMatrixEndsInOneOverTheScale) {
    mgMatrix4_c const m = mgMatrix4_c().scale(2).setTranslation({1, 2, 3});
    EXPECT_BITS_EQ(V(2, 6, 8), V(m.getScale(), m.trace(), m.getDeterminant()));
    CheckElements({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0.5}, m.getRotation());
}

TEST(Matrix4, RigidMeansARotationOrMirrorWithinABoundAndAnExactBottomRow) {
    mgMatrix4_c m = placed({1, 2, 3}, 0.5, 1.0, {4, 5, 6});
    EXPECT_EQ(1, m.scale(1 + 4.9e-5).isRigid()); // twice that, by the last element alone
    EXPECT_EQ(0, m.scale(1 + 5.1e-5).isRigid());
    mgMatrix4_c mirror = m;
    for (int i = 0; i < 3; ++i) mirror(i, 2) *= -1;
    EXPECT_EQ(1, mirror.isRigid());
    m(3, 0) = kTiny;
    EXPECT_EQ(0, m.isRigid());
}

TEST(Matrix4, ShortAxisRotatesOnlyByAnAngleAboveItsLength) {
    auto const check = [](bool rotates, double length, double angle, Caller = {}) {
        EXPECT_NE(rotates, mgMatrix4_c::rotationMatrix({0, 0, length}, angle) == mgMatrix4_c());
    };
    check(true, 1e-4, -1), check(false, below(1e-4), -1);
    check(true, 5e-5, above(5e-5)), check(false, 5e-5, 5e-5);
    double const c = std::cos(0.5); // without an axis, only the cosine remains
    CheckElements({c, 0, 0, 0, 0, c, 0, 0, 0, 0, c, 0, 0, 0, 0, 1},
                  mgMatrix4_c::rotationMatrix({0, 0, 5e-9}, 0.5));
}

// Column vectors here and row vectors there: the same elements rotate the other way.
TEST(Matrix4, ConvertedMatrixRotatesRowVectorsTheOtherWay) {
    mgMatrix4_c const turn = placed({0, 0, 2}, std::acos(0.0), 1, {1, 2, 3});
    EXPECT_LT(gap(V(0, 1, 0), turn * V(1, 0, 0)), 1e-15);
    EXPECT_LT(gap(V(0, -1, 0), V(1, 0, 0) * turn.convertToMatrix()), 1e-15);
    // One pass of normalisation reverses rows of length 2.
    EXPECT_LT(gap(V(0, 1, 0), V(1, 0, 0) * turn.scale(2).convertToMatrix()), 1e-15);
}

TEST(Matrix4, AxisAngleAndInterpolationAreThoseOfTheRotation) {
    Random random;
    for (int i = 0; i < 1000; ++i) {
        auto const axis = random.triple<U>(0.1, 1);
        auto const move = random.triple<V>(-5, 5), start = random.triple<V>(-5, 5);
        double const angle = random.uniform(0.1, 3) * (i % 2 == 0 ? 1 : -1);
        double const scale = random.uniform(0.5, 2), t = random.uniform(0, 1);
        auto const at = [&](double s) {
            return placed(axis, angle * s, std::pow(scale, s), start + s * move);
        };
        ASSERT_NEAR(angle, at(1).getRotationAngle(7.0 * axis), 1e-14);
        ASSERT_LT(gap(axis, at(1).getRotationAxis()), 1e-12);
        ASSERT_LT(mgMatrix4_c::interpolate(at(0), at(1), t).distTo(at(t)), 1e-12);
        ASSERT_EQ(1, mgMatrix4_c::interpolate(at(0), at(1), -t) == at(0));
        ASSERT_EQ(1, mgMatrix4_c::interpolate(at(0), at(1), 1 + t) == at(1));
    }
    EXPECT_BITS_EQ(U::xAxis(), mgMatrix4_c().getRotationAxis());
}

TEST(Matrix4, AStepTooSmallToTellItsAxisRotatesAboutX) {
    auto const check = [](V const &axis, double angle, double rotated, Caller = {}) {
        auto const to = mgMatrix4_c::rotationMatrix(axis, angle);
        auto const expected = mgMatrix4_c::rotationMatrix({1, 0, 0}, rotated);
        EXPECT_LT(mgMatrix4_c::interpolate({}, to, 0.5).distTo(expected), 1e-12) << angle;
    };
    check({1, 0, 0}, 9.9e-5, 9.9e-5 / 2), check({0, 1, 0}, 9.9e-5, 0), check({0, 0, 1}, -9.9e-5, 0);
    auto const to = mgMatrix4_c::rotationMatrix({0, 0, 1}, -1.01e-4); // large enough
    EXPECT_BITS_EQ(U::zAxis(), to.getRotationAxis());
}

TEST(Matrix4, RigidTransformIsAFrameAndTheOuterProductFillsTheUpperLeft) {
    V const origin(1, 2, 3);
    CheckElements({0, -1, 0, 1, 1, 0, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1},
                  mgMatrix4_c::rigidTransform(origin, {0, 2, 0}, {-3, 9, 0}));
    EXPECT_EQ(1, mgMatrix4_c::rigidTransform(origin, {1, 1, 0}, {-2, -2, 0})
                     == mgMatrix4_c::translationMatrix(origin));
    CheckElements({1, 2, 3, 0, 2, 4, 6, 0, 3, 6, 9, 0, 0, 0, 0, 1}, mgMatrix4_c::vvt(origin));
}

} // namespace
