#pragma once
// ListGeometry: the arithmetic of a list of fixed-height rows scrolled by pixels (the flick
// list's range, page, rows, hit tests, keyboard targets and scroll-bar moves), free of any window.

#include <cstdint>

#include "base/Geometry.h"

namespace flick {

/// What the list's arithmetic needs to know of it: rows, their height, the view and the offset
/// (pixels from the top of row 0 to the top of the view).
struct ListState {
    int count = 0;
    int itemHeight = 1;
    Rect view;
    int offset = 0;
    int selection = -1;
};

/// The row height used in arithmetic: at least 1, so a bad height never divides by zero.
int SafeItemHeight(int itemHeight);
/// Height of all rows, saturated so huge counts never overflow.
int ContentHeight(int count, int itemHeight);
/// The scroll range's maximum: rows' height - 1, at least 0.
int RangeMaximum(int count, int itemHeight);
/// The page: min(rows' height, view height), at least 0.
int Page(int count, int itemHeight, int viewHeight);
/// The offset kept within the range: min(offset, rangeMaximum - page + 1), then at least 0;
/// 0 when the page is empty (no rows).
int ClampToRange(int offset, int rangeMaximum, int page);
/// The largest offset at rest: max(0, rows' height - view height).
int MaxOffset(int count, int itemHeight, int viewHeight);
/// Whole rows the view holds, at least 1.
int VisibleRows(int viewHeight, int itemHeight);

/// Row `index`'s rectangle in the view (the view's width); empty when out of range.
Rect RowRect(const ListState& list, int index);
/// True when row `index` lies wholly inside the view.
bool RowWhollyVisible(const ListState& list, int index);
/// The row under (x, y), or -1 when the point is outside the view or below the last row.
int HitTest(const ListState& list, int x, int y);
/// The offset that puts row `index` at the bottom of the view: (index - visible rows + 1) * height.
int BottomRowOffset(const ListState& list, int index);

/// Scroll-bar codes a list answers (the values of the platform's SB_ codes), and the list's own
/// code that scrolls by a signed amount.
enum ScrollCode : int {
    kLineUp = 0,
    kLineDown = 1,
    kPageUp = 2,
    kPageDown = 3,
    kThumbPosition = 4,
    kThumbTrack = 5,
    kTop = 6,
    kBottom = 7,
    kScrollBy = 1005,
};
/// The move (new offset - offset) a scroll code asks for, kept so that the offset lands within
/// 0..MaxOffset; 0 for codes that do not scroll. `position` is the thumb position or the signed
/// amount of kScrollBy.
int ScrollMove(const ListState& list, int code, int position);

/// Navigation keys of the list.
enum class NavKey { kHome, kEnd, kUp, kDown, kPageUp, kPageDown };
/// What a navigation key does: select `selection` after scrolling to `offset` (when `scroll`).
struct NavTarget {
    bool act = false;     ///< false: the key does nothing
    int selection = -1;   ///< the row to select
    bool scroll = false;  ///< move the view first
    int offset = 0;       ///< the offset to scroll to (the scroll keeps it within 0..MaxOffset)
};
/// The row and view a navigation key moves to from the list's selection.
NavTarget Navigate(const ListState& list, NavKey key);

}  // namespace flick
