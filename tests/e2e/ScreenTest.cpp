// Where the real program's board window sits on each emulated screen, and what it shows.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "BoardDriver.h"
#include "ScreenShot.h"
#include "WindowProbe.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

constexpr COLORREF kBackground = 0x50463B;

struct ScreenCase {
    const wchar_t* profile;
    const wchar_t* shotName;
    RECT workArea;  // below the top bar, down to the screen's bottom edge
};

class BoardScreen : public ::testing::TestWithParam<ScreenCase> {
  protected:
    void SetUp() override { e2e::CleanRegistry(); }
    void TearDown() override { e2e::CleanRegistry(); }
};

// The top-left corner lies in the margin around the cells, which shows the board's background.
COLORREF Corner(const shot::Image& image) {
    return image.At(0, 0);
}

// Waits until the board's painting has reached the screen.
bool WaitForBackground(HWND board, shot::Image& image) {
    return e2e::WaitUntil(
        [&] { return shot::CaptureClient(board, image) && Corner(image) == kBackground; });
}

TEST_P(BoardScreen, ClientAreaIsTheEmulatedWorkArea) {
    const ScreenCase& c = GetParam();
    Sandbox sandbox(Contents{.normalLibrary = true, .vgaLibrary = true});
    Process process = sandbox.Start(L"", c.profile);
    HWND board = e2e::WaitForWindowOf(process, e2e::kBoardClass, nullptr, true);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());

    EXPECT_EQ(probe::TextOf(board), L"Orvalis Dialdeck");
    LONG style = GetWindowLongW(board, GWL_STYLE);
    EXPECT_EQ(style & (WS_CAPTION | WS_THICKFRAME), 0);
    RECT window;
    GetWindowRect(board, &window);
    EXPECT_TRUE(EqualRect(&window, &c.workArea))
        << window.left << "," << window.top << " " << window.right << "," << window.bottom;
    RECT client = shot::ClientOnScreen(board);
    EXPECT_TRUE(EqualRect(&client, &c.workArea))
        << client.left << "," << client.top << " " << client.right << "," << client.bottom;

    shot::Image image;
    EXPECT_TRUE(WaitForBackground(board, image));
    EXPECT_EQ(Corner(image), kBackground);
    EXPECT_EQ(image.width, c.workArea.right - c.workArea.left);
    EXPECT_EQ(image.height, c.workArea.bottom - c.workArea.top);
    EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(c.shotName).c_str()));

    PostMessageW(board, WM_CLOSE, 100, 0);
    EXPECT_EQ(process.WaitExit(e2e::kStepTimeoutMs), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    Profiles, BoardScreen,
    ::testing::Values(ScreenCase{L"480x640@192", L"e2e-board-480x640.png", {0, 52, 480, 640}},
                      ScreenCase{L"240x320@96", L"e2e-board-240x320.png", {0, 26, 240, 320}},
                      ScreenCase{L"320x240@96", L"e2e-board-320x240.png", {0, 26, 320, 240}},
                      ScreenCase{L"320x320@96", L"e2e-board-320x320.png", {0, 26, 320, 320}},
                      ScreenCase{L"480x800@192", L"e2e-board-480x800.png", {0, 52, 480, 800}}));

bool WaitForRect(HWND window, const RECT& wanted, RECT& at) {
    return e2e::WaitUntil([&] { return GetWindowRect(window, &at) && EqualRect(&at, &wanted); });
}

TEST(BoardRotation, TheRotationKeyTurnsTheBoardAndPutsThePanelOnTheRight) {
    e2e::CleanRegistry();
    Sandbox sandbox(Contents{.normalLibrary = true, .vgaLibrary = true});
    Process process = sandbox.Start(L"", L"240x320@96");
    HWND board = e2e::WaitForWindowOf(process, e2e::kBoardClass, nullptr, true);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());

    PostMessageW(board, WM_KEYDOWN, VK_F9, 0);
    const RECT landscape{0, 26, 320, 240};
    RECT at{};
    EXPECT_TRUE(WaitForRect(board, landscape, at))
        << at.left << "," << at.top << " " << at.right << "," << at.bottom;
    HWND panel = FindWindowExW(board, nullptr, nullptr, nullptr);
    ASSERT_NE(panel, nullptr);
    RECT panelAt{};
    GetWindowRect(panel, &panelAt);
    EXPECT_EQ(panelAt.right, landscape.right);
    EXPECT_GT(panelAt.left, landscape.right / 2);
    EXPECT_EQ(panelAt.bottom - panelAt.top, landscape.bottom - landscape.top);

    shot::Image image;
    EXPECT_TRUE(WaitForBackground(board, image));
    EXPECT_EQ(image.width, 320);
    EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(L"e2e-board-240x320-turned.png").c_str()));

    PostMessageW(board, WM_CLOSE, 100, 0);
    EXPECT_EQ(process.WaitExit(e2e::kStepTimeoutMs), 0u);
    e2e::CleanRegistry();
}

}  // namespace
