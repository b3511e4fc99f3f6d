#include "platform/Shell.h"

#include <cstdint>

namespace shell {

bool CreateMenuBar(MenuBarInfo* info) {
    if (info != nullptr)
        info->hwndMB = nullptr;
    return false;
}

bool FullScreen(HWND, DWORD) {
    return true;
}

bool SipPreference(HWND, int) {
    return true;
}

bool SipShowIM(DWORD) {
    return true;
}

bool QuerySipInfo(UINT, UINT, SipInfo*) {
    return false;
}

HWND WithOwnedWindows(HWND window) {
    return reinterpret_cast<HWND>(reinterpret_cast<uintptr_t>(window) | 1);
}

bool SetForeground(HWND window) {
    const auto plain = reinterpret_cast<uintptr_t>(window) & ~static_cast<uintptr_t>(1);
    return SetForegroundWindow(reinterpret_cast<HWND>(plain)) != FALSE;
}

}  // namespace shell
