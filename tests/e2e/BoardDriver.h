#pragma once
// Drives the real Dialdeck.exe under Wine: a sandbox folder on the Windows drive holding a copy
// of the program with the chosen resource libraries (and skin folder), a clean registry, and the
// program's processes, which the sandbox ends and removes when the test is over.

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace e2e {

/// The board window's class and the error box's caption.
constexpr wchar_t kBoardClass[] = L"Orvalis_Dialdeck_Wnd_Class";
constexpr wchar_t kErrorCaption[] = L"Error";
/// How long a step may take before the test gives up on it.
constexpr DWORD kStepTimeoutMs = 20000;
/// How often a waiting step looks again.
constexpr DWORD kPollMs = 50;

/// Asks `done()` until it is true (then true) or `timeoutMs` has passed (then false).
template <typename Condition>
bool WaitUntil(Condition done, DWORD timeoutMs = kStepTimeoutMs) {
    const DWORD start = GetTickCount();
    for (;;) {
        if (done())
            return true;
        if (GetTickCount() - start >= timeoutMs)
            return false;
        Sleep(kPollMs);
    }
}

/// What the sandbox holds beside the program.
struct Contents {
    bool normalLibrary = false;      ///< DialdeckRes.dll
    bool vgaLibrary = false;         ///< DialdeckResVga.dll
    bool skinFolder = false;         ///< an empty DialdeckSkin folder
    bool searchService = false;      ///< OrvalisPimServ.dll, the contacts search service
    const char* contacts = nullptr;  ///< written to Contacts.vcf when given (UTF-8 vCard text)
};

/// One started program.
class Process {
  public:
    Process() = default;
    explicit Process(const PROCESS_INFORMATION& info) : info_(info) {}
    ~Process();
    Process(Process&& other) noexcept;
    Process& operator=(Process&& other) noexcept;
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool Started() const { return info_.hProcess != nullptr; }
    DWORD Id() const { return info_.dwProcessId; }
    /// The exit code once the process ends within timeoutMs; none while it still runs.
    std::optional<DWORD> WaitExit(DWORD timeoutMs) const;
    bool IsRunning() const;
    /// Waits until the program waits for input (start-up done).
    bool WaitIdle() const;
    /// Ends the process if it still runs.
    void Terminate();

  private:
    PROCESS_INFORMATION info_{};
};

class Sandbox {
  public:
    explicit Sandbox(const Contents& contents);
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    /// Starts the copied program with `arguments` after the program name and one blank (none
    /// when empty) on the emulated screen `profile`, working in the sandbox folder.
    Process Start(const std::wstring& arguments, const wchar_t* profile = L"480x640@192");
    const std::filesystem::path& Folder() const { return folder_; }
    /// Puts the built fixture file `fixture` (a path below the fixtures' build folder) beside
    /// the copied program, where the program finds the device's piece it stands for.
    bool AddFixture(const wchar_t* fixture);

  private:
    std::filesystem::path folder_;
};

/// Deletes HKEY_CURRENT_USER\Software\Orvalis with everything below it.
void CleanRegistry();
/// Sets a number in the program's "Settings" key.
void WriteSetting(const wchar_t* name, DWORD value);
/// Reads a number of the program's "Settings" key; none when missing.
std::optional<DWORD> ReadSetting(const wchar_t* name);

/// The top-level window of the class that belongs to the process, waiting up to timeoutMs for
/// it to exist (and, when visibleOnly, to be visible); null when there is none.
HWND WaitForWindowOf(const Process& process, const wchar_t* windowClass, const wchar_t* title,
                     bool visibleOnly, DWORD timeoutMs = kStepTimeoutMs);
/// Every top-level window of the class, of any process.
std::vector<HWND> WindowsOfClass(const wchar_t* windowClass);
/// Where the end-to-end screenshots go (build/screenshots), as a Windows path.
std::wstring ScreenshotPath(const wchar_t* name);

}  // namespace e2e
