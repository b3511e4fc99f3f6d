#include "contacts/ContactsSession.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "TestBytes.h"
#include "contacts/MemoryContactsStore.h"

namespace {

using namespace contact_props;
using test_bytes::Shared;
using test_bytes::U16;
using test_bytes::Utf16Le;

int gPicturesDeleted = 0;

void DeleteFakePicture(PictureHandle picture) {
    delete static_cast<int*>(picture);
    ++gPicturesDeleted;
}

/// A platform whose store is a MemoryContactsStore the test fills, counting what is asked.
class TestPlatform : public ContactsPlatform {
  public:
    void InitializeCom() override { ++comInits; }
    void UninitializeCom() override { ++comUninits; }
    std::unique_ptr<ContactsStore> CreateStore() override {
        if (failCreate)
            return nullptr;
        auto store = std::make_unique<MemoryContactsStore>();
        for (const StoredContact& contact : contacts)
            store->Put(contact);
        store->FailLogon(failLogon);
        store->FailGetProps(failGetProps);
        store->FailFolder(failFolder);
        lastStore = store.get();
        return store;
    }
    PictureHandle DecodePicture(ContactsStream& stream, int width, int height) override {
        ++decodes;
        decodedSize = {width, height};
        uint64_t size = 0;
        stream.Seek(0, ContactsStream::kSeekEnd, &size);
        return size == 0 ? nullptr : new int(static_cast<int>(size));
    }
    PictureRelease PictureReleaser() override { return DeleteFakePicture; }

    std::vector<StoredContact> contacts;
    bool failCreate = false;
    bool failLogon = false;
    bool failGetProps = false;
    bool failFolder = false;
    MemoryContactsStore* lastStore = nullptr;
    int comInits = 0;
    int comUninits = 0;
    int decodes = 0;
    std::pair<int, int> decodedSize{0, 0};
};

class RecordingListener : public ContactsListener {
  public:
    void ItemChanged(int kind, uint32_t oid) override { notices.emplace_back(kind, oid); }
    void Timer() override { ++timers; }
    std::vector<std::pair<int, uint32_t>> notices;
    int timers = 0;
};

StoredContact Contact(uint32_t oid, std::vector<std::pair<uint32_t, std::u16string>> texts) {
    StoredContact contact;
    contact.oid = oid;
    for (const auto& [id, text] : texts)
        contact.SetText(id, Str(text.c_str()));
    return contact;
}

std::shared_ptr<const std::vector<uint8_t>> Notes(const std::u16string& text) {
    return Shared(Utf16Le(text, {0xFE, 0xFF}));
}

struct PhoneView {
    std::u16string label;
    std::u16string number;
    int32_t type;
    bool operator==(const PhoneView& other) const {
        return label == other.label && number == other.number && type == other.type;
    }
};

std::vector<PhoneView> Phones(const ContactRecord& record) {
    std::vector<PhoneView> phones;
    for (const ContactPhone& phone : record.phones) {
        phones.push_back({U16(phone.label), U16(phone.number), phone.type});
    }
    return phones;
}

class ContactsSessionTest : public ::testing::Test {
  protected:
    void SetUp() override { gPicturesDeleted = 0; }
    bool Read(uint32_t oid, uint32_t flags, int width = 0, int height = 0) {
        return session.ReadContact(oid, record, flags, width, height);
    }

