#include "win/WindowTimers.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "testing/ManualTimers.h"
#include "win/WndBase.h"

namespace {

constexpr UINT_PTR kHold = 2;
constexpr UINT_PTR kBackspace = 5;
constexpr UINT_PTR kFrame = 7;

// Records every tick it gets, with the time the timers report at that moment; can stop a timer
// from inside its own tick.
class Ticked : public WndBase {
  public:
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_TIMER) {
            ticks.emplace_back(wParam, Timers().Now());
            if (wParam == stopOnTick)
                Timers().Stop(hwnd, wParam);
            return 0;
        }
        return WndBase::WndProc(hwnd, message, wParam, lParam);
    }
    HWND Make() { return Create(0, L"ticked", WS_POPUP, 0, 0, 10, 10, nullptr); }

    std::vector<std::pair<WPARAM, uint32_t>> ticks;
    WPARAM stopOnTick = 0;
};

using Ticks = std::vector<std::pair<WPARAM, uint32_t>>;

TEST(WindowTimersTest, SystemTimersAreTheDefault) {
    Ticked window;
    ASSERT_NE(window.Make(), nullptr);
    EXPECT_EQ(InstallTimers(nullptr), nullptr);
    {
        ManualTimers fake(1000);
        EXPECT_EQ(&Timers(), &fake);
        EXPECT_EQ(Timers().Now(), 1000u);
    }
    EXPECT_EQ(dynamic_cast<ManualTimers*>(&Timers()), nullptr);
    EXPECT_EQ(InstallTimers(nullptr), nullptr);  // the fake put the system's timers back
}

TEST(WindowTimersTest, HoldFiresAtExactlyFiveHundredMilliseconds) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    EXPECT_EQ(fake.Advance(499), 0);
    EXPECT_TRUE(window.ticks.empty());
    EXPECT_EQ(fake.DueIn(hwnd, kHold), 1);
    EXPECT_EQ(fake.Advance(1), 1);
    EXPECT_EQ(window.ticks, (Ticks{{kHold, 500}}));
}

TEST(WindowTimersTest, FlickFramesComeEveryFiftyMillisecondsWithTheirTime) {
    ManualTimers fake(10000);
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kFrame, 50));
    EXPECT_EQ(fake.Advance(200), 4);
    EXPECT_EQ(window.ticks,
              (Ticks{{kFrame, 10050}, {kFrame, 10100}, {kFrame, 10150}, {kFrame, 10200}}));
    EXPECT_EQ(Timers().Now(), 10200u);
    EXPECT_EQ(fake.Advance(49), 0);
    EXPECT_EQ(Timers().Now(), 10249u);
}

TEST(WindowTimersTest, ClockWrapsLikeTheTickCount) {
    ManualTimers fake(0xFFFFFFF0u);
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kFrame, 50));
    EXPECT_EQ(fake.Advance(50), 1);
    EXPECT_EQ(window.ticks, (Ticks{{kFrame, 0x22u}}));
}

TEST(WindowTimersTest, StopBeforeDueMeansNoTick) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    fake.Advance(300);
    Timers().Stop(hwnd, kHold);
    EXPECT_FALSE(fake.IsArmed(hwnd, kHold));
    EXPECT_EQ(fake.Advance(1000), 0);
    EXPECT_TRUE(window.ticks.empty());
}

TEST(WindowTimersTest, StartingAgainRestartsTheWait) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    fake.Advance(400);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    EXPECT_EQ(fake.Advance(499), 0);
    EXPECT_EQ(fake.Advance(1), 1);
    EXPECT_EQ(window.ticks, (Ticks{{kHold, 900}}));
}

TEST(WindowTimersTest, TimerStoppedByItsHandlerFiresOnce) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    window.stopOnTick = kHold;
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    EXPECT_EQ(fake.Advance(5000), 1);
    EXPECT_EQ(window.ticks, (Ticks{{kHold, 500}}));
    EXPECT_FALSE(fake.IsArmed(hwnd, kHold));
}

