#include "win/Gdi.h"

namespace gdi {

MemoryDc::MemoryDc(HDC target) {
    if (target != nullptr) {
        dc_ = CreateCompatibleDC(target);
        return;
    }
    HDC screen = GetDC(nullptr);
    dc_ = CreateCompatibleDC(screen);
    ReleaseDC(nullptr, screen);
}

MemoryDc::~MemoryDc() {
    if (dc_ != nullptr)
        DeleteDC(dc_);
}

OffscreenBuffer::OffscreenBuffer(HDC target, const RECT& rect) : target_(target), rect_(rect) {
    int width = rect.right - rect.left;
    int height = rect.bottom - rect.top;
    if (width <= 0 || height <= 0)
        return;
    bitmap_ = CreateCompatibleBitmap(target, width, height);
    if (bitmap_ == nullptr)
        return;
    dc_ = CreateCompatibleDC(target);
    if (dc_ == nullptr)
        return;
    previous_ = SelectObject(dc_, bitmap_);
    SetViewportOrgEx(dc_, -rect.left, -rect.top, nullptr);
}

OffscreenBuffer::~OffscreenBuffer() {
    if (dc_ != nullptr) {
        SelectObject(dc_, previous_);
        DeleteDC(dc_);
    }
    if (bitmap_ != nullptr)
        DeleteObject(bitmap_);
}

void OffscreenBuffer::Present() const {
    if (dc_ == nullptr)
        return;
    BitBlt(target_, rect_.left, rect_.top, rect_.right - rect_.left, rect_.bottom - rect_.top, dc_,
           rect_.left, rect_.top, SRCCOPY);
}

void FillSolid(HDC dc, const RECT& rect, COLORREF colour) {
    Object<HBRUSH> brush(CreateSolidBrush(colour));
    if (brush)
        FillRect(dc, &rect, brush.get());
}

}  // namespace gdi
