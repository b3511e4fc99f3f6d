#pragma once
// WindowTimers: the timer seam of windows. A window asks for its timers by id through Timers()
// and reads the time from Timers().Now(), never from SetTimer or the tick count itself, so that
// tests can install timers and a clock they drive by hand (fake time) and check a 500 ms hold or
// a flick's 50 ms frames without waiting.

#include <windows.h>

#include <cstdint>

class WindowTimers {
  public:
    virtual ~WindowTimers() = default;

    /// Arms timer `id` of `window`: WM_TIMER (wParam id, lParam 0) every `ms` milliseconds from
    /// now on, until Stop. Arming an armed id starts it again with the new period. False when no
    /// timer was armed (the window is gone).
    virtual bool Start(HWND window, UINT_PTR id, UINT ms) = 0;
    /// Disarms timer `id` of `window`, and removes the ticks of that id already waiting in the
    /// thread's queue, so none arrives after Stop. Stopping an unarmed id does nothing.
    virtual void Stop(HWND window, UINT_PTR id) = 0;
    /// The time in milliseconds, wrapping at 2^32, from the same clock the ticks follow.
    virtual uint32_t Now() const = 0;
    /// Holds the thread, dispatching nothing, until Now() has reached `when` (an animation's
    /// frame pacing). Returns at once when `when` has passed.
    virtual void WaitUntil(uint32_t when) = 0;
};

/// The process's timers: the system's (SetTimer, KillTimer and the clock seam's TickCount)
/// unless others were installed.
WindowTimers& Timers();
/// Makes `timers` the process's timers (null: the system's again) and returns the ones it
/// replaced (null when those were the system's). The caller keeps `timers` alive while installed.
WindowTimers* InstallTimers(WindowTimers* timers);

/// Removes from the thread's queue every WM_TIMER of `window` with wParam `id`, keeping the
/// others (they are posted again, in their order). Returns how many were removed.
int RemoveQueuedTicks(HWND window, UINT_PTR id);
