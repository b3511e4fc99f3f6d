#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeContacts.h"
#include "RegistryView.h"
#include "base/Alert.h"
#include "base/ModuleMemory.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

int gAlerts = 0;
int CountAlert(const char16_t*, const char16_t*, uint32_t) {
    ++gAlerts;
    return kAlertAnswerOk;
}

void SetSortType(uint32_t value) {
    registry::KeyHolder key(registry::Create(u"Software\\Orvalis\\PIM\\Settings"));
    registry::Set(key.get(), u"SortType", registry::kTypeDword, &value, sizeof(value));
}

class BoardEditsTest : public testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        module_memory::Reset();
        gAlerts = 0;
        previousAlert_ = SetAlertHandler(CountAlert);
        ModuleHandle resources = module_memory::MakeModule();
        module_memory::SetString(resources, 107, u"Unnamed");
        SetResourceModule(resources);
    }
    void TearDown() override {
        SetResourceModule(nullptr);
        SetAlertHandler(previousAlert_);
        registry::memory::Reset();
        module_memory::Reset();
    }

    // Puts entries on the board through the registry: slot and display text (or the first
    // name, when the text starts with '~') for each; entry i gets oid i + 1 and no contact.
    void Load(const std::vector<std::pair<int32_t, std::u16string>>& entries) {
        for (size_t i = 0; i < entries.size(); ++i) {
            int n = static_cast<int>(i);
            PlantNumber(u"Oid", n, static_cast<uint32_t>(n + 1));
            PlantNumber(u"Index", n, static_cast<uint32_t>(entries[i].first));
            const std::u16string& name = entries[i].second;
            if (!name.empty() && name[0] == u'~') {
                PlantText(u"First", n, name.substr(1));
            } else {
                PlantText(u"Display", n, name);
            }
        }
        board_.LoadEntries();
        ASSERT_EQ(board_.Count(), static_cast<int>(entries.size()));
    }

    std::vector<int32_t> Slots() const {
        std::vector<int32_t> slots;
        for (const DialEntry& e : board_.Entries())
            slots.push_back(e.slot);
        return slots;
    }
    std::vector<std::u16string> Names() const {
        std::vector<std::u16string> names;
        for (const DialEntry& e : board_.Entries())
            names.push_back(S(DisplayName(e)));
        return names;
    }

    AlertHandler previousAlert_ = nullptr;
    DialBoard board_;
};

TEST_F(BoardEditsTest, DisplayTextComesFirst) {
    DialEntry e;
    e.display = u"Mum";
    e.first = u"Anna";
    e.extra = u"extra";
    SetSortType(1);
    EXPECT_EQ(S(DisplayName(e)), u"Mum");
}

TEST_F(BoardEditsTest, SortTypeOneShowsTheExtraText) {
    DialEntry e;
    e.first = u"Anna";
    e.extra = u"Berg Anna";
    EXPECT_EQ(S(DisplayName(e)), u"Anna");
    SetSortType(1);
    EXPECT_EQ(S(DisplayName(e)), u"Berg Anna");
    SetSortType(2);
    EXPECT_EQ(S(DisplayName(e)), u"Anna");
}

TEST_F(BoardEditsTest, SortTypeOneWithEmptyExtraShowsTheComposedName) {
    DialEntry e;
    e.first = u"Anna";
    e.last = u"Berg";
    SetSortType(1);
    EXPECT_EQ(S(DisplayName(e)), u"Berg, Anna");
}

TEST_F(BoardEditsTest, NoNamesAtAllShowUnnamed) {
    DialEntry e;
    SetSortType(1);
    EXPECT_EQ(S(DisplayName(e)), u"Unnamed");
    EXPECT_EQ(gAlerts, 0);
}

struct NameCase {
    const char16_t* first;
    const char16_t* last;
    const char16_t* middle;
    const char16_t* company;
    const char16_t* shown;
};

class ComposedNameTest : public BoardEditsTest, public testing::WithParamInterface<NameCase> {};

TEST_P(ComposedNameTest, Composes) {
    DialEntry e;
    e.first = GetParam().first;
    e.last = GetParam().last;
    e.middle = GetParam().middle;
    e.company = GetParam().company;
    EXPECT_EQ(S(DisplayName(e)), GetParam().shown);
}