    TestPlatform platform;
    ContactsSession session{platform};
    ContactRecord record;
};

TEST_F(ContactsSessionTest, ReadsTheNamesOfAContact) {
    platform.contacts.push_back(Contact(7, {{kFirstName, u"Ann"},
                                            {kLastName, u"Lee"},
                                            {kMiddleName, u"May"},
                                            {kCompany, u"Acme"},
                                            {kNamePart5, u"p5"},
                                            {kNamePart6, u"p6"},
                                            {kNamePart7, u"p7"},
                                            {kNamePart8, u"p8"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(7, read_flags::kNames));
    EXPECT_EQ(record.oid, 7u);
    EXPECT_EQ(U16(record.firstName), u"Ann");
    EXPECT_EQ(U16(record.lastName), u"Lee");
    EXPECT_EQ(U16(record.middleName), u"May");
    EXPECT_EQ(U16(record.company), u"Acme");
    EXPECT_EQ(U16(record.namePart5), u"p5");
    EXPECT_EQ(U16(record.namePart6), u"p6");
    EXPECT_EQ(U16(record.namePart7), u"p7");
    EXPECT_EQ(U16(record.namePart8), u"p8");
    EXPECT_TRUE(record.phones.IsEmpty());
}

TEST_F(ContactsSessionTest, ReadsPhonesInTypeCodeOrderWithBuiltInLabels) {
    StoredContact contact = Contact(1, {});
    for (int type = kPhonePropertyCount - 1; type >= 0; --type) {
        contact.SetText(kPhoneProperties[type].propId, Str(std::u16string(1, u'a' + type).c_str()));
    }
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPhones));
    const std::u16string labels[] = {u"Mobile",  u"Home",  u"Home",      u"Work",     u"Work",
                                     u"Pager",   u"Radio", u"Assistant", u"Work fax", u"Home fax",
                                     u"Company", u"MMS",   u"Car"};
    std::vector<PhoneView> expected;
    for (int type = 0; type < kPhonePropertyCount; ++type) {
        expected.push_back({labels[type], std::u16string(1, u'a' + type), type});
    }
    EXPECT_EQ(Phones(record), expected);
}

TEST_F(ContactsSessionTest, AContactWithNoNumbersHasOnlyItsNotesItems) {
    StoredContact plain = Contact(1, {{kFirstName, u"No"}});
    StoredContact noted = Contact(2, {{kFirstName, u"Noted"}});
    noted.notes = Notes(
        u"== start pim information ==Phone: [Skype: 123] [Fax: 456]"
        u"== end pim information ==");
    platform.contacts = {plain, noted};
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, 35));
    EXPECT_TRUE(record.phones.IsEmpty());
    ASSERT_TRUE(Read(2, 35));
    EXPECT_EQ(Phones(record),
              (std::vector<PhoneView>{{u"Skype", u"123", 100}, {u"Fax", u"456", 100}}));
}

TEST_F(ContactsSessionTest, ASecondHomeNumberAloneIsHomeWithTypeTwo) {
    platform.contacts.push_back(Contact(1, {{kHome2Phone, u"555"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPhones));
    EXPECT_EQ(Phones(record), (std::vector<PhoneView>{{u"Home", u"555", 2}}));
}

TEST_F(ContactsSessionTest, NotesItemsFollowThePropertiesAndDuplicatesStay) {
    StoredContact contact = Contact(1, {{kMobilePhone, u"111"}, {kCarPhone, u"222"}});
    contact.notes = Notes(u"== start pim information ==Phone: [Mobile: 111]");
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPhones));
    EXPECT_EQ(Phones(record),
              (std::vector<PhoneView>{
                  {u"Mobile", u"111", 0}, {u"Car", u"222", 12}, {u"Mobile", u"111", 100}}));
}

TEST_F(ContactsSessionTest, TheListIsSplitAtCommas) {
    platform.contacts.push_back(Contact(1, {{kList, u"Family, Friends,Work,"}}));
    platform.contacts.push_back(Contact(2, {{kList, u"One"}}));
    platform.contacts.push_back(Contact(3, {{kList, u",  a"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kList));
    ASSERT_EQ(record.list.Size(), 3);
    EXPECT_EQ(U16(record.list[0]), u"Family");
    EXPECT_EQ(U16(record.list[1]), u"Friends");
    EXPECT_EQ(U16(record.list[2]), u"Work");
    ASSERT_TRUE(Read(2, read_flags::kList));
    ASSERT_EQ(record.list.Size(), 1);
    EXPECT_EQ(U16(record.list[0]), u"One");
    ASSERT_TRUE(Read(3, read_flags::kList));
    ASSERT_EQ(record.list.Size(), 2);
    EXPECT_EQ(U16(record.list[0]), u"");
    EXPECT_EQ(U16(record.list[1]), u"a");
}

TEST_F(ContactsSessionTest, FlagThirtyTwoTestsForAPictureWithoutDecoding) {
    StoredContact contact = Contact(1, {{kFirstName, u"Pic"}});
    contact.picture = Shared({1, 2, 3});
    platform.contacts.push_back(contact);
    platform.contacts.push_back(Contact(2, {{kFirstName, u"None"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kHasPicture));
    EXPECT_EQ(record.hasPicture, 1u);
    EXPECT_EQ(record.picture, nullptr);
    EXPECT_EQ(platform.decodes, 0);
    ASSERT_TRUE(Read(2, read_flags::kHasPicture));
    EXPECT_EQ(record.hasPicture, 0u);
}

TEST_F(ContactsSessionTest, FlagFourDecodesThePictureAtTheGivenSize) {
    StoredContact contact = Contact(1, {});
    contact.picture = Shared({1, 2, 3});
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPicture, 64, 48));
    EXPECT_EQ(record.hasPicture, 1u);
    ASSERT_NE(record.picture, nullptr);
    EXPECT_EQ(*static_cast<int*>(record.picture.Get()), 3);
    EXPECT_EQ(platform.decodedSize, (std::pair<int, int>{64, 48}));
    record.Clear();
    EXPECT_EQ(record.picture, nullptr);
    EXPECT_EQ(record.hasPicture, 0u);
    EXPECT_EQ(gPicturesDeleted, 1);
}

TEST_F(ContactsSessionTest, AnEmptyPictureStreamStillCountsAsAPicture) {
    StoredContact contact = Contact(1, {});
    contact.picture = Shared({});
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPicture, 10, 10));
    EXPECT_EQ(record.hasPicture, 1u);
    EXPECT_EQ(record.picture, nullptr);
}

