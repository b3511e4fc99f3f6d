#include "service/SearchIndex.h"

#include <gtest/gtest.h>

#include <string>

#include "ServiceTestSupport.h"
#include "service/AddressBookGenerator.h"
#include "service/LinearMatcher.h"

namespace {

std::string Digits(const KeyQuery& q) {
    std::string s;
    for (uint8_t d : q)
        s.push_back(static_cast<char>('0' + d));
    return s;
}

/// Checks the index against the linear matcher for one query, texts included.
void ExpectSame(SearchIndex& index, const ContactTable& table, const LetterKeys& keys,
                const KeyQuery& query) {
    SearchHits indexed;
    index.Search(query, indexed);
    SearchHits linear = LinearSearch(table, keys, query);
    ASSERT_EQ(indexed, linear) << "query " << Digits(query);
    for (size_t i = 0; i < indexed.size() && i < 50; ++i) {
        std::u16string text;
        index.AppendHitText(indexed[i], query.size(), text);
        EXPECT_FALSE(text.empty());
    }
}

/// The digits that spell a prefix of a contact's name, from its first word.
KeyQuery TypedToward(const ServiceContact& contact, const LetterKeys& keys, size_t length) {
    KeyQuery q;
    for (int f : {kFieldFirst, kFieldLast, kFieldCompany}) {
        for (char16_t c : contact.fields[f]) {
            int key = SingleKey(keys.Mask(c));
            if (key >= 0 && q.size() < length)
                q.push_back(static_cast<uint8_t>(key));
        }
        if (!q.empty())
            break;
    }
    return q;
}

void CheckBook(const KeypadLayout& layout, uint32_t count, uint32_t seed) {
    ContactTable table;
    table.Assign(GenerateAddressBook(count, seed));
    LetterKeys keys(layout);
    SearchIndex index;
    index.Build(table, keys);
    // Every one- and two-digit text, and the empty one.
    ExpectSame(index, table, keys, {});
    for (uint8_t a = 0; a < 10; ++a) {
        ExpectSame(index, table, keys, {a});
        for (uint8_t b = 0; b < 10; ++b)
            ExpectSame(index, table, keys, {a, b});
    }
    // Typing sessions toward real contacts, with backspaces, and random longer texts.
    BookRandom random(seed + 1);
    for (int session = 0; count > 0 && session < 60; ++session) {
        const ServiceContact& target = table.At(static_cast<int>(random.Below(count)));
        KeyQuery goal = TypedToward(target, keys, 2 + random.Below(8));
        KeyQuery typed;
        for (uint8_t d : goal) {
            typed.push_back(d);
            ExpectSame(index, table, keys, typed);
            if (random.Below(4) == 0) {
                typed.pop_back();
                ExpectSame(index, table, keys, typed);
                typed.push_back(d);
            }
        }
        while (!typed.empty()) {
            typed.pop_back();
            ExpectSame(index, table, keys, typed);
        }
        KeyQuery digits;
        for (uint32_t i = 0, n = 3 + random.Below(5); i < n; ++i) {
            digits.push_back(static_cast<uint8_t>(random.Below(10)));
            ExpectSame(index, table, keys, digits);
        }
    }
}

TEST(SearchIndexTest, SameAsLinearMatcherWithPlainLayout) {
    CheckBook(LayoutRow(1), 1500, 7);
}

TEST(SearchIndexTest, SameAsLinearMatcherWithCyrillicLayouts) {
    CheckBook(LayoutRow(2), 1000, 11);
    CheckBook(LayoutRow(3), 1000, 12);
}

TEST(SearchIndexTest, SameAsLinearMatcherWithLettersOnTwoKeys) {
    // Custom layout: "a" and "m" on a second key, so many names are matched one by one.
    CheckBook(LayoutText(u"ABC/bcm DEF/adef GHI/ghi JKL/jkl MNO/no PQRS/pqrs TUV/tuv WXYZ/wxyz"),
              1500, 13);
}

TEST(SearchIndexTest, SameAsLinearMatcherForSmallBooks) {
    for (uint32_t count : {0u, 1u, 2u, 5u})
        CheckBook(LayoutRow(1), count, 3 + count);
}

TEST(SearchIndexTest, FollowsContactChangesAfterRebuild) {
    ContactTable table;
    table.Assign(GenerateAddressBook(500, 21));
    LetterKeys keys(LayoutRow(3));
    SearchIndex index;
    index.Build(table, keys);
    ExpectSame(index, table, keys, Query("37"));
    table.Put(MakeContact(9001, u"Fred", u"Smith", u"", {u"+1 555 0100"}));
    table.Remove(3);
    table.Put(MakeContact(7, u"Freda", u"Zed"));
    index.Build(table, keys);
    ExpectSame(index, table, keys, Query("37"));
    ExpectSame(index, table, keys, Query("373"));
    ExpectSame(index, table, keys, Query("5550"));
}

TEST(SearchIndexTest, CountsItsBytes) {
    ContactTable table;
    table.Assign(GenerateAddressBook(1000, 5));
    LetterKeys keys;
    SearchIndex index;
    index.Build(table, keys);
    EXPECT_GT(index.Bytes(), 1000u * 50);
}

}  // namespace