// The company takes the middle name's place in the composition and the other way round.
INSTANTIATE_TEST_SUITE_P(Cases, ComposedNameTest,
                         testing::Values(NameCase{u"Anna", u"Berg", u"", u"", u"Berg, Anna"},
                                         NameCase{u"Anna", u"", u"", u"", u"Anna"},
                                         NameCase{u"", u"Berg", u"", u"", u"Berg"},
                                         NameCase{u"Anna", u"Berg", u"C.", u"", u"Berg, Anna"},
                                         NameCase{u"Anna", u"Berg", u"", u"Dune",
                                                  u"Berg, Anna Dune"},
                                         NameCase{u"", u"", u"C.", u"Dune", u"Dune"},
                                         NameCase{u"", u"", u"C.", u"", u"C."},
                                         NameCase{u"", u"", u"", u"Dune", u"Dune"},
                                         NameCase{u"Anna", u"", u"C.", u"Dune", u"Anna Dune"}));

TEST_F(BoardEditsTest, SortTypeIsReadAtEveryCall) {
    DialEntry e;
    e.first = u"Anna";
    e.extra = u"x";
    SetSortType(1);
    EXPECT_EQ(S(DisplayName(e)), u"x");
    SetSortType(0);
    EXPECT_EQ(S(DisplayName(e)), u"Anna");
}

TEST_F(BoardEditsTest, GivingADialerNumberTakesItFromTheOtherButton) {
    Load({{0, u"A"}, {1, u"B"}, {2, u"C"}});
    board_.SetDialerNumber(1, 5);
    EXPECT_EQ(board_.EntryAt(1).btn, 5);
    int sets = registry::memory::SetCount();
    board_.SetDialerNumber(0, 5);
    EXPECT_EQ(board_.EntryAt(0).btn, 5);
    EXPECT_EQ(board_.EntryAt(1).btn, -1);
    EXPECT_EQ(registry::memory::SetCount() - sets, 22);  // B, then A, each on its own
    EXPECT_EQ(StoredNumber(u"Btn", 0), 5u);
    EXPECT_EQ(StoredNumber(u"Btn", 1), static_cast<uint32_t>(-1));
}

TEST_F(BoardEditsTest, ClearingADialerNumberLeavesTheOthers) {
    Load({{0, u"A"}, {1, u"B"}});
    board_.SetDialerNumber(0, 3);
    board_.SetDialerNumber(1, 4);
    int sets = registry::memory::SetCount();
    board_.SetDialerNumber(0, -1);
    EXPECT_EQ(board_.EntryAt(0).btn, -1);
    EXPECT_EQ(board_.EntryAt(1).btn, 4);
    EXPECT_EQ(registry::memory::SetCount() - sets, 11);
}

TEST_F(BoardEditsTest, DialerNumberOfAFreeSlotDoesNothing) {
    Load({{0, u"A"}});
    board_.SetDialerNumber(0, 5);
    int sets = registry::memory::SetCount();
    board_.SetDialerNumber(9, 5);
    EXPECT_EQ(board_.EntryAt(0).btn, 5);
    EXPECT_EQ(registry::memory::SetCount(), sets);
}

TEST_F(BoardEditsTest, MovingOntoAnOccupiedSlotSwaps) {
    Load({{0, u"A"}, {5, u"B"}, {7, u"C"}});
    board_.MoveSlot(0, 5);
    EXPECT_EQ(Slots(), (std::vector<int32_t>{5, 0, 7}));
    EXPECT_EQ(StoredNumber(u"Index", 0), 5u);
    EXPECT_EQ(StoredNumber(u"Index", 1), 0u);
}

TEST_F(BoardEditsTest, MovingOntoAFreeSlotMoves) {
    Load({{0, u"A"}, {5, u"B"}});
    PlantText(u"Stray", 0, u"x");
    board_.MoveSlot(5, 11);
    EXPECT_EQ(Slots(), (std::vector<int32_t>{0, 11}));
    EXPECT_EQ(StoredValues().size(), 22u);  // a full rewrite: the stray value is gone
    EXPECT_EQ(StoredNumber(u"Index", 1), 11u);
}

TEST_F(BoardEditsTest, MovingAFreeSlotDoesNothing) {
    Load({{0, u"A"}});
    int sets = registry::memory::SetCount();
    board_.MoveSlot(3, 0);
    EXPECT_EQ(Slots(), std::vector<int32_t>{0});
    EXPECT_EQ(registry::memory::SetCount(), sets);
}

TEST_F(BoardEditsTest, DeletingAPageDeletesOnlyBoundSlotsAndRewritesOnce) {
    Load({{0, u"A"}, {13, u"B"}, {2, u"C"}, {15, u"D"}});
    Array<int32_t> page;
    for (int32_t slot = 12; slot < 24; ++slot)
        page.Add(slot);
    int sets = registry::memory::SetCount();
    int flushes = registry::memory::FlushCount();
    board_.DeleteSlots(page);
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"A", u"C"}));
    EXPECT_EQ(registry::memory::SetCount() - sets, 22);
    EXPECT_EQ(registry::memory::FlushCount() - flushes, 1);
    auto values = StoredValues();
    EXPECT_EQ(values.size(), 22u);
    EXPECT_EQ(StoredText(u"Display", 1), u"C");
}

