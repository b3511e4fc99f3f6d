#include "phone/NumberTemplates.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "base/Registry.h"
#include "base/RegistryMemory.h"

namespace {

constexpr char16_t kTemplatesPath[] = u"Software\\Orvalis\\PIM\\Templates";

std::u16string S(const Str& s) {
    return s.c_str();
}

class NumberTemplatesTest : public testing::Test {
  protected:
    void SetUp() override { registry::memory::Reset(); }
    void TearDown() override { registry::memory::Reset(); }

    static void SetRaw(const char16_t* name, uint32_t type, const void* data, uint32_t size) {
        registry::KeyHolder key(registry::Create(kTemplatesPath));
        ASSERT_TRUE(key);
        ASSERT_TRUE(registry::Set(key.get(), name, type, data, size));
    }
    static void SetCount(uint32_t count) {
        SetRaw(u"Count", registry::kTypeDword, &count, sizeof(count));
    }
    static void SetTemplate(int i, const std::u16string& text) {
        std::u16string name = Name(i);
        SetRaw(name.c_str(), registry::kTypeString, text.c_str(),
               static_cast<uint32_t>((text.size() + 1) * 2));
    }
    static void SetList(const std::vector<std::u16string>& list) {
        SetCount(static_cast<uint32_t>(list.size()));
        for (size_t i = 0; i < list.size(); ++i)
            SetTemplate(static_cast<int>(i), list[i]);
    }
    static std::u16string Name(int i) {
        std::string narrow = std::to_string(i);
        return std::u16string(narrow.begin(), narrow.end());
    }

    // The formatted number, or "<as stored>" when Format declines.
    std::u16string Formatted(const char16_t* number) const {
        Str out;
        return templates_.Format(number, out) ? S(out) : u"<as stored>";
    }

    NumberTemplates templates_;
};

TEST_F(NumberTemplatesTest, MissingKeyGivesTheBuiltInListWithoutWritingIt) {
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 4);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##-##-##");
    EXPECT_EQ(S(templates_.TemplateAt(1)), u"###-##-##");
    EXPECT_EQ(S(templates_.TemplateAt(2)), u"# (###) ###-##-##");
    EXPECT_EQ(S(templates_.TemplateAt(3)), u"+# (###) ###-##-##");
    EXPECT_EQ(templates_.DigitSlotsAt(0), 6);
    EXPECT_EQ(templates_.DigitSlotsAt(1), 7);
    EXPECT_EQ(templates_.DigitSlotsAt(2), 11);
    EXPECT_EQ(templates_.DigitSlotsAt(3), 11);
    EXPECT_TRUE(registry::memory::Values(kTemplatesPath).empty());
    EXPECT_EQ(registry::memory::SetCount(), 0);
}

TEST_F(NumberTemplatesTest, KeyWithoutCountGivesTheBuiltInList) {
    SetTemplate(0, u"##");
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 4);
    EXPECT_EQ(registry::memory::Values(kTemplatesPath).size(), 1u);
}

struct FormatCase {
    const char16_t* number;
    const char16_t* shown;
};

class BuiltInFormatTest : public NumberTemplatesTest,
                          public testing::WithParamInterface<FormatCase> {};

TEST_P(BuiltInFormatTest, Formats) {
    templates_.Load();
    EXPECT_EQ(Formatted(GetParam().number), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BuiltInFormatTest,
    testing::Values(
        FormatCase{u"81234567890", u"8 (123) 456-78-90"},
        FormatCase{u"+71234567890", u"+7 (123) 456-78-90"}, FormatCase{u"1234567", u"123-45-67"},
        FormatCase{u"123456", u"12-34-56"}, FormatCase{u"12345678", u"<as stored>"},
        FormatCase{u"*100#", u"<as stored>"}, FormatCase{u"123,456", u"<as stored>"},
        FormatCase{u"555p1", u"<as stored>"}, FormatCase{u"123456w", u"<as stored>"},
        FormatCase{u"123456P", u"<as stored>"}, FormatCase{u"8 (912) 123-45-67", u"<as stored>"},
        FormatCase{u"", u"<as stored>"}, FormatCase{u"no digits", u"<as stored>"},
        FormatCase{u"123-45-67", u"123-45-67"}, FormatCase{u"12 34 56", u"12-34-56"},
        FormatCase{u"1234567 ext", u"123-45-67 ext"}, FormatCase{u"(1234567", u"<as stored>"},
        FormatCase{u"+1234567", u"<as stored>"}, FormatCase{u"8123456789a", u"<as stored>"}));

TEST_F(NumberTemplatesTest, NullNumberIsNotFormatted) {
    templates_.Load();
    Str out;
    EXPECT_FALSE(templates_.Format(nullptr, out));
}

TEST_F(NumberTemplatesTest, CountZeroMeansNoFormatting) {
    SetCount(0);
    SetTemplate(0, u"###-##-##");
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 0);
    EXPECT_EQ(Formatted(u"1234567"), u"<as stored>");
}

