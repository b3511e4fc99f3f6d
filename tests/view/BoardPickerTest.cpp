// Filling a free button under Wine: a tap opens the contact picker (a stand-in that answers as a
// person would), the choice is bound, stored and painted, and the last page grows a page.
#include <windows.h>

#include <gtest/gtest.h>

#include "BoardUseFixture.h"
#include "base/ResourceIds.h"
#include "base/SettingsStore.h"
#include "picker/ContactPicker.h"
#include "skin/Skin.h"

namespace {

using board_use::BoardUse;
using board_use::Calls;
using board_use::StoredBoard;

constexpr int32_t kFreeSlot = 8;  // the demo board's free button on page 1
constexpr uint32_t kNewOid = 40;

/// What the stand-in picker saw and what it answers.
struct PickerScript {
    int runs = 0;
    PickerRequest seen;
    HWND owner = nullptr;
    int result = 2;
    uint32_t oid = 0;
    Str number;
    Str label;
    int32_t type = 0;
};

PickerScript& Script() {
    static PickerScript script;
    return script;
}

int ScriptedPicker(PickerRequest& request, HWND owner) {
    PickerScript& script = Script();
    ++script.runs;
    script.owner = owner;
    script.seen.wantNumber = request.wantNumber;
    script.seen.vibrate = request.vibrate;
    script.seen.pulseMs = request.pulseMs;
    script.seen.look = request.look;
    script.seen.templates = request.templates;
    if (script.result == 1) {
        request.oid = script.oid;
        request.number = script.number;
        request.numberLabel = script.label;
        request.numberType = script.type;
    }
    return script.result;
}

class BoardPickerTest : public BoardUse {
  protected:
    void SetUp() override {
        BoardUse::SetUp();
        Script() = PickerScript{};
        fixturePicker_ = BoardWindow::SetPickerRunner(&ScriptedPicker);
        FakeContact zoe;
        zoe.first = u"Zoe";
        zoe.last = u"Quist";
        zoe.phones.push_back(Phone(u"Mobile", u"+46709876543", 1));
        zoe.phones.push_back(Phone(u"Home", u"+4687654321", 2));
        contacts_.contacts[kNewOid] = zoe;
    }
    void TearDown() override {
        BoardWindow::SetPickerRunner(fixturePicker_);
        BoardUse::TearDown();
    }

    /// The picker will choose `oid` with `number`.
    static void WillChoose(uint32_t oid, const char16_t* number, const char16_t* label,
                           int32_t type) {
        PickerScript& script = Script();
        script.result = 1;
        script.oid = oid;
        script.number = number;
        script.label = label;
        script.type = type;
    }

    /// Taps the button at `position` of the current page.
    void Tap(int position) {
        Down(Centre(position));
        Up(Centre(position));
    }

