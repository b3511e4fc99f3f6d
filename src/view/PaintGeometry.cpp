#include "view/PaintGeometry.h"

Point PhotoSourceOffset(int32_t photoW, int32_t photoH, int32_t cellW, int32_t cellH) {
    return Point{(photoW - cellW) / 2, (photoH - cellH) / 2};
}

Rect NameBox(const Rect& cell, int32_t dpiX, int32_t dpiY, int32_t labelHeight) {
    const int32_t tx = TextInset(dpiX);
    const int32_t ty = TextInset(dpiY);
    return Rect{cell.left + tx, cell.top + ty, cell.right - tx, cell.bottom - ty - labelHeight};
}

Point LabelOrigin(const Rect& cell, int32_t textW, int32_t textH, int32_t dpiY) {
    return Point{cell.left + (cell.Width() - textW) / 2, cell.bottom - ShadowStep(dpiY) - textH};
}

Point FrameOrigin(const Rect& cell, int32_t frameW, int32_t frameH) {
    return Point{cell.left + (cell.Width() - frameW) / 2, cell.top + (cell.Height() - frameH) / 2};
}

Rect NumberFrameBox(const Rect& cell, int32_t frameW, int32_t frameH) {
    return Rect{cell.right - frameW, cell.bottom - frameH, cell.right, cell.bottom};
}

Rect NumberTextBox(const Rect& frame, int32_t textW, int32_t dpiX) {
    Rect box = frame;
    if ((frame.Width() - textW) % 2 != 0)
        box.right += ShadowStep(dpiX);
    return box;
}

Rect SelectionRepaintBox(const Rect& cell, int32_t dpiX, int32_t dpiY) {
    const int32_t gx = TextInset(dpiX);
    const int32_t gy = TextInset(dpiY);
    return Rect{cell.left - gx, cell.top - gy, cell.right + gx, cell.bottom + gy};
}

Point CentredText(const Rect& box, int32_t textW, int32_t textH) {
    return Point{box.left + (box.Width() - textW) / 2, box.top + (box.Height() - textH) / 2};
}
