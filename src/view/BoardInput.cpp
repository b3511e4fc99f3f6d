// The board window's input: stylus taps and tap-and-hold, the navigation, action, Talk and
// End-call keys, the hidden marker of a resident board and the private reload notices. The
// rules themselves are view/InputRules.h; this file applies them to the window.
#include "base/ScreenInfo.h"
#include "view/BoardWindow.h"
#include "view/InputRules.h"
#include "view/PaintGeometry.h"
#include "win/RectConvert.h"
#include "win/WindowTimers.h"

bool BoardWindow::HasHiddenMarker() const {
    const auto style = static_cast<uint32_t>(GetWindowLongPtrW(hwnd_, GWL_STYLE));
    return (style & kHiddenMarker) != 0;
}

void BoardWindow::StopHold() {
    holdTimerOn_ = false;
    keyHold_ = false;
    // Stop also drops ticks already queued, so a late one cannot open the menu.
    if (hwnd_ != nullptr)
        Timers().Stop(hwnd_, kHoldTimerId);
}

void BoardWindow::StartHold() {
    Timers().Start(hwnd_, kHoldTimerId, kHoldMs);
    // The shell's tap-and-hold recognition only draws its animation on the phone; the desktop
    // has none, and the timer alone decides when a hold is complete.
}

void BoardWindow::Select(int position) {
    const int old = geometry_.Selected();
    if (old == position)
        return;
    geometry_.SetSelected(position);
    // The selection frame sticks out of its cell: repaint both cells with that margin.
    for (int p : {old, position}) {
        if (p < 0 || p >= kMaxButtonsPerPage)
            continue;
        const RECT box =
            ToRECT(SelectionRepaintBox(geometry_.Cell(p), EffectiveDpiX(), EffectiveDpiY()));
        InvalidateRect(hwnd_, &box, FALSE);
    }
}

