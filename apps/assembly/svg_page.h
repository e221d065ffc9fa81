// SPDX-License-Identifier: MIT
// A page of SVG, element by element.

#ifndef ASSEMBLY_SVG_PAGE_H
#define ASSEMBLY_SVG_PAGE_H

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <pugixml.hpp>

#include <vexmath/point.h>

namespace assembly {

/// How an element looks: its classes in the page's style sheet, and the part whose colour it has.
/// Colours repeat after a dozen parts. None of them is the red of a clash.
struct Style {
    char const *classes = "";
    std::optional<std::size_t> part = std::nullopt;
};

/// Coordinates are pixels, y runs downwards, z is ignored. Numbers are rounded to a tenth of a
/// pixel.
class SvgPage {
public:
    SvgPage();

    void line(mgPoint_c const &from, mgPoint_c const &to, Style const &style);
    /// Between two opposite corners.
    void rectangle(mgPoint_c const &a, mgPoint_c const &b, Style const &style);
    void circle(mgPoint_c const &centre, double radius, Style const &style);
    /// Nothing for a path without commands.
    void path(std::string const &commands, Style const &style);
    void text(mgPoint_c const &start, std::string const &text, Style const &style = {});

    /// The whole file, for a page of this size.
    std::string finish(double width, double height);

private:
    using Numbers = std::initializer_list<std::pair<char const *, double>>;

    pugi::xml_node add(char const *element, Style const &style, Numbers numbers = {});

    pugi::xml_document document_;
};

// Commands of a path.

std::string pathThrough(std::vector<mgPoint_c> const &points);
std::string pathAround(std::vector<mgPoint_c> const &corners);

} // namespace assembly

#endif
