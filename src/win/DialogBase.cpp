#include "win/DialogBase.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/Module.h"
#include "base/ScreenInfo.h"
#include "platform/DeviceScreen.h"

namespace {

// Code given by the base for the OK and Cancel commands.
constexpr int kOkCode = 1;
constexpr int kCancelCode = 2;

// The desktop's frame parts that a full-screen dialog on the device does not have.
constexpr LONG_PTR kDesktopFrame = WS_CAPTION | WS_THICKFRAME | WS_SYSMENU;
constexpr LONG_PTR kDesktopFrameEx =
    WS_EX_DLGMODALFRAME | WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;

// The object whose dialog is being created: the dialog procedure sees WM_SETFONT before
// WM_INITDIALOG brings the creation parameter, and those messages must reach the object too.
thread_local DialogBase* tCreating = nullptr;

// The thread's open dialogs, for RouteDialogMessage.
std::vector<DialogBase*>& OpenDialogs() {
    thread_local std::vector<DialogBase*> open;
    return open;
}

DialogBase* AttachedObject(HWND hwnd) {
    return reinterpret_cast<DialogBase*>(GetWindowLongPtrW(hwnd, DWLP_USER));
}

}  // namespace

DialogBase::DialogBase(int templateId, uint32_t softKeysMenu)
    : templateId_(templateId), softKeysMenu_(softKeysMenu) {}

DialogBase::~DialogBase() {
    HWND hwnd = hwnd_;
    Detach();
    // During WM_DESTROY the window is already on its way; destroying it again would recurse.
    if (hwnd != nullptr && !destroying_ && IsWindow(hwnd))
        DestroyWindow(hwnd);
}

void DialogBase::Detach() {
    if (hwnd_ != nullptr && AttachedObject(hwnd_) == this)
        SetWindowLongPtrW(hwnd_, DWLP_USER, 0);
    hwnd_ = nullptr;
    std::erase(OpenDialogs(), this);
}

HWND DialogBase::CreateWindowFromTemplate(HWND owner) {
    auto module = static_cast<HMODULE>(ProgramModule());
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(templateId_), RT_DIALOG);
    HGLOBAL loaded = found != nullptr ? LoadResource(module, found) : nullptr;
    auto* dialogTemplate =
        loaded != nullptr ? static_cast<const DLGTEMPLATE*>(LockResource(loaded)) : nullptr;
    if (dialogTemplate == nullptr)
        return nullptr;
    endCode_ = 0;
    ended_ = false;
    destroying_ = false;
    tCreating = this;
    HWND hwnd = CreateDialogIndirectParamW(
        module, dialogTemplate, owner, &DialogBase::StaticDlgProc, reinterpret_cast<LPARAM>(this));
    tCreating = nullptr;
    return hwnd;
}

int DialogBase::RunModal(HWND owner) {
    if (hwnd_ != nullptr)
        return -1;
    modal_ = true;
    if (CreateWindowFromTemplate(owner) == nullptr || hwnd_ == nullptr) {
        // No template, or the window went away while it was being made.
        modal_ = false;
        return -1;
    }
    // The owner (its top-level window, as the system takes it) stays disabled while the dialog
    // runs, as with the system's own modal dialogs.
    HWND disabled = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    if (disabled != nullptr && IsWindowEnabled(disabled))
        EnableWindow(disabled, FALSE);
    else
        disabled = nullptr;
    if (!ended_)
        ShowWindow(hwnd_, SW_SHOW);

    MSG msg;
    while (!ended_ && hwnd_ != nullptr) {
        BOOL got = GetMessageW(&msg, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            break;
        }
        if (got == -1)
            break;
        if (!RouteDialogMessage(msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }

    // Enabled before the dialog goes, so that activation returns to the owner and not to
    // whichever window comes next.
    if (disabled != nullptr)
        EnableWindow(disabled, TRUE);
    if (hwnd_ != nullptr)
        DestroyWindow(hwnd_);
    modal_ = false;
    return ended_ ? endCode_ : 0;
}

HWND DialogBase::CreateModeless(HWND owner, bool show) {
    if (hwnd_ != nullptr)
        return nullptr;
    modal_ = false;
    HWND hwnd = CreateWindowFromTemplate(owner);
    if (hwnd == nullptr || hwnd_ == nullptr)
        return nullptr;
    if (show) {
        ShowWindow(hwnd, SW_SHOW);
        UpdateWindow(hwnd);
    }
    return hwnd;
}

void DialogBase::End(int code) {
    endCode_ = code;
    ended_ = true;
    if (hwnd_ == nullptr)
        return;
    if (modal_) {
        // Wakes the loop should End come from outside a message it dispatched.
        PostMessageW(hwnd_, WM_NULL, 0, 0);
        return;
    }
    DestroyWindow(hwnd_);
}

Rect DialogBase::FullScreenAreaOf(int width, int height, int dpiY) {
    const int bar = BarHeightAt(dpiY);
    return Rect{0, bar, width, height};
}

Rect DialogBase::FullScreenArea() {
    return FullScreenAreaOf(device::SystemMetrics(SM_CXSCREEN), device::SystemMetrics(SM_CYSCREEN),
                            Screen().dpiY);
}

Rect DialogBase::ContentArea() const {
    Rect band = SoftKeyArea();
    return Rect{band.left, 0, band.right, band.top};
}

Rect DialogBase::SoftKeyArea() const {
    RECT client{};
    if (hwnd_ != nullptr)
        GetClientRect(hwnd_, &client);
    const int top = std::max<int>(client.top, client.bottom - BarHeight());
    return Rect{client.left, top, client.right, client.bottom};
}

bool DialogBase::RouteDialogMessage(MSG& msg) {
    if (msg.hwnd == nullptr)
        return false;
    HWND root = GetAncestor(msg.hwnd, GA_ROOT);
    for (DialogBase* dialog : OpenDialogs()) {
        if (dialog->hwnd_ == root)
            return IsDialogMessageW(root, &msg) != FALSE;
    }
    return false;
}

INT_PTR DialogBase::DlgProc(HWND, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            PlaceFullScreen();
            if (softKeysMenu_ != 0)
                softKeys_.Create(hwnd_, softKeysMenu_);
            return OnInitDialog(reinterpret_cast<HWND>(wParam)) ? TRUE : FALSE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam))
                       ? TRUE
                       : FALSE;
        case WM_SIZE:
            OnSize(LOWORD(lParam), HIWORD(lParam));
            return TRUE;
        case WM_DESTROY:
            OnDestroy();
            return FALSE;
        default:
            return FALSE;
    }
}

