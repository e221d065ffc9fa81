// SPDX-License-Identifier: MIT
// Damage of mesh files that the library that reads them accepts silently.

#include "mesh.h"

#include "files.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>

#include <fmt/core.h>

namespace assembly {

namespace {

std::string inSmallLetters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

[[noreturn]] void failCutShort(std::string const &file, std::string const &what) {
    throw Failure(file, "is cut short: " + what);
}

/// An unsigned number of `size` bytes. REQUIRES these bytes to be there.
std::uint64_t unsignedAt(std::string const &bytes, std::size_t at, std::size_t size,
                         bool bigEndian) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) {
        std::size_t const place = bigEndian ? at + i : at + size - 1 - i;
        value = value << 8U | static_cast<unsigned char>(bytes[place]);
    }
    return value;
}

// What each format can hide from the mesh library. OBJ: lines of text. Only vertices that a face
// uses reach its result.

void checkObj(std::string const &bytes, std::string const &file) {
    std::istringstream in(bytes);
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        std::istringstream words(line);
        std::string word;
        if (!(words >> word) || word != "v") continue;
        for (int i = 0; i < 3 && words >> word; ++i) {
            if (std::isfinite(std::strtof(word.c_str(), nullptr))) continue;
            throw Failure(file, fmt::format("line {}: every coordinate must be finite, not {}",
                                            number, word));
        }
    }
}

// PLY: a header of text that declares the elements of the body, which is text or binary.

struct PlyProperty {
    std::size_t countSize = 0; ///< bytes of a list's number of entries; 0 for a single value
    std::size_t valueSize = 0;
};

struct PlyElement {
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;
};

struct PlyHeader {
    std::string format;
    std::vector<PlyElement> elements;
};

std::size_t sizeOfType(std::string const &type, std::string const &file) {
    static std::map<std::string, std::size_t> const sizes = {
        {"char", 1},  {"uchar", 1},  {"short", 2}, {"ushort", 2}, {"int", 4},     {"uint", 4},
        {"float", 4}, {"double", 8}, {"int8", 1},  {"uint8", 1},  {"int16", 2},   {"uint16", 2},
        {"int32", 4}, {"uint32", 4}, {"int64", 8}, {"uint64", 8}, {"float32", 4}, {"float64", 8}};
    auto const found = sizes.find(type);
    if (found == sizes.end()) throw Failure(file, "no mesh: unknown type \"" + type + "\"");
    return found->second;
}

PlyProperty readProperty(std::istream &words, std::string const &file) {
    std::string type;
    words >> type;
    if (type != "list") return {0, sizeOfType(type, file)};
    std::string countType;
    words >> countType >> type;
    return {sizeOfType(countType, file), sizeOfType(type, file)};
}

/// Reads up to the body. Without this check the mesh library never returns from a header without
/// an end.
PlyHeader readHeader(std::istream &in, std::string const &file) {
    PlyHeader header;
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "end_header") return header;
        if (word == "format") {
            words >> header.format;
        } else if (word == "element") {
            PlyElement element;
            words >> word >> element.count;
            header.elements.push_back(element);
        } else if (word == "property" && !header.elements.empty()) {
            header.elements.back().properties.push_back(readProperty(words, file));
        }
    }
    throw Failure(file, "no mesh: the header has no end");
}

/// How many elements of a text body lack their line.
std::uint64_t missingLines(std::istream &body, PlyHeader const &header) {
    std::uint64_t missing = 0;
    for (PlyElement const &element : header.elements) missing += element.count;
    std::string line;
    while (missing > 0 && std::getline(body, line)) {
        if (line.find_first_not_of(" \t\r") != std::string::npos) --missing;
    }
    return missing;
}

/// Where a binary element that begins at `at` ends, or npos when the bytes end before.
std::size_t endOfElement(std::string const &bytes, std::size_t at, PlyElement const &element,
                         bool bigEndian) {
    for (PlyProperty const &property : element.properties) {
        std::uint64_t count = 1;
        if (property.countSize > 0) {
            if (bytes.size() - at < property.countSize) return std::string::npos;
            count = unsignedAt(bytes, at, property.countSize, bigEndian);
            at += property.countSize;
        }
        if ((bytes.size() - at) / property.valueSize < count) return std::string::npos;
        at += static_cast<std::size_t>(count) * property.valueSize;
    }
    return at;
}

/// How many elements of a binary body that begins at `at` lack some of their bytes.
std::uint64_t missingElements(std::string const &bytes, std::size_t at, PlyHeader const &header) {
    bool const bigEndian = header.format == "binary_big_endian";
    std::uint64_t missing = 0;
    for (PlyElement const &element : header.elements) {
        if (element.properties.empty()) continue; // no bytes
        for (std::uint64_t i = 0; i < element.count; ++i) {
            if (at != std::string::npos) at = endOfElement(bytes, at, element, bigEndian);
            if (at != std::string::npos) continue;
            missing += element.count - i;
            break;
        }
    }
    return missing;
}

void checkPly(std::string const &bytes, std::string const &file) {
    std::istringstream in(bytes);
    PlyHeader const header = readHeader(in, file);
    std::uint64_t const missing =
        header.format == "ascii"
            ? missingLines(in, header)
            : missingElements(bytes, static_cast<std::size_t>(in.tellg()), header);
    if (missing == 0) return;
    failCutShort(file, fmt::format("{} of the elements it declares are missing", missing));
}

// STL: text between "solid" and "endsolid", or a number of triangles and their bytes.

/// Does the text begin with this word of small letters, after blanks and whatever its case?
bool beginsWith(std::string const &text, std::string const &word) {
    std::size_t const first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return false;
    return inSmallLetters(text.substr(first, word.size())) == word;
}

void checkTextStl(std::string const &bytes, std::string const &file) {
    std::size_t const end = bytes.find_last_not_of(" \t\r\n");
    std::size_t const lastLine = bytes.find_last_of("\r\n", end);
    bool const isWhole =
        lastLine != std::string::npos && beginsWith(bytes.substr(lastLine + 1), "endsolid");
    if (!isWhole) failCutShort(file, "its last line is not endsolid");
}

void checkBinaryStl(std::string const &bytes, std::string const &file) {
    constexpr std::size_t kHeader = 80; // bytes before the number of triangles
    constexpr std::size_t kCount = 4;
    constexpr std::size_t kTriangle = 50;
    if (bytes.size() < kHeader + kCount) failCutShort(file, "it has no number of triangles");
    std::uint64_t const declared = unsignedAt(bytes, kHeader, kCount, false);
    std::uint64_t const held = (bytes.size() - kHeader - kCount) / kTriangle;
    if (held >= declared) return;
    failCutShort(file, fmt::format("{} of the triangles it declares are missing", declared - held));
}

void checkStl(std::string const &bytes, std::string const &file) {
    bool const isText = bytes.find('\0') == std::string::npos && beginsWith(bytes, "solid");
    isText ? checkTextStl(bytes, file) : checkBinaryStl(bytes, file);
}

} // namespace

std::string formatOf(std::filesystem::path const &file) {
    std::string const format = inSmallLetters(file.extension().string());
    if (format != ".obj" && format != ".stl" && format != ".ply") {
        throw Failure(file.string(), "is no known kind of mesh: .obj, .stl and .ply are");
    }
    return format.substr(1);
}

void refuseDamage(std::string const &bytes, std::string const &format, std::string const &file) {
    if (format == "obj") checkObj(bytes, file);
    if (format == "ply") checkPly(bytes, file);
    if (format == "stl") checkStl(bytes, file);
}

} // namespace assembly
