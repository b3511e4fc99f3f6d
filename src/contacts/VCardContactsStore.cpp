#include "contacts/VCardContactsStore.h"

#include <vector>

#include "base/File.h"
#include "base/Module.h"
#include "base/SettingsStore.h"
#include "contacts/VCardContacts.h"

namespace {

constexpr int kPathCapacity = 1024;

/// The folder of the executable, with its trailing backslash ("" when unknown).
Str ProgramFolder() {
    char16_t path[kPathCapacity] = {};
    if (ModuleFileName(ProgramModule(), path, kPathCapacity) <= 0)
        return Str();
    Str folder(path);
    int slash = -1;
    for (int i = 0; i < folder.Length(); ++i) {
        if (folder[i] == u'\\' || folder[i] == u'/')
            slash = i;
    }
    return folder.Left(slash + 1);
}

bool IsAbsolute(const Str& path) {
    return path[0] == u'\\' || path[0] == u'/' || (path.Length() >= 2 && path[1] == u':');
}

}  // namespace

Str DefaultContactsFilePath() {
    Str chosen = settings::ReadString(settings::kSettingsKey, kContactsFileSetting, Str());
    if (!chosen.IsEmpty() && IsAbsolute(chosen))
        return chosen;
    Str path = ProgramFolder();
    path.Append(chosen.IsEmpty() ? Str(kDefaultContactsFile) : chosen);
    return path;
}

VCardContactsStore::VCardContactsStore(const Str& path) : path_(path) {}

bool VCardContactsStore::Logon(ContactsNoticeTarget* owner) {
    if (!MemoryContactsStore::Logon(owner))
        return false;
    Load();
    return true;
}

void VCardContactsStore::Refresh() {
    if (!IsLoggedOn())
        return;
    uint64_t writeTime = 0;
    uint64_t size = 0;
    bool present = file::Stamp(path_, writeTime, size);
    if (present == stamped_ && writeTime == writeTime_ && size == size_)
        return;
    Load();
}

std::unique_ptr<ContactsItem> VCardContactsStore::GetItemFromOid(uint32_t oid) {
    Refresh();
    return MemoryContactsStore::GetItemFromOid(oid);
}

bool VCardContactsStore::EnumerateOids(std::vector<uint32_t>& oids) {
    Refresh();
    return MemoryContactsStore::EnumerateOids(oids);
}

void VCardContactsStore::Load() {
    uint64_t writeTime = 0;
    uint64_t size = 0;
    bool present = file::Stamp(path_, writeTime, size);
    std::vector<uint8_t> bytes;
    if (!present || !file::ReadAll(path_, bytes))
        bytes.clear();
    uint64_t writeTimeAfter = 0;
    uint64_t sizeAfter = 0;
    bool presentAfter = file::Stamp(path_, writeTimeAfter, sizeAfter);
    // A file still being written is read again at the next refresh rather than taken half done.
    if (present != presentAfter || writeTime != writeTimeAfter || size != sizeAfter)
        return;
    stamped_ = present;
    writeTime_ = writeTime;
    size_ = size;
    ReplaceAll(ReadContactsFile(bytes.data(), bytes.size()));
}

std::unique_ptr<ContactsStore> CreateDefaultContactsStore() {
    return std::make_unique<VCardContactsStore>(DefaultContactsFilePath());
}
