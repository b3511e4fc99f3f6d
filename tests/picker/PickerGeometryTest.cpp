#include "picker/PickerGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(PickerGeometryTest, TheKeypadTakesTheBottomTwoFifths) {
    const Rect content{0, 0, 240, 268};
    const PickerLayout layout = LayOutPicker(content, 96, 16, 13);
    EXPECT_EQ(layout.keypad, (Rect{0, 161, 240, 268}));  // 268 * 2 / 5 = 107
    EXPECT_EQ(layout.list, (Rect{0, 0, 240, 161}));
    EXPECT_EQ(layout.list.bottom, layout.keypad.top);
}

TEST(PickerGeometryTest, RowsAreThirtyFourDesignPixelsUnlessTheTextsNeedMore) {
    EXPECT_EQ(LayOutPicker(Rect{0, 0, 240, 268}, 96, 16, 13).itemHeight, 34);
    EXPECT_EQ(LayOutPicker(Rect{0, 0, 480, 536}, 192, 32, 26).itemHeight, 68);
    EXPECT_EQ(LayOutPicker(Rect{0, 0, 240, 268}, 96, 20, 16).itemHeight, 40);  // 20 + 16 + 2 * 2
}

TEST(PickerGeometryTest, AnEmptyOrUpsideDownAreaGivesEmptyParts) {
    const PickerLayout empty = LayOutPicker(Rect{0, 10, 240, 10}, 96, 16, 13);
    EXPECT_EQ(empty.list.Height(), 0);
    EXPECT_EQ(empty.keypad.Height(), 0);
    const PickerLayout upside = LayOutPicker(Rect{0, 50, 240, 10}, 96, -5, -5);
    EXPECT_GE(upside.list.Height(), 0);
    EXPECT_GE(upside.keypad.Height(), 0);
    EXPECT_EQ(upside.itemHeight, 34);
}

TEST(PickerGeometryTest, TextsKeepAMarginFromTheRowsEdges) {
    EXPECT_EQ(RowMargin(96), 4);
    EXPECT_EQ(RowMargin(192), 8);
}

}  // namespace
