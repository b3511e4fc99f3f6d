// The board window's menus and commands under Wine: the menus it builds and where it opens them,
// what each choice does to the board and to what is stored, and choices whose button or contact
// changed while the menu was open.
#include <windows.h>

#include <gtest/gtest.h>

#include "BoardUseFixture.h"
#include "base/ResourceIds.h"
#include "skin/ButtonPanel.h"
#include "skin/Skin.h"

namespace {

using board_use::BoardUse;
using board_use::Calls;
using board_use::Pulses;
using board_use::StoredBoard;

class BoardMenuTest : public BoardUse {
  protected:
    /// Holds `position` until its context menu opens, the person answering `choice`.
    void HoldAndChoose(int position, uint32_t choice) {
        answer_ = choice;
        Down(Centre(position));
        timers_.Advance(500);
        Up(Centre(position));
    }
};
class BoardCommandTest : public BoardUse {};

/// The demo board without its second page: everything on page 0.
std::vector<StoredEntry> OnePage() {
    std::vector<StoredEntry> entries = DemoEntries();
    entries.pop_back();
    return entries;
}

uint32_t SettingNumber(const char16_t* name) {
    return settings::ReadNumber(settings::kSettingsKey, name, 0xFFFF);
}

TEST_F(BoardMenuTest, MainMenuOpensAtThePanelsMenuKeyBottomAlignedInPortrait) {
    BoardWindow& board = Open();
    board.Select(0);
    Command(IDM_MAIN_MENU);
    ASSERT_EQ(menus_.size(), 1u);
    const Rect key = board.Panel()->ButtonRect(2);
    POINT at{key.left, key.top};
    ClientToScreen(board.Panel()->Hwnd(), &at);
    EXPECT_EQ(menus_[0].at, (Point{at.x, at.y}));
    EXPECT_EQ(menus_[0].align, MenuAlign::kLeftBottom);
    // The selected button's items come first; the texts come from the resource library.
    const MenuModel& menu = menus_[0].model;
    EXPECT_EQ(menu.At(0).text, Str(u"Send SMS"));
    EXPECT_EQ(menu.At(1).text, Str(u"Rename"));
    EXPECT_NE(menu.Find(IDM_ADD_PAGE), nullptr);
    EXPECT_EQ(menu.Find(IDM_ADD_PAGE)->text, Str(u"Add Page"));
    EXPECT_TRUE(menu.IdsUnique());
    // Anna's dialer number 1 is checked in the dialer sub-menu.
    ASSERT_NE(menu.Find(IDM_DIALER_FIRST), nullptr);
    EXPECT_TRUE(menu.Find(IDM_DIALER_FIRST)->checked);
    EXPECT_FALSE(menu.Find(IDM_DIALER_FIRST + 1)->checked);
    // Big buttons are on.
    ASSERT_NE(menu.Find(IDM_BIG_BUTTONS), nullptr);
    EXPECT_TRUE(menu.Find(IDM_BIG_BUTTONS)->checked);
    EXPECT_FALSE(menu.Find(IDM_SHOW_DIALER)->checked);
}

TEST_F(BoardMenuTest, MainMenuOnAFreeButtonHasNoButtonItems) {
    BoardWindow& board = Open();
    board.Select(8);
    Command(IDM_MAIN_MENU);
    ASSERT_EQ(menus_.size(), 1u);
    EXPECT_EQ(menus_[0].model.At(0).id, static_cast<uint32_t>(IDM_ADD_PAGE));
    EXPECT_EQ(menus_[0].model.Find(IDM_RENAME), nullptr);
}

TEST_F(BoardMenuTest, MainMenuRightAlignedInLandscape) {
    Open(DemoEntries(), {320, 240, 96});
    Command(IDM_MAIN_MENU);
    ASSERT_EQ(menus_.size(), 1u);
    EXPECT_EQ(menus_[0].align, MenuAlign::kRightTop);
}

TEST_F(BoardMenuTest, ContextMenuShowsNameCallDialerAndPhones) {
    Open();
    HoldAndChoose(0, 0);
    ASSERT_EQ(menus_.size(), 1u);
    const MenuModel& menu = menus_[0].model;
    EXPECT_FALSE(menu.At(0).enabled);
    EXPECT_EQ(menu.At(2).text, Str(u"Call +46701234567"));
    EXPECT_EQ(menu.At(5).text, Str(u"Dialer Button (1)"));
    const MenuItem& phones = menu.At(menu.Count() - 1);
    EXPECT_EQ(phones.text, Str(u"Phone: +46701234567"));
    ASSERT_EQ(phones.sub.Count(), 2);
    EXPECT_EQ(phones.sub.At(1).text, Str(u"+4681234567 (Work)"));
    EXPECT_TRUE(phones.sub.At(0).checked);
    EXPECT_TRUE(menu.IdsUnique());
    // Dismissed: nothing happened.
    EXPECT_TRUE(Calls().empty());
}

TEST_F(BoardMenuTest, ContextMenuClearClearsTheButtonAndItsStoredEntry) {
    Open();
    HoldAndChoose(2, IDM_CLEAR_BUTTON);
    EXPECT_EQ(EntryOf(2), nullptr);
    for (const std::u16string& line : StoredBoard())
        EXPECT_EQ(line.find(u"+441632960123"), std::u16string::npos);
    EXPECT_EQ(StoredBoard().size(), DemoEntries().size() - 1);
}

TEST_F(BoardMenuTest, ContextMenuDialerNumberIsSetAndTakenFromItsOwner) {
    Open();
    HoldAndChoose(3, IDM_DIALER_FIRST + 1);  // number 2, Bob's
    EXPECT_EQ(Entry(3).btn, 2);
    EXPECT_EQ(Entry(1).btn, -1);
    HoldAndChoose(3, IDM_DIALER_CLEAR);
    EXPECT_EQ(Entry(3).btn, -1);
    bool found = false;
    for (const std::u16string& line : StoredBoard())
        found = found || line.starts_with(u"4|3|-1|");
    EXPECT_TRUE(found);
}

TEST_F(BoardMenuTest, ContextMenuCallCallsTheButton) {
    Open();
    HoldAndChoose(1, IDM_CALL_FIRST);
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_NE(Calls()[0].name.find(u"Bob"), std::u16string::npos);
}

TEST_F(BoardMenuTest, PhoneChoiceRebindsTheButtonInItsSlot) {
    Open();
    const int index = board_->Board().FindBySlot(0);
    HoldAndChoose(0, IDM_PHONE_FIRST + 1);
    ASSERT_NE(EntryOf(0), nullptr);
    EXPECT_EQ(Entry(0).phone, Str(u"+4681234567"));
    EXPECT_EQ(Entry(0).typeLabel, Str(u"Work"));
    EXPECT_EQ(board_->Board().FindBySlot(0), index);
    bool found = false;
    for (const std::u16string& line : StoredBoard())
        found = found || line.starts_with(u"1|0|-1|+4681234567|Work|");
    EXPECT_TRUE(found);
}

TEST_F(BoardMenuTest, ContactDeletedWhileTheMenuIsOpenChangesNothing) {
    Open();
    // The refresh that finds the contact gone stores the button with oid 0; the choice made
    // after it must store nothing more.
    std::vector<std::u16string> afterDeletion;
    duringMenu_ = [this, &afterDeletion] {
        contacts_.contacts.erase(1);
        board_->RefreshContacts();
        afterDeletion = StoredBoard();
    };
    HoldAndChoose(0, IDM_PHONE_FIRST + 1);
    ASSERT_NE(EntryOf(0), nullptr);
    EXPECT_EQ(Entry(0).oid, 0u);
    EXPECT_EQ(Entry(0).phone, Str(u"+46701234567"));
    ASSERT_FALSE(afterDeletion.empty());
    EXPECT_EQ(StoredBoard(), afterDeletion);
    // Still usable.
    duringMenu_ = nullptr;
    HoldAndChoose(1, IDM_CLEAR_BUTTON);
    EXPECT_EQ(EntryOf(1), nullptr);
}

TEST_F(BoardMenuTest, PhoneNoLongerOfTheContactChangesNothing) {
    Open();
    const std::vector<std::u16string> stored = StoredBoard();
    duringMenu_ = [this] { contacts_.contacts[1].phones.pop_back(); };
    HoldAndChoose(0, IDM_PHONE_FIRST + 1);
    EXPECT_EQ(Entry(0).phone, Str(u"+46701234567"));
    EXPECT_EQ(StoredBoard(), stored);
}

TEST_F(BoardMenuTest, ButtonClearedWhileTheMenuIsOpenTakesNoChoice) {
    Open();
    duringMenu_ = [this] { board_->ClearButton(3); };
    HoldAndChoose(3, IDM_DIALER_FIRST + 4);
    const std::vector<std::u16string> afterClear = StoredBoard();
    EXPECT_EQ(EntryOf(3), nullptr);
    HoldAndChoose(3, IDM_CALL_FIRST);  // a free button: no menu, no call, the picker instead
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(board_use::PickerRuns(), 1);
    EXPECT_EQ(StoredBoard(), afterClear);
    EXPECT_EQ(Entry(4).btn, 12);  // nobody lost a number to a vanished button
}

TEST_F(BoardMenuTest, AddPageOnASinglePageBoard) {
    BoardWindow& board = Open(OnePage());
    ASSERT_EQ(board.Geometry().Pages(), 1);
    answer_ = IDM_ADD_PAGE;
    board.Select(4);
    Command(IDM_MAIN_MENU);
    EXPECT_EQ(board.Geometry().Pages(), 2);
    EXPECT_EQ(board.Geometry().Page(), 1);
    EXPECT_EQ(board.Geometry().Selected(), 0);
    EXPECT_EQ(board.ShownArrows(), (Arrows{true, false}));
}

TEST_F(BoardMenuTest, DeletePageFromTheMenu) {
    BoardWindow& board = Open();
    answer_ = IDM_DELETE_PAGE;
    Command(IDM_MAIN_MENU);
    EXPECT_EQ(board.Geometry().Pages(), 1);
    ASSERT_EQ(StoredBoard().size(), 1u);
    EXPECT_TRUE(StoredBoard()[0].starts_with(u"9|0|"));
}

TEST_F(BoardMenuTest, ViewTogglesWriteTheirOptions) {
    BoardWindow& board = Open();
    answer_ = IDM_SHOW_DIALER;
    Command(IDM_MAIN_MENU);
    EXPECT_TRUE(board.ShowsDialerButton());
    EXPECT_EQ(SettingNumber(u"DdShowBtn"), 1u);
    Command(IDM_MAIN_MENU);
    EXPECT_FALSE(board.ShowsDialerButton());
    EXPECT_EQ(SettingNumber(u"DdShowBtn"), 0u);
    answer_ = IDM_SHOW_PHONE_TYPE;
    Command(IDM_MAIN_MENU);
    EXPECT_TRUE(board.ShowsPhoneType());
    EXPECT_EQ(SettingNumber(u"DdShowType"), 1u);
    // The menu shows the new state next time.
    answer_ = 0;
    Command(IDM_MAIN_MENU);
    ASSERT_NE(menus_.back().model.Find(IDM_SHOW_PHONE_TYPE), nullptr);
    EXPECT_TRUE(menus_.back().model.Find(IDM_SHOW_PHONE_TYPE)->checked);
}

TEST_F(BoardMenuTest, BigButtonsToggleReloadsTheArtAndLaysOutAgain) {
    BoardWindow& board = Open();
    const int bigWidth = board.Geometry().CellW();
    const int bigPerPage = board.Geometry().PerPage();
    answer_ = IDM_BIG_BUTTONS;
    Command(IDM_MAIN_MENU);
    EXPECT_EQ(SettingNumber(u"DdBigBtn"), 0u);
    EXPECT_LT(board.Geometry().CellW(), bigWidth);
    EXPECT_GT(board.Geometry().PerPage(), bigPerPage);
    Command(IDM_MAIN_MENU);
    EXPECT_EQ(SettingNumber(u"DdBigBtn"), 1u);
    EXPECT_EQ(board.Geometry().CellW(), bigWidth);
}

TEST_F(BoardMenuTest, MoveFromTheMainMenu) {
    Open();
    board_->Select(0);
    answer_ = IDM_MOVE_DOWN;
    Command(IDM_MAIN_MENU);
    ASSERT_NE(EntryOf(3), nullptr);
    ASSERT_NE(EntryOf(0), nullptr);
    EXPECT_EQ(Entry(3).oid, 1u);
    EXPECT_EQ(Entry(0).oid, 4u);
    EXPECT_EQ(board_->Geometry().Selected(), 3);
}

TEST_F(BoardMenuTest, ExitPostsAForcedClose) {
    Open();
    answer_ = IDM_EXIT;
    Command(IDM_MAIN_MENU);
    MSG msg;
    ASSERT_TRUE(PeekMessageW(&msg, Hwnd(), WM_CLOSE, WM_CLOSE, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 100u);
}

TEST_F(BoardMenuTest, SortByNameFromTheMainMenu) {
    Open();
    answer_ = IDM_SORT_BY_NAME;
    Command(IDM_MAIN_MENU);
    // Sorted and renumbered from slot 0 without gaps.
    for (int slot = 0; slot < static_cast<int>(DemoEntries().size()); ++slot)
        EXPECT_NE(EntryOf(slot), nullptr) << slot;
    for (int slot = 1; slot < static_cast<int>(DemoEntries().size()); ++slot)
        EXPECT_LE(CompareStringW(
                      LOCALE_SYSTEM_DEFAULT, 0,
                      reinterpret_cast<const wchar_t*>(DisplayName(Entry(slot - 1)).c_str()), -1,
                      reinterpret_cast<const wchar_t*>(DisplayName(Entry(slot)).c_str()), -1),
                  CSTR_EQUAL);
}

TEST_F(BoardMenuTest, ClearAllAnsweredNoChangesNothingYesEmptiesTheBoard) {
    BoardWindow& board = Open();
    const std::vector<std::u16string> stored = StoredBoard();
    board_use::AlertAnswer() = kAlertAnswerNo;
    answer_ = IDM_CLEAR_ALL;
    Command(IDM_MAIN_MENU);
    ASSERT_EQ(board_use::Alerts().size(), 1u);
    EXPECT_EQ(board_use::Alerts()[0].text, u"Are you sure you want to clear all info?");
    EXPECT_EQ(board_use::Alerts()[0].caption, u"");
    EXPECT_EQ(board_use::Alerts()[0].flags, kAlertYesNo | kAlertIconExclamation);
    EXPECT_EQ(StoredBoard(), stored);
    board_use::AlertAnswer() = kAlertAnswerYes;
    Command(IDM_MAIN_MENU);
    EXPECT_EQ(board.Board().Count(), 0);
    EXPECT_TRUE(StoredBoard().empty());
    registry::KeyHolder key(registry::Open(DialBoard::kKeyPath));
    EXPECT_FALSE(key);
    EXPECT_EQ(board.Geometry().Pages(), 1);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(board.Geometry().Selected(), 0);
}

TEST_F(BoardCommandTest, PageCommandsVibrateOnlyWhenAskedAndOnlyFromTheSoftKeys) {
    BoardWindow& board = Open();
    Command(IDM_NEXT_PAGE);
    EXPECT_EQ(board.Geometry().Page(), 1);
    EXPECT_TRUE(Pulses().empty());
    settings::WriteNumber(settings::kSettingsKey, u"BtnFeedback", 2);
    Command(IDM_PREV_PAGE);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(Pulses(), (std::vector<uint32_t>{50}));
    // Already on the first page: still a pulse, no page change.
    Command(IDM_PREV_PAGE);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(Pulses().size(), 2u);
    Command(IDM_PANEL_NEXT);
    EXPECT_EQ(board.Geometry().Page(), 1);
    Command(IDM_PANEL_PREV);
    EXPECT_EQ(board.Geometry().Page(), 0);
    EXPECT_EQ(Pulses().size(), 2u);
}

TEST_F(BoardCommandTest, PanelArrowsActOnlyWhileShown) {
    BoardWindow& board = Open();
    ASSERT_FALSE(board.ShownArrows().prev);
    Command(IDM_PANEL_PREV);
    EXPECT_EQ(board.Geometry().Page(), 0);
    Command(IDM_NEXT_PAGE);
    Command(IDM_NEXT_PAGE);  // no third page
    EXPECT_EQ(board.Geometry().Page(), 1);
    ASSERT_FALSE(board.ShownArrows().next);
    Command(IDM_PANEL_NEXT);
    EXPECT_EQ(board.Geometry().Page(), 1);
}

TEST_F(BoardCommandTest, CloseCommandsOnlyHideWhileResident) {
    Open();
    for (uint32_t id : {1u, 2u, 104u, 109u}) {
        ShowWindow(Hwnd(), SW_SHOW);
        Command(id);
        EXPECT_FALSE(IsWindowVisible(Hwnd())) << id;
    }
    MSG msg;
    EXPECT_FALSE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
}

TEST_F(BoardCommandTest, ClearAndMoveCommandsOnAFreeButtonChangeNothing) {
    BoardWindow& board = Open();
    const std::vector<std::u16string> stored = StoredBoard();
    board.Select(8);
    for (int id : {IDM_CLEAR_BUTTON, IDM_MOVE_UP, IDM_MOVE_LEFT, IDM_RENAME, 9999})
        Command(id);
    EXPECT_EQ(StoredBoard(), stored);
    EXPECT_EQ(board.Geometry().Selected(), 8);
}

}  // namespace
