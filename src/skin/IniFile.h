#pragma once
// IniFile: the reader of the skin description. A byte-oriented INI parser (every byte becomes one
// character of the same code; no byte-order mark or UTF-8 handling) that keeps sections in file
// order with their pairs in file order, and answers typed look-ups.

#include <cstddef>
#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"

/// One "[name]" section: its pairs as two parallel arrays in file order (duplicates kept).
struct IniSection {
    Str name;
    Array<Str> keys;
    Array<Str> values;
};

class IniFile {
  public:
    /// Builds the section list from a byte range. Meant for a freshly constructed object.
    /// Anything that is not a header, a comment or a well-formed pair is skipped silently.
    void Parse(const uint8_t* bytes, size_t length);

    /// Number of sections, in header order (a repeated header makes a second section).
    int SectionCount() const { return sections_.Size(); }
    /// Name of section `index`; empty outside the list.
    Str SectionName(int index) const;
    /// Index of the first section whose name equals `name` exactly (case-sensitive, whole
    /// names: a name holding a zero byte from the file is not the text before the zero), or -1.
    int FindSection(const char16_t* name) const;

    /// Value of the first pair of the section whose key equals `key` exactly (whole keys, as
    /// for section names); empty for a bad
    /// section index or a missing key. A null key looks for an empty key, which is never stored.
    Str GetValue(int section, const char16_t* key) const;
    /// Clears `list`, cuts `text` at every comma and appends each trimmed, non-empty piece.
    /// Returns the number of pieces appended.
    static int SplitList(const Str& text, Array<Str>& list);
    /// SplitList of GetValue(section, key).
    int GetList(int section, const char16_t* key, Array<Str>& list) const;
    /// "r, g, b" in decimal: colour = r | g << 8 | b << 16, each masked to 8 bits. With fewer
    /// than three items returns false and leaves `colour` untouched.
    bool GetColor(int section, const char16_t* key, uint32_t& colour) const;
    /// A font as "size, face, weight code, italic, quality", items by position (an empty item
    /// keeps its place and reads as empty or 0; an output past the last item is left as it was;
    /// quality only when a place is given). False, with nothing written, for an empty list.
    bool GetFontSpec(int section, const char16_t* key, int32_t& size, Str& face,
                     int32_t& weightCode, bool& italic, bool* quality) const;

  private:
    void AddPair(const Str& key, const Str& value);

    Array<IniSection> sections_;
    int current_ = -1;
};
