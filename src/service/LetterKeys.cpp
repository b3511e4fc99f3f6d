#include "service/LetterKeys.h"

#include "keypad/KeypadLayout.h"

namespace {

// Base letters of U+00C0..U+017F; '.' marks a character that is not a letter.
constexpr char kLatin1Base[] =
    "aaaaaaaceeeeiiii"   // C0..CF
    "dnooooo.ouuuuyts"   // D0..DF
    "aaaaaaaceeeeiiii"   // E0..EF
    "dnooooo.ouuuuyty";  // F0..FF
constexpr char kLatinExtendedABase[] =
    "aaaaaaccccccccdd"   // 100..10F
    "ddeeeeeeeeeegggg"   // 110..11F
    "gggghhhhiiiiiiii"   // 120..12F
    "iiiijjkkklllllll"   // 130..13F
    "lllnnnnnnnnnoooo"   // 140..14F
    "oooorrrrrrssssss"   // 150..15F
    "ssttttttuuuuuuuu"   // 160..16F
    "uuuuwwyyyzzzzzzs";  // 170..17F

constexpr char kLatinKeys[] = "22233344455566677778889999";

}  // namespace

char16_t FoldLower(char16_t c) {
    if (c < 0x80)
        return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c + 32) : c;
    if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3AB && c != 0x3A2) ||
        (c >= 0x410 && c <= 0x42F)) {
        return static_cast<char16_t>(c + 32);
    }
    if (c >= 0x400 && c <= 0x40F)
        return static_cast<char16_t>(c + 80);
    if (c == 0x130)
        return u'i';
    if (c == 0x178)
        return 0xFF;
    bool evenUpper = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177) ||
                     (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) ||
                     (c >= 0x4D0 && c <= 0x52F) || (c >= 0x218 && c <= 0x21B);
    if (evenUpper)
        return (c % 2 == 0) ? static_cast<char16_t>(c + 1) : c;
    bool oddUpper =
        (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E) || (c >= 0x4C1 && c <= 0x4CE);
    if (oddUpper)
        return (c % 2 == 1) ? static_cast<char16_t>(c + 1) : c;
    return c;
}

char16_t BaseLetter(char16_t c) {
    char16_t lower = FoldLower(c);
    if (lower >= u'a' && lower <= u'z')
        return lower;
    char base = '.';
    if (c >= 0xC0 && c <= 0xFF)
        base = kLatin1Base[c - 0xC0];
    if (c >= 0x100 && c <= 0x17F)
        base = kLatinExtendedABase[c - 0x100];
    if (c >= 0x218 && c <= 0x21B)
        base = (c < 0x21A) ? 's' : 't';
    return base == '.' ? 0 : static_cast<char16_t>(base);
}

int SingleKey(uint16_t mask) {
    if (mask == 0 || (mask & (mask - 1)) != 0)
        return -1;
    int k = 0;
    while ((mask >> k) != 1)
        ++k;
    return k;
}

LetterKeys::LetterKeys() : masks_(0x10000, 0) {
    AddLatinAndDigits();
}

LetterKeys::LetterKeys(const KeypadLayout& layout) : masks_(0x10000, 0) {
    AddLatinAndDigits();
    // Layout letters, case ignored: every character whose lower case is listed on a key.
    std::vector<uint16_t> byLower(0x10000, 0);
    for (int k = 0; k < layout.letters.Size() && k < 8; ++k) {
        const Str& letters = layout.letters[k];
        for (int i = 0; i < letters.Length(); ++i) {
            byLower[FoldLower(letters[i])] |= static_cast<uint16_t>(1u << (k + 2));
        }
    }
    for (uint32_t c = 1; c < 0x10000; ++c) {
        uint16_t extra = byLower[FoldLower(static_cast<char16_t>(c))];
        if (extra == 0 || (c >= u'0' && c <= u'9'))
            continue;
        masks_[c] |= extra;
        if (SingleKey(masks_[c]) < 0)
            ambiguous_ = true;
    }
}

void LetterKeys::AddLatinAndDigits() {
    for (uint32_t c = 1; c < 0x10000; ++c) {
        if (c >= u'0' && c <= u'9') {
            masks_[c] = static_cast<uint16_t>(1u << (c - u'0'));
            continue;
        }
        char16_t base = BaseLetter(static_cast<char16_t>(c));
        if (base != 0)
            masks_[c] = static_cast<uint16_t>(1u << (kLatinKeys[base - u'a'] - '0'));
    }
}
