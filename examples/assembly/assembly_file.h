// SPDX-License-Identifier: MIT
// The assembly file: which parts there are and where they go.

#ifndef ASSEMBLY_ASSEMBLY_FILE_H
#define ASSEMBLY_ASSEMBLY_FILE_H

#include "placement.h"

#include <filesystem>
#include <string>
#include <vector>

namespace example::assembly {

struct PartEntry {
    std::string name;
    std::filesystem::path mesh; ///< as found from the current folder
    Placement placement;
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
///                     "angle_degrees": 90,
///                     "translation": [0, 0, 45]
///                 }
///             }
///         ]
///     }
struct AssemblyFile {
    std::string path; ///< of the file itself
    std::string name;
    double clashTolerance = 0.0;
    std::vector<PartEntry> parts;
};

/// Reads it strictly: an unknown, missing or doubled key, a wrong type, a value out of range, a
/// part name used twice and a mesh file that is not there each throw Failure with their place.
AssemblyFile readAssemblyFile(std::string const &file);

} // namespace example::assembly

#endif
