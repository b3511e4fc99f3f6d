#include "service/LinearMatcher.h"

#include <algorithm>

SearchHits LinearSearch(const ContactTable& table, const LetterKeys& keys, const KeyQuery& query) {
    SearchHits hits;
    std::vector<NameWord> words;
    for (int p = 0; p < table.Size(); ++p) {
        const ServiceContact& contact = table.At(p);
        if (query.empty()) {
            hits.push_back({static_cast<uint32_t>(p), kRankAll, 0});
            continue;
        }
        SplitNameWords(contact, keys, words, nullptr);
        ContactMatch match;
        if (BestNameMatch(contact, words, keys, query, match)) {
            hits.push_back({static_cast<uint32_t>(p), match.rank, match.word});
        } else if (MatchingPhone(contact, query) >= 0) {
            hits.push_back({static_cast<uint32_t>(p), kRankNumber, 0});
        }
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](const SearchHit& a, const SearchHit& b) { return a.rank < b.rank; });
    return hits;
}
