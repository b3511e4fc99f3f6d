#pragma once
// The program's one vocabulary for positions and areas in pixels, shared by the portable
// arithmetic (layout, hit tests, painting plans) and, through win/RectConvert.h, the Win32 layer.

#include <cstdint>

/// A position in pixels.
struct Point {
    int32_t x = 0;
    int32_t y = 0;
    bool operator==(const Point&) const = default;
};

/// A rectangle in pixels (right and bottom exclusive).
struct Rect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
    int32_t Width() const { return right - left; }
    int32_t Height() const { return bottom - top; }
    bool Contains(int32_t x, int32_t y) const {
        return x >= left && x < right && y >= top && y < bottom;
    }
    bool Contains(Point p) const { return Contains(p.x, p.y); }
    /// Shares at least one pixel with `other`.
    bool Intersects(const Rect& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool operator==(const Rect&) const = default;
};
