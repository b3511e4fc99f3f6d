// The board window's input under Wine, with fake time for the hold: taps, tap-and-hold, slides,
// the keys, the hidden marker and the private reload notices.
#include <windows.h>

#include <gtest/gtest.h>

#include "BoardUseFixture.h"
#include "base/ResourceIds.h"
#include "base/ScreenInfo.h"
#include "phone/NumberTemplates.h"
#include "view/PaintGeometry.h"

namespace {

using board_use::BoardUse;
using board_use::Calls;

constexpr UINT kHoldTimer = 2;

class BoardInputTest : public BoardUse {};

/// The number as the board dials it: through the number templates.
std::u16string Dialled(const char16_t* number) {
    NumberTemplates templates;
    templates.Load();
    Str out;
    return templates.Format(number, out) ? out.c_str() : number;
}

TEST_F(BoardInputTest, HoldOpensTheContextMenuAt500MsNotAt499) {
    BoardWindow& board = Open();
    const Point p = Centre(1);
    Down(p);
    EXPECT_TRUE(board.HoldTimerOn());
    EXPECT_TRUE(board.IsCellPressed(1));
    EXPECT_EQ(board.Geometry().Selected(), 1);
    EXPECT_EQ(GetCapture(), Hwnd());
    timers_.Advance(499);
    EXPECT_TRUE(menus_.empty());
    timers_.Advance(1);
    ASSERT_EQ(menus_.size(), 1u);
    // Opened at the hold point, with the button's name first.
    POINT screen{p.x, p.y};
    ClientToScreen(Hwnd(), &screen);
    EXPECT_EQ(menus_[0].at, (Point{screen.x, screen.y}));
    EXPECT_EQ(menus_[0].align, MenuAlign::kTopLeft);
    EXPECT_EQ(menus_[0].model.At(0).text, DisplayName(Entry(1)));
    // Afterwards the button is released, the hold is over and the stylus is free.
    EXPECT_FALSE(board.IsCellPressed(1));
    EXPECT_EQ(board.PressedPosition(), -1);
    EXPECT_FALSE(board.HoldTimerOn());
    EXPECT_FALSE(timers_.IsArmed(Hwnd(), kHoldTimer));
    EXPECT_NE(GetCapture(), Hwnd());
    // Lifting the stylus after the menu taps nothing.
    Up(p);
    EXPECT_TRUE(Calls().empty());
}

TEST_F(BoardInputTest, TwoPixelsOfDriftStillHold) {
    Open();
    const Point p = Centre(4);
    Down(p);
    Move(Point{p.x + 2, p.y - 2});
    Move(Point{p.x - 2, p.y + 2});
    timers_.Advance(500);
    EXPECT_EQ(menus_.size(), 1u);
}

TEST_F(BoardInputTest, ThreePixelsOfSlideCancelTheHoldAndLeaveAPlainPress) {
    BoardWindow& board = Open();
    const Point p = Centre(4);
    Down(p);
    Move(Point{p.x, p.y + 3});
    EXPECT_FALSE(board.HoldTimerOn());
    EXPECT_FALSE(timers_.IsArmed(Hwnd(), kHoldTimer));
    timers_.Advance(1000);
    EXPECT_TRUE(menus_.empty());
    // Still pressed inside its cell: lifting there taps it.
    EXPECT_TRUE(board.IsCellPressed(4));
    Up(Point{p.x, p.y + 3});
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0].number, Dialled(Entry(4).phone));
}

TEST_F(BoardInputTest, AQueuedTickOpensTheMenuUnlessTheHoldStopped) {
    Open();
    // A real tick already in the queue completes the hold...
    Down(Centre(1));
    PostMessageW(Hwnd(), WM_TIMER, kHoldTimer, 0);
    Pump();
    EXPECT_EQ(menus_.size(), 1u);
    // ...but once the hold stops (the stylus lifted), a tick that was queued is gone.
    Down(Centre(2));
    PostMessageW(Hwnd(), WM_TIMER, kHoldTimer, 0);
    Move(Point{Centre(2).x + 30, Centre(2).y});  // a slide stops the hold
    Pump();
    EXPECT_EQ(menus_.size(), 1u);
    MSG left;
    EXPECT_FALSE(PeekMessageW(&left, Hwnd(), WM_TIMER, WM_TIMER, PM_NOREMOVE));
    Up(Centre(2));
}

