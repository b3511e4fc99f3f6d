#include "keypad/KeypadLayout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/LocaleMemory.h"
#include "base/Registry.h"
#include "base/RegistryMemory.h"
#include "base/SettingsStore.h"

namespace {

const std::u16string kAbcPath = std::u16string(settings::kRoot) + settings::kKeypadKey;

std::vector<std::u16string> Texts(const Array<Str>& array) {
    std::vector<std::u16string> out;
    for (const Str& s : array)
        out.emplace_back(s.c_str());
    return out;
}

void SetType(uint32_t type) {
    registry::KeyHolder key(registry::Create(kAbcPath.c_str()));
    ASSERT_TRUE(registry::Set(key.get(), kKeypadTypeValue, registry::kTypeDword, &type, 4));
}

void SetCustom(const std::u16string& text, uint32_t type = registry::kTypeBinary) {
    registry::KeyHolder key(registry::Create(kAbcPath.c_str()));
    ASSERT_TRUE(registry::Set(key.get(), kKeypadCustomValue, type, text.data(),
                              static_cast<uint32_t>(text.size() * 2)));
}

KeypadLayout Parsed(const std::u16string& text) {
    KeypadLayout layout;
    layout.Parse(text.data(), static_cast<int>(text.size()));
    return layout;
}

class KeypadLayoutTest : public ::testing::Test {
  protected:
    void SetUp() override {
        registry::memory::Reset();
        locale_text::SetUserLanguageId(0x0409);
    }
    void TearDown() override { locale_text::SetUserLanguageId(0x0409); }
};

struct LanguageCase {
    uint16_t language;
    int expectedId;
};

class ChooseIdByLanguage : public KeypadLayoutTest,
                           public ::testing::WithParamInterface<LanguageCase> {};

TEST_P(ChooseIdByLanguage, PicksFirstRowOfPrimaryLanguage) {
    locale_text::SetUserLanguageId(GetParam().language);
    EXPECT_EQ(KeypadLayout::ChooseId(), GetParam().expectedId);
}

INSTANTIATE_TEST_SUITE_P(Languages, ChooseIdByLanguage,
                         ::testing::Values(LanguageCase{0x0419, 2},   // Cyrillic only, not row 3
                                           LanguageCase{0x0816, 12},  // low byte compared
                                           LanguageCase{0x0411, 1},   // no row: English
                                           LanguageCase{0x0409, 1}, LanguageCase{0x0407, 4},
                                           LanguageCase{0x0406, 5}, LanguageCase{0x0413, 6},
                                           LanguageCase{0x0C0A, 7}, LanguageCase{0x040C, 8},
                                           LanguageCase{0x040F, 9}, LanguageCase{0x0410, 10},
                                           LanguageCase{0x0414, 11}, LanguageCase{0x0418, 13},
                                           LanguageCase{0x041D, 14}, LanguageCase{0x0415, 15},
                                           LanguageCase{0x040B, 16}));

TEST_F(KeypadLayoutTest, TypeWithinRangeIsTheAnswer) {
    locale_text::SetUserLanguageId(0x0419);
    for (uint32_t type : {0u, 1u, 3u, 17u}) {
        SetType(type);
        EXPECT_EQ(KeypadLayout::ChooseId(), static_cast<int>(type));
    }
}

TEST_F(KeypadLayoutTest, TypeEighteenBehavesLikeMissingType) {
    locale_text::SetUserLanguageId(0x0407);
    int missing = KeypadLayout::ChooseId();
    SetType(18);
    EXPECT_EQ(KeypadLayout::ChooseId(), missing);
    EXPECT_EQ(missing, 4);
}

TEST_F(KeypadLayoutTest, NegativeTypeFollowsLanguage) {
    locale_text::SetUserLanguageId(0x0419);
    SetType(0xFFFFFFFE);
    EXPECT_EQ(KeypadLayout::ChooseId(), 2);
}

TEST_F(KeypadLayoutTest, CustomGivesTwoKeysWithSecondLine) {
    SetCustom(u"AB/ab CD^X/cdx");
    KeypadLayout layout;
    EXPECT_TRUE(layout.Load(0));
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"AB", u"CD"}));
    EXPECT_EQ(Texts(layout.subLabels), (std::vector<std::u16string>{u"", u"X"}));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"ab", u"cdx"}));
    EXPECT_TRUE(layout.hasSubLabels);
}

