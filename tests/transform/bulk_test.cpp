// SPDX-License-Identifier: MIT
// Arrays of transforms against the loop over the single operation, SIMD against plain. Any
// points are compared with their loop by fuzz/fuzz_transforms.cpp.

#include "common/geometry.h"

namespace {

/// A transform of any kind that the bulk operation distinguishes; some numbers are hostile.
mgXform_c anyTransform(Random &random) {
    auto const number = [&] { return random.below(6) == 0 ? random.hostile() : 2.5; };
    mgXform_64BitHelper_c fields = placement(random).GetHelper();
    if (random.below(3) == 0) fields.rotation = mgMatrix_c();
    if (random.below(9) == 0) { // the identity without its flag
        fields.rotation = mg_RotationMatrix(1e-09, mgUnitVector_c::zAxis(), 0.0);
        fields.rotation.iValidateRepairOrthonormality();
    }
    if (random.below(3) == 0) fields.rotation[random.below(9)] = number(); // a stale flag
    if (random.below(2) == 0)
        fields.scale = random.below(2) == 0 ? 1.0 + (random.below(2) == 0 ? 5e-9 : 2e-8) : number();
    if (random.below(2) == 0) fields.translation = V(number(), -0.0, 0.0);
    if (random.below(4) == 0) fields.rotation = fields.rotation.transpose();
    fields.reflection = random.below(2);
    mgXform_c x;
    x.SetHelper(fields);
    if (random.below(4) == 0) x.addPerspectiveInfo(mgPerspInfo_c(1.0, 2.0, number(), 3.0));
    return x;
}

TEST(Bulk, TransformedPointsKeepTheSignOfZero) {
    std::vector<P> points(5, P(-0.0, -0.0, -0.0));
    mg_TransformPoints(points.data(), 5, moved);
    for (P const &p : points) EXPECT_BITS_EQ(P(2.0, -0.0, 1.0), p);
}

/// An assignment would correct the fields.
void assignRaw(mgXform_c &x, mgXform_c const &source) {
    x.SetHelper(source.GetHelper());
    x.iCopyPerspectiveInfo(source);
}

using Xforms = std::vector<mgXform_c>;

/// The array operation against the loop, with one factor for all or one for each.
void CheckProducts(Xforms const &given, mgXform_c const *factors, bool isOne, Caller = {}) {
    Xforms loop(given.size()), array(given.size());
    for (std::size_t i = 0; i < given.size(); ++i)
        assignRaw(loop[i], given[i]), assignRaw(array[i], given[i]);
    for (std::size_t i = 0; i < loop.size(); ++i) loop[i] *= factors[isOne ? 0 : i];
    int const n = static_cast<int>(array.size());
    isOne ? mg_MultiplyXforms(array.data(), n, *factors)
          : mg_MultiplyXforms(array.data(), n, factors);
    for (std::size_t i = 0; i < loop.size(); ++i) {
        ASSERT_BITS_EQ(loop[i], array[i]) << "transform " << i;
        ASSERT_EQ(loop[i].hasPerspective(), array[i].hasPerspective());
    }
}

TEST(Bulk, MultipliedTransformsAreThoseOfTheLoopToTheBit) {
    Random random;
    for (int round = 0; round < 6000 && !::testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE(round);
        mg_SetUseVectorUnits(round % 4);
        // Of most groups of four, none or one is unusual.
        int const usual = random.below(3) == 0 ? 1 : 12;
        auto const fill = [&](Xforms &all) {
            for (mgXform_c &x : all) {
                bool const any = random.below(usual) == 0;
                assignRaw(x, any ? anyTransform(random) : placement(random));
                if (random.below(usual) == 0) x.setReflection(random.below(4) - 1);
            }
        };
        Xforms given(static_cast<std::size_t>(random.below(12))), by(given.size() + 1);
        fill(given), fill(by);
        if (!given.empty()) by[0] = given[0].inverse(); // a product that is the identity
        CheckProducts(given, &by.back(), true);
        CheckProducts(given, by.data(), false);
    }
    mg_SetUseVectorUnits(1);
}

TEST(Simd, ChangeNoProductOrInverse) {
    Random random;
    for (int round = 0; round < 30000; ++round) {
        mgXform_c const a = anyTransform(random);
        mgXform_c const b = random.below(9) == 0 ? a.inverse() : anyTransform(random);
        mg_SetUseVectorUnits(0);
        mgXform_c const product = a * b, inverse = a.inverse();
        mgXform_c chained = a, bySimd = a;
        chained *= b;
        mg_SetUseVectorUnits(1);
        bySimd *= b;
        ASSERT_BITS_EQ(product, a * b) << round;
        ASSERT_BITS_EQ(inverse, a.inverse()) << round;
        ASSERT_BITS_EQ(chained, bySimd) << round;
    }
}

TEST(Bulk, EmptyListsMayBeNull) {
    for (int const count : {0, -1, -5}) {
        mg_TransformPoints(nullptr, count, mgXform_c());
        mg_MultiplyXforms(nullptr, count, mgXform_c());
        mg_MultiplyXforms(nullptr, count, nullptr);
        mg_TransformPoints(nullptr, count, mg_RotateXform(1.0, V(0.0, 0.0, 1.0), 0.0));
    }
}

TEST(Bulk, TheSwitchReturnsItsPreviousValue) {
    mg_SetUseVectorUnits(2);
    EXPECT_EQ(1, mg_SetUseVectorUnits(0));
    EXPECT_EQ(0, mg_GetUseVectorUnits());
    EXPECT_EQ(0, mg_SetUseVectorUnits(-7));
    EXPECT_EQ(1, mg_GetUseVectorUnits());
}

} // namespace
