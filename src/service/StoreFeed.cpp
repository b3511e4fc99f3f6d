#include "service/StoreFeed.h"

#include <vector>

#include "keypad/KeypadLayout.h"

namespace {

std::u16string Text(const Str& s) {
    return std::u16string(s.c_str(), s.c_str() + s.Length());
}

}  // namespace

StoreFeed::StoreFeed(SearchService& service, ContactsSession& session)
    : service_(service), session_(session) {}

StoreFeed::~StoreFeed() {
    if (session_.Listener() == this)
        session_.SetListener(nullptr);
    service_.SetSessionStartHook(nullptr);
}

bool StoreFeed::Start() {
    FollowLayout();
    service_.SetSessionStartHook([this] { CatchUp(); });
    session_.SetListener(this);
    if (!session_.IsOpen() && !session_.Open())
        return false;
    std::vector<uint32_t> oids;
    if (session_.Store() == nullptr || !session_.Store()->EnumerateOids(oids))
        return false;
    std::vector<ServiceContact> contacts;
    contacts.reserve(oids.size());
    for (uint32_t oid : oids) {
        ServiceContact contact;
        if (Read(oid, contact))
            contacts.push_back(std::move(contact));
    }
    service_.SetContacts(std::move(contacts));
    return true;
}

void StoreFeed::CatchUp() {
    if (session_.Store() != nullptr)
        session_.Store()->Refresh();
    FollowLayout();
}

void StoreFeed::ItemChanged(int kind, uint32_t oid) {
    ServiceContact contact;
    if (kind != kItemDeleted && Read(oid, contact)) {
        service_.PutContact(std::move(contact));
    } else {
        service_.RemoveContact(oid);
    }
}

ServiceContact StoreFeed::FromRecord(const ContactRecord& record) {
    ServiceContact contact;
    contact.oid = record.oid;
    contact.fields[kFieldFirst] = Text(record.firstName);
    contact.fields[kFieldMiddle] = Text(record.middleName);
    contact.fields[kFieldLast] = Text(record.lastName);
    contact.fields[kFieldCompany] = Text(record.company);
    contact.fields[kFieldNickname] = Text(record.namePart6);
    for (const ContactPhone& phone : record.phones) {
        contact.phones.push_back({Text(phone.number), Text(phone.label), phone.type});
    }
    return contact;
}

bool StoreFeed::Read(uint32_t oid, ServiceContact& contact) {
    ContactRecord record;
    if (!session_.ReadContact(oid, record, read_flags::kNames | read_flags::kPhones, 0, 0)) {
        return false;
    }
    contact = FromRecord(record);
    contact.oid = oid;
    return true;
}

void StoreFeed::FollowLayout() {
    KeypadLayout layout;
    layout.Load(KeypadLayout::ChooseId());
    std::u16string letters;
    for (const Str& keyLetters : layout.letters) {
        letters += Text(keyLetters);
        letters += u'\n';
    }
    if (followingLayout_ && letters == layoutLetters_)
        return;
    followingLayout_ = true;
    layoutLetters_ = letters;
    service_.SetLayout(layout);
}
