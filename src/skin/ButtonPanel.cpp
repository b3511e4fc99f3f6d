#include "skin/ButtonPanel.h"

#include "platform/DeviceScreen.h"
#include "skin/Skin.h"
#include "win/RectConvert.h"

namespace {

/// The panel images, by orientation: first (Prev, Next) and second (Menu, Close).
struct PanelImages {
    uint32_t firstId;
    const char16_t* firstName;
    uint32_t secondId;
    const char16_t* secondName;
};
constexpr PanelImages kPortraitImages{skin_bitmap::kPortraitPanel1, u"p_panel_1",
                                      skin_bitmap::kPortraitPanel2, u"p_panel_2"};
constexpr PanelImages kLandscapeImages{skin_bitmap::kLandscapePanel1, u"l_panel_1",
                                       skin_bitmap::kLandscapePanel2, u"l_panel_2"};

}  // namespace

bool ButtonPanel::Create(HWND parent) {
    if (hwnd_ != nullptr)
        return true;
    if (!CreateBar(parent))
        return false;
    buttons_.assign(4, PanelButton{});
    for (int i = 0; i < 4; ++i) {
        buttons_[i].command = kPanelCommands[i];
        buttons_[i].actsOnPress = i == kPanelMenuButton;
        // Str::LoadString is out of reach here: <windows.h> renames it to LoadStringW.
        char16_t caption[64];
        SafeLoadStr(kPanelCaptions[i], caption, 64);
        buttons_[i].caption = caption;
    }
    Layout();
    return true;
}

void ButtonPanel::Layout() {
    landscape_ = device::SystemMetrics(SM_CXSCREEN) > device::SystemMetrics(SM_CYSCREEN);
    const PanelImages& images = landscape_ ? kLandscapeImages : kPortraitImages;
    first_ = skin_.LoadSkinBitmap(images.firstId, images.firstName);
    firstSize_ = Skin::BitmapSize(first_.get());
    second_ = skin_.LoadSkinBitmap(images.secondId, images.secondName);
    secondSize_ = Skin::BitmapSize(second_.get());
    PanelButtonArt art[4];
    PanelButtonsFromImages(landscape_, firstSize_.cx, firstSize_.cy, secondSize_.cx, secondSize_.cy,
                           art);
    for (int i = 0; i < Count(); ++i) {
        buttons_[i].art = art[i];
        buttons_[i].image = i < 2 ? first_.get() : second_.get();
    }
}

int ButtonPanel::Thickness() const {
    return landscape_ ? PanelThickness(firstSize_.cx, secondSize_.cx)
                      : PanelThickness(firstSize_.cy, secondSize_.cy);
}

void ButtonPanel::GetButtonRect(int index, RECT& rect) const {
    if (index < 0 || index > 3 || hwnd_ == nullptr)
        return;
    rect = ToRECT(ButtonRect(index));
}

Rect ButtonPanel::ButtonRect(int index) const {
    if (index < 0 || index >= Count() || hwnd_ == nullptr)
        return Rect{};
    RECT client;
    GetClientRect(hwnd_, &client);
    PanelButtonArt art[4];
    for (int i = 0; i < 4; ++i)
        art[i] = buttons_[i].art;
    return PanelButtonRect(index, FromRECT(client), landscape_, art);
}
