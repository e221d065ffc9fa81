// SPDX-License-Identifier: MIT
// Meshes, read from OBJ, STL and PLY files.

#include "mesh.h"

#include "files.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <utility>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <fmt/core.h>

#include <vexmath/bulk.h>

namespace assembly {

namespace {

/// The extension of the file's name, in small letters.
std::string formatOf(std::filesystem::path const &file) {
    std::string format = file.extension().string();
    std::transform(format.begin(), format.end(), format.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (format != ".obj" && format != ".stl" && format != ".ply") {
        throw Failure(file.string(), "is no known kind of mesh: .obj, .stl and .ply are");
    }
    return format.substr(1);
}

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
    return collector.finish();
}

} // namespace assembly
