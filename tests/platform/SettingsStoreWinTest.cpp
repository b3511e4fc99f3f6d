// The settings store over the real registry of the current user.
#include "base/SettingsStore.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr wchar_t kSettingsPath[] = L"Software\\Orvalis\\PIM\\Settings";

class SettingsStoreWinTest : public ::testing::Test {
  protected:
    void SetUp() override { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvalis"); }
    void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvalis"); }

    static void Put(const wchar_t* subkey, const wchar_t* name, DWORD type, const void* data,
                    DWORD size) {
        std::wstring path = std::wstring(L"Software\\Orvalis\\PIM\\") + subkey;
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_WRITE,
                                  nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        ASSERT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size),
                  ERROR_SUCCESS);
        RegCloseKey(key);
    }
    static void PutNumber(const wchar_t* subkey, const wchar_t* name, DWORD value) {
        Put(subkey, name, REG_DWORD, &value, sizeof(value));
    }
    static void PutText(const wchar_t* subkey, const wchar_t* name, const std::wstring& text) {
        Put(subkey, name, REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * 2));
    }
    static bool KeyExists(const wchar_t* path) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS) {
            return false;
        }
        RegCloseKey(key);
        return true;
    }
    static bool GetNumber(const wchar_t* path, const wchar_t* name, DWORD& value, DWORD& type) {
        DWORD size = sizeof(value);
        return RegGetValueW(HKEY_CURRENT_USER, path, name, RRF_RT_ANY, &type, &value, &size) ==
               ERROR_SUCCESS;
    }
};

TEST_F(SettingsStoreWinTest, MissingSettingsKeyGivesEveryDefault) {
    EXPECT_FALSE(KeyExists(kSettingsPath));
    EXPECT_EQ(settings::Read(settings::kShowDialerButton), 0u);
    EXPECT_EQ(settings::Read(settings::kShowPhoneType), 0u);
    EXPECT_EQ(settings::Read(settings::kBigButtons), 1u);
    EXPECT_EQ(settings::Read(settings::kSortType), 0u);
    EXPECT_EQ(settings::Read(settings::kButtonFeedback), 1u);
    EXPECT_EQ(settings::Read(settings::kModPreload), 1u);
    EXPECT_EQ(settings::Read(settings::kSmsEnabled), 1u);
    EXPECT_EQ(settings::Read(settings::kD2Hack), 1u);
    EXPECT_TRUE(settings::ReadString(settings::kSettingsKey, settings::kSmsApp, Str()).IsEmpty());
    EXPECT_FALSE(KeyExists(kSettingsPath));  // reading never creates the key
}

TEST_F(SettingsStoreWinTest, FirstWriteCreatesTheSettingsKey) {
    EXPECT_EQ(settings::WriteNumber(settings::kSettingsKey, u"DdShowBtn", 1), 1);
    EXPECT_TRUE(KeyExists(kSettingsPath));
    DWORD value = 0;
    DWORD type = 0;
    ASSERT_TRUE(GetNumber(kSettingsPath, L"DdShowBtn", value, type));
    EXPECT_EQ(type, static_cast<DWORD>(REG_DWORD));
    EXPECT_EQ(value, 1u);
    EXPECT_EQ(settings::Read(settings::kShowDialerButton), 1u);
}

TEST_F(SettingsStoreWinTest, TextStoredUnderANumericNameReadsAsTheDefault) {
    PutText(L"Settings", L"DdBigBtn", L"0");
    EXPECT_EQ(settings::Read(settings::kBigButtons), 1u);
    PutText(L"Settings", L"ModPreload", L"0");
    EXPECT_EQ(settings::Read(settings::kModPreload), 1u);
}

TEST_F(SettingsStoreWinTest, OtherNonNumberValuesReadAsTheDefault) {
    const uint8_t four[4] = {0, 0, 0, 0};
    Put(L"Settings", L"DdBigBtn", REG_BINARY, four, sizeof(four));
    EXPECT_EQ(settings::Read(settings::kBigButtons), 1u);
    const uint8_t eight[8] = {0};
    Put(L"Settings", L"ModPreload", REG_QWORD, eight, sizeof(eight));
    EXPECT_EQ(settings::Read(settings::kModPreload), 1u);
}

