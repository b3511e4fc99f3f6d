// The refresh that follows loading: entries follow their contacts' names and numbers, and a
// contact that was deleted and re-created is found again by its number and names.
#include <gtest/gtest.h>

#include "FakeContacts.h"
#include "RegistryView.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

class BoardRefreshTest : public testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        FakeContact anna;
        anna.first = u"Anna";
        anna.last = u"Berg";
        anna.middle = u"C.";
        anna.company = u"Dune";
        anna.phones = {Phone(u"Mobile", u"+4670111", 0), Phone(u"Work", u"+4680222", 3)};
        contacts_.contacts[7] = anna;
    }
    void TearDown() override { registry::memory::Reset(); }

    // Stores entry i bound to contact oid with the given number, as the board last saw it.
    static void Store(int i, uint32_t oid, const std::u16string& phone, const std::u16string& label,
                      int32_t link, const FakeContact& names) {
        PlantNumber(u"Oid", i, oid);
        PlantText(u"Display", i, u"");
        PlantNumber(u"Btn", i, static_cast<uint32_t>(-1));
        PlantNumber(u"Index", i, static_cast<uint32_t>(i));
        PlantText(u"Phone", i, phone);
        PlantText(u"Type", i, label);
        PlantNumber(u"Link", i, static_cast<uint32_t>(link));
        PlantText(u"First", i, S(names.first));
        PlantText(u"Last", i, S(names.last));
        PlantText(u"Middle", i, S(names.middle));
        PlantText(u"Company", i, S(names.company));
    }
    void StoreAnna(int i, const std::u16string& phone, const std::u16string& label, int32_t link) {
        Store(i, 7, phone, label, link, contacts_.contacts[7]);
    }
    // Loads, counting the values written by the refresh.
    int LoadCountingWrites() {
        int before = registry::memory::SetCount();
        board_.LoadEntries();
        return registry::memory::SetCount() - before;
    }

    FakeContacts contacts_;
    DialBoard board_{&contacts_};
};

TEST_F(BoardRefreshTest, UnchangedContactIsNotSaved) {
    StoreAnna(0, u"+4670111", u"Mobile", 0);
    EXPECT_EQ(LoadCountingWrites(), 0);
    ASSERT_EQ(board_.Count(), 1);
    EXPECT_EQ(contacts_.reads.size(), 1u);
    EXPECT_EQ(contacts_.reads[0].first, 7u);
    EXPECT_EQ(contacts_.reads[0].second, 51u);  // names, phones, has-picture, extra text
    EXPECT_TRUE(contacts_.searches.empty());
}

TEST_F(BoardRefreshTest, NumbersExtraTextAndPictureFlagAreCachedButNotStored) {
    contacts_.contacts[7].extra = u"Berg Anna";
    contacts_.contacts[7].hasPicture = 1;
    StoreAnna(0, u"+4670111", u"Mobile", 0);
    EXPECT_EQ(LoadCountingWrites(), 0);
    const DialEntry& e = board_.EntryAt(0);
    ASSERT_EQ(e.phones.Size(), 2);
    EXPECT_EQ(S(e.phones[1].number), u"+4680222");
    EXPECT_EQ(e.phones[1].type, 3);
    EXPECT_EQ(S(e.extra), u"Berg Anna");
    EXPECT_EQ(e.flags, 1u);
}

TEST_F(BoardRefreshTest, RenamedContactUpdatesTheNamesAndSavesThatEntryAlone) {
    StoreAnna(0, u"+4670111", u"Mobile", 0);
    StoreAnna(1, u"+4680222", u"Work", 3);
    contacts_.contacts[7].last = u"Lind";
    contacts_.contacts[7].company = u"";
    EXPECT_EQ(LoadCountingWrites(), 22);  // both entries, eleven values each
    EXPECT_EQ(S(board_.EntryAt(0).last), u"Lind");
    EXPECT_TRUE(board_.EntryAt(1).company.IsEmpty());
    EXPECT_EQ(StoredText(u"Last", 0), u"Lind");
    EXPECT_EQ(StoredText(u"Company", 1), u"");
    EXPECT_EQ(StoredText(u"Phone", 1), u"+4680222");
}