TEST_F(ContactsSessionTest, TheNextReadDeletesThePreviousPicture) {
    StoredContact contact = Contact(1, {});
    contact.picture = Shared({9});
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kPicture, 10, 10));
    ASSERT_TRUE(Read(1, read_flags::kNames));
    EXPECT_EQ(record.picture, nullptr);
    EXPECT_EQ(gPicturesDeleted, 1);
}

TEST_F(ContactsSessionTest, NotesTextAndExtraTextsComeWithTheirFlags) {
    StoredContact contact = Contact(
        1, {{kExtraText, u"e1"}, {kExtraText2, u"e2"}, {kExtraText3, u"e3"}, {kFirstName, u"F"}});
    contact.notes = Notes(u"Call after six. == start pim information ==x");
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kNotes));
    EXPECT_EQ(U16(record.notesText), u"Call after six.");
    EXPECT_TRUE(record.extraText.IsEmpty());
    EXPECT_TRUE(record.firstName.IsEmpty());
    ASSERT_TRUE(Read(1, read_flags::kExtra));
    EXPECT_EQ(U16(record.extraText), u"e1");
    EXPECT_TRUE(record.notesText.IsEmpty());
    EXPECT_TRUE(record.extraText2.IsEmpty());
    ASSERT_TRUE(Read(1, read_flags::kExtra23));
    EXPECT_EQ(U16(record.extraText2), u"e2");
    EXPECT_EQ(U16(record.extraText3), u"e3");
}

TEST_F(ContactsSessionTest, NotesItemsNeedThePhonesFlag) {
    StoredContact contact = Contact(1, {});
    contact.notes = Notes(u"== start pim information ==Phone: [a: 1]");
    platform.contacts.push_back(contact);
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kNotes));
    EXPECT_TRUE(record.phones.IsEmpty());
}

TEST_F(ContactsSessionTest, AReadClearsWhatTheRecordHeld) {
    platform.contacts.push_back(Contact(1, {{kFirstName, u"A"}, {kMobilePhone, u"1"}}));
    platform.contacts.push_back(Contact(2, {{kLastName, u"B"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, 0xFF));
    ASSERT_TRUE(Read(2, 0xFF));
    EXPECT_TRUE(record.firstName.IsEmpty());
    EXPECT_EQ(U16(record.lastName), u"B");
    EXPECT_TRUE(record.phones.IsEmpty());
}

TEST_F(ContactsSessionTest, AMissingContactReturnsFalseAndLeavesTheRecord) {
    platform.contacts.push_back(Contact(1, {{kFirstName, u"A"}}));
    ASSERT_TRUE(session.Open());
    ASSERT_TRUE(Read(1, read_flags::kNames));
    EXPECT_FALSE(Read(99, read_flags::kNames));
    EXPECT_EQ(U16(record.firstName), u"A");
}

TEST_F(ContactsSessionTest, AFailedPropertyRequestStillReturnsTrue) {
    StoredContact contact = Contact(5, {{kFirstName, u"A"}});
    contact.picture = Shared({1});
    contact.notes = Notes(u"== start pim information ==Phone: [a: 1]");
    platform.contacts.push_back(contact);
    platform.failGetProps = true;
    ASSERT_TRUE(session.Open());
    EXPECT_TRUE(Read(5, 35));
    EXPECT_EQ(record.oid, 0u);
    EXPECT_TRUE(record.firstName.IsEmpty());
    EXPECT_TRUE(record.phones.IsEmpty());
    EXPECT_EQ(record.hasPicture, 1u);
}

TEST_F(ContactsSessionTest, AReadAfterAFailedOpenReturnsFalseAtOnce) {
    platform.contacts.push_back(Contact(1, {{kFirstName, u"A"}}));
    platform.failLogon = true;
    EXPECT_FALSE(session.Open());
    EXPECT_FALSE(session.IsOpen());
    EXPECT_FALSE(Read(1, read_flags::kNames));
    platform.failLogon = false;
    platform.failCreate = true;
    EXPECT_FALSE(session.Open());
    EXPECT_FALSE(Read(1, read_flags::kNames));
}

TEST_F(ContactsSessionTest, OpenWithoutListenerLeavesNotificationsOff) {
    ASSERT_TRUE(session.Open());
    EXPECT_EQ(platform.comInits, 1);
    EXPECT_EQ(platform.lastStore->FolderNotifications(), 0u);
}

TEST_F(ContactsSessionTest, AListenerReceivesCreatedChangedAndDeleted) {
    RecordingListener listener;
    session.SetListener(&listener);
    platform.contacts.push_back(Contact(1, {{kFirstName, u"A"}}));
    ASSERT_TRUE(session.Open());
    MemoryContactsStore& store = *platform.lastStore;
    EXPECT_EQ(store.FolderNotifications(), kNotifyLocal | kNotifyRemote);
    store.Put(Contact(2, {{kFirstName, u"B"}}));
    store.Put(Contact(1, {{kFirstName, u"A2"}}));
    store.Put(Contact(1, {{kFirstName, u"A2"}}));  // no change, no notice
    store.Remove(2);
    EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{
                                    {kItemCreated, 2}, {kItemChanged, 1}, {kItemDeleted, 2}}));
}

