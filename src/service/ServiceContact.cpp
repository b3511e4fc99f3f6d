#include "service/ServiceContact.h"

#include <algorithm>

#include "contacts/ContactRecord.h"
#include "service/LetterKeys.h"

namespace {

/// The name as compared first: lower case, accents dropped, combining marks skipped.
std::u16string CollationKey(const std::u16string& name) {
    std::u16string key;
    key.reserve(name.size());
    for (char16_t c : name) {
        if (IsCombiningMark(c))
            continue;
        char16_t base = BaseLetter(c);
        key.push_back(base != 0 ? base : FoldLower(c));
    }
    return key;
}

}  // namespace

std::u16string ServiceContact::DisplayName() const {
    Str name = ContactSortName(fields[kFieldFirst].c_str(), fields[kFieldLast].c_str(),
                               fields[kFieldMiddle].c_str(), fields[kFieldCompany].c_str());
    return std::u16string(name.c_str(), static_cast<size_t>(name.Length()));
}

bool DisplayOrderLess(const ServiceContact& a, const ServiceContact& b) {
    std::u16string nameA = a.DisplayName();
    std::u16string nameB = b.DisplayName();
    int byKey = CollationKey(nameA).compare(CollationKey(nameB));
    if (byKey != 0)
        return byKey < 0;
    int byText = nameA.compare(nameB);
    if (byText != 0)
        return byText < 0;
    return a.oid < b.oid;
}

void ContactTable::Assign(std::vector<ServiceContact> contacts) {
    // Sort by precomputed keys: composing names inside the comparison would dominate.
    struct Keyed {
        std::u16string key;
        std::u16string name;
        uint32_t oid;
        uint32_t index;
    };
    std::vector<Keyed> keyed(contacts.size());
    for (size_t i = 0; i < contacts.size(); ++i) {
        keyed[i].name = contacts[i].DisplayName();
        keyed[i].key = CollationKey(keyed[i].name);
        keyed[i].oid = contacts[i].oid;
        keyed[i].index = static_cast<uint32_t>(i);
    }
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
        if (int c = a.key.compare(b.key); c != 0)
            return c < 0;
        if (int c = a.name.compare(b.name); c != 0)
            return c < 0;
        return a.oid < b.oid;
    });
    contacts_.clear();
    contacts_.reserve(keyed.size());
    for (const Keyed& k : keyed)
        contacts_.push_back(std::move(contacts[k.index]));
    Reindex();
}

void ContactTable::Put(ServiceContact contact) {
    auto found = byOid_.find(contact.oid);
    if (found != byOid_.end())
        contacts_.erase(contacts_.begin() + found->second);
    auto at = std::lower_bound(contacts_.begin(), contacts_.end(), contact, DisplayOrderLess);
    contacts_.insert(at, std::move(contact));
    Reindex();
}

bool ContactTable::Remove(uint32_t oid) {
    auto found = byOid_.find(oid);
    if (found == byOid_.end())
        return false;
    contacts_.erase(contacts_.begin() + found->second);
    Reindex();
    return true;
}

int ContactTable::Find(uint32_t oid) const {
    auto found = byOid_.find(oid);
    return found == byOid_.end() ? -1 : found->second;
}

size_t ContactTable::DataBytes() const {
    size_t bytes = contacts_.capacity() * sizeof(ServiceContact);
    for (const ServiceContact& c : contacts_) {
        for (const std::u16string& f : c.fields)
            bytes += f.capacity() > 7 ? f.capacity() * 2 : 0;
        bytes += c.phones.capacity() * sizeof(ServicePhone);
        for (const ServicePhone& p : c.phones) {
            bytes += p.number.capacity() > 7 ? p.number.capacity() * 2 : 0;
            bytes += p.label.capacity() > 7 ? p.label.capacity() * 2 : 0;
        }
    }
    return bytes;
}

void ContactTable::Reindex() {
    byOid_.clear();
    byOid_.reserve(contacts_.size());
    for (size_t i = 0; i < contacts_.size(); ++i)
        byOid_[contacts_[i].oid] = static_cast<int>(i);
}
