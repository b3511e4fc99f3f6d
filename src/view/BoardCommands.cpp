// The board window's commands and its two pop-up menus: the main menu of the panel's Menu key,
// the context menu of a held button, and what each choice does. The menus themselves are built
// as data (view/BoardMenus.h) and shown by win/PopupMenu.h.
#include "base/Alert.h"
#include "base/Clock.h"
#include "base/ResourceIds.h"
#include "base/SettingsStore.h"
#include "phone/ButtonFeedback.h"
#include "phone/CallPlacer.h"
#include "phone/FeedbackSetting.h"
#include "platform/DeviceScreen.h"
#include "skin/ButtonPanel.h"
#include "skin/Skin.h"
#include "view/BoardWindow.h"
#include "view/InputRules.h"
#include "win/PopupMenu.h"
#include "win/RectConvert.h"

namespace {

/// The panel's Menu key: the main menu opens at it.
constexpr int kPanelMenuItem = 2;

BoardWindow::CallPlacerFn& Placer() {
    static BoardWindow::CallPlacerFn placer = &PlaceCall;
    return placer;
}

BoardWindow::PulseFn& Pulser() {
    static BoardWindow::PulseFn pulser = &feedback::RequestPulse;
    return pulser;
}

// The page flips of the soft keys confirm the press with a short vibration when asked to.
void PressFeedback() {
    if (feedback::ButtonFeedbackWanted())
        Pulser()(feedback::kPressPulseMs);
}

Str ResourceText(uint32_t id) {
    // Str::LoadString is out of reach here: <windows.h> renames it to LoadStringW.
    char16_t text[128];
    SafeLoadStr(id, text, 128);
    return Str(text);
}

bool InFront(HWND window) {
    return GetForegroundWindow() == window;
}

}  // namespace

BoardWindow::PulseFn BoardWindow::SetPulseRequester(PulseFn requester) {
    PulseFn previous = Pulser();
    Pulser() = requester != nullptr ? requester : &feedback::RequestPulse;
    return previous;
}

BoardWindow::CallPlacerFn BoardWindow::SetCallPlacer(CallPlacerFn placer) {
    CallPlacerFn previous = Placer();
    Placer() = placer != nullptr ? placer : &PlaceCall;
    return previous;
}

void BoardWindow::RunCommand(uint32_t id) {
    switch (id) {
        case IDOK:
        case IDCANCEL:
        case IDM_CLOSE:
        case IDM_CLOSE_BOARD:
            Close(false);
            break;
        case IDM_PREV_PAGE:
            PressFeedback();
            GoToPage(geometry_.Page() - 1);
            break;
        case IDM_NEXT_PAGE:
            PressFeedback();
            GoToPage(geometry_.Page() + 1);
            break;
        case IDM_PANEL_PREV:
            if (arrows_.prev)
                GoToPage(geometry_.Page() - 1);
            break;
        case IDM_PANEL_NEXT:
            if (arrows_.next)
                GoToPage(geometry_.Page() + 1);
            break;
        case IDM_MAIN_MENU:
            OpenMainMenu();
            break;
        case IDM_SORT_BY_NAME:
            board_.SortByName();
            RepaintAll();
            break;
        case IDM_CLEAR_ALL:
            ClearAll();
            break;
        case IDM_RENAME:
            RenameButton(geometry_.Selected());
            break;
        case IDM_CLEAR_BUTTON: {
            const int position = geometry_.Selected();
            const int32_t slot = geometry_.SlotOf(position);
            if (slot >= 0 && board_.FindBySlot(slot) >= 0)
                ClearButton(position);
            break;
        }
        case IDM_MOVE_UP:
            MoveButton(geometry_.Selected(), MoveDirection::kUp);
            break;
        case IDM_MOVE_DOWN:
            MoveButton(geometry_.Selected(), MoveDirection::kDown);
            break;
        case IDM_MOVE_LEFT:
            MoveButton(geometry_.Selected(), MoveDirection::kLeft);
            break;
        case IDM_MOVE_RIGHT:
            MoveButton(geometry_.Selected(), MoveDirection::kRight);
            break;
        default:
            break;
    }
}

