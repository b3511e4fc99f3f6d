#include "controls/ScrollIndicator.h"

#include <algorithm>

#include "base/ScreenInfo.h"
#include "win/Gdi.h"
#include "win/WindowTimers.h"

namespace {

// The classic bar's light face: red 206, green 220, blue 239.
constexpr COLORREF kFaceColour = RGB(206, 220, 239);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// What a held classic part repeats, by part (up arrow, down arrow, thumb, page above, below).
constexpr int kRepeatCode[] = {SB_LINEUP, SB_LINEDOWN, -1, SB_PAGEUP, SB_PAGEDOWN};

RECT Intersection(const RECT& a, const RECT& b) {
    RECT out{};
    IntersectRect(&out, &a, &b);
    return out;
}

bool Meets(const RECT& a, const RECT& b) {
    RECT out;
    return IntersectRect(&out, &a, &b) != FALSE;
}

void Outline(HDC dc, const RECT& rect, COLORREF fill, COLORREF pen, int penWidth) {
    gdi::FillSolid(dc, rect, pen);
    RECT inner{rect.left + penWidth, rect.top + penWidth, rect.right - penWidth,
               rect.bottom - penWidth};
    if (inner.right > inner.left && inner.bottom > inner.top)
        gdi::FillSolid(dc, inner, fill);
}

// An arrow button: a light face outlined in black (inverted while pressed) with a triangle of
// stacked bars, one design pixel high, narrowing by two design pixels per row.
void DrawArrow(HDC dc, const RECT& rect, bool up, bool pressed) {
    int unitX = std::max(1, ScaleX(1));
    int unitY = std::max(1, ScaleY(1));
    COLORREF face = pressed ? kBlack : kFaceColour;
    COLORREF glyph = pressed ? kWhite : kBlack;
    Outline(dc, rect, face, kBlack, unitX);
    int width = rect.right - rect.left;
    int height = rect.bottom - rect.top;
    int widest = std::max(unitX, (width / 2) | 1);
    int rows = (widest + 2 * unitX - 1) / (2 * unitX);
    int top = rect.top + (height - rows * unitY) / 2;
    for (int row = 0; row < rows; ++row) {
        int bar = widest - 2 * unitX * (up ? rows - 1 - row : row);
        int left = rect.left + (width - bar) / 2;
        RECT r{left, top + row * unitY, left + bar, top + (row + 1) * unitY};
        gdi::FillSolid(dc, r, glyph);
    }
}

// The classic thumb: the light face, outlined, with three short grip bars across its middle.
void DrawClassicThumb(HDC dc, const RECT& rect) {
    int unitX = std::max(1, ScaleX(1));
    int unitY = std::max(1, ScaleY(1));
    Outline(dc, rect, kFaceColour, kBlack, unitX);
    int width = rect.right - rect.left;
    int middle = (rect.top + rect.bottom) / 2;
    for (int bar = -1; bar <= 1; ++bar) {
        int y = middle + bar * 2 * unitY;
        RECT r{rect.left + width / 4, y, rect.right - width / 4, y + unitY};
        if (r.top > rect.top && r.bottom < rect.bottom)
            gdi::FillSolid(dc, r, kBlack);
    }
}

// Draws one classic part through its own memory bitmap, then keeps it out of later drawing.
template <typename DrawFn>
void DrawPart(HDC dc, const RECT& rect, const RECT& clip, DrawFn draw) {
    if (rect.right <= rect.left || rect.bottom <= rect.top || !Meets(rect, clip))
        return;
    gdi::OffscreenBuffer buffer(dc, rect);
    draw(buffer.Dc(), rect);
    buffer.Present();
    ExcludeClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
}

}  // namespace

void ScrollIndicator::Attach(HWND window, HBITMAP thumb) {
    window_ = window;
    thumb_ = thumb;
    thumbSize_ = SIZE{0, 0};
    BITMAP info{};
    if (thumb_ != nullptr && GetObjectW(thumb_, sizeof(info), &info) == sizeof(info) &&
        info.bmWidth > 0 && info.bmHeight > 0) {
        thumbSize_ = SIZE{info.bmWidth, std::abs(info.bmHeight)};
    } else {
        // Not a usable bitmap: the classic bar stands in.
        thumb_ = nullptr;
    }
    classic_ = flick::ScaledClassicMetrics(EffectiveDpiX(), EffectiveDpiY());
}

