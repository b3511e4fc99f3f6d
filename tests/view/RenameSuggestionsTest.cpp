#include "view/RenameSuggestions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/DialEntry.h"

namespace {

DialEntry Named(const char16_t* first, const char16_t* last, const char16_t* middle = u"",
                const char16_t* company = u"") {
    DialEntry entry;
    entry.first = first;
    entry.last = last;
    entry.middle = middle;
    entry.company = company;
    return entry;
}

std::vector<std::u16string> Rows(const DialEntry& entry) {
    const Array<Str> list = RenameSuggestions(entry);
    std::vector<std::u16string> rows;
    for (int i = 0; i < list.Size(); ++i)
        rows.emplace_back(list[i].c_str());
    return rows;
}

TEST(RenameSuggestionsTest, FirstLastAndCompanyGiveEveryFormInOrder) {
    const std::vector<std::u16string> expected{
        u"Anna Lindqvist",  u"Lindqvist Anna", u"Lindqvist, Anna",       u"Anna",
        u"Lindqvist",       u"Acme",           u"Anna Lindqvist (Acme)", u"Anna (Acme)",
        u"Lindqvist (Acme)"};
    EXPECT_EQ(Rows(Named(u"Anna", u"Lindqvist", u"", u"Acme")), expected);
}

TEST(RenameSuggestionsTest, AMiddleNameAddsTheFullNameAndJoinsTheComposedOne) {
    const std::vector<std::u16string> expected{u"Anna Lindqvist", u"Anna Maria Lindqvist",
                                               u"Lindqvist Anna", u"Lindqvist, Anna Maria",
                                               u"Anna",           u"Lindqvist"};
    EXPECT_EQ(Rows(Named(u"Anna", u"Lindqvist", u"Maria")), expected);
}

TEST(RenameSuggestionsTest, NoNamesAndNoCompanyGiveNoRows) {
    EXPECT_TRUE(Rows(Named(u"", u"")).empty());
    EXPECT_TRUE(Rows(DialEntry{}).empty());
}

TEST(RenameSuggestionsTest, RepeatsAndEmptyFormsAreLeftOut) {
    EXPECT_EQ(Rows(Named(u"Bob", u"")), (std::vector<std::u16string>{u"Bob"}));
    EXPECT_EQ(Rows(Named(u"", u"Okafor")), (std::vector<std::u16string>{u"Okafor"}));
    EXPECT_EQ(Rows(Named(u"", u"", u"", u"Pizza Roma")),
              (std::vector<std::u16string>{u"Pizza Roma"}));
    EXPECT_EQ(Rows(Named(u"Bob", u"", u"", u"Acme")),
              (std::vector<std::u16string>{u"Bob", u"Acme", u"Bob (Acme)"}));
    // First and last the same: "Lee Lee" once, then the composed "Lee, Lee", then "Lee" once.
    EXPECT_EQ(Rows(Named(u"Lee", u"Lee")),
              (std::vector<std::u16string>{u"Lee Lee", u"Lee, Lee", u"Lee"}));
}

TEST(RenameSuggestionsTest, RowsDifferingOnlyInCaseAreBothKept) {
    EXPECT_EQ(Rows(Named(u"ann", u"", u"", u"Ann")),
              (std::vector<std::u16string>{u"ann", u"Ann", u"ann (Ann)"}));
}

TEST(RenameSuggestionsTest, OnlyAMiddleNameStillOffersIt) {
    EXPECT_EQ(Rows(Named(u"", u"", u"Jo", u"Acme")), (std::vector<std::u16string>{u"Jo", u"Acme"}));
}

TEST(RenameSuggestionsTest, LayoutSpansTheWidthWithMarginsAt96AndAt192) {
    RenameLayout small = LayOutRename(Rect{0, 0, 240, 268}, 96, 13);
    EXPECT_EQ(small.edit, (Rect{6, 13, 234, 33}));
    EXPECT_EQ(small.list, (Rect{6, 39, 234, 262}));
    RenameLayout large = LayOutRename(Rect{0, 0, 480, 536}, 192, 26);
    EXPECT_EQ(large.edit, (Rect{12, 26, 468, 66}));
    EXPECT_EQ(large.list, (Rect{12, 78, 468, 524}));
}

TEST(RenameSuggestionsTest, LayoutGrowsTheEditForATallFontAndNeverInvertsTheList) {
    RenameLayout tall = LayOutRename(Rect{0, 0, 240, 268}, 96, 30);
    EXPECT_EQ(tall.edit, (Rect{6, 13, 234, 49}));
    EXPECT_EQ(tall.list.top, 55);
    RenameLayout cramped = LayOutRename(Rect{0, 0, 10, 40}, 96, 13);
    EXPECT_LE(cramped.edit.left, cramped.edit.right);
    EXPECT_LE(cramped.list.top, cramped.list.bottom);
}

}  // namespace
