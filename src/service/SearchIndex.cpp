#include "service/SearchIndex.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

namespace {

constexpr int kGroupCount = 1000;

template <typename T>
size_t VectorBytes(const std::vector<T>& v) {
    return v.capacity() * sizeof(T);
}

/// The first entry in [lo, hi) whose value is not below `want`, given values that never
/// decrease over the range.
template <typename ValueAt>
uint32_t FirstNotBelow(uint32_t lo, uint32_t hi, char want, const ValueAt& valueAt) {
    while (lo < hi) {
        uint32_t mid = lo + (hi - lo) / 2;
        if (valueAt(mid) < want) {
            lo = mid + 1;
        } else {
            hi = mid;
        }
    }
    return lo;
}

}  // namespace

void SearchIndex::Build(const ContactTable& table, const LetterKeys& keys) {
    table_ = &table;
    keys_ = &keys;
    oids_.resize(static_cast<size_t>(table.Size()));
    for (int p = 0; p < table.Size(); ++p)
        oids_[static_cast<size_t>(p)] = table.At(p).oid;
    IndexNames(table);
    IndexNumbers(table);
    ShrinkToFit();
    levelQuery_.clear();
    levels_.clear();
    size_t n = static_cast<size_t>(table.Size());
    stamp_.assign(n, 0);
    best_.assign(n, 0);
    touched_.clear();
    for (auto& bits : rankBits_)
        bits.assign(n / 64 + 1, 0);
    generation_ = 0;
}

void SearchIndex::IndexNames(const ContactTable& table) {
    words_.clear();
    keyText_.clear();
    wordText_.clear();
    ambiguous_.clear();
    size_t n = static_cast<size_t>(table.Size());
    firstWord_.assign(n + 1, 0);
    std::vector<NameWord> split;
    for (size_t p = 0; p < n; ++p) {
        firstWord_[p] = static_cast<uint32_t>(words_.size());
        const ServiceContact& contact = table.At(static_cast<int>(p));
        bool ambiguous = false;
        SplitNameWords(contact, *keys_, split, &ambiguous);
        if (ambiguous) {
            ambiguous_.push_back(static_cast<uint32_t>(p));
            continue;
        }
        for (size_t i = 0; i < split.size(); ++i) {
            const NameWord& w = split[i];
            bool lastInRun = i + 1 == split.size() || split[i + 1].sequence != w.sequence;
            const std::u16string& text = contact.fields[w.field];
            uint8_t bits = static_cast<uint8_t>((w.nameStart ? kNameStartFlag : 0) |
                                                (lastInRun ? kLastInRunFlag : 0));
            bool markFollows = w.start + 1u < w.end && IsCombiningMark(text[w.start + 1u]);
            char16_t initial = markFollows ? 0 : text[w.start];
            words_.push_back({static_cast<uint32_t>(keyText_.size()),
                              static_cast<uint32_t>(wordText_.size()), initial, bits});
            wordText_.insert(wordText_.end(), text.begin() + w.start, text.begin() + w.end);
            wordText_.push_back(0);
            for (size_t c = w.start; c < w.end; ++c) {
                int key = SingleKey(keys_->Mask(text[c]));
                if (key >= 0)
                    keyText_.push_back(static_cast<char>('0' + key));
            }
            if (lastInRun)
                keyText_.push_back(0);
        }
    }
    firstWord_[n] = static_cast<uint32_t>(words_.size());

    byKeys_.clear();
    byInitials_.clear();
    byKeys_.reserve(words_.size());
    for (uint32_t p = 0; p < n; ++p) {
        for (uint32_t i = firstWord_[p]; i < firstWord_[p + 1]; ++i) {
            const IndexWord& w = words_[i];
            auto rank =
                static_cast<uint8_t>((w.bits & kNameStartFlag) ? kRankNameStart : kRankWord);
            auto local = static_cast<uint8_t>(i - firstWord_[p]);
            byKeys_.push_back({w.keyPos, p, rank, local, w.initial});
            if (!(w.bits & kLastInRunFlag))
                byInitials_.push_back({i, p, kRankInitials, local, 0});
        }
    }
    const char* text = keyText_.data();
    std::sort(byKeys_.begin(), byKeys_.end(), [&](const Entry& a, const Entry& b) {
        return std::strcmp(text + a.ref, text + b.ref) < 0;
    });
    std::sort(byInitials_.begin(), byInitials_.end(), [&](const Entry& a, const Entry& b) {
        for (size_t k = 0;; ++k) {
            char x = InitialAt(a.ref, k);
            char y = InitialAt(b.ref, k);
            if (x != y)
                return x < y;
            if (x == 0)
                return false;
        }
    });
}

