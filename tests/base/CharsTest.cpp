#include "base/Chars.h"

#include <gtest/gtest.h>

TEST(CharsTest, LengthCompareCopy) {
    EXPECT_EQ(chars::Length(nullptr), 0u);
    EXPECT_EQ(chars::Length(u"abc"), 3u);
    EXPECT_EQ(chars::Compare(u"abc", u"abd") < 0, true);
    EXPECT_EQ(chars::Compare(nullptr, u""), 0);
    EXPECT_EQ(chars::CompareN(u"abcX", u"abcY", 3), 0);
    char16_t buf[4];
    EXPECT_EQ(chars::CopyN(buf, 4, u"abcdef"), 3u);
    EXPECT_EQ(std::u16string(buf), u"abc");
}

TEST(CharsTest, ToLongLikeWtol) {
    EXPECT_EQ(chars::ToLong(u"  42abc"), 42);
    EXPECT_EQ(chars::ToLong(u"-17"), -17);
    EXPECT_EQ(chars::ToLong(u"+8"), 8);
    EXPECT_EQ(chars::ToLong(u"x1"), 0);
    EXPECT_EQ(chars::ToLong(u""), 0);
    EXPECT_EQ(chars::ToLong(nullptr), 0);
}

TEST(CharsTest, WhiteSpaceClass) {
    for (char16_t c : std::u16string(u" \t\n\v\f\r"))
        EXPECT_TRUE(chars::IsSpace(c));
    EXPECT_FALSE(chars::IsSpace(u'a'));
    EXPECT_FALSE(chars::IsSpace(0xA0));
}
