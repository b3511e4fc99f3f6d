// Persistence of the board's entries: eleven numbered values per list position under the
// product's "Dialdeck" key, with no count value (the list ends at the first missing "Oid%d"), and
// the refresh against the contacts database that follows every load.

#include <cstring>
#include <iterator>
#include <type_traits>
#include <variant>
#include <vector>

#include "base/Registry.h"
#include "base/SettingsStore.h"
#include "board/DialBoard.h"

namespace {

using Field = std::variant<uint32_t DialEntry::*, int32_t DialEntry::*, Str DialEntry::*>;

struct StoredValue {
    const char16_t* pattern;
    Field field;
};

// The stored values of one entry, in the order they are written and read. The first, the oid,
// also ends the list when it is missing.
const StoredValue kStoredValues[] = {
    {u"Oid%d", &DialEntry::oid},         {u"Display%d", &DialEntry::display},
    {u"Btn%d", &DialEntry::btn},         {u"Index%d", &DialEntry::slot},
    {u"Phone%d", &DialEntry::phone},     {u"Type%d", &DialEntry::typeLabel},
    {u"Link%d", &DialEntry::link},       {u"First%d", &DialEntry::first},
    {u"Last%d", &DialEntry::last},       {u"Middle%d", &DialEntry::middle},
    {u"Company%d", &DialEntry::company},
};

Str ValueName(const char16_t* pattern, int index) {
    Str name;
    name.Format(pattern, index);
    return name;
}

// A stored number: its first four bytes, zero-extended when shorter. The type is not checked,
// and a value of the wrong size still counts, so one damaged value never hides the entries
// stored after it. False when the value is missing.
bool ReadNumber(registry::Key key, const char16_t* name, uint32_t& out) {
    uint32_t size = 0;
    if (!registry::Query(key, name, nullptr, nullptr, &size))
        return false;
    std::vector<uint8_t> bytes(size < 4 ? 4 : size, 0);
    uint32_t got = static_cast<uint32_t>(bytes.size());
    if (!registry::Query(key, name, nullptr, bytes.data(), &got))
        return false;
    std::memcpy(&out, bytes.data(), sizeof(out));
    return true;
}

// A stored text, read by size first; it ends at its first zero or at its last whole character.
// The type is not checked. False when the value is missing.
bool ReadText(registry::Key key, const char16_t* name, Str& out) {
    uint32_t size = 0;
    if (!registry::Query(key, name, nullptr, nullptr, &size))
        return false;
    std::vector<char16_t> text(size / 2 + 1, 0);
    uint32_t got = static_cast<uint32_t>(text.size() * 2);
    if (!registry::Query(key, name, nullptr, text.data(), &got))
        return false;
    text[got / 2 < text.size() ? got / 2 : text.size() - 1] = 0;
    out = text.data();
    return true;
}

void WriteValue(registry::Key key, const Str& name, const DialEntry& entry, const Field& field) {
    std::visit(
        [&](auto member) {
            const auto& value = entry.*member;
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, Str>) {
                registry::Set(key, name, registry::kTypeString, value.c_str(),
                              static_cast<uint32_t>((value.Length() + 1) * 2));
            } else {
                registry::Set(key, name, registry::kTypeDword, &value, sizeof(value));
            }
        },
        field);
}

// Reads one value into the entry; a missing value leaves the entry's default.
void ReadValue(registry::Key key, const Str& name, DialEntry& entry, const Field& field) {
    std::visit(
        [&](auto member) {
            auto& value = entry.*member;
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, Str>) {
                ReadText(key, name, value);
            } else {
                uint32_t number = 0;
                if (ReadNumber(key, name, number)) {
                    value = static_cast<std::decay_t<decltype(value)>>(number);
                }
            }
        },
        field);
}

// Takes the contact's text where it differs from the stored one.
bool Update(Str& stored, const Str& current) {
    if (stored == current)
        return false;
    stored = current;
    return true;
}

