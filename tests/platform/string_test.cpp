// SPDX-License-Identifier: MIT
// The default wide string and the dump sink.

#include <vexmath_platform/dump_context.h>
#include <vexmath_platform/point.h>
#include <vexmath_platform/string.h>
#include <vexmath_platform/word_array.h>

#include "common/numbers.h"

namespace {

std::wstring text(CString const &string) { return static_cast<wchar_t const *>(string); }

TEST(String, FormatNeverCuts) {
    CString string;
    // Around the first size of the buffer, and far beyond it.
    for (int length : {1, 510, 511, 512, 513, 1023, 1024, 1000000, 1048575}) {
        string.Format(L"%*d", length, 7);
        EXPECT_EQ(length, string.GetLength());
        EXPECT_EQ(L'7', text(string).back());
    }
}

TEST(String, FormatMayUseItsOwnText) {
    CString string(L"ab");
    string.Format(L"<%ls>", static_cast<wchar_t const *>(string));
    EXPECT_EQ(L"<ab>", text(string));
    string.Format(L"%*d", 1100000, 7); // too much
    EXPECT_EQ(0, string.GetLength());
    EXPECT_EQ(0, CString(nullptr).GetLength());
}

TEST(Words, AreNumberedInTheirOrder) {
    su_CDWordArray words;
    for (unsigned k = 0; k < 4; ++k) EXPECT_EQ(static_cast<int>(k), words.Add(7 + k));
    words.RemoveAt(1);
    EXPECT_EQ(3, words.GetSize());
    EXPECT_EQ(9u, words[1]);
    EXPECT_EQ(0, CPoint().x | CPoint().y);
}

TEST(DumpContext, WritesTextInOrderAndSkipsNull) {
    std::wostringstream stream;
    CDumpContext(stream) << L"(1" << nullptr << L",2)";
    EXPECT_EQ(L"(1,2)", stream.str());
}

} // namespace
