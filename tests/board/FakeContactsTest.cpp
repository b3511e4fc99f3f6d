// The board's tests read contacts through FakeContacts, so it must give what the contacts session
// gives for the same read flags: a double that filled a field under another group's flag would
// let a test pass on a field the program never reads.
#include "FakeContacts.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "contacts/ContactsSession.h"
#include "contacts/MemoryContactsStore.h"

namespace {

using namespace contact_props;

std::u16string S(const Str& s) {
    return std::u16string(s.c_str());
}

/// The contact as the session's store holds it.
StoredContact Stored(uint32_t oid, const FakeContact& fake) {
    StoredContact stored;
    stored.oid = oid;
    stored.SetText(kFirstName, fake.first);
    stored.SetText(kLastName, fake.last);
    stored.SetText(kMiddleName, fake.middle);
    stored.SetText(kCompany, fake.company);
    for (const ContactPhone& phone : fake.phones)
        stored.SetText(kPhoneProperties[phone.type].propId, phone.number);
    stored.SetText(kExtraText, fake.extra);
    if (fake.hasPicture != 0)
        stored.picture = std::make_shared<const std::vector<uint8_t>>(4, uint8_t{0xFF});
    return stored;
}

class StorePlatform : public ContactsPlatform {
  public:
    std::unique_ptr<ContactsStore> CreateStore() override {
        auto store = std::make_unique<MemoryContactsStore>();
        for (const StoredContact& contact : contacts)
            store->Put(contact);
        return store;
    }
    std::vector<StoredContact> contacts;
};

/// A record as text, one field a line, so a difference names the field.
std::u16string Describe(const ContactRecord& record) {
    std::u16string text = u"oid " + std::u16string(1, static_cast<char16_t>(u'0' + record.oid));
    text += u"\nfirst " + S(record.firstName) + u"\nlast " + S(record.lastName);
    text += u"\nmiddle " + S(record.middleName) + u"\ncompany " + S(record.company);
    for (const ContactPhone& phone : record.phones) {
        text += u"\nphone " + S(phone.label) + u" " + S(phone.number) + u" " +
                std::u16string(1, static_cast<char16_t>(u'0' + phone.type));
    }
    text += u"\nextra " + S(record.extraText);
    text += record.hasPicture != 0 ? u"\npicture" : u"\nno picture";
    return text;
}

std::string Narrow(const std::u16string& text) {
    return std::string(text.begin(), text.end());
}

class FakeContactsTest : public testing::TestWithParam<uint32_t> {
  protected:
    void SetUp() override {
        FakeContact anna;
        anna.first = u"Anna";
        anna.last = u"Berg";
        anna.middle = u"C";
        anna.company = u"Dune";
        anna.phones = {Phone(u"Mobile", u"111", 0), Phone(u"Work", u"222", 3)};
        anna.extra = u"Berg Anna";
        anna.hasPicture = 1;
        fake_.contacts[7] = anna;
        platform_.contacts.push_back(Stored(7, anna));
    }

    FakeContacts fake_;
    StorePlatform platform_;
};

TEST_P(FakeContactsTest, ReadsWhatTheSessionReadsForTheSameFlags) {
    ContactsSession session(platform_);
    ASSERT_TRUE(session.Open());
    ContactRecord real;
    ContactRecord doubled;
    ASSERT_TRUE(session.ReadContact(7, real, GetParam(), 0, 0));
    ASSERT_TRUE(fake_.Read(7, GetParam(), doubled));
    EXPECT_EQ(Narrow(Describe(doubled)), Narrow(Describe(real)));
}

TEST(FakeContactsFlagsTest, TheExtraTextComesOnlyWithItsOwnFlag) {
    FakeContacts fake;
    FakeContact anna;
    anna.first = u"Anna";
    anna.phones = {Phone(u"Mobile", u"111", 0)};
    anna.extra = u"Berg Anna";
    fake.contacts[7] = anna;
    ContactRecord record;
    ASSERT_TRUE(fake.Read(7, 2, record));
    EXPECT_TRUE(record.extraText.IsEmpty());
    EXPECT_EQ(record.phones.Size(), 1);
    ASSERT_TRUE(fake.Read(7, 16, record));
    EXPECT_EQ(S(record.extraText), u"Berg Anna");
    EXPECT_EQ(record.phones.Size(), 0);
    EXPECT_TRUE(record.firstName.IsEmpty());
}

// Every combination of the groups the board reads (names 1, phones 2, extra text 16 and the
// has-picture test 32).
std::vector<uint32_t> BoardFlagCombinations() {
    std::vector<uint32_t> flags;
    for (uint32_t bits = 0; bits < 16; ++bits) {
        flags.push_back((bits & 1 ? 1u : 0u) | (bits & 2 ? 2u : 0u) | (bits & 4 ? 16u : 0u) |
                        (bits & 8 ? 32u : 0u));
    }
    return flags;
}

INSTANTIATE_TEST_SUITE_P(BoardFlags, FakeContactsTest, testing::ValuesIn(BoardFlagCombinations()));

}  // namespace
