// SPDX-License-Identifier: MIT
// The records of curved edges that the tessellators read.

#ifndef VEXMATH_EDGE_DATA_H
#define VEXMATH_EDGE_DATA_H

#include <vexmath/point.h>

// Plain records of doubles, laid out as the modeller writes them. Nothing checks that their parts
// fit together; `mg_tessellation.h` says how each function uses them.

/// A circular arc, counter-clockwise about its normal. Its ends are passed separately.
struct arcEdgeData {
    mgPoint_c center;
    double normal[3] = {}; ///< normalised on use
    double radius = 0.0;   ///< sets the steps; the drawn radius is the distance of the start
};

/// An arc of an ellipse, from start to end, turning from the major to the minor direction.
struct ellipseEdgeData {
    mgPoint_c center;
    double majorDir[3] = {}; ///< used as it is: REQUIRES unit length, perpendicular to minorDir
    double minorDir[3] = {}; ///< the same
    double majorRadius = 0.0;
    double minorRadius = 0.0;
    mgPoint_c start;
    mgPoint_c end;
};

/// A parabola or another conic arc, which can be read in two ways:
/// - By vertex and focus: the arc from start to end of the parabola or hyperbola that has them.
/// - By end tangents, as `mg_TessBConic` reads it: the tangents at start and end cross in the
///   vertex, and the focus lies on a line from the vertex to the chord. The closer it is to the
///   vertex, the closer is the arc. The arc passes through the focus when that line meets the chord
///   in its middle; otherwise it crosses the line between focus and chord.
struct parabolaEdgeData {
    mgPoint_c vertex;
    mgPoint_c focus;
    double unused[2] = {}; ///< the modeller's own; ignored
    mgPoint_c start;
    mgPoint_c end;
    double normal[3] = {}; ///< of the plane, normalised on use; only the first reading needs it
};

#endif