TEST_F(KeypadLayoutTest, KeyWithEmptyLabelIsDroppedAndNextMovesUp) {
    KeypadLayout layout = Parsed(u"/abc DEF/def");
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"DEF"}));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"def"}));
}

TEST_F(KeypadLayoutTest, KeyWithoutLettersIsDroppedAndNextMovesUp) {
    KeypadLayout layout = Parsed(u"ABC/ DEF/def");
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"DEF"}));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"def"}));
    EXPECT_FALSE(layout.hasSubLabels);
}

TEST_F(KeypadLayoutTest, LettersLoseDashAndDot) {
    KeypadLayout layout = Parsed(u"MNO/m.n-o");
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"mno"}));
}

TEST_F(KeypadLayoutTest, EverySkippedCharacterIsDroppedFromLetters) {
    std::u16string skipped = u"\r\n\t`\"!@#$%^&*()_|{}:/<>?[];',.№-=\\";
    KeypadLayout layout = Parsed(u"K/a" + skipped + u"b");
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"ab"}));
}

TEST_F(KeypadLayoutTest, LabelSkipsSpacesKeepsPunctuationAndBackslashStartsLetters) {
    KeypadLayout layout = Parsed(u"A B.\\xy");
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"AB."}));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"xy"}));
}

TEST_F(KeypadLayoutTest, SecondLineIsTextAfterFirstCaret) {
    KeypadLayout layout = Parsed(u"A^B^C/abc D^/def");
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"A", u"D"}));
    EXPECT_EQ(Texts(layout.subLabels), (std::vector<std::u16string>{u"B^C", u""}));
    EXPECT_TRUE(layout.hasSubLabels);
}

TEST_F(KeypadLayoutTest, EmptyOrKeylessTextGivesEmptyLayout) {
    EXPECT_EQ(Parsed(u"").labels.Size(), 0);
    EXPECT_EQ(Parsed(u"ABC DEF").labels.Size(), 0);
    KeypadLayout layout;
    layout.Parse(nullptr, 5);
    EXPECT_EQ(layout.labels.Size(), 0);
}

TEST_F(KeypadLayoutTest, ParseHonoursLength) {
    KeypadLayout layout = Parsed(std::u16string(u"AB/ab CD/cd").substr(0, 10));
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"AB", u"CD"}));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"ab", u"c"}));
    layout = Parsed(std::u16string(u"AB/ab CD/cd").substr(0, 8));
    EXPECT_EQ(Texts(layout.labels), (std::vector<std::u16string>{u"AB"}));
}

TEST_F(KeypadLayoutTest, MissingCustomGivesEmptyLayout) {
    KeypadLayout layout;
    EXPECT_FALSE(layout.Load(0));
    EXPECT_EQ(layout.labels.Size(), 0);
}

TEST_F(KeypadLayoutTest, NonBinaryCustomGivesEmptyLayout) {
    SetCustom(u"AB/ab", registry::kTypeString);
    KeypadLayout layout;
    EXPECT_FALSE(layout.Load(0));
    EXPECT_EQ(layout.labels.Size(), 0);
}

TEST_F(KeypadLayoutTest, CustomOfOddByteSizeReadsWholeCharacters) {
    registry::KeyHolder key(registry::Create(kAbcPath.c_str()));
    const char16_t text[] = u"AB/abc";
    ASSERT_TRUE(registry::Set(key.get(), kKeypadCustomValue, registry::kTypeBinary, text, 11));
    KeypadLayout layout;
    EXPECT_TRUE(layout.Load(0));
    EXPECT_EQ(Texts(layout.letters), (std::vector<std::u16string>{u"ab"}));
}

TEST_F(KeypadLayoutTest, IdsOutsideTableGiveEmptyLayoutAndClearPrevious) {
    KeypadLayout layout;
    ASSERT_TRUE(layout.Load(3));
    EXPECT_FALSE(layout.Load(18));
    EXPECT_EQ(layout.labels.Size(), 0);
    EXPECT_EQ(layout.subLabels.Size(), 0);
    EXPECT_EQ(layout.letters.Size(), 0);
    EXPECT_FALSE(layout.hasSubLabels);
    EXPECT_FALSE(layout.Load(-1));
}

