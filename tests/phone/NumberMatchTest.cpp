#include "phone/NumberMatch.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string S(const Str& s) {
    return s.c_str();
}

TEST(NumberMatchTest, CountInSetCountsDigitsOfAFormattedNumber) {
    EXPECT_EQ(CountInSet(u"+7 (912)", kDigits), 4);
}

TEST(NumberMatchTest, CountInSetTreatsTheSetAsASet) {
    EXPECT_EQ(CountInSet(u"a1b22", u"2211"), 3);
    EXPECT_EQ(CountInSet(u"", kDigits), 0);
    EXPECT_EQ(CountInSet(u"123", u""), 0);
}

TEST(NumberMatchTest, NullTextOrSetGivesTheEmptyResult) {
    char16_t out[8] = {u'x', 0};
    EXPECT_EQ(CountInSet(nullptr, kDigits), 0);
    EXPECT_EQ(CountInSet(u"123", nullptr), 0);
    EXPECT_EQ(FindLastInSet(nullptr, kDigits), -1);
    EXPECT_EQ(FindLastInSet(u"123", nullptr), -1);
    EXPECT_EQ(FindInSetFrom(0, nullptr, kDigits), -1);
    EXPECT_EQ(FindInSetFrom(0, u"123", nullptr), -1);
    EXPECT_FALSE(StripSet(nullptr, out, kDigits, 8));
    EXPECT_FALSE(StripSet(u"12", out, nullptr, 8));
    EXPECT_FALSE(KeepSet(nullptr, out, kDigits, 8));
    EXPECT_FALSE(KeepSet(u"12", out, nullptr, 8));
    EXPECT_FALSE(FitsTemplate(nullptr, u"1"));
    EXPECT_FALSE(FitsTemplate(u"#", nullptr));
    DigitRun run = SplitDigitRun(nullptr, kDigits);
    EXPECT_TRUE(run.head.IsEmpty() && run.body.IsEmpty() && run.tail.IsEmpty());
    HeadParts head = SplitHead(nullptr);
    EXPECT_TRUE(head.outer.IsEmpty() && head.inner.IsEmpty());
    TailParts tail = SplitTail(nullptr);
    EXPECT_TRUE(tail.outer.IsEmpty() && tail.inner.IsEmpty());
}

TEST(NumberMatchTest, FindLastInSet) {
    EXPECT_EQ(FindLastInSet(u"+7 (912) x", kDigits), 6);
    EXPECT_EQ(FindLastInSet(u"abc", kDigits), -1);
    EXPECT_EQ(FindLastInSet(u"", kDigits), -1);
}

TEST(NumberMatchTest, FindInSetFrom) {
    EXPECT_EQ(FindInSetFrom(0, u"ab1c2", kDigits), 2);
    EXPECT_EQ(FindInSetFrom(2, u"ab1c2", kDigits), 2);
    EXPECT_EQ(FindInSetFrom(3, u"ab1c2", kDigits), 4);
    EXPECT_EQ(FindInSetFrom(0, u"abc", kDigits), -1);
}

TEST(NumberMatchTest, FindInSetFromOutsideTheTextIsMinusOne) {
    EXPECT_EQ(FindInSetFrom(-1, u"123", kDigits), -1);
    EXPECT_EQ(FindInSetFrom(3, u"123", kDigits), -1);
    EXPECT_EQ(FindInSetFrom(100, u"123", kDigits), -1);
    EXPECT_EQ(FindInSetFrom(0, u"", kDigits), -1);
}

TEST(NumberMatchTest, StripSetRemovesTheSet) {
    char16_t out[260];
    EXPECT_TRUE(StripSet(u"8-912-123 45", out, u"- ", 260));
    EXPECT_EQ(std::u16string(out), u"891212345");
}

TEST(NumberMatchTest, KeepSetKeepsTheSet) {
    char16_t out[260];
    EXPECT_TRUE(KeepSet(u"+7 (912) 123", out, kSmsNumberChars, 260));
    EXPECT_EQ(std::u16string(out), u"+7912123");
}

TEST(NumberMatchTest, StripSetAndKeepSetDifferOnEmptyText) {
    char16_t out[4] = {u'x', u'y', 0};
    EXPECT_FALSE(StripSet(u"", out, kDigits, 4));
    EXPECT_EQ(out[0], 0);
    out[0] = u'x';
    EXPECT_TRUE(KeepSet(u"", out, kDigits, 4));
    EXPECT_EQ(out[0], 0);
}

