// SPDX-License-Identifier: MIT
// The page that shows every curve at every tolerance.

#include "gallery.h"

#include "charts.h"
#include "page.h"
#include "svg.h"
#include "text.h"

#include <algorithm>
#include <cstddef>

#include <vexmath/bbox.h>
#include <vexmath/mg_transform.h>
#include <vexmath/mg_vector.h>

namespace example::curves {

namespace {

// Where things stand, in pixels.
constexpr double kTitleLine = 56.0;
constexpr double kColumnLine = 150.0;
constexpr double kNameWidth = 220.0;
constexpr double kCellWidth = 310.0;
constexpr double kCellHeight = 196.0;
constexpr double kShapeWidth = 176.0; // of the drawing in a cell
constexpr double kShapeHeight = 126.0;
constexpr double kLensRadius = 48.0;
constexpr double kDotRadius = 1.7; // at most
constexpr double kDotShare = 0.25; // of the way to the next

constexpr double kMagnification = 20.0; // of the lens
constexpr int kDrawnSamples = 300;      // of an exact curve
constexpr int kLensSamples = 3000;      // of one, for the part that is in the lens

/// From a point of the drawing to a point of the page, where y runs downwards.
mgXform_c toPage(mgPoint_c const &from, double scale, mgPoint_c const &to) {
    return mg_TranslateXform(mgPoint_c() - from) * mg_YReflectionXform() * mg_ScaleXform(scale)
           * mg_TranslateXform(to - mgPoint_c());
}

std::vector<mgPoint_c> moved(std::vector<mgPoint_c> points, mgXform_c const &x) {
    for (mgPoint_c &p : points) p *= x;
    return points;
}

/// The part of a line of points that comes as near to a point as that.
std::vector<mgPoint_c> partNear(std::vector<mgPoint_c> const &points, mgPoint_c const &centre,
                                double reach) {
    std::size_t first = points.size();
    std::size_t last = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        double along = 0.0;
        double const toLine = centre.distToLine(points[i - 1], points[i], &along);
        mgPoint_c const nearest =
            interpolate(std::clamp(along, 0.0, 1.0), points[i - 1], points[i]);
        if (toLine > reach || dist(centre, nearest) > reach) continue;
        first = std::min(first, i - 1);
        last = i;
    }
    if (first > last) return {};
    return {points.begin() + static_cast<std::ptrdiff_t>(first),
            points.begin() + static_cast<std::ptrdiff_t>(last) + 1};
}

/// One row of the gallery: all that its cells have in common.
class RowDrawing {
public:
    RowDrawing(SvgPage &page, GalleryRow const &row, std::size_t number)
        : page_(page), row_(row), number_(number), exact_(sampled(row.shape, kDrawnSamples)),
          exactForLens_(sampled(row.shape, kLensSamples)) {
        mgBBox_c bounds;
        for (mgPoint_c const &p : exact_) bounds |= p;
        middle_ = bounds.center();
        scale_ = std::min(kShapeWidth / bounds.width(), kShapeHeight / bounds.depth());
    }

    void drawName(mgPoint_c const &topLeft) const;
    void drawCell(mgPoint_c const &topLeft, std::size_t column, double tolerance) const;

private:
    void drawCurves(mgXform_c const &x, std::vector<mgPoint_c> const &exact,
                    std::vector<mgPoint_c> const &polyline) const;
    void drawLens(mgPoint_c const &centre, Approximation const &cell,
                  std::string const &clip) const;

