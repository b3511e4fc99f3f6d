// Where a key's label rows stand: one row centred, or a block of two centred together.
#include "controls/KeyLabelLayout.h"

#include <gtest/gtest.h>

namespace {

TEST(KeyLabelLayoutTest, SingleRowIsCentredVertically) {
    const LabelRows rows = PlaceLabelRows(Rect{0, 100, 160, 200}, 20, 14, false);
    EXPECT_FALSE(rows.twoRows);
    EXPECT_EQ(rows.firstTop, 140);  // 100 + (100 - 20) / 2
}

TEST(KeyLabelLayoutTest, TwoRowBlockIsCentredTogether) {
    const LabelRows rows = PlaceLabelRows(Rect{0, 100, 160, 200}, 20, 14, true);
    EXPECT_TRUE(rows.twoRows);
    EXPECT_EQ(rows.firstTop, 133);   // 100 + (100 - 34) / 2
    EXPECT_EQ(rows.secondTop, 153);  // right below the first row
}

TEST(KeyLabelLayoutTest, SecondFontHeightIsIgnoredForOneRow) {
    const Rect cell{0, 0, 90, 60};
    EXPECT_EQ(PlaceLabelRows(cell, 16, 0, false).firstTop,
              PlaceLabelRows(cell, 16, 40, false).firstTop);
}

TEST(KeyLabelLayoutTest, TallTextStartsAboveTheCell) {
    const LabelRows rows = PlaceLabelRows(Rect{0, 10, 50, 30}, 20, 20, true);
    EXPECT_EQ(rows.firstTop, 0);  // 10 + (20 - 40) / 2
    EXPECT_EQ(rows.secondTop, 20);
}

TEST(KeyLabelLayoutTest, RowsAreCentredHorizontallyOnTheirWidth) {
    const Rect cell{100, 0, 260, 50};
    EXPECT_EQ(CentredLeft(cell, 40), 160);
    EXPECT_EQ(CentredLeft(cell, 160), 100);
    EXPECT_EQ(CentredTop(cell, 10), 20);
}

}  // namespace
