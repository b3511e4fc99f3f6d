#pragma once
// The board's input rules as plain arithmetic: when a slide cancels a tap-and-hold, where the
// selection goes for a navigation key (across pages too), what a window-position change does to
// the hidden marker, which private reload notices count, and how long the call screen is awaited.
// The window (BoardInput.cpp) applies the answers.

#include <cstdint>
#include <functional>

#include "base/Geometry.h"

/// The tap-and-hold timer: its id and its period.
constexpr uint32_t kHoldTimerId = 2;
constexpr uint32_t kHoldMs = 500;
/// A stylus that strays this many pixels (in x or in y) from where it went down is a slide.
constexpr int32_t kSlidePixels = 3;

/// Key codes the board reads (the platform's values).
namespace board_key {
constexpr uint32_t kEnter = 13;
constexpr uint32_t kEnd = 35;
constexpr uint32_t kHome = 36;
constexpr uint32_t kLeft = 37;
constexpr uint32_t kUp = 38;
constexpr uint32_t kRight = 39;
constexpr uint32_t kDown = 40;
/// The phone's Talk key; on desktop F3.
constexpr uint32_t kTalk = 0x72;
/// The phone's End-call key; on desktop F4.
constexpr uint32_t kEndCall = 115;
/// The phone's Action key (the centre of the direction pad).
constexpr uint32_t kAction = 134;
}  // namespace board_key

/// True when the point has moved kSlidePixels or more from `down` in x or in y.
constexpr bool SlideCancelsHold(Point down, Point now) {
    const int32_t dx = now.x - down.x;
    const int32_t dy = now.y - down.y;
    return dx >= kSlidePixels || dx <= -kSlidePixels || dy >= kSlidePixels || dy <= -kSlidePixels;
}

/// The Enter and Action keys tap (short) or hold (half a second) the selected button.
constexpr bool IsActionKey(uint32_t key) {
    return key == board_key::kEnter || key == board_key::kAction;
}

/// The grid a navigation key moves in.
struct KeyGrid {
    int32_t cols = 0;
    int32_t perPage = 0;
    int32_t page = 0;
    int32_t pages = 0;
    int32_t selected = 0;
};

/// Where a navigation key leaves the selection. `handled` is false for keys that are not
/// navigation keys; `moved` false when the key changes nothing.
struct KeyMove {
    bool handled = false;
    bool moved = false;
    bool pageChanged = false;
    int32_t page = 0;
    int32_t selected = 0;
};

/// Left / Right walk the row and step onto the neighbouring page at its ends (same row, far
/// column); Up / Down go one row and stop at the page's edges; Home and End go to the page's
/// first and last position.
KeyMove NavigateKey(uint32_t key, const KeyGrid& grid);

/// What a window-position change does to the hidden marker (bit 31 of the window style).
struct MarkerChange {
    bool set = false;    ///< the window is being hidden: mark it
    bool clear = false;  ///< the window is being shown (or the flags are exactly 0x213)
    bool hide = false;   ///< one of the flags 0x60000000 asks to hide the window
};
/// The window-position flags the rule reads.
constexpr uint32_t kPosShowing = 0x40;
constexpr uint32_t kPosHiding = 0x80;
constexpr uint32_t kPosShownAgain = 0x213;
constexpr uint32_t kPosHideRequest = 0x60000000;
/// The style bit that marks the board hidden for a later start of the program.
constexpr uint32_t kHiddenMarker = 0x80000000;

MarkerChange HiddenMarkerRule(uint32_t flags);

/// Private notice 0x7E8: only lParam 2 reloads the entries.
constexpr bool ReloadsEntries(int64_t lParam) {
    return lParam == 2;
}

/// The wait for the phone's call screen after a call: poll every 100 ms while the board is
/// still in front, for at most 2000 ms from the start of the wait.
constexpr uint32_t kCallScreenPollMs = 100;
constexpr uint32_t kCallScreenWaitMs = 2000;
/// Returns how many polls were made. `inFront` is asked before each sleep; the wait ends when
/// it answers false or when kCallScreenWaitMs have passed on `now` (wrapping at 2^32).
int AwaitCallScreen(const std::function<bool()>& inFront, const std::function<uint32_t()>& now,
                    const std::function<void(uint32_t)>& sleep);
