// SPDX-License-Identifier: MIT
// How the picture looks: colours, line styles, the hatch, the arrow head.

#include "style.h"

#include <iterator>

namespace example::assembly {

namespace {

constexpr char const *kColours[] = {"#1f77b4", "#2ca02c", "#9467bd", "#8c564b",
                                    "#e08214", "#17a2b8", "#7f7f7f", "#a3a300",
                                    "#084594", "#006d2c", "#54278f", "#c2569b"};

} // namespace

char const *const kStyleSheet = R"(text { font: 13px 'DejaVu Sans', Arial, sans-serif; fill: #222 }
.title { font-size: 24px; font-weight: bold }
.heading { font-size: 15px; font-weight: bold }
.number { font-size: 11px; fill: #666 }
.middle { text-anchor: middle }
.end { text-anchor: end }
.alarm { fill: #d00000 }
.grid { stroke: #eceef0 }
.frame { stroke: #9aa0a6; fill: none }
.box { fill: currentColor; fill-opacity: 0.05; stroke: currentColor; stroke-opacity: 0.75;
       stroke-width: 0.8 }
.sphere { fill: none; stroke: currentColor; stroke-opacity: 0.7; stroke-dasharray: 1 4;
          stroke-linecap: round }
.silhouette { fill: none; stroke: currentColor; stroke-width: 1.2; stroke-linecap: round }
.hull { fill: currentColor; fill-opacity: 0.1; stroke: currentColor; stroke-width: 0.8;
        stroke-dasharray: 5 2 }
.drill { fill: none; stroke: #d6007a; stroke-width: 1.8; stroke-linejoin: round }
.hole { fill: #fff; stroke: #d6007a; stroke-width: 1.8 }
.leader { stroke: currentColor; stroke-width: 0.7; stroke-opacity: 0.7 }
.dot { fill: currentColor }
.balloon { fill: #fff; stroke: currentColor; stroke-width: 1.5 }
.solid { fill: currentColor; fill-opacity: 0.14; stroke: none }
.hit { fill: none; stroke: currentColor; stroke-width: 1.6; stroke-dasharray: 6 3 }
.sight { stroke: #000; stroke-width: 1.3; fill: none }
.cross { stroke: #000; stroke-width: 0.8; stroke-dasharray: 2 3 }
.entry { fill: #000; stroke: #fff; stroke-width: 1.2 }
.material { fill: currentColor; fill-opacity: 0.38; fill-rule: evenodd; stroke: none }
.trace { stroke: #000; stroke-width: 1.3; stroke-dasharray: 14 4 2 4 }
.overlap { fill: url(#hatch); stroke: #d00000; stroke-width: 1.6 }
)";

char const *const kDefinitions =
    "<defs><marker id='arrow' viewBox='-10 -5 10 10' markerWidth='9' markerHeight='9' "
    "orient='auto'><path d='M0 0L-10 -4L-10 4Z'/></marker>"
    "<marker id='drilled' viewBox='-10 -5 10 10' markerWidth='6' markerHeight='6' orient='auto'>"
    "<path d='M0 0L-10 -4L-10 4Z' fill='#d6007a'/></marker><pattern id='hatch' width='6' "
    "height='6' "
    "patternUnits='userSpaceOnUse' "
    "patternTransform='rotate(45)'><line x1='0' y1='0' x2='0' y2='6' stroke='#d00000' "
    "stroke-width='1.6' stroke-opacity='0.6'/></pattern></defs>";

std::string partStyle(char const *cssClass, std::size_t part) {
    return std::string("class='") + cssClass + "' color='" + kColours[part % std::size(kColours)]
           + "'";
}

} // namespace example::assembly
