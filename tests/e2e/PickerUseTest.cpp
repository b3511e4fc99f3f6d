// Filling a free button of the real program as a person would: a tap on the free button opens the
// contact picker, digits tapped on its keypad narrow the list through the search service, the list
// is dragged and flung, a contact and then one of its numbers are chosen, and the registry holds
// the new button. Cancel goes back from the numbers to the contacts, and from there closes.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "BoardDriver.h"
#include "ScreenShot.h"

namespace {

using e2e::Contents;
using e2e::Process;
using e2e::Sandbox;

constexpr wchar_t kEntriesPath[] = L"Software\\Orvalis\\PIM\\Dialdeck";
constexpr wchar_t kDialogClass[] = L"#32770";

/// A contacts file: Zoe with two numbers, Anna with one, and forty more so that the list scrolls.
std::string ContactsFile() {
    std::string text =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Quist;Zoe;;;\r\nFN:Zoe Quist\r\n"
        "TEL;TYPE=CELL:+46709876543\r\nTEL;TYPE=HOME:+4687654321\r\nEND:VCARD\r\n"
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Lindqvist;Anna;;;\r\nFN:Anna Lindqvist\r\n"
        "TEL;TYPE=CELL:+46701234567\r\nEND:VCARD\r\n";
    for (int i = 10; i < 50; ++i) {
        const std::string n = std::to_string(i);
        text += "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Person;Filler" + n + ";;;\r\nFN:Filler" + n +
                " Person\r\nTEL;TYPE=WORK:+1555010" + n + "\r\nEND:VCARD\r\n";
    }
    return text;
}

std::optional<std::wstring> StoredText(const std::wstring& name) {
    wchar_t text[256] = {};
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_CURRENT_USER, kEntriesPath, name.c_str(), RRF_RT_REG_SZ, nullptr, text,
                     &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return std::wstring(text);
}

std::optional<DWORD> StoredNumber(const std::wstring& name) {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueW(HKEY_CURRENT_USER, kEntriesPath, name.c_str(), RRF_RT_REG_DWORD, nullptr,
                     &value, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return value;
}

LPARAM At(int x, int y) {
    return MAKELPARAM(x, y);
}

void Tap(HWND window, int x, int y) {
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, At(x, y));
    PostMessageW(window, WM_LBUTTONUP, 0, At(x, y));
}

RECT ClientOf(HWND window) {
    RECT r{};
    GetClientRect(window, &r);
    return r;
}

/// The picker's parts: its list on top, the keypad under it, the soft keys at the bottom.
struct Picker {
    HWND dialog = nullptr;
    HWND list = nullptr;
    HWND keypad = nullptr;
    HWND softKeys = nullptr;
};

BOOL CALLBACK AddChild(HWND child, LPARAM param) {
    reinterpret_cast<std::vector<HWND>*>(param)->push_back(child);
    return TRUE;
}

/// The visible dialogs of the process.
std::vector<HWND> DialogsOf(const Process& process) {
    std::vector<HWND> found;
    for (HWND w : e2e::WindowsOfClass(kDialogClass)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(w, &owner);
        if (owner == process.Id() && IsWindowVisible(w))
            found.push_back(w);
    }
    return found;
}

Picker PartsOf(HWND dialog) {
    std::vector<HWND> children;
    EnumChildWindows(dialog, &AddChild, reinterpret_cast<LPARAM>(&children));
    std::erase_if(children, [&](HWND c) { return GetParent(c) != dialog || !IsWindowVisible(c); });
    std::sort(children.begin(), children.end(), [](HWND a, HWND b) {
        RECT ra{};
        RECT rb{};
        GetWindowRect(a, &ra);
        GetWindowRect(b, &rb);
        return ra.top < rb.top;
    });
    Picker picker;
    picker.dialog = dialog;
    if (children.size() >= 3) {
        picker.list = children[0];
        picker.keypad = children[1];
        picker.softKeys = children.back();
    }
    return picker;
}

/// Taps the keypad key of digit '2'..'9' (keys run row by row, backspace first).
void TapDigit(const Picker& picker, char digit) {
    const int key = digit - '1';
    const RECT r = ClientOf(picker.keypad);
    const int w = r.right / 3;
    const int h = r.bottom / 3;
    Tap(picker.keypad, (key % 3) * w + w / 2, (key / 3) * h + h / 2);
}

/// Taps the right-hand soft key: Cancel.
void TapCancel(const Picker& picker) {
    const RECT r = ClientOf(picker.softKeys);
    Tap(picker.softKeys, r.right * 3 / 4, r.bottom / 2);
}

/// How many different colours the lower half of the list shows: one when no row is there.
size_t ColoursInLowerHalf(HWND list) {
    shot::Image image;
    if (!shot::CaptureClient(list, image))
        return 0;
    std::set<COLORREF> colours;
    for (int y = image.height / 2; y < image.height - 2; y += 2) {
        for (int x = 2; x < image.width - 24; x += 2)
            colours.insert(image.At(x, y));
    }
    return colours.size();
}

std::vector<uint32_t> PixelsOf(HWND window) {
    shot::Image image;
    shot::CaptureClient(window, image);
    return image.pixels;
}

void Save(HWND window, const wchar_t* name) {
    shot::Image image;
    RECT area{};
    GetWindowRect(window, &area);
    ASSERT_TRUE(shot::CaptureScreen(area, image));
    EXPECT_TRUE(shot::SavePng(image, e2e::ScreenshotPath(name).c_str()));
}

class E2ePickerUse : public ::testing::Test {
  protected:
    void SetUp() override {
        e2e::CleanRegistry();
        ASSERT_TRUE(e2e::WindowsOfClass(e2e::kBoardClass).empty()) << "a board is still running";
    }
    void TearDown() override {
        for (HWND dialog : DialogsOf(process_))
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        if (process_.IsRunning() && board_ != nullptr)
            PostMessageW(board_, WM_CLOSE, 100, 0);
        process_.WaitExit(e2e::kStepTimeoutMs);
        e2e::CleanRegistry();
    }

