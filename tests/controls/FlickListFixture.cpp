#include "FlickListFixture.h"

#include <string>

namespace flicktest {

void RecordingListener::OnDrawItem(HWND, HDC dc, int index, const RECT& rect, bool selected) {
    draws.push_back(DrawCall{index, rect, selected});
    COLORREF fill = index < 0 ? kEmpty : selected ? kSelectedRow : index % 2 ? kOddRow : kEvenRow;
    HBRUSH brush = CreateSolidBrush(fill);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
    if (index < 0)
        return;
    std::wstring text = L"  Row " + std::to_wstring(index);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, selected ? RGB(255, 255, 255) : RGB(20, 20, 20));
    RECT area = rect;
    DrawTextW(dc, text.c_str(), -1, &area, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
}

void RecordingListener::Clear() {
    draws.clear();
    clicks.clear();
    selChanges.clear();
    activations.clear();
    holds.clear();
    presses.clear();
    keyDowns.clear();
    focusMessages.clear();
    chars.clear();
}

void RecordingListener::OnClick(HWND, int index, int previous, WPARAM) {
    clicks.push_back(IndexCall{index, previous});
}
void RecordingListener::OnSelChange(HWND, int index, bool byKeyboard) {
    selChanges.push_back(IndexCall{index, byKeyboard ? 1 : 0});
}
void RecordingListener::OnPress(HWND, int index) {
    presses.push_back(index);
}
void RecordingListener::OnActivate(HWND, int index) {
    activations.push_back(IndexCall{index, 0});
}
void RecordingListener::OnHold(HWND, int index, POINT point) {
    holds.push_back(IndexCall{index, point.y});
}
void RecordingListener::OnSetFocus(HWND, UINT message) {
    focusMessages.push_back(message);
}
void RecordingListener::OnKillFocus(HWND, UINT message) {
    focusMessages.push_back(message);
}
bool RecordingListener::OnKeyDown(HWND, UINT key, int) {
    keyDowns.push_back(key);
    return consumeKey != 0 && key == consumeKey;
}
void RecordingListener::OnChar(HWND, wchar_t character, LPARAM) {
    chars.push_back(character);
}

KeyParent::KeyParent(int width, int height) {
    static const wchar_t kClass[] = L"FlickListTestParent";
    WNDCLASSW wc{};
    wc.lpfnWndProc = &KeyParent::Proc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
    wc.lpszClassName = kClass;
    RegisterClassW(&wc);
    hwnd_ = CreateWindowExW(0, kClass, L"", WS_POPUP | WS_VISIBLE, 0, 0, width, height, nullptr,
                            nullptr, wc.hInstance, this);
}

KeyParent::~KeyParent() {
    if (hwnd_ != nullptr)
        DestroyWindow(hwnd_);
}

LRESULT CALLBACK KeyParent::Proc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<KeyParent*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (self != nullptr && (message == WM_KEYDOWN || message == WM_KEYUP)) {
        self->keys.push_back(Key{message, wParam});
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

HBITMAP LoadThumbArt() {
    return static_cast<HBITMAP>(LoadImageW(nullptr, DD_RES_DIR L"/art/96/scroll.bmp", IMAGE_BITMAP,
                                           0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
}

void Pump() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

bool Waiting(HWND window, UINT message, bool take) {
    MSG msg;
    return PeekMessageW(&msg, window, message, message, take ? PM_REMOVE : PM_NOREMOVE) != FALSE;
}

void FlickListFixture::SetUp() {
    previousScreen_ = Screen();
    SetScreen(ComputeScreenInfo(96, 96, 480, 640));
    thumb_ = LoadThumbArt();
    ASSERT_NE(thumb_, nullptr);
    ASSERT_NE(parent_.Hwnd(), nullptr);
}

void FlickListFixture::TearDown() {
    if (GetCapture() != nullptr)
        ReleaseCapture();
    list_.reset();
    Pump();
    DeleteObject(thumb_);
    SetScreen(previousScreen_);
}

FlickList& FlickListFixture::Make(int count, int itemHeight, int width, int height, bool overlay,
                                  bool wholeView, bool hold) {
    list_ = std::make_unique<FlickList>();
    list_->SetListener(&listener_);
    list_->SetItemHeight(itemHeight);
    list_->SetPlacement(0, 0, width, height, true);
    list_->SetWholeViewBuffer(wholeView);
    list_->SetHoldEnabled(hold);
    EXPECT_NE(list_->Create(parent_.Hwnd(), overlay ? thumb_ : nullptr), nullptr);
    ShowWindow(list_->Hwnd(), SW_SHOW);
    list_->SetItemCount(count);
    Pump();
    listener_.Clear();
    return *list_;
}

void FlickListFixture::Press(int x, int y) {
    SendMessageW(List(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
}
void FlickListFixture::Move(int x, int y) {
    SendMessageW(List(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
}
void FlickListFixture::Release(int x, int y) {
    SendMessageW(List(), WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}
void FlickListFixture::Key(UINT message, WPARAM key) {
    SendMessageW(List(), message, key, message == WM_KEYUP ? 0xC0000001 : 1);
}

void FlickListFixture::Drag(int x, int y0, int y1, int steps, uint32_t msPerStep) {
    int direction = y1 < y0 ? -1 : 1;
    timers_.Advance(msPerStep);
    Move(x, y0 + 11 * direction);
    for (int step = 1; step <= steps; ++step) {
        timers_.Advance(msPerStep);
        Move(x, y0 + (y1 - y0) * step / steps);
    }
}

}  // namespace flicktest
