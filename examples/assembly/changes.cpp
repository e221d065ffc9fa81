// SPDX-License-Identifier: MIT
// What changed between two documents of an assembly.

#include "changes.h"

#include <algorithm>

namespace example::assembly {

namespace {

DocumentPart const *find(Document const &document, std::string const &name) {
    auto const found =
        std::find_if(document.parts.begin(), document.parts.end(),
                     [&name](DocumentPart const &part) { return part.name == name; });
    return found == document.parts.end() ? nullptr : &*found;
}

bool isPlacedAlike(DocumentPart const &a, DocumentPart const &b) {
    return a.placement.equals(b.placement)
           && a.placement.isReflection() == b.placement.isReflection();
}

bool hasSameBounds(DocumentPart const &a, DocumentPart const &b) {
    return a.bounds.low() == b.bounds.low() && a.bounds.high() == b.bounds.high();
}

} // namespace

std::vector<std::string> changesBetween(Document const &earlier, Document const &now) {
    std::vector<std::string> changes;
    for (DocumentPart const &part : now.parts) {
        DocumentPart const *const before = find(earlier, part.name);
        if (before == nullptr) {
            changes.push_back(part.name + " is new");
            continue;
        }
        if (!isPlacedAlike(*before, part)) changes.push_back(part.name + " is placed differently");
        if (!hasSameBounds(*before, part)) changes.push_back(part.name + " has another shape");
    }
    for (DocumentPart const &part : earlier.parts) {
        if (find(now, part.name) == nullptr) changes.push_back(part.name + " is gone");
    }
    return changes;
}

} // namespace example::assembly
