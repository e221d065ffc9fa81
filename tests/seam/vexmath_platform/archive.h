// SPDX-License-Identifier: MIT
// A host's archive: bytes in memory, no standard stream anywhere, and the base a mere alias.

#pragma once

#include <cstddef>
#include <cstring>
#include <vector>

namespace host {

class Document {
public:
    virtual ~Document() = default;
    std::vector<unsigned char> bytes;
    std::size_t readPosition = 0;
};

class BinaryDocument : public Document {
public:
    BinaryDocument &operator<<(unsigned char value) { return put(value); }
    BinaryDocument &operator<<(int value) { return put(value); }
    BinaryDocument &operator<<(unsigned long value) { return put(value); }
    BinaryDocument &operator<<(double value) { return put(value); }
    BinaryDocument &operator>>(unsigned char &value) { return take(value); }
    BinaryDocument &operator>>(int &value) { return take(value); }
    BinaryDocument &operator>>(unsigned long &value) { return take(value); }
    BinaryDocument &operator>>(double &value) { return take(value); }

private:
    template <class T>
    BinaryDocument &put(T value) {
        auto const *first = reinterpret_cast<unsigned char const *>(&value);
        bytes.insert(bytes.end(), first, first + sizeof value);
        return *this;
    }
    template <class T>
    BinaryDocument &take(T &value) {
        std::memcpy(&value, bytes.data() + readPosition, sizeof value);
        readPosition += sizeof value;
        return *this;
    }
};

} // namespace host

using CArchive = host::Document;
using su_CArchive = host::BinaryDocument;
