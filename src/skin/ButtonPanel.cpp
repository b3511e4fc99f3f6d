#include "skin/ButtonPanel.h"

#include <windowsx.h>

#include "base/ScreenInfo.h"
#include "platform/DeviceScreen.h"
#include "skin/Skin.h"
#include "win/Gdi.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

namespace {

/// The panel images, by orientation: first (Prev, Next) and second (Menu, Close).
struct PanelImages {
    uint32_t firstId;
    const char16_t* firstName;
    uint32_t secondId;
    const char16_t* secondName;
};
constexpr PanelImages kPortraitImages{skin_bitmap::kPortraitPanel1, u"p_panel_1",
                                      skin_bitmap::kPortraitPanel2, u"p_panel_2"};
constexpr PanelImages kLandscapeImages{skin_bitmap::kLandscapePanel1, u"l_panel_1",
                                       skin_bitmap::kLandscapePanel2, u"l_panel_2"};
/// The caption's bottom stands this far (design pixels) above the button's bottom.
constexpr int kCaptionLift = 2;

}  // namespace

ButtonPanel::~ButtonPanel() {
    if (first_ != nullptr)
        DeleteObject(first_);
    if (second_ != nullptr)
        DeleteObject(second_);
}

bool ButtonPanel::Create(HWND parent) {
    if (hwnd_ != nullptr)
        return true;
    if (WndBase::Create(0, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, parent) == nullptr) {
        return false;
    }
    for (int i = 0; i < 4; ++i) {
        buttons_[i].command = kPanelCommands[i];
        // Str::LoadString is out of reach here: <windows.h> renames it to LoadStringW.
        char16_t caption[64];
        SafeLoadStr(kPanelCaptions[i], caption, 64);
        buttons_[i].caption = caption;
    }
    Layout();
    return true;
}

void ButtonPanel::Layout() {
    landscape_ = device::SystemMetrics(SM_CXSCREEN) > device::SystemMetrics(SM_CYSCREEN);
    const PanelImages& images = landscape_ ? kLandscapeImages : kPortraitImages;
    if (first_ != nullptr)
        DeleteObject(first_);
    first_ = skin_.LoadSkinBitmap(images.firstId, images.firstName);
    firstSize_ = Skin::BitmapSize(first_);
    if (second_ != nullptr)
        DeleteObject(second_);
    second_ = skin_.LoadSkinBitmap(images.secondId, images.secondName);
    secondSize_ = Skin::BitmapSize(second_);
    PanelButtonArt art[4];
    PanelButtonsFromImages(landscape_, firstSize_.cx, firstSize_.cy, secondSize_.cx, secondSize_.cy,
                           art);
    for (int i = 0; i < 4; ++i)
        buttons_[i].art = art[i];
}

int ButtonPanel::Thickness() const {
    return landscape_ ? PanelThickness(firstSize_.cx, secondSize_.cx)
                      : PanelThickness(firstSize_.cy, secondSize_.cy);
}

void ButtonPanel::SetButtonEnabled(int index, bool enabled) {
    if (index < 0 || index > 3 || buttons_[index].enabled == enabled)
        return;
    buttons_[index].enabled = enabled;
    RepaintButton(index);
}

void ButtonPanel::GetButtonRect(int index, RECT& rect) const {
    if (index < 0 || index > 3 || hwnd_ == nullptr)
        return;
    RECT client;
    GetClientRect(hwnd_, &client);
    PanelButtonArt art[4];
    for (int i = 0; i < 4; ++i)
        art[i] = buttons_[i].art;
    rect = ToRECT(PanelButtonRect(index, FromRECT(client), landscape_, art));
}

void ButtonPanel::Paint(HDC dc, const RECT& clip) {
    RECT client;
    GetClientRect(hwnd_, &client);
    gdi::FillSolid(dc, client, background_);
    SetTextColor(dc, RGB(0, 0, 0));
    SetBkMode(dc, TRANSPARENT);
    gdi::Selection font(dc, font_ != nullptr ? font_ : GetStockObject(SYSTEM_FONT));
    HDC source = CreateCompatibleDC(dc);
    for (int i = 0; i < 4; ++i) {
        RECT r{};
        GetButtonRect(i, r);
        RECT overlap;
        if (IntersectRect(&overlap, &r, &clip))
            DrawButton(dc, source, i);
    }
    DeleteDC(source);
}