// Follows the bound number: by field identifier (and label for a custom field), else by
// label, else the contact's first number; cleared when the contact has none.
bool UpdateNumber(DialEntry& entry, const Array<ContactPhone>& phones) {
    if (phones.IsEmpty()) {
        if (entry.phone.IsEmpty())
            return false;
        entry.phone.Empty();
        return true;
    }
    if (!entry.phone.IsEmpty()) {
        for (const ContactPhone& p : phones) {
            if (p.type != entry.link)
                continue;
            if (entry.link == kCustomLabelLink && p.label != entry.typeLabel)
                continue;
            if (p.number == entry.phone)
                return false;
            entry.phone = p.number;
            entry.typeLabel = p.label;
            return true;
        }
    }
    for (const ContactPhone& p : phones) {
        if (p.label != entry.typeLabel)
            continue;
        entry.phone = p.number;
        entry.link = p.type;
        return true;
    }
    entry.phone = phones[0].number;
    entry.typeLabel = phones[0].label;
    entry.link = phones[0].type;
    return true;
}

}  // namespace

void DialBoard::LoadEntries() {
    Clear();
    {
        registry::KeyHolder key(settings::OpenKey(settings::kBoardKey, false));
        if (!key)
            return;
        for (int i = 0;; ++i) {
            DialEntry entry;
            if (!ReadNumber(key.get(), ValueName(u"Oid%d", i), entry.oid))
                break;
            for (size_t v = 1; v < std::size(kStoredValues); ++v) {
                const StoredValue& stored = kStoredValues[v];
                ReadValue(key.get(), ValueName(stored.pattern, i), entry, stored.field);
            }
            entries_.Add(entry);
        }
    }
    Refresh();
}

void DialBoard::SaveEntries(int which) {
    // A full rewrite starts from nothing, so values of a longer earlier list cannot survive.
    if (which == -1)
        registry::DeleteTree(kKeyPath);
    if (entries_.IsEmpty())
        return;
    registry::KeyHolder key(settings::OpenKey(settings::kBoardKey, true));
    if (!key)
        return;
    for (int i = 0; i < entries_.Size(); ++i) {
        if (which >= 0 && i != which)
            continue;
        for (const StoredValue& stored : kStoredValues) {
            WriteValue(key.get(), ValueName(stored.pattern, i), entries_[i], stored.field);
        }
    }
    registry::Flush(key.get());
}

void DialBoard::Refresh() {
    if (contacts_ == nullptr || !contacts_->IsAvailable())
        return;
    ContactRecord record;
    for (int i = 0; i < entries_.Size(); ++i) {
        if (entries_[i].oid == 0)
            continue;
        if (RefreshEntry(i, record))
            SaveEntries(i);
    }
}

bool DialBoard::RefreshEntry(int index, ContactRecord& record) {
    DialEntry& entry = entries_[index];
    bool changed = false;
    if (!contacts_->Read(entry.oid, kReadForButton, record)) {
        uint32_t found = Relink(entry, record);
        if (found == 0 || !contacts_->Read(found, kReadForButton, record)) {
            // Gone for good: the button keeps its texts and stays dialable by its number.
            entry.oid = 0;
            return true;
        }
        entry.oid = found;
        changed = true;
    }
    entry.flags = record.hasPicture;
    changed |= Update(entry.first, record.firstName);
    changed |= Update(entry.last, record.lastName);
    changed |= Update(entry.middle, record.middleName);
    changed |= Update(entry.company, record.company);
    changed |= UpdateNumber(entry, record.phones);
    entry.phones = record.phones;
    entry.extra = record.extraText;
    return changed;
}

uint32_t DialBoard::Relink(const DialEntry& entry, ContactRecord& record) {
    Array<uint32_t> oids;
    if (!contacts_->FindByNumber(entry.phone, oids))
        return 0;
    for (uint32_t oid : oids) {
        if (oid == 0 || !contacts_->Read(oid, kReadNames, record))
            continue;
        if (record.firstName == entry.first && record.lastName == entry.last &&
            record.middleName == entry.middle && record.company == entry.company) {
            return oid;
        }
    }
    return 0;
}
