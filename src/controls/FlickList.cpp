// The flick list's model, geometry, selection, window procedure and painting; its gestures, keys
// and animations are in FlickListInput.cpp.
#include "controls/FlickList.h"

#include <windowsx.h>

#include <algorithm>

#include "win/Gdi.h"
#include "win/RectConvert.h"
#include "win/WindowTimers.h"

FlickList::FlickList() = default;

FlickList::~FlickList() {
    if (hwnd_ != nullptr && IsWindow(hwnd_)) {
        Timers().Stop(hwnd_, kHoldTimer);
        Timers().Stop(hwnd_, ScrollIndicator::kRepeatTimer);
        Timers().Stop(hwnd_, ScrollIndicator::kFadeTimer);
    }
}

void FlickList::SetPlacement(int x, int y, int width, int maxHeight, bool fixedHeight) {
    x_ = x;
    y_ = y;
    width_ = width;
    maxHeight_ = maxHeight;
    fixedHeight_ = fixedHeight;
}

HWND FlickList::Create(HWND parent, HBITMAP thumb) {
    HWND window = WndBase::Create(0, L"", WS_CHILD | WS_BORDER, x_, y_, width_, maxHeight_, parent);
    if (window == nullptr)
        return nullptr;
    indicator_.Attach(window, thumb);
    UpdateScrollInfo(true);
    if (listener_ != nullptr)
        listener_->OnSelChange(window, selection_, false);
    return window;
}

void FlickList::SetItemCount(int count) {
    selection_ = 0;
    offset_ = 0;
    count_ = std::max(0, count);
    SizeToContent();
    UpdateScrollInfo(true);
    if (hwnd_ == nullptr)
        return;
    InvalidateRect(hwnd_, nullptr, FALSE);
    UpdateWindow(hwnd_);
}

void FlickList::SizeToContent() {
    if (hwnd_ == nullptr)
        return;
    int height = maxHeight_;
    if (!fixedHeight_) {
        bool bordered = (GetWindowLongPtrW(hwnd_, GWL_STYLE) & WS_BORDER) != 0;
        int borders = bordered ? 2 * GetSystemMetrics(SM_CYBORDER) : 0;
        height = std::min(maxHeight_, flick::ContentHeight(count_, itemHeight_) + borders);
    }
    MoveWindow(hwnd_, x_, y_, width_, height, FALSE);
}

void FlickList::SetSelection(int index, bool byKeyboard) {
    if (index == selection_)
        return;
    InvalidateRow(selection_);
    InvalidateRow(index);
    selection_ = index;
    if (listener_ != nullptr)
        listener_->OnSelChange(hwnd_, index, byKeyboard);
    if (hwnd_ != nullptr)
        UpdateWindow(hwnd_);
}

