// SPDX-License-Identifier: MIT
// A host's screen point: a C structure under another name.

#ifndef SEAM_PLATFORM_POINT_H
#define SEAM_PLATFORM_POINT_H

struct HostScreenPoint {
    int x;
    int y;
};
typedef HostScreenPoint CPoint;

#endif
