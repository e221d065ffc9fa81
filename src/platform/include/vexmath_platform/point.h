// SPDX-License-Identifier: MIT
// The screen point: the portable default of a host type.

#ifndef VEXMATH_PLATFORM_POINT_H
#define VEXMATH_PLATFORM_POINT_H

/// A point of the screen, in pixels.
class CPoint {
public:
    CPoint() = default;
    CPoint(int xPixel, int yPixel) : x(xPixel), y(yPixel) {}

    int x = 0;
    int y = 0;
};

#endif
