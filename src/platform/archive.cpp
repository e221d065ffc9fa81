// SPDX-License-Identifier: MIT
// The default archive: little-endian items over a standard stream.

#include <vexmath_platform/archive.h>

#include <cstdint>
#include <cstring>
#include <istream>
#include <ostream>

namespace {

/// An item of the stream: its name in error messages, and its size.
struct ItemType {
    char const *name;
    int bytes;
};

constexpr ItemType byteItem{"BYTE", 1};
constexpr ItemType intItem{"INT", 4};
constexpr ItemType dwordItem{"DWORD", 4};
constexpr ItemType doubleItem{"DOUBLE", 8};

constexpr int maxItemBytes = 8;

std::string describe(ItemType type) {
    return std::string(type.name) + " of " + std::to_string(type.bytes) + " bytes";
}

void put(std::ostream &stream, ItemType type, std::uint64_t bits) {
    char bytes[maxItemBytes] = {};
    for (int i = 0; i < type.bytes; ++i)
        bytes[i] = static_cast<char>(static_cast<unsigned char>(bits >> (8 * i)));
    if (!stream.write(bytes, type.bytes))
        throw su_CArchiveError("archive: cannot write a " + describe(type));
}

std::uint64_t take(std::istream &stream, ItemType type) {
    char bytes[maxItemBytes];
    if (!stream.read(bytes, type.bytes))
        throw su_CArchiveError("archive: the stream ends or fails in a " + describe(type) + ", "
                               + std::to_string(stream.gcount()) + " read");
    std::uint64_t bits = 0;
    for (int i = 0; i < type.bytes; ++i)
        bits |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return bits;
}

} // namespace

su_CArchiveError::su_CArchiveError(std::string const &what) : std::runtime_error(what) {}
su_CArchiveError::su_CArchiveError(su_CArchiveError const &) = default;
su_CArchiveError &su_CArchiveError::operator=(su_CArchiveError const &) = default;
su_CArchiveError::~su_CArchiveError() = default;

CArchive::CArchive() = default;
CArchive::~CArchive() = default;

su_CArchive::su_CArchive(std::iostream &stream) : stream_(stream) {}
su_CArchive::~su_CArchive() = default;

su_CArchive &su_CArchive::operator<<(unsigned char value) {
    put(stream_, byteItem, value);
    return *this;
}

su_CArchive &su_CArchive::operator<<(int value) {
    put(stream_, intItem, static_cast<std::uint32_t>(value));
    return *this;
}

su_CArchive &su_CArchive::operator<<(unsigned long value) {
    put(stream_, dwordItem, value);
    return *this;
}

su_CArchive &su_CArchive::operator<<(double value) {
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof value, "a DOUBLE has eight bytes");
    std::memcpy(&bits, &value, sizeof bits);
    put(stream_, doubleItem, bits);
    return *this;
}

su_CArchive &su_CArchive::operator>>(unsigned char &value) {
    value = static_cast<unsigned char>(take(stream_, byteItem));
    return *this;
}

su_CArchive &su_CArchive::operator>>(int &value) {
    value = static_cast<std::int32_t>(static_cast<std::uint32_t>(take(stream_, intItem)));
    return *this;
}

su_CArchive &su_CArchive::operator>>(unsigned long &value) {
    value = static_cast<unsigned long>(take(stream_, dwordItem));
    return *this;
}

su_CArchive &su_CArchive::operator>>(double &value) {
    std::uint64_t const bits = take(stream_, doubleItem);
    std::memcpy(&value, &bits, sizeof value);
    return *this;
}