TEST_F(BoardInputTest, OtherTimerIdsAreIgnored) {
    Open();
    Down(Centre(1));
    Send(WM_TIMER, 7, 0);
    EXPECT_TRUE(menus_.empty());
    Up(Centre(1));
}

TEST_F(BoardInputTest, TapCallsTheButtonThroughTheTemplatesWithItsShownName) {
    BoardWindow& board = Open();
    const DialEntry anna = Entry(0);
    Down(Centre(0));
    Up(Centre(0));
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0].number, Dialled(anna.phone));
    EXPECT_EQ(Calls()[0].name, std::u16string(DisplayName(anna).c_str()));
    EXPECT_FALSE(board.IsCellPressed(0));
    // Resident (ModPreload on by default): the board hides after the call and marks itself.
    EXPECT_FALSE(IsWindowVisible(Hwnd()));
    EXPECT_TRUE(board.HasHiddenMarker());
}

TEST_F(BoardInputTest, LiftingOutsideTheButtonDoesNothing) {
    BoardWindow& board = Open();
    const Point p = Centre(0);
    Down(p);
    const Point outside{board.Geometry().Cell(0).right + 5, p.y};
    Move(outside);
    EXPECT_FALSE(board.IsCellPressed(0));
    Move(p);
    EXPECT_TRUE(board.IsCellPressed(0));
    Move(outside);
    Up(outside);
    timers_.Advance(1000);
    EXPECT_TRUE(Calls().empty());
    EXPECT_TRUE(menus_.empty());
    EXPECT_EQ(board.PressedPosition(), -1);
}

TEST_F(BoardInputTest, HoldingAFreeButtonNeverOpensTheMenu) {
    BoardWindow& board = Open();
    const std::vector<std::u16string> stored = board_use::StoredBoard();
    ASSERT_EQ(EntryOf(8), nullptr);
    Down(Centre(8));
    EXPECT_TRUE(board.IsCellPressed(8));
    EXPECT_FALSE(board.HoldTimerOn());
    EXPECT_FALSE(timers_.IsArmed(Hwnd(), kHoldTimer));
    timers_.Advance(2000);
    EXPECT_TRUE(menus_.empty());
    Up(Centre(8));
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(board_use::StoredBoard(), stored);
}

TEST_F(BoardInputTest, CancelModeDropsTheHoldAndThePress) {
    BoardWindow& board = Open();
    Down(Centre(3));
    Send(WM_CANCELMODE);
    EXPECT_FALSE(board.HoldTimerOn());
    EXPECT_FALSE(board.IsCellPressed(3));
    EXPECT_EQ(board.PressedPosition(), -1);
    timers_.Advance(1000);
    EXPECT_TRUE(menus_.empty());
    Up(Centre(3));
    EXPECT_TRUE(Calls().empty());
}

TEST_F(BoardInputTest, AnEntryGoneBeforeTheHoldCompletesOpensNoMenu) {
    BoardWindow& board = Open();
    Down(Centre(1));
    // Another program rewrites the stored board without slot 1 and tells the board.
    std::vector<StoredEntry> fewer = DemoEntries();
    fewer.erase(fewer.begin() + 1);
    StoreEntries(fewer);
    Send(WM_DD_RELOAD, 0, DD_RELOAD_ENTRIES);
    ASSERT_EQ(EntryOf(1), nullptr);
    const std::vector<std::u16string> stored = board_use::StoredBoard();
    timers_.Advance(500);
    EXPECT_TRUE(menus_.empty());
    EXPECT_EQ(board.PressedPosition(), -1);
    EXPECT_EQ(board_use::StoredBoard(), stored);
    // Still usable: a tap on another button calls it.
    Down(Centre(0));
    Up(Centre(0));
    EXPECT_EQ(Calls().size(), 1u);
}

TEST_F(BoardInputTest, RightAndLeftCrossPages) {
    BoardWindow& board = Open();
    board.Select(2);  // last column of the first row
    Key(VK_RIGHT);
    EXPECT_EQ(board.Geometry().Page(), 1);
    EXPECT_EQ(board.Geometry().Selected(), 0);
    EXPECT_EQ(board.ShownArrows(), (Arrows{true, false}));
    Key(VK_LEFT);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(board.Geometry().Selected(), 2);
    EXPECT_EQ(board.ShownArrows(), (Arrows{false, true}));
}

