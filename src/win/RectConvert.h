#pragma once
// The one crossing between the core's Rect / Point and the Win32 RECT / POINT.

#include <windows.h>

#include "base/Geometry.h"

inline RECT ToRECT(const Rect& r) {
    return RECT{r.left, r.top, r.right, r.bottom};
}
inline Rect FromRECT(const RECT& r) {
    return Rect{r.left, r.top, r.right, r.bottom};
}
inline POINT ToPOINT(Point p) {
    return POINT{p.x, p.y};
}
inline Point FromPOINT(POINT p) {
    return Point{p.x, p.y};
}
