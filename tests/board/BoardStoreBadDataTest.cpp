// Damaged or hand-edited stored entries: every entry that can be kept is kept, defaults fill in,
// and loading alone never writes to the registry.
#include <gtest/gtest.h>

#include <string>

#include "FakeContacts.h"
#include "RegistryView.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

class BoardStoreBadDataTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
    void TearDown() override { registry::memory::Reset(); }

    // Loads and checks that loading wrote nothing.
    void LoadReadOnly() {
        int sets = registry::memory::SetCount();
        board_.LoadEntries();
        EXPECT_EQ(registry::memory::SetCount(), sets);
        EXPECT_EQ(registry::memory::FlushCount(), 0);
    }

    DialBoard board_;
};

TEST_F(BoardStoreBadDataTest, TextStoredAsNumberIsReadAsItsCharacters) {
    PlantNumber(u"Oid", 0, 1);
    uint32_t ab = 0x00620061;  // "ab" without a terminator
    Plant(u"Display0", registry::kTypeDword, &ab, sizeof(ab));
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 1);
    EXPECT_EQ(S(board_.EntryAt(0).display), u"ab");
}

TEST_F(BoardStoreBadDataTest, NumberStoredAsTextIsReadAsItsBytes) {
    PlantNumber(u"Oid", 0, 1);
    const char16_t two[] = u"\x0005";  // 4 bytes: 5 and the terminator
    Plant(u"Btn0", registry::kTypeString, two, sizeof(two));
    Plant(u"Index0", registry::kTypeBinary, two, sizeof(two));
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 1);
    EXPECT_EQ(board_.EntryAt(0).btn, 5);
    EXPECT_EQ(board_.EntryAt(0).slot, 5);
}

TEST_F(BoardStoreBadDataTest, OidOfAnotherSizeStillKeepsTheListGoing) {
    uint64_t wide = 0x1111111100000009ULL;
    Plant(u"Oid0", registry::kTypeBinary, &wide, sizeof(wide));
    uint16_t narrow = 3;
    Plant(u"Oid1", registry::kTypeDword, &narrow, sizeof(narrow));
    Plant(u"Oid2", registry::kTypeDword, nullptr, 0);
    PlantNumber(u"Oid", 3, 4);
    PlantText(u"Display", 3, u"last");
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 4);
    EXPECT_EQ(board_.EntryAt(0).oid, 9u);
    EXPECT_EQ(board_.EntryAt(1).oid, 3u);
    EXPECT_EQ(board_.EntryAt(2).oid, 0u);
    EXPECT_EQ(S(board_.EntryAt(3).display), u"last");
}

TEST_F(BoardStoreBadDataTest, NumbersOfAnotherSizeTakeTheirFirstBytes) {
    PlantNumber(u"Oid", 0, 1);
    uint64_t wide = 0xFFFFFFFF00000007ULL;
    Plant(u"Btn0", registry::kTypeDword, &wide, sizeof(wide));
    uint8_t one = 12;
    Plant(u"Index0", registry::kTypeDword, &one, sizeof(one));
    Plant(u"Link0", registry::kTypeDword, nullptr, 0);
    LoadReadOnly();
    EXPECT_EQ(board_.EntryAt(0).btn, 7);
    EXPECT_EQ(board_.EntryAt(0).slot, 12);
    EXPECT_EQ(board_.EntryAt(0).link, 0);
}

TEST_F(BoardStoreBadDataTest, UnterminatedAndOddSizedTextsAreReadWhole) {
    PlantNumber(u"Oid", 0, 1);
    Plant(u"First0", registry::kTypeString, u"Anna", 8);  // no terminator
    Plant(u"Last0", registry::kTypeString, u"Berg", 7);   // half a character over
    Plant(u"Middle0", registry::kTypeString, u"x", 1);    // less than a character
    LoadReadOnly();
    EXPECT_EQ(S(board_.EntryAt(0).first), u"Anna");
    EXPECT_EQ(S(board_.EntryAt(0).last), u"Ber");
    EXPECT_TRUE(board_.EntryAt(0).middle.IsEmpty());
}

TEST_F(BoardStoreBadDataTest, TextWithAnEmbeddedZeroEndsThere) {
    PlantNumber(u"Oid", 0, 1);
    const char16_t text[] = u"Anna\0junk";
    Plant(u"First0", registry::kTypeString, text, sizeof(text));
    LoadReadOnly();
    EXPECT_EQ(S(board_.EntryAt(0).first), u"Anna");
}

