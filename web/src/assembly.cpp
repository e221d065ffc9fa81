// SPDX-License-Identifier: MIT
// The assembly checker for scripts: the same sources as the command line's, with files in memory.
// The script reads the meshes; everything else is done here.

#include "assembly.h"

#include "binding.h"
#include "checks.h"
#include "contacts.h"
#include "document.h"
#include "files.h"
#include "panel.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

#include <emscripten/bind.h>

#include <vexmath/mg_transform.h>
#include <vexmath/tolerances.h>

// The C library of Emscripten rounds one sine or cosine of thirty to the second nearest number. Its
// functions of quadruple precision, rounded once, give the nearest. That of Linux gives the
// nearest, too, for all but one or two of a thousand: most rotated parts have the same bits in a
// page and in a program.
extern "C" {
double __wrap_sin(double x) { return static_cast<double>(sinl(x)); }
double __wrap_cos(double x) { return static_cast<double>(cosl(x)); }
}

namespace assembly {

namespace {

/// The meshes that the script handed over, by the names that the assembly file has for them.
std::map<std::string, Mesh> &meshes() {
    static std::map<std::string, Mesh> all;
    return all;
}

} // namespace

Mesh readMesh(std::filesystem::path const &file) {
    auto const found = meshes().find(file.string());
    if (found == meshes().end()) throw Failure(file.string(), "is not loaded");
    return found->second;
}

} // namespace assembly

namespace web {

namespace {

namespace fs = std::filesystem;
using namespace emscripten;
using assembly::Assembly;
using assembly::Contacts;
using assembly::Document;
using assembly::Edge;
using assembly::Mesh;
using assembly::Part;
using Outline = std::vector<mgPoint_c>;

char const *const kFolder = "/assembly";
char const *const kFile = "assembly.json";

void writeFile(fs::path const &file, std::string const &content) {
    if (file.has_parent_path()) fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
}

/// Copies an array as a whole; embind copies the bytes of a string one by one.
std::string bytesFrom(val const &array) {
    std::string bytes(array["length"].as<std::size_t>(), '\0');
    val const view(typed_memory_view(bytes.size(), reinterpret_cast<std::uint8_t *>(bytes.data())));
    view.call<void>("set", array);
    return bytes;
}

/// A list of what the function makes of each element.
template <class Elements, class Function>
val listOf(Elements const &elements, Function function) {
    val list = val::array();
    for (auto const &element : elements) list.call<void>("push", function(element));
    return list;
}

val boundsOf(mgBBox_c const &box) {
    return objectOf({{"low", val(box.low())},
                     {"high", val(box.high())},
                     {"centre", val(box.sphCenter())},
                     {"radius", val(box.sphRadius())}});
}

val partOf(Part const &part) {
    return objectOf({{"name", val(part.name)},
                     {"mesh", val(part.mesh->file.string())},
                     {"matrix", glDataOf(part.placement)},
                     {"translation", val(part.placement.translation())},
                     {"bounds", boundsOf(part.mesh->bounds)},
                     {"placed", boundsOf(part.placed)}});
}

/// The hatch lines of the area within outlines in space that lie in the plane.
std::vector<Edge> hatchIn(mgPlane_c const &plane, std::vector<Outline> outlines, double degrees,
                          double spacing) {
    mgUnitVector_c const &normal = plane.normal();
    mgXform_c const frame = mg_CoordinateXformYZ(mgPoint_c(), mgUnitVector_c::zAxis(), normal, 0);
    mgXform_c const toPlane = frame.inverse();
    for (auto &outline : outlines) {
        for (mgPoint_c &point : outline) point *= toPlane;
    }
    double const height = (plane.rootPoint() * toPlane).z();
    std::vector<Edge> lines = assembly::hatchLines(outlines, mgPoint_c(), degrees, spacing);
    for (Edge &line : lines) {
        line.from.set_z(height);
        line.to.set_z(height);
        line = moved(line, frame);
    }
    return lines;
}

class Checker {
public:
    Checker() {
        fs::current_path("/"); // a folder that is in use cannot be removed
        fs::remove_all(kFolder);
        fs::create_directories(kFolder);
        fs::current_path(kFolder);
        assembly::meshes().clear();
    }

    void addMesh(std::string const &name, val const &file, val const &positions,
                 val const &indices) {
        // First the file itself, as its damage may be the reason for odd positions.
        assembly::refuseDamage(bytesFrom(file), assembly::formatOf(name), name);
        auto const coordinates = convertJSArrayToNumberVector<float>(positions);
        auto const corners = convertJSArrayToNumberVector<std::uint32_t>(indices);
        assembly::meshes()[name] = makeMesh(name, coordinates, corners);
        writeFile(name, ""); // the assembly file may name it
    }

    void load(std::string const &json) {
        writeFile(kFile, json);
        set(assembly::readAssembly(kFile));
        stored_.reset();
    }

    val parts() const { return listOf(assembly_.parts, partOf); }
    val bounds() const { return boundsOf(assembly_.bounds); }
    std::string name() const { return assembly_.name; }
    double clashTolerance() const { return assembly_.clashTolerance; }
    val check() const {
        return objectOf({{"clashing", val::array(contacts_.clashing)},
                         {"touching", val::array(contacts_.touching)},
                         {"containing", val::array(contacts_.containing)}});
    }

    void movePart(int part, double dx, double dy, double dz) {
        change(part, mg_TranslateXform(mgVector_c(dx, dy, dz)));
    }
    /// About an axis through the middle of the part's box.
    void rotatePart(int part, mgVector_c const &axis, double degrees) {
        constexpr double kQuarterTurnSnapRad = 1e-9;
        mgPoint_c const middle = partAt(part).placed.center();
        change(part,
               mg_RotateAtPoint(middle, degrees * vexmath::kRadPerDeg, axis, kQuarterTurnSnapRad));
    }