TEST(NumberMatchTest, StripSetRemovingEverythingSucceedsWithEmptyResult) {
    char16_t out[4] = {u'x', 0};
    EXPECT_TRUE(StripSet(u"123", out, kDigits, 4));
    EXPECT_EQ(out[0], 0);
}

TEST(NumberMatchTest, StripSetOfThreeHundredCharactersWithCapacity260Fails) {
    std::u16string text(300, u'a');
    char16_t out[260];
    out[0] = u'x';
    EXPECT_FALSE(StripSet(text.c_str(), out, kDigits, 260));
    EXPECT_EQ(out[0], 0);
}

TEST(NumberMatchTest, CapacityKeepsAtMostCapacityMinusOneCharacters) {
    char16_t out[4];
    EXPECT_TRUE(KeepSet(u"a123", out, kDigits, 4));
    EXPECT_EQ(std::u16string(out), u"123");
    EXPECT_FALSE(KeepSet(u"1234", out, kDigits, 4));
    EXPECT_EQ(out[0], 0);
    EXPECT_TRUE(StripSet(u"ab-c", out, u"-", 4));
    EXPECT_EQ(std::u16string(out), u"abc");
    EXPECT_FALSE(StripSet(u"abcd", out, u"-", 4));
    EXPECT_EQ(out[0], 0);
}

TEST(NumberMatchTest, CapacityOneHoldsOnlyTheTerminator) {
    char16_t out[1] = {u'x'};
    EXPECT_TRUE(KeepSet(u"abc", out, kDigits, 1));
    EXPECT_EQ(out[0], 0);
    EXPECT_FALSE(KeepSet(u"1", out, kDigits, 1));
    EXPECT_EQ(out[0], 0);
}

TEST(NumberMatchTest, NonPositiveCapacityFailsWithoutWriting) {
    char16_t out[2] = {u'x', 0};
    EXPECT_FALSE(KeepSet(u"1", out, kDigits, 0));
    EXPECT_FALSE(StripSet(u"1", out, kDigits, -5));
    EXPECT_EQ(out[0], u'x');
}

TEST(NumberMatchTest, WithoutSetAndOnlySetHaveNoLengthLimit) {
    std::u16string text(1000, u'7');
    text += u"-x";
    EXPECT_EQ(WithoutSet(text.c_str(), u"-x").Length(), 1000);
    EXPECT_EQ(OnlySet(text.c_str(), u"x").Length(), 1);
    EXPECT_TRUE(WithoutSet(u"", u"-").IsEmpty());
}

TEST(NumberMatchTest, EqualIgnoringCase) {
    EXPECT_TRUE(EqualIgnoringCase(u"Ext", u"eXT"));
    EXPECT_FALSE(EqualIgnoringCase(u"ext", u"ex"));
    EXPECT_TRUE(EqualIgnoringCase(nullptr, u""));
}

struct FitsCase {
    const char16_t* templateBody;
    const char16_t* numberBody;
    bool fits;
};

class FitsTemplateTest : public testing::TestWithParam<FitsCase> {};

TEST_P(FitsTemplateTest, Decides) {
    const FitsCase& c = GetParam();
    EXPECT_EQ(FitsTemplate(c.templateBody, c.numberBody), c.fits)
        << "template body " << testing::PrintToString(std::u16string(c.templateBody)) << " number "
        << testing::PrintToString(std::u16string(c.numberBody));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FitsTemplateTest,
    testing::Values(
        FitsCase{u"# (###) ###-##-##", u"89121234567", true},
        FitsCase{u"# (###) ###-##-##", u"8912123456", false},       // 10 digits for 11 places
        FitsCase{u"# (###) ###-##-##", u"8-912-123-45-67", false},  // separators in the number
        FitsCase{u"8 (###) ###-##-##", u"79121234567", false},      // fixed 8
        FitsCase{u"8 (###) ###-##-##", u"89121234567", true},
        FitsCase{u"# ext ###", u"1ext234", true},  // leftovers "ext" both
        FitsCase{u"# ext ###", u"1EXT234", true},  // ignoring case
        FitsCase{u"# ext ###", u"1x234", false},
        FitsCase{u"+# ###", u"7123", false},  // "+" must match exactly
        FitsCase{u"+# ###", u"+7123", true},  // leftovers "+" and "+"
        FitsCase{u"#+###", u"7+123", true},
        FitsCase{u"###", u"12 3", false},  // a space is a separator
        FitsCase{u"###", u"12_3", false}, FitsCase{u"###", u"1234", false},
        FitsCase{u"####", u"123", false}, FitsCase{u"", u"123", false},
        FitsCase{u"###", u"", false},
        FitsCase{u"abc", u"abc", true},  // no places on either side, equal leftovers
        FitsCase{u"##", u"1a2", false}));

