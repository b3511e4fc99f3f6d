#pragma once
// The device shell's services, called the device's way. The phone's shell library (soft-key menu
// bars, full-screen control, the input panel) does not exist on desktop Windows; these stand-ins
// keep its calls, records and values so callers read as on the device, and answer the way the
// device answers when a service is absent.

#include <windows.h>

namespace shell {

/// Menu-bar flag: the id names a menu resource.
constexpr DWORD kMenuBarFromMenu = 0x10;
/// Menu-bar message: pass a hardware key to the window instead of acting on it.
constexpr UINT kMenuBarOverrideKey = 0x593;
/// Full-screen control flag: hide the input-panel button for the window.
constexpr DWORD kHideSipButton = 0x8;
/// Input-panel preference: force the panel down.
constexpr int kSipForceDown = 2;
/// Input-panel information: the query code and the setting-change notice that it changed.
constexpr UINT kSipInfoQuery = 225;
constexpr UINT kSipInfoChanged = 224;
/// Input-panel information flag: the panel is shown.
constexpr DWORD kSipShown = 0x1;

/// The menu-bar request (the platform's own record and size).
struct MenuBarInfo {
    DWORD cbSize;
    HWND hwndParent;
    DWORD dwFlags;
    UINT nToolBarId;
    HINSTANCE hInstRes;
    int nBmpId;
    int cBmpImages;
    HWND hwndMB;
    COLORREF clrBk;
};

/// The input-panel information record (the platform's own record and size).
struct SipInfo {
    DWORD cbSize;
    DWORD fdwFlags;
    RECT rcVisibleDesktop;
    RECT rcSipRect;
    DWORD dwImDataSize;
    void* pvImData;
};

/// Creates the soft-key menu bar that info describes and stores it in info->hwndMB; false when
/// none was made. Desktop: there is no shell menu bar, so none is made.
bool CreateMenuBar(MenuBarInfo* info);
/// Shows or hides shell parts (flags) for a window. Desktop: nothing to hide; true.
bool FullScreen(HWND window, DWORD flags);
/// Sets a window's input-panel preference. Desktop: there is no input panel; true.
bool SipPreference(HWND window, int request);
/// Shows or hides the input panel. Desktop: there is no input panel; true.
bool SipShowIM(DWORD flags);
/// Fills info for action kSipInfoQuery. Desktop: there is no input panel to report; false.
bool QuerySipInfo(UINT action, UINT param, SipInfo* info);

/// The handle that asks SetForeground for a window together with the windows it owns: the
/// window's handle with its lowest bit set.
HWND WithOwnedWindows(HWND window);

/// Brings a window to the front. A handle with its lowest bit set (WithOwnedWindows) brings the
/// windows it owns along; desktop Windows raises owned windows with their owner anyway, so the
/// stand-in clears the bit and raises the window.
bool SetForeground(HWND window);

}  // namespace shell
