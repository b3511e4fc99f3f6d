// The key-hook workaround against the real registry under Wine.
#include "phone/KeyHookStamp.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "CallScenario.h"
#include "win/WideCast.h"

namespace {

class KeyHookStampWinTest : public ::testing::Test {
  protected:
    void SetUp() override {
        RemoveKeyHook();
        RemoveD2Hack();
    }
    void TearDown() override {
        RemoveKeyHook();
        RemoveD2Hack();
    }
    static bool KeyExists() {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, W(kKeyHookKey), 0, KEY_READ, &key) != ERROR_SUCCESS)
            return false;
        RegCloseKey(key);
        return true;
    }
};

TEST_F(KeyHookStampWinTest, DefaultSettingLowersTheStamp) {
    SetKeyHookStamp(123456);
    LowerKeyHookStamp();
    EXPECT_EQ(KeyHookStamp(), 121456u);
}

TEST_F(KeyHookStampWinTest, AnyNonZeroSettingLowersTheStamp) {
    SetD2Hack(7);
    SetKeyHookStamp(1500);
    LowerKeyHookStamp();
    EXPECT_EQ(KeyHookStamp(), 0xFFFFFE0Cu);
}

TEST_F(KeyHookStampWinTest, ZeroSettingLeavesTheStampAlone) {
    SetD2Hack(0);
    SetKeyHookStamp(1500);
    LowerKeyHookStamp();
    EXPECT_EQ(KeyHookStamp(), 1500u);
}

TEST_F(KeyHookStampWinTest, MissingKeyIsNotCreated) {
    LowerKeyHookStamp();
    EXPECT_FALSE(KeyExists());
}

TEST_F(KeyHookStampWinTest, MissingValueIsNotCreated) {
    SetKeyHookStamp(5000);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, W(kKeyHookKey), 0, KEY_SET_VALUE, &key),
              ERROR_SUCCESS);
    RegDeleteValueW(key, W(kKeyHookStampValue));
    RegCloseKey(key);
    LowerKeyHookStamp();
    EXPECT_TRUE(KeyExists());
    EXPECT_EQ(KeyHookStamp(), std::nullopt);
}

TEST_F(KeyHookStampWinTest, ValueLongerThanFourBytesIsLeftAlone) {
    SetKeyHookStamp(0);
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, W(kKeyHookKey), 0, KEY_SET_VALUE, &key),
              ERROR_SUCCESS);
    const unsigned long long wide = 5000;
    RegSetValueExW(key, W(kKeyHookStampValue), 0, REG_QWORD, reinterpret_cast<const BYTE*>(&wide),
                   sizeof(wide));
    RegCloseKey(key);
    LowerKeyHookStamp();
    unsigned long long after = 0;
    DWORD size = sizeof(after);
    DWORD type = REG_NONE;
    ASSERT_EQ(RegGetValueW(HKEY_LOCAL_MACHINE, W(kKeyHookKey), W(kKeyHookStampValue), RRF_RT_ANY,
                           &type, &after, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_QWORD));
    EXPECT_EQ(after, 5000u);
}

}  // namespace
