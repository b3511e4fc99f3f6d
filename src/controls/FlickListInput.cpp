// The flick list's input: the stylus gestures (press, hold, drag with the rubber band, release),
// the fling and the bounces that run inside the window procedure, scrolling by code, and keys.
#include <algorithm>
#include <cstdlib>

#include "base/ScreenInfo.h"
#include "controls/FlickList.h"
#include "win/WindowTimers.h"

const FlickList::KeyRoute FlickList::kKeyRoutes[] = {
    {VK_HOME, &FlickList::KeyHome},    {VK_END, &FlickList::KeyEnd},
    {VK_UP, &FlickList::KeyUp},        {VK_DOWN, &FlickList::KeyDown},
    {VK_PRIOR, &FlickList::KeyPageUp}, {VK_NEXT, &FlickList::KeyPageDown},
    {VK_RETURN, &FlickList::KeyEnter}, {kActionKey, &FlickList::KeyEnter},
    {VK_LEFT, &FlickList::KeyIgnored}, {VK_RIGHT, &FlickList::KeyIgnored},
};

// --- Stylus --------------------------------------------------------------------------------

void FlickList::OnLButtonDown(int x, int y) {
    if (indicator_.OnPress(x, y))
        return;
    int row = HitTest(x, y);
    if (row < 0)
        return;
    SetCapture(hwnd_);
    if (holdEnabled_ && !holdPending_) {
        Timers().Start(hwnd_, kHoldTimer, kHoldMs);
        holdPending_ = true;
    }
    press_ = POINT{x, y};
    dragging_ = false;
    if (listener_ != nullptr)
        listener_->OnPress(hwnd_, row);
    sample_ = flick::StartSample(Timers().Now(), offset_);
    // The device's shell would start its tap-and-hold animation here; the desktop has no such
    // shell library, so the hold timer alone decides the hold.
}

void FlickList::OnMouseMove(int x, int y) {
    if (indicator_.Pressed()) {
        indicator_.OnMove(x, y);
        return;
    }
    if (GetCapture() != hwnd_)
        return;
    if (holdPending_ &&
        flick::CancelsHold(x - press_.x, y - press_.y, EffectiveDpiX(), EffectiveDpiY()))
        CancelHold();
    if (!dragging_) {
        if (flick::StartsDrag(y - press_.y, EffectiveDpiY())) {
            dragging_ = true;
            indicator_.Show();
        }
        return;
    }
    offset_ = flick::RubberBand(offset_, offset_ - y + press_.y, MaxOffset());
    press_.y = y;
    flick::UpdateSample(sample_, Timers().Now(), offset_);
    // While the finger holds the list it may stay pulled past either end.
    PublishRange();
    RepaintNow();
}

void FlickList::OnLButtonUp(int x, int y, WPARAM keyState) {
    if (indicator_.Pressed()) {
        indicator_.OnRelease();
        return;
    }
    CancelHold();
    if (GetCapture() != hwnd_)
        return;
    ReleaseCapture();
    flick::ReleaseInput input{offset_,       flick::ContentHeight(count_, itemHeight_),
                              ViewHeight(),  dragging_,
                              press_.y,      y,
                              Timers().Now()};
    flick::ReleaseResult result = flick::Release(input, sample_);
    switch (result.action) {
        case flick::ReleaseAction::kBounceTop:
            PostMessageW(hwnd_, kBounceTopMessage, 0, 0);
            return;
        case flick::ReleaseAction::kBounceEnd:
            PostMessageW(hwnd_, kBounceEndMessage, 0, 0);
            return;
        case flick::ReleaseAction::kTap: {
            int row = HitTest(x, y);
            if (row < 0)
                return;
            int previous = selection_;
            SelectAndReveal(row);
            if (listener_ != nullptr)
                listener_->OnClick(hwnd_, selection_, previous, keyState);
            return;
        }
        case flick::ReleaseAction::kFling:
        case flick::ReleaseAction::kStop:
            break;
    }
    offset_ = result.offset;
    velocity_ = result.velocity;
    PublishRange();
    RepaintNow();
    if (result.action == flick::ReleaseAction::kFling)
        PostMessageW(hwnd_, kFlingMessage, 0, 0);
    else
        indicator_.Hide();
}

