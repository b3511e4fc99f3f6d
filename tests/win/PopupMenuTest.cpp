// The one crossing from a menu model to a Win32 pop-up menu, and the chooser that answers for
// the person in tests.
#include "win/PopupMenu.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::wstring TextOf(HMENU menu, int position) {
    wchar_t text[128] = {};
    GetMenuStringW(menu, static_cast<UINT>(position), text, 128, MF_BYPOSITION);
    return text;
}

UINT StateOf(HMENU menu, int position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_FTYPE | MIIM_ID | MIIM_SUBMENU;
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    return info.fState;
}

TEST(PopupMenuTest, BuildsItemsChecksSeparatorsInertItemsAndSubMenus) {
    MenuModel model;
    model.AddInert(500, u"Anna");
    model.Add(300, u"Call +4670", true);
    model.AddSeparator();
    MenuModel& sub = model.AddSub(u"Dialer Button (5)");
    sub.Add(401, u"1");
    sub.Add(405, u"5", true);
    HMENU menu = BuildPopupMenu(model);
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(GetMenuItemCount(menu), 4);
    EXPECT_EQ(TextOf(menu, 0), L"Anna");
    EXPECT_EQ(GetMenuItemID(menu, 0), 500u);
    EXPECT_NE(StateOf(menu, 0) & MFS_DISABLED, 0u);
    EXPECT_EQ(TextOf(menu, 1), L"Call +4670");
    EXPECT_EQ(GetMenuItemID(menu, 1), 300u);
    EXPECT_NE(StateOf(menu, 1) & MFS_CHECKED, 0u);
    EXPECT_EQ(StateOf(menu, 1) & MFS_DISABLED, 0u);
    EXPECT_NE(GetMenuState(menu, 2, MF_BYPOSITION) & MF_SEPARATOR, 0u);
    HMENU dialer = GetSubMenu(menu, 3);
    ASSERT_NE(dialer, nullptr);
    EXPECT_EQ(TextOf(menu, 3), L"Dialer Button (5)");
    ASSERT_EQ(GetMenuItemCount(dialer), 2);
    EXPECT_EQ(GetMenuItemID(dialer, 1), 405u);
    EXPECT_NE(StateOf(dialer, 1) & MFS_CHECKED, 0u);
    EXPECT_EQ(StateOf(dialer, 0) & MFS_CHECKED, 0u);
    DestroyMenu(menu);
}

TEST(PopupMenuTest, AnInstalledChooserAnswersInsteadOfTheMenu) {
    MenuModel model;
    model.Add(7, u"Seven");
    Point seenAt{};
    MenuAlign seenAlign = MenuAlign::kTopLeft;
    int asked = 0;
    InstallMenuChooser([&](const MenuModel& shown, Point at, MenuAlign align) {
        ++asked;
        seenAt = at;
        seenAlign = align;
        return shown.At(0).id;
    });
    EXPECT_EQ(TrackPopup(nullptr, model, Point{12, 34}, MenuAlign::kLeftBottom), 7u);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(seenAt, (Point{12, 34}));
    EXPECT_EQ(seenAlign, MenuAlign::kLeftBottom);
    InstallMenuChooser(nullptr);
}

}  // namespace