    BoardWindow::PickerFn fixturePicker_ = nullptr;
};

TEST_F(BoardPickerTest, TapOnAFreeButtonOpensThePickerForANumberWithTheBoardsLook) {
    BoardWindow& board = Open();
    Tap(kFreeSlot);
    ASSERT_EQ(Script().runs, 1);
    const PickerRequest& seen = Script().seen;
    EXPECT_EQ(Script().owner, Hwnd());
    EXPECT_TRUE(seen.wantNumber);
    EXPECT_FALSE(seen.vibrate);  // "BtnFeedback" is not 2
    EXPECT_EQ(seen.pulseMs, 50u);
    EXPECT_EQ(seen.templates, &board.Templates());
    EXPECT_EQ(seen.look.rowUnselected, board.ListUnselected());
    EXPECT_EQ(seen.look.rowSelected, board.ListSelected());
    EXPECT_EQ(seen.look.rowVoid, board.ListVoid());
    EXPECT_EQ(seen.look.scrollThumb, board.ScrollThumb());
    EXPECT_NE(seen.look.scrollThumb, nullptr);
    EXPECT_EQ(seen.look.background, board.GetSkin()->Colours().background);
    EXPECT_EQ(seen.look.font, board.GetSkin()->Font(SkinFont::kText));
    EXPECT_TRUE(Calls().empty());
}

TEST_F(BoardPickerTest, PickerVibratesWhenButtonFeedbackIsTwo) {
    settings::WriteNumber(settings::kSettingsKey, u"BtnFeedback", 2);
    Open();
    Tap(kFreeSlot);
    ASSERT_EQ(Script().runs, 1);
    EXPECT_TRUE(Script().seen.vibrate);
}

TEST_F(BoardPickerTest, AChoiceIsBoundStoredAndPainted) {
    BoardWindow& board = Open();
    const std::vector<std::u16string> before = StoredBoard();
    const int32_t pages = board.Geometry().Pages();
    WillChoose(kNewOid, u"+4687654321", u"Home", 2);
    Tap(kFreeSlot);
    const DialEntry& entry = Entry(kFreeSlot);
    EXPECT_EQ(entry.oid, kNewOid);
    EXPECT_EQ(entry.phone, Str(u"+4687654321"));
    EXPECT_EQ(entry.typeLabel, Str(u"Home"));
    EXPECT_EQ(DisplayName(entry), Str(u"Quist, Zoe"));
    // The new entry alone was added to what is stored.
    const std::vector<std::u16string> after = StoredBoard();
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after.back(), u"40|8|-1|+4687654321|Home|");
    for (size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(after[i], before[i]);
    // The button is not on the last page: the board keeps its count of pages.
    EXPECT_EQ(board.Geometry().Pages(), pages);
    // The cell is painted as a bound button: a tap now calls the chosen number.
    EXPECT_FALSE(GetUpdateRect(Hwnd(), nullptr, FALSE));
    Tap(kFreeSlot);
    ASSERT_EQ(Calls().size(), 1u);
    EXPECT_EQ(Calls()[0].name, u"Quist, Zoe");
}

TEST_F(BoardPickerTest, CancelLeavesTheButtonFreeAndNothingStored) {
    BoardWindow& board = Open();
    const std::vector<std::u16string> before = StoredBoard();
    const int32_t pages = board.Geometry().Pages();
    Tap(kFreeSlot);
    EXPECT_EQ(Script().runs, 1);
    EXPECT_EQ(EntryOf(kFreeSlot), nullptr);
    EXPECT_EQ(StoredBoard(), before);
    EXPECT_EQ(board.Geometry().Pages(), pages);
}

TEST_F(BoardPickerTest, BindingOnTheLastPageAddsAPage) {
    BoardWindow& board = Open();
    const int32_t pages = board.Geometry().Pages();
    for (int32_t page = 1; page < pages; ++page)
        Command(IDM_NEXT_PAGE);
    ASSERT_EQ(board.Geometry().Page(), pages - 1);
    ASSERT_FALSE(board.ShownArrows().next);
    const int32_t perPage = board.Geometry().PerPage();
    const int position = 4;  // free on the demo board's last page
    const int32_t slot = (pages - 1) * perPage + position;
    ASSERT_EQ(EntryOf(slot), nullptr);
    WillChoose(kNewOid, u"+46709876543", u"Mobile", 1);
    Tap(position);
    EXPECT_EQ(Entry(slot).oid, kNewOid);
    EXPECT_EQ(board.Geometry().Pages(), pages + 1);
    EXPECT_EQ(board.ShownArrows().next, true);
}

TEST_F(BoardPickerTest, AContactWithoutNumbersIsBoundButATapCallsNothing) {
    Open();
    FakeContact plain;
    plain.first = u"Nils";
    plain.last = u"Nummerlos";
    contacts_.contacts[41] = plain;
    WillChoose(41, u"", u"", 0);
    Tap(kFreeSlot);
    const DialEntry& entry = Entry(kFreeSlot);
    EXPECT_EQ(entry.oid, 41u);
    EXPECT_TRUE(entry.phone.IsEmpty());
    EXPECT_EQ(StoredBoard().back(), u"41|8|-1|||");
    // A tap is no call, and the picker does not open again for a bound button.
    Tap(kFreeSlot);
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(Script().runs, 1);
    // The held button's menu still opens; message and call are greyed, the rest works.
    Down(Centre(kFreeSlot));
    timers_.Advance(500);
    ASSERT_EQ(menus_.size(), 1u);
    const MenuModel& menu = menus_[0].model;
    ASSERT_GE(menu.Count(), 3);
    EXPECT_EQ(menu.At(1).id, static_cast<uint32_t>(IDM_SEND_SMS));
    EXPECT_FALSE(menu.At(1).enabled);
    EXPECT_EQ(menu.At(2).id, static_cast<uint32_t>(IDM_CALL_FIRST));
    EXPECT_FALSE(menu.At(2).enabled);
}

TEST_F(BoardPickerTest, AContactGoneBeforeTheChoiceBindsNothing) {
    Open();
    const std::vector<std::u16string> before = StoredBoard();
    WillChoose(77, u"+4611111", u"Mobile", 1);  // no such contact any more
    Tap(kFreeSlot);
    EXPECT_EQ(EntryOf(kFreeSlot), nullptr);
    EXPECT_EQ(StoredBoard(), before);
}

TEST_F(BoardPickerTest, HoldingAFreeButtonOpensNoMenuAndReleaseOpensThePicker) {
    Open();
    Down(Centre(kFreeSlot));
    timers_.Advance(1000);
    EXPECT_TRUE(menus_.empty());
    EXPECT_EQ(Script().runs, 0);
    Up(Centre(kFreeSlot));
    EXPECT_EQ(Script().runs, 1);
}

TEST_F(BoardPickerTest, EnterOnAFreeButtonOpensThePicker) {
    BoardWindow& board = Open();
    board.Select(kFreeSlot);
    Key(VK_RETURN);
    EXPECT_EQ(Script().runs, 1);
}

}  // namespace
