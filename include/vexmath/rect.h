// SPDX-License-Identifier: MIT
// An axis-aligned rectangle of doubles.

#ifndef VEXMATH_RECT_H
#define VEXMATH_RECT_H

#include <utility>

/// Rectangle with the y axis pointing up. It is normalised when left <= right and bottom <= top;
/// nothing keeps it so but `normalize`.
class mgRect {
public:
    mgRect() = default;
    mgRect(double leftX, double topY, double rightX, double bottomY);

    /// 1 when the closed rectangles overlap, else 0: one that only touches the other's edge or
    /// corner overlaps it, one with a NaN overlaps nothing. Called on any rectangle or on none.
    /// REQUIRES normalised rectangles.
    static int intersectRect(mgRect const &a, mgRect const &b);

    /// Swaps top with bottom and left with right where they are out of order.
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
