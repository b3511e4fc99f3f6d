#include "platform/Shell.h"

#include <gtest/gtest.h>

namespace {

class ShellTest : public ::testing::Test {
  protected:
    void SetUp() override {
        window_ = CreateWindowExW(0, L"Static", L"shell test", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        ASSERT_NE(window_, nullptr);
    }
    void TearDown() override { DestroyWindow(window_); }
    HWND window_ = nullptr;
};

TEST_F(ShellTest, NoMenuBarExistsOnTheDesktop) {
    shell::MenuBarInfo info{};
    info.cbSize = sizeof(info);
    info.hwndParent = window_;
    info.dwFlags = shell::kMenuBarFromMenu;
    info.nToolBarId = 122;
    info.hwndMB = window_;
    EXPECT_FALSE(shell::CreateMenuBar(&info));
    EXPECT_EQ(info.hwndMB, nullptr);
    EXPECT_FALSE(shell::CreateMenuBar(nullptr));
}

TEST_F(ShellTest, NoInputPanelIsReported) {
    shell::SipInfo info{};
    info.cbSize = sizeof(info);
    EXPECT_FALSE(shell::QuerySipInfo(shell::kSipInfoQuery, 0, &info));
}

TEST_F(ShellTest, InputPanelRequestsChangeNothing) {
    RECT before;
    GetWindowRect(window_, &before);
    EXPECT_TRUE(shell::FullScreen(window_, shell::kHideSipButton));
    EXPECT_TRUE(shell::SipPreference(window_, shell::kSipForceDown));
    EXPECT_TRUE(shell::SipShowIM(0));
    RECT after;
    GetWindowRect(window_, &after);
    EXPECT_TRUE(EqualRect(&before, &after));
    EXPECT_TRUE(IsWindowVisible(window_));
}

TEST_F(ShellTest, ShellValuesAreTheDevicesOwn) {
    EXPECT_EQ(shell::kMenuBarFromMenu, 0x10u);
    EXPECT_EQ(shell::kMenuBarOverrideKey, 0x593u);
    EXPECT_EQ(shell::kHideSipButton, 0x8u);
    EXPECT_EQ(shell::kSipForceDown, 2);
    EXPECT_EQ(shell::kSipInfoQuery, 225u);
    EXPECT_EQ(shell::kSipInfoChanged, 224u);
}

TEST_F(ShellTest, ForegroundTakesThePlainHandle) {
    EXPECT_TRUE(shell::SetForegroundWithOwned(window_));
    EXPECT_EQ(GetForegroundWindow(), window_);
}

}  // namespace