TEST_F(NumberTemplatesTest, NegativeCountOtherThanMinusOneLeavesTheListEmpty) {
    SetCount(static_cast<uint32_t>(-5));
    SetTemplate(0, u"###-##-##");
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 0);
}

TEST_F(NumberTemplatesTest, CountMinusOneStoredMeansTheBuiltInList) {
    SetCount(static_cast<uint32_t>(-1));
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 4);
}

TEST_F(NumberTemplatesTest, MissingValueIsSkipped) {
    SetCount(3);
    SetTemplate(0, u"##-##");
    SetTemplate(2, u"###-###");
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 2);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##-##");
    EXPECT_EQ(S(templates_.TemplateAt(1)), u"###-###");
}

TEST_F(NumberTemplatesTest, TemplateWithBracketsIsSkipped) {
    SetList({u"(###) [###]", u"##-##", u"{##}", u"<##>", u"##]"});
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##-##");
}

TEST_F(NumberTemplatesTest, EmptyTemplateIsSkipped) {
    SetList({u"", u"##-##"});
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
}

TEST_F(NumberTemplatesTest, FixedDigitTemplateWinsInTheFirstPass) {
    SetList({u"# ### ###-##-##", u"8 (###) ###-##-##"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"81234567890"), u"8 (123) 456-78-90");
    EXPECT_EQ(Formatted(u"71234567890"), u"7 123 456-78-90");
}

TEST_F(NumberTemplatesTest, FixedDigitTemplateBeforeTheBuiltInOnes) {
    SetList({u"8-###-###-##-##", u"##-##-##", u"###-##-##", u"# (###) ###-##-##",
             u"+# (###) ###-##-##"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"81234567890"), u"8-123-456-78-90");
    EXPECT_EQ(Formatted(u"71234567890"), u"7 (123) 456-78-90");
}

TEST_F(NumberTemplatesTest, EarlierTemplateWinsAmongEquals) {
    SetList({u"##/##", u"##-##"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"1234"), u"12/34");
}

TEST_F(NumberTemplatesTest, TemplateHeadOuterIsAddedWithASpace) {
    SetList({u"tel.# ###"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"1234"), u"tel. 1 234");
    EXPECT_EQ(Formatted(u"tel.1234"), u"tel.1 234");
    EXPECT_EQ(Formatted(u"TEL.1234"), u"TEL.1 234");
}

TEST_F(NumberTemplatesTest, TemplateTailOuterIsAddedAfterASpace) {
    SetList({u"##-## home"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"1234"), u"12-34  home");
    EXPECT_EQ(Formatted(u"1234 home"), u"12-34 home");
}

TEST_F(NumberTemplatesTest, TailInnerOfTheNumberMustBeInTheTemplate) {
    SetList({u"(##-##)"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"1234"), u"(12-34)");
    EXPECT_EQ(Formatted(u"(1234)"), u"(12-34)");
    EXPECT_EQ(Formatted(u"1234]"), u"<as stored>");
}

TEST_F(NumberTemplatesTest, FixedDigitsAreFilledFromTheNumber) {
    SetList({u"8##"});
    templates_.Load();
    EXPECT_EQ(templates_.DigitSlotsAt(0), 3);
    EXPECT_EQ(Formatted(u"812"), u"812");
    EXPECT_EQ(Formatted(u"712"), u"<as stored>");
}

TEST_F(NumberTemplatesTest, DashCollapsingCanBeTurnedOff) {
    templates_.Load();
    templates_.SetCollapseDashes(false);
    EXPECT_EQ(Formatted(u"123-45-67"), u"<as stored>");
    EXPECT_EQ(Formatted(u"1234567"), u"123-45-67");
}

