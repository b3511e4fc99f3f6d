#include "contacts/NotesBlock.h"

#include <vector>

#include "base/Chars.h"
#include "contacts/PwiDecoder.h"

namespace {

/// Letters and digits end the "Phone:" list: ASCII ones, and the letters of the scripts a
/// contact's notes are written in.
bool IsLetterOrDigit(char16_t c) {
    if (c < 0x80)
        return (c >= u'0' && c <= u'9') || ((c | 0x20) >= u'a' && (c | 0x20) <= u'z');
    if (c == 0xAA || c == 0xB5 || c == 0xBA)
        return true;
    if (c < 0xC0 || c == 0xD7 || c == 0xF7)
        return false;
    if (c < 0x2000)
        return c < 0x2B0 || c >= 0x370;  // Latin, Greek, Cyrillic and other scripts
    if (c >= 0x3040 && c <= 0x9FFF)
        return true;  // kana and CJK ideographs
    if (c >= 0xAC00 && c <= 0xD7A3)
        return true;  // Hangul
    return false;
}

/// Reads one character at text[i], taking a backslash as making the next one literal. Returns
/// false at the end of the text.
bool NextLiteral(const Str& text, int& i, char16_t& c, bool& escaped) {
    int length = text.Length();
    if (i >= length)
        return false;
    escaped = text[i] == u'\\';
    if (escaped) {
        if (++i >= length)
            return false;
    }
    c = text[i++];
    return true;
}

/// Skips a bracketed section whose "[" is at text[i - 1]: up to and past the next unescaped "]".
void SkipSection(const Str& text, int& i) {
    char16_t c = 0;
    bool escaped = false;
    while (NextLiteral(text, i, c, escaped)) {
        if (c == u']' && !escaped)
            return;
    }
}

/// Index just past `word` in text, or -1. A mismatch restarts the word without comparing the
/// mismatching character again, so "PPhone:" hides the word (kept on purpose).
int FindWord(const Str& text, const char16_t* word) {
    int wordLength = static_cast<int>(chars::Length(word));
    if (wordLength == 0)
        return -1;
    int matched = 0;
    for (int i = 0; i < text.Length();) {
        char16_t c = text[i++];
        if (matched == 0 && c == u'[') {
            SkipSection(text, i);
        } else if (c == word[matched]) {
            if (++matched == wordLength)
                return i;
        } else {
            matched = 0;
        }
    }
    return -1;
}

void SkipSpace(const Str& text, int& i) {
    while (i < text.Length() && chars::IsSpace(text[i]))
        ++i;
}

/// Reads one item after its "[" at text[i - 1]: label up to ":", number up to "]". Returns
/// false when the item has no colon (it is dropped); i ends past the item's "]".
bool ReadItem(const Str& text, int& i, Str& label, Str& number) {
    char16_t c = 0;
    bool escaped = false;
    SkipSpace(text, i);
    while (true) {
        if (!NextLiteral(text, i, c, escaped))
            return false;
        if (!escaped && c == u']')
            return false;
        if (!escaped && c == u':')
            break;
        label.Append(c);
    }
    SkipSpace(text, i);
    while (NextLiteral(text, i, c, escaped)) {
        if (!escaped && c == u']')
            break;
        number.Append(c);
    }
    return true;
}

Str FromUtf16Le(const uint8_t* bytes, size_t size) {
    std::u16string text;
    for (size_t i = 0; i + 1 < size; i += 2) {
        char16_t c = static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8));
        if (c == 0)
            break;
        text += c;
    }
    return Str(text.c_str());
}

}  // namespace

Str NotesTextFromBytes(const uint8_t* bytes, size_t size, AnsiDecoder ansi) {
    if (size == 0)
        return Str();
    if (IsPwi(bytes, size))
        return DecodePwi(bytes, size);
    if (size >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF) {
        // Taken little-endian despite the mark: the notes are written that way.
        return size >= 3 ? FromUtf16Le(bytes + 2, size - 2) : Str();
    }
    return ansi(bytes, size);
}

void ReadNotes(ContactsStream* stream, NotesBlock& block, AnsiDecoder ansi) {
    block.blockText.Empty();
    block.otherText.Empty();
    if (stream == nullptr)
        return;
    uint64_t size = 0;
    if (!stream->Seek(0, ContactsStream::kSeekEnd, &size) ||
        !stream->Seek(0, ContactsStream::kSeekSet, nullptr) || size == 0 || size > 0x7FFFFFFF) {
        return;
    }
    std::vector<uint8_t> bytes(static_cast<size_t>(size));
    uint32_t got = 0;
    if (!stream->Read(bytes.data(), static_cast<uint32_t>(size), &got) || got < size)
        return;
    SplitNotesBlock(NotesTextFromBytes(bytes.data(), bytes.size(), ansi), block);
}

void SplitNotesBlock(const Str& notes, NotesBlock& block) {
    block.blockText.Empty();
    block.otherText.Empty();
    if (notes.IsEmpty())
        return;
    int start = notes.Find(kNotesStartMarker);
    if (start < 0) {
        block.otherText = notes;
        return;
    }
    block.otherText = notes.Left(start);
    block.otherText.TrimLeft();
    int from = start + static_cast<int>(chars::Length(kNotesStartMarker));
    int end = notes.Find(kNotesEndMarker, from);
    Str text = notes.Mid(from, (end < 0 ? notes.Length() : end) - from);
    if (text.IsEmpty())
        return;  // nothing after an empty block is taken (kept on purpose)
    block.blockText = text;
    if (end >= 0) {
        int after = end + static_cast<int>(chars::Length(kNotesEndMarker));
        block.otherText.Append(notes.Mid(after, notes.Length() - after));
    }
    block.otherText.TrimRight();
}

int PhoneItems(const NotesBlock& block, const char16_t* word, Array<Str>& labels,
               Array<Str>& numbers) {
    labels.RemoveAll();
    numbers.RemoveAll();
    const Str& text = block.blockText;
    if (text.IsEmpty())
        return 0;
    int i = FindWord(text, word);
    if (i < 0)
        return 0;
    while (i < text.Length()) {
        char16_t c = text[i++];
        if (IsLetterOrDigit(c))
            break;
        if (c != u'[')
            continue;
        Str label;
        Str number;
        if (ReadItem(text, i, label, number) && !label.IsEmpty() && !number.IsEmpty()) {
            labels.Add(label);
            numbers.Add(number);
        }
    }
    return labels.Size();
}
