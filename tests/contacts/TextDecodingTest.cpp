#include "contacts/TextDecoding.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string Decode(CharsetDecoder decoder, const std::string& bytes) {
    return decoder(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()).c_str();
}

TEST(TextDecodingTest, Utf8) {
    EXPECT_EQ(Decode(DecodeUtf8, "Caf\xC3\xA9 \xD0\x96 \xE2\x82\xAC"), u"Caf\x00E9 \x0416 \x20AC");
    EXPECT_EQ(Decode(DecodeUtf8, "\xF0\x9F\x98\x80"), u"\xD83D\xDE00");
    EXPECT_EQ(Decode(DecodeUtf8, "\xEF\xBB\xBFx"), u"x");
    EXPECT_EQ(Decode(DecodeUtf8, "a\x80z"), u"a\xFFFDz");
    EXPECT_EQ(Decode(DecodeUtf8, "\xC3"), u"\xFFFD");
    EXPECT_EQ(Decode(DecodeUtf8, "\xC0\xAF"), u"\xFFFD\xFFFD");            // overlong
    EXPECT_EQ(Decode(DecodeUtf8, "\xED\xA0\x80"), u"\xFFFD\xFFFD\xFFFD");  // surrogate
}

TEST(TextDecodingTest, ValidUtf8) {
    auto valid = [](const std::string& s) {
        return IsValidUtf8(reinterpret_cast<const uint8_t*>(s.data()), s.size());
    };
    EXPECT_TRUE(valid("plain"));
    EXPECT_TRUE(valid("\xD0\x96"));
    EXPECT_FALSE(valid("\xD0"));
    EXPECT_FALSE(valid("\xE9t\xE9"));
}

TEST(TextDecodingTest, SingleByteCodePages) {
    EXPECT_EQ(Decode(DecodeLatin1, "\xE9\x80\xFF"), u"\x00E9\x0080\x00FF");
    EXPECT_EQ(Decode(DecodeWindows1252, "\xE9\x80\x9F\x81"), u"\x00E9\x20AC\x0178\x0081");
    EXPECT_EQ(Decode(DecodeWindows1251, "\xCF\xF3\xEF\xEA\xE8\xED \xA8\xB8\xB2\xAF"),
              u"\x041F\x0443\x043F\x043A\x0438\x043D \x0401\x0451\x0406\x0407");
    EXPECT_EQ(Decode(DecodeKoi8r, "\xF0\xD5\xD0\xCB\xC9\xCE"),
              u"\x041F\x0443\x043F\x043A\x0438\x043D");
}

TEST(TextDecodingTest, Utf16) {
    EXPECT_EQ(Decode(DecodeUtf16Le, std::string("a\0\x16\x04", 4)), u"a\x0416");
    EXPECT_EQ(Decode(DecodeUtf16Be, std::string("\0a\x04\x16", 4)), u"a\x0416");
    EXPECT_EQ(Decode(DecodeUtf16Le, std::string("a\0b", 3)), u"a");
}

TEST(TextDecodingTest, ShiftJis) {
    // "安藤ロイド" in two-byte codes, then half-width katakana and ASCII.
    EXPECT_EQ(Decode(DecodeShiftJis, "\x88\xC0\x93\xA1\x83\x8D\x83\x43\x83\x68"),
              u"\x5B89\x85E4\x30ED\x30A4\x30C9");
    EXPECT_EQ(Decode(DecodeShiftJis,
                     "\xB1\xDF"
                     "a1"),
              u"\xFF71\xFF9F"
              u"a1");
    EXPECT_EQ(Decode(DecodeShiftJis, "\x88"), u"\xFFFD");            // a lead byte at the end
    EXPECT_EQ(Decode(DecodeShiftJis, "\x88\x7Fz"), u"\xFFFD\x7Fz");  // no such trail byte
    EXPECT_EQ(Decode(DecodeShiftJis, "\xFD\xA0"), u"\xFFFD\xFFFD");
}

TEST(TextDecodingTest, FindsCharsetsByName) {
    struct Case {
        const char* name;
        CharsetDecoder decoder;
    };
    const Case cases[] = {
        {"UTF-8", DecodeUtf8},
        {"utf-8", DecodeUtf8},
        {"windows-1251", DecodeWindows1251},
        {"CP1251", DecodeWindows1251},
        {"ISO-8859-1", DecodeLatin1},
        {"latin1", DecodeLatin1},
        {"Windows-1252", DecodeWindows1252},
        {"KOI8-R", DecodeKoi8r},
        {"us-ascii", DecodeWindows1252},
        {"SHIFT_JIS", DecodeShiftJis},
        {"X-UNKNOWN", nullptr},
        {"", nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FindCharset(c.name, std::string(c.name).size()), c.decoder) << c.name;
    }
}

TEST(TextDecodingTest, UndeclaredBytesAreGuessed) {
    EXPECT_EQ(Decode(DecodeUndeclared, "M\xC3\xBCller"), u"M\x00FCller");
    EXPECT_EQ(Decode(DecodeUndeclared, "M\xFCller"), u"M\x00FCller");
    EXPECT_EQ(Decode(DecodeUndeclared, "Spa\xDFlund"), u"Spa\x00DFlund");
    EXPECT_EQ(Decode(DecodeUndeclared, "\xCF\xF3\xEF\xEA\xE8\xED"),
              u"\x041F\x0443\x043F\x043A\x0438\x043D");
    EXPECT_EQ(Decode(DecodeUndeclared, "\xC2\xE0\xF1\xE8\xEB\xFC \xCF\xF3\xEF\xEA\xE8\xED"),
              u"\x0412\x0430\x0441\x0438\x043B\x044C \x041F\x0443\x043F\x043A\x0438\x043D");
}

}  // namespace