TEST_F(BoardStoreBadDataTest, HugeTextIsKeptWholeAndWrittenBackWhole) {
    PlantNumber(u"Oid", 0, 1);
    std::u16string huge(300000, u'Ж');
    PlantText(u"Display", 0, huge);
    LoadReadOnly();
    EXPECT_EQ(board_.EntryAt(0).display.Length(), 300000);
    board_.SaveEntries(-1);
    EXPECT_EQ(StoredText(u"Display", 0), huge);
}

TEST_F(BoardStoreBadDataTest, NegativeHugeAndDuplicateSlotsAreKept) {
    int32_t slots[] = {-4, 0x7FFFFFFF, 6, 6};
    for (int i = 0; i < 4; ++i) {
        PlantNumber(u"Oid", i, static_cast<uint32_t>(100 + i));
        PlantNumber(u"Index", i, static_cast<uint32_t>(slots[i]));
    }
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 4);
    EXPECT_EQ(board_.FindBySlot(-4), 0);
    EXPECT_EQ(board_.FindBySlot(0x7FFFFFFF), 1);
    EXPECT_EQ(board_.FindBySlot(6), 2);
    EXPECT_EQ(board_.MaxSlot(), 0x7FFFFFFF);
}

TEST_F(BoardStoreBadDataTest, DialerNumbersOutOfRangeAreKeptAsStoredButShownAsNone) {
    int32_t numbers[] = {0, 100, -7, 99, 1};
    for (int i = 0; i < 5; ++i) {
        PlantNumber(u"Oid", i, 1);
        PlantNumber(u"Btn", i, static_cast<uint32_t>(numbers[i]));
    }
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(board_.EntryAt(i).btn, numbers[i]);
    EXPECT_FALSE(HasDialerNumber(board_.EntryAt(0).btn));
    EXPECT_FALSE(HasDialerNumber(board_.EntryAt(1).btn));
    EXPECT_FALSE(HasDialerNumber(board_.EntryAt(2).btn));
    EXPECT_TRUE(HasDialerNumber(board_.EntryAt(3).btn));
    EXPECT_TRUE(HasDialerNumber(board_.EntryAt(4).btn));
}

TEST_F(BoardStoreBadDataTest, ValuesWithOtherNamesAreIgnoredAndLeftInPlace) {
    PlantNumber(u"Oid", 0, 1);
    PlantText(u"Oid01", 0, u"leading zero");
    PlantText(u"Count", 0, u"3");
    PlantText(u"Oid 2", 0, u"blank");
    LoadReadOnly();
    EXPECT_EQ(board_.Count(), 1);
    EXPECT_EQ(StoredValues().size(), 4u);
}

TEST_F(BoardStoreBadDataTest, ValueNamesIgnoreCaseAsOnThePlatform) {
    PlantNumber(u"Oid", 0, 1);
    PlantNumber(u"oid", 1, 2);
    PlantText(u"DISPLAY", 1, u"shouted");
    LoadReadOnly();
    ASSERT_EQ(board_.Count(), 2);
    EXPECT_EQ(S(board_.EntryAt(1).display), u"shouted");
}

TEST_F(BoardStoreBadDataTest, ManyEntriesAllLoad) {
    for (int i = 0; i < 2000; ++i)
        PlantNumber(u"Oid", i, static_cast<uint32_t>(i + 1));
    LoadReadOnly();
    EXPECT_EQ(board_.Count(), 2000);
    EXPECT_EQ(board_.EntryAt(1999).oid, 2000u);
}

TEST_F(BoardStoreBadDataTest, DamagedEntriesLoseNothingThroughARefresh) {
    FakeContacts contacts;
    FakeContact anna;
    anna.first = u"Anna";
    anna.phones = {Phone(u"Mobile", u"1", 0)};
    contacts.contacts[5] = anna;
    board_.SetContacts(&contacts);
    uint64_t wide = 5;
    Plant(u"Oid0", registry::kTypeBinary, &wide, sizeof(wide));
    PlantText(u"First", 0, u"Ann");
    PlantText(u"Phone", 0, u"1");
    PlantNumber(u"Link", 0, 0);
    PlantNumber(u"Oid", 1, 6);  // gone contact, nothing else stored
    PlantNumber(u"Oid", 2, 0);
    PlantText(u"Display", 2, u"kept");
    board_.LoadEntries();
    ASSERT_EQ(board_.Count(), 3);
    EXPECT_EQ(StoredNumber(u"Oid", 0), 5u);  // rewritten as a proper number
    EXPECT_EQ(StoredText(u"First", 0), u"Anna");
    EXPECT_EQ(StoredNumber(u"Oid", 1), 0u);
    EXPECT_EQ(StoredNumber(u"Btn", 1), static_cast<uint32_t>(-1));
    EXPECT_EQ(StoredText(u"Display", 2), u"kept");
}

}  // namespace
