#include "service/NameMatch.h"

#include <gtest/gtest.h>

#include "ReplyReading.h"
#include "ServiceTestSupport.h"
#include "service/LinearMatcher.h"

namespace {

struct Found {
    uint32_t oid;
    int rank;
    std::u16string text;
    bool operator==(const Found& o) const {
        return oid == o.oid && rank == o.rank && text == o.text;
    }
};

void PrintTo(const Found& f, std::ostream* os) {
    *os << "{" << f.oid << ", rank " << f.rank << ", " << std::string(f.text.begin(), f.text.end())
        << "}";
}

/// Every result of a search: object id, rank (by the linear matcher) and the reply's text.
std::vector<Found> Find(std::vector<ServiceContact> contacts, const char* digits,
                        int layoutRow = 1) {
    SearchService service;
    service.SetLayout(LayoutRow(layoutRow));
    service.SetContacts(contacts);
    std::u16string text(digits, digits + std::strlen(digits));
    TextReply reply = SearchText(service, text);
    SearchHits oracle = LinearSearch(service.Table(), service.Keys(), Query(digits));
    std::vector<Found> out;
    EXPECT_EQ(reply.oids.size(), oracle.size());
    EXPECT_EQ(reply.texts.size(), reply.oids.size());
    for (size_t i = 0; i < reply.oids.size() && i < oracle.size(); ++i) {
        EXPECT_EQ(service.Table().At(static_cast<int>(oracle[i].position)).oid, reply.oids[i]);
        out.push_back({reply.oids[i], oracle[i].rank, reply.texts[i]});
    }
    return out;
}

using V = std::vector<Found>;

// Spelling the start of a word, key by key.
TEST(NameMatchTest, WordPrefixLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Fred", u"Smith"), MakeContact(2, u"Anna", u"Brown")}, "3733"),
              (V{{1, 0, u"Fred"}}));
}
TEST(NameMatchTest, WordPrefixAccentedLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Zoë", u"Müller"), MakeContact(2, u"Anna", u"Brown")}, "685"),
              (V{{1, 0, u"Mül"}}));
}
TEST(NameMatchTest, WordPrefixCyrillic) {
    EXPECT_EQ(
        Find({MakeContact(1, u"Иван", u"Петров"), MakeContact(2, u"Анна", u"Лебедева")}, "536", 2),
        (V{{1, 0, u"Пет"}}));
}

// Continuing through the following words.
TEST(NameMatchTest, ContinuationLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Fred", u"Smith"), MakeContact(2, u"Fred", u"Jones")}, "37337"),
              (V{{1, 0, u"Fred+S"}}));
}
TEST(NameMatchTest, ContinuationAccentedLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"José", u"Gómez"), MakeContact(2, u"José", u"Ruiz")}, "56734"),
              (V{{1, 0, u"José+G"}}));
}
TEST(NameMatchTest, ContinuationCyrillic) {
    EXPECT_EQ(
        Find({MakeContact(1, u"Иван", u"Петров"), MakeContact(2, u"Иван", u"Сидоров")}, "42255", 2),
        (V{{1, 0, u"Иван+П"}}));
}
TEST(NameMatchTest, ContinuationAcrossPunctuationWithinAName) {
    EXPECT_EQ(Find({MakeContact(1, u"", u"O'Brien")}, "627"), (V{{1, 0, u"O+Br"}}));
}
TEST(NameMatchTest, ContinuationStaysInsideOneName) {
    // The first name does not run on into the company.
    EXPECT_TRUE(Find({MakeContact(1, u"Fred", u"", u"Acme")}, "37332").empty());
}

// Initials of consecutive words.
TEST(NameMatchTest, InitialsLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Anna", u"Smith", u"", {}, u"Maria")}, "267"),
              (V{{1, 2, u"A+M+S"}}));
}
TEST(NameMatchTest, InitialsAccentedLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Ágnes", u"Dvořák")}, "23"), (V{{1, 2, u"Á+D"}}));
}
TEST(NameMatchTest, InitialsCyrillic) {
    EXPECT_EQ(Find({MakeContact(1, u"Ольга", u"Соколова")}, "56", 2), (V{{1, 2, u"О+С"}}));
}
TEST(NameMatchTest, OneDigitIsNeverInitials) {
    EXPECT_EQ(Find({MakeContact(1, u"Ann", u"Bell")}, "2"), (V{{1, 0, u"A"}}));
}