TEST_F(BoardRefreshTest, EditedNumberUnderTheBoundFieldIsFollowed) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    contacts_.contacts[7].phones[1] = Phone(u"Work", u"+4680999", 3);
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"+4680999");
    EXPECT_EQ(StoredText(u"Phone", 0), u"+4680999");
    EXPECT_EQ(StoredNumber(u"Link", 0), 3u);
}

TEST_F(BoardRefreshTest, CustomLabelledFieldIsMatchedByLabelToo) {
    contacts_.contacts[7].phones = {Phone(u"Boat", u"111", 100), Phone(u"Cabin", u"222", 100)};
    StoreAnna(0, u"200", u"Cabin", 100);
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"222");
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Cabin");
    EXPECT_EQ(board_.EntryAt(0).link, 100);
}

TEST_F(BoardRefreshTest, FieldIdentifierFoundTakesItsNumberAndLabel) {
    contacts_.contacts[7].phones = {Phone(u"Mobile", u"+4670111", 0), Phone(u"Home", u"333", 1)};
    StoreAnna(0, u"300", u"Old label", 1);
    board_.LoadEntries();
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"333");
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Home");
    EXPECT_EQ(board_.EntryAt(0).link, 1);
}

TEST_F(BoardRefreshTest, GoneFieldFallsBackToTheFirstNumberWithTheSameLabel) {
    // Bound to the first work number (3); the contact now has only the second one (4).
    contacts_.contacts[7].phones = {Phone(u"Mobile", u"+4670111", 0), Phone(u"Work", u"444", 4)};
    StoreAnna(0, u"+4680222", u"Work", 3);
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"444");
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Work");
    EXPECT_EQ(board_.EntryAt(0).link, 4);
}

TEST_F(BoardRefreshTest, NoFieldAndNoLabelTakesTheFirstNumber) {
    StoreAnna(0, u"555", u"Pager", 5);
    board_.LoadEntries();
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"+4670111");
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Mobile");
    EXPECT_EQ(board_.EntryAt(0).link, 0);
    EXPECT_EQ(StoredText(u"Type", 0), u"Mobile");
}

TEST_F(BoardRefreshTest, CustomLabelWithAnotherLabelIsNotTheBoundField) {
    contacts_.contacts[7].phones = {Phone(u"Boat", u"111", 100)};
    StoreAnna(0, u"200", u"Cabin", 100);
    board_.LoadEntries();
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"111");
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Boat");
}

TEST_F(BoardRefreshTest, EmptyStoredNumberTakesTheNumberWithItsLabel) {
    StoreAnna(0, u"", u"Work", 9);
    board_.LoadEntries();
    EXPECT_EQ(S(board_.EntryAt(0).phone), u"+4680222");
    EXPECT_EQ(board_.EntryAt(0).link, 3);
    EXPECT_EQ(StoredNumber(u"Link", 0), 3u);
}

TEST_F(BoardRefreshTest, ContactWithoutNumbersClearsTheNumber) {
    contacts_.contacts[7].phones.clear();
    StoreAnna(0, u"+4670111", u"Mobile", 0);
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_TRUE(board_.EntryAt(0).phone.IsEmpty());
    EXPECT_EQ(S(board_.EntryAt(0).typeLabel), u"Mobile");
    EXPECT_EQ(StoredText(u"Phone", 0), u"");
}

TEST_F(BoardRefreshTest, ContactWithoutNumbersAndNoStoredNumberIsUnchanged) {
    contacts_.contacts[7].phones.clear();
    StoreAnna(0, u"", u"", 0);
    EXPECT_EQ(LoadCountingWrites(), 0);
}

TEST_F(BoardRefreshTest, DeletedAndRecreatedContactIsReboundToItsNewOid) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    FakeContact recreated = contacts_.contacts[7];
    contacts_.contacts.erase(7);
    FakeContact stranger = recreated;
    stranger.first = u"Other";
    contacts_.contacts[20] = stranger;  // same number, other names: found first, not taken
    contacts_.contacts[31] = recreated;
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(board_.EntryAt(0).oid, 31u);
    EXPECT_EQ(StoredNumber(u"Oid", 0), 31u);
    ASSERT_EQ(contacts_.searches.size(), 1u);
    EXPECT_EQ(S(contacts_.searches[0]), u"+4680222");
    // The candidates are read by names only, the adopted contact then in full.
    std::vector<std::pair<uint32_t, uint32_t>> expected = {{7, 51}, {20, 1}, {31, 1}, {31, 51}};
    EXPECT_EQ(contacts_.reads, expected);
    EXPECT_EQ(board_.EntryAt(0).phones.Size(), 2);
}

