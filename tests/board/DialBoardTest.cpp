#include "board/DialBoard.h"

#include <gtest/gtest.h>

#include "FakeContacts.h"
#include "RegistryView.h"
#include "base/RegistryMemory.h"

namespace {

class DialBoardTest : public testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        FakeContact anna;
        anna.first = u"Anna";
        anna.last = u"Berg";
        anna.middle = u"C.";
        anna.company = u"Dune";
        anna.phones = {Phone(u"Mobile", u"111", 0), Phone(u"Work", u"222", 3)};
        anna.extra = u"Berg Anna";
        anna.hasPicture = 1;
        contacts_.contacts[7] = anna;
        FakeContact bo;
        bo.first = u"Bo";
        bo.phones = {Phone(u"Home", u"333", 1)};
        contacts_.contacts[8] = bo;
    }
    void TearDown() override { registry::memory::Reset(); }

    FakeContacts contacts_;
    DialBoard board_{&contacts_};
};

TEST_F(DialBoardTest, AssignAppendsANewEntryAndSavesItAlone) {
    PlantText(u"Marker", 0, u"x");
    ASSERT_TRUE(board_.Assign(4, 7, u"222", u"Work", 3));
    ASSERT_EQ(board_.Count(), 1);
    const DialEntry& e = board_.EntryAt(0);
    EXPECT_EQ(e.oid, 7u);
    EXPECT_TRUE(e.display.IsEmpty());
    EXPECT_EQ(e.btn, -1);
    EXPECT_EQ(e.slot, 4);
    EXPECT_EQ(S(e.phone), u"222");
    EXPECT_EQ(S(e.typeLabel), u"Work");
    EXPECT_EQ(e.link, 3);
    EXPECT_EQ(S(e.first), u"Anna");
    EXPECT_EQ(S(e.last), u"Berg");
    EXPECT_EQ(S(e.middle), u"C.");
    EXPECT_EQ(S(e.company), u"Dune");
    EXPECT_EQ(e.phones.Size(), 2);
    EXPECT_EQ(S(e.extra), u"Berg Anna");
    EXPECT_EQ(e.flags, 1u);
    EXPECT_EQ(contacts_.reads.back().second, 51u);  // names, phones, has-picture, extra text
    EXPECT_EQ(StoredValues().size(), 12u);          // its eleven values and the marker: no rewrite
    EXPECT_EQ(StoredNumber(u"Index", 0), 4u);
}

TEST_F(DialBoardTest, AssignToAnOccupiedSlotKeepsTheListPosition) {
    board_.Assign(1, 7, u"111", u"Mobile", 0);
    board_.Assign(2, 7, u"222", u"Work", 3);
    int sets = registry::memory::SetCount();
    ASSERT_TRUE(board_.Assign(1, 8, u"333", u"Home", 1));
    ASSERT_EQ(board_.Count(), 2);
    EXPECT_EQ(board_.EntryAt(0).oid, 8u);
    EXPECT_EQ(board_.EntryAt(0).slot, 1);
    EXPECT_EQ(board_.EntryAt(1).oid, 7u);
    EXPECT_EQ(registry::memory::SetCount() - sets, 11);
    EXPECT_EQ(StoredNumber(u"Oid", 0), 8u);
    EXPECT_EQ(StoredText(u"Phone", 0), u"333");
}

TEST_F(DialBoardTest, AssignOfAnUnreadableContactChangesNothing) {
    board_.Assign(1, 7, u"111", u"Mobile", 0);
    int sets = registry::memory::SetCount();
    EXPECT_FALSE(board_.Assign(1, 99, u"9", u"Mobile", 0));
    EXPECT_FALSE(board_.Assign(2, 99, u"9", u"Mobile", 0));
    EXPECT_EQ(board_.Count(), 1);
    EXPECT_EQ(board_.EntryAt(0).oid, 7u);
    EXPECT_EQ(registry::memory::SetCount(), sets);
}

TEST_F(DialBoardTest, AssignWithoutContactsChangesNothing) {
    DialBoard bare;
    EXPECT_FALSE(bare.Assign(1, 7, u"111", u"Mobile", 0));
    EXPECT_EQ(bare.Count(), 0);
    EXPECT_FALSE(BoardKeyExists());
}

