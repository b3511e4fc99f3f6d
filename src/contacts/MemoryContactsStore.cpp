#include "contacts/MemoryContactsStore.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

using namespace contact_props;
using namespace contact_notices;

namespace {

bool SameBytes(const std::shared_ptr<const std::vector<uint8_t>>& a,
               const std::shared_ptr<const std::vector<uint8_t>>& b) {
    if (a == nullptr || b == nullptr)
        return a == b;
    return *a == *b;
}

/// A snapshot of one contact, answering property requests.
class MemoryContactItem : public ContactsItem {
  public:
    MemoryContactItem(const StoredContact& contact, bool failGetProps)
        : contact_(contact), failGetProps_(failGetProps) {}

    bool GetProps(const uint32_t* ids, int count, std::vector<PropertyValue>& values) override {
        values.clear();
        if (failGetProps_)
            return false;
        for (int i = 0; i < count; ++i)
            values.push_back(Value(ids[i]));
        return true;
    }
    bool SetProps(const PropertyValue*, int) override { return false; }
    std::unique_ptr<ContactsStream> OpenStream(uint32_t propId) override {
        const auto& bytes = propId == kNotesStream     ? contact_.notes
                            : propId == kPictureStream ? contact_.picture
                                                       : nullptr;
        if (bytes == nullptr)
            return nullptr;
        return std::make_unique<MemoryStream>(bytes);
    }

  private:
    PropertyValue Value(uint32_t id) const {
        PropertyValue value;
        value.id = id;
        if (id == kOid) {
            value.number = contact_.oid;
        } else if (const Str* text = contact_.Text(id)) {
            value.text = *text;
        } else {
            value.flags = kNotFound;
        }
        return value;
    }

    StoredContact contact_;
    bool failGetProps_;
};

/// The default contacts folder: its one property is the notification setting.
class MemoryFolderItem : public ContactsItem {
  public:
    explicit MemoryFolderItem(MemoryContactsStore& store) : store_(store) {}

    bool GetProps(const uint32_t* ids, int count, std::vector<PropertyValue>& values) override {
        values.clear();
        for (int i = 0; i < count; ++i) {
            PropertyValue value;
            value.id = ids[i];
            if (ids[i] == kFolderNotifications) {
                value.number = store_.FolderNotifications();
            } else {
                value.flags = kNotFound;
            }
            values.push_back(value);
        }
        return true;
    }
    bool SetProps(const PropertyValue* values, int count) override {
        for (int i = 0; i < count; ++i) {
            if (values[i].id != kFolderNotifications)
                return false;
            store_.SetFolderNotifications(values[i].number);
        }
        return true;
    }
    std::unique_ptr<ContactsStream> OpenStream(uint32_t) override { return nullptr; }

  private:
    MemoryContactsStore& store_;
};

}  // namespace

MemoryStream::MemoryStream(std::shared_ptr<const std::vector<uint8_t>> bytes)
    : bytes_(std::move(bytes)) {}

bool MemoryStream::Seek(int64_t offset, int origin, uint64_t* position) {
    int64_t base = origin == kSeekSet       ? 0
                   : origin == kSeekCurrent ? static_cast<int64_t>(position_)
                   : origin == kSeekEnd     ? static_cast<int64_t>(bytes_->size())
                                            : -1;
    if (base < 0 || (offset < 0 && -offset > base))
        return false;
    position_ = static_cast<uint64_t>(base + offset);
    if (position != nullptr)
        *position = position_;
    return true;
}

bool MemoryStream::Read(void* buffer, uint32_t bytes, uint32_t* bytesRead) {
    uint64_t size = bytes_->size();
    uint64_t left = position_ < size ? size - position_ : 0;
    uint32_t n = static_cast<uint32_t>(std::min<uint64_t>(bytes, left));
    if (n > 0)
        std::memcpy(buffer, bytes_->data() + position_, n);
    position_ += n;
    if (bytesRead != nullptr)
        *bytesRead = n;
    return true;
}

const Str* StoredContact::Text(uint32_t id) const {
    for (const auto& [key, text] : texts) {
        if (key == id)
            return &text;
    }
    return nullptr;
}

