// SPDX-License-Identifier: MIT
// Transforms for other programs: written as texts and graphics arrays, read back and compared.
//
// The text form follows the process's numeric locale. This program stays in the "C" locale, so that
// its texts have decimal points on every machine.

#include "exchange.h"

#include "json_value.h"
#include "report.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include <vexmath_platform/string.h>

namespace assembly {

namespace {

using GlData = std::array<double, 16>;

GlData glDataOf(mgXform_c const &transform) {
    GlData data{};
    transform.getGLData(data.data());
    return data;
}

std::string textOf(mgXform_c const &transform) {
    CString wide;
    transform.saveStringRep(wide);
    std::wstring const text = static_cast<wchar_t const *>(wide);
    return {text.begin(), text.end()}; // digits, signs, points, exponents and blanks: all are ASCII
}

/// The library accepts numbers that place no part, and reads them in its neutral way.
mgXform_c checked(mgXform_c const &transform, JsonValue const &value) {
    constexpr double kSquare = 1e-6; // how far the determinant may be off 1 or -1
    mgVector_c const &shift = transform.translation();
    if (!(std::fabs(std::fabs(transform.rotation().getDeterminant()) - 1.0) <= kSquare)) {
        value.fail("places no part: its axes are not square to each other");
    }
    if (!std::isfinite(shift.x() + shift.y() + shift.z())) {
        value.fail("places no part: its translation is not finite");
    }
    return transform;
}

mgXform_c fromText(JsonValue const &value) {
    std::string const text = value.text();
    mgXform_c transform;
    CString const wide(std::wstring(text.begin(), text.end()).c_str());
    if (!transform.restoreStringRep(wide)) value.fail("must be sixteen numbers");
    return checked(transform, value);
}

mgXform_c fromArray(JsonValue const &value) {
    GlData data{};
    std::vector<JsonValue> const numbers = value.list();
    if (numbers.size() != data.size()) value.fail("must be a list of sixteen numbers");
    std::transform(numbers.begin(), numbers.end(), data.begin(),
                   [](JsonValue const &number) { return number.number(); });
    return checked(mgXform_c::createFromGLData(data.data()), value);
}

double largestDifference(mgMatrix_c const &a, mgMatrix_c const &b) {
    double largest = 0.0;
    for (int k = 0; k < 9; ++k) largest = std::max(largest, std::fabs(a[k] - b[k]));
    return largest;
}

double largestComponent(mgVector_c const &v) {
    return std::max({std::fabs(v.x()), std::fabs(v.y()), std::fabs(v.z())});
}

/// What differs, in words; empty when nothing does.
std::string differenceOf(mgXform_c const &original, mgXform_c const &restored) {
    std::string words;
    auto const add = [&words](std::string const &what) {
        words += (words.empty() ? "" : ", ") + what;
    };
    if (original.scaling() != restored.scaling()) {
        add("scale " + number(original.scaling()));
    }
    if (original.isReflection() != restored.isReflection()) add("mirror flag");
    if (original.hasPerspective() != restored.hasPerspective()) add("perspective");
    double const rotated = largestDifference(original.rotation(), restored.rotation());
    if (rotated > 0.0) add(fmt::format("rotation by {:.2g}", rotated));
    double const moved = largestComponent(original.translation() - restored.translation());
    if (moved > 0.0) add(fmt::format("translation by {:.2g}", moved));
    return words;
}

void addLoss(std::vector<Loss> &losses, NamedTransform const &original, std::string const &form,
             mgXform_c const &restored) {
    std::string const what = differenceOf(original.transform, restored);
    if (!what.empty()) losses.push_back({original.name, form, what});
}

} // namespace

std::string toExchange(std::vector<NamedTransform> const &transforms) {
    std::string content;
    for (NamedTransform const &entry : transforms) {
        nlohmann::ordered_json const line{{"name", entry.name},
                                          {"text", textOf(entry.transform)},
                                          {"gl", glDataOf(entry.transform)}};
        content += (content.empty() ? "  " : ",\n  ") + line.dump();
    }
    return "{\"transforms\": [\n" + content + "\n]}\n";
}

std::vector<Loss> readExchange(std::string const &file,
                               std::vector<NamedTransform> const &transforms) {
    JsonValue const top = JsonValue::readFrom(file);
    top.allowKeys({"transforms"});
    JsonValue const list = top.at("transforms");
    std::vector<JsonValue> const entries = list.list();
    if (entries.size() != transforms.size()) {
        list.fail(fmt::format("must have {} entries, the parts of the assembly and the view",
                              transforms.size()));
    }
    std::vector<Loss> losses;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i].allowKeys({"name", "text", "gl"});
        JsonValue const found = entries[i].at("name");
        if (found.text() != transforms[i].name) {
            found.fail(fmt::format("must be \"{}\", as in the assembly", transforms[i].name));
        }
        addLoss(losses, transforms[i], "text form", fromText(entries[i].at("text")));
        addLoss(losses, transforms[i], "GL array", fromArray(entries[i].at("gl")));
    }
    return losses;
}

} // namespace assembly