TEST_F(DialBoardTest, FindBySlotReturnsTheFirstOfDuplicates) {
    PlantNumber(u"Oid", 0, 0);
    PlantNumber(u"Index", 0, 5);
    PlantNumber(u"Oid", 1, 0);
    PlantNumber(u"Index", 1, 3);
    PlantNumber(u"Oid", 2, 0);
    PlantNumber(u"Index", 2, 3);
    board_.LoadEntries();
    EXPECT_EQ(board_.FindBySlot(3), 1);
    EXPECT_EQ(board_.FindBySlot(5), 0);
    EXPECT_EQ(board_.FindBySlot(4), -1);
}

TEST_F(DialBoardTest, GetBySlotCopiesTheEntry) {
    board_.Assign(6, 7, u"111", u"Mobile", 0);
    DialEntry copy;
    ASSERT_TRUE(board_.GetBySlot(6, copy));
    EXPECT_EQ(copy.oid, 7u);
    EXPECT_TRUE(copy.first.SharesBlockWith(board_.EntryAt(0).first));
    DialEntry untouched;
    untouched.oid = 55;
    EXPECT_FALSE(board_.GetBySlot(5, untouched));
    EXPECT_EQ(untouched.oid, 55u);
}

TEST_F(DialBoardTest, CopiedEntrySharesTextsAndCopiesNumbers) {
    board_.Assign(6, 7, u"111", u"Mobile", 0);
    DialEntry copy = board_.EntryAt(0);
    EXPECT_TRUE(copy.last.SharesBlockWith(board_.EntryAt(0).last));
    EXPECT_TRUE(copy.phone.SharesBlockWith(board_.EntryAt(0).phone));
    ASSERT_EQ(copy.phones.Size(), 2);
    EXPECT_NE(copy.phones.Data(), board_.EntryAt(0).phones.Data());
    EXPECT_TRUE(copy.phones[1].number.SharesBlockWith(board_.EntryAt(0).phones[1].number));
    copy.phones[0].number = u"changed";
    EXPECT_EQ(S(board_.EntryAt(0).phones[0].number), u"111");
}

TEST_F(DialBoardTest, ClearDeletesEveryEntryWithoutSaving) {
    board_.Assign(1, 7, u"111", u"Mobile", 0);
    board_.Assign(2, 8, u"333", u"Home", 1);
    int sets = registry::memory::SetCount();
    board_.Clear();
    EXPECT_EQ(board_.Count(), 0);
    EXPECT_EQ(board_.Entries().Capacity(), 0);
    EXPECT_EQ(registry::memory::SetCount(), sets);
    EXPECT_EQ(StoredValues().size(), 22u);
}

TEST_F(DialBoardTest, ForgetPictureClearsTheFlagWithoutSaving) {
    board_.Assign(1, 7, u"111", u"Mobile", 0);
    ASSERT_EQ(board_.EntryAt(0).flags, 1u);
    int sets = registry::memory::SetCount();
    board_.ForgetPicture(0);
    EXPECT_EQ(board_.EntryAt(0).flags, 0u);
    EXPECT_EQ(registry::memory::SetCount(), sets);
}

TEST_F(DialBoardTest, MaxSlot) {
    EXPECT_EQ(board_.MaxSlot(), 0);
    board_.Assign(30, 7, u"111", u"Mobile", 0);
    board_.Assign(4, 8, u"333", u"Home", 1);
    EXPECT_EQ(board_.MaxSlot(), 30);
}

TEST_F(DialBoardTest, RenameSetsTheDisplayTextAndSavesThatEntry) {
    board_.Assign(1, 7, u"111", u"Mobile", 0);
    board_.Assign(2, 8, u"333", u"Home", 1);
    int sets = registry::memory::SetCount();
    EXPECT_TRUE(board_.Rename(2, u"Bobby"));
    EXPECT_EQ(S(board_.EntryAt(1).display), u"Bobby");
    EXPECT_EQ(StoredText(u"Display", 1), u"Bobby");
    EXPECT_EQ(registry::memory::SetCount() - sets, 11);
    EXPECT_FALSE(board_.Rename(3, u"nobody"));
}

TEST(DialEntryTest, NewEntryHasNoDialerNumberAndNoContact) {
    DialEntry e;
    EXPECT_EQ(e.oid, 0u);
    EXPECT_EQ(e.btn, -1);
    EXPECT_FALSE(HasDialerNumber(e.btn));
    EXPECT_EQ(e.flags, 0u);
}

}  // namespace