void FlickList::SelectAndReveal(int index) {
    if (index < 0 || index >= count_ || index == selection_)
        return;
    int previous = selection_;
    selection_ = index;
    if (listener_ != nullptr)
        listener_->OnSelChange(hwnd_, index, false);
    if (flick::RowWhollyVisible(State(), index)) {
        InvalidateRow(previous);
        InvalidateRow(index);
        return;
    }
    offset_ = flick::BottomRowOffset(State(), selection_);
    UpdateScrollInfo(true);
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

void FlickList::Reveal(int index) {
    // Whatever row is asked for, it is the selection that is brought into view: the owners rely
    // on this.
    if (index < 0 || index >= count_ || selection_ < 0 || selection_ >= count_)
        return;
    if (flick::RowWhollyVisible(State(), selection_))
        return;
    offset_ = flick::BottomRowOffset(State(), selection_);
    UpdateScrollInfo(true);
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

RECT FlickList::GetRowRect(int index) const {
    if (hwnd_ == nullptr)
        return RECT{};
    return ToRECT(flick::RowRect(State(), index));
}

int FlickList::HitTest(int x, int y) const {
    if (hwnd_ == nullptr)
        return -1;
    return flick::HitTest(State(), x, y);
}

int FlickList::VisibleRows() const {
    if (hwnd_ == nullptr)
        return 1;
    return flick::VisibleRows(ViewHeight(), itemHeight_);
}

void FlickList::UpdateScrollInfo(bool clamp) {
    if (ViewHeight() <= 0)
        return;
    if (clamp || !wholeView_) {
        offset_ = flick::ClampToRange(offset_, flick::RangeMaximum(count_, itemHeight_),
                                      flick::Page(count_, itemHeight_, ViewHeight()));
    }
    PublishRange();
}

void FlickList::PublishRange() {
    indicator_.SetScrollInfo(flick::ScrollRange{0, flick::RangeMaximum(count_, itemHeight_),
                                                flick::Page(count_, itemHeight_, ViewHeight()),
                                                offset_});
}

RECT FlickList::View() const {
    RECT client{};
    if (hwnd_ != nullptr)
        GetClientRect(hwnd_, &client);
    client.right = std::max(client.left, client.right - indicator_.ReservedWidth());
    return client;
}

int FlickList::MaxOffset() const {
    return flick::MaxOffset(count_, itemHeight_, ViewHeight());
}

int FlickList::ViewHeight() const {
    RECT view = View();
    return view.bottom - view.top;
}

flick::ListState FlickList::State() const {
    return flick::ListState{count_, itemHeight_, FromRECT(View()), offset_, selection_};
}

void FlickList::InvalidateRow(int index) {
    if (hwnd_ == nullptr || index < 0 || index >= count_)
        return;
    RECT row = GetRowRect(index);
    InvalidateRect(hwnd_, &row, FALSE);
}

LRESULT FlickList::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            return OnSize(hwnd, wParam, lParam);
        case WM_ACTIVATE:
            OnActivation(wParam);
            return 0;
        case WM_SETFOCUS:
            return OnSetFocus(hwnd, wParam, lParam);
        case WM_KILLFOCUS:
            return OnKillFocus(hwnd, wParam, lParam);
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_PRINTCLIENT:
            OnPrintClient(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_CANCELMODE:
            OnCancelMode();
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        case WM_KEYDOWN:
            OnKeyDown(wParam, lParam);
            return 0;
        case WM_KEYUP:
            OnKeyUp(wParam, lParam);
            return 0;
        case WM_CHAR:
            OnChar(wParam, lParam);
            return 0;
        case WM_TIMER:
            OnTimer(wParam);
            return 0;
        case WM_VSCROLL:
            OnVScroll(wParam);
            return 0;
        case WM_LBUTTONDOWN:
            OnLButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
            return 0;
        case WM_LBUTTONUP:
            OnLButtonUp(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), wParam);
            return 0;
        case kFlingMessage:
            OnFling();
            return 0;
        case kBounceTopMessage:
            OnBounceTop();
            return 0;
        case kBounceEndMessage:
            OnBounceEnd();
            return 0;
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT FlickList::OnSize(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    UpdateScrollInfo(true);
    return DefWindowProcW(hwnd, WM_SIZE, wParam, lParam);
}

void FlickList::OnActivation(WPARAM wParam) {
    if (LOWORD(wParam) == WA_INACTIVE && hideOnDeactivate_)
        ShowWindow(hwnd_, SW_HIDE);
}

LRESULT FlickList::OnSetFocus(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    if (listener_ != nullptr)
        listener_->OnSetFocus(hwnd, WM_SETFOCUS);
    return DefWindowProcW(hwnd, WM_SETFOCUS, wParam, lParam);
}

LRESULT FlickList::OnKillFocus(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    if (listener_ != nullptr)
        listener_->OnKillFocus(hwnd, WM_KILLFOCUS);
    if (hideOnDeactivate_)
        ShowWindow(hwnd, SW_HIDE);
    return DefWindowProcW(hwnd, WM_KILLFOCUS, wParam, lParam);
}

void FlickList::OnCancelMode() {
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    CancelHold();
}

void FlickList::OnPaint() {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd_, &ps);
    if (dc != nullptr)
        PaintTo(dc);
    EndPaint(hwnd_, &ps);
}

void FlickList::OnPrintClient(HDC dc) {
    if (dc != nullptr)
        PaintTo(dc);
}

void FlickList::PaintTo(HDC dc) {
    RECT clip{};
    GetClipBox(dc, &clip);
    if (!wholeView_) {
        PaintRowByRow(dc, clip);
        return;
    }
    RECT view = View();
    {
        gdi::OffscreenBuffer buffer(dc, view);
        PaintRows(buffer.Dc(), clip);
        PaintEmptySpace(buffer.Dc());
        if (indicator_.IsOverlay())
            indicator_.Paint(buffer.Dc(), clip);
        buffer.Present();
    }
    // The classic bar lies beside the view, outside the buffer.
    if (!indicator_.IsOverlay())
        indicator_.Paint(dc, clip);
}

void FlickList::PaintRows(HDC dc, const RECT& clip) {
    if (listener_ == nullptr)
        return;
    int first = std::max(0, offset_ / flick::SafeItemHeight(itemHeight_));
    for (int index = first; index < count_; ++index) {
        RECT row = GetRowRect(index);
        RECT met;
        if (IntersectRect(&met, &row, &clip))
            listener_->OnDrawItem(hwnd_, dc, index, row, index == selection_);
        if (row.bottom >= clip.bottom)
            break;
    }
}

void FlickList::PaintEmptySpace(HDC dc) {
    if (listener_ == nullptr)
        return;
    RECT view = View();
    int contentBottom = flick::ContentHeight(count_, itemHeight_) - offset_ + view.top;
    if (contentBottom < view.bottom) {
        RECT below{view.left, std::max<LONG>(view.top, contentBottom), view.right, view.bottom};
        listener_->OnDrawItem(hwnd_, dc, -1, below, false);
    }
    if (offset_ < 0) {
        RECT above{view.left, view.top, view.right,
                   std::min<LONG>(view.bottom, view.top - offset_)};
        listener_->OnDrawItem(hwnd_, dc, -1, above, false);
    }
}

void FlickList::PaintRowByRow(HDC dc, const RECT& clip) {
    indicator_.Paint(dc, clip);
    RECT view = View();
    int width = view.right - view.left;
    int height = flick::SafeItemHeight(itemHeight_);
    if (listener_ != nullptr && width > 0) {
        gdi::MemoryDc rowDc(dc);
        gdi::Object<HBITMAP> bitmap(CreateCompatibleBitmap(dc, width, height));
        if (rowDc.Get() != nullptr && bitmap) {
            gdi::Selection selected(rowDc.Get(), bitmap.get());
            int first = std::max(0, offset_ / height);
            for (int index = first; index < count_; ++index) {
                RECT row = GetRowRect(index);
                if (row.top >= view.bottom)
                    break;
                RECT met;
                if (!IntersectRect(&met, &row, &clip))
                    continue;
                RECT local{0, 0, width, height};
                listener_->OnDrawItem(hwnd_, rowDc.Get(), index, local, index == selection_);
                BitBlt(dc, view.left, row.top, width, height, rowDc.Get(), 0, 0, SRCCOPY);
            }
        }
    }
    PaintEmptySpace(dc);
}
