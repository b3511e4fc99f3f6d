#include "BoardDriver.h"

#include <fstream>
#include <utility>

namespace e2e {
namespace {

constexpr wchar_t kSettingsPath[] = L"Software\\Orvalis\\PIM\\Settings";

// A build path (a host path under Wine's Z: drive) as a Windows path.
std::wstring HostToWindows(const char* hostPath) {
    std::wstring path = L"Z:";
    for (const char* p = hostPath; *p != 0; ++p)
        path += *p == '/' ? L'\\' : static_cast<wchar_t>(*p);
    return path;
}

std::filesystem::path BinaryDir() {
    return HostToWindows(DD_BIN_DIR);
}

void Copy(const wchar_t* name, const std::filesystem::path& to) {
    std::filesystem::copy_file(BinaryDir() / name, to / name,
                               std::filesystem::copy_options::overwrite_existing);
}

struct Search {
    DWORD processId;
    const wchar_t* windowClass;
    const wchar_t* title;
    bool visibleOnly;
    HWND found;
};

BOOL CALLBACK MatchWindow(HWND window, LPARAM param) {
    auto* search = reinterpret_cast<Search*>(param);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != search->processId)
        return TRUE;
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (lstrcmpW(name, search->windowClass) != 0)
        return TRUE;
    if (search->title != nullptr) {
        wchar_t text[64] = {};
        GetWindowTextW(window, text, 64);
        if (lstrcmpW(text, search->title) != 0)
            return TRUE;
    }
    if (search->visibleOnly && !IsWindowVisible(window))
        return TRUE;
    search->found = window;
    return FALSE;
}

struct ClassList {
    const wchar_t* windowClass;
    std::vector<HWND> windows;
};

BOOL CALLBACK CollectWindow(HWND window, LPARAM param) {
    auto* list = reinterpret_cast<ClassList*>(param);
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    if (lstrcmpW(name, list->windowClass) == 0)
        list->windows.push_back(window);
    return TRUE;
}

}  // namespace

Process::~Process() {
    Terminate();
}

Process::Process(Process&& other) noexcept : info_(std::exchange(other.info_, {})) {}

Process& Process::operator=(Process&& other) noexcept {
    if (this != &other) {
        Terminate();
        info_ = std::exchange(other.info_, {});
    }
    return *this;
}

std::optional<DWORD> Process::WaitExit(DWORD timeoutMs) const {
    if (!Started() || WaitForSingleObject(info_.hProcess, timeoutMs) != WAIT_OBJECT_0) {
        return std::nullopt;
    }
    DWORD code = 0;
    GetExitCodeProcess(info_.hProcess, &code);
    return code;
}

bool Process::IsRunning() const {
    return Started() && WaitForSingleObject(info_.hProcess, 0) == WAIT_TIMEOUT;
}

bool Process::WaitIdle() const {
    return Started() && WaitForInputIdle(info_.hProcess, kStepTimeoutMs) == 0;
}

void Process::Terminate() {
    if (!Started())
        return;
    if (IsRunning()) {
        TerminateProcess(info_.hProcess, 99);
        WaitForSingleObject(info_.hProcess, kStepTimeoutMs);
    }
    CloseHandle(info_.hThread);
    CloseHandle(info_.hProcess);
    info_ = {};
}

Sandbox::Sandbox(const Contents& contents) {
    static int counter = 0;
    folder_ =
        std::filesystem::temp_directory_path() /
        (L"dd-e2e-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    Copy(L"Dialdeck.exe", folder_);
    if (contents.normalLibrary)
        Copy(L"DialdeckRes.dll", folder_);
    if (contents.vgaLibrary)
        Copy(L"DialdeckResVga.dll", folder_);
    if (contents.skinFolder)
        std::filesystem::create_directories(folder_ / L"DialdeckSkin");
    if (contents.searchService)
        Copy(L"OrvalisPimServ.dll", folder_);
    if (contents.contacts != nullptr) {
        std::ofstream file(folder_ / L"Contacts.vcf", std::ios::binary);
        file << contents.contacts;
    }
}

bool Sandbox::AddFixture(const wchar_t* fixture) {
    const std::filesystem::path from =
        std::filesystem::path(HostToWindows(DD_FIXTURE_BIN)) / fixture;
    std::error_code error;
    std::filesystem::copy_file(from, folder_ / from.filename(),
                               std::filesystem::copy_options::overwrite_existing, error);
    return !error;
}

Sandbox::~Sandbox() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

Process Sandbox::Start(const std::wstring& arguments, const wchar_t* profile) {
    std::wstring program = (folder_ / L"Dialdeck.exe").wstring();
    std::wstring commandLine = L"\"" + program + L"\"";
    if (!arguments.empty())
        commandLine += L" " + arguments;
    SetEnvironmentVariableW(L"DIALDECK_PROFILE", profile);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info{};
    BOOL started = CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0,
                                  nullptr, folder_.wstring().c_str(), &startup, &info);
    SetEnvironmentVariableW(L"DIALDECK_PROFILE", nullptr);
    return started ? Process(info) : Process();
}

void CleanRegistry() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvalis");
}

void WriteSetting(const wchar_t* name, DWORD value) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsPath, 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                        nullptr) != ERROR_SUCCESS) {
        return;
    }
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
    RegCloseKey(key);
}

std::optional<DWORD> ReadSetting(const wchar_t* name) {
    DWORD value = 0;
    DWORD size = sizeof(value);
    if (RegGetValueW(HKEY_CURRENT_USER, kSettingsPath, name, RRF_RT_REG_DWORD, nullptr, &value,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

HWND WaitForWindowOf(const Process& process, const wchar_t* windowClass, const wchar_t* title,
                     bool visibleOnly, DWORD timeoutMs) {
    HWND found = nullptr;
    WaitUntil(
        [&] {
            Search search{process.Id(), windowClass, title, visibleOnly, nullptr};
            EnumWindows(MatchWindow, reinterpret_cast<LPARAM>(&search));
            found = search.found;
            return found != nullptr;
        },
        timeoutMs);
    return found;
}

std::vector<HWND> WindowsOfClass(const wchar_t* windowClass) {
    ClassList list{windowClass, {}};
    EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&list));
    return list.windows;
}

std::wstring ScreenshotPath(const wchar_t* name) {
    std::filesystem::path folder = HostToWindows(DD_SCREENSHOT_DIR);
    std::filesystem::create_directories(folder);
    return (folder / name).wstring();
}

}  // namespace e2e
