#pragma once
// What the picker's window tests share: a screen chosen by device profile with its resource
// library and skin, the search service in this process over a known or generated address book,
// the keypad layout setting, a picker driven from inside its own modal loop, and a person's taps.

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "contacts/SearchServiceClient.h"
#include "picker/ContactPicker.h"
#include "platform/DeviceProfile.h"
#include "service/InProcessServiceCalls.h"
#include "service/SearchService.h"
#include "skin/Skin.h"

inline const device::Profile kQvga{240, 320, 96};
inline const device::Profile kVga{480, 640, 192};

/// Selects the screen (profile and screen record) and loads its resource library and the
/// default skin from it; undone by the destructor.
class TestScreen {
  public:
    explicit TestScreen(const device::Profile& profile);
    ~TestScreen();
    TestScreen(const TestScreen&) = delete;
    TestScreen& operator=(const TestScreen&) = delete;
    Skin& TheSkin() { return *skin_; }
    /// The board's look for the picker: the skin's colours, fonts and list bitmaps.
    PickerLook SkinLook();
    /// A top-level stand-in for the board window.
    HWND Board() const { return board_; }

  private:
    HMODULE library_ = nullptr;
    std::unique_ptr<Skin> skin_;
    HBITMAP bitmaps_[4] = {};
    HWND board_ = nullptr;
};

/// Contacts of known names and numbers: Ivy Moss (none), Fred Smith (three), Freya Stone (one),
/// Zed (one), Олег Петров (two).
std::vector<ServiceContact> KnownBook();

/// The service with its client, as the picker uses them.
struct InProcessService {
    SearchService service;
    InProcessServiceCalls calls{service};
    SearchServiceClient client{calls};
};

/// Sets the "ABC" keypad choice: "Type" (when >= 0) and "Custom" (when given, as registry type
/// `customType`); undone by the destructor.
class KeypadSetting {
  public:
    KeypadSetting(int type, const std::vector<uint8_t>* custom = nullptr,
                  DWORD customType = REG_BINARY);
    ~KeypadSetting();
    KeypadSetting(const KeypadSetting&) = delete;
    KeypadSetting& operator=(const KeypadSetting&) = delete;
};

/// The picker with a test's script: `onInit` runs after set-up and posts what a person does;
/// Step(i) queues steps[i] behind what is queued. A dialog left open fails with kNeverEnded.
class DrivenPicker : public ContactPicker {
  public:
    static constexpr int kNeverEnded = -99;
    using ContactPicker::ContactPicker;
    void Step(int i);

    std::function<void(DrivenPicker&)> onInit;
    std::vector<std::function<void(DrivenPicker&)>> steps;
    int stepsRun = 0;

  protected:
    INT_PTR DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnInitDialog(HWND focus) override;
};

/// A person's taps: a keypad key (0 backspace, 1..8 the digits 2..9), the key of a digit
/// ('2'..'9'), a list row, a soft key.
void TapKey(HWND keypad, int key);
void TapDigit(HWND keypad, char digit);
void TapRow(FlickList& list, int row);
constexpr int kOkKey = 0;
constexpr int kCancelKey = 1;
void TapSoftKey(SoftKeyStrip& strip, int index);

/// The index of `oid` in the picker's results, or -1.
int ResultIndex(const PickerModel& model, uint32_t oid);
