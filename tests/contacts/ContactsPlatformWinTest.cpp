// The session on the Windows platform: the listener window, the contacts file and its photos.
#include "contacts/ContactsPlatformWin.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "contacts/VCardContactsStore.h"
#include "win/WideCast.h"

namespace {

class RecordingListener : public ContactsListener {
  public:
    void ItemChanged(int kind, uint32_t oid) override { notices.emplace_back(kind, oid); }
    void Timer() override { ++timers; }
    std::vector<std::pair<int, uint32_t>> notices;
    int timers = 0;
};

void Pump() {
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&msg);
}

/// Pumps messages until `done` holds, for at most the given time.
template <typename Done>
bool PumpUntil(Done done, DWORD milliseconds) {
    DWORD start = GetTickCount();
    while (!done()) {
        if (GetTickCount() - start > milliseconds)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        Pump();
    }
    return true;
}

void SetContactsFile(const std::wstring& path) {
    std::u16string key = std::u16string(settings::kRoot) + settings::kSettingsKey;
    registry::KeyHolder holder(registry::Create(key.c_str()));
    ASSERT_TRUE(holder);
    if (path.empty()) {
        registry::DeleteValue(holder.get(), kContactsFileSetting);
        return;
    }
    registry::Set(holder.get(), kContactsFileSetting, registry::kTypeString, path.c_str(),
                  static_cast<uint32_t>((path.size() + 1) * sizeof(wchar_t)));
}

/// The Windows platform on a contacts file of the test's own (tests may run side by side, so
/// only the test of the file rule touches the shared setting).
class FilePlatform : public ContactsPlatform {
  public:
    explicit FilePlatform(const std::wstring& path) : path_(path) {}
    void InitializeCom() override { Win().InitializeCom(); }
    void UninitializeCom() override { Win().UninitializeCom(); }
    std::unique_ptr<ContactsStore> CreateStore() override {
        return CreateWatchedStore(Str(U(path_.c_str())));
    }
    ContactsNoticeTarget* CreateListenerWindow(ContactsSession& session) override {
        return Win().CreateListenerWindow(session);
    }
    void DestroyListenerWindow(ContactsNoticeTarget* window) override {
        Win().DestroyListenerWindow(window);
    }
    PictureHandle DecodePicture(ContactsStream& stream, int width, int height) override {
        return Win().DecodePicture(stream, width, height);
    }
    PictureRelease PictureReleaser() override { return Win().PictureReleaser(); }
    AnsiDecoder NotesDecoder() override { return Win().NotesDecoder(); }

  private:
    static ContactsPlatform& Win() { return WinContactsPlatform(); }
    std::wstring path_;
};

/// The listener window of this thread, or null (other test programs may have theirs).
HWND ListenerWindowOfThisThread() {
    HWND found = nullptr;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND hwnd, LPARAM param) -> BOOL {
            wchar_t name[64] = {};
            GetClassNameW(hwnd, name, 64);
            if (std::wstring(name) != kListenerWindowClass)
                return TRUE;
            *reinterpret_cast<HWND*>(param) = hwnd;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

std::wstring TempFile(const wchar_t* name) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    return std::wstring(folder) + name;
}

void WriteFile(const std::wstring& path, const std::string& text) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                              0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    ::WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    static int saves = 0;
    ULARGE_INTEGER stamp{{now.dwLowDateTime, now.dwHighDateTime}};
    stamp.QuadPart += 10000000ull * ++saves;  // a later stamp for every save
    now = {stamp.LowPart, stamp.HighPart};
    SetFileTime(file, nullptr, nullptr, &now);
    CloseHandle(file);
}

std::string Card(const std::string& name, const std::string& tel) {
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + name + "\r\nN:" + name +
           ";\r\nTEL;TYPE=CELL:" + tel + "\r\nEND:VCARD\r\n";
}

