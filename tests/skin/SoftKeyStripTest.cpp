// The soft-key strip under Wine: keys read from the program's menus, commands on release, the
// press dropped when the capture goes elsewhere, and the same pixels from WM_PRINTCLIENT as from
// WM_PAINT. The strip wears the skin's faces, as a dialog's strip does.
#include "win/SoftKeyStrip.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ScreenShot.h"
#include "base/Alert.h"
#include "base/ResourceIds.h"
#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"
#include "skin/Skin.h"
#include "skin/SoftKeyFaces.h"
#include "testing/WindowTestKit.h"

namespace {

int QuietAlert(const char16_t*, const char16_t*, uint32_t) {
    return kAlertAnswerOk;
}

class SoftKeyStripTest : public ::testing::Test {
  protected:
    void SetUp() override { previousAlert_ = SetAlertHandler(&QuietAlert); }
    void TearDown() override {
        strip_.reset();
        parent_.reset();
        skin_.reset();
        SetResourceModule(nullptr);
        if (library_ != nullptr)
            FreeLibrary(library_);
        SetAlertHandler(previousAlert_);
    }
    /// A screen, its resource library and skin, a parent filling it and a dressed strip.
    SoftKeyStrip& MakeStrip(const device::Profile& profile, uint32_t menu) {
        device::SetCurrentProfile(profile);
        SetScreen(ComputeScreenInfo(profile.dpi, profile.dpi, profile.width, profile.height));
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        const wchar_t* name = Screen().hiRes != 0 ? L"DialdeckResVga.dll" : L"DialdeckRes.dll";
        const auto dll = std::filesystem::path(path).parent_path() / name;
        library_ = LoadLibraryExW(dll.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        EXPECT_NE(library_, nullptr);
        SetResourceModule(library_);
        skin_ = std::make_unique<Skin>(Str(u"C:\\no-such-folder\\DialdeckSkin"), library_);
        skin_->LoadSkinFile();
        parent_ = std::make_unique<CommandParent>(profile.width, profile.height);
        strip_ = std::make_unique<SoftKeyStrip>();
        DressSoftKeys(*strip_, *skin_);
        EXPECT_TRUE(strip_->Create(parent_->Hwnd(), menu));
        return *strip_;
    }
    static POINT Centre(const Rect& r) {
        return POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    }
    void Send(UINT message, POINT at) {
        SendMessageW(strip_->Hwnd(), message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0,
                     MAKELPARAM(at.x, at.y));
    }

    HMODULE library_ = nullptr;
    std::unique_ptr<Skin> skin_;
    std::unique_ptr<CommandParent> parent_;
    std::unique_ptr<SoftKeyStrip> strip_;
    AlertHandler previousAlert_ = nullptr;
};

const device::Profile kQvga{240, 320, 96};
const device::Profile kVga{480, 640, 192};

TEST_F(SoftKeyStripTest, OkAndCancelFromTheMenu) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    ASSERT_EQ(strip.Count(), 2);
    EXPECT_EQ(strip.Button(0).caption, Str(u"OK"));
    EXPECT_EQ(strip.Button(1).caption, Str(u"Cancel"));
    EXPECT_EQ(strip.Command(0), static_cast<uint32_t>(IDOK));
    EXPECT_EQ(strip.Command(1), static_cast<uint32_t>(IDCANCEL));
    EXPECT_EQ(strip.Command(2), 0u);
    EXPECT_EQ(strip.ButtonRect(0), (Rect{0, 0, 120, 26}));
    EXPECT_EQ(strip.ButtonRect(1), (Rect{120, 0, 240, 26}));
}

TEST_F(SoftKeyStripTest, CloseAndMenuFromTheBoardsMenu) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_SOFTKEYS);
    ASSERT_EQ(strip.Count(), 2);
    EXPECT_EQ(strip.Button(0).caption, Str(u"Close"));
    EXPECT_EQ(strip.Command(0), static_cast<uint32_t>(IDM_CLOSE));
    EXPECT_EQ(strip.Command(1), static_cast<uint32_t>(IDM_MAIN_MENU));
}

TEST_F(SoftKeyStripTest, MissingMenuMakesNoStrip) {
    device::SetCurrentProfile(kQvga);
    CommandParent parent(240, 320);
    SoftKeyStrip strip;
    EXPECT_FALSE(strip.Create(parent.Hwnd(), 9999));
    EXPECT_EQ(strip.Hwnd(), nullptr);
}

TEST_F(SoftKeyStripTest, DockedAtTheFootOneBarHigh) {
    SoftKeyStrip& strip = MakeStrip(kVga, IDR_OK_CANCEL);
    EXPECT_EQ(SoftKeyStrip::Height(), 52);
    RECT at{};
    GetWindowRect(strip.Hwnd(), &at);
    MapWindowPoints(nullptr, parent_->Hwnd(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.left, 0);
    EXPECT_EQ(at.right, 480);
    EXPECT_EQ(at.bottom, 640);
    EXPECT_EQ(at.top, 640 - 52);
    // The parent shrinks: Place docks it again.
    SetWindowPos(parent_->Hwnd(), nullptr, 0, 0, 400, 500, SWP_NOZORDER | SWP_NOMOVE);
    strip.Place();
    GetWindowRect(strip.Hwnd(), &at);
    MapWindowPoints(nullptr, parent_->Hwnd(), reinterpret_cast<POINT*>(&at), 2);
    EXPECT_EQ(at.right, 400);
    EXPECT_EQ(at.bottom, 500);
    EXPECT_EQ(strip.ButtonRect(1), (Rect{200, 0, 400, 52}));
}

TEST_F(SoftKeyStripTest, KeysSendTheirCommandsOnRelease) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(0)));
    EXPECT_TRUE(parent_->Commands().empty());  // nothing before the stylus is lifted
    EXPECT_EQ(GetCapture(), strip.Hwnd());
    Send(WM_LBUTTONUP, Centre(strip.ButtonRect(0)));
    Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(1)));
    Send(WM_LBUTTONUP, Centre(strip.ButtonRect(1)));
    ASSERT_EQ(parent_->Commands().size(), 2u);
    EXPECT_EQ(parent_->Commands()[0], static_cast<WPARAM>(IDOK));
    EXPECT_EQ(parent_->Commands()[1], static_cast<WPARAM>(IDCANCEL));
    EXPECT_NE(GetCapture(), strip.Hwnd());
    EXPECT_FALSE(strip.Button(1).pressed);
}

