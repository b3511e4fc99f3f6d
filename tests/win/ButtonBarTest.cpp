// The button bar under Wine with three buttons of plain colours, no skin: the drawing follows the
// pressed and enabled state, the press follows the stylus, a button acting on press sends at once.
#include "win/ButtonBar.h"

#include <gtest/gtest.h>

#include <vector>

#include "ScreenShot.h"
#include "base/ScreenInfo.h"
#include "testing/WindowTestKit.h"
#include "win/Gdi.h"

namespace {

constexpr COLORREF kNormal = RGB(200, 0, 0);
constexpr COLORREF kPressed = RGB(0, 0, 200);
constexpr COLORREF kDisabled = RGB(90, 90, 90);
constexpr COLORREF kBackground = RGB(0, 120, 0);

/// Three 20 x 10 pictures side by side: normal, pressed, disabled.
HBITMAP MakeCells() {
    HDC screen = GetDC(nullptr);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, 60, 10);
    ReleaseDC(nullptr, screen);
    gdi::MemoryDc dc;
    gdi::Selection selection(dc.Get(), bitmap);
    gdi::FillSolid(dc.Get(), RECT{0, 0, 20, 10}, kNormal);
    gdi::FillSolid(dc.Get(), RECT{20, 0, 40, 10}, kPressed);
    gdi::FillSolid(dc.Get(), RECT{40, 0, 60, 10}, kDisabled);
    return bitmap;
}

/// Three buttons in a row, 20 x 10 each, 10 apart; the third acts on press.
class ThreeButtons : public ButtonBar {
  public:
    ThreeButtons() : cells_(MakeCells()) {}
    bool Create(HWND parent) {
        if (!CreateBar(parent))
            return false;
        SetBackground(kBackground);
        for (int i = 0; i < 3; ++i) {
            BarButton b;
            b.command = 11 + static_cast<uint32_t>(i);
            b.image = cells_.get();
            b.art = ButtonCell{20, 10, Point{0, 0}, Point{20, 0}, Point{40, 0}};
            b.actsOnPress = i == 2;
            buttons_.push_back(b);
        }
        SetWindowPos(hwnd_, nullptr, 0, 0, 90, 10, SWP_NOZORDER);
        return true;
    }
    Rect ButtonRect(int index) const override {
        if (index < 0 || index >= Count())
            return Rect{};
        return Rect{index * 30, 0, index * 30 + 20, 10};
    }

  private:
    gdi::Object<HBITMAP> cells_;
};

class ButtonBarTest : public ::testing::Test {
  protected:
    void SetUp() override {
        SetScreen(ComputeScreenInfo(96, 96, 240, 320));
        ASSERT_TRUE(bar_.Create(parent_.Hwnd()));
    }
    shot::Image Print() { return PrintClient(bar_.Hwnd()); }
    void Send(UINT message, int x, int y) {
        SendMessageW(bar_.Hwnd(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0,
                     MAKELPARAM(x, y));
    }

    CommandParent parent_{300, 100};
    ThreeButtons bar_;
};

TEST_F(ButtonBarTest, DrawsEachButtonFromItsPictureOnTheBackground) {
    bar_.SetButtonEnabled(1, false);
    const shot::Image image = Print();
    EXPECT_EQ(image.At(5, 5), kNormal);
    EXPECT_EQ(image.At(25, 5), kBackground);  // between buttons
    EXPECT_EQ(image.At(35, 5), kDisabled);
    EXPECT_EQ(image.At(65, 5), kNormal);
}

TEST_F(ButtonBarTest, PressFollowsTheStylusAndReleaseSends) {
    Send(WM_LBUTTONDOWN, 35, 5);
    EXPECT_EQ(bar_.PressedButton(), 1);
    EXPECT_EQ(Print().At(35, 5), kPressed);
    Send(WM_MOUSEMOVE, 5, 5);
    EXPECT_EQ(Print().At(35, 5), kNormal);
    EXPECT_EQ(Print().At(5, 5), kNormal);  // sliding onto another button does not press it
    Send(WM_MOUSEMOVE, 36, 6);
    EXPECT_EQ(Print().At(35, 5), kPressed);
    Send(WM_LBUTTONUP, 36, 6);
    ASSERT_EQ(parent_.Commands().size(), 1u);
    EXPECT_EQ(parent_.Commands()[0], 12u);
    EXPECT_EQ(bar_.PressedButton(), -1);
    EXPECT_EQ(Print().At(35, 5), kNormal);
}

TEST_F(ButtonBarTest, DisabledButtonIgnoresPresses) {
    bar_.SetButtonEnabled(0, false);
    Send(WM_LBUTTONDOWN, 5, 5);
    Send(WM_LBUTTONUP, 5, 5);
    EXPECT_TRUE(parent_.Commands().empty());
    EXPECT_EQ(Print().At(5, 5), kDisabled);
}

TEST_F(ButtonBarTest, ActOnPressSendsAtOnceAndEndsPressed) {
    Send(WM_LBUTTONDOWN, 65, 5);
    ASSERT_EQ(parent_.Commands().size(), 1u);
    EXPECT_EQ(parent_.Commands()[0], 13u);
    EXPECT_NE(GetCapture(), bar_.Hwnd());
    EXPECT_FALSE(bar_.Button(2).pressed);
    EXPECT_EQ(Print().At(65, 5), kNormal);
}

TEST_F(ButtonBarTest, CaptureLossAndCancelModeDropThePress) {
    Send(WM_LBUTTONDOWN, 5, 5);
    ASSERT_EQ(Print().At(5, 5), kPressed);
    SetCapture(parent_.Hwnd());
    EXPECT_EQ(bar_.PressedButton(), -1);
    EXPECT_EQ(Print().At(5, 5), kNormal);
    ReleaseCapture();

    Send(WM_LBUTTONDOWN, 35, 5);
    ASSERT_EQ(Print().At(35, 5), kPressed);
    SendMessageW(bar_.Hwnd(), WM_CANCELMODE, 0, 0);
    EXPECT_EQ(bar_.PressedButton(), -1);
    EXPECT_NE(GetCapture(), bar_.Hwnd());
    EXPECT_EQ(Print().At(35, 5), kNormal);
    Send(WM_LBUTTONUP, 35, 5);
    EXPECT_TRUE(parent_.Commands().empty());
}

}  // namespace
