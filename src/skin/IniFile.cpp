#include "skin/IniFile.h"

#include "base/Chars.h"

namespace {

/// Gathers the next non-empty line from bytes[pos..length): line ends before it are skipped,
/// the first CR or LF after it ends it. Returns an empty text when the range is exhausted.
Str NextLine(const uint8_t* bytes, size_t length, size_t& pos) {
    Str line;
    for (; pos < length; ++pos) {
        char16_t c = bytes[pos];
        if (c == u'\r' || c == u'\n') {
            if (line.IsEmpty())
                continue;
            break;
        }
        line.Append(c);
    }
    return line;
}

Str Trimmed(Str text) {
    text.Trim();
    return text;
}

/// Every comma-separated piece, trimmed, empty ones included.
Array<Str> SplitPositional(const Str& text) {
    Array<Str> pieces;
    int start = 0;
    for (;;) {
        int comma = text.Find(u',', start);
        int end = comma < 0 ? text.Length() : comma;
        pieces.Add(Trimmed(text.Mid(start, end - start)));
        if (comma < 0)
            return pieces;
        start = comma + 1;
    }
}

/// Whether a stored name (which may hold a zero character from the file) is exactly `wanted`,
/// a C text: a name with a zero inside is longer than its C text, so "K<NUL>x" is not "K".
bool SameName(const Str& stored, const char16_t* wanted) {
    if (wanted == nullptr)
        return stored.IsEmpty();
    int i = 0;
    for (; wanted[i] != 0; ++i) {
        if (i >= stored.Length() || stored[i] != wanted[i])
            return false;
    }
    return i == stored.Length();
}

}  // namespace

void IniFile::Parse(const uint8_t* bytes, size_t length) {
    if (bytes == nullptr)
        return;
    size_t pos = 0;
    for (;;) {
        Str line = NextLine(bytes, length, pos);
        if (line.IsEmpty())
            return;
        line.Trim();
        if (line.IsEmpty() || line[0] == u';')
            continue;
        if (line[0] == u'[' && line[line.Length() - 1] == u']') {
            IniSection section;
            section.name = line.Mid(1, line.Length() - 2);
            sections_.Add(section);
            current_ = sections_.Size() - 1;
            continue;
        }
        if (current_ < 0)
            continue;
        int eq = line.Find(u'=');
        if (eq <= 0)
            continue;
        Str key = Trimmed(line.Left(eq));
        Str value = Trimmed(line.Mid(eq + 1, line.Length() - eq - 1));
        if (key.IsEmpty() || value.IsEmpty())
            continue;
        AddPair(key, value);
    }
}

void IniFile::AddPair(const Str& key, const Str& value) {
    // A section travels whole: fetch a copy, extend it, store it back at the same index.
    IniSection section = sections_.GetAt(current_);
    section.keys.Add(key);
    section.values.Add(value);
    sections_.SetAt(current_, section);
}

Str IniFile::SectionName(int index) const {
    if (index < 0 || index >= sections_.Size())
        return Str();
    return sections_[index].name;
}

int IniFile::FindSection(const char16_t* name) const {
    for (int i = 0; i < sections_.Size(); ++i) {
        if (SameName(sections_[i].name, name))
            return i;
    }
    return -1;
}

Str IniFile::GetValue(int section, const char16_t* key) const {
    if (section < 0 || section >= sections_.Size())
        return Str();
    const IniSection& s = sections_[section];
    for (int i = 0; i < s.keys.Size(); ++i) {
        if (SameName(s.keys[i], key))
            return s.values[i];
    }
    return Str();
}

int IniFile::SplitList(const Str& text, Array<Str>& list) {
    list.RemoveAll();
    int count = 0;
    int start = 0;
    const int length = text.Length();
    while (start <= length) {
        int comma = text.Find(u',', start);
        int end = comma < 0 ? length : comma;
        Str piece = Trimmed(text.Mid(start, end - start));
        if (!piece.IsEmpty()) {
            list.Add(piece);
            ++count;
        }
        if (comma < 0)
            break;
        start = comma + 1;
    }
    return count;
}

int IniFile::GetList(int section, const char16_t* key, Array<Str>& list) const {
    return SplitList(GetValue(section, key), list);
}

bool IniFile::GetColor(int section, const char16_t* key, uint32_t& colour) const {
    Array<Str> items;
    if (GetList(section, key, items) < 3)
        return false;
    uint32_t red = static_cast<uint32_t>(chars::ToLong(items[0])) & 0xFF;
    uint32_t green = static_cast<uint32_t>(chars::ToLong(items[1])) & 0xFF;
    uint32_t blue = static_cast<uint32_t>(chars::ToLong(items[2])) & 0xFF;
    colour = red | green << 8 | blue << 16;
    return true;
}

bool IniFile::GetFontSpec(int section, const char16_t* key, int32_t& size, Str& face,
                          int32_t& weightCode, bool& italic, bool* quality) const {
    Str value = GetValue(section, key);
    Array<Str> nonEmpty;
    if (SplitList(value, nonEmpty) < 1)
        return false;
    // Font items are positional: an empty item keeps its place, so "9,,2" is size 9, the
    // default face and weight code 2.
    Array<Str> items = SplitPositional(value);
    const int count = items.Size();
    size = chars::ToLong(items[0]);
    if (count > 1)
        face = items[1];
    if (count > 2)
        weightCode = chars::ToLong(items[2]);
    if (count > 3)
        italic = chars::ToLong(items[3]) != 0;
    if (count > 4 && quality != nullptr)
        *quality = chars::ToLong(items[4]) != 0;
    return true;
}
