#include "win/ButtonBar.h"

#include <windowsx.h>

#include "base/ScreenInfo.h"
#include "win/Gdi.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

namespace {

/// A caption at the foot of a button stands this far (design pixels) above its bottom.
constexpr int kCaptionLift = 2;

}  // namespace

bool ButtonBar::CreateBar(HWND parent) {
    return WndBase::Create(0, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent) != nullptr;
}

void ButtonBar::SetButtonEnabled(int index, bool enabled) {
    if (index < 0 || index >= Count() || buttons_[index].enabled == enabled)
        return;
    buttons_[index].enabled = enabled;
    RepaintButton(index);
}

Rect ButtonBar::ButtonRect(int) const {
    return Rect{};
}

void ButtonBar::Paint(HDC dc, const RECT& clip) {
    RECT client;
    GetClientRect(hwnd_, &client);
    gdi::FillSolid(dc, client, background_);
    SetTextColor(dc, textColour_);
    SetBkMode(dc, TRANSPARENT);
    gdi::Selection font(dc, font_ != nullptr ? font_ : GetStockObject(SYSTEM_FONT));
    gdi::MemoryDc source(dc);
    for (int i = 0; i < Count(); ++i) {
        if (ButtonRect(i).Intersects(FromRECT(clip)))
            DrawButton(dc, source.Get(), i, client);
    }
}

void ButtonBar::DrawButton(HDC dc, HDC source, int index, const RECT& client) {
    const BarButton& b = buttons_[index];
    const Rect r = ButtonRect(index);
    const Point at = CellSourcePoint(b.art, b.pressed, b.enabled);
    if (b.image != nullptr && source != nullptr) {
        gdi::Selection selection(source, b.image);
        if (b.sliced) {
            FacePiece pieces[9];
            const Rect cell{at.x, at.y, at.x + b.art.width, at.y + b.art.height};
            const int count = SliceFace(cell, r, pieces);
            SetStretchBltMode(dc, COLORONCOLOR);
            for (int k = 0; k < count; ++k) {
                const FacePiece& p = pieces[k];
                StretchBlt(dc, p.target.left, p.target.top, p.target.Width(), p.target.Height(),
                           source, p.source.left, p.source.top, p.source.Width(), p.source.Height(),
                           SRCCOPY);
            }
        } else {
            BitBlt(dc, r.left, r.top, b.art.width, b.art.height, source, at.x, at.y, SRCCOPY);
        }
    }
    if (b.caption.IsEmpty())
        return;
    SIZE text{};
    GetTextExtentPoint32W(dc, W(b.caption.c_str()), b.caption.Length(), &text);
    const int x = r.left + (r.Width() - text.cx) / 2;
    const int y = b.centreCaption ? r.top + (r.Height() - text.cy) / 2
                                  : r.bottom - ScaleLength(kCaptionLift, Screen().dpiY) - text.cy;
    ExtTextOutW(dc, x, y, ETO_CLIPPED, &client, W(b.caption.c_str()),
                static_cast<UINT>(b.caption.Length()), nullptr);
}

LRESULT ButtonBar::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            return OnPaint();
        case WM_PRINTCLIENT:
            return OnPrintClient(reinterpret_cast<HDC>(wParam));
        case WM_ERASEBKGND:
            return 1;
        case WM_LBUTTONDOWN:
            return OnLButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_MOUSEMOVE:
            return OnMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_LBUTTONUP:
            return OnLButtonUp(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_CAPTURECHANGED:
            return OnCaptureChanged();
        case WM_CANCELMODE:
            return OnCancelMode();
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT ButtonBar::OnPaint() {
    gdi::PaintBuffered(hwnd_, [this](HDC dc, const RECT& dirty) { Paint(dc, dirty); });
    return 0;
}

LRESULT ButtonBar::OnPrintClient(HDC dc) {
    RECT client;
    GetClientRect(hwnd_, &client);
    Paint(dc, client);
    return 0;
}

int ButtonBar::HitTest(int x, int y) const {
    for (int i = 0; i < Count(); ++i) {
        if (ButtonRect(i).Contains(x, y))
            return i;
    }
    return -1;
}

LRESULT ButtonBar::OnLButtonDown(int x, int y) {
    const int index = HitTest(x, y);
    if (index < 0 || !buttons_[index].enabled)
        return 0;
    if (buttons_[index].actsOnPress) {
        // The parent's menu loop runs inside this SendMessage; the press lasts as long.
        SetPressed(index, true);
        SendMessageW(GetParent(hwnd_), WM_COMMAND, buttons_[index].command, 0);
        if (buttons_[index].pressed)
            SetPressed(index, false);
        return 0;
    }
    SetCapture(hwnd_);
    pressedButton_ = index;
    SetPressed(index, true);
    return 0;
}

LRESULT ButtonBar::OnMouseMove(int x, int y) {
    if (GetCapture() != hwnd_ || pressedButton_ < 0)
        return 0;
    const bool inside = ButtonRect(pressedButton_).Contains(x, y);
    if (inside != buttons_[pressedButton_].pressed)
        SetPressed(pressedButton_, inside);
    return 0;
}

LRESULT ButtonBar::OnLButtonUp(int x, int y) {
    if (GetCapture() != hwnd_)
        return 0;
    // Forget the press before releasing: the release's own WM_CAPTURECHANGED must not cancel it.
    const int index = pressedButton_;
    pressedButton_ = -1;
    ReleaseCapture();
    if (index < 0)
        return 0;
    SetPressed(index, false);
    if (ButtonRect(index).Contains(x, y))
        SendMessageW(GetParent(hwnd_), WM_COMMAND, buttons_[index].command, 0);
    return 0;
}

LRESULT ButtonBar::OnCaptureChanged() {
    DropPress();
    return 0;
}

LRESULT ButtonBar::OnCancelMode() {
    DropPress();
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    return 0;
}

// Someone else took the stylus: the press ends here, unsent, and no button stays drawn down.
void ButtonBar::DropPress() {
    pressedButton_ = -1;
    for (int i = 0; i < Count(); ++i) {
        if (buttons_[i].pressed)
            SetPressed(i, false);
    }
}

void ButtonBar::SetPressed(int index, bool pressed) {
    buttons_[index].pressed = pressed;
    RepaintButton(index);
}

void ButtonBar::RepaintButton(int index) {
    if (hwnd_ == nullptr)
        return;
    const RECT r = ToRECT(ButtonRect(index));
    InvalidateRect(hwnd_, &r, FALSE);
    UpdateWindow(hwnd_);
}
