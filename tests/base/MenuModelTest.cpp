#include "base/MenuModel.h"

#include <gtest/gtest.h>

namespace {

TEST(MenuModelTest, KeepsItemsInOrderWithTheirKinds) {
    MenuModel menu;
    menu.AddInert(7, u"Title");
    menu.Add(1, u"One", true);
    menu.AddSeparator();
    MenuModel& sub = menu.AddSub(u"More");
    sub.Add(2, u"Two");
    ASSERT_EQ(menu.Count(), 4);
    EXPECT_FALSE(menu.At(0).enabled);
    EXPECT_EQ(menu.At(0).text, Str(u"Title"));
    EXPECT_TRUE(menu.At(1).checked);
    EXPECT_TRUE(menu.At(1).enabled);
    EXPECT_EQ(menu.At(2).kind, MenuItemKind::kSeparator);
    EXPECT_EQ(menu.At(3).kind, MenuItemKind::kSubMenu);
    EXPECT_EQ(menu.At(3).sub.Count(), 1);
}

TEST(MenuModelTest, FindLooksIntoSubMenus) {
    MenuModel menu;
    menu.Add(1, u"One");
    menu.AddSub(u"More").AddSub(u"Deeper").Add(9, u"Nine");
    const MenuItem* nine = menu.Find(9);
    ASSERT_NE(nine, nullptr);
    EXPECT_EQ(nine->text, Str(u"Nine"));
    EXPECT_EQ(menu.Find(2), nullptr);
    // Separators and sub-menus carry id 0 and are never found as commands.
    menu.AddSeparator();
    EXPECT_EQ(menu.Find(0), nullptr);
}

TEST(MenuModelTest, IdsCoverSubMenusAndUniquenessSeesAcrossThem) {
    MenuModel menu;
    menu.Add(1, u"One");
    menu.AddSeparator();
    menu.AddSub(u"More").Add(2, u"Two");
    EXPECT_EQ(menu.Ids(), (std::vector<uint32_t>{1, 2}));
    EXPECT_TRUE(menu.IdsUnique());
    menu.AddSub(u"Again").Add(1, u"One again");
    EXPECT_FALSE(menu.IdsUnique());
}

}  // namespace
