// The pictures of the user guide: the real program on the demo contacts and the demo board,
// with the sample skin beside it, as an installed copy looks. Each case opens one screen, checks
// that it is there and saves what the screen shows as guide-*.png; tools/guide-shots.sh copies
// them into docs/.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "BoardDriver.h"
#include "ScreenShot.h"
#include "base/ResourceIds.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

constexpr wchar_t kMenuClass[] = L"#32768";

std::filesystem::path SourcePath(const char* relative) {
    std::wstring path = L"Z:";
    for (const char* p = DD_SOURCE_DIR; *p != 0; ++p)
        path += *p == '/' ? L'\\' : static_cast<wchar_t>(*p);
    return std::filesystem::path(path) / relative;
}

/// Stores the demo board with the registry editor, as the run command does; true when it ran.
bool StoreDemoBoard() {
    std::wstring command =
        L"regedit.exe /S \"" + SourcePath("demo/DemoBoard.reg").wstring() + L"\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &info)) {
        return false;
    }
    Process editor(info);
    return editor.WaitExit(e2e::kStepTimeoutMs) == 0u;
}

/// Every visible top-level window of the process but the board, of the class when one is given.
std::vector<HWND> PopupsOf(const Process& process, HWND board, const wchar_t* windowClass) {
    struct Search {
        DWORD processId;
        HWND board;
        const wchar_t* windowClass;
        std::vector<HWND> found;
    } search{process.Id(), board, windowClass, {}};
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            auto* s = reinterpret_cast<Search*>(data);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            wchar_t name[64] = {};
            GetClassNameW(window, name, 64);
            if (owner == s->processId && window != s->board && IsWindowVisible(window) &&
                (s->windowClass == nullptr || lstrcmpW(name, s->windowClass) == 0)) {
                s->found.push_back(window);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

class GuideShots : public ::testing::Test {
  protected:
    void SetUp() override {
        e2e::CleanRegistry();
        ASSERT_TRUE(StoreDemoBoard());
        const std::filesystem::path folder = sandbox_.Folder();
        std::filesystem::copy_file(SourcePath("demo/Contacts.vcf"), folder / L"Contacts.vcf");
        std::filesystem::copy(SourcePath("res/sample-skin"), folder,
                              std::filesystem::copy_options::recursive);
        process_ = sandbox_.Start(L"");
        board_ = e2e::WaitForWindowOf(process_, e2e::kBoardClass, nullptr, true);
        ASSERT_NE(board_, nullptr);
        ASSERT_TRUE(process_.WaitIdle());
        // The first button, which the demo board binds to a contact.
        Key(VK_HOME);
    }
    void TearDown() override {
        for (HWND popup : PopupsOf(process_, board_, nullptr))
            PostMessageW(popup, WM_KEYDOWN, VK_ESCAPE, 1);
        if (process_.IsRunning() && board_ != nullptr)
            PostMessageW(board_, WM_CLOSE, 100, 0);
        process_.WaitExit(e2e::kStepTimeoutMs);
        e2e::CleanRegistry();
    }

    void Key(WPARAM key) {
        PostMessageW(board_, WM_KEYDOWN, key, 1);
        PostMessageW(board_, WM_KEYUP, key, 0xC0000001);
    }

    /// Waits for `count` visible windows of the class besides the board.
    bool WaitForPopups(const wchar_t* windowClass, size_t count = 1) {
        return e2e::WaitUntil(
            [&] { return PopupsOf(process_, board_, windowClass).size() >= count; });
    }

    /// Saves what the screen shows of the board and the windows open over it.
    void Shoot(const wchar_t* name) {
        Sleep(300);  // the pop-ups' own painting, for the picture only
        RECT area{};
        GetWindowRect(board_, &area);
        for (HWND popup : PopupsOf(process_, board_, nullptr)) {
            RECT more{};
            GetWindowRect(popup, &more);
            UnionRect(&area, &area, &more);
        }
        shot::Image image;
        ASSERT_TRUE(shot::CaptureScreen(area, image));
        EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(name).c_str()));
    }

    Sandbox sandbox_{Contents{.normalLibrary = true, .vgaLibrary = true, .searchService = true}};
    Process process_;
    HWND board_ = nullptr;
};

TEST_F(GuideShots, Board) {
    EXPECT_TRUE(PopupsOf(process_, board_, nullptr).empty());
    Shoot(L"guide-board.png");
}

TEST_F(GuideShots, MainMenu) {
    PostMessageW(board_, WM_COMMAND, IDM_MAIN_MENU, 0);
    ASSERT_TRUE(WaitForPopups(kMenuClass));
    Shoot(L"guide-main-menu.png");
}

TEST_F(GuideShots, ContextMenu) {
    // Enter held down for half a second opens the selected button's menu.
    PostMessageW(board_, WM_KEYDOWN, VK_RETURN, 1);
    ASSERT_TRUE(WaitForPopups(kMenuClass));
    Shoot(L"guide-context-menu.png");
}

BOOL CALLBACK KeepTopChild(HWND child, LPARAM param) {
    HWND& top = *reinterpret_cast<HWND*>(param);
    RECT mine{};
    RECT kept{};
    GetWindowRect(child, &mine);
    if (top != nullptr)
        GetWindowRect(top, &kept);
    if (top == nullptr || mine.top < kept.top)
        top = child;
    return TRUE;
}

TEST_F(GuideShots, Picker) {
    // The demo board's second page has its third button free.
    PostMessageW(board_, WM_COMMAND, IDM_NEXT_PAGE, 0);
    Key(VK_RIGHT);
    Key(VK_RIGHT);
    Key(VK_RETURN);
    ASSERT_TRUE(WaitForPopups(L"#32770"));
    const HWND picker = PopupsOf(process_, board_, L"#32770").front();
    HWND list = nullptr;
    EnumChildWindows(picker, &KeepTopChild, reinterpret_cast<LPARAM>(&list));
    ASSERT_NE(list, nullptr);
    // The phone's digit keys: M-u, as in "Müller"; the list passes them on to the keypad.
    for (WPARAM digit : {WPARAM{'6'}, WPARAM{'8'}}) {
        PostMessageW(list, WM_KEYDOWN, digit, 1);
        Sleep(200);
        PostMessageW(list, WM_KEYUP, digit, 0xC0000001);
    }
    Shoot(L"guide-picker.png");
}

TEST_F(GuideShots, RenameDialog) {
    PostMessageW(board_, WM_COMMAND, IDM_RENAME, 0);
    ASSERT_TRUE(WaitForPopups(nullptr));
    Shoot(L"guide-rename.png");
}

}  // namespace
