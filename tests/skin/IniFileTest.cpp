#include "skin/IniFile.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

IniFile ParseText(const char* text) {
    IniFile ini;
    ini.Parse(reinterpret_cast<const uint8_t*>(text), std::strlen(text));
    return ini;
}

std::u16string S(const Str& s) {
    return std::u16string(s.c_str());
}

TEST(IniFileTest, EmptyFileHasNoSections) {
    IniFile ini = ParseText("");
    EXPECT_EQ(ini.SectionCount(), 0);
    EXPECT_EQ(ini.FindSection(u"Dialdeck"), -1);
    EXPECT_TRUE(ini.GetValue(0, u"Key").IsEmpty());
    EXPECT_TRUE(ini.GetValue(-1, u"Key").IsEmpty());
}

TEST(IniFileTest, NullRangeHasNoSections) {
    IniFile ini;
    ini.Parse(nullptr, 10);
    EXPECT_EQ(ini.SectionCount(), 0);
}

TEST(IniFileTest, BlankLinesAndCommentsOnlyHaveNoSections) {
    IniFile ini = ParseText("\r\n\r\n; comment\n   ;indented comment\n\t \n");
    EXPECT_EQ(ini.SectionCount(), 0);
    uint32_t colour = 0x123456;
    EXPECT_FALSE(ini.GetColor(-1, u"BgrColor", colour));
    EXPECT_EQ(colour, 0x123456u);
}

TEST(IniFileTest, PairIsTrimmedAndColourReadsThreeComponents) {
    IniFile ini = ParseText("[S]\nKey = 10, 20 ,30\n");
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_EQ(S(ini.GetValue(0, u"Key")), u"10, 20 ,30");
    uint32_t colour = 0;
    ASSERT_TRUE(ini.GetColor(0, u"Key", colour));
    EXPECT_EQ(colour & 0xFF, 10u);
    EXPECT_EQ((colour >> 8) & 0xFF, 20u);
    EXPECT_EQ((colour >> 16) & 0xFF, 30u);
}

TEST(IniFileTest, MalformedPairsAreIgnored) {
    IniFile ini = ParseText("[S]\n=5\nKey=\nKey\n  = 7\nOther =  \nGood=1\n");
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_TRUE(ini.GetValue(0, u"Key").IsEmpty());
    EXPECT_TRUE(ini.GetValue(0, u"").IsEmpty());
    EXPECT_TRUE(ini.GetValue(0, nullptr).IsEmpty());
    EXPECT_TRUE(ini.GetValue(0, u"Other").IsEmpty());
    EXPECT_EQ(S(ini.GetValue(0, u"Good")), u"1");
}

TEST(IniFileTest, RepeatedSectionIsSeparateAndFindTakesTheFirst) {
    IniFile ini = ParseText("[Sect]\nKey=1\n[Other]\nKey=3\n[Sect]\nKey=2\n");
    ASSERT_EQ(ini.SectionCount(), 3);
    int first = ini.FindSection(u"Sect");
    EXPECT_EQ(first, 0);
    EXPECT_EQ(S(ini.GetValue(first, u"Key")), u"1");
    EXPECT_EQ(S(ini.GetValue(2, u"Key")), u"2");
}

TEST(IniFileTest, DuplicateKeysAreKeptAndTheFirstWins) {
    IniFile ini = ParseText("[S]\nKey=first\nKey=second\n");
    EXPECT_EQ(S(ini.GetValue(0, u"Key")), u"first");
}

TEST(IniFileTest, HeaderIsTrimmedButItsNameIsNot) {
    IniFile ini = ParseText("   [Sect]   \nA=1\n[ Sect ]\nA=2\n");
    ASSERT_EQ(ini.SectionCount(), 2);
    EXPECT_EQ(S(ini.SectionName(0)), u"Sect");
    EXPECT_EQ(S(ini.SectionName(1)), u" Sect ");
    EXPECT_EQ(ini.FindSection(u"Sect"), 0);
    EXPECT_EQ(ini.FindSection(u" Sect "), 1);
}

TEST(IniFileTest, EmptyBracketsGiveAnEmptyName) {
    IniFile ini = ParseText("[]\nA=1\n");
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_TRUE(ini.SectionName(0).IsEmpty());
    EXPECT_EQ(S(ini.GetValue(0, u"A")), u"1");
}

