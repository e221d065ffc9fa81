// SPDX-License-Identifier: MIT
// The picture of a checked assembly.

#ifndef ASSEMBLY_DRAWING_H
#define ASSEMBLY_DRAWING_H

#include "check.h"
#include "drilling.h"
#include "parts.h"
#include "pick.h"
#include "section.h"

#include <optional>
#include <string>
#include <vector>

namespace example::assembly {

/// What else is known about an assembly, asked for or not.
struct Extras {
    std::optional<Pick> pick;
    std::optional<Section> section;
    DrillingPath drilling;
};

/// An SVG file: front, top and side view on one scale, with each part's silhouette and its hull,
/// box and bounding circle, the drilling path, the overlaps of clashing parts hatched, and a
/// legend. Above them the perspective view of a pick and the view of a section, whose lines the
/// three views show as well.
std::string drawAssembly(std::string const &title, std::vector<Part> const &parts,
                         CheckResult const &result, Extras const &extras);

} // namespace example::assembly

#endif
