#include "platform/Shell.h"

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

bool SetForegroundWithOwned(HWND window) {
    return SetForegroundWindow(window) != FALSE;
}

}  // namespace shell
