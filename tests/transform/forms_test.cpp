// SPDX-License-Identifier: MIT
// Graphics arrays and text forms of transforms.

#include <vexmath/bbox.h>
#include <vexmath/mg_transform.h>

#include "support/numbers.h"

#include <algorithm>
#include <clocale>
#include <string>

#include <gtest/gtest.h>

namespace {

using support::Random;

template <class T>
std::wstring textOf(T const &object) {
    CString text;
    object.saveStringRep(text);
    return static_cast<wchar_t const *>(text);
}

TEST(Forms, AnArrayHoldsTheScaledRowsAndTheTranslation) {
    double const rows[9] = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9};
    mgXform_c const x = mg_RestoreXform(mgMatrix_c(rows, 0), {1.5, 1e30, -7.0}, 3.0);
    double const expected[16] = {3 * 0.1, 3 * 0.2, 3 * 0.3, 0, 3 * 0.4, 3 * 0.5, 3 * 0.6, 0,
                                 3 * 0.7, 3 * 0.8, 3 * 0.9, 0, 1.5,     1e30,    -7,      1};
    double wide[16];
    float narrow[16];
    x.getGLData(wide);
    x.getGLData(narrow);
    for (int k = 0; k < 16; ++k) {
        EXPECT_BITS_EQ(expected[k], wide[k]) << k;
        EXPECT_EQ(static_cast<float>(expected[k]), narrow[k]) << k;
    }
}

TEST(Forms, TheScaleOfAnArrayIsNotReadBack) {
    Random random;
    for (int i = 0; i < 200; ++i) {
        mgXform_c const frame(random.triple<mgUnitVector_c>(-1.0, 1.0),
                              random.triple<mgUnitVector_c>(-1.0, 1.0), {1.0, -2.0, 3e-9});
        mgXform_c x = mg_RestoreXform(frame.rotation(), frame.translation(), 1.0 + i);
        x.setReflection(1);
        double gl[16];
        x.getGLData(gl);
        gl[3] = gl[7] = gl[11] = gl[15] = std::nan(""); // of no account
        mgXform_c const back = mgXform_c::createFromGLData(gl);
        mgXform_c read = mg_ScaleXform(4.0);
        ASSERT_EQ(1, read.restoreStringRep(textOf(x).c_str()));
        for (mgXform_c const &rigid : {back, read}) {
            EXPECT_EQ(1.0, rigid.scaling());
            EXPECT_EQ(0, rigid.isReflection());
            EXPECT_BITS_EQ(x.translation(), rigid.translation());
            for (int k = 0; k < 9; ++k) ASSERT_NEAR(x.rotation()[k], rigid.rotation()[k], 1e-15);
        }
    }
}

TEST(Forms, OnlyReadingATextFollowsTheCopyRules) {
    double const gl[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5e-9, 0, 0, 1};
    mgXform_c const made = mgXform_c::createFromGLData(gl);
    EXPECT_EQ(0, made.rotate());
    EXPECT_EQ(5e-9, made.translation().x());
    mgXform_c x;
    x.addPerspectiveInfo(mgPerspInfo_c());
    EXPECT_EQ(L"1 0 0 0 0 1 0 0 0 0 1 0 5e-09 0 0 1", textOf(made));
    EXPECT_EQ(1, x.restoreStringRep((textOf(made) + L" and more").c_str()));
    EXPECT_EQ(0.0, x.translation().x());
    EXPECT_EQ(0, x.hasPerspective());
}

void CheckRefused(std::wstring const &text) {
    mgXform_c x = mg_ScaleXform(mg_TranslateXform({1.0 / 3.0, 2.0, -1e200}), 2.0);
    x.addPerspectiveInfo(mgPerspInfo_c());
    std::wstring const before = textOf(x);
    EXPECT_EQ(0, x.restoreStringRep(text.c_str())) << std::string(text.begin(), text.end());
    EXPECT_EQ(before, textOf(x));
    EXPECT_EQ(1, x.hasPerspective());
}

TEST(Forms, ATextThatIsNotSixteenNumbersChangesNothing) {
    std::wstring text;
    for (int count = 0; count < 16; ++count) {
        CheckRefused(text);
        CheckRefused(text + L" x 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0");
        text += L" 1";
    }
    mgXform_c x;
    EXPECT_EQ(1, x.restoreStringRep(text.c_str()));
}

TEST(Forms, TextsFollowTheNumericLocale) {
    mgXform_c const x = mg_ScaleXform(mg_TranslateXform({1.0 / 3.0, 2.0, -1e200}), 2.0);
    mgBBox_c const box(mgPoint_c(0.0, 0.0, 0.0), mgPoint_c(0.5, 1.0, 1.0));
    std::wstring const withPoint = L"2 0 0 0 0 2 0 0 0 0 2 0 0.3333333333333333 2 -1e+200 1";
    std::wstring withComma = withPoint;
    std::replace(withComma.begin(), withComma.end(), L'.', L',');
    EXPECT_EQ(withPoint, textOf(x));
    CheckRefused(withComma);

    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr)
        GTEST_SKIP() << "no locale with a decimal comma";
    mgXform_c back;
    mgBBox_c backBox;
    EXPECT_EQ(withComma, textOf(x));
    EXPECT_EQ(1, back.restoreStringRep(withComma.c_str()));
    EXPECT_EQ(L"0 0 0 0,5 1 1", textOf(box));
    EXPECT_EQ(1, backBox.restoreStringRep(L"0 0 0 0,5 1 1"));
    CheckRefused(withPoint);
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_NEAR(1.0 / 3.0, back.translation().x(), 1e-16);
    EXPECT_EQ(0.5, backBox.high().x());
}

} // namespace
