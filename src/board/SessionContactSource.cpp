#include "board/SessionContactSource.h"

#include "contacts/ContactsSession.h"
#include "contacts/SearchServiceClient.h"

bool SessionContactSource::IsAvailable() {
    return session_ != nullptr && session_->IsOpen();
}

bool SessionContactSource::Read(uint32_t oid, uint32_t flags, ContactRecord& record) {
    // The board never asks for the decoded picture here, so no picture size is needed.
    return session_ != nullptr && session_->ReadContact(oid, record, flags, 0, 0);
}

bool SessionContactSource::FindByNumber(const Str& number, Array<uint32_t>& oids) {
    return search_.SearchNumber(number, oids);
}
