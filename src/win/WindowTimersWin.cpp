#include "win/WindowTimers.h"

#include <vector>

#include "base/Clock.h"

namespace {

class SystemTimers final : public WindowTimers {
  public:
    bool Start(HWND window, UINT_PTR id, UINT ms) override {
        return SetTimer(window, id, ms, nullptr) != 0;
    }
    void Stop(HWND window, UINT_PTR id) override {
        KillTimer(window, id);
        // KillTimer leaves ticks that were already queued; a stopped hold must not fire late.
        RemoveQueuedTicks(window, id);
    }
    uint32_t Now() const override { return TickCount(); }
    void WaitUntil(uint32_t when) override {
        // Differences, not values, so the wrap of the tick count does not end the wait early.
        while (static_cast<int32_t>(when - TickCount()) > 0)
            Sleep(0);
    }
};

SystemTimers& System() {
    static SystemTimers timers;
    return timers;
}

WindowTimers*& Installed() {
    static WindowTimers* installed = nullptr;
    return installed;
}

}  // namespace

WindowTimers& Timers() {
    WindowTimers* installed = Installed();
    return installed != nullptr ? *installed : static_cast<WindowTimers&>(System());
}

WindowTimers* InstallTimers(WindowTimers* timers) {
    WindowTimers* previous = Installed();
    Installed() = timers;
    return previous;
}

int RemoveQueuedTicks(HWND window, UINT_PTR id) {
    // PeekMessage filters by window and message, not by wParam: take all of the window's ticks
    // and give back the ones of other timers.
    std::vector<MSG> others;
    int removed = 0;
    MSG msg;
    while (PeekMessageW(&msg, window, WM_TIMER, WM_TIMER, PM_REMOVE | PM_NOYIELD)) {
        if (msg.wParam == id)
            ++removed;
        else
            others.push_back(msg);
    }
    for (const MSG& other : others)
        PostMessageW(other.hwnd, other.message, other.wParam, other.lParam);
    return removed;
}
