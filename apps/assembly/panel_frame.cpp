// SPDX-License-Identifier: MIT
// Frames, titles and grids of panels.

#include "panel.h"

#include "report.h"
#include "svg_page.h"

#include <cmath>

#include <vexmath/mg_vector.h>

namespace assembly {

namespace {

/// The smallest of 1, 2 and 5 times a power of ten that is not below `least`.
double roundStep(double least) {
    double const decade = std::pow(10.0, std::floor(std::log10(least)));
    for (double const factor : {1.0, 2.0, 5.0}) {
        if (factor * decade >= least) return factor * decade;
    }
    return 10.0 * decade;
}

/// The multiples of step from low to high.
std::vector<double> multiples(double step, double low, double high) {
    std::vector<double> values;
    // Parts reach 1e8 at most and views have a least extent: the count is exact.
    for (double i = std::ceil(low / step); i * step <= high; ++i) values.push_back(i * step);
    return values;
}

void drawVerticalLine(SvgPage &page, Panel const &panel, double x, std::string const &label) {
    mgPoint_c const bottom(x, panel.bottomRight.y(), 0.0);
    page.line({x, panel.topLeft.y(), 0.0}, bottom, {"grid"});
    page.text(bottom + mgVector_c(0.0, 16.0, 0.0), label, {"number middle"});
}

void drawLevelLine(SvgPage &page, Panel const &panel, double y, std::string const &label) {
    mgPoint_c const left(panel.topLeft.x(), y, 0.0);
    page.line(left, {panel.bottomRight.x(), y, 0.0}, {"grid"});
    page.text(left + mgVector_c(-6.0, 4.0, 0.0), label, {"number end"});
}

void drawBorder(SvgPage &page, Panel const &panel) {
    page.rectangle(panel.topLeft, panel.bottomRight, {"frame"});
    page.text(panel.topLeft + mgVector_c(0.0, -12.0, 0.0), panel.title, {"heading"});
}

} // namespace

void drawFrame(SvgPage &page, Panel const &panel) {
    constexpr double kLeastTickGap = 44.0; // pixels
    double const step = roundStep(kLeastTickGap / panel.toPage.scaling());
    mgXform_c const fromPage = panel.toPage.inverse();
    mgVector_c const low = pixelAt(panel, {0.0, 0.0}) * fromPage;
    mgVector_c const high = pixelAt(panel, {1.0, 1.0}) * fromPage;
    mgUnitVector_c const &right = panel.right.direction;
    mgUnitVector_c const &up = panel.up.direction;
    for (double const value : multiples(step, low % right, high % right)) {
        double const x = (mgPoint_c(value * right) * panel.toPage).x();
        drawVerticalLine(page, panel, x, number(value));
    }
    for (double const value : multiples(step, low % up, high % up)) {
        double const y = (mgPoint_c(value * up) * panel.toPage).y();
        drawLevelLine(page, panel, y, number(value));
    }
    drawBorder(page, panel);
    page.text(panel.bottomRight + mgVector_c(0.0, 34.0, 0.0), panel.right.name, {"end"});
    page.text(panel.topLeft + mgVector_c(-8.0, -12.0, 0.0), panel.up.name, {"end"});
}

void drawPerspectiveFrame(SvgPage &page, Panel const &panel) {
    constexpr int kTicks = 10;
    for (int i = 0; i <= kTicks; ++i) {
        double const share = static_cast<double>(i) / kTicks;
        mgPoint_c const pixel = pixelAt(panel, {share, share});
        drawVerticalLine(page, panel, pixel.x(), number(share));
        drawLevelLine(page, panel, pixel.y(), number(share));
    }
    drawBorder(page, panel);
}

} // namespace assembly
