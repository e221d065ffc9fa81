// SPDX-License-Identifier: MIT
// What is wrong with a mesh file before the mesh library sees it.

#ifndef ASSEMBLY_MESH_CHECK_H
#define ASSEMBLY_MESH_CHECK_H

#include <filesystem>

namespace example::assembly {

/// Throws Failure on what the mesh library takes without a word: a file that ends too early, a
/// PLY header without an end, and a vertex of an OBJ file that no face uses and that is not finite.
void checkObjFile(std::filesystem::path const &file);
void checkPlyFile(std::filesystem::path const &file);
void checkStlFile(std::filesystem::path const &file);

} // namespace example::assembly

#endif
