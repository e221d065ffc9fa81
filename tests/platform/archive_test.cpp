// SPDX-License-Identifier: MIT
// The default archive: the bytes of an item, and what happens when the stream fails. Records of all
// items: fuzz/fuzz_archive.cpp and abi/released_test.cpp.

#include <vexmath_platform/archive.h>

#include "common/numbers.h"

namespace {

template <class T>
std::string stored(T value) {
    std::stringstream stream;
    su_CArchive(stream) << value;
    return stream.str();
}

std::string bytes(std::initializer_list<int> values) { return {values.begin(), values.end()}; }

TEST(Archive, ItemsAreLittleEndianAndOfFixedWidth) {
    EXPECT_EQ(bytes({0x04, 0x03, 0x02, 0x01}), stored(0x01020304));
    EXPECT_EQ(bytes({0xFE, 0xFF, 0xFF, 0xFF}), stored(-2));
    EXPECT_EQ(bytes({0xFE, 0xFF, 0xFF, 0xFF}), stored(0xFFFFFFFEul));
    EXPECT_EQ(bytes({0xFF}), stored(static_cast<unsigned char>(255)));
    EXPECT_EQ(bytes({0, 0, 0, 0, 0, 0, 0xF8, 0xBF}), stored(-1.5));
}

TEST(Archive, AStreamThatFailsThrowsAndLeavesTheItem) {
    std::stringstream stream("abc");
    int item = 42;
    EXPECT_THROW(su_CArchive(stream) >> item, su_CArchiveError);
    EXPECT_EQ(42, item);
    EXPECT_THROW(su_CArchive(stream) << 1, su_CArchiveError);
}

} // namespace