// Only onto a page that exists; the arrows and the whole board follow.
void BoardWindow::GoToPage(int32_t page) {
    if (page < 0 || page >= geometry_.Pages() || page == geometry_.Page())
        return;
    geometry_.SetPage(page);
    UpdateArrows();
    RepaintAll();
}

void BoardWindow::ClearAll() {
    const Str question = ResourceText(IDS_CLEAR_ALL_QUESTION);
    if (ShowAlert(question, u"", kAlertYesNo | kAlertIconExclamation) != kAlertAnswerYes)
        return;
    board_.Clear();
    // An empty board is stored as no key at all.
    board_.SaveEntries(-1);
    geometry_.ResetToOnePage();
    UpdateArrows();
    RepaintAll();
}

void BoardWindow::ToggleBigButtons() {
    if (!skin_)
        return;
    SetBigButtons(skin_->BigButtons() != 1);
    Layout();
    RepaintAll();
}

ButtonMenuState BoardWindow::MenuStateOf(int32_t slot) const {
    ButtonMenuState state;
    const int index = slot >= 0 ? board_.FindBySlot(slot) : -1;
    if (index < 0)
        return state;
    const DialEntry& entry = board_.EntryAt(index);
    state.bound = true;
    state.name = DisplayName(entry);
    state.phone = entry.phone;
    state.dialerNumber = entry.btn;
    for (const ContactPhone& phone : entry.phones)
        state.phones.push_back(PhoneChoice{phone.number, phone.label});
    return state;
}

// The same button: its contact, or the button itself with its contact since deleted (a refresh
// keeps such an entry with its stored texts and oid 0).
bool BoardWindow::EntryStillThere(int32_t slot, uint32_t oid) const {
    const int index = board_.FindBySlot(slot);
    if (index < 0)
        return false;
    const uint32_t now = board_.EntryAt(index).oid;
    return now == oid || now == 0;
}

void BoardWindow::OpenMainMenu() {
    if (hwnd_ == nullptr)
        return;
    const int32_t slot = geometry_.SlotOf(geometry_.Selected());
    const int index = slot >= 0 ? board_.FindBySlot(slot) : -1;
    const uint32_t oid = index >= 0 ? board_.EntryAt(index).oid : 0;
    const ViewState view{skin_ && skin_->BigButtons() == 1, showDialerButton_, showPhoneType_};
    const MenuModel menu = BuildMainMenu(MenuStateOf(slot), view, &ResourceText);
    const bool landscape =
        IsLandscape(device::SystemMetrics(SM_CXSCREEN), device::SystemMetrics(SM_CYSCREEN));
    POINT at{0, 0};
    if (panel_) {
        const Rect key = panel_->ButtonRect(kPanelMenuItem);
        at = POINT{key.left, key.top};
        ClientToScreen(panel_->Hwnd(), &at);
    }
    const uint32_t choice = TrackPopup(hwnd_, menu, FromPOINT(at), MainMenuAlign(landscape));
    RunMenuChoice(choice, slot, oid);
}

void BoardWindow::OpenContextMenu(int position) {
    const int32_t slot = geometry_.SlotOf(position);
    const int index = slot >= 0 ? board_.FindBySlot(slot) : -1;
    if (index < 0 || hwnd_ == nullptr)
        return;
    const uint32_t oid = board_.EntryAt(index).oid;
    const MenuModel menu = BuildContextMenu(MenuStateOf(slot), &ResourceText);
    POINT at = ToPOINT(down_);
    ClientToScreen(hwnd_, &at);
    const uint32_t choice = TrackPopup(hwnd_, menu, FromPOINT(at), MenuAlign::kTopLeft);
    RunMenuChoice(choice, slot, oid);
}