TEST(WindowTimersTest, HoldAndBackspaceHoldInterleaveOnOneWindow) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kBackspace, 600));
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    EXPECT_EQ(fake.Advance(1500), 5);
    EXPECT_EQ(
        window.ticks,
        (Ticks{{kHold, 500}, {kBackspace, 600}, {kHold, 1000}, {kBackspace, 1200}, {kHold, 1500}}));
}

TEST(WindowTimersTest, TimersOfADestroyedWindowAreDropped) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 500));
    DestroyWindow(hwnd);
    EXPECT_EQ(fake.Advance(1000), 0);
    EXPECT_FALSE(fake.IsArmed(hwnd, kHold));
    EXPECT_FALSE(Timers().Start(hwnd, kHold, 500));
}

int QueuedTicks(HWND hwnd, UINT_PTR id) {
    std::vector<MSG> seen;
    MSG msg;
    while (PeekMessageW(&msg, hwnd, WM_TIMER, WM_TIMER, PM_REMOVE))
        seen.push_back(msg);
    int count = 0;
    for (const MSG& m : seen) {
        if (m.wParam == id)
            ++count;
        PostMessageW(m.hwnd, m.message, m.wParam, m.lParam);
    }
    return count;
}

TEST(WindowTimersTest, StopRemovesTicksAlreadyQueued) {
    ManualTimers fake;
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    PostMessageW(hwnd, WM_TIMER, kHold, 0);
    PostMessageW(hwnd, WM_TIMER, kFrame, 0);
    PostMessageW(hwnd, WM_TIMER, kHold, 0);
    Timers().Stop(hwnd, kHold);
    EXPECT_EQ(QueuedTicks(hwnd, kHold), 0);
    EXPECT_EQ(QueuedTicks(hwnd, kFrame), 1);  // other timers' ticks stay
    MSG msg;
    while (PeekMessageW(&msg, hwnd, 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
    EXPECT_EQ(window.ticks.size(), 1u);
    EXPECT_EQ(window.ticks[0].first, kFrame);
}

// Pumps the thread's messages until `done` or `limitMs` of real time have passed.
template <typename Done>
bool PumpUntil(Done done, DWORD limitMs) {
    DWORD start = GetTickCount();
    while (!done()) {
        if (GetTickCount() - start > limitMs)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&msg);
    }
    return true;
}

TEST(WindowTimersTest, SystemTimersDeliverARealTick) {
    ASSERT_EQ(InstallTimers(nullptr), nullptr);
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    uint32_t started = Timers().Now();
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 20));
    EXPECT_TRUE(PumpUntil([&] { return !window.ticks.empty(); }, 2000));
    Timers().Stop(hwnd, kHold);
    ASSERT_FALSE(window.ticks.empty());
    EXPECT_EQ(window.ticks[0].first, kHold);
    EXPECT_GE(window.ticks[0].second - started, 10u);  // the real clock moved with the tick
}

TEST(WindowTimersTest, SystemStopRemovesQueuedTicks) {
    ASSERT_EQ(InstallTimers(nullptr), nullptr);
    Ticked window;
    HWND hwnd = window.Make();
    ASSERT_NE(hwnd, nullptr);
    ASSERT_TRUE(Timers().Start(hwnd, kHold, 10));
    // Waits (a bounded few tens of milliseconds) until the real timer's tick is due.
    DWORD start = GetTickCount();
    while (HIWORD(GetQueueStatus(QS_TIMER)) == 0 && GetTickCount() - start < 2000)
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_TIMER);
    ASSERT_NE(HIWORD(GetQueueStatus(QS_TIMER)), 0u);
    PostMessageW(hwnd, WM_TIMER, kHold, 0);
    PostMessageW(hwnd, WM_TIMER, kFrame, 0);
    Timers().Stop(hwnd, kHold);
    EXPECT_EQ(QueuedTicks(hwnd, kHold), 0);
    MSG msg;
    while (PeekMessageW(&msg, hwnd, 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
    ASSERT_EQ(window.ticks.size(), 1u);
    EXPECT_EQ(window.ticks[0].first, kFrame);
}

}  // namespace