TEST_F(SettingsStoreWinTest, StoredNumbersAreRead) {
    PutNumber(L"Settings", L"DdBigBtn", 0);
    PutNumber(L"Settings", L"BtnFeedback", 2);
    PutNumber(L"Settings", L"ModPreload", 0xFFFFFFFF);
    EXPECT_EQ(settings::Read(settings::kBigButtons), 0u);
    EXPECT_EQ(settings::Read(settings::kButtonFeedback), 2u);
    EXPECT_EQ(settings::Read(settings::kModPreload), 0xFFFFFFFFu);
    PutNumber(L"Templates", L"Count", 3);
    EXPECT_EQ(settings::ReadNumber(settings::kTemplatesKey, u"Count", 9), 3u);
}

TEST_F(SettingsStoreWinTest, WriteNumberAlwaysWritesIntoSettings) {
    EXPECT_EQ(settings::WriteNumber(u"Templates", u"X", 5), 1);
    DWORD value = 0;
    DWORD type = 0;
    ASSERT_TRUE(GetNumber(kSettingsPath, L"X", value, type));
    EXPECT_EQ(value, 5u);
    EXPECT_FALSE(KeyExists(L"Software\\Orvalis\\PIM\\Templates"));
    EXPECT_EQ(settings::ReadNumber(u"Templates", u"X", 77), 77u);
}

TEST_F(SettingsStoreWinTest, WriteNumberWithoutANameWritesNothing) {
    EXPECT_EQ(settings::WriteNumber(settings::kSettingsKey, nullptr, 5), 0);
    EXPECT_FALSE(KeyExists(kSettingsPath));
}

TEST_F(SettingsStoreWinTest, MissingStringIsEmptyWhateverTheDefault) {
    PutNumber(L"Settings", L"Other", 1);
    Str text = settings::ReadString(settings::kSettingsKey, settings::kSmsApp, Str(u"fallback"));
    EXPECT_TRUE(text.IsEmpty());
}

TEST_F(SettingsStoreWinTest, StringsAreReadOnlyWhenTheyAreText) {
    PutText(L"Settings", L"SmsApp", L"\\Windows\\composer.exe");
    EXPECT_EQ(std::u16string(settings::ReadString(u"Settings", u"SmsApp", Str()).c_str()),
              u"\\Windows\\composer.exe");
    PutNumber(L"Settings", L"SmsParam", 4);
    EXPECT_TRUE(settings::ReadString(u"Settings", u"SmsParam", Str(u"x")).IsEmpty());
    const wchar_t unterminated[] = L"abc";
    Put(L"Settings", L"Bare", REG_SZ, unterminated, 6);
    EXPECT_EQ(std::u16string(settings::ReadString(u"Settings", u"Bare", Str()).c_str()), u"abc");
}

TEST_F(SettingsStoreWinTest, KeypadBlockIsReadWhole) {
    const uint8_t block[] = {1, 2, 3, 4, 5, 6, 7};
    Put(L"ABC", L"Custom", REG_BINARY, block, sizeof(block));
    uint32_t size = 99;
    uint8_t* read = settings::ReadBlock(&size);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(size, sizeof(block));
    for (size_t i = 0; i < sizeof(block); ++i)
        EXPECT_EQ(read[i], block[i]);
    delete[] read;
}

TEST_F(SettingsStoreWinTest, KeypadBlockOfAnotherTypeOrMissingIsNone) {
    uint32_t size = 99;
    EXPECT_EQ(settings::ReadBlock(&size), nullptr);
    EXPECT_EQ(size, 0u);
    PutText(L"ABC", L"Custom", L"text");
    size = 99;
    EXPECT_EQ(settings::ReadBlock(&size), nullptr);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(settings::ReadBlock(nullptr), nullptr);
}

}  // namespace