    /// Starts the program on an empty board and taps its first (free) button.
    Picker OpenPicker(const wchar_t* profile = L"480x640@192") {
        process_ = sandbox_.Start(L"", profile);
        board_ = e2e::WaitForWindowOf(process_, e2e::kBoardClass, nullptr, true);
        EXPECT_NE(board_, nullptr);
        EXPECT_TRUE(process_.WaitIdle());
        const RECT client = ClientOf(board_);
        Tap(board_, client.right / 6, client.bottom / 8);
        EXPECT_TRUE(e2e::WaitUntil([&] { return !DialogsOf(process_).empty(); }));
        if (DialogsOf(process_).empty())
            return {};
        Picker picker = PartsOf(DialogsOf(process_).front());
        EXPECT_NE(picker.list, nullptr);
        // The first search has filled the list before the person starts typing.
        EXPECT_TRUE(e2e::WaitUntil([&] { return ColoursInLowerHalf(picker.list) > 1; }));
        return picker;
    }

    /// Types `digits` on the keypad and waits until the list shows only what they match (a
    /// lower half with no row in it).
    bool TypeUntilNarrowed(const Picker& picker, const char* digits) {
        for (const char* d = digits; *d != 0; ++d)
            TapDigit(picker, *d);
        return e2e::WaitUntil([&] { return ColoursInLowerHalf(picker.list) == 1; });
    }

    bool PickerGone() {
        return e2e::WaitUntil([&] { return DialogsOf(process_).empty(); });
    }

