#pragma once
// The board's contacts as the desktop program has them: a contacts session over the vCard store
// of one file, and the search service answering the client's requests in process, its contacts
// taken from that session. The board reads through the program's own SessionContactSource.
// Every Open is a fresh start of the program against the file as it is now.

#include <memory>
#include <vector>

#include "board/SessionContactSource.h"
#include "contacts/ContactsSession.h"
#include "contacts/SearchServiceClient.h"
#include "contacts/VCardContactsStore.h"
#include "service/InProcessServiceCalls.h"
#include "service/SearchService.h"

class ContactsFileSource {
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

    /// What the board reads through.
    ContactSource& Source() { return source_; }
    /// The client the board's source searches with.
    SearchServiceClient& Client() { return client_; }
    /// How many number searches the service answered.
    int NumberSearches() const { return calls_.NumberSearches(); }

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
    InProcessServiceCalls calls_{service_};
    SearchServiceClient client_{calls_};
    SessionContactSource source_{&session_, client_};
};
