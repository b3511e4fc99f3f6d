#include "FixtureWindow.h"

FixtureWindow::FixtureWindow(const wchar_t* className, bool answers) : answers_(answers) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass);  // fails harmlessly when an earlier test registered it
    window_ = CreateWindowExW(0, className, L"fixture", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                              windowClass.hInstance, this);
}

FixtureWindow::~FixtureWindow() {
    if (window_ != nullptr)
        DestroyWindow(window_);
}

LRESULT CALLBACK FixtureWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<FixtureWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COPYDATA && self != nullptr) {
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        CopiedData copy;
        copy.dwData = data->dwData;
        copy.cbData = data->cbData;
        const auto* bytes = static_cast<const uint8_t*>(data->lpData);
        if (bytes != nullptr)
            copy.bytes.assign(bytes, bytes + data->cbData);
        self->received_.push_back(copy);
        if (self->answers_)
            return TRUE;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}