TEST_F(SoftKeyStripTest, SlidingOffSendsNothing) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    const Rect ok = strip.ButtonRect(0);
    Send(WM_LBUTTONDOWN, Centre(ok));
    EXPECT_TRUE(strip.Button(0).pressed);
    const POINT onCancel = Centre(strip.ButtonRect(1));
    Send(WM_MOUSEMOVE, onCancel);
    EXPECT_FALSE(strip.Button(0).pressed);
    EXPECT_FALSE(strip.Button(1).pressed);  // the press stays with the key it began on
    Send(WM_LBUTTONUP, onCancel);
    EXPECT_TRUE(parent_->Commands().empty());
}

TEST_F(SoftKeyStripTest, PressedKeyIsDrawnFromThePressedPicture) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    const shot::Image normal = PrintClient(strip.Hwnd());
    Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(1)));
    const shot::Image pressed = PrintClient(strip.Hwnd());
    // The OK key is untouched and the Cancel key changed, away from its caption.
    EXPECT_EQ(pressed.At(20, 13), normal.At(20, 13));
    EXPECT_NE(pressed.At(140, 13), normal.At(140, 13));
    Send(WM_LBUTTONUP, Centre(strip.ButtonRect(1)));
}

TEST_F(SoftKeyStripTest, CaptureTakenElsewhereDropsThePress) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    const shot::Image normal = PrintClient(strip.Hwnd());
    Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(0)));
    ASSERT_TRUE(strip.Button(0).pressed);
    ASSERT_NE(PrintClient(strip.Hwnd()).pixels, normal.pixels);
    // A menu or a dialog takes the stylus: the strip gets WM_CAPTURECHANGED.
    SetCapture(parent_->Hwnd());
    EXPECT_FALSE(strip.Button(0).pressed);
    EXPECT_EQ(strip.PressedButton(), -1);
    EXPECT_EQ(PrintClient(strip.Hwnd()).pixels, normal.pixels);
    ReleaseCapture();
    Send(WM_LBUTTONUP, Centre(strip.ButtonRect(0)));
    EXPECT_TRUE(parent_->Commands().empty());
}

TEST_F(SoftKeyStripTest, CancelModeDropsThePressAndTheCapture) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    const shot::Image normal = PrintClient(strip.Hwnd());
    Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(1)));
    ASSERT_TRUE(strip.Button(1).pressed);
    SendMessageW(strip.Hwnd(), WM_CANCELMODE, 0, 0);
    EXPECT_FALSE(strip.Button(1).pressed);
    EXPECT_EQ(strip.PressedButton(), -1);
    EXPECT_NE(GetCapture(), strip.Hwnd());
    EXPECT_EQ(PrintClient(strip.Hwnd()).pixels, normal.pixels);
    Send(WM_LBUTTONUP, Centre(strip.ButtonRect(1)));
    EXPECT_TRUE(parent_->Commands().empty());
}

TEST_F(SoftKeyStripTest, PrintClientDrawsWhatPaintShows) {
    SoftKeyStrip& strip = MakeStrip(kQvga, IDR_OK_CANCEL);
    SetForegroundWindow(parent_->Hwnd());
    RedrawWindow(strip.Hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    shot::Image painted;
    ASSERT_TRUE(shot::CaptureClient(strip.Hwnd(), painted));
    const shot::Image printed = PrintClient(strip.Hwnd());
    ASSERT_EQ(painted.width, printed.width);
    ASSERT_EQ(painted.height, printed.height);
    EXPECT_EQ(painted.pixels, printed.pixels);
}

TEST_F(SoftKeyStripTest, ScreenshotsOnBothResolutions) {
    for (const device::Profile& profile : {kQvga, kVga}) {
        SoftKeyStrip& strip = MakeStrip(profile, IDR_OK_CANCEL);
        const std::wstring size =
            std::to_wstring(profile.width) + L"x" + std::to_wstring(profile.height);
        const shot::Image normal = PrintClient(strip.Hwnd());
        EXPECT_EQ(normal.height, SoftKeyStrip::Height());
        EXPECT_FALSE(SaveShot(normal, L"softkeys-" + size).empty());
        Send(WM_LBUTTONDOWN, Centre(strip.ButtonRect(0)));
        EXPECT_FALSE(SaveShot(PrintClient(strip.Hwnd()), L"softkeys-pressed-" + size).empty());
        Send(WM_LBUTTONUP, POINT{-1, -1});
        // The key's face comes from the skin's picture: its corner is the picture's corner.
        EXPECT_NE(normal.At(normal.width / 8, normal.height / 2), skin_->Colours().background);
        TearDown();
        SetUp();
    }
}

}  // namespace
