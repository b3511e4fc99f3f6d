#include "base/Locale.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

bool IsDigitAt(const std::u16string& s, size_t i) {
    return s[i] >= u'0' && s[i] <= u'9';
}

TEST(LocaleWinTest, CompareOrdersTexts) {
    EXPECT_LT(locale_text::Compare(u"apple", u"banana"), 0);
    EXPECT_GT(locale_text::Compare(u"banana", u"apple"), 0);
    EXPECT_EQ(locale_text::Compare(u"same", u"same"), 0);
    EXPECT_LT(locale_text::Compare(u"a", u"B"), 0);  // by letters, not by code unit
    EXPECT_EQ(locale_text::Compare(nullptr, u""), 0);
    EXPECT_LT(locale_text::Compare(nullptr, u"a"), 0);
}

TEST(LocaleWinTest, LowerCasesSingleCharacters) {
    EXPECT_EQ(locale_text::ToLower(u'A'), u'a');
    EXPECT_EQ(locale_text::ToLower(u'z'), u'z');
    EXPECT_EQ(locale_text::ToLower(u'5'), u'5');
    EXPECT_EQ(locale_text::ToLower(u'\u0414'), u'\u0434');  // Cyrillic De
    EXPECT_EQ(locale_text::ToLower(u'\u00C9'), u'\u00E9');  // E acute
}

TEST(LocaleWinTest, AnsiConversionWritesOneBytePerAsciiCharacter) {
    char out[8];
    std::memset(out, '#', sizeof(out));
    EXPECT_EQ(locale_text::ToAnsi(u"Str: x", 6, out, 6), 6);
    EXPECT_EQ(std::string(out, 6), "Str: x");
    EXPECT_EQ(out[6], '#');
}

TEST(LocaleWinTest, AnsiConversionIsCutToTheBuffer) {
    char out[8];
    std::memset(out, '#', sizeof(out));
    EXPECT_EQ(locale_text::ToAnsi(u"abcdef", 6, out, 3), 3);
    EXPECT_EQ(std::string(out, 3), "abc");
    EXPECT_EQ(out[3], '#');
    EXPECT_EQ(locale_text::ToAnsi(u"abc", 0, out, 3), 0);
    EXPECT_EQ(locale_text::ToAnsi(nullptr, 3, out, 3), 0);
}

TEST(LocaleWinTest, LanguageIsTheUsers) {
    EXPECT_EQ(locale_text::UserLanguageId(), GetUserDefaultLangID());
    EXPECT_NE(locale_text::UserLanguageId(), 0);
}

TEST(LocaleWinTest, LogStampHasTheDateAndTimePictures) {
    char16_t buf[260];
    locale_text::FormatLogStamp(buf, 260);
    std::u16string stamp(buf);
    ASSERT_EQ(stamp.size(), 22u) << std::string(stamp.begin(), stamp.end());
    for (size_t i : {0, 1, 2, 3, 5, 6, 8, 9, 11, 12, 14, 15, 17, 18})
        EXPECT_TRUE(IsDigitAt(stamp, i));
    EXPECT_EQ(stamp[4], u'.');
    EXPECT_EQ(stamp[7], u'.');
    EXPECT_EQ(stamp[10], u' ');
    EXPECT_EQ(stamp[13], u':');
    EXPECT_EQ(stamp[16], u':');
    EXPECT_EQ(stamp.substr(19), u" - ");
    SYSTEMTIME now;
    GetLocalTime(&now);
    EXPECT_EQ(std::stoi(std::string(stamp.begin(), stamp.begin() + 4)), now.wYear);
}

TEST(LocaleWinTest, LogStampNeverOverrunsASmallBuffer) {
    char16_t buf[8];
    for (char16_t& c : buf)
        c = u'#';
    locale_text::FormatLogStamp(buf, 5);
    EXPECT_LT(std::u16string(buf).size(), 5u);
    EXPECT_EQ(buf[5], u'#');
}

}  // namespace
