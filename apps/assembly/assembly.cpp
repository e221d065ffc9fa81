// SPDX-License-Identifier: MIT
// An assembly: parts made from mesh files, each placed where the assembly file says.

#include "assembly.h"

#include "files.h"
#include "json_value.h"
#include "report.h"

#include <map>
#include <system_error>
#include <unordered_map>
#include <utility>

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

/// Throws Failure when there is no such file.
void refuseMissing(fs::path const &file, JsonValue const &mesh) {
    std::error_code error;
    fs::file_status const status = fs::status(file, error);
    if (!fs::status_known(status)) {
        mesh.fail(file.string() + " cannot be read: " + error.message());
    }
    if (!fs::is_regular_file(status)) mesh.fail("there is no file " + file.string());
}

/// Parts without their meshes, and the mesh files as the parts name them.
struct PartList {
    std::vector<Part> parts;
    std::vector<std::size_t> fileOfPart;
    std::vector<fs::path> files; ///< as found from the current folder
};

PartList readParts(JsonValue const &list, fs::path const &folder) {
    std::vector<JsonValue> const entries = list.list();
    PartList result;
    result.parts.reserve(entries.size());
    std::unordered_map<std::string, std::size_t> entryOfName;
    std::unordered_map<std::string, std::size_t> numberOfFile;
    Progress progress("reading parts", entries.size());
    for (JsonValue const &entry : entries) {
        progress.step();
        entry.allowKeys({"name", "mesh", "placement"});
        Part &part = result.parts.emplace_back();
        part.name = entry.at("name").text();
        JsonValue const mesh = entry.at("mesh");
        auto const [file, isNewFile] = numberOfFile.emplace(mesh.text(), result.files.size());
        if (isNewFile) {
            result.files.push_back(folder / mesh.text());
            refuseMissing(result.files.back(), mesh);
        }
        result.fileOfPart.push_back(file->second);
        if (auto const placement = entry.find("placement")) {
            part.placement = readPlacement(*placement);
        }
        auto const [first, isNewName] = entryOfName.emplace(part.name, entryOfName.size());
        if (!isNewName) {
            entry.at("name").fail(fmt::format("\"{}\" is the name of {} already", part.name,
                                              entries[first->second].place()));
        }
    }
    return result;
}

/// Does the box reach no farther than 1e8 from the origin along each axis? Beyond that, the library
/// repairs a translation as damaged. NaN makes a box unset.
bool isInReach(mgBBox_c const &box) {
    mgBBox_c const reach(mgPoint_c(-1e8, -1e8, -1e8), mgPoint_c(1e8, 1e8, 1e8));
    return box.isSet() && reach.containsPoint(box.low(), 0.0)
           && reach.containsPoint(box.high(), 0.0);
}

/// Reads each file once, although it may be named in several ways.
std::vector<std::shared_ptr<Mesh const>> readMeshes(std::vector<fs::path> const &files) {
    std::vector<std::shared_ptr<Mesh const>> meshes;
    std::map<fs::path, std::shared_ptr<Mesh const>> meshOf;
    Progress progress("reading meshes", files.size());
    for (fs::path const &file : files) {
        progress.step(file.filename().string());
        std::shared_ptr<Mesh const> &mesh = meshOf[fs::canonical(file)];
        if (!mesh) mesh = std::make_shared<Mesh const>(readMesh(file));
        meshes.push_back(mesh);
    }
    return meshes;
}

/// Reads the assembly file; its values are gone from memory before the meshes come.
PartList readList(Assembly &assembly) {
    Progress progress("reading", 1);
    progress.step(assembly.file);
    JsonValue const top = JsonValue::readFrom(assembly.file);
    top.allowKeys({"name", "clash_tolerance", "parts"});
    assembly.name = top.at("name").text();
    JsonValue const tolerance = top.at("clash_tolerance");
    assembly.clashTolerance = tolerance.number();
    if (assembly.clashTolerance < 0.0) tolerance.fail("must not be negative");
    return readParts(top.at("parts"), fs::path(assembly.file).parent_path());
}

} // namespace

void placeParts(Assembly &assembly) {
    assembly.bounds = mgBBox_c();
    for (std::size_t i = 0; i < assembly.parts.size(); ++i) {
        Part &part = assembly.parts[i];
        part.placed = part.mesh->bounds;
        part.placed *= part.placement;
        if (!isInReach(part.placed)) {
            throw Failure(assembly.file,
                          fmt::format("parts[{}]: \"{}\" reaches farther than 1e8 from the origin",
                                      i, part.name));
        }
        assembly.bounds |= part.placed;
    }
}

Assembly readAssembly(std::string const &file) {
    Assembly assembly;
    assembly.file = file;
    PartList list = readList(assembly);
    auto const meshes = readMeshes(list.files);
    for (std::size_t i = 0; i < list.parts.size(); ++i) {
        list.parts[i].mesh = meshes[list.fileOfPart[i]];
    }
    assembly.parts = std::move(list.parts);
    placeParts(assembly);
    return assembly;
}

} // namespace assembly