void StoredContact::SetText(uint32_t id, const Str& text) {
    auto found = std::find_if(texts.begin(), texts.end(),
                              [id](const auto& entry) { return entry.first == id; });
    if (text.IsEmpty()) {
        if (found != texts.end())
            texts.erase(found);
    } else if (found != texts.end()) {
        found->second = text;
    } else {
        texts.emplace_back(id, text);
    }
}

bool StoredContact::SameAs(const StoredContact& other) const {
    if (oid != other.oid || texts.size() != other.texts.size())
        return false;
    for (const auto& [id, text] : texts) {
        const Str* theirs = other.Text(id);
        if (theirs == nullptr || *theirs != text)
            return false;
    }
    return SameBytes(notes, other.notes) && SameBytes(picture, other.picture);
}

bool MemoryContactsStore::Logon(ContactsNoticeTarget* owner) {
    if (failLogon_)
        return false;
    owner_ = owner;
    loggedOn_ = true;
    return true;
}

void MemoryContactsStore::Logoff() {
    owner_ = nullptr;
    loggedOn_ = false;
}

std::unique_ptr<ContactsItem> MemoryContactsStore::GetItemFromOid(uint32_t oid) {
    const StoredContact* contact = loggedOn_ ? Find(oid) : nullptr;
    if (contact == nullptr)
        return nullptr;
    return std::make_unique<MemoryContactItem>(*contact, failGetProps_);
}

std::unique_ptr<ContactsItem> MemoryContactsStore::GetDefaultFolder(int folderType) {
    if (!loggedOn_ || failFolder_ || folderType != kContactsFolder)
        return nullptr;
    return std::make_unique<MemoryFolderItem>(*this);
}

bool MemoryContactsStore::EnumerateOids(std::vector<uint32_t>& oids) {
    oids.clear();
    if (!loggedOn_)
        return false;
    for (const StoredContact& contact : contacts_)
        oids.push_back(contact.oid);
    return true;
}

const StoredContact* MemoryContactsStore::Find(uint32_t oid) const {
    auto found = index_.find(oid);
    return found == index_.end() ? nullptr : &contacts_[found->second];
}

void MemoryContactsStore::Put(const StoredContact& contact) {
    auto found = index_.find(contact.oid);
    if (found == index_.end()) {
        index_.emplace(contact.oid, contacts_.size());
        contacts_.push_back(contact);
        Post(kCreatedRemote, contact.oid);
        return;
    }
    StoredContact& existing = contacts_[found->second];
    bool changed = !existing.SameAs(contact);
    existing = contact;
    if (changed)
        Post(kChangedRemote, contact.oid);
}

void MemoryContactsStore::Remove(uint32_t oid) {
    auto found = index_.find(oid);
    if (found == index_.end())
        return;
    contacts_.erase(contacts_.begin() + static_cast<std::ptrdiff_t>(found->second));
    Reindex();
    Post(kDeletedRemote, oid);
}

void MemoryContactsStore::ReplaceAll(std::vector<StoredContact> contacts) {
    std::vector<StoredContact> old = std::move(contacts_);
    std::unordered_map<uint32_t, size_t> oldIndex = std::move(index_);
    contacts_ = std::move(contacts);
    Reindex();
    for (const StoredContact& before : old) {
        if (Find(before.oid) == nullptr)
            Post(kDeletedRemote, before.oid);
    }
    for (const StoredContact& now : contacts_) {
        auto found = oldIndex.find(now.oid);
        if (found != oldIndex.end() && !old[found->second].SameAs(now)) {
            Post(kChangedRemote, now.oid);
        }
    }
    for (const StoredContact& now : contacts_) {
        if (oldIndex.count(now.oid) == 0)
            Post(kCreatedRemote, now.oid);
    }
}

void MemoryContactsStore::Reindex() {
    index_.clear();
    for (size_t i = 0; i < contacts_.size(); ++i)
        index_.emplace(contacts_[i].oid, i);
}

void MemoryContactsStore::Post(uint32_t message, uint32_t oid) {
    if (loggedOn_ && owner_ != nullptr && (folderNotifications_ & kNotifyRemote) != 0) {
        owner_->PostNotice(message, oid);
    }
}
