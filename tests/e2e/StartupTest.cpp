// Starting the real program: a single instance, the preload command line, and the resources it
// needs before it shows anything.
#include <windows.h>

#include <gtest/gtest.h>

#include "BoardDriver.h"
#include "WindowProbe.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

constexpr DWORD kHiddenMarker = 0x80000000;

class StartupTest : public ::testing::Test {
  protected:
    void SetUp() override {
        e2e::CleanRegistry();
        ASSERT_TRUE(e2e::WindowsOfClass(e2e::kBoardClass).empty()) << "a board is still running";
    }
    void TearDown() override { e2e::CleanRegistry(); }

    static HWND Board(const Process& process, bool visibleOnly = true) {
        return e2e::WaitForWindowOf(process, e2e::kBoardClass, nullptr, visibleOnly);
    }
    static void ForceClose(const Process& process, HWND board) {
        PostMessageW(board, WM_CLOSE, 100, 0);
        EXPECT_EQ(process.WaitExit(e2e::kStepTimeoutMs), 0u);
    }
};

// A window of this test to take the foreground from the board.
class OtherWindow {
  public:
    OtherWindow() {
        window_ = CreateWindowExW(0, L"Static", L"other", WS_POPUP | WS_VISIBLE, 600, 600, 50, 50,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetForegroundWindow(window_);
    }
    ~OtherWindow() { DestroyWindow(window_); }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;
    HWND get() const { return window_; }

  private:
    HWND window_;
};

TEST_F(StartupTest, SecondStartRaisesTheFirstAndReturnsOne) {
    Sandbox sandbox(Contents{.vgaLibrary = true});
    Process first = sandbox.Start(L"");
    HWND board = Board(first);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(first.WaitIdle());
    OtherWindow other;
    ASSERT_EQ(GetForegroundWindow(), other.get());
    SetWindowLongW(board, GWL_STYLE, GetWindowLongW(board, GWL_STYLE) | kHiddenMarker);

    Process second = sandbox.Start(L"");
    EXPECT_EQ(second.WaitExit(e2e::kStepTimeoutMs), 1u);
    EXPECT_EQ(GetForegroundWindow(), board);
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongW(board, GWL_STYLE)) & kHiddenMarker, 0u);
    std::vector<HWND> boards = e2e::WindowsOfClass(e2e::kBoardClass);
    ASSERT_EQ(boards.size(), 1u);
    EXPECT_EQ(boards[0], board);
    EXPECT_TRUE(first.IsRunning());
    ForceClose(first, board);
}

TEST_F(StartupTest, SecondStartWithPreFindsTheFirstToo) {
    Sandbox sandbox(Contents{.vgaLibrary = true});
    Process first = sandbox.Start(L"pre");
    HWND board = Board(first, false);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(first.WaitIdle());
    Process second = sandbox.Start(L"pre");
    EXPECT_EQ(second.WaitExit(e2e::kStepTimeoutMs), 1u);
    EXPECT_EQ(e2e::WindowsOfClass(e2e::kBoardClass).size(), 1u);
    ForceClose(first, board);
}

TEST_F(StartupTest, PreStartsHiddenAndResident) {
    Sandbox sandbox(Contents{.vgaLibrary = true});
    Process process = sandbox.Start(L"pre");
    HWND board = Board(process, false);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());
    EXPECT_FALSE(IsWindowVisible(board));
    EXPECT_TRUE(process.IsRunning());
    EXPECT_EQ(e2e::ReadSetting(L"HSTRF"), 0u);  // 1 only while the window was being created
    ForceClose(process, board);
}

TEST_F(StartupTest, NormalStartLeavesNoCreationMark) {
    Sandbox sandbox(Contents{.vgaLibrary = true});
    Process process = sandbox.Start(L"");
    HWND board = Board(process);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());
    EXPECT_FALSE(e2e::ReadSetting(L"HSTRF").has_value());
    ForceClose(process, board);
}

class VariantOfPre : public StartupTest, public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(VariantOfPre, StartsVisible) {
    Sandbox sandbox(Contents{.vgaLibrary = true});
    Process process = sandbox.Start(GetParam());
    HWND board = Board(process);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());
    EXPECT_TRUE(IsWindowVisible(board));
    ForceClose(process, board);
}

INSTANTIATE_TEST_SUITE_P(CommandLines, VariantOfPre,
                         ::testing::Values(L"PRE", L" pre", L"pre ", L"Pre", L"pre x"));

TEST_F(StartupTest, SkinFolderAloneIsEnough) {
    Sandbox sandbox(Contents{.skinFolder = true});
    Process process = sandbox.Start(L"");
    HWND board = Board(process);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());
    EXPECT_EQ(e2e::WaitForWindowOf(process, L"#32770", e2e::kErrorCaption, false, 0), nullptr);
    ForceClose(process, board);
}

// Waits for the skin box of the process, checks it and presses OK; the process then ends with 1.
void ExpectSkinBoxAndExitOne(const Process& process) {
    HWND box = e2e::WaitForWindowOf(process, L"#32770", e2e::kErrorCaption, true);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(probe::MessageBoxText(box), L"Failed to load skin !");
    EXPECT_EQ(probe::TextOf(box), L"Error");
    EXPECT_NE(GetDlgItem(box, IDOK), nullptr);
    EXPECT_EQ(GetDlgItem(box, IDCANCEL), nullptr);
    EXPECT_EQ(GetDlgItem(box, IDNO), nullptr);
    EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
    EXPECT_EQ(e2e::WaitForWindowOf(process, e2e::kBoardClass, nullptr, false, 0), nullptr);
    probe::PressButton(box, IDOK);
    EXPECT_EQ(process.WaitExit(e2e::kStepTimeoutMs), 1u);
}

TEST_F(StartupTest, NeitherLibraryNorSkinFolderShowsTheBoxAndExitsOne) {
    Sandbox sandbox(Contents{});
    Process process = sandbox.Start(L"");
    ExpectSkinBoxAndExitOne(process);
}

struct LibraryCase {
    const wchar_t* profile;
    bool normalLibrary;
    bool vgaLibrary;
    bool starts;
};

class LibraryChoice : public StartupTest, public ::testing::WithParamInterface<LibraryCase> {};

TEST_P(LibraryChoice, ScreenResolutionPicksTheLibrary) {
    const LibraryCase& c = GetParam();
    Sandbox sandbox(Contents{.normalLibrary = c.normalLibrary, .vgaLibrary = c.vgaLibrary});
    Process process = sandbox.Start(L"", c.profile);
    if (!c.starts) {
        ExpectSkinBoxAndExitOne(process);
        return;
    }
    HWND board = Board(process);
    ASSERT_NE(board, nullptr);
    ASSERT_TRUE(process.WaitIdle());
    ForceClose(process, board);
}

INSTANTIATE_TEST_SUITE_P(Profiles, LibraryChoice,
                         ::testing::Values(LibraryCase{L"480x640@192", false, true, true},
                                           LibraryCase{L"480x640@192", true, false, false},
                                           LibraryCase{L"240x320@96", true, false, true},
                                           LibraryCase{L"240x320@96", false, true, false},
                                           LibraryCase{L"240x320@131", true, false, true},
                                           LibraryCase{L"240x320@132", true, false, false}));

}  // namespace
