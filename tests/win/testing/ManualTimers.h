#pragma once
// ManualTimers: fake time for tests of windows. While it lives it is the process's timers
// (WindowTimers.h): windows arm and stop their timers in it, and its clock stands still until the
// test moves it with Advance, which delivers the ticks that fall due on the way, in due order.
// Test-support only: never linked into a program.

#include <windows.h>

#include <cstdint>
#include <vector>

#include "win/WindowTimers.h"

class ManualTimers final : public WindowTimers {
  public:
    /// Installs itself, with the clock at `start`.
    explicit ManualTimers(uint32_t start = 0);
    /// Puts back the timers it replaced.
    ~ManualTimers() override;
    ManualTimers(const ManualTimers&) = delete;
    ManualTimers& operator=(const ManualTimers&) = delete;

    /// Arms the timer due `ms` from Now (at least 10 ms, the system's shortest period) and every
    /// `ms` after; false when the window is gone.
    bool Start(HWND window, UINT_PTR id, UINT ms) override;
    /// Disarms it and removes its ticks already queued for the window.
    void Stop(HWND window, UINT_PTR id) override;
    /// The fake clock.
    uint32_t Now() const override { return static_cast<uint32_t>(now_); }
    /// Moves the clock to `when` (later than Now, within half the clock's range) without
    /// sending ticks: timers that fall due on the way tick at the next Advance. Counts the call.
    void WaitUntil(uint32_t when) override;
    /// How many times WaitUntil was called.
    int Waits() const { return waits_; }

    /// Moves the clock `ms` forward. Each time a timer falls due on the way the clock stands at
    /// its due time, the timer is armed for its next period and WM_TIMER is sent to its window;
    /// timers due at one time go in the order they were armed or last ticked. A timer stopped (or
    /// armed again) by a handler takes effect at once. Timers of windows that are gone are dropped.
    /// Returns the number of ticks sent.
    int Advance(uint32_t ms);
    /// True while timer `id` of `window` is armed.
    bool IsArmed(HWND window, UINT_PTR id) const;
    /// Milliseconds until timer `id` of `window` falls due; -1 when it is not armed.
    int64_t DueIn(HWND window, UINT_PTR id) const;

  private:
    struct Armed {
        HWND window;
        UINT_PTR id;
        uint32_t period;
        uint64_t due;
        uint64_t order;  ///< arming order, the tie-break among timers due together
    };
    const Armed* Find(HWND window, UINT_PTR id) const;

    std::vector<Armed> armed_;
    uint64_t now_;
    uint64_t nextOrder_ = 0;
    int waits_ = 0;
    WindowTimers* previous_;
};
