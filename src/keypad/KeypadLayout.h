#pragma once
// KeypadLayout: the letter groups of the picker's phone keypad, keys 2 to 9. A layout comes from
// one of the built-in rows, from the user's "Custom" text under "ABC", or, when the user chose
// nothing, from the device's user language.
//
// Layout text: key strings separated by spaces. A key string is a label, "/" (or "\"), then the
// letters. Spaces in the label are skipped; a "^" splits it into the first and second label
// lines. In the letters a space ends the key and punctuation is skipped (see Parse). A key whose
// label or letters came out empty is dropped and the keys after it move up.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"

/// Registry values of the "ABC" subkey.
constexpr char16_t kKeypadTypeValue[] = u"Type";
constexpr char16_t kKeypadCustomValue[] = u"Custom";

/// Ids of the built-in rows; 0 names the user-defined layout.
constexpr int kKeypadCustomId = 0;
constexpr int kKeypadFirstRowId = 1;
constexpr int kKeypadLastRowId = 17;

/// One built-in row: its id, the primary language it serves and its eight key strings.
struct KeypadRow {
    int id;
    uint8_t language;
    const char16_t* keys[8];
};

/// The built-in rows in table order (the order ChooseId searches).
extern const KeypadRow kKeypadRows[];
extern const int kKeypadRowCount;

/// The row with that id, or null.
const KeypadRow* FindKeypadRow(int id);

struct KeypadLayout {
    Array<Str> labels;     ///< first label line of each key, key 2 first
    Array<Str> subLabels;  ///< second label line of each key; empty when the key has none
    Array<Str> letters;    ///< the letters each key stands for, in the order written
    bool hasSubLabels = false;

    /// Empties the layout, then parses row `id` (1..17) or, for 0, the "Custom" binary value.
    /// Any other id, or a missing or non-binary "Custom", leaves it empty. True when the
    /// layout has at least one key.
    bool Load(int id);
    /// Empties the layout and fills it from `length` characters of a layout text.
    void Parse(const char16_t* text, int length);
    /// The id to load: "Type" when it is 0..17, else the first row whose language equals the
    /// low byte of the user's language id, else 1.
    static int ChooseId();
    /// Empties the three arrays and clears hasSubLabels.
    void Clear();
};
