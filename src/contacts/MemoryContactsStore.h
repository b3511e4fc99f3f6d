#pragma once
// MemoryContactsStore: a contacts store held in memory. It serves the vCard store and tests. Its
// contacts change only through Put, Remove and ReplaceAll, which count as changes made outside the
// process: while logged on with an owner and with remote notices enabled on the default folder,
// each posts one notice per contact created, changed or deleted.

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/Str.h"
#include "contacts/ContactsStore.h"

/// One contact as a store keeps it.
struct StoredContact {
    uint32_t oid = 0;
    std::vector<std::pair<uint32_t, Str>> texts;          ///< text properties present, by id
    std::shared_ptr<const std::vector<uint8_t>> notes;    ///< notes stream; null for none
    std::shared_ptr<const std::vector<uint8_t>> picture;  ///< picture stream; null for none

    /// The text of property id, or null when the contact lacks it.
    const Str* Text(uint32_t id) const;
    /// Sets (or, with an empty text, removes) a text property.
    void SetText(uint32_t id, const Str& text);
    /// Same object id, texts, notes bytes and picture bytes.
    bool SameAs(const StoredContact& other) const;
};

class MemoryContactsStore : public ContactsStore {
  public:
    MemoryContactsStore() = default;

    bool Logon(ContactsNoticeTarget* owner) override;
    void Logoff() override;
    std::unique_ptr<ContactsItem> GetItemFromOid(uint32_t oid) override;
    std::unique_ptr<ContactsItem> GetDefaultFolder(int folderType) override;
    bool EnumerateOids(std::vector<uint32_t>& oids) override;
    void Refresh() override {}

    /// Adds the contact, or replaces the one with its object id; posts created or changed.
    void Put(const StoredContact& contact);
    /// Removes the contact with that object id; posts deleted when there was one.
    void Remove(uint32_t oid);
    /// Replaces every contact (object ids must be unique); posts deleted, changed and created
    /// notices, in that order, for exactly the contacts that differ (each group in the new or old
    /// order).
    void ReplaceAll(std::vector<StoredContact> contacts);
    const std::vector<StoredContact>& Contacts() const { return contacts_; }
    /// The contact with that object id, or null.
    const StoredContact* Find(uint32_t oid) const;

    bool IsLoggedOn() const { return loggedOn_; }
    /// The default folder's notification setting (contact_props::kNotifyLocal | kNotifyRemote).
    uint32_t FolderNotifications() const { return folderNotifications_; }
    void SetFolderNotifications(uint32_t flags) { folderNotifications_ = flags; }

    // Failure switches, for tests of what uses the store.
    void FailLogon(bool fail) { failLogon_ = fail; }
    void FailGetProps(bool fail) { failGetProps_ = fail; }
    void FailFolder(bool fail) { failFolder_ = fail; }
    bool GetPropsFails() const { return failGetProps_; }

  private:
    void Post(uint32_t message, uint32_t oid);
    void Reindex();

    std::vector<StoredContact> contacts_;
    std::unordered_map<uint32_t, size_t> index_;  ///< object id -> position in contacts_
    ContactsNoticeTarget* owner_ = nullptr;
    bool loggedOn_ = false;
    uint32_t folderNotifications_ = 0;
    bool failLogon_ = false;
    bool failGetProps_ = false;
    bool failFolder_ = false;
};
