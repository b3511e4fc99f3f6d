#pragma once
// The arithmetic of image buttons: where a button's picture sits in its image, which of its
// pictures is drawn, how a picture made for one size is laid over a button of another, and how
// keys share a strip. Portable, so the window code only draws what these functions decide.

#include <cstdint>

#include "base/Geometry.h"

/// One button's picture in its image: its size and three source points.
struct ButtonCell {
    int32_t width = 0;
    int32_t height = 0;
    Point normal;
    Point pressed;
    Point disabled;  ///< an image without a disabled picture repeats its normal point here
};

/// The source point drawn: pressed, else normal when enabled, else disabled.
inline Point CellSourcePoint(const ButtonCell& cell, bool pressed, bool enabled) {
    if (pressed)
        return cell.pressed;
    return enabled ? cell.normal : cell.disabled;
}

/// One piece of a sliced face: the part of the image and where it goes.
struct FacePiece {
    Rect source;
    Rect target;
};

/// Lays the picture at `cell` (in its image) over `target` in up to nine pieces: the four
/// corners at their own size, the edges and the middle stretched from the one-pixel column (or
/// row) just inside the top-left corner. Only the rim and that column are ever copied, so a glyph
/// in the picture's middle does not show and the face keeps its rounded corners at any size.
/// Writes the pieces with an area to `out` and returns how many.
int32_t SliceFace(const Rect& cell, const Rect& target, FacePiece out[9]);

/// Key `index` of `count` equal keys side by side across `strip`, the first at the left; the
/// last key takes the pixels a division leaves over, so the keys fill the strip exactly.
Rect StripKeyRect(int32_t index, int32_t count, const Rect& strip);
