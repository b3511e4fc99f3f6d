#include "service/NameMatch.h"

#include <algorithm>

namespace {

constexpr uint8_t kSequenceOfField[kNameFieldCount] = {0, 0, 0, 1, 2};

bool IsNameStartField(int field) {
    return field == kFieldFirst || field == kFieldLast || field == kFieldCompany;
}

/// True when the query spells the words from `first` on, key by key, through following words
/// of the same sequence.
bool SpellsFrom(const ServiceContact& contact, const std::vector<NameWord>& words,
                const LetterKeys& keys, const KeyQuery& query, size_t first) {
    size_t q = 0;
    for (size_t w = first; w < words.size() && words[w].sequence == words[first].sequence; ++w) {
        const std::u16string& text = contact.fields[words[w].field];
        for (size_t i = words[w].start; i < words[w].end; ++i) {
            if (IsCombiningMark(text[i]))
                continue;
            if (!keys.OnKey(text[i], query[q]))
                return false;
            if (++q == query.size())
                return true;
        }
    }
    return false;
}

bool InitialsFrom(const ServiceContact& contact, const std::vector<NameWord>& words,
                  const LetterKeys& keys, const KeyQuery& query, size_t first) {
    if (query.size() < 2 || first + query.size() > words.size())
        return false;
    for (size_t q = 0; q < query.size(); ++q) {
        const NameWord& word = words[first + q];
        if (word.sequence != words[first].sequence)
            return false;
        if (!keys.OnKey(contact.fields[word.field][word.start], query[q]))
            return false;
    }
    return true;
}

}  // namespace

void SplitNameWords(const ServiceContact& contact, const LetterKeys& keys,
                    std::vector<NameWord>& words, bool* ambiguous) {
    words.clear();
    bool anyAmbiguous = false;
    for (int f = 0; f < kNameFieldCount; ++f) {
        const std::u16string& text = contact.fields[f];
        size_t length = std::min<size_t>(text.size(), kMaxFieldChars);
        bool firstOfField = true;
        size_t i = 0;
        while (i < length && words.size() < kMaxContactWords) {
            uint16_t mask = keys.Mask(text[i]);
            if (mask == 0) {
                ++i;
                continue;
            }
            NameWord word{static_cast<uint8_t>(f), kSequenceOfField[f],
                          firstOfField && IsNameStartField(f), static_cast<uint16_t>(i), 0};
            while (i < length && (keys.Mask(text[i]) != 0 || IsCombiningMark(text[i]))) {
                if (SingleKey(keys.Mask(text[i])) < 0 && !IsCombiningMark(text[i])) {
                    anyAmbiguous = true;
                }
                ++i;
            }
            word.end = static_cast<uint16_t>(i);
            words.push_back(word);
            firstOfField = false;
        }
    }
    if (ambiguous != nullptr)
        *ambiguous = anyAmbiguous;
}

bool ParseKeyQuery(const char16_t* text, size_t length, KeyQuery& query) {
    query.clear();
    for (size_t i = 0; i < length; ++i) {
        if (text[i] < u'0' || text[i] > u'9')
            return false;
        query.push_back(static_cast<uint8_t>(text[i] - u'0'));
    }
    return true;
}

bool BestNameMatch(const ServiceContact& contact, const std::vector<NameWord>& words,
                   const LetterKeys& keys, const KeyQuery& query, ContactMatch& match) {
    if (query.empty())
        return false;
    bool found = false;
    for (size_t w = 0; w < words.size(); ++w) {
        uint8_t rank = 0;
        if (SpellsFrom(contact, words, keys, query, w)) {
            rank = words[w].nameStart ? kRankNameStart : kRankWord;
        } else if (InitialsFrom(contact, words, keys, query, w)) {
            rank = kRankInitials;
        } else {
            continue;
        }
        if (!found || rank < match.rank) {
            match.rank = rank;
            match.word = static_cast<uint8_t>(w);
            found = true;
        }
    }
    return found;
}

bool NumberContains(const std::u16string& number, const KeyQuery& query) {
    if (query.empty())
        return false;
    std::u16string digits;
    for (char16_t c : number) {
        if (c >= u'0' && c <= u'9')
            digits.push_back(c);
    }
    std::u16string wanted;
    for (uint8_t d : query)
        wanted.push_back(static_cast<char16_t>(u'0' + d));
    return digits.find(wanted) != std::u16string::npos;
}

int MatchingPhone(const ServiceContact& contact, const KeyQuery& query) {
    for (size_t i = 0; i < contact.phones.size(); ++i) {
        if (NumberContains(contact.phones[i].number, query))
            return static_cast<int>(i);
    }
    return -1;
}
