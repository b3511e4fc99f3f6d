// The program's entry point: a single instance, the screen, the resources, the board window and
// the message loop, in that order.

#include <windows.h>

#include <commctrl.h>

#include "app/ScreenDevice.h"
#include "app/StartupRules.h"
#include "base/Alert.h"
#include "base/File.h"
#include "base/Module.h"
#include "base/ResourcePlace.h"
#include "base/ScreenInfo.h"
#include "contacts/ContactsPlatformWin.h"
#include "contacts/SearchServiceClientWin.h"
#include "phone/ButtonFeedback.h"
#include "platform/Shell.h"
#include "view/BoardWindow.h"
#include "win/ScreenRotation.h"
#include "win/WideCast.h"

namespace {

constexpr int kFailureExitCode = 1;
constexpr int kModulePathChars = 260;
/// The window-style bit the board sets while it is hidden.
constexpr DWORD kHiddenMarker = 0x80000000;

// A running copy keeps its board window; raise it instead of starting again.
bool RaiseRunningCopy() {
    HWND running = FindWindowW(kBoardWindowClass, nullptr);
    if (running == nullptr)
        return false;
    DWORD style = static_cast<DWORD>(GetWindowLongW(running, GWL_STYLE));
    SetWindowLongW(running, GWL_STYLE, static_cast<LONG>(style & ~kHiddenMarker));
    shell::SetForeground(shell::WithOwnedWindows(running));
    return true;
}

Str ProgramSkinFolder() {
    char16_t path[kModulePathChars + 1] = {};
    if (ModuleFileName(ProgramModule(), path, kModulePathChars + 1) == 0)
        return Str();
    return SkinFolderFor(path);
}

// The texts and bitmaps come from the resource library; without it, the skin folder alone will do.
bool OpenResources(ResourcePlace& place) {
    place.skinFolder = ProgramSkinFolder();
    HMODULE library = LoadLibraryExW(W(ResourceLibraryName(Screen().hiRes != 0)), nullptr,
                                     LOAD_LIBRARY_AS_DATAFILE);
    place.library = library;
    if (library != nullptr) {
        SetResourceModule(library);
        return true;
    }
    return file::Exists(place.skinFolder);
}

int RunMessageLoop() {
    MSG msg{};
    while (GetMessageW(&msg, nullptr, 0, 0) > 0) {
        if (IsRotationKey(msg)) {
            RotateScreen();
            continue;
        }
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    return static_cast<int>(msg.wParam);
}

int RunBoard(const char16_t* commandLine) {
    // The contacts database and the search service of this machine, before anything reads them.
    InstallWinContactsPlatform();
    InstallWinServiceCalls();
    BoardWindow board;
    if (RaiseRunningCopy())
        return kFailureExitCode;
    InitCommonControls();
    ScreenDcLease screenDc;
    MeasureScreen(screenDc.get());
    if (!OpenResources(TheResourcePlace())) {
        ShowAlert(u"Failed to load skin !", u"Error", kAlertOk);
        return kFailureExitCode;
    }
    if (!board.Create(IsPreloadCommandLine(commandLine)))
        return kFailureExitCode;
    const int exitCode = RunMessageLoop();
    // The vibration worker ends with the board, after any pulse still queued for it.
    feedback::StopFeedback();
    return exitCode;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return RunBoard(CommandLineArguments(U(GetCommandLineW())));
}
