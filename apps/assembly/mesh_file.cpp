// SPDX-License-Identifier: MIT
// Meshes, read from OBJ, STL and PLY files.

#include "mesh.h"

#include "files.h"

#include <algorithm>
#include <string>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <fmt/core.h>

namespace assembly {

namespace {

void add(MeshMaker &maker, aiMesh const &part, std::string const &file) {
    std::vector<std::uint32_t> indices;
    for (unsigned i = 0; i < part.mNumVertices; ++i) {
        aiVector3D const &v = part.mVertices[i];
        indices.push_back(maker.vertex({v.x, v.y, v.z}));
    }
    for (unsigned i = 0; i < part.mNumFaces; ++i) {
        aiFace const &face = part.mFaces[i];
        bool const isKnown = std::all_of(face.mIndices, face.mIndices + face.mNumIndices,
                                         [&](unsigned index) { return index < part.mNumVertices; });
        if (!isKnown) {
            throw Failure(file, fmt::format("face {}: names a vertex that is not there", i + 1));
        }
        // A fan. A face of fewer than three corners is a loose point or line.
        for (unsigned k = 2; k < face.mNumIndices; ++k) {
            maker.triangle({indices[face.mIndices[0]], indices[face.mIndices[k - 1]],
                            indices[face.mIndices[k]]});
        }
    }
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
    MeshMaker maker(file.string());
    for (unsigned i = 0; i < scene->mNumMeshes; ++i) add(maker, *scene->mMeshes[i], file.string());
    Mesh mesh = maker.finish();
    mesh.file = file;
    return mesh;
}

} // namespace assembly
