// SPDX-License-Identifier: MIT
// The assembly file: which parts there are and where they go.

#include "assembly_file.h"

#include "json_value.h"

#include <vexmath/mg_transform.h>

#include <cerrno>
#include <fstream>
#include <map>
#include <system_error>

namespace example::assembly {

namespace fs = std::filesystem;

namespace {

Mirror readMirror(JsonValue const &value) {
    std::string const axis = value.text();
    if (axis == "x") return Mirror::X;
    if (axis == "y") return Mirror::Y;
    if (axis == "z") return Mirror::Z;
    value.fail("must be \"x\", \"y\" or \"z\", not \"" + axis + "\"");
}

double readScale(JsonValue const &value) {
    double const scale = value.number();
    // Out of its range the library takes 1.0 without a word; nobody who writes 0 means 1.
    if (mg_ScaleXform(scale).scaling() != scale) {
        value.fail("is out of range: it must be positive, above 1e-13 and below 6e12");
    }
    return scale;
}

mgUnitVector_c readAxis(JsonValue const &value) {
    mgUnitVector_c const axis(value.vector(), 0);
    if (axis.isNull()) value.fail("has no direction: its length is zero or out of range");
    return axis;
}

Placement readPlacement(JsonValue const &value) {
    value.allowKeys({"mirror", "scale", "axis", "angle_degrees", "translation"});
    Placement placement;
    if (auto const mirror = value.find("mirror")) placement.mirror = readMirror(*mirror);
    if (auto const scale = value.find("scale")) placement.scale = readScale(*scale);
    if (value.find("axis") || value.find("angle_degrees")) {
        placement.axis = readAxis(value.at("axis"));
        placement.angleDegrees = value.at("angle_degrees").number();
    }
    if (auto const shift = value.find("translation")) placement.translation = shift->vector();
    return placement;
}

/// Refuses a mesh while the place that names it is known.
void refuseUnreadable(fs::path const &mesh, JsonValue const &value) {
    std::error_code error;
    fs::file_status const status = fs::status(mesh, error);
    if (!fs::status_known(status)) {
        value.fail(mesh.string() + " cannot be read: " + error.message());
    }
    if (!fs::is_regular_file(status)) value.fail("there is no file " + mesh.string());
    if (!std::ifstream(mesh)) {
        value.fail(mesh.string() + " cannot be opened: " + std::generic_category().message(errno));
    }
}

PartEntry readPart(JsonValue const &value, fs::path const &folder) {
    value.allowKeys({"name", "mesh", "placement"});
    PartEntry part;
    part.name = value.at("name").text();
    JsonValue const mesh = value.at("mesh");
    part.mesh = folder / mesh.text();
    refuseUnreadable(part.mesh, mesh);
    if (auto const placement = value.find("placement")) part.placement = readPlacement(*placement);
    return part;
}

} // namespace

AssemblyFile readAssemblyFile(std::string const &file) {
    JsonValue const top = JsonValue::readFrom(file);
    top.allowKeys({"name", "clash_tolerance", "parts"});

    AssemblyFile assembly;
    assembly.path = file;
    assembly.name = top.at("name").text();
    JsonValue const tolerance = top.at("clash_tolerance");
    assembly.clashTolerance = tolerance.number();
    if (assembly.clashTolerance < 0.0) tolerance.fail("must not be negative");

    std::map<std::string, std::string> placeOfName;
    for (JsonValue const &entry : top.at("parts").list()) {
        PartEntry part = readPart(entry, fs::path(file).parent_path());
        auto const [first, isNew] = placeOfName.emplace(part.name, entry.place());
        if (!isNew) {
            entry.at("name").fail("\"" + part.name + "\" is the name of " + first->second
                                  + " already");
        }
        assembly.parts.push_back(std::move(part));
    }
    return assembly;
}

} // namespace example::assembly
