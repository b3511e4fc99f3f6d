#include "base/Format.h"

#include <gtest/gtest.h>

#include <string>

#include "base/Str.h"

namespace {

std::u16string F(const char16_t* format, ...) {
    va_list args;
    va_start(args, format);
    char16_t buffer[512];
    size_t n = FormatInto(buffer, 512, format, args);
    va_end(args);
    EXPECT_LT(n, 512u);
    return buffer;
}

size_t Estimate(const char16_t* format, ...) {
    va_list args;
    va_start(args, format);
    size_t n = FormatEstimate(format, args);
    va_end(args);
    return n;
}

}  // namespace

TEST(FormatTest, IntegersAndFlags) {
    EXPECT_EQ(F(u"%d|%i|%u", -12, 7, 4000000000u), u"-12|7|4000000000");
    EXPECT_EQ(F(u"%5d|%-5d|%05d", 42, 42, -42), u"   42|42   |-0042");
    EXPECT_EQ(F(u"%x|%X|%#x|%o|%#o", 255, 255, 255, 8, 8), u"ff|FF|0xff|10|010");
    EXPECT_EQ(F(u"%+d|% d|%.3d", 5, 5, 5), u"+5| 5|005");
    EXPECT_EQ(F(u"%I64d|%lld", static_cast<long long>(-1) << 40, 1234567890123ll),
              u"-1099511627776|1234567890123");
    EXPECT_EQ(F(u"%*d|%-*d|", 4, 1, 3, 2), u"   1|2  |");
    EXPECT_EQ(F(u"%d", INT32_MIN), u"-2147483648");
    EXPECT_EQ(F(u"100%%"), u"100%");
}

TEST(FormatTest, WideAndNarrowText) {
    EXPECT_EQ(F(u"%s and %S", u"wide", "narrow"), u"wide and narrow");
    EXPECT_EQ(F(u"%hs|%ls", "h-narrow", u"l-wide"), u"h-narrow|l-wide");
    EXPECT_EQ(F(u"[%6s][%-6s][%.2s]", u"ab", u"ab", u"abcdef"), u"[    ab][ab    ][ab]");
    EXPECT_EQ(F(u"%s", static_cast<const char16_t*>(nullptr)), u"(null)");
    EXPECT_EQ(F(u"%s", u"Ёлка ü"), u"Ёлка ü");
}

TEST(FormatTest, Characters) {
    EXPECT_EQ(F(u"%c%C%c", u'Ж', 'a', u'!'), u"Жa!");
}

TEST(FormatTest, FloatingPoint) {
    EXPECT_EQ(F(u"%.2f|%e|%g", 3.14159, 1.5, 0.25), u"3.14|1.500000e+00|0.25");
    EXPECT_EQ(F(u"%8.3f|", -2.5), u"  -2.500|");
}

TEST(FormatTest, PercentNIsConsumedButNeverWritten) {
    int sentinel = 77;
    EXPECT_EQ(F(u"a%nb%d", &sentinel, 5), u"ab5");
    EXPECT_EQ(sentinel, 77);
}

TEST(FormatTest, OutputIsCutToTheBufferAndTerminated) {
    char16_t small[4];
    va_list none{};
    (void)none;
    auto cut = [&](const char16_t* format, ...) {
        va_list args;
        va_start(args, format);
        size_t n = FormatInto(small, 4, format, args);
        va_end(args);
        return n;
    };
    EXPECT_EQ(cut(u"%s", u"abcdef"), 6u);
    EXPECT_EQ(std::u16string(small), u"abc");
}

TEST(FormatTest, EstimatesFollowTheReservationRules) {
    EXPECT_EQ(Estimate(u"abc"), 3u);
    EXPECT_EQ(Estimate(u"%%"), 1u);
    EXPECT_EQ(Estimate(u"%s", static_cast<const char16_t*>(nullptr)), 6u);
    EXPECT_EQ(Estimate(u"%s", u""), 1u);
    EXPECT_EQ(Estimate(u"%s", u"hello"), 5u);
    EXPECT_EQ(Estimate(u"%S", "hello"), 5u);
    EXPECT_EQ(Estimate(u"%10s", u"hello"), 10u);
    EXPECT_EQ(Estimate(u"%.2s", u"hello"), 2u);
    EXPECT_EQ(Estimate(u"%c"), 2u);
    EXPECT_EQ(Estimate(u"%d", 1), 32u);
    EXPECT_EQ(Estimate(u"%40d", 1), 40u);
    EXPECT_EQ(Estimate(u"%#x", 1), 34u);
    EXPECT_EQ(Estimate(u"%g", 1.0), 128u);
    EXPECT_EQ(Estimate(u"%n", nullptr), 0u);
    // %f prints the value with six more digits of precision to measure it.
    EXPECT_EQ(Estimate(u"%.1f", 2.5), std::u16string(u"2.5000000").size());
}

TEST(FormatTest, EstimateConsumesStarsAnd64BitArgumentsInOrder) {
    EXPECT_EQ(Estimate(u"%*s|%I64d|%s", 8, u"ab", 1ll, u"xyz"), 8u + 1u + 32u + 1u + 3u);
}

TEST(FormatTest, StrFormatReservesSixForANullText) {
    Str s;
    s.Format(u"[%s]", static_cast<const char16_t*>(nullptr));
    EXPECT_EQ(s, Str(u"[(null)]"));
    EXPECT_EQ(s.Capacity(), Str::BlockBytesFor(8));
}

TEST(FormatTest, StrFormatReplacesTheText) {
    Str s(u"old");
    s.Format(u"%s (%d)", u"Ann", 7);
    EXPECT_EQ(s, Str(u"Ann (7)"));
    s.Format(u"");
    EXPECT_EQ(s.Length(), 0);
    s.Format(u"%s", u"Ünïcødé Имя");
    EXPECT_EQ(s, Str(u"Ünïcødé Имя"));
}
