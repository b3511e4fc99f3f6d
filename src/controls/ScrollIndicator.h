#pragma once
// ScrollIndicator: the flick list's thin scroll indicator along its right edge, drawn by the
// list into its own painting. With a thumb bitmap it is an overlay: the bitmap blended over the
// rows, shown while a gesture runs and faded out in five steps afterwards. Without one it is a
// classic bar with two arrows that repeat while pressed. Presses on it scroll the list through
// WM_VSCROLL sent to the list.

#include <windows.h>

#include "controls/IndicatorGeometry.h"

class ScrollIndicator {
  public:
    /// Repeats an arrow or page press of the classic bar every 100 ms while the stylus is down.
    static constexpr UINT_PTR kRepeatTimer = 110;
    static constexpr UINT kRepeatMs = 100;
    /// Steps the overlay's fade-out every 60 ms after it is hidden.
    static constexpr UINT_PTR kFadeTimer = 111;
    static constexpr UINT kFadeMs = 60;

    ScrollIndicator() = default;
    ScrollIndicator(const ScrollIndicator&) = delete;
    ScrollIndicator& operator=(const ScrollIndicator&) = delete;

    /// Belongs to `window` from now on; `thumb` (borrowed, may be null) makes it an overlay as
    /// wide as the bitmap with the bitmap's height as thumb length.
    void Attach(HWND window, HBITMAP thumb);
    bool IsOverlay() const { return thumb_ != nullptr; }
    /// The width the rows leave to it: the classic bar's width; 0 for the overlay.
    int ReservedWidth() const;
    /// Its strip along the window's right edge, in client coordinates.
    RECT Area() const;
    /// Where the thumb is drawn, in client coordinates.
    RECT ThumbRect() const;

    /// Takes a new range, page and position (what the list's scroll information says).
    void SetScrollInfo(const flick::ScrollRange& range);
    /// Moves the thumb (kept within minimum..maximum - page in the classic form) and repaints the
    /// old and new thumb: invalidated for the overlay, drawn at once for the classic bar.
    void SetPosition(int position);
    const flick::ScrollRange& Range() const { return range_; }

    /// Shows the overlay (stopping any fade) and repaints it.
    void Show();
    /// Hides it: the overlay fades out in five steps of kFadeTimer.
    void Hide();
    bool Visible() const { return visible_; }
    /// 0 while shown or just hidden, up to 5 once faded.
    int FadeStep() const { return fadeStep_; }
    /// The overlay's constant alpha now (0: nothing drawn).
    int Alpha() const;
    /// The part being pressed (flick::IndicatorPart), or kPartNone.
    int PressedPart() const { return pressed_; }
    bool Pressed() const { return pressed_ != flick::kPartNone; }
    /// Marks its strip for repainting.
    void Invalidate() const;

    /// Draws itself into `dc` (client coordinates) where it meets `clip`.
    void Paint(HDC dc, const RECT& clip) const;

    /// A press at (x, y): true when it lands in the strip and the indicator takes it (capturing
    /// the stylus for the window and scrolling the list).
    bool OnPress(int x, int y);
    /// A move while pressed: a held thumb drags the list (SB_THUMBTRACK).
    void OnMove(int x, int y);
    /// The release of its press: stops the repeat, releases the capture, repaints.
    void OnRelease();
    /// Handles its own timers (repeat and fade); false for any other id.
    bool OnTimer(UINT_PTR id);

  private:
    int TrackLength() const;
    flick::Thumb CurrentThumb() const;
    int BitmapWidth() const { return thumbSize_.cx; }
    int BitmapHeight() const { return thumbSize_.cy; }
    void Scroll(int code, int position) const;
    void RepeatPressedPart() const;
    void PaintOverlay(HDC dc) const;
    void PaintClassic(HDC dc, const RECT& clip) const;
    void DrawClassicNow() const;

    HWND window_ = nullptr;
    HBITMAP thumb_ = nullptr;
    SIZE thumbSize_{0, 0};
    flick::ClassicMetrics classic_;
    flick::ScrollRange range_;
    int pressed_ = flick::kPartNone;
    int grab_ = 0;
    bool visible_ = false;
    int fadeStep_ = flick::kFadeSteps;  ///< at rest the overlay is faded out
};