TEST_F(BoardInputTest, LeftOnPageZerosFirstColumnAndRightOnTheLastPagesEndDoNothing) {
    BoardWindow& board = Open();
    board.Select(3);
    Key(VK_LEFT);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(board.Geometry().Selected(), 3);
    board.Select(2);
    Key(VK_RIGHT);
    board.Select(5);
    Key(VK_RIGHT);
    EXPECT_EQ(board.Geometry().Page(), 1);
    EXPECT_EQ(board.Geometry().Selected(), 5);
}

TEST_F(BoardInputTest, UpDownHomeAndEnd) {
    BoardWindow& board = Open();
    board.Select(4);
    Key(VK_UP);
    EXPECT_EQ(board.Geometry().Selected(), 1);
    Key(VK_UP);
    EXPECT_EQ(board.Geometry().Selected(), 1);
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_EQ(board.Geometry().Selected(), 7);
    Key(VK_DOWN);
    EXPECT_EQ(board.Geometry().Selected(), 7);
    Key(VK_HOME);
    EXPECT_EQ(board.Geometry().Selected(), 0);
    Key(VK_END);
    EXPECT_EQ(board.Geometry().Selected(), 8);
}

TEST_F(BoardInputTest, ASelectionChangeRepaintsBothCellsWithTheFramesMargin) {
    BoardWindow& board = Open();
    board.Select(0);
    ValidateRect(Hwnd(), nullptr);
    Key(VK_RIGHT);
    HRGN region = CreateRectRgn(0, 0, 0, 0);
    ASSERT_NE(GetUpdateRgn(Hwnd(), region, FALSE), NULLREGION);
    const int margin = TextInset(EffectiveDpiX());
    ASSERT_GT(margin, 1);
    for (int p : {0, 1}) {
        const Rect& c = board.Geometry().Cell(p);
        // Just outside the cell, inside the margin: part of the repaint.
        EXPECT_TRUE(PtInRegion(region, c.left - margin, c.top - margin)) << p;
        EXPECT_TRUE(PtInRegion(region, c.right + margin - 1, c.bottom + margin - 1)) << p;
        EXPECT_FALSE(PtInRegion(region, c.left - margin - 1, c.top + 5)) << p;
    }
    // A cell the selection never touched is left alone.
    const Rect& distant = board.Geometry().Cell(8);
    EXPECT_FALSE(
        PtInRegion(region, (distant.left + distant.right) / 2, (distant.top + distant.bottom) / 2));
    DeleteObject(region);
}

TEST_F(BoardInputTest, EnterTapsTheSelectedButtonAndHoldingItOpensTheMenu) {
    BoardWindow& board = Open();
    board.Select(1);
    Send(WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_TRUE(board.KeyHold());
    EXPECT_TRUE(board.IsCellPressed(1));
    timers_.Advance(300);
    Send(WM_KEYUP, VK_RETURN, 0xC0000001);
    EXPECT_FALSE(board.IsCellPressed(1));
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0].number, Dialled(Entry(1).phone));
    EXPECT_TRUE(menus_.empty());

    ShowWindow(Hwnd(), SW_SHOW);
    Send(WM_KEYDOWN, VK_RETURN, 1);
    timers_.Advance(300);
    // The key's own repeats do not start the half second again.
    Send(WM_KEYDOWN, VK_RETURN, 0x40000001);
    timers_.Advance(200);
    ASSERT_EQ(menus_.size(), 1u);
    // The menu opens at the selected cell's centre; releasing the key afterwards taps nothing.
    POINT centre{Centre(1).x, Centre(1).y};
    ClientToScreen(Hwnd(), &centre);
    EXPECT_EQ(menus_[0].at, (Point{centre.x, centre.y}));
    Send(WM_KEYUP, VK_RETURN, 0xC0000001);
    EXPECT_EQ(Calls().size(), 1u);
    EXPECT_FALSE(board.IsCellPressed(1));
}

TEST_F(BoardInputTest, ActionKeyActsLikeEnter) {
    BoardWindow& board = Open();
    board.Select(0);
    Send(WM_KEYDOWN, 134, 1);
    EXPECT_TRUE(board.KeyHold());
    Send(WM_KEYUP, 134, 0xC0000001);
    EXPECT_EQ(Calls().size(), 1u);
}