void SearchIndex::IndexNumbers(const ContactTable& table) {
    size_t n = static_cast<size_t>(table.Size());
    digits_.clear();
    digitsStart_.assign(n + 1, 0);
    bitmapWords_ = n / 64 + 1;
    holders_.assign(110 * bitmapWords_, 0);
    std::vector<std::vector<uint32_t>> lists(kGroupCount);
    std::vector<uint16_t> groups;
    for (size_t p = 0; p < n; ++p) {
        digitsStart_[p] = static_cast<uint32_t>(digits_.size());
        groups.clear();
        for (const ServicePhone& phone : table.At(static_cast<int>(p)).phones) {
            size_t first = digits_.size();
            for (char16_t c : phone.number) {
                if (c >= u'0' && c <= u'9')
                    digits_.push_back(static_cast<char>(c));
            }
            for (size_t i = first; i < digits_.size(); ++i) {
                int d = digits_[i] - '0';
                SetHolder(static_cast<size_t>(d), p);
                if (i + 1 < digits_.size()) {
                    SetHolder(static_cast<size_t>(10 + d * 10 + (digits_[i + 1] - '0')), p);
                }
                if (i + 2 < digits_.size()) {
                    groups.push_back(static_cast<uint16_t>(d * 100 + (digits_[i + 1] - '0') * 10 +
                                                           (digits_[i + 2] - '0')));
                }
            }
            digits_.push_back(0);
        }
        std::sort(groups.begin(), groups.end());
        groups.erase(std::unique(groups.begin(), groups.end()), groups.end());
        for (uint16_t g : groups)
            lists[g].push_back(static_cast<uint32_t>(p));
    }
    digitsStart_[n] = static_cast<uint32_t>(digits_.size());
    groupLists_.clear();
    groupStart_.assign(kGroupCount + 1, 0);
    for (int g = 0; g < kGroupCount; ++g) {
        groupStart_[g] = static_cast<uint32_t>(groupLists_.size());
        uint32_t previous = 0;
        for (uint32_t p : lists[g]) {
            uint32_t delta = p - previous;
            previous = p;
            while (delta >= 0x80) {
                groupLists_.push_back(static_cast<uint8_t>(delta | 0x80));
                delta >>= 7;
            }
            groupLists_.push_back(static_cast<uint8_t>(delta));
        }
    }
    groupStart_[kGroupCount] = static_cast<uint32_t>(groupLists_.size());
}

void SearchIndex::ShrinkToFit() {
    // Built by appending: give back what the growth reserved.
    words_.shrink_to_fit();
    keyText_.shrink_to_fit();
    wordText_.shrink_to_fit();
    byKeys_.shrink_to_fit();
    byInitials_.shrink_to_fit();
    ambiguous_.shrink_to_fit();
    digits_.shrink_to_fit();
    groupLists_.shrink_to_fit();
}

char SearchIndex::KeyAt(const Entry& entry, size_t offset) const {
    return keyText_[entry.ref + offset];
}

char SearchIndex::InitialAt(uint32_t entry, size_t offset) const {
    for (size_t k = 0; k < offset; ++k) {
        if (words_[entry + k].bits & kLastInRunFlag)
            return 0;
    }
    return keyText_[words_[entry + offset].keyPos];
}