TEST_F(ContactsSessionTest, AFolderThatFailsStillOpens) {
    RecordingListener listener;
    session.SetListener(&listener);
    platform.failFolder = true;
    EXPECT_TRUE(session.Open());
}

TEST_F(ContactsSessionTest, ListenerMessagesMapToKinds) {
    const std::pair<uint32_t, int> table[] = {{0x8100, 2},  {0x8101, 0}, {0x8102, 1},  {0x8105, 2},
                                              {0x8106, 0},  {0x8107, 1}, {0x8103, -1}, {0x8104, -1},
                                              {0x8108, -1}, {0x0113, -1}};
    for (auto [message, kind] : table)
        EXPECT_EQ(ItemChangedKind(message), kind) << message;

    RecordingListener listener;
    session.OnListenerMessage(0x8102, 3);  // no listener: nothing happens
    session.SetListener(&listener);
    session.OnListenerMessage(0x8107, 42);
    session.OnListenerMessage(0x0113, 1);
    session.OnListenerMessage(0x8103, 5);
    EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{{kItemChanged, 42}}));
    EXPECT_EQ(listener.timers, 1);
}

TEST_F(ContactsSessionTest, DestroyDisconnectsAndTheSessionOpensAgain) {
    RecordingListener listener;
    session.SetListener(&listener);
    platform.contacts.push_back(Contact(1, {{kFirstName, u"A"}}));
    ASSERT_TRUE(session.Open());
    session.Destroy();
    EXPECT_FALSE(session.IsOpen());
    EXPECT_EQ(platform.comUninits, 1);
    EXPECT_FALSE(Read(1, read_flags::kNames));
    ASSERT_TRUE(session.Open());
    EXPECT_TRUE(Read(1, read_flags::kNames));
}

/// A store that records the property requests it receives.
class RequestSpy : public ContactsStore {
  public:
    explicit RequestSpy(std::vector<uint32_t>& requested) : requested_(requested) {}
    bool Logon(ContactsNoticeTarget*) override { return true; }
    void Logoff() override {}
    std::unique_ptr<ContactsItem> GetItemFromOid(uint32_t) override {
        return std::make_unique<Item>(requested_);
    }
    std::unique_ptr<ContactsItem> GetDefaultFolder(int) override { return nullptr; }
    bool EnumerateOids(std::vector<uint32_t>&) override { return false; }
    void Refresh() override {}

  private:
    class Item : public ContactsItem {
      public:
        explicit Item(std::vector<uint32_t>& requested) : requested_(requested) {}
        bool GetProps(const uint32_t* ids, int count, std::vector<PropertyValue>& values) override {
            requested_.assign(ids, ids + count);
            values.clear();
            return true;
        }
        bool SetProps(const PropertyValue*, int) override { return false; }
        std::unique_ptr<ContactsStream> OpenStream(uint32_t) override { return nullptr; }

