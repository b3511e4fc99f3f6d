#include "win/Gdi.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "ScreenShot.h"

namespace {

// A drawing surface whose pixels the tests read back one at a time.
class Surface {
  public:
    Surface(int width, int height) : canvas_(width, height) {}
    HDC dc() const { return canvas_.Dc(); }
    COLORREF At(int x, int y) const { return canvas_.Snapshot().At(x, y); }

  private:
    shot::Canvas canvas_;
};

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

TEST(GdiTest, FillSolidFillsTheRectangleOnly) {
    Surface target(20, 20);
    RECT all{0, 0, 20, 20};
    gdi::FillSolid(target.dc(), all, kBlue);
    RECT part{5, 5, 10, 10};
    gdi::FillSolid(target.dc(), part, 0x50463B);
    EXPECT_EQ(target.At(5, 5), 0x50463Bu);
    EXPECT_EQ(target.At(9, 9), 0x50463Bu);
    EXPECT_EQ(target.At(10, 10), kBlue);
    EXPECT_EQ(target.At(4, 5), kBlue);
}

TEST(GdiTest, OffscreenDrawingReachesTheTargetOnlyOnPresent) {
    Surface target(30, 30);
    RECT all{0, 0, 30, 30};
    gdi::FillSolid(target.dc(), all, kBlue);
    RECT area{10, 5, 25, 20};
    gdi::OffscreenBuffer buffer(target.dc(), area);
    ASSERT_NE(buffer.Dc(), target.dc());
    gdi::FillSolid(buffer.Dc(), area, kRed);  // in the target's coordinates
    EXPECT_EQ(target.At(10, 5), kBlue);
    buffer.Present();
    EXPECT_EQ(target.At(10, 5), kRed);
    EXPECT_EQ(target.At(24, 19), kRed);
    EXPECT_EQ(target.At(25, 19), kBlue);
    EXPECT_EQ(target.At(9, 5), kBlue);
    EXPECT_EQ(target.At(10, 4), kBlue);
}

TEST(GdiTest, EmptyRectangleDrawsStraightIntoTheTarget) {
    Surface target(10, 10);
    RECT empty{5, 5, 5, 5};
    gdi::OffscreenBuffer buffer(target.dc(), empty);
    EXPECT_EQ(buffer.Dc(), target.dc());
    buffer.Present();
}

TEST(GdiTest, ObjectDeletesWhatItHolds) {
    HBRUSH brush = CreateSolidBrush(kRed);
    {
        gdi::Object<HBRUSH> held(brush);
        EXPECT_TRUE(held);
        EXPECT_NE(GetObjectType(brush), 0u);
    }
    EXPECT_EQ(GetObjectType(brush), 0u);
}

TEST(GdiTest, SelectionRestoresThePreviousObject) {
    Surface target(4, 4);
    HGDIOBJ before = GetCurrentObject(target.dc(), OBJ_BRUSH);
    gdi::Object<HBRUSH> brush(CreateSolidBrush(kRed));
    {
        gdi::Selection selected(target.dc(), brush.get());
        EXPECT_EQ(GetCurrentObject(target.dc(), OBJ_BRUSH), brush.get());
    }
    EXPECT_EQ(GetCurrentObject(target.dc(), OBJ_BRUSH), before);
}

}  // namespace
