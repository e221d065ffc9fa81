// SPDX-License-Identifier: MIT
// Shared by the tests of the headers for Eigen, GLM and Imath: both libraries move the same points
// to the same places, and what goes there and comes back is the same.

#ifndef VEXMATH_TESTS_INTEROP_AGREEMENT_H
#define VEXMATH_TESTS_INTEROP_AGREEMENT_H

#include "common/geometry.h"

namespace common {

/// Side has to(object), move(form, p), rotate(matrix, v), move4(matrix4, p) and then(first,
/// second).
template <class Side>
void CheckAgreement() {
    using namespace vexmath;
    /// Coordinates reach 1000; a few of their roundings.
    constexpr double kFewUlp = 1e-12;
    Random random;
    for (int i = 0; i < 200; ++i) {
        mgXform_c x = placement(random);
        if (i % 2 != 0) x *= mg_ReflectionXform(direction(random));
        mgXform_c const y = placement(random);
        auto const p = random.triple<P>(-10.0, 10.0);
        V const v = p;

        EXPECT_LE(gap(Side::move(Side::to(x), p), p * x), kFewUlp);
        EXPECT_LE(gap(Side::move(Side::then(Side::to(x), Side::to(y)), p), p * x * y),
                  10 * kFewUlp);
        EXPECT_LE(gap(Side::rotate(Side::to(x.rotation()), v), v * x.rotation()), kFewUlp);
        mgMatrix4_c m = mgMatrix4_c::rotationMatrix(direction(random), random.uniform(-3.0, 3.0));
        m.setTranslation(v);
        EXPECT_LE(gap(Side::move4(Side::to(m), p), m.mult(p)), kFewUlp);

        auto const back = toXform(Side::to(x));
        ASSERT_TRUE(back.has_value());
        EXPECT_LE(gap(p * *back, p * x), kFewUlp);
        EXPECT_EQ(x.isReflection(), back->isReflection());
        mgXform_c const rigid = raw(y.rotation(), random.triple<V>(-5e-9, 5e-9)); // no copy's value
        EXPECT_BITS_EQ(rigid, *toXform(Side::to(rigid)));
        EXPECT_BITS_EQ(x.rotation(), toMatrix(Side::to(x.rotation())));
        EXPECT_EQ(1, m == toMatrix4(Side::to(m)));
        EXPECT_BITS_EQ(p, toPoint(Side::to(p)));
        EXPECT_BITS_EQ(v, toVector(Side::to(v)));
        U const u = direction(random);
        EXPECT_BITS_EQ(u, toDirection(Side::to(u)));
    }
    EXPECT_BITS_EQ(U(), toDirection(Side::to(U())));
}

template <class Side>
void CheckBoxes() {
    using namespace vexmath;
    mgBBox_c const box(P(1, -2, 3), P(4, 5, 6));
    EXPECT_TRUE(box == toBox(Side::to(box)));
    EXPECT_TRUE(Side::to(mgBBox_c()).isEmpty());
    EXPECT_EQ(0, toBox(Side::to(mgBBox_c())).isSet());
}

} // namespace common

#endif
