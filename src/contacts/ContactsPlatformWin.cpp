#include "contacts/ContactsPlatformWin.h"

#include <windows.h>

#include <utility>
#include <vector>

#include "contacts/Photos.h"
#include "contacts/VCardContactsStore.h"
#include "win/WideCast.h"
#include "win/WndBase.h"

namespace {

constexpr UINT kFileCheckMilliseconds = 1000;

/// The hidden window that receives the store's notices and hands them to the session.
class ListenerWindow : public WndBase, public ContactsNoticeTarget {
  public:
    explicit ListenerWindow(ContactsSession& session) : session_(session) {}

    bool Open() {
        UnregisterClassW(kListenerWindowClass, GetModuleHandleW(nullptr));
        return Register(kListenerWindowClass, kRedrawOnResize, nullptr,
                        static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))) &&
               Create(0, L"", 0, 0, 0, 0, 0, nullptr) != nullptr;
    }
    void PostNotice(uint32_t message, uint32_t oid) override {
        if (hwnd_ != nullptr)
            PostMessageW(hwnd_, message, oid, 0);
    }
    LRESULT WndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_TIMER:
            case contact_notices::kCreatedLocal:
            case contact_notices::kDeletedLocal:
            case contact_notices::kChangedLocal:
            case contact_notices::kCreatedRemote:
            case contact_notices::kDeletedRemote:
            case contact_notices::kChangedRemote:
                OnNotice(message, wParam);
                break;
            default:
                break;
        }
        return DefWindowProcW(hwnd, message, wParam, lParam);
    }

  private:
    void OnNotice(UINT message, WPARAM wParam) {
        session_.OnListenerMessage(message, static_cast<uint32_t>(wParam));
    }

    ContactsSession& session_;
};

/// The contacts file's store, checked for changes on a timer while someone wants notices.
class WatchedStore : public VCardContactsStore {
  public:
    explicit WatchedStore(const Str& path) : VCardContactsStore(path) {}
    ~WatchedStore() override { StopWatching(); }

    bool Logon(ContactsNoticeTarget* owner) override {
        if (!VCardContactsStore::Logon(owner))
            return false;
        if (owner != nullptr)
            StartWatching();
        return true;
    }
    void Logoff() override {
        StopWatching();
        VCardContactsStore::Logoff();
    }

  private:
    void StartWatching() {
        StopWatching();
        timer_ = SetTimer(nullptr, 0, kFileCheckMilliseconds, &WatchedStore::OnTimer);
        if (timer_ != 0)
            Watched().emplace_back(timer_, this);
    }
    void StopWatching() {
        if (timer_ == 0)
            return;
        KillTimer(nullptr, timer_);
        std::vector<std::pair<UINT_PTR, WatchedStore*>>& watched = Watched();
        for (size_t i = 0; i < watched.size(); ++i) {
            if (watched[i].first == timer_)
                watched.erase(watched.begin() + static_cast<long>(i));
        }
        timer_ = 0;
    }
    /// Thread timers carry no object, so the stores being watched are found by timer id.
    static std::vector<std::pair<UINT_PTR, WatchedStore*>>& Watched() {
        static std::vector<std::pair<UINT_PTR, WatchedStore*>> watched;
        return watched;
    }
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR timer, DWORD) {
        for (const auto& [id, store] : Watched()) {
            if (id == timer) {
                store->Refresh();
                return;
            }
        }
    }

    UINT_PTR timer_ = 0;
};

void DeleteBitmap(PictureHandle picture) {
    DeleteObject(static_cast<HBITMAP>(picture));
}

Str AnsiNotes(const uint8_t* bytes, size_t size) {
    if (size == 0 || size > 0x7FFFFFFF)
        return Str();
    int count = MultiByteToWideChar(CP_ACP, 0, reinterpret_cast<const char*>(bytes),
                                    static_cast<int>(size), nullptr, 0);
    std::vector<wchar_t> text(static_cast<size_t>(count) + 1, 0);
    MultiByteToWideChar(CP_ACP, 0, reinterpret_cast<const char*>(bytes), static_cast<int>(size),
                        text.data(), count);
    return Str(U(text.data()));
}

class WinPlatform : public ContactsPlatform {
  public:
    void InitializeCom() override {
        if (SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED)))
            ++comInitialized_;
    }
    void UninitializeCom() override {
        if (comInitialized_ == 0)
            return;
        --comInitialized_;
        CoUninitialize();
    }
    std::unique_ptr<ContactsStore> CreateStore() override {
        return CreateWatchedStore(DefaultContactsFilePath());
    }
    ContactsNoticeTarget* CreateListenerWindow(ContactsSession& session) override {
        auto* window = new ListenerWindow(session);
        if (window->Open())
            return window;
        delete window;
        return nullptr;
    }
    void DestroyListenerWindow(ContactsNoticeTarget* window) override {
        delete static_cast<ListenerWindow*>(window);
    }
    PictureHandle DecodePicture(ContactsStream& stream, int width, int height) override {
        return DecodePictureToBitmap(stream, width, height);
    }
    PictureRelease PictureReleaser() override { return DeleteBitmap; }
    AnsiDecoder NotesDecoder() override { return AnsiNotes; }

  private:
    int comInitialized_ = 0;
};

}  // namespace

std::unique_ptr<ContactsStore> CreateWatchedStore(const Str& path) {
    return std::make_unique<WatchedStore>(path);
}

ContactsPlatform& WinContactsPlatform() {
    static WinPlatform platform;
    return platform;
}

void InstallWinContactsPlatform() {
    SetContactsPlatform(&WinContactsPlatform());
}
