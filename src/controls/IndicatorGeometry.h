#pragma once
// IndicatorGeometry: where the scroll indicator's thumb lies and how opaque it is, in its two
// forms: the overlay thumb blended over the rows (squeezed while the list is pulled past an end)
// and the classic bar with two arrows. Also the positions a press or a drag on it asks for.

#include <vector>

namespace flick {

/// A scroll range: minimum, maximum, page and position (as the platform's scroll information).
struct ScrollRange {
    int minimum = 0;
    int maximum = 0;
    int page = 0;
    int position = 0;
};

/// The largest position at rest: maximum - page + 1, at least the minimum.
int LastPosition(const ScrollRange& range);

/// A thumb along a track: its top and length.
struct Thumb {
    int top = 0;
    int length = 0;
};

/// The overlay thumb in a track from `trackTop` of `trackLength` pixels for a bitmap of
/// `bitmapLength` pixels: the bitmap's length, shortened in proportion to how far the position
/// runs past either end of the range (down to two of its three bands), at
/// top = track top + position * (track length - thumb length) / (maximum - minimum - page),
/// kept inside the track.
Thumb OverlayThumb(const ScrollRange& range, int trackTop, int trackLength, int bitmapLength);
/// The position a press at `y` on the overlay asks for, with `grab` the distance from the thumb's
/// top to the point that stays under the stylus: (y - grab - track top) * (maximum - minimum -
/// page) / (track length - thumb length), kept within minimum..LastPosition.
int OverlayPositionAt(const ScrollRange& range, int y, int grab, int trackTop, int trackLength,
                      int thumbLength);

/// The classic bar's sizes in pixels.
struct ClassicMetrics {
    int width = 13;
    int arrowHeight = 15;
    int minThumb = 20;
};
/// The classic bar's sizes (13 wide, 15-high arrows, a thumb of at least 20, design pixels)
/// scaled to the screen.
ClassicMetrics ScaledClassicMetrics(int dpiX, int dpiY);
/// The classic thumb in a bar of `barHeight`: the track between the two arrows, length
/// max(track * page / range, minimum thumb) (at most the track), top = track top + position *
/// free length / (range - page).
Thumb ClassicThumb(const ScrollRange& range, int barHeight, const ClassicMetrics& metrics);
/// The position a drag at `y` asks for with `grab` pixels between the thumb's top and the stylus;
/// `margin` is the least free length divided by.
int ClassicPositionAt(const ScrollRange& range, int y, int grab, int barHeight,
                      const ClassicMetrics& metrics, int margin);

/// The parts of the classic bar a press can meet, and none.
enum IndicatorPart : int {
    kPartNone = -1,
    kPartUpArrow = 0,
    kPartDownArrow = 1,
    kPartThumb = 2,
    kPartPageAbove = 3,
    kPartPageBelow = 4,
};
/// The classic part under `y` (bar coordinates), found in the order up arrow, down arrow, thumb,
/// then the page above or below the thumb.
IndicatorPart ClassicPartAt(const ScrollRange& range, int y, int barHeight,
                            const ClassicMetrics& metrics);

/// Fade steps of the overlay: it fades out over this many steps once hidden.
constexpr int kFadeSteps = 5;
/// The overlay's constant alpha: 255 while the thumb is held, else 180; while fading after
/// hiding (5 - step) / 5 of that; 0 (nothing drawn) once hidden and fully faded.
int OverlayAlpha(bool visible, int fadeStep, bool held);

/// One copy of the thumb bitmap's drawing: rows from `sourceTop` of the bitmap go to `top`,
/// `rows` of them.
struct BandCopy {
    int sourceTop = 0;
    int top = 0;
    int rows = 0;
};
/// How a thumb of `length` pixels at `thumbTop` is drawn from a bitmap `bitmapHeight` high: the
/// whole bitmap when the lengths are equal, otherwise three equal bands (height / 3 each): the top
/// band at the thumb's top, the bottom band at its bottom, and the middle band repeated between
/// them, the last copy clipped.
std::vector<BandCopy> StretchBands(int thumbTop, int length, int bitmapHeight);

}  // namespace flick
