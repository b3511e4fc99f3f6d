#include "service/LetterKeys.h"

#include <gtest/gtest.h>

#include "ServiceTestSupport.h"

namespace {

TEST(LetterKeysTest, LatinTableAndDigits) {
    LetterKeys keys;
    EXPECT_EQ(keys.Mask(u'a'), 1u << 2);
    EXPECT_EQ(keys.Mask(u'S'), 1u << 7);
    EXPECT_EQ(keys.Mask(u'z'), 1u << 9);
    EXPECT_EQ(keys.Mask(u'0'), 1u << 0);
    EXPECT_EQ(keys.Mask(u'1'), 1u << 1);
    EXPECT_EQ(keys.Mask(u' '), 0u);
    EXPECT_EQ(keys.Mask(u'-'), 0u);
    EXPECT_EQ(keys.Mask(u'Ж'), 0u);  // no Cyrillic without a Cyrillic layout
}

TEST(LetterKeysTest, AccentedLettersFollowTheirBaseLetter) {
    LetterKeys keys;
    struct Case {
        char16_t letter;
        int key;
    } cases[] = {{u'é', 3}, {u'Ü', 8}, {u'ß', 7}, {u'Ø', 6}, {u'Ł', 5}, {u'ř', 7}, {u'Ș', 7},
                 {u'Ç', 2}, {u'ñ', 6}, {u'Ž', 9}, {u'Đ', 3}, {u'İ', 4}, {u'ÿ', 9}, {u'Ő', 6}};
    for (const Case& c : cases)
        EXPECT_EQ(SingleKey(keys.Mask(c.letter)), c.key) << static_cast<int>(c.letter);
}

TEST(LetterKeysTest, LayoutLettersIgnoreCase) {
    LetterKeys keys(LayoutRow(2));
    EXPECT_EQ(SingleKey(keys.Mask(u'д')), 3);
    EXPECT_EQ(SingleKey(keys.Mask(u'Д')), 3);
    EXPECT_EQ(SingleKey(keys.Mask(u'Ё')), 3);  // listed in lower case only
    EXPECT_EQ(SingleKey(keys.Mask(u'Я')), 9);
    EXPECT_EQ(SingleKey(keys.Mask(u'f')), 3);  // Latin table still applies
    EXPECT_FALSE(keys.HasAmbiguity());
}

TEST(LetterKeysTest, CustomLayoutMayPutALetterOnTwoKeys) {
    LetterKeys keys(LayoutText(u"X/x Y/a"));  // "a" on key 3 here, on key 2 in the Latin table
    EXPECT_EQ(keys.Mask(u'A'), (1u << 2) | (1u << 3));
    EXPECT_EQ(SingleKey(keys.Mask(u'x')), -1);  // x: key 2 here, key 9 in the Latin table
    EXPECT_TRUE(keys.HasAmbiguity());
}

TEST(LetterKeysTest, FoldingHelpers) {
    EXPECT_EQ(FoldLower(u'Ä'), u'ä');
    EXPECT_EQ(FoldLower(u'Ё'), u'ё');
    EXPECT_EQ(FoldLower(u'Ş'), u'ş');
    EXPECT_EQ(FoldLower(u'Ÿ'), u'ÿ');
    EXPECT_EQ(BaseLetter(u'Å'), u'a');
    EXPECT_EQ(BaseLetter(u'×'), 0);
    EXPECT_EQ(BaseLetter(u'Ж'), 0);
    EXPECT_TRUE(IsCombiningMark(u'\u0301'));
}

}  // namespace
