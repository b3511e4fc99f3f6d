#include "platform/Shell.h"

#include <gtest/gtest.h>

#include <cstdint>

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

TEST_F(ShellTest, TheOwnedWindowsHandleHasItsLowestBitSet) {
    const auto plain = reinterpret_cast<uintptr_t>(window_);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(shell::WithOwnedWindows(window_)), plain | 1);
}

TEST_F(ShellTest, ForegroundRaisesTheWindowOfAHandleWithItsLowestBitSet) {
    HWND other = CreateWindowExW(0, L"STATIC", L"other", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                 nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(other, nullptr);
    ASSERT_TRUE(shell::SetForeground(other));
    ASSERT_EQ(GetForegroundWindow(), other);
    EXPECT_TRUE(shell::SetForeground(shell::WithOwnedWindows(window_)));
    EXPECT_EQ(GetForegroundWindow(), window_);
    DestroyWindow(other);
}

TEST_F(ShellTest, ForegroundTakesThePlainHandleToo) {
    EXPECT_TRUE(shell::SetForeground(window_));
    EXPECT_EQ(GetForegroundWindow(), window_);
}

}  // namespace
