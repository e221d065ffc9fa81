// SPDX-License-Identifier: MIT
// The document: bounds, placements, stock and drilling of a checked assembly, stored through the
// archive.
//
// Geometry records carry no tag, length or version of their own, so the file begins with a header:
//
//     4 x BYTE   "VXAS"
//     INT        version of this layout; a reader accepts its own and every earlier one
//     INT        number of parts
//     DOUBLE     clash tolerance
//     text       name of the assembly
//
// Then, part by part:
//
//     text       name
//     placement  raw form, 30 DWORDs
//     bounds     10 DOUBLEs, in the part's own coordinates
//     placed     10 DOUBLEs, in the assembly's
//     stock      4 DOUBLEs: length, width, height, angle in degrees; from layout 2 on
//
// Then, from layout 2 on, the drilling path and the drilling tour, each as
//
//     INT        number of bolts
//     INTs       their parts, counted from 0, in the order of drilling
//     DOUBLE     length
//
// A text is an INT with its length and that many BYTEs of UTF-8.
//
// Placements use `operator<<`, the raw form, because the record of `mgXform_c::save` drops the
// reflection flag: a mirrored part would come back as a plain one.

#include "document.h"

#include "files.h"

#include <algorithm>
#include <sstream>

#include <fmt/core.h>

#include <vexmath_platform/archive.h>

namespace assembly {

namespace {

char const kMagic[] = {'V', 'X', 'A', 'S'};
constexpr int kVersion = 2;

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

DocumentOrder readOrder(su_CArchive &archive) {
    DocumentOrder order;
    for (int left = readInt(archive); left > 0; --left) order.bolts.push_back(readInt(archive));
    archive >> order.length;
    return order;
}

void writeOrder(su_CArchive &archive, DocumentOrder const &order) {
    archive << static_cast<int>(order.bolts.size());
    for (int const bolt : order.bolts) archive << bolt;
    archive << order.length;
}

DocumentPart readPart(su_CArchive &archive, int version) {
    DocumentPart part;
    part.name = readText(archive);
    archive >> part.placement;
    part.bounds.restore(archive);
    part.placed.restore(archive);
    if (version > 1) {
        DocumentStock &stock = part.stock.emplace();
        archive >> stock.length >> stock.width >> stock.height >> stock.angleDegrees;
    }
    return part;
}

Document readFrom(su_CArchive &archive, std::string const &file) {
    for (char const expected : kMagic) {
        if (readChar(archive) != expected) throw Failure(file, "is no assembly document");
    }
    int const version = readInt(archive);
    if (version < 1 || version > kVersion) {
        throw Failure(file,
                      fmt::format("has layout {}, this program reads up to {}", version, kVersion));
    }
    int const partCount = readInt(archive);
    Document document;
    archive >> document.clashTolerance;
    document.name = readText(archive);
    for (int i = 0; i < partCount; ++i) document.parts.push_back(readPart(archive, version));
    if (version > 1) {
        document.drillingPath = readOrder(archive);
        document.drillingTour = readOrder(archive);
    }
    return document;
}

DocumentPart const *find(Document const &document, std::string const &name) {
    auto const found =
        std::find_if(document.parts.begin(), document.parts.end(),
                     [&name](DocumentPart const &part) { return part.name == name; });
    return found == document.parts.end() ? nullptr : &*found;
}

DocumentStock stockOf(Part const &part) {
    Stock const &stock = part.mesh->stock;
    double const scale = part.placement.scaling();
    return {scale * stock.length, scale * stock.width, scale * stock.height, stock.angleDegrees};
}

DocumentOrder orderOf(DrillingOrder const &drilling) {
    DocumentOrder order{{}, drilling.length};
    for (std::size_t const bolt : drilling.bolts) order.bolts.push_back(static_cast<int>(bolt));
    return order;
}

bool isPlacedAlike(DocumentPart const &a, DocumentPart const &b) {
    return a.placement.equals(b.placement)
           && a.placement.isReflection() == b.placement.isReflection();
}

/// The spheres are not compared: they depend on the order of the vertices.
bool hasSameBounds(DocumentPart const &a, DocumentPart const &b) {
    return a.bounds.low() == b.bounds.low() && a.bounds.high() == b.bounds.high();
}

} // namespace

Document documentOf(Assembly const &assembly, Drilling const &drilling) {
    Document document{
        assembly.name, assembly.clashTolerance, {}, orderOf(drilling.path), orderOf(drilling.tour)};
    for (Part const &part : assembly.parts) {
        document.parts.push_back(
            {part.name, part.placement, part.mesh->bounds, part.placed, stockOf(part)});
    }
    return document;
}

// Takes its argument by value: writing the raw form of a transform drops its perspective record, so
// the operator asks for an object that it may change.
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
        DocumentStock const stock = part.stock.value_or(DocumentStock{});
        archive << stock.length << stock.width << stock.height << stock.angleDegrees;
    }
    writeOrder(archive, document.drillingPath);
    writeOrder(archive, document.drillingTour);
    return stream.str();
}

Document readDocument(std::string const &file) {
    std::stringstream stream(readFile(file));
    su_CArchive archive(stream);
    try {
        Document document = readFrom(archive, file);
        bool const isAtEnd = stream.peek() == std::stringstream::traits_type::eof();
        if (!isAtEnd) throw Failure(file, "goes on after its last part");
        return document;
    } catch (su_CArchiveError const &error) {
        throw Failure(file, std::string("is cut short: ") + error.what());
    }
}

std::vector<std::string> changesBetween(Document const &earlier, Document const &now) {
    std::vector<std::string> changes;
    for (DocumentPart const &part : now.parts) {
        DocumentPart const *const before = find(earlier, part.name);
        if (before == nullptr) {
            changes.push_back(part.name + " is new");
            continue;
        }
        if (!isPlacedAlike(*before, part)) changes.push_back(part.name + " is placed differently");
        if (!hasSameBounds(*before, part)) changes.push_back(part.name + " has another shape");
    }
    for (DocumentPart const &part : earlier.parts) {
        if (find(now, part.name) == nullptr) changes.push_back(part.name + " is gone");
    }
    return changes;
}

} // namespace assembly
