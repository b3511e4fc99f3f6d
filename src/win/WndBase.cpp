#include "win/WndBase.h"

#include "base/Module.h"
#include "base/ScreenInfo.h"
#include "platform/Shell.h"
#include "win/WideCast.h"

namespace {

HINSTANCE ProgramInstance() {
    return static_cast<HINSTANCE>(ProgramModule());
}

WndBase* AttachedObject(HWND hwnd) {
    return reinterpret_cast<WndBase*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
}

}  // namespace

WndBase::~WndBase() {
    if (hwnd_ == nullptr || !IsWindow(hwnd_))
        return;
    // The derived parts are gone: detach first, so the window's last messages (and any that
    // come later, such as WM_NCDESTROY after a `delete this` in WM_DESTROY) never reach them.
    HWND hwnd = hwnd_;
    hwnd_ = nullptr;
    if (AttachedObject(hwnd) == this)
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
    DestroyWindow(hwnd);
}

LRESULT WndBase::WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

void WndBase::OnSettingChange(WPARAM wParam, LPARAM) {
    if (wParam == shell::kSipInfoChanged)
        FitToDesktop();
}

void WndBase::OnActivate(WPARAM wParam, LPARAM) {
    if (LOWORD(wParam) != WA_INACTIVE)
        FitToDesktop();
}

void WndBase::FitToDesktop() {
    if (fitToDesktop_ == 0 || hwnd_ == nullptr || !IsWindow(hwnd_))
        return;
    shell::SipInfo info{};
    info.cbSize = sizeof(info);
    if (!shell::QuerySipInfo(shell::kSipInfoQuery, 0, &info))
        return;
    const RECT& desktop = info.rcVisibleDesktop;
    int height = desktop.bottom - desktop.top;
    if ((info.fdwFlags & shell::kSipShown) == 0)
        height -= BarHeight();
    MoveWindow(hwnd_, desktop.left, desktop.top, desktop.right - desktop.left, height, FALSE);
    InvalidateRect(hwnd_, nullptr, TRUE);
}

bool WndBase::Register(const wchar_t* className, UINT classStyle, HICON icon, HBRUSH background) {
    if (hwnd_ != nullptr)
        return false;
    WNDCLASSW wc{};
    wc.style = classStyle;
    wc.lpfnWndProc = &WndBase::StaticWndProc;
    wc.hInstance = ProgramInstance();
    wc.hIcon = icon;
    wc.hbrBackground = background;
    wc.lpszClassName = className;
    bool registered = RegisterClassW(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
    className_ = U(className);
    return registered;
}

HWND WndBase::Create(DWORD, const wchar_t* title, DWORD style, int x, int y, int width, int height,
                     HWND parent) {
    if (className_.IsEmpty()) {
        Register(kDefaultWindowClass, kRedrawOnResize, nullptr,
                 static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    return CreateWindowExW(0, W(className_.c_str()), title, style, x, y, width, height, parent,
                           nullptr, ProgramInstance(), this);
}

LRESULT CALLBACK WndBase::StaticWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    WndBase* object = AttachedObject(hwnd);
    if (object == nullptr) {
        if (message != WM_NCCREATE)
            return DefWindowProcW(hwnd, message, wParam, lParam);
        // The first message of a window: from here on every message reaches the object.
        object = static_cast<WndBase*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        if (object == nullptr)
            return DefWindowProcW(hwnd, message, wParam, lParam);
        object->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
        return object->WndProc(hwnd, message, wParam, lParam);
    }
    switch (message) {
        case WM_DESTROY: {
            LRESULT result = object->WndProc(hwnd, message, wParam, lParam);
            // A one-use window may have deleted its object in WM_DESTROY (its destructor
            // detached it): only a still-attached object may be touched.
            if (AttachedObject(hwnd) == object)
                object->hwnd_ = nullptr;
            return result;
        }
        case WM_NCDESTROY:
            // The window's last message: no later one may find the object.
            SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
            object->hwnd_ = nullptr;
            return object->WndProc(hwnd, message, wParam, lParam);
        case WM_ACTIVATE:
            object->OnActivate(wParam, lParam);
            break;
        case WM_SETTINGCHANGE:
            object->OnSettingChange(wParam, lParam);
            break;
        default:
            break;
    }
    return object->WndProc(hwnd, message, wParam, lParam);
}
