#pragma once
// The matching rules, applied to one contact. Typed digits match a name when they spell, key by
// key, the start of a word of the first, middle or last name, the company or the nickname,
// possibly continuing through the following words of the same name ("Fred S" for 37337), or
// when they are the initials of two or more consecutive words. They match a contact's number
// when its digits contain them. Results rank best first:
//   0  a prefix starting at the first word of the first name, the last name or the company;
//   1  a prefix starting at any other word;
//   2  initials;
//   3  a number;
// and ties keep display-name order. The best match of a contact is its lowest rank, then its
// earliest word.
//
// Words: a word is a run of characters that are on a key, combining marks included; anything
// on no key (blanks, punctuation, letters of other scripts) separates words. The first, middle
// and last names form one run of words, the company another, the nickname a third. Only the
// first kMaxFieldChars characters of a field and kMaxContactWords words of a contact count.

#include <cstdint>
#include <string>
#include <vector>

#include "service/LetterKeys.h"
#include "service/ServiceContact.h"

constexpr int kMaxFieldChars = 1024;
constexpr int kMaxContactWords = 255;

enum MatchRank : uint8_t {
    kRankNameStart = 0,
    kRankWord = 1,
    kRankInitials = 2,
    kRankNumber = 3,
    kRankAll = 4,  ///< the empty text: every contact, nothing matched
};

/// One word of a contact, located in its field.
struct NameWord {
    uint8_t field;     ///< NameField
    uint8_t sequence;  ///< 0 person's name, 1 company, 2 nickname
    bool nameStart;    ///< first word of the first name, the last name or the company
    uint16_t start;    ///< first character in the field
    uint16_t end;      ///< one past the last character (marks included)
};

/// Splits a contact's names into words; sets *ambiguous when a word holds a character that is
/// on more than one key.
void SplitNameWords(const ServiceContact& contact, const LetterKeys& keys,
                    std::vector<NameWord>& words, bool* ambiguous);

/// A typed text: its digits as 0..9.
using KeyQuery = std::vector<uint8_t>;

/// The digits of text as 0..9; false when text holds anything but '0'..'9'.
bool ParseKeyQuery(const char16_t* text, size_t length, KeyQuery& query);

/// A contact's best match: rank and, for name ranks, the index of the word it starts at.
struct ContactMatch {
    uint8_t rank = kRankAll;
    uint8_t word = 0;
};

/// The best name match of the contact (rank 0..2), or false when no name matches.
bool BestNameMatch(const ServiceContact& contact, const std::vector<NameWord>& words,
                   const LetterKeys& keys, const KeyQuery& query, ContactMatch& match);

/// True when the digits of number contain the query's digits.
bool NumberContains(const std::u16string& number, const KeyQuery& query);
/// The first phone whose digits contain the query, or -1.
int MatchingPhone(const ServiceContact& contact, const KeyQuery& query);

/// Appends the fragments of the name that the match covers, as written, joined by "+"; "+"
/// alone when nothing of the name is matched (the run of texts must hold no empty text).
/// wordAt(i) gives the contact's word i.
template <typename WordAt>
void AppendFragments(const ServiceContact& contact, const LetterKeys& keys, const WordAt& wordAt,
                     int wordCount, const ContactMatch& match, size_t queryLength,
                     std::u16string& out);
#include "service/NameMatchFragments.inl"
