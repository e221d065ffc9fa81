// SPDX-License-Identifier: MIT
// A page of SVG, element by element.

#include "svg_page.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <sstream>

#include <fmt/core.h>

namespace assembly {

namespace {

/// A page without elements: how each class looks, the arrow heads and the hatch, and a white
/// ground.
char const *const kEmptyPage = R"svg(<svg xmlns="http://www.w3.org/2000/svg">
<style>
text { font: 13px 'DejaVu Sans', Arial, sans-serif; fill: #222 }
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
.drilled { marker-end: url(#drilled) }
.tour { fill: none; stroke: #d6007a; stroke-width: 1.2; stroke-dasharray: 3 3 }
.hole { fill: #fff; stroke: #d6007a; stroke-width: 1.8 }
.dots { fill: none; stroke: #6a7681; stroke-width: 1.6; stroke-linecap: round }
.clash { stroke: #d00000; stroke-width: 2.6 }
.leader { stroke: currentColor; stroke-width: 0.7; stroke-opacity: 0.7 }
.dot { fill: currentColor }
.balloon { fill: #fff; stroke: currentColor; stroke-width: 1.5 }
.solid { fill: currentColor; fill-opacity: 0.14; stroke: none }
.hit { fill: none; stroke: currentColor; stroke-width: 1.6; stroke-dasharray: 6 3 }
.sight { stroke: #000; stroke-width: 1.3; fill: none }
.arrow { marker-end: url(#arrow) }
.cross { stroke: #000; stroke-width: 0.8; stroke-dasharray: 2 3 }
.entry { fill: #000; stroke: #fff; stroke-width: 1.2 }
.stock { fill: none; stroke: currentColor; stroke-width: 1.2; stroke-dasharray: 8 2 1.5 2 }
.cutbox { fill: none; stroke: currentColor; stroke-opacity: 0.75; stroke-width: 0.8;
          stroke-dasharray: 2 2 }
.material { fill: currentColor; fill-opacity: 0.12; fill-rule: evenodd; stroke: currentColor;
            stroke-width: 1.6; stroke-linejoin: round }
.hatching { fill: none; stroke: currentColor; stroke-width: 1 }
.trace { stroke: #000; stroke-width: 1.3; stroke-dasharray: 14 4 2 4 }
.overlap { fill: url(#hatch); stroke: #d00000; stroke-width: 1.6 }
</style>
<defs>
<marker id="arrow" viewBox="-10 -5 10 10" markerWidth="9" markerHeight="9" orient="auto">
<path d="M0 0L-10 -4L-10 4Z"/>
</marker>
<marker id="drilled" viewBox="-10 -5 10 10" markerWidth="6" markerHeight="6" orient="auto">
<path d="M0 0L-10 -4L-10 4Z" fill="#d6007a"/>
</marker>
<pattern id="hatch" width="6" height="6" patternUnits="userSpaceOnUse"
         patternTransform="rotate(45)">
<line x1="0" y1="0" x2="0" y2="6" stroke="#d00000" stroke-width="1.6" stroke-opacity="0.6"/>
</pattern>
</defs>
<rect width="100%" height="100%" fill="#fff"/>
</svg>)svg";

constexpr char const *kColours[] = {"#1f77b4", "#2ca02c", "#9467bd", "#8c564b",
                                    "#e08214", "#17a2b8", "#7f7f7f", "#a3a300",
                                    "#084594", "#006d2c", "#54278f", "#c2569b"};

std::string pixels(double value) {
    // Nine digits are a tenth of a pixel on any page. Adding 0 writes -0 as 0.
    return fmt::format("{:.9g}", std::round(value * 10.0) / 10.0 + 0.0);
}

void set(pugi::xml_node element, char const *attribute, double value) {
    element.append_attribute(attribute) = pixels(value).c_str();
}

} // namespace

SvgPage::SvgPage() { document_.load_string(kEmptyPage); }

pugi::xml_node SvgPage::add(char const *element, Style const &style, Numbers numbers) {
    pugi::xml_node node = document_.document_element().append_child(element);
    if (*style.classes != '\0') node.append_attribute("class") = style.classes;
    if (style.part) node.append_attribute("color") = kColours[*style.part % std::size(kColours)];
    for (auto const &[attribute, value] : numbers) set(node, attribute, value);
    return node;
}

void SvgPage::line(mgPoint_c const &from, mgPoint_c const &to, Style const &style) {
    add("line", style, {{"x1", from.x()}, {"y1", from.y()}, {"x2", to.x()}, {"y2", to.y()}});
}

void SvgPage::rectangle(mgPoint_c const &a, mgPoint_c const &b, Style const &style) {
    auto const [left, right] = std::minmax({a.x(), b.x()});
    auto const [top, bottom] = std::minmax({a.y(), b.y()});
    add("rect", style,
        {{"x", left}, {"y", top}, {"width", right - left}, {"height", bottom - top}});
}

void SvgPage::circle(mgPoint_c const &centre, double radius, Style const &style) {
    add("circle", style, {{"cx", centre.x()}, {"cy", centre.y()}, {"r", radius}});
}

void SvgPage::path(std::string const &commands, Style const &style) {
    if (!commands.empty()) add("path", style).append_attribute("d") = commands.c_str();
}

void SvgPage::text(mgPoint_c const &start, std::string const &text, Style const &style) {
    add("text", style, {{"x", start.x()}, {"y", start.y()}}).text() = text.c_str();
}

std::string SvgPage::finish(double width, double height) {
    pugi::xml_node svg = document_.document_element();
    set(svg, "width", width);
    set(svg, "height", height);
    svg.append_attribute("viewBox") =
        fmt::format("0 0 {} {}", pixels(width), pixels(height)).c_str();
    std::ostringstream file;
    document_.save(file, "", pugi::format_indent | pugi::format_no_declaration);
    return file.str();
}

std::string pathThrough(std::vector<mgPoint_c> const &points) {
    std::string commands;
    for (mgPoint_c const &p : points) {
        commands += (commands.empty() ? "M" : "L") + pixels(p.x()) + " " + pixels(p.y());
    }
    return commands;
}

std::string pathAround(std::vector<mgPoint_c> const &corners) {
    return corners.empty() ? "" : pathThrough(corners) + "Z";
}

} // namespace assembly
