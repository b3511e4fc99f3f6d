// The soft-key panel under Wine: images by orientation, button rectangles, presses with the
// capture, the Menu button's act-on-press, disabled buttons, a press dropped when the capture
// goes elsewhere, and WM_PRINTCLIENT.
#include "skin/ButtonPanel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "ScreenShot.h"
#include "base/Alert.h"
#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"
#include "skin/Skin.h"
#include "testing/WindowTestKit.h"

namespace {

// The panel under test, and whether Menu looked pressed while its command was being handled.
ButtonPanel* gWatchedPanel = nullptr;
bool gMenuPressedDuringCommand = false;

void NoteMenuPress(WPARAM command) {
    if (command == IDM_MAIN_MENU && gWatchedPanel != nullptr)
        gMenuPressedDuringCommand = gWatchedPanel->Button(kPanelMenuButton).pressed;
}

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

class ButtonPanelTest : public ::testing::Test {
  protected:
    void SetUp() override {
        previousAlert_ = SetAlertHandler(&QuietAlert);
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        const auto dll = std::filesystem::path(path).parent_path() / L"DialdeckRes.dll";
        library_ = LoadLibraryExW(dll.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_NE(library_, nullptr);
        SetResourceModule(library_);
        UseScreen({240, 320, 96});
        skin_ = std::make_unique<Skin>(Str(u"C:\\no-such-folder\\DialdeckSkin"), library_);
    }
    void TearDown() override {
        panel_.reset();
        skin_.reset();
        SetResourceModule(nullptr);
        FreeLibrary(library_);
        SetAlertHandler(previousAlert_);
        gWatchedPanel = nullptr;
    }
    void UseScreen(const device::Profile& profile) {
        device::SetCurrentProfile(profile);
        SetScreen(ComputeScreenInfo(profile.dpi, profile.dpi, profile.width, profile.height));
    }
    ButtonPanel& MakePanel(int width, int height) {
        panel_ = std::make_unique<ButtonPanel>(*skin_);
        EXPECT_TRUE(panel_->Create(parent_.Hwnd()));
        SetWindowPos(panel_->Hwnd(), nullptr, 0, 0, width, height, SWP_NOZORDER);
        gWatchedPanel = panel_.get();
        gMenuPressedDuringCommand = false;
        parent_.onCommand = &NoteMenuPress;
        return *panel_;
    }
    static POINT Centre(const RECT& r) {
        return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    }
    void Send(UINT message, POINT at) {
        SendMessageW(panel_->Hwnd(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0,
                     MAKELPARAM(at.x, at.y));
    }

    CommandParent parent_{480, 100};
    HMODULE library_ = nullptr;
    std::unique_ptr<Skin> skin_;
    std::unique_ptr<ButtonPanel> panel_;
    AlertHandler previousAlert_ = nullptr;
};

TEST_F(ButtonPanelTest, PortraitImagesOnAPortraitScreen) {
    ButtonPanel& panel = MakePanel(240, 34);
    EXPECT_FALSE(panel.IsLandscape());
    EXPECT_EQ(panel.Thickness(), 34);
    EXPECT_EQ(panel.Button(0).art.width, 56);
    EXPECT_EQ(panel.Button(0).art.height, 34);
    EXPECT_EQ(panel.Button(0).command, 101u);
    EXPECT_EQ(panel.Button(3).command, 104u);
    EXPECT_EQ(panel.Button(0).caption, Str(u"Prev"));
    EXPECT_EQ(panel.Button(3).caption, Str(u"Close"));
    RECT r{};
    panel.GetButtonRect(1, r);
    EXPECT_EQ(r.left, 56);
    panel.GetButtonRect(3, r);
    EXPECT_EQ(r.right, 240);
    EXPECT_EQ(r.left, 240 - 56);
    RECT untouched{1, 2, 3, 4};
    panel.GetButtonRect(4, untouched);
    EXPECT_EQ(untouched.left, 1);
    EXPECT_EQ(untouched.bottom, 4);
}

TEST_F(ButtonPanelTest, LandscapeImagesOnALandscapeScreen) {
    UseScreen({320, 240, 96});
    ButtonPanel& panel = MakePanel(50, 214);
    EXPECT_TRUE(panel.IsLandscape());
    EXPECT_EQ(panel.Thickness(), 50);
    EXPECT_EQ(panel.Button(0).art.height, 44);
    RECT r{};
    panel.GetButtonRect(3, r);
    EXPECT_EQ(r.bottom, 214);
    EXPECT_EQ(r.top, 214 - 44);
}

TEST_F(ButtonPanelTest, SquareScreenIsPortrait) {
    UseScreen({480, 480, 192});
    ButtonPanel& panel = MakePanel(480, 68);
    EXPECT_FALSE(panel.IsLandscape());
}

TEST_F(ButtonPanelTest, SecondCreateDoesNothing) {
    ButtonPanel& panel = MakePanel(240, 34);
    HWND first = panel.Hwnd();
    EXPECT_TRUE(panel.Create(parent_.Hwnd()));
    EXPECT_EQ(panel.Hwnd(), first);
}

TEST_F(ButtonPanelTest, ReleaseOutsideSendsNothingAndSlidingBackSendsNext) {
    ButtonPanel& panel = MakePanel(240, 34);
    RECT next{};
    panel.GetButtonRect(1, next);
    const POINT inside = Centre(next);
    const POINT outside{next.right + 40, inside.y};
    Send(WM_LBUTTONDOWN, inside);
    EXPECT_EQ(GetCapture(), panel.Hwnd());
    EXPECT_TRUE(panel.Button(1).pressed);
    Send(WM_MOUSEMOVE, outside);
    EXPECT_FALSE(panel.Button(1).pressed);
    Send(WM_LBUTTONUP, outside);
    EXPECT_TRUE(parent_.Commands().empty());
    EXPECT_NE(GetCapture(), panel.Hwnd());

    Send(WM_LBUTTONDOWN, inside);
    Send(WM_MOUSEMOVE, outside);
    Send(WM_MOUSEMOVE, inside);
    EXPECT_TRUE(panel.Button(1).pressed);
    Send(WM_LBUTTONUP, inside);
    ASSERT_EQ(parent_.Commands().size(), 1u);
    EXPECT_EQ(parent_.Commands()[0], 102u);
    EXPECT_FALSE(panel.Button(1).pressed);
    EXPECT_EQ(panel.PressedButton(), -1);
}

TEST_F(ButtonPanelTest, MenuActsOnPress) {
    ButtonPanel& panel = MakePanel(240, 34);
    RECT menu{};
    panel.GetButtonRect(2, menu);
    Send(WM_LBUTTONDOWN, Centre(menu));
    ASSERT_EQ(parent_.Commands().size(), 1u);
    EXPECT_EQ(parent_.Commands()[0], 103u);
    EXPECT_TRUE(gMenuPressedDuringCommand);
    EXPECT_FALSE(panel.Button(2).pressed);
    EXPECT_NE(GetCapture(), panel.Hwnd());
    Send(WM_LBUTTONUP, Centre(menu));
    EXPECT_EQ(parent_.Commands().size(), 1u);
}

TEST_F(ButtonPanelTest, PressBetweenButtonsDoesNothing) {
    ButtonPanel& panel = MakePanel(320, 34);
    Send(WM_LBUTTONDOWN, POINT{160, 17});
    EXPECT_EQ(panel.PressedButton(), -1);
    EXPECT_NE(GetCapture(), panel.Hwnd());
}

TEST_F(ButtonPanelTest, DisabledButtonIgnoresPressesAndShowsItsDisabledCell) {
    ButtonPanel& panel = MakePanel(240, 34);
    panel.SetButtonEnabled(0, false);
    EXPECT_FALSE(panel.Button(0).enabled);
    RECT prev{};
    panel.GetButtonRect(0, prev);
    Send(WM_LBUTTONDOWN, Centre(prev));
    Send(WM_LBUTTONUP, Centre(prev));
    EXPECT_TRUE(parent_.Commands().empty());
    EXPECT_FALSE(panel.Button(0).pressed);

    // Drawn from the disabled column: compare with the image's own pixel there.
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    HBITMAP target = CreateCompatibleBitmap(screen, 240, 34);
    ReleaseDC(nullptr, screen);
    HGDIOBJ old = SelectObject(dc, target);
    RECT all{0, 0, 240, 34};
    panel.Paint(dc, all);
    const gdi::Object<HBITMAP> image =
        skin_->LoadSkinBitmap(skin_bitmap::kPortraitPanel1, u"p_panel_1");
    HDC source = CreateCompatibleDC(nullptr);
    HGDIOBJ oldSource = SelectObject(source, image.get());
    const Point disabled = panel.Button(0).art.disabled;
    const Point normal = panel.Button(0).art.normal;
    const int x = 28;
    const int y = 10;  // the glyph's row, above the caption
    EXPECT_EQ(GetPixel(dc, x, y), GetPixel(source, disabled.x + x, disabled.y + y));
    EXPECT_NE(GetPixel(dc, x, y), GetPixel(source, normal.x + x, normal.y + y));
    SelectObject(source, oldSource);
    DeleteDC(source);
    SelectObject(dc, old);
    DeleteObject(target);
    DeleteDC(dc);
}

TEST_F(ButtonPanelTest, CaptureTakenElsewhereDropsThePress) {
    ButtonPanel& panel = MakePanel(240, 34);
    const shot::Image normal = PrintClient(panel.Hwnd());
    RECT next{};
    panel.GetButtonRect(1, next);
    Send(WM_LBUTTONDOWN, Centre(next));
    ASSERT_TRUE(panel.Button(1).pressed);
    ASSERT_NE(PrintClient(panel.Hwnd()).pixels, normal.pixels);
    // A menu or a dialog takes the stylus: the panel gets WM_CAPTURECHANGED.
    SetCapture(parent_.Hwnd());
    EXPECT_FALSE(panel.Button(1).pressed);
    EXPECT_EQ(panel.PressedButton(), -1);
    EXPECT_EQ(PrintClient(panel.Hwnd()).pixels, normal.pixels);
    ReleaseCapture();
    Send(WM_LBUTTONUP, Centre(next));
    EXPECT_TRUE(parent_.Commands().empty());
}

TEST_F(ButtonPanelTest, CancelModeDropsThePressAndTheCapture) {
    ButtonPanel& panel = MakePanel(240, 34);
    const shot::Image normal = PrintClient(panel.Hwnd());
    RECT close{};
    panel.GetButtonRect(3, close);
    Send(WM_LBUTTONDOWN, Centre(close));
    ASSERT_TRUE(panel.Button(3).pressed);
    ASSERT_NE(PrintClient(panel.Hwnd()).pixels, normal.pixels);
    SendMessageW(panel.Hwnd(), WM_CANCELMODE, 0, 0);
    EXPECT_FALSE(panel.Button(3).pressed);
    EXPECT_EQ(panel.PressedButton(), -1);
    EXPECT_NE(GetCapture(), panel.Hwnd());
    EXPECT_EQ(PrintClient(panel.Hwnd()).pixels, normal.pixels);
    Send(WM_LBUTTONUP, Centre(close));
    EXPECT_TRUE(parent_.Commands().empty());
}

TEST_F(ButtonPanelTest, PrintClientDrawsWhatPaintShows) {
    ButtonPanel& panel = MakePanel(240, 34);
    panel.SetButtonEnabled(1, false);
    SetForegroundWindow(parent_.Hwnd());
    RedrawWindow(panel.Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    shot::Image painted;
    ASSERT_TRUE(shot::CaptureClient(panel.Hwnd(), painted));
    const shot::Image printed = PrintClient(panel.Hwnd());
    ASSERT_EQ(painted.width, printed.width);
    ASSERT_EQ(painted.height, printed.height);
    EXPECT_EQ(painted.pixels, printed.pixels);
}

}  // namespace
