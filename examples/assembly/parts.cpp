// SPDX-License-Identifier: MIT
// The parts of an assembly, read and placed.

#include "parts.h"

#include "failure.h"
#include "progress.h"

#include <map>

namespace example::assembly {

namespace {

/// Farthest that a part may reach from the origin along an axis, in model units. It is also where
/// the library's own repair begins to take a translation for damage.
constexpr double kFarthest = 1e8;

bool isInReach(mgBBox_c const &box) {
    mgVector_c const low = box.low();
    mgVector_c const high = box.high();
    for (int i = 0; i < 3; ++i) {
        if (!(low.component(i) >= -kFarthest && high.component(i) <= kFarthest)) return false;
    }
    return true;
}

} // namespace

std::vector<Part> loadParts(AssemblyFile const &file) {
    std::map<std::filesystem::path, std::shared_ptr<Mesh const>> meshes;
    std::vector<Part> parts;
    Progress progress("reading meshes", file.parts.size());
    for (PartEntry const &entry : file.parts) {
        progress.step(entry.mesh.filename().string());
        std::shared_ptr<Mesh const> &mesh = meshes[entry.mesh];
        if (!mesh) mesh = std::make_shared<Mesh const>(readMesh(entry.mesh));

        Part part{entry.name, mesh, transformOf(entry.placement), mesh->bounds};
        part.placed *= part.placement;
        if (!isInReach(part.placed)) {
            throw Failure(file.path, "parts[" + std::to_string(parts.size()) + "]",
                          "\"" + part.name + "\" reaches farther than 1e8 from the origin");
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

} // namespace example::assembly