TEST(NumberMatchTest, SplitDigitRunAroundFirstAndLastPlace) {
    DigitRun run = SplitDigitRun(u"tel. +(912) 123-45 ext", kDigits);
    EXPECT_EQ(S(run.head), u"tel. +(");
    EXPECT_EQ(S(run.body), u"912) 123-45");
    EXPECT_EQ(S(run.tail), u" ext");
}

TEST(NumberMatchTest, SplitDigitRunOfATemplateUsesHashPlaces) {
    DigitRun run = SplitDigitRun(u"+# (###) ###-##-##", kDigitPlaces);
    EXPECT_EQ(S(run.head), u"+");
    EXPECT_EQ(S(run.body), u"# (###) ###-##-##");
    EXPECT_TRUE(run.tail.IsEmpty());
}

TEST(NumberMatchTest, SplitDigitRunWithoutPlacesIsAllBody) {
    DigitRun run = SplitDigitRun(u"abc", kDigits);
    EXPECT_TRUE(run.head.IsEmpty());
    EXPECT_EQ(S(run.body), u"abc");
    EXPECT_TRUE(run.tail.IsEmpty());
    run = SplitDigitRun(u"", kDigits);
    EXPECT_TRUE(run.head.IsEmpty() && run.body.IsEmpty() && run.tail.IsEmpty());
}

TEST(NumberMatchTest, SplitDigitRunOfOneDigit) {
    DigitRun run = SplitDigitRun(u"a5b", kDigits);
    EXPECT_EQ(S(run.head), u"a");
    EXPECT_EQ(S(run.body), u"5");
    EXPECT_EQ(S(run.tail), u"b");
}

struct HeadCase {
    const char16_t* head;
    const char16_t* outer;
    const char16_t* inner;
};

class SplitHeadTest : public testing::TestWithParam<HeadCase> {};

TEST_P(SplitHeadTest, Splits) {
    const HeadCase& c = GetParam();
    HeadParts parts = SplitHead(c.head);
    EXPECT_EQ(S(parts.outer), c.outer);
    EXPECT_EQ(S(parts.inner), c.inner);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SplitHeadTest,
    testing::Values(HeadCase{u"+(", u"", u"+("}, HeadCase{u"tel. +(", u"tel. ", u"+("},
                    HeadCase{u"tel.", u"tel.", u""}, HeadCase{u"", u"", u""},
                    HeadCase{u"+", u"", u"+"}, HeadCase{u"x-", u"x", u"-"},
                    HeadCase{u"x[(-", u"x", u"[(-"}, HeadCase{u"a+b(", u"a+b", u"("},
                    HeadCase{u"tel ", u"tel ", u""}, HeadCase{u"((((", u"", u"(((("}));

struct TailCase {
    const char16_t* tail;
    const char16_t* inner;
    const char16_t* outer;
};

class SplitTailTest : public testing::TestWithParam<TailCase> {};

TEST_P(SplitTailTest, Splits) {
    const TailCase& c = GetParam();
    TailParts parts = SplitTail(c.tail);
    EXPECT_EQ(S(parts.inner), c.inner);
    EXPECT_EQ(S(parts.outer), c.outer);
}

INSTANTIATE_TEST_SUITE_P(Cases, SplitTailTest,
                         testing::Values(TailCase{u" )x", u"", u" )x"}, TailCase{u")x", u")", u"x"},
                                         TailCase{u")]} ext", u")]}", u" ext"},
                                         TailCase{u")", u")", u""}, TailCase{u"", u"", u""},
                                         TailCase{u"x)", u"", u"x)"}));

}  // namespace