void BoardWindow::RepaintAll() {
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

void BoardWindow::Activate(int position) {
    const int32_t slot = geometry_.SlotOf(position);
    if (slot < 0)
        return;
    if (board_.FindBySlot(slot) >= 0) {
        Call(slot);
        return;
    }
    FillFreeButton(position);
}

LRESULT BoardWindow::OnActivateMessage(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    if (!panel_)
        return DefWindowProcW(hwnd, WM_ACTIVATE, wParam, lParam);
    if (LOWORD(wParam) != WA_INACTIVE)
        ShowWindow(hwnd_, SW_SHOW);
    return 0;
}

LRESULT BoardWindow::OnNcActivate(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    if (wParam != 0)
        ShowWindow(hwnd_, SW_SHOW);
    return DefWindowProcW(hwnd, WM_NCACTIVATE, wParam, lParam);
}

LRESULT BoardWindow::OnCancelMode() {
    StopHold();
    if (pressed_ >= 0) {
        SetCellPressed(pressed_, false);
        pressed_ = -1;
    }
    // The desktop's default handling would let the capture go too.
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    return 0;
}

// Bit 31 of the style tells a later start of the program that this board is hidden.
LRESULT BoardWindow::OnWindowPosChanged(HWND hwnd, WPARAM wParam, LPARAM lParam) {
    const auto* pos = reinterpret_cast<const WINDOWPOS*>(lParam);
    if (pos != nullptr) {
        const MarkerChange change = HiddenMarkerRule(pos->flags);
        const auto style = static_cast<uint32_t>(GetWindowLongPtrW(hwnd_, GWL_STYLE));
        uint32_t marked = style;
        if (change.set)
            marked |= kHiddenMarker;
        if (change.clear)
            marked &= ~kHiddenMarker;
        if (marked != style)
            SetWindowLongPtrW(hwnd_, GWL_STYLE, static_cast<LONG_PTR>(static_cast<LONG>(marked)));
        if (change.hide)
            ShowWindow(hwnd_, SW_HIDE);
    }
    return DefWindowProcW(hwnd, WM_WINDOWPOSCHANGED, wParam, lParam);
}

LRESULT BoardWindow::OnLButtonDown(int x, int y) {
    const int position = geometry_.HitTest(x, y);
    if (position < 0 || position >= geometry_.PerPage())
        return 0;
    SetCapture(hwnd_);
    pressed_ = position;
    SetCellPressed(position, true);
    Select(position);
    down_ = Point{x, y};
    if (board_.FindBySlot(geometry_.SlotOf(position)) < 0)
        return 0;  // a free button has no context menu
    if (!holdTimerOn_)
        StartHold();
    holdTimerOn_ = true;
    return 0;
}

LRESULT BoardWindow::OnMouseMove(int x, int y) {
    if (GetCapture() != hwnd_ || pressed_ < 0)
        return 0;
    if (holdTimerOn_ && SlideCancelsHold(down_, Point{x, y}))
        StopHold();
    SetCellPressed(pressed_, geometry_.Cell(pressed_).Contains(x, y));
    return 0;
}

LRESULT BoardWindow::OnLButtonUp(int x, int y) {
    StopHold();
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    if (pressed_ < 0)
        return 0;
    const int position = pressed_;
    SetCellPressed(position, false);
    pressed_ = -1;
    if (geometry_.Cell(position).Contains(x, y))
        Activate(position);
    return 0;
}

LRESULT BoardWindow::OnTimer(WPARAM id) {
    if (id != kHoldTimerId)
        return 0;
    StopHold();
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    const int position = geometry_.Selected();
    OpenContextMenu(position);
    SetCellPressed(position, false);
    pressed_ = -1;
    return 0;
}

LRESULT BoardWindow::OnKeyDown(WPARAM key) {
    if (key == board_key::kTalk) {
        // On the phone the menu bar hands the Talk key over as WM_HOTKEY; the desktop has no
        // menu bar to do so, so the key itself (F3) takes the same path.
        TalkKey();
        return 0;
    }
    if (IsActionKey(static_cast<uint32_t>(key))) {
        // A key held down repeats; the hold runs from the first press, not from each repeat.
        if (GetCapture() == hwnd_ || keyHold_)
            return 0;
        const int position = geometry_.Selected();
        if (position < 0 || position >= geometry_.PerPage())
            return 0;
        keyHold_ = true;
        StartHold();
        const Rect& cell = geometry_.Cell(position);
        down_ = Point{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
        SetCellPressed(position, true);
        return 0;
    }
    const KeyGrid grid{geometry_.Cols(), geometry_.PerPage(), geometry_.Page(), geometry_.Pages(),
                       geometry_.Selected()};
    const KeyMove move = NavigateKey(static_cast<uint32_t>(key), grid);
    if (!move.moved)
        return 0;
    if (move.pageChanged) {
        geometry_.SetPage(move.page);
        geometry_.SetSelected(move.selected);
        UpdateArrows();
        RepaintAll();
        return 0;
    }
    Select(move.selected);
    return 0;
}

LRESULT BoardWindow::OnKeyUp(WPARAM key) {
    if (IsActionKey(static_cast<uint32_t>(key))) {
        if (!keyHold_)
            return 0;
        StopHold();
        const int position = geometry_.Selected();
        SetCellPressed(position, false);
        Activate(position);
        return 0;
    }
    if (key == board_key::kEndCall)
        PostMessageW(hwnd_, WM_COMMAND, IDOK, 0);
    return 0;
}

void BoardWindow::TalkKey() {
    const int32_t slot = geometry_.SlotOf(geometry_.Selected());
    if (slot >= 0 && board_.FindBySlot(slot) >= 0)
        Call(slot);
}

LRESULT BoardWindow::OnHotKey(LPARAM lParam) {
    if (HIWORD(lParam) == board_key::kTalk)
        TalkKey();
    return 0;
}

LRESULT BoardWindow::OnReloadTemplates() {
    templates_.Load();
    return 0;
}

LRESULT BoardWindow::OnReload(LPARAM lParam) {
    if (!ReloadsEntries(lParam))
        return 0;
    board_.LoadEntries();
    Layout();
    RepaintAll();
    return 0;
}
