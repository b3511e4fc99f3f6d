#pragma once
// The board's two pop-up menus as MenuModels: the main menu of the panel's Menu key and the
// context menu of a held button, built fresh from the board's state and the resource texts each
// time one opens. Pure data: the window shows them (win/PopupMenu.h) and carries out the choice
// (BoardCommands.cpp).

#include <cstdint>
#include <functional>
#include <vector>

#include "base/MenuModel.h"
#include "base/Str.h"

/// Loads resource text `id` (the window passes the resource library's string table).
using MenuTexts = std::function<Str(uint32_t id)>;

/// One number of the button's contact, as the "Phone:" sub-menu lists it.
struct PhoneChoice {
    Str number;
    Str label;
};

/// What the menus show of a button.
struct ButtonMenuState {
    bool bound = false;  ///< the position holds an entry; nothing else counts otherwise
    Str name;            ///< its shown name (DisplayName)
    Str phone;           ///< the number it dials
    int32_t dialerNumber = -1;
    std::vector<PhoneChoice> phones;  ///< the contact's numbers as last read
};

/// The View toggles.
struct ViewState {
    bool bigButtons = false;
    bool showDialerButton = false;
    bool showPhoneType = false;
};

/// The "Phone:" sub-menu lists at most this many numbers (ids 201 .. 299).
constexpr int kMaxPhoneChoices = 99;

/// The main menu: the selected button's items when it holds an entry, then Add Page, Delete
/// Page, Clear All, View, Sort By Name and Exit.
MenuModel BuildMainMenu(const ButtonMenuState& selected, const ViewState& view,
                        const MenuTexts& texts);
/// The context menu of a held bound button.
MenuModel BuildContextMenu(const ButtonMenuState& button, const MenuTexts& texts);

/// The main menu opens at the panel's Menu key: beside the panel on the right in landscape,
/// above the panel at the bottom in portrait.
constexpr MenuAlign MainMenuAlign(bool landscape) {
    return landscape ? MenuAlign::kRightTop : MenuAlign::kLeftBottom;
}

/// A "Dialer Button" item: true with the number it gives (-1 for "Clear").
bool DialerChoice(uint32_t id, int32_t& number);
/// A "Phone:" item: true with the index into the listed numbers.
bool PhoneChoiceIndex(uint32_t id, int& index);
