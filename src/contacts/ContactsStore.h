#pragma once
// The contacts store seam: the device's contacts database as the session sees it. One store is a
// connection (log on, log off); a contact is an item found by its object id; its fields are
// properties read in one request by property id, each value flagged when the item lacks it; its
// notes and picture are readable streams. The default contacts folder carries the notification
// setting, and while it asks for them the store posts change notices to the owner given at log on.
// Implementations: MemoryContactsStore (in memory) and VCardContactsStore (a vCard file).

#include <cstdint>
#include <memory>
#include <vector>

#include "base/Str.h"

namespace contact_props {

// Property ids: the high 16 bits name the property, the low 16 bits its value type.
constexpr uint32_t kTypeText = 0x001F;
constexpr uint32_t kTypeStream = 0x0064;
constexpr uint32_t kTypeOid = 0x0066;

constexpr uint32_t kOid = 0x10000066;
constexpr uint32_t kFirstName = 0x0082001F;
constexpr uint32_t kLastName = 0x0084001F;
constexpr uint32_t kMiddleName = 0x0083001F;
constexpr uint32_t kCompany = 0x008A001F;
constexpr uint32_t kNamePart5 = 0x0086001F;   // job title
constexpr uint32_t kNamePart6 = 0x0080001F;   // nickname
constexpr uint32_t kNamePart7 = 0x0081001F;   // name prefix
constexpr uint32_t kNamePart8 = 0x0085001F;   // name suffix
constexpr uint32_t kExtraText = 0x00A8001F;   // sort name (the alternative name order)
constexpr uint32_t kList = 0x101D001F;        // categories, comma-separated
constexpr uint32_t kExtraText2 = 0x008C001F;  // department
constexpr uint32_t kExtraText3 = 0x008B001F;  // role

// The thirteen phone properties, in type-code order (0 to 12).
constexpr uint32_t kMobilePhone = 0x0096001F;
constexpr uint32_t kHomePhone = 0x0099001F;
constexpr uint32_t kHome2Phone = 0x009A001F;
constexpr uint32_t kWorkPhone = 0x0097001F;
constexpr uint32_t kWork2Phone = 0x0098001F;
constexpr uint32_t kPager = 0x009D001F;
constexpr uint32_t kRadioPhone = 0x009F001F;
constexpr uint32_t kAssistantPhone = 0x00A1001F;
constexpr uint32_t kWorkFax = 0x009B001F;
constexpr uint32_t kHomeFax = 0x009C001F;
constexpr uint32_t kCompanyPhone = 0x00A0001F;
constexpr uint32_t kMmsPhone = 0x10A3001F;
constexpr uint32_t kCarPhone = 0x009E001F;

// Streams.
constexpr uint32_t kNotesStream = 0x001E0064;
constexpr uint32_t kPictureStream = 0x00FF0064;

// The default contacts folder and its notification setting.
constexpr int kContactsFolder = 10;
constexpr uint32_t kFolderNotifications = 0x10010013;
constexpr uint32_t kNotifyLocal = 1;   // changes made by this process
constexpr uint32_t kNotifyRemote = 2;  // changes made elsewhere (another program, the file)

/// Set in PropertyValue::flags when the item does not have the property.
constexpr uint16_t kNotFound = 0x0100;

}  // namespace contact_props

namespace contact_notices {

// Notice messages posted to the owner given at log on; the object id travels with them.
constexpr uint32_t kCreatedLocal = 0x8100;
constexpr uint32_t kDeletedLocal = 0x8101;
constexpr uint32_t kChangedLocal = 0x8102;
constexpr uint32_t kCreatedRemote = 0x8105;
constexpr uint32_t kDeletedRemote = 0x8106;
constexpr uint32_t kChangedRemote = 0x8107;

}  // namespace contact_notices

/// One property value of a request: id as asked, flags (kNotFound), and the value by its type
/// (number for the object id, text for text properties).
struct PropertyValue {
    uint32_t id = 0;
    uint16_t flags = 0;
    uint32_t number = 0;
    Str text;
};

/// A readable stream (notes or picture), with the platform stream's seek and read meanings.
class ContactsStream {
  public:
    static constexpr int kSeekSet = 0;
    static constexpr int kSeekCurrent = 1;
    static constexpr int kSeekEnd = 2;

    virtual ~ContactsStream() = default;
    /// Moves to offset from origin; stores the new position when `position` is given. False
    /// when the result would be before the start.
    virtual bool Seek(int64_t offset, int origin, uint64_t* position) = 0;
    /// Reads up to `bytes` into buffer; stores how many were read. False on failure.
    virtual bool Read(void* buffer, uint32_t bytes, uint32_t* bytesRead) = 0;
};

/// A stream over bytes it shares (the store's copy stays untouched).
class MemoryStream : public ContactsStream {
  public:
    explicit MemoryStream(std::shared_ptr<const std::vector<uint8_t>> bytes);
    bool Seek(int64_t offset, int origin, uint64_t* position) override;
    bool Read(void* buffer, uint32_t bytes, uint32_t* bytesRead) override;

  private:
    std::shared_ptr<const std::vector<uint8_t>> bytes_;
    uint64_t position_ = 0;
};

/// Where a store posts its change notices: the owner window on the platform.
class ContactsNoticeTarget {
  public:
    virtual ~ContactsNoticeTarget() = default;
    /// Posts one notice (a contact_notices message) about the contact with object id `oid`.
    virtual void PostNotice(uint32_t message, uint32_t oid) = 0;
};

/// A contact, or the default folder, as an item of the store.
class ContactsItem {
  public:
    virtual ~ContactsItem() = default;
    /// Fills values with one entry per requested id, in request order; a property the item lacks
    /// has kNotFound set. False when the request as a whole fails.
    virtual bool GetProps(const uint32_t* ids, int count, std::vector<PropertyValue>& values) = 0;
    /// Sets properties (only the folder's notification setting is writable); false otherwise.
    virtual bool SetProps(const PropertyValue* values, int count) = 0;
    /// Opens a stream property (kNotesStream, kPictureStream) for reading; null when absent.
    virtual std::unique_ptr<ContactsStream> OpenStream(uint32_t propId) = 0;
};

/// A connection to a contacts database.
class ContactsStore {
  public:
    virtual ~ContactsStore() = default;
    /// Connects; notices go to owner (may be null: none are posted). False when unavailable.
    virtual bool Logon(ContactsNoticeTarget* owner) = 0;
    virtual void Logoff() = 0;
    /// The contact with that object id; null when there is none or the store is not logged on.
    virtual std::unique_ptr<ContactsItem> GetItemFromOid(uint32_t oid) = 0;
    /// The default folder of that type (contact_props::kContactsFolder); null on failure.
    virtual std::unique_ptr<ContactsItem> GetDefaultFolder(int folderType) = 0;
    /// The object ids of all contacts, in the store's order. False when not logged on.
    virtual bool EnumerateOids(std::vector<uint32_t>& oids) = 0;
    /// Catches up with changes made outside the process and posts their notices; cheap when
    /// nothing changed. The desktop calls it from a timer; reads call it too.
    virtual void Refresh() = 0;
};
