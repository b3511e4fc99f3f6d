// The scroll indicator under Wine: the overlay shown by a drag and faded out through its timer,
// its alpha, a press and drag on its thumb scrolling the list, and the classic bar's arrows and
// pages repeating through their timer.
#include "controls/ScrollIndicator.h"

#include <gtest/gtest.h>

#include "FlickListFixture.h"

namespace flicktest {
namespace {

class ScrollIndicatorTest : public FlickListFixture {};

TEST_F(ScrollIndicatorTest, TheOverlayIsAsWideAsItsBitmapAndTakesNoRoom) {
    FlickList& list = Make(40, 30, 480, 640);
    const ScrollIndicator& indicator = list.Indicator();
    EXPECT_TRUE(indicator.IsOverlay());
    RECT area = indicator.Area();
    EXPECT_EQ(area.left, 472);
    EXPECT_EQ(area.right, 478);
    EXPECT_EQ(list.View().right, 478);
    RECT thumb = indicator.ThumbRect();
    EXPECT_EQ(thumb.top, 0);
    EXPECT_EQ(thumb.bottom, 30);
    EXPECT_FALSE(indicator.Visible());
    EXPECT_EQ(indicator.Alpha(), 0);
}

TEST_F(ScrollIndicatorTest, ADragShowsItAndTheEndFadesItInFiveSteps) {
    FlickList& list = Make(40, 30, 480, 640);
    Press(100, 400);
    Move(100, 380);
    EXPECT_TRUE(list.Indicator().Visible());
    EXPECT_EQ(list.Indicator().Alpha(), 180);
    Move(100, 300);
    shot::Image shown = PrintClient(List());
    timers_.Advance(200);
    Move(100, 300);
    timers_.Advance(200);
    Move(100, 300);  // a still sample: no fling
    Release(100, 300);
    ASSERT_FALSE(Waiting(List(), FlickList::kFlingMessage, false));
    const ScrollIndicator& indicator = list.Indicator();
    EXPECT_FALSE(indicator.Visible());
    EXPECT_EQ(indicator.FadeStep(), 0);
    EXPECT_EQ(indicator.Alpha(), 180);
    EXPECT_TRUE(timers_.IsArmed(List(), ScrollIndicator::kFadeTimer));
    const int alphas[] = {144, 108, 72, 36, 0};
    for (int step = 1; step <= 5; ++step) {
        timers_.Advance(59);
        EXPECT_EQ(indicator.FadeStep(), step - 1);
        timers_.Advance(1);
        EXPECT_EQ(indicator.FadeStep(), step);
        EXPECT_EQ(indicator.Alpha(), alphas[step - 1]);
    }
    EXPECT_FALSE(timers_.IsArmed(List(), ScrollIndicator::kFadeTimer));
    // Drawn while shown, gone once faded.
    shot::Image faded = PrintClient(List());
    RECT thumb = indicator.ThumbRect();
    int y = (thumb.top + thumb.bottom) / 2;
    EXPECT_NE(shown.At(475, y), faded.At(475, y));
    EXPECT_EQ(faded.At(475, y), faded.At(100, y));
}

TEST_F(ScrollIndicatorTest, TheThumbFollowsTheOffsetAndSqueezesPastTheTop) {
    FlickList& list = Make(40, 30, 480, 640);
    SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(FlickList::kScrollByCode, 281), 0);
    RECT middle = list.Indicator().ThumbRect();
    EXPECT_EQ(middle.top, 281 * (638 - 30) / (1199 - 638));
    SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(SB_TOP, 0), 0);
    Press(100, 100);
    Move(100, 120);
    Move(100, 300);  // pulled down 100
    RECT squeezed = list.Indicator().ThumbRect();
    EXPECT_EQ(squeezed.top, 0);
    EXPECT_LT(squeezed.bottom - squeezed.top, 30);
    Release(100, 300);
    Pump();
}

TEST_F(ScrollIndicatorTest, PressingTheOverlayScrollsTheListAndDragsTheThumb) {
    FlickList& list = Make(40, 30, 480, 640);
    // Below the thumb: the thumb's centre comes under the stylus.
    Press(475, 319);
    EXPECT_EQ(GetCapture(), List());
    EXPECT_TRUE(list.Indicator().Pressed());
    EXPECT_TRUE(list.Indicator().Visible());
    EXPECT_EQ(list.Indicator().Alpha(), 255);
    EXPECT_EQ(list.Offset(), (319 - 15) * (1199 - 638) / (638 - 30));
    EXPECT_TRUE(listener_.presses.empty());
    RECT thumb = list.Indicator().ThumbRect();
    EXPECT_LE(thumb.top, 319);
    EXPECT_GT(thumb.bottom, 319);
    // Dragging keeps the grab point under the stylus.
    Move(475, 419);
    EXPECT_EQ(list.Offset(), (419 - 15) * (1199 - 638) / (638 - 30));
    Move(475, 2000);
    EXPECT_EQ(list.Offset(), 562);
    Release(475, 2000);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(list.Indicator().Pressed());
    EXPECT_TRUE(listener_.clicks.empty());
    EXPECT_EQ(list.Selection(), 0);
}

