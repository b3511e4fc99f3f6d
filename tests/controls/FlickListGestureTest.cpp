// The flick list's stylus gestures under Wine with fake time: taps, holds, the drag threshold,
// the rubber band, flings frame by frame with their cap, bounces to both ends and a press that
// interrupts a fling.
#include <gtest/gtest.h>

#include <vector>

#include "FlickListFixture.h"
#include "controls/FlickPhysics.h"

namespace flicktest {
namespace {

// Stands in for the installed fake timers to watch the fling's frame waits: it notes the offset
// at each wait, can post a press at a chosen wait, and can save a screenshot at one.
class FrameWatch final : public WindowTimers {
  public:
    FrameWatch(ManualTimers& timers, const FlickList& list)
        : timers_(timers), list_(list), previous_(InstallTimers(this)) {}
    ~FrameWatch() override { InstallTimers(previous_); }
    FrameWatch(const FrameWatch&) = delete;
    FrameWatch& operator=(const FrameWatch&) = delete;

    bool Start(HWND window, UINT_PTR id, UINT ms) override { return timers_.Start(window, id, ms); }
    void Stop(HWND window, UINT_PTR id) override { timers_.Stop(window, id); }
    uint32_t Now() const override { return timers_.Now(); }
    void WaitUntil(uint32_t when) override {
        waits.push_back(when - timers_.Now());
        offsets.push_back(list_.Offset());
        timers_.WaitUntil(when);
        if (static_cast<int>(offsets.size()) == pressAtWait)
            PostMessageW(list_.Hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 100));
        if (static_cast<int>(offsets.size()) == shotAtWait)
            SaveShot(PrintClient(list_.Hwnd()), L"flicklist-mid-fling");
    }

    std::vector<uint32_t> waits;  ///< how long each frame still had to wait
    std::vector<int> offsets;     ///< the offset each frame had painted
    int pressAtWait = -1;
    int shotAtWait = -1;

