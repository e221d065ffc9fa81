// SPDX-License-Identifier: MIT
// The page that shows every curve at every tolerance.

#ifndef CURVES_GALLERY_H
#define CURVES_GALLERY_H

#include "approximation.h"
#include "shapes.h"

#include <string>
#include <vector>

namespace example::curves {

/// A shape with what each tolerance, in the order of the columns, makes of it.
struct GalleryRow {
    Shape shape;
    std::vector<Approximation> cells;
};

/// An SVG file: a grid of shapes and tolerances, each cell with a magnified view of where the
/// polyline is farthest off, and charts of points and error over the tolerance below.
std::string drawGallery(std::vector<double> const &tolerances, std::vector<GalleryRow> const &rows);

} // namespace example::curves

#endif
