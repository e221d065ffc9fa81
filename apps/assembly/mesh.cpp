// SPDX-License-Identifier: MIT
// Meshes, read from OBJ, STL and PLY files.

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
#include <utility>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <fmt/core.h>

#include <vexmath/bulk.h>
#include <vexmath/mg_planar.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace {

std::string inSmallLetters(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// "obj", "stl" or "ply", by the extension of the file's name.
std::string formatOf(std::filesystem::path const &file) {
    std::string const format = inSmallLetters(file.extension().string());
    if (format != ".obj" && format != ".stl" && format != ".ply") {
        throw Failure(file.string(), "is no known kind of mesh: .obj, .stl and .ply are");
    }
    return format.substr(1);
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

/// Throws Failure on damage that the mesh library accepts silently: a file that ends too early, a
/// PLY header without an end, and a vertex of an OBJ file that no face uses and that is not finite.
void refuseDamage(std::string const &bytes, std::string const &format, std::string const &file) {
    if (format == "obj") checkObj(bytes, file);
    if (format == "ply") checkPly(bytes, file);
    if (format == "stl") checkStl(bytes, file);
}

// Stock.

/// The least rectangle around the vertices in plan, in the middle of their height.
std::array<mgPoint_c, 4> leastRectangle(Mesh const &mesh) {
    suDynamicArray<mg2DPoint_c> points;
    for (mgPoint_c const &p : mesh.vertices) points.Add({p.x(), p.y()});
    suDynamicArray<mg2DPoint_c> hull;
    convexHull(points, hull); // sorts the points
    if (hull.Count() < 3) {   // they are on one line: its ends are the polygon
        hull = suDynamicArray<mg2DPoint_c>();
        hull.Add(points[0]);
        hull.Add(points[points.Count() - 1]);
    }
    mg2DPoint_c corners[4];
    constexpr int kLeastArea = 0;
    minCnvxPlgRect(hull.Count(), hull.Data(), kLeastArea, corners);
    std::array<mgPoint_c, 4> rectangle;
    for (std::size_t i = 0; i < 4; ++i) {
        rectangle[i] = {corners[i].x(), corners[i].y(), mesh.bounds.center().z()};
    }
    return rectangle;
}

/// The angle of a line, 0 to below 180 degrees, to a millionth of a degree.
double angleInDegrees(mgVector_c const &along) {
    constexpr double kPerDegree = 1e6;
    double const degrees = std::atan2(along.y(), along.x()) / vexmath::kRadPerDeg;
    double const rounded = std::round(degrees * kPerDegree) / kPerDegree;
    return rounded < 0.0 ? rounded + 180.0 : std::fmod(rounded, 180.0);
}

Stock stockOf(Mesh const &mesh) {
    /// How much longer the second side must be to be the length, as a share: sides that differ by
    /// rounding alone are equal.
    constexpr double kEqualSides = 1e-9;
    std::array<mgPoint_c, 4> const rectangle = leastRectangle(mesh);
    mgVector_c length = rectangle[1] - rectangle[0];
    mgVector_c width = rectangle[2] - rectangle[1];
    if (width.len() > (1.0 + kEqualSides) * length.len()) std::swap(length, width);
    return {length.len(), width.len(), mesh.bounds.height(), angleInDegrees(length), rectangle};
}

// The mesh library's result.

/// Collects a mesh. Corners at equal coordinates become one vertex, so that neighbouring triangles
/// share it: STL files name no shared vertices.
class MeshCollector {
public:
    explicit MeshCollector(std::string file) : file_(std::move(file)) {}

    void add(aiMesh const &part);
    Mesh finish();

private:
    std::uint32_t indexOf(aiVector3D const &v);

    std::string const file_;
    Mesh mesh_;
    std::map<std::array<float, 3>, std::uint32_t> indices_;
};

std::uint32_t MeshCollector::indexOf(aiVector3D const &v) {
    if (!std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.z)) {
        // The number counts in order of first use, which is not always the order of the file.
        throw Failure(
            file_,
            fmt::format("vertex {} ({:.6g}, {:.6g}, {:.6g}): every coordinate must be finite",
                        mesh_.vertices.size() + 1, v.x, v.y, v.z));
    }
    auto const next = static_cast<std::uint32_t>(mesh_.vertices.size());
    auto const [entry, isNew] = indices_.try_emplace({v.x, v.y, v.z}, next);
    if (isNew) mesh_.vertices.emplace_back(v.x, v.y, v.z);
    return entry->second;
}

void MeshCollector::add(aiMesh const &part) {
    std::vector<std::uint32_t> indices;
    for (unsigned i = 0; i < part.mNumVertices; ++i) indices.push_back(indexOf(part.mVertices[i]));
    for (unsigned i = 0; i < part.mNumFaces; ++i) {
        aiFace const &face = part.mFaces[i];
        bool const isKnown = std::all_of(face.mIndices, face.mIndices + face.mNumIndices,
                                         [&](unsigned index) { return index < part.mNumVertices; });
        if (!isKnown) {
            throw Failure(file_, fmt::format("face {}: names a vertex that is not there", i + 1));
        }
        // A fan. A face of fewer than three corners is a loose point or line.
        for (unsigned k = 2; k < face.mNumIndices; ++k) {
            mesh_.triangles.push_back({indices[face.mIndices[0]], indices[face.mIndices[k - 1]],
                                       indices[face.mIndices[k]]});
        }
    }
}

Mesh MeshCollector::finish() {
    if (mesh_.vertices.empty()) throw Failure(file_, "the mesh has no vertices");
    mg_BoundPoints(mesh_.vertices.data(), static_cast<int>(mesh_.vertices.size()), mesh_.bounds);
    mesh_.stock = stockOf(mesh_);
    return std::move(mesh_);
}

} // namespace

Mesh readMesh(std::filesystem::path const &file) {
    std::string const format = formatOf(file);
    std::string const bytes = readFile(file);
    if (bytes.empty()) throw Failure(file.string(), "no mesh: the file is empty");
    refuseDamage(bytes, format, file.string());

    Assimp::Importer importer;
    constexpr unsigned kAsTheFileHasIt = 0; // no step that moves or joins vertices
    aiScene const *const scene =
        importer.ReadFileFromMemory(bytes.data(), bytes.size(), kAsTheFileHasIt, format.c_str());
    if (scene == nullptr) {
        throw Failure(file.string(), std::string("no mesh: ") + importer.GetErrorString());
    }
    MeshCollector collector(file.string());
    for (unsigned i = 0; i < scene->mNumMeshes; ++i) collector.add(*scene->mMeshes[i]);
    Mesh mesh = collector.finish();
    mesh.file = file;
    return mesh;
}

} // namespace assembly
