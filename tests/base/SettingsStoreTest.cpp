#include "base/SettingsStore.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "base/RegistryMemory.h"

namespace {

constexpr char16_t kSettingsPath[] = u"Software\\Orvalis\\PIM\\Settings";

void PutValue(const char16_t* path, const char16_t* name, uint32_t type, const void* data,
              uint32_t size) {
    registry::KeyHolder key(registry::Create(path));
    ASSERT_TRUE(key);
    ASSERT_TRUE(registry::Set(key.get(), name, type, data, size));
}

void PutNumber(const char16_t* name, uint32_t value) {
    PutValue(kSettingsPath, name, registry::kTypeDword, &value, 4);
}

void PutText(const char16_t* path, const char16_t* name, const std::u16string& text,
             bool terminator = true) {
    PutValue(path, name, registry::kTypeString, text.c_str(),
             static_cast<uint32_t>((text.size() + (terminator ? 1 : 0)) * 2));
}

class SettingsStoreTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
};

}  // namespace

struct OptionCase {
    settings::NumberOption option;
    const char16_t* name;
    uint32_t fallback;
};

class SettingsDefaultsTest : public testing::TestWithParam<OptionCase> {
  protected:
    void SetUp() override { registry::memory::Reset(); }
};

TEST_P(SettingsDefaultsTest, EveryNumberOptionHasItsNameAndDefault) {
    const OptionCase& c = GetParam();
    EXPECT_EQ(std::u16string(c.option.name), c.name);
    EXPECT_EQ(c.option.fallback, c.fallback);
    EXPECT_EQ(settings::Read(c.option), c.fallback);
    PutNumber(c.name, 5);
    EXPECT_EQ(settings::Read(c.option), 5u);
}

INSTANTIATE_TEST_SUITE_P(Options, SettingsDefaultsTest,
                         testing::Values(OptionCase{settings::kShowDialerButton, u"DdShowBtn", 0},
                                         OptionCase{settings::kShowPhoneType, u"DdShowType", 0},
                                         OptionCase{settings::kBigButtons, u"DdBigBtn", 1},
                                         OptionCase{settings::kSortType, u"SortType", 0},
                                         OptionCase{settings::kButtonFeedback, u"BtnFeedback", 1},
                                         OptionCase{settings::kModPreload, u"ModPreload", 1},
                                         OptionCase{settings::kSmsEnabled, u"SmsEnabled", 1},
                                         OptionCase{settings::kD2Hack, u"D2Hack", 1}),
                         [](const testing::TestParamInfo<OptionCase>& param_info) {
                             std::string name;
                             for (const char16_t* c = param_info.param.name; *c != 0; ++c)
                                 name += static_cast<char>(*c);
                             return name;
                         });

TEST_F(SettingsStoreTest, AStringValueNamedLikeANumberOptionReadsAsTheDefault) {
    PutText(kSettingsPath, u"DdBigBtn", u"0");
    EXPECT_EQ(settings::Read(settings::kBigButtons), 1u);
}

TEST_F(SettingsStoreTest, ANumberLongerThanFourBytesReadsAsTheDefault) {
    uint8_t eight[8] = {1, 0, 0, 0, 0, 0, 0, 0};
    PutValue(kSettingsPath, u"DdShowBtn", registry::kTypeDword, eight, 8);
    EXPECT_EQ(settings::Read(settings::kShowDialerButton), 0u);
}

TEST_F(SettingsStoreTest, NullSubkeyOrNameReadsTheDefault) {
    PutNumber(u"DdShowBtn", 1);
    EXPECT_EQ(settings::ReadNumber(nullptr, u"DdShowBtn", 9), 9u);
    EXPECT_EQ(settings::ReadNumber(u"Settings", nullptr, 9), 9u);
}

TEST_F(SettingsStoreTest, WriteNumberAlwaysWritesIntoSettings) {
    EXPECT_EQ(settings::WriteNumber(u"Templates", u"X", 5), 1);
    EXPECT_EQ(settings::ReadNumber(u"Settings", u"X", 0), 5u);
    EXPECT_EQ(settings::ReadNumber(u"Templates", u"X", 0), 0u);
    EXPECT_TRUE(registry::memory::Values(u"Software\\Orvalis\\PIM\\Templates").empty());
}

