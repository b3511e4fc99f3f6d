// The stored entries in the real registry: value names, types and bytes as other programs see
// them, and damaged values written with the platform's own calls.
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

class BoardStoreWinTest : public testing::Test {
  protected:
    void SetUp() override { registry::DeleteTree(DialBoard::kKeyPath); }
    void TearDown() override { registry::DeleteTree(DialBoard::kKeyPath); }

    static HKEY CreateKey() {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, W(DialBoard::kKeyPath), 0, nullptr, 0,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        return key;
    }
    static void SetRaw(const wchar_t* name, DWORD type, const void* data, DWORD size) {
        HKEY key = CreateKey();
        RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size);
        RegCloseKey(key);
    }
    static bool KeyExists() {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, W(DialBoard::kKeyPath), 0, KEY_READ, &key) !=
            ERROR_SUCCESS) {
            return false;
        }
        RegCloseKey(key);
        return true;
    }
    // Type and bytes of a stored value; type REG_NONE with no bytes when it is missing.
    static std::pair<DWORD, std::vector<BYTE>> Value(const wchar_t* name) {
        HKEY key = nullptr;
        std::pair<DWORD, std::vector<BYTE>> result{REG_NONE, {}};
        if (RegOpenKeyExW(HKEY_CURRENT_USER, W(DialBoard::kKeyPath), 0, KEY_READ, &key) !=
            ERROR_SUCCESS) {
            return result;
        }
        DWORD size = 0;
        if (RegQueryValueExW(key, name, nullptr, &result.first, nullptr, &size) == ERROR_SUCCESS) {
            result.second.resize(size);
            RegQueryValueExW(key, name, nullptr, &result.first, result.second.data(), &size);
        }
        RegCloseKey(key);
        return result;
    }
    static DWORD ValueCount() {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, W(DialBoard::kKeyPath), 0, KEY_READ, &key) !=
            ERROR_SUCCESS) {
            return 0;
        }
        DWORD count = 0;
        RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr,
                         nullptr, nullptr, nullptr);
        RegCloseKey(key);
        return count;
    }
};

TEST_F(BoardStoreWinTest, EntriesAreElevenTypedValuesWithTerminatedStrings) {
    DWORD oid = 42;
    SetRaw(L"Oid0", REG_DWORD, &oid, 4);
    SetRaw(L"Display0", REG_SZ, L"Мама", 10);
    SetRaw(L"Oid1", REG_DWORD, &oid, 4);
    DialBoard board;
    board.LoadEntries();
    ASSERT_EQ(board.Count(), 2);
    board.SaveEntries(-1);
    EXPECT_EQ(ValueCount(), 22u);
    auto display = Value(L"Display0");
    EXPECT_EQ(display.first, static_cast<DWORD>(REG_SZ));
    ASSERT_EQ(display.second.size(), 10u);
    EXPECT_EQ(display.second[8], 0);
    EXPECT_EQ(display.second[9], 0);
    auto btn = Value(L"Btn1");
    EXPECT_EQ(btn.first, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(btn.second, (std::vector<BYTE>{0xFF, 0xFF, 0xFF, 0xFF}));
    auto empty = Value(L"Company1");
    EXPECT_EQ(empty.first, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(empty.second.size(), 2u);
    for (const wchar_t* name :
         {L"Oid0", L"Index0", L"Link0", L"Phone0", L"Type0", L"First0", L"Last0", L"Middle0"}) {
        EXPECT_NE(Value(name).first, static_cast<DWORD>(REG_NONE));
    }
}

TEST_F(BoardStoreWinTest, SavedAndLoadedAgainIsIdentical) {
    DWORD numbers[] = {7, 5, 13, 100};
    SetRaw(L"Oid0", REG_DWORD, &numbers[0], 4);
    SetRaw(L"Btn0", REG_DWORD, &numbers[1], 4);
    SetRaw(L"Index0", REG_DWORD, &numbers[2], 4);
    SetRaw(L"Link0", REG_DWORD, &numbers[3], 4);
    SetRaw(L"Phone0", REG_SZ, L"+7 912 123-45-67", 34);
    SetRaw(L"Type0", REG_SZ, L"Дача", 10);
    SetRaw(L"First0", REG_SZ, L"Zoë", 8);
    DialBoard board;
    board.LoadEntries();
    board.SaveEntries(-1);
    DialBoard again;
    again.LoadEntries();
    ASSERT_EQ(again.Count(), 1);
    const DialEntry& e = again.EntryAt(0);
    EXPECT_EQ(e.oid, 7u);
    EXPECT_EQ(e.btn, 5);
    EXPECT_EQ(e.slot, 13);
    EXPECT_EQ(e.link, 100);
    EXPECT_EQ(std::u16string(e.phone.c_str()), u"+7 912 123-45-67");
    EXPECT_EQ(std::u16string(e.typeLabel.c_str()), u"Дача");
    EXPECT_EQ(std::u16string(e.first.c_str()), u"Zoë");
}

TEST_F(BoardStoreWinTest, DamagedValuesLoadWithoutWriting) {
    DWORD oid = 3;
    SetRaw(L"Oid0", REG_DWORD, &oid, 4);
    SetRaw(L"First0", REG_SZ, L"Anna", 8);  // no terminator
    SetRaw(L"Last0", REG_BINARY, L"Berg", 7);
    unsigned long long wide = 0x0000000100000009ULL;
    SetRaw(L"Oid1", REG_QWORD, &wide, 8);
    SetRaw(L"Btn1", REG_SZ, L"12", 6);
    auto firstBefore = Value(L"First0");
    DialBoard board;
    board.LoadEntries();
    ASSERT_EQ(board.Count(), 2);
    EXPECT_EQ(std::u16string(board.EntryAt(0).first.c_str()), u"Anna");
    EXPECT_EQ(std::u16string(board.EntryAt(0).last.c_str()), u"Ber");
    EXPECT_EQ(board.EntryAt(1).oid, 9u);
    EXPECT_EQ(ValueCount(), 5u);
    EXPECT_EQ(Value(L"First0"), firstBefore);
}

TEST_F(BoardStoreWinTest, ClearingTheLastEntryRemovesTheKey) {
    DWORD oid = 3;
    DWORD slot = 4;
    SetRaw(L"Oid0", REG_DWORD, &oid, 4);
    SetRaw(L"Index0", REG_DWORD, &slot, 4);
    DialBoard board;
    board.LoadEntries();
    Array<int32_t> slots;
    slots.Add(4);
    board.DeleteSlots(slots);
    EXPECT_FALSE(KeyExists());
}

TEST_F(BoardStoreWinTest, SingleSaveLeavesTheRestOfTheKey) {
    DWORD oid = 3;
    SetRaw(L"Oid0", REG_DWORD, &oid, 4);
    SetRaw(L"Oid1", REG_DWORD, &oid, 4);
    SetRaw(L"Stray", REG_SZ, L"x", 4);
    DialBoard board;
    board.LoadEntries();
    board.Rename(0, u"Named");
    EXPECT_EQ(Value(L"Stray").first, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(ValueCount(), 1u + 1u + 11u);
}

}  // namespace
