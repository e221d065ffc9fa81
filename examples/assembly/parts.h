// SPDX-License-Identifier: MIT
// The parts of an assembly, read and placed.

#ifndef ASSEMBLY_PARTS_H
#define ASSEMBLY_PARTS_H

#include "assembly_file.h"
#include "mesh_file.h"

#include <memory>
#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

namespace example::assembly {

struct Part {
    std::string name;
    std::shared_ptr<Mesh const> mesh; ///< one for all parts made from the same file
    mgXform_c placement;              ///< from the mesh's coordinates to the assembly's
    mgBBox_c placed;                  ///< the mesh's bounds, put into the assembly
};

/// Reads each mesh once, however many parts are made from it. Throws Failure on a bad mesh, and on
/// a part that ends up too far out for coordinates to be told apart well.
std::vector<Part> loadParts(AssemblyFile const &file);

} // namespace example::assembly

#endif