TEST_F(SettingsStoreTest, WriteNumberStoresAFourByteDwordAndFlushes) {
    int flushes = registry::memory::FlushCount();
    EXPECT_EQ(settings::WriteNumber(u"Settings", u"DdBigBtn", 0), 1);
    auto values = registry::memory::Values(kSettingsPath);
    ASSERT_EQ(values.count(u"DdBigBtn"), 1u);
    EXPECT_EQ(values[u"DdBigBtn"].type, registry::kTypeDword);
    EXPECT_EQ(values[u"DdBigBtn"].data.size(), 4u);
    EXPECT_EQ(registry::memory::FlushCount(), flushes + 1);
}

TEST_F(SettingsStoreTest, WriteNumberFailsWithoutANameOrKey) {
    EXPECT_EQ(settings::WriteNumber(u"Settings", nullptr, 1), 0);
    registry::memory::FailCreate(true);
    EXPECT_EQ(settings::WriteNumber(u"Settings", u"A", 1), 0);
}

TEST_F(SettingsStoreTest, WithoutASettingsKeyReadsGiveDefaultsAndTheFirstWriteCreatesIt) {
    EXPECT_TRUE(registry::memory::Keys().empty());
    EXPECT_EQ(settings::Read(settings::kModPreload), 1u);
    EXPECT_EQ(settings::Read(settings::kShowPhoneType), 0u);
    EXPECT_TRUE(settings::ReadString(u"Settings", u"SmsApp", Str()).IsEmpty());
    EXPECT_TRUE(registry::memory::Keys().empty());
    EXPECT_EQ(settings::WriteNumber(u"Settings", u"DdShowType", 1), 1);
    registry::KeyHolder key(registry::Open(kSettingsPath));
    EXPECT_TRUE(key);
    EXPECT_EQ(settings::Read(settings::kShowPhoneType), 1u);
}

TEST_F(SettingsStoreTest, ReadStringOfAMissingValueIsEmptyWhateverTheDefault) {
    PutNumber(u"Other", 1);
    EXPECT_TRUE(settings::ReadString(u"Settings", u"SmsApp", Str(u"fallback")).IsEmpty());
}

TEST_F(SettingsStoreTest, ReadStringReturnsTheStoredText) {
    PutText(kSettingsPath, u"SmsApp", u"\\Windows\\composer.exe");
    EXPECT_EQ(settings::ReadString(u"Settings", u"SmsApp", Str()), Str(u"\\Windows\\composer.exe"));
}

TEST_F(SettingsStoreTest, ReadStringAcceptsAValueWithoutTerminator) {
    PutText(kSettingsPath, u"SmsParam", u"-to %s", /*terminator=*/false);
    EXPECT_EQ(settings::ReadString(u"Settings", u"SmsParam", Str()), Str(u"-to %s"));
}

TEST_F(SettingsStoreTest, ReadStringOfANumberIsEmpty) {
    PutNumber(u"SmsApp", 3);
    EXPECT_TRUE(settings::ReadString(u"Settings", u"SmsApp", Str()).IsEmpty());
}

TEST_F(SettingsStoreTest, ReadBlockReturnsExactlyTheStoredBytes) {
    uint8_t bytes[5] = {1, 2, 3, 4, 5};
    PutValue(u"Software\\Orvalis\\PIM\\ABC", u"Custom", registry::kTypeBinary, bytes, 5);
    uint32_t size = 99;
    uint8_t* block = settings::ReadBlock(&size);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(size, 5u);
    EXPECT_EQ(std::memcmp(block, bytes, 5), 0);
    delete[] block;
}

TEST_F(SettingsStoreTest, ReadBlockRefusesOtherTypesAndMissingSizePointer) {
    PutText(u"Software\\Orvalis\\PIM\\ABC", u"Custom", u"text");
    uint32_t size = 99;
    EXPECT_EQ(settings::ReadBlock(&size), nullptr);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(settings::ReadBlock(nullptr), nullptr);
}

TEST_F(SettingsStoreTest, NothingIsCached) {
    PutNumber(u"BtnFeedback", 2);
    EXPECT_EQ(settings::Read(settings::kButtonFeedback), 2u);
    PutNumber(u"BtnFeedback", 1);
    EXPECT_EQ(settings::Read(settings::kButtonFeedback), 1u);
}
