#pragma once
// LetterKeys: which phone keys a character stands for. A letter is on a key when the active
// keypad layout lists it there (case ignored), or when it or its unaccented base letter is on
// that key of the Latin table (ABC on 2 ... WXYZ on 9), so Latin names stay findable with a
// Cyrillic layout and accented names with a plain one. A digit is on its own key.

#include <cstdint>
#include <vector>

struct KeypadLayout;

/// The simple lower case of Latin, Greek and Cyrillic letters; other characters unchanged.
char16_t FoldLower(char16_t c);
/// The lower-case ASCII letter an accented Latin letter is written on ('a' for "Å", 's' for
/// "ß"), the lower-cased letter itself for ASCII letters, 0 for anything else.
char16_t BaseLetter(char16_t c);
/// True for combining marks (U+0300..U+036F): part of a word, on no key.
inline bool IsCombiningMark(char16_t c) {
    return c >= 0x300 && c <= 0x36F;
}

class LetterKeys {
  public:
    /// Key masks for the layout's letters plus the Latin table.
    explicit LetterKeys(const KeypadLayout& layout);
    /// Only the Latin table and the digits.
    LetterKeys();

    /// Bit k set when c is on key k (0..9); 0 when c is on no key.
    uint16_t Mask(char16_t c) const { return masks_[c]; }
    /// True when the key digit k ('0'..'9' as 0..9) is one of c's keys.
    bool OnKey(char16_t c, int k) const { return (masks_[c] >> k) & 1u; }
    /// True when some character is on more than one key.
    bool HasAmbiguity() const { return ambiguous_; }

  private:
    void AddLatinAndDigits();
    std::vector<uint16_t> masks_;
    bool ambiguous_ = false;
};

/// The single key of a mask with exactly one bit, or -1.
int SingleKey(uint16_t mask);
