#include "contacts/ContactsSession.h"

#include <iterator>
#include <new>
#include <vector>

#include "base/Chars.h"
#include "contacts/VCardContactsStore.h"

using namespace contact_props;
using namespace contact_notices;

namespace {

constexpr uint32_t kTimerMessage = 0x0113;  // the platform's timer message

/// Listener-window messages and the item-changed kind each one reports.
struct NoticeKind {
    uint32_t message;
    int kind;
};

constexpr NoticeKind kNoticeKinds[] = {
    {kCreatedLocal, kItemCreated},  {kDeletedLocal, kItemDeleted},  {kChangedLocal, kItemChanged},
    {kCreatedRemote, kItemCreated}, {kDeletedRemote, kItemDeleted}, {kChangedRemote, kItemChanged},
};

/// The names' property ids, in the record's order.
constexpr uint32_t kNameProps[] = {kFirstName, kLastName,  kMiddleName, kCompany,
                                   kNamePart5, kNamePart6, kNamePart7,  kNamePart8};

/// The portable listener "window": notices reach the session at once.
class DirectListener : public ContactsNoticeTarget {
  public:
    explicit DirectListener(ContactsSession& session) : session_(session) {}
    void PostNotice(uint32_t message, uint32_t oid) override {
        session_.OnListenerMessage(message, oid);
    }

  private:
    ContactsSession& session_;
};

ContactsPlatform gPortablePlatform;
ContactsPlatform* gPlatform = &gPortablePlatform;
ContactsSession* gSession = nullptr;

Str* NameField(ContactRecord& record, int i) {
    Str* fields[] = {&record.firstName, &record.lastName,  &record.middleName, &record.company,
                     &record.namePart5, &record.namePart6, &record.namePart7,  &record.namePart8};
    return fields[i];
}

/// Appends the list property's items: split at commas, white space after a comma skipped.
void SplitList(const Str& text, Array<Str>& list) {
    Str rest = text;
    for (int comma = rest.Find(u','); comma >= 0; comma = rest.Find(u',')) {
        list.Add(rest.Left(comma));
        int next = comma + 1;
        while (next < rest.Length() && chars::IsSpace(rest[next]))
            ++next;
        rest = rest.Mid(next, rest.Length() - next);
    }
    if (!rest.IsEmpty())
        list.Add(rest);
}

std::vector<uint32_t> BuildRequest(uint32_t flags) {
    std::vector<uint32_t> ids{kOid};
    if (flags & read_flags::kNames)
        ids.insert(ids.end(), std::begin(kNameProps), std::end(kNameProps));
    if (flags & read_flags::kPhones) {
        for (const PhoneProperty& phone : kPhoneProperties)
            ids.push_back(phone.propId);
    }
    if (flags & read_flags::kList)
        ids.push_back(kList);
    if (flags & read_flags::kExtra)
        ids.push_back(kExtraText);
    if (flags & read_flags::kExtra23) {
        ids.push_back(kExtraText2);
        ids.push_back(kExtraText3);
    }
    return ids;
}

/// Takes one present value into the record.
void TakeValue(const PropertyValue& value, ContactRecord& record) {
    if (value.id == kOid) {
        record.oid = value.number;
        return;
    }
    for (int i = 0; i < 8; ++i) {
        if (value.id == kNameProps[i])
            *NameField(record, i) = value.text;
    }
    for (int type = 0; type < kPhonePropertyCount; ++type) {
        if (value.id == kPhoneProperties[type].propId) {
            record.phones.Add(ContactPhone{kPhoneProperties[type].label, value.text, type});
        }
    }
    if (value.id == kList)
        SplitList(value.text, record.list);
    if (value.id == kExtraText)
        record.extraText = value.text;
    if (value.id == kExtraText2)
        record.extraText2 = value.text;
    if (value.id == kExtraText3)
        record.extraText3 = value.text;
}

}  // namespace

int ItemChangedKind(uint32_t message) {
    for (const NoticeKind& notice : kNoticeKinds) {
        if (notice.message == message)
            return notice.kind;
    }
    return -1;
}

std::unique_ptr<ContactsStore> ContactsPlatform::CreateStore() {
    return CreateDefaultContactsStore();
}

ContactsNoticeTarget* ContactsPlatform::CreateListenerWindow(ContactsSession& session) {
    return new (std::nothrow) DirectListener(session);
}

void ContactsPlatform::DestroyListenerWindow(ContactsNoticeTarget* window) {
    delete window;
}

PictureHandle ContactsPlatform::DecodePicture(ContactsStream&, int, int) {
    return nullptr;
}

ContactsPlatform& CurrentContactsPlatform() {
    return *gPlatform;
}

void SetContactsPlatform(ContactsPlatform* platform) {
    gPlatform = platform != nullptr ? platform : &gPortablePlatform;
}