void SearchIndex::NumbersOfGroup(const uint8_t* digits, std::vector<uint32_t>& out) const {
    int g = digits[0] * 100 + digits[1] * 10 + digits[2];
    uint32_t p = 0;
    size_t i = groupStart_[g];
    while (i < groupStart_[g + 1]) {
        uint32_t delta = 0;
        for (int shift = 0;; shift += 7) {
            uint8_t byte = groupLists_[i++];
            delta |= static_cast<uint32_t>(byte & 0x7F) << shift;
            if (!(byte & 0x80))
                break;
        }
        p += delta;
        out.push_back(p);
    }
}

bool SearchIndex::DigitsContain(uint32_t contact, const char* digits, size_t n) const {
    const char* first = digits_.data() + digitsStart_[contact];
    const char* last = digits_.data() + digitsStart_[contact + 1];
    return std::search(first, last, digits, digits + n) != last;
}

void SearchIndex::Extend(size_t i, const KeyQuery& query) {
    Level level;
    uint32_t lo = 0;
    uint32_t hi = static_cast<uint32_t>(byKeys_.size());
    uint32_t initialsLo = 0;
    uint32_t initialsHi = static_cast<uint32_t>(byInitials_.size());
    if (i > 0) {
        lo = levels_[i - 1].wordLo;
        hi = levels_[i - 1].wordHi;
        initialsLo = levels_[i - 1].initialsLo;
        initialsHi = levels_[i - 1].initialsHi;
    }
    char want = static_cast<char>('0' + query[i]);
    auto keyAt = [&](uint32_t e) { return KeyAt(byKeys_[e], i); };
    level.wordLo = FirstNotBelow(lo, hi, want, keyAt);
    level.wordHi = FirstNotBelow(level.wordLo, hi, static_cast<char>(want + 1), keyAt);
    auto initialAt = [&](uint32_t e) { return InitialAt(byInitials_[e].ref, i); };
    level.initialsLo = FirstNotBelow(initialsLo, initialsHi, want, initialAt);
    level.initialsHi =
        FirstNotBelow(level.initialsLo, initialsHi, static_cast<char>(want + 1), initialAt);
    if (i == 2) {
        NumbersOfGroup(query.data(), level.numberHits);
    } else if (i > 2) {
        // Contacts holding the first i digits and the last three typed, then checked whole.
        std::vector<uint32_t> group;
        NumbersOfGroup(query.data() + i - 2, group);
        std::vector<uint32_t> both;
        const std::vector<uint32_t>& before = levels_[i - 1].numberHits;
        std::set_intersection(before.begin(), before.end(), group.begin(), group.end(),
                              std::back_inserter(both));
        std::string typed;
        for (size_t k = 0; k <= i; ++k)
            typed.push_back(static_cast<char>('0' + query[k]));
        for (uint32_t p : both) {
            if (DigitsContain(p, typed.data(), typed.size()))
                level.numberHits.push_back(p);
        }
    }
    levels_.push_back(std::move(level));
}

void SearchIndex::Search(const KeyQuery& query, SearchHits& hits) {
    hits.clear();
    if (query.empty()) {
        hits.reserve(static_cast<size_t>(table_->Size()));
        for (int p = 0; p < table_->Size(); ++p) {
            hits.push_back({static_cast<uint32_t>(p), kRankAll, 0});
        }
        return;
    }
    size_t keep = 0;
    while (keep < levels_.size() && keep < query.size() && levelQuery_[keep] == query[keep]) {
        ++keep;
    }
    levels_.resize(keep);
    for (size_t i = keep; i < query.size(); ++i)
        Extend(i, query);
    levelQuery_ = query;
    Collect(query, hits);
}

