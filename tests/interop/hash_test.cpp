// SPDX-License-Identifier: MIT
// Tests of hash.h.

#include <vexmath/hash.h>

#include <unordered_set>

#include "common/geometry.h"

namespace {

template <class T>
constexpr bool isHashable = std::is_default_constructible_v<std::hash<T>>;
static_assert(
    isHashable<mgMatrix4_c> && isHashable<mgPerspInfo_c> && isHashable<mgModelPerspInfo_c>);
// These compare within a tolerance.
static_assert(!isHashable<P> && !isHashable<V> && !isHashable<U> && !isHashable<mgMatrix_c>);
static_assert(!isHashable<mgBBox_c> && !isHashable<mgQuaternion_c> && !isHashable<uoSelectType_c>);

/// a and b are equal, and c differs in one number.
template <class T>
void CheckHash(T const &a, T const &b, T const &c, Caller = {}) {
    vexmath::ExactHash const hash;
    vexmath::ExactEqual const equal;
    EXPECT_TRUE(equal(a, b));
    EXPECT_EQ(hash(a), hash(b));
    EXPECT_FALSE(equal(a, c));
    EXPECT_NE(hash(a), hash(c));
}

} // namespace

TEST(Hash, AgreesWithExactEquality) {
    double const next = above(3.0);
    CheckHash(P(0.0, 2, 3), P(-0.0, 2, 3), P(0, 2, next));
    CheckHash(V(1, 0.0, 3), V(1, -0.0, 3), V(1, 3, 0));
    CheckHash(mg2DPoint_c(1, 3), mg2DPoint_c(1, 3), mg2DPoint_c(1, next));
    CheckHash(mgQuaternion_c(1, 2, 3, 3), mgQuaternion_c(1, 2, 3, 3),
              mgQuaternion_c(1, 2, 3, next));
    mgMatrix_c edited;
    edited(2, 1) = kTiny;
    CheckHash(mgMatrix_c(), mgMatrix_c().transpose(), edited);
    mgMatrix4_c m;
    m(3, 3) = above(1.0);
    CheckHash(mgMatrix4_c(), mgMatrix4_c(), m);
    CheckHash(mgPerspInfo_c(1, 2, 3, 4), mgPerspInfo_c(1, 2, 3, 4), mgPerspInfo_c(1, 2, 3, 5));

    mgModelPerspInfo_c looking(1, 2, 3, 4);
    looking.setModelViewDir(U(1, 0, 0));
    EXPECT_TRUE(looking == mgModelPerspInfo_c(1, 2, 3, 4));
    EXPECT_EQ(std::hash<mgModelPerspInfo_c>()(looking),
              std::hash<mgPerspInfo_c>()(mgPerspInfo_c(1, 2, 3, 4)));
}

TEST(Hash, SetsKeepExactlyDifferentPoints) {
    std::unordered_set<P, vexmath::ExactHash, vexmath::ExactEqual> seen;
    for (P const &p : {P(0, 0, 0), P(-0.0, 0, 0), P(1e-12, 0, 0), P(kNaN, 0, 0)}) seen.insert(p);
    EXPECT_EQ(3u, seen.size());
    EXPECT_EQ(0u, seen.count(P(kNaN, 0, 0)));
}