TEST(ContactsPlatformWinTest, TheListenerWindowHandsNoticesToTheListener) {
    std::wstring path = TempFile(L"dd-listener.vcf");
    WriteFile(path, Card("A", "1"));
    FilePlatform platform(path);
    ContactsSession session(platform);
    RecordingListener listener;
    session.SetListener(&listener);
    ASSERT_TRUE(session.Open());
    HWND window = ListenerWindowOfThisThread();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(GetClassLongPtrW(window, GCL_STYLE), static_cast<ULONG_PTR>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_EQ(GetClassLongPtrW(window, GCLP_HBRBACKGROUND),
              reinterpret_cast<ULONG_PTR>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(GetWindowTextLengthW(window), 0);
    EXPECT_EQ(GetParent(window), nullptr);
    PostMessageW(window, 0x8100, 11, 0);
    PostMessageW(window, 0x8101, 12, 0);
    PostMessageW(window, 0x8102, 13, 0);
    PostMessageW(window, 0x8105, 14, 0);
    PostMessageW(window, 0x8106, 15, 0);
    PostMessageW(window, 0x8107, 16, 0);
    PostMessageW(window, 0x8103, 17, 0);
    SendMessageW(window, WM_TIMER, 1, 0);
    Pump();
    EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{
                                    {2, 11}, {0, 12}, {1, 13}, {2, 14}, {0, 15}, {1, 16}}));
    EXPECT_GE(listener.timers, 1);
    session.Destroy();
    EXPECT_EQ(ListenerWindowOfThisThread(), nullptr);
    DeleteFileW(path.c_str());
}

TEST(ContactsPlatformWinTest, NoListenerNoWindow) {
    std::wstring path = TempFile(L"dd-nolistener.vcf");
    WriteFile(path, Card("A", "1"));
    FilePlatform platform(path);
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    EXPECT_EQ(ListenerWindowOfThisThread(), nullptr);
    session.Destroy();
    DeleteFileW(path.c_str());
}

/// The file's store behind a log on that fails while `failing` is set.
class FailingLogonStore : public ContactsStore {
  public:
    FailingLogonStore(std::unique_ptr<ContactsStore> store, const bool& failing)
        : store_(std::move(store)), failing_(failing) {}
    bool Logon(ContactsNoticeTarget* owner) override { return !failing_ && store_->Logon(owner); }
    void Logoff() override { store_->Logoff(); }
    std::unique_ptr<ContactsItem> GetItemFromOid(uint32_t oid) override {
        return store_->GetItemFromOid(oid);
    }
    std::unique_ptr<ContactsItem> GetDefaultFolder(int folderType) override {
        return store_->GetDefaultFolder(folderType);
    }
    bool EnumerateOids(std::vector<uint32_t>& oids) override { return store_->EnumerateOids(oids); }
    void Refresh() override { store_->Refresh(); }

  private:
    std::unique_ptr<ContactsStore> store_;
    const bool& failing_;
};

class FailingLogonPlatform : public FilePlatform {
  public:
    using FilePlatform::FilePlatform;
    std::unique_ptr<ContactsStore> CreateStore() override {
        return std::make_unique<FailingLogonStore>(FilePlatform::CreateStore(), failing);
    }
    bool failing = true;
};

TEST(ContactsPlatformWinTest, AFailedLogonTakesItsListenerWindowAlong) {
    std::wstring path = TempFile(L"dd-failedlogon.vcf");
    WriteFile(path, Card("A", "1"));
    FailingLogonPlatform platform(path);
    ContactsSession session(platform);
    RecordingListener listener;
    session.SetListener(&listener);
    EXPECT_FALSE(session.Open());
    EXPECT_EQ(ListenerWindowOfThisThread(), nullptr);

    platform.failing = false;
    ASSERT_TRUE(session.Open());
    EXPECT_NE(ListenerWindowOfThisThread(), nullptr);
    std::vector<uint32_t> oids;
    ASSERT_TRUE(session.Store()->EnumerateOids(oids));
    ContactRecord record;
    ASSERT_EQ(oids.size(), 1u);
    EXPECT_TRUE(session.ReadContact(oids[0], record, read_flags::kNames, 0, 0));
    session.Destroy();
    EXPECT_EQ(ListenerWindowOfThisThread(), nullptr);
    DeleteFileW(path.c_str());
}

