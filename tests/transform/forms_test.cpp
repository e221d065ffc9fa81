// SPDX-License-Identifier: MIT
// Graphics arrays and text forms of transforms.

#include <clocale>

#include "common/geometry.h"

namespace {

TEST(Forms, TheScaleOfAnArrayIsNotReadBack) {
    mgMatrix_c const r = mg_RotateXform(1.0, {1.0, 2.0, 3.0}, 0.0).rotation();
    mgXform_c const x = raw(r, {5e-9, -2e-9, 3e-9}, 3.0, 1);
    double wide[16];
    float narrow[16];
    x.getGLData(wide);
    x.getGLData(narrow);
    for (int k = 0; k < 16; ++k) {
        int const row = k / 4, column = k % 4;
        double const linear = row < 3 ? 3.0 * r(row, column % 3) : x.translation()[column % 3];
        double const expected = column < 3 ? linear : row / 3;
        EXPECT_BITS_EQ(expected, wide[k]) << k;
        EXPECT_EQ(static_cast<float>(expected), narrow[k]) << k;
    }
    wide[3] = wide[7] = wide[11] = wide[15] = kNaN; // ignored
    mgXform_c const made = mgXform_c::createFromGLData(wide);
    mgXform_c read = mg_ScaleXform(mg_XReflectionXform(), 4.0);
    read.addPerspectiveInfo(mgPerspInfo_c());
    EXPECT_EQ(1, read.restoreStringRep((textOf(x) + L" and more").c_str()));
    EXPECT_EQ(0, read.hasPerspective());
    for (int k = 0; k < 9; ++k) {
        EXPECT_NEAR(r[k], made.rotation()[k], 1e-15) << k;
        EXPECT_NEAR(r[k], read.rotation()[k], 1e-15) << k;
    }
    EXPECT_BITS_EQ(raw(made.rotation(), x.translation()), made);
    EXPECT_BITS_EQ(raw(read.rotation()), read); // by the copy rules
    for (int k = 0; k < 3; ++k) {               // of the third axis only the sense is read
        double axes[9] = {};
        axes[(k + 1) % 3] = axes[3 + (k + 2) % 3] = 1.0, axes[6 + k] = -1.0;
        EXPECT_EQ(1, read.restoreStringRep(textOf(raw(mgMatrix_c(axes, 0))).c_str()));
        EXPECT_BITS_EQ(mgMatrix_c(axes, 0), read.rotation());
    }
}

mgXform_c const third =
    raw(mgMatrix_c({1, 2, 3, 4, 5, 6, 7, 8, 9}, 0), {1.0 / 3.0, 2.0, -1e200}, 2.0);

void CheckRefused(std::wstring const &text, Caller = {}) {
    mgXform_c x = third;
    x.addPerspectiveInfo(mgPerspInfo_c());
    EXPECT_EQ(0, x.restoreStringRep(text.c_str())) << std::string(text.begin(), text.end());
    EXPECT_BITS_EQ(third, x);
    EXPECT_EQ(1, x.hasPerspective());
}

TEST(Forms, ATextThatIsNotSixteenNumbersChangesNothing) {
    std::wstring text;
    for (int count = 0; count < 16; ++count, text += L" 1") {
        CheckRefused(text + (count % 2 == 0 ? L"" : L" x 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0"));
    }
    EXPECT_EQ(1, mgXform_c().restoreStringRep(text.c_str()));
}

TEST(Forms, TextsFollowTheNumericLocale) {
    std::wstring const rows = L"2 4 6 0 8 10 12 0 14 16 18 0 ";
    std::wstring const withPoint = rows + L"0.3333333333333333 2 -1e+200 1";
    std::wstring const withComma = rows + L"0,3333333333333333 2 -1e+200 1";
    EXPECT_EQ(withPoint, textOf(third));
    CheckRefused(withComma);

    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr)
        GTEST_SKIP() << "no locale with a decimal comma";
    mgXform_c back;
    mgBBox_c box(P(0.0, 0.0, 0.0), P(0.5, 1.0, 1.0));
    EXPECT_EQ(withComma, textOf(third));
    EXPECT_EQ(1, back.restoreStringRep(withComma.c_str()));
    CheckRefused(withPoint);
    EXPECT_EQ(L"0 0 0 0,5 1 1", textOf(box));
    EXPECT_EQ(1, box.restoreStringRep(L"0 0 0 2,5 1 1"));
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_NEAR(1.0 / 3.0, back.translation().x(), 1e-16);
    EXPECT_EQ(2.5, box.high().x());
}

} // namespace