TEST_F(ScrollIndicatorTest, AShortListLeavesTheStripToTheRows) {
    FlickList& list = Make(3, 40, 242, 202);
    Press(238, 10);
    EXPECT_FALSE(list.Indicator().Pressed());
    ASSERT_EQ(listener_.presses.size(), 1u);
    Release(238, 10);
    EXPECT_EQ(listener_.clicks.size(), 1u);
}

class ClassicIndicatorTest : public FlickListFixture {
  protected:
    void SetUp() override {
        FlickListFixture::SetUp();
        Make(40, 30, 480, 640, false);
    }
};

TEST_F(ClassicIndicatorTest, TheClassicBarTakesItsWidthFromTheView) {
    const ScrollIndicator& indicator = list_->Indicator();
    EXPECT_FALSE(indicator.IsOverlay());
    EXPECT_EQ(indicator.ReservedWidth(), 13);
    EXPECT_EQ(list_->View().right, 478 - 13);
    RECT area = indicator.Area();
    EXPECT_EQ(area.left, 465);
    // Thumb: track 15..623, length 608 * 638 / 1200 = 323.
    RECT thumb = indicator.ThumbRect();
    EXPECT_EQ(thumb.top, 15);
    EXPECT_EQ(thumb.bottom - thumb.top, 608 * 638 / 1200);
    shot::Image image = PrintClient(List());
    EXPECT_EQ(image.At(471, 200), RGB(206, 220, 239));  // the thumb's face
    EXPECT_EQ(image.At(466, 626), RGB(206, 220, 239));  // the down arrow's face
    EXPECT_EQ(image.At(471, 630), RGB(0, 0, 0));        // and its glyph
    SaveShot(image, L"flicklist-classic-bar");
}

TEST_F(ClassicIndicatorTest, TheDownArrowScrollsAtOnceAndRepeats) {
    Press(471, 630);
    EXPECT_EQ(list_->Indicator().PressedPart(), flick::kPartDownArrow);
    EXPECT_EQ(list_->Offset(), 30);
    EXPECT_TRUE(timers_.IsArmed(List(), ScrollIndicator::kRepeatTimer));
    shot::Image pressed = PrintClient(List());
    EXPECT_EQ(pressed.At(467, 626), RGB(0, 0, 0));  // inverted while pressed
    timers_.Advance(100);
    EXPECT_EQ(list_->Offset(), 60);
    timers_.Advance(200);
    EXPECT_EQ(list_->Offset(), 120);
    Release(471, 630);
    EXPECT_FALSE(timers_.IsArmed(List(), ScrollIndicator::kRepeatTimer));
    EXPECT_EQ(GetCapture(), nullptr);
    timers_.Advance(500);
    EXPECT_EQ(list_->Offset(), 120);
    EXPECT_TRUE(listener_.clicks.empty());
}

TEST_F(ClassicIndicatorTest, TheUpArrowScrollsUp) {
    SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(SB_BOTTOM, 0), 0);
    Press(471, 5);
    EXPECT_EQ(list_->Offset(), 562 - 30);
    Release(471, 5);
}

TEST_F(ClassicIndicatorTest, APressBelowTheThumbPagesOnTheTimer) {
    Press(471, 500);
    EXPECT_EQ(list_->Indicator().PressedPart(), flick::kPartPageBelow);
    EXPECT_EQ(list_->Offset(), 0);
    timers_.Advance(100);
    EXPECT_EQ(list_->Offset(), 562);
    Release(471, 500);
}

TEST_F(ClassicIndicatorTest, DraggingTheClassicThumb) {
    Press(471, 25);  // 10 below the thumb's top
    EXPECT_EQ(list_->Indicator().PressedPart(), flick::kPartThumb);
    EXPECT_FALSE(timers_.IsArmed(List(), ScrollIndicator::kRepeatTimer));
    Move(471, 125);
    int free = 608 - 608 * 638 / 1200;
    EXPECT_EQ(list_->Offset(), 100 * (1200 - 638) / free);
    Release(471, 125);
    EXPECT_FALSE(list_->Indicator().Pressed());
}

}  // namespace
}  // namespace flicktest
