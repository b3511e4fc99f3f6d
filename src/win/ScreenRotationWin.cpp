#include "win/ScreenRotation.h"

#include <vector>

#include "base/ScreenInfo.h"
#include "platform/DeviceProfile.h"

namespace {

RECT WorkAreaOf(const device::Profile& profile) {
    return RECT{0, BarHeight(), profile.width, profile.height};
}

std::vector<HWND> ThreadWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace

bool IsRotationKey(const MSG& msg) {
    return msg.message == WM_KEYDOWN && msg.wParam == kRotationKey;
}

void RotateScreen() {
    const RECT before = WorkAreaOf(device::CurrentProfile());
    device::SetCurrentProfile(device::Rotated(device::CurrentProfile()));
    const RECT after = WorkAreaOf(device::CurrentProfile());
    const std::vector<HWND> windows = ThreadWindows();
    for (HWND window : windows) {
        RECT at{};
        if (GetWindowRect(window, &at) && EqualRect(&at, &before)) {
            SetWindowPos(window, nullptr, after.left, after.top, after.right - after.left,
                         after.bottom - after.top, SWP_NOZORDER | SWP_NOACTIVATE);
        }
    }
    for (HWND window : windows)
        SendMessageW(window, WM_SETTINGCHANGE, kScreenChangedNotice, 0);
}
