#pragma once
// SessionContactSource: the program's ContactSource. Contacts are read through the contacts
// session; a contact whose object id is gone is looked for again through the search service's
// search by number.

#include "board/ContactSource.h"

class ContactsSession;
class SearchServiceClient;

class SessionContactSource : public ContactSource {
  public:
    /// Neither is owned; session may be null (no contacts database: nothing is read).
    SessionContactSource(ContactsSession* session, SearchServiceClient& search)
        : session_(session), search_(search) {}

    /// True while the session is open.
    bool IsAvailable() override;
    bool Read(uint32_t oid, uint32_t flags, ContactRecord& record) override;
    bool FindByNumber(const Str& number, Array<uint32_t>& oids) override;

  private:
    ContactsSession* session_;
    SearchServiceClient& search_;
};
