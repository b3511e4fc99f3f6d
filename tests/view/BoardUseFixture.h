#pragma once
// A board window being used: the demo board at 480 x 640 with big buttons (three columns, three
// rows, nine buttons a page; slot 8 free, slot 9 on the second page), fake time for the hold
// timer, a stand-in for the person at the pop-up menus and recorders of the calls and the
// vibration pulses the board asks for.

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "BoardTestSetup.h"
#include "FakeContacts.h"
#include "base/Alert.h"
#include "base/MenuModel.h"
#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "board/DialBoard.h"
#include "picker/ContactPicker.h"
#include "testing/ManualTimers.h"
#include "view/BoardWindow.h"
#include "win/PopupMenu.h"

namespace board_use {

struct PlacedCall {
    std::u16string number;
    std::u16string name;
};

inline std::vector<PlacedCall>& Calls() {
    static std::vector<PlacedCall> calls;
    return calls;
}

inline int RecordCall(const char16_t* number, const char16_t* name) {
    Calls().push_back({number != nullptr ? number : u"", name != nullptr ? name : u""});
    return -1;
}

inline std::vector<uint32_t>& Pulses() {
    static std::vector<uint32_t> pulses;
    return pulses;
}

inline void RecordPulse(uint32_t ms) {
    Pulses().push_back(ms);
}

/// How often the board opened the contact picker; the stand-in picker cancels.
inline int& PickerRuns() {
    static int runs = 0;
    return runs;
}

inline int CancelPicker(PickerRequest&, HWND) {
    ++PickerRuns();
    return 2;
}

inline int& AlertAnswer() {
    static int answer = kAlertAnswerNo;
    return answer;
}

struct AlertSeen {
    std::u16string text;
    std::u16string caption;
    uint32_t flags;
};

inline std::vector<AlertSeen>& Alerts() {
    static std::vector<AlertSeen> alerts;
    return alerts;
}

inline int AnswerAlert(const char16_t* text, const char16_t* caption, uint32_t flags) {
    Alerts().push_back({text, caption, flags});
    return AlertAnswer();
}

/// One menu the board opened.
struct MenuSeen {
    MenuModel model;
    Point at;
    MenuAlign align;
};

/// Every stored entry as one line, in stored order: what the registry holds for the board.
inline std::vector<std::u16string> StoredBoard() {
    DialBoard stored(nullptr);
    stored.LoadEntries();
    std::vector<std::u16string> lines;
    for (int i = 0; i < stored.Count(); ++i) {
        const DialEntry& e = stored.EntryAt(i);
        Str line;
        line.Format(u"%u|%d|%d|%s|%s|%s", e.oid, e.slot, e.btn, e.phone.c_str(),
                    e.typeLabel.c_str(), e.display.c_str());
        lines.push_back(line.c_str());
    }
    return lines;
}

class BoardUse : public ::testing::Test {
  protected:
    void SetUp() override {
        Calls().clear();
        Pulses().clear();
        Alerts().clear();
        AlertAnswer() = kAlertAnswerNo;
        previousAlert_ = SetAlertHandler(&AnswerAlert);
        previousPlacer_ = BoardWindow::SetCallPlacer(&RecordCall);
        previousPulse_ = BoardWindow::SetPulseRequester(&RecordPulse);
        // A free button tapped by a test opens no real dialog: the picker has tests of its own.
        PickerRuns() = 0;
        previousPicker_ = BoardWindow::SetPickerRunner(&CancelPicker);
        InstallMenuChooser([this](const MenuModel& model, Point at, MenuAlign align) {
            menus_.push_back({model, at, align});
            if (duringMenu_)
                duringMenu_();
            return answer_;
        });
        for (const StoredEntry& e : DemoEntries()) {
            if (e.oid == 0)
                continue;
            FakeContact c;
            c.first = e.first;
            c.last = e.last;
            c.phones.push_back(Phone(e.type, e.phone, 1));
            c.hasPicture = 0;
            contacts_.contacts[e.oid] = c;
        }
        // Anna has a second number to choose from.
        contacts_.contacts[1].phones.push_back(Phone(u"Work", u"+4681234567", 3));
    }

    void TearDown() override {
        board_.reset();
        if (library_ != nullptr)
            FreeLibrary(library_);
        SetResourceModule(nullptr);
        InstallMenuChooser(nullptr);
        BoardWindow::SetCallPlacer(previousPlacer_);
        BoardWindow::SetPulseRequester(previousPulse_);
        BoardWindow::SetPickerRunner(previousPicker_);
        SetAlertHandler(previousAlert_);
        ForgetStoredBoard();
        registry::KeyHolder settingsKey(registry::Open(u"Software\\Orvalis\\PIM\\Settings"));
        if (settingsKey) {
            for (const char16_t* name : {u"BtnFeedback", u"ModPreload"})
                registry::DeleteValue(settingsKey.get(), name);
        }
    }

    /// Opens the board on `entries` (the demo board unless given).
    BoardWindow& Open(const std::vector<StoredEntry>& entries = DemoEntries(),
                      const device::Profile& profile = {480, 640, 192}) {
        StoreEntries(entries);
        StoreOptions(true, false, false);
        library_ = UseScreen(profile);
        UseSkinFolder(L"C:\\no-such-folder\\DialdeckSkin");
        board_ = std::make_unique<BoardWindow>();
        board_->Board().SetContacts(&contacts_);
        EXPECT_TRUE(board_->Create(false));
        return *board_;
    }

    HWND Hwnd() const { return board_->Hwnd(); }

    Point Centre(int position) const {
        const Rect& c = board_->Geometry().Cell(position);
        return Point{(c.left + c.right) / 2, (c.top + c.bottom) / 2};
    }

    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        SendMessageW(Hwnd(), message, wParam, lParam);
    }
    void Down(Point p) { Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(p.x, p.y)); }
    void Move(Point p) { Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(p.x, p.y)); }
    void Up(Point p) { Send(WM_LBUTTONUP, 0, MAKELPARAM(p.x, p.y)); }
    void Key(WPARAM key) {
        Send(WM_KEYDOWN, key, 1);
        Send(WM_KEYUP, key, 0xC0000001);
    }
    void Command(uint32_t id) { Send(WM_COMMAND, id, 0); }

    /// Dispatches what is waiting in the thread's queue.
    static void Pump() {
        MSG msg;
        while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
    }

    /// The entry of `slot` as shown, or null.
    const DialEntry* EntryOf(int32_t slot) const {
        const int index = board_->Board().FindBySlot(slot);
        return index >= 0 ? &board_->Board().EntryAt(index) : nullptr;
    }

    /// The entry of `slot`; a test failure and an empty entry when there is none.
    const DialEntry& Entry(int32_t slot) const {
        static const DialEntry none;
        const DialEntry* entry = EntryOf(slot);
        if (entry == nullptr)
            ADD_FAILURE() << "no entry on slot " << slot;
        return entry != nullptr ? *entry : none;
    }

    ManualTimers timers_;
    FakeContacts contacts_;
    std::unique_ptr<BoardWindow> board_;
    HMODULE library_ = nullptr;
    std::vector<MenuSeen> menus_;
    uint32_t answer_ = 0;               ///< what the person picks at the next menus
    std::function<void()> duringMenu_;  ///< what happens while a menu is open
    AlertHandler previousAlert_ = nullptr;
    BoardWindow::CallPlacerFn previousPlacer_ = nullptr;
    BoardWindow::PulseFn previousPulse_ = nullptr;
    BoardWindow::PickerFn previousPicker_ = nullptr;
};

}  // namespace board_use
