#include "base/Registry.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr char16_t kTestRoot[] = u"Software\\DialdeckTests";
constexpr char16_t kTestKey[] = u"Software\\DialdeckTests\\Registry\\Deep";

class RegistryWinTest : public ::testing::Test {
  protected:
    void SetUp() override { registry::DeleteTree(kTestRoot); }
    void TearDown() override { registry::DeleteTree(kTestRoot); }
};

TEST_F(RegistryWinTest, OpenFailsForAMissingKeyAndCreateMakesItWithItsParents) {
    EXPECT_EQ(registry::Open(kTestKey), nullptr);
    registry::KeyHolder created(registry::Create(kTestKey));
    ASSERT_TRUE(created);
    registry::KeyHolder opened(registry::Open(kTestKey));
    EXPECT_TRUE(opened);
    registry::KeyHolder parent(registry::Open(u"Software\\DialdeckTests\\Registry"));
    EXPECT_TRUE(parent);
}

TEST_F(RegistryWinTest, ValuesKeepTheirTypes) {
    registry::KeyHolder key(registry::Create(kTestKey));
    ASSERT_TRUE(key);
    uint32_t number = 0x12345678;
    ASSERT_TRUE(registry::Set(key.get(), u"N", registry::kTypeDword, &number, 4));
    const char16_t text[] = u"hello";
    ASSERT_TRUE(registry::Set(key.get(), u"S", registry::kTypeString, text, sizeof(text)));
    const uint8_t block[] = {1, 2, 3, 0, 5};
    ASSERT_TRUE(registry::Set(key.get(), u"B", registry::kTypeBinary, block, sizeof(block)));

    uint32_t type = 0;
    uint32_t read = 0;
    uint32_t size = 4;
    ASSERT_TRUE(registry::Query(key.get(), u"N", &type, &read, &size));
    EXPECT_EQ(type, registry::kTypeDword);
    EXPECT_EQ(read, 0x12345678u);

    char16_t readText[16] = {};
    size = sizeof(readText);
    ASSERT_TRUE(registry::Query(key.get(), u"S", &type, readText, &size));
    EXPECT_EQ(type, registry::kTypeString);
    EXPECT_EQ(size, sizeof(text));
    EXPECT_EQ(std::u16string(readText), u"hello");

    uint8_t readBlock[8] = {};
    size = sizeof(readBlock);
    ASSERT_TRUE(registry::Query(key.get(), u"B", &type, readBlock, &size));
    EXPECT_EQ(type, registry::kTypeBinary);
    EXPECT_EQ(size, sizeof(block));
    EXPECT_EQ(std::memcmp(readBlock, block, sizeof(block)), 0);
}

TEST_F(RegistryWinTest, SizeQueryAndTooSmallBuffer) {
    registry::KeyHolder key(registry::Create(kTestKey));
    ASSERT_TRUE(key);
    const uint8_t block[12] = {9};
    ASSERT_TRUE(registry::Set(key.get(), u"B", registry::kTypeBinary, block, sizeof(block)));
    uint32_t type = 0;
    uint32_t size = 0;
    ASSERT_TRUE(registry::Query(key.get(), u"B", &type, nullptr, &size));
    EXPECT_EQ(size, 12u);
    EXPECT_EQ(type, registry::kTypeBinary);
    uint8_t small[4];
    size = sizeof(small);
    EXPECT_FALSE(registry::Query(key.get(), u"B", &type, small, &size));
    EXPECT_EQ(size, 12u);
}

TEST_F(RegistryWinTest, MissingValuesAndKeysFail) {
    registry::KeyHolder key(registry::Create(kTestKey));
    ASSERT_TRUE(key);
    uint32_t size = 4;
    uint32_t value = 0;
    EXPECT_FALSE(registry::Query(key.get(), u"Missing", nullptr, &value, &size));
    EXPECT_FALSE(registry::Query(nullptr, u"N", nullptr, &value, &size));
    EXPECT_FALSE(registry::Query(key.get(), u"N", nullptr, &value, nullptr));
    EXPECT_FALSE(registry::Set(nullptr, u"N", registry::kTypeDword, &value, 4));
    EXPECT_FALSE(registry::Flush(nullptr));
    registry::Close(nullptr);
}

TEST_F(RegistryWinTest, DeleteValueAndFlush) {
    registry::KeyHolder key(registry::Create(kTestKey));
    ASSERT_TRUE(key);
    uint32_t value = 7;
    ASSERT_TRUE(registry::Set(key.get(), u"N", registry::kTypeDword, &value, 4));
    EXPECT_TRUE(registry::Flush(key.get()));
    EXPECT_TRUE(registry::DeleteValue(key.get(), u"N"));
    uint32_t size = 4;
    EXPECT_FALSE(registry::Query(key.get(), u"N", nullptr, &value, &size));
    EXPECT_FALSE(registry::DeleteValue(key.get(), u"N"));
}

TEST_F(RegistryWinTest, DeleteTreeRemovesTheKeyAndEverythingBelow) {
    {
        registry::KeyHolder key(registry::Create(kTestKey));
        uint32_t value = 1;
        ASSERT_TRUE(registry::Set(key.get(), u"N", registry::kTypeDword, &value, 4));
    }
    EXPECT_TRUE(registry::DeleteTree(u"Software\\DialdeckTests\\Registry"));
    EXPECT_EQ(registry::Open(u"Software\\DialdeckTests\\Registry"), nullptr);
    registry::KeyHolder root(registry::Open(kTestRoot));
    EXPECT_TRUE(root);
    EXPECT_TRUE(registry::DeleteTree(u"Software\\DialdeckTests\\Registry"));  // gone already
}

TEST_F(RegistryWinTest, DeleteTreeRefusesTheWholeHive) {
    EXPECT_FALSE(registry::DeleteTree(u""));
    EXPECT_FALSE(registry::DeleteTree(nullptr));
    registry::KeyHolder software(registry::Open(u"Software"));
    EXPECT_TRUE(software);
}

}  // namespace
