// SPDX-License-Identifier: MIT
// Charts over the tolerance.

#include "charts.h"

#include "approximation.h"
#include "page.h"
#include "text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace example::curves {

namespace {

constexpr double kWidth = 520.0; // of one chart, in pixels, like all of these
constexpr double kHeight = 280.0;
constexpr double kNumberRoom = 56.0; // left of a chart
constexpr double kNameRoom = 150.0;  // right of it
constexpr double kNameHeight = 16.0;

/// Part of an axis, as decimal exponents.
struct Decades {
    int low;
    int high;

    double shareOf(double value) const { return (std::log10(value) - low) / (high - low); }
};

constexpr Decades kTolerances{-4, 1};

/// What a shape gives at each tolerance.
struct Series {
    std::string name;
    std::string lineStyle;
    std::string nameStyle;
    std::vector<std::pair<double, double>> values;
};

/// A frame with logarithmic scales; the tolerance runs from coarse to fine.
class Chart {
public:
    Chart(SvgPage &page, mgPoint_c const &topLeft, Decades values)
        : page_(page), topLeft_(topLeft), values_(values) {}

    void drawFrame(std::string const &title) const;
    /// Curves, each with its name behind its fine end.
    void drawCurves(std::vector<Series> const &all) const;

private:
    mgPoint_c at(double tolerance, double value) const {
        return topLeft_
               + mgVector_c(kWidth * (1.0 - kTolerances.shareOf(tolerance)),
                            kHeight * (1.0 - values_.shareOf(value)), 0.0);
    }

    SvgPage &page_;
    mgPoint_c topLeft_;
    Decades values_;
};

void Chart::drawFrame(std::string const &title) const {
    mgVector_c const across(kWidth, 0.0, 0.0);
    mgVector_c const down(0.0, kHeight, 0.0);
    for (int decade = kTolerances.low; decade <= kTolerances.high; ++decade) {
        double const tolerance = std::pow(10.0, decade);
        double const x = at(tolerance, 1.0).x();
        mgPoint_c const top(x, topLeft_.y(), 0.0);
        page_.line(top, top + down, "class='grid'");
        page_.text(top + down + mgVector_c(0.0, 16.0, 0.0), number(tolerance),
                   "class='number middle'");
    }
    for (int decade = values_.low; decade <= values_.high; ++decade) {
        double const value = std::pow(10.0, decade);
        mgPoint_c const left(topLeft_.x(), at(1.0, value).y(), 0.0);
        page_.line(left, left + across, "class='grid'");
        page_.text(left + mgVector_c(-6.0, 4.0, 0.0), number(value), "class='number end'");
    }
    page_.rectangle(topLeft_, topLeft_ + across + down, "class='frame'");
    page_.text(topLeft_ + mgVector_c(0.0, -12.0, 0.0), title, "class='heading'");
    page_.text(topLeft_ + across + down + mgVector_c(0.0, 34.0, 0.0), "tolerance, mm",
               "class='end'");
}

void Chart::drawCurves(std::vector<Series> const &all) const {
    std::vector<std::pair<double, Series const *>> names; // by where the curve ends
    for (Series const &series : all) {
        std::vector<mgPoint_c> curve;
        for (auto const &[tolerance, value] : series.values) curve.push_back(at(tolerance, value));
        page_.path(pathThrough(curve), series.lineStyle);
        names.emplace_back(curve.back().y(), &series);
    }
    std::sort(names.begin(), names.end());
    double free = topLeft_.y();
    for (auto const &[end, series] : names) {
        double const y = std::max(end, free);
        page_.text({topLeft_.x() + kWidth + 8.0, y + 4.0, 0.0}, series->name, series->nameStyle);
        free = y + kNameHeight;
    }
}

} // namespace

double drawCharts(SvgPage &page, double top, std::vector<Shape> const &shapes) {
    constexpr int kStepsPerDecade = 12;
    std::vector<Series> points;
    std::vector<Series> errors;
    for (std::size_t i = 0; i < shapes.size(); ++i) {
        if (!shapes[i].followsTolerance) continue;
        Series const series{shapes[i].name, shapeStyle("curve", i), shapeStyle("name", i), {}};
        points.push_back(series);
        errors.push_back(series);
        int const steps = kStepsPerDecade * (kTolerances.high - kTolerances.low);
        for (int k = 0; k <= steps; ++k) {
            double const tolerance =
                std::pow(10.0, kTolerances.high - static_cast<double>(k) / kStepsPerDecade);
            Approximation const there = approximate(shapes[i], tolerance);
            if (there.points.empty()) continue;
            points.back().values.emplace_back(tolerance, static_cast<double>(there.points.size()));
            errors.back().values.emplace_back(tolerance, there.error);
        }
    }
    errors.push_back({"error = tolerance",
                      "class='ideal'",
                      "class='note'",
                      {{std::pow(10.0, kTolerances.high), std::pow(10.0, kTolerances.high)},
                       {std::pow(10.0, kTolerances.low), std::pow(10.0, kTolerances.low)}}});

    mgPoint_c const left(kPageMargin + kNumberRoom, top, 0.0);
    mgPoint_c const right = left + mgVector_c(kWidth + kNameRoom + kNumberRoom, 0.0, 0.0);
    Chart const pointChart(page, left, {0, 3});
    pointChart.drawFrame("Points");
    pointChart.drawCurves(points);
    Chart const errorChart(page, right, {-5, 1});
    errorChart.drawFrame("Error, mm");
    errorChart.drawCurves(errors);
    return top + kHeight + 34.0;
}

} // namespace example::curves