void ButtonPanel::DrawButton(HDC dc, HDC source, int index) {
    const PanelButton& b = buttons_[index];
    RECT r{};
    GetButtonRect(index, r);
    const Point at = PanelSourcePoint(b.art, b.pressed, b.enabled);
    HBITMAP image = index < 2 ? first_ : second_;
    if (image != nullptr) {
        gdi::Selection selection(source, image);
        BitBlt(dc, r.left, r.top, b.art.width, b.art.height, source, at.x, at.y, SRCCOPY);
    }
    if (b.caption.IsEmpty())
        return;
    SIZE text{};
    GetTextExtentPoint32W(dc, W(b.caption.c_str()), b.caption.Length(), &text);
    const int x = r.left + (b.art.width - text.cx) / 2;
    const int y = r.bottom - ScaleLength(kCaptionLift, Screen().dpiY) - text.cy;
    RECT client;
    GetClientRect(hwnd_, &client);
    ExtTextOutW(dc, x, y, ETO_CLIPPED, &client, W(b.caption.c_str()),
                static_cast<UINT>(b.caption.Length()), nullptr);
}

LRESULT ButtonPanel::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            return OnPaint();
        case WM_ERASEBKGND:
            return 1;
        case WM_LBUTTONDOWN:
            return OnLButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_MOUSEMOVE:
            return OnMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_LBUTTONUP:
            return OnLButtonUp(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT ButtonPanel::OnPaint() {
    gdi::PaintBuffered(hwnd_, [this](HDC dc, const RECT& dirty) { Paint(dc, dirty); });
    return 0;
}

int ButtonPanel::HitTest(int x, int y) const {
    for (int i = 0; i < 4; ++i) {
        RECT r{};
        GetButtonRect(i, r);
        if (FromRECT(r).Contains(x, y))
            return i;
    }
    return -1;
}

LRESULT ButtonPanel::OnLButtonDown(int x, int y) {
    const int index = HitTest(x, y);
    if (index < 0 || !buttons_[index].enabled)
        return 0;
    if (index == kPanelMenuButton) {
        // The menu opens on press: the parent's menu loop runs inside this SendMessage.
        SetPressed(index, true);
        SendMessageW(GetParent(hwnd_), WM_COMMAND, buttons_[index].command, 0);
        SetPressed(index, false);
        return 0;
    }
    SetCapture(hwnd_);
    pressedButton_ = index;
    SetPressed(index, true);
    return 0;
}

LRESULT ButtonPanel::OnMouseMove(int x, int y) {
    if (GetCapture() != hwnd_ || pressedButton_ < 0)
        return 0;
    RECT r{};
    GetButtonRect(pressedButton_, r);
    const bool inside = FromRECT(r).Contains(x, y);
    if (inside != buttons_[pressedButton_].pressed)
        SetPressed(pressedButton_, inside);
    return 0;
}

LRESULT ButtonPanel::OnLButtonUp(int x, int y) {
    if (GetCapture() != hwnd_)
        return 0;
    ReleaseCapture();
    const int index = pressedButton_;
    if (index < 0)
        return 0;
    SetPressed(index, false);
    RECT r{};
    GetButtonRect(index, r);
    if (FromRECT(r).Contains(x, y)) {
        SendMessageW(GetParent(hwnd_), WM_COMMAND, buttons_[index].command, 0);
    }
    pressedButton_ = -1;
    return 0;
}

void ButtonPanel::SetPressed(int index, bool pressed) {
    buttons_[index].pressed = pressed;
    RepaintButton(index);
}

void ButtonPanel::RepaintButton(int index) {
    if (hwnd_ == nullptr)
        return;
    RECT r{};
    GetButtonRect(index, r);
    InvalidateRect(hwnd_, &r, FALSE);
    UpdateWindow(hwnd_);
}
