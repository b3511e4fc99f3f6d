#include "win/PopupMenu.h"

#include <utility>

#include "win/WideCast.h"

namespace {

MenuChooser& Chooser() {
    static MenuChooser chooser;
    return chooser;
}

void Fill(HMENU menu, const MenuModel& model) {
    for (int i = 0; i < model.Count(); ++i) {
        const MenuItem& item = model.At(i);
        switch (item.kind) {
            case MenuItemKind::kSeparator:
                AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
                break;
            case MenuItemKind::kSubMenu: {
                HMENU sub = CreatePopupMenu();
                Fill(sub, item.sub);
                AppendMenuW(menu, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(sub),
                            W(item.text.c_str()));
                break;
            }
            case MenuItemKind::kCommand: {
                UINT flags = MF_STRING;
                if (item.checked)
                    flags |= MF_CHECKED;
                // Inert items keep their normal look (a title, not a greyed-out choice).
                if (!item.enabled)
                    flags |= MF_DISABLED;
                AppendMenuW(menu, flags, item.id, W(item.text.c_str()));
                break;
            }
        }
    }
}

UINT AlignFlags(MenuAlign align) {
    switch (align) {
        case MenuAlign::kRightTop:
            return TPM_RIGHTALIGN | TPM_TOPALIGN;
        case MenuAlign::kLeftBottom:
            return TPM_LEFTALIGN | TPM_BOTTOMALIGN;
        case MenuAlign::kTopLeft:
            break;
    }
    return TPM_LEFTALIGN | TPM_TOPALIGN;
}

}  // namespace

HMENU BuildPopupMenu(const MenuModel& model) {
    HMENU menu = CreatePopupMenu();
    if (menu != nullptr)
        Fill(menu, model);
    return menu;
}

uint32_t TrackPopup(HWND owner, const MenuModel& model, Point at, MenuAlign align) {
    if (Chooser())
        return Chooser()(model, at, align);
    HMENU menu = BuildPopupMenu(model);
    if (menu == nullptr)
        return 0;
    // A pop-up menu only closes on a click elsewhere when its owner is in front.
    SetForegroundWindow(owner);
    const BOOL chosen =
        TrackPopupMenu(menu, AlignFlags(align) | TPM_RETURNCMD, at.x, at.y, 0, owner, nullptr);
    DestroyMenu(menu);
    return chosen > 0 ? static_cast<uint32_t>(chosen) : 0;
}

MenuChooser InstallMenuChooser(MenuChooser chooser) {
    return std::exchange(Chooser(), std::move(chooser));
}
