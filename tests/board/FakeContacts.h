#pragma once
// An in-memory contact source for the board's tests: contacts by object id, each field read only
// under its own read flag as the contacts session reads it, the search by number as exact matches
// of a stored number, and a record of every call.

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "board/ContactSource.h"

struct FakeContact {
    Str first;
    Str last;
    Str middle;
    Str company;
    std::vector<ContactPhone> phones;
    Str extra;
    uint32_t hasPicture = 0;
};

inline ContactPhone Phone(const char16_t* label, const char16_t* number, int32_t type) {
    ContactPhone phone;
    phone.label = label;
    phone.number = number;
    phone.type = type;
    return phone;
}

class FakeContacts : public ContactSource {
  public:
    bool IsAvailable() override { return available; }

    bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) override {
        reads.emplace_back(oid, flags);
        auto found = contacts.find(oid);
        if (found == contacts.end())
            return false;
        const FakeContact& c = found->second;
        record.Clear();
        record.oid = oid;
        if (flags & 1) {
            record.firstName = c.first;
            record.lastName = c.last;
            record.middleName = c.middle;
            record.company = c.company;
        }
        if (flags & 2) {
            for (const ContactPhone& phone : c.phones)
                record.phones.Add(phone);
        }
        if (flags & 16)
            record.extraText = c.extra;
        if (flags & 32)
            record.hasPicture = c.hasPicture;
        return true;
    }

    bool FindByNumber(const Str& number, Array<uint32_t>& oids) override {
        searches.push_back(number);
        oids.RemoveAll();
        for (const auto& [oid, contact] : contacts) {
            for (const ContactPhone& phone : contact.phones) {
                if (phone.number == number) {
                    oids.Add(oid);
                    break;
                }
            }
        }
        for (uint32_t extra : extraResults)
            oids.Add(extra);
        return !oids.IsEmpty();
    }

    std::map<uint32_t, FakeContact> contacts;
    bool available = true;
    std::vector<uint32_t> extraResults;  ///< appended to every search's results
    std::vector<std::pair<uint32_t, uint32_t>> reads;
    std::vector<Str> searches;
};
