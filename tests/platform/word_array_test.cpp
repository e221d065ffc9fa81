// SPDX-License-Identifier: MIT
// The default word array.

#include <vexmath_platform/word_array.h>

#include <gtest/gtest.h>

namespace {

TEST(WordArray, KeepsInsertionOrder) {
    su_CDWordArray array;
    EXPECT_EQ(0, array.Add(7));
    EXPECT_EQ(1, array.Add(0xFFFFFFFF));
    array.RemoveAt(0);
    su_CDWordArray copy;
    copy.Copy(array);
    copy.Copy(copy);
    array.RemoveAll();
    EXPECT_EQ(0, array.GetSize());
    ASSERT_EQ(1, copy.GetSize());
    EXPECT_EQ(0xFFFFFFFF, copy[0]);
}

} // namespace
