// SPDX-License-Identifier: MIT
// Meshes, read from OBJ, STL and PLY files.

#ifndef ASSEMBLY_MESH_H
#define ASSEMBLY_MESH_H

#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/point.h>

namespace assembly {

/// A triangle mesh in its own coordinates. A scan may be a cloud of points without a triangle.
struct Mesh {
    using Triangle = std::array<std::uint32_t, 3>; ///< indices into vertices

    std::vector<mgPoint_c> vertices; ///< each position once, in order of first use; the vertices of
                                     ///< an OBJ file that no face uses are left out
    std::vector<Triangle> triangles;
    mgBBox_c bounds; ///< of the vertices
};

/// Throws Failure when the file cannot be read, ends too early, has no vertex, or has one that is
/// not finite, used or not.
Mesh readMesh(std::filesystem::path const &file);

} // namespace assembly

#endif