int ScrollIndicator::ReservedWidth() const {
    return IsOverlay() ? 0 : classic_.width;
}

RECT ScrollIndicator::Area() const {
    RECT client{};
    if (window_ != nullptr)
        GetClientRect(window_, &client);
    int width = IsOverlay() ? BitmapWidth() : classic_.width;
    client.left = std::max(client.left, client.right - width);
    return client;
}

int ScrollIndicator::TrackLength() const {
    RECT area = Area();
    return area.bottom - area.top;
}

flick::Thumb ScrollIndicator::CurrentThumb() const {
    RECT area = Area();
    if (IsOverlay())
        return flick::OverlayThumb(range_, area.top, TrackLength(), BitmapHeight());
    flick::Thumb thumb = flick::ClassicThumb(range_, TrackLength(), classic_);
    thumb.top += area.top;
    return thumb;
}

RECT ScrollIndicator::ThumbRect() const {
    RECT area = Area();
    flick::Thumb thumb = CurrentThumb();
    return RECT{area.left, thumb.top, area.right, thumb.top + thumb.length};
}

void ScrollIndicator::SetScrollInfo(const flick::ScrollRange& range) {
    RECT before = ThumbRect();
    range_ = range;
    if (!IsOverlay())
        range_.position = std::clamp(range_.position, range_.minimum,
                                     std::max(range_.minimum, range_.maximum - range_.page));
    RECT after = ThumbRect();
    if (window_ == nullptr)
        return;
    InvalidateRect(window_, &before, FALSE);
    InvalidateRect(window_, &after, FALSE);
}

void ScrollIndicator::SetPosition(int position) {
    if (!IsOverlay())
        position = std::clamp(position, range_.minimum,
                              std::max(range_.minimum, range_.maximum - range_.page));
    if (position == range_.position)
        return;
    RECT before = ThumbRect();
    range_.position = position;
    RECT after = ThumbRect();
    if (window_ == nullptr)
        return;
    InvalidateRect(window_, &before, FALSE);
    InvalidateRect(window_, &after, FALSE);
    if (!IsOverlay())
        DrawClassicNow();
}

void ScrollIndicator::DrawClassicNow() const {
    RECT area = Area();
    if (area.right <= area.left || !IsWindowVisible(window_))
        return;
    HDC dc = GetDC(window_);
    if (dc == nullptr)
        return;
    Paint(dc, area);
    ReleaseDC(window_, dc);
    ValidateRect(window_, &area);
}

void ScrollIndicator::Show() {
    Timers().Stop(window_, kFadeTimer);
    visible_ = true;
    fadeStep_ = 0;
    Invalidate();
}

void ScrollIndicator::Hide() {
    if (!visible_)
        return;
    visible_ = false;
    fadeStep_ = 0;
    if (IsOverlay() && window_ != nullptr)
        Timers().Start(window_, kFadeTimer, kFadeMs);
    Invalidate();
}

int ScrollIndicator::Alpha() const {
    return flick::OverlayAlpha(visible_, fadeStep_, pressed_ == flick::kPartThumb);
}

void ScrollIndicator::Invalidate() const {
    if (window_ == nullptr)
        return;
    RECT area = Area();
    InvalidateRect(window_, &area, FALSE);
}

void ScrollIndicator::Paint(HDC dc, const RECT& clip) const {
    if (!Meets(Area(), clip))
        return;
    if (IsOverlay())
        PaintOverlay(dc);
    else
        PaintClassic(dc, clip);
}

void ScrollIndicator::PaintOverlay(HDC dc) const {
    int alpha = Alpha();
    if (alpha <= 0)
        return;
    gdi::MemoryDc source(dc);
    if (source.Get() == nullptr)
        return;
    gdi::Selection selected(source.Get(), thumb_);
    RECT area = Area();
    int left = area.left + ((area.right - area.left) - BitmapWidth()) / 2;
    flick::Thumb thumb = CurrentThumb();
    BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(alpha), 0};
    for (const flick::BandCopy& copy :
         flick::StretchBands(thumb.top, thumb.length, BitmapHeight())) {
        AlphaBlend(dc, left, copy.top, BitmapWidth(), copy.rows, source.Get(), 0, copy.sourceTop,
                   BitmapWidth(), copy.rows, blend);
    }
}