    std::string contacts_ = ContactsFile();
    Sandbox sandbox_{Contents{.normalLibrary = true,
                              .vgaLibrary = true,
                              .searchService = true,
                              .contacts = contacts_.c_str()}};
    Process process_;
    HWND board_ = nullptr;
};

TEST_F(E2ePickerUse, TypeFlingChooseAContactAndOneOfItsNumbers) {
    const Picker picker = OpenPicker();
    ASSERT_NE(picker.keypad, nullptr);
    Save(picker.dialog, L"e2e-picker-480x640-open.png");
    // A drag upward with the finger moving fast, then let go: the list flings on and comes to rest
    // further down the contacts.
    const std::vector<uint32_t> before = PixelsOf(picker.list);
    const RECT list = ClientOf(picker.list);
    const int x = list.right / 2;
    PostMessageW(picker.list, WM_LBUTTONDOWN, MK_LBUTTON, At(x, list.bottom * 9 / 10));
    for (int step = 1; step <= 8; ++step) {
        Sleep(15);
        const int y = list.bottom * 9 / 10 - step * list.bottom / 10;
        PostMessageW(picker.list, WM_MOUSEMOVE, MK_LBUTTON, At(x, y));
    }
    PostMessageW(picker.list, WM_LBUTTONUP, 0, At(x, list.bottom / 10));
    ASSERT_TRUE(e2e::WaitUntil([&] { return PixelsOf(picker.list) != before; }));
    std::vector<uint32_t> settled;
    ASSERT_TRUE(e2e::WaitUntil([&] {
        std::vector<uint32_t> now = PixelsOf(picker.list);
        const bool still = now == settled;
        settled = std::move(now);
        return still;
    }));
    Save(picker.dialog, L"e2e-picker-480x640-after-fling.png");
    // Z-o-e on the keypad leaves Zoe alone in the list.
    ASSERT_TRUE(TypeUntilNarrowed(picker, "963"));
    Save(picker.dialog, L"e2e-picker-480x640-typed.png");
    // Zoe has two numbers: her row leads to them.
    Tap(picker.list, list.right / 2, 8);
    Sleep(300);
    ASSERT_FALSE(DialogsOf(process_).empty());
    Save(picker.dialog, L"e2e-picker-480x640-numbers.png");
    EXPECT_EQ(StoredNumber(L"Oid0"), std::nullopt);
    // Down to the second number, and Enter chooses it. A key is let go before the next one goes
    // down, as fingers do: keys already waiting behind a key-up are dropped as auto-repeats.
    const std::vector<uint32_t> numbers = PixelsOf(picker.list);
    PostMessageW(picker.list, WM_KEYDOWN, VK_DOWN, 1);
    PostMessageW(picker.list, WM_KEYUP, VK_DOWN, 0xC0000001);
    ASSERT_TRUE(e2e::WaitUntil([&] { return PixelsOf(picker.list) != numbers; }));
    PostMessageW(picker.list, WM_KEYDOWN, VK_RETURN, 1);
    PostMessageW(picker.list, WM_KEYUP, VK_RETURN, 0xC0000001);
    ASSERT_TRUE(PickerGone());
    ASSERT_TRUE(e2e::WaitUntil([] { return StoredText(L"Phone0").has_value(); }));
    EXPECT_EQ(StoredText(L"Phone0"), L"+4687654321");
    EXPECT_EQ(StoredNumber(L"Index0"), 0u);
    EXPECT_NE(StoredNumber(L"Oid0").value_or(0), 0u);
    EXPECT_EQ(StoredText(L"First0"), L"Zoe");
    EXPECT_EQ(StoredText(L"Last0"), L"Quist");
    Sleep(300);
    Save(board_, L"e2e-picker-480x640-bound.png");
    EXPECT_TRUE(process_.IsRunning());
}

TEST_F(E2ePickerUse, AContactWithOneNumberIsBoundAtOnce) {
    const Picker picker = OpenPicker(L"240x320@96");
    ASSERT_NE(picker.keypad, nullptr);
    ASSERT_TRUE(TypeUntilNarrowed(picker, "2662"));  // A-n-n-a
    Save(picker.dialog, L"e2e-picker-240x320-typed.png");
    Tap(picker.list, ClientOf(picker.list).right / 2, 6);
    ASSERT_TRUE(PickerGone());
    ASSERT_TRUE(e2e::WaitUntil([] { return StoredText(L"Phone0").has_value(); }));
    EXPECT_EQ(StoredText(L"Phone0"), L"+46701234567");
    EXPECT_EQ(StoredText(L"Last0"), L"Lindqvist");
}

TEST_F(E2ePickerUse, CancelGoesBackFromTheNumbersThenClosesAndStoresNothing) {
    const Picker picker = OpenPicker();
    ASSERT_NE(picker.softKeys, nullptr);
    ASSERT_TRUE(TypeUntilNarrowed(picker, "963"));
    const std::vector<uint32_t> contacts = PixelsOf(picker.list);
    Tap(picker.list, ClientOf(picker.list).right / 2, 8);
    ASSERT_TRUE(e2e::WaitUntil([&] { return PixelsOf(picker.list) != contacts; }));
    // Cancel in the numbers shows the same contact list again, with the dialog still open.
    TapCancel(picker);
    ASSERT_TRUE(e2e::WaitUntil([&] { return PixelsOf(picker.list) == contacts; }));
    EXPECT_FALSE(DialogsOf(process_).empty());
    // Cancel in the contacts closes the picker; the button stays free.
    TapCancel(picker);
    ASSERT_TRUE(PickerGone());
    Sleep(300);
    EXPECT_EQ(StoredNumber(L"Oid0"), std::nullopt);
    EXPECT_TRUE(process_.IsRunning());
}

}  // namespace
