// SPDX-License-Identifier: MIT
// Where the views stand on the page.

#include "panel.h"

#include "text.h"

#include <algorithm>
#include <cmath>

#include <vexmath/mg_transform.h>

namespace example::assembly {

namespace {

// Pixels.
constexpr double kGap = 24.0; // between a panel and the next one's numbers
constexpr double kMostHeight = 560.0;
constexpr double kLeastTickGap = 44.0;

/// Room around what a view of the upper row shows, as a part of its extent, and the least of it in
/// model units.
constexpr double kRoomAround = 0.08;
constexpr double kLeastRoom = 1e-6;

mgPoint_c const kOrigin;

std::vector<Panel> views() {
    Axis const x = {"x", mgUnitVector_c::xAxis()};
    Axis const y = {"y", mgUnitVector_c::yAxis()};
    Axis const z = {"z", mgUnitVector_c::zAxis()};
    return {{"Front", x, z, {}, {}, {}}, {"Top", x, y, {}, {}, {}}, {"Side", y, z, {}, {}, {}}};
}

/// Into the viewer's frame: x to the right, y upwards, z towards the viewer.
mgXform_c toViewer(Panel const &panel) {
    return mg_CoordinateXform(kOrigin, panel.right.direction, panel.up.direction).inverse();
}

/// The page is one more coordinate system: upside down, in pixels, and the middle of what is shown
/// in the middle of the panel.
void place(Panel &panel, mgBBox_c const &shown, double scale) {
    mgXform_c const toPixels = mg_YReflectionXform() * mg_ScaleXform(scale);
    mgPoint_c const middle = interpolate(0.5, panel.topLeft, panel.bottomRight);
    panel.toPage =
        toViewer(panel) * toPixels * mg_TranslateXform(middle - shown.center() * toPixels);
}

/// "x" or "-x" and the like; nothing for what is no coordinate axis.
Axis named(mgUnitVector_c const &direction) {
    mgUnitVector_c const axes[] = {mgUnitVector_c::xAxis(), mgUnitVector_c::yAxis(),
                                   mgUnitVector_c::zAxis()};
    for (std::size_t i = 0; i < 3; ++i) {
        std::string const name(1, "xyz"[i]);
        if (direction == axes[i]) return {name, axes[i]};
        if (direction == -axes[i]) return {"-" + name, -axes[i]};
    }
    return {"", direction};
}

/// The smallest of 1, 2 and 5 times a power of ten that is not below `least`.
double roundStep(double least) {
    double const decade = std::pow(10.0, std::floor(std::log10(least)));
    for (double const factor : {1.0, 2.0, 5.0}) {
        if (factor * decade >= least) return factor * decade;
    }
    return 10.0 * decade;
}

/// The multiples of step from low to high. No part is so far out, and no view so small, that a
/// multiple could exceed what a double counts one by one.
std::vector<double> multiples(double step, double low, double high) {
    std::vector<double> values;
    for (double i = std::ceil(low / step); i * step <= high; ++i) values.push_back(i * step);
    return values;
}

} // namespace

std::vector<Panel> layOutViews(mgBBox_c const &extent, double top) {
    std::vector<Panel> panels = views();
    std::vector<mgBBox_c> shown; // the extent as each viewer sees it
    double widths = 0.0;
    double tallest = 0.0;
    for (Panel const &panel : panels) {
        shown.push_back(extent);
        shown.back() *= toViewer(panel);
        widths += shown.back().width();
        tallest = std::max(tallest, shown.back().depth()); // the extent along y
    }
    double const count = static_cast<double>(panels.size());
    double const room = kPageWidth - 2.0 * kPageMargin - count * kNumberRoom - (count - 1.0) * kGap;
    double const scale = std::min(room / widths, kMostHeight / tallest);

    double left = kPageMargin + kNumberRoom;
    for (std::size_t i = 0; i < panels.size(); ++i) {
        double const width = shown[i].width() * scale;
        double const height = tallest * scale;
        panels[i].topLeft = {left, top, 0.0};
        panels[i].bottomRight = {left + width, top + height, 0.0};
        place(panels[i], shown[i], scale);
        left += width + kGap + kNumberRoom;
    }
    return panels;
}

Panel layOutAgainst(char const *title, mgUnitVector_c const &normal,
                    std::vector<mgPoint_c> const &points, double left) {
    mgVector_c const level = mgUnitVector_c::zAxis() * normal;
    mgUnitVector_c const right =
        level.isNull() ? mgUnitVector_c::xAxis() : mgUnitVector_c(level, 0);
    mgPoint_c const topLeft(left, kFirstRow.y(), 0.0);
    Panel panel = {title, named(right), named(mgUnitVector_c(normal * right, 0)),
                   {},    topLeft,      topLeft + kUpperSize};

    mgBBox_c shown;
    for (mgPoint_c const &point : points) shown |= point * toViewer(panel);
    shown += std::max(kRoomAround * shown.maxDimension(), kLeastRoom);
    place(panel, shown, std::min(kUpperSize.x() / shown.width(), kUpperSize.y() / shown.depth()));
    return panel;
}

void drawFrame(SvgPage &page, Panel const &panel) {
    double const left = panel.topLeft.x();
    double const right = panel.bottomRight.x();
    double const top = panel.topLeft.y();
    double const bottom = panel.bottomRight.y();
    double const step = roundStep(kLeastTickGap / panel.toPage.scaling());

    mgXform_c const fromPage = panel.toPage.inverse();
    mgVector_c const low = mgPoint_c(left, bottom, 0.0) * fromPage;
    mgVector_c const high = mgPoint_c(right, top, 0.0) * fromPage;
    mgUnitVector_c const &across = panel.right.direction;
    mgUnitVector_c const &up = panel.up.direction;
    for (double const value : multiples(step, low % across, high % across)) {
        double const x = (mgPoint_c(value * across) * panel.toPage).x();
        page.line({x, top, 0.0}, {x, bottom, 0.0}, "class='grid'");
        page.text({x, bottom + 16.0, 0.0}, number(value), "class='number middle'");
    }
    for (double const value : multiples(step, low % up, high % up)) {
        double const y = (mgPoint_c(value * up) * panel.toPage).y();
        page.line({left, y, 0.0}, {right, y, 0.0}, "class='grid'");
        page.text({left - 6.0, y + 4.0, 0.0}, number(value), "class='number end'");
    }
    page.rectangle(panel.topLeft, panel.bottomRight, "class='frame'");
    page.text({left, top - 12.0, 0.0}, panel.title, "class='heading'");
    page.text({right, bottom + 34.0, 0.0}, panel.right.name, "class='end'");
    page.text({left - 8.0, top - 12.0, 0.0}, panel.up.name, "class='end'");
}

} // namespace example::assembly