TEST_F(KeypadLayoutTest, EnglishRow) {
    KeypadLayout layout;
    ASSERT_TRUE(layout.Load(1));
    EXPECT_EQ(Texts(layout.labels),
              (std::vector<std::u16string>{u"ABC", u"DEF", u"GHI", u"JKL", u"MNO", u"PQRS", u"TUV",
                                           u"WXYZ"}));
    EXPECT_EQ(Texts(layout.letters), Texts(layout.labels));
    EXPECT_FALSE(layout.hasSubLabels);
}

TEST_F(KeypadLayoutTest, ItalianRowDiffersFromEnglishOnlyInCase) {
    KeypadLayout english, italian;
    ASSERT_TRUE(english.Load(1));
    ASSERT_TRUE(italian.Load(10));
    EXPECT_EQ(Texts(english.labels), Texts(italian.labels));
    EXPECT_EQ(Texts(italian.letters)[7], u"wxyz");
}

TEST_F(KeypadLayoutTest, RussianRowsKeepSecondAlphabetOnlyInRowThree) {
    KeypadLayout cyrillic, both;
    ASSERT_TRUE(cyrillic.Load(2));
    ASSERT_TRUE(both.Load(3));
    EXPECT_FALSE(cyrillic.hasSubLabels);
    EXPECT_TRUE(both.hasSubLabels);
    EXPECT_EQ(Texts(cyrillic.letters)[1], u"деёжз");
    EXPECT_EQ(Texts(both.labels)[5], u"ФХЦЧ");
    EXPECT_EQ(Texts(both.subLabels)[5], u"PQRS");
    EXPECT_EQ(Texts(both.letters)[7], u"ьэюяwxyz");
}

TEST_F(KeypadLayoutTest, IrregularRowsKeptAsTheyAre) {
    KeypadLayout german, spanish, icelandic, polish, french, generic;
    ASSERT_TRUE(german.Load(4));
    EXPECT_FALSE(german.hasSubLabels);  // umlauts on the first line
    EXPECT_EQ(Texts(german.labels)[5], u"PQRSß");
    ASSERT_TRUE(spanish.Load(7));
    EXPECT_EQ(Texts(spanish.subLabels),
              (std::vector<std::u16string>{u"", u"", u"", u"", u"Ñ", u"", u"", u""}));
    EXPECT_EQ(Texts(spanish.letters)[0], u"áabc");
    ASSERT_TRUE(icelandic.Load(9));
    EXPECT_EQ(Texts(icelandic.labels)[7], u"WXYZÞ");
    EXPECT_EQ(Texts(icelandic.letters)[7], u"wxyz");
    ASSERT_TRUE(polish.Load(15));
    EXPECT_EQ(Texts(polish.letters)[7], u"WXYZŹŻwxyzź");
    ASSERT_TRUE(french.Load(8));
    EXPECT_EQ(Texts(french.letters)[7], u"wxyzŸ");
    ASSERT_TRUE(generic.Load(17));
    EXPECT_EQ(Texts(generic.letters)[2], u"GHĞĢĜĠĢĤĦIĨĪĬĮİ");
}

TEST_F(KeypadLayoutTest, EveryRowHasEightKeys) {
    ASSERT_EQ(kKeypadRowCount, 17);
    for (int id = 1; id <= 17; ++id) {
        KeypadLayout layout;
        ASSERT_TRUE(layout.Load(id)) << id;
        EXPECT_EQ(layout.labels.Size(), 8) << id;
        EXPECT_EQ(layout.subLabels.Size(), 8) << id;
        EXPECT_EQ(layout.letters.Size(), 8) << id;
        EXPECT_EQ(kKeypadRows[id - 1].id, id);
    }
}

TEST_F(KeypadLayoutTest, RowSeventeenOnlyThroughType) {
    SetType(17);
    EXPECT_EQ(KeypadLayout::ChooseId(), 17);
}

}  // namespace
