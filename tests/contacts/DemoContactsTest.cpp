// The demo contacts file read whole through the session: names, numbers, labels, type codes.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "TestBytes.h"
#include "contacts/ContactsSession.h"
#include "contacts/MemoryContactsStore.h"
#include "contacts/VCardContacts.h"

namespace {

using test_bytes::U16;

struct Phone {
    std::u16string label;
    std::u16string number;
    int type;
    bool operator==(const Phone& other) const {
        return label == other.label && number == other.number && type == other.type;
    }
};

struct Expected {
    std::u16string last;
    std::u16string first;
    std::u16string middle;
    std::u16string company;
    std::vector<Phone> phones;
    bool picture;
};

const Expected kDemo[] = {
    {u"Peña",
     u"Ana María",
     u"",
     u"",
     {{u"Mobile", u"+34 612 555 101", 0}, {u"Home", u"+34 91 555 1020", 1}},
     true},
    {u"Lefèvre",
     u"François",
     u"",
     u"Boulangerie Lefèvre",
     {{u"Mobile", u"+33 6 55 50 01 04", 0},
      {u"Work", u"+33-1-55-50-01-02", 3},
      {u"Work fax", u"+33 1 55 50 01 03", 8}},
     true},
    {u"Müller",
     u"Jürgen",
     u"",
     u"",
     {{u"Home", u"+49 30 5550100", 1},
      {u"Home", u"+49 30 5550101", 2},
      {u"Work", u"+49 30 5550102", 3}},
     true},
    {u"Brontë-Ødegård", u"Zoë", u"", u"", {{u"Mobile", u"+47 415 55 104", 0}}, true},
    {u"Петров",
     u"Иван",
     u"Сергеевич",
     u"",
     {{u"Mobile", u"+7 916 555-01-05", 0}, {u"Work", u"+7 495 555-01-06", 3}},
     false},
    {u"Смирнова", u"Ольга", u"", u"", {{u"Mobile", u"+7 903 555-01-07", 0}}, false},
    {u"Соколов",
     u"Дмитрий",
     u"",
     u"",
     {{u"Mobile", u"+7 921 555-01-08", 0},
      {u"Дача", u"+7 813 555-01-09", 100},
      {u"Skype", u"dima.sokolov", 100}},
     true},
    {u"",
     u"",
     u"",
     u"Acme Plumbing",
     {{u"Work", u"+1 206 555 0108", 3}, {u"Work fax", u"+1 206 555 0109", 8}},
     false},
    {u"", u"", u"", u"Northwind Traders", {{u"Company", u"+1 425 555 0110", 10}}, false},
    {u"", u"", u"Marie", u"", {{u"Mobile", u"+33 6 55 50 01 11", 0}}, false},
    {u"Quiet", u"Person", u"", u"", {}, false},
    {u"Every",
     u"Number",
     u"",
     u"",
     {{u"Mobile", u"+1 555 0100", 0},
      {u"Home", u"+1 555 0101", 1},
      {u"Home", u"+1 555 0102", 2},
      {u"Work", u"+1 555 0103", 3},
      {u"Work", u"+1 555 0104", 4},
      {u"Pager", u"+1 555 0105", 5},
      {u"Radio", u"+1 555 0106", 6},
      {u"Assistant", u"+1 555 0107", 7},
      {u"Work fax", u"+1 555 0108", 8},
      {u"Home fax", u"+1 555 0109", 9},
      {u"Company", u"+1 555 0110", 10},
      {u"MMS", u"+1 555 0111", 11},
      {u"Car", u"+1 555 0112", 12},
      {u"Home", u"+1 555 0113", 100}},
     true},
    {u"Kowalski",
     u"Łukasz",
     u"",
     u"",
     {{u"Mobile", u"+48 601 555 113", 0},
      {u"Skype", u"lukasz.k", 100},
      {u"Biuro : wew. 12", u"+48 22 555 01 14", 100}},
     false},
    {u"Appleseed",
     u"Johnny",
     u"",
     u"",
     {{u"Mobile", u"+1 408 555 0115", 0}, {u"Summer house", u"+1 408 555 0116", 100}},
     false},
    {u"Παπαδόπουλος", u"Νίκος", u"", u"", {{u"Mobile", u"+30 694 555 0117", 0}}, true},
    {u"Dvořák", u"Jiří", u"", u"", {{u"Work", u"+420 222 555 118", 3}}, false},
    {u"Álvarez", u"José", u"", u"", {{u"Home", u"+34 93 555 0119", 1}}, false},
    {u"Yılmaz", u"Şule", u"", u"", {{u"Mobile", u"+90 532 555 0120", 0}}, true},
    {u"", u"Madonna", u"", u"", {}, false},
    {u"Nguyễn", u"Văn An", u"", u"", {{u"Mobile", u"+84 90 555 0121", 0}}, false},
    {u"Коваленко",
     u"Олена",
     u"",
     u"",
     {{u"Mobile", u"+380 50 555 0122", 0}, {u"Home", u"+380 44 555 0123", 1}},
     false},
    {u"王", u"小明", u"", u"", {{u"Mobile", u"+86 139 5550 0124", 0}}, false},
    {u"Second", u"Home", u"", u"", {{u"Home", u"+1 555 0125", 1}}, false},
    {u"Road",
     u"Runner",
     u"",
     u"",
     {{u"Pager", u"+1 555 0127", 5}, {u"Car", u"+1 555 0126", 12}},
     false},
    {u"O'Brien", u"Siobhán", u"", u"Gaelic Games", {{u"Mobile", u"+353 87 555 0128", 0}}, true},
    {u"Ström",
     u"Åsa",
     u"",
     u"",
     {{u"Work", u"+46 8 555 01 29", 3}, {u"Telefonsvarare", u"+46 8 555 01 30", 100}},
     false},
    {u"Nakamura", u"Yuki", u"", u"", {{u"Mobile", u"+81 90 5550 0131", 0}}, false},
    {u"Smith", u"John", u"", u"", {{u"Mobile", u"+44 7700 900132", 0}}, false},
    {u"Smith", u"John", u"", u"Smith & Sons", {{u"Work", u"+44 20 7946 0133", 3}}, false},
    {u"", u"", u"", u"Café Zürich", {{u"Work", u"+41 44 555 01 34", 3}}, true},
    {u"Doe", u"Jane", u"", u"", {{u"Mobile", u"+1 555 0135", 0}}, false},
    {u"Doe", u"Jane", u"", u"", {{u"Mobile", u"+1 555 0135", 0}}, false},
};

/// A platform serving the demo file's contacts from memory.
class DemoPlatform : public ContactsPlatform {
  public:
    explicit DemoPlatform(std::vector<StoredContact> contacts) : contacts_(std::move(contacts)) {}
    std::unique_ptr<ContactsStore> CreateStore() override {
        auto store = std::make_unique<MemoryContactsStore>();
        store->ReplaceAll(contacts_);
        return store;
    }

