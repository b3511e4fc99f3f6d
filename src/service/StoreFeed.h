#pragma once
// StoreFeed: keeps a SearchService current with the contacts store. It loads every contact when
// it starts, then applies the store's change notices (created, changed, deleted) one contact at
// a time. At each picker opening (the search with the empty text) it asks the store to catch
// up with changes made elsewhere and re-reads which keypad layout the picker shows.

#include <cstdint>
#include <string>

#include "contacts/ContactsSession.h"
#include "service/SearchService.h"

class StoreFeed : public ContactsListener {
  public:
    StoreFeed(SearchService& service, ContactsSession& session);
    ~StoreFeed() override;
    StoreFeed(const StoreFeed&) = delete;
    StoreFeed& operator=(const StoreFeed&) = delete;

    /// Opens the session with this feed as its listener and loads every contact; false when the
    /// store cannot be opened (the service then has no contacts).
    bool Start();
    /// Lets the store post the notices of changes made elsewhere; follows the keypad layout.
    void CatchUp();

    void ItemChanged(int kind, uint32_t oid) override;
    void Timer() override {}

    /// The service's copy of a contact read with names and phones.
    static ServiceContact FromRecord(const ContactRecord& record);

  private:
    bool Read(uint32_t oid, ServiceContact& contact);
    void FollowLayout();

    SearchService& service_;
    ContactsSession& session_;
    std::u16string layoutLetters_;
    bool followingLayout_ = false;
};
