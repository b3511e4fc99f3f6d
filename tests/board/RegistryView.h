#pragma once
// Reading and planting the board's stored values in the in-memory registry.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "board/DialBoard.h"

inline std::u16string U(const std::string& narrow) {
    return std::u16string(narrow.begin(), narrow.end());
}

/// Value name pattern + index, as the board forms it ("Oid" + 3 = "Oid3").
inline std::u16string ValueName(const char16_t* base, int index) {
    return base + U(std::to_string(index));
}

inline bool BoardKeyExists() {
    for (const std::u16string& key : registry::memory::Keys()) {
        if (key == DialBoard::kKeyPath)
            return true;
    }
    return false;
}

inline std::map<std::u16string, registry::memory::Value> StoredValues() {
    return registry::memory::Values(DialBoard::kKeyPath);
}

inline void Plant(const std::u16string& name, uint32_t type, const void* data, size_t size) {
    registry::KeyHolder key(registry::Create(DialBoard::kKeyPath));
    ASSERT_TRUE(key);
    ASSERT_TRUE(registry::Set(key.get(), name.c_str(), type, data, static_cast<uint32_t>(size)));
}

inline void PlantNumber(const char16_t* base, int index, uint32_t value) {
    Plant(ValueName(base, index), registry::kTypeDword, &value, sizeof(value));
}

inline void PlantText(const char16_t* base, int index, const std::u16string& text) {
    Plant(ValueName(base, index), registry::kTypeString, text.c_str(), (text.size() + 1) * 2);
}

/// The stored number; fails the test when the value is missing or not a 4-byte REG_DWORD.
inline uint32_t StoredNumber(const char16_t* base, int index) {
    auto values = StoredValues();
    auto found = values.find(ValueName(base, index));
    EXPECT_NE(found, values.end()) << "missing value";
    if (found == values.end())
        return 0xDEADBEEF;
    EXPECT_EQ(found->second.type, registry::kTypeDword);
    EXPECT_EQ(found->second.data.size(), 4u);
    uint32_t value = 0;
    std::memcpy(&value, found->second.data.data(), 4);
    return value;
}

/// The stored text without its terminator; fails the test when the value is missing, not a
/// REG_SZ or not written with exactly one terminating zero.
inline std::u16string StoredText(const char16_t* base, int index) {
    auto values = StoredValues();
    auto found = values.find(ValueName(base, index));
    EXPECT_NE(found, values.end()) << "missing value";
    if (found == values.end())
        return u"<missing>";
    const std::vector<uint8_t>& data = found->second.data;
    EXPECT_EQ(found->second.type, registry::kTypeString);
    EXPECT_EQ(data.size() % 2, 0u);
    std::u16string text(data.size() / 2, u'\0');
    if (!data.empty())
        std::memcpy(text.data(), data.data(), data.size());
    EXPECT_FALSE(text.empty());
    if (text.empty())
        return u"<no terminator>";
    EXPECT_EQ(text.back(), u'\0');
    text.pop_back();
    EXPECT_EQ(text.find(u'\0'), std::u16string::npos);
    return text;
}

inline std::u16string S(const Str& s) {
    return s.c_str();
}
