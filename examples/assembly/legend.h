// SPDX-License-Identifier: MIT
// What stands above and below the views: the meaning of the lines, the parts and their pairs.

#ifndef ASSEMBLY_LEGEND_H
#define ASSEMBLY_LEGEND_H

#include "check.h"
#include "parts.h"
#include "pick.h"
#include "svg.h"

#include <cstddef>
#include <vector>

#include <vexmath/point.h>

namespace example::assembly {

struct Extras;

constexpr double kBalloonRadius = 9.0; // pixels

/// The number of a part, counted from 1, in a ring of its colour.
void drawBalloon(SvgPage &page, mgPoint_c const &centre, std::size_t part);

/// One line that shows each kind of line of the views beside its meaning, also those of the extras
/// that there are.
void drawKey(SvgPage &page, mgPoint_c const &start, Extras const &extras);

/// The parts that a pick hits.
void drawHits(SvgPage &page, mgPoint_c const &start, std::vector<Part> const &parts,
              std::vector<Hit> const &hits);

/// The lists of parts and of pairs below `top`. Returns where they end.
double drawLegend(SvgPage &page, double top, std::vector<Part> const &parts,
                  CheckResult const &result);

} // namespace example::assembly

#endif
