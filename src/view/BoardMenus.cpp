#include "view/BoardMenus.h"

#include "base/ResourceIds.h"

namespace {

constexpr int32_t kFirstDialerNumber = 1;
constexpr int32_t kLastDialerNumber = 99;

bool HasNumber(int32_t number) {
    return number >= kFirstDialerNumber && number <= kLastDialerNumber;
}

// "Clear" and a separator when a number is set, then 1 to 99 with the button's own checked.
void FillDialerMenu(MenuModel& menu, int32_t current, const MenuTexts& texts) {
    if (HasNumber(current)) {
        menu.Add(IDM_DIALER_CLEAR, texts(IDS_CLEAR_NUMBER));
        menu.AddSeparator();
    }
    for (int32_t n = kFirstDialerNumber; n <= kLastDialerNumber; ++n) {
        Str text;
        text.Format(u"%d", n);
        menu.Add(IDM_DIALER_FIRST + static_cast<uint32_t>(n - 1), text, n == current);
    }
}

}  // namespace

MenuModel BuildMainMenu(const ButtonMenuState& selected, const ViewState& view,
                        const MenuTexts& texts) {
    MenuModel menu;
    if (selected.bound) {
        if (!selected.phone.IsEmpty())
            menu.Add(IDM_SEND_SMS, texts(IDS_SEND_SMS));
        menu.Add(IDM_RENAME, texts(IDS_RENAME));
        FillDialerMenu(menu.AddSub(texts(IDS_DIALER_BUTTON)), selected.dialerNumber, texts);
        MenuModel& move = menu.AddSub(texts(IDS_MOVE));
        move.Add(IDM_MOVE_UP, texts(IDS_UP));
        move.Add(IDM_MOVE_DOWN, texts(IDS_DOWN));
        move.Add(IDM_MOVE_LEFT, texts(IDS_LEFT));
        move.Add(IDM_MOVE_RIGHT, texts(IDS_RIGHT));
        menu.Add(IDM_CLEAR_BUTTON, texts(IDS_CLEAR_NUMBER));
        menu.AddSeparator();
    }
    menu.Add(IDM_ADD_PAGE, texts(IDS_ADD_PAGE));
    menu.Add(IDM_DELETE_PAGE, texts(IDS_DELETE_PAGE));
    menu.Add(IDM_CLEAR_ALL, texts(IDS_CLEAR_ALL));
    menu.AddSeparator();
    MenuModel& viewMenu = menu.AddSub(texts(IDS_VIEW));
    viewMenu.Add(IDM_BIG_BUTTONS, texts(IDS_BIG_BUTTONS), view.bigButtons);
    viewMenu.Add(IDM_SHOW_DIALER, texts(IDS_SHOW_DIALER_BUTTON), view.showDialerButton);
    viewMenu.Add(IDM_SHOW_PHONE_TYPE, texts(IDS_SHOW_PHONE_TYPE), view.showPhoneType);
    menu.AddSeparator();
    menu.Add(IDM_SORT_BY_NAME, texts(IDS_SORT_BY_NAME));
    menu.AddSeparator();
    menu.Add(IDM_EXIT, texts(IDS_EXIT));
    return menu;
}

MenuModel BuildContextMenu(const ButtonMenuState& button, const MenuTexts& texts) {
    MenuModel menu;
    menu.AddInert(IDM_BUTTON_NAME, button.name);
    // A contact bound without a number keeps both items in place, greyed: there is nothing to
    // message or call.
    if (button.phone.IsEmpty()) {
        menu.AddInert(IDM_SEND_SMS, texts(IDS_SEND_SMS));
        menu.AddInert(IDM_CALL_FIRST, texts(IDS_CALL));
    } else {
        Str call;
        call.Format(u"%s %s", texts(IDS_CALL).c_str(), button.phone.c_str());
        menu.Add(IDM_SEND_SMS, texts(IDS_SEND_SMS));
        menu.Add(IDM_CALL_FIRST, call);
    }
    menu.AddSeparator();
    menu.Add(IDM_RENAME, texts(IDS_RENAME));
    Str dialer = texts(IDS_DIALER_BUTTON);
    if (HasNumber(button.dialerNumber)) {
        Str titled;
        titled.Format(u"%s (%d)", dialer.c_str(), button.dialerNumber);
        dialer = titled;
    }
    FillDialerMenu(menu.AddSub(dialer), button.dialerNumber, texts);
    menu.Add(IDM_CLEAR_BUTTON, texts(IDS_CLEAR));
    if (!button.phones.empty()) {
        menu.AddSeparator();
        Str title;
        title.Format(u"%s %s", texts(IDS_PHONE).c_str(), button.phone.c_str());
        MenuModel& phones = menu.AddSub(title);
        const int count = static_cast<int>(button.phones.size());
        for (int i = 0; i < count && i < kMaxPhoneChoices; ++i) {
            const PhoneChoice& choice = button.phones[static_cast<size_t>(i)];
            Str text;
            text.Format(u"%s (%s)", choice.number.c_str(), choice.label.c_str());
            phones.Add(IDM_PHONE_FIRST + static_cast<uint32_t>(i), text,
                       choice.number == button.phone);
        }
    }
    return menu;
}

bool DialerChoice(uint32_t id, int32_t& number) {
    if (id == IDM_DIALER_CLEAR) {
        number = -1;
        return true;
    }
    if (id < IDM_DIALER_FIRST || id > IDM_DIALER_LAST)
        return false;
    number = static_cast<int32_t>(id - IDM_DIALER_FIRST) + kFirstDialerNumber;
    return true;
}

bool PhoneChoiceIndex(uint32_t id, int& index) {
    if (id < IDM_PHONE_FIRST || id > IDM_PHONE_LAST)
        return false;
    index = static_cast<int>(id - IDM_PHONE_FIRST);
    return true;
}
