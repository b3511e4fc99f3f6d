#include <gtest/gtest.h>

#include "FakeContacts.h"
#include "RegistryView.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

constexpr const char16_t* kValueBases[] = {u"Oid",   u"Display", u"Btn",    u"Index",
                                           u"Phone", u"Type",    u"Link",   u"First",
                                           u"Last",  u"Middle",  u"Company"};

// A fully filled entry whose every field differs with n.
DialEntry Sample(int n) {
    DialEntry e;
    e.oid = 1000 + n;
    e.display = n % 2 == 0 ? u"" : u"Shown name";
    e.btn = n % 3 == 0 ? -1 : n;
    e.slot = 10 * n + 1;
    if (n != 2) {
        e.phone = u"+7 912 000-00-0";
        e.phone += static_cast<char16_t>(u'0' + n);
    }
    e.typeLabel = n % 2 == 0 ? u"Mobile" : u"Сарай";
    e.link = n % 2 == 0 ? 0 : 100;
    e.first = u"Ива́н";
    e.last = u"Petrov";
    e.last += static_cast<char16_t>(u'A' + n);
    e.middle = n == 1 ? u"" : u"M.";
    e.company = u"Co & Sons";
    return e;
}

void ExpectSameStored(const DialEntry& a, const DialEntry& b) {
    EXPECT_EQ(a.oid, b.oid);
    EXPECT_EQ(S(a.display), S(b.display));
    EXPECT_EQ(a.btn, b.btn);
    EXPECT_EQ(a.slot, b.slot);
    EXPECT_EQ(S(a.phone), S(b.phone));
    EXPECT_EQ(S(a.typeLabel), S(b.typeLabel));
    EXPECT_EQ(a.link, b.link);
    EXPECT_EQ(S(a.first), S(b.first));
    EXPECT_EQ(S(a.last), S(b.last));
    EXPECT_EQ(S(a.middle), S(b.middle));
    EXPECT_EQ(S(a.company), S(b.company));
}

// Fills a board through the registry: plants the entries as a full save would and loads them
// without contacts.
void PlantEntries(const std::vector<DialEntry>& entries) {
    for (size_t i = 0; i < entries.size(); ++i) {
        const DialEntry& e = entries[i];
        int n = static_cast<int>(i);
        PlantNumber(u"Oid", n, e.oid);
        PlantText(u"Display", n, S(e.display));
        PlantNumber(u"Btn", n, static_cast<uint32_t>(e.btn));
        PlantNumber(u"Index", n, static_cast<uint32_t>(e.slot));
        PlantText(u"Phone", n, S(e.phone));
        PlantText(u"Type", n, S(e.typeLabel));
        PlantNumber(u"Link", n, static_cast<uint32_t>(e.link));
        PlantText(u"First", n, S(e.first));
        PlantText(u"Last", n, S(e.last));
        PlantText(u"Middle", n, S(e.middle));
        PlantText(u"Company", n, S(e.company));
    }
}

class BoardStoreTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
    void TearDown() override { registry::memory::Reset(); }

    // Loads entries planted in the registry into board_, without contacts.
    void LoadPlanted(const std::vector<DialEntry>& entries) {
        PlantEntries(entries);
        board_.LoadEntries();
        registry::memory::Reset();
        PlantEntries(entries);
    }

    DialBoard board_;
};

TEST_F(BoardStoreTest, FullSaveWritesElevenValuesPerEntryAndNoCount) {
    LoadPlanted({Sample(0), Sample(1)});
    registry::memory::Reset();
    board_.SaveEntries(-1);
    auto values = StoredValues();
    EXPECT_EQ(values.size(), 22u);
    for (int i = 0; i < 2; ++i) {
        for (const char16_t* base : kValueBases) {
            EXPECT_EQ(values.count(ValueName(base, i)), 1u) << "missing " << i;
        }
    }
    EXPECT_EQ(registry::memory::SetCount(), 22);
    EXPECT_EQ(registry::memory::FlushCount(), 1);
}

TEST_F(BoardStoreTest, ValuesHaveTheirTypesAndStringsTheirTerminator) {
    LoadPlanted({Sample(1)});
    registry::memory::Reset();
    board_.SaveEntries(-1);
    DialEntry e = Sample(1);
    EXPECT_EQ(StoredNumber(u"Oid", 0), e.oid);
    EXPECT_EQ(StoredText(u"Display", 0), S(e.display));
    EXPECT_EQ(StoredNumber(u"Btn", 0), static_cast<uint32_t>(e.btn));
    EXPECT_EQ(StoredNumber(u"Index", 0), static_cast<uint32_t>(e.slot));
    EXPECT_EQ(StoredText(u"Phone", 0), S(e.phone));
    EXPECT_EQ(StoredText(u"Type", 0), S(e.typeLabel));
    EXPECT_EQ(StoredNumber(u"Link", 0), static_cast<uint32_t>(e.link));
    EXPECT_EQ(StoredText(u"First", 0), S(e.first));
    EXPECT_EQ(StoredText(u"Last", 0), S(e.last));
    EXPECT_EQ(StoredText(u"Middle", 0), S(e.middle));
    EXPECT_EQ(StoredText(u"Company", 0), S(e.company));
    // An empty text is one terminating zero: 2 bytes.
    LoadPlanted({Sample(2)});
    registry::memory::Reset();
    board_.SaveEntries(-1);
    EXPECT_EQ(StoredValues()[u"Display0"].data.size(), 2u);
    EXPECT_EQ(StoredValues()[u"Phone0"].data.size(), 2u);
}

