#include "view/BoardWindow.h"

#include "app/ResourceIds.h"
#include "app/ScreenInfo.h"
#include "base/File.h"
#include "base/Module.h"
#include "base/SettingsStore.h"
#include "platform/DeviceScreen.h"
#include "platform/Gdi.h"
#include "platform/Shell.h"

namespace {

/// Present on phones that can send text messages; the Talk key is then the board's own.
constexpr char16_t kMessagingLibrary[] = u"\\windows\\sms.dll";
constexpr WPARAM kTalkKey = 0x72;
/// Override-key answer: no default action, notify the window.
constexpr WORD kTalkKeyToWindow = 3;
/// Window styles the desktop adds to an overlapped window and the device never draws.
constexpr LONG_PTR kDesktopFrame =
    WS_CAPTION | WS_THICKFRAME | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

bool PhoneCanMessage() {
    return file::Exists(kMessagingLibrary);
}

}  // namespace

BoardWindow::~BoardWindow() = default;

bool BoardWindow::Create(bool preload) {
    if (hwnd_ != nullptr)
        return true;
    ReadOptions();
    Register(kBoardWindowClass, kRedrawOnResize, nullptr,
             static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    preload_ = preload;
    if (!CreateFrame())
        return false;
    CreateMenuBar();
    HideInputPanel();
    OverrideTalkKey();
    return true;
}

void BoardWindow::ReadOptions() {
    showDialerButton_ = settings::Read(settings::kShowDialerButton) != 0;
    showPhoneType_ = settings::Read(settings::kShowPhoneType) != 0;
}

bool BoardWindow::CreateFrame() {
    if (preload_)
        settings::WriteNumber(settings::kSettingsKey, settings::kCreatingHidden, 1);
    int top = BarHeight();
    WndBase::Create(0, kBoardWindowTitle, WS_VISIBLE, 0, top, device::SystemMetrics(SM_CXSCREEN),
                    device::SystemMetrics(SM_CYSCREEN) - top, nullptr);
    if (preload_)
        settings::WriteNumber(settings::kSettingsKey, settings::kCreatingHidden, 0);
    if (hwnd_ == nullptr)
        return false;
    RemoveDesktopFrame();
    if (preload_)
        ShowWindow(hwnd_, SW_HIDE);
    return true;
}

// Desktop Windows gives every overlapped window a caption; the device's board has none, and its
// client area is the whole window.
void BoardWindow::RemoveDesktopFrame() {
    LONG_PTR style = GetWindowLongPtrW(hwnd_, GWL_STYLE);
    SetWindowLongPtrW(hwnd_, GWL_STYLE, style & ~kDesktopFrame);
    SetWindowPos(hwnd_, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The board paints its own soft-key bar; the shell's menu bar only has to exist, out of sight.
void BoardWindow::CreateMenuBar() {
    shell::MenuBarInfo info{};
    info.cbSize = sizeof(info);
    info.hwndParent = hwnd_;
    info.dwFlags = shell::kMenuBarFromMenu;
    info.nToolBarId = IDR_SOFTKEYS;
    info.hInstRes = static_cast<HINSTANCE>(ProgramModule());
    if (!shell::CreateMenuBar(&info))
        return;
    menuBar_ = info.hwndMB;
    SetWindowPos(menuBar_, nullptr, 0, 0, 0, 0, SWP_NOZORDER | SWP_NOREDRAW);
}

void BoardWindow::HideInputPanel() {
    shell::FullScreen(hwnd_, shell::kHideSipButton);
    shell::SipPreference(hwnd_, shell::kSipForceDown);
}

void BoardWindow::OverrideTalkKey() {
    if (menuBar_ == nullptr || !PhoneCanMessage())
        return;
    talkKeyDefault_ = SendMessageW(menuBar_, shell::kMenuBarOverrideKey, kTalkKey,
                                   MAKELPARAM(kTalkKeyToWindow, kTalkKeyToWindow));
}

void BoardWindow::RestoreTalkKey() {
    if (menuBar_ == nullptr || !PhoneCanMessage())
        return;
    WORD kept = static_cast<WORD>(talkKeyDefault_);
    SendMessageW(menuBar_, shell::kMenuBarOverrideKey, kTalkKey, MAKELPARAM(kept, kept));
}

void BoardWindow::Close(bool forced) {
    if (!forced && settings::Read(settings::kModPreload) != 0) {
        ShowWindow(hwnd_, SW_HIDE);
        return;
    }
    RestoreTalkKey();
    PostQuitMessage(0);
}

void BoardWindow::Paint(HDC dc, const RECT& rect) {
    gdi::FillSolid(dc, rect, background_);
}

LRESULT BoardWindow::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            return OnCreate();
        case WM_DESTROY:
            return OnDestroy();
        case WM_PAINT:
            return OnPaint();
        case WM_PRINTCLIENT:
            return OnPrintClient(reinterpret_cast<HDC>(wParam));
        case WM_CLOSE:
            return OnClose(wParam);
        case WM_ERASEBKGND:
            return 1;
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT BoardWindow::OnCreate() {
    if (preload_)
        ShowWindow(hwnd_, SW_HIDE);
    return 0;
}

LRESULT BoardWindow::OnDestroy() {
    if (menuBar_ != nullptr)
        DestroyWindow(menuBar_);
    menuBar_ = nullptr;
    return 0;
}

LRESULT BoardWindow::OnPaint() {
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd_, &ps);
    RECT client;
    GetClientRect(hwnd_, &client);
    gdi::OffscreenBuffer buffer(dc, client);
    Paint(buffer.Dc(), client);
    buffer.Present();
    EndPaint(hwnd_, &ps);
    return 0;
}

LRESULT BoardWindow::OnPrintClient(HDC dc) {
    RECT client;
    GetClientRect(hwnd_, &client);
    Paint(dc, client);
    return 0;
}

LRESULT BoardWindow::OnClose(WPARAM wParam) {
    Close(wParam == kForcedCloseCode);
    return 0;
}