    SvgPage &page_;
    GalleryRow const &row_;
    std::size_t number_;
    std::vector<mgPoint_c> exact_;
    std::vector<mgPoint_c> exactForLens_;
    mgPoint_c middle_;
    double scale_ = 1.0;
};

void RowDrawing::drawName(mgPoint_c const &topLeft) const {
    mgPoint_c line = topLeft + mgVector_c(0.0, 52.0, 0.0);
    page_.text(line, row_.shape.name, shapeStyle("heading name", number_));
    mgVector_c const down(0.0, 20.0, 0.0);
    page_.text(line += down, row_.shape.measures, "class='note'");
    page_.text(line += down, row_.shape.source, "class='note'");
    if (!row_.shape.followsTolerance) {
        page_.text(line += down, "the same for any tolerance", "class='note'");
    }
}

void RowDrawing::drawCurves(mgXform_c const &x, std::vector<mgPoint_c> const &exact,
                            std::vector<mgPoint_c> const &polyline) const {
    page_.path(pathThrough(moved(exact, x)), "class='exact'");
    std::vector<mgPoint_c> const onPage = moved(polyline, x);
    page_.path(pathThrough(onPage), shapeStyle("polyline", number_));
    for (std::size_t i = 0; i < onPage.size(); ++i) {
        // Where points stand close, small dots, so that they do not make a band.
        double const spacing = dist(onPage[i], onPage[i > 0 ? i - 1 : 1]);
        double const radius = std::min(kDotRadius, kDotShare * spacing);
        page_.circle(onPage[i], radius, shapeStyle("dot", number_));
    }
}

void RowDrawing::drawLens(mgPoint_c const &centre, Approximation const &cell,
                          std::string const &clip) const {
    page_.raw("<clipPath id='" + clip + "'>");
    page_.circle(centre, kLensRadius, "");
    page_.raw("</clipPath>");
    page_.circle(centre, kLensRadius, "class='lens'");
    page_.raw("<g clip-path='url(#" + clip + ")'>");
    double const reach = kLensRadius / (scale_ * kMagnification);
    drawCurves(toPage(cell.whereWorst, scale_ * kMagnification, centre),
               partNear(exactForLens_, cell.whereWorst, reach),
               partNear(cell.points, cell.whereWorst, reach));
    page_.raw("</g>");
    page_.circle(centre, kLensRadius, "class='ring'");
}

void RowDrawing::drawCell(mgPoint_c const &topLeft, std::size_t column, double tolerance) const {
    Approximation const &cell = row_.cells[column];
    mgPoint_c const caption = topLeft + mgVector_c(0.0, kCellHeight - 20.0, 0.0);
    if (cell.points.empty()) {
        page_.text(caption, "no points: a radius is below the tolerance", "class='note'");
        return;
    }
    mgPoint_c const centre =
        topLeft + mgVector_c(0.5 * kShapeWidth, 20.0 + 0.5 * kShapeHeight, 0.0);
    mgXform_c const x = toPage(middle_, scale_, centre);
    drawCurves(x, exact_, cell.points);

    mgPoint_c const lens =
        topLeft + mgVector_c(kShapeWidth + 18.0 + kLensRadius, 20.0 + 0.5 * kShapeHeight, 0.0);
    mgPoint_c const looked = cell.whereWorst * x;
    double const ring = kLensRadius / kMagnification;
    page_.circle(looked, ring, "class='ring'");
    mgVector_c const way = mgUnitVector_c(lens - looked, 0);
    page_.line(looked + ring * way, lens - kLensRadius * way, "class='ring'");
    drawLens(lens, cell, "lens" + std::to_string(number_) + "-" + std::to_string(column));

    page_.text(caption, std::to_string(cell.points.size()) + " points");
    bool const within = cell.error <= tolerance;
    page_.text(caption + mgVector_c(92.0, 0.0, 0.0),
               "error " + number(cell.error, 3) + (within ? "" : ", above tolerance"),
               within ? "" : "class='alarm'");
}

void drawHead(SvgPage &page, std::vector<double> const &tolerances) {
    page.text({kPageMargin, kTitleLine, 0.0}, "Curves as polylines", "class='title'");
    page.text({kPageMargin, kTitleLine + 30.0, 0.0},
              "Millimetres. Grey: the curve itself; coloured: its polyline, with its points. The "
              "lens enlarges "
                  + number(kMagnification)
                  + " times where the polyline is farthest off; error is how far, measured.",
              "class='note'");
    for (std::size_t i = 0; i < tolerances.size(); ++i) {
        page.text(
            {kPageMargin + kNameWidth + kCellWidth * static_cast<double>(i), kColumnLine, 0.0},
            "tolerance " + number(tolerances[i]), "class='heading'");
    }
}

} // namespace

std::string drawGallery(std::vector<double> const &tolerances,
                        std::vector<GalleryRow> const &rows) {
    double const width = 2.0 * kPageMargin + kNameWidth
                         + kCellWidth
                               * static_cast<double>(std::max<std::size_t>(
                                   tolerances.size(), 4)); // the charts need as much
    SvgPage page(kStyleSheet);
    drawHead(page, tolerances);
    mgPoint_c corner(kPageMargin, kColumnLine + 14.0, 0.0);
    std::vector<Shape> shapes;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        page.line(corner, corner + mgVector_c(width - 2.0 * kPageMargin, 0.0, 0.0), "class='rule'");
        RowDrawing const row(page, rows[i], i);
        row.drawName(corner);
        for (std::size_t column = 0; column < tolerances.size(); ++column) {
            double const left = kNameWidth + kCellWidth * static_cast<double>(column);
            row.drawCell(corner + mgVector_c(left, 0.0, 0.0), column, tolerances[column]);
        }
        corner += mgVector_c(0.0, kCellHeight, 0.0);
        shapes.push_back(rows[i].shape);
    }
    double const bottom = drawCharts(page, corner.y() + 60.0, shapes);
    return page.finish(width, bottom + kPageMargin);
}

} // namespace example::curves
