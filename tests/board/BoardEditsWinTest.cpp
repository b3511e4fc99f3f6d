// Sorting by name with the system's own locale comparison, on the real registry.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Registry.h"
#include "board/DialBoard.h"

namespace {

const wchar_t* W(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}

int SystemCompare(const std::u16string& a, const std::u16string& b) {
    return CompareStringW(LOCALE_SYSTEM_DEFAULT, 0, W(a.c_str()), -1, W(b.c_str()), -1) -
           CSTR_EQUAL;
}

class BoardEditsWinTest : public testing::Test {
  protected:
    void SetUp() override { registry::DeleteTree(DialBoard::kKeyPath); }
    void TearDown() override { registry::DeleteTree(DialBoard::kKeyPath); }

    // Stores one entry per name (display text, slot 10 + i) in the real registry and loads them.
    void Load(const std::vector<std::u16string>& names) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, W(DialBoard::kKeyPath), 0, nullptr, 0,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        for (size_t i = 0; i < names.size(); ++i) {
            std::wstring n = std::to_wstring(i);
            DWORD oid = 0;
            DWORD slot = static_cast<DWORD>(10 + i);
            RegSetValueExW(key, (L"Oid" + n).c_str(), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&oid), 4);
            RegSetValueExW(key, (L"Index" + n).c_str(), 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&slot), 4);
            RegSetValueExW(key, (L"Display" + n).c_str(), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(names[i].c_str()),
                           static_cast<DWORD>((names[i].size() + 1) * 2));
        }
        RegCloseKey(key);
        board_.LoadEntries();
        ASSERT_EQ(board_.Count(), static_cast<int>(names.size()));
    }

    std::vector<std::u16string> Names() const {
        std::vector<std::u16string> names;
        for (const DialEntry& e : board_.Entries())
            names.push_back(e.display.c_str());
        return names;
    }

    // True when every neighbour pair is in order by the system's comparison.
    static bool InSystemOrder(const std::vector<std::u16string>& names) {
        for (size_t i = 1; i < names.size(); ++i) {
            if (SystemCompare(names[i - 1], names[i]) > 0)
                return false;
        }
        return true;
    }

    DialBoard board_;
};

TEST_F(BoardEditsWinTest, AccentedLatinNamesSortByLetterNotByCodeUnit) {
    Load({u"zeta", u"Émile", u"Eve", u"Fay", u"adam", u"Ölund", u"Oscar"});
    board_.SortByName();
    std::vector<std::u16string> names = Names();
    EXPECT_TRUE(InSystemOrder(names));
    EXPECT_EQ(names, (std::vector<std::u16string>{u"adam", u"Émile", u"Eve", u"Fay", u"Ölund",
                                                  u"Oscar", u"zeta"}));
}

TEST_F(BoardEditsWinTest, CyrillicNamesSortByTheSystemLocale) {
    Load({u"Яков", u"борис", u"Ёлка", u"Анна", u"Жанна", u"елена"});
    board_.SortByName();
    std::vector<std::u16string> names = Names();
    EXPECT_TRUE(InSystemOrder(names));
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Анна", u"борис", u"елена", u"Ёлка", u"Жанна",
                                                  u"Яков"}));
}

TEST_F(BoardEditsWinTest, MixedScriptsFollowTheSystemComparison) {
    Load({u"Яков", u"zeta", u"Émile", u"Анна", u"adam"});
    board_.SortByName();
    std::vector<std::u16string> names = Names();
    EXPECT_TRUE(InSystemOrder(names));
    EXPECT_EQ(names.front(), u"adam");
    EXPECT_EQ(names.back(), u"Яков");
}

TEST_F(BoardEditsWinTest, SortedBoardIsRewrittenWithSlotsFromZero) {
    Load({u"Carl", u"Anna", u"Bert"});
    board_.SortByName();
    DialBoard reloaded;
    reloaded.LoadEntries();
    ASSERT_EQ(reloaded.Count(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(reloaded.EntryAt(i).slot, i);
    EXPECT_EQ(std::u16string(reloaded.EntryAt(0).display.c_str()), u"Anna");
}

}  // namespace