// The menu was built for the entry of `slot` (contact `oid`); the board may have changed while
// it was open, so every choice about that entry checks that it is still there.
void BoardWindow::RunMenuChoice(uint32_t id, int32_t slot, uint32_t oid) {
    if (id == 0)
        return;
    int32_t number = 0;
    if (DialerChoice(id, number)) {
        if (EntryStillThere(slot, oid)) {
            board_.SetDialerNumber(slot, number);
            RepaintAll();
        }
        return;
    }
    int phoneIndex = 0;
    if (PhoneChoiceIndex(id, phoneIndex)) {
        if (!EntryStillThere(slot, oid))
            return;
        const ButtonMenuState shown = MenuStateOf(slot);
        if (phoneIndex < static_cast<int>(shown.phones.size())) {
            const PhoneChoice& choice = shown.phones[static_cast<size_t>(phoneIndex)];
            ChoosePhone(slot, oid, choice.number, choice.label);
        }
        return;
    }
    switch (id) {
        case IDM_BUTTON_NAME:
            break;
        case IDM_CALL_FIRST:
            if (EntryStillThere(slot, oid))
                Call(slot);
            break;
        case IDM_SEND_SMS:
            break;  // the message composer joins the board in a later step
        case IDM_ADD_PAGE:
            geometry_.AddPage();
            UpdateArrows();
            RepaintAll();
            break;
        case IDM_DELETE_PAGE:
            DeletePage();
            break;
        case IDM_BIG_BUTTONS:
            ToggleBigButtons();
            break;
        case IDM_SHOW_DIALER:
            showDialerButton_ = !showDialerButton_;
            settings::WriteNumber(settings::kSettingsKey, settings::kShowDialerButton.name,
                                  showDialerButton_ ? 1 : 0);
            RepaintAll();
            break;
        case IDM_SHOW_PHONE_TYPE:
            showPhoneType_ = !showPhoneType_;
            settings::WriteNumber(settings::kSettingsKey, settings::kShowPhoneType.name,
                                  showPhoneType_ ? 1 : 0);
            RepaintAll();
            break;
        case IDM_EXIT:
            PostMessageW(hwnd_, WM_CLOSE, kForcedCloseCode, 0);
            break;
        case IDM_RENAME:
        case IDM_CLEAR_BUTTON:
        case IDM_MOVE_UP:
        case IDM_MOVE_DOWN:
        case IDM_MOVE_LEFT:
        case IDM_MOVE_RIGHT:
            // About the entry the menu was opened for: never another one that took its place.
            if (EntryStillThere(slot, oid))
                RunCommand(id);
            break;
        default:
            RunCommand(id);
            break;
    }
}

// The number is taken from the contact as it is now: a number it no longer has, or a contact
// that is gone, leaves the button as it was.
void BoardWindow::ChoosePhone(int32_t slot, uint32_t oid, const Str& number, const Str& label) {
    ContactSource* contacts = board_.Contacts();
    if (contacts == nullptr || oid == 0)
        return;
    ContactRecord record;
    if (!contacts->Read(oid, kReadForButton, record))
        return;
    for (const ContactPhone& phone : record.phones) {
        if (phone.number == number && phone.label == label) {
            board_.Assign(slot, oid, phone.number, phone.label, phone.type);
            RepaintAll();
            return;
        }
    }
}

void BoardWindow::Call(int32_t slot) {
    const int index = board_.FindBySlot(slot);
    // A button bound to a contact without numbers has nothing to call.
    if (index < 0 || board_.EntryAt(index).phone.IsEmpty())
        return;
    CallNumber(slot, board_.EntryAt(index).phone);
}

void BoardWindow::CallNumber(int32_t slot, const Str& number) {
    const int index = board_.FindBySlot(slot);
    if (index < 0)
        return;
    const Str name = DisplayName(board_.EntryAt(index));
    Str dialled = number;
    Str formatted;
    if (templates_.Format(number, formatted))
        dialled = formatted;
    Placer()(dialled, name);
    if (settings::Read(settings::kModPreload) != 0) {
        // Give the phone's call screen time to come up in front before the board hides.
        HWND self = hwnd_;
        AwaitCallScreen([self] { return InFront(self); }, &TickCount,
                        [](uint32_t ms) { Sleep(ms); });
    }
    Close(false);
}
