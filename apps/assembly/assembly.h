// SPDX-License-Identifier: MIT
// An assembly: parts made from mesh files, each placed where the assembly file says.

#ifndef ASSEMBLY_ASSEMBLY_H
#define ASSEMBLY_ASSEMBLY_H

#include "mesh.h"

#include <memory>
#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/xform.h>

namespace assembly {

struct Part {
    std::string name;
    mgXform_c placement;              ///< from the mesh's coordinates to the assembly's
    std::shared_ptr<Mesh const> mesh; ///< one for all parts made from the same file
    mgBBox_c placed;                  ///< the mesh's bounds in the assembly
};

/// An assembly file holds, in JSON:
///
///     {
///         "name": "Gear drive",
///         "clash_tolerance": 0.02,             a length: how far touching parts may be off
///         "parts": [
///             {
///                 "name": "bolt",              each part has its own
///                 "mesh": "bolt.ply",          beside the assembly file
///                 "placement": {               may be left out, and so may each of its keys
///                     "mirror": "x",           "x", "y" or "z": the coordinate that is negated
///                     "scale": 25.4,           as drawn is 1
///                     "axis": [0, 1, 0],       axis and angle come together
///                     "angle_degrees": 90,     right-handed about the axis
///                     "translation": [0, 0, 45]
///                 }
///             }
///         ]
///     }
///
/// A part is mirrored, scaled, rotated and moved, in this order.
struct Assembly {
    std::string file;
    std::string name;
    double clashTolerance = 0.0;
    std::vector<Part> parts; ///< at least one
    mgBBox_c bounds;         ///< of all parts
};

/// Reads the file strictly: an unknown, missing or doubled key, a wrong type, a value out of range
/// and a part name used twice each throw Failure with their place. Then reads each mesh once,
/// however many parts are made from it. Throws Failure on a bad mesh, and on a part that reaches so
/// far out that its coordinates are too coarse.
Assembly readAssembly(std::string const &file);

/// Bounds each part where it is placed, and all of them. Throws Failure on a part that reaches too
/// far out.
void placeParts(Assembly &assembly);

} // namespace assembly

#endif
