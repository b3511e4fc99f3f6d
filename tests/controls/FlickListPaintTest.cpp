// The flick list's painting under Wine: the rows and the empty space (-1) handed to the owner in
// whole-view and row modes, a list pulled down by 30, an empty list, sizing to the rows, selection
// and reveal, and screenshots of a 480 x 640 list.
#include <gtest/gtest.h>

#include <algorithm>

#include "FlickListFixture.h"

namespace flicktest {
namespace {

class FlickListPaintTest : public FlickListFixture {
  protected:
    std::vector<DrawCall> Render() {
        listener_.Clear();
        image_ = PrintClient(List());
        return listener_.draws;
    }
    static bool Same(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }
    shot::Image image_;
};

TEST_F(FlickListPaintTest, ThreeRowsInATallViewAndTheSpaceBelow) {
    FlickList& list = Make(3, 40, 242, 202);  // a 240 x 200 view
    SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(FlickList::kScrollByCode, 50), 0);
    EXPECT_EQ(list.Offset(), 0);
    EXPECT_EQ(list.Indicator().Range().maximum, 119);
    EXPECT_EQ(list.Indicator().Range().page, 120);
    std::vector<DrawCall> draws = Render();
    ASSERT_EQ(draws.size(), 4u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(draws[i].index, i);
        EXPECT_TRUE(Same(draws[i].rect, RECT{0, 40 * i, 240, 40 * i + 40}));
        EXPECT_EQ(draws[i].selected, i == 0);
    }
    EXPECT_EQ(draws[3].index, -1);
    EXPECT_TRUE(Same(draws[3].rect, RECT{0, 120, 240, 200}));
    EXPECT_EQ(image_.At(100, 20), kSelectedRow);
    EXPECT_EQ(image_.At(100, 60), kOddRow);
    EXPECT_EQ(image_.At(100, 150), kEmpty);
    EXPECT_EQ(list.HitTest(100, 150), -1);
}

TEST_F(FlickListPaintTest, AnEmptyListDrawsOnlyEmptySpace) {
    FlickList& list = Make(0, 40, 242, 202);
    EXPECT_EQ(list.Selection(), 0);
    std::vector<DrawCall> draws = Render();
    ASSERT_EQ(draws.size(), 1u);
    EXPECT_EQ(draws[0].index, -1);
    EXPECT_TRUE(Same(draws[0].rect, RECT{0, 0, 240, 200}));
}

TEST_F(FlickListPaintTest, PulledDownThirtyPixels) {
    FlickList& list = Make(40, 30, 480, 640);
    Press(100, 100);
    Move(100, 120);
    Move(100, 160);
    ASSERT_EQ(list.Offset(), -30);
    std::vector<DrawCall> draws = Render();
    auto above = std::find_if(draws.begin(), draws.end(),
                              [](const DrawCall& call) { return call.index == -1; });
    ASSERT_NE(above, draws.end());
    EXPECT_TRUE(Same(above->rect, RECT{0, 0, 478, 30}));
    ASSERT_FALSE(draws.empty());
    EXPECT_EQ(draws[0].index, 0);
    EXPECT_TRUE(Same(draws[0].rect, RECT{0, 30, 478, 60}));
    EXPECT_EQ(image_.At(100, 10), kEmpty);
    EXPECT_EQ(image_.At(100, 40), kSelectedRow);
    Release(100, 160);
    Pump();
}

TEST_F(FlickListPaintTest, RowModeDrawsEachRowInItsOwnBitmap) {
    FlickList& list = Make(3, 40, 242, 202, true, false);
    EXPECT_EQ(list.Offset(), 0);
    std::vector<DrawCall> draws = Render();
    ASSERT_EQ(draws.size(), 4u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(draws[i].index, i);
        EXPECT_TRUE(Same(draws[i].rect, RECT{0, 0, 240, 40}));
    }
    EXPECT_TRUE(Same(draws[3].rect, RECT{0, 120, 240, 200}));
    EXPECT_EQ(image_.At(100, 20), kSelectedRow);
    EXPECT_EQ(image_.At(100, 100), kEvenRow);
    EXPECT_EQ(image_.At(100, 150), kEmpty);
}

TEST_F(FlickListPaintTest, OnlyTheRowsInViewAreDrawn) {
    FlickList& list = Make(40, 30, 480, 640);
    SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(FlickList::kScrollByCode, 45), 0);
    ASSERT_EQ(list.Offset(), 45);
    std::vector<DrawCall> draws = Render();
    ASSERT_FALSE(draws.empty());
    EXPECT_EQ(draws.front().index, 1);
    EXPECT_EQ(draws.front().rect.top, -15);
    EXPECT_EQ(draws.back().index, 22);  // 660 - 45 = 615..645 reaches the bottom
}

