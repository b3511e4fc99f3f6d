// ddshot: waits for the board window to show, saves a PNG of its client area and, when asked,
// closes the program with a forced close.
//
//   ddshot [--class NAME] [--out FILE.png] [--timeout MS] [--close]
//
// Prints the window's client rectangle on screen, its centre pixel and the saved file's path.
// Exit code: 0 on success, 2 when no visible window appeared in time, 3 when the shot failed.

#include <windows.h>

#include <cstdio>
#include <cwchar>

#include "ScreenShot.h"
#include "WindowProbe.h"

namespace {

constexpr wchar_t kBoardClass[] = L"Orvalis_Dialdeck_Wnd_Class";
constexpr WPARAM kForcedClose = 100;
constexpr DWORD kSettleMs = 500;

struct Options {
    const wchar_t* windowClass = kBoardClass;
    const wchar_t* out = nullptr;
    DWORD timeoutMs = 15000;
    bool close = false;
};

bool Parse(int argc, wchar_t** argv, Options& options) {
    for (int i = 1; i < argc; ++i) {
        bool hasValue = i + 1 < argc;
        if (std::wcscmp(argv[i], L"--class") == 0 && hasValue) {
            options.windowClass = argv[++i];
        } else if (std::wcscmp(argv[i], L"--out") == 0 && hasValue) {
            options.out = argv[++i];
        } else if (std::wcscmp(argv[i], L"--timeout") == 0 && hasValue) {
            options.timeoutMs = static_cast<DWORD>(std::wcstoul(argv[++i], nullptr, 10));
        } else if (std::wcscmp(argv[i], L"--close") == 0) {
            options.close = true;
        } else {
            return false;
        }
    }
    return true;
}

// Lets the program finish painting and the display catch up before the screen is read.
void LetPaintSettle(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &ignored);
    Sleep(kSettleMs);
}

int Shoot(HWND window, const wchar_t* out) {
    LetPaintSettle(window);
    RECT client = shot::ClientOnScreen(window);
    shot::Image image;
    if (!shot::CaptureClient(window, image)) {
        std::fwprintf(stderr, L"ddshot: the screen could not be read\n");
        return 3;
    }
    std::wprintf(L"client %ld,%ld %ldx%ld centre 0x%06lX\n", client.left, client.top,
                 client.right - client.left, client.bottom - client.top,
                 static_cast<unsigned long>(image.At(image.width / 2, image.height / 2)));
    if (out == nullptr)
        return 0;
    if (!shot::SavePng(image, out)) {
        std::fwprintf(stderr, L"ddshot: could not save %ls\n", out);
        return 3;
    }
    std::wprintf(L"saved %ls\n", out);
    return 0;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    Options options;
    if (!Parse(argc, argv, options)) {
        std::fwprintf(stderr,
                      L"usage: ddshot [--class NAME] [--out FILE.png] [--timeout MS] [--close]\n");
        return 1;
    }
    HWND window = probe::WaitForWindow(options.windowClass, nullptr, options.timeoutMs);
    if (window == nullptr) {
        std::fwprintf(stderr, L"ddshot: no visible window of class %ls\n", options.windowClass);
        return 2;
    }
    int result = Shoot(window, options.out);
    if (options.close)
        PostMessageW(window, WM_CLOSE, kForcedClose, 0);
    std::fflush(stdout);
    return result;
}
