// The board against a real contacts file: what a user sees after editing the file between two
// starts of the program.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ContactsFileSource.h"
#include "RegistryView.h"
#include "TempDir.h"
#include "TestCards.h"
#include "base/FileMemory.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

namespace {

constexpr char16_t kContactsFile[] = u"\\contacts.vcf";

class BoardContactsFileTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
    void TearDown() override { registry::memory::Reset(); }

    void WriteContacts(const std::string& text) {
        std::ofstream out(dir_.Path() / "contacts.vcf", std::ios::binary | std::ios::trunc);
        out << text;
    }

    // One start of the program: opens the contacts and loads the board.
    struct Start {
        ContactsFileSource contacts{kContactsFile};
        DialBoard board{&contacts.Source()};
    };
    std::unique_ptr<Start> StartProgram() {
        auto start = std::make_unique<Start>();
        EXPECT_TRUE(start->contacts.Open());
        start->board.LoadEntries();
        return start;
    }

    // The object id the store gives the owner of a number now.
    uint32_t OidOf(Start& start, const char16_t* number) {
        Array<uint32_t> oids;
        EXPECT_TRUE(start.contacts.Client().SearchNumber(number, oids));
        EXPECT_EQ(oids.Size(), 1);
        return oids.IsEmpty() ? 0 : oids[0];
    }
    uint32_t AnnasOid(Start& start) { return OidOf(start, u"+46701112233"); }

    static void SetSortType(uint32_t value) {
        registry::KeyHolder key(registry::Create(u"Software\\Orvalis\\PIM\\Settings"));
        registry::Set(key.get(), u"SortType", registry::kTypeDword, &value, sizeof(value));
    }

    TempDir dir_;
};

TEST_F(BoardContactsFileTest, AssignedButtonTakesTheContactFromTheFile) {
    WriteContacts(std::string(kAnna) + kBo);
    auto first = StartProgram();
    uint32_t anna = AnnasOid(*first);
    ASSERT_NE(anna, 0u);
    ASSERT_TRUE(first->board.Assign(0, anna, u"+46 8 444 55 66", u"Work", 3));
    const DialEntry& e = first->board.EntryAt(0);
    EXPECT_EQ(S(e.first), u"Anna");
    EXPECT_EQ(S(e.last), u"Berg");
    EXPECT_EQ(S(e.middle), u"Cecilia");
    EXPECT_EQ(S(e.company), u"Dune");
    EXPECT_EQ(e.phones.Size(), 2);
    EXPECT_EQ(StoredNumber(u"Oid", 0), anna);
}

TEST_F(BoardContactsFileTest, DeletedAndRecreatedContactIsReboundAtTheNextStart) {
    WriteContacts(std::string(kAnna) + kBo);
    uint32_t oldOid = 0;
    {
        auto first = StartProgram();
        oldOid = AnnasOid(*first);
        ASSERT_TRUE(first->board.Assign(4, oldOid, u"+46 70 111 22 33", u"Mobile", 0));
    }
    // Anna deleted and entered again: same names and number, a new card identity.
    std::string recreated = kAnna;
    recreated.replace(recreated.find("anna-1"), 6, "anna-22");
    WriteContacts(std::string(kBo) + recreated);
    auto second = StartProgram();
    EXPECT_GT(second->contacts.NumberSearches(), 0);  // found through the service
    uint32_t newOid = AnnasOid(*second);
    ASSERT_NE(newOid, oldOid);
    ASSERT_EQ(second->board.Count(), 1);
    const DialEntry& e = second->board.EntryAt(0);
    EXPECT_EQ(e.oid, newOid);
    EXPECT_EQ(e.slot, 4);
    EXPECT_EQ(S(e.phone), u"+46 70 111 22 33");
    EXPECT_EQ(StoredNumber(u"Oid", 0), newOid);
    // The binding survives a third start without further writes.
    int sets = registry::memory::SetCount();
    auto third = StartProgram();
    EXPECT_EQ(third->board.EntryAt(0).oid, newOid);
    EXPECT_EQ(registry::memory::SetCount(), sets);
}

TEST_F(BoardContactsFileTest, RecreatedWithAnotherNameIsNotRebound) {
    WriteContacts(kAnna);
    {
        auto first = StartProgram();
        ASSERT_TRUE(first->board.Assign(0, AnnasOid(*first), u"+46 70 111 22 33", u"Mobile", 0));
    }
    std::string renamed = kAnna;
    renamed.replace(renamed.find("anna-1"), 6, "anna-22");
    renamed.replace(renamed.find("Cecilia"), 7, "Cissi");
    WriteContacts(renamed);
    auto second = StartProgram();
    EXPECT_EQ(second->board.EntryAt(0).oid, 0u);
    EXPECT_EQ(S(second->board.EntryAt(0).middle), u"Cecilia");
    EXPECT_EQ(StoredNumber(u"Oid", 0), 0u);
    EXPECT_EQ(StoredText(u"Phone", 0), u"+46 70 111 22 33");
}

