#include "BoardTestSetup.h"

#include <cstdlib>
#include <filesystem>

#include "base/Registry.h"
#include "base/ResourcePlace.h"
#include "base/ScreenInfo.h"
#include "base/SettingsStore.h"
#include "skin/ButtonPanel.h"
#include "view/BoardWindow.h"
#include "win/WideCast.h"

namespace {

constexpr char16_t kEntriesKey[] = u"Software\\Orvalis\\PIM\\Dialdeck";
constexpr uint32_t kPhotoOid = 7;

void SetNumber(registry::Key key, const Str& name, uint32_t value) {
    registry::Set(key, name, registry::kTypeDword, &value, sizeof value);
}

void SetText(registry::Key key, const Str& name, const char16_t* text) {
    Str value(text);
    registry::Set(key, name, registry::kTypeString, value.c_str(),
                  static_cast<uint32_t>((value.Length() + 1) * sizeof(char16_t)));
}

Str Named(const char16_t* pattern, int i) {
    Str name;
    name.Format(pattern, i);
    return name;
}

const StoredEntry* FindDemo(uint32_t oid) {
    for (const StoredEntry& e : DemoEntries()) {
        if (e.oid == oid && oid != 0)
            return &e;
    }
    return nullptr;
}

std::wstring ExecutableFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().wstring();
}

}  // namespace

const std::vector<StoredEntry>& DemoEntries() {
    static const std::vector<StoredEntry> entries = {
        {1, u"", 1, 0, u"+46701234567", u"Mobile", u"Anna", u"Lindqvist"},
        {2, u"", 2, 1, u"+2348031234567", u"Work", u"Bob", u"Okafor"},
        {3, u"Mum", 3, 2, u"+441632960123", u"Home", u"Margaret", u"Hale"},
        {4, u"", -1, 3, u"+74951234567", u"Mobile", u"\u0414\u043C\u0438\u0442\u0440\u0438\u0439",
         u"\u0418\u0432\u0430\u043D\u043E\u0432"},
        {5, u"", 12, 4, u"+302101234567", u"Home", u"\u0395\u03BB\u03AD\u03BD\u03B7",
         u"\u03A0\u03B1\u03C0\u03B1\u03B4\u03BF\u03C0\u03BF\u03CD\u03BB\u03BF\u03C5"},
        {6, u"Dr. Margarethe Vanderbilt-Oppenheimer", 99, 5, u"+4930123456", u"Work", u"Margarethe",
         u"Vanderbilt-Oppenheimer"},
        {0, u"Old Office", -1, 6, u"+15550100", u"Work", u"", u""},
        {kPhotoOid, u"", 7, 7, u"+33612345678", u"Mobile", u"Chlo\u00E9", u"Martin"},
        {9, u"Pizza Roma", -1, 9, u"+390612345678", u"Work", u"", u""},
    };
    return entries;
}

void StoreEntries(const std::vector<StoredEntry>& entries) {
    registry::DeleteTree(kEntriesKey);
    if (entries.empty())
        return;
    registry::KeyHolder key(registry::Create(kEntriesKey));
    for (size_t n = 0; n < entries.size(); ++n) {
        const StoredEntry& e = entries[n];
        const int i = static_cast<int>(n);
        SetNumber(key.get(), Named(u"Oid%d", i), e.oid);
        SetText(key.get(), Named(u"Display%d", i), e.display);
        SetNumber(key.get(), Named(u"Btn%d", i), static_cast<uint32_t>(e.btn));
        SetNumber(key.get(), Named(u"Index%d", i), static_cast<uint32_t>(e.slot));
        SetText(key.get(), Named(u"Phone%d", i), e.phone);
        SetText(key.get(), Named(u"Type%d", i), e.type);
        SetNumber(key.get(), Named(u"Link%d", i), 1);
        SetText(key.get(), Named(u"First%d", i), e.first);
        SetText(key.get(), Named(u"Last%d", i), e.last);
        SetText(key.get(), Named(u"Middle%d", i), u"");
        SetText(key.get(), Named(u"Company%d", i), u"");
    }
    registry::Flush(key.get());
}

