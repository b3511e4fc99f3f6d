// The keypad's cells, hit test, grid gap and key faces.
#include "controls/KeypadGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(KeypadGeometryTest, CellsGoRowByRowFromTheTopLeft) {
    const Rect client{0, 0, 300, 150};
    EXPECT_EQ(KeyCell(client, 0), (Rect{0, 0, 100, 50}));
    EXPECT_EQ(KeyCell(client, 1), (Rect{100, 0, 200, 50}));
    EXPECT_EQ(KeyCell(client, 2), (Rect{200, 0, 300, 50}));
    EXPECT_EQ(KeyCell(client, 3), (Rect{0, 50, 100, 100}));
    EXPECT_EQ(KeyCell(client, 5), (Rect{200, 50, 300, 100}));
    EXPECT_EQ(KeyCell(client, 8), (Rect{200, 100, 300, 150}));
}

TEST(KeypadGeometryTest, CellsUseIntegerDivisionFromTheClientOrigin) {
    const Rect client{10, 20, 10 + 242, 20 + 152};  // 242 / 3 = 80, 152 / 3 = 50
    EXPECT_EQ(KeyCell(client, 0), (Rect{10, 20, 90, 70}));
    EXPECT_EQ(KeyCell(client, 4), (Rect{90, 70, 170, 120}));
    EXPECT_EQ(KeyCell(client, 8), (Rect{170, 120, 250, 170}));
}

TEST(KeypadGeometryTest, IndicesOutsideTheNineKeysHaveNoCell) {
    const Rect client{0, 0, 300, 150};
    EXPECT_EQ(KeyCell(client, 9), Rect{});
    EXPECT_EQ(KeyCell(client, 12), Rect{});
    EXPECT_EQ(KeyCell(client, -1), Rect{});
}

TEST(KeypadGeometryTest, HitTestFindsTheKeyUnderThePoint) {
    const Rect client{0, 0, 300, 150};
    EXPECT_EQ(HitKey(client, Point{0, 0}), 0);
    EXPECT_EQ(HitKey(client, Point{99, 49}), 0);
    EXPECT_EQ(HitKey(client, Point{100, 49}), 1);
    EXPECT_EQ(HitKey(client, Point{150, 75}), 4);
    EXPECT_EQ(HitKey(client, Point{299, 149}), 8);
}

TEST(KeypadGeometryTest, HitTestOutsideEveryCellIsMinusOne) {
    const Rect client{0, 0, 302, 152};  // two unused pixels at the right and bottom
    EXPECT_EQ(HitKey(client, Point{300, 10}), -1);
    EXPECT_EQ(HitKey(client, Point{10, 150}), -1);
    EXPECT_EQ(HitKey(client, Point{-1, 10}), -1);
    EXPECT_EQ(HitKey(client, Point{10, -1}), -1);
}

TEST(KeypadGeometryTest, EmptyClientHasNoKeys) {
    EXPECT_EQ(HitKey(Rect{}, Point{0, 0}), -1);
    EXPECT_EQ(HitKey(Rect{0, 0, 2, 2}, Point{1, 1}), -1);
}

TEST(KeypadGeometryTest, GapIsOneDesignPixelScaled) {
    EXPECT_EQ(KeyGap(96), 1);
    EXPECT_EQ(KeyGap(192), 2);
    EXPECT_EQ(KeyGap(131), 1);  // (131 + 48) / 96
    EXPECT_EQ(KeyGap(144), 2);  // (144 + 48) / 96
    EXPECT_EQ(KeyGap(0), 0);
}

TEST(KeypadGeometryTest, FaceLeavesTheGapOnTheRightAndBottom) {
    const Rect cell{100, 50, 200, 100};
    EXPECT_EQ(KeyFace(cell, 2, 1), (Rect{100, 50, 198, 99}));
    EXPECT_EQ(KeyFace(cell, 0, 0), cell);
}

TEST(KeypadGeometryTest, FaceOfATinyCellNeverTurnsInsideOut) {
    const Rect cell{10, 10, 11, 11};
    EXPECT_EQ(KeyFace(cell, 2, 2), (Rect{10, 10, 10, 10}));
    EXPECT_EQ(KeyFace(cell, -3, -3), cell);
}

}  // namespace
