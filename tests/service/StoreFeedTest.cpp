#include "service/StoreFeed.h"

#include <gtest/gtest.h>

#include "ReplyReading.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "base/SettingsStore.h"
#include "contacts/MemoryContactsStore.h"

namespace {

using namespace contact_props;

StoredContact Stored(uint32_t oid, const char16_t* first, const char16_t* last,
                     const char16_t* mobile = nullptr, const char16_t* nickname = nullptr) {
    StoredContact c;
    c.oid = oid;
    c.SetText(kFirstName, first);
    c.SetText(kLastName, last);
    if (mobile != nullptr)
        c.SetText(kMobilePhone, mobile);
    if (nickname != nullptr)
        c.SetText(kNamePart6, nickname);
    return c;
}

/// A platform whose store is a MemoryContactsStore the test keeps a hand on.
class FeedPlatform : public ContactsPlatform {
  public:
    std::unique_ptr<ContactsStore> CreateStore() override {
        auto made = std::make_unique<MemoryContactsStore>();
        for (const StoredContact& c : initial)
            made->Put(c);
        store = made.get();
        return made;
    }
    std::vector<StoredContact> initial;
    MemoryContactsStore* store = nullptr;
};

class StoreFeedTest : public ::testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        platform.initial = {Stored(1, u"Fred", u"Smith", u"+7 912 123-45-67"),
                            Stored(2, u"Anna", u"Brown", nullptr, u"Nan")};
    }
    FeedPlatform platform;
    SearchService service;
};

TEST_F(StoreFeedTest, LoadsEveryContactWithNamesNicknameAndPhones) {
    ContactsSession session(platform);
    StoreFeed feed(service, session);
    ASSERT_TRUE(feed.Start());
    EXPECT_EQ(SearchText(service, u"3733").oids, (std::vector<uint32_t>{1}));
    EXPECT_EQ(SearchText(service, u"626").oids, (std::vector<uint32_t>{2}));  // nickname
    EXPECT_EQ(SearchText(service, u"1234567").oids, (std::vector<uint32_t>{1}));
    EXPECT_EQ(service.Table().At(service.Table().Find(1)).phones.at(0).label, u"Mobile");
}

TEST_F(StoreFeedTest, FollowsCreatedChangedAndDeletedNotices) {
    ContactsSession session(platform);
    StoreFeed feed(service, session);
    ASSERT_TRUE(feed.Start());
    ASSERT_NE(platform.store, nullptr);
    platform.store->Put(Stored(3, u"Zoë", u"Müller"));
    EXPECT_EQ(SearchText(service, u"685").oids, (std::vector<uint32_t>{3}));
    platform.store->Put(Stored(1, u"Frederick", u"Smith"));
    EXPECT_EQ(SearchText(service, u"3733374").oids, (std::vector<uint32_t>{1}));
    EXPECT_TRUE(SearchText(service, u"1234567").oids.empty());
    platform.store->Remove(2);
    EXPECT_TRUE(SearchText(service, u"626").oids.empty());
}

TEST_F(StoreFeedTest, FollowsTheChosenLayoutAtEachPickerOpening) {
    platform.initial.push_back(Stored(4, u"Иван", u"Петров"));
    ContactsSession session(platform);
    StoreFeed feed(service, session);
    ASSERT_TRUE(feed.Start());
    EXPECT_TRUE(SearchText(service, u"4225").oids.empty());
    {
        registry::KeyHolder key(
            registry::Create((std::u16string(settings::kRoot) + settings::kKeypadKey).c_str()));
        uint32_t type = 2;
        ASSERT_TRUE(registry::Set(key.get(), u"Type", registry::kTypeDword, &type, 4));
    }
    SearchText(service, u"");
    EXPECT_EQ(SearchText(service, u"4225").oids, (std::vector<uint32_t>{4}));
}

TEST_F(StoreFeedTest, FailsWhenTheStoreCannotOpen) {
    struct NoStore : ContactsPlatform {
        std::unique_ptr<ContactsStore> CreateStore() override { return nullptr; }
    } none;
    ContactsSession session(none);
    StoreFeed feed(service, session);
    EXPECT_FALSE(feed.Start());
    EXPECT_TRUE(SearchText(service, u"").oids.empty());
}

}  // namespace