TEST_F(BoardInputTest, TalkKeyCallsTheSelectedBoundButtonOnly) {
    BoardWindow& board = Open();
    board.Select(8);  // free
    Send(WM_HOTKEY, 0, MAKELPARAM(0, 0x72));
    EXPECT_TRUE(Calls().empty());
    board.Select(2);
    Send(WM_HOTKEY, 0, MAKELPARAM(0, 0x71));  // another key
    EXPECT_TRUE(Calls().empty());
    Send(WM_HOTKEY, 0, MAKELPARAM(0, 0x72));
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0].number, Dialled(Entry(2).phone));
}

TEST_F(BoardInputTest, F3IsTheTalkKeyOnDesktop) {
    BoardWindow& board = Open();
    board.Select(8);
    Key(VK_F3);
    EXPECT_TRUE(Calls().empty());
    board.Select(0);
    Key(VK_F3);
    EXPECT_EQ(Calls().size(), 1u);
}

TEST_F(BoardInputTest, F4IsTheEndCallKeyAndCloses) {
    Open();
    ASSERT_TRUE(IsWindowVisible(Hwnd()));
    Send(WM_KEYDOWN, VK_F4, 1);
    EXPECT_TRUE(IsWindowVisible(Hwnd()));
    Send(WM_KEYUP, VK_F4, 0xC0000001);
    Pump();
    // Resident: closing hides the board.
    EXPECT_FALSE(IsWindowVisible(Hwnd()));
}

TEST_F(BoardInputTest, ReloadNoticeReloadsOnlyWithLParamTwo) {
    BoardWindow& board = Open();
    std::vector<StoredEntry> changed = DemoEntries();
    changed[0].display = u"Annie";
    StoreEntries(changed);
    Send(WM_DD_RELOAD, 0, 1);
    EXPECT_EQ(Entry(0).display, Str(u""));
    Send(WM_DD_RELOAD, 0, 2);
    EXPECT_EQ(Entry(0).display, Str(u"Annie"));
    EXPECT_EQ(board.Board().Count(), static_cast<int>(changed.size()));
}

TEST_F(BoardInputTest, TemplatesNoticeReloadsTheTemplates) {
    BoardWindow& board = Open();
    ASSERT_GT(board.Templates().Count(), 0);
    constexpr char16_t kTemplates[] = u"Software\\Orvalis\\PIM\\Templates";
    {
        registry::KeyHolder key(registry::Create(kTemplates));
        const uint32_t none = 0;
        registry::Set(key.get(), u"Count", registry::kTypeDword, &none, sizeof none);
    }
    Send(WM_DD_RELOAD_TEMPLATES);
    EXPECT_EQ(board.Templates().Count(), 0);
    registry::DeleteTree(kTemplates);
}

TEST_F(BoardInputTest, HiddenMarkerFollowsHidingAndShowing) {
    BoardWindow& board = Open();
    EXPECT_FALSE(board.HasHiddenMarker());
    ShowWindow(Hwnd(), SW_HIDE);
    EXPECT_TRUE(board.HasHiddenMarker());
    ShowWindow(Hwnd(), SW_SHOW);
    EXPECT_FALSE(board.HasHiddenMarker());
    // The exact flags 0x213 clear it too; one of 0x60000000 hides the window.
    ShowWindow(Hwnd(), SW_HIDE);
    ShowWindow(Hwnd(), SW_SHOWNA);
    SetWindowLongPtrW(Hwnd(), GWL_STYLE, GetWindowLongPtrW(Hwnd(), GWL_STYLE) | 0x80000000);
    WINDOWPOS pos{};
    pos.hwnd = Hwnd();
    pos.flags = 0x213;
    Send(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
    EXPECT_FALSE(board.HasHiddenMarker());
    pos.flags = 0x20000000;
    Send(WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&pos));
    EXPECT_FALSE(IsWindowVisible(Hwnd()));
    EXPECT_TRUE(board.HasHiddenMarker());
}

TEST_F(BoardInputTest, ActivationShowsTheBoardAgain) {
    Open();
    ShowWindow(Hwnd(), SW_HIDE);
    Send(WM_ACTIVATE, WA_INACTIVE, 0);
    EXPECT_FALSE(IsWindowVisible(Hwnd()));
    Send(WM_ACTIVATE, WA_ACTIVE, 0);
    EXPECT_TRUE(IsWindowVisible(Hwnd()));
    ShowWindow(Hwnd(), SW_HIDE);
    Send(WM_NCACTIVATE, TRUE, 0);
    EXPECT_TRUE(IsWindowVisible(Hwnd()));
}

}  // namespace
