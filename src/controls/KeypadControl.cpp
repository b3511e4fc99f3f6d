#include "controls/KeypadControl.h"

#include <windowsx.h>

#include "base/ScreenInfo.h"
#include "controls/KeyLabelLayout.h"
#include "controls/KeypadGeometry.h"
#include "controls/KeypadTyping.h"
#include "phone/ButtonFeedback.h"
#include "win/Gdi.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"
#include "win/WindowTimers.h"

namespace {

constexpr char16_t kBackspaceText[] = u"<---";

/// The font to draw with: the look's, or the system's when the owner gave none.
HGDIOBJ FontOr(HFONT font, HFONT fallback) {
    if (font != nullptr)
        return font;
    if (fallback != nullptr)
        return fallback;
    return GetStockObject(DEFAULT_GUI_FONT);
}

int FontHeight(HDC dc) {
    TEXTMETRICW metrics{};
    return GetTextMetricsW(dc, &metrics) ? metrics.tmHeight : 0;
}

int TextWidth(HDC dc, const Str& text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, W(text.c_str()), text.Length(), &size);
    return size.cx;
}

/// Draws one row at `top`, centred across `cell` and clipped to it.
void DrawRow(HDC dc, const Str& text, const RECT& cell, int top) {
    if (text.IsEmpty())
        return;
    const int left = CentredLeft(FromRECT(cell), TextWidth(dc, text));
    ExtTextOutW(dc, left, top, ETO_CLIPPED, &cell, W(text.c_str()),
                static_cast<UINT>(text.Length()), nullptr);
}

}  // namespace

KeypadControl::KeypadControl() : pulse_(&feedback::RequestPulse) {}

KeypadControl::~KeypadControl() {
    if (hwnd_ != nullptr)
        Timers().Stop(hwnd_, kRepeatTimer);
}

