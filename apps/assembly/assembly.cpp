// SPDX-License-Identifier: MIT
// An assembly: parts made from mesh files, each placed where the assembly file says.

#include "assembly.h"

#include "files.h"
#include "json_value.h"
#include "report.h"

#include <map>
#include <system_error>

#include <fmt/core.h>

#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

namespace assembly {

namespace fs = std::filesystem;

namespace {

mgXform_c readMirror(JsonValue const &value) {
    std::string const axis = value.text();
    if (axis == "x") return mg_XReflectionXform();
    if (axis == "y") return mg_YReflectionXform();
    if (axis == "z") return mg_ZReflectionXform();
    value.fail(fmt::format("must be \"x\", \"y\" or \"z\", not \"{}\"", axis));
}

mgXform_c readScale(JsonValue const &value) {
    double const scale = value.number();
    mgXform_c const xform = mg_ScaleXform(scale);
    // A scale out of range becomes 1, which is not what the file says.
    if (xform.scaling() != scale) {
        value.fail("is out of range: it must be positive, above 1e-13 and below 6e12");
    }
    return xform;
}

mgXform_c readRotation(JsonValue const &axisValue, JsonValue const &angleValue) {
    /// Angles closer than this to a quarter turn, in radians, give a matrix of exact zeros and
    /// ones.
    constexpr double kQuarterTurnSnapRad = 1e-9;
    mgUnitVector_c const axis(axisValue.vector(), 0);
    if (axis.isNull()) axisValue.fail("has no direction: its length is zero or out of range");
    return mg_RotateXform(angleValue.number() * vexmath::kRadPerDeg, axis, kQuarterTurnSnapRad);
}

mgXform_c readPlacement(JsonValue const &value) {
    value.allowKeys({"mirror", "scale", "axis", "angle_degrees", "translation"});
    mgXform_c mirror;
    mgXform_c scale;
    mgXform_c rotation;
    mgXform_c translation;
    if (auto const found = value.find("mirror")) mirror = readMirror(*found);
    if (auto const found = value.find("scale")) scale = readScale(*found);
    if (value.find("axis") || value.find("angle_degrees")) {
        rotation = readRotation(value.at("axis"), value.at("angle_degrees"));
    }
    if (auto const found = value.find("translation")) {
        translation = mg_TranslateXform(found->vector());
    }
    // `a * b` applies a first, then b: the product reads in the order of the steps.
    return mirror * scale * rotation * translation;
}

Part readPart(JsonValue const &value, fs::path const &folder) {
    value.allowKeys({"name", "mesh", "placement"});
    Part part;
    part.name = value.at("name").text();
    JsonValue const mesh = value.at("mesh");
    part.meshFile = folder / mesh.text();
    std::error_code error;
    fs::file_status const status = fs::status(part.meshFile, error);
    if (!fs::status_known(status)) {
        mesh.fail(part.meshFile.string() + " cannot be read: " + error.message());
    }
    if (!fs::is_regular_file(status)) mesh.fail("there is no file " + part.meshFile.string());
    if (auto const placement = value.find("placement")) part.placement = readPlacement(*placement);
    return part;
}

std::vector<Part> readParts(JsonValue const &list, fs::path const &folder) {
    std::vector<Part> parts;
    std::map<std::string, std::string> placeOfName;
    for (JsonValue const &entry : list.list()) {
        Part part = readPart(entry, folder);
        auto const [first, isNew] = placeOfName.emplace(part.name, entry.place());
        if (!isNew) {
            entry.at("name").fail(
                fmt::format("\"{}\" is the name of {} already", part.name, first->second));
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

/// Does the box reach no farther than 1e8 from the origin along each axis? Beyond that, the library
/// repairs a translation as damaged. NaN makes a box unset.
bool isInReach(mgBBox_c const &box) {
    mgBBox_c const reach(mgPoint_c(-1e8, -1e8, -1e8), mgPoint_c(1e8, 1e8, 1e8));
    return box.isSet() && reach.containsPoint(box.low(), 0.0)
           && reach.containsPoint(box.high(), 0.0);
}

void readMeshes(Assembly &assembly) {
    std::map<fs::path, std::shared_ptr<Mesh const>> meshes;
    Progress progress("reading meshes", assembly.parts.size());
    for (std::size_t i = 0; i < assembly.parts.size(); ++i) {
        Part &part = assembly.parts[i];
        progress.step(part.meshFile.filename().string());
        // One file may be named in several ways.
        std::shared_ptr<Mesh const> &mesh = meshes[fs::canonical(part.meshFile)];
        if (!mesh) mesh = std::make_shared<Mesh const>(readMesh(part.meshFile));
        part.mesh = mesh;
        part.placed = mesh->bounds;
        part.placed *= part.placement;
        if (!isInReach(part.placed)) {
            throw Failure(assembly.file,
                          fmt::format("parts[{}]: \"{}\" reaches farther than 1e8 from the origin",
                                      i, part.name));
        }
        assembly.bounds |= part.placed;
    }
}

} // namespace

Assembly readAssembly(std::string const &file) {
    JsonValue const top = JsonValue::readFrom(file);
    top.allowKeys({"name", "clash_tolerance", "parts"});
    Assembly assembly;
    assembly.file = file;
    assembly.name = top.at("name").text();
    JsonValue const tolerance = top.at("clash_tolerance");
    assembly.clashTolerance = tolerance.number();
    if (assembly.clashTolerance < 0.0) tolerance.fail("must not be negative");
    assembly.parts = readParts(top.at("parts"), fs::path(file).parent_path());
    readMeshes(assembly);
    return assembly;
}

} // namespace assembly
