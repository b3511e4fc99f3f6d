#include "view/BoardWindow.h"

#include "base/File.h"
#include "base/Module.h"
#include "base/ResourceIds.h"
#include "base/ResourcePlace.h"
#include "base/ScreenInfo.h"
#include "base/SettingsStore.h"
#include "contacts/ContactsSession.h"
#include "contacts/SearchServiceClient.h"
#include "platform/DeviceScreen.h"
#include "platform/Shell.h"
#include "skin/ButtonPanel.h"
#include "skin/Skin.h"
#include "win/Gdi.h"

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

BoardWindow::BoardWindow()
    : session_(ContactsSession::Get()), contacts_(session_, SearchServiceClient::Get()) {
    // Without the contacts database the board still works, with its stored texts only.
    if (session_ != nullptr && !session_->IsOpen())
        session_->Open();
    board_.SetContacts(&contacts_);
}

BoardWindow::~BoardWindow() {
    panel_.reset();
}

bool BoardWindow::Create(bool preload) {
    if (hwnd_ != nullptr)
        return true;
    templates_.Load();
    ReadOptions();
    Register(kBoardWindowClass, kRedrawOnResize, nullptr,
             static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    preload_ = preload;
    if (!CreateFrame())
        return false;
    const ResourcePlace& place = TheResourcePlace();
    skin_ = std::make_unique<Skin>(place.skinFolder, static_cast<HMODULE>(place.library));
    skin_->LoadSkinFile();
    CreateMenuBar();
    CreatePanel();
    LoadBoardBitmaps();
    SetBigButtons(settings::Read(settings::kBigButtons) != 0);
    board_.LoadEntries();
    HideInputPanel();
    OverrideTalkKey();
    Layout();
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
    if (preload_)
        ShowWindow(hwnd_, SW_HIDE);
    return true;
}

// Desktop Windows gives every overlapped window a caption; the device's board has none, and its
// client area is the whole window. The device also always keeps a window's painting off its
// children (the soft-key panel); the desktop does so only when asked.
void BoardWindow::RemoveDesktopFrame() {
    LONG_PTR style = GetWindowLongPtrW(hwnd_, GWL_STYLE);
    SetWindowLongPtrW(hwnd_, GWL_STYLE, (style & ~kDesktopFrame) | WS_CLIPCHILDREN);
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

void BoardWindow::CreatePanel() {
    panel_ = std::make_unique<ButtonPanel>(*skin_);
    panel_->SetBackground(skin_->Colours().background);
    panel_->SetFont(skin_->Font(SkinFont::kButton));
    if (!panel_->Create(hwnd_))
        panel_.reset();
}

// The board's own bitmaps, lent to the picker and the message panel.
void BoardWindow::LoadBoardBitmaps() {
    if (!numberFrame_)
        numberFrame_ = skin_->LoadSkinBitmap(skin_bitmap::kNumberFrame, u"btn_number_frame");
    if (!listUnselected_) {
        listUnselected_ = skin_->LoadSkinBitmap(skin_bitmap::kListUnselected, u"list_unselect_bgr");
        listSelected_ = skin_->LoadSkinBitmap(skin_bitmap::kListSelected, u"list_select_bgr");
        listVoid_ = skin_->LoadSkinBitmap(skin_bitmap::kListVoid, u"list_void_bgr");
    }
    if (!scroll_)
        scroll_ = skin_->LoadSkinBitmap(skin_bitmap::kScroll, u"scroll");
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
        case WM_SETTINGCHANGE:
            return OnScreenChange(wParam);
        case WM_ACTIVATE:
            return OnActivateMessage(hwnd, wParam, lParam);
        case WM_CANCELMODE:
            return OnCancelMode();
        case WM_WINDOWPOSCHANGED:
            return OnWindowPosChanged(hwnd, wParam, lParam);
        case WM_NCACTIVATE:
            return OnNcActivate(hwnd, wParam, lParam);
        case WM_KEYDOWN:
            return OnKeyDown(wParam);
        case WM_KEYUP:
            return OnKeyUp(wParam);
        case WM_COMMAND:
            RunCommand(LOWORD(wParam));
            return 0;
        case WM_TIMER:
            return OnTimer(wParam);
        case WM_INITMENUPOPUP:
            return 0;  // menus are complete when built
        case WM_MOUSEMOVE:
            return OnMouseMove(static_cast<short>(LOWORD(lParam)),
                               static_cast<short>(HIWORD(lParam)));
        case WM_LBUTTONDOWN:
            return OnLButtonDown(static_cast<short>(LOWORD(lParam)),
                                 static_cast<short>(HIWORD(lParam)));
        case WM_LBUTTONUP:
            return OnLButtonUp(static_cast<short>(LOWORD(lParam)),
                               static_cast<short>(HIWORD(lParam)));
        case WM_HOTKEY:
            return OnHotKey(lParam);
        case WM_DD_RELOAD_TEMPLATES:
            return OnReloadTemplates();
        case WM_DD_RELOAD:
            return OnReload(lParam);
        default:
            return DefWindowProcW(hwnd, message, wParam, lParam);
    }
}

LRESULT BoardWindow::OnCreate() {
    // Before the window first shows, so no caption ever flashes on screen.
    RemoveDesktopFrame();
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
    shell::FullScreen(hwnd_, shell::kHideSipButton);
    gdi::PaintBuffered(hwnd_, [this](HDC dc, const RECT& dirty) { Paint(dc, dirty); });
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

// The screen turned or was reset: the panel changes sides and everything is worked out again.
LRESULT BoardWindow::OnScreenChange(WPARAM wParam) {
    if (wParam != kScreenChangedNotice)
        return 0;
    if (panel_)
        panel_->Layout();
    Layout();
    InvalidateRect(hwnd_, nullptr, FALSE);
    return 0;
}
