#pragma once
// SearchIndex: answers a typed-digit search in time that follows the size of the answer, not of
// the address book. It holds, for the contacts of a ContactTable:
//   - one key string per run of name words (the digits of its letters, words joined), and every
//     word start sorted by the key string that follows it: a typed text is a range of that
//     array, and a continued text ("Fred S") is just a longer prefix;
//   - the word starts that have a following word, sorted by the initials that follow them;
//   - the digits of every number, a bitmap of the contacts holding each digit and each digit
//     pair, and for each of the 1,000 three-digit groups the list of contacts whose numbers
//     hold it (delta-coded);
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

    /// Starts loading what AppendHitText will read for a hit, `stage` 0 (the contact's first
    /// word), 1 (its words) or 2 (their text): called ahead of a run of hits, in that order.
    void Prefetch(const SearchHit& hit, int stage) const {
        if (hit.rank <= kRankInitials)
            PrefetchWords(hit, stage);
    }
    /// The object id of the contact at a table position.
    uint32_t OidAt(uint32_t position) const { return oids_[position]; }
    /// Bytes of the index's own structures (contact texts not included).
    size_t Bytes() const;

  private:
    struct IndexWord {
        uint32_t keyPos;   ///< first key of the word in keyText_; the run ends at a 0
        uint32_t textPos;  ///< the word as written in wordText_, ended by a 0
        char16_t initial;  ///< its first character; 0 when a mark follows it
        uint8_t bits;      ///< kNameStartFlag, kLastInRunFlag
    };
    /// A word start in a sorted array, with what a hit from it needs (read in array order).
    struct Entry {
        uint32_t ref;  ///< byKeys_: the word's key position; byInitials_: the word's index
        uint32_t contact;
        uint8_t rank;
        uint8_t local;
        char16_t lead;  ///< the word's first character when no mark follows it, else 0
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
    void ShrinkToFit();
    void PrefetchWords(const SearchHit& hit, int stage) const;
    void Extend(size_t i, const KeyQuery& query);
    char KeyAt(const Entry& entry, size_t offset) const;
    char InitialAt(uint32_t word, size_t offset) const;
    /// Appends the contacts whose numbers hold the three digits (0..9 each), in order.
    void NumbersOfGroup(const uint8_t* digits, std::vector<uint32_t>& out) const;
    bool DigitsContain(uint32_t contact, const char* digits, size_t n) const;
    void Collect(const KeyQuery& query, SearchHits& hits);
    void MarkNumberHits(const KeyQuery& query);
    void SetHolder(size_t row, size_t contact);
    void EmitByRank(SearchHits& hits);
    SearchHit HitOf(uint32_t position) const;
    void Offer(uint32_t contact, uint8_t rank, uint8_t word, char16_t lead);
    void AppendWordFragments(const SearchHit& hit, size_t queryLength, uint32_t first,
                             std::u16string& out) const;

    const ContactTable* table_ = nullptr;
    const LetterKeys* keys_ = nullptr;

    std::vector<uint32_t> oids_;  ///< per contact, so replies need not touch the contacts
    std::vector<IndexWord> words_;
    std::vector<uint32_t> firstWord_;  ///< per contact, its first entry in words_ (+ one end)
    std::vector<char> keyText_;        ///< '0'..'9' per letter; each run ends with 0
    std::vector<char16_t> wordText_;   ///< every indexed word as written, each ended by a 0
    std::vector<Entry> byKeys_;        ///< word entries sorted by the key text from the word on
    std::vector<Entry> byInitials_;    ///< entries with a next word, sorted by initials
    std::vector<uint32_t> ambiguous_;  ///< contacts matched one by one

    std::vector<char> digits_;           ///< each number's digits and a 0
    std::vector<uint32_t> digitsStart_;  ///< per contact (+ one end)
    /// For each digit d (0..9) and each pair "ab" (10 + 10a + b), a bitmap of the contacts
    /// whose numbers hold it: row r is words [r * bitmapWords_, (r + 1) * bitmapWords_).
    std::vector<uint64_t> holders_;
    size_t bitmapWords_ = 0;
    std::vector<uint8_t> groupLists_;   ///< per three-digit group: varint contact deltas
    std::vector<uint32_t> groupStart_;  ///< 1001 offsets into groupLists_

    KeyQuery levelQuery_;
    std::vector<Level> levels_;

    // Per-search scratch: best match per contact, valid where stamp equals the search's.
    std::vector<uint32_t> stamp_;
    std::vector<uint32_t> best_;  ///< rank << 24 | word << 16 | lead
    std::vector<uint32_t> touched_;
    std::vector<uint64_t> rankBits_[4];
    uint32_t generation_ = 0;
};
