// The installer as a person and an administrator use it, under Wine in a prefix of the test's
// own: a silent install into a folder with spaces and non-Latin letters, the program started from
// there and from the Start-menu shortcut, the entry in the list of installed programs, a second
// install over the running first, and a silent uninstall while the program runs, which removes
// every installed file and the shortcut and leaves the user's settings.
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shobjidl.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include "BoardDriver.h"
#include "ScreenShot.h"
#include "WindowProbe.h"

namespace {

using e2e::Process;

constexpr wchar_t kFolder[] = L"C:\\Program Files\\Dialdeck Ärger Тест";
constexpr wchar_t kUninstallKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Dialdeck";
constexpr wchar_t kUserKey[] = L"Software\\Orvalis\\PIM";
constexpr WPARAM kForcedClose = 100;
constexpr DWORD kInstallTimeoutMs = 120000;

constexpr const wchar_t* kInstalled[] = {
    L"Dialdeck.exe",       L"DialdeckRes.dll",      L"DialdeckResVga.dll",
    L"OrvalisPimServ.dll", L"DialdeckSkinskin.ini", L"DialdeckSkin\\big_btn_text.bmp",
    L"Uninstall.exe",      L"Contacts.vcf",
};

std::wstring HostToWindows(const char* hostPath) {
    std::wstring path = L"Z:";
    for (const char* p = hostPath; *p != 0; ++p)
        path += *p == '/' ? L'\\' : static_cast<wchar_t>(*p);
    return path;
}

std::wstring Widen(const char* text) {
    return std::wstring(text, text + lstrlenA(text));
}

/// Runs a command line as it stands (NSIS reads /D= only unquoted) and returns its exit code, or
/// none when it did not start or end in time.
std::optional<DWORD> RunToEnd(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &info)) {
        return std::nullopt;
    }
    return Process(info).WaitExit(kInstallTimeoutMs);
}

std::wstring SetupCommand() {
    return L"\"" + HostToWindows(DD_SETUP) + L"\" /S";
}

Process StartInstalled() {
    std::wstring commandLine = std::wstring(L"\"") + kFolder + L"\\Dialdeck.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, kFolder,
                        &startup, &info)) {
        return Process();
    }
    return Process(info);
}

/// A text of the installed-programs entry; none when the entry or the value is missing.
std::optional<std::wstring> EntryText(const wchar_t* name) {
    wchar_t text[512] = {};
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, kUninstallKey, name, RRF_RT_REG_SZ, nullptr, text,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return std::wstring(text);
}

bool UserKeyExists() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kUserKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

std::filesystem::path Shortcut() {
    wchar_t programs[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_COMMON_PROGRAMS, nullptr, 0, programs);
    return std::filesystem::path(programs) / L"Dialdeck.lnk";
}

/// The program a shortcut starts, in its long form; empty when it cannot be read.
std::wstring ShortcutTarget(const std::filesystem::path& link) {
    std::wstring target;
    IShellLinkW* shellLink = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                reinterpret_cast<void**>(&shellLink)))) {
        return target;
    }
    IPersistFile* file = nullptr;
    if (SUCCEEDED(shellLink->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)))) {
        wchar_t path[MAX_PATH] = {};
        if (SUCCEEDED(file->Load(link.c_str(), STGM_READ)) &&
            SUCCEEDED(shellLink->GetPath(path, MAX_PATH, nullptr, 0))) {
            // A folder the ANSI code page cannot name is given in its short form.
            wchar_t longPath[MAX_PATH] = {};
            target = GetLongPathNameW(path, longPath, MAX_PATH) != 0 ? longPath : path;
        }
        file->Release();
    }
    shellLink->Release();
    return target;
}

/// Waits for the program's board to show and saves a picture of it when a name is given.
HWND SeeBoard(const Process& program, const wchar_t* shotName) {
    HWND board = e2e::WaitForWindowOf(program, e2e::kBoardClass, nullptr, true);
    if (board != nullptr && shotName != nullptr) {
        program.WaitIdle();
        Sleep(300);  // the painting's way to the screen, for the picture only
        shot::Image image;
        EXPECT_TRUE(shot::CaptureClient(board, image));
        EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(shotName).c_str()));
    }
    return board;
}

/// A window of the board's class that will not close, on a thread of its own, standing for a
/// running copy that is stuck.
class StuckBoard {
  public:
    StuckBoard() {
        thread_ = std::thread([this] { Run(); });
        e2e::WaitUntil([this] { return window_ != nullptr; });
    }
    ~StuckBoard() {
        PostMessageW(window_, WM_APP, 0, 0);
        thread_.join();
    }
    StuckBoard(const StuckBoard&) = delete;
    StuckBoard& operator=(const StuckBoard&) = delete;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
        if (message == WM_CLOSE)
            return 0;  // stuck: ignores even the forced close
        if (message == WM_APP) {
            DestroyWindow(window);
            PostQuitMessage(0);
            return 0;
        }
        return DefWindowProcW(window, message, w, l);
    }
    void Run() {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = e2e::kBoardClass;
        RegisterClassW(&windowClass);
        window_ = CreateWindowW(e2e::kBoardClass, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                windowClass.hInstance, nullptr);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        UnregisterClassW(e2e::kBoardClass, windowClass.hInstance);
    }
    std::thread thread_;
    HWND window_ = nullptr;
};

