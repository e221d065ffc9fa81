// SPDX-License-Identifier: MIT
// A page of SVG, written element by element.

#include "svg.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace example {

namespace {

std::string attribute(char const *name, double value) {
    return std::string(" ") + name + "='" + pixels(value) + "'";
}

std::string escaped(std::string const &text) {
    std::string result;
    for (char const c : text) {
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace

std::string pixels(double value) {
    std::ostringstream text;
    text.precision(9);                             // a tenth of a pixel on any page
    text << std::round(value * 10.0) / 10.0 + 0.0; // -0 is written as 0
    return text.str();
}

std::string pathThrough(std::vector<mgPoint_c> const &points) {
    std::string commands;
    for (mgPoint_c const &p : points)
        commands += (commands.empty() ? "M" : "L") + pixels(p.x()) + " " + pixels(p.y());
    return commands;
}

SvgPage::SvgPage(std::string styleSheet) : styleSheet_(std::move(styleSheet)) {}

void SvgPage::raw(std::string const &markup) { body_ << markup << '\n'; }

void SvgPage::line(mgPoint_c const &from, mgPoint_c const &to, std::string const &style) {
    body_ << "<line" << attribute("x1", from.x()) << attribute("y1", from.y())
          << attribute("x2", to.x()) << attribute("y2", to.y()) << ' ' << style << "/>\n";
}

void SvgPage::rectangle(mgPoint_c const &a, mgPoint_c const &b, std::string const &style) {
    body_ << "<rect" << attribute("x", std::min(a.x(), b.x()))
          << attribute("y", std::min(a.y(), b.y())) << attribute("width", std::fabs(b.x() - a.x()))
          << attribute("height", std::fabs(b.y() - a.y())) << ' ' << style << "/>\n";
}

void SvgPage::circle(mgPoint_c const &centre, double radius, std::string const &style) {
    body_ << "<circle" << attribute("cx", centre.x()) << attribute("cy", centre.y())
          << attribute("r", radius) << ' ' << style << "/>\n";
}

void SvgPage::path(std::string const &commands, std::string const &style) {
    body_ << "<path d='" << commands << "' " << style << "/>\n";
}

void SvgPage::text(mgPoint_c const &start, std::string const &text, std::string const &style) {
    body_ << "<text" << attribute("x", start.x()) << attribute("y", start.y()) << ' ' << style
          << '>' << escaped(text) << "</text>\n";
}

std::string SvgPage::finish(double width, double height) const {
    std::ostringstream page;
    page << "<svg xmlns='http://www.w3.org/2000/svg'" << attribute("width", width)
         << attribute("height", height) << " viewBox='0 0 " << pixels(width) << ' '
         << pixels(height) << "'>\n<style>\n"
         << styleSheet_ << "</style>\n<rect width='100%' height='100%' fill='#fff'/>\n"
         << body_.str() << "</svg>\n";
    return page.str();
}

} // namespace example