  private:
    std::vector<StoredContact> contacts_;
};

std::vector<StoredContact> ReadDemo() {
    std::ifstream in(DD_DEMO "/Contacts.vcf", std::ios::binary);
    std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                               std::istreambuf_iterator<char>());
    EXPECT_GT(bytes.size(), 1000u);
    EXPECT_LT(bytes.size(), 300000u);
    return ReadContactsFile(bytes.data(), bytes.size());
}

TEST(DemoContactsTest, ReadsEveryContactWithNamesNumbersAndLabels) {
    std::vector<StoredContact> contacts = ReadDemo();
    ASSERT_EQ(contacts.size(), std::size(kDemo));
    DemoPlatform platform(contacts);
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    std::vector<uint32_t> oids;
    ASSERT_TRUE(session.Store()->EnumerateOids(oids));
    ASSERT_EQ(oids.size(), std::size(kDemo));
    for (size_t i = 0; i < oids.size(); ++i) {
        ContactRecord record;
        ASSERT_TRUE(session.ReadContact(oids[i], record, 35, 0, 0)) << i;
        const Expected& expected = kDemo[i];
        EXPECT_EQ(record.oid, oids[i]);
        EXPECT_EQ(U16(record.lastName), expected.last) << i;
        EXPECT_EQ(U16(record.firstName), expected.first) << i;
        EXPECT_EQ(U16(record.middleName), expected.middle) << i;
        EXPECT_EQ(U16(record.company), expected.company) << i;
        std::vector<Phone> phones;
        for (const ContactPhone& phone : record.phones) {
            phones.push_back({U16(phone.label), U16(phone.number), phone.type});
        }
        EXPECT_EQ(phones, expected.phones) << i;
        EXPECT_EQ(record.hasPicture, expected.picture ? 1u : 0u) << i;
    }
}

TEST(DemoContactsTest, ObjectIdsAreDistinctAndStable) {
    std::vector<StoredContact> first = ReadDemo();
    std::vector<StoredContact> second = ReadDemo();
    std::set<uint32_t> ids;
    for (size_t i = 0; i < first.size(); ++i) {
        EXPECT_NE(first[i].oid, 0u);
        EXPECT_EQ(first[i].oid, second[i].oid);
        ids.insert(first[i].oid);
    }
    EXPECT_EQ(ids.size(), first.size());
}

TEST(DemoContactsTest, SortNamesFollowTheRule) {
    std::vector<StoredContact> contacts = ReadDemo();
    DemoPlatform platform(contacts);
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    ContactRecord record;
    const std::pair<size_t, std::u16string> cases[] = {{0, u"Peña, Ana María"},
                                                       {4, u"Петров, Иван Сергеевич"},
                                                       {7, u"Acme Plumbing"},
                                                       {9, u"Marie"},
                                                       {18, u"Madonna"}};
    for (const auto& [index, name] : cases) {
        ASSERT_TRUE(session.ReadContact(contacts[index].oid, record, read_flags::kNames, 0, 0));
        EXPECT_EQ(U16(ContactSortName(record.firstName, record.lastName, record.middleName,
                                      record.company)),
                  name);
    }
}

TEST(DemoContactsTest, NotesTextKeepsWhatIsOutsideTheBlock) {
    std::vector<StoredContact> contacts = ReadDemo();
    DemoPlatform platform(contacts);
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    ContactRecord record;
    ASSERT_TRUE(session.ReadContact(contacts[6].oid, record, read_flags::kNotes, 0, 0));
    EXPECT_EQ(U16(record.notesText), u"Рыбалка по выходным.");
    ASSERT_TRUE(session.ReadContact(contacts[26].oid, record, read_flags::kNotes, 0, 0));
    EXPECT_EQ(U16(record.notesText), u"Prefers e-mail.");
}

}  // namespace