TEST_F(NumberTemplatesTest, DisabledFormatsNothing) {
    templates_.Load();
    templates_.SetEnabled(false);
    EXPECT_EQ(Formatted(u"1234567"), u"<as stored>");
}

TEST_F(NumberTemplatesTest, LoadTurnsBothFlagsOnAgain) {
    templates_.SetEnabled(false);
    templates_.SetCollapseDashes(false);
    templates_.Load();
    EXPECT_TRUE(templates_.Enabled());
    EXPECT_TRUE(templates_.CollapseDashes());
}

TEST_F(NumberTemplatesTest, LoadDefaultsReplacesTheListAndKeepsTheFlags) {
    SetList({u"##"});
    templates_.Load();
    templates_.SetEnabled(false);
    templates_.LoadDefaults();
    EXPECT_EQ(templates_.Count(), 4);
    EXPECT_FALSE(templates_.Enabled());
}

TEST_F(NumberTemplatesTest, ReloadSeesChangedValues) {
    SetList({u"##/##"});
    templates_.Load();
    EXPECT_EQ(Formatted(u"1234"), u"12/34");
    SetList({u"##~##"});
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 1);
    EXPECT_EQ(Formatted(u"1234"), u"12~34");
}

TEST_F(NumberTemplatesTest, CountStoredAsTextMeansTheBuiltInList) {
    const char16_t text[] = u"2";
    SetRaw(u"Count", registry::kTypeString, text, sizeof(text));
    SetTemplate(0, u"##");
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 4);
}

TEST_F(NumberTemplatesTest, CountOfEightBytesMeansTheBuiltInList) {
    uint32_t twice[2] = {1, 0};
    SetRaw(u"Count", registry::kTypeDword, twice, sizeof(twice));
    SetTemplate(0, u"##");
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 4);
}

TEST_F(NumberTemplatesTest, CountOfMillionsLoadsWhatIsThere) {
    SetCount(5000000);
    SetTemplate(0, u"##-##");
    SetTemplate(7, u"###-###");
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 2);
    EXPECT_EQ(S(templates_.TemplateAt(1)), u"###-###");
}

TEST_F(NumberTemplatesTest, LargestCountIsBounded) {
    SetCount(0x7FFFFFFF);
    SetTemplate(NumberTemplates::kMaxStoredTemplates - 1, u"##");
    SetTemplate(NumberTemplates::kMaxStoredTemplates, u"###");
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##");
}

TEST_F(NumberTemplatesTest, TemplateOfAnotherTypeIsSkipped) {
    SetCount(2);
    uint32_t number = 0x00230023;  // "##" if it were read as text
    SetRaw(u"0", registry::kTypeDword, &number, sizeof(number));
    SetRaw(u"1", registry::kTypeBinary, u"##", 6);
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 0);
}

TEST_F(NumberTemplatesTest, UnterminatedTemplateIsReadWhole) {
    SetCount(1);
    SetRaw(u"0", registry::kTypeString, u"##-##", 10);  // no terminator
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##-##");
}

TEST_F(NumberTemplatesTest, OddSizedTemplateDropsTheHalfCharacter) {
    SetCount(1);
    SetRaw(u"0", registry::kTypeString, u"##-##", 9);
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##-#");
}

TEST_F(NumberTemplatesTest, TemplateWithEmbeddedZeroEndsThere) {
    SetCount(1);
    const char16_t text[] = u"##\0junk";
    SetRaw(u"0", registry::kTypeString, text, sizeof(text));
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 1);
    EXPECT_EQ(S(templates_.TemplateAt(0)), u"##");
}

TEST_F(NumberTemplatesTest, HugeTemplateIsKeptAndHarmless) {
    std::u16string huge(100000, u'#');
    SetList({huge, u"###-##-##"});
    templates_.Load();
    ASSERT_EQ(templates_.Count(), 2);
    EXPECT_EQ(templates_.DigitSlotsAt(0), 100000);
    EXPECT_EQ(Formatted(u"1234567"), u"123-45-67");
}

TEST_F(NumberTemplatesTest, ZeroLengthTemplateValueIsSkipped) {
    SetCount(1);
    SetRaw(u"0", registry::kTypeString, nullptr, 0);
    templates_.Load();
    EXPECT_EQ(templates_.Count(), 0);
}

}  // namespace
