#pragma once
// VCardContactsStore: the desktop's contacts database, read from a vCard file.
//
// Which file: the string setting "DdContactsFile" under "Software\Orvalis\PIM\Settings" when it
// is set (a path without a drive or a leading backslash is taken beside the executable);
// otherwise "Contacts.vcf" beside the executable. The file is read at log on; a missing or
// unreadable file is an empty contacts database. The store watches the file: when its time
// stamp or size changes it is read again, and one notice is posted for each contact created,
// changed or deleted (remote notices, as changes made by another program).
// The store only reads the file; it never writes it.

#include <cstdint>
#include <memory>

#include "base/Str.h"
#include "contacts/MemoryContactsStore.h"

constexpr char16_t kContactsFileSetting[] = u"DdContactsFile";
constexpr char16_t kDefaultContactsFile[] = u"Contacts.vcf";

/// The contacts file by the rule above.
Str DefaultContactsFilePath();

class VCardContactsStore : public MemoryContactsStore {
  public:
    explicit VCardContactsStore(const Str& path);

    /// Reads the file and connects.
    bool Logon(ContactsNoticeTarget* owner) override;
    /// Reads the file again when its stamp changed, posting notices for what changed.
    void Refresh() override;
    std::unique_ptr<ContactsItem> GetItemFromOid(uint32_t oid) override;
    bool EnumerateOids(std::vector<uint32_t>& oids) override;

    const Str& Path() const { return path_; }

  private:
    void Load();

    Str path_;
    bool stamped_ = false;
    uint64_t writeTime_ = 0;
    uint64_t size_ = 0;
};

/// A store on DefaultContactsFilePath().
std::unique_ptr<ContactsStore> CreateDefaultContactsStore();
