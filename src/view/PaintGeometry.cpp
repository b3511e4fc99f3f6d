#include "view/PaintGeometry.h"

PixelPoint PhotoSourceOffset(int32_t photoW, int32_t photoH, int32_t cellW, int32_t cellH) {
    return PixelPoint{(photoW - cellW) / 2, (photoH - cellH) / 2};
}

Box NameBox(const Box& cell, int32_t dpiX, int32_t dpiY, int32_t labelHeight) {
    const int32_t tx = TextInset(dpiX);
    const int32_t ty = TextInset(dpiY);
    return Box{cell.left + tx, cell.top + ty, cell.right - tx, cell.bottom - ty - labelHeight};
}

PixelPoint LabelOrigin(const Box& cell, int32_t textW, int32_t textH, int32_t dpiY) {
    return PixelPoint{cell.left + (cell.Width() - textW) / 2,
                      cell.bottom - ShadowStep(dpiY) - textH};
}

PixelPoint FrameOrigin(const Box& cell, int32_t frameW, int32_t frameH) {
    return PixelPoint{cell.left + (cell.Width() - frameW) / 2,
                      cell.top + (cell.Height() - frameH) / 2};
}

Box NumberFrameBox(const Box& cell, int32_t frameW, int32_t frameH) {
    return Box{cell.right - frameW, cell.bottom - frameH, cell.right, cell.bottom};
}

Box NumberTextBox(const Box& frame, int32_t textW, int32_t dpiX) {
    Box box = frame;
    if ((frame.Width() - textW) % 2 != 0)
        box.right += ShadowStep(dpiX);
    return box;
}

Box SelectionRepaintBox(const Box& cell, int32_t dpiX, int32_t dpiY) {
    const int32_t gx = TextInset(dpiX);
    const int32_t gy = TextInset(dpiY);
    return Box{cell.left - gx, cell.top - gy, cell.right + gx, cell.bottom + gy};
}

PixelPoint CentredText(const Box& box, int32_t textW, int32_t textH) {
    return PixelPoint{box.left + (box.Width() - textW) / 2, box.top + (box.Height() - textH) / 2};
}
