#include "win/ScreenRotation.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"

namespace {

// A setting-change notice a test window received, with where the window was at the time.
struct Notice {
    HWND window;
    WPARAM wParam;
    RECT at;
};
std::vector<Notice> g_notices;

LRESULT CALLBACK RecordingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTINGCHANGE) {
        RECT at{};
        GetWindowRect(window, &at);
        g_notices.push_back(Notice{window, wParam, at});
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

class ScreenRotationTest : public ::testing::Test {
  protected:
    void SetUp() override {
        savedProfile_ = device::CurrentProfile();
        savedScreen_ = Screen();
        device::SetCurrentProfile({240, 320, 96});
        SetScreen(ComputeScreenInfo(96, 96, 240, 320));
        WNDCLASSW wc{};
        wc.lpfnWndProc = RecordingProc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = L"DdRotationTest";
        RegisterClassW(&wc);
        g_notices.clear();
    }
    void TearDown() override {
        for (HWND window : windows_)
            DestroyWindow(window);
        device::SetCurrentProfile(savedProfile_);
        SetScreen(savedScreen_);
    }
    HWND Open(int x, int y, int width, int height) {
        HWND window = CreateWindowExW(0, L"DdRotationTest", L"", WS_POPUP, x, y, width, height,
                                      nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        windows_.push_back(window);
        return window;
    }
    static RECT RectOf(HWND window) {
        RECT at{};
        GetWindowRect(window, &at);
        return at;
    }

  private:
    device::Profile savedProfile_{};
    ScreenInfo savedScreen_{};
    std::vector<HWND> windows_;
};

TEST_F(ScreenRotationTest, OnlyTheKeyDownOfF9IsTheRotationKey) {
    MSG msg{};
    msg.message = WM_KEYDOWN;
    msg.wParam = VK_F9;
    EXPECT_TRUE(IsRotationKey(msg));
    msg.message = WM_KEYUP;
    EXPECT_FALSE(IsRotationKey(msg));
    msg.message = WM_KEYDOWN;
    msg.wParam = VK_F3;
    EXPECT_FALSE(IsRotationKey(msg));
}

TEST_F(ScreenRotationTest, TurnsTheScreenAndFitsTheFullScreenWindow) {
    HWND board = Open(0, 26, 240, 294);
    HWND small = Open(10, 40, 100, 50);
    ASSERT_NE(board, nullptr);
    ASSERT_NE(small, nullptr);

    RotateScreen();

    EXPECT_EQ(device::CurrentProfile(), (device::Profile{320, 240, 96}));
    const RECT fitted = RectOf(board);
    const RECT workArea{0, 26, 320, 240};
    EXPECT_TRUE(EqualRect(&fitted, &workArea))
        << fitted.left << "," << fitted.top << " " << fitted.right << "," << fitted.bottom;
    const RECT untouched = RectOf(small);
    const RECT before{10, 40, 110, 90};
    EXPECT_TRUE(EqualRect(&untouched, &before));
}

TEST_F(ScreenRotationTest, EveryWindowOfTheThreadHearsTheNoticeAfterItWasFitted) {
    HWND board = Open(0, 26, 240, 294);
    HWND small = Open(10, 40, 100, 50);
    RotateScreen();
    ASSERT_EQ(g_notices.size(), 2u);
    const RECT workArea{0, 26, 320, 240};
    for (const Notice& notice : g_notices) {
        EXPECT_TRUE(notice.window == board || notice.window == small);
        EXPECT_EQ(notice.wParam, kScreenChangedNotice);
        if (notice.window == board) {
            EXPECT_TRUE(EqualRect(&notice.at, &workArea));
        }
    }
}

TEST_F(ScreenRotationTest, TurningTwiceGivesTheFirstScreenBack) {
    HWND board = Open(0, 26, 240, 294);
    RotateScreen();
    RotateScreen();
    EXPECT_EQ(device::CurrentProfile(), (device::Profile{240, 320, 96}));
    const RECT back = RectOf(board);
    const RECT workArea{0, 26, 240, 320};
    EXPECT_TRUE(EqualRect(&back, &workArea));
}

}  // namespace