TEST(IniFileTest, HalfBracketedLinesAreNotHeaders) {
    IniFile ini = ParseText("[S]\n[Broken\nA=1\nBroken]\n[\n");
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_EQ(S(ini.GetValue(0, u"A")), u"1");
}

TEST(IniFileTest, SectionNamesAndKeysAreCaseSensitive) {
    IniFile ini = ParseText("[dialdeck]\nKey=1\n");
    EXPECT_EQ(ini.FindSection(u"Dialdeck"), -1);
    EXPECT_EQ(ini.FindSection(u"dialdeck"), 0);
    EXPECT_TRUE(ini.GetValue(0, u"key").IsEmpty());
}

TEST(IniFileTest, PairsBeforeTheFirstHeaderAreDropped) {
    IniFile ini = ParseText("Key=0\n[S]\nOther=1\n");
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_TRUE(ini.GetValue(0, u"Key").IsEmpty());
}

TEST(IniFileTest, CommentOnlyInTheFirstColumn) {
    IniFile ini = ParseText("[S]\nKey=1 ; note\n;Hidden=2\n");
    EXPECT_EQ(S(ini.GetValue(0, u"Key")), u"1 ; note");
    EXPECT_TRUE(ini.GetValue(0, u";Hidden").IsEmpty());
    EXPECT_TRUE(ini.GetValue(0, u"Hidden").IsEmpty());
}

TEST(IniFileTest, ValueKeepsFurtherEqualSigns) {
    IniFile ini = ParseText("[S]\nKey = a=b = c\n");
    EXPECT_EQ(S(ini.GetValue(0, u"Key")), u"a=b = c");
}

struct LineEndCase {
    const char* name;
    const char* text;
};

class IniFileLineEndTest : public ::testing::TestWithParam<LineEndCase> {};

TEST_P(IniFileLineEndTest, ParsesLikeCrLf) {
    IniFile ini = ParseText(GetParam().text);
    ASSERT_EQ(ini.SectionCount(), 2);
    EXPECT_EQ(S(ini.SectionName(0)), u"A");
    EXPECT_EQ(S(ini.GetValue(0, u"x")), u"1");
    EXPECT_EQ(S(ini.GetValue(0, u"y")), u"2");
    EXPECT_EQ(S(ini.SectionName(1)), u"B");
    EXPECT_EQ(S(ini.GetValue(1, u"z")), u"3");
}

INSTANTIATE_TEST_SUITE_P(
    LineEnds, IniFileLineEndTest,
    ::testing::Values(LineEndCase{"CrLf", "[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3\r\n"},
                      LineEndCase{"Lf", "[A]\nx=1\ny=2\n[B]\nz=3\n"},
                      LineEndCase{"Cr", "[A]\rx=1\ry=2\r[B]\rz=3\r"},
                      LineEndCase{"NoFinalEnd", "[A]\r\nx=1\r\ny=2\r\n[B]\r\nz=3"},
                      LineEndCase{"Mixed", "\n\r[A]\r\r\nx=1\n\n\ny=2\r[B]\n\rz=3"}),
    [](const ::testing::TestParamInfo<LineEndCase>& p) { return p.param.name; });

TEST(IniFileTest, HighBytesBecomeTheSameCharacterCodes) {
    IniFile ini = ParseText("[S]\nName=Caf\xE9\xFF\n");
    Str value = ini.GetValue(0, u"Name");
    ASSERT_EQ(value.Length(), 5);
    EXPECT_EQ(value[3], char16_t{0x00E9});
    EXPECT_EQ(value[4], char16_t{0x00FF});
}

TEST(IniFileTest, Utf16FileDoesNotParse) {
    const uint8_t bytes[] = {0xFF, 0xFE, '[', 0, 'S', 0, ']', 0, '\n', 0, 'A', 0, '=', 0, '1', 0};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    EXPECT_EQ(ini.FindSection(u"S"), -1);
}

