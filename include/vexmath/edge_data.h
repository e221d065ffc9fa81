// SPDX-License-Identifier: MIT
// The records of curved edges that the tessellators read.

#ifndef VEXMATH_EDGE_DATA_H
#define VEXMATH_EDGE_DATA_H

#include <vexmath/point.h>

// Plain records of doubles, laid out as the modeller writes them. Nothing checks that their parts
// fit together; `mg_tessellation.h` says what each function makes of them.

/// A circular arc that runs counter-clockwise about its normal. Its ends are told separately.
struct arcEdgeData {
    mgPoint_c center;
    double normal[3] = {}; ///< normalised on use
    double radius = 0.0;   ///< tolerances refer to it; the radius drawn is that of the start
};

/// An arc of an ellipse, from start to end in the sense from the major to the minor direction.
struct ellipseEdgeData {
    mgPoint_c center;
    double majorDir[3] = {}; ///< used as given, so of unit length and perpendicular to the other
    double minorDir[3] = {};
    double majorRadius = 0.0;
    double minorRadius = 0.0;
    mgPoint_c start;
    mgPoint_c end;
};

/// A parabola or another conic arc, in one of two readings. By vertex and focus: the arc from start
/// to end of the parabola or hyperbola that has them. By end tangents, as `mg_TessBConic` takes it:
/// the vertex is where the tangents of start and end cross, and the focus lies where the arc
/// crosses the line from there to the chord.
struct parabolaEdgeData {
    mgPoint_c vertex;
    mgPoint_c focus;
    double unused[2] = {}; ///< the modeller's own
    mgPoint_c start;
    mgPoint_c end;
    double normal[3] = {}; ///< of the plane, normalised on use
};

#endif