void SearchIndex::Offer(uint32_t contact, uint8_t rank, uint8_t word, char16_t lead) {
    uint32_t code = static_cast<uint32_t>(rank) << 24 | static_cast<uint32_t>(word) << 16 | lead;
    if (stamp_[contact] != generation_) {
        stamp_[contact] = generation_;
        best_[contact] = code;
        touched_.push_back(contact);
    } else if (code >> 16 < best_[contact] >> 16) {
        best_[contact] = code;
    }
}

void SearchIndex::Collect(const KeyQuery& query, SearchHits& hits) {
    if (++generation_ == 0) {
        std::fill(stamp_.begin(), stamp_.end(), 0);
        generation_ = 1;
    }
    touched_.clear();
    const Level& top = levels_[query.size() - 1];
    for (uint32_t e = top.wordLo; e < top.wordHi; ++e) {
        const Entry& entry = byKeys_[e];
        Offer(entry.contact, entry.rank, entry.local, entry.lead);
    }
    if (query.size() >= 2) {
        for (uint32_t e = top.initialsLo; e < top.initialsHi; ++e) {
            const Entry& entry = byInitials_[e];
            Offer(entry.contact, kRankInitials, entry.local, 0);
        }
    }
    std::vector<NameWord> split;
    for (uint32_t p : ambiguous_) {
        const ServiceContact& contact = table_->At(static_cast<int>(p));
        SplitNameWords(contact, *keys_, split, nullptr);
        ContactMatch match;
        if (BestNameMatch(contact, split, *keys_, query, match))
            Offer(p, match.rank, match.word, 0);
    }
    if (query.size() <= 2) {
        // Most contacts hold any one or two digits: mark them straight into the rank bitmaps.
        for (uint32_t p : touched_)
            rankBits_[best_[p] >> 24][p / 64] |= uint64_t{1} << (p % 64);
        MarkNumberHits(query);
        EmitByRank(hits);
        return;
    }
    if ((touched_.size() + top.numberHits.size()) * 32 >= static_cast<size_t>(table_->Size())) {
        // Many hits: mark them in the rank bitmaps; a number hit only where no name matched.
        for (uint32_t p : touched_)
            rankBits_[best_[p] >> 24][p / 64] |= uint64_t{1} << (p % 64);
        for (uint32_t p : top.numberHits) {
            if (stamp_[p] != generation_)
                rankBits_[kRankNumber][p / 64] |= uint64_t{1} << (p % 64);
        }
        EmitByRank(hits);
        return;
    }
    for (uint32_t p : top.numberHits)
        Offer(p, kRankNumber, 0, 0);
    std::sort(touched_.begin(), touched_.end(), [&](uint32_t a, uint32_t b) {
        return best_[a] >> 24 != best_[b] >> 24 ? best_[a] >> 24 < best_[b] >> 24 : a < b;
    });
    hits.reserve(touched_.size());
    for (uint32_t p : touched_) {
        hits.push_back(HitOf(p));
    }
}

void SearchIndex::MarkNumberHits(const KeyQuery& query) {
    size_t row = query.size() == 1 ? query[0] : 10u + query[0] * 10u + query[1];
    const uint64_t* holders = holders_.data() + row * bitmapWords_;
    // A contact with a name match keeps its better rank.
    for (size_t i = 0; i < bitmapWords_; ++i) {
        uint64_t named = rankBits_[0][i] | rankBits_[1][i] | rankBits_[2][i];
        rankBits_[kRankNumber][i] = holders[i] & ~named;
    }
}

void SearchIndex::SetHolder(size_t row, size_t contact) {
    holders_[row * bitmapWords_ + contact / 64] |= uint64_t{1} << (contact % 64);
}

void SearchIndex::EmitByRank(SearchHits& hits) {
    for (uint8_t rank = 0; rank < 4; ++rank) {
        std::vector<uint64_t>& bits = rankBits_[rank];
        for (size_t i = 0; i < bits.size(); ++i) {
            uint64_t word = bits[i];
            bits[i] = 0;
            while (word != 0) {
                auto p = static_cast<uint32_t>(i * 64 + static_cast<size_t>(__builtin_ctzll(word)));
                word &= word - 1;
                hits.push_back(rank == kRankNumber ? SearchHit{p, rank, 0} : HitOf(p));
            }
        }
    }
}