TEST(IniFileTest, ZeroBytesAreCharactersToo) {
    const uint8_t bytes[] = {'[', 'S', ']', '\n', 'A', '=', '1', 0, '2'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    ASSERT_EQ(ini.SectionCount(), 1);
    // The value holds an embedded zero; as a C text it reads up to it.
    EXPECT_EQ(ini.GetValue(0, u"A")[0], u'1');
}

TEST(IniFileTest, AKeyWithAZeroInsideIsNotTheKeyBeforeIt) {
    const uint8_t bytes[] = {'[', 'S', ']', '\n', 'K', 0, 'x', '=', '1', '\n', 'K', '=', '2'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    ASSERT_EQ(ini.SectionCount(), 1);
    // The first pair's key is "K<NUL>x": a look-up of "K" passes over it to the proper "K".
    EXPECT_EQ(S(ini.GetValue(0, u"K")), u"2");
}

TEST(IniFileTest, AKeyWithAZeroInsideAloneFindsNothing) {
    const uint8_t bytes[] = {'[', 'S', ']', '\n', 'K', 0, 'x', '=', '1', '\n'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    EXPECT_TRUE(ini.GetValue(0, u"K").IsEmpty());
    Array<Str> list;
    EXPECT_EQ(ini.GetList(0, u"K", list), 0);
}

TEST(IniFileTest, AProperKeyIsFoundBesideOneWithAZero) {
    const uint8_t bytes[] = {'[', 'S', ']', '\n', 'K', '=', '3', '\n', 'K', 0, '=', '4', '\n'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    EXPECT_EQ(S(ini.GetValue(0, u"K")), u"3");
}

TEST(IniFileTest, ASectionNameWithAZeroInsideIsNotTheNameBeforeIt) {
    const uint8_t bytes[] = {'[',  'S', 0,   'x', ']',  '\n', 'A', '=', '1',
                             '\n', '[', 'S', ']', '\n', 'A',  '=', '2', '\n'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    ASSERT_EQ(ini.SectionCount(), 2);
    EXPECT_EQ(ini.SectionName(0).Length(), 3);
    EXPECT_EQ(ini.FindSection(u"S"), 1);
    EXPECT_EQ(S(ini.GetValue(ini.FindSection(u"S"), u"A")), u"2");
}

TEST(IniFileTest, ASectionNameWithAZeroInsideAloneIsNotFound) {
    const uint8_t bytes[] = {'[', 'S', 0, ']', '\n', 'A', '=', '1', '\n'};
    IniFile ini;
    ini.Parse(bytes, sizeof bytes);
    ASSERT_EQ(ini.SectionCount(), 1);
    EXPECT_EQ(ini.FindSection(u"S"), -1);
}

TEST(IniFileTest, BadSectionIndexYieldsNothing) {
    IniFile ini = ParseText("[S]\nA=1\n");
    EXPECT_TRUE(ini.GetValue(1, u"A").IsEmpty());
    EXPECT_TRUE(ini.GetValue(-1, u"A").IsEmpty());
    Array<Str> list;
    list.Add(u"stale");
    EXPECT_EQ(ini.GetList(5, u"A", list), 0);
    EXPECT_EQ(list.Size(), 0);
}

struct SplitCase {
    const char16_t* text;
    int count;
    const char16_t* joined;  // items joined with '|'
};

class IniFileSplitTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(IniFileSplitTest, SplitsTrimsAndDropsEmptyPieces) {
    Array<Str> list;
    list.Add(u"stale");
    int count = IniFile::SplitList(Str(GetParam().text), list);
    EXPECT_EQ(count, GetParam().count);
    ASSERT_EQ(list.Size(), count);
    std::u16string joined;
    for (int i = 0; i < list.Size(); ++i) {
        if (i > 0)
            joined += u'|';
        joined += list[i].c_str();
    }
    EXPECT_EQ(joined, GetParam().joined);
}

INSTANTIATE_TEST_SUITE_P(Lists, IniFileSplitTest,
                         ::testing::Values(SplitCase{u"1, ,2", 2, u"1|2"},
                                           SplitCase{u"   ", 0, u""}, SplitCase{u"", 0, u""},
                                           SplitCase{u",,,", 0, u""}, SplitCase{u"a", 1, u"a"},
                                           SplitCase{u" a b , c\t", 2, u"a b|c"},
                                           SplitCase{u"9,Arial,1,0,1", 5, u"9|Arial|1|0|1"},
                                           SplitCase{u"x,", 1, u"x"}, SplitCase{u",y", 1, u"y"}));

struct ColourCase {
    const char* line;
    bool ok;
    uint32_t colour;
};

class IniFileColourTest : public ::testing::TestWithParam<ColourCase> {};

TEST_P(IniFileColourTest, ReadsOrKeepsTheDefault) {
    std::string text = std::string("[S]\n") + GetParam().line + "\n";
    IniFile ini = ParseText(text.c_str());
    uint32_t colour = 0xABCDEF;
    EXPECT_EQ(ini.GetColor(0, u"C", colour), GetParam().ok);
    EXPECT_EQ(colour, GetParam().colour);
}

INSTANTIATE_TEST_SUITE_P(
    Colours, IniFileColourTest,
    ::testing::Values(ColourCase{"C=0,0,255", true, 0xFF0000},
                      ColourCase{"C=255,255", false, 0xABCDEF}, ColourCase{"C=300,0,0", true, 44},
                      ColourCase{"C=1,2,3,4", true, 0x030201}, ColourCase{"C=-1,0,0", true, 0xFF},
                      ColourCase{"C=0x10,12px, +7", true, 0x070C00}, ColourCase{"C=a,b,c", true, 0},
                      ColourCase{"C=1,,2,3", true, 0x030201},
                      ColourCase{"Other=1,2,3", false, 0xABCDEF}));

TEST(IniFileTest, FontSpecReadsAllFiveItems) {
    IniFile ini = ParseText("[S]\nF=9, Arial ,1,0,1\n");
    int32_t size = -1, weight = -1;
    Str face(u"keep");
    bool italic = true, quality = false;
    ASSERT_TRUE(ini.GetFontSpec(0, u"F", size, face, weight, italic, &quality));
    EXPECT_EQ(size, 9);
    EXPECT_EQ(S(face), u"Arial");
    EXPECT_EQ(weight, 1);
    EXPECT_FALSE(italic);
    EXPECT_TRUE(quality);
}

TEST(IniFileTest, FontSpecLeavesMissingItemsUntouched) {
    IniFile ini = ParseText("[S]\nF=9\n");
    int32_t size = -1, weight = 77;
    Str face(u"keep");
    bool italic = true, quality = true;
    ASSERT_TRUE(ini.GetFontSpec(0, u"F", size, face, weight, italic, &quality));
    EXPECT_EQ(size, 9);
    EXPECT_EQ(S(face), u"keep");
    EXPECT_EQ(weight, 77);
    EXPECT_TRUE(italic);
    EXPECT_TRUE(quality);
}

TEST(IniFileTest, FontSpecItemsArePositional) {
    IniFile ini = ParseText("[S]\nF=9,,2\n");
    int32_t size = 0, weight = 0;
    Str face(u"keep");
    bool italic = false;
    ASSERT_TRUE(ini.GetFontSpec(0, u"F", size, face, weight, italic, nullptr));
    EXPECT_EQ(size, 9);
    EXPECT_TRUE(face.IsEmpty());
    EXPECT_EQ(weight, 2);
}

TEST(IniFileTest, FontSpecQualityOnlyWithAPlace) {
    IniFile ini = ParseText("[S]\nF=8,Tahoma,0,1,1\n");
    int32_t size = 0, weight = 0;
    Str face;
    bool italic = false;
    ASSERT_TRUE(ini.GetFontSpec(0, u"F", size, face, weight, italic, nullptr));
    EXPECT_TRUE(italic);
}

TEST(IniFileTest, FontSpecWithNoItemsWritesNothing) {
    IniFile ini = ParseText("[S]\nF= , ,\n");
    int32_t size = 5, weight = 6;
    Str face(u"keep");
    bool italic = true, quality = true;
    EXPECT_FALSE(ini.GetFontSpec(0, u"F", size, face, weight, italic, &quality));
    EXPECT_FALSE(ini.GetFontSpec(0, u"Missing", size, face, weight, italic, &quality));
    EXPECT_EQ(size, 5);
    EXPECT_EQ(weight, 6);
    EXPECT_EQ(S(face), u"keep");
    EXPECT_TRUE(italic);
    EXPECT_TRUE(quality);
}

}  // namespace
