// SPDX-License-Identifier: MIT
// How the page looks: measures, colours, lines.

#include "page.h"

#include <iterator>

namespace example::curves {

namespace {

constexpr char const *kColours[] = {"#1f77b4", "#d1495b", "#2ca02c", "#8c564b",
                                    "#9467bd", "#e08214", "#17a2b8", "#7f7f00"};

} // namespace

char const *const kStyleSheet = R"(text { font: 13px 'DejaVu Sans', Arial, sans-serif; fill: #222 }
.title { font-size: 24px; font-weight: bold }
.heading { font-size: 15px; font-weight: bold }
.number { font-size: 11px; fill: #666 }
.note { font-size: 12px; fill: #666 }
.alarm { font-size: 12px; fill: #d00000 }
.middle { text-anchor: middle }
.end { text-anchor: end }
.grid { stroke: #eceef0 }
.rule { stroke: #d5d8dc }
.frame { stroke: #9aa0a6; fill: none }
.exact { fill: none; stroke: #b9bec4; stroke-width: 3.5; stroke-linejoin: round }
.polyline { fill: none; stroke: currentColor; stroke-width: 1.1; stroke-linejoin: round }
.dot { fill: currentColor }
.ring { fill: none; stroke: #444; stroke-width: 0.8 }
.lens { fill: #fff; stroke: #444; stroke-width: 0.8 }
.curve { fill: none; stroke: currentColor; stroke-width: 1.8; stroke-linejoin: round }
.name { fill: currentColor }
.ideal { fill: none; stroke: #666; stroke-dasharray: 5 4 }
)";

std::string shapeStyle(char const *cssClass, std::size_t shape) {
    return std::string("class='") + cssClass + "' color='" + kColours[shape % std::size(kColours)]
           + "'";
}

} // namespace example::curves
