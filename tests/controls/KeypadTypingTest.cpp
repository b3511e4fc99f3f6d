// What each key does to the typed digits, and the hardware keys' mapping.
#include "controls/KeypadTyping.h"

#include <gtest/gtest.h>

namespace {

TEST(KeypadTypingTest, KeysOneToEightAppendTwoToNine) {
    EXPECT_EQ(TypedAfterKey(u"", 1), Str(u"2"));
    EXPECT_EQ(TypedAfterKey(u"2", 4), Str(u"25"));
    EXPECT_EQ(TypedAfterKey(u"25", 8), Str(u"259"));
    for (int key = 1; key <= 8; ++key)
        EXPECT_EQ(KeyDigit(key), static_cast<char16_t>(u'0' + key + 1));
}

TEST(KeypadTypingTest, BackspaceRemovesTheLastDigit) {
    EXPECT_EQ(TypedAfterKey(u"123", 0), Str(u"12"));
    EXPECT_EQ(TypedAfterKey(u"7", 0), Str(u""));
}

TEST(KeypadTypingTest, BackspaceOnEmptyChangesNothing) {
    EXPECT_TRUE(TypedAfterKey(u"", 0).IsEmpty());
}

TEST(KeypadTypingTest, UnknownKeysChangeNothing) {
    EXPECT_EQ(TypedAfterKey(u"42", 9), Str(u"42"));
    EXPECT_EQ(TypedAfterKey(u"42", -1), Str(u"42"));
    EXPECT_EQ(KeyDigit(0), 0);
    EXPECT_EQ(KeyDigit(9), 0);
}

TEST(KeypadTypingTest, TypingLeavesTheSourceAlone) {
    const Str typed = u"12";
    const Str next = TypedAfterKey(typed, 2);
    EXPECT_EQ(typed, Str(u"12"));
    EXPECT_EQ(next, Str(u"123"));
}

TEST(KeypadTypingTest, HardwareDigitsMapToKeys) {
    EXPECT_EQ(KeyForHardwareCode('1'), 0);  // the hardware "1" is a backspace
    EXPECT_EQ(KeyForHardwareCode('2'), 1);
    EXPECT_EQ(KeyForHardwareCode('9'), 8);
}

TEST(KeypadTypingTest, OtherHardwareKeysMapToNothing) {
    EXPECT_EQ(KeyForHardwareCode('0'), -1);
    EXPECT_EQ(KeyForHardwareCode(':'), -1);
    EXPECT_EQ(KeyForHardwareCode('A'), -1);
    EXPECT_EQ(KeyForHardwareCode(0x61), -1);  // numeric-pad "1" is not a phone key here
    EXPECT_EQ(KeyForHardwareCode(0xFFFFFFFFu), -1);
}

}  // namespace
