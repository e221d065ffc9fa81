// SPDX-License-Identifier: MIT
// 4x4 matrices.

#include "support/numbers.h"

#include <vexmath/matrix4.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_vector.h>

#include <type_traits>

#include <gtest/gtest.h>

namespace {

static_assert(sizeof(mgMatrix4_c) == 16 * sizeof(double));
static_assert(std::is_trivially_copyable_v<mgMatrix4_c>);

constexpr double quarterTurn = 1.5707963267948966;

double below(double value) { return std::nextafter(value, 0.0); }

mgMatrix4_c randomMatrix(support::Random &random) {
    mgMatrix4_c m;
    for (int k = 0; k < 16; ++k) m.getDataPtr()[k] = random.uniform(-2, 2);
    return m;
}

mgMatrix4_c randomPlacement(support::Random &random, double scale) {
    return mgMatrix4_c::rotationMatrix(random.triple<mgVector_c>(0.1, 1), random.uniform(-3, 3))
        .scale(scale)
        .setTranslation(random.triple<mgVector_c>(-5, 5));
}

void ExpectElements(mgMatrix4_c const &m, double const (&expected)[16], double bound) {
    for (int k = 0; k < 16; ++k)
        EXPECT_NEAR(expected[k], m.getDataPtr()[k], bound) << "element " << k;
}

TEST(Matrix4, MapsPointsVectorsAndHomogeneousVectorsByColumns) {
    mgMatrix4_c m = mgMatrix4_c::translationMatrix({10, 20, 30});
    for (int k = 0; k < 16; ++k) EXPECT_BITS_EQ(m.getDataPtr()[k], m(k / 4, k % 4));
    EXPECT_BITS_EQ(mgVector_c(11, 22, 33), m.mult(mgVector_c(1, 2, 3)));
    EXPECT_BITS_EQ(mgPoint_c(11, 22, 33), m.mult(mgPoint_c(1, 2, 3)));
    EXPECT_BITS_EQ(mgVector_c(1, 2, 3), m * mgVector_c(1, 2, 3));
    EXPECT_BITS_EQ(mgVector_c(21, 42, 63), m.mult(mgVector4_c(1, 2, 3, 2)));
    m(3, 0) = 5;
    m(0, 1) = 7;
    mgVector4_c const q = m.mult4({1, 2, 3, 2});
    EXPECT_BITS_EQ(mgVector_c(35, 42, 63), mgVector_c(q[0], q[1], q[2]));
    EXPECT_EQ(7, q[3]);
    EXPECT_BITS_EQ(mgVector_c(25, 22, 33), m.mult(mgVector_c(1, 2, 3))); // never divided
    EXPECT_BITS_EQ(mgVector_c(10, 20, 30), m.getTranslation());
    m.loadIdentity();
    EXPECT_EQ(1, m == mgMatrix4_c());
}

TEST(Matrix4, ProductSumsFromLeftToRightOverAllRows) {
    support::Random random;
    for (int i = 0; i < 500; ++i) {
        mgMatrix4_c const a = randomMatrix(random), b = randomMatrix(random);
        mgMatrix4_c product = a;
        product *= b;
        mgMatrix4_c square = a;
        square *= square;
        for (int k = 0; k < 16; ++k) {
            int const r = k / 4, c = k % 4;
            double sum = a(r, 0) * b(0, c), own = a(r, 0) * a(0, c);
            for (int j = 1; j < 4; ++j) sum += a(r, j) * b(j, c), own += a(r, j) * a(j, c);
            ASSERT_BITS_EQ(sum, product(r, c));
            ASSERT_BITS_EQ(own, square(r, c));
            ASSERT_BITS_EQ(a(c, r), a.transpose()(r, c));
        }
    }
}

TEST(Matrix4, DifferenceOfAffineMatricesIsTheArgumentMinusThis) {
    support::Random random;
    mgMatrix4_c const a = randomMatrix(random), b = randomMatrix(random);
    mgMatrix4_c const sum = a + b, difference = a - b, scaled = a.scale(3);
    for (int k = 0; k < 12; ++k) {
        double const p = a.getDataPtr()[k], q = b.getDataPtr()[k];
        EXPECT_BITS_EQ(p + q, sum.getDataPtr()[k]);
        EXPECT_BITS_EQ(q - p, difference.getDataPtr()[k]);
        EXPECT_BITS_EQ(p * 3, scaled.getDataPtr()[k]);
    }
    for (int k = 12; k < 16; ++k) { // the bottom row stays affine
        EXPECT_EQ(k == 15, sum.getDataPtr()[k]);
        EXPECT_EQ(k == 15, difference.getDataPtr()[k]);
        EXPECT_EQ(k == 15, scaled.getDataPtr()[k]);
    }
}

TEST(Matrix4, OrderIsExactAndLexicographic) {
    mgMatrix4_c const a;
    mgMatrix4_c b;
    EXPECT_FALSE(a < b || b < a);
    EXPECT_EQ(1, a == b);
    b(3, 2) = std::numeric_limits<double>::denorm_min();
    EXPECT_TRUE(a < b && !(b < a));
    EXPECT_EQ(0, a == b);
    b(0, 0) = below(1.0);
    EXPECT_TRUE(b < a && !(a < b));
}

TEST(Matrix4, InverseUndoesAnAffineMap) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        mgMatrix4_c m = randomMatrix(random);
        if (std::fabs(m.getDeterminant()) < 0.1) continue;
        mgMatrix4_c const inverse = m.inverse(); // the bottom row is not looked at
        m.getDataPtr()[12] = m.getDataPtr()[13] = m.getDataPtr()[14] = 0;
        m.getDataPtr()[15] = 1;
        EXPECT_LT((m * inverse).distTo({}), 1e-11);
        EXPECT_EQ(1, inverse(3, 3));
    }
    mgMatrix4_c thin = mgMatrix4_c::translationMatrix({1, 2, 3});
    thin(0, 0) = 1e-13;
    EXPECT_NEAR(1e13, thin.inverse()(0, 0), 1e-2);
    thin(0, 0) = -below(1e-13);
    EXPECT_EQ(1, thin.inverse() == mgMatrix4_c());
}

