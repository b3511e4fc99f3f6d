#pragma once
// The board's contacts as the desktop program has them: a contacts session over the vCard store
// of one file, and the search service's core answering the search by number from the contacts
// that session reads. Every Open is a fresh start of the program against the file as it is now.

#include <cstring>
#include <memory>
#include <vector>

#include "board/ContactSource.h"
#include "contacts/ContactsSession.h"
#include "contacts/VCardContactsStore.h"
#include "service/SearchService.h"
#include "service/ServiceProtocol.h"

class ContactsFileSource : public ContactSource {
  public:
    explicit ContactsFileSource(const Str& path) : platform_(path), session_(platform_) {}

    /// Connects to the file and gives the search service every contact it holds.
    bool Open() {
        if (!session_.Open())
            return false;
        std::vector<uint32_t> oids;
        session_.Store()->EnumerateOids(oids);
        std::vector<ServiceContact> contacts;
        ContactRecord record;
        for (uint32_t oid : oids) {
            if (!session_.ReadContact(oid, record, 3, 0, 0))
                continue;
            ServiceContact c;
            c.oid = oid;
            c.fields[kFieldFirst] = record.firstName.c_str();
            c.fields[kFieldMiddle] = record.middleName.c_str();
            c.fields[kFieldLast] = record.lastName.c_str();
            c.fields[kFieldCompany] = record.company.c_str();
            for (const ContactPhone& p : record.phones) {
                c.phones.push_back({p.number.c_str(), p.label.c_str(), p.type});
            }
            contacts.push_back(std::move(c));
        }
        service_.SetContacts(std::move(contacts));
        return true;
    }

    bool IsAvailable() override { return session_.IsOpen(); }
    bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) override {
        return session_.ReadContact(oid, record, flags, 0, 0);
    }
    bool FindByNumber(const Str& number, Array<uint32_t>& oids) override {
        oids.RemoveAll();
        std::vector<uint8_t> reply(64 * 1024);
        uint32_t returned = 0;
        if (!service_.IoControl(search_protocol::kSearchNumber,
                                reinterpret_cast<const uint8_t*>(number.c_str()),
                                static_cast<uint32_t>(number.Length() * 2), reply.data(),
                                static_cast<uint32_t>(reply.size()), &returned) ||
            returned < 4) {
            return false;
        }
        int32_t count = 0;
        std::memcpy(&count, reply.data(), 4);
        for (int32_t k = 0; k < count && 8 + 4 * static_cast<uint32_t>(k) <= returned; ++k) {
            uint32_t oid = 0;
            std::memcpy(&oid, reply.data() + 4 + 4 * k, 4);
            oids.Add(oid);
        }
        return !oids.IsEmpty();
    }

  private:
    class FilePlatform : public ContactsPlatform {
      public:
        explicit FilePlatform(const Str& path) : path_(path) {}
        std::unique_ptr<ContactsStore> CreateStore() override {
            return std::make_unique<VCardContactsStore>(path_);
        }

      private:
        Str path_;
    };

    FilePlatform platform_;
    ContactsSession session_;
    SearchService service_;
};
