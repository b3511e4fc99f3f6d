#include "skin/SkinMetrics.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::u16string S(const Str& s) {
    return std::u16string(s.c_str());
}

TEST(SkinMetricsTest, FontHeightFormula) {
    EXPECT_EQ(FontHeightForPoints(96, 8), -11);
    EXPECT_EQ(FontHeightForPoints(192, 8), -21);
    EXPECT_EQ(FontHeightForPoints(96, 7), -9);
    EXPECT_EQ(FontHeightForPoints(192, 7), -19);
    EXPECT_EQ(FontHeightForPoints(96, 9), -12);
    EXPECT_EQ(FontHeightForPoints(96, 0), 0);
}

TEST(SkinMetricsTest, WeightCodes) {
    EXPECT_EQ(WeightForCode(0), 400);
    EXPECT_EQ(WeightForCode(1), 700);
    EXPECT_EQ(WeightForCode(2), 600);
    EXPECT_EQ(WeightForCode(-1), 600);
    EXPECT_EQ(WeightForCode(700), 600);
}

TEST(SkinMetricsTest, SizeOnlyGivesTahomaNormal) {
    FontChoice f = FontFromSpec(96, 9, Str(), 0, false, false);
    EXPECT_EQ(f.height, -12);
    EXPECT_EQ(f.weight, 400);
    EXPECT_FALSE(f.italic);
    EXPECT_EQ(f.quality, kQualityDefault);
    EXPECT_EQ(S(f.face), u"Tahoma");
}

TEST(SkinMetricsTest, FullSpecGivesArialBoldClearType) {
    FontChoice f = FontFromSpec(96, 9, Str(u"Arial"), 1, false, true);
    EXPECT_EQ(f.weight, 700);
    EXPECT_EQ(f.quality, kQualityClearType);
    EXPECT_EQ(S(f.face), u"Arial");
}

TEST(SkinMetricsTest, OtherWeightCodeGivesSemiBold) {
    FontChoice f = FontFromSpec(96, 9, Str(), 2, true, false);
    EXPECT_EQ(f.weight, 600);
    EXPECT_TRUE(f.italic);
    EXPECT_EQ(S(f.face), u"Tahoma");
}

TEST(SkinMetricsTest, DefaultFonts) {
    FontChoice text = DefaultFont(SkinFont::kText, 96);
    EXPECT_EQ(text.height, -11);
    EXPECT_EQ(text.weight, 700);
    EXPECT_EQ(text.quality, kQualityClearType);
    EXPECT_EQ(S(text.face), u"Tahoma");
    FontChoice small = DefaultFont(SkinFont::kSmall, 96);
    EXPECT_EQ(small.height, -9);
    EXPECT_EQ(small.weight, 400);
    EXPECT_EQ(small.quality, kQualityDefault);
    FontChoice button = DefaultFont(SkinFont::kButton, 192);
    EXPECT_EQ(button.height, -19);
    EXPECT_EQ(button.weight, 400);
    EXPECT_EQ(button.quality, kQualityNonAntialiased);
    EXPECT_FALSE(button.italic);
}

struct FitCase {
    std::vector<int32_t> extents;
    int32_t dot;
    int32_t maxWidth;
    int32_t keep;
};

class SkinMetricsFitTest : public ::testing::TestWithParam<FitCase> {};

TEST_P(SkinMetricsFitTest, KeepsOneLessThanTheLongestFittingPrefix) {
    const FitCase& c = GetParam();
    EXPECT_EQ(
        FitKeepCount(c.extents.data(), static_cast<int32_t>(c.extents.size()), c.dot, c.maxWidth),
        c.keep);
}

INSTANTIATE_TEST_SUITE_P(
    Fits, SkinMetricsFitTest,
    ::testing::Values(
        // Ten characters of 5 pixels, dots of 2: prefixes up to 8 fit in 46 with the dots.
        FitCase{{5, 10, 15, 20, 25, 30, 35, 40, 45, 50}, 2, 46, 7},
        // Exactly fitting prefix (40 + 6 = 46) counts as fitting.
        FitCase{{5, 10, 15, 20, 25, 30, 35, 40, 45, 50}, 2, 45, 6},
        // Only the first character fits with the dots: none is kept before dots.
        FitCase{{5, 10, 15}, 2, 11, 0},
        // Nothing fits at all.
        FitCase{{5, 10, 15}, 2, 3, 0},
        // No characters.
        FitCase{{}, 2, 0, 0}));

TEST(SkinMetricsTest, ShortenedTextAddsDots) {
    EXPECT_EQ(S(ShortenedText(Str(u"Alexander"), 4)), u"Alex...");
}

TEST(SkinMetricsTest, ShortenedTextWithNothingKeptIsTheFirstCharacter) {
    EXPECT_EQ(S(ShortenedText(Str(u"Alexander"), 0)), u"A");
    EXPECT_EQ(S(ShortenedText(Str(), 0)), u"");
}

}  // namespace
