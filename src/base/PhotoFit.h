#pragma once
// The fit-size rule for photos: scale an image of width x height into a box, keeping its aspect.

#include <cstdint>

constexpr int kFitInside = 1;  ///< the whole image fits inside the box
constexpr int kFitCover = 2;   ///< the image covers the box (the board's buttons use this)

/// a * b / c rounded to the nearest integer, halves away from zero; -1 when c is 0 (the
/// platform's MulDiv).
int32_t MulDivRound(int32_t a, int32_t b, int32_t c);

/// Fits width x height into boxWidth x boxHeight by mode: one side becomes the box's, the other
/// keeps the aspect (rounded to nearest). Any other mode leaves the size unchanged.
void FitSize(int mode, int boxWidth, int boxHeight, int& width, int& height);
