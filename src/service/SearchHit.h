#pragma once
// One contact found by a text search: its position in the contact table and its best match.

#include <cstdint>
#include <vector>

struct SearchHit {
    uint32_t position;  ///< in the ContactTable (display-name order)
    uint8_t rank;       ///< MatchRank
    uint8_t word;       ///< the word a name match starts at
    char16_t lead = 0;  ///< for a one-key word match: the whole fragment, when it is one character

    bool operator==(const SearchHit& other) const {
        return position == other.position && rank == other.rank && word == other.word;
    }
};

using SearchHits = std::vector<SearchHit>;