class Installer : public ::testing::Test {
  protected:
    void SetUp() override { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    void TearDown() override {
        for (HWND board : e2e::WindowsOfClass(e2e::kBoardClass))
            PostMessageW(board, WM_CLOSE, kForcedClose, 0);
        CoUninitialize();
    }
};

TEST_F(Installer, InstallsStartsUpgradesAndUninstallsCleanly) {
    const std::filesystem::path folder = kFolder;
    {
        SCOPED_TRACE("a running copy that will not close stops the install, which says why");
        StuckBoard stuck;
        EXPECT_EQ(RunToEnd(SetupCommand() + L" /D=" + kFolder), 2u);
        EXPECT_FALSE(std::filesystem::exists(folder));
    }
    SCOPED_TRACE("install silently, with the demo contacts");
    ASSERT_EQ(RunToEnd(SetupCommand() + L" /DEMO /D=" + kFolder), 0u);
    for (const wchar_t* file : kInstalled)
        EXPECT_TRUE(std::filesystem::is_regular_file(folder / file)) << "missing: " << file;

    EXPECT_EQ(EntryText(L"DisplayName"), L"Dialdeck");
    EXPECT_EQ(EntryText(L"DisplayVersion"), Widen(DD_VERSION_TEXT));
    EXPECT_EQ(EntryText(L"Publisher"), Widen(DD_PUBLISHER));
    EXPECT_EQ(EntryText(L"InstallLocation"), std::wstring(kFolder));
    EXPECT_EQ(EntryText(L"UninstallString"), L"\"" + std::wstring(kFolder) + L"\\Uninstall.exe\"");
    EXPECT_EQ(lstrcmpiW(ShortcutTarget(Shortcut()).c_str(), (folder / L"Dialdeck.exe").c_str()), 0)
        << ShortcutTarget(Shortcut());

    {
        SCOPED_TRACE("start the installed program from its folder");
        Process program = StartInstalled();
        HWND board = SeeBoard(program, L"install-board.png");
        ASSERT_NE(board, nullptr);
        PostMessageW(board, WM_CLOSE, kForcedClose, 0);
        EXPECT_EQ(program.WaitExit(e2e::kStepTimeoutMs), 0u);
    }
    {
        SCOPED_TRACE("start it from the Start-menu shortcut");
        ShellExecuteW(nullptr, L"open", Shortcut().c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        HWND board = probe::WaitForWindow(e2e::kBoardClass, nullptr, e2e::kStepTimeoutMs);
        ASSERT_NE(board, nullptr);
        PostMessageW(board, WM_CLOSE, kForcedClose, 0);
        EXPECT_TRUE(probe::WaitForNoWindow(e2e::kBoardClass, nullptr, e2e::kStepTimeoutMs));
    }
    {
        SCOPED_TRACE("a second install over the running first keeps the user's settings");
        e2e::WriteSetting(L"DdShowBtn", 1);
        Process program = StartInstalled();
        ASSERT_NE(SeeBoard(program, nullptr), nullptr);
        EXPECT_EQ(RunToEnd(SetupCommand() + L" /D=" + kFolder), 0u);
        EXPECT_EQ(program.WaitExit(e2e::kStepTimeoutMs), 0u) << "the running copy was not closed";
        EXPECT_TRUE(std::filesystem::is_regular_file(folder / L"Dialdeck.exe"));
        EXPECT_EQ(e2e::ReadSetting(L"DdShowBtn"), 1u);
    }
    {
        SCOPED_TRACE("uninstall silently while the program runs, the contacts file changed");
        // The person has made the demo contacts their own: the file is theirs now.
        std::ofstream(folder / L"Contacts.vcf", std::ios::app) << "BEGIN:VCARD\r\nEND:VCARD\r\n";
        // And has added a bitmap of their own to the skin.
        const std::filesystem::path ownBitmap = folder / L"DialdeckSkin" / L"small_btn_add.bmp";
        std::filesystem::copy_file(folder / L"DialdeckSkin" / L"big_btn_add.bmp", ownBitmap);
        const auto contactsSize = std::filesystem::file_size(folder / L"Contacts.vcf");
        Process program = StartInstalled();
        ASSERT_NE(SeeBoard(program, nullptr), nullptr);
        const std::wstring uninstall = L"\"" + (folder / L"Uninstall.exe").wstring() + L"\" /S";
        EXPECT_EQ(RunToEnd(uninstall), 0u);
        EXPECT_EQ(program.WaitExit(e2e::kStepTimeoutMs), 0u) << "the running copy was not closed";
        // The uninstaller goes on from a copy of itself; the last file it removes is itself.
        EXPECT_TRUE(
            e2e::WaitUntil([&] { return !std::filesystem::exists(folder / L"Uninstall.exe"); },
                           kInstallTimeoutMs));
        std::error_code ignored;
        for (const auto& left : std::filesystem::recursive_directory_iterator(folder, ignored)) {
            const std::filesystem::path& path = left.path();
            if (path.filename() != L"Contacts.vcf" && path != ownBitmap &&
                path != ownBitmap.parent_path()) {
                ADD_FAILURE() << "left behind: " << path.wstring();
            }
        }
        ASSERT_TRUE(std::filesystem::exists(folder / L"Contacts.vcf"));
        EXPECT_EQ(std::filesystem::file_size(folder / L"Contacts.vcf"), contactsSize);
        EXPECT_TRUE(std::filesystem::exists(ownBitmap));
        EXPECT_FALSE(std::filesystem::exists(Shortcut()));
        EXPECT_FALSE(EntryText(L"DisplayName").has_value());
        EXPECT_TRUE(UserKeyExists());
        EXPECT_EQ(e2e::ReadSetting(L"DdShowBtn"), 1u);
    }
}

}  // namespace
