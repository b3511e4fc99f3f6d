#include "testing/WindowTestKit.h"

#include <filesystem>

namespace {

constexpr wchar_t kParentClass[] = L"DdTestCommandParent";

// The one watch's state: a hook procedure has no object of its own.
HWND gWatched = nullptr;
int gSlot = 0;
LONG_PTR gSlotValue = -1;

}  // namespace

CommandParent::CommandParent(int width, int height) {
    WNDCLASSW wc{};
    wc.lpfnWndProc = &CommandParent::Proc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = kParentClass;
    RegisterClassW(&wc);
    hwnd_ = CreateWindowExW(0, kParentClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, width, height,
                            nullptr, nullptr, wc.hInstance, this);
}

CommandParent::~CommandParent() {
    DestroyWindow(hwnd_);
}

LRESULT CALLBACK CommandParent::Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* created = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created->lpCreateParams));
    }
    auto* parent = reinterpret_cast<CommandParent*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (message == WM_COMMAND && parent != nullptr) {
        if (parent->onCommand != nullptr)
            parent->onCommand(wParam);
        parent->commands_.push_back(wParam);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

shot::Image PrintClient(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    shot::Canvas canvas(client.right, client.bottom);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.Dc()), PRF_CLIENT);
    return canvas.Snapshot();
}

std::wstring SaveShot(const shot::Image& image, const std::wstring& name) {
    std::wstring folder;
    if (const wchar_t* dir = _wgetenv(L"DD_SCREENSHOT_DIR")) {
        folder = dir;
    } else {
        const std::string built = DD_SCREENSHOT_DIR;
        folder.assign(built.begin(), built.end());
    }
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    const std::wstring path = folder + L"/" + name + L".png";
    return shot::SavePng(image, path.c_str()) ? path : std::wstring();
}

LastMessageWatch::LastMessageWatch(HWND window, int slot) {
    gWatched = window;
    gSlot = slot;
    gSlotValue = -1;
    hook_ =
        SetWindowsHookExW(WH_CALLWNDPROC, &LastMessageWatch::Hook, nullptr, GetCurrentThreadId());
}

LastMessageWatch::~LastMessageWatch() {
    if (hook_ != nullptr)
        UnhookWindowsHookEx(hook_);
    gWatched = nullptr;
}

void LastMessageWatch::Watch(HWND window) {
    gWatched = window;
}

LONG_PTR LastMessageWatch::SlotAtLastMessage() const {
    return gSlotValue;
}

LRESULT CALLBACK LastMessageWatch::Hook(int code, WPARAM wParam, LPARAM lParam) {
    const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent->hwnd == gWatched && sent->message == WM_NCDESTROY)
        gSlotValue = GetWindowLongPtrW(sent->hwnd, gSlot);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