TEST_F(FlickListPaintTest, TheListSizesItselfToItsRows) {
    list_ = std::make_unique<FlickList>();
    list_->SetListener(&listener_);
    list_->SetItemHeight(40);
    list_->SetPlacement(5, 10, 200, 300, false);
    ASSERT_NE(list_->Create(parent_.Hwnd(), thumb_), nullptr);
    EXPECT_EQ(GetWindowLongPtrW(List(), GWL_STYLE) & (WS_CHILD | WS_BORDER),
              static_cast<LONG_PTR>(WS_CHILD | WS_BORDER));
    list_->SetItemCount(3);
    RECT frame;
    GetWindowRect(List(), &frame);
    MapWindowPoints(nullptr, parent_.Hwnd(), reinterpret_cast<POINT*>(&frame), 2);
    EXPECT_EQ(frame.left, 5);
    EXPECT_EQ(frame.top, 10);
    EXPECT_EQ(frame.right - frame.left, 200);
    EXPECT_EQ(frame.bottom - frame.top, 120 + 2 * GetSystemMetrics(SM_CYBORDER));
    list_->SetItemCount(30);
    GetWindowRect(List(), &frame);
    EXPECT_EQ(frame.bottom - frame.top, 300);
}

TEST_F(FlickListPaintTest, CreateReportsTheSelection) {
    list_ = std::make_unique<FlickList>();
    list_->SetListener(&listener_);
    list_->SetPlacement(0, 0, 100, 100, true);
    ASSERT_NE(list_->Create(parent_.Hwnd(), thumb_), nullptr);
    ASSERT_EQ(listener_.selChanges.size(), 1u);
    EXPECT_EQ(listener_.selChanges[0].index, -1);
}

TEST_F(FlickListPaintTest, RevealAlwaysRevealsTheSelection) {
    FlickList& list = Make(40, 30, 480, 640);
    list.SetSelection(30, false);
    EXPECT_EQ(list.Offset(), 0);  // selecting does not scroll
    list.Reveal(2);
    EXPECT_EQ(list.Offset(), (30 - 21 + 1) * 30);
    list.Reveal(40);  // out of range: nothing
    EXPECT_EQ(list.Offset(), 300);
}

TEST_F(FlickListPaintTest, SelectAndRevealScrollsOnlyWhenNeeded) {
    FlickList& list = Make(40, 30, 480, 640);
    list.SelectAndReveal(5);
    EXPECT_EQ(list.Selection(), 5);
    EXPECT_EQ(list.Offset(), 0);
    list.SelectAndReveal(25);
    EXPECT_EQ(list.Offset(), (25 - 21 + 1) * 30);
    listener_.Clear();
    list.SelectAndReveal(25);
    list.SelectAndReveal(-1);
    list.SelectAndReveal(40);
    EXPECT_TRUE(listener_.selChanges.empty());
}

TEST_F(FlickListPaintTest, RowRectsAndHitTests) {
    FlickList& list = Make(40, 30, 480, 640);
    RECT row = list.GetRowRect(2);
    EXPECT_TRUE(Same(row, RECT{0, 60, 478, 90}));
    RECT none = list.GetRowRect(40);
    EXPECT_TRUE(IsRectEmpty(&none));
    EXPECT_EQ(list.HitTest(10, 61), 2);
    EXPECT_EQ(list.HitTest(10, 700), -1);
    FlickList unattached;
    EXPECT_EQ(unattached.VisibleRows(), 1);
    EXPECT_EQ(unattached.HitTest(1, 1), -1);
    RECT empty = unattached.GetRowRect(0);
    EXPECT_TRUE(IsRectEmpty(&empty));
}

TEST_F(FlickListPaintTest, AListAtRestLooksRight) {
    FlickList& list = Make(40, 30, 480, 640);
    list.SetSelection(2, false);
    Render();
    EXPECT_FALSE(SaveShot(image_, L"flicklist-at-rest").empty());
    // At rest the indicator has faded: the right edge shows the rows.
    EXPECT_EQ(image_.At(475, 10), kEvenRow);
}

}  // namespace
}  // namespace flicktest