  private:
    ManualTimers& timers_;
    const FlickList& list_;
    WindowTimers* previous_;
};

class FlickListGestureTest : public FlickListFixture {
  protected:
    int ViewHeight() const {
        RECT view = list_->View();
        return view.bottom - view.top;
    }
};

TEST_F(FlickListGestureTest, ATapSelectsAndClicks) {
    Make(40, 30, 480, 640);
    Press(100, 95);  // row 3
    EXPECT_EQ(GetCapture(), List());
    Release(102, 97);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(list_->Selection(), 3);
    ASSERT_EQ(listener_.presses.size(), 1u);
    EXPECT_EQ(listener_.presses[0], 3);
    ASSERT_EQ(listener_.clicks.size(), 1u);
    EXPECT_EQ(listener_.clicks[0].index, 3);
    EXPECT_EQ(listener_.clicks[0].other, 0);
    ASSERT_EQ(listener_.selChanges.size(), 1u);
    EXPECT_EQ(listener_.selChanges[0].index, 3);
    EXPECT_EQ(listener_.selChanges[0].other, 0);
}

TEST_F(FlickListGestureTest, APressBelowTheLastRowTakesNothing) {
    Make(3, 40, 240, 202);
    Press(50, 150);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_TRUE(listener_.presses.empty());
    Release(50, 150);
    EXPECT_TRUE(listener_.clicks.empty());
}

TEST_F(FlickListGestureTest, HoldFiresAtHalfASecond) {
    Make(40, 30, 480, 640, true, true, true);
    Press(100, 200);  // row 6
    EXPECT_TRUE(timers_.IsArmed(List(), FlickList::kHoldTimer));
    timers_.Advance(499);
    EXPECT_TRUE(listener_.holds.empty());
    timers_.Advance(1);
    ASSERT_EQ(listener_.holds.size(), 1u);
    EXPECT_EQ(listener_.holds[0].index, 6);
    EXPECT_EQ(listener_.holds[0].other, 200);
    EXPECT_EQ(list_->Selection(), 6);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(timers_.IsArmed(List(), FlickList::kHoldTimer));
    // The release after a hold finds no capture: no click.
    Release(100, 200);
    EXPECT_TRUE(listener_.clicks.empty());
}

TEST_F(FlickListGestureTest, ASmallMoveCancelsTheHoldAndTheReleaseIsStillATapAfterTwoSeconds) {
    Make(40, 30, 480, 640, true, true, true);
    Press(100, 200);
    Move(102, 202);  // within 2 pixels: the hold stays
    EXPECT_TRUE(timers_.IsArmed(List(), FlickList::kHoldTimer));
    Move(100, 205);  // 5 pixels: no hold, no drag either
    EXPECT_FALSE(timers_.IsArmed(List(), FlickList::kHoldTimer));
    timers_.Advance(2000);
    EXPECT_TRUE(listener_.holds.empty());
    Release(100, 205);
    ASSERT_EQ(listener_.clicks.size(), 1u);
    EXPECT_EQ(listener_.clicks[0].index, 6);
    EXPECT_EQ(list_->Offset(), 0);
}

TEST_F(FlickListGestureTest, ADragStartsBeyondTenPixels) {
    Make(40, 30, 480, 640);
    Press(100, 300);
    Move(100, 290);
    EXPECT_FALSE(list_->Indicator().Visible());
    Move(100, 289);  // 11 pixels: the drag starts, the list has not moved yet
    EXPECT_TRUE(list_->Indicator().Visible());
    EXPECT_EQ(list_->Offset(), 0);
    Move(100, 250);  // the list follows the whole way from the press
    EXPECT_EQ(list_->Offset(), 50);
    Move(100, 240);
    EXPECT_EQ(list_->Offset(), 60);
    Release(100, 240);
    EXPECT_TRUE(listener_.clicks.empty());
}

TEST_F(FlickListGestureTest, TheDragThresholdScalesWithTheScreen) {
    SetScreen(ComputeScreenInfo(192, 192, 480, 640));
    Make(40, 30, 480, 640);
    Press(100, 300);
    Move(100, 280);  // 20 pixels: 10 design pixels at 192
    EXPECT_FALSE(list_->Indicator().Visible());
    Move(100, 279);
    EXPECT_TRUE(list_->Indicator().Visible());
    Release(100, 279);
}

TEST_F(FlickListGestureTest, AHorizontalMoveNeverStartsADrag) {
    Make(40, 30, 480, 640);
    Press(100, 300);
    Move(300, 305);
    EXPECT_FALSE(list_->Indicator().Visible());
    Release(300, 305);
    EXPECT_EQ(listener_.clicks.size(), 1u);
}

TEST_F(FlickListGestureTest, PulledPastTheTopTheListFollowsAtHalfSpeedAndBouncesBack) {
    Make(40, 30, 480, 640);
    Press(100, 100);
    Move(100, 120);
    Move(100, 200);  // proposed -100: half of it
    EXPECT_EQ(list_->Offset(), -50);
    Move(100, 220);  // a further 20: 10 more
    EXPECT_EQ(list_->Offset(), -60);
    SaveShot(PrintClient(List()), L"flicklist-pulled-past-top");
    Release(100, 220);
    EXPECT_TRUE(Waiting(List(), FlickList::kBounceTopMessage, false));
    Pump();
    EXPECT_EQ(list_->Offset(), 0);
    EXPECT_FALSE(list_->Indicator().Visible());
    EXPECT_TRUE(timers_.IsArmed(List(), ScrollIndicator::kFadeTimer));
    EXPECT_TRUE(listener_.clicks.empty());
}

TEST_F(FlickListGestureTest, ATapWhilePulledDownStillBounces) {
    Make(40, 30, 480, 640);
    Press(100, 100);
    Move(100, 120);
    Move(100, 160);
    ASSERT_EQ(list_->Offset(), -30);
    Release(100, 160);
    ASSERT_TRUE(Waiting(List(), FlickList::kBounceTopMessage, true));  // taken: the list stays down
    Press(100, 100);
    Release(100, 100);
    EXPECT_TRUE(Waiting(List(), FlickList::kBounceTopMessage, false));
    EXPECT_TRUE(listener_.clicks.empty());
    Pump();
    EXPECT_EQ(list_->Offset(), 0);
}

TEST_F(FlickListGestureTest, PulledPastTheEndItBouncesToTheEnd) {
    FlickList& list = Make(40, 30, 480, 640);
    Key(WM_KEYDOWN, VK_END);
    const int max = list.MaxOffset();
    ASSERT_EQ(list.Offset(), max);
    Press(100, 500);
    Move(100, 480);
    Move(100, 400);  // 100 past the end: 50
    EXPECT_EQ(list.Offset(), max + 50);
    Release(100, 400);
    EXPECT_TRUE(Waiting(List(), FlickList::kBounceEndMessage, false));
    Pump();
    EXPECT_EQ(list.Offset(), max);
    EXPECT_FALSE(list.Indicator().Visible());
}

TEST_F(FlickListGestureTest, AStillFingerAtTheEndGivesNoFling) {
    Make(40, 30, 480, 640);
    Press(100, 400);
    Drag(100, 400, 300, 2, 20);
    EXPECT_EQ(list_->Offset(), 100);
    timers_.Advance(120);
    Move(100, 300);  // closes a sample that had moved 100
    timers_.Advance(120);
    Move(100, 300);  // closes a still one
    Release(100, 300);
    EXPECT_FALSE(Waiting(List(), FlickList::kFlingMessage, false));
    EXPECT_FALSE(list_->Indicator().Visible());
    EXPECT_EQ(list_->Offset(), 100);
}

TEST_F(FlickListGestureTest, AFlingRunsItsFramesToTheCappedTarget) {
    FlickList& list = Make(200, 30, 480, 640);
    Press(100, 500);
    Move(100, 480);  // drag starts
    timers_.Advance(10);
    Move(100, 400);
    timers_.Advance(10);
    Move(100, 300);
    timers_.Advance(10);
    Release(100, 300);  // 200 pixels in 30 ms: 6666 pixels per second
    ASSERT_TRUE(Waiting(List(), FlickList::kFlingMessage, false));
    ASSERT_EQ(list.Offset(), 200);

    // The frames the arithmetic expects: capped at 1000, from 200 to 1200.
    flick::Fling fling = flick::StartFling(200, flick::CapVelocity(6666, 96), flick::kFlingFactor);
    ASSERT_EQ(fling.target, 1200);
    std::vector<int> expected;
    for (int offset = 200; offset != 1200;) {
        offset = flick::FlingFrame(fling, offset, list.MaxOffset(), ViewHeight());
        expected.push_back(offset);
    }

    FrameWatch watch(timers_, list);
    const uint32_t start = timers_.Now();
    Pump();
    EXPECT_EQ(list.Offset(), 1200);
    ASSERT_EQ(watch.offsets.size(), expected.size());
    EXPECT_EQ(watch.offsets, expected);
    for (uint32_t wait : watch.waits)
        EXPECT_EQ(wait, 50u);
    EXPECT_EQ(timers_.Now() - start, 50u * expected.size());
    EXPECT_FALSE(list.Indicator().Visible());
}

TEST_F(FlickListGestureTest, AFlingPastTheEndBouncesBack) {
    FlickList& list = Make(40, 30, 480, 640);
    Press(100, 400);
    Move(100, 380);
    timers_.Advance(60);
    Move(100, 300);
    timers_.Advance(60);
    Move(100, 200);  // sample closes at 120 ms: 200
    timers_.Advance(20);
    Release(100, 180);  // offset 220, velocity (220 - 200 + 200) * 1000 / 140
    ASSERT_TRUE(Waiting(List(), FlickList::kFlingMessage, false));
    FrameWatch watch(timers_, list);
    watch.shotAtWait = 2;
    Pump();
    // From 220 toward 1220 (capped at 1000): past the end (562) the bounce takes it back.
    flick::Fling fling = flick::StartFling(220, 1000, flick::kFlingFactor);
    std::vector<int> expected;
    for (int offset = 220; offset <= 562;) {
        offset = flick::FlingFrame(fling, offset, 562, ViewHeight());
        expected.push_back(offset);
    }
    EXPECT_EQ(watch.offsets, expected);
    EXPECT_EQ(expected.size(), 3u);
    EXPECT_EQ(list.MaxOffset(), 562);
    EXPECT_EQ(list.Offset(), 562);
    EXPECT_FALSE(list.Indicator().Visible());
}

TEST_F(FlickListGestureTest, AQueuedPressStopsTheFling) {
    FlickList& list = Make(200, 30, 480, 640);
    Press(100, 500);
    Move(100, 480);
    timers_.Advance(10);
    Move(100, 300);
    timers_.Advance(20);
    Release(100, 300);
    FrameWatch watch(timers_, list);
    watch.pressAtWait = 2;
    MSG msg;
    ASSERT_TRUE(
        PeekMessageW(&msg, List(), FlickList::kFlingMessage, FlickList::kFlingMessage, PM_REMOVE));
    DispatchMessageW(&msg);
    EXPECT_EQ(watch.offsets.size(), 2u);
    EXPECT_EQ(list.Offset(), watch.offsets.back());
    EXPECT_LT(list.Offset(), 1200);
    // The press is still queued for the list: it starts the next gesture.
    EXPECT_TRUE(Waiting(List(), WM_LBUTTONDOWN, false));
    EXPECT_FALSE(list.Indicator().Visible());
    Pump();
    EXPECT_EQ(GetCapture(), List());
}

TEST_F(FlickListGestureTest, AQueuedPressEndsABounceAtItsGoal) {
    Make(40, 30, 480, 640);
    Press(100, 100);
    Move(100, 120);
    Move(100, 300);
    ASSERT_LT(list_->Offset(), -50);
    Release(100, 300);
    ASSERT_TRUE(Waiting(List(), FlickList::kBounceTopMessage, true));
    PostMessageW(List(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 100));
    SendMessageW(List(), FlickList::kBounceTopMessage, 0, 0);
    EXPECT_EQ(list_->Offset(), 0);
    EXPECT_EQ(listener_.presses.size(), 1u);  // the queued press has not run yet
}

TEST_F(FlickListGestureTest, CancelModeDropsTheCaptureAndTheHold) {
    Make(40, 30, 480, 640, true, true, true);
    Press(100, 100);
    SendMessageW(List(), WM_CANCELMODE, 0, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(timers_.IsArmed(List(), FlickList::kHoldTimer));
    timers_.Advance(600);
    EXPECT_TRUE(listener_.holds.empty());
}

}  // namespace
}  // namespace flicktest
