// Closing the real program: a forced close ends it, a plain close only hides it while it is
// resident (ModPreload on, the default) and ends it otherwise.
#include <windows.h>

#include <gtest/gtest.h>

#include "BoardDriver.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

// Long enough for a process that was told to quit to be gone.
constexpr DWORD kStaysResidentMs = 1500;

class CloseTest : public ::testing::Test {
  protected:
    void SetUp() override {
        e2e::CleanRegistry();
        ASSERT_TRUE(e2e::WindowsOfClass(e2e::kBoardClass).empty()) << "a board is still running";
        process_ = sandbox_.Start(L"");
        board_ = e2e::WaitForWindowOf(process_, e2e::kBoardClass, nullptr, true);
        ASSERT_NE(board_, nullptr);
        ASSERT_TRUE(process_.WaitIdle());
    }
    void TearDown() override { e2e::CleanRegistry(); }

    // Closes the board the way the system does, waiting until the board has handled it.
    void Close(WPARAM code) {
        DWORD_PTR result = 0;
        SendMessageTimeoutW(board_, WM_CLOSE, code, 0, SMTO_ABORTIFHUNG, e2e::kStepTimeoutMs,
                            &result);
    }

    Sandbox sandbox_{Contents{.vgaLibrary = true}};
    Process process_;
    HWND board_ = nullptr;
};

TEST_F(CloseTest, ForcedCloseExitsWithZero) {
    Close(100);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(CloseTest, ForcedCloseExitsEvenWhenResident) {
    e2e::WriteSetting(L"ModPreload", 1);
    Close(100);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(CloseTest, PlainCloseWithModPreloadUnsetOnlyHides) {
    ASSERT_FALSE(e2e::ReadSetting(L"ModPreload").has_value());
    Close(0);
    EXPECT_FALSE(IsWindowVisible(board_));
    EXPECT_FALSE(process_.WaitExit(kStaysResidentMs).has_value());
    EXPECT_TRUE(IsWindow(board_));
    Close(100);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(CloseTest, OtherCodesAreNotForced) {
    e2e::WriteSetting(L"ModPreload", 7);
    Close(99);
    EXPECT_FALSE(IsWindowVisible(board_));
    Close(101);
    EXPECT_FALSE(process_.WaitExit(kStaysResidentMs).has_value());
}

TEST_F(CloseTest, PlainCloseWithModPreloadZeroExitsWithZero) {
    e2e::WriteSetting(L"ModPreload", 0);
    Close(0);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

TEST_F(CloseTest, ModPreloadIsReadAtEachClose) {
    Close(0);
    EXPECT_FALSE(IsWindowVisible(board_));
    e2e::WriteSetting(L"ModPreload", 0);
    Close(0);
    EXPECT_EQ(process_.WaitExit(e2e::kStepTimeoutMs), 0u);
}

}  // namespace
