// SPDX-License-Identifier: MIT
// The default archive: the bytes of each item, and what happens when the stream fails.

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

/// Reads the value back to the bit, and refuses every shorter stream without touching the target.
template <class T>
void CheckRoundTrip(T value, std::size_t size) {
    std::string const whole = stored(value);
    ASSERT_EQ(size, whole.size());
    std::stringstream stream(whole);
    T back{};
    su_CArchive(stream) >> back;
    EXPECT_EQ(0, std::memcmp(&value, &back, sizeof value));

    while (size-- > 0) {
        std::stringstream cut(whole.substr(0, size));
        back = T{42};
        EXPECT_THROW(su_CArchive(cut) >> back, su_CArchiveError) << size;
        EXPECT_EQ(T{42}, back) << size;
    }
}

TEST(Archive, ItemsAreLittleEndianAndOfFixedWidth) {
    EXPECT_EQ(bytes({0x04, 0x03, 0x02, 0x01}), stored(0x01020304));
    EXPECT_EQ(bytes({0xFE, 0xFF, 0xFF, 0xFF}), stored(-2));
    EXPECT_EQ(bytes({0, 0, 0, 0, 0, 0, 0xF8, 0xBF}), stored(-1.5));
}

TEST(Archive, ItemsReadBackToTheBitAndNeverShort) {
    CheckRoundTrip(static_cast<unsigned char>(255), 1);
    CheckRoundTrip(std::numeric_limits<int>::min(), 4), CheckRoundTrip(0xFFFFFFFFul, 4);
    CheckRoundTrip(std::nan("0x5ca1e"), 8);
    std::stringstream full;
    full.setstate(std::ios::badbit);
    EXPECT_THROW(su_CArchive(full) << 1, su_CArchiveError);
}

} // namespace
