// SPDX-License-Identifier: MIT
// A page of SVG, written element by element.

#ifndef EXAMPLE_SVG_H
#define EXAMPLE_SVG_H

#include <sstream>
#include <string>
#include <vector>

#include <vexmath/point.h>

namespace example {

/// Coordinates are pixels, y runs downwards, z is not looked at; everything is rounded to a tenth
/// of a pixel. A style is a list of attributes, such as `class='grid'` or `stroke='red'`.
class SvgPage {
public:
    explicit SvgPage(std::string styleSheet);

    /// Markup as it stands, for what the members below do not know.
    void raw(std::string const &markup);
    void line(mgPoint_c const &from, mgPoint_c const &to, std::string const &style);
    /// Between two opposite corners.
    void rectangle(mgPoint_c const &a, mgPoint_c const &b, std::string const &style);
    void circle(mgPoint_c const &centre, double radius, std::string const &style);
    void path(std::string const &commands, std::string const &style);
    /// The text is taken literally: what has a meaning in markup is escaped.
    void text(mgPoint_c const &start, std::string const &text, std::string const &style = {});

    /// The whole file, on a white ground of this size.
    std::string finish(double width, double height) const;

private:
    std::string const styleSheet_;
    std::ostringstream body_;
};

/// A coordinate or length as the page writes it.
std::string pixels(double value);
/// Commands of a path from point to point of the page.
std::string pathThrough(std::vector<mgPoint_c> const &points);

} // namespace example

#endif
