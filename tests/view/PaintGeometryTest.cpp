#include "view/PaintGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(PaintGeometryTest, InsetAndShadowScale) {
    EXPECT_EQ(TextInset(96), 2);
    EXPECT_EQ(TextInset(192), 4);
    EXPECT_EQ(ShadowStep(96), 1);
    EXPECT_EQ(ShadowStep(192), 2);
}

TEST(PaintGeometryTest, PhotoIsCentred) {
    EXPECT_EQ(PhotoSourceOffset(120, 60, 60, 60), (Point{30, 0}));
    EXPECT_EQ(PhotoSourceOffset(60, 120, 60, 60), (Point{0, 30}));
    EXPECT_EQ(PhotoSourceOffset(61, 60, 60, 60), (Point{0, 0}));
    EXPECT_EQ(PhotoSourceOffset(40, 40, 60, 60), (Point{-10, -10}));
}

TEST(PaintGeometryTest, NameBoxShrinksByTheInsetAndTheLabel) {
    Rect cell{10, 20, 86, 100};
    EXPECT_EQ(NameBox(cell, 96, 96, 0), (Rect{12, 22, 84, 98}));
    EXPECT_EQ(NameBox(cell, 96, 96, 11), (Rect{12, 22, 84, 87}));
    EXPECT_EQ(NameBox(cell, 192, 192, 0), (Rect{14, 24, 82, 96}));
}

TEST(PaintGeometryTest, LabelSitsAboveTheBottomCentred) {
    Rect cell{10, 20, 86, 100};
    EXPECT_EQ(LabelOrigin(cell, 30, 11, 96), (Point{33, 88}));
    EXPECT_EQ(LabelOrigin(cell, 31, 11, 192), (Point{32, 87}));
}

TEST(PaintGeometryTest, FrameCentredMayStickOut) {
    Rect cell{10, 20, 86, 100};
    EXPECT_EQ(FrameOrigin(cell, 80, 84), (Point{8, 18}));
    EXPECT_EQ(FrameOrigin(cell, 76, 80), (Point{10, 20}));
}

TEST(PaintGeometryTest, NumberFrameInTheBottomRightCorner) {
    Rect cell{10, 20, 86, 100};
    EXPECT_EQ(NumberFrameBox(cell, 20, 14), (Rect{66, 86, 86, 100}));
}

TEST(PaintGeometryTest, OddFreeWidthWidensTheNumberBox) {
    Rect frame{66, 86, 86, 100};
    EXPECT_EQ(NumberTextBox(frame, 14, 96), frame);  // free width 6, even
    EXPECT_EQ(NumberTextBox(frame, 13, 96), (Rect{66, 86, 87, 100}));
    EXPECT_EQ(NumberTextBox(frame, 13, 192), (Rect{66, 86, 88, 100}));
    EXPECT_EQ(NumberTextBox(frame, 21, 96), (Rect{66, 86, 87, 100}));  // negative odd too
}

TEST(PaintGeometryTest, SelectionRepaintGrowsByTheInset) {
    Rect cell{10, 20, 86, 100};
    EXPECT_EQ(SelectionRepaintBox(cell, 96, 96), (Rect{8, 18, 88, 102}));
    EXPECT_EQ(SelectionRepaintBox(cell, 192, 96), (Rect{6, 18, 90, 102}));
}

TEST(PaintGeometryTest, CentredText) {
    EXPECT_EQ(CentredText(Rect{0, 0, 20, 14}, 13, 11), (Point{3, 1}));
}

}  // namespace
