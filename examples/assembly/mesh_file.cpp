// SPDX-License-Identifier: MIT
// Meshes, read from OBJ, STL and PLY files.

#include "mesh_file.h"

#include "failure.h"
#include "mesh_check.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <sstream>
#include <string>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>

namespace example::assembly {

namespace {

std::string extensionOf(std::filesystem::path const &file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

/// Collects vertices under one index per position. Files that name no shared vertices (STL names
/// none) would otherwise count each corner, and its neighbours would not know each other. Only
/// equal coordinates are joined: nothing moves.
class VertexCollector {
public:
    VertexCollector(std::string file, Mesh &mesh) : file_(std::move(file)), mesh_(mesh) {}

    std::uint32_t add(aiVector3D const &v) {
        if (!std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.z)) refuse(v);
        auto const next = static_cast<std::uint32_t>(mesh_.vertices.size());
        auto const [entry, isNew] = indexOf_.try_emplace({v.x, v.y, v.z}, next);
        if (isNew) mesh_.vertices.emplace_back(v.x, v.y, v.z);
        return entry->second;
    }

private:
    /// Names the vertex by its coordinates, by which it is found in the file, and by its number in
    /// order of first use, which is not always the order of the file.
    [[noreturn]] void refuse(aiVector3D const &v) const {
        std::ostringstream place;
        place << "vertex " << mesh_.vertices.size() + 1 << " (" << v.x << ", " << v.y << ", " << v.z
              << ")";
        throw Failure(file_, place.str(), "every coordinate must be finite");
    }

    std::string const file_;
    Mesh &mesh_;
    std::map<std::array<float, 3>, std::uint32_t> indexOf_;
};

void append(aiMesh const &part, std::string const &file, VertexCollector &vertices, Mesh &mesh) {
    std::vector<std::uint32_t> indices;
    for (unsigned i = 0; i < part.mNumVertices; ++i) {
        indices.push_back(vertices.add(part.mVertices[i]));
    }
    for (unsigned i = 0; i < part.mNumFaces; ++i) {
        aiFace const &face = part.mFaces[i];
        for (unsigned k = 0; k < face.mNumIndices; ++k) {
            if (face.mIndices[k] < part.mNumVertices) continue;
            throw Failure(file, "face " + std::to_string(i + 1),
                          "names a vertex that is not there");
        }
        // A fan; what has fewer than three corners is a loose point or line.
        for (unsigned k = 2; k < face.mNumIndices; ++k) {
            mesh.triangles.push_back({indices[face.mIndices[0]], indices[face.mIndices[k - 1]],
                                      indices[face.mIndices[k]]});
        }
    }
}

} // namespace

Mesh readMesh(std::filesystem::path const &file) {
    std::string const format = extensionOf(file);
    if (format == ".obj") {
        checkObjFile(file);
    } else if (format == ".ply") {
        checkPlyFile(file);
    } else if (format == ".stl") {
        checkStlFile(file);
    } else {
        throw Failure(file.string(), "is no known kind of mesh: .obj, .stl and .ply are");
    }
    Assimp::Importer importer;
    constexpr unsigned kAsTheFileHasIt = 0; // no step that would move, join or trust anything
    aiScene const *const scene = importer.ReadFile(file.string(), kAsTheFileHasIt);
    if (scene == nullptr) {
        throw Failure(file.string(), std::string("no mesh: ") + importer.GetErrorString());
    }

    Mesh mesh;
    VertexCollector vertices(file.string(), mesh);
    for (unsigned i = 0; i < scene->mNumMeshes; ++i) {
        append(*scene->mMeshes[i], file.string(), vertices, mesh);
    }
    if (mesh.vertices.empty()) throw Failure(file.string(), "the mesh has no vertices");
    for (mgPoint_c const &vertex : mesh.vertices) mesh.bounds |= vertex;
    return mesh;
}

} // namespace example::assembly
