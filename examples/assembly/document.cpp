// SPDX-License-Identifier: MIT
// The document: bounds and placements of a checked assembly, stored through the archive.
//
// Geometry records carry no tag, length or version of their own, so the file begins with a header
// that says what follows:
//
//     4 x BYTE   "VXAS"
//     INT        version of this layout; a reader takes its own and every earlier one
//     INT        number of parts
//     DOUBLE     clash tolerance
//     text       name of the assembly
//
// and then, part by part:
//
//     text       name
//     placement  raw form, 30 DWORDs
//     bounds     10 DOUBLEs, in the part's own coordinates
//     placed     10 DOUBLEs, in the assembly's
//
// where a text is an INT with its length and that many BYTEs of UTF-8.
//
// Placements go through `operator<<`, the raw form, and not through `mgXform_c::save`: that record
// drops the reflection flag, and a mirrored part would come back as a plain one.

#include "document.h"

#include "failure.h"
#include "output.h"

#include <sstream>
#include <utility>

#include <vexmath_platform/archive.h>

namespace example::assembly {

namespace {

char const kMagic[] = {'V', 'X', 'A', 'S'};
constexpr int kVersion = 1;

void writeText(su_CArchive &archive, std::string const &text) {
    archive << static_cast<int>(text.size());
    for (char const c : text) archive << static_cast<unsigned char>(c);
}

char readChar(su_CArchive &archive) {
    unsigned char byte = 0;
    archive >> byte;
    return static_cast<char>(byte);
}

int readInt(su_CArchive &archive) {
    int value = 0;
    archive >> value;
    return value;
}

std::string readText(su_CArchive &archive) {
    std::string text;
    for (int left = readInt(archive); left > 0; --left) text += readChar(archive);
    return text;
}

DocumentPart readPart(su_CArchive &archive) {
    DocumentPart part;
    part.name = readText(archive);
    archive >> part.placement;
    part.bounds.restore(archive);
    part.placed.restore(archive);
    return part;
}

Document readFrom(su_CArchive &archive, std::string const &file) {
    for (char const expected : kMagic) {
        if (readChar(archive) != expected) throw Failure(file, "is no assembly document");
    }
    int const version = readInt(archive);
    if (version < 1 || version > kVersion) {
        throw Failure(file, "has layout " + std::to_string(version) + ", this program reads up to "
                                + std::to_string(kVersion));
    }
    int const partCount = readInt(archive);
    Document document;
    archive >> document.clashTolerance;
    document.name = readText(archive);
    for (int i = 0; i < partCount; ++i) document.parts.push_back(readPart(archive));
    return document;
}

} // namespace

Document documentOf(AssemblyFile const &file, std::vector<Part> const &parts) {
    Document document{file.name, file.clashTolerance, {}};
    for (Part const &part : parts) {
        document.parts.push_back({part.name, part.placement, part.mesh->bounds, part.placed});
    }
    return document;
}

// Takes its argument by value: the raw form of a transform is written from an object that it may
// change, because it drops a perspective record.
std::string toBytes(Document document) {
    std::stringstream stream;
    su_CArchive archive(stream);
    for (char const c : kMagic) archive << static_cast<unsigned char>(c);
    archive << kVersion << static_cast<int>(document.parts.size()) << document.clashTolerance;
    writeText(archive, document.name);
    for (DocumentPart &part : document.parts) {
        writeText(archive, part.name);
        archive << part.placement;
        part.bounds.save(archive);
        part.placed.save(archive);
    }
    return stream.str();
}

Document readDocument(std::string const &file) {
    std::stringstream stream(readFile(file));
    su_CArchive archive(stream);
    try {
        Document document = readFrom(archive, file);
        if (stream.peek() != std::stringstream::traits_type::eof()) {
            throw Failure(file, "goes on after its last part");
        }
        return document;
    } catch (su_CArchiveError const &error) {
        throw Failure(file, std::string("is cut short: ") + error.what());
    }
}

} // namespace example::assembly
