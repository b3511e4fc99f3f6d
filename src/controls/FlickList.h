#pragma once
// FlickList: the program's finger-scrolled list. A child window of rows of one fixed height,
// scrolled by pixels, with one selected row, drawn entirely by its owner (FlickListListener) and
// with a thin scroll indicator along its right edge. A drag scrolls it (at half speed beyond
// either end), a quick release flings it on with an ease-out, and it bounces back from the ends.
//
// The owner constructs it, sets the row height and placement, calls Create and SetItemCount; the
// list lives until its window is destroyed with the owner.

#include <windows.h>

#include <cstdint>

#include "controls/FlickListListener.h"
#include "controls/FlickPhysics.h"
#include "controls/ListGeometry.h"
#include "controls/ScrollIndicator.h"
#include "win/WndBase.h"

class FlickList : public WndBase {
  public:
    /// The list's private messages: run the fling with the stored velocity, return a negative
    /// offset to 0, return an offset beyond the maximum to the maximum.
    static constexpr UINT kFlingMessage = WM_USER + 101;
    static constexpr UINT kBounceTopMessage = WM_USER + 102;
    static constexpr UINT kBounceEndMessage = WM_USER + 103;
    /// WM_VSCROLL's own code: scroll by the signed amount in the high word.
    static constexpr int kScrollByCode = 1005;
    /// The hold timer: a press (or Enter) held this long is reported through OnHold.
    static constexpr UINT_PTR kHoldTimer = 2;
    static constexpr UINT kHoldMs = 500;
    /// The Action key, which activates the selection like Enter.
    static constexpr UINT kActionKey = 134;

    FlickList();
    ~FlickList() override;

    // Set by the owner before Create.

    void SetListener(FlickListListener* listener) { listener_ = listener; }
    void SetItemHeight(int height) { itemHeight_ = height; }
    /// Where the list sits in its parent and how high it may grow when it sizes itself to its
    /// rows; with `fixedHeight` it always takes `maxHeight`.
    void SetPlacement(int x, int y, int width, int maxHeight, bool fixedHeight);
    /// Paint through one off-screen bitmap of the whole view and scroll with ScrollWindowEx
    /// (true), or row by row through a one-row bitmap (false).
    void SetWholeViewBuffer(bool on) { wholeView_ = on; }
    /// Press-and-hold reported through OnHold.
    void SetHoldEnabled(bool on) { holdEnabled_ = on; }
    /// The list hides itself when it loses activation or the focus.
    void SetHideOnDeactivate(bool on) { hideOnDeactivate_ = on; }

    /// Creates the child window (WS_CHILD | WS_BORDER) in `parent` at the placement, with the
    /// scroll indicator drawn from `thumb` (an alpha-blended overlay thumb; none: a classic bar).
    /// Reports the current selection to the listener. Returns the window, or null.
    HWND Create(HWND parent, HBITMAP thumb);

    /// Selection 0, offset 0, `count` rows; sizes the list to its rows, updates the scroll
    /// information with clamping, repaints at once.
    void SetItemCount(int count);
    /// Unless the height is fixed, min(maximum height, rows' height + borders); moves the window
    /// to the placement with that height, without repainting.
    void SizeToContent();
    /// Selects `index` (-1: none) without scrolling; repaints the old and new rows.
    void SetSelection(int index, bool byKeyboard);
    /// Selects `index` (a tap) and scrolls it into view when it is not wholly visible.
    void SelectAndReveal(int index);
    /// For an index in range, scrolls the current selection (whatever index is given: kept on
    /// purpose) to the bottom row when it is not wholly visible.
    void Reveal(int index);
    /// The row's rectangle in client coordinates; empty when out of range or without a window.
    RECT GetRowRect(int index) const;
    /// The row at the point, or -1.
    int HitTest(int x, int y) const;
    /// Whole rows the view holds, at least 1.
    int VisibleRows() const;
    /// Recomputes the range and page and hands them with the offset to the indicator; with
    /// `clamp` (or outside whole-view mode) the offset is first kept within the range.
    void UpdateScrollInfo(bool clamp);
    /// The client rectangle less the classic indicator's width.
    RECT View() const;

    int ItemCount() const { return count_; }
    int ItemHeight() const { return itemHeight_; }
    int Selection() const { return selection_; }
    /// Pixels from the top of row 0 to the top of the view; outside 0..MaxOffset while a gesture
    /// runs.
    int Offset() const { return offset_; }
    /// max(0, rows' height - view height).
    int MaxOffset() const;
    /// The scroll indicator drawn along the right edge.
    const ScrollIndicator& Indicator() const { return indicator_; }

    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    using KeyHandler = void (FlickList::*)();
    struct KeyRoute {
        UINT key;
        KeyHandler handler;
    };
    static const KeyRoute kKeyRoutes[];

    // Messages.
    LRESULT OnSize(HWND hwnd, WPARAM wParam, LPARAM lParam);
    void OnActivation(WPARAM wParam);
    LRESULT OnSetFocus(HWND hwnd, WPARAM wParam, LPARAM lParam);
    LRESULT OnKillFocus(HWND hwnd, WPARAM wParam, LPARAM lParam);
    void OnPaint();
    void OnPrintClient(HDC dc);
    void OnCancelMode();
    void OnKeyDown(WPARAM key, LPARAM keyData);
    void OnKeyUp(WPARAM key, LPARAM keyData);
    void OnChar(WPARAM character, LPARAM keyData);
    void OnTimer(UINT_PTR id);
    void OnVScroll(WPARAM wParam);
    void OnLButtonDown(int x, int y);
    void OnMouseMove(int x, int y);
    void OnLButtonUp(int x, int y, WPARAM keyState);
    void OnFling();
    void OnBounceTop();
    void OnBounceEnd();

    // Keys.
    void KeyHome();
    void KeyEnd();
    void KeyUp();
    void KeyDown();
    void KeyPageUp();
    void KeyPageDown();
    void KeyEnter();
    void KeyIgnored() {}
    void Go(flick::NavKey key);
    void DropKeyRepeatsAhead();

    // Gestures.
    void CancelHold();
    void OnHoldTimer();
    bool PressWaiting() const;
    void RepaintNow();

    // Scrolling and painting.
    void ScrollByCode(int code, int position);
    void PublishRange();
    flick::ListState State() const;
    int ViewHeight() const;
    void InvalidateRow(int index);
    void PaintTo(HDC dc);
    void PaintRows(HDC dc, const RECT& clip);
    void PaintRowByRow(HDC dc, const RECT& clip);
    void PaintEmptySpace(HDC dc);

    FlickListListener* listener_ = nullptr;
    int count_ = 0;
    int itemHeight_ = 1;
    int selection_ = -1;
    int offset_ = 0;
    bool wholeView_ = true;
    bool holdEnabled_ = false;
    bool hideOnDeactivate_ = false;
    int x_ = 0;
    int y_ = 0;
    int width_ = 0;
    int maxHeight_ = 0;
    bool fixedHeight_ = false;
    ScrollIndicator indicator_;

    POINT press_{0, 0};  ///< where the stylus went down; during a drag, y is the last move's
    bool dragging_ = false;
    bool holdPending_ = false;
    bool enterPressed_ = false;
    flick::VelocitySample sample_;
    int velocity_ = 0;  ///< the release's pixels per second, for the fling
};
