// SPDX-License-Identifier: MIT
// A host's screen point: a C structure under another name.

#pragma once

struct HostScreenPoint {
    int x;
    int y;
};
typedef HostScreenPoint CPoint;