void KeypadControl::SetLabels(const Array<Str>& labels, const Array<Str>& subLabels,
                              bool hasSubLabels) {
    labels_ = labels;
    hasSubLabels_ = hasSubLabels;
    if (hasSubLabels)
        subLabels_ = subLabels;
    else
        subLabels_.RemoveAll();
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

void KeypadControl::SetFeedback(bool vibrate, uint32_t pulseMs) {
    vibrate_ = vibrate;
    pulseMs_ = pulseMs;
}

HWND KeypadControl::Create(HWND parent, int x, int y, int width, int height) {
    if (hwnd_ != nullptr)
        return hwnd_;  // one window per control
    return WndBase::Create(0, L"", WS_CHILD | WS_VISIBLE, x, y, width, height, parent);
}

void KeypadControl::PressKey(int key) {
    if (key < 0 || key >= kKeypadKeyCount)
        return;
    // Every key action is felt, even a backspace with nothing left to remove.
    Pulse();
    const Str next = TypedAfterKey(typed_, key);
    if (next == typed_)
        return;
    typed_ = next;
    if (listener_ != nullptr)
        listener_->OnDigitsChanged(typed_);
}

LRESULT KeypadControl::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return OnLButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_MOUSEMOVE:
            return OnMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_LBUTTONUP:
            return OnLButtonUp(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
        case WM_TIMER:
            return OnTimer(wParam);
        case WM_KEYDOWN:
            return OnKeyDown(wParam);
        case WM_CANCELMODE:
            return OnCancelMode();
        case WM_PAINT:
            return OnPaint();
        case WM_PRINTCLIENT:
            return OnPrintClient(reinterpret_cast<HDC>(wParam));
        case WM_ERASEBKGND:
            return 1;  // the paint covers every pixel
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT KeypadControl::OnLButtonDown(int x, int y) {
    const int key = KeyAt(x, y);
    if (key < 0)
        return 0;
    SetCapture(hwnd_);
    const int previous = pressedKey_;
    pressedKey_ = key;
    pressedLook_ = true;
    downPoint_ = POINT{x, y};
    if (previous >= 0 && previous != key)
        RepaintKey(previous);
    RepaintKey(key);
    if (key == kBackspaceKey)
        Timers().Start(hwnd_, kRepeatTimer, kClearAllMs);
    else
        Timers().Stop(hwnd_, kRepeatTimer);
    return 0;
}

LRESULT KeypadControl::OnMouseMove(int x, int y) {
    if (GetCapture() != hwnd_ || pressedKey_ < 0)
        return 0;
    const bool over = OverKey(pressedKey_, x, y);
    if (over != pressedLook_) {
        pressedLook_ = over;
        RepaintKey(pressedKey_);
    }
    // A hold counts only while the finger stays on the key; coming back does not restart it.
    if (!over)
        Timers().Stop(hwnd_, kRepeatTimer);
    return 0;
}

LRESULT KeypadControl::OnLButtonUp(int x, int y) {
    Timers().Stop(hwnd_, kRepeatTimer);
    if (GetCapture() == hwnd_) {
        ReleaseCapture();
        const int key = pressedKey_;
        pressedKey_ = -1;
        if (key >= 0) {
            pressedLook_ = false;
            RepaintKey(key);
            if (OverKey(key, x, y))
                PressKey(key);
        }
    }
    pressedKey_ = -1;
    return 0;
}

LRESULT KeypadControl::OnTimer(UINT_PTR id) {
    if (id != kRepeatTimer)
        return 0;
    Timers().Stop(hwnd_, kRepeatTimer);
    if (pressedKey_ < 0)
        return 0;
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    const int key = pressedKey_;
    pressedKey_ = -1;
    pressedLook_ = false;
    RepaintKey(key);
    // The held backspace clears everything at once; the release that follows does nothing more.
    Pulse();
    if (!typed_.IsEmpty()) {
        typed_.Empty();
        if (listener_ != nullptr)
            listener_->OnDigitsChanged(typed_);
    }
    return 0;
}

LRESULT KeypadControl::OnKeyDown(WPARAM code) {
    const int key = KeyForHardwareCode(static_cast<uint32_t>(code));
    if (key >= 0)
        PressKey(key);
    return 0;
}

LRESULT KeypadControl::OnCancelMode() {
    Timers().Stop(hwnd_, kRepeatTimer);
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    // Someone else took the stylus: the press ends unacted and no key stays drawn down.
    const int key = pressedKey_;
    pressedKey_ = -1;
    pressedLook_ = false;
    if (key >= 0)
        RepaintKey(key);
    return 0;
}

LRESULT KeypadControl::OnPaint() {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd_, &ps);
    Paint(dc);
    EndPaint(hwnd_, &ps);
    return 0;
}

LRESULT KeypadControl::OnPrintClient(HDC dc) {
    Paint(dc);
    return 0;
}

void KeypadControl::Paint(HDC target) {
    const RECT client = Client();
    gdi::OffscreenBuffer buffer(target, client);
    HDC dc = buffer.Dc();
    gdi::FillSolid(dc, client, look_.background);
    SetBkMode(dc, TRANSPARENT);
    for (int key = 0; key < kKeypadKeyCount; ++key)
        DrawKey(dc, key, client);
    buffer.Present();
}

void KeypadControl::DrawKey(HDC dc, int key, const RECT& client) {
    const Rect cell = KeyCell(FromRECT(client), key);
    const Rect face = KeyFace(cell, KeyGap(EffectiveDpiX()), KeyGap(EffectiveDpiY()));
    const bool pressed = key == pressedKey_ && pressedLook_;
    gdi::FillSolid(dc, ToRECT(face), pressed ? look_.pressedBackground : look_.background);
    const COLORREF text = pressed ? look_.pressedText : look_.text;
    const COLORREF secondText = pressed ? look_.pressedText : look_.secondRowText;
    const RECT cellRect = ToRECT(cell);
    if (key == kBackspaceKey) {
        gdi::Selection font(dc, FontOr(look_.font, nullptr));
        SetTextColor(dc, text);
        DrawRow(dc, kBackspaceText, cellRect, CentredTop(cell, FontHeight(dc)));
        return;
    }
    DrawLabels(dc, key, cellRect, text, secondText);
}

void KeypadControl::DrawLabels(HDC dc, int key, const RECT& cell, COLORREF text,
                               COLORREF secondText) {
    const int index = key - 1;
    if (index >= labels_.Size())
        return;  // a short layout: the key types its digit but shows no letters
    const HGDIOBJ mainFont = FontOr(look_.font, nullptr);
    const HGDIOBJ secondFont = FontOr(look_.secondFont, look_.font);
    int firstHeight = 0;
    int secondHeight = 0;
    {
        gdi::Selection font(dc, mainFont);
        firstHeight = FontHeight(dc);
    }
    if (hasSubLabels_) {
        gdi::Selection font(dc, secondFont);
        secondHeight = FontHeight(dc);
    }
    const LabelRows rows = PlaceLabelRows(FromRECT(cell), firstHeight, secondHeight, hasSubLabels_);
    {
        gdi::Selection font(dc, mainFont);
        SetTextColor(dc, text);
        DrawRow(dc, labels_[index], cell, rows.firstTop);
    }
    if (rows.twoRows && index < subLabels_.Size()) {
        gdi::Selection font(dc, secondFont);
        SetTextColor(dc, secondText);
        DrawRow(dc, subLabels_[index], cell, rows.secondTop);
    }
}

RECT KeypadControl::Client() const {
    RECT client{};
    if (hwnd_ != nullptr)
        GetClientRect(hwnd_, &client);
    return client;
}

int KeypadControl::KeyAt(int x, int y) const {
    return HitKey(FromRECT(Client()), Point{x, y});
}

bool KeypadControl::OverKey(int key, int x, int y) const {
    return KeyCell(FromRECT(Client()), key).Contains(x, y);
}

void KeypadControl::RepaintKey(int key) {
    if (hwnd_ == nullptr)
        return;
    const RECT cell = ToRECT(KeyCell(FromRECT(Client()), key));
    InvalidateRect(hwnd_, &cell, FALSE);
    UpdateWindow(hwnd_);
}

void KeypadControl::Pulse() {
    if (vibrate_ && pulse_ != nullptr)
        pulse_(pulseMs_);
}