void ScrollIndicator::PaintClassic(HDC dc, const RECT& clip) const {
    RECT area = Area();
    RECT up{area.left, area.top, area.right, area.top + classic_.arrowHeight};
    RECT down{area.left, area.bottom - classic_.arrowHeight, area.right, area.bottom};
    RECT thumb = ThumbRect();
    int saved = SaveDC(dc);
    DrawPart(dc, up, clip, [this](HDC part, const RECT& r) {
        DrawArrow(part, r, true, pressed_ == flick::kPartUpArrow);
    });
    DrawPart(dc, down, clip, [this](HDC part, const RECT& r) {
        DrawArrow(part, r, false, pressed_ == flick::kPartDownArrow);
    });
    DrawPart(dc, thumb, clip, [](HDC part, const RECT& r) { DrawClassicThumb(part, r); });
    // What is left of the bar: white with a one-pixel black frame.
    RECT rest = Intersection(area, clip);
    if (rest.right > rest.left) {
        gdi::Selection pen(dc, GetStockObject(BLACK_PEN));
        gdi::Selection brush(dc, GetStockObject(WHITE_BRUSH));
        Rectangle(dc, area.left, area.top, area.right, area.bottom);
    }
    RestoreDC(dc, saved);
}

void ScrollIndicator::Scroll(int code, int position) const {
    SendMessageW(window_, WM_VSCROLL, MAKEWPARAM(code, position), 0);
}

bool ScrollIndicator::OnPress(int x, int y) {
    RECT area = Area();
    POINT point{x, y};
    if (window_ == nullptr || !PtInRect(&area, point))
        return false;
    // An overlay over a list with nothing to scroll draws nothing there: the rows keep the tap.
    if (IsOverlay() && range_.maximum - range_.minimum + 1 <= range_.page)
        return false;
    SetCapture(window_);
    RECT thumb = ThumbRect();
    int length = thumb.bottom - thumb.top;
    if (IsOverlay()) {
        pressed_ = flick::kPartThumb;
        grab_ = PtInRect(&thumb, point) ? y - thumb.top : length / 2;
        Scroll(SB_THUMBTRACK,
               flick::OverlayPositionAt(range_, y, grab_, area.top, TrackLength(), length));
        Show();
        return true;
    }
    pressed_ = flick::ClassicPartAt(range_, y - area.top, TrackLength(), classic_);
    grab_ = y - thumb.top;
    if (pressed_ == flick::kPartUpArrow || pressed_ == flick::kPartDownArrow) {
        RepeatPressedPart();
        Invalidate();
    }
    if (pressed_ != flick::kPartThumb)
        Timers().Start(window_, kRepeatTimer, kRepeatMs);
    return true;
}

void ScrollIndicator::RepeatPressedPart() const {
    if (pressed_ < 0 || pressed_ >= static_cast<int>(std::size(kRepeatCode)))
        return;
    int code = kRepeatCode[pressed_];
    if (code >= 0)
        Scroll(code, 0);
}

void ScrollIndicator::OnMove(int, int y) {
    if (pressed_ != flick::kPartThumb)
        return;
    RECT area = Area();
    int position;
    if (IsOverlay()) {
        position = flick::OverlayPositionAt(range_, y, grab_, area.top, TrackLength(),
                                            CurrentThumb().length);
    } else {
        position = flick::ClassicPositionAt(range_, y - area.top, grab_, TrackLength(), classic_,
                                            ScaleY(1));
    }
    Scroll(SB_THUMBTRACK, position);
}

void ScrollIndicator::OnRelease() {
    // Stopping also drops the repeat's ticks already queued, so none scrolls after the release.
    Timers().Stop(window_, kRepeatTimer);
    pressed_ = flick::kPartNone;
    if (GetCapture() == window_)
        ReleaseCapture();
    // The overlay's gesture is over: it fades out as after a drag.
    if (IsOverlay())
        Hide();
    Invalidate();
}

bool ScrollIndicator::OnTimer(UINT_PTR id) {
    if (id == kRepeatTimer) {
        RepeatPressedPart();
        return true;
    }
    if (id != kFadeTimer)
        return false;
    fadeStep_ = std::min(fadeStep_ + 1, flick::kFadeSteps);
    if (fadeStep_ >= flick::kFadeSteps)
        Timers().Stop(window_, kFadeTimer);
    Invalidate();
    return true;
}
