#pragma once
// The texts of the picker's rows, worked out without any window: a search result's fields, the
// second text a contact's details point to, and the runs of a name that the typed digits matched.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"

/// Lower-cases one character (the system's rule: CharLowerW on Windows, the locale seam natively).
using LowerFn = char16_t (*)(char16_t);

/// Part of a text: `length` characters from `start`.
struct TextRun {
    int start = 0;
    int length = 0;
    bool operator==(const TextRun&) const = default;
};

/// The text split at every "+": "ab+c" gives "ab", "c"; "+" gives two empty fields; a text
/// without "+" is one field.
Array<Str> SplitFields(const Str& text);

/// The result string whose 1-based index is the upper 16 bits of `value2`; empty when that index
/// is 0 or past the end of `words`.
Str SecondText(uint32_t value2, const Array<Str>& words);

/// The runs of `name` that the fields cover: each non-empty field's first occurrence in the
/// name, both lowered with `lower` (so case is ignored), sorted and with overlapping or touching
/// runs merged. A field that does not occur adds nothing.
Array<TextRun> HighlightRuns(const Str& name, const Array<Str>& fields, LowerFn lower);
