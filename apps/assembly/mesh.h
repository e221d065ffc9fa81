// SPDX-License-Identifier: MIT
// Meshes, made from vertices and faces, or read from OBJ, STL and PLY files.

#ifndef ASSEMBLY_MESH_H
#define ASSEMBLY_MESH_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/point.h>

namespace assembly {

/// The least blank that a workshop cuts a part from: in plan, which is the view along the z axis
/// that the part was drawn with, the rectangle of least area around the part. A blank depends on
/// the part alone and not on how the part stands in the assembly.
struct Stock {
    double length = 0.0; ///< the longer side of the rectangle
    double width = 0.0;
    double height = 0.0;                ///< along the z axis
    double angleDegrees = 0.0;          ///< from the x axis to the length, 0 to below 180
    std::array<mgPoint_c, 4> rectangle; ///< its corners, in the middle of the height
};

/// A triangle mesh in its own coordinates. A scan may be a cloud of points without a triangle.
struct Mesh {
    using Triangle = std::array<std::uint32_t, 3>; ///< indices into vertices

    std::filesystem::path file;
    std::vector<mgPoint_c> vertices; ///< each position once, in order of first use; the vertices of
                                     ///< an OBJ file that no face uses are left out
    std::vector<Triangle> triangles;
    mgBBox_c bounds; ///< of the vertices
    Stock stock;
};

/// Collects a mesh. Vertices at equal coordinates become one, so that neighbouring triangles share
/// it: STL files name no shared vertices.
class MeshMaker {
public:
    using Position = std::array<float, 3>;

    explicit MeshMaker(std::string file) : file_(std::move(file)) {}

    /// The index of the vertex. Throws Failure when a coordinate is not finite.
    std::uint32_t vertex(Position const &position);
    void triangle(Mesh::Triangle const &triangle) { mesh_.triangles.push_back(triangle); }
    /// The mesh with bounds and stock. Throws Failure when it has no vertex.
    Mesh finish();

private:
    struct HashOfPosition {
        std::size_t operator()(Position const &position) const;
    };

    std::string const file_;
    Mesh mesh_;
    std::unordered_map<Position, std::uint32_t, HashOfPosition> indices_;
};

/// "obj", "stl" or "ply", by the extension of the file's name. Throws Failure for any other.
std::string formatOf(std::filesystem::path const &file);

/// Throws Failure on damage of a file of this format that the mesh library accepts silently: a file
/// that ends too early, a PLY header without an end, and a vertex of an OBJ file that no face uses
/// and that is not finite.
void refuseDamage(std::string const &bytes, std::string const &format, std::string const &file);

/// Throws Failure when the file cannot be read, ends too early, has no vertex, or has one that is
/// not finite, used or not.
Mesh readMesh(std::filesystem::path const &file);

} // namespace assembly

#endif
