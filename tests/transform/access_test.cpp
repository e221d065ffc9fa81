// SPDX-License-Identifier: MIT
// The plain members of transforms and perspective records.

#include <vexmath/mg_transform.h>

#include "support/geometry.h"

TEST(TransformAccess, AxesAreColumnsAndWithAnIRows) {
    double const elements[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    mgXform_c const x = vexmath::detail::makeXform(mgMatrix_c(elements, 0), mgVector_c());
    mgUnitVector_c axis;
    x.getYAxis(&axis);
    EXPECT_BITS_EQ(mgPoint_c(2, 5, 8), axis);
    x.getIZAxis(&axis);
    EXPECT_BITS_EQ(mgPoint_c(7, 8, 9), axis);
}

TEST(TransformAccess, TheOrderOfTheErrorSumOnlyRounds) {
    mgUnitVector_c const rows[3] = {{1, 1e-9, 0}, {0, 1, 1e-9}, {1e-9, 0, 1}};
    mgMatrix_c const plain(0, rows[0], rows[1], rows[2]);
    mgMatrix_c const other(1, rows[0], rows[1], rows[2]);
    for (int k = 0; k < 9; ++k) EXPECT_NEAR(plain[k], other[k], 1e-15);
    EXPECT_BITS_EQ(mgMatrix_c(rows[0], rows[1], rows[2]), plain);
}

TEST(TransformAccess, RepairsOfTheRotationReachTheTransform) {
    double const nearly[9] = {0.999999995, 5e-9, 0, -5e-9, 0.999999995, 0, 0, 0, 1};
    mgXform_c x = vexmath::detail::makeXform(mgMatrix_c(nearly, 0), mgVector_c());
    EXPECT_EQ(x.iValidateRepairRotationMatrix(), 1);
    EXPECT_EQ(x.rotation()(0, 0), 1.0);
    mgXform_64BitHelper_c plain;
    x.GetHelper(plain);
    EXPECT_BITS_EQ(x.rotation(), plain.rotation);
    EXPECT_EQ(plain.perspective, nullptr);
}

TEST(TransformAccess, PerspectivesCompareThroughTheTransformAndKeepTheirMembers) {
    mgPerspInfo_c info(1, 2, 3, 4);
    info.setMinFarClipPlaneDistance(5);
    EXPECT_EQ(info.getMinFarClipPlaneDistance(), 5.0);
    mgPoint_c eye;
    info.getEyePoint(&eye);
    EXPECT_BITS_EQ(mgPoint_c(1, 2, 3), eye);
    mgXform_c with;
    with.addPerspectiveInfo(info);
    EXPECT_EQ(with.iIsPerspectiveEqual(with), 1);
    EXPECT_EQ(with.iIsPerspectiveEqual(mgXform_c()), 0);
    EXPECT_EQ(mgXform_c().iIsPerspectiveEqual(mgXform_c()), 1);

    mgModelPerspInfo_c model(1, 2, 3, 4);
    model.setModelViewDir(mgUnitVector_c::xAxis());
    mgPoint_c focus;
    model.getFocusPoint(&focus);
    EXPECT_BITS_EQ(mgPoint_c(5, 2, 3), focus);
    info.getFocusPoint(&focus);
    EXPECT_BITS_EQ(mgPoint_c(1, 2, 7), focus);
    EXPECT_BITS_EQ(mgUnitVector_c::xAxis(), model.getModelViewDir());
}