      private:
        std::vector<uint32_t>& requested_;
    };
    std::vector<uint32_t>& requested_;
};

class SpyPlatform : public ContactsPlatform {
  public:
    std::unique_ptr<ContactsStore> CreateStore() override {
        return std::make_unique<RequestSpy>(requested);
    }
    std::vector<uint32_t> requested;
};

TEST(ContactsSessionRequestTest, TheRequestIsBuiltInOrder) {
    SpyPlatform platform;
    ContactsSession session(platform);
    ASSERT_TRUE(session.Open());
    ContactRecord record;
    ASSERT_TRUE(session.ReadContact(1, record, 0xFF, 0, 0));
    std::vector<uint32_t> expected = {kOid,       kFirstName, kLastName,  kMiddleName, kCompany,
                                      kNamePart5, kNamePart6, kNamePart7, kNamePart8};
    for (const PhoneProperty& phone : kPhoneProperties)
        expected.push_back(phone.propId);
    expected.insert(expected.end(), {kList, kExtraText, kExtraText2, kExtraText3});
    EXPECT_EQ(platform.requested, expected);
    ASSERT_TRUE(session.ReadContact(1, record, 0, 0, 0));
    EXPECT_EQ(platform.requested, std::vector<uint32_t>{kOid});
    ASSERT_TRUE(session.ReadContact(1, record, read_flags::kExtra23 | read_flags::kList, 0, 0));
    EXPECT_EQ(platform.requested, (std::vector<uint32_t>{kOid, kList, kExtraText2, kExtraText3}));
}

/// What Open acquires, counted when acquired and when released.
struct Holdings {
    int comInits = 0;
    int comUninits = 0;
    int storesMade = 0;
    int storesGone = 0;
    int logons = 0;
    int logoffs = 0;
    int windowsMade = 0;
    int windowsGone = 0;
    int foldersMade = 0;
    int foldersGone = 0;

    bool Balanced() const {
        return comInits == comUninits && storesMade == storesGone && logons == logoffs &&
               windowsMade == windowsGone && foldersMade == foldersGone;
    }
};

std::ostream& operator<<(std::ostream& out, const Holdings& h) {
    return out << "COM " << h.comInits << "/" << h.comUninits << ", stores " << h.storesMade << "/"
               << h.storesGone << ", logons " << h.logons << "/" << h.logoffs << ", windows "
               << h.windowsMade << "/" << h.windowsGone << ", folders " << h.foldersMade << "/"
               << h.foldersGone;
}

/// The steps of Open that can fail.
enum class OpenStep { kCreateStore, kListenerWindow, kLogon, kFolder };

class CountedFolder : public ContactsItem {
  public:
    CountedFolder(std::unique_ptr<ContactsItem> folder, Holdings& holdings)
        : folder_(std::move(folder)), holdings_(holdings) {
        ++holdings_.foldersMade;
    }
    ~CountedFolder() override { ++holdings_.foldersGone; }
    bool GetProps(const uint32_t* ids, int count, std::vector<PropertyValue>& values) override {
        return folder_->GetProps(ids, count, values);
    }
    bool SetProps(const PropertyValue* values, int count) override {
        return folder_->SetProps(values, count);
    }
    std::unique_ptr<ContactsStream> OpenStream(uint32_t propId) override {
        return folder_->OpenStream(propId);
    }

  private:
    std::unique_ptr<ContactsItem> folder_;
    Holdings& holdings_;
};

class CountedStore : public MemoryContactsStore {
  public:
    explicit CountedStore(Holdings& holdings) : holdings_(holdings) { ++holdings_.storesMade; }
    ~CountedStore() override { ++holdings_.storesGone; }
    bool Logon(ContactsNoticeTarget* owner) override {
        if (!MemoryContactsStore::Logon(owner))
            return false;
        ++holdings_.logons;
        return true;
    }
    void Logoff() override {
        if (IsLoggedOn())
            ++holdings_.logoffs;
        MemoryContactsStore::Logoff();
    }
    std::unique_ptr<ContactsItem> GetDefaultFolder(int folderType) override {
        std::unique_ptr<ContactsItem> folder = MemoryContactsStore::GetDefaultFolder(folderType);
        if (folder == nullptr)
            return nullptr;
        return std::make_unique<CountedFolder>(std::move(folder), holdings_);
    }

  private:
    Holdings& holdings_;
};