void FlickList::CancelHold() {
    if (hwnd_ != nullptr)
        Timers().Stop(hwnd_, kHoldTimer);
    holdPending_ = false;
}

void FlickList::OnTimer(UINT_PTR id) {
    if (indicator_.OnTimer(id))
        return;
    if (id == kHoldTimer)
        OnHoldTimer();
}

void FlickList::OnHoldTimer() {
    CancelHold();
    if (GetCapture() == hwnd_)
        ReleaseCapture();
    if (listener_ == nullptr)
        return;
    int row = HitTest(press_.x, press_.y);
    if (row < 0)
        return;
    SetSelection(row, false);
    listener_->OnHold(hwnd_, row, press_);
}

bool FlickList::PressWaiting() const {
    MSG msg;
    return PeekMessageW(&msg, hwnd_, WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_NOREMOVE | PM_NOYIELD) !=
           FALSE;
}

void FlickList::RepaintNow() {
    RECT view = View();
    InvalidateRect(hwnd_, &view, FALSE);
    indicator_.Invalidate();
    UpdateWindow(hwnd_);
}

// --- Fling and bounces -----------------------------------------------------------------------

void FlickList::OnFling() {
    velocity_ = flick::CapVelocity(velocity_, EffectiveDpiY());
    flick::Fling fling = flick::StartFling(offset_, velocity_, flick::kFlingFactor);
    if (fling.target == offset_) {
        indicator_.Hide();
        return;
    }
    for (;;) {
        uint32_t frameStart = Timers().Now();
        if (PressWaiting()) {
            // A finger stops the list where it is, back inside its range.
            UpdateScrollInfo(true);
            indicator_.Hide();
            RepaintNow();
            return;
        }
        offset_ = flick::FlingFrame(fling, offset_, MaxOffset(), ViewHeight());
        PublishRange();
        RepaintNow();
        Timers().WaitUntil(frameStart + flick::kFrameMs);
        switch (flick::FrameEnd(fling, offset_, MaxOffset())) {
            case flick::FrameOutcome::kContinue:
                break;
            case flick::FrameOutcome::kBounceTop:
                PostMessageW(hwnd_, kBounceTopMessage, 0, 0);
                return;
            case flick::FrameOutcome::kBounceEnd:
                PostMessageW(hwnd_, kBounceEndMessage, 0, 0);
                return;
            case flick::FrameOutcome::kArrived:
                indicator_.Hide();
                return;
        }
    }
}

void FlickList::OnBounceTop() {
    // The bounces run as fast as the list paints; a waiting press ends them at their goal.
    while (offset_ < 0) {
        offset_ = PressWaiting() ? 0 : flick::BounceTopStep(offset_);
        indicator_.SetPosition(offset_);
        RepaintNow();
    }
    indicator_.Hide();
}

void FlickList::OnBounceEnd() {
    int maxOffset = MaxOffset();
    while (offset_ > maxOffset) {
        offset_ = PressWaiting() ? maxOffset : flick::BounceEndStep(offset_, maxOffset);
        indicator_.SetPosition(offset_);
        RepaintNow();
    }
    indicator_.Hide();
}

// --- Scrolling by code ------------------------------------------------------------------------

void FlickList::OnVScroll(WPARAM wParam) {
    int code = LOWORD(wParam);
    // The list's own code carries a signed amount; the others an unsigned thumb position.
    int position = code == kScrollByCode ? static_cast<int16_t>(HIWORD(wParam)) : HIWORD(wParam);
    ScrollByCode(code, position);
}

