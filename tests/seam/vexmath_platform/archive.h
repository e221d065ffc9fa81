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

class BinaryDocument : public Document {};

template <class T>
BinaryDocument &operator<<(BinaryDocument &document, T const &value) {
    auto const *first = reinterpret_cast<unsigned char const *>(&value);
    document.bytes.insert(document.bytes.end(), first, first + sizeof value);
    return document;
}

template <class T>
BinaryDocument &operator>>(BinaryDocument &document, T &value) {
    std::memcpy(&value, document.bytes.data() + document.readPosition, sizeof value);
    document.readPosition += sizeof value;
    return document;
}

} // namespace host

using CArchive = host::Document;
using su_CArchive = host::BinaryDocument;