TEST_F(BoardEditsTest, DeletingInListOrderClosesGaps) {
    Load({{0, u"A"}, {1, u"B"}, {2, u"C"}, {3, u"D"}});
    Array<int32_t> slots;
    slots.Add(2);
    slots.Add(0);
    slots.Add(2);
    board_.DeleteSlots(slots);
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"B", u"D"}));
}

TEST_F(BoardEditsTest, DeletingOnlyFreeSlotsStillRewrites) {
    Load({{0, u"A"}});
    PlantText(u"Stray", 0, u"x");
    Array<int32_t> slots;
    slots.Add(4);
    board_.DeleteSlots(slots);
    EXPECT_EQ(StoredValues().count(u"Stray0"), 0u);
    EXPECT_EQ(board_.Count(), 1);
}

TEST_F(BoardEditsTest, ClearingTheLastEntryRemovesTheKey) {
    Load({{3, u"A"}});
    Array<int32_t> slots;
    slots.Add(3);
    board_.DeleteSlots(slots);
    EXPECT_EQ(board_.Count(), 0);
    EXPECT_FALSE(BoardKeyExists());
}

TEST_F(BoardEditsTest, SortingFillsTheFirstSlotsInNameOrder) {
    Load({{3, u"Carl"}, {17, u"Anna"}, {40, u"Bert"}});
    board_.SortByName();
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"Anna", u"Bert", u"Carl"}));
    EXPECT_EQ(Slots(), (std::vector<int32_t>{0, 1, 2}));
    EXPECT_EQ(StoredText(u"Display", 0), u"Anna");
    EXPECT_EQ(StoredNumber(u"Index", 2), 2u);
}

TEST_F(BoardEditsTest, SortingOnlyRenumbersWhenNamesAreInOrder) {
    Load({{3, u"Anna"}, {17, u"Bert"}});
    board_.SortByName();
    EXPECT_EQ(Slots(), (std::vector<int32_t>{0, 1}));
    EXPECT_EQ(StoredNumber(u"Index", 1), 1u);
}

TEST_F(BoardEditsTest, SortingASortedBoardWritesNothing) {
    Load({{0, u"Anna"}, {1, u"Bert"}});
    int sets = registry::memory::SetCount();
    board_.SortByName();
    EXPECT_EQ(registry::memory::SetCount(), sets);
    EXPECT_TRUE(BoardKeyExists());
}

TEST_F(BoardEditsTest, SortingUsesTheComposedNames) {
    Load({{0, u"~Zoe"}, {1, u"Mia"}, {2, u"~Abe"}});
    board_.SortByName();
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"Abe", u"Mia", u"Zoe"}));
}

TEST_F(BoardEditsTest, SortingComparesByTheLocaleNotByCodeUnits) {
    Load({{0, u"zeta"}, {1, u"Émile"}, {2, u"Eve"}, {3, u"Fay"}, {4, u"adam"}});
    board_.SortByName();
    EXPECT_EQ(Names(), (std::vector<std::u16string>{u"adam", u"Émile", u"Eve", u"Fay", u"zeta"}));
}

TEST_F(BoardEditsTest, SortingCyrillicNames) {
    Load({{0, u"Яков"}, {1, u"борис"}, {2, u"Ёлка"}, {3, u"Анна"}, {4, u"Жанна"}});
    board_.SortByName();
    EXPECT_EQ(Names(),
              (std::vector<std::u16string>{u"Анна", u"борис", u"Ёлка", u"Жанна", u"Яков"}));
}

TEST_F(BoardEditsTest, SortingTheExchangeWayLeavesEqualNamesAsTheSchemeDoes) {
    // Equal names never swap with each other, but an exchange with a third entry can carry one
    // past the other: B1 B2 A3 becomes A3 B2 B1 (a stable sort would give A3 B1 B2).
    Load({{0, u"~B"}, {1, u"~B"}, {2, u"~A"}});
    board_.SortByName();
    std::vector<uint32_t> oids;
    for (const DialEntry& e : board_.Entries())
        oids.push_back(e.oid);
    EXPECT_EQ(oids, (std::vector<uint32_t>{3, 2, 1}));
}

TEST_F(BoardEditsTest, EmptyBoardSortsToNothing) {
    board_.SortByName();
    EXPECT_EQ(board_.Count(), 0);
    EXPECT_FALSE(BoardKeyExists());
}

}  // namespace
