// SPDX-License-Identifier: MIT
// Draws a figure of the manual as SVG. y points up.

#ifndef VEXMATH_MANUAL_CANVAS_H
#define VEXMATH_MANUAL_CANVAS_H

#include <string>
#include <vector>

#include <vexmath/bbox.h>
#include <vexmath/edge_data.h>
#include <vexmath/mg_tessellation.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

using Points = std::vector<mgPoint_c>;

/// How something is drawn; the style sheet of the canvas says what each looks like.
enum class Ink { Given, Result, Help, Second };

/// A picture of panels that stand side by side, in units.
class Canvas {
public:
    Canvas(int panels, double panelWidth, double height)
        : panelWidth_(panelWidth), width_(panels * panelWidth), height_(height) {}

    /// Begins the next panel. Its (0, 0) is 1 to the right of its left side and 2 above its lower
    /// one, moved by shift.
    void panel(std::string const &caption, mgVector_c const &shift = {}) {
        origin_ = mgPoint_c(panelWidth_ * panel_++, 0, 0);
        text({panelWidth_ / 2, 0.6, 0}, caption, "caption");
        origin_ += mgVector_c(1, 2, 0) + shift;
    }

    void line(Points const &points, Ink ink, bool isClosed = false) {
        body_ += "<path class='" + std::string(kClasses[static_cast<int>(ink)]) + "' d='";
        for (std::size_t i = 0; i < points.size(); ++i)
            body_ += (i == 0 ? "M" : "L") + at(points[i]);
        body_ += isClosed ? "Z'/>\n" : "'/>\n";
    }

    /// A line with a head at b.
    void arrow(mgPoint_c const &a, mgPoint_c const &b, Ink ink) {
        mgVector_c const back = 0.6 * mg_Normalise(a - b);
        mgVector_c const side = mgVector_c(0, 0, 0.4) * back;
        line({a, b}, ink);
        line({b + back + side, b, b + back - side}, ink);
    }

    void dot(mgPoint_c const &p, Ink ink, std::string const &label = "", double dx = 0.35,
             double dy = 0.35) {
        body_ += "<circle class='" + std::string(kClasses[static_cast<int>(ink)]) + " dot' r='0.2' "
                 + centre(p) + "/>\n";
        if (!label.empty()) text(p + mgVector_c(dx, dy, 0), label);
    }

    void circle(mgPoint_c const &middle, double radius, Ink ink) {
        line(arc(middle, middle + mgVector_c(radius, 0, 0), middle + mgVector_c(radius, 0, 0)),
             ink);
    }

    void box(mgPoint_c const &low, mgPoint_c const &high, Ink ink) {
        line({low, {high.x(), low.y(), 0}, high, {low.x(), high.y(), 0}}, ink, true);
    }

    void text(mgPoint_c const &p, std::string const &words, std::string const &style = "label") {
        mgPoint_c const q = onPage(p);
        body_ += "<text class='" + style + "' x='" + number(q.x()) + "' y='" + number(q.y()) + "'>"
                 + words + "</text>\n";
    }

    /// The points of an arc, counter-clockwise; a circle when both ends are equal.
    static Points arc(mgPoint_c const &middle, mgPoint_c const &start, mgPoint_c const &end,
                      double tolerance = 0.005) {
        arcEdgeData const edge{middle, {0, 0, 1}, dist(middle, start)};
        suDynamicArray<mgPoint_c> points;
        int segments = 0;
        mg_TessArc(&edge, &start, &end, tolerance, nullptr, segments, &points);
        return {points.Data(), points.Data() + points.Count()};
    }

    std::string svg() const;

private:
    static constexpr char const *kClasses[] = {"given", "result", "help", "second"};

    mgPoint_c onPage(mgPoint_c const &p) const {
        return {origin_.x() + p.x(), height_ - origin_.y() - p.y(), 0};
    }
    std::string at(mgPoint_c const &p) const {
        mgPoint_c const q = onPage(p);
        return number(q.x()) + " " + number(q.y());
    }
    std::string centre(mgPoint_c const &p) const {
        mgPoint_c const q = onPage(p);
        return "cx='" + number(q.x()) + "' cy='" + number(q.y()) + "'";
    }
    static std::string number(double x) {
        char text[32];
        std::snprintf(text, sizeof text, "%.3f", x);
        return text;
    }

    double panelWidth_, width_, height_;
    int panel_ = 0;
    mgPoint_c origin_;
    std::string body_;
};

inline std::string Canvas::svg() const {
    constexpr int kPixelsPerUnit = 22;
    auto const pixels = [](double units) {
        return std::to_string(static_cast<int>(units * kPixelsPerUnit));
    };
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " + number(width_) + " "
           + number(height_) + "' width='" + pixels(width_) + "' height='" + pixels(height_)
           + "'>\n<style>\n"
             "path { fill: none; stroke-width: 0.09; stroke-linejoin: round; stroke-linecap: round "
             "}\n"
             ".given { stroke: #333; fill: none } .result { stroke: #d1495b; stroke-width: 0.14 }\n"
             ".second { stroke: #1f77b4; stroke-width: 0.12 }\n"
             ".help { stroke: #999; stroke-width: 0.06; stroke-dasharray: 0.25 0.2 }\n"
             ".dot { stroke: #fff; stroke-width: 0.06; stroke-dasharray: none }\n"
             ".given.dot { fill: #333 } .result.dot { fill: #d1495b } .second.dot { fill: #1f77b4 "
             "}\n"
             ".help.dot { fill: #999 }\n"
             "text { font-family: 'DejaVu Sans', Arial, sans-serif; fill: #333 }\n"
             ".label { font-size: 0.62px } .caption { font-size: 0.54px; fill: #555; text-anchor: "
             "middle }\n"
             "</style>\n<rect width='100%' height='100%' fill='#fff'/>\n"
           + body_ + "</svg>\n";
}

#endif