bool DialogBase::OnInitDialog(HWND) {
    return true;
}

bool DialogBase::OnCommand(int id, int, HWND) {
    switch (id) {
        case IDOK:
            End(kOkCode);
            return true;
        case IDCANCEL:
            End(kCancelCode);
            return true;
        default:
            return false;
    }
}

void DialogBase::OnSize(int, int) {
    if (softKeys_.Hwnd() != nullptr)
        softKeys_.Place();
}

void DialogBase::OnDestroy() {}

void DialogBase::TakeOwnerCaption() {
    HWND owner = hwnd_ != nullptr ? GetWindow(hwnd_, GW_OWNER) : nullptr;
    HWND top = owner != nullptr ? GetAncestor(owner, GA_ROOTOWNER) : nullptr;
    if (top == nullptr)
        return;
    std::wstring caption(static_cast<size_t>(GetWindowTextLengthW(top)) + 1, L'\0');
    int length = GetWindowTextW(top, caption.data(), static_cast<int>(caption.size()));
    caption.resize(static_cast<size_t>(std::max(length, 0)));
    SetWindowTextW(hwnd_, caption.c_str());
}

// The device's shell sizes a full-screen dialog to the area below the top bar and draws its
// caption there; the desktop's frame would take that height from the dialog's client area.
void DialogBase::PlaceFullScreen() {
    LONG_PTR style = GetWindowLongPtrW(hwnd_, GWL_STYLE);
    SetWindowLongPtrW(hwnd_, GWL_STYLE, style & ~kDesktopFrame);
    LONG_PTR exStyle = GetWindowLongPtrW(hwnd_, GWL_EXSTYLE);
    SetWindowLongPtrW(hwnd_, GWL_EXSTYLE, exStyle & ~kDesktopFrameEx);
    Rect area = FullScreenArea();
    SetWindowPos(hwnd_, nullptr, area.left, area.top, area.Width(), area.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

INT_PTR CALLBACK DialogBase::StaticDlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    DialogBase* object = AttachedObject(hwnd);
    if (object == nullptr) {
        // The first message of a dialog being made: from here on every message reaches the
        // object. Without a creation in progress only WM_INITDIALOG can name it.
        object = tCreating;
        if (object == nullptr && message == WM_INITDIALOG)
            object = reinterpret_cast<DialogBase*>(lParam);
        if (object == nullptr)
            return FALSE;
        tCreating = nullptr;
        object->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, DWLP_USER, reinterpret_cast<LONG_PTR>(object));
        OpenDialogs().push_back(object);
    }
    switch (message) {
        case WM_DESTROY:
            object->destroying_ = true;
            return object->DlgProc(hwnd, message, wParam, lParam);
        case WM_NCDESTROY: {
            // The dialog's last message: no later one may find the object.
            object->Detach();
            return object->DlgProc(hwnd, message, wParam, lParam);
        }
        default:
            return object->DlgProc(hwnd, message, wParam, lParam);
    }
}
