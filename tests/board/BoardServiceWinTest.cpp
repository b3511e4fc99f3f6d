// The board with the program's own contacts and search service on Windows: the contacts session
// on the Windows platform over a contacts file, and the search service library started by the
// service host from beside the program, answering the search by number.
#include <windows.h>

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <string>

#include "TestCards.h"
#include "base/Registry.h"
#include "board/DialBoard.h"
#include "board/SessionContactSource.h"
#include "contacts/ContactsPlatformWin.h"
#include "contacts/ContactsSession.h"
#include "contacts/SearchServiceClient.h"
#include "contacts/SearchServiceClientWin.h"

namespace {

constexpr char16_t kSettingsPath[] = u"Software\\Orvalis\\PIM\\Settings";

std::u16string TempFile() {
    wchar_t dir[MAX_PATH];
    DWORD n = GetTempPathW(MAX_PATH, dir);
    std::wstring path(dir, n);
    path += L"dialdeck-board-" + std::to_wstring(GetCurrentProcessId()) + L".vcf";
    return std::u16string(path.begin(), path.end());
}

class BoardServiceWinTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        InstallWinContactsPlatform();
        InstallWinServiceCalls();
    }

    void SetUp() override {
        registry::DeleteTree(DialBoard::kKeyPath);
        path_ = TempFile();
        registry::KeyHolder settings(registry::Create(kSettingsPath));
        ASSERT_TRUE(settings);
        registry::Set(settings.get(), u"DdContactsFile", registry::kTypeString, path_.c_str(),
                      static_cast<uint32_t>((path_.size() + 1) * 2));
    }
    void TearDown() override {
        if (ContactsSession* session = ContactsSession::Get())
            session->Destroy();
        registry::DeleteTree(DialBoard::kKeyPath);
        registry::KeyHolder settings(registry::Create(kSettingsPath));
        registry::DeleteValue(settings.get(), u"DdContactsFile");
        registry::DeleteValue(settings.get(), u"SortType");
        DeleteFileW(reinterpret_cast<const wchar_t*>(path_.c_str()));
    }

    void WriteContacts(const std::string& text) {
        std::ofstream out(reinterpret_cast<const wchar_t*>(path_.c_str()),
                          std::ios::binary | std::ios::trunc);
        out << text;
        out.close();
        // The service sees the file again when the picker next opens (its empty search), as a
        // service started afresh with the program would.
        Array<uint32_t> oids;
        Array<Str> texts;
        SearchServiceClient::Get().SearchText(u"", oids, texts);
    }

    // A start of the program: the session opened afresh, the board loaded through it.
    void Start(DialBoard& board) {
        ContactsSession* session = ContactsSession::Get();
        ASSERT_NE(session, nullptr);
        session->Destroy();
        ASSERT_TRUE(session->Open());
        source_ = std::make_unique<SessionContactSource>(session, SearchServiceClient::Get());
        board.SetContacts(source_.get());
        board.LoadEntries();
    }

    uint32_t OidOf(const char16_t* number) {
        Array<uint32_t> oids;
        EXPECT_TRUE(SearchServiceClient::Get().SearchNumber(number, oids));
        return oids.IsEmpty() ? 0 : oids[0];
    }
    uint32_t AnnasOid() { return OidOf(u"+46701112233"); }

    static void SetSortType(uint32_t value) {
        registry::KeyHolder settings(registry::Create(kSettingsPath));
        registry::Set(settings.get(), u"SortType", registry::kTypeDword, &value, sizeof(value));
    }

    std::u16string path_;
    std::unique_ptr<SessionContactSource> source_;
};

TEST_F(BoardServiceWinTest, DeletedAndRecreatedContactIsReboundAtTheNextStart) {
    WriteContacts(std::string(kAnna) + kBo);
    uint32_t oldOid = 0;
    {
        DialBoard first;
        Start(first);
        oldOid = AnnasOid();
        ASSERT_NE(oldOid, 0u);
        ASSERT_TRUE(first.Assign(4, oldOid, u"+46 70 111 22 33", u"Mobile", 0));
    }
    std::string recreated = kAnna;
    recreated.replace(recreated.find("anna-1"), 6, "anna-22");
    WriteContacts(std::string(kBo) + recreated);
    DialBoard second;
    Start(second);
    uint32_t newOid = AnnasOid();
    ASSERT_NE(newOid, 0u);
    ASSERT_NE(newOid, oldOid);
    ASSERT_EQ(second.Count(), 1);
    EXPECT_EQ(second.EntryAt(0).oid, newOid);
    EXPECT_EQ(second.EntryAt(0).slot, 4);
    DialBoard third;
    third.LoadEntries();
    EXPECT_EQ(third.EntryAt(0).oid, newOid);
}

TEST_F(BoardServiceWinTest, EditedNumberShowsAfterTheNextStart) {
    WriteContacts(std::string(kAnna) + kBo);
    {
        DialBoard first;
        Start(first);
        ASSERT_TRUE(first.Assign(2, AnnasOid(), u"+46 8 444 55 66", u"Work", 3));
    }
    std::string edited = kAnna;
    edited.replace(edited.find("+46 8 444 55 66"), 15, "+46 8 999 00 11");
    WriteContacts(std::string(kBo) + edited);
    DialBoard second;
    Start(second);
    ASSERT_EQ(second.Count(), 1);
    EXPECT_EQ(std::u16string(second.EntryAt(0).phone.c_str()), u"+46 8 999 00 11");
    DialBoard third;
    third.LoadEntries();
    EXPECT_EQ(std::u16string(third.EntryAt(0).phone.c_str()), u"+46 8 999 00 11");
}

TEST_F(BoardServiceWinTest, SortTypeOneSortsByTheCardsSortNamesAfterTheNextStart) {
    SetSortType(1);
    WriteContacts(std::string(kAnnaSorted) + kBoSorted);
    {
        DialBoard first;
        Start(first);
        ASSERT_TRUE(first.Assign(3, AnnasOid(), u"+46 70 111 22 33", u"Mobile", 0));
        ASSERT_TRUE(first.Assign(7, OidOf(u"+46317778899"), u"+46 31 777 88 99", u"Home", 1));
    }
    // The sort names are not stored with the buttons: this start reads them from the cards.
    DialBoard second;
    Start(second);
    ASSERT_EQ(second.Count(), 2);
    EXPECT_EQ(std::u16string(DisplayName(second.EntryAt(0)).c_str()), u"Wiberg Anna");
    second.SortByName();
    EXPECT_EQ(std::u16string(DisplayName(second.EntryAt(0)).c_str()), u"Eek Boo");
    EXPECT_EQ(second.EntryAt(0).slot, 0);
    EXPECT_EQ(std::u16string(DisplayName(second.EntryAt(1)).c_str()), u"Wiberg Anna");
    EXPECT_EQ(second.EntryAt(1).slot, 1);
}

}  // namespace