TEST_F(BoardRefreshTest, RecreatedContactNeedsAllFourNamesExactly) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    FakeContact recreated = contacts_.contacts[7];
    contacts_.contacts.erase(7);
    recreated.middle = u"c.";
    contacts_.contacts[31] = recreated;
    EXPECT_EQ(LoadCountingWrites(), 11);
    const DialEntry& e = board_.EntryAt(0);
    EXPECT_EQ(e.oid, 0u);
    EXPECT_EQ(S(e.middle), u"C.");
    EXPECT_EQ(S(e.phone), u"+4680222");
    EXPECT_EQ(StoredNumber(u"Oid", 0), 0u);
    EXPECT_EQ(StoredText(u"Phone", 0), u"+4680222");
    EXPECT_EQ(StoredText(u"Middle", 0), u"C.");
}

TEST_F(BoardRefreshTest, GoneContactKeepsItsTextsAndGetsOidZero) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    contacts_.contacts.clear();
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(board_.EntryAt(0).oid, 0u);
    EXPECT_EQ(S(board_.EntryAt(0).first), u"Anna");
    EXPECT_EQ(StoredText(u"First", 0), u"Anna");
}

TEST_F(BoardRefreshTest, RefreshInPlaceFollowsADeletionAndLeavesThePictureFlagToThePaint) {
    contacts_.contacts[7].hasPicture = 1;
    StoreAnna(0, u"+4680222", u"Work", 3);
    board_.LoadEntries();
    ASSERT_EQ(board_.EntryAt(0).flags, 1u);
    contacts_.contacts.clear();
    const int before = registry::memory::SetCount();
    board_.Refresh();
    EXPECT_EQ(registry::memory::SetCount() - before, 11);
    ASSERT_EQ(board_.Count(), 1);
    EXPECT_EQ(board_.EntryAt(0).oid, 0u);
    EXPECT_EQ(StoredNumber(u"Oid", 0), 0u);
    EXPECT_EQ(S(board_.EntryAt(0).first), u"Anna");
    // Not re-read: the entry still says it had a picture until the paint finds none.
    EXPECT_EQ(board_.EntryAt(0).flags, 1u);
}

TEST_F(BoardRefreshTest, SearchResultWithOidZeroIsNeverAdopted) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    contacts_.contacts.clear();
    contacts_.extraResults = {0};
    board_.LoadEntries();
    EXPECT_EQ(board_.EntryAt(0).oid, 0u);
}

TEST_F(BoardRefreshTest, EntriesWithOidZeroAreLeftAlone) {
    Store(0, 0, u"123", u"Mobile", 0, contacts_.contacts[7]);
    EXPECT_EQ(LoadCountingWrites(), 0);
    EXPECT_TRUE(contacts_.reads.empty());
    EXPECT_TRUE(contacts_.searches.empty());
}

TEST_F(BoardRefreshTest, UnreachableContactsKeepEveryBinding) {
    StoreAnna(0, u"+4680222", u"Work", 3);
    contacts_.available = false;
    EXPECT_EQ(LoadCountingWrites(), 0);
    EXPECT_EQ(board_.EntryAt(0).oid, 7u);
    EXPECT_TRUE(contacts_.reads.empty());
}

TEST_F(BoardRefreshTest, OnlyChangedEntriesAreSaved) {
    StoreAnna(0, u"+4670111", u"Mobile", 0);
    FakeContact bo;
    bo.first = u"Bo";
    bo.phones = {Phone(u"Mobile", u"1", 0)};
    contacts_.contacts[8] = bo;
    Store(1, 8, u"1", u"Mobile", 0, bo);
    StoreAnna(2, u"+4670111", u"Mobile", 0);
    contacts_.contacts[8].first = u"Bob";
    PlantText(u"Marker", 0, u"x");
    EXPECT_EQ(LoadCountingWrites(), 11);
    EXPECT_EQ(StoredText(u"First", 1), u"Bob");
    EXPECT_EQ(StoredValues().count(u"Marker0"), 1u);  // no full rewrite
}

}  // namespace