// Which letters are on which key.
TEST(NameMatchTest, LatinNamesFoundWithCyrillicLayout) {
    EXPECT_EQ(Find({MakeContact(1, u"Fred", u"Smith")}, "76484", 2), (V{{1, 0, u"Smith"}}));
}
TEST(NameMatchTest, AccentedNamesFoundWithPlainLayout) {
    EXPECT_EQ(Find({MakeContact(1, u"Søren", u"Ångström")}, "264787", 1), (V{{1, 0, u"Ångstr"}}));
}
TEST(NameMatchTest, CyrillicNamesNeedACyrillicLayout) {
    EXPECT_TRUE(Find({MakeContact(1, u"Иван", u"Петров")}, "4225", 1).empty());
    EXPECT_EQ(Find({MakeContact(1, u"Иван", u"Петров")}, "4225", 3).size(), 1u);
}
TEST(NameMatchTest, LayoutLettersIgnoreCase) {
    // Row 8 lists the capital Ÿ among lower-case letters; the lower-case ÿ is on key 9 too.
    EXPECT_EQ(Find({MakeContact(1, u"ÿves", u"")}, "98", 8), (V{{1, 0, u"ÿv"}}));
    EXPECT_EQ(Find({MakeContact(1, u"ЁЖИК", u"")}, "33", 2), (V{{1, 0, u"ЁЖ"}}));
}
TEST(NameMatchTest, CombiningMarksStayInTheirWord) {
    EXPECT_EQ(Find({MakeContact(1, u"Rene\u0301e", u"")}, "7363"), (V{{1, 0, u"Rene\u0301"}}));
}

// Fields searched.
TEST(NameMatchTest, CompanyNicknameAndMiddleName) {
    std::vector<ServiceContact> book = {
        MakeContact(1, u"Anna", u"Bell", u"Globex Corp"),
        MakeContact(2, u"Bob", u"Stone", u"", {}, u"", u"Globetrotter"),
        MakeContact(3, u"Carl", u"Dane", u"", {}, u"Glob")};
    EXPECT_EQ(Find(book, "4562"), (V{{1, 0, u"Glob"}, {3, 1, u"Glob"}, {2, 1, u"Glob"}}));
}
TEST(NameMatchTest, SecondWordOfFirstNameIsOtherWord) {
    EXPECT_EQ(Find({MakeContact(1, u"Anna Maria", u"Zed")}, "627"), (V{{1, 1, u"Mar"}}));
}

// Numbers.
TEST(NameMatchTest, NumberContainingTheDigitsLatin) {
    EXPECT_EQ(Find({MakeContact(1, u"Fred", u"Smith", u"", {u"+7 912 123-45-67"})}, "234567"),
              (V{{1, 3, u"+"}}));
}
TEST(NameMatchTest, NumberOfAccentedAndCyrillicContacts) {
    EXPECT_EQ(Find({MakeContact(1, u"Zoë", u"", u"", {u"(020) 7946-0958"}),
                    MakeContact(2, u"Иван", u"", u"", {u"8 912 000 11 22"})},
                   "0001", 2),
              (V{{2, 3, u"+"}}));
    EXPECT_EQ(Find({MakeContact(1, u"Zoë", u"", u"", {u"(020) 7946-0958"})}, "2079"),
              (V{{1, 3, u"+"}}));
}
TEST(NameMatchTest, DigitsDoNotSpanTwoNumbers) {
    EXPECT_TRUE(Find({MakeContact(1, u"X", u"", u"", {u"111", u"222"})}, "1122").empty());
}

// Ranking.
TEST(NameMatchTest, RanksThenDisplayOrder) {
    std::vector<ServiceContact> book = {
        MakeContact(1, u"Zack", u"Adams", u"", {u"555 1262"}),  // number
        MakeContact(2, u"Bill", u"Jones", u"", {}, u"Ann"),     // middle word
        MakeContact(3, u"Ann", u"Young"),                       // first name
        MakeContact(4, u"Carl", u"Annan"),                      // last name
        MakeContact(5, u"Anders", u"Nash"),                     // first name
        MakeContact(6, u"Abe", u"Nolan")};                      // initials
    std::vector<Found> found = Find(book, "26");
    std::vector<uint32_t> oids;
    for (const Found& f : found)
        oids.push_back(f.oid);
    // Rank 0 in display order: Annan, Carl (4); Nash, Anders (5); Young, Ann (3).
    EXPECT_EQ(oids, (std::vector<uint32_t>{4, 5, 3, 2, 6, 1}));
    EXPECT_EQ(found[3].rank, 1);
    EXPECT_EQ(found[4].rank, 2);
    EXPECT_EQ(Find(book, "1262").front().oid, 1u);
}
TEST(NameMatchTest, EmptyTextReturnsEveryContactInDisplayOrder) {
    std::vector<ServiceContact> book = {
        MakeContact(1, u"Zed", u"Émile"), MakeContact(2, u"", u"", u"Acme"),
        MakeContact(3, u"Борис", u""), MakeContact(4, u"Eve", u"adams")};
    EXPECT_EQ(Find(book, ""), (V{{2, 4, u"+"}, {4, 4, u"+"}, {1, 4, u"+"}, {3, 4, u"+"}}));
}
TEST(NameMatchTest, NonDigitsFindNothing) {
    SearchService service;
    service.SetContacts({MakeContact(1, u"Fred", u"Smith")});
    EXPECT_TRUE(SearchText(service, u"37a").oids.empty());
    EXPECT_TRUE(SearchText(service, u"*").oids.empty());
}

TEST(NameMatchTest, ParseKeyQuery) {
    KeyQuery q;
    EXPECT_TRUE(ParseKeyQuery(u"0159", 4, q));
    EXPECT_EQ(q, (KeyQuery{0, 1, 5, 9}));
    EXPECT_FALSE(ParseKeyQuery(u"1#", 2, q));
}

}  // namespace
