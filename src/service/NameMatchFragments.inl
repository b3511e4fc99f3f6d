// Fragment writing, shared by the linear matcher and the index (which locate words differently).

template <typename WordAt>
void AppendFragments(const ServiceContact& contact, const LetterKeys& keys, const WordAt& wordAt,
                     int wordCount, const ContactMatch& match, size_t queryLength,
                     std::u16string& out) {
    if (match.rank > kRankInitials || queryLength == 0) {
        out += u'+';
        return;
    }
    bool initials = match.rank == kRankInitials;
    size_t left = queryLength;
    for (int w = match.word; w < wordCount && left > 0; ++w) {
        NameWord word = wordAt(w);
        const std::u16string& text = contact.fields[word.field];
        if (w > match.word)
            out += u'+';
        size_t take = initials ? 1 : left;
        size_t i = word.start;
        size_t taken = 0;
        while (i < word.end && taken < take) {
            if (keys.Mask(text[i]) != 0)
                ++taken;
            ++i;
        }
        while (i < word.end && IsCombiningMark(text[i]))
            ++i;
        out.append(text, word.start, i - word.start);
        left -= taken;
    }
}