TEST_F(BoardContactsFileTest, EditedNumberShowsAfterTheNextStart) {
    WriteContacts(std::string(kAnna) + kBo);
    {
        auto first = StartProgram();
        ASSERT_TRUE(first->board.Assign(2, AnnasOid(*first), u"+46 8 444 55 66", u"Work", 3));
    }
    std::string edited = kAnna;
    edited.replace(edited.find("+46 8 444 55 66"), 15, "+46 8 999 00 11");
    WriteContacts(std::string(kBo) + edited);
    auto second = StartProgram();
    ASSERT_EQ(second->board.Count(), 1);
    EXPECT_EQ(S(second->board.EntryAt(0).phone), u"+46 8 999 00 11");
    EXPECT_EQ(second->board.EntryAt(0).link, 3);
    EXPECT_EQ(StoredText(u"Phone", 0), u"+46 8 999 00 11");
}

TEST_F(BoardContactsFileTest, RenamedContactShowsItsNewNameAfterTheNextStart) {
    WriteContacts(kAnna);
    {
        auto first = StartProgram();
        ASSERT_TRUE(first->board.Assign(0, AnnasOid(*first), u"+46 70 111 22 33", u"Mobile", 0));
    }
    std::string renamed = kAnna;
    renamed.replace(renamed.find("Berg;Anna"), 9, "Lind;Anna");
    WriteContacts(renamed);
    auto second = StartProgram();
    EXPECT_EQ(S(second->board.EntryAt(0).last), u"Lind");
    EXPECT_EQ(S(DisplayName(second->board.EntryAt(0))), u"Lind, Anna Dune");
    EXPECT_EQ(StoredText(u"Last", 0), u"Lind");
}

TEST_F(BoardContactsFileTest, MissingFileLeavesButtonsDialableByTheirNumber) {
    WriteContacts(kAnna);
    {
        auto first = StartProgram();
        ASSERT_TRUE(first->board.Assign(0, AnnasOid(*first), u"+46 70 111 22 33", u"Mobile", 0));
    }
    std::filesystem::remove(dir_.Path() / "contacts.vcf");
    auto second = StartProgram();
    ASSERT_EQ(second->board.Count(), 1);
    EXPECT_EQ(second->board.EntryAt(0).oid, 0u);
    EXPECT_EQ(S(second->board.EntryAt(0).phone), u"+46 70 111 22 33");
    EXPECT_EQ(S(second->board.EntryAt(0).first), u"Anna");
}

TEST_F(BoardContactsFileTest, SortTypeOneShowsAndSortsButtonsByTheCardsSortNames) {
    SetSortType(1);
    WriteContacts(std::string(kAnnaSorted) + kBoSorted);
    auto first = StartProgram();
    uint32_t anna = AnnasOid(*first);
    uint32_t bo = OidOf(*first, u"+46317778899");
    ASSERT_TRUE(first->board.Assign(3, anna, u"+46 70 111 22 33", u"Mobile", 0));
    ASSERT_TRUE(first->board.Assign(7, bo, u"+46 31 777 88 99", u"Home", 1));
    ASSERT_EQ(first->board.Count(), 2);
    EXPECT_EQ(S(first->board.EntryAt(0).extra), u"Wiberg Anna");
    EXPECT_EQ(S(DisplayName(first->board.EntryAt(0))), u"Wiberg Anna");
    EXPECT_EQ(S(DisplayName(first->board.EntryAt(1))), u"Eek Boo");

    first->board.SortByName();
    EXPECT_EQ(first->board.EntryAt(0).oid, bo);
    EXPECT_EQ(first->board.EntryAt(0).slot, 0);
    EXPECT_EQ(first->board.EntryAt(1).oid, anna);
    EXPECT_EQ(first->board.EntryAt(1).slot, 1);

    // The composed names give the other order.
    SetSortType(0);
    EXPECT_EQ(S(DisplayName(first->board.EntryAt(1))), u"Berg, Anna");
    first->board.SortByName();
    EXPECT_EQ(first->board.EntryAt(0).oid, anna);
}

TEST_F(BoardContactsFileTest, SortNamesAreReadAgainAtTheNextStart) {
    SetSortType(1);
    WriteContacts(kAnnaSorted);
    {
        auto first = StartProgram();
        ASSERT_TRUE(first->board.Assign(0, AnnasOid(*first), u"+46 70 111 22 33", u"Mobile", 0));
    }
    // The sort name is not stored with the button: the refresh reads it from the card.
    std::string edited = kAnnaSorted;
    edited.replace(edited.find("Wiberg"), 6, "Viberg");
    WriteContacts(edited);
    auto second = StartProgram();
    ASSERT_EQ(second->board.Count(), 1);
    EXPECT_EQ(S(DisplayName(second->board.EntryAt(0))), u"Viberg Anna");
}

}  // namespace
