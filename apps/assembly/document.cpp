// SPDX-License-Identifier: MIT
// The document: a checked assembly, stored through the archive.
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
// Then, from layout 2 on, the pairs of parts that clash, those that touch and those of which the
// first contains the second, each as
//
//     INT        number of pairs
//     2 x INT    for each pair: its parts, counted from 0
//
// and the drilling path and the drilling tour, each as
//
//     INT        number of bolts
//     INT        for each bolt: its part, counted from 0
//     DOUBLE     length
//
// A text is an INT with its length and that many BYTEs of UTF-8.
//
// Placements use `operator<<`, the raw form, because the record of `mgXform_c::save` drops the
// reflection flag: a mirrored part would come back as a plain one.

#include "document.h"

#include "files.h"
#include "report.h"

#include <sstream>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

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

void writePairs(su_CArchive &archive, std::vector<PartPair> const &pairs) {
    archive << static_cast<int>(pairs.size());
    for (auto const &[first, second] : pairs) {
        archive << static_cast<int>(first) << static_cast<int>(second);
    }
}

/// The number of a part, of so many.
std::size_t readPartNumber(su_CArchive &archive, std::size_t count, std::string const &file) {
    int const number = readInt(archive);
    bool const isPart = number >= 0 && static_cast<std::size_t>(number) < count;
    if (!isPart) throw Failure(file, "is damaged: it names a part that is not there");
    return static_cast<std::size_t>(number);
}

std::vector<PartPair> readPairs(su_CArchive &archive, std::size_t partCount,
                                std::string const &file) {
    std::vector<PartPair> pairs;
    for (int left = readInt(archive); left > 0; --left) {
        std::size_t const first = readPartNumber(archive, partCount, file);
        pairs.push_back({first, readPartNumber(archive, partCount, file)});
    }
    return pairs;
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
        Contacts &contacts = document.contacts.emplace();
        contacts.clashing = readPairs(archive, document.parts.size(), file);
        contacts.touching = readPairs(archive, document.parts.size(), file);
        contacts.containing = readPairs(archive, document.parts.size(), file);
        document.drillingPath = readOrder(archive);
        document.drillingTour = readOrder(archive);
    }
    return document;
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

bool isPlacedAlike(DocumentPart const &a, Part const &b) {
    return a.placement.equals(b.placement)
           && a.placement.isReflection() == b.placement.isReflection();
}

/// The spheres are not compared: they depend on the order of the vertices.
bool hasSameBounds(DocumentPart const &a, Part const &b) {
    return a.bounds.low() == b.mesh->bounds.low() && a.bounds.high() == b.mesh->bounds.high();
}

} // namespace

Document documentOf(Assembly const &assembly, CheckResult const &result) {
    Document document{
        assembly.name,   assembly.clashTolerance,       {},
        result.contacts, orderOf(result.drilling.path), orderOf(result.drilling.tour)};
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
    Contacts const contacts = document.contacts.value_or(Contacts());
    writePairs(archive, contacts.clashing);
    writePairs(archive, contacts.touching);
    writePairs(archive, contacts.containing);
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

std::vector<std::string> changesBetween(Document const &earlier, Assembly const &now) {
    std::unordered_map<std::string_view, DocumentPart const *> before;
    for (DocumentPart const &part : earlier.parts) before.emplace(part.name, &part);
    std::unordered_set<std::string_view> names;
    std::vector<std::string> changes;
    if (earlier.clashTolerance != now.clashTolerance) {
        changes.push_back(fmt::format("the clash tolerance is {} and was {}",
                                      number(now.clashTolerance), number(earlier.clashTolerance)));
    }
    for (Part const &part : now.parts) {
        names.insert(part.name);
        auto const found = before.find(part.name);
        if (found == before.end()) {
            changes.push_back(part.name + " is new");
            continue;
        }
        DocumentPart const &old = *found->second;
        if (!isPlacedAlike(old, part)) changes.push_back(part.name + " is placed differently");
        if (!hasSameBounds(old, part)) changes.push_back(part.name + " has another shape");
    }
    for (DocumentPart const &part : earlier.parts) {
        if (names.count(part.name) == 0) changes.push_back(part.name + " is gone");
    }
    return changes;
}

} // namespace assembly