TEST(Matrix4, RotationOfAScaledMatrixEndsInOneOverTheScale) {
    mgMatrix4_c const m = mgMatrix4_c().scale(2).setTranslation({1, 2, 3});
    EXPECT_EQ(2, m.getScale());
    EXPECT_EQ(6, m.trace());
    EXPECT_EQ(8, m.getDeterminant());
    ExpectElements(m.getRotation(), {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0.5}, 0.0);
    EXPECT_EQ(0, m.isRigid());
    EXPECT_EQ(1, m.scale(0.5).isRigid());
}

TEST(Matrix4, RigidMeansARotationWithinABoundAndAnExactBottomRow) {
    support::Random random;
    mgMatrix4_c m = randomPlacement(random, 1.0);
    EXPECT_EQ(1, m.isRigid());
    EXPECT_EQ(1, m.scale(1 + 4e-5).isRigid()); // 2 * 4e-5 from the identity, by the last element
    EXPECT_EQ(0, m.scale(1 + 6e-5).isRigid());
    m(3, 0) = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(0, m.isRigid());
    EXPECT_EQ(0, mgMatrix4_c().scale(0).isRigid());
}

TEST(Matrix4, ShortAxisTurnsOnlyByAnAngleAboveItsLength) {
    auto const turns = [](double length, double angle) {
        return !(mgMatrix4_c::rotationMatrix({0, 0, length}, angle) == mgMatrix4_c());
    };
    EXPECT_TRUE(turns(1e-4, -1));
    EXPECT_FALSE(turns(below(1e-4), -1));
    EXPECT_TRUE(turns(5e-5, std::nextafter(5e-5, 1.0)));
    EXPECT_FALSE(turns(5e-5, 5e-5));
    EXPECT_FALSE(turns(0, 0));
    double const c = std::cos(0.5); // no axis is left, the cosine is
    ExpectElements(mgMatrix4_c::rotationMatrix({0, 0, 5e-9}, 0.5),
                   {c, 0, 0, 0, 0, c, 0, 0, 0, 0, c, 0, 0, 0, 0, 1}, 0.0);
}

// Columns here and rows there: the same elements turn the other way.
TEST(Matrix4, ConvertedMatrixTurnsRowVectorsTheOtherWay) {
    mgMatrix4_c const turn = mgMatrix4_c::rotationMatrix({0, 0, 2}, quarterTurn);
    mgMatrix_c const converted = turn.convertToMatrix();
    mgVector_c const there = turn * mgVector_c(1, 0, 0), back = mgVector_c(1, 0, 0) * converted;
    EXPECT_NEAR(1, there.y(), 1e-15);
    EXPECT_NEAR(-1, back.y(), 1e-15);
    EXPECT_EQ(0, converted.isIdentity());
    EXPECT_EQ(1, mgMatrix4_c::translationMatrix({1, 2, 3}).convertToMatrix().isIdentity());
    EXPECT_NEAR(quarterTurn, turn.getRotationAngle({0, 0, 7}), 1e-15);
    mgUnitVector_c const z = mgUnitVector_c::zAxis();
    EXPECT_NEAR(-quarterTurn, mg_RotationMatrix(quarterTurn, z, 0).getRotationAngle(&z), 1e-15);
}