TEST(ContactsPlatformWinTest, AnEditOnDiskReachesTheListenerByItself) {
    std::wstring path = TempFile(L"dd-watched.vcf");
    WriteFile(path, Card("A", "1") + Card("B", "2"));
    FilePlatform platform(path);
    ContactsSession session(platform);
    RecordingListener listener;
    session.SetListener(&listener);
    ASSERT_TRUE(session.Open());
    std::vector<uint32_t> oids;
    ASSERT_TRUE(session.Store()->EnumerateOids(oids));
    ASSERT_EQ(oids.size(), 2u);
    WriteFile(path, Card("A", "1") + Card("B", "22"));
    // The store checks the file on a timer; nothing else touches it here.
    EXPECT_TRUE(PumpUntil([&] { return !listener.notices.empty(); }, 10000));
    EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{{1, oids[1]}}));
    ContactRecord record;
    ASSERT_TRUE(session.ReadContact(oids[1], record, read_flags::kPhones, 0, 0));
    EXPECT_EQ(std::u16string(record.phones[0].number.c_str()), u"22");
    session.Destroy();
    DeleteFileW(path.c_str());
}

TEST(ContactsPlatformWinTest, ReadsTheDemoContactsWithPhotos) {
    wchar_t full[MAX_PATH] = {};
    std::string demo = DD_DEMO "/Contacts.vcf";
    GetFullPathNameW(std::wstring(demo.begin(), demo.end()).c_str(), MAX_PATH, full, nullptr);
    SetContactsFile(full);  // the file rule itself: the setting names the file
    InstallWinContactsPlatform();
    ContactsSession* session = ContactsSession::Get();
    ASSERT_NE(session, nullptr);
    ASSERT_TRUE(session->Open());
    std::vector<uint32_t> oids;
    ASSERT_TRUE(session->Store()->EnumerateOids(oids));
    ASSERT_EQ(oids.size(), 32u);
    int pictures = 0;
    int notesItems = 0;
    ContactRecord record;
    for (uint32_t oid : oids) {
        ASSERT_TRUE(session->ReadContact(oid, record, 35 | read_flags::kPicture, 64, 64));
        if (record.picture != nullptr) {
            ++pictures;
            BITMAP bitmap{};
            ASSERT_TRUE(
                GetObjectW(static_cast<HBITMAP>(record.picture.Get()), sizeof bitmap, &bitmap));
            EXPECT_TRUE((bitmap.bmWidth == 64 && bitmap.bmHeight >= 64) ||
                        (bitmap.bmHeight == 64 && bitmap.bmWidth >= 64))
                << bitmap.bmWidth << "x" << bitmap.bmHeight;
            EXPECT_GE(bitmap.bmBitsPixel, 16);
        }
        EXPECT_EQ(record.hasPicture, record.picture != nullptr ? 1u : record.hasPicture);
        for (const ContactPhone& phone : record.phones)
            notesItems += phone.type == 100 ? 1 : 0;
    }
    EXPECT_EQ(pictures, 10);
    EXPECT_EQ(notesItems, 7);
    ASSERT_TRUE(session->ReadContact(oids[0], record, read_flags::kNames, 0, 0));
    EXPECT_EQ(std::u16string(record.firstName.c_str()), u"Ana María");
    ASSERT_TRUE(session->ReadContact(oids[4], record, read_flags::kNames, 0, 0));
    EXPECT_EQ(std::u16string(record.lastName.c_str()), u"Петров");
    session->Destroy();
    SetContactsFile(L"");
}

TEST(ContactsPlatformWinTest, AnsiNotesUseTheSystemCodePage) {
    AnsiDecoder decode = WinContactsPlatform().NotesDecoder();
    const uint8_t bytes[] = {'a', 'b', 'c'};
    EXPECT_EQ(std::u16string(decode(bytes, 3).c_str()), u"abc");
    const uint8_t high[] = {0xE9};
    wchar_t expected = 0;
    MultiByteToWideChar(CP_ACP, 0, reinterpret_cast<const char*>(high), 1, &expected, 1);
    EXPECT_EQ(static_cast<wchar_t>(decode(high, 1)[0]), expected);
}

}  // namespace