void FlickList::ScrollByCode(int code, int position) {
    int move = flick::ScrollMove(State(), code, position);
    if (move == 0 || hwnd_ == nullptr)
        return;
    offset_ += move;
    RECT view = View();
    if (wholeView_) {
        ScrollWindowEx(hwnd_, 0, -move, &view, &view, nullptr, nullptr, SW_INVALIDATE | SW_ERASE);
        indicator_.Invalidate();
    } else {
        // Row by row nothing is kept on screen to scroll: every row is drawn again.
        InvalidateRect(hwnd_, &view, FALSE);
    }
    indicator_.SetPosition(offset_);
    UpdateWindow(hwnd_);
}

// --- Keys -----------------------------------------------------------------------------------

void FlickList::OnKeyDown(WPARAM key, LPARAM keyData) {
    bool consumed =
        listener_ != nullptr && listener_->OnKeyDown(hwnd_, static_cast<UINT>(key), selection_);
    if (!consumed) {
        const KeyRoute* route = std::find_if(std::begin(kKeyRoutes), std::end(kKeyRoutes),
                                             [key](const KeyRoute& r) { return r.key == key; });
        if (route != std::end(kKeyRoutes))
            (this->*route->handler)();
        else if (HWND parent = GetParent(hwnd_); parent != nullptr)
            SendMessageW(parent, WM_KEYDOWN, key, keyData);
    }
    DropKeyRepeatsAhead();
}

void FlickList::DropKeyRepeatsAhead() {
    // Auto-repeat must never run ahead of the key: once the key is up, its queued repeats go.
    MSG msg;
    if (!PeekMessageW(&msg, hwnd_, WM_KEYUP, WM_KEYUP, PM_NOREMOVE | PM_NOYIELD))
        return;
    while (PeekMessageW(&msg, hwnd_, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE | PM_NOYIELD)) {
    }
}

void FlickList::OnKeyUp(WPARAM key, LPARAM keyData) {
    if (key != VK_RETURN && key != kActionKey) {
        if (HWND parent = GetParent(hwnd_); parent != nullptr)
            SendMessageW(parent, WM_KEYUP, key, keyData);
        return;
    }
    if (!enterPressed_)
        return;
    CancelHold();
    enterPressed_ = false;
    if (selection_ < 0)
        return;
    if (listener_ != nullptr)
        listener_->OnActivate(hwnd_, selection_);
    InvalidateRow(selection_);
}

void FlickList::OnChar(WPARAM character, LPARAM keyData) {
    if (listener_ != nullptr)
        listener_->OnChar(hwnd_, static_cast<wchar_t>(character & 0xFFFF), keyData);
}

void FlickList::Go(flick::NavKey key) {
    flick::NavTarget target = flick::Navigate(State(), key);
    if (!target.act)
        return;
    if (target.scroll)
        ScrollByCode(flick::kThumbTrack, target.offset);
    SetSelection(target.selection, true);
}

void FlickList::KeyHome() {
    if (count_ <= 0)
        return;
    SetSelection(0, true);
    ScrollByCode(flick::kTop, 0);
}

void FlickList::KeyEnd() {
    if (count_ <= 0)
        return;
    ScrollByCode(flick::kBottom, 0);
    SetSelection(count_ - 1, true);
}

void FlickList::KeyUp() {
    Go(flick::NavKey::kUp);
}

void FlickList::KeyDown() {
    Go(flick::NavKey::kDown);
}

void FlickList::KeyPageUp() {
    Go(flick::NavKey::kPageUp);
}

void FlickList::KeyPageDown() {
    Go(flick::NavKey::kPageDown);
}

void FlickList::KeyEnter() {
    if (GetCapture() == hwnd_ && selection_ >= 0)
        return;
    Reveal(selection_);
    enterPressed_ = true;
    if (!holdEnabled_ || selection_ < 0)
        return;
    Timers().Start(hwnd_, kHoldTimer, kHoldMs);
    holdPending_ = true;
    RECT row = GetRowRect(selection_);
    press_ = POINT{(row.left + row.right) / 2, (row.top + row.bottom) / 2};
    // As with a press, the shell's hold animation has no desktop counterpart.
}