TEST(Matrix4, AxisAndAngleAreThoseOfTheRotation) {
    support::Random random;
    for (int i = 0; i < 1000; ++i) {
        mgUnitVector_c const axis = random.triple<mgUnitVector_c>(0.1, 1);
        double const angle = random.uniform(0.1, 3) * (i % 2 == 0 ? 1 : -1);
        double const scale = random.uniform(0.5, 2);
        mgMatrix4_c const m =
            mgMatrix4_c::rotationMatrix(axis, angle).scale(scale).setTranslation({1, 2, 3});
        ASSERT_NEAR(angle, m.getRotationAngle(axis), 1e-14);
        ASSERT_LT((m.getRotationAxis() - axis).len(), 1e-12);
    }
    EXPECT_BITS_EQ(mgUnitVector_c::xAxis(), mgMatrix4_c().getRotationAxis());
    EXPECT_BITS_EQ(mgUnitVector_c::xAxis(), mgMatrix4_c().scale(1e-9).getRotationAxis());
}

TEST(Matrix4, InterpolationRunsAlongTheGeometricScaleAndTheStepsAxis) {
    support::Random random;
    mgMatrix4_c const one, four = mgMatrix4_c().scale(4);
    EXPECT_NEAR(2, mgMatrix4_c::interpolate(one, four, 0.5).getScale(), 1e-15);
    for (int i = 0; i < 300; ++i) {
        double const scale = random.uniform(0.5, 2);
        mgVector_c const axis = random.triple<mgVector_c>(0.1, 1);
        mgVector_c const move = random.triple<mgVector_c>(-5, 5);
        double const angle = random.uniform(0.1, 3);
        auto const at = [&](double t) {
            return mgMatrix4_c::rotationMatrix(axis, angle * t)
                .scale(std::pow(scale, t))
                .setTranslation(t * move);
        };
        double const t = random.uniform(0, 1);
        EXPECT_LT(mgMatrix4_c::interpolate(at(0), at(1), t).distTo(at(t)), 1e-12);
        EXPECT_EQ(1, mgMatrix4_c::interpolate(one, at(1), 0) == one);
        EXPECT_EQ(1, mgMatrix4_c::interpolate(one, at(1), 1.5) == at(1));
    }
}

TEST(Matrix4, RigidTransformIsTheFrameOfItsDirections) {
    mgVector_c const origin(1, 2, 3);
    ExpectElements(mgMatrix4_c::rigidTransform(origin, {0, 2, 0}, {-3, 9, 0}),
                   {0, -1, 0, 1, 1, 0, 0, 2, 0, 0, 1, 3, 0, 0, 0, 1}, 0.0);
    mgMatrix4_c const moved = mgMatrix4_c::translationMatrix(origin);
    EXPECT_EQ(1, mgMatrix4_c::rigidTransform(origin, {}, {0, 1, 0}) == moved);
    EXPECT_EQ(1, mgMatrix4_c::rigidTransform(origin, {1, 0, 0}, {}) == moved);
    EXPECT_EQ(1, mgMatrix4_c::rigidTransform(origin, {1, 1, 0}, {-2, -2, 0}) == moved);
    support::Random random;
    for (int i = 0; i < 500; ++i) {
        auto const x = random.triple<mgVector_c>(-1, 1), y = random.triple<mgVector_c>(-1, 1);
        mgMatrix4_c const m = mgMatrix4_c::rigidTransform(origin, x, y);
        ASSERT_NEAR(1, m.getDeterminant(), 1e-12);
        ASSERT_NEAR(x.len(), m.inverse().mult(origin + x).x(), 1e-12);
        ASSERT_NEAR(0, (m.inverse() * y).z(), 1e-12);
        ASSERT_GT((m.inverse() * y).y(), 0.0);
    }
}

TEST(Matrix4, OuterProductFillsTheUpperLeft) {
    ExpectElements(mgMatrix4_c::vvt({1, 2, 3}), {1, 2, 3, 0, 2, 4, 6, 0, 3, 6, 9, 0, 0, 0, 0, 1},
                   0.0);
}

} // namespace