TEST_F(BoardStoreTest, SavedAndLoadedAgainIsIdentical) {
    std::vector<DialEntry> entries = {Sample(0), Sample(1), Sample(2), Sample(3)};
    LoadPlanted(entries);
    board_.SaveEntries(-1);
    DialBoard again;
    again.LoadEntries();
    ASSERT_EQ(again.Count(), 4);
    for (int i = 0; i < 4; ++i)
        ExpectSameStored(again.EntryAt(i), entries[static_cast<size_t>(i)]);
    // And saving what was loaded writes the same bytes.
    auto before = StoredValues();
    again.SaveEntries(-1);
    auto after = StoredValues();
    ASSERT_EQ(before.size(), after.size());
    for (const auto& [name, value] : before) {
        EXPECT_EQ(after[name].type, value.type);
        EXPECT_EQ(after[name].data, value.data);
    }
}

TEST_F(BoardStoreTest, LoadStopsAtTheFirstMissingOid) {
    PlantNumber(u"Oid", 0, 5);
    PlantNumber(u"Oid", 1, 6);
    PlantNumber(u"Oid", 3, 8);
    PlantText(u"Display", 2, u"orphan");
    board_.LoadEntries();
    ASSERT_EQ(board_.Count(), 2);
    EXPECT_EQ(board_.EntryAt(0).oid, 5u);
    EXPECT_EQ(board_.EntryAt(1).oid, 6u);
}

TEST_F(BoardStoreTest, MissingValuesTakeTheirDefaults) {
    PlantNumber(u"Oid", 0, 5);
    board_.LoadEntries();
    ASSERT_EQ(board_.Count(), 1);
    const DialEntry& e = board_.EntryAt(0);
    EXPECT_TRUE(e.display.IsEmpty());
    EXPECT_EQ(e.btn, -1);
    EXPECT_EQ(e.slot, 0);
    EXPECT_TRUE(e.phone.IsEmpty());
    EXPECT_TRUE(e.typeLabel.IsEmpty());
    EXPECT_EQ(e.link, 0);
    EXPECT_TRUE(e.first.IsEmpty() && e.last.IsEmpty() && e.middle.IsEmpty());
    EXPECT_TRUE(e.company.IsEmpty());
}

TEST_F(BoardStoreTest, MissingKeyGivesAnEmptyBoardAndCreatesNothing) {
    board_.LoadEntries();
    EXPECT_EQ(board_.Count(), 0);
    EXPECT_FALSE(BoardKeyExists());
}

TEST_F(BoardStoreTest, LoadReplacesWhatTheBoardHeld) {
    LoadPlanted({Sample(0), Sample(1)});
    registry::memory::Reset();
    PlantEntries({Sample(3)});
    board_.LoadEntries();
    ASSERT_EQ(board_.Count(), 1);
    ExpectSameStored(board_.EntryAt(0), Sample(3));
}

TEST_F(BoardStoreTest, FullRewriteOfAnEmptyBoardLeavesNoKey) {
    PlantEntries({Sample(0)});
    board_.SaveEntries(-1);
    EXPECT_FALSE(BoardKeyExists());
}

TEST_F(BoardStoreTest, FullRewriteDropsValuesOfALongerEarlierList) {
    LoadPlanted({Sample(0), Sample(1)});
    PlantEntries({Sample(0), Sample(1), Sample(2), Sample(3)});
    PlantText(u"Stray", 0, u"x");
    board_.SaveEntries(-1);
    auto values = StoredValues();
    EXPECT_EQ(values.size(), 22u);
    EXPECT_EQ(values.count(u"Oid2"), 0u);
    EXPECT_EQ(values.count(u"Stray0"), 0u);
}

TEST_F(BoardStoreTest, SingleSaveWritesOnlyThatEntryAndDeletesNothing) {
    LoadPlanted({Sample(0), Sample(1), Sample(2)});
    PlantNumber(u"Oid", 7, 77);
    int setsBefore = registry::memory::SetCount();
    board_.SaveEntries(1);
    EXPECT_EQ(registry::memory::SetCount() - setsBefore, 11);
    auto values = StoredValues();
    EXPECT_EQ(values.size(), 34u);  // three entries and the stray Oid7 stay
    EXPECT_EQ(StoredNumber(u"Oid", 7), 77u);
}

TEST_F(BoardStoreTest, SingleSaveCreatesTheKeyWhenMissing) {
    LoadPlanted({Sample(0), Sample(1)});
    registry::memory::Reset();
    board_.SaveEntries(1);
    auto values = StoredValues();
    EXPECT_EQ(values.size(), 11u);
    EXPECT_EQ(StoredNumber(u"Oid", 1), Sample(1).oid);
    EXPECT_EQ(registry::memory::FlushCount(), 1);
}

TEST_F(BoardStoreTest, OtherNegativeWritesAllWithoutDeleting) {
    LoadPlanted({Sample(0)});
    PlantText(u"Stray", 0, u"x");
    board_.SaveEntries(-2);
    EXPECT_EQ(StoredValues().count(u"Stray0"), 1u);
    EXPECT_EQ(StoredValues().size(), 12u);
}

TEST_F(BoardStoreTest, SaveWhenTheKeyCannotBeCreatedIsSilent) {
    LoadPlanted({Sample(0)});
    registry::memory::Reset();
    registry::memory::FailCreate(true);
    board_.SaveEntries(0);
    board_.SaveEntries(-1);
    registry::memory::FailCreate(false);
    EXPECT_FALSE(BoardKeyExists());
    EXPECT_EQ(board_.Count(), 1);
}

TEST_F(BoardStoreTest, LoadingWithoutContactsWritesNothing) {
    PlantEntries({Sample(0), Sample(1)});
    int sets = registry::memory::SetCount();
    board_.LoadEntries();
    EXPECT_EQ(registry::memory::SetCount(), sets);
    EXPECT_EQ(registry::memory::FlushCount(), 0);
}

}  // namespace