    val section(mgPoint_c const &root, mgVector_c const &normal, double spacing) const {
        mgPlane_c const plane(root, directionOf(normal));
        auto const cuts = findSection(assembly_.parts, plane, contacts_).cuts;
        return listOf(cuts, [&](assembly::PartCut const &cut) {
            auto const hatch = hatchIn(plane, cut.outlines, cut.hatchDegrees, spacing);
            return objectOf({{"part", val(cut.part)},
                             {"outlines", listOf(cut.outlines, coordinatesOf<Outline>)},
                             {"hatch", coordinatesOf(hatch)}});
        });
    }

    val pick(mgPoint_c const &root, mgVector_c const &direction) const {
        return val::array(hitsAlong({root, directionOf(direction)}, assembly_.parts));
    }

    val document() const {
        auto const result = assembly::check(assembly_, contacts_, std::nullopt, std::nullopt);
        Document document = documentOf(assembly_, result);
        for (std::size_t i = 0; stored_ && i < document.parts.size(); ++i) {
            bool const hasMesh = !assembly_.parts[i].mesh->vertices.empty();
            if (!hasMesh) document.parts[i].stock = stored_->parts[i].stock;
        }
        return bytesOf(toBytes(document));
    }

    void readDocument(std::string const &bytes) {
        writeFile("document.vxa", bytes);
        Document document = assembly::readDocument("document.vxa");
        set(assemblyOf(document));
        stored_ = std::move(document);
    }

private:
    static Mesh makeMesh(std::string const &name, std::vector<float> const &coordinates,
                         std::vector<std::uint32_t> const &corners) {
        if (coordinates.size() % 3 != 0 || corners.size() % 3 != 0) {
            throw assembly::Failure(name, "needs three numbers for each vertex and triangle");
        }
        assembly::MeshMaker maker(name);
        std::vector<std::uint32_t> vertices;
        for (auto xyz = coordinates.begin(); xyz != coordinates.end(); xyz += 3) {
            vertices.push_back(maker.vertex({xyz[0], xyz[1], xyz[2]}));
        }
        bool const isKnown = std::all_of(corners.begin(), corners.end(),
                                         [&](auto corner) { return corner < vertices.size(); });
        if (!isKnown) throw assembly::Failure(name, "names a vertex that is not there");
        for (auto abc = corners.begin(); abc != corners.end(); abc += 3) {
            maker.triangle({vertices[abc[0]], vertices[abc[1]], vertices[abc[2]]});
        }
        Mesh mesh = maker.finish();
        mesh.file = name;
        return mesh;
    }

    /// The parts of a document. One that is loaded under the same name and has the same bounds
    /// keeps its mesh; the others are boxes.
    Assembly assemblyOf(Document const &document) const {
        std::unordered_map<std::string, std::shared_ptr<Mesh const>> loaded;
        for (Part const &part : assembly_.parts) loaded.emplace(part.name, part.mesh);
        Assembly result;
        result.file = "document.vxa";
        result.name = document.name;
        result.clashTolerance = document.clashTolerance;
        for (auto const &stored : document.parts) {
            std::shared_ptr<Mesh const> mesh;
            auto const found = loaded.find(stored.name);
            if (found != loaded.end() && found->second->bounds == stored.bounds) {
                mesh = found->second;
            } else {
                Mesh box;
                box.bounds = stored.bounds;
                mesh = std::make_shared<Mesh const>(std::move(box));
            }
            result.parts.push_back({stored.name, stored.placement, mesh, stored.placed});
            result.bounds |= stored.placed;
        }
        return result;
    }

    void set(Assembly assembly) {
        contacts_ = findContacts(assembly);
        assembly_ = std::move(assembly);
    }

    Part const &partAt(int part) const {
        bool const isPart = part >= 0 && static_cast<std::size_t>(part) < assembly_.parts.size();
        if (!isPart) throw std::out_of_range("there is no part of that number");
        return assembly_.parts[static_cast<std::size_t>(part)];
    }

    void change(int number, mgXform_c const &by) {
        partAt(number);
        Assembly changed = assembly_;
        Part &part = changed.parts[static_cast<std::size_t>(number)];
        part.placement *= by;
        placeParts(changed);
        set(std::move(changed));
    }

    Assembly assembly_;
    Contacts contacts_;
    std::optional<Document> stored_; // what was read last; its parts are those of assembly_
};

EMSCRIPTEN_BINDINGS(vexmath_assembly) {
    value_array<assembly::PartPair>("PartPair")
        .element(&assembly::PartPair::first)
        .element(&assembly::PartPair::second);
    value_object<assembly::Hit>("Hit")
        .field("part", &assembly::Hit::part)
        .field("point", &assembly::Hit::point)
        .field("distance", &assembly::Hit::distance);
    class_<Checker>("Assembly")
        .constructor<>()
        .function("addMesh", &Checker::addMesh)
        .function("load", &Checker::load)
        .function("name", &Checker::name)
        .function("clashTolerance", &Checker::clashTolerance)
        .function("parts", &Checker::parts)
        .function("bounds", &Checker::bounds)
        .function("check", &Checker::check)
        .function("movePart", &Checker::movePart)
        .function("rotatePart", &Checker::rotatePart)
        .function("section", &Checker::section)
        .function("pick", &Checker::pick)
        .function("document", &Checker::document)
        .function("readDocument", &Checker::readDocument);
}

} // namespace

} // namespace web
