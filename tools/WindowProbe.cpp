#include "WindowProbe.h"

namespace probe {
namespace {

constexpr DWORD kPollMs = 50;
/// The id of a message box's message text.
constexpr int kMessageTextId = 0xFFFF;

HWND FindMatching(const wchar_t* windowClass, const wchar_t* title, bool visibleOnly) {
    HWND window = FindWindowW(windowClass, title);
    if (window != nullptr && visibleOnly && !IsWindowVisible(window))
        return nullptr;
    return window;
}

BOOL CALLBACK FindStaticText(HWND child, LPARAM found) {
    wchar_t className[16] = {};
    GetClassNameW(child, className, 16);
    if (lstrcmpiW(className, L"Static") != 0 || TextOf(child).empty())
        return TRUE;
    *reinterpret_cast<HWND*>(found) = child;
    return FALSE;
}

}  // namespace

HWND WaitForWindow(const wchar_t* windowClass, const wchar_t* title, DWORD timeoutMs,
                   bool visibleOnly) {
    DWORD start = GetTickCount();
    for (;;) {
        HWND window = FindMatching(windowClass, title, visibleOnly);
        if (window != nullptr || GetTickCount() - start >= timeoutMs)
            return window;
        Sleep(kPollMs);
    }
}

bool WaitForNoWindow(const wchar_t* windowClass, const wchar_t* title, DWORD timeoutMs) {
    DWORD start = GetTickCount();
    for (;;) {
        if (FindWindowW(windowClass, title) == nullptr)
            return true;
        if (GetTickCount() - start >= timeoutMs)
            return false;
        Sleep(kPollMs);
    }
}

std::wstring TextOf(HWND window) {
    int n = GetWindowTextLengthW(window);
    std::wstring text(static_cast<size_t>(n) + 1, L'\0');
    n = GetWindowTextW(window, text.data(), n + 1);
    text.resize(static_cast<size_t>(n > 0 ? n : 0));
    return text;
}

std::wstring MessageBoxText(HWND box) {
    HWND text = GetDlgItem(box, kMessageTextId);
    if (text == nullptr)
        EnumChildWindows(box, FindStaticText, reinterpret_cast<LPARAM>(&text));
    return text != nullptr ? TextOf(text) : std::wstring();
}

void PressButton(HWND dialog, int id) {
    HWND button = GetDlgItem(dialog, id);
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

}  // namespace probe