SearchHit SearchIndex::HitOf(uint32_t position) const {
    uint32_t code = best_[position];
    return {position, static_cast<uint8_t>(code >> 24), static_cast<uint8_t>(code >> 16),
            static_cast<char16_t>(code)};
}

void SearchIndex::AppendHitText(const SearchHit& hit, size_t queryLength,
                                std::u16string& out) const {
    if (hit.rank > kRankInitials || queryLength == 0) {
        out += u'+';
        return;
    }
    if (queryLength == 1 && hit.lead != 0) {
        out += hit.lead;
        return;
    }
    uint32_t first = firstWord_[hit.position];
    if (firstWord_[hit.position + 1] > first) {
        AppendWordFragments(hit, queryLength, first, out);
        return;
    }
    // A contact matched one by one: split its names again.
    const ServiceContact& contact = table_->At(static_cast<int>(hit.position));
    std::vector<NameWord> split;
    SplitNameWords(contact, *keys_, split, nullptr);
    auto wordAt = [&](int i) { return split[static_cast<size_t>(i)]; };
    AppendFragments(contact, *keys_, wordAt, static_cast<int>(split.size()),
                    ContactMatch{hit.rank, hit.word}, queryLength, out);
}

void SearchIndex::PrefetchWords(const SearchHit& hit, int stage) const {
    if (stage == 0) {
        __builtin_prefetch(&firstWord_[hit.position]);
        return;
    }
    uint32_t word = firstWord_[hit.position] + hit.word;
    if (word >= words_.size())
        return;
    if (stage == 1)
        __builtin_prefetch(&words_[word]);
    else
        __builtin_prefetch(&wordText_[words_[word].textPos]);
}

void SearchIndex::AppendWordFragments(const SearchHit& hit, size_t queryLength, uint32_t first,
                                      std::u16string& out) const {
    if (hit.rank == kRankInitials) {
        bool plain = true;
        for (size_t k = 0; k < queryLength; ++k)
            plain = plain && words_[first + hit.word + k].initial != 0;
        for (size_t k = 0; plain && k < queryLength; ++k) {
            if (k > 0)
                out += u'+';
            out += words_[first + hit.word + k].initial;
        }
        if (plain)
            return;
    }
    // Inside a word every character is on a key or is a mark, so counting non-marks counts keys.
    size_t left = queryLength;
    for (uint32_t w = first + hit.word; left > 0; ++w) {
        if (w > first + hit.word)
            out += u'+';
        const char16_t* text = wordText_.data() + words_[w].textPos;
        size_t take = hit.rank == kRankInitials ? 1 : left;
        size_t i = 0;
        size_t taken = 0;
        while (text[i] != 0 && taken < take) {
            if (!IsCombiningMark(text[i]))
                ++taken;
            ++i;
        }
        while (text[i] != 0 && IsCombiningMark(text[i]))
            ++i;
        out.append(text, i);
        left -= taken;
    }
}

size_t SearchIndex::Bytes() const {
    size_t bytes = VectorBytes(oids_) + VectorBytes(words_) + VectorBytes(firstWord_) +
                   VectorBytes(keyText_) + VectorBytes(wordText_) + VectorBytes(byKeys_) +
                   VectorBytes(byInitials_) + VectorBytes(ambiguous_) + VectorBytes(digits_) +
                   VectorBytes(digitsStart_) + VectorBytes(holders_) + VectorBytes(groupLists_) +
                   VectorBytes(groupStart_) + VectorBytes(stamp_) + VectorBytes(best_) +
                   VectorBytes(touched_);
    for (const auto& bits : rankBits_)
        bytes += VectorBytes(bits);
    return bytes;
}
