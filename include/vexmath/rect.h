// SPDX-License-Identifier: MIT
// An axis-aligned rectangle of doubles.

#ifndef VEXMATH_RECT_H
#define VEXMATH_RECT_H

#include <utility>

/// Rectangle with the y axis pointing up. It is normalised when left <= right and bottom <= top.
/// Only `normalize` makes it so; nothing else checks or changes the corners.
class mgRect {
public:
    mgRect() = default; ///< all zeros
    mgRect(double leftX, double topY, double rightX, double bottomY);

    /// 1 when a.left <= b.right, b.left <= a.right, a.bottom <= b.top and b.bottom <= a.top, else
    /// 0. So normalised rectangles overlap when they share a point, also on an edge or a corner.
    /// One that holds NaN overlaps nothing. One with left > right overlaps only a rectangle that
    /// reaches from its right to its left, both included, and so not itself; likewise with bottom >
    /// top. A static function: the rectangle that it is called on is ignored.
    static int intersectRect(mgRect const &a, mgRect const &b);

    /// Swaps top and bottom when top < bottom, and left and right when right < left. NaN stays.
    void normalize();

    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

// -------------------------------------------------------------------------------------------------

inline mgRect::mgRect(double leftX, double topY, double rightX, double bottomY)
    : left(leftX), top(topY), right(rightX), bottom(bottomY) {}

inline int mgRect::intersectRect(mgRect const &a, mgRect const &b) {
    bool const meetInX = a.left <= b.right && b.left <= a.right;
    bool const meetInY = a.bottom <= b.top && b.bottom <= a.top;
    return meetInX && meetInY ? 1 : 0;
}

inline void mgRect::normalize() {
    if (top < bottom) std::swap(top, bottom);
    if (right < left) std::swap(left, right);
}

#endif
