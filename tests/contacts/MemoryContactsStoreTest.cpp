#include "contacts/MemoryContactsStore.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "TestBytes.h"

namespace {

using namespace contact_props;
using namespace contact_notices;
using test_bytes::Shared;

class NoticeLog : public ContactsNoticeTarget {
  public:
    void PostNotice(uint32_t message, uint32_t oid) override { notices.emplace_back(message, oid); }
    std::vector<std::pair<uint32_t, uint32_t>> notices;
};

StoredContact Contact(uint32_t oid, const char16_t* first) {
    StoredContact contact;
    contact.oid = oid;
    contact.SetText(kFirstName, first);
    return contact;
}

TEST(MemoryContactsStoreTest, AnswersPropertyRequestsWithNotFoundFlags) {
    MemoryContactsStore store;
    StoredContact contact = Contact(9, u"Ann");
    contact.SetText(kMobilePhone, u"555");
    store.Put(contact);
    ASSERT_TRUE(store.Logon(nullptr));
    auto item = store.GetItemFromOid(9);
    ASSERT_NE(item, nullptr);
    const uint32_t ids[] = {kOid, kFirstName, kLastName, kMobilePhone, 0x12345678};
    std::vector<PropertyValue> values;
    ASSERT_TRUE(item->GetProps(ids, 5, values));
    ASSERT_EQ(values.size(), 5u);
    EXPECT_EQ(values[0].number, 9u);
    EXPECT_EQ(values[0].flags, 0);
    EXPECT_EQ(std::u16string(values[1].text.c_str()), u"Ann");
    EXPECT_EQ(values[2].flags, kNotFound);
    EXPECT_EQ(std::u16string(values[3].text.c_str()), u"555");
    EXPECT_EQ(values[4].flags, kNotFound);
    for (size_t i = 0; i < 5; ++i)
        EXPECT_EQ(values[i].id, ids[i]);
}

TEST(MemoryContactsStoreTest, StreamsReadTheirBytes) {
    MemoryContactsStore store;
    StoredContact contact = Contact(1, u"A");
    contact.notes = Shared({'n', 'o', 't', 'e'});
    store.Put(contact);
    store.Put(Contact(2, u"B"));
    store.Logon(nullptr);
    auto item = store.GetItemFromOid(1);
    auto notes = item->OpenStream(kNotesStream);
    ASSERT_NE(notes, nullptr);
    EXPECT_EQ(item->OpenStream(kPictureStream), nullptr);
    EXPECT_EQ(store.GetItemFromOid(2)->OpenStream(kNotesStream), nullptr);
    uint64_t size = 0;
    ASSERT_TRUE(notes->Seek(0, ContactsStream::kSeekEnd, &size));
    EXPECT_EQ(size, 4u);
    ASSERT_TRUE(notes->Seek(-2, ContactsStream::kSeekCurrent, &size));
    EXPECT_EQ(size, 2u);
    char buffer[8] = {};
    uint32_t got = 0;
    ASSERT_TRUE(notes->Read(buffer, 8, &got));
    EXPECT_EQ(got, 2u);
    EXPECT_EQ(std::string(buffer, 2), "te");
    EXPECT_FALSE(notes->Seek(-1, ContactsStream::kSeekSet, nullptr));
    ASSERT_TRUE(notes->Seek(10, ContactsStream::kSeekSet, nullptr));
    ASSERT_TRUE(notes->Read(buffer, 8, &got));
    EXPECT_EQ(got, 0u);
}

TEST(MemoryContactsStoreTest, NothingIsServedBeforeLogon) {
    MemoryContactsStore store;
    store.Put(Contact(1, u"A"));
    std::vector<uint32_t> oids{7};
    EXPECT_EQ(store.GetItemFromOid(1), nullptr);
    EXPECT_FALSE(store.EnumerateOids(oids));
    EXPECT_TRUE(oids.empty());
    EXPECT_EQ(store.GetDefaultFolder(kContactsFolder), nullptr);
    store.Logon(nullptr);
    ASSERT_TRUE(store.EnumerateOids(oids));
    EXPECT_EQ(oids, std::vector<uint32_t>{1});
    store.Logoff();
    EXPECT_EQ(store.GetItemFromOid(1), nullptr);
}

TEST(MemoryContactsStoreTest, TheFolderHoldsTheNotificationSetting) {
    MemoryContactsStore store;
    store.Logon(nullptr);
    EXPECT_EQ(store.GetDefaultFolder(3), nullptr);
    auto folder = store.GetDefaultFolder(kContactsFolder);
    ASSERT_NE(folder, nullptr);
    PropertyValue value;
    value.id = kFolderNotifications;
    value.number = 3;
    ASSERT_TRUE(folder->SetProps(&value, 1));
    EXPECT_EQ(store.FolderNotifications(), 3u);
    std::vector<PropertyValue> values;
    const uint32_t id = kFolderNotifications;
    ASSERT_TRUE(folder->GetProps(&id, 1, values));
    EXPECT_EQ(values[0].number, 3u);
    value.id = kFirstName;
    EXPECT_FALSE(folder->SetProps(&value, 1));
}

TEST(MemoryContactsStoreTest, NoticesNeedAnOwnerAndRemoteNotifications) {
    MemoryContactsStore store;
    NoticeLog log;
    store.Logon(&log);
    store.Put(Contact(1, u"A"));
    EXPECT_TRUE(log.notices.empty());
    store.SetFolderNotifications(kNotifyLocal);
    store.Put(Contact(2, u"B"));
    EXPECT_TRUE(log.notices.empty());
    store.SetFolderNotifications(kNotifyRemote);
    store.Put(Contact(3, u"C"));
    EXPECT_EQ(log.notices, (std::vector<std::pair<uint32_t, uint32_t>>{{kCreatedRemote, 3}}));
}

TEST(MemoryContactsStoreTest, ReplaceAllPostsExactlyWhatChanged) {
    MemoryContactsStore store;
    NoticeLog log;
    store.ReplaceAll({Contact(1, u"A"), Contact(2, u"B"), Contact(3, u"C"), Contact(4, u"D")});
    store.Logon(&log);
    store.SetFolderNotifications(kNotifyLocal | kNotifyRemote);
    StoredContact withPicture = Contact(4, u"D");
    withPicture.picture = Shared({1});
    store.ReplaceAll({Contact(5, u"E"), Contact(3, u"C2"), Contact(1, u"A"), withPicture});
    EXPECT_EQ(
        log.notices,
        (std::vector<std::pair<uint32_t, uint32_t>>{
            {kDeletedRemote, 2}, {kChangedRemote, 3}, {kChangedRemote, 4}, {kCreatedRemote, 5}}));
    std::vector<uint32_t> oids;
    store.EnumerateOids(oids);
    EXPECT_EQ(oids, (std::vector<uint32_t>{5, 3, 1, 4}));
    ASSERT_NE(store.Find(3), nullptr);
    EXPECT_EQ(std::u16string(store.Find(3)->Text(kFirstName)->c_str()), u"C2");
    log.notices.clear();
    store.Remove(3);
    store.Remove(3);
    EXPECT_EQ(log.notices, (std::vector<std::pair<uint32_t, uint32_t>>{{kDeletedRemote, 3}}));
    EXPECT_EQ(store.Find(3), nullptr);
    EXPECT_NE(store.Find(4), nullptr);
}

TEST(MemoryContactsStoreTest, StoredContactTexts) {
    StoredContact contact;
    contact.SetText(kFirstName, u"A");
    contact.SetText(kFirstName, u"B");
    EXPECT_EQ(contact.texts.size(), 1u);
    EXPECT_EQ(std::u16string(contact.Text(kFirstName)->c_str()), u"B");
    contact.SetText(kFirstName, u"");
    EXPECT_EQ(contact.Text(kFirstName), nullptr);
    contact.SetText(kLastName, u"");
    EXPECT_TRUE(contact.texts.empty());
}

}  // namespace
