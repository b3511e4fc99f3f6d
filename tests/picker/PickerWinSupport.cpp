#include "PickerWinSupport.h"

#include <filesystem>

#include "base/ResourcePlace.h"
#include "base/ScreenInfo.h"
#include "keypad/KeypadLayout.h"
#include "win/WndBase.h"

namespace {

constexpr UINT kRunStep = WM_APP + 1;
constexpr UINT_PTR kSafetyTimer = 99;
constexpr UINT kSafetyMs = 8000;
constexpr wchar_t kKeypadKey[] = L"Software\\Orvalis\\PIM\\ABC";

std::wstring ExecutableFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().wstring();
}

void Tap(HWND window, int x, int y) {
    const LPARAM at = MAKELPARAM(x, y);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(window, WM_LBUTTONUP, 0, at);
}

ServicePhone Phone(const std::u16string& number, int32_t type, const std::u16string& label = u"") {
    return ServicePhone{number, label, type};
}

ServiceContact Contact(uint32_t oid, const std::u16string& first, const std::u16string& last,
                       const std::u16string& company, std::vector<ServicePhone> phones) {
    ServiceContact c;
    c.oid = oid;
    c.fields[kFieldFirst] = first;
    c.fields[kFieldLast] = last;
    c.fields[kFieldCompany] = company;
    c.phones = std::move(phones);
    return c;
}

}  // namespace

TestScreen::TestScreen(const device::Profile& profile) {
    device::SetCurrentProfile(profile);
    SetScreen(ComputeScreenInfo(profile.dpi, profile.dpi, profile.width, profile.height));
    const std::wstring name = Screen().hiRes != 0 ? L"DialdeckResVga.dll" : L"DialdeckRes.dll";
    library_ = LoadLibraryExW((ExecutableFolder() + L"\\" + name).c_str(), nullptr,
                              LOAD_LIBRARY_AS_DATAFILE);
    TheResourcePlace().library = library_;
    SetResourceModule(library_);
    skin_ = std::make_unique<Skin>(Str(u"C:\\no-such-folder\\DialdeckSkin"), library_);
    skin_->LoadSkinFile();
    const int bar = BarHeightAt(profile.dpi);
    board_ = CreateWindowExW(0, L"STATIC", L"Orvalis Dialdeck", WS_POPUP, 0, bar, profile.width,
                             profile.height - bar, nullptr, nullptr, nullptr, nullptr);
}

TestScreen::~TestScreen() {
    if (board_ != nullptr)
        DestroyWindow(board_);
    for (HBITMAP bitmap : bitmaps_) {
        if (bitmap != nullptr)
            DeleteObject(bitmap);
    }
    skin_.reset();
    SetResourceModule(nullptr);
    TheResourcePlace().library = nullptr;
    if (library_ != nullptr)
        FreeLibrary(library_);
}

PickerLook TestScreen::SkinLook() {
    PickerLook look;
    const SkinColours& colours = skin_->Colours();
    look.background = colours.background;
    look.text = colours.text;
    look.selectedText = colours.textSelected;
    look.font = skin_->Font(SkinFont::kText);
    look.smallFont = skin_->Font(SkinFont::kSmall);
    if (bitmaps_[0] == nullptr) {
        bitmaps_[0] =
            skin_->LoadSkinBitmap(skin_bitmap::kListUnselected, u"list_unselect_bgr").Release();
        bitmaps_[1] =
            skin_->LoadSkinBitmap(skin_bitmap::kListSelected, u"list_select_bgr").Release();
        bitmaps_[2] = skin_->LoadSkinBitmap(skin_bitmap::kListVoid, u"list_void_bgr").Release();
        bitmaps_[3] = skin_->LoadSkinBitmap(skin_bitmap::kScroll, u"scroll").Release();
    }
    look.rowUnselected = bitmaps_[0];
    look.rowSelected = bitmaps_[1];
    look.rowVoid = bitmaps_[2];
    look.scrollThumb = bitmaps_[3];
    return look;
}

std::vector<ServiceContact> KnownBook() {
    return {
        Contact(30, u"Ivy", u"Moss", u"Globex", {}),
        Contact(10, u"Fred", u"Smith", u"Acme",
                {Phone(u"81234567890", 1), Phone(u"+71234567890", 0),
                 Phone(u"555-0100", 100, u"Dacha")}),
        Contact(20, u"Freya", u"Stone", u"", {Phone(u"1234567", 1)}),
        Contact(40, u"Zed", u"", u"", {Phone(u"+44 1234 999", 3)}),
        Contact(50, u"Олег", u"Петров", u"Рога и копыта",
                {Phone(u"89161234567", 1), Phone(u"4951234567", 2)}),
    };
}

KeypadSetting::KeypadSetting(int type, const std::vector<uint8_t>* custom, DWORD customType) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kKeypadKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) != ERROR_SUCCESS) {
        return;
    }
    if (type >= 0) {
        const auto value = static_cast<DWORD>(type);
        RegSetValueExW(key, L"Type", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                       sizeof(value));
    }
    if (custom != nullptr) {
        RegSetValueExW(key, L"Custom", 0, customType, custom->data(),
                       static_cast<DWORD>(custom->size()));
    }
    RegCloseKey(key);
}

KeypadSetting::~KeypadSetting() {
    RegDeleteKeyW(HKEY_CURRENT_USER, kKeypadKey);
}

void DrivenPicker::Step(int i) {
    PostMessageW(Hwnd(), kRunStep, static_cast<WPARAM>(i), 0);
}

INT_PTR DrivenPicker::DlgProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TIMER && wParam == kSafetyTimer) {
        End(kNeverEnded);
        return TRUE;
    }
    if (message == kRunStep) {
        steps.at(wParam)(*this);
        ++stepsRun;
        return TRUE;
    }
    return ContactPicker::DlgProc(hwnd, message, wParam, lParam);
}

bool DrivenPicker::OnInitDialog(HWND focus) {
    const bool result = ContactPicker::OnInitDialog(focus);
    // A real timer: the picker's own timers may run on fake time.
    SetTimer(Hwnd(), kSafetyTimer, kSafetyMs, nullptr);
    if (onInit)
        onInit(*this);
    return result;
}

void TapKey(HWND keypad, int key) {
    RECT client{};
    GetClientRect(keypad, &client);
    const int w = client.right / 3;
    const int h = client.bottom / 3;
    Tap(keypad, (key % 3) * w + w / 2, (key / 3) * h + h / 2);
}

void TapDigit(HWND keypad, char digit) {
    TapKey(keypad, digit - '1');
}

void TapRow(FlickList& list, int row) {
    const RECT r = list.GetRowRect(row);
    Tap(list.Hwnd(), (r.left + r.right) / 2, (r.top + r.bottom) / 2);
}

void TapSoftKey(SoftKeyStrip& strip, int index) {
    const Rect key = strip.ButtonRect(index);
    Tap(strip.Hwnd(), (key.left + key.right) / 2, (key.top + key.bottom) / 2);
}

int ResultIndex(const PickerModel& model, uint32_t oid) {
    for (int i = 0; i < model.Results().Size(); ++i) {
        if (model.Results()[i] == oid)
            return i;
    }
    return -1;
}
