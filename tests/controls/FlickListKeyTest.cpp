// The flick list's keys and scrolling by code under Wine: Home, End, Up, Down, Page Up and Down,
// Enter's activation on key-up, Left and Right consumed, other keys passed to the parent, the
// owner consuming keys, the guard against auto-repeat, characters, and WM_VSCROLL's codes.
#include <gtest/gtest.h>

#include "FlickListFixture.h"

namespace flicktest {
namespace {

// 40 rows of 30 in a 638-pixel view: 21 whole rows, offsets 0..562.
class FlickListKeyTest : public FlickListFixture {
  protected:
    void SetUp() override {
        FlickListFixture::SetUp();
        Make(40, 30, 480, 640);
        ASSERT_EQ(list_->VisibleRows(), 21);
        ASSERT_EQ(list_->MaxOffset(), 562);
    }
    void Down(UINT key) { Key(WM_KEYDOWN, key); }
    void VScroll(int code, int position) {
        SendMessageW(List(), WM_VSCROLL, MAKEWPARAM(code, static_cast<WORD>(position)), 0);
    }
};

TEST_F(FlickListKeyTest, EndAndHome) {
    Down(VK_END);
    EXPECT_EQ(list_->Selection(), 39);
    EXPECT_EQ(list_->Offset(), 562);
    EXPECT_EQ(list_->Indicator().Range().position, 562);
    Down(VK_HOME);
    EXPECT_EQ(list_->Selection(), 0);
    EXPECT_EQ(list_->Offset(), 0);
    ASSERT_FALSE(listener_.selChanges.empty());
    EXPECT_EQ(listener_.selChanges.back().other, 1);  // by keyboard
}

TEST_F(FlickListKeyTest, DownWalksAndScrollsTheRowToTheBottom) {
    for (int i = 0; i < 20; ++i)
        Down(VK_DOWN);
    EXPECT_EQ(list_->Selection(), 20);
    EXPECT_EQ(list_->Offset(), 0);
    Down(VK_DOWN);  // row 21 reaches below the view
    EXPECT_EQ(list_->Selection(), 21);
    EXPECT_EQ(list_->Offset(), 30);
    RECT row = list_->GetRowRect(21);
    EXPECT_LE(row.bottom, 638);
}

TEST_F(FlickListKeyTest, DownOnTheLastRowKeepsIt) {
    Down(VK_END);
    listener_.Clear();
    Down(VK_DOWN);
    EXPECT_EQ(list_->Selection(), 39);
    EXPECT_EQ(list_->Offset(), 562);
    EXPECT_TRUE(listener_.selChanges.empty());
}

TEST_F(FlickListKeyTest, UpScrollsTheRowToTheTop) {
    Down(VK_END);
    for (int i = 0; i < 18; ++i)
        Down(VK_UP);
    EXPECT_EQ(list_->Selection(), 21);
    EXPECT_EQ(list_->Offset(), 562);  // row 21 at 68 is still in view
    Down(VK_UP);
    Down(VK_UP);
    EXPECT_EQ(list_->Selection(), 19);
    EXPECT_EQ(list_->Offset(), 562);
    Down(VK_UP);  // row 18 starts at 540, above the view
    EXPECT_EQ(list_->Selection(), 18);
    EXPECT_EQ(list_->Offset(), 540);
}

TEST_F(FlickListKeyTest, PageDownAndPageUp) {
    Down(VK_NEXT);
    EXPECT_EQ(list_->Selection(), 20);
    EXPECT_EQ(list_->Offset(), 0);
    Down(VK_NEXT);
    EXPECT_EQ(list_->Selection(), 39);
    EXPECT_EQ(list_->Offset(), 562);  // 19 * 30 = 570, kept at the end
    Down(VK_PRIOR);
    EXPECT_EQ(list_->Selection(), 19);
    EXPECT_EQ(list_->Offset(), 562);  // 19 * 30 = 570, kept at the end
    Down(VK_PRIOR);
    EXPECT_EQ(list_->Selection(), 0);
    EXPECT_EQ(list_->Offset(), 0);
}

TEST_F(FlickListKeyTest, PageDownOnTheLastRowAndPageUpOnTheFirstDoNothing) {
    Down(VK_END);
    listener_.Clear();
    Down(VK_NEXT);
    EXPECT_EQ(list_->Selection(), 39);
    Down(VK_HOME);
    listener_.Clear();
    Down(VK_PRIOR);
    EXPECT_EQ(list_->Selection(), 0);
    EXPECT_TRUE(listener_.selChanges.empty());
}

TEST_F(FlickListKeyTest, EnterActivatesOnKeyUp) {
    Down(VK_DOWN);
    Down(VK_RETURN);
    EXPECT_TRUE(listener_.activations.empty());
    Key(WM_KEYUP, VK_RETURN);
    ASSERT_EQ(listener_.activations.size(), 1u);
    EXPECT_EQ(listener_.activations[0].index, 1);
    // A key-up without its key-down activates nothing.
    Key(WM_KEYUP, VK_RETURN);
    EXPECT_EQ(listener_.activations.size(), 1u);
    // The Action key does the same.
    Down(FlickList::kActionKey);
    Key(WM_KEYUP, FlickList::kActionKey);
    EXPECT_EQ(listener_.activations.size(), 2u);
    EXPECT_TRUE(parent_.keys.empty());
}

TEST_F(FlickListKeyTest, EnterRevealsTheSelection) {
    list_->SetSelection(30, false);
    Down(VK_RETURN);
    EXPECT_EQ(list_->Offset(), (30 - 21 + 1) * 30);
}

TEST_F(FlickListKeyTest, EnterHeldBecomesAHoldWhenHoldIsOn) {
    Make(40, 30, 480, 640, true, true, true);
    Down(VK_DOWN);
    Down(VK_RETURN);
    timers_.Advance(500);
    ASSERT_EQ(listener_.holds.size(), 1u);
    EXPECT_EQ(listener_.holds[0].index, 1);
    EXPECT_EQ(listener_.holds[0].other, 45);  // the row's centre
}

TEST_F(FlickListKeyTest, LeftAndRightAreConsumed) {
    Down(VK_LEFT);
    Down(VK_RIGHT);
    EXPECT_EQ(list_->Selection(), 0);
    EXPECT_TRUE(parent_.keys.empty());
}

TEST_F(FlickListKeyTest, OtherKeysReachTheParent) {
    Down(VK_F3);
    Key(WM_KEYUP, VK_F3);
    Key(WM_KEYUP, VK_DOWN);
    ASSERT_EQ(parent_.keys.size(), 3u);
    EXPECT_EQ(parent_.keys[0].message, static_cast<UINT>(WM_KEYDOWN));
    EXPECT_EQ(parent_.keys[0].key, static_cast<WPARAM>(VK_F3));
    EXPECT_EQ(parent_.keys[1].message, static_cast<UINT>(WM_KEYUP));
    EXPECT_EQ(parent_.keys[1].key, static_cast<WPARAM>(VK_F3));
    EXPECT_EQ(parent_.keys[2].key, static_cast<WPARAM>(VK_DOWN));
    EXPECT_EQ(list_->Selection(), 0);
}

TEST_F(FlickListKeyTest, TheOwnerSeesKeysFirstAndMayConsumeThem) {
    listener_.consumeKey = VK_DOWN;
    Down(VK_DOWN);
    Down(VK_F3);
    EXPECT_EQ(list_->Selection(), 0);
    ASSERT_EQ(listener_.keyDowns.size(), 2u);
    EXPECT_EQ(listener_.keyDowns[0], static_cast<UINT>(VK_DOWN));
    ASSERT_EQ(parent_.keys.size(), 1u);
    EXPECT_EQ(parent_.keys[0].key, static_cast<WPARAM>(VK_F3));
}

TEST_F(FlickListKeyTest, RepeatsQueuedBeforeTheKeyUpAreDropped) {
    for (int i = 0; i < 3; ++i)
        PostMessageW(List(), WM_KEYDOWN, VK_DOWN, 0x40000001);
    PostMessageW(List(), WM_KEYUP, VK_DOWN, 0xC0000001);
    Down(VK_DOWN);
    EXPECT_FALSE(Waiting(List(), WM_KEYDOWN, false));
    EXPECT_TRUE(Waiting(List(), WM_KEYUP, false));
    Pump();
    EXPECT_EQ(list_->Selection(), 1);
}

TEST_F(FlickListKeyTest, RepeatsWithoutAKeyUpAreKept) {
    PostMessageW(List(), WM_KEYDOWN, VK_DOWN, 0x40000001);
    Down(VK_DOWN);
    EXPECT_TRUE(Waiting(List(), WM_KEYDOWN, false));
    Pump();
    EXPECT_EQ(list_->Selection(), 2);
}

TEST_F(FlickListKeyTest, CharactersGoToTheOwner) {
    SendMessageW(List(), WM_CHAR, 0x10041, 0);
    ASSERT_EQ(listener_.chars.size(), 1u);
    EXPECT_EQ(listener_.chars[0], L'A');
}

TEST_F(FlickListKeyTest, TheListAsksForAllKeys) {
    EXPECT_EQ(SendMessageW(List(), WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
}

TEST_F(FlickListKeyTest, ScrollCodes) {
    VScroll(SB_LINEDOWN, 0);
    EXPECT_EQ(list_->Offset(), 30);
    VScroll(SB_PAGEDOWN, 0);
    EXPECT_EQ(list_->Offset(), 562);  // a page from 30, kept at the end
    VScroll(SB_LINEUP, 0);
    EXPECT_EQ(list_->Offset(), 532);
    VScroll(SB_PAGEUP, 0);
    EXPECT_EQ(list_->Offset(), 0);
    VScroll(SB_THUMBTRACK, 250);
    EXPECT_EQ(list_->Offset(), 250);
    EXPECT_EQ(list_->Indicator().Range().position, 250);
    VScroll(SB_THUMBPOSITION, 100);
    EXPECT_EQ(list_->Offset(), 250);
    VScroll(SB_BOTTOM, 0);
    EXPECT_EQ(list_->Offset(), 562);
    VScroll(SB_TOP, 0);
    EXPECT_EQ(list_->Offset(), 0);
    VScroll(SB_ENDSCROLL, 0);
    EXPECT_EQ(list_->Offset(), 0);
}

TEST_F(FlickListKeyTest, TheListsOwnCodeScrollsBySignedAmounts) {
    VScroll(FlickList::kScrollByCode, 100);
    EXPECT_EQ(list_->Offset(), 100);
    VScroll(FlickList::kScrollByCode, -40);
    EXPECT_EQ(list_->Offset(), 60);
    VScroll(FlickList::kScrollByCode, -1000);
    EXPECT_EQ(list_->Offset(), 0);
    VScroll(FlickList::kScrollByCode, 5000);
    EXPECT_EQ(list_->Offset(), 562);
    EXPECT_EQ(list_->Indicator().Range().position, 562);
}

TEST_F(FlickListKeyTest, ScrollingRepaintsTheRowsThatCameIntoView) {
    PrintClient(List());
    UpdateWindow(List());
    listener_.Clear();
    VScroll(FlickList::kScrollByCode, 60);
    // The pixels moved up by 60: the rows uncovered at the bottom are drawn.
    bool drewRow21 = false;
    for (const DrawCall& call : listener_.draws)
        drewRow21 = drewRow21 || call.index == 21;
    EXPECT_TRUE(drewRow21);
    EXPECT_EQ(list_->Offset(), 60);
}

TEST_F(FlickListKeyTest, FocusIsReported) {
    SetFocus(List());
    SetFocus(parent_.Hwnd());
    ASSERT_GE(listener_.focusMessages.size(), 2u);
    EXPECT_EQ(listener_.focusMessages[0], static_cast<UINT>(WM_SETFOCUS));
    EXPECT_EQ(listener_.focusMessages[1], static_cast<UINT>(WM_KILLFOCUS));
    EXPECT_TRUE(IsWindowVisible(List()));
}

TEST_F(FlickListKeyTest, HideOnDeactivateHidesOnDeactivation) {
    SendMessageW(List(), WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_TRUE(IsWindowVisible(List()));
    list_->SetHideOnDeactivate(true);
    SendMessageW(List(), WM_ACTIVATE, WA_ACTIVE, 0);
    EXPECT_TRUE(IsWindowVisible(List()));
    SendMessageW(List(), WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_FALSE(IsWindowVisible(List()));
}

TEST_F(FlickListKeyTest, HideOnDeactivateHidesOnLosingFocus) {
    list_->SetHideOnDeactivate(true);
    SetFocus(List());
    SetFocus(parent_.Hwnd());
    EXPECT_FALSE(IsWindowVisible(List()));
}

}  // namespace
}  // namespace flicktest
