#include "win/SoftKeyStrip.h"

#include <utility>

#include "base/Module.h"
#include "base/ScreenInfo.h"
#include "win/RectConvert.h"
#include "win/WideCast.h"

bool SoftKeyStrip::Create(HWND parent, uint32_t menuId) {
    if (hwnd_ != nullptr)
        return true;
    if (!ReadKeys(menuId) || !CreateBar(parent))
        return false;
    Place();
    return true;
}

bool SoftKeyStrip::ReadKeys(uint32_t menuId) {
    HMENU menu = LoadMenuW(static_cast<HINSTANCE>(ProgramModule()), MAKEINTRESOURCEW(menuId));
    if (menu == nullptr)
        return false;
    buttons_.clear();
    const int items = GetMenuItemCount(menu);
    for (int i = 0; i < items && Count() < kMaxKeys; ++i) {
        wchar_t text[64] = {};
        MENUITEMINFOW info{};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_ID | MIIM_STRING | MIIM_STATE | MIIM_SUBMENU;
        info.dwTypeData = text;
        info.cch = 64;
        if (!GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info))
            continue;
        BarButton key;
        key.command = info.wID;
        key.caption = U(text);
        key.centreCaption = true;
        key.sliced = true;
        key.image = faces_.get();
        key.art = cell_;
        key.enabled = (info.fState & MFS_GRAYED) == 0 && info.hSubMenu == nullptr;
        buttons_.push_back(key);
    }
    DestroyMenu(menu);
    return true;
}

void SoftKeyStrip::Place() {
    HWND parent = hwnd_ != nullptr ? GetParent(hwnd_) : nullptr;
    if (parent == nullptr)
        return;
    RECT client;
    GetClientRect(parent, &client);
    const int height = Height();
    SetWindowPos(hwnd_, HWND_TOP, 0, client.bottom - height, client.right, height, SWP_NOACTIVATE);
}

int SoftKeyStrip::Height() {
    return BarHeight();
}

uint32_t SoftKeyStrip::Command(int index) const {
    return index >= 0 && index < Count() ? buttons_[index].command : 0;
}

void SoftKeyStrip::SetFaces(gdi::Object<HBITMAP> image, const ButtonCell& cell) {
    faces_ = std::move(image);
    cell_ = cell;
    for (BarButton& key : buttons_) {
        key.image = faces_.get();
        key.art = cell;
    }
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

Rect SoftKeyStrip::ButtonRect(int index) const {
    if (hwnd_ == nullptr)
        return Rect{};
    RECT client;
    GetClientRect(hwnd_, &client);
    // A lone key keeps the left half, where the device shows its first key.
    if (index < 0 || index >= Count())
        return Rect{};
    return StripKeyRect(index, kMaxKeys, FromRECT(client));
}
