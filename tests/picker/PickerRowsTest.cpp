#include "picker/PickerRows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Locale.h"

namespace {

std::vector<std::u16string> Texts(const Array<Str>& fields) {
    std::vector<std::u16string> out;
    for (const Str& f : fields)
        out.emplace_back(f.c_str());
    return out;
}

Array<Str> Fields(std::initializer_list<const char16_t*> texts) {
    Array<Str> fields;
    for (const char16_t* t : texts)
        fields.Add(Str(t));
    return fields;
}

std::vector<TextRun> Runs(const Array<TextRun>& runs) {
    return std::vector<TextRun>(runs.begin(), runs.end());
}

char16_t Identity(char16_t c) {
    return c;
}

TEST(PickerRowsTest, SplitFieldsCutsAtEveryPlus) {
    struct Case {
        const char16_t* text;
        std::vector<std::u16string> fields;
    };
    const Case cases[] = {
        {u"Fre", {u"Fre"}},           {u"Fre+Smi", {u"Fre", u"Smi"}}, {u"+", {u"", u""}},
        {u"a++b", {u"a", u"", u"b"}}, {u"+a+", {u"", u"a", u""}},     {u"", {u""}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Texts(SplitFields(Str(c.text))), c.fields);
}

TEST(PickerRowsTest, SecondTextTakesTheOneBasedIndexInTheUpperHalf) {
    const Array<Str> words = Fields({u"Acme", u"Globex"});
    EXPECT_EQ(SecondText(1u << 16, words), Str(u"Acme"));
    EXPECT_EQ(SecondText(2u << 16 | 0xFFFF, words), Str(u"Globex")) << "the low half is ignored";
    EXPECT_TRUE(SecondText(0, words).IsEmpty()) << "0 names no string";
    EXPECT_TRUE(SecondText(3u << 16, words).IsEmpty()) << "past the strings";
    EXPECT_TRUE(SecondText(0xFFFFu << 16, words).IsEmpty());
    EXPECT_TRUE(SecondText(1u << 16, Array<Str>()).IsEmpty());
}

TEST(PickerRowsTest, AFieldHighlightsItsFirstOccurrenceIgnoringCase) {
    EXPECT_EQ(Runs(HighlightRuns(Str(u"Smith, Fred"), Fields({u"fre"}), locale_text::ToLower)),
              (std::vector<TextRun>{{7, 3}}));
    EXPECT_EQ(Runs(HighlightRuns(Str(u"Anna Annerud"), Fields({u"ANN"}), locale_text::ToLower)),
              (std::vector<TextRun>{{0, 3}}))
        << "only the first occurrence";
    EXPECT_EQ(
        Runs(HighlightRuns(Str(u"Петров, Иван"), Fields({u"ива", u"ПЕТ"}), locale_text::ToLower)),
        (std::vector<TextRun>{{0, 3}, {8, 3}}))
        << "Cyrillic, runs sorted";
}

TEST(PickerRowsTest, CaseMattersWhenTheLoweringKeepsIt) {
    EXPECT_TRUE(HighlightRuns(Str(u"Smith, Fred"), Fields({u"fre"}), Identity).IsEmpty());
}

TEST(PickerRowsTest, OverlappingAndTouchingRunsMerge) {
    EXPECT_EQ(Runs(HighlightRuns(Str(u"abcdefgh"), Fields({u"cde", u"bcd"}), Identity)),
              (std::vector<TextRun>{{1, 4}}));
    EXPECT_EQ(Runs(HighlightRuns(Str(u"abcdefgh"), Fields({u"ab", u"cd", u"gh"}), Identity)),
              (std::vector<TextRun>{{0, 4}, {6, 2}}));
    EXPECT_EQ(Runs(HighlightRuns(Str(u"abcdefgh"), Fields({u"bcdef", u"cd"}), Identity)),
              (std::vector<TextRun>{{1, 5}}))
        << "a run inside another";
}

TEST(PickerRowsTest, EmptyMissingAndTooLongFieldsHighlightNothing) {
    EXPECT_TRUE(HighlightRuns(Str(u"Fred"), Fields({u"", u""}), Identity).IsEmpty());
    EXPECT_TRUE(HighlightRuns(Str(u"Fred"), Fields({u"xyz"}), Identity).IsEmpty());
    EXPECT_TRUE(HighlightRuns(Str(u"Fred"), Fields({u"Freddie"}), Identity).IsEmpty());
    EXPECT_TRUE(HighlightRuns(Str(), Fields({u"a"}), Identity).IsEmpty());
    EXPECT_TRUE(HighlightRuns(Str(u"Fred"), Array<Str>(), Identity).IsEmpty());
    EXPECT_EQ(Runs(HighlightRuns(Str(u"Fred"), Fields({u"Fred"}), nullptr)),
              (std::vector<TextRun>{{0, 4}}))
        << "without a lowering function the texts are compared as they stand";
}

}  // namespace
