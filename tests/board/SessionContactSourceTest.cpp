#include "board/SessionContactSource.h"

#include <gtest/gtest.h>

#include "RegistryView.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"
#include "contacts/SearchServiceClient.h"

namespace {

// A platform without the service: nothing is running and nothing can be registered.
class NoService : public ServiceCalls {
  public:
    void* GetServiceHandle(const char16_t*) override { return nullptr; }
    bool CallRegistrationExport(const char16_t*, const char*) override { return false; }
    void* RegisterService(const char16_t*, uint32_t, const char16_t*, uint32_t) override {
        return nullptr;
    }
    bool IoControl(void*, uint32_t, const void*, uint32_t, void*, uint32_t, uint32_t*) override {
        return false;
    }
};

TEST(SessionContactSourceTest, WithoutASessionNothingIsAvailableOrRead) {
    NoService calls;
    SearchServiceClient client(calls);
    SessionContactSource source(nullptr, client);
    ContactRecord record;
    EXPECT_FALSE(source.IsAvailable());
    EXPECT_FALSE(source.Read(1, 35, record));
}

TEST(SessionContactSourceTest, WithoutTheServiceTheSearchFindsNothing) {
    NoService calls;
    SearchServiceClient client(calls);
    SessionContactSource source(nullptr, client);
    Array<uint32_t> oids;
    oids.Add(5);
    EXPECT_FALSE(source.FindByNumber(u"123", oids));
    EXPECT_TRUE(oids.IsEmpty());
}

TEST(SessionContactSourceTest, BoardKeepsItsBindingsWhenTheDatabaseIsMissing) {
    registry::memory::Reset();
    PlantNumber(u"Oid", 0, 9);
    PlantText(u"Phone", 0, u"123");
    NoService calls;
    SearchServiceClient client(calls);
    SessionContactSource source(nullptr, client);
    DialBoard board(&source);
    board.LoadEntries();
    ASSERT_EQ(board.Count(), 1);
    EXPECT_EQ(board.EntryAt(0).oid, 9u);
    EXPECT_EQ(StoredNumber(u"Oid", 0), 9u);
    registry::memory::Reset();
}

}  // namespace
