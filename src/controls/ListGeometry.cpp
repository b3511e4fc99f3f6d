#include "controls/ListGeometry.h"

#include <algorithm>
#include <climits>
#include <cstdint>

namespace flick {

int SafeItemHeight(int itemHeight) {
    return std::max(1, itemHeight);
}

int ContentHeight(int count, int itemHeight) {
    int64_t height = static_cast<int64_t>(std::max(0, count)) * SafeItemHeight(itemHeight);
    return static_cast<int>(std::min<int64_t>(height, INT_MAX / 2));
}

int RangeMaximum(int count, int itemHeight) {
    return std::max(0, ContentHeight(count, itemHeight) - 1);
}

int Page(int count, int itemHeight, int viewHeight) {
    return std::max(0, std::min(ContentHeight(count, itemHeight), viewHeight));
}

int ClampToRange(int offset, int rangeMaximum, int page) {
    // No rows: the range's maximum of 0 stands for nothing, so there is nothing to scroll to.
    if (page <= 0)
        return 0;
    return std::max(0, std::min(offset, rangeMaximum - page + 1));
}

int MaxOffset(int count, int itemHeight, int viewHeight) {
    return std::max(0, ContentHeight(count, itemHeight) - viewHeight);
}

int VisibleRows(int viewHeight, int itemHeight) {
    return std::max(1, viewHeight / SafeItemHeight(itemHeight));
}

Rect RowRect(const ListState& list, int index) {
    if (index < 0 || index >= list.count)
        return Rect{};
    int height = SafeItemHeight(list.itemHeight);
    int top = static_cast<int>(static_cast<int64_t>(height) * index - list.offset + list.view.top);
    return Rect{list.view.left, top, list.view.right, top + height};
}

bool RowWhollyVisible(const ListState& list, int index) {
    Rect row = RowRect(list, index);
    return row.Height() > 0 && row.top >= list.view.top && row.bottom <= list.view.bottom;
}

int HitTest(const ListState& list, int x, int y) {
    if (!list.view.Contains(x, y))
        return -1;
    // The first row that can reach the view is offset / height; rows above it cannot hold the
    // point, and a pulled-down list (negative offset) starts from row 0.
    for (int index = std::max(0, list.offset / SafeItemHeight(list.itemHeight)); index < list.count;
         ++index) {
        Rect row = RowRect(list, index);
        if (row.top > y)
            break;
        if (row.Contains(x, y))
            return index;
    }
    return -1;
}

int BottomRowOffset(const ListState& list, int index) {
    int rows = VisibleRows(list.view.Height(), list.itemHeight);
    return (index - rows + 1) * SafeItemHeight(list.itemHeight);
}

int ScrollMove(const ListState& list, int code, int position) {
    int height = SafeItemHeight(list.itemHeight);
    int view = list.view.Height();
    int target = list.offset;
    switch (code) {
        case kLineUp:
            target -= height;
            break;
        case kLineDown:
            target += height;
            break;
        case kPageUp:
            target -= view;
            break;
        case kPageDown:
            target += view;
            break;
        case kThumbTrack:
            target = position;
            break;
        case kTop:
            target = 0;
            break;
        case kBottom:
            target = RangeMaximum(list.count, list.itemHeight);
            break;
        case kScrollBy:
            target += position;
            break;
        default:
            return 0;  // kThumbPosition and unknown codes
    }
    int maxOffset = MaxOffset(list.count, list.itemHeight, view);
    return std::clamp(target, 0, maxOffset) - list.offset;
}

namespace {

NavTarget Select(int row) {
    return NavTarget{true, row, false, 0};
}
NavTarget ScrollAndSelect(int row, int offset) {
    return NavTarget{true, row, true, offset};
}

}  // namespace

NavTarget Navigate(const ListState& list, NavKey key) {
    if (list.count <= 0)
        return NavTarget{};
    int height = SafeItemHeight(list.itemHeight);
    int last = list.count - 1;
    int rows = VisibleRows(list.view.Height(), list.itemHeight);
    int selection = list.selection;
    switch (key) {
        case NavKey::kHome:
            return ScrollAndSelect(0, 0);
        case NavKey::kEnd:
            return ScrollAndSelect(last, RangeMaximum(list.count, list.itemHeight));
        case NavKey::kUp: {
            int row = std::clamp(selection - 1, 0, last);
            return RowWhollyVisible(list, row) ? Select(row) : ScrollAndSelect(row, row * height);
        }
        case NavKey::kDown: {
            int row = selection < 0 ? 0 : std::min(selection + 1, last);
            return RowWhollyVisible(list, row)
                       ? Select(row)
                       : ScrollAndSelect(row, std::max(0, BottomRowOffset(list, row)));
        }
        case NavKey::kPageUp: {
            if (selection <= 0)
                return NavTarget{};
            int row = std::max(0, std::min(selection, last) - rows + 1);
            return ScrollAndSelect(row, row * height);
        }
        case NavKey::kPageDown: {
            if (selection < 0 || selection >= last)
                return NavTarget{};
            int row = std::min(last, selection + rows - 1);
            return ScrollAndSelect(row, std::max(0, row - rows + 1) * height);
        }
    }
    return NavTarget{};
}

}  // namespace flick
