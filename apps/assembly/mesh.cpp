// SPDX-License-Identifier: MIT
// A mesh made from vertices and faces.

#include "mesh.h"

#include "files.h"

#include <cmath>
#include <utility>

#include <fmt/core.h>

#include <vexmath/bulk.h>
#include <vexmath/mg_planar.h>
#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/point2d.h>
#include <vexmath/su_dynamic_array.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace {

/// The least rectangle around the vertices in plan, in the middle of their height.
std::array<mgPoint_c, 4> leastRectangle(Mesh const &mesh) {
    suDynamicArray<mg2DPoint_c> points;
    for (mgPoint_c const &p : mesh.vertices) points.Add({p.x(), p.y()});
    suDynamicArray<mg2DPoint_c> hull;
    convexHull(points, hull); // sorts the points
    if (hull.Count() < 3) {   // they are on one line: its ends are the polygon
        hull = suDynamicArray<mg2DPoint_c>();
        hull.Add(points[0]);
        hull.Add(points[points.Count() - 1]);
    }
    mg2DPoint_c corners[4];
    constexpr int kLeastArea = 0;
    minCnvxPlgRect(hull.Count(), hull.Data(), kLeastArea, corners);
    std::array<mgPoint_c, 4> rectangle;
    for (std::size_t i = 0; i < 4; ++i) {
        rectangle[i] = {corners[i].x(), corners[i].y(), mesh.bounds.center().z()};
    }
    return rectangle;
}

/// The angle of a line, 0 to below 180 degrees, to a millionth of a degree.
double angleInDegrees(mgVector_c const &along) {
    constexpr double kPerDegree = 1e6;
    double const degrees = std::atan2(along.y(), along.x()) / vexmath::kRadPerDeg;
    double const rounded = std::round(degrees * kPerDegree) / kPerDegree;
    return rounded < 0.0 ? rounded + 180.0 : std::fmod(rounded, 180.0);
}

Stock stockOf(Mesh const &mesh) {
    /// How much longer the second side must be to be the length, as a share: sides that differ by
    /// rounding alone are equal.
    constexpr double kEqualSides = 1e-9;
    std::array<mgPoint_c, 4> const rectangle = leastRectangle(mesh);
    mgVector_c length = rectangle[1] - rectangle[0];
    mgVector_c width = rectangle[2] - rectangle[1];
    if (width.len() > (1.0 + kEqualSides) * length.len()) std::swap(length, width);
    return {length.len(), width.len(), mesh.bounds.height(), angleInDegrees(length), rectangle};
}

} // namespace

std::size_t MeshMaker::HashOfPosition::operator()(Position const &position) const {
    std::size_t hash = 0;
    for (float const coordinate : position) {
        hash = (hash ^ std::hash<float>()(coordinate)) * 0x9e3779b1U; // 0.0f and -0.0f hash alike
        hash ^= hash >> 15U;
    }
    return hash;
}

std::uint32_t MeshMaker::vertex(Position const &position) {
    auto const [x, y, z] = position;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
        // The number counts in order of first use, which is not always the order of the file.
        throw Failure(
            file_,
            fmt::format("vertex {} ({:.6g}, {:.6g}, {:.6g}): every coordinate must be finite",
                        mesh_.vertices.size() + 1, x, y, z));
    }
    auto const next = static_cast<std::uint32_t>(mesh_.vertices.size());
    auto const [entry, isNew] = indices_.try_emplace(position, next);
    if (isNew) mesh_.vertices.emplace_back(x, y, z);
    return entry->second;
}

Mesh MeshMaker::finish() {
    if (mesh_.vertices.empty()) throw Failure(file_, "the mesh has no vertices");
    mg_BoundPoints(mesh_.vertices.data(), static_cast<int>(mesh_.vertices.size()), mesh_.bounds);
    mesh_.stock = stockOf(mesh_);
    return std::move(mesh_);
}

} // namespace assembly
