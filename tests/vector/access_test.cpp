// SPDX-License-Identifier: MIT
// What setters store, getters give back; and arithmetic that mixes points and vectors.

#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/unit_vector.h>
#include <vexmath/vector4.h>

#include "support/numbers.h"

namespace {

mgPoint_c const kPoint(1.0, 2.0, 3.0);
mgVector_c const kVector(10.0, 20.0, 40.0);

template <class Triple>
void CheckSettersByAxis() {
    Triple t(7.0, 8.0, 9.0);
    t.set_x(1.0);
    t.set_y(2.0);
    t.set_z(3.0);
    EXPECT_BITS_EQ(kPoint, t);
    EXPECT_BITS_EQ(mgPoint_c(), Triple());
}

} // namespace

TEST(Access, EachSetterWritesItsOwnCoordinate) {
    CheckSettersByAxis<mgVector_c>();
    CheckSettersByAxis<mgPoint_c>();
    CheckSettersByAxis<gcMdiPoint_c>();
    gcMdiPoint_c application(1.0, 2.0, 3.0);
    application.zero();
    EXPECT_BITS_EQ(mgPoint_c(), application);
}

TEST(Access, ArraysGoInAndOutInOrder) {
    double const xyz[] = {1.0, 2.0, 3.0};
    float const single[] = {1.0F, 2.0F, 3.0F};
    mgPoint_c p;
    p.set(xyz);
    EXPECT_BITS_EQ(kPoint, p);
    p = mgPoint_c();
    p.set(single);
    EXPECT_BITS_EQ(kPoint, p);
    double out[3];
    kVector.get(out);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(out[i], kVector.component(i));
        EXPECT_EQ(out[i], static_cast<double const *>(kVector)[i]);
    }
    EXPECT_BITS_EQ(mgPoint_c(), mgVector_c::nullVector());
    EXPECT_BITS_EQ(mgPoint_c(0.0, 1.0, 0.0), mgUnitVector_c::yAxis());
    EXPECT_BITS_EQ(mgUnitVector_c(1.0, 2.0, 3.0), mgUnitVector_c(xyz));
}

TEST(Access, PlanarAndHomogeneousValues) {
    mg2DPoint_c uv(1.0, 2.0);
    EXPECT_EQ(uv.u(), uv.x());
    EXPECT_EQ(uv.v(), uv.y());
    uv.set_x(3.0);
    uv.set_y(4.0);
    EXPECT_EQ(uv.x(), 3.0);
    EXPECT_EQ(uv.v(), 4.0);
    uv.set(5.0, 6.0);
    EXPECT_EQ(uv.u() + uv.v(), 11.0);

    double const xyzw[] = {2.0, 4.0, 6.0, 2.0};
    mgVector4_c const homogeneous(xyzw);
    EXPECT_EQ(homogeneous[3], 2.0);
    EXPECT_BITS_EQ(kPoint, homogeneous.getVector3());
    EXPECT_EQ(mgVector4_c(kPoint)[2], 3.0);
    EXPECT_EQ(mgVector4_c(kPoint)[3], 1.0);

    float third = 0.1F; // not a constant, so that the constructor is called
    mgTessPoint2D_c const stored(1.0F, 2.0F, third);
    mgTessPoint2D_c const rounded(1.0, 2.0, 0.1);
    EXPECT_EQ(stored.z, rounded.z);
    EXPECT_EQ(stored.x + stored.y, 3.0F);
}

TEST(Access, MixturesOfPointsAndVectorsMeanWhatTheySay) {
    EXPECT_BITS_EQ(mgPoint_c(9.0, 18.0, 37.0), kVector - kPoint);
    EXPECT_BITS_EQ(mgPoint_c(11.0, 22.0, 43.0), kVector + kPoint);
    EXPECT_BITS_EQ(mgPoint_c(2.0, 4.0, 6.0), kPoint + kPoint);
    mgPoint_c moved = kPoint;
    moved += kVector;
    EXPECT_BITS_EQ(kPoint + kVector, moved);
    moved -= kVector;
    EXPECT_BITS_EQ(kPoint, moved);
    EXPECT_EQ(sqDist(kPoint, kVector), 9.0 * 9.0 + 18.0 * 18.0 + 37.0 * 37.0);
    EXPECT_EQ(kPoint % kVector, 170.0);
    EXPECT_EQ(kVector % kPoint, 170.0);
    EXPECT_EQ(kPoint % kPoint, 14.0);
    mgVector_c const same(kPoint);
    EXPECT_EQ(kPoint == same, 1);
    EXPECT_EQ(same == kPoint, 1);
    EXPECT_EQ(kPoint == kVector, 0);
    EXPECT_EQ(kVector != kPoint, 1);
    EXPECT_EQ(kPoint != kVector, 1);
    EXPECT_EQ(same != kPoint, 0);
}