ContactsSession* ContactsSession::Get() {
    if (gSession == nullptr)
        gSession = new (std::nothrow) ContactsSession(CurrentContactsPlatform());
    return gSession;
}

ContactsSession::ContactsSession(ContactsPlatform& platform) : platform_(platform) {}

ContactsSession::~ContactsSession() {
    Destroy();
}

bool ContactsSession::Open() {
    if (store_ != nullptr)
        return true;
    platform_.InitializeCom();
    std::unique_ptr<ContactsStore> store = platform_.CreateStore();
    if (store == nullptr) {
        platform_.UninitializeCom();
        return false;
    }
    // Without a window the session still opens, only without notices.
    if (listener_ != nullptr && listenerWindow_ == nullptr) {
        listenerWindow_ = platform_.CreateListenerWindow(*this);
    }
    if (!store->Logon(listenerWindow_)) {
        // A failed Open leaves nothing behind, so that a later one starts from scratch: the
        // store goes before the window it was given, and COM goes last.
        store.reset();
        if (listenerWindow_ != nullptr) {
            platform_.DestroyListenerWindow(listenerWindow_);
            listenerWindow_ = nullptr;
        }
        platform_.UninitializeCom();
        return false;
    }
    store_ = std::move(store);
    if (listenerWindow_ != nullptr)
        EnableFolderNotices();
    return true;
}

void ContactsSession::EnableFolderNotices() {
    std::unique_ptr<ContactsItem> folder = store_->GetDefaultFolder(kContactsFolder);
    if (folder == nullptr)
        return;
    PropertyValue setting;
    setting.id = kFolderNotifications;
    setting.number = kNotifyLocal | kNotifyRemote;
    folder->SetProps(&setting, 1);
}

bool ContactsSession::ReadContact(uint32_t oid, ContactRecord& record, uint32_t flags,
                                  int pictureWidth, int pictureHeight) {
    if (store_ == nullptr)
        return false;
    std::unique_ptr<ContactsItem> item = store_->GetItemFromOid(oid);
    if (item == nullptr)
        return false;
    record.Clear();
    std::vector<uint32_t> request = BuildRequest(flags);
    Array<Str> noteLabels;
    Array<Str> noteNumbers;
    ReadStreams(*item, record, flags, pictureWidth, pictureHeight, noteLabels, noteNumbers);
    std::vector<PropertyValue> values;
    if (!item->GetProps(request.data(), static_cast<int>(request.size()), values) ||
        values.empty()) {
        return true;
    }
    for (const PropertyValue& value : values) {
        if ((value.flags & kNotFound) == 0)
            TakeValue(value, record);
    }
    if (flags & read_flags::kPhones) {
        for (int i = 0; i < noteLabels.Size(); ++i) {
            record.phones.Add(ContactPhone{noteLabels[i], noteNumbers[i], kPhoneTypeNotes});
        }
    }
    return true;
}

void ContactsSession::ReadStreams(ContactsItem& item, ContactRecord& record, uint32_t flags,
                                  int width, int height, Array<Str>& noteLabels,
                                  Array<Str>& noteNumbers) {
    if (flags & (read_flags::kPhones | read_flags::kNotes)) {
        NotesBlock block;
        std::unique_ptr<ContactsStream> notes = item.OpenStream(kNotesStream);
        ReadNotes(notes.get(), block, platform_.NotesDecoder());
        PhoneItems(block, kNotesPhoneWord, noteLabels, noteNumbers);
        if (flags & read_flags::kNotes)
            record.notesText = block.otherText;
    }
    if (flags & (read_flags::kPicture | read_flags::kHasPicture)) {
        std::unique_ptr<ContactsStream> picture = item.OpenStream(kPictureStream);
        if (picture == nullptr)
            return;
        record.hasPicture = 1;
        if (flags & read_flags::kPicture) {
            PictureHandle bitmap = platform_.DecodePicture(*picture, width, height);
            if (bitmap != nullptr)
                record.AdoptPicture(bitmap, platform_.PictureReleaser());
        }
    }
}

void ContactsSession::Destroy() {
    if (store_ != nullptr) {
        store_->Logoff();
        store_.reset();
        platform_.UninitializeCom();
    }
    if (listenerWindow_ != nullptr) {
        platform_.DestroyListenerWindow(listenerWindow_);
        listenerWindow_ = nullptr;
    }
}

void ContactsSession::OnListenerMessage(uint32_t message, uint32_t wParam) {
    if (listener_ == nullptr)
        return;
    if (message == kTimerMessage) {
        listener_->Timer();
        return;
    }
    int kind = ItemChangedKind(message);
    if (kind >= 0)
        listener_->ItemChanged(kind, wParam);
}
