#pragma once
// ContactsSession: the process's one connection to the contacts database. It reads one contact by
// object id into a ContactRecord, taking only the groups of properties asked for, and passes the
// database's item notices to a listener through a hidden window.
//
// What differs between platforms (COM, the store's class, the listener window, picture decoding,
// the ANSI code page of notes) is a ContactsPlatform; the portable one serves native builds and
// tests, and the Windows program installs its own (ContactsPlatformWin.h) before the first Get.

#include <cstdint>
#include <memory>

#include "contacts/ContactRecord.h"
#include "contacts/ContactsStore.h"
#include "contacts/NotesBlock.h"

/// Read flags: the groups of properties a read takes.
namespace read_flags {
constexpr uint32_t kNames = 1;        ///< the eight name parts
constexpr uint32_t kPhones = 2;       ///< the phone properties and the notes block's "Phone:" items
constexpr uint32_t kPicture = 4;      ///< the decoded picture (and has-picture)
constexpr uint32_t kList = 8;         ///< the list property, split at commas
constexpr uint32_t kExtra = 16;       ///< the extra text
constexpr uint32_t kHasPicture = 32;  ///< only whether a picture exists
constexpr uint32_t kNotes = 64;       ///< the notes text (notes without the block)
constexpr uint32_t kExtra23 = 128;    ///< extra texts 2 and 3
}  // namespace read_flags

/// Kinds of item notices passed to ContactsListener::ItemChanged.
constexpr int kItemDeleted = 0;
constexpr int kItemChanged = 1;
constexpr int kItemCreated = 2;

/// Receives the session's notices.
class ContactsListener {
  public:
    virtual ~ContactsListener() = default;
    /// A contact was deleted (kind 0), changed (1) or created (2).
    virtual void ItemChanged(int kind, uint32_t oid) = 0;
    /// The listener window received a timer message.
    virtual void Timer() = 0;
};

/// The item-changed kind of a listener-window message (0x8100..0x8107), or -1 for any other.
int ItemChangedKind(uint32_t message);

class ContactsSession;

/// What the session takes from the platform. The base class is the portable platform: no COM, the
/// vCard store of the default contacts file, a listener "window" that delivers notices at once,
/// no picture decoding, and windows-1252 as the ANSI code page.
class ContactsPlatform {
  public:
    virtual ~ContactsPlatform() = default;
    /// Initialises COM for the calling thread (multithreaded).
    virtual void InitializeCom() {}
    virtual void UninitializeCom() {}
    /// Creates the contacts database object; null when it cannot be created.
    virtual std::unique_ptr<ContactsStore> CreateStore();
    /// Creates the hidden listener window that hands notices to session.OnListenerMessage.
    virtual ContactsNoticeTarget* CreateListenerWindow(ContactsSession& session);
    virtual void DestroyListenerWindow(ContactsNoticeTarget* window);
    /// Decodes a picture stream to a bitmap fitted into width x height (cover); null on failure.
    virtual PictureHandle DecodePicture(ContactsStream& stream, int width, int height);
    /// How pictures from DecodePicture are deleted.
    virtual PictureRelease PictureReleaser() { return nullptr; }
    /// Converts single-byte notes in the system's ANSI code page.
    virtual AnsiDecoder NotesDecoder() { return DecodeWindows1252; }
};

/// The platform Get gives new sessions: the one installed, else the portable one.
ContactsPlatform& CurrentContactsPlatform();
/// Installs the platform for sessions made afterwards (null restores the portable one).
void SetContactsPlatform(ContactsPlatform* platform);

class ContactsSession {
  public:
    /// The process's session, created closed with no listener on first call; null when it
    /// cannot be created (the next call tries again).
    static ContactsSession* Get();

    /// A session of its own on `platform` (the service library and tests use one).
    explicit ContactsSession(ContactsPlatform& platform);
    virtual ~ContactsSession();
    ContactsSession(const ContactsSession&) = delete;
    ContactsSession& operator=(const ContactsSession&) = delete;

    /// Connects to the contacts database; with a listener, also creates the listener window and
    /// asks the default folder for local and remote notices. True on success; on failure
    /// whatever this call acquired (COM, the store, the window) is released again.
    bool Open();
    bool IsOpen() const { return store_ != nullptr; }
    /// Fills record with the groups of `flags` (read_flags) of the contact `oid`; the picture
    /// is fitted to width x height. True when the contact was found and read.
    bool ReadContact(uint32_t oid, ContactRecord& record, uint32_t flags, int pictureWidth,
                     int pictureHeight);
    /// Disconnects and destroys the listener window. The session can be opened again.
    void Destroy();

    void SetListener(ContactsListener* listener) { listener_ = listener; }
    ContactsListener* Listener() const { return listener_; }
    /// The open store (for enumeration); null while closed.
    ContactsStore* Store() const { return store_.get(); }

    /// Handles one message of the listener window: notices go to the listener.
    void OnListenerMessage(uint32_t message, uint32_t wParam);

  private:
    void EnableFolderNotices();
    void ReadStreams(ContactsItem& item, ContactRecord& record, uint32_t flags, int width,
                     int height, Array<Str>& noteLabels, Array<Str>& noteNumbers);

    ContactsPlatform& platform_;
    std::unique_ptr<ContactsStore> store_;
    ContactsListener* listener_ = nullptr;
    ContactsNoticeTarget* listenerWindow_ = nullptr;
};