/// A platform that fails at one step of Open while `failing` is set, counting what it hands out.
class FailingPlatform : public ContactsPlatform {
  public:
    explicit FailingPlatform(OpenStep step) : step_(step) {}
    void InitializeCom() override { ++holdings.comInits; }
    void UninitializeCom() override { ++holdings.comUninits; }
    std::unique_ptr<ContactsStore> CreateStore() override {
        if (failing && step_ == OpenStep::kCreateStore)
            return nullptr;
        auto store = std::make_unique<CountedStore>(holdings);
        store->Put(Contact(1, {{kFirstName, u"A"}}));
        store->FailLogon(failing && step_ == OpenStep::kLogon);
        store->FailFolder(failing && step_ == OpenStep::kFolder);
        return store;
    }
    ContactsNoticeTarget* CreateListenerWindow(ContactsSession& session) override {
        if (failing && step_ == OpenStep::kListenerWindow)
            return nullptr;
        ++holdings.windowsMade;
        return ContactsPlatform::CreateListenerWindow(session);
    }
    void DestroyListenerWindow(ContactsNoticeTarget* window) override {
        ++holdings.windowsGone;
        ContactsPlatform::DestroyListenerWindow(window);
    }

    Holdings holdings;
    bool failing = true;

  private:
    OpenStep step_;
};

class ContactsSessionOpenFailureTest : public ::testing::TestWithParam<OpenStep> {};

TEST_P(ContactsSessionOpenFailureTest, WhatOpenAcquiredIsReleasedAndALaterOpenSucceeds) {
    FailingPlatform platform(GetParam());
    RecordingListener listener;
    {
        ContactsSession session(platform);
        session.SetListener(&listener);
        bool opened = session.Open();
        // Only the log on and the store are essential; without a window or the folder's
        // setting the session opens without notices.
        bool essential = GetParam() == OpenStep::kCreateStore || GetParam() == OpenStep::kLogon;
        EXPECT_EQ(opened, !essential);
        if (essential) {
            EXPECT_FALSE(session.IsOpen());
            EXPECT_TRUE(platform.holdings.Balanced()) << platform.holdings;
        }
        session.Destroy();
        EXPECT_TRUE(platform.holdings.Balanced()) << platform.holdings;

        platform.failing = false;
        ASSERT_TRUE(session.Open());
        EXPECT_EQ(platform.holdings.comInits - platform.holdings.comUninits, 1);
        EXPECT_EQ(platform.holdings.logons - platform.holdings.logoffs, 1);
        EXPECT_EQ(platform.holdings.windowsMade - platform.holdings.windowsGone, 1);
        ContactRecord record;
        ASSERT_TRUE(session.ReadContact(1, record, read_flags::kNames, 0, 0));
        EXPECT_EQ(U16(record.firstName), u"A");
        // The window of the second Open carries notices.
        static_cast<MemoryContactsStore*>(session.Store())->Remove(1);
        EXPECT_EQ(listener.notices, (std::vector<std::pair<int, uint32_t>>{{kItemDeleted, 1}}));
    }
    EXPECT_TRUE(platform.holdings.Balanced()) << platform.holdings;
}

TEST_P(ContactsSessionOpenFailureTest, RepeatedFailedOpensAcquireNothingForGood) {
    FailingPlatform platform(GetParam());
    ContactsSession session(platform);
    RecordingListener listener;
    session.SetListener(&listener);
    for (int i = 0; i < 3; ++i)
        session.Open();
    if (!session.IsOpen()) {
        EXPECT_TRUE(platform.holdings.Balanced()) << platform.holdings;
    }
    session.Destroy();
    EXPECT_TRUE(platform.holdings.Balanced()) << platform.holdings;
}

std::string StepName(const ::testing::TestParamInfo<OpenStep>& step) {
    constexpr const char* kNames[] = {"CreateStore", "ListenerWindow", "Logon", "Folder"};
    return kNames[static_cast<int>(step.param)];
}

INSTANTIATE_TEST_SUITE_P(EachStep, ContactsSessionOpenFailureTest,
                         ::testing::Values(OpenStep::kCreateStore, OpenStep::kListenerWindow,
                                           OpenStep::kLogon, OpenStep::kFolder),
                         StepName);

TEST(ContactsSessionGetTest, TheProcessHasOneSession) {
    ContactsSession* first = ContactsSession::Get();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(ContactsSession::Get(), first);
    EXPECT_FALSE(first->IsOpen());
    EXPECT_EQ(first->Listener(), nullptr);
}

}  // namespace
