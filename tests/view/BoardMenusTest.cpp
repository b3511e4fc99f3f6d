#include "view/BoardMenus.h"

#include <gtest/gtest.h>

#include <map>

#include "base/ResourceIds.h"

namespace {

// The English string table the resource libraries carry.
Str Text(uint32_t id) {
    static const std::map<uint32_t, const char16_t*> texts = {
        {IDS_SHOW_DIALER_BUTTON, u"Show Dialer Button"},
        {IDS_CLEAR_NUMBER, u"Clear"},
        {IDS_CALL, u"Call"},
        {IDS_SEND_SMS, u"Send SMS"},
        {IDS_RENAME, u"Rename"},
        {IDS_DIALER_BUTTON, u"Dialer Button"},
        {IDS_CLEAR, u"Clear"},
        {IDS_PHONE, u"Phone:"},
        {IDS_UP, u"Up"},
        {IDS_DOWN, u"Down"},
        {IDS_LEFT, u"Left"},
        {IDS_RIGHT, u"Right"},
        {IDS_MOVE, u"Move"},
        {IDS_SORT_BY_NAME, u"Sort By Name"},
        {IDS_CLEAR_ALL, u"Clear All"},
        {IDS_ADD_PAGE, u"Add Page"},
        {IDS_DELETE_PAGE, u"Delete Page"},
        {IDS_BIG_BUTTONS, u"Big Buttons"},
        {IDS_SHOW_PHONE_TYPE, u"Show Phone Type"},
        {IDS_VIEW, u"View"},
        {IDS_EXIT, u"Exit"},
    };
    auto found = texts.find(id);
    return found != texts.end() ? Str(found->second) : Str(u"?");
}

ButtonMenuState Anna() {
    ButtonMenuState s;
    s.bound = true;
    s.name = u"Anna Lindqvist";
    s.phone = u"+46701234567";
    s.dialerNumber = 5;
    s.phones = {{u"+46701234567", u"Mobile"}, {u"+4681234567", u"Work"}};
    return s;
}

/// The texts of a menu's items, separators as "-", sub-menus as their title.
std::vector<std::u16string> Texts(const MenuModel& menu) {
    std::vector<std::u16string> out;
    for (int i = 0; i < menu.Count(); ++i) {
        const MenuItem& item = menu.At(i);
        out.push_back(item.kind == MenuItemKind::kSeparator ? u"-" : item.text.c_str());
    }
    return out;
}

TEST(BoardMenusTest, MainMenuWithoutAnEntryStartsWithThePages) {
    const MenuModel menu = BuildMainMenu(ButtonMenuState{}, ViewState{}, Text);
    EXPECT_EQ(Texts(menu),
              (std::vector<std::u16string>{u"Add Page", u"Delete Page", u"Clear All", u"-", u"View",
                                           u"-", u"Sort By Name", u"-", u"Exit"}));
    EXPECT_EQ(menu.At(0).id, static_cast<uint32_t>(IDM_ADD_PAGE));
    EXPECT_EQ(menu.At(2).id, static_cast<uint32_t>(IDM_CLEAR_ALL));
    EXPECT_EQ(menu.At(6).id, static_cast<uint32_t>(IDM_SORT_BY_NAME));
    EXPECT_EQ(menu.At(8).id, static_cast<uint32_t>(IDM_EXIT));
    EXPECT_TRUE(menu.IdsUnique());
}

TEST(BoardMenusTest, MainMenuWithAnEntryLeadsWithTheButtonsItems) {
    const MenuModel menu = BuildMainMenu(Anna(), ViewState{}, Text);
    const std::vector<std::u16string> texts = Texts(menu);
    ASSERT_GE(texts.size(), 6u);
    EXPECT_EQ(std::vector<std::u16string>(texts.begin(), texts.begin() + 7),
              (std::vector<std::u16string>{u"Send SMS", u"Rename", u"Dialer Button", u"Move",
                                           u"Clear", u"-", u"Add Page"}));
    EXPECT_EQ(menu.At(0).id, static_cast<uint32_t>(IDM_SEND_SMS));
    EXPECT_EQ(menu.At(1).id, static_cast<uint32_t>(IDM_RENAME));
    EXPECT_EQ(menu.At(4).id, static_cast<uint32_t>(IDM_CLEAR_BUTTON));
    const MenuModel& move = menu.At(3).sub;
    EXPECT_EQ(Texts(move), (std::vector<std::u16string>{u"Up", u"Down", u"Left", u"Right"}));
    EXPECT_EQ(move.Ids(),
              (std::vector<uint32_t>{IDM_MOVE_UP, IDM_MOVE_DOWN, IDM_MOVE_LEFT, IDM_MOVE_RIGHT}));
    EXPECT_TRUE(menu.IdsUnique());
}

TEST(BoardMenusTest, MainMenuOffersNoMessageForAnEntryWithoutANumber) {
    ButtonMenuState s = Anna();
    s.phone = u"";
    const MenuModel menu = BuildMainMenu(s, ViewState{}, Text);
    EXPECT_EQ(menu.At(0).id, static_cast<uint32_t>(IDM_RENAME));
    EXPECT_EQ(menu.Find(IDM_SEND_SMS), nullptr);
}

TEST(BoardMenusTest, ViewSubMenuChecksTheOptionsThatAreOn) {
    const MenuModel menu = BuildMainMenu(ButtonMenuState{}, ViewState{true, false, true}, Text);
    const MenuModel& view = menu.At(4).sub;
    EXPECT_EQ(Texts(view), (std::vector<std::u16string>{u"Big Buttons", u"Show Dialer Button",
                                                        u"Show Phone Type"}));
    EXPECT_TRUE(view.At(0).checked);
    EXPECT_FALSE(view.At(1).checked);
    EXPECT_TRUE(view.At(2).checked);
    EXPECT_EQ(view.Ids(),
              (std::vector<uint32_t>{IDM_BIG_BUTTONS, IDM_SHOW_DIALER, IDM_SHOW_PHONE_TYPE}));
}

TEST(BoardMenusTest, DialerSubMenuListsOneTo99WithTheNumberChecked) {
    const MenuModel menu = BuildMainMenu(Anna(), ViewState{}, Text);
    const MenuModel& dialer = menu.At(2).sub;
    // "Clear" and a separator, then the 99 numbers.
    ASSERT_EQ(dialer.Count(), 101);
    EXPECT_EQ(dialer.At(0).id, static_cast<uint32_t>(IDM_DIALER_CLEAR));
    EXPECT_EQ(dialer.At(1).kind, MenuItemKind::kSeparator);
    for (int n = 1; n <= 99; ++n) {
        const MenuItem& item = dialer.At(n + 1);
        Str expected;
        expected.Format(u"%d", n);
        EXPECT_EQ(item.text, expected);
        EXPECT_EQ(item.checked, n == 5) << n;
        int32_t number = 0;
        ASSERT_TRUE(DialerChoice(item.id, number));
        EXPECT_EQ(number, n);
    }
    int32_t cleared = 0;
    ASSERT_TRUE(DialerChoice(IDM_DIALER_CLEAR, cleared));
    EXPECT_EQ(cleared, -1);
}

TEST(BoardMenusTest, DialerSubMenuWithoutANumberHasNoClear) {
    ButtonMenuState s = Anna();
    s.dialerNumber = -1;
    const MenuModel menu = BuildMainMenu(s, ViewState{}, Text);
    const MenuModel& dialer = menu.At(2).sub;
    ASSERT_EQ(dialer.Count(), 99);
    EXPECT_EQ(dialer.At(0).text, Str(u"1"));
    for (int i = 0; i < dialer.Count(); ++i)
        EXPECT_FALSE(dialer.At(i).checked);
}

TEST(BoardMenusTest, ContextMenuItemsAndFormats) {
    const MenuModel menu = BuildContextMenu(Anna(), Text);
    EXPECT_EQ(Texts(menu),
              (std::vector<std::u16string>{u"Anna Lindqvist", u"Send SMS", u"Call +46701234567",
                                           u"-", u"Rename", u"Dialer Button (5)", u"Clear", u"-",
                                           u"Phone: +46701234567"}));
    EXPECT_FALSE(menu.At(0).enabled);
    EXPECT_EQ(menu.At(2).id, static_cast<uint32_t>(IDM_CALL_FIRST));
    EXPECT_EQ(menu.At(4).id, static_cast<uint32_t>(IDM_RENAME));
    EXPECT_EQ(menu.At(6).id, static_cast<uint32_t>(IDM_CLEAR_BUTTON));
    // Same items as the main menu's dialer sub-menu.
    EXPECT_EQ(menu.At(5).sub.Ids(), BuildMainMenu(Anna(), ViewState{}, Text).At(2).sub.Ids());
    const MenuModel& phones = menu.At(8).sub;
    EXPECT_EQ(Texts(phones),
              (std::vector<std::u16string>{u"+46701234567 (Mobile)", u"+4681234567 (Work)"}));
    EXPECT_TRUE(phones.At(0).checked);
    EXPECT_FALSE(phones.At(1).checked);
    EXPECT_EQ(phones.Ids(), (std::vector<uint32_t>{IDM_PHONE_FIRST, IDM_PHONE_FIRST + 1}));
    int index = -1;
    ASSERT_TRUE(PhoneChoiceIndex(phones.At(1).id, index));
    EXPECT_EQ(index, 1);
    EXPECT_TRUE(menu.IdsUnique());
}

TEST(BoardMenusTest, ContextMenuWithoutNumbersToChooseHasNoPhoneSubMenu) {
    ButtonMenuState s = Anna();
    s.phones.clear();
    s.dialerNumber = -1;
    const MenuModel menu = BuildContextMenu(s, Text);
    EXPECT_EQ(Texts(menu),
              (std::vector<std::u16string>{u"Anna Lindqvist", u"Send SMS", u"Call +46701234567",
                                           u"-", u"Rename", u"Dialer Button", u"Clear"}));
}

TEST(BoardMenusTest, ContextMenuOfAContactWithoutANumberGreysMessageAndCall) {
    ButtonMenuState s = Anna();
    s.phone = u"";
    s.phones.clear();
    const MenuModel menu = BuildContextMenu(s, Text);
    EXPECT_EQ(Texts(menu),
              (std::vector<std::u16string>{u"Anna Lindqvist", u"Send SMS", u"Call", u"-", u"Rename",
                                           u"Dialer Button (5)", u"Clear"}));
    EXPECT_EQ(menu.At(1).id, static_cast<uint32_t>(IDM_SEND_SMS));
    EXPECT_FALSE(menu.At(1).enabled);
    EXPECT_EQ(menu.At(2).id, static_cast<uint32_t>(IDM_CALL_FIRST));
    EXPECT_FALSE(menu.At(2).enabled);
    EXPECT_TRUE(menu.At(4).enabled);
    EXPECT_TRUE(menu.At(6).enabled);
}

TEST(BoardMenusTest, ContextMenuOfANumberKeepsMessageAndCallEnabled) {
    const MenuModel menu = BuildContextMenu(Anna(), Text);
    EXPECT_TRUE(menu.At(1).enabled);
    EXPECT_TRUE(menu.At(2).enabled);
}

TEST(BoardMenusTest, PhoneSubMenuStopsAt99NumbersAndIdsStayApart) {
    ButtonMenuState s = Anna();
    s.phones.assign(150, PhoneChoice{u"1", u"x"});
    const MenuModel menu = BuildContextMenu(s, Text);
    const MenuModel& phones = menu.At(menu.Count() - 1).sub;
    EXPECT_EQ(phones.Count(), 99);
    EXPECT_EQ(phones.At(98).id, static_cast<uint32_t>(IDM_PHONE_LAST));
    EXPECT_TRUE(menu.IdsUnique());
    int index = 0;
    EXPECT_FALSE(PhoneChoiceIndex(IDM_CALL_FIRST, index));
    int32_t number = 0;
    EXPECT_FALSE(DialerChoice(IDM_BUTTON_NAME, number));
}

TEST(BoardMenusTest, MainMenuAlignsToThePanelsSide) {
    EXPECT_EQ(MainMenuAlign(true), MenuAlign::kRightTop);
    EXPECT_EQ(MainMenuAlign(false), MenuAlign::kLeftBottom);
}

}  // namespace
