#pragma once
// SearchIndex: answers a typed-digit search in time that follows the size of the answer, not of
// the address book. It holds, for the contacts of a ContactTable:
//   - one key string per run of name words (the digits of its letters, words joined), and every
//     word start sorted by the key string that follows it: a typed text is a range of that
//     array, and a continued text ("Fred S") is just a longer prefix;
//   - the word starts that have a following word, sorted by the initials that follow them;
//   - the digits of every number with, per contact, which digits and digit pairs occur, and
//     for each of the 1,000 three-digit groups the list of contacts whose numbers hold it
//     (delta-coded);
//   - the ranges and number hits of the last search, one level per typed digit, so appending a
//     digit narrows the previous level and a backspace returns to a kept one.
// Contacts with a character on two keys (possible only with a custom layout) stay out of the
// arrays and are matched one by one.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "service/LetterKeys.h"
#include "service/NameMatch.h"
#include "service/SearchHit.h"
#include "service/ServiceContact.h"

class SearchIndex {
  public:
    /// Indexes the table's contacts under the key masks; the table and keys must outlive the
    /// index and stay unchanged until the next Build.
    void Build(const ContactTable& table, const LetterKeys& keys);
    /// The hits of query, in the same order as LinearSearch.
    void Search(const KeyQuery& query, SearchHits& hits);
    /// Appends the fragments of a hit (see AppendFragments).
    void AppendHitText(const SearchHit& hit, size_t queryLength, std::u16string& out) const;

    /// Bytes of the index's own structures (contact texts not included).
    size_t Bytes() const;

  private:
    struct IndexWord {
        uint32_t contact;
        uint32_t keyPos;  ///< first key of the word in keys_; the run ends at a 0
        uint16_t start;
        uint16_t end;
        uint8_t field;
        uint8_t flags;  ///< kNameStartFlag, kLastInRunFlag
        uint8_t local;  ///< the word's index within its contact
        uint8_t sequence;
    };
    static constexpr uint8_t kNameStartFlag = 1;
    static constexpr uint8_t kLastInRunFlag = 2;

    struct Level {
        uint32_t wordLo, wordHi;
        uint32_t initialsLo, initialsHi;
        std::vector<uint32_t> numberHits;  ///< from the third digit on
    };

    void IndexNames(const ContactTable& table);
    void IndexNumbers(const ContactTable& table);
    void Extend(size_t i, const KeyQuery& query);
    char KeyAt(uint32_t entry, size_t offset) const;
    char InitialAt(uint32_t entry, size_t offset) const;
    void NumbersOfFirstGroup(const KeyQuery& query, std::vector<uint32_t>& out) const;
    bool DigitsContain(uint32_t contact, const char* digits, size_t n) const;
    void Collect(const KeyQuery& query, SearchHits& hits);
    void Offer(uint32_t contact, uint8_t rank, uint8_t word);
    NameWord WordOf(const IndexWord& w) const;

    const ContactTable* table_ = nullptr;
    const LetterKeys* keys_ = nullptr;

    std::vector<IndexWord> words_;
    std::vector<uint32_t> firstWord_;   ///< per contact, its first entry in words_ (+ one end)
    std::vector<char> keyText_;         ///< '0'..'9' per letter; each run ends with 0
    std::vector<uint32_t> byKeys_;      ///< word entries sorted by the key text from the word on
    std::vector<uint32_t> byInitials_;  ///< entries with a next word, sorted by initials
    std::vector<uint32_t> ambiguous_;   ///< contacts matched one by one

    std::vector<char> digits_;           ///< each number's digits and a 0
    std::vector<uint32_t> digitsStart_;  ///< per contact (+ one end)
    std::vector<uint16_t> digitMask_;    ///< per contact: digits that occur
    std::vector<uint64_t> pairMask_;     ///< per contact, two words: pairs "ab" at bit 10a+b
    std::vector<uint8_t> groupLists_;    ///< per three-digit group: varint contact deltas
    std::vector<uint32_t> groupStart_;   ///< 1001 offsets into groupLists_

    KeyQuery levelQuery_;
    std::vector<Level> levels_;

    // Per-search scratch: best match per contact, valid where stamp equals the search's.
    std::vector<uint32_t> stamp_;
    std::vector<uint16_t> best_;
    std::vector<uint32_t> touched_;
    std::vector<uint64_t> rankBits_[4];
    uint32_t generation_ = 0;
};
