// SPDX-License-Identifier: MIT
// Angles between vectors, the digits of the angle constants, and the derivative of a direction.

#include "common/geometry.h"

namespace {

constexpr double kTurn = 6.2831853071796;
double const right = std::atan2(1.0, 0.0), half = std::atan2(0.0, -1.0);
V const x(1.0, 0.0, 0.0), y(0.0, 1.0, 0.0), z(0.0, 0.0, 1.0), null;

static_assert(vexmath::kFullTurnBound == 6.2831853071896);
static_assert(vexmath::kHalfTurnBound == 3.1415926535998002);

TEST(Angles, AReferenceMeasuresTheLongWayRound) {
    EXPECT_BITS_EQ(1e-9, mg_AngleBetween(x, x + 1e-9 * y)); // whose cosine is 1
    EXPECT_BITS_EQ(half, mg_AngleBetween(x, -x));
    EXPECT_DOUBLE_EQ(std::acos(2.0 / 3.0), mg_AngleBetween({1.0, 2.0, 2.0}, {6.0, 2.0, 1.5}));
    EXPECT_BITS_EQ(0.0, mg_AngleBetween(-x, null));         // whose dot product is -0.0
    EXPECT_BITS_EQ(right, mg_AngleBetween(1e-9 * x, y, z)); // only zero counts as null
    EXPECT_BITS_EQ(kTurn - right, mg_AngleBetween(x, y, -z));
    EXPECT_BITS_EQ(right, mg_AngleBetween(x, y, x)); // a reference perpendicular to a x b
    EXPECT_BITS_EQ(kTurn, mg_AngleBetween(x, x - 1e-17 * y, z)); // by rounding
    EXPECT_BITS_EQ(kTurn - right, mg_AngleBetween2d(x, -y));
    EXPECT_BITS_EQ(0.0, mg_AngleBetween2d(y, y));
    EXPECT_BITS_EQ(0.0, mg_AngleBetween2d(V(-1, -1, -1), V())); // not pi, for a product of -0
    // The dot product includes z: 6 and not 2.
    EXPECT_BITS_EQ(std::atan2(1.0, 6.0), mg_AngleBetween2d(x + 2.0 * z, 2.0 * x + y + 2.0 * z));
}

TEST(Angles, FromVectorsIsSignedInThePlaneAlone) {
    auto const check = [](double expected, V const &a, V const &b, int force3d, Caller = {}) {
        EXPECT_BITS_EQ(expected, mg_getAngleFromVectors(a, b, 1e9, force3d));
    };
    V const a(2.0, 3.0, 0.0), b(5.0, 0.5, 0.0);
    check(std::atan2(1.0 - 15.0, 10.0 + 1.5), a, b, 0);
    check(std::atan2(15.0 - 1.0, 10.0 + 1.5), a, b, 1);
    check(0.0, a, V(9e-9, 9e-9, 9e-9), 1), check(0.0, V(9e-9, 9e-9, 9e-9), a, 1);
    check(-right, y, x - 1e-08 * z, 0); // on the bound, and beyond it in either operand
    check(right, y, x - above(1e-08) * z, 0), check(-right, y + 1e-08 * z, x, 0);
    check(right, x + above(1e-08) * z, -y, 0);
}

TEST(Angles, TheDerivativeOfADirectionIsItsRate) {
    V const v(0.0, 3.0, 4.0), along = 0.5 * v; // does not rotate v
    EXPECT_LT(gap((4.0 * y - 3.0 * z) / 20.0, mgUnitVectorDer(v, y - 0.75 * z + along)), 1e-16);
    EXPECT_BITS_EQ(y / 1e-08, mgUnitVectorDer(1e-08 * x, y));
    EXPECT_BITS_EQ(null, mgUnitVectorDer(below(1e-08) * x, x + y)); // without a guard 0 / 0
}

} // namespace