void StoreOptions(bool big, bool showType, bool showNumber) {
    settings::WriteNumber(settings::kSettingsKey, settings::kBigButtons.name, big ? 1 : 0);
    settings::WriteNumber(settings::kSettingsKey, settings::kShowPhoneType.name, showType ? 1 : 0);
    settings::WriteNumber(settings::kSettingsKey, settings::kShowDialerButton.name,
                          showNumber ? 1 : 0);
}

void ForgetStoredBoard() {
    registry::DeleteTree(kEntriesKey);
    registry::KeyHolder key(registry::Open(u"Software\\Orvalis\\PIM\\Settings"));
    if (!key)
        return;
    for (const char16_t* name : {settings::kBigButtons.name, settings::kShowPhoneType.name,
                                 settings::kShowDialerButton.name}) {
        registry::DeleteValue(key.get(), name);
    }
}

bool DemoContacts::Read(uint32_t oid, uint32_t, ContactRecord& record) {
    if (deleted.contains(oid))
        return false;
    const StoredEntry* e = FindDemo(oid);
    for (const StoredEntry& more : added) {
        if (e == nullptr && oid != 0 && more.oid == oid)
            e = &more;
    }
    if (e == nullptr)
        return false;
    record.Clear();
    record.oid = oid;
    record.firstName = e->first;
    record.lastName = e->last;
    ContactPhone phone;
    phone.number = e->phone;
    phone.label = e->type;
    phone.type = 1;
    record.phones.Add(phone);
    record.hasPicture = pictures.contains(oid) ? 1 : 0;
    return true;
}

bool DemoContacts::FindByNumber(const Str&, Array<uint32_t>& oids) {
    oids.RemoveAll();
    return false;
}

HMODULE UseScreen(const device::Profile& profile) {
    device::SetCurrentProfile(profile);
    SetScreen(ComputeScreenInfo(profile.dpi, profile.dpi, profile.width, profile.height));
    const std::wstring name = Screen().hiRes != 0 ? L"DialdeckResVga.dll" : L"DialdeckRes.dll";
    const std::wstring path = ExecutableFolder() + L"\\" + name;
    HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    TheResourcePlace().library = library;
    SetResourceModule(library);
    return library;
}

void UseSkinFolder(const std::wstring& folder) {
    TheResourcePlace().skinFolder = U(folder.c_str());
}

shot::Image RenderBoard(BoardWindow& board) {
    RECT client{};
    GetClientRect(board.Hwnd(), &client);
    shot::Canvas canvas(client.right, client.bottom);
    HDC dc = canvas.Dc();
    board.Paint(dc, client);
    if (ButtonPanel* panel = board.Panel()) {
        RECT at{};
        GetWindowRect(panel->Hwnd(), &at);
        MapWindowPoints(nullptr, board.Hwnd(), reinterpret_cast<POINT*>(&at), 2);
        RECT panelClient{};
        GetClientRect(panel->Hwnd(), &panelClient);
        SetViewportOrgEx(dc, at.left, at.top, nullptr);
        panel->Paint(dc, panelClient);
        SetViewportOrgEx(dc, 0, 0, nullptr);
    }
    return canvas.Snapshot();
}

HBITMAP MakeTestPhoto(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    auto* pixels = static_cast<uint32_t*>(bits);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            // A warm portrait-like gradient with a soft round "face" in the middle.
            const int dx = x - width / 2;
            const int dy = y - height * 2 / 5;
            const bool face = dx * dx * 4 + dy * dy * 3 < width * width / 2;
            const uint32_t r = face ? 232 : 60 + 120 * y / height;
            const uint32_t g = face ? 190 : 110 + 60 * x / width;
            const uint32_t b = face ? 160 : 170 - 80 * y / height;
            pixels[y * width + x] = r << 16 | g << 8 | b;
        }
    }
    return bitmap;
}
