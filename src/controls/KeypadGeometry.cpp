#include "controls/KeypadGeometry.h"

#include <algorithm>

#include "base/ScreenInfo.h"

namespace {

constexpr int kColumns = 3;
constexpr int kRows = 3;
constexpr int kGapDesignPixels = 1;

}  // namespace

Rect KeyCell(const Rect& client, int key) {
    if (key < 0 || key >= kKeypadKeyCount)
        return Rect{};
    const int width = client.Width() / kColumns;
    const int height = client.Height() / kRows;
    const int left = client.left + (key % kColumns) * width;
    const int top = client.top + (key / kColumns) * height;
    return Rect{left, top, left + width, top + height};
}

int HitKey(const Rect& client, Point point) {
    for (int key = 0; key < kKeypadKeyCount; ++key) {
        if (KeyCell(client, key).Contains(point))
            return key;
    }
    return -1;
}

int KeyGap(int dpi) {
    return ScaleLength(kGapDesignPixels, dpi);
}

Rect KeyFace(const Rect& cell, int gapX, int gapY) {
    const int right = std::max(cell.left, cell.right - std::max(gapX, 0));
    const int bottom = std::max(cell.top, cell.bottom - std::max(gapY, 0));
    return Rect{cell.left, cell.top, right, bottom};
}
